#pragma once
// The ring around what has the focus of the keyboard: one, two pixels wide, outside of the control, the same for all.
//
// It is shown while the keys are used: when the focus has come by a key, until the mouse is pressed. What words are
// typed into has it always. A widget that draws its focus by itself says so, and has none.
#include <QObject>
#include <QPointer>
#include <QRect>

class QApplication;
class QWidget;

namespace velm {

class FocusRing final : public QObject {
    Q_OBJECT

public:
    /// Follows the focus of the program, whose child it is.
    explicit FocusRing(QApplication& application);

    /// What draws its own focus.
    static void leave(QWidget& widget);

    /// The widget that has the ring now; null for none.
    QWidget* around() const;
    /// The ring as it is seen, in pixels of the window that it lies in; empty where there is none.
    QRect place() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWidget* now);
    void lay();
    void layLater();

    QPointer<QWidget> focused_;
    QPointer<QWidget> ring_;
    bool keyed_ = false;  ///< what the user did last was done with a key
    bool byKeys_ = false; ///< and so the focus has come to where it is
    bool owed_ = false;
};

} // namespace velm
