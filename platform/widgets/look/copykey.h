#pragma once
// The copy key of a list.
#include <QKeyEvent>

namespace velm {

/// A list that has the focus takes the copy key for its own rows, before the menu entry that bears the same key gets
/// it. For a widget's event(): true when the event was the question whose key this is, and is answered.
inline bool claimsCopyKey(QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride || !static_cast<QKeyEvent&>(event).matches(QKeySequence::Copy))
        return false;
    event.accept();
    return true;
}

} // namespace velm
