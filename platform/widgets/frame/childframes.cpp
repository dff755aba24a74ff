#include "platform/widgets/frame/childframes.h"

#include "platform/widgets/frame/childframe.h"

#include <algorithm>

namespace velm {

QList<ChildFrame*> ChildFrames::all(QMdiArea::WindowOrder order) const {
    QList<ChildFrame*> frames;
    for (QMdiSubWindow* window : area_.subWindowList(order)) {
        if (auto* frame = qobject_cast<ChildFrame*>(window))
            frames << frame;
    }
    return frames;
}

QList<ChildFrame*> ChildFrames::shown() const {
    QList<ChildFrame*> frames = all();
    frames.removeIf([](const ChildFrame* frame) { return frame->isHidden(); });
    return frames;
}

QList<ChildFrame*> ChildFrames::open(QMdiArea::WindowOrder order) const {
    QList<ChildFrame*> frames = all(order);
    frames.removeIf([](const ChildFrame* frame) { return frame->isHidden() || frame->isMinimized(); });
    return frames;
}

ChildFrame* ChildFrames::around(const QWidget* child) const {
    auto* frame = child ? qobject_cast<ChildFrame*>(child->parentWidget()) : nullptr;
    return frame && frame->widget() == child && area_.subWindowList().contains(frame) ? frame : nullptr;
}

ChildFrame* ChildFrames::lastUsed(const ChildFrame* except) const {
    ChildFrame* last = nullptr;
    for (ChildFrame* frame : all(QMdiArea::ActivationHistoryOrder)) {
        const bool better = !last || !frame->isMinimized() || last->isMinimized();
        if (frame != except && !frame->isHidden() && better)
            last = frame;
    }
    return last;
}

ChildFrame* ChildFrames::front() const {
    auto* current = qobject_cast<ChildFrame*>(area_.currentSubWindow());
    return current && !current->isHidden() ? current : lastUsed();
}

QSize ChildFrames::roomOverIcons() const {
    QSize room = area_.maximumViewportSize();
    for (const ChildFrame* frame : shown()) {
        if (frame->isMinimized())
            return room - QSize(0, frame->height());
    }
    return room;
}

bool ChildFrames::lieTiled(qsizetype count, const ChildFrame* except) const {
    const QList<ChildFrame*> windows = open(QMdiArea::CreationOrder);
    return windows.size() == count && std::ranges::all_of(windows, [except](const ChildFrame* frame) {
               return frame == except || frame->liesInItsTile();
           });
}

} // namespace velm
