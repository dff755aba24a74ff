#pragma once
// Dates as they are shown: in words of the user's language.
#include "core/texte.h"

#include <QString>

namespace velm {

/// A date as the base holds it (yyyy-mm-dd) in words: "18 février 2005", "1er mars 2005", "18 February 2005". Any other
/// text, and a day that no calendar has, stays as it is.
QString dateecrite(const QString& date, const Libelles& texte);

} // namespace velm
