#include "platform/richtext/richtext.h"

#include "platform/richtext/formatchange.h"
#include "platform/richtext/idmap.h"
#include "platform/richtext/lineends.h"
#include "platform/richtext/richtextdata.h"
#include "platform/richtext/unitsearch.h"

namespace velm {

// ---- life

RichText::RichText() : d_(std::make_unique<RichTextData>()) {}
RichText::~RichText() = default;
RichText::RichText(const RichText& other) : d_(std::make_unique<RichTextData>(*other.d_)) {}

// What is moved from stays an empty text of its own, with a revision that it never had.
RichText::RichText(RichText&& other) noexcept : d_(std::make_unique<RichTextData>()) {
    std::swap(d_, other.d_);
    other.d_->revision = d_->revision + 1;
}

RichText& RichText::operator=(const RichText& other) {
    if (this != &other) {
        const quint64 revision = std::max(d_->revision, other.d_->revision) + 1;
        *d_ = *other.d_;
        d_->revision = revision;
    }
    return *this;
}

RichText& RichText::operator=(RichText&& other) noexcept {
    if (this != &other) {
        const quint64 revision = std::max(d_->revision, other.d_->revision) + 1;
        std::swap(d_, other.d_);
        d_->revision = revision;
        other.clear();
        other.d_->revision = revision;
    }
    return *this;
}

// ---- reading

qsizetype RichText::length() const {
    return d_->length();
}

char16_t RichText::at(qsizetype position) const {
    return position >= 0 && position < d_->length() ? d_->text[position] : u'\0';
}

QString RichText::text() const {
    return text(0, d_->length());
}

QString RichText::text(qsizetype position, qsizetype length) const {
    const auto [start, count] = clampedRange(position, length, d_->length());
    QString result(count, Qt::Uninitialized);
    char16_t* to = reinterpret_cast<char16_t*>(result.data());
    std::as_const(d_->text).pieces(start, count,
                                   [&to](const char16_t* units, qsizetype size) { to = std::copy_n(units, size, to); });
    return result;
}

std::pair<QStringView, QStringView> RichText::segments() const {
    return {d_->first(), d_->second()};
}

qsizetype RichText::indexOf(QStringView needle, qsizetype from) const {
    from = std::max<qsizetype>(from, 0);
    if (needle.isEmpty())
        return from <= length() ? from : -1;
    return from < length() ? indexOfUnits(d_->first(), d_->second(), needle, from) : -1;
}

qsizetype RichText::indexOf(char16_t unit, qsizetype from) const {
    from = std::max<qsizetype>(from, 0);
    return from < length() ? d_->indexOf(unit, from) : -1;
}

qsizetype RichText::lastIndexOf(char16_t unit, qsizetype from) const {
    qsizetype position = std::min(from, length() - 1);
    while (position >= 0 && d_->text[position] != unit)
        --position;
    return std::max<qsizetype>(position, -1);
}

FormatId RichText::charFormatIdAt(qsizetype position) const {
    return position < length() ? d_->characters[std::max<qsizetype>(position, 0)] : tailCharacter();
}

FormatId RichText::paraFormatIdAt(qsizetype position) const {
    return d_->paragraphAt(std::max<qsizetype>(position, 0));
}

const CharFormat& RichText::charFormat(FormatId id) const {
    return d_->charFormats[id];
}

const ParaFormat& RichText::paraFormat(FormatId id) const {
    return d_->paraFormats[id];
}

const std::vector<RichObject>& RichText::objects() const {
    return d_->objects;
}

qsizetype RichText::paragraphStart(qsizetype position) const {
    return position <= 0 ? 0 : lastIndexOf(u'\n', std::min(position, length()) - 1) + 1;
}

qsizetype RichText::paragraphEnd(qsizetype position) const {
    return d_->paragraphEnd(std::clamp<qsizetype>(position, 0, length()));
}

void RichText::forEachRun(qsizetype position, qsizetype length,
                          const std::function<void(qsizetype start, qsizetype count, FormatId format)>& call) const {
    const auto [start, count] = clampedRange(position, length, d_->length());
    qsizetype at = start;
    qsizetype runStart = start;
    FormatId run = 0;
    std::as_const(d_->characters).pieces(start, count, [&](const FormatId* ids, qsizetype size) {
        for (qsizetype i = 0; i < size; ++i, ++at) {
            if (ids[i] != run && at > runStart) {
                call(runStart, at - runStart, run);
                runStart = at;
            }
            run = ids[i];
        }
    });
    if (at > runStart)
        call(runStart, at - runStart, run);
}

FormatId RichText::tailCharacter() const {
    return d_->lastIsEmpty() ? d_->tailCharacter : d_->characters[d_->length() - 1];
}

FormatId RichText::tailParagraph() const {
    return d_->lastParagraph();
}

CharFormat RichText::insertionFormat(qsizetype position) const {
    position = changeRange(position, 0).first;
    CharFormat format = charFormatAt(d_->atParagraphStart(position) ? position : position - 1);
    format.object = -1;
    return format;
}

std::pair<qsizetype, qsizetype> RichText::changeRange(qsizetype position, qsizetype length) const {
    const auto [start, count] = clampedRange(position, length, d_->length());
    const qsizetype from = d_->insidePair(start) ? start - 1 : start;
    if (count == 0)
        return {from, 0};
    const qsizetype end = start + count;
    return {from, (d_->insidePair(end) ? end + 1 : end) - from};
}

quint64 RichText::revision() const {
    return d_->revision;
}

// ---- writing

void RichText::clear() {
    const quint64 revision = d_->revision + 1;
    *d_ = RichTextData();
    d_->revision = revision;
}

FormatId RichText::intern(const CharFormat& format) {
    return d_->charFormats.intern(format);
}

FormatId RichText::intern(const ParaFormat& format) {
    return d_->paraFormats.intern(format);
}

int RichText::addObject(RichObject object) {
    d_->objects.push_back(std::move(object));
    return static_cast<int>(d_->objects.size() - 1);
}

void RichText::append(QStringView text, FormatId character, FormatId paragraph) {
    if (text.isEmpty())
        return;
    const LineEnds ends = lineEnds(text);
    if (!ends.clean || d_->text.owns(text.utf16())) {
        const QString clean = withCleanLineEnds(text);
        append(clean, character, paragraph);
        return;
    }
    const qsizetype position = length();
    d_->moveKnown(position, 0, text.size(), ends.behind);
    std::copy_n(text.utf16(), text.size(), d_->splice(position, 0, text.size(), character));
    if (ends.behind >= 0)
        d_->paragraphs.pieces(position, text.size(),
                              [paragraph](FormatId* ids, qsizetype size) { std::fill_n(ids, size, paragraph); });
    d_->closeEnd(character, paragraph);
}

void RichText::setTail(FormatId character, FormatId paragraph) {
    if (!d_->lastIsEmpty())
        return;
    d_->tailCharacter = character;
    d_->tailParagraph = paragraph;
    ++d_->revision;
}

qsizetype RichText::replace(qsizetype position, qsizetype length, QStringView text) {
    const auto [start, removed] = changeRange(position, length);
    if (removed == 0 && text.isEmpty())
        return 0;
    const LineEnds ends = lineEnds(text);
    if (!ends.clean || d_->text.owns(text.utf16())) {
        const QString clean = withCleanLineEnds(text);
        return replace(position, length, clean);
    }
    const bool atEnd = start + removed == d_->length();
    const bool split = ends.behind >= 0;
    const FormatId character = d_->newTextFormat(start, removed);
    FormatId paragraph = 0;
    if (atEnd)
        paragraph = d_->lastParagraph();
    else if (split)
        paragraph = d_->paragraphs[d_->learnParagraphEnd(start + removed) - 1];
    d_->moveKnown(start, removed, text.size(), ends.behind);
    std::copy_n(text.utf16(), text.size(), d_->splice(start, removed, text.size(), character));
    if (split)
        d_->paragraphs.pieces(start, text.size(),
                              [paragraph](FormatId* ids, qsizetype size) { std::fill_n(ids, size, paragraph); });
    if (atEnd)
        d_->closeEnd(character, paragraph);
    return text.size();
}

qsizetype RichText::replace(qsizetype position, qsizetype length, const RichText& other) {
    if (&other == this)
        return replace(position, length, copy(0, this->length()));
    const auto [start, removed] = changeRange(position, length);
    const qsizetype added = other.length();
    if (removed == 0 && added == 0)
        return 0;
    const bool atEnd = start + removed == d_->length();
    const FormatId character = d_->newTextFormat(start, removed);
    const FormatId paragraph = atEnd ? d_->lastParagraph() : FormatId{0};
    d_->paste(start, removed, *other.d_, 0, added);
    if (atEnd)
        d_->closeEnd(character, paragraph);
    return added;
}

void RichText::remove(qsizetype position, qsizetype length) {
    replace(position, length, QStringView());
}

RichText RichText::copy(qsizetype position, qsizetype length) const {
    const auto [start, count] = changeRange(position, length);
    RichText result;
    RichTextData& to = *result.d_;
    to.paste(0, 0, *d_, start, count);
    const qsizetype end = start + count;
    const bool whole = end == d_->length();
    // What closes the part: its last position, or where nothing is taken, what would be inserted there.
    const FormatId paragraph = whole || count == 0 ? d_->paragraphAt(end) : d_->paragraphAt(end - 1);
    CharFormat character = count == 0 ? insertionFormat(start) : charFormatAt(whole ? end : end - 1);
    character.object = -1;
    to.closeEnd(to.charFormats.intern(character), to.paraFormats.intern(d_->paraFormats[paragraph]));
    return result;
}

void RichText::changeCharacters(qsizetype position, qsizetype length, const CharChange& change) {
    const auto [start, count] = clampedRange(position, length, d_->length());
    if (count == 0 || change.mask == 0)
        return;
    IdMap changed([this, &change](FormatId id) {
        CharFormat format = d_->charFormats[id];
        apply(change, format);
        return d_->charFormats.intern(format);
    });
    d_->characters.pieces(start, count, [&changed](FormatId* ids, qsizetype size) {
        for (qsizetype i = 0; i < size; ++i)
            ids[i] = changed(ids[i]);
    });
    ++d_->revision;
}

void RichText::changeParagraphs(qsizetype position, qsizetype length, const ParaChange& change) {
    if (change.mask == 0)
        return;
    const auto [start, count] = clampedRange(position, length, d_->length());
    ParaChange ordered = change;
    ordered.values.tabs = orderedTabs(std::move(ordered.values.tabs));
    IdMap changed([this, &ordered](FormatId id) {
        ParaFormat format = d_->paraFormats[id];
        apply(ordered, format);
        return d_->paraFormats.intern(format);
    });
    qsizetype from = start;
    do {
        const qsizetype end = d_->learnParagraphEnd(from);
        if (end > from)
            d_->paragraphs[end - 1] = changed(d_->paragraphs[end - 1]);
        else
            d_->closeEnd(d_->tailCharacter, changed(d_->lastParagraph()));
        from = end;
    } while (from < start + count);
    ++d_->revision;
}

} // namespace velm
