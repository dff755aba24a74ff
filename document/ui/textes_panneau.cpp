// The panel of a document window, its division, and what hangs on the bars.
#include "document/ui/blocliste.h"
#include "document/ui/blocrecherche.h"
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "platform/base/memory.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"

#include <QLineEdit>

namespace velm {

using namespace Qt::Literals::StringLiterals;

void Textes::construitpanneau() {
    arbre_ = new TreeView(this);
    arbre_->setObjectName(u"arbre"_s);
    arbre_->setAccessibleName(texte(9082));
    arbre_->setFrameShape(QFrame::NoFrame);
    arbre_->setImages(&icon);
    liste_ = new BlocListe(code_, contexte_.corpus, contexte_.sablier, contexte_.texte, this);
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
    if (ar_ == u"2" && !liste_->chargee())
        remplit([this] { liste_->charge(reglages_); });
    montrebloc();
    barre_->update();
}

void Textes::montrebloc() {
    const bool lisible = disposition_.places().panneaulisible;
    const QWidget* avant = window()->focusWidget();
    arbre_->setVisible(lisible && ar_ == u"1");
    liste_->grille()->setVisible(lisible && ar_ == u"2");
    blocrecherche_->setVisible(lisible && ar_ == u"0");
    // Where the focus was in a block that has gone, it goes to the text.
    if (avant && isAncestorOf(avant) && !avant->isVisibleTo(this))
        vue_->setFocus();
}

/// Where the memory does not suffice for a list it is not filled, and asked for again when it is shown the next time.
void Textes::remplit(const std::function<void()>& travail) {
    if (!withinMemory(travail))
        ditsansmemoire();
}

void Textes::ditsansmemoire() const {
    constexpr int sansmemoire = 9567;
    if (contexte_.dit)
        contexte_.dit(texte(sansmemoire));
}

void Textes::chargerarbre() {
    TreeNodes& noeuds = arbre_->nodes();
    arborescence_.chargearbrebase(noeuds, code_);
    noeuds.setExpanded(1, true); // what lies below it is loaded already
    arbrecharge_ = true;
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
    for (QWidget* bloc : {static_cast<QWidget*>(arbre_), static_cast<QWidget*>(liste_->grille()),
                          static_cast<QWidget*>(blocrecherche_)})
        pose(bloc, places.panneau);
    liste_->repartit();
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
