#include "platform/widgets/frame/emptyground.h"

#include <QApplication>
#include <QChildEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <utility>

namespace velm {

EmptyGround::EmptyGround(QMdiArea& area, QWidget* widget) : QObject(&area), area_(area), widget_(widget) {
    widget->hide();
    widget->setParent(area.viewport());
    area.viewport()->installEventFilter(this);
    for (QMdiSubWindow* window : area.subWindowList())
        watch(window);
    // What had it may have left the area by then: where it was is kept. Nowhere is where it was lost. Who moves it
    // leaves something that can be seen.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        if (!now)
            return;
        const bool inside = area_.isAncestorOf(now);
        lostIn_ = !inside && inside_ && !(before && before->isVisible());
        inside_ = inside;
    });
    look();
}

void EmptyGround::watch(QObject* child) {
    if (qobject_cast<QMdiSubWindow*>(child))
        child->installEventFilter(this);
}

/// Windows come and go by several steps: what counts is what there is behind the last of them.
void EmptyGround::look() {
    if (!std::exchange(asked_, true))
        QMetaObject::invokeMethod(this, &EmptyGround::follow, Qt::QueuedConnection);
}

bool EmptyGround::isEmpty() const {
    return std::ranges::all_of(area_.subWindowList(), &QWidget::isHidden);
}

bool EmptyGround::isFocusLost() const {
    const QWidget* now = area_.window()->focusWidget();
    return !now || !now->isVisible() || now == &area_ || now == area_.viewport();
}

void EmptyGround::follow() {
    asked_ = false;
    if (!widget_)
        return;
    widget_->setGeometry(area_.viewport()->rect());
    const bool empty = isEmpty();
    const bool changes = empty == widget_->isHidden();
    // A window that came and went between two looks has taken the focus with it.
    const bool focus = empty && (isFocusLost() || (changes && lostIn_));
    if (changes) {
        widget_->setVisible(empty);
        widget_->lower();
    }
    if (focus)
        widget_->setFocus(Qt::OtherFocusReason);
}

bool EmptyGround::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ChildAdded:
        watch(static_cast<QChildEvent*>(event)->child());
        break;
    case QEvent::ChildRemoved:
    case QEvent::Resize:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        look();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace velm
