#pragma once
// A walk through the program: every window, menu and box in every state that a user meets, one after the other, in the
// real program on a copy of a collection. Whoever walks along looks at each of them.
#include "tests/vues/guide.h"

namespace velm::vues {

/// Walks from the first start to the question at the end. Gives what could not be reached; nothing when all was seen.
QStringList walk(const Manner& manner, const Eye& eye);

} // namespace velm::vues
