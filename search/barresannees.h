#pragma once
// The years of a list as bars side by side: one for each year from the first to the last, where there is room, else for
// several of them together.
#include "search/listechrono.h"

#include <vector>

namespace velm {

struct BarreAnnees {
    int annee = 0;    ///< the first that it stands for
    int derniere = 0; ///< and the last
    int nombre = 0;   ///< of documents, of all its years
};

/// At most `places` bars, in the order of the years, none for no year. Years that lie far beside the others, as slips
/// of the pen do, take no room from them: where the years do not fit, only those that have documents are counted.
std::vector<BarreAnnees> barresdesannees(const std::vector<AnneeChrono>& annees, int places);

} // namespace velm
