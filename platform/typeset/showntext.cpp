#include "platform/typeset/showntext.h"

#include "platform/typeset/longparagraphs.h"
#include "platform/typeset/tableheads.h"

#include <algorithm>

namespace velm {

namespace {

constexpr char16_t paragraphEnd = 0x2029;
constexpr char16_t lineEnd = 0x2028;
constexpr char16_t nothing = 0x2060; // word joiner: no width, no break

/// What stands in the document for a character of the model.
char16_t shape(char16_t unit, bool object) {
    if (unit >= 0x20 && unit < 0x2028)
        return unit == 0x7F ? nothing : unit;
    switch (unit) {
    case u'\t':
        return unit;
    case u'\n':
    case u'\v':
    case u'\r': // a lone half of a line end
    case lineEnd:
        return lineEnd;
    case paragraphEnd:
        return u' ';
    case 0xFFFC:
        return object ? unit : u' ';
    case 0xFDD0: // the document's own marks for the edges of frames
    case 0xFDD1:
    case 0xFFFE:
    case 0xFFFF:
        return 0xFFFD;
    default:
        return unit < 0x20 ? nothing : unit;
    }
}

/// French sets a blank before high punctuation and inside its quotation marks; at such a blank no line may end, however
/// it was typed.
void holdPunctuation(QString& text) {
    QChar* const units = text.data();
    for (qsizetype i = 1; i < text.size(); ++i) {
        const char16_t unit = units[i].unicode();
        const bool high = unit == u':' || unit == u';' || unit == u'?' || unit == u'!' || unit == u'»';
        if (high && units[i - 1] == u' ')
            units[i - 1] = QChar::Nbsp;
        else if (unit == u' ' && units[i - 1] == u'«')
            units[i] = QChar::Nbsp;
    }
}

/// Whether what ends before a blank is the letter of an article's number: "L.", "R.", "D.", "A.", also with a star.
bool endsInArticleLetter(const QChar* units, qsizetype end) {
    if (end < 2 || units[end - 1] != u'.')
        return false;
    const qsizetype letter = units[end - 2] == u'*' ? end - 3 : end - 2;
    return letter >= 0 && QStringView(u"LRDA").contains(units[letter]) &&
           (letter == 0 || !units[letter - 1].isLetterOrNumber());
}

bool endsInNumberSign(const QChar* units, qsizetype end) {
    return end >= 2 && units[end - 1] == u'°' && (units[end - 2] == u'n' || units[end - 2] == u'N');
}

/// The letter or sign of a number and the number itself stay on one line.
void holdReferences(QString& text) {
    QChar* const units = text.data();
    for (qsizetype i = 2; i + 1 < text.size(); ++i) {
        if (units[i] == u' ' && units[i + 1].isDigit() && (endsInArticleLetter(units, i) || endsInNumberSign(units, i)))
            units[i] = QChar::Nbsp;
    }
}

/// No length beyond what fits in sixteen bits, so that sums and pixels stay within bounds.
ParaFormat bounded(ParaFormat format) {
    const auto bound = [](std::int32_t& twips) { twips = std::clamp(twips, -32767, 32767); };
    for (std::int32_t* length : {&format.startIndent, &format.offset, &format.rightIndent, &format.spaceBefore,
                                 &format.spaceAfter, &format.lineSpacing})
        bound(*length);
    for (std::int32_t& stop : format.tabs)
        bound(stop);
    return format;
}

} // namespace

ShownText::ShownText() : ShownText(RichText()) {}

struct ShownText::Reading {
    const RichText& rich;
    QString model;
    QChar* out = nullptr;
    qsizetype written = 0;
    bool insideEnd = false; ///< the LF of a CR LF comes next
};

ShownText::ShownText(const RichText& rich) : objects_(rich.objects()), modelLength_(rich.length()) {
    Reading reading{rich, rich.text()};
    text_.resize(modelLength_);
    reading.out = text_.data();
    paragraphs_.emplace_back();
    rich.forEachRun(0, modelLength_,
                    [&](qsizetype start, qsizetype count, FormatId format) { readRun(reading, start, count, format); });
    text_.truncate(reading.written);
    finish(rich);
}

void ShownText::finish(const RichText& rich) {
    holdPunctuation(text_);
    holdReferences(text_);
    if (paragraphs_.back().start == modelLength_)
        endParagraph(rich, -1, rich.tailCharacter());
    else
        endParagraph(rich, modelLength_ - 1, rich.charFormatIdAt(modelLength_ - 1));
    measureTables();
    findMainFormat(rich);
    findColours(rich);
    partParagraphs(longestPart, paragraphs_, runs_, text_);
    markTableHeads(*this, paragraphs_);
}

void ShownText::readRun(Reading& reading, qsizetype start, qsizetype count, FormatId format) {
    const CharFormat& look = reading.rich.charFormat(format);
    const bool object = look.object >= 0;
    const QStringView model = reading.model;
    const qsizetype first = reading.written;
    for (qsizetype i = start; i < start + count; ++i) {
        const char16_t unit = model[i].unicode();
        if (unit >= 0x20 && unit < 0x7F && !look.hidden) { // most of all text
            reading.out[reading.written++] = QChar(unit);
            continue;
        }
        if (reading.insideEnd) {
            reading.insideEnd = false;
            continue;
        }
        if (unit == u'\r' && i + 1 < model.size() && model[i + 1] == u'\n') {
            endParagraph(reading.rich, i, format);
            reading.out[reading.written++] = QChar(paragraphEnd);
            ShownParagraph& next = paragraphs_.emplace_back();
            next.start = i + 2;
            next.documentStart = static_cast<int>(reading.written);
            reading.insideEnd = true;
            continue;
        }
        ShownParagraph& paragraph = paragraphs_.back();
        paragraph.tabs = paragraph.tabs || unit == u'\t';
        paragraph.objects = paragraph.objects || object;
        const bool pageBreak = unit == u'\f' && paragraph.start == i;
        paragraph.pageBreak = pageBreak && (i + 1 == model.size() || model[i + 1] == u'\r');
        const bool unseen = look.hidden && unit != u'\r' && unit != u'\n';
        reading.out[reading.written++] = QChar(unseen ? nothing : shape(unit, object));
    }
    if (reading.written > first)
        runs_.push_back({static_cast<int>(first), static_cast<int>(reading.written - first), format});
}

void ShownText::endParagraph(const RichText& rich, qsizetype position, FormatId mark) {
    ShownParagraph& paragraph = paragraphs_.back();
    paragraph.mark = mark;
    paragraph.format = position < 0 ? rich.tailParagraph() : rich.paraFormatIdAt(position);
    if (paragraph.format >= formats_.size()) {
        formats_.resize(paragraph.format + 1);
        known_.resize(paragraph.format + 1);
    }
    if (!known_[paragraph.format]) {
        known_[paragraph.format] = true;
        formats_[paragraph.format] = bounded(rich.paraFormat(paragraph.format));
    }
}

void ShownText::measureTables() {
    for (int number = 0; number < count(); ++number) {
        const auto& stops = format(number).tabs;
        if (!paragraph(number).tabs || stops.empty())
            continue;
        widestTable_ = std::max(widestTable_, stops.back());
        const int end = documentEnd(number);
        const auto tab = static_cast<int>(QStringView(text_).first(end).lastIndexOf(u'\t'));
        longestLastCell_ = std::max(longestLastCell_, end - tab - 1);
    }
}

void ShownText::findColours(const RichText& rich) {
    for (const ShownRun& run : runs_) {
        if (run.format >= colours_.size())
            colours_.resize(run.format + 1, autoColour);
        colours_[run.format] = rich.charFormat(run.format).colour;
    }
}

void ShownText::findMainFormat(const RichText& rich) {
    std::vector<int> used;
    for (const ShownRun& run : runs_) {
        if (run.format >= used.size())
            used.resize(run.format + 1);
        used[run.format] += run.count;
    }
    const auto most = std::max_element(used.begin(), used.end());
    mainFormat_ =
        rich.charFormat(most == used.end() ? rich.tailCharacter() : static_cast<FormatId>(most - used.begin()));
}

const ShownParagraph& ShownText::paragraph(int number) const {
    return paragraphs_[static_cast<std::size_t>(std::clamp(number, 0, count() - 1))];
}

const ParaFormat& ShownText::format(int number) const {
    return formats_[paragraph(number).format];
}

int ShownText::paragraphAt(qsizetype model) const {
    const auto after = std::upper_bound(paragraphs_.begin(), paragraphs_.end(), model,
                                        [](qsizetype at, const ShownParagraph& p) { return at < p.start; });
    return std::max(0, static_cast<int>(after - paragraphs_.begin()) - 1);
}

int ShownText::toDocument(qsizetype model) const {
    model = std::clamp<qsizetype>(model, 0, modelLength_);
    const int number = paragraphAt(model);
    const qsizetype inside = model - paragraph(number).start;
    return static_cast<int>(std::min<qsizetype>(documentStart(number) + inside, documentEnd(number)));
}

int ShownText::blockAt(int document) const {
    const auto after = std::upper_bound(paragraphs_.begin(), paragraphs_.end(), document,
                                        [](int at, const ShownParagraph& p) { return at < p.documentStart; });
    return std::max(0, static_cast<int>(after - paragraphs_.begin()) - 1);
}

qsizetype ShownText::toModel(int document) const {
    document = std::clamp(document, 0, documentLength());
    const ShownParagraph& block = paragraph(blockAt(document));
    return block.start + (document - block.documentStart);
}

} // namespace velm
