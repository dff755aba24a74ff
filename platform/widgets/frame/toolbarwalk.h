#pragma once
// How the keys reach the buttons of a bar: the Tab key one of them, the arrow keys the others from there.
#include <vector>

class QToolButton;

namespace velm {

/// The button where the Tab key shall stop: the wanted one, or the one where it stops now, or the first, of those that
/// can be used; null for none.
QToolButton* tabStop(const std::vector<QToolButton*>& buttons, QToolButton* wanted);

/// So many buttons further, or the last one on the way; null without a button that can be used.
QToolButton* stepFrom(const QToolButton& from, int step, const std::vector<QToolButton*>& buttons);

} // namespace velm
