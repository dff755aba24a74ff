#include "platform/richtext/richtextdata.h"
#include "platform/richtext/unitsearch.h"

namespace velm {

// ---- the data

qsizetype RichText::Private::indexOf(char16_t unit, qsizetype from) const {
    if (from < text.firstSize()) {
        const qsizetype hit = first().indexOf(QChar(unit), from);
        if (hit >= 0)
            return hit;
        from = text.firstSize();
    }
    const qsizetype hit = second().indexOf(QChar(unit), from - text.firstSize());
    return hit < 0 ? -1 : text.firstSize() + hit;
}

qsizetype RichText::Private::paragraphEnd(qsizetype position) const {
    if (position >= knownFrom && position < knownEnd)
        return knownEnd;
    const qsizetype lineFeed = indexOf(u'\n', position);
    return lineFeed < 0 ? length() : lineFeed + 1;
}

FormatId RichText::Private::paragraphAt(qsizetype position) const {
    return position < length() ? paragraphs[paragraphEnd(position) - 1] : lastParagraph();
}

// ---- life

RichText::RichText() : d_(std::make_unique<Private>()) {}
RichText::~RichText() = default;
RichText::RichText(const RichText& other) : d_(std::make_unique<Private>(*other.d_)) {}

// What is moved from stays an empty text of its own, with a revision that it never had.
RichText::RichText(RichText&& other) noexcept : d_(std::make_unique<Private>()) {
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

// ---- comparing

namespace {

/// Equal but for the number of the object, which is compared by what it holds.
bool sameFormat(const RichText& a, const CharFormat& x, const RichText& b, const CharFormat& y) {
    const auto objectOf = [](const RichText& text, const CharFormat& format) -> const RichObject* {
        const auto index = static_cast<std::size_t>(format.object);
        return format.object >= 0 && index < text.objects().size() ? &text.objects()[index] : nullptr;
    };
    const RichObject* first = objectOf(a, x);
    const RichObject* second = objectOf(b, y);
    if ((first == nullptr) != (second == nullptr) || (first != nullptr && !(*first == *second)))
        return false;
    CharFormat other = y;
    other.object = x.object;
    return x == other;
}

} // namespace

bool sameContent(const RichText& a, const RichText& b) {
    if (a.length() != b.length() || a.text() != b.text())
        return false;
    // Pairs of ids that were found equal: texts have few formats, and neighbours mostly the same.
    QHash<quint64, bool> known;
    const auto sameIds = [&](FormatId x, FormatId y) {
        const quint64 key = (quint64{x} << 32) | y;
        const auto found = known.constFind(key);
        return found != known.constEnd() ? *found
                                         : *known.insert(key, sameFormat(a, a.charFormat(x), b, b.charFormat(y)));
    };
    bool same = sameIds(a.tailCharacter(), b.tailCharacter());
    a.forEachRun(0, a.length(), [&](qsizetype start, qsizetype count, FormatId x) {
        if (same)
            b.forEachRun(start, count, [&](qsizetype, qsizetype, FormatId y) { same = same && sameIds(x, y); });
    });
    qsizetype position = 0;
    while (same && position < a.length()) {
        same = a.paraFormatAt(position) == b.paraFormatAt(position);
        position = a.paragraphEnd(position);
    }
    return same && a.paraFormat(a.tailParagraph()) == b.paraFormat(b.tailParagraph());
}

} // namespace velm
