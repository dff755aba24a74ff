// What the sheet shows: text, selection, links, bullets, page breaks, pictures, caret.
#include "platform/widgets/linkpaint.h"
#include "platform/widgets/paperlayout.h"
#include "platform/widgets/richpicture.h"
#include "platform/widgets/viewformats.h"

#include <QPainter>
#include <QTextDocument>

#include <cmath>

namespace velm {

void PaperLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    int number = heights_.at(static_cast<std::int64_t>(std::floor(clip.top())) - page_.margin);
    if (number < 0) {
        return;
    }
    painter->save();
    painter->setPen(sheet_.ink);
    for (QTextBlock block = document()->findBlockByNumber(number); number < available_;
         block = block.next(), ++number) {
        const auto top = double(paragraphTop(number));
        if (top > clip.bottom()) {
            break;
        }
        layOut(number, block);
        // From the block's own corner: far down a long text the engine's numbers end.
        const QPointF corner(page_.textLeft, top);
        painter->translate(corner);
        drawBlock(*painter, context, number, block, clip.translated(-corner));
        painter->translate(-corner);
    }
    painter->restore();
}

void PaperLayout::drawBlock(QPainter& painter, const PaintContext& context, int number, const QTextBlock& block,
                            const QRectF& clip) {
    QTextLayout& lines = *block.layout();
    if (shown_->paragraph(number).pageBreak) {
        drawPageBreak(painter, lines);
    }
    if (shown_->format(number).bullet && shown_->paragraph(number).first) {
        drawBullet(painter, number, block);
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
        drawSelection(painter, lines, number, range,
                      to > end && shown_->paragraph(number).last && block.next().isValid());
        range.format.setBackground(Qt::transparent); // is drawn; but what the text itself has must not show
        selected.append(range);
    }
    drawText(painter, lines, number, clip, selected);
    if (context.cursorPosition >= start && context.cursorPosition <= end) {
        lines.drawCursor(&painter, QPointF(), context.cursorPosition - start, 1 + device_.dpi / 144);
    }
}

// Links are drawn in passes of their own, the rest around them.
void PaperLayout::drawText(QPainter& painter, QTextLayout& lines, int number, const QRectF& clip,
                           const QList<QTextLayout::FormatRange>& selected) {
    const LineBands bands(lines, heights_.height(number));
    const int first = bands.at(static_cast<int>(std::floor(clip.top())));
    const int last = bands.at(static_cast<int>(std::ceil(clip.bottom())));
    const std::vector<LinkPass> passes =
        LinkPaint(*shown_, links_, sheet_, hovered_).passes(number, lines, bands, first, last, selected);
    if (passes.empty()) {
        lines.draw(&painter, QPointF(), selected, clip);
        return;
    }
    QTextLayout::FormatRange all{0, 0, {}};
    all.length = shown_->documentEnd(number) - shown_->documentStart(number);
    QRegion rest(clip.toAlignedRect());
    lines.setCacheEnabled(true); // what the passes share is shaped once
    for (const LinkPass& pass : passes) {
        rest -= pass.where;
        all.format = pass.look;
        painter.save();
        painter.setClipRegion(pass.where, Qt::IntersectClip);
        lines.draw(&painter, QPointF(), {all}, clip & QRectF(pass.where.boundingRect()));
        painter.restore();
    }
    lines.setCacheEnabled(false);
    painter.save();
    painter.setClipRegion(rest, Qt::IntersectClip);
    lines.draw(&painter, QPointF(), selected, clip);
    painter.restore();
}

// The selection fills its lines' whole height, so that no stripes stand between them; but not the room around the
// paragraph.
void PaperLayout::drawSelection(QPainter& painter, const QTextLayout& lines, int number,
                                const QTextLayout::FormatRange& range, bool pastEnd) const {
    const double endMark = 0.3 * fontHeight();
    const int before = setter().spaceBefore(number);
    const LineBands bands(lines, heights_.height(number) - setter().spaceAfter(number));
    for (int i = 0; i < bands.count(); ++i) {
        const QTextLine line = lines.lineAt(i);
        const int lineEnd = line.textStart() + line.textLength();
        const int from = std::max(range.start, line.textStart());
        const int to = std::min(range.start + range.length, lineEnd);
        const bool last = i + 1 == bands.count();
        if (from > to || (from == to && !(last && pastEnd))) {
            continue;
        }
        const double left = line.cursorToX(from);
        double right = to >= lineEnd && !last ? line.naturalTextRect().right() : line.cursorToX(to);
        if (last && pastEnd) {
            right += endMark;
        }
        const int bandTop = std::max(before, bands.top(i));
        const QRectF band(std::min(left, right), bandTop, std::abs(right - left), bands.top(i + 1) - bandTop);
        painter.fillRect(band, range.format.background());
    }
}

void PaperLayout::drawBullet(QPainter& painter, int number, const QTextBlock& block) const {
    const QTextLine line = block.layout()->lineAt(0);
    if (!line.isValid()) {
        return;
    }
    const QTextBlock::iterator first = block.begin();
    const QTextCharFormat format = first.atEnd() ? block.charFormat() : first.fragment().charFormat();
    const double em = format.fontPointSize() / 72.0 * device_.dpi;
    const double radius = std::max(1.5, 0.15 * em);
    const double left = std::max(pixels(shown_->format(number).startIndent), double(-page_.margin));
    const QPointF centre(left + 0.08 * em + radius, line.y() + line.ascent() - 0.26 * em);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground() : QBrush(sheet_.ink));
    painter.drawEllipse(centre, radius, radius);
    painter.restore();
}

void PaperLayout::drawPageBreak(QPainter& painter, const QTextLayout& lines) const {
    const QTextLine line = lines.lineAt(0);
    const double y = std::floor(line.y() + line.height() / 2) + 0.5;
    QPen pen(sheet_.rule, 1);
    pen.setDashPattern({4, 4});
    painter.save();
    painter.setPen(pen);
    painter.drawLine(QPointF(0, y), QPointF(page_.measure, y));
    painter.restore();
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
