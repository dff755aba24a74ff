#pragma once
// Counts as they are shown: in the way of the user's language.
#include "core/texte.h"

#include <QString>

namespace velm {

/// A whole number with its thousands parted as the language file does in its text of a thousand: "18 402" (with the
/// narrow no-break space) in French, "18,402" in English. A text that is no thousand parts nothing. Only for the eye:
/// whatever is read back or computed with keeps plain digits.
QString nombreecrit(qint64 nombre, const Libelles& texte);

} // namespace velm
