#pragma once
// The area of a multiple-document frame: child windows over a colour and a picture.
//
// Offered: adding, activating, hiding and counting children; cascade and the two tilings; background. Ctrl+Tab and
// Ctrl+F6 walk the windows, Ctrl+F4 and Ctrl+W close the active one. A maximised child fills the area and keeps the
// next one maximised. A child that comes back gives the focus to the control that had it last.
#include "platform/widgets/frame/childframes.h"

#include <QPixmap>
#include <QPointer>

#include <vector>

namespace velm {

class ChildArea : public QMdiArea {
    Q_OBJECT

public:
    explicit ChildArea(QWidget* parent = nullptr);
    ~ChildArea() override;

    enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2 };

    /// Window states as they are stored.
    enum State { Normal = 0, Minimised = 1, Maximised = 2 };

    /// Puts a window into the area, hidden; it is deleted when it closes. Its icon and title are the frame's. Its own
    /// close() and hide() take the frame along.
    QMdiSubWindow* add(QWidget* child);
    /// The sub-window around a child; null if it is none of this area.
    QMdiSubWindow* around(const QWidget* child) const;
    /// Places a child: twips, as they are stored; a width or height of 0 takes the usual size. Off the area it is moved
    /// in. Called before it is shown the first time.
    void place(QWidget* child, int state, int left, int top, int width, int height);
    int stateOf(const QWidget* child) const;
    /// Position and size in twips, of a window in normal state.
    QRect twipsOf(const QWidget* child) const;

    /// Shows a child, out of the minimised state, and activates it. Over a maximised window it is maximised, too.
    void activate(QWidget* child);
    /// The same, but one that was placed minimised is shown so.
    void showPlaced(QWidget* child);
    void hideChild(QWidget* child);
    /// Brings the next of the windows that are shown forward, or the one before; round and round.
    void walk(bool forward);
    /// The child of the active sub-window, null for none (a hidden one is none).
    QWidget* activeChild() const;
    /// All children, in the order of their making, hidden ones too.
    std::vector<QWidget*> children() const;

    /// Arranges the visible windows that are not minimised; maximised ones become normal first. Tiles fill the area
    /// also when it changes its size and when one of them becomes an icon, until a window is moved.
    void arrange(Arrangement arrangement);

    /// What lies behind the windows: a picture drawn in the middle at its own size (null for none), over a colour. An
    /// invalid colour stands for the palette's.
    void setBack(const QPixmap& picture, const QColor& colour);
    const QPixmap& backPicture() const { return picture_; }
    QColor backColour() const { return colour_; }

signals:
    void childActivated(QWidget* child); ///< null when none is active
    void childHid(QPrivateSignal);       ///< the area's own: a child has hidden itself

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followState(const ChildFrame& frame);
    QPoint scrolled() const;
    QColor shownColour() const;
    void focus(ChildFrame& frame);
    void tellActive();
    bool windowKey(const QKeyEvent& event, bool perform);
    bool closeAround(QObject& child, QEvent& event);
    void hideFrames();

    ChildFrames frames_;
    QPixmap picture_;
    QColor colour_;
    Arrangement tiling_ = Arrangement::Cascade;
    qsizetype tiles_ = 0; ///< windows that the last tiling laid
    QSize room_;          ///< for the windows, were there no scroll bars
    QPointer<QWidget> told_;
};

} // namespace velm
