#include "document/ui/blocliste.h"

#include "core/texte.h"
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

BlocListe::BlocListe(const QString& code, Corpus& corpus, Sablier& sablier, const Libelles& texte, QWidget* fenetre)
    : QObject(fenetre), code_(code), corpus_(corpus), sablier_(sablier), grille_(new FlexGrid(fenetre)),
      colonnes_(ListeCollection::modele(), texte),
      documents_(*grille_, colonnes_, {.plage = false, .pointsdestitres = 14}) {
    grille_->setObjectName(u"flex"_s);
    grille_->setAccessibleName(texte(Texte::ListeDeLaCollection));
    grille_->setMergeCells(true);
    connect(&documents_, &GrilleDocuments::trivoulu, this, &BlocListe::trie);
    connect(&documents_, &GrilleDocuments::ouvertes, this,
            [this](const std::vector<Cle>& cles) { emit ouverte(cles.front()); });
}

void BlocListe::charge(const ReglagesTextes& reglages) {
    const Attente attente(sablier_);
    grille_->setRedraw(false);
    const auto redessine = qScopeGuard([this] { grille_->setRedraw(true); });
    const QString fixe = Colonnes(ListeCollection::modele()).ordre();
    colonnes_.prend(reglages.listeordre, reglages.listelargeurs);
    documents_.montrecolonnes();
    documents_.charge(std::make_unique<ListeCollection>(corpus_, code_, fixe));
    documents_.trie(0);
    largeurslibres_ = colonnes_.largeursusuelles();
    largeurtitre_ = largeurmotcle_ = colonnes_.largeur(0);
    chargee_ = true;
    repartit();
}

void BlocListe::repartit() {
    if (!chargee_ || !largeurslibres_)
        return;
    const auto parcolonne = [this](auto&& fais) {
        for (int colonne = 0; colonne < colonnes_.visibles(); ++colonne)
            fais(colonne, grille_->colData(colonne) == 0 ? largeurtitre_ : largeurmotcle_);
    };
    parcolonne([this](int colonne, int largeur) { largeurslibres_ &= grille_->colWidth(colonne) == largeur; });
    if (!largeurslibres_)
        return;
    const int usuelle = colonnes_.modele().colonnes.front().largeur;
    const int colonnes = colonnes_.visibles();
    const int barre = twipsFromPixels(grille_->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + look::grid);
    const int place = twipsFromPixels(grille_->width()) - barre;
    largeurmotcle_ = std::max(usuelle, twipsFromPixels(pixelsFromTwips(place / (colonnes + 1))));
    largeurtitre_ = std::max(usuelle, place - (colonnes - 1) * largeurmotcle_);
    parcolonne([this](int colonne, int largeur) { grille_->setColWidth(colonne, largeur); });
}

void BlocListe::retient(ReglagesTextes& reglages) {
    if (!chargee_) {
        reglages.listeordre = ListeCollection::ordrejamaisrempli.toString();
        return;
    }
    documents_.releve();
    reglages.listeordre = colonnes_.ordre();
    repartit(); // sees whether a width was touched
    if (!largeurslibres_)
        reglages.listelargeurs = colonnes_.largeurs();
}

void BlocListe::trie(int colonne) {
    const bool fait = withinMemory([this, colonne] {
        const Attente attente(sablier_);
        documents_.trie(colonne);
    });
    if (!fait)
        emit sansmemoire();
}

} // namespace velm
