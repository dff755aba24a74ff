#include "platform/richtext/rtf_look.h"

#include <algorithm>

namespace velm::rtf {
namespace {

constexpr std::uint32_t mostStops = 32;
constexpr std::int32_t farthest = 1'000'000; ///< twips, far beyond any paper; sums of two stay whole
constexpr std::int32_t largestSize = 3276;   ///< half points

std::int32_t twips(int value) {
    return std::clamp(value, -farthest, farthest);
}

/// Spread by a multiplication; collisions only cost a second look.
std::size_t mix(std::initializer_list<std::int32_t> values) {
    std::uint64_t hash = 0;
    for (const std::int32_t value : values)
        hash = (hash ^ static_cast<std::uint32_t>(value)) * 0x9E3779B97F4A7C15ULL;
    return static_cast<std::size_t>(hash >> 40);
}

std::int32_t colourAt(const std::vector<std::int32_t>& colours, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < colours.size() ? colours[static_cast<std::size_t>(index)]
                                                                          : autoColour;
}

void applyCharacter(CharLook& look, const Token& token, const std::vector<std::int32_t>& colours) {
    switch (token.word) {
    case Word::b:
        look.bold = token.isOn();
        break;
    case Word::i:
        look.italic = token.isOn();
        break;
    case Word::ulnone:
        look.underline = false;
        break;
    case Word::strike:
    case Word::striked:
        look.strike = token.isOn();
        break;
    case Word::v:
        look.hidden = token.isOn();
        break;
    case Word::fs:
        look.size = std::clamp(token.numberOr(24), 1, largestSize);
        break;
    case Word::cf:
        look.colour = colourAt(colours, token.number);
        break;
    case Word::cb:
    case Word::highlight:
    case Word::chcbpat:
        look.background = colourAt(colours, token.number);
        break;
    case Word::super:
    case Word::sub:
        look.script = !token.isOn() ? std::int8_t{0} : token.word == Word::super ? std::int8_t{1} : std::int8_t{-1};
        look.offset = 0;
        break;
    case Word::nosupersub:
        look.script = 0;
        look.offset = 0;
        break;
    case Word::up:
    case Word::dn: { // half points
        const std::int32_t distance = std::clamp(token.numberOr(6), -largestSize, largestSize) * 10;
        look.offset = token.word == Word::up ? distance : -distance;
        look.script = 0;
        break;
    }
    case Word::twipoffset: // the offset in twips where half points are too coarse
        look.offset = std::clamp(token.number, -largestSize * 10, largestSize * 10);
        look.script = 0;
        break;
    default: // the kinds of underlining
        look.underline = token.isOn();
        break;
    }
}

void applyParagraph(ParaLook& look, const Token& token, TabChains& tabs) {
    switch (token.word) {
    case Word::ql:
        look.alignment = Alignment::Left;
        break;
    case Word::qr:
        look.alignment = Alignment::Right;
        break;
    case Word::qc:
        look.alignment = Alignment::Centre;
        break;
    case Word::qj:
    case Word::qd:
        look.alignment = Alignment::Justify;
        break;
    case Word::li:
        look.left = twips(token.number);
        break;
    case Word::fi:
        look.first = twips(token.number);
        break;
    case Word::ri:
        look.right = twips(token.number);
        break;
    case Word::sb:
        look.before = twips(token.number);
        break;
    case Word::sa:
        look.after = twips(token.number);
        break;
    case Word::sl:
        look.spacing = twips(token.number);
        break;
    case Word::slmult:
        look.multiple = token.number != 0;
        break;
    case Word::tx:
        look.tabs = tabs.add(look.tabs, twips(token.number));
        break;
    default:
        break;
    }
}

/// Sorted, each once, at most as many as a paragraph may have.
std::vector<std::int32_t> orderly(std::vector<std::int32_t> stops) {
    std::sort(stops.begin(), stops.end());
    stops.erase(std::unique(stops.begin(), stops.end()), stops.end());
    return stops;
}

} // namespace

std::uint32_t TabChains::add(std::uint32_t chain, std::int32_t twips) {
    const std::uint32_t count = links_[chain].count;
    if (count >= mostStops)
        return chain;
    links_.push_back({chain, count + 1, twips});
    return static_cast<std::uint32_t>(links_.size() - 1);
}

std::vector<std::int32_t> TabChains::stops(std::uint32_t chain) const {
    std::vector<std::int32_t> stops;
    for (; chain != 0; chain = links_[chain].before)
        stops.push_back(links_[chain].twips);
    return orderly(std::move(stops));
}

void applyWord(Look& look, const Token& token, const std::vector<std::int32_t>& colours, TabChains& tabs) {
    switch (token.word) {
    case Word::pard:
        look.paragraph = ParaLook();
        break;
    case Word::plain:
        look.character = CharLook();
        break;
    case Word::f:
        look.character.font = token.number;
        break;
    default:
        if (token.word < Word::ql)
            applyCharacter(look.character, token, colours);
        else
            applyParagraph(look.paragraph, token, tabs);
        break;
    }
}

void LookFormats::setFonts(const FontTable& fonts, int defaultFont) {
    fonts_ = &fonts;
    defaultFont_ = defaultFont;
    chars_ = {};
}

CharFormat LookFormats::charFormat(const CharLook& look) const {
    CharFormat format;
    if (fonts_ != nullptr)
        format.family = fonts_->family(look.font < 0 ? defaultFont_ : look.font);
    format.size = look.size;
    format.bold = look.bold;
    format.italic = look.italic;
    format.underline = look.underline;
    format.strike = look.strike;
    format.hidden = look.hidden;
    // A third of the size, in whole half points so that it can be written again.
    format.offset = look.script != 0 ? look.script * (look.size / 3) * 10 : look.offset;
    format.colour = look.colour;
    format.background = look.background;
    return format;
}

ParaFormat LookFormats::paraFormat(const ParaLook& look) const {
    ParaFormat format;
    format.alignment = look.alignment;
    format.startIndent = look.left + look.first;
    format.offset = -look.first;
    if (look.bullet && look.first == 0) {
        format.offset = look.bulletIndent;
        format.startIndent = std::min(format.startIndent, farthest - look.bulletIndent);
    }
    format.rightIndent = look.right;
    format.bullet = look.bullet;
    format.spaceBefore = look.before;
    format.spaceAfter = look.after;
    format.lineSpacing = look.spacing;
    format.lineMultiple = look.multiple;
    format.tabs = tabs.stops(look.tabs);
    if (look.continues) { // the further lines of one paragraph
        format.startIndent += format.offset;
        format.offset = 0;
        format.bullet = false;
        format.spaceBefore = 0;
    }
    return format;
}

FormatId LookFormats::id(const CharLook& look) {
    const int flags = look.bold + 2 * look.italic + 4 * look.underline + 8 * look.strike + 16 * look.hidden;
    Known<CharLook>& known =
        chars_[mix({look.font, look.size, look.offset, look.colour, look.background, look.script, flags}) % places];
    if (!known.used || known.look != look)
        known = {look, text_.intern(charFormat(look)), true};
    return known.id;
}

FormatId LookFormats::id(const ParaLook& look) {
    const int flags = look.multiple + 2 * look.bullet + 4 * look.continues + 8 * static_cast<int>(look.alignment);
    const auto tabs32 = static_cast<std::int32_t>(look.tabs);
    Known<ParaLook>& known = paras_[mix({look.left, look.first, look.right, look.before, look.after, look.spacing,
                                         look.bulletIndent, tabs32, flags}) %
                                    places];
    if (!known.used || known.look != look)
        known = {look, text_.intern(paraFormat(look)), true};
    return known.id;
}

/// The columns of a row are tab stops: each cell begins behind the edge of the one before.
FormatId LookFormats::id(const ParaLook& look, const Row& row) {
    ParaFormat format;
    const std::int32_t gap = std::clamp(row.gap, 0, 1440);
    format.startIndent = std::clamp(twips(row.left) + gap, 0, farthest);
    format.spaceBefore = look.before;
    format.spaceAfter = look.after;
    for (int i = 0; i < row.stops(); ++i)
        format.tabs.push_back(twips(twips(row.edge(i)) + gap));
    format.tabs = orderly(std::move(format.tabs));
    return text_.intern(format);
}

} // namespace velm::rtf
