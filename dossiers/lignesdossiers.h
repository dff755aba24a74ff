#pragma once
// The dossiers of a store as lines, in the order of their tree.
#include "platform/engine/database.h"

#include <QString>

#include <vector>

namespace velm {

struct LigneDossier {
    qint64 numero = 0;
    qint64 parent = 0; ///< 0: the root
    int niveau = 0;    ///< 0 below the root
    QString nom;
    qint64 elements = 0;
    bool perdu = false; ///< no way leads to it from the root

    friend bool operator==(const LigneDossier&, const LigneDossier&) = default;
};

/// Each before those below it; those that are lost come last, at level 0, whatever they name as their parent. A base
/// without the table is a run-time error.
std::vector<LigneDossier> lignesdesdossiers(Database& base);

} // namespace velm
