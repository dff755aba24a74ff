#pragma once
// Code pages of RTF's bytes.
#include <array>
#include <cstdint>
#include <vector>

namespace velm::rtf {

struct CodePage {
    enum class Kind : std::uint8_t {
        Single, ///< every byte is a character
        Double, ///< some bytes lead a pair
        Utf8
    };
    int number = 1252;
    Kind kind = Kind::Single;
    /// The character of each byte. 0: none of its own (a lead byte, a line end), to be treated with care.
    std::array<char16_t, 256> units{};
    /// Of Double: the table [lead - 0x80][trail], 0 where there is no character. Made when first asked for.
    const std::vector<char16_t>& (*pairs)() = nullptr;

    bool isLead(unsigned char byte) const { return kind == Kind::Double && byte >= 0x80 && units[byte] == 0; }
    char16_t pair(unsigned char lead, unsigned char trail) const { return pairs()[(lead - 0x80U) * 256U + trail]; }
};

inline constexpr int symbolPage = 42;  ///< byte values stay
inline constexpr int documentPage = 0; ///< no page of its own: that of the document
inline constexpr int ansiPage = 1252;

/// Of a number that is not known: the page 1252. The reference stays valid for ever.
const CodePage& codePage(int number);

/// The page of a font's character set.
int codePageOfCharset(int charset);

} // namespace velm::rtf
