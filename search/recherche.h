#pragma once
// What all searches share.
#include "core/corpus.h"
#include "search/resultat.h"

namespace velm {

inline constexpr qint64 sanslimite = 999'999;
/// The hit limit of an entry of the limit lists: 50, 100, none.
qint64 limitedindex(int listindex);

/// Adds the document on which `données` stands; false when no more rows are taken.
bool ajoutedocument(Lignes& lignes, const Recordset& donnees);

} // namespace velm
