// The controls of a document window, and who hears them.
#include "document/ui/blocliste.h"
#include "document/ui/blocrecherche.h"
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"

#include <QKeyEvent>
#include <QTableView>
#include <QToolButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

void Textes::construit() {
    // In the order in which the Tab key walks them.
    construitbarre();
    construitpanneau();
    separateur_ = new SplitterBar(Qt::Vertical, this);
    separateur_->setObjectName(u"separateur"_s);
    separateur_->setAccessibleName(texte(9097));
    vue_ = new RichTextBox(this);
    vue_->setObjectName(u"rtfRichTextBox1"_s);
    vue_->setAccessibleName(windowTitle());
    vue_->setFrameShape(QFrame::NoFrame);
    construitlistes();
    construitmenus();
}

void Textes::construitlistes() {
    separateurlisteh_ = new SplitterBar(Qt::Horizontal, this);
    separateurlisteh_->setObjectName(u"separateurlisteh"_s);
    separateurlisteh_->setAccessibleName(texte(9098));
    liens_ = new ListeDeLiens(ListeDeLiens::liens(), contexte_.corpus, contexte_.texte, this);
    separateurlistev_ = new SplitterBar(Qt::Vertical, this);
    separateurlistev_->setObjectName(u"separateurlistev"_s);
    separateurlistev_->setAccessibleName(texte(9099));
    correlats_ = new ListeDeLiens(ListeDeLiens::correlats(), contexte_.corpus, contexte_.texte, this);
}

void Textes::connecte() {
    connect(arbre_, &TreeView::expanding, this,
            [this](int noeud) { remplit([this, noeud] { arborescence_.developpe(arbre_->nodes(), noeud); }); });
    connect(arbre_, &TreeView::nodeClicked, this, &Textes::clicnoeud);
    connect(arbre_, &TreeView::nodeReturned, this, &Textes::clicnoeud);
    connect(liste_, &BlocListe::ouverte, this, [this](const Cle& visee) { contexte_.navigation.ouvre(visee); });
    connect(liste_, &BlocListe::sansmemoire, this, &Textes::ditsansmemoire);
    connect(vue_, &RichTextBox::clicked, this, &Textes::suit);
    connect(vue_, &RichTextBox::linkHovered, this, &Textes::survole);
    connect(vue_, &RichTextBox::rightClicked, this, [this](qsizetype, const QPoint& ou) { menutexte(ou); });
    for (const SplitterBar* barre : {separateur_, separateurlisteh_, separateurlistev_})
        connect(barre, &SplitterBar::dropped, this, [this, barre](int position) { lache(*barre, position); });
    connect(separateur_, &SplitterBar::usualPlaceWanted, this, [this] {
        disposition_.posseparateur = disposition_.placehabituelle();
        place();
    });
    connect(separateurlistev_, &SplitterBar::usualPlaceWanted, this, [this] {
        partage_ = true;
        place();
    });
    connect(separateurlisteh_, &SplitterBar::usualPlaceWanted, this, [this] {
        disposition_.fermelistes();
        disposition_.replaceseparateur();
        disposition_.ouvrelistes();
        place();
    });
    connect(blocrecherche_, &BlocRecherche::recherche, this, &Textes::cherchemots);
    for (ListeDeLiens* liste : {liens_, correlats_}) {
        connect(liste, &ListeDeLiens::basculee, this, [this, liste] { basculeliste(*liste); });
        connect(liste, &ListeDeLiens::ligneouverte, this,
                [this](const Cle& visee) { contexte_.navigation.ouvre(visee); });
    }
    // The buttons at the side of the mouse walk the frame's history, wherever the pointer is.
    for (QWidget* surface :
         {static_cast<QWidget*>(this), vue_->viewport(), arbre_->viewport(), liste_->grille()->view()->viewport(),
          liens_->grille()->view()->viewport(), correlats_->grille()->view()->viewport()})
        surface->installEventFilter(this);
}

bool Textes::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::MouseButtonPress || evenement->type() == QEvent::MouseButtonDblClick) {
        const Qt::MouseButton bouton = static_cast<QMouseEvent*>(evenement)->button();
        if (bouton == Qt::BackButton || bouton == Qt::ForwardButton) {
            contexte_.navigation.pas(bouton == Qt::BackButton ? Sens::Arriere : Sens::Avant);
            return true;
        }
    }
    return QWidget::eventFilter(objet, evenement);
}

void Textes::focusInEvent(QFocusEvent* evenement) {
    // Not by a focus proxy, which would send the Tab key back to the text before it has walked all controls.
    vue_->setFocus(evenement->reason());
}

void Textes::keyPressEvent(QKeyEvent* evenement) {
    // What the control with the focus has no use for: the text takes the keys that scroll it.
    switch (evenement->key()) {
    case Qt::Key_Escape:
        if (!vue_->hasFocus()) {
            vue_->setFocus();
            return;
        }
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        if (!vue_->hasFocus()) {
            QKeyEvent suite(evenement->type(), evenement->key(), evenement->modifiers(), evenement->text());
            static_cast<QObject*>(vue_)->event(&suite);
            return;
        }
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(evenement);
}

} // namespace velm
