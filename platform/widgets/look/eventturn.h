#pragma once
// A turn of events in the middle of long work.
#include <QEventLoop>
#include <QTimer>

namespace velm {

/// Lets happen what has come up. It is a loop of its own, as a question is: who ends the program in it knows that calls
/// stand below.
inline void eventTurn() {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace velm
