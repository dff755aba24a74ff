#pragma once
// What an area shows in place of its windows while there is none to be seen.
#include <QObject>
#include <QPointer>

class QMdiArea;
class QWidget;

namespace velm {

class EmptyGround final : public QObject {
    Q_OBJECT

public:
    /// Takes `widget` over: it fills the area's viewport, under all windows, while every window is closed or hidden.
    /// When it comes it gets the focus, if that was in the last window or nowhere. Both are the area's.
    EmptyGround(QMdiArea& area, QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QObject* child);
    void look();
    void follow();
    bool isEmpty() const;
    bool isFocusLost() const;

    QMdiArea& area_;
    QPointer<QWidget> widget_;
    bool asked_ = false;  ///< it will look soon
    bool inside_ = false; ///< the focus was in the area last
    bool lostIn_ = false; ///< the focus has just gone with a window of the area, or what stands here
};

} // namespace velm
