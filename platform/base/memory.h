#pragma once
// Work that may ask for more memory than there is: a document, a list, a base. It is given up, and the run goes on.
#include <functional>

namespace velm {

/// Runs `work`; false when the memory did not suffice. What it held is given back by then, so that there is room for a
/// message; what it was changing is to be made good by the caller.
bool withinMemory(const std::function<void()>& work);

} // namespace velm
