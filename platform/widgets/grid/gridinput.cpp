// Mouse and keyboard of the view inside a grid.
#include "platform/text/letters.h"
#include "platform/widgets/grid/gridview.h"
#include "platform/widgets/look/copykey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>

namespace velm {
namespace {

constexpr int dragScrollPause = 40; ///< milliseconds a row, while the pointer is held outside
constexpr int lookUpPatience = 200; ///< milliseconds that a look-up may take

QString folded(const QString& text) {
    return normalisemot(upperCase(text));
}

} // namespace

void GridView::mousePressEvent(QMouseEvent* event) {
    settlePress();
    const QPoint at = event->position().toPoint();
    pressRow_ = rowAt(at.y());
    pressPlace_ = placeAt(at.x());
    doubled_ = false;
    event->accept();
    if (pressRow_ < 0)
        return;
    if (event->button() == Qt::RightButton) {
        if (!isSelected(pressRow_))
            select(pressRow_, pressRow_, false);
    } else if (event->button() == Qt::LeftButton) {
        dragging_ = true;
        const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
        // A double click opens all selected rows: its first press must not give them up.
        if (!extend && anchor_ != end_ && isSelected(pressRow_)) {
            waiting_ = pressRow_;
        } else {
            select(extend && anchor_ >= 0 ? anchor_ : pressRow_, pressRow_, true);
        }
    }
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_ || !event->buttons().testFlag(Qt::LeftButton)) {
        event->ignore();
        return;
    }
    dragY_ = event->position().toPoint().y();
    const bool outside = dragY_ < 0 || dragY_ >= viewport()->height();
    if (!outside) {
        scrollTimer_.stop();
        dragTo(dragY_);
    } else if (!scrollTimer_.isActive()) {
        scrollTimer_.start(dragScrollPause, this);
    }
}

void GridView::dragTo(int y) {
    int row = rowAt(std::clamp(y, 0, viewport()->height() - 1));
    if (row < 0)
        row = model_.count() - 1;
    if (y < 0)
        row = topRow() - 1;
    if (y >= viewport()->height())
        row = end_ + 1;
    row = std::clamp(row, 0, std::max(model_.count() - 1, 0));
    if (waiting_ >= 0 && row == waiting_)
        return;
    const int anchor = waiting_ >= 0 ? waiting_ : anchor_;
    if (anchor != anchor_ || row != end_)
        select(anchor, row, true);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int row = rowAt(at.y());
    const int place = placeAt(at.x());
    const bool here = row >= 0 && row == pressRow_ && place >= 0 && viewport()->rect().contains(at);
    event->accept();
    if (event->button() == Qt::RightButton) {
        if (here && onRightClicked)
            onRightClicked(row, place, event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    dragging_ = false;
    scrollTimer_.stop();
    if (waiting_ >= 0)
        waitTimer_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this);
    if (std::exchange(doubled_, false))
        return;
    if (here && place == pressPlace_ && onClicked)
        onClicked(row, place);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int row = rowAt(at.y());
    const int place = placeAt(at.x());
    if (event->button() != Qt::LeftButton || row < 0 || row != pressRow_) {
        mousePressEvent(event);
        return;
    }
    event->accept();
    waitTimer_.stop();
    waiting_ = -1;
    doubled_ = true;
    if (place >= 0 && onDoubleClicked)
        onDoubleClicked(row, place);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard || end_ < 0 || !onRightClicked)
        return;
    scrollTo(model_.index(end_, 0));
    const int place = firstPlace();
    onRightClicked(end_, place, viewport()->mapToGlobal(cellRect(end_, place).center()));
}

void GridView::settlePress() {
    if (waitTimer_.isActive() && waiting_ >= 0)
        select(waiting_, waiting_, false);
    waitTimer_.stop();
    waiting_ = -1;
}

void GridView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == waitTimer_.timerId()) {
        settlePress();
    } else if (event->timerId() == scrollTimer_.timerId()) {
        dragTo(dragY_);
    } else {
        QTableView::timerEvent(event);
    }
}

void GridView::focusInEvent(QFocusEvent* event) {
    // Not the table's own: it would make a first cell current that nobody selected.
    event->accept();
    viewport()->update();
}

void GridView::moveTo(int row, bool extend) {
    const int last = model_.count() - 1;
    if (last < 0)
        return;
    const int target = std::clamp(row, 0, last);
    select(extend && anchor_ >= 0 ? anchor_ : target, target, true);
}

bool GridView::moveKey(const QKeyEvent& event) {
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    const int from = end_;
    switch (event.key()) {
    case Qt::Key_Up:
        moveTo(from - 1, extend);
        return true;
    case Qt::Key_Down:
        moveTo(from + 1, extend);
        return true;
    case Qt::Key_PageUp:
        moveTo(from - pageRows(), extend);
        return true;
    case Qt::Key_PageDown:
        moveTo(from + pageRows(), extend);
        return true;
    case Qt::Key_Home:
        moveTo(0, extend);
        return true;
    case Qt::Key_End:
        moveTo(model_.count() - 1, extend);
        return true;
    case Qt::Key_Left:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Right:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    default:
        return false;
    }
}

bool GridView::event(QEvent* event) {
    return claimsCopyKey(*event) || QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    settlePress();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    event->accept();
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else if (event->matches(QKeySequence::Copy)) {
        if (onCopy)
            onCopy();
    } else if ((modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier) && moveKey(*event)) {
        return;
    } else if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        if (end_ >= 0 && onActivated)
            onActivated(end_);
    } else if (modifiers == Qt::NoModifier && event->key() == Qt::Key_Delete) {
        if (onDelete)
            onDelete();
    } else if (modifiers == Qt::NoModifier && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        keyboardSearch(event->text());
    } else {
        event->ignore();
    }
}

void GridView::keyboardSearch(const QString& search) {
    const bool goesOn = typedAt_.isValid() && typedAt_.elapsed() < QApplication::keyboardInputInterval();
    typedAt_.start();
    typed_ = goesOn ? typed_ + search : search;
    // One letter again and again walks through its rows; a longer beginning stays where it still fits.
    const bool same = typed_.count(typed_.at(0)) == typed_.size();
    const int found = lookUp(same ? typed_.left(1) : typed_, std::max(0, same ? end_ + 1 : end_));
    if (found >= 0)
        moveTo(found, false);
}

int GridView::lookUp(const QString& beginning, int from) const {
    const int count = model_.count();
    if (count == 0 || header_->count() == 0)
        return -1;
    const int start = from >= count ? 0 : from;
    const int logical = logicalAt(firstPlace());
    if (const GridSource* source = model_.source()) {
        if (const std::optional<int> found = source->find(logical, beginning, start))
            return *found >= 0 || start == 0 ? *found : source->find(logical, beginning, 0).value_or(-1);
    }
    return lookUpWalking(folded(beginning), start, count, logical);
}

int GridView::lookUpWalking(const QString& beginning, int from, int count, int logical) const {
    QElapsedTimer time;
    time.start();
    for (int step = 0; step < count; ++step) {
        const int row = (from + step) % count;
        if (folded(model_.text(row, logical).left(beginning.size())) == beginning)
            return row;
        if (step % 256 == 255 && time.elapsed() > lookUpPatience)
            return -1;
    }
    return -1;
}

} // namespace velm
