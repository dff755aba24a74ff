#include "search/ui/defilement.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace velm {

namespace {

constexpr int moindrehauteur = 64; ///< a field and what is said below it

} // namespace

Defilement::Defilement(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(qApp, &QApplication::focusChanged, this, &Defilement::montrefocus);
}

/// Its children go after it, and the focus with them.
Defilement::~Defilement() {
    disconnect(qApp, nullptr, this, nullptr);
}

/// The less wide, the higher.
QSize Defilement::sizeHint() const {
    return {widget()->sizeHint().width(), hauteurvoulue()};
}

int Defilement::hauteurvoulue() const {
    return widget()->heightForWidth(testAttribute(Qt::WA_Resized) ? width() : widget()->sizeHint().width());
}

/// Left alone, the scroll bar would stay for what is only too high beside it.
void Defilement::ajustebarre() {
    setVerticalScrollBarPolicy(hauteurvoulue() > height() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

QSize Defilement::minimumSizeHint() const {
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(),
            std::min(moindrehauteur, widget()->sizeHint().height())};
}

void Defilement::resizeEvent(QResizeEvent* evenement) {
    QScrollArea::resizeEvent(evenement);
    emit barrechangee(width() - viewport()->width());
    updateGeometry();
    ajustebarre();
    montrefocus();
}

bool Defilement::eventFilter(QObject* objet, QEvent* evenement) {
    const bool pris = QScrollArea::eventFilter(objet, evenement);
    if (objet == widget() && evenement->type() == QEvent::LayoutRequest) {
        updateGeometry();
        ajustebarre();
        montrefocus();
    }
    return pris;
}

void Defilement::montrefocus() {
    // Of what is not in here the area itself knows that there is nothing to do.
    if (QWidget* ici = QApplication::focusWidget())
        ensureWidgetVisible(ici);
}

} // namespace velm
