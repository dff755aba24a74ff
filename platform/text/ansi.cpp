#include "platform/text/ansi.h"

#include <array>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velm::ansi {
namespace {

/// The 32 positions from 0x80 on; every other position is the character of the same value.
constexpr std::array<char16_t, 32> high = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr bool isHigh(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F;
}

constexpr char16_t unitOf(unsigned char byte) {
    return isHigh(byte) ? high[byte - 0x80U] : char16_t(byte);
}

constexpr std::array<char16_t, 256> unitTable() {
    std::array<char16_t, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i)
        table[i] = unitOf(static_cast<unsigned char>(i));
    return table;
}
constexpr std::array<char16_t, 256> units = unitTable();

constexpr bool isSame(char16_t unit) {
    return unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF);
}

void decodeInto(const unsigned char* from, qsizetype count, char16_t* to) {
    qsizetype i = 0;
#if defined(__SSE2__)
    // Sixteen bytes at once as long as none of them lies in 0x80..0x9F, that is: is at most 0x1F above 0x80.
    const __m128i zero = _mm_setzero_si128();
    const __m128i base = _mm_set1_epi8(static_cast<char>(0x80));
    const __m128i span = _mm_set1_epi8(0x1F);
    for (; i + 16 <= count; i += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        const __m128i above = _mm_sub_epi8(block, base);
        const __m128i isHighByte = _mm_cmpeq_epi8(_mm_min_epu8(above, span), above);
        if (_mm_movemask_epi8(isHighByte) != 0) {
            for (qsizetype k = i; k < i + 16; ++k)
                to[k] = units[from[k]];
            continue;
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), _mm_unpacklo_epi8(block, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i + 8), _mm_unpackhi_epi8(block, zero));
    }
#endif
    for (; i < count; ++i)
        to[i] = units[from[i]];
}

} // namespace

std::optional<unsigned char> fromUnicode(char16_t unit) {
    if (isSame(unit))
        return static_cast<unsigned char>(unit);
    for (unsigned i = 0; i < high.size(); ++i) {
        if (high[i] == unit)
            return static_cast<unsigned char>(0x80 + i);
    }
    return std::nullopt;
}

QString decode(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    decodeInto(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
               reinterpret_cast<char16_t*>(text.data()));
    return text;
}

QByteArray encode(QStringView text, char substitute) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* const begin = bytes.data();
    char* to = begin;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (isSame(unit)) {
            *to++ = static_cast<char>(unit);
            continue;
        }
        const auto byte = fromUnicode(unit);
        *to++ = byte ? static_cast<char>(*byte) : substitute;
        if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    bytes.truncate(to - begin);
    return bytes;
}

namespace {

/// For signs that do not come apart into what the page has.
QByteArrayView likeness(char16_t unit) {
    switch (unit) {
    case 0x2010: // hyphens, minus
    case 0x2011:
    case 0x2212:
        return "-";
    case 0x2015:
        return "\x97";
    case 0x2032:
        return "'";
    case 0x2033:
        return "\"";
    case 0x2190:
        return "<-";
    case 0x2192:
        return "->";
    case 0x2260:
        return "<>";
    case 0x2264:
        return "<=";
    case 0x2265:
        return ">=";
    case 0x0141:
        return "L";
    case 0x0142:
        return "l";
    case 0x0110:
        return "D";
    case 0x0111:
        return "d";
    case 0x0131:
        return "i";
    case 0x200B: // marks without a width
    case 0x200C:
    case 0x200D:
    case 0x2060:
    case 0xFEFF:
        return "";
    default:
        return "?";
    }
}

/// One character that the page lacks.
QByteArray nearest(QStringView character) {
    const QString parts = character.toString().normalized(QString::NormalizationForm_KD);
    if (parts == character)
        return likeness(character[0].unicode()).toByteArray();
    QByteArray bytes;
    for (const QChar part : parts) {
        if (const auto byte = fromUnicode(part.unicode()))
            bytes += static_cast<char>(*byte);
        else if (!part.isMark())
            bytes += likeness(part.unicode());
    }
    return bytes.isEmpty() ? QByteArray("?") : bytes;
}

} // namespace

QByteArray encodeReadable(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    // What the page has whole is not taken apart, in whatever form it comes.
    const QString whole = text.toString().normalized(QString::NormalizationForm_C);
    for (qsizetype i = 0; i < whole.size(); ++i) {
        const QChar unit = whole[i];
        if (const auto byte = fromUnicode(unit.unicode())) {
            bytes += static_cast<char>(*byte);
            continue;
        }
        const bool pair = unit.isHighSurrogate() && i + 1 < whole.size() && whole[i + 1].isLowSurrogate();
        bytes += nearest(QStringView(whole).sliced(i, pair ? 2 : 1));
        i += pair ? 1 : 0;
    }
    return bytes;
}

QString decodeFile(QByteArrayView bytes) {
    if (bytes.startsWith(QByteArrayView("\xEF\xBB\xBF")))
        return QString::fromUtf8(bytes.sliced(3));
    return decode(bytes);
}

} // namespace velm::ansi
