#include "document/ui/blocliste.h"

#include "document/listecollection.h"
#include "platform/base/memory.h"
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"

#include <QScopeGuard>
#include <QStyle>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

BlocListe::BlocListe(const QString& code, Corpus& corpus, Sablier& sablier, const std::function<QString(int)>& texte,
                     QWidget* fenetre)
    : QObject(fenetre), code_(code), corpus_(corpus), sablier_(sablier), texte_(texte), grille_(new FlexGrid(fenetre)) {
    grille_->setObjectName(u"flex"_s);
    grille_->setAccessibleName(texte_(9083));
    connect(grille_, &FlexGrid::doubleClicked, this, &BlocListe::clic);
    connect(grille_, &FlexGrid::activated, this, &BlocListe::ouvreligne);
}

void BlocListe::charge(const ReglagesTextes& reglages) {
    const Attente attente(sablier_);
    grille_->setRedraw(false);
    const auto redessine = qScopeGuard([this] { grille_->setRedraw(true); });
    prepare(reglages);
    grille_->setSource(std::make_unique<ListeCollection>(corpus_, code_, ordredescolonnes(reglages.listeordre)));
    grille_->sort(0, false);
    const auto largeurs = largeursdescolonnes(reglages.listelargeurs);
    largeurslibres_ = largeurs == largeursdescolonnes(QString());
    largeurtitre_ = largeurmotcle_ = largeurs[0];
    chargee_ = true;
    repartit();
}

void BlocListe::prepare(const ReglagesTextes& reglages) {
    grille_->setCols(ListeCollection::colonnes);
    grille_->setHeaderFontSize(14);
    grille_->setColumnsMovable(true);
    grille_->setMergeCells(true);
    const QString ordre = ordredescolonnes(reglages.listeordre);
    const auto largeurs = largeursdescolonnes(reglages.listelargeurs);
    for (int colonne = 0; colonne < ListeCollection::colonnes; ++colonne) {
        const int chiffre = ordre.at(colonne).digitValue();
        grille_->setColWidth(colonne, colonne < colonnesvisibles ? largeurs.at(static_cast<std::size_t>(colonne)) : 0);
        grille_->setColData(colonne, chiffre);
        grille_->setHeader(colonne, texte_(300 + chiffre));
        grille_->setHeaderAlignment(colonne, FlexGrid::Align::Centre);
    }
}

void BlocListe::repartit() {
    if (!chargee_ || !largeurslibres_)
        return;
    const auto parcolonne = [this](auto&& fais) {
        for (int colonne = 0; colonne < colonnesvisibles; ++colonne)
            fais(colonne, grille_->colData(colonne) == 0 ? largeurtitre_ : largeurmotcle_);
    };
    parcolonne([this](int colonne, int largeur) { largeurslibres_ &= grille_->colWidth(colonne) == largeur; });
    if (!largeurslibres_)
        return;
    const int usuelle = largeursdescolonnes(QString())[0];
    const int barre = twipsFromPixels(grille_->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + look::grid);
    const int place = twipsFromPixels(grille_->width()) - barre;
    largeurmotcle_ = std::max(usuelle, twipsFromPixels(pixelsFromTwips(place / (colonnesvisibles + 1))));
    largeurtitre_ = std::max(usuelle, place - (colonnesvisibles - 1) * largeurmotcle_);
    parcolonne([this](int colonne, int largeur) { grille_->setColWidth(colonne, largeur); });
}

void BlocListe::retient(ReglagesTextes& reglages) {
    std::array<int, colonnesvisibles> champs{-1, -1, -1, -1};
    if (chargee_) {
        std::array<int, colonnesvisibles> largeurs{};
        for (int colonne = 0; colonne < colonnesvisibles; ++colonne) {
            champs.at(static_cast<std::size_t>(colonne)) = grille_->colData(colonne);
            largeurs.at(static_cast<std::size_t>(colonne)) = grille_->colWidth(colonne);
        }
        repartit(); // sees whether a width was touched
        if (!largeurslibres_)
            reglages.listelargeurs = largeursaenregistrer(largeurs);
    }
    reglages.listeordre = ordreaenregistrer(champs);
}

void BlocListe::clic(int ligne, int colonne) {
    if (ligne == 0)
        trie(colonne);
    else
        ouvreligne(ligne);
}

void BlocListe::ouvreligne(int ligne) {
    const auto* liste = static_cast<const ListeCollection*>(grille_->source());
    const Cle visee = liste && ligne > 0 ? liste->cle(ligne - 1) : Cle();
    if (!visee.vide())
        emit ouverte(visee);
}

void BlocListe::trie(int colonne) {
    const bool fait = withinMemory([this, colonne] {
        const Attente attente(sablier_);
        grille_->sort(colonne, grille_->sortMark(colonne) == FlexGrid::Mark::Ascending);
    });
    if (!fait)
        emit sansmemoire();
}

} // namespace velm
