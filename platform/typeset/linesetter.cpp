#include "platform/typeset/linesetter.h"

#include "platform/typeset/longwords.h"
#include "platform/typeset/type.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

#include <cmath>

namespace velm {

namespace {

constexpr std::int32_t defaultTab = 720; // twips
constexpr double bulletGap = 0.9;        // ems from a bullet to its text when the paragraph gives none
constexpr double leastLine = 40;         // pixels
constexpr double singleMultiple = 1 / 240.0;

// The text engine multiplies tab stops by the ratio of the layout's density to the screen's.
double tabScale(int dpi) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const int own = screen != nullptr ? qRound(screen->logicalDotsPerInchY()) : 96;
    return double(own) / dpi;
}

void setWrapMode(QTextLayout& lines, QTextOption::WrapMode mode) {
    QTextOption option = lines.textOption();
    option.setWrapMode(mode);
    lines.setTextOption(option);
}

} // namespace

int LineSetter::spaceBefore(int number) const {
    return shown_.paragraph(number).first ? qRound(pixels(std::max(0, shown_.format(number).spaceBefore))) : 0;
}

// The rows of a list or of a table stand close to one another; what follows the whole keeps its own distance.
int LineSetter::spaceAfter(int number) const {
    if (!shown_.paragraph(number).last)
        return 0;
    std::int32_t space = shown_.format(number).spaceAfter;
    if (number + 1 < shown_.count() && isRow(number) && !isRow(number + 1))
        space = std::max(space, shown_.format(number + 1).spaceAfter);
    return qRound(pixels(std::max(0, space)));
}

bool LineSetter::isRow(int number) const {
    const ParaFormat& format = shown_.format(number);
    return format.bullet || format.offset > 0 || !format.tabs.empty();
}

BulletMark LineSetter::bullet(int number, const QTextLine& first, double em) const {
    const double radius = std::max(1.5, 0.15 * em);
    const double left = std::max(pixels(shown_.format(number).startIndent), double(-page_.margin));
    return {{left + 0.08 * em + radius, first.y() + first.ascent() - 0.26 * em}, radius};
}

QRectF LineSetter::headRule(int number, int height) const {
    constexpr double thickness = 0.75; // pixels at 96 dots to the inch
    const double rule = thickness * dpi_ / 96.0;
    const double left = pixels(std::max(0, shown_.format(number).startIndent));
    const int y = height - std::max(qCeil(rule), (spaceAfter(number) + 1) / 2);
    return {left, double(y), measure(number) - left, rule};
}

// Running text keeps to what is seen of a narrow window; the columns of a table do not fall over each other in it.
int LineSetter::measure(int number) const {
    const bool columns = shown_.paragraph(number).tabs && !shown_.format(number).tabs.empty();
    return columns ? page_.tableMeasure : page_.measure;
}

QTextOption LineSetter::optionFor(const ParaFormat& format) const {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    switch (format.alignment) {
    case Alignment::Left:
        option.setAlignment(Qt::AlignLeft);
        break;
    case Alignment::Right:
        option.setAlignment(Qt::AlignRight);
        break;
    case Alignment::Centre:
        option.setAlignment(Qt::AlignHCenter);
        break;
    case Alignment::Justify:
        option.setAlignment(Qt::AlignJustify);
        break;
    }
    return option;
}

// Stops count from the margin; the text engine counts them from the line's own left edge. Behind the paragraph's stops
// come the usual ones, every half inch.
QList<QTextOption::Tab> LineSetter::tabsFor(int number, double left) const {
    const ParaFormat& format = shown_.format(number);
    std::vector<std::int32_t> stops = format.tabs;
    const std::int32_t edge = format.startIndent + format.offset;
    if (format.offset > 0) { // the further lines' edge is a stop of the first line
        stops.insert(std::upper_bound(stops.begin(), stops.end(), edge), edge);
    }
    const std::int32_t last = stops.empty() ? 0 : stops.back();
    for (std::int32_t stop = (last / defaultTab + 1) * defaultTab; pixels(stop) < measure(number); stop += defaultTab)
        stops.push_back(stop);
    const double scale = tabScale(dpi_);
    QList<QTextOption::Tab> tabs;
    for (const std::int32_t stop : stops) {
        if (pixels(stop) > left)
            tabs.append(QTextOption::Tab((pixels(stop) - left) * scale, QTextOption::LeftTab));
    }
    return tabs;
}

double LineSetter::lineLeft(int number, bool first) const {
    const ParaFormat& format = shown_.format(number);
    double left = pixels(format.startIndent);
    if (format.bullet)
        left += format.offset > 0 ? pixels(format.offset) : bulletGap * em_;
    else if (!first)
        left += pixels(format.offset);
    return std::clamp(left, double(-page_.margin), std::max(0.0, measure(number) - leastLine));
}

int LineSetter::lineHeight(const ParaFormat& format, double natural, bool pictures) const {
    if (format.lineSpacing == 0) {
        // The room between lines is the type's; a picture needs no more.
        const double room = (type::singleLine - 1) * (pictures ? std::min(natural, 1.2 * em_) : natural);
        return qRound(natural + room);
    }
    if (format.lineMultiple)
        return std::max(1, qRound(natural * std::abs(format.lineSpacing) * singleMultiple));
    const int given = qRound(pixels(std::abs(format.lineSpacing)));
    return format.lineSpacing > 0 ? std::max(given, qRound(natural)) : std::max(1, given);
}

int LineSetter::set(QTextLayout& lines, int number, LayoutWork& work) const {
    const ShownParagraph& block = shown_.paragraph(number);
    const ParaFormat& format = shown_.format(number);
    ++work.blocks;
    QTextOption option = optionFor(format);
    if (!block.tabs) {
        lines.setTextOption(option);
        return breakLines(lines, number, work);
    }
    // One list of stops serves the whole block, for the engine uses it again when it draws. It is made for the first
    // line, unless only further lines, which may begin elsewhere, hold tabs.
    option.setTabs(tabsFor(number, lineLeft(number, block.first)));
    lines.setTextOption(option);
    const int height = breakLines(lines, number, work);
    const bool elsewhere = !qFuzzyCompare(1 + lineLeft(number, block.first), 1 + lineLeft(number, false));
    if (!elsewhere || textOf(number).indexOf(u'\t') < lines.lineAt(0).textLength())
        return height;
    option.setTabs(tabsFor(number, lineLeft(number, false)));
    lines.setTextOption(option);
    return breakLines(lines, number, work);
}

QStringView LineSetter::textOf(int number) const {
    const int start = shown_.documentStart(number);
    return QStringView(shown_.text()).sliced(start, shown_.documentEnd(number) - start);
}

int LineSetter::breakLines(QTextLayout& lines, int number, LayoutWork& work) const {
    const ShownParagraph& block = shown_.paragraph(number);
    const ParaFormat& format = shown_.format(number);
    LongWords words(textOf(number));
    lines.beginLayout();
    double y = spaceBefore(number);
    const double right = pixels(std::max(0, format.rightIndent));
    for (bool first = block.first;; first = false) {
        QTextLine line = lines.createLine();
        if (!line.isValid())
            break;
        const double left = lineLeft(number, first);
        fill(lines, line, std::max(leastLine, measure(number) - left - right), words, work);
        const int height = lineHeight(format, line.height(), block.objects);
        line.setPosition(QPointF(left, y + std::round((height - line.height()) / 2)));
        y += height;
    }
    lines.endLayout();
    return static_cast<int>(y) + spaceAfter(number);
}

void LineSetter::fill(QTextLayout& lines, QTextLine& line, double width, LongWords& words, LayoutWork& work) const {
    ++work.lines;
    if (words.goesOn(line.textStart())) {
        setWrapMode(lines, QTextOption::WrapAnywhere);
        line.setLineWidth(width);
        setWrapMode(lines, QTextOption::WrapAtWordBoundaryOrAnywhere);
        work.characters += line.textLength();
        if (line.textStart() + line.textLength() <= words.end())
            return;
    }
    line.setLineWidth(width);
    work.characters += line.textLength() + words.restAt(line.textStart() + line.textLength());
}

} // namespace velm
