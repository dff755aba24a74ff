#pragma once
// What the mouse does in the rows of a grid: presses, drags and double clicks select rows and are told.
#include <QBasicTimer>
#include <QObject>

class QMouseEvent;

namespace velm {

class GridModel;
class GridView;

class GridMouse : public QObject {
public:
    /// Both outlive it.
    GridMouse(GridView& view, const GridModel& model) : view_(view), model_(model) {}

    void press(QMouseEvent& event);
    void move(QMouseEvent& event);
    void release(QMouseEvent& event);
    void doubleClick(QMouseEvent& event);

    /// A selection that waits for a double click shrinks to the pressed row, if the press has ended.
    void settle();
    /// There is another selection: nothing waits any more.
    void forget();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void dragTo(int y);

    GridView& view_;
    const GridModel& model_;
    int pressRow_ = -1;
    int pressPlace_ = -1;
    bool dragging_ = false;
    bool doubled_ = false; ///< the release that follows ends a double click
    int waiting_ = -1;     ///< row of a selection that shrinks to it, unless a double click follows
    QBasicTimer waitTimer_;
    QBasicTimer scrollTimer_;
    int dragY_ = 0;
};

} // namespace velm
