#pragma once
// The character formats of a rich text as a list for other programs.
#include "platform/richtext/richtext.h"

#include <QByteArray>
#include <QByteArrayView>

#include <functional>

namespace velm {

/// A JSON list with one object per run of equal format: "text", "b", "i", "u", "strike", "hidden" (0 or 1), "size"
/// (points), "color" ("#rrggbb", left out for the automatic one), "background" likewise, "font". Line ends are CR LF.
/// UTF-8. A picture has an empty "text", its kind as "picture", and "width" and "height" in twips.
///
/// Handed to `write` piece by piece, so that a long list takes no more memory than its longest run.
void formatsJson(const RichText& text, const std::function<void(QByteArrayView)>& write);

/// The same as a whole.
QByteArray formatsJson(const RichText& text);

} // namespace velm
