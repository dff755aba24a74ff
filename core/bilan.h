#pragma once
// What came of a search, as it is said beside where it was asked.
#include <QString>

namespace velm {

struct BilanRecherche {
    QString phrase = {}; ///< empty: nothing to say
    bool rien = false;   ///< nothing was found
    bool coupe = false;  ///< there may be more than what the list shows
};

} // namespace velm
