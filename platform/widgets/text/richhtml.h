#pragma once
// A part of a rich text for other programs: as HTML and as plain text.
#include "platform/richtext/richtext.h"

#include <QString>

namespace velm {

/// A whole HTML document; pictures that browsers know are held inside it. Hidden text is left out.
QString richHtml(const RichText& rich, qsizetype position, qsizetype length);

/// Lines end as this platform's do; pictures and hidden text are left out.
QString richPlain(const RichText& rich, qsizetype position, qsizetype length);

} // namespace velm
