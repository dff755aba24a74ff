#pragma once
// The keys by which windows of an area are walked and closed.

class QKeyEvent;

namespace velm {

enum class ChildAreaKey { None, Next, Previous, Close };

/// Ctrl+Tab and Ctrl+F6 walk, with Shift backwards; Ctrl+F4 and Ctrl+W close.
ChildAreaKey childAreaKey(const QKeyEvent& event);

} // namespace velm
