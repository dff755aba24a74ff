#include "shell/grilleselection.h"

#include "platform/widgets/grid/flexgrid.h"
#include "shell/volet.h"

#include <QTableView>

namespace velm {

FlexGrid& GrilleSelection::flex() const {
    return volet_.flex();
}

// ---- making

void GrilleSelection::construit(ListeSelection& liste, const std::function<QString(int)>& texte) {
    construitcolonnes(texte);
    placecolonnes(liste);
    flex().setSource(liste.source());
}

void GrilleSelection::relache() {
    flex().setSource(nullptr);
}

/// The source knows its columns by their first places: they are made there and then moved.
void GrilleSelection::construitcolonnes(const std::function<QString(int)>& texte) {
    constexpr int pointsdestitres = 10;
    FlexGrid& grille = flex();
    grille.setRedraw(false);
    grille.setCols(ListeSelection::colonnes);
    grille.setHeaderFontSize(pointsdestitres);
    grille.setColumnsMovable(true);
    const ListeSelection premiere(texte);
    for (int colonne = 0; colonne < ListeSelection::colonnes; ++colonne) {
        grille.setColData(colonne, premiere.coldata(colonne));
        grille.setHeader(colonne, premiere.entete(colonne));
        grille.setColAlignment(colonne, FlexGrid::Align::Left);
        grille.setHeaderAlignment(colonne, FlexGrid::Align::Centre);
    }
}

void GrilleSelection::placecolonnes(const ListeSelection& liste) {
    FlexGrid& grille = flex();
    for (int place = 0; place < ListeSelection::colonnesvisibles; ++place) {
        int ici = place;
        while (grille.colData(ici) != liste.coldata(place))
            ++ici;
        grille.setColPosition(ici, place);
    }
    for (int colonne = 0; colonne < ListeSelection::colonnes; ++colonne)
        grille.setColWidth(colonne, liste.largeur(colonne));
}

// ---- the rows

void GrilleSelection::cache() {
    focus_ = flex().view()->hasFocus();
    fige();
    flex().hide();
}

void GrilleSelection::fige() {
    flex().setRedraw(false);
}

void GrilleSelection::relit() {
    flex().setRedraw(true);
}

void GrilleSelection::montre(bool visible) {
    if (flex().row() == 0)
        flex().setTopRow(1);
    flex().setVisible(visible);
    // What is hidden gives the focus to its neighbour.
    const QWidget* avec = volet_.window()->focusWidget();
    if (std::exchange(focus_, false) && visible && (!avec || volet_.isAncestorOf(avec)))
        flex().setFocus();
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

} // namespace velm
