#include "platform/paper/lineout.h"

#include "platform/typeset/viewformats.h"

#include <algorithm>

namespace velm {

namespace {

constexpr QRgb ruleColour = 0xFF9AA3AE;
constexpr QRgb black = 0xFF000000;

QRgb colourOf(std::int32_t colour) {
    return colour == autoColour ? black : viewColour(colour).rgb();
}

double inTwips(double dots) {
    return dots * SetDocument::twipsPerDot;
}

QRectF inTwips(const QRectF& dots) {
    return {dots.topLeft() * SetDocument::twipsPerDot, dots.size() * SetDocument::twipsPerDot};
}

bool runsLeft(QChar letter) {
    const QChar::Direction direction = letter.direction();
    return direction == QChar::DirR || direction == QChar::DirAL;
}

/// Where letters begin that run another way than the first ones; the end where all run alike.
int turnOf(QStringView text, int from, int to) {
    const bool left = runsLeft(text[from]);
    int at = from + 1;
    while (at < to && (runsLeft(text[at]) == left || !text[at].isLetter()))
        ++at;
    return at;
}

} // namespace

LineOut::LineOut(SetDocument& set, const RichText& rich, JobPages& job, std::uint32_t source)
    : set_(set), job_(job), source_(source) {
    for (const ShownRun& run : set.shown().runs()) {
        if (run.format >= formats_.size()) {
            formats_.resize(run.format + 1);
            styles_.resize(run.format + 1, -1);
        }
        formats_[run.format] = rich.charFormat(run.format);
    }
}

std::uint16_t LineOut::styleOf(FormatId format) {
    std::int32_t& style = styles_[format];
    if (style < 0) {
        const CharFormat& f = formats_[format];
        style = job_.style({installedFamily(f.family), SetDocument::points(std::clamp(f.size, 2, 800) / 2.0), f.bold,
                            f.italic, f.underline, f.strike, colourOf(f.colour)});
    }
    return static_cast<std::uint16_t>(style);
}

void LineOut::put(int number, const SetDocument::Block& block, int line, QPointF corner) {
    const ShownText& shown = set_.shown();
    const QTextLine set = block.lines->lineAt(line);
    const int blockStart = shown.documentStart(number);
    const int start = blockStart + set.textStart();
    int end = std::min(start + set.textLength(), shown.documentEnd(number));
    const bool broken =
        line + 1 < block.lines->lineCount() && (end == start || shown.text().at(end - 1) != QChar::LineSeparator);
    const bool stretched = shown.format(number).alignment == Alignment::Justify && broken;
    // What a line ends with hangs out of it: only the blanks between its words are stretched.
    while (stretched && end > start && shown.text().at(end - 1) == u' ')
        --end;
    const auto& runs = shown.runs();
    while (run_ < runs.size() && runs[run_].start + runs[run_].count <= start)
        ++run_;
    for (std::size_t run = run_; run < runs.size() && runs[run].start < end; ++run) {
        const int from = std::max(start, runs[run].start);
        putPiece(set, blockStart, from, std::min(end, runs[run].start + runs[run].count), runs[run].format, corner,
                 stretched);
    }
    putLinks(set, blockStart, corner);
    putBeside(number, block, line, corner);
}

void LineOut::setLinks(std::vector<LinkSpan> links) {
    links_ = std::move(links);
    std::ranges::sort(links_, {}, &LinkSpan::start);
    link_ = 0;
}

void LineOut::putLinks(const QTextLine& line, int blockStart, QPointF corner) {
    const int start = blockStart + line.textStart();
    const int end = start + line.textLength();
    while (link_ < links_.size() && links_[link_].end <= start)
        ++link_;
    for (std::size_t i = link_; i < links_.size() && links_[i].start < end; ++i) {
        const auto from = static_cast<int>(std::max<qsizetype>(links_[i].start, start));
        const auto to = static_cast<int>(std::min<qsizetype>(links_[i].end, end));
        if (to <= from)
            continue;
        const double one = line.cursorToX(from - blockStart);
        const double other = line.cursorToX(to - blockStart);
        const QRectF where(std::min(one, other), line.y(), std::abs(other - one), line.height());
        job_.pages.back().links.push_back({inTwips(where).translated(corner), links_[i].address});
    }
}

void LineOut::putBeside(int number, const SetDocument::Block& block, int line, QPointF corner) {
    const ShownText& shown = set_.shown();
    JobPage& page = job_.pages.back();
    if (line == 0 && shown.format(number).bullet && shown.paragraph(number).first) {
        const BulletMark bullet = set_.setter().bullet(number, block.lines->lineAt(0), set_.firstLetter(number));
        const QPointF half(bullet.radius, bullet.radius);
        page.fills.push_back(
            {inTwips(QRectF(bullet.centre - half, bullet.centre + half)).translated(corner), black, true});
    }
    if (line + 1 == block.lines->lineCount() && shown.paragraph(number).headEnd)
        page.fills.push_back({inTwips(set_.setter().headRule(number, block.height)).translated(corner), ruleColour});
}

void LineOut::putPiece(const QTextLine& line, int blockStart, int from, int to, FormatId format, QPointF corner,
                       bool stretched) {
    JobPage& page = job_.pages.back();
    const CharFormat& look = formats_[format];
    const QString& text = set_.shown().text();
    const double baseline = corner.y() + inTwips(line.y() + line.ascent());
    const auto placeOf = [&](int at, QTextLine::Edge edge = QTextLine::Leading) {
        return corner.x() + inTwips(line.cursorToX(at - blockStart, edge));
    };
    for (int at = from; at < to;) {
        const QChar first = text.at(at);
        if (first == u'\t' || first == QChar::LineSeparator || first == u'\f') {
            ++at;
            continue;
        }
        if (first == QChar::ObjectReplacementCharacter && look.object >= 0) {
            const double width = std::abs(placeOf(at + 1) - placeOf(at)); // an object's trailing edge is its place, too
            const double height = inTwips(line.ascent());
            page.pictures.push_back(
                {{std::min(placeOf(at), placeOf(at + 1)), baseline - height, width, height}, source_, look.object});
            ++at;
            continue;
        }
        int end = turnOf(text, at, to);
        for (int i = at; i < end; ++i) {
            const QChar unit = text.at(i);
            if (unit == u'\t' || unit == QChar::LineSeparator || unit == QChar::ObjectReplacementCharacter)
                end = i;
        }
        const double one = placeOf(at);
        const double other = placeOf(end - 1, QTextLine::Trailing);
        const double x = std::min(one, other);
        const double width = std::abs(other - one);
        if (look.background != autoColour)
            page.fills.push_back(
                {{x, baseline - inTwips(line.ascent()), width, inTwips(line.height())}, colourOf(look.background)});
        page.runs.push_back({static_cast<float>(x), static_cast<float>(baseline - look.offset),
                             static_cast<float>(width), at, static_cast<std::uint16_t>(end - at), styleOf(format),
                             source_, stretched});
        at = end;
    }
}

} // namespace velm
