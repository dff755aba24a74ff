#pragma once
// The frame around a child of an area. It holds what the area must know of the child for as long as the frame stands:
// where it wishes to be, in which state it shall appear, and which of its controls has had the focus.
#include "platform/widgets/frame/childareaplaces.h"

#include <QMdiSubWindow>
#include <QPointer>

#include <optional>

namespace velm {

class ChildFrame final : public QMdiSubWindow {
    Q_OBJECT

public:
    /// Owns the child from now on, and goes when it closes.
    explicit ChildFrame(QWidget* child);
    ~ChildFrame() override;

    /// The frame that a widget lies in, itself excepted; null for none, and for one that is being destroyed.
    static ChildFrame* around(const QWidget* widget);

    // ---- its place

    /// Wishes a place in the viewport, and a state (those of ChildArea) in which it is to be shown the first time.
    void wish(const ChildWish& wish, int state);
    /// The state of a wish, until it was taken.
    int wishedState() const { return state_; }
    int takeWishedState();
    /// It is shown in another state first: the wished place is taken when it becomes normal, as the area is then.
    void delayPlace() { delayed_ = wish_.has_value(); }
    /// The area has a new size. A window keeps to what was wished for it as long as nobody has moved it; one that was
    /// moved, and stood inside of the size before, is brought in as far as it must.
    void followArea(const QSize& before);
    /// Where it stands is somebody else's choice from now on.
    void forgetWish();
    QSize leastSize() const { return minimumSizeHint().expandedTo(minimumSize()); }

    /// It was laid as a tile; an empty place for none any more.
    void setTile(const QRect& place) { tile_ = place; }
    bool hasTile() const { return !tile_.isEmpty(); }
    bool liesInItsTile() const { return !tile_.isEmpty() && !isMaximized() && geometry() == tile_; }

    // ---- the focus

    /// One of the child's controls has the focus now.
    void rememberControl(QWidget* control) { control_ = control; }
    /// Whether the focus is inside of the child, or will be when the top-level window is active.
    bool hasFocusInside() const;
    /// Gives the focus to the control that had it last. Without one that can take it, it stays where it is inside of
    /// the child, or the child itself takes it.
    void giveFocus(Qt::FocusReason reason);

    /// The child has hidden itself: the area hides the frame with the next events.
    bool childHid = false;

signals:
    /// It has closed, and the toolkit has chosen the next active window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    QWidget* usableControl() const;

    std::optional<ChildWish> wish_;
    QRect fitted_;
    int state_ = 0;
    bool delayed_ = false;
    QRect tile_;
    QPointer<QWidget> control_;
};

} // namespace velm
