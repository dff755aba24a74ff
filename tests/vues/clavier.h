#pragma once
// A window as the keyboard meets it.
#include <QStringList>
#include <QWidget>

namespace velm::vues {

/// The controls of a window, or of a child window, that the Tab key is to reach.
QList<QWidget*> reachable(QWidget& window);

/// What is wrong with the Tab key's way through a window, which must be the active one or lie in it: controls that it
/// leaves out, a way that does not come back to where it began, leaves the window, or goes against the order of
/// reading; a way back that is not the same. The focus is where it was when it comes back.
QStringList tabFaults(QWidget& window);

/// Controls that look the same with and without the focus.
QStringList withoutRing(QWidget& window);

} // namespace velm::vues
