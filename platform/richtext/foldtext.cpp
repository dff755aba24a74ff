#include "platform/richtext/foldtext.h"

#include "platform/richtext/rtf.h"
#include "platform/text/ansi.h"
#include "platform/text/letters.h"

#include <bit>
#include <cstring>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velm {
namespace {

constexpr int foldingVersion = 1;
constexpr int versionsOfFolding = 1000;

const unsigned char* foldTable() {
    static const std::vector<unsigned char> table = [] {
        std::vector<unsigned char> made(0x10000);
        for (unsigned unit = 0; unit < made.size(); ++unit)
            made[unit] = ansi::fromUnicode(upperUnit(static_cast<char16_t>(unit))).value_or(0);
        return made;
    }();
    return table.data();
}

/// How often a byte stands in texts, roughly: 0 for the rare ones.
int frequency(char byte) {
    constexpr QByteArrayView common = "HFGBVQ'.XJYZKW,0123456789\xC9";
    constexpr QByteArrayView usual = "MPDCULORTNIAS E";
    if (const qsizetype rank = usual.indexOf(byte); rank >= 0)
        return static_cast<int>(2 + rank);
    return common.contains(byte) ? 1 : 0;
}

/// The two rarest bytes of a needle, the first place of each.
struct Probes {
    qsizetype first = 0;
    qsizetype second = 0;

    explicit Probes(QByteArrayView needle) {
        const auto rarest = [&](qsizetype without) {
            qsizetype best = without == 0 && needle.size() > 1 ? 1 : 0;
            for (qsizetype i = 0; i < needle.size(); ++i) {
                if (i != without && frequency(needle[i]) < frequency(needle[best]))
                    best = i;
            }
            return best;
        };
        first = rarest(-1);
        second = rarest(first);
    }
};

qsizetype indexOfLinear(QByteArrayView text, QByteArrayView needle, qsizetype from) {
    const void* hit = ::memmem(text.data() + from, static_cast<std::size_t>(text.size() - from), needle.data(),
                               static_cast<std::size_t>(needle.size()));
    return hit == nullptr ? -1 : static_cast<const char*>(hit) - text.data();
}

} // namespace

QByteArray foldedText(QStringView text) {
    static const unsigned char* const table = foldTable();
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* to = bytes.data();
    for (const QChar unit : text)
        *to++ = static_cast<char>(table[unit.unicode()]);
    return bytes;
}

int foldedTextVersion() {
    return rtfDecoderVersion() * versionsOfFolding + foldingVersion;
}

qsizetype indexOfBytes(QByteArrayView text, QByteArrayView needle, qsizetype from) {
    const qsizetype size = needle.size();
    if (size == 0 || text.size() - from < size)
        return -1;
#if defined(__SSE2__)
    // Sixteen places at once: those where both probes stand are looked at.
    const Probes probes(needle);
    const char* const data = text.data();
    const qsizetype last = text.size() - size; // the last place where a hit can begin
    const __m128i one = _mm_set1_epi8(needle[probes.first]);
    const __m128i two = _mm_set1_epi8(needle[probes.second]);
    const auto length = static_cast<std::size_t>(size);
    constexpr qsizetype costPerPlace = 4;
    constexpr qsizetype startCredit = 4096;
    qsizetype credit = startCredit;
    for (; from + 15 <= last; from += 16) {
        const auto equal = [&](qsizetype probe, __m128i byte) {
            return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data + from + probe)), byte);
        };
        auto places = static_cast<unsigned>(
            _mm_movemask_epi8(_mm_and_si128(equal(probes.first, one), equal(probes.second, two))));
        credit += costPerPlace;
        for (; places != 0; places &= places - 1) {
            const qsizetype place = from + std::countr_zero(places);
            if (std::memcmp(data + place, needle.data(), length) == 0)
                return place;
            credit -= size;
        }
        // Too many false starts: a needle of one letter in a text of that letter.
        if (credit < 0) {
            from += 16;
            break;
        }
    }
#endif
    return text.size() - from < size ? -1 : indexOfLinear(text, needle, from);
}

} // namespace velm
