#include "platform/richtext/find.h"

#include "platform/richtext/unitsearch.h"
#include "platform/text/letters.h"

#include <algorithm>
#include <vector>

namespace velm {
namespace {

/// Without match case a part of the text is folded at a time: small at first, since the next hit is often near.
constexpr qsizetype firstPart = 256;
constexpr qsizetype largestPart = 32768;

struct Pieces {
    QStringView first;
    QStringView second;

    qsizetype size() const { return first.size() + second.size(); }
    QChar at(qsizetype position) const {
        return position < first.size() ? first[position] : second[position - first.size()];
    }
    Pieces left(qsizetype end) const {
        return {first.left(end), second.left(std::max<qsizetype>(end - first.size(), 0))};
    }
};

/// The upper case of every unit.
const char16_t* upperTable() {
    static const QString table = [] {
        QString all(0x10000, Qt::Uninitialized);
        for (qsizetype i = 0; i < all.size(); ++i)
            all[i] = QChar(static_cast<char16_t>(i));
        return upperCase(all);
    }();
    return reinterpret_cast<const char16_t*>(table.utf16());
}

char16_t* fold(QStringView text, char16_t* to) {
    static const char16_t* const upper = upperTable();
    constexpr qsizetype block = 16;
    const char16_t* from = text.utf16();
    const char16_t* const end = from + text.size();
    for (; end - from >= block; from += block, to += block) {
        unsigned all = 0;
        for (qsizetype i = 0; i < block; ++i)
            all |= from[i];
        if (all < 0x80) {
            for (qsizetype i = 0; i < block; ++i) {
                const auto letter = static_cast<char16_t>(from[i] - u'a');
                to[i] = static_cast<char16_t>(from[i] - (letter < 26 ? 0x20 : 0));
            }
        } else {
            for (qsizetype i = 0; i < block; ++i)
                to[i] = upper[from[i]];
        }
    }
    return std::transform(from, end, to, [](char16_t unit) { return upper[unit]; });
}

bool isWordPart(QChar unit) {
    return unit.isLetterOrNumber();
}

bool standsAlone(const Pieces& text, qsizetype hit, qsizetype size) {
    const qsizetype behind = hit + size;
    return (hit == 0 || !isWordPart(text.at(hit - 1))) && (behind == text.size() || !isWordPart(text.at(behind)));
}

/// Calls `found` for each hit in the order of the text, as long as it wants more.
template <typename Found>
void eachExact(const Pieces& text, QStringView what, qsizetype start, qsizetype end, bool wholeWord, Found found) {
    const Pieces range = text.left(end);
    for (qsizetype hit = start; (hit = indexOfUnits(range.first, range.second, what, hit)) >= 0; ++hit) {
        if ((!wholeWord || standsAlone(text, hit, what.size())) && !found(hit))
            return;
    }
}

template <typename Found>
void eachFolded(const Pieces& text, QStringView what, qsizetype start, qsizetype end, bool wholeWord, Found found) {
    const QString needle = upperCase(what);
    const qsizetype size = needle.size();
    std::vector<char16_t> buffer;
    for (qsizetype part = std::max(firstPart, size); end - start >= size;
         part = std::min(part * 2, std::max(largestPart, size))) {
        // The hits that begin in this part may reach beyond it.
        const qsizetype stop = std::min(start + part + size - 1, end);
        buffer.resize(static_cast<std::size_t>(stop - start));
        const qsizetype inFirst = std::clamp<qsizetype>(text.first.size() - start, 0, stop - start);
        char16_t* to = buffer.data();
        if (inFirst > 0)
            to = fold(text.first.sliced(start, inFirst), to);
        if (start + inFirst < stop)
            fold(text.second.sliced(start + inFirst - text.first.size(), stop - start - inFirst), to);
        const QStringView folded(buffer.data(), stop - start);
        for (qsizetype hit = 0; (hit = indexOfUnits(folded, needle, hit)) >= 0; ++hit) {
            if ((!wholeWord || standsAlone(text, start + hit, size)) && !found(start + hit))
                return;
        }
        start += part;
    }
}

template <typename Found>
void eachIn(const Pieces& text, QStringView what, qsizetype start, qsizetype end, FindOptions options, Found found) {
    start = std::max<qsizetype>(start, 0);
    end = end < 0 ? text.size() : std::min(end, text.size());
    if (what.isEmpty() || end - start < what.size())
        return;
    if (options.matchCase)
        eachExact(text, what, start, end, options.wholeWord, found);
    else
        eachFolded(text, what, start, end, options.wholeWord, found);
}

qsizetype findIn(const Pieces& text, QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    qsizetype first = -1;
    eachIn(text, what, start, end, options, [&first](qsizetype hit) {
        first = hit;
        return false;
    });
    return first;
}

} // namespace

qsizetype find(const RichText& text, QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    const auto [first, second] = text.segments();
    return findIn({first, second}, what, start, end, options);
}

std::vector<qsizetype> findAll(const RichText& text, QStringView what, FindOptions options) {
    const auto [first, second] = text.segments();
    std::vector<qsizetype> hits;
    eachIn({first, second}, what, 0, -1, options, [&hits](qsizetype hit) {
        hits.push_back(hit);
        return true;
    });
    return hits;
}

qsizetype find(QStringView text, QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    return findIn({text, {}}, what, start, end, options);
}

} // namespace velm
