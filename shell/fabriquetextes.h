#pragma once
// Makes document windows and tells them what they need of their surroundings.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/styles.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

#include <array>

namespace velm {

class Bureau;
class ChildArea;
class Ecrangeneral;
class Selection;
class Textes;
class VoletSelection;
struct ContexteTextes;

/// None is owned; all outlive the windows.
struct FabriqueTextes {
    Ecrangeneral& ecran;
    ChildArea& aire;
    VoletSelection& volet;
    Bureau& bureau;
    Selection& selection;
    Corpus& corpus;
    Reglages& reglages;
    Langue& langue;
    const TableStyles& styles;
    Seance& seance;
    const MondeExterieur& monde;
    std::array<bool, nombredefenetres>& rafraichir;

    /// The window of a slot, for the frame's area to take over.
    Textes* fait(int indice) const;

private:
    void raccordecadre(ContexteTextes& contexte) const;
    void raccordemots(ContexteTextes& contexte) const;
};

} // namespace velm
