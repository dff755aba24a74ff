#include "document/ui/panneautextes.h"

#include "core/texte.h"
#include "document/ui/blocliste.h"
#include "document/ui/blocrecherche.h"
#include "document/ui/suiviliste.h"
#include "document/ui/suivisommaire.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/tree/treeview.h"

#include <QLineEdit>
#include <QPointer>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

PanneauTextes::PanneauTextes(const QString& code, const ContexteTextes& contexte, QWidget* fenetre)
    : QObject(fenetre), code_(code), contexte_(contexte),
      arborescence_(contexte.lecture.corpus, contexte.parametres, contexte.lecture.sablier, contexte.lecture.libelle),
      arbre_(new TreeView(fenetre)), suivi_(new SuiviSommaire(*arbre_, arborescence_, contexte_)),
      liste_(new BlocListe(code, contexte.lecture.corpus, contexte.lecture.sablier, contexte.lecture.texte, fenetre)),
      recherche_(new BlocRecherche(contexte.lecture.texte, fenetre)),
      separateur_(new SplitterBar(Qt::Vertical, fenetre)) {
    construitarbre();
    connect(liste_, &BlocListe::ouverte, this, &PanneauTextes::ouverte);
    connect(liste_, &BlocListe::sansmemoire, this, [this] { contexte_.ditsansmemoire(); });
    construitrecherche();
    separateur_->setObjectName(u"separateur"_s);
    separateur_->setAccessibleName(contexte_.texte(Texte::TailleDuPanneau));
}

void PanneauTextes::construitarbre() {
    arbre_->setObjectName(u"arbre"_s);
    arbre_->setAccessibleName(contexte_.texte(Texte::SommaireDeLaCollection));
    arbre_->setFrameShape(QFrame::NoFrame);
    arbre_->setImages(&icon);
    arbre_->setShownText([this](int noeud) { return Arborescence::libellecourt(arbre_->nodes(), noeud); });
    connect(arbre_, &TreeView::expanding, this, [this](int noeud) {
        contexte_.remplit([this, noeud] { arborescence_.developpe(arbre_->nodes(), noeud); });
        suivi_->marque();
    });
    for (const auto choix : {&TreeView::nodeClicked, &TreeView::nodeReturned}) {
        connect(arbre_, choix, this, [this](int noeud) {
            const Cle visee = Arborescence::documentde(arbre_->nodes(), noeud, code_);
            if (!visee.vide())
                emit ouvertedelarbre(visee);
        });
    }
}

void PanneauTextes::construitrecherche() {
    recherche_->setEnabled(contexte_.mots.cherchable());
    connect(recherche_, &BlocRecherche::change, this, [this] { emit grandit(hauteurvoulue()); });
    contexte_.mots.complete(*recherche_->Textedico());
    connect(recherche_, &BlocRecherche::recherche, this, [this](const QString& mots, bool tous) {
        const QPointer bloc(recherche_);
        const auto ligne = [bloc](const QString& texte) {
            if (bloc)
                bloc->ajouteligne(texte);
        };
        const auto fin = [bloc](const BilanRecherche& bilan) {
            if (bloc)
                bloc->dit(bilan);
        };
        contexte_.mots.cherche(code_, mots, {ligne, fin}, tous);
    });
}

int PanneauTextes::hauteurvoulue() const {
    return bloc_ == Bloc::Recherche ? std::max(twipsFromPixels(recherche_->hauteurvoulue()), 1) : 0;
}

FlexGrid& PanneauTextes::flex() const {
    return *liste_->grille();
}

void PanneauTextes::charge(const ReglagesTextes& reglages) {
    reglages_ = reglages;
}

void PanneauTextes::retient(ReglagesTextes& reglages) {
    reglages.bloc = bloc_;
    liste_->retient(reglages);
}

void PanneauTextes::choisit(Bloc bloc) {
    bloc_ = bloc;
    if (bloc == Bloc::Arbre && !arbrecharge_)
        contexte_.remplit([this] { chargearbre(); });
    if (bloc == Bloc::Liste && !liste_->chargee())
        contexte_.remplit([this] { liste_->charge(reglages_); });
}

void PanneauTextes::chargearbre() {
    TreeNodes& noeuds = arbre_->nodes();
    arborescence_.chargearbrebase(noeuds, code_);
    arbrecharge_ = true;
    // What lies below the root is loaded already. A branch that is alone tells nothing as long as it is closed.
    int noeud = 1;
    noeuds.setExpanded(noeud, true);
    while (noeuds.children(noeud) == 1) {
        noeud = noeuds.child(noeud);
        arborescence_.developpe(noeuds, noeud);
        noeuds.setExpanded(noeud, true);
    }
}

void PanneauTextes::suit(const Cle& cle, qint64 numero) {
    suivi_->suit(cle, numero);
    liste_->suivi().suit(cle, numero);
}

void PanneauTextes::place(const QRect& ici) {
    arbre_->setGeometry(ici);
    liste_->grille()->setGeometry(ici);
    recherche_->setGeometry(ici);
}

void PanneauTextes::montre(bool lisible) {
    arbre_->setVisible(lisible && bloc_ == Bloc::Arbre);
    liste_->grille()->setVisible(lisible && bloc_ == Bloc::Liste);
    recherche_->setVisible(lisible && bloc_ == Bloc::Recherche);
    suivi_->reprend();
    liste_->suivi().reprend();
}

bool PanneauTextes::prendfocus() {
    QLineEdit* mots = recherche_->Textedico();
    if (bloc_ != Bloc::Recherche || !mots->isEnabled() || !mots->isVisible())
        return false;
    mots->setFocus();
    return true;
}

bool PanneauTextes::tientfocus() const {
    const QWidget* celui = arbre_->window()->focusWidget();
    const std::initializer_list<const QWidget*> blocs{arbre_, liste_->grille(), recherche_};
    return std::ranges::any_of(blocs, [celui](const QWidget* bloc) { return bloc->isAncestorOf(celui); });
}

void PanneauTextes::donnefocus() {
    if (bloc_ == Bloc::Arbre) {
        if (arbre_->nodes().selected() == 0)
            arbre_->nodes().select(std::max(arbre_->marked(), 1));
        arbre_->setFocus();
    } else if (bloc_ == Bloc::Liste) {
        FlexGrid& grille = *liste_->grille();
        if (grille.row() == 0)
            grille.setRow(1);
        grille.setFocus();
    } else {
        prendfocus();
    }
}

} // namespace velm
