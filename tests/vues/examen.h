#pragma once
// What can be said against a window as it stands: each function gives a line for each fault, and none for a good
// window.
#include <QStringList>
#include <QWidget>

namespace velm::vues {

/// A widget as a line of a report names it.
QString named(const QWidget& widget);

/// The widgets of a window that can be seen, itself first. Child windows of a frame that are not its active one are
/// left out, and so is what lies inside a control of the toolkit.
QList<QWidget*> seen(QWidget& window);

/// Words that have less room than they need: labels, buttons, boxes, tabs, hints of fields, headers of lists; and words
/// or controls that stick out of what holds them. Titles that others wrote may be cut, where their tool tip has all.
QStringList clipped(QWidget& window);
/// Controls that lie on one another.
QStringList overlapping(QWidget& window);
/// Tool tips that two controls share.
QStringList equalTips(QWidget& window);
/// Letters that two entries or controls share: of a menu its entries, of a window all that can be seen in it.
QStringList equalMnemonics(QWidget& window);
/// Controls that say nothing: no words, no hint, no tool tip, no label.
QStringList unnamed(QWidget& window);

} // namespace velm::vues
