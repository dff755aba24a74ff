#include "dossiers/commandesdossiers.h"

namespace velm {

void CommandesDossiers::selonnoeud(const ArbreDossiers& arbre, const TreeNodes& noeuds) {
    const int noeud = noeuds.selected();
    const bool dossier = noeud != 0 && !arbre.estracine(noeud);
    haut = noeud != 0 && noeuds.place(noeud) != 0;
    bas = noeud != 0 && noeuds.next(noeud) != 0;
    renommer = dossier;
    supprimer = dossier;
    ajouter = noeud != 0 && !arbre.porte(noeud, u'S');
}

void CommandesDossiers::selonliste(const ListItems& elements) {
    const int index = elements.selected();
    ajouter = false;
    if (index == 0)
        return;
    haut = index != 1;
    bas = index != elements.count();
    supprimer = true;
    renommer = true;
}

} // namespace velm
