#pragma once
// What every list of documents says of itself, and asks before it does much at once.
#include "core/texte.h"
#include "platform/system/dialogues.h"
#include "platform/system/imprimante.h"
#include "platform/system/sablier.h"

#include <QString>

namespace velm {

/// The count as a status panel shows it: the number with its leading blank and the word, in the singular up to 1.
/// `texte` is the language file, here and below.
QString textecompte(qint64 nombre, const Libelles& texte);

/// Whether so many documents are to be opened: asks where there are more than fifty.
bool veutouvrir(qsizetype nombre, Dialogues& dialogues, const Libelles& texte);

/// Asks whether a list is to be printed.
bool veutimprimer(Dialogues& dialogues, const Libelles& texte);
/// The title of a list on paper.
QString titreimprime(const Libelles& texte);
/// Prints, and says so when nothing came of it.
void imprimeliste(const PaperTable& papier, Imprimante& imprimante, Sablier& sablier, Dialogues& dialogues,
                  const Libelles& texte);

} // namespace velm
