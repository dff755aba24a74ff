// Keys of the area, and what its windows do by themselves.
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/childframe.h"

#include <QKeyEvent>

namespace velm {

void ChildArea::walk(bool forward) {
    QList<ChildFrame*> windows = frames();
    windows.removeIf([](const ChildFrame* frame) { return frame->isHidden(); });
    if (windows.isEmpty())
        return;
    const qsizetype here = windows.indexOf(front());
    const qsizetype next = here + (forward ? 1 : -1) + windows.size();
    focus(*windows[next % windows.size()]);
}

bool ChildArea::windowKey(const QKeyEvent& event, bool perform) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool shift = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    if (!shift && modifiers != Qt::ControlModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F6:
        if (perform)
            walk(!shift);
        return true;
    case Qt::Key_F4:
    case Qt::Key_W:
        if (shift)
            return false;
        if (ChildFrame* frame = front(); perform && frame)
            frame->close();
        return true;
    default:
        return false;
    }
}

/// A child that closes takes its frame along, after it has been asked itself.
bool ChildArea::closeAround(QObject& child, QEvent& event) {
    ChildFrame* frame = frameOf(qobject_cast<QWidget*>(&child));
    if (!frame)
        return false;
    child.event(&event);
    if (event.isAccepted())
        frame->close();
    return true;
}

void ChildArea::hideFrames() {
    for (ChildFrame* frame : frames()) {
        QWidget* child = frame->widget();
        if (std::exchange(frame->childHid, false) && child && child->isHidden() && !frame->isMinimized())
            hideChild(child);
    }
}

bool ChildArea::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        auto* widget = qobject_cast<QWidget*>(watched);
        const bool press = event->type() == QEvent::KeyPress;
        if (!widget || widget->window() != window() || !windowKey(static_cast<QKeyEvent&>(*event), press))
            break;
        event->accept();
        return true;
    }
    case QEvent::Close:
        if (closeAround(*watched, *event))
            return true;
        break;
    case QEvent::HideToParent:
        // Later, for frames hide their children, too, when they close or are minimised.
        if (ChildFrame* frame = frameOf(qobject_cast<QWidget*>(watched))) {
            frame->childHid = true;
            emit childHid(QPrivateSignal());
        }
        break;
    default:
        break;
    }
    return QMdiArea::eventFilter(watched, event);
}

} // namespace velm
