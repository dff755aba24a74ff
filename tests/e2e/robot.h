#pragma once
// The user's hand: real keys and clicks through the X server, at the places where real widgets stand.
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>

class QWidget;

namespace velm::e2e {

/// A key with its modifiers in the words of X: "ctrl+q", "alt+Left", "Return".
void key(const QString& combination);

/// Waits until the window with the keyboard belongs to a process and has these words in its title; a splash is none.
bool comesForward(qint64 process, const QString& title, int milliseconds = 60000);

enum class Hand { Click, DoubleClick, WheelDown };

/// A widget and the part of it that is meant, in its own pixels.
struct Spot {
    QWidget* widget = nullptr;
    QRect part;

    /// All of a widget; none when it is null or cannot be seen.
    static Spot of(QWidget* widget);
    /// A visible widget of a name below another one.
    static Spot named(const QWidget* within, const QString& name);
};
/// Asked in the program's thread, until what it names stands still on the screen in the active window.
using Where = std::function<Spot()>;

/// False when there was nothing to touch.
bool touch(const Where& where, Hand hand = Hand::Click);
/// Takes hold in the middle and lets go somewhere else.
bool drag(const Where& where, const QPoint& by, const std::function<void()>& underWay = {});

/// Keeps a picture of the screen in the folder e2e of the build.
void photo(const QString& name);

} // namespace velm::e2e
