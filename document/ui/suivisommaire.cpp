#include "document/ui/suivisommaire.h"

#include "document/arborescence.h"
#include "document/ui/contextetextes.h"
#include "platform/widgets/tree/treeview.h"

#include <QTimerEvent>

#include <utility>

namespace velm {

SuiviSommaire::SuiviSommaire(TreeView& arbre, Arborescence& arborescence, const ContexteTextes& contexte)
    : QObject(&arbre), arbre_(arbre), arborescence_(arborescence), contexte_(contexte) {
    connect(&arbre, &TreeView::scrolledByHand, this, [this] { main_ = true; });
}

void SuiviSommaire::suit(const Cle& cle, qint64 numero) {
    if (cle == cle_)
        return;
    cle_ = cle;
    numero_ = numero;
    attendu_ = true;
    reprend();
}

void SuiviSommaire::reprend() {
    if (attendu_ && arbre_.isVisible())
        bientot_.start(0, this);
}

void SuiviSommaire::timerEvent(QTimerEvent* evenement) {
    if (evenement->timerId() != bientot_.timerId())
        return QObject::timerEvent(evenement);
    bientot_.stop();
    if (attendu_ && arbre_.isVisible() && arbre_.nodes().count() > 0)
        rejoint();
}

void SuiviSommaire::rejoint() {
    attendu_ = false;
    // Who has scrolled keeps his place for one document, not for ever.
    if (std::exchange(main_, false) || arbre_.hasFocus()) {
        marque();
        return;
    }
    contexte_.remplit([this] {
        const int feuille = arborescence_.mene(arbre_.nodes(), cle_, numero_);
        arbre_.setMarked(feuille);
        arbre_.bringIntoSight(feuille);
    });
}

void SuiviSommaire::marque() {
    arbre_.setMarked(Arborescence::feuillede(arbre_.nodes(), cle_));
}

} // namespace velm
