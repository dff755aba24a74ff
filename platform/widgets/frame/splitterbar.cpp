#include "platform/widgets/frame/splitterbar.h"

#include "platform/widgets/frame/splitterkeys.h"
#include "platform/widgets/look/focusring.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace velm {

namespace {

constexpr int keyStep = 8;

} // namespace

SplitterBar::SplitterBar(Qt::Orientation orientation, QWidget* parent) : QWidget(parent), orientation_(orientation) {
    setFocusPolicy(Qt::NoFocus); // a key of its own reaches it
    FocusRing::leave(*this);     // it has the look of a bar under the hand
    applyOrientation();
}

void SplitterBar::setOrientation(Qt::Orientation orientation) {
    if (orientation == orientation_)
        return; // owners say it at every step of a drag
    endDrag();
    orientation_ = orientation;
    applyOrientation();
}

void SplitterBar::applyOrientation() {
    const bool upright = orientation_ == Qt::Vertical;
    setMinimumSize(upright ? thickness : 0, upright ? 0 : thickness);
    setMaximumSize(upright ? thickness : QWIDGETSIZE_MAX, upright ? QWIDGETSIZE_MAX : thickness);
    setCursor(upright ? Qt::SplitHCursor : Qt::SplitVCursor);
    update();
}

int SplitterBar::place() const {
    return orientation_ == Qt::Vertical ? x() : y();
}

int SplitterBar::farthest() const {
    const QWidget* within = parentWidget();
    if (!within)
        return place();
    const bool upright = orientation_ == Qt::Vertical;
    if (!bounds_ || !bounds_->isAncestorOf(within))
        return std::max(0, (upright ? within->width() : within->height()) - thickness);
    const QPoint corner = within->mapFrom(bounds_, bounds_->rect().bottomRight()) + QPoint(1, 1);
    return std::max(0, (upright ? corner.x() : corner.y()) - thickness);
}

int SplitterBar::along(const QPointF& global) const {
    const QPoint here = parentWidget() ? parentWidget()->mapFromGlobal(global.toPoint()) : global.toPoint();
    return orientation_ == Qt::Vertical ? here.x() : here.y();
}

void SplitterBar::drop(int position) {
    const int bounded = std::clamp(position, 0, farthest());
    if (bounded != place())
        emit dropped(bounded);
}

void SplitterBar::endDrag() {
    if (!dragging_)
        return;
    dragging_ = false;
    qApp->removeEventFilter(this);
    update();
}

void SplitterBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || dragging_) {
        event->setAccepted(dragging_);
        return;
    }
    dragging_ = true;
    before_ = place();
    grip_ = along(event->globalPosition()) - before_;
    // The focus stays where it is, so Escape is caught on its way there.
    qApp->installEventFilter(this);
    update();
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event) {
    if (dragging_)
        drop(along(event->globalPosition()) - grip_);
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endDrag();
}

void SplitterBar::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    endDrag();
    emit usualPlaceWanted();
}

bool SplitterBar::eventFilter(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!dragging_ || !key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        endDrag();
        if (place() != before_)
            emit dropped(before_);
    }
    return true;
}

void SplitterBar::keyPressEvent(QKeyEvent* event) {
    const bool upright = orientation_ == Qt::Vertical;
    const int back = upright ? Qt::Key_Left : Qt::Key_Up;
    const int forth = upright ? Qt::Key_Right : Qt::Key_Down;
    if (event->key() == back)
        drop(place() - keyStep);
    else if (event->key() == forth)
        drop(place() + keyStep);
    else if (event->key() == Qt::Key_Home)
        drop(0);
    else if (event->key() == Qt::Key_End)
        drop(farthest());
    else
        QWidget::keyPressEvent(event);
}

void SplitterBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool lively = dragging_ || hovered_ || hasFocus();
    const int line = lively ? 3 : 1;
    const QColor colour = lively ? look::accentColour(look::themeOf(palette())) : quietLine(palette());
    const int from = (thickness - line) / 2;
    painter.fillRect(orientation_ == Qt::Vertical ? QRect(from, 0, line, height()) : QRect(0, from, width(), line),
                     colour);
}

void SplitterBar::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void SplitterBar::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void SplitterBar::enterEvent(QEnterEvent* event) {
    hovered_ = true;
    update();
    QWidget::enterEvent(event);
}

void SplitterBar::leaveEvent(QEvent* event) {
    hovered_ = false;
    update();
    QWidget::leaveEvent(event);
}

void SplitterBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    SplitterKeys::serve(*window());
}

void SplitterBar::hideEvent(QHideEvent* event) {
    endDrag();
    hovered_ = false;
    QWidget::hideEvent(event);
}

} // namespace velm
