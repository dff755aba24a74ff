#pragma once
// The windows of an area, hidden ones too, and which of them is in front.
#include <QMdiArea>

namespace velm {

class ChildFrame;

class ChildFrames {
public:
    /// The area outlives it.
    explicit ChildFrames(const QMdiArea& area) : area_(area) {}

    QList<ChildFrame*> all(QMdiArea::WindowOrder order = QMdiArea::CreationOrder) const;
    QList<ChildFrame*> shown() const;
    /// Those that are shown and no icons.
    QList<ChildFrame*> open(QMdiArea::WindowOrder order) const;
    /// The window around a child; null if it is none of the area.
    ChildFrame* around(const QWidget* child) const;
    /// The window that was used last of those that are shown, icons last; null for none.
    ChildFrame* lastUsed(const ChildFrame* except = nullptr) const;
    /// The active window, or when it is hidden the one used before.
    ChildFrame* front() const;

    /// What icons leave of the area, which are all of one height.
    QSize roomOverIcons() const;
    /// So many are open, and lie in their tiles; one may lie elsewhere.
    bool lieTiled(qsizetype count, const ChildFrame* except = nullptr) const;

private:
    const QMdiArea& area_;
};

} // namespace velm
