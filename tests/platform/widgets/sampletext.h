#pragma once
// Texts for the view's tests, made without a reader.
#include "platform/richtext/richtext.h"

namespace velm::sample {

/// A paragraph per line of `lines`, ends as CR LF, one format.
RichText plain(const QStringList& lines);

/// Headings, running text, bullets, a table on tab stops, a hanging number, notes, a centred and a right line.
RichText lawArticle();

/// About so many characters of law article.
RichText longText(qsizetype characters);

} // namespace velm::sample
