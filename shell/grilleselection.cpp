#include "shell/grilleselection.h"

#include "platform/widgets/grid/flexgrid.h"
#include "shell/volet.h"

namespace velm {

FlexGrid& GrilleSelection::flex() const {
    return volet_.flex();
}

void GrilleSelection::construit(ListeSelection& liste) {
    flex().setRedraw(false);
    documents_ = std::make_unique<GrilleDocuments>(
        flex(), liste.colonnes(),
        GrilleDocuments::Usage{.champimage = ListeSelection::Reference, .imagedevant = ListeSelection::Titre});
    documents_->charge(liste.source());
}

void GrilleSelection::relache() {
    documents_->vide();
    documents_.reset();
}

// ---- the rows

void GrilleSelection::cache() {
    documents_->cache();
}

void GrilleSelection::fige() {
    flex().setRedraw(false);
}

void GrilleSelection::relit() {
    flex().setRedraw(true);
}

void GrilleSelection::montre(bool visible) {
    documents_->montre(visible);
}

void GrilleSelection::montremarque(int colonne, ListeSelection::Marque marque) {
    flex().setSortMark(colonne, marque == ListeSelection::Marque::Ascendante    ? FlexGrid::Mark::Ascending
                                : marque == ListeSelection::Marque::Descendante ? FlexGrid::Mark::Descending
                                                                                : FlexGrid::Mark::None);
}

void GrilleSelection::trie(int colonne, bool descendant) {
    flex().sort(colonne, descendant);
}

void GrilleSelection::regroupe(bool regroupees) {
    flex().setMergeCells(regroupees);
}

std::pair<int, int> GrilleSelection::choix() const {
    return {flex().row(), flex().rowSel()};
}

void GrilleSelection::choisit(int row, int rowsel) {
    flex().setRow(row);
    if (rowsel != row)
        flex().setRowSel(rowsel);
}

void GrilleSelection::choisittout() {
    flex().selectAll();
}

QString GrilleSelection::copie() const {
    return flex().clip();
}

int GrilleSelection::largeur(int colonne) const {
    return flex().colWidth(colonne);
}

bool GrilleSelection::etroite() const {
    return flex().isNarrow();
}

} // namespace velm
