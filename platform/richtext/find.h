#pragma once
// Finding text the way the rich text control does.
#include "platform/richtext/richtext.h"

#include <vector>

namespace velm {

struct FindOptions {
    bool wholeWord = false; ///< no letter or digit right before or behind the hit
    bool matchCase = false;
};

/// First hit that lies wholly in [start, end); end -1 is the text's end. -1 when there is none, or nothing to find.
/// Case is folded unit by unit, accents count. For whole words the units right outside the range count as well.
qsizetype find(const RichText& text, QStringView what, qsizetype start, qsizetype end, FindOptions options);
/// Every hit in the whole text, in one walk; hits may overlap.
std::vector<qsizetype> findAll(const RichText& text, QStringView what, FindOptions options);
/// The same on plain text.
qsizetype find(QStringView text, QStringView what, qsizetype start, qsizetype end, FindOptions options);

} // namespace velm
