#pragma once
// Where the tips of an upright bar stand.

class QToolButton;

namespace velm {

/// The button's tip on a level with it, beside the bar, where it covers no other button: at its right, or `before` it.
void showTipBeside(QToolButton& button, bool before);

} // namespace velm
