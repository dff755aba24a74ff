#include "platform/richtext/control.h"

#include "platform/richtext/commonformat.h"
#include "platform/richtext/formatchange.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velm {

namespace {

constexpr double smallestSize = 0.5;
constexpr double largestSize = 2160;

} // namespace

RichTextControl::RichTextControl() = default;
RichTextControl::~RichTextControl() = default;

void RichTextControl::selectionChanged() {
    insertionFormat_.reset();
    pendingTabs_.reset();
    news_.selectionChanged();
}

void RichTextControl::setBackColor(int colour) {
    if (std::exchange(backColor_, colour) != colour)
        news_.propertiesChanged();
}

void RichTextControl::setVisible(bool on) {
    if (std::exchange(visible_, on) != on)
        news_.propertiesChanged();
}

// ---- content

void RichTextControl::notifyChanged() {
    const qsizetype start = std::min(selStart_, length());
    const qsizetype count = std::min(selLength_, length() - start);
    const bool moved = std::exchange(selStart_, start) != start || selLength_ != count;
    selLength_ = count;
    insertionFormat_.reset();
    pendingTabs_.reset();
    news_.textChanged();
    if (moved)
        selectionChanged();
}

void RichTextControl::caretAfterChange(qsizetype position) {
    selStart_ = position;
    selLength_ = 0;
    news_.textChanged();
    selectionChanged();
}

void RichTextControl::setTextRtf(QByteArrayView rtf) {
    if (!readRtf(rtf, text_, RtfLoad::Whole))
        text_.clear();
    caretAfterChange(0);
}

QByteArray RichTextControl::textRtf() const {
    return writeRtf(text_);
}

void RichTextControl::setText(QStringView text) {
    RichText fresh;
    fresh.replace(0, 0, text);
    text_ = std::move(fresh);
    caretAfterChange(0);
}

// ---- selection

void RichTextControl::setSelStart(qsizetype position) {
    selStart_ = std::clamp<qsizetype>(position, 0, length());
    selLength_ = 0;
    selectionChanged();
}

void RichTextControl::setSelLength(qsizetype length) {
    selLength_ = std::clamp<qsizetype>(length, 0, text_.length() - selStart_);
    selectionChanged();
}

QString RichTextControl::selText() const {
    return text_.text(selStart_, selLength_);
}

void RichTextControl::setSelText(QStringView text) {
    const qsizetype start = text_.changeRange(selStart_, selLength_).first;
    if (selLength_ == 0 && text.isEmpty())
        return;
    const qsizetype added = text_.replace(selStart_, selLength_, text);
    if (insertionFormat_)
        text_.changeCharacters(start, added, {CharChange::All, *insertionFormat_});
    caretAfterChange(start + added);
}

QByteArray RichTextControl::selRtf() const {
    return writeRtf(text_, selStart_, selLength_);
}

bool RichTextControl::setSelRtf(QByteArrayView rtf) {
    RichText other;
    if (!readRtf(rtf, other, RtfLoad::Selection))
        return false;
    const qsizetype start = text_.changeRange(selStart_, selLength_).first;
    caretAfterChange(start + text_.replace(selStart_, selLength_, other));
    return true;
}

void RichTextControl::upTo(QStringView set, bool forward, bool negate) {
    const auto stops = [&](qsizetype position) { return set.contains(QChar(text_.at(position))) != negate; };
    qsizetype position = forward ? selStart_ + selLength_ : selStart_;
    if (forward) {
        while (position < length() && !stops(position))
            ++position;
    } else {
        while (position > 0 && !stops(position - 1))
            --position;
    }
    setSelStart(position);
}

qsizetype RichTextControl::find(QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    const qsizetype hit = velm::find(text_, what, start < 0 ? selStart_ : start, end, options);
    if (hit >= 0) {
        selStart_ = hit;
        selLength_ = what.size();
        selectionChanged();
    }
    return hit;
}

// ---- properties of the selection

CharFormat RichTextControl::caretFormat() const {
    return insertionFormat_ ? *insertionFormat_ : text_.insertionFormat(selStart_);
}

template <typename T, typename Get>
std::optional<T> RichTextControl::ofCharacters(Get get) const {
    return selLength_ == 0 ? get(caretFormat()) : commonOfCharacters<T>(text_, selStart_, selLength_, get);
}

template <typename T, typename Get>
std::optional<T> RichTextControl::ofParagraphs(Get get) const {
    return commonOfParagraphs<T>(text_, selStart_, selLength_, get);
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
    news_.textChanged();
}

template <typename T>
void RichTextControl::setParagraphs(ParaChange::Flag flag, T ParaFormat::*member, const T& value) {
    ParaChange change{flag, {}};
    change.values.*member = value;
    text_.changeParagraphs(selStart_, selLength_, change);
    news_.textChanged();
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
    news_.textChanged();
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
