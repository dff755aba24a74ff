#include "platform/widgets/grid/gridmouse.h"

#include "platform/widgets/grid/gridview.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace velm {
namespace {

constexpr int dragScrollPause = 40; ///< milliseconds a row, while the pointer is held outside

} // namespace

void GridMouse::press(QMouseEvent& event) {
    settle();
    const QPoint at = event.position().toPoint();
    pressRow_ = view_.rowAt(at.y());
    pressPlace_ = view_.placeAt(at.x());
    doubled_ = false;
    event.accept();
    if (pressRow_ < 0)
        return;
    if (event.button() == Qt::RightButton) {
        if (!view_.isSelected(pressRow_))
            view_.select(pressRow_, pressRow_, false);
    } else if (event.button() == Qt::LeftButton) {
        dragging_ = true;
        const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
        // A double click opens all selected rows: its first press must not give them up.
        if (!extend && view_.anchor() != view_.end() && view_.isSelected(pressRow_))
            waiting_ = pressRow_;
        else
            view_.select(extend && view_.anchor() >= 0 ? view_.anchor() : pressRow_, pressRow_, true);
    }
}

void GridMouse::move(QMouseEvent& event) {
    if (!dragging_ || !event.buttons().testFlag(Qt::LeftButton)) {
        event.ignore();
        return;
    }
    dragY_ = event.position().toPoint().y();
    const bool outside = dragY_ < 0 || dragY_ >= view_.viewport()->height();
    if (!outside) {
        scrollTimer_.stop();
        dragTo(dragY_);
    } else if (!scrollTimer_.isActive()) {
        scrollTimer_.start(dragScrollPause, this);
    }
}

void GridMouse::dragTo(int y) {
    int row = view_.rowAt(std::clamp(y, 0, view_.viewport()->height() - 1));
    if (row < 0)
        row = model_.count() - 1;
    if (y < 0)
        row = view_.topRow() - 1;
    if (y >= view_.viewport()->height())
        row = view_.end() + 1;
    row = std::clamp(row, 0, std::max(model_.count() - 1, 0));
    if (waiting_ >= 0 && row == waiting_)
        return;
    const int anchor = waiting_ >= 0 ? waiting_ : view_.anchor();
    if (anchor != view_.anchor() || row != view_.end())
        view_.select(anchor, row, true);
}

void GridMouse::release(QMouseEvent& event) {
    const QPoint at = event.position().toPoint();
    const int row = view_.rowAt(at.y());
    const int place = view_.placeAt(at.x());
    const bool here = row >= 0 && row == pressRow_ && place >= 0 && view_.viewport()->rect().contains(at);
    event.accept();
    if (event.button() == Qt::RightButton) {
        if (here && view_.onRightClicked)
            view_.onRightClicked(row, place, event.globalPosition().toPoint());
        return;
    }
    if (event.button() != Qt::LeftButton)
        return;
    dragging_ = false;
    scrollTimer_.stop();
    if (waiting_ >= 0)
        waitTimer_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this);
    if (std::exchange(doubled_, false))
        return;
    if (here && place == pressPlace_ && view_.onClicked)
        view_.onClicked(row, place);
}

void GridMouse::doubleClick(QMouseEvent& event) {
    const QPoint at = event.position().toPoint();
    const int row = view_.rowAt(at.y());
    const int place = view_.placeAt(at.x());
    if (event.button() != Qt::LeftButton || row < 0 || row != pressRow_) {
        press(event);
        return;
    }
    event.accept();
    waitTimer_.stop();
    waiting_ = -1;
    doubled_ = true;
    if (place >= 0 && view_.onDoubleClicked)
        view_.onDoubleClicked(row, place);
}

void GridMouse::settle() {
    if (waitTimer_.isActive() && waiting_ >= 0)
        view_.select(waiting_, waiting_, false);
    waitTimer_.stop();
    waiting_ = -1;
}

void GridMouse::timerEvent(QTimerEvent* event) {
    if (event->timerId() == waitTimer_.timerId())
        settle();
    else if (event->timerId() == scrollTimer_.timerId())
        dragTo(dragY_);
    else
        QObject::timerEvent(event);
}

void GridMouse::forget() {
    waitTimer_.stop();
    waiting_ = -1;
}

} // namespace velm
