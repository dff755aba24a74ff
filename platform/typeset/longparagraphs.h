#pragma once
// Parts paragraphs of any length into blocks that are laid out in bounded time: see ShownText.
#include "platform/typeset/showntext.h"

namespace velm {

/// Leaves every block with at most `longest` characters; linear. `longest` is 2 or more.
void partParagraphs(int longest, std::vector<ShownParagraph>& paragraphs, std::vector<ShownRun>& runs, QString& text);

} // namespace velm
