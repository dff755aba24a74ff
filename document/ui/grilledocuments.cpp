#include "document/ui/grilledocuments.h"

#include "core/cle.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"

#include <QApplication>
#include <QScopeGuard>
#include <QTableView>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Where titles and keywords have less they share one column, the keywords below the titles.
constexpr int etroite = 420;

/// The picture of a collection; none for what is not the code of one.
QIcon imagedecollection(const QString& code) {
    const int indice = indicedetype(code);
    return indice < nombredecollections && typedindice(indice) == code ? icon(u"collection%1"_s.arg(indice)) : QIcon();
}

} // namespace

GrilleDocuments::GrilleDocuments(FlexGrid& flex, Colonnes& colonnes, const Usage& usage)
    : flex_(flex), colonnes_(colonnes), usage_(usage) {
    const bool avant = flex_.redraw();
    flex_.setRedraw(false);
    flex_.setCols(colonnes_.nombre());
    flex_.setNarrowBelow(etroite);
    flex_.setColumnsMovable(usage_.deplacables);
    // The source counts them in the order of the model; they are moved from there.
    const std::vector<ModeleColonne>& modele = colonnes_.modele().colonnes;
    for (int colonne = 0; colonne < colonnes_.nombre(); ++colonne) {
        const int champ = modele[static_cast<std::size_t>(colonne)].champ;
        flex_.setColData(colonne, champ);
        flex_.setHeader(colonne, colonnes_.titre(colonnes_.place(champ)));
        flex_.setColAlignment(colonne, FlexGrid::Align::Left);
        flex_.setColWeight(colonne, modele[static_cast<std::size_t>(colonne)].poids);
    }
    montrecolonnes();
    flex_.setColPicture(colonnes_.place(usage_.champimage), &imagedecollection, colonnes_.place(usage_.imagedevant));
    flex_.setStretchCol(colonnes_.place(usage_.champetire));
    flex_.setRedraw(avant);
    connect(&flex_, &FlexGrid::columnMoved, this, &GrilleDocuments::releve);
    connect(&flex_, &FlexGrid::clicked, this, [this](int ligne, int colonne) {
        if (usage_.unclic || (usage_.clicouvre && ligne > 0))
            presse(ligne, colonne);
    });
    connect(&flex_, &FlexGrid::doubleClicked, this, [this](int ligne, int colonne) {
        if (!usage_.unclic && !(usage_.clicouvre && ligne > 0))
            presse(ligne, colonne);
    });
    connect(&flex_, &FlexGrid::activated, this, &GrilleDocuments::ouvre);
    connect(&flex_, &FlexGrid::deletePressed, this, &GrilleDocuments::suppressionvoulue);
    connect(&flex_, &FlexGrid::rightClicked, this, [this](int ligne, int, const QPoint& ou) { pressemenu(ligne, ou); });
}

// ---- columns

void GrilleDocuments::montrecolonnes() {
    for (int place = 0; place < colonnes_.nombre(); ++place) {
        int ici = place;
        while (flex_.colData(ici) != colonnes_.champ(place))
            ++ici;
        flex_.setColPosition(ici, place);
    }
    for (int place = 0; place < colonnes_.nombre(); ++place) {
        flex_.setColWidth(place, colonnes_.largeur(place));
        flex_.setColHeld(place, !colonnes_.usuelle(place));
    }
}

void GrilleDocuments::releve() {
    for (int place = 0; place < colonnes_.visibles(); ++place)
        colonnes_.deplace(colonnes_.place(flex_.colData(place)), place);
    for (int place = 0; place < colonnes_.visibles(); ++place)
        colonnes_.changelargeur(place, flex_.colWidth(place));
}

// ---- rows

void GrilleDocuments::charge(std::unique_ptr<SourceDocuments> source) {
    const bool avant = flex_.redraw();
    flex_.setRedraw(false);
    const auto redessine = qScopeGuard([this, avant] { flex_.setRedraw(avant); });
    flex_.setSource(std::move(source));
    if (avant) // while nothing is painted the widths are left to montre()
        flex_.fitShares();
    effacemarques();
}

void GrilleDocuments::recharge(std::unique_ptr<SourceDocuments> source) {
    const Cle choisie = cle(flex_.row());
    const int haut = flex_.topRow();
    const auto [colonne, descendant] = tri();
    charge(std::move(source));
    if (colonne >= 0)
        flex_.sort(colonne, descendant);
    choisit(choisie, haut);
}

void GrilleDocuments::vide() {
    charge(nullptr);
}

const SourceDocuments* GrilleDocuments::source() const {
    return dynamic_cast<const SourceDocuments*>(flex_.source());
}

Cle GrilleDocuments::cle(int ligne) const {
    const SourceDocuments* celle = source();
    return celle && ligne > 0 ? celle->cle(ligne - 1) : Cle();
}

int GrilleDocuments::ligne(const Cle& cle) const {
    const SourceDocuments* celle = source();
    return celle ? celle->row(cle) + 1 : 0;
}

std::vector<Cle> GrilleDocuments::cles(int premiere, int derniere) const {
    std::vector<Cle> toutes;
    for (int ligne = std::max(premiere, 1); ligne <= std::min(derniere, flex_.rows() - 1); ++ligne)
        toutes.push_back(cle(ligne));
    std::erase_if(toutes, [](const Cle& une) { return une.vide(); });
    return toutes;
}

// ---- order

GrilleDocuments::Tri GrilleDocuments::tri() const {
    for (int colonne = 0; colonne < flex_.cols(); ++colonne) {
        if (flex_.sortMark(colonne) != FlexGrid::Mark::None)
            return {colonne, flex_.sortMark(colonne) == FlexGrid::Mark::Descending};
    }
    return {};
}

int GrilleDocuments::colonnesource(int colonne) const {
    const std::vector<ModeleColonne>& modele = colonnes_.modele().colonnes;
    const auto la = std::ranges::find(modele, flex_.colData(colonne), &ModeleColonne::champ);
    return la == modele.end() ? -1 : static_cast<int>(la - modele.begin());
}

void GrilleDocuments::trie(int colonne) {
    const bool tout = flex_.row() != flex_.rowSel() && flex_.selectedRows() == std::pair(1, flex_.rows() - 1);
    const Cle choisie = usage_.suitletri && !tout ? cle(flex_.row()) : Cle();
    const int haut = flex_.topRow();
    if (flex_.sort(colonne, flex_.sortMark(colonne) == FlexGrid::Mark::Ascending) && !choisie.vide())
        choisit(choisie, haut);
}

void GrilleDocuments::effacemarques() {
    for (int colonne = 0; colonne < flex_.cols(); ++colonne)
        flex_.setSortMark(colonne, FlexGrid::Mark::None);
}

/// Puts a row on top, and then selects that of a document, which is seen in any case.
void GrilleDocuments::choisit(const Cle& voulue, int haut) {
    flex_.setTopRow(std::clamp(haut, 1, std::max(flex_.rows() - 1, 1)));
    if (voulue.vide())
        return;
    if (const int ici = ligne(voulue); ici > 0)
        flex_.setRow(ici);
}

// ---- changes in the rows

void GrilleDocuments::cache() {
    focus_ = flex_.view()->hasFocus();
    flex_.setRedraw(false);
    flex_.hide();
}

void GrilleDocuments::montre(bool visible) {
    flex_.fitShares();
    flex_.setRedraw(true);
    if (flex_.row() == 0)
        flex_.setTopRow(1);
    flex_.setVisible(visible);
    // The toolkit has given the focus of the hidden grid to some neighbour: it comes back, unless the user has taken it
    // elsewhere.
    const QWidget* avec = flex_.window()->focusWidget();
    if (std::exchange(focus_, false) && visible && (!avec || flex_.parentWidget()->isAncestorOf(avec)))
        flex_.setFocus();
}

// ---- what is pressed

void GrilleDocuments::presse(int ligne, int colonne) {
    if (ligne == 0) {
        emit trivoulu(colonne);
        return;
    }
    // The second half of a double click would fall on the list of the document that the first one has opened.
    if (!usage_.unclic || !depuisouverture_.isValid() ||
        depuisouverture_.hasExpired(QApplication::doubleClickInterval()))
        ouvre(ligne);
}

void GrilleDocuments::pressemenu(int ligne, const QPoint& ou) {
    if (usage_.menuchoisit && ligne > 0)
        flex_.setRow(ligne);
    emit menuvoulu(ou);
}

void GrilleDocuments::ouvre(int ligne) {
    const auto [premiere, derniere] = usage_.plage ? flex_.selectedRows() : std::pair(ligne, ligne);
    const SourceDocuments* celle = source();
    if (!celle || (veut_ && !veut_(derniere - premiere + 1)))
        return;
    std::vector<Cle> voulues;
    QStringList ancres;
    for (int ici = std::max(premiere, 1); ici <= std::min(derniere, flex_.rows() - 1); ++ici) {
        if (const Cle une = cle(ici); !une.vide()) {
            voulues.push_back(une);
            ancres << celle->ancre(ici - 1);
        }
    }
    if (voulues.empty())
        return;
    depuisouverture_.start();
    emit ouvertes(voulues, ancres);
}

PaperTable GrilleDocuments::tableau(const QString& titre) {
    flex_.selectAll();
    PaperTable papier{titre, {}, {}, flex_.clip()};
    for (int colonne = 0; colonne < flex_.cols(); ++colonne) {
        papier.headers << flex_.header(colonne);
        papier.widths << flex_.colWidth(colonne);
    }
    return papier;
}

} // namespace velm
