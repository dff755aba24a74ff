#include "search/ui/defilement.h"

#include <QApplication>

namespace velm {

Defilement::Defilement(const QSize& utile, QWidget* parent) : QScrollArea(parent), utile_(utile) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, &Defilement::montrefocus);
}

/// Its children go after it, and the focus with them.
Defilement::~Defilement() {
    disconnect(qApp, nullptr, this, nullptr);
}

void Defilement::resizeEvent(QResizeEvent* evenement) {
    QScrollArea::resizeEvent(evenement);
    montrefocus();
}

void Defilement::montrefocus() {
    QWidget* ici = QApplication::focusWidget();
    if (ici && isAncestorOf(ici))
        ensureWidgetVisible(ici);
}

} // namespace velm
