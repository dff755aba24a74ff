// Lines of a paragraph: breaking, indents, tab stops, spacing; and finding them again.
#include "platform/widgets/paperlayout.h"
#include "platform/widgets/richpicture.h"
#include "platform/widgets/viewformats.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>

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

} // namespace

QTextOption PaperLayout::optionFor(const ParaFormat& format) const {
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
QList<QTextOption::Tab> PaperLayout::tabsFor(const ParaFormat& format, double left) const {
    std::vector<std::int32_t> stops = format.tabs;
    const std::int32_t edge = format.startIndent + format.offset;
    if (format.offset > 0) { // the further lines' edge is a stop of the first line
        stops.insert(std::upper_bound(stops.begin(), stops.end(), edge), edge);
    }
    const std::int32_t last = stops.empty() ? 0 : stops.back();
    for (std::int32_t stop = (last / defaultTab + 1) * defaultTab; pixels(stop) < page_.measure; stop += defaultTab) {
        stops.push_back(stop);
    }
    const double scale = tabScale(device_.dpi);
    QList<QTextOption::Tab> tabs;
    for (const std::int32_t stop : stops) {
        if (pixels(stop) > left) {
            tabs.append(QTextOption::Tab((pixels(stop) - left) * scale, QTextOption::LeftTab));
        }
    }
    return tabs;
}

double PaperLayout::lineLeft(const ParaFormat& format, bool first) const {
    double left = pixels(format.startIndent);
    if (format.bullet) {
        left += format.offset > 0 ? pixels(format.offset) : bulletGap * fontHeight();
    } else if (!first) {
        left += pixels(format.offset);
    }
    return std::clamp(left, double(-page_.margin), std::max(0.0, page_.measure - leastLine));
}

int PaperLayout::lineHeight(const ParaFormat& format, double natural, bool pictures) const {
    if (format.lineSpacing == 0) {
        // The room between lines is the type's; a picture needs no more.
        const double room = (look::singleLine - 1) * (pictures ? std::min(natural, 1.2 * fontHeight()) : natural);
        return qRound(natural + room);
    }
    if (format.lineMultiple) {
        return std::max(1, qRound(natural * std::abs(format.lineSpacing) * singleMultiple));
    }
    const int given = qRound(pixels(std::abs(format.lineSpacing)));
    return format.lineSpacing > 0 ? std::max(given, qRound(natural)) : std::max(1, given);
}

int PaperLayout::layOutLines(QTextLayout& lines, int number) const {
    const ParaFormat& format = shown_->format(number);
    QTextOption option = optionFor(format);
    if (!shown_->paragraph(number).tabs) {
        lines.setTextOption(option);
        return breakLines(lines, number);
    }
    // One list of stops serves the whole paragraph, for the engine uses it again when it draws. It is made for the
    // first line, unless only further lines, which may begin elsewhere, hold tabs.
    option.setTabs(tabsFor(format, lineLeft(format, true)));
    lines.setTextOption(option);
    const int height = breakLines(lines, number);
    const bool elsewhere = !qFuzzyCompare(1 + lineLeft(format, true), 1 + lineLeft(format, false));
    if (!elsewhere || lines.text().indexOf(u'\t') < lines.lineAt(0).textLength()) {
        return height;
    }
    option.setTabs(tabsFor(format, lineLeft(format, false)));
    lines.setTextOption(option);
    return breakLines(lines, number);
}

int PaperLayout::breakLines(QTextLayout& lines, int number) const {
    const ParaFormat& format = shown_->format(number);
    const bool pictures = shown_->paragraph(number).objects;
    lines.beginLayout();
    double y = std::round(pixels(std::max(0, format.spaceBefore)));
    const double right = pixels(std::max(0, format.rightIndent));
    for (bool first = true;; first = false) {
        QTextLine line = lines.createLine();
        if (!line.isValid()) {
            break;
        }
        const double left = lineLeft(format, first);
        line.setLineWidth(std::max(leastLine, page_.measure - left - right));
        const int height = lineHeight(format, line.height(), pictures);
        line.setPosition(QPointF(left, y + std::round((height - line.height()) / 2)));
        y += height;
    }
    lines.endLayout();
    return static_cast<int>(y + std::round(pixels(std::max(0, format.spaceAfter))));
}

// Neighbouring lines share the room between them.
int PaperLayout::slotTop(const QTextLayout& lines, int line, int height) const {
    if (line <= 0) {
        return 0;
    }
    if (line >= lines.lineCount()) {
        return height;
    }
    const QRectF above = lines.lineAt(line - 1).rect();
    return qRound((above.bottom() + lines.lineAt(line).y()) / 2);
}

PaperLayout::Line PaperLayout::lineIn(int number, int line) {
    const QTextBlock block = layOut(number);
    const QTextLayout& lines = *block.layout();
    const int height = heights_.height(number);
    Line found;
    found.start = block.position() + (line < lines.lineCount() ? lines.lineAt(line).textStart() : 0);
    const int top = slotTop(lines, line, height);
    found.height = slotTop(lines, line + 1, height) - top;
    found.top = heights_.top(number) + page_.margin + top;
    return found;
}

PaperLayout::Line PaperLayout::lineAt(std::int64_t y) {
    const int number = heights_.at(y - page_.margin);
    if (number < 0) {
        return {};
    }
    const QTextBlock block = layOut(number);
    const QTextLayout& lines = *block.layout();
    const auto inside = y - page_.margin - heights_.top(number);
    int line = 0;
    while (line + 1 < lines.lineCount() && slotTop(lines, line + 1, heights_.height(number)) <= inside) {
        ++line;
    }
    return lineIn(number, line);
}

PaperLayout::Line PaperLayout::lineOf(int position) {
    QTextBlock block = document()->findBlock(position);
    if (!block.isValid()) {
        block = document()->lastBlock();
    }
    const int number = block.blockNumber();
    if (number >= heights_.count()) {
        return {};
    }
    layOut(number, block);
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    return lineIn(number, line.isValid() ? line.lineNumber() : 0);
}

int PaperLayout::characterAt(const QPointF& point) {
    const Line line = lineAt(static_cast<std::int64_t>(std::floor(point.y())));
    if (point.y() < double(line.top) || point.y() >= double(line.top + line.height)) {
        return -1;
    }
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid()) {
        return -1;
    }
    const double x = point.x() - page_.textLeft;
    const QRectF natural = text.naturalTextRect();
    if (x < natural.left() || x >= natural.right()) {
        return -1;
    }
    return block.position() + text.xToCursor(x, QTextLine::CursorOnCharacter);
}

int PaperLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    auto* self = const_cast<PaperLayout*>(this); // lays out on demand
    if (accuracy == Qt::ExactHit) {
        return self->characterAt(point);
    }
    const Line line = self->lineAt(static_cast<std::int64_t>(std::floor(point.y()))); // the nearest
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid()) {
        return block.position();
    }
    return block.position() + text.xToCursor(point.x() - page_.textLeft);
}

void PaperLayout::resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) {
    Q_UNUSED(position)
    const RichObject* object = objectOf(format);
    if (object == nullptr) {
        return;
    }
    const QSize twips = pictureTwips(format.intProperty(ViewFormats::Object), *object);
    const double width = pixels(twips.width());
    const double fit = std::min(1.0, page_.measure / width);
    item.setWidth(width * fit);
    item.setAscent(pixels(twips.height()) * fit);
    item.setDescent(0);
}

} // namespace velm
