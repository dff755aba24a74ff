#include "platform/widgets/tree/treehands.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/look/chosenalone.h"
#include "platform/widgets/look/entryhands.h"
#include "platform/widgets/look/look.h"

#include <QFocusEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

#include <utility>

namespace velm {

TreeHands::TreeHands(QWidget* parent) : QTreeView(parent) {
    hands_ = new EntryHands(*this, {.at = [this](const QPoint& at) { return nodeAt(at); },
                                    .labelPlace = [this](int node) { return wordsPlace(node); },
                                    .label = [this](int node) { return labelOf(node); },
                                    .setLabel = [this](int node, const QString& text) { setLabel(node, text); },
                                    .selected = [this] { return nodeOf(currentIndex()); }});
    connect(hands_, &EntryHands::labelEditBegins, this, &TreeHands::labelEditBegins);
    connect(hands_, &EntryHands::labelEdited, this, &TreeHands::labelEdited);
    connect(hands_, &EntryHands::labelEditWanted, this, &TreeHands::labelEditWanted);
    connect(hands_, &EntryHands::dragBegins, this, &TreeHands::dragBegins);
}

bool TreeHands::startLabelEdit(int node) {
    bringNear(node);
    return hands_->startLabelEdit(node);
}

void TreeHands::endLabelEdit(bool keep) {
    hands_->endLabelEdit(keep);
}

int TreeHands::editedNode() const {
    return hands_->edited();
}

void TreeHands::setDragging(bool on) {
    hands_->setDragging(on);
}

void TreeHands::setDropTarget(int node) {
    const int now = indexOf(node).isValid() ? node : 0;
    if (std::exchange(dropTarget_, now) != now)
        viewport()->update();
}

bool TreeHands::scrollNear(const QPoint& viewportPos) {
    // However often it is asked: a pointer that moves asks more often than one that rests.
    constexpr int every = 30;
    if (lastStep_.isValid() && lastStep_.elapsed() < every)
        return false;
    const int row = gridlook::rowHeight(fontMetrics());
    const int above = row - viewportPos.y();
    const int below = viewportPos.y() - (viewport()->height() - row);
    if (above <= 0 && below <= 0)
        return false;
    constexpr int slowly = 4; // a quarter of a row with each step at the edge, a whole one outside
    const int step = std::max(row / slowly, std::min(row, std::max(above, below)));
    QScrollBar& bar = *verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + (above > 0 ? -step : step));
    if (bar.value() == before)
        return false;
    lastStep_.start();
    return true;
}

void TreeHands::hover(int node) {
    if (std::exchange(hovered_, node) != node)
        resting_.start(hoverMilliseconds, this);
}

void TreeHands::timerEvent(QTimerEvent* event) {
    if (event->timerId() != resting_.timerId()) {
        QTreeView::timerEvent(event);
        return;
    }
    resting_.stop();
    if (canOpen(hovered_))
        expand(indexOf(hovered_));
}

void TreeHands::paintTarget(QPainter& painter, const QRect& row, bool below) const {
    if (below) {
        painter.fillRect(row, look::chosenGround(palette()));
        return;
    }
    painter.save();
    painter.setPen(look::chosenEdge(palette()));
    painter.drawRect(row.adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Base)); // parts the frame from a selection
    painter.drawRect(row.adjusted(1, 1, -2, -2));
    painter.restore();
}

QItemSelectionModel::SelectionFlags TreeHands::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    return chosenAlone(index, QTreeView::selectionCommand(index, event));
}

// ---- events

void TreeHands::mousePressEvent(QMouseEvent* event) {
    hands_->pressed(*event);
    QTreeView::mousePressEvent(event);
}

void TreeHands::mouseMoveEvent(QMouseEvent* event) {
    if (!hands_->moved(*event))
        QTreeView::mouseMoveEvent(event);
}

void TreeHands::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    hands_->released(*event);
}

void TreeHands::mouseDoubleClickEvent(QMouseEvent* event) {
    hands_->forget();
    QTreeView::mouseDoubleClickEvent(event);
}

void TreeHands::focusInEvent(QFocusEvent* event) {
    // Not the tree's own: it would make a first node current that nobody selected.
    if (event->reason() == Qt::MouseFocusReason)
        hands_->focusedByMouse();
    event->accept();
    viewport()->update();
}

void TreeHands::focusOutEvent(QFocusEvent* event) {
    hands_->forget();
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

void TreeHands::updateGeometries() {
    QTreeView::updateGeometries();
    hands_->lay();
}

} // namespace velm
