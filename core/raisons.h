#pragma once
// What a run-time error says to people.
#include "core/langue.h"
#include "platform/base/failure.h"

namespace velm {

/// What happened, as a sentence that stands behind a colon. An error that lies in a setting names its file, section and
/// key, and its value there.
QString raisondelerreur(Langue& langue, const RuntimeFailure& erreur);

} // namespace velm
