#pragma once
// Something that hangs on the pointer within one window, as a small labelled picture, until it is dropped.
#include <QBasicTimer>
#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QPointer>

class QIcon;
class QMouseEvent;
class QWidget;

namespace velm {

/// The events of the mouse that it uses reach no control; of the keys it uses Escape alone, all others go where the
/// focus is. Window, receivers and the carrier itself may go at any moment.
class Carrier final : public QObject {
    Q_OBJECT

public:
    enum class Mode {
        UntilRelease, ///< begun with the left button down: its release drops, or cancels where nothing may be dropped
        UntilClick ///< begun with no button down: a click drops; one where nothing may be dropped goes to the control.
                   ///< While another window is in front it waits, unseen.
    };

    explicit Carrier(QObject* parent = nullptr);
    ~Carrier() override; ///< ends what it carries, and tells nothing

    /// Hangs it on the pointer. What was carried before is cancelled. Nothing may be dropped until setAllowed().
    void carry(QWidget* window, const QIcon& icon, const QString& label, Mode mode);
    bool carries() const { return !window_.isNull(); }
    Mode mode() const { return mode_; }
    /// Ends it, and tells cancelled(); nothing where nothing is carried.
    void cancel();
    /// Ends it without a word: what was carried has come to its place by another way.
    void finish();
    /// Whether it may be dropped where over() was told last: the pointer's shape shows it.
    void setAllowed(bool allowed);
    bool allowed() const { return allowed_; }
    /// The picture that is seen; null while nothing is carried.
    QWidget* picture() const { return picture_; }

signals:
    /// Where the pointer is: told when it moves, and again and again while it rests, so that what is below can scroll
    /// or open. `under` is null outside of the window.
    void over(QWidget* under, const QPoint& globalPosition);
    /// Nothing is carried any more.
    void dropped(QWidget* under, const QPoint& globalPosition);
    void cancelled(); ///< by Escape, by a window that went or (UntilRelease) came in front, or by the program

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void ofWindow(QEvent::Type type);
    bool ofMouse(const QMouseEvent& event);
    bool pressed(const QMouseEvent& event);
    bool released(const QMouseEvent& event);
    void drop();
    void tell();
    void stop();
    void unshape();
    void wait();
    void goOn();
    void layPicture();
    QWidget* under() const;

    QPointer<QWidget> window_;
    QPointer<QWidget> picture_;
    QBasicTimer rest_;
    QPoint at_; ///< of the pointer, on the screen
    Mode mode_ = Mode::UntilRelease;
    bool allowed_ = false;
    bool taken_ = false;   ///< a press that is not the control's: its release is not either
    bool passing_ = false; ///< a press that is the control's
    bool shaped_ = false;
    bool waits_ = false; ///< another window is in front
};

} // namespace velm
