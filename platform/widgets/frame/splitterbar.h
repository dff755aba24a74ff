#pragma once
// A bar that the user drags to divide a window. It moves nothing itself: it tells where it is dropped, and the owner
// places it and what hangs on it.
//
// While it is dragged it tells every place on the way, so that the window follows the hand; Escape brings it back. The
// Tab key passes it by: F8 gives it the focus, and then the arrow keys move it by 8 pixels, Home and End to the ends. A
// double click asks for the usual place.
#include <QWidget>

namespace velm {

class SplitterBar : public QWidget {
    Q_OBJECT

public:
    /// `orientation` is that of the bar itself: an upright bar is dragged sideways.
    explicit SplitterBar(Qt::Orientation orientation, QWidget* parent);

    void setOrientation(Qt::Orientation orientation);
    Qt::Orientation orientation() const { return orientation_; }
    /// How far it may be dragged: to the end of this widget, in which its parent lies, instead of the parent's.
    void setBounds(const QWidget* within) { bounds_ = within; }
    /// Thickness in pixels.
    static constexpr int thickness = 5;

signals:
    /// The bar's own left or top edge shall stand there, in pixels of its parent.
    void dropped(int position);
    void usualPlaceWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int place() const;
    int farthest() const;
    int along(const QPointF& global) const;
    void applyOrientation();
    void drop(int position);
    void endDrag();

    Qt::Orientation orientation_;
    const QWidget* bounds_ = nullptr;
    bool dragging_ = false;
    bool hovered_ = false;
    int grip_ = 0;
    int before_ = 0;
};

} // namespace velm
