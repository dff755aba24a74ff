#pragma once
// The memory of this process.

namespace velm {

/// Gives back to the system what this process holds but does not use: freed pieces that lie between others stay with it
/// otherwise. Takes some milliseconds; to be called when nobody waits.
void returnFreeMemory();

} // namespace velm
