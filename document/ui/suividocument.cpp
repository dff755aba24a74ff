#include "document/ui/suividocument.h"

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QTimerEvent>

#include <utility>

namespace velm {

SuiviDocument::SuiviDocument(QAbstractScrollArea& vue, QObject* parent) : QObject(parent), vue_(vue) {
    connect(vue.verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { defilee_ = true; });
}

void SuiviDocument::suit(const Cle& cle, qint64 numero) {
    if (cle == cle_)
        return;
    cle_ = cle;
    numero_ = numero;
    attendu_ = true;
    reprend();
}

void SuiviDocument::reprend() {
    bientot_.start(0, this);
}

void SuiviDocument::timerEvent(QTimerEvent*) {
    bientot_.stop();
    if (!attendu_ || !vue_.isVisible() || !remplie())
        return;
    attendu_ = false;
    // Who has scrolled keeps his place for one document, not for ever.
    if (std::exchange(defilee_, false) || vue_.hasFocus())
        marque();
    else
        montre();
}

} // namespace velm
