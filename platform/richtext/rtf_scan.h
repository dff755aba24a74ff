#pragma once
// The lowest level of reading RTF: plain runs, control words and groups that are passed over. Nothing here reads beyond
// `end`, whatever the input.
#include "platform/richtext/rtf_words.h"

#include <bit>
#include <cstring>
#include <limits>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velm::rtf {

enum class Sort : std::uint8_t { Plain, Backslash, Open, Close, LineEnd, Nul, High };

constexpr Sort sortOf(unsigned char c) {
    switch (c) {
    case '\\':
        return Sort::Backslash;
    case '{':
        return Sort::Open;
    case '}':
        return Sort::Close;
    case '\r':
    case '\n':
        return Sort::LineEnd;
    case '\0':
        return Sort::Nul;
    default:
        return c >= 0x80 ? Sort::High : Sort::Plain;
    }
}

struct CharTables {
    Sort sort[256];
    std::uint8_t hex[256]; ///< value of a hexadecimal digit, else noDigit
    static constexpr std::uint8_t noDigit = 0xFF;
    constexpr CharTables() : sort(), hex() {
        for (unsigned i = 0; i < 256; ++i) {
            const auto c = static_cast<unsigned char>(i);
            sort[i] = sortOf(c);
            hex[i] = static_cast<std::uint8_t>(c >= '0' && c <= '9'   ? c - '0'
                                               : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                               : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                                      : noDigit);
        }
    }
};
inline constexpr CharTables charTables;

inline unsigned char byteAt(const char* p) {
    return static_cast<unsigned char>(*p);
}
inline Sort sortAt(const char* p) {
    return charTables.sort[byteAt(p)];
}
inline bool isLetter(char c) {
    return static_cast<unsigned char>((c | 0x20) - 'a') < 26;
}
inline bool isDigit(char c) {
    return static_cast<unsigned char>(c - '0') < 10;
}
/// The byte of two hexadecimal digits, or -1.
inline int hexByte(const char* p, const char* end) {
    if (end - p < 2)
        return -1;
    const unsigned high = charTables.hex[byteAt(p)];
    const unsigned low = charTables.hex[byteAt(p + 1)];
    return (high | low) > 15 ? -1 : static_cast<int>(high * 16 + low);
}

/// Copies plain characters to `out`, which moves on, up to the first that is not; returns its place. Up to 16 units
/// behind the last copied one may be overwritten.
inline const char* copyPlain(const char* p, const char* end, char16_t*& out) {
    char16_t* o = out;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i control = _mm_set1_epi8(14); // signed: bytes from 0x80 on lie below it too
    const __m128i letters = _mm_set1_epi8('z');
    const __m128i backslash = _mm_set1_epi8('\\');
    while (end - p >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i stop = _mm_or_si128(_mm_or_si128(_mm_cmplt_epi8(block, control), _mm_cmpgt_epi8(block, letters)),
                                          _mm_cmpeq_epi8(block, backslash));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o), _mm_unpacklo_epi8(block, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o + 8), _mm_unpackhi_epi8(block, zero));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(stop));
        if (mask != 0) {
            const int count = std::countr_zero(mask);
            out = o + count;
            return p + count; // often a special character, seldom a plain one: the caller copies that
        }
        p += 16;
        o += 16;
    }
#endif
    while (p != end && sortAt(p) == Sort::Plain)
        *o++ = byteAt(p++);
    out = o;
    return p;
}

struct Token {
    Word word = Word::unknown;
    bool hasNumber = false;
    int number = 0; ///< saturated

    int numberOr(int other) const { return hasNumber ? number : other; }
    bool isOn() const { return !hasNumber || number != 0; }
};

/// The letters from `p` on; returns the place behind them.
inline const char* readLetters(const char* p, const char* end, Letters& letters) {
#if defined(__SSE2__)
    if (end - p >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i offset =
            _mm_sub_epi8(_mm_or_si128(block, _mm_set1_epi8(0x20)), _mm_set1_epi8(static_cast<char>('a')));
        const __m128i isAlpha = _mm_cmpeq_epi8(_mm_min_epu8(offset, _mm_set1_epi8(25)), offset);
        const int count = std::countr_one(static_cast<unsigned>(_mm_movemask_epi8(isAlpha)));
        if (count < 16) {
            std::uint64_t parts[2];
            _mm_storeu_si128(reinterpret_cast<__m128i*>(parts), block);
            const auto keep = [](int bytes) {
                return bytes >= 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << (bytes * 8)) - 1;
            };
            letters.low = parts[0] & keep(count);
            letters.high = count > 8 ? parts[1] & keep(count - 8) : 0;
            return p + count;
        }
    }
#endif
    const char* const from = p;
    std::uint64_t parts[2] = {0, 0};
    for (; p != end && isLetter(*p); ++p) {
        if (const auto i = p - from; i < 16)
            parts[i / 8] |= std::uint64_t{byteAt(p)} << (i % 8 * 8);
    }
    letters = p - from <= 16 ? Letters{parts[0], parts[1]} : Letters{};
    return p;
}

/// The number of a control word and the one blank that ends it.
inline const char* readNumber(const char* p, const char* end, Token& token) {
    const bool negative = p != end && *p == '-' && end - p > 1 && isDigit(p[1]);
    if (negative)
        ++p;
    if (p != end && isDigit(*p)) {
        constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
        std::int64_t value = 0;
        for (; p != end && isDigit(*p); ++p)
            value = value > most ? value : value * 10 + (*p - '0');
        value = value > most ? most : value;
        token.hasNumber = true;
        token.number = static_cast<int>(negative ? -value : value);
    }
    return p != end && *p == ' ' ? p + 1 : p;
}

/// Reads the control word whose first letter stands at `p`; returns the place behind it and its blank.
inline const char* readWord(const char* p, const char* end, Token& token) {
    Letters letters;
    p = readLetters(p, end, letters);
    token.word = wordOf(letters);
    return readNumber(p, end, token);
}

/// The same for words outside the table, by their letters: those of groups that few documents have.
inline const char* readWord(const char* p, const char* end, std::string_view& letters, Token& token) {
    const char* const from = p;
    while (p != end && isLetter(*p))
        ++p;
    letters = {from, static_cast<std::size_t>(p - from)};
    return readNumber(p, end, token);
}

/// The place behind `count` raw bytes.
inline const char* passBytes(const char* p, const char* end, int count) {
    return count <= 0 ? p : end - p > count ? p + count : end;
}

/// Behind a backslash in a group that is passed over: the place to go on from.
inline const char* passEscape(const char* p, const char* end) {
    if (p == end)
        return end;
    if (*p != 'b' || !isLetter(*p))
        return p + 1;
    Token token;
    const char* behind = readWord(p, end, token);
    return token.word == Word::bin ? passBytes(behind, end, token.number) : p + 1;
}

/// From inside a group to the brace that closes it (or the end of the input). Counts braces, so nothing nests here.
inline const char* passGroup(const char* p, const char* end) {
    for (std::size_t depth = 1; p != end;) {
#if defined(__SSE2__)
        if (end - p >= 16) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
            const __m128i stop = _mm_or_si128(
                _mm_cmpeq_epi8(block, _mm_set1_epi8('\\')),
                _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('{')), _mm_cmpeq_epi8(block, _mm_set1_epi8('}'))));
            const auto mask = static_cast<unsigned>(_mm_movemask_epi8(stop));
            if (mask == 0) {
                p += 16;
                continue;
            }
            p += std::countr_zero(mask);
        }
#endif
        switch (*p) {
        case '\\':
            p = passEscape(p + 1, end);
            continue;
        case '{':
            ++depth;
            break;
        case '}':
            if (--depth == 0)
                return p;
            break;
        default:
            break;
        }
        ++p;
    }
    return end;
}

/// Over one character that stands for a \\u to readers without Unicode; where none stands, over line ends at most.
struct Passed {
    const char* place;
    bool any; ///< there was one
};
inline Passed passFallback(const char* p, const char* end) {
    while (p != end && (*p == '\r' || *p == '\n'))
        ++p;
    if (p == end || *p == '{' || *p == '}')
        return {p, false};
    if (*p != '\\')
        return {p + 1, true};
    if (end - p < 2)
        return {p, false};
    if (!isLetter(p[1])) {
        if (p[1] == '*' || p[1] == '\r' || p[1] == '\n')
            return {p, false};
        const bool isHex = p[1] == '\'' && hexByte(p + 2, end) >= 0;
        return {p + (isHex ? 4 : 2), true};
    }
    Token token;
    const char* const behind = readWord(p + 1, end, token);
    if (token.word == Word::bin)
        return {passBytes(behind, end, token.number), true};
    // A control word that is no character ends them: writers that leave the fallback away must not lose a \par.
    const bool isCharacter = token.word >= Word::emdash && token.word <= Word::zwnbo;
    return {isCharacter ? behind : p, isCharacter};
}

/// Over line ends and blanks.
inline const char* passBlanks(const char* p, const char* end) {
    while (p != end && (*p == ' ' || *p == '\r' || *p == '\n' || *p == '\t'))
        ++p;
    return p;
}

} // namespace velm::rtf
