#pragma once
// Which commands of the dossiers are open.
#include "dossiers/arbredossiers.h"
#include "platform/controls/listitems.h"

namespace velm {

struct CommandesDossiers {
    bool ajouter = false;
    bool supprimer = false;
    bool renommer = false;
    bool haut = false;
    bool bas = false;
    bool contenu = false; ///< what is done with all items of a dossier: to print, to save, to send it

    /// For the selected node, by its place among its siblings.
    void selonnoeud(const ArbreDossiers& arbre, const TreeNodes& noeuds);
    /// For the list: by the place of the selected item; without one only `ajouter` changes.
    void selonliste(const ListItems& elements);
    /// There is no item to do something with.
    void sanselement() { haut = bas = supprimer = renommer = false; }

    friend bool operator==(const CommandesDossiers&, const CommandesDossiers&) = default;
};

} // namespace velm
