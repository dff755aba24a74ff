#pragma once
// What a selection tool hands over: a file of keys, which fills the list.
#include "search/recherche.h"

namespace velm {

/// Name of the file in the folder for temporary files.
QString fichierselection(const QString& dossiertemporaire);

/// New rows from the file: two lines with the words to mark, then a key on each line; documents that are not there are
/// passed over. The file is deleted. False, and nothing has changed, when there is none. A file that is there but
/// cannot be read leaves no row.
bool remplitdepuisoutil(const QString& chemin, Corpus& corpus, Resultat& resultat);

} // namespace velm
