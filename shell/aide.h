#pragma once
// The help, a file that the settings name: whether it is there, and its opening by the program that the user has for
// it.
#include "core/langue.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

namespace velm {

/// None is owned.
struct Aide {
    Seance& seance;
    Langue& langue;
    const MondeExterieur& monde;

    /// Whether there is something to open: without, nothing in the windows offers help.
    bool presente() const { return !fichier().isEmpty(); }
    /// Opens the file of the settings, in either spelling of its name; says so when there is none.
    void ouvre() const;

private:
    QString fichier() const;
};

} // namespace velm
