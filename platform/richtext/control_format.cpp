#include "platform/richtext/control.h"

#include <algorithm>
#include <cmath>

namespace velm {
namespace {

constexpr double smallestSize = 0.5;
constexpr double largestSize = 2160;
constexpr int mostTabs = 32;

} // namespace

// ---- reading

CharFormat RichTextControl::caretFormat() const {
    return insertionFormat_ ? *insertionFormat_ : text_.insertionFormat(selStart_);
}

template <typename T, typename Get>
std::optional<T> RichTextControl::ofCharacters(Get get) const {
    if (selLength_ == 0)
        return get(caretFormat());
    std::optional<T> value;
    bool mixed = false;
    text_.forEachRun(selStart_, selLength_, [&](qsizetype, qsizetype, FormatId id) {
        const T here = get(text_.charFormat(id));
        mixed = mixed || (value && *value != here);
        value = here;
    });
    return mixed ? std::nullopt : value;
}

template <typename T, typename Get>
std::optional<T> RichTextControl::ofParagraphs(Get get) const {
    const T value = get(text_.paraFormatAt(selStart_));
    for (qsizetype next = text_.paragraphEnd(selStart_); next < selStart_ + selLength_;
         next = text_.paragraphEnd(next)) {
        if (get(text_.paraFormatAt(next)) != value)
            return std::nullopt;
    }
    return value;
}

std::optional<QString> RichTextControl::selFontName() const {
    return ofCharacters<QString>([](const CharFormat& format) { return format.family; });
}

std::optional<double> RichTextControl::selFontSize() const {
    return ofCharacters<double>([](const CharFormat& format) { return format.size / 2.0; });
}

std::optional<bool> RichTextControl::selBold() const {
    return ofCharacters<bool>([](const CharFormat& format) { return format.bold; });
}

std::optional<bool> RichTextControl::selItalic() const {
    return ofCharacters<bool>([](const CharFormat& format) { return format.italic; });
}

std::optional<bool> RichTextControl::selUnderline() const {
    return ofCharacters<bool>([](const CharFormat& format) { return format.underline; });
}

std::optional<bool> RichTextControl::selStrikeThru() const {
    return ofCharacters<bool>([](const CharFormat& format) { return format.strike; });
}

std::optional<int> RichTextControl::selCharOffset() const {
    return ofCharacters<int>([](const CharFormat& format) { return format.offset; });
}

std::optional<int> RichTextControl::selColor() const {
    return ofCharacters<int>([](const CharFormat& format) { return format.colour; });
}

std::optional<bool> RichTextControl::selBullet() const {
    return ofParagraphs<bool>([](const ParaFormat& format) { return format.bullet; });
}

std::optional<int> RichTextControl::selIndent() const {
    return ofParagraphs<int>([](const ParaFormat& format) { return format.startIndent; });
}

std::optional<int> RichTextControl::selRightIndent() const {
    return ofParagraphs<int>([](const ParaFormat& format) { return format.rightIndent; });
}

std::optional<int> RichTextControl::selHangingIndent() const {
    return ofParagraphs<int>([](const ParaFormat& format) { return format.offset; });
}

std::optional<Alignment> RichTextControl::selAlignment() const {
    return ofParagraphs<Alignment>([](const ParaFormat& format) { return format.alignment; });
}

std::optional<std::vector<int>> RichTextControl::selTabs() const {
    return ofParagraphs<std::vector<int>>([](const ParaFormat& format) { return format.tabs; });
}

// ---- writing

template <typename T>
void RichTextControl::setCharacters(CharChange::Flag flag, T CharFormat::*member, const T& value) {
    if (selLength_ == 0) {
        CharFormat format = caretFormat();
        format.*member = value;
        insertionFormat_ = format;
        return;
    }
    CharChange change{flag, {}};
    change.values.*member = value;
    text_.changeCharacters(selStart_, selLength_, change);
    changed();
}

template <typename T>
void RichTextControl::setParagraphs(ParaChange::Flag flag, T ParaFormat::*member, const T& value) {
    ParaChange change{flag, {}};
    change.values.*member = value;
    text_.changeParagraphs(selStart_, selLength_, change);
    changed();
}

void RichTextControl::setSelFontName(const QString& family) {
    setCharacters(CharChange::Family, &CharFormat::family, family);
}

void RichTextControl::setSelFontSize(double points) {
    if (points >= smallestSize && points <= largestSize)
        setCharacters(CharChange::Size, &CharFormat::size, static_cast<std::int32_t>(std::lround(points * 2)));
}

void RichTextControl::setSelBold(bool on) {
    setCharacters(CharChange::Bold, &CharFormat::bold, on);
}

void RichTextControl::setSelItalic(bool on) {
    setCharacters(CharChange::Italic, &CharFormat::italic, on);
}

void RichTextControl::setSelUnderline(bool on) {
    setCharacters(CharChange::Underline, &CharFormat::underline, on);
}

void RichTextControl::setSelStrikeThru(bool on) {
    setCharacters(CharChange::Strike, &CharFormat::strike, on);
}

void RichTextControl::setSelCharOffset(int twips) {
    setCharacters(CharChange::Offset, &CharFormat::offset, twips);
}

void RichTextControl::setSelColor(int colour) {
    setCharacters(CharChange::Colour, &CharFormat::colour, colour);
}

void RichTextControl::setSelBullet(bool on) {
    ParaChange change{ParaChange::Bullet | ParaChange::OffsetLines, {}};
    change.values.bullet = on;
    change.values.offset = on ? bulletIndent_ : 0;
    text_.changeParagraphs(selStart_, selLength_, change);
    changed();
}

void RichTextControl::setSelIndent(int twips) {
    setParagraphs(ParaChange::Start, &ParaFormat::startIndent, twips);
}

void RichTextControl::setSelRightIndent(int twips) {
    setParagraphs(ParaChange::Right, &ParaFormat::rightIndent, twips);
}

void RichTextControl::setSelHangingIndent(int twips) {
    setParagraphs(ParaChange::OffsetLines, &ParaFormat::offset, twips);
}

void RichTextControl::setSelAlignment(Alignment alignment) {
    setParagraphs(ParaChange::Align, &ParaFormat::alignment, alignment);
}

std::vector<int> RichTextControl::firstTabs() const {
    return pendingTabs_ ? *pendingTabs_ : text_.paraFormatAt(selStart_).tabs;
}

void RichTextControl::setSelTabCount(int count) {
    std::vector<int> tabs = firstTabs();
    tabs.resize(static_cast<std::size_t>(std::clamp(count, 0, mostTabs)));
    setParagraphs(ParaChange::Tabs, &ParaFormat::tabs, tabs);
    pendingTabs_ = std::move(tabs);
}

void RichTextControl::setSelTab(int index, int twips) {
    std::vector<int> tabs = firstTabs();
    if (index < 0 || static_cast<std::size_t>(index) >= tabs.size())
        return;
    tabs[static_cast<std::size_t>(index)] = twips;
    setParagraphs(ParaChange::Tabs, &ParaFormat::tabs, tabs);
    pendingTabs_ = std::move(tabs);
}

} // namespace velm
