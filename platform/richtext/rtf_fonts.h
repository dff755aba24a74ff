#pragma once
// The font table of an RTF document.
#include "platform/richtext/rtf_codepage.h"

#include <QString>

#include <array>
#include <unordered_map>
#include <vector>

namespace velm::rtf {

class FontTable {
public:
    /// Reads the group of a font table, `p` behind its control word; returns the place of the closing brace. Names are
    /// kept only when asked for.
    const char* read(const char* p, const char* end, bool withNames);

    /// The code page of a font; null: that of the document.
    const CodePage* page(int number) const;
    QString family(int number) const;

private:
    struct Font {
        const CodePage* page = nullptr;
        QString family;
    };
    struct Entry {
        int number = -1;
        int page = documentPage;
        QString name;
        unsigned char lead = 0; ///< first byte of a pair in the name
    };
    static void appendByte(Entry& entry, unsigned char byte);
    void add(const Entry& entry);
    const Font* find(int number) const;

    std::vector<Font> fonts_;
    std::array<std::uint16_t, 256> small_{}; ///< index + 1 of the fonts with small numbers
    std::unordered_map<int, std::size_t> large_;
};

} // namespace velm::rtf
