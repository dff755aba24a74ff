#pragma once
// Tables are paragraphs with tabs in them that follow one another on the same tab stops. Nothing stored tells their
// first row from the others; the eye wants it told.
#include "platform/typeset/showntext.h"

#include <vector>

namespace velm {

/// Sets `headEnd` where the first row of a table ends: one of words, above two rows at least. `paragraphs` are the
/// text's own.
void markTableHeads(const ShownText& text, std::vector<ShownParagraph>& paragraphs);

} // namespace velm
