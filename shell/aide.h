#pragma once
// The help file.
#include "core/langue.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

namespace velm {

/// None is owned.
struct Aide {
    Seance& seance;
    Langue& langue;
    const MondeExterieur& monde;

    /// Opens the file of the settings, in either spelling of its name; says so when there is none.
    void ouvre() const;
};

} // namespace velm
