#pragma once
// Formats while RTF is read: what a group saves, and its way into the formats of the text.
#include "platform/richtext/richtext.h"
#include "platform/richtext/rtf_fonts.h"
#include "platform/richtext/rtf_row.h"
#include "platform/richtext/rtf_scan.h"

#include <array>

namespace velm::rtf {

struct CharLook {
    std::int32_t font = -1; ///< -1: the document's default
    std::int32_t size = 24;
    std::int32_t offset = 0;
    std::int32_t colour = autoColour;
    std::int32_t background = autoColour;
    std::int8_t script = 0; ///< 1 superscript, -1 subscript: an offset by the size
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;

    friend bool operator==(const CharLook&, const CharLook&) = default;
};

struct ParaLook {
    std::int32_t left = 0;
    std::int32_t first = 0;
    std::int32_t right = 0;
    std::int32_t before = 0;
    std::int32_t after = 0;
    std::int32_t spacing = 0;
    std::int32_t bulletIndent = 0;
    std::uint32_t tabs = 0; ///< last stop in the chain of TabChains, 0 for none
    Alignment alignment = Alignment::Left;
    bool multiple = false;
    bool bullet = false;
    bool continues = false; ///< begins behind a line break inside a paragraph

    friend bool operator==(const ParaLook&, const ParaLook&) = default;
};

struct Look {
    CharLook character;
    ParaLook paragraph;
};

/// Tab stops as chains that share their beginnings, so that saving a group's formats costs nothing.
class TabChains {
public:
    std::uint32_t add(std::uint32_t chain, std::int32_t twips);
    std::vector<std::int32_t> stops(std::uint32_t chain) const;

private:
    struct Link {
        std::uint32_t before = 0;
        std::uint32_t count = 0;
        std::int32_t twips = 0;
    };
    std::vector<Link> links_{1};
};

/// Turns looks into format numbers of a text; remembers the latest.
class LookFormats {
public:
    explicit LookFormats(RichText& text) : text_(text) {}

    void setFonts(const FontTable& fonts, int defaultFont);
    CharFormat charFormat(const CharLook& look) const;
    FormatId id(const CharLook& look);
    FormatId id(const ParaLook& look);
    FormatId id(const ParaLook& look, const Row& row);

    TabChains tabs;

private:
    ParaFormat paraFormat(const ParaLook& look) const;

    template <class Look>
    struct Known {
        Look look;
        FormatId id = 0;
        bool used = false;
    };
    static constexpr std::size_t places = 64;

    RichText& text_;
    const FontTable* fonts_ = nullptr;
    int defaultFont_ = 0;
    std::array<Known<CharLook>, places> chars_;
    std::array<Known<ParaLook>, places> paras_;
};

/// Applies a control word of formats.
void applyWord(Look& look, const Token& token, const std::vector<std::int32_t>& colours, TabChains& tabs);

} // namespace velm::rtf
