#pragma once
// The base that a command reads.
#include "core/corpus.h"
#include "outil/sortie.h"

namespace velm::outil {

/// The base that --base names, else the one beside the program.
QString cheminbase(const Contexte& contexte);

/// Opens the base, or says why it cannot be opened.
int ouvrebase(Contexte& contexte, Corpus& corpus, const QString& chemin);

} // namespace velm::outil
