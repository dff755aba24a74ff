#pragma once
// What a selection tool hands over: a file of keys, which fills the list.
#include "search/recherche.h"

#include <optional>

namespace velm {

/// Name of the file in the folder for temporary files.
QString fichierselection(const QString& dossiertemporaire);

struct ResultatSelection {
    qint64 hits = 0;
    PublicationFin fin;
};

/// Fills the list from the file: two lines with the words to mark, then a key on each line; documents that are not
/// there are passed over. The file is deleted. Nothing happens when there is none. A file that is there but cannot be
/// read leaves an empty list.
std::optional<ResultatSelection> remplitdepuisoutil(const QString& chemin, const Atelier& atelier);

} // namespace velm
