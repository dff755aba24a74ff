#pragma once
// Puts a rich text into the view's document.
#include "platform/widgets/showntext.h"
#include "platform/widgets/viewformats.h"

class QTextDocument;

namespace velm {

/// Replaces the document's content in one edit.
void fillDocument(QTextDocument& document, const ShownText& shown, const RichText& rich, ViewFormats& formats);

} // namespace velm
