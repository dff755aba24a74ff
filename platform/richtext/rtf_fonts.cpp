#include "platform/richtext/rtf_fonts.h"

#include "platform/richtext/rtf_scan.h"

namespace velm::rtf {
namespace {

struct Name {
    std::uint64_t letters;
    constexpr explicit Name(const char* text) : letters(0) {
        for (unsigned i = 0; text[i] != '\0'; ++i)
            letters |= std::uint64_t{static_cast<unsigned char>(text[i])} << (i * 8);
    }
    constexpr bool operator==(const Letters& other) const { return letters == other.low && other.high == 0; }
};
constexpr Name fontWord("f");
constexpr Name charsetWord("fcharset");
constexpr Name pageWord("cpg");
constexpr Name unicodeWord("u");
constexpr qsizetype longestName = 256;

void appendUnicode(QString& name, int number) {
    if (name.size() < longestName && (number < 0 || number >= ' '))
        name += QChar(static_cast<char16_t>(number));
}

} // namespace

const char* FontTable::read(const char* p, const char* end, bool withNames) {
    Entry entry;
    std::size_t depth = 1;
    // The way through the table is the same with names and without: only what is kept differs.
    const auto append = [&](char c) {
        if (withNames)
            appendByte(entry, static_cast<unsigned char>(c));
    };
    while (p != end) {
        const char c = *p++;
        if (c == '{') {
            ++depth;
            if (end - p >= 2 && p[0] == '\\' && p[1] == '*')
                p = passGroup(p, end); // \panose, \falt
        } else if (c == '}') {
            if (--depth == 0) {
                add(entry);
                return p - 1;
            }
        } else if (c == ';') {
            add(entry);
            entry = Entry();
        } else if (c != '\\') {
            if (c != '\r' && c != '\n')
                append(c);
        } else if (p != end && isLetter(*p)) {
            Letters letters;
            Token token;
            p = readNumber(readLetters(p, end, letters), end, token);
            if (fontWord == letters)
                entry.number = token.number;
            else if (charsetWord == letters)
                entry.page = codePageOfCharset(token.number);
            else if (pageWord == letters && token.number > 0)
                entry.page = token.number;
            else if (unicodeWord == letters && token.hasNumber) {
                if (withNames)
                    appendUnicode(entry.name, token.number);
                if (p != end && *p != ';' && *p != '\r' && *p != '\n') // the end of an entry stands for nothing
                    p = passFallback(p, end).place;
            }
        } else if (const int byte = p != end && *p == '\'' ? hexByte(p + 1, end) : -1; byte >= 0) {
            append(static_cast<char>(byte));
            p += 3;
        } else if (p != end) {
            if (*p == '\\' || *p == '{' || *p == '}')
                append(*p);
            ++p;
        }
    }
    return end;
}

void FontTable::appendByte(Entry& entry, unsigned char byte) {
    if (entry.name.size() >= longestName)
        return;
    const CodePage& page = codePage(entry.page == documentPage ? ansiPage : entry.page);
    if (entry.lead != 0 && page.isLead(entry.lead)) { // the page may have changed in between
        const char16_t unit = page.pair(entry.lead, byte);
        entry.name += QChar(unit != 0 ? unit : u'\uFFFD');
        entry.lead = 0;
    } else if (page.isLead(byte)) {
        entry.lead = byte;
    } else if (page.units[byte] > u' ' || byte == ' ') {
        entry.name += QChar(page.units[byte]);
    }
}

void FontTable::add(const Entry& entry) {
    if (entry.number < 0)
        return;
    Font font;
    if (entry.page != documentPage)
        font.page = &codePage(entry.page);
    font.family = entry.name.trimmed();
    const auto number = static_cast<std::size_t>(entry.number);
    if (number < small_.size() && fonts_.size() < 0xFFFE) {
        if (small_[number] == 0) {
            fonts_.emplace_back();
            small_[number] = static_cast<std::uint16_t>(fonts_.size());
        }
        fonts_[small_[number] - 1U] = std::move(font);
        return;
    }
    const auto [place, isNew] = large_.try_emplace(entry.number, fonts_.size());
    if (isNew)
        fonts_.emplace_back();
    fonts_[place->second] = std::move(font);
}

const FontTable::Font* FontTable::find(int number) const {
    if (number >= 0 && static_cast<std::size_t>(number) < small_.size()) {
        if (const std::uint16_t index = small_[static_cast<std::size_t>(number)])
            return &fonts_[index - 1U];
    }
    if (large_.empty())
        return nullptr;
    const auto place = large_.find(number);
    return place != large_.end() ? &fonts_[place->second] : nullptr;
}

const CodePage* FontTable::page(int number) const {
    const Font* font = find(number);
    return font != nullptr ? font->page : nullptr;
}

QString FontTable::family(int number) const {
    const Font* font = find(number);
    return font != nullptr ? font->family : QString();
}

} // namespace velm::rtf
