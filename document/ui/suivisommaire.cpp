#include "document/ui/suivisommaire.h"

#include "document/arborescence.h"
#include "document/ui/contextetextes.h"
#include "platform/widgets/tree/treeview.h"

namespace velm {

SuiviSommaire::SuiviSommaire(TreeView& arbre, Arborescence& arborescence, const ContexteTextes& contexte)
    : SuiviDocument(arbre, &arbre), arbre_(arbre), arborescence_(arborescence), contexte_(contexte) {}

bool SuiviSommaire::remplie() const {
    return arbre_.nodes().count() > 1; // the root alone is no contents
}

void SuiviSommaire::montre() {
    contexte_.remplit([this] {
        const int feuille = arborescence_.mene(arbre_.nodes(), cle(), numero());
        arbre_.setMarked(feuille);
        arbre_.bringIntoSight(feuille);
    });
}

void SuiviSommaire::marque() {
    arbre_.setMarked(Arborescence::feuillede(arbre_.nodes(), cle()));
}

} // namespace velm
