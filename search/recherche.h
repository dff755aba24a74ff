#pragma once
// What every search works with, and what it leaves.
#include "core/corpus.h"
#include "platform/system/dialogues.h"
#include "platform/system/sablier.h"
#include "search/cession.h"
#include "search/listeselection.h"

#include <functional>

namespace velm {

/// Nothing is owned.
struct Atelier {
    Corpus& corpus;
    ListeSelection& liste;
    Sablier& sablier;
    Dialogues& dialogues;
    Cession& cession;
    std::function<QString(int)> texte;
    /// Writes into the status panel.
    std::function<void(const QString&)> curseurattente;
};

inline constexpr qint64 sanslimite = 999'999;
/// The hit limit of an entry of the limit lists: 50, 100, none.
qint64 limitedindex(int listindex);

/// Empties and hides the list and clears the status panel: a search begins.
void commenceliste(const Atelier& atelier);
/// The list shows what there is, in the order in which it was found.
PublicationFin finitliste(const Atelier& atelier);

/// Adds the document on which `données` stands.
int ajoutedocument(ListeSelection& liste, const Recordset& donnees);

} // namespace velm
