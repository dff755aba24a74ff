// What the sheet shows: text, selection, links, bullets, page breaks, pictures, caret.
#include "platform/widgets/paperlayout.h"
#include "platform/widgets/richpicture.h"
#include "platform/widgets/viewformats.h"

#include <QPainter>
#include <QTextDocument>

#include <cmath>

namespace velm {

namespace {

// Text of a decided colour keeps it in a link; black and greys take the link's.
bool isGreyish(const QColor& colour) {
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least < 48;
}

using Ranges = QList<QTextLayout::FormatRange>;

/// Appends what of a range lies outside the selections, which ascend: there the selection's look counts.
void appendOutside(Ranges& ranges, QTextLayout::FormatRange range, const Ranges& selections) {
    const int end = range.start + range.length;
    for (const QTextLayout::FormatRange& selection : selections) {
        const int to = std::min(end, selection.start);
        if (range.start < to) {
            range.length = to - range.start;
            ranges.append(range);
        }
        range.start = std::max(range.start, selection.start + selection.length);
    }
    if (range.start < end) {
        range.length = end - range.start;
        ranges.append(range);
    }
}

} // namespace

void PaperLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    int number = heights_.at(static_cast<std::int64_t>(std::floor(clip.top())) - page_.margin);
    if (number < 0) {
        return;
    }
    painter->save();
    painter->setPen(sheet_.ink);
    for (QTextBlock block = document()->findBlockByNumber(number); block.isValid() && number < heights_.count();
         block = block.next(), ++number) {
        if (double(heights_.top(number) + page_.margin) > clip.bottom()) {
            break;
        }
        layOut(number, block);
        drawBlock(*painter, context, number, block);
    }
    painter->restore();
}

void PaperLayout::drawBlock(QPainter& painter, const PaintContext& context, int number, const QTextBlock& block) {
    const QTextLayout& lines = *block.layout();
    const double top = double(heights_.top(number) + page_.margin);
    if (shown_->paragraph(number).pageBreak) {
        drawPageBreak(painter, lines, top);
    }
    if (shown_->format(number).bullet) {
        drawBullet(painter, number, block, top);
    }
    const int start = block.position();
    const int end = start + block.length() - 1;
    QList<QTextLayout::FormatRange> selected;
    for (const Selection& selection : context.selections) {
        const int from = selection.cursor.selectionStart();
        const int to = selection.cursor.selectionEnd();
        if (from > end || to < start || from == to) {
            continue;
        }
        QTextLayout::FormatRange range;
        range.start = std::max(from, start) - start;
        range.length = std::min(to, end) - start - range.start;
        range.format = selection.format;
        drawSelection(painter, lines, number, top, range, to > end && block.next().isValid());
        range.format.setBackground(Qt::transparent); // is drawn; but what the text itself has must not show
        selected.append(range);
    }
    const QPointF origin(page_.textLeft, top);
    lines.draw(&painter, origin, linkFormats(block, selected) + selected, context.clip);
    if (context.cursorPosition >= start && context.cursorPosition <= end) {
        lines.drawCursor(&painter, origin, context.cursorPosition - start, 1 + device_.dpi / 144);
    }
}

// The selection fills its lines' whole height, so that no stripes stand between them; but not the room around the
// paragraph.
void PaperLayout::drawSelection(QPainter& painter, const QTextLayout& lines, int number, double top,
                                const QTextLayout::FormatRange& range, bool pastEnd) const {
    const double endMark = 0.3 * fontHeight();
    const ParaFormat& format = shown_->format(number);
    const int before = qRound(pixels(std::max(0, format.spaceBefore)));
    const int height = heights_.height(number) - qRound(pixels(std::max(0, format.spaceAfter)));
    for (int i = 0; i < lines.lineCount(); ++i) {
        const QTextLine line = lines.lineAt(i);
        const int lineEnd = line.textStart() + line.textLength();
        const int from = std::max(range.start, line.textStart());
        const int to = std::min(range.start + range.length, lineEnd);
        const bool last = i + 1 == lines.lineCount();
        if (from > to || (from == to && !(last && pastEnd))) {
            continue;
        }
        const double left = line.cursorToX(from);
        double right = to >= lineEnd && !last ? line.naturalTextRect().right() : line.cursorToX(to);
        if (last && pastEnd) {
            right += endMark;
        }
        const int slot = std::max(before, slotTop(lines, i, height));
        const QRectF band(page_.textLeft + std::min(left, right), top + slot, std::abs(right - left),
                          slotTop(lines, i + 1, height) - slot);
        painter.fillRect(band, range.format.background());
    }
}

void PaperLayout::drawBullet(QPainter& painter, int number, const QTextBlock& block, double top) const {
    const QTextLine line = block.layout()->lineAt(0);
    if (!line.isValid()) {
        return;
    }
    const QTextBlock::iterator first = block.begin();
    const QTextCharFormat format = first.atEnd() ? block.charFormat() : first.fragment().charFormat();
    const double em = format.fontPointSize() / 72.0 * device_.dpi;
    const double radius = std::max(1.5, 0.15 * em);
    const double left = page_.textLeft + std::max(pixels(shown_->format(number).startIndent), double(-page_.margin));
    const QPointF centre(left + 0.08 * em + radius, top + line.y() + line.ascent() - 0.26 * em);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground() : QBrush(sheet_.ink));
    painter.drawEllipse(centre, radius, radius);
    painter.restore();
}

void PaperLayout::drawPageBreak(QPainter& painter, const QTextLayout& lines, double top) const {
    const QTextLine line = lines.lineAt(0);
    const double y = std::floor(top + line.y() + line.height() / 2) + 0.5;
    QPen pen(sheet_.rule, 1);
    pen.setDashPattern({4, 4});
    painter.save();
    painter.setPen(pen);
    painter.drawLine(QPointF(page_.textLeft, y), QPointF(page_.textLeft + page_.measure, y));
    painter.restore();
}

QList<QTextLayout::FormatRange> PaperLayout::linkFormats(const QTextBlock& block,
                                                         const QList<QTextLayout::FormatRange>& selected) const {
    QList<QTextLayout::FormatRange> ranges;
    const int start = block.position();
    const auto links = links_.within(start, start + block.length() - 1);
    if (links.empty()) {
        return ranges;
    }
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment fragment = piece.fragment();
        const QTextCharFormat look = fragment.charFormat();
        const bool recolour = !look.hasProperty(QTextFormat::ForegroundBrush) || isGreyish(look.foreground().color());
        for (const LinkRanges::Entry& link : links) {
            const int from = std::max(static_cast<int>(link.start), fragment.position());
            const int to = std::min(static_cast<int>(link.end), fragment.position() + fragment.length());
            if (from >= to) {
                continue;
            }
            QTextLayout::FormatRange range;
            range.start = from - start;
            range.length = to - from;
            range.format = look;
            if (recolour) {
                range.format.setForeground(sheet_.link);
            }
            if (link.index == hovered_) {
                range.format.setFontUnderline(true);
            }
            appendOutside(ranges, range, selected);
        }
    }
    return ranges;
}

const RichObject* PaperLayout::objectOf(const QTextFormat& format) const {
    const int number = format.intProperty(ViewFormats::Object);
    const bool known = shown_ != nullptr && format.hasProperty(ViewFormats::Object) && number >= 0 &&
                       number < static_cast<int>(shown_->objects().size());
    return known ? &shown_->objects()[static_cast<std::size_t>(number)] : nullptr;
}

QSize PaperLayout::pictureTwips(int number, const RichObject& object) {
    const auto known = pictureSizes_.find(number);
    return known != pictureSizes_.end() ? known->second
                                        : pictureSizes_.emplace(number, pictureSize(object)).first->second;
}

const QImage& PaperLayout::picture(int number, const RichObject& object) {
    const auto known = pictures_.find(number);
    return known != pictures_.end() ? known->second : pictures_.emplace(number, pictureOf(object)).first->second;
}

void PaperLayout::drawInlineObject(QPainter* painter, const QRectF& rect, QTextInlineObject item, int position,
                                   const QTextFormat& format) {
    Q_UNUSED(item)
    Q_UNUSED(position)
    const RichObject* object = objectOf(format);
    if (object == nullptr) {
        return;
    }
    const QImage& image = picture(format.intProperty(ViewFormats::Object), *object);
    painter->save();
    if (image.isNull()) {
        painter->setPen(QPen(sheet_.rule, 1));
        painter->drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    } else {
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(rect, image);
    }
    painter->restore();
}

} // namespace velm
