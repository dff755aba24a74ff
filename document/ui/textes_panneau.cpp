// The panel of a document window, its division, and what hangs on the bars.
#include "document/listecollection.h"
#include "document/ui/blocrecherche.h"
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "platform/base/memory.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"

#include <QLineEdit>
#include <QScopeGuard>
#include <QStyle>

namespace velm {

using namespace Qt::Literals::StringLiterals;

void Textes::construitpanneau() {
    arbre_ = new TreeView(this);
    arbre_->setObjectName(u"arbre"_s);
    arbre_->setAccessibleName(texte(9082));
    arbre_->setFrameShape(QFrame::NoFrame);
    arbre_->setImages(&icon);
    flex_ = new FlexGrid(this);
    flex_->setObjectName(u"flex"_s);
    flex_->setAccessibleName(texte(9083));
    blocrecherche_ = new BlocRecherche(contexte_.texte, this);
    blocrecherche_->setEnabled(static_cast<bool>(contexte_.cherchemots));
    if (contexte_.completemots)
        contexte_.completemots(*blocrecherche_->Textedico());
}

// ---- blocks

void Textes::changebloc(const QString& ar) {
    ar_ = ar;
    disposition_.deplie(ar == u"0");
    disposition_.deplaceseparateur();
    traitear();
    applique();
    if (ar_ == u"0" && blocrecherche_->Textedico()->isVisible())
        blocrecherche_->Textedico()->setFocus();
}

void Textes::traitear() {
    barre_->setValue(u"arbre"_s, ar_ == u"1");
    barre_->setValue(u"tableau"_s, ar_ == u"2");
    barre_->setValue(u"recherchedico"_s, ar_ == u"0");
    if (ar_ == u"1" && !arbrecharge_)
        remplit([this] { chargerarbre(); });
    if (ar_ == u"2" && !flexcharge_)
        remplit([this] { chargerflex(); });
    montrebloc();
    barre_->update();
}

void Textes::montrebloc() {
    const bool lisible = disposition_.places().panneaulisible;
    const QWidget* avant = window()->focusWidget();
    arbre_->setVisible(lisible && ar_ == u"1");
    flex_->setVisible(lisible && ar_ == u"2");
    blocrecherche_->setVisible(lisible && ar_ == u"0");
    // Where the focus was in a block that has gone, it goes to the text.
    if (avant && isAncestorOf(avant) && !avant->isVisibleTo(this))
        vue_->setFocus();
}

/// Where the memory does not suffice for a list it is not filled, and asked for again when it is shown the next time.
void Textes::remplit(const std::function<void()>& travail) {
    constexpr int sansmemoire = 9567;
    if (!withinMemory(travail) && contexte_.dit)
        contexte_.dit(texte(sansmemoire));
}

void Textes::chargerarbre() {
    TreeNodes& noeuds = arbre_->nodes();
    arborescence_.chargearbrebase(noeuds, code_);
    noeuds.setExpanded(1, true); // what lies below it is loaded already
    arbrecharge_ = true;
}

void Textes::chargerflex() {
    const Attente attente(contexte_.sablier);
    flex_->setRedraw(false);
    const auto redessine = qScopeGuard([this] { flex_->setRedraw(true); });
    flex_->setCols(ListeCollection::colonnes);
    flex_->setHeaderFontSize(14);
    flex_->setColumnsMovable(true);
    flex_->setMergeCells(true);
    const QString ordre = ordredescolonnes(reglages_.listeordre);
    const auto largeurs = largeursdescolonnes(reglages_.listelargeurs);
    for (int colonne = 0; colonne < ListeCollection::colonnes; ++colonne) {
        const int chiffre = ordre.at(colonne).digitValue();
        flex_->setColWidth(colonne, colonne < colonnesvisibles ? largeurs.at(static_cast<std::size_t>(colonne)) : 0);
        flex_->setColData(colonne, chiffre);
        flex_->setHeader(colonne, texte(300 + chiffre));
        flex_->setHeaderAlignment(colonne, FlexGrid::Align::Centre);
    }
    flex_->setSource(std::make_unique<ListeCollection>(contexte_.corpus, code_, ordre));
    flex_->sort(0, false);
    largeurslibres_ = largeurs == largeursdescolonnes(QString());
    largeurtitre_ = largeurmotcle_ = largeurs[0];
    flexcharge_ = true;
    repartitcolonnes();
}

void Textes::repartitcolonnes() {
    // As long as nobody has touched a width the columns share the room that is there, two parts for the titles.
    if (!flexcharge_ || !largeurslibres_)
        return;
    const auto parcolonne = [this](auto&& fais) {
        for (int colonne = 0; colonne < colonnesvisibles; ++colonne)
            fais(colonne, flex_->colData(colonne) == 0 ? largeurtitre_ : largeurmotcle_);
    };
    parcolonne([this](int colonne, int largeur) { largeurslibres_ &= flex_->colWidth(colonne) == largeur; });
    if (!largeurslibres_)
        return;
    const int usuelle = largeursdescolonnes(QString())[0];
    const int barre = twipsFromPixels(style()->pixelMetric(QStyle::PM_ScrollBarExtent) + look::grid);
    const int place = twipsFromPixels(flex_->width()) - barre;
    largeurmotcle_ = std::max(usuelle, twipsFromPixels(pixelsFromTwips(place / (colonnesvisibles + 1))));
    largeurtitre_ = std::max(usuelle, place - (colonnesvisibles - 1) * largeurmotcle_);
    parcolonne([this](int colonne, int largeur) { flex_->setColWidth(colonne, largeur); });
}

void Textes::ouvreligne(int ligne) {
    const auto* liste = static_cast<const ListeCollection*>(flex_->source());
    const Cle visee = liste && ligne > 0 ? liste->cle(ligne - 1) : Cle();
    if (!visee.vide())
        contexte_.navigation.ouvre(visee);
}

void Textes::triecolonne(int colonne) {
    remplit([this, colonne] {
        const Attente attente(contexte_.sablier);
        flex_->sort(colonne, flex_->sortMark(colonne) == FlexGrid::Mark::Ascending);
    });
}

void Textes::clicnoeud(int noeud) {
    const Cle visee = Arborescence::documentde(arbre_->nodes(), noeud, code_);
    if (visee.vide())
        return;
    contexte_.navigation.ouvre(visee);
    // A document that was not reached from a search has no marked words to walk through.
    for (const auto& cle : {u"motprécédent"_s, u"motsuivant"_s})
        barre_->setButtonVisible(cle, false);
}

// ---- division

void Textes::place() {
    const MesuresTextes mesures{twipsFromPixels(barre_->sizeHint().height()), twipsFromPixels(liens_->hauteurentete()),
                                twipsFromPixels(SplitterBar::thickness)};
    disposition_.changetaille(twipsFromPixels(width()), twipsFromPixels(height()), mesures);
    if (partage_)
        disposition_.partagelistes();
    disposition_.replaceseparateur();
    applique();
}

void Textes::applique() {
    const PlacesTextes& places = disposition_.places();
    const auto pose = [](QWidget* controle, const QRect& twips) { controle->setGeometry(pixelsdetwips(twips)); };
    barre_->setGeometry(0, 0, width(), std::min(barre_->sizeHint().height(), height()));
    separateur_->setOrientation(disposition_.droite() ? Qt::Vertical : Qt::Horizontal);
    for (QWidget* bloc :
         {static_cast<QWidget*>(arbre_), static_cast<QWidget*>(flex_), static_cast<QWidget*>(blocrecherche_)})
        pose(bloc, places.panneau);
    repartitcolonnes();
    pose(separateur_, places.separateur);
    pose(vue_, places.rtfRichTextBox1);
    pose(separateurlisteh_, places.separateurlisteh);
    pose(separateurlistev_, places.separateurlistev);
    pose(liens_->entete(), places.entetelistedesliens);
    pose(correlats_->entete(), places.entetelistedescorrelats);
    pose(liens_->grille(), places.flexlistedesliens);
    pose(correlats_->grille(), places.flexlistedescorreles);
    liens_->grille()->setVisible(disposition_.listesvisibles);
    correlats_->grille()->setVisible(disposition_.listesvisibles);
    separateurlisteh_->setEnabled(disposition_.listesvisibles);
    montrebloc();
}

void Textes::lache(const SplitterBar& barre, int position) {
    const int twips = twipsFromPixels(position);
    const bool debout = barre.orientation() == Qt::Vertical;
    partage_ = partage_ && &barre != separateurlistev_;
    disposition_.lache(barre.objectName(), debout ? QPoint(twips, 0) : QPoint(0, twips));
    applique();
}

void Textes::changearrangement(const QString& vh) {
    disposition_.changearrangement(vh);
    place();
}

} // namespace velm
