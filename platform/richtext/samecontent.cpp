// Two rich texts side by side.
#include "platform/richtext/richtext.h"

#include <QHash>

namespace velm {
namespace {

/// Equal but for the number of the object, which is compared by what it holds.
bool sameFormat(const RichText& a, const CharFormat& x, const RichText& b, const CharFormat& y) {
    const auto objectOf = [](const RichText& text, const CharFormat& format) -> const RichObject* {
        const auto index = static_cast<std::size_t>(format.object);
        return format.object >= 0 && index < text.objects().size() ? &text.objects()[index] : nullptr;
    };
    const RichObject* first = objectOf(a, x);
    const RichObject* second = objectOf(b, y);
    if ((first == nullptr) != (second == nullptr) || (first != nullptr && !(*first == *second)))
        return false;
    CharFormat other = y;
    other.object = x.object;
    return x == other;
}

} // namespace

bool sameContent(const RichText& a, const RichText& b) {
    if (a.length() != b.length() || a.text() != b.text())
        return false;
    // Pairs of ids that were found equal: texts have few formats, and neighbours mostly the same.
    QHash<quint64, bool> known;
    const auto sameIds = [&](FormatId x, FormatId y) {
        const quint64 key = (quint64{x} << 32) | y;
        const auto found = known.constFind(key);
        return found != known.constEnd() ? *found
                                         : *known.insert(key, sameFormat(a, a.charFormat(x), b, b.charFormat(y)));
    };
    bool same = sameIds(a.tailCharacter(), b.tailCharacter());
    a.forEachRun(0, a.length(), [&](qsizetype start, qsizetype count, FormatId x) {
        if (same)
            b.forEachRun(start, count, [&](qsizetype, qsizetype, FormatId y) { same = same && sameIds(x, y); });
    });
    qsizetype position = 0;
    while (same && position < a.length()) {
        same = a.paraFormatAt(position) == b.paraFormatAt(position);
        position = a.paragraphEnd(position);
    }
    return same && a.paraFormat(a.tailParagraph()) == b.paraFormat(b.tailParagraph());
}

} // namespace velm
