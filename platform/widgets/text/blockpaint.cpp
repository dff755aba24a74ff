#include "platform/widgets/text/blockpaint.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace velm {

void BlockPaint::paint(QPainter& painter, const Context& context, int number, const QTextBlock& block, int height,
                       const QRectF& clip) const {
    QTextLayout& lines = *block.layout();
    if (shown_.paragraph(number).pageBreak)
        paintPageBreak(painter, lines);
    if (shown_.format(number).bullet && shown_.paragraph(number).first)
        paintBullet(painter, number, block);
    const int start = block.position();
    const int end = start + block.length() - 1;
    LinkPaint::Ranges selected;
    std::vector<LookPass> marked;
    for (const QAbstractTextDocumentLayout::Selection& selection : context.selections) {
        const int from = selection.cursor.selectionStart();
        const int to = selection.cursor.selectionEnd();
        if (from > end || to < start || from == to)
            continue;
        QTextLayout::FormatRange range;
        range.start = std::max(from, start) - start;
        range.length = std::min(to, end) - start - range.start;
        range.format = selection.format;
        const bool pastEnd = to > end && shown_.paragraph(number).last && block.next().isValid();
        const QRegion where = selectionRegion(lines, number, height, range, pastEnd, clip);
        for (const QRect& band : where)
            painter.fillRect(band, range.format.background());
        range.format.setBackground(Qt::transparent); // is drawn; but what the text itself has must not show
        selected.append(range);
        marked.push_back({range.format, where});
    }
    paintText(painter, lines, number, height, clip, selected, marked);
    paintHits(painter, number, lines, height, clip, marked);
    if (shown_.paragraph(number).headEnd)
        paintHeadRule(painter, number, height);
    if (context.cursorPosition >= start && context.cursorPosition <= end)
        lines.drawCursor(&painter, QPointF(), context.cursorPosition - start, 1 + dpi_ / 144);
}

// Links and selections are drawn in passes of their own, the rest around them: the toolkit's own way with a selection
// cuts letters that reach beyond the text's edge, and only where it sees the selection.
void BlockPaint::paintText(QPainter& painter, QTextLayout& lines, int number, int height, const QRectF& clip,
                           const LinkPaint::Ranges& selected, std::vector<LookPass> passes) const {
    const LineBands bands(lines, height);
    const int first = bands.at(static_cast<int>(std::floor(clip.top())));
    const int last = bands.at(static_cast<int>(std::ceil(clip.bottom())));
    std::ranges::move(links_.passes(number, lines, bands, first, last, selected), std::back_inserter(passes));
    if (passes.empty()) {
        lines.draw(&painter, QPointF(), {}, clip);
        return;
    }
    QTextLayout::FormatRange all{0, 0, {}};
    all.length = shown_.documentEnd(number) - shown_.documentStart(number);
    QRegion rest(clip.toAlignedRect());
    lines.setCacheEnabled(true); // what the passes share is shaped once
    for (const LookPass& pass : passes) {
        const QRegion where = pass.where & rest;
        if (where.isEmpty())
            continue; // without a place the toolkit would go through the whole paragraph
        rest -= where;
        all.format = pass.look;
        painter.save();
        painter.setClipRegion(where, Qt::IntersectClip);
        lines.draw(&painter, QPointF(), {all}, clip & QRectF(where.boundingRect()));
        painter.restore();
    }
    lines.setCacheEnabled(false);
    painter.save();
    painter.setClipRegion(rest, Qt::IntersectClip);
    lines.draw(&painter, QPointF(), {}, clip);
    painter.restore();
}

void BlockPaint::paintHits(QPainter& painter, int number, const QTextLayout& lines, int height, const QRectF& clip,
                           const std::vector<LookPass>& marked) const {
    QRegion selected;
    for (const LookPass& pass : marked)
        selected += pass.where;
    hits_.paint(painter, number, lines, LineBands(lines, height), clip, selected);
}

// The selection fills its lines' whole height, so that no stripes stand between them; but not the room around the
// paragraph.
QRegion BlockPaint::selectionRegion(const QTextLayout& lines, int number, int height,
                                    const QTextLayout::FormatRange& range, bool pastEnd, const QRectF& clip) const {
    const double endMark = 0.3 * em_;
    const int before = setter_.spaceBefore(number);
    const LineBands bands(lines, height - setter_.spaceAfter(number));
    const int seen = bands.at(static_cast<int>(std::ceil(clip.bottom())));
    QRegion region;
    for (int i = bands.at(static_cast<int>(std::floor(clip.top()))); i <= seen && i < bands.count(); ++i) {
        const QTextLine line = lines.lineAt(i);
        const int lineEnd = line.textStart() + line.textLength();
        const int from = std::max(range.start, line.textStart());
        const int to = std::min(range.start + range.length, lineEnd);
        const bool last = i + 1 == bands.count();
        if (from > to || (from == to && !(last && pastEnd)))
            continue;
        const double left = line.cursorToX(from);
        double right = to >= lineEnd && !last ? line.naturalTextRect().right() : line.cursorToX(to);
        if (last && pastEnd)
            right += endMark;
        const int bandTop = std::max(before, bands.top(i));
        region += QRect(QPoint(qRound(std::min(left, right)), bandTop),
                        QPoint(qRound(std::max(left, right)) - 1, bands.top(i + 1) - 1));
    }
    return region;
}

void BlockPaint::paintBullet(QPainter& painter, int number, const QTextBlock& block) const {
    const QTextLine line = block.layout()->lineAt(0);
    if (!line.isValid())
        return;
    const QTextBlock::iterator first = block.begin();
    const QTextCharFormat format = first.atEnd() ? block.charFormat() : first.fragment().charFormat();
    const double em = format.fontPointSize() / 72.0 * dpi_;
    const BulletMark bullet = setter_.bullet(number, line, em);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground() : QBrush(sheet_.ink));
    painter.drawEllipse(bullet.centre, bullet.radius, bullet.radius);
    painter.restore();
}

void BlockPaint::paintHeadRule(QPainter& painter, int number, int height) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(setter_.headRule(number, height), sheet_.rule);
    painter.restore();
}

void BlockPaint::paintPageBreak(QPainter& painter, const QTextLayout& lines) const {
    const QTextLine line = lines.lineAt(0);
    const double y = std::floor(line.y() + line.height() / 2) + 0.5;
    QPen pen(sheet_.rule, 1);
    pen.setDashPattern({4, 4});
    painter.save();
    painter.setPen(pen);
    painter.drawLine(QPointF(0, y), QPointF(page_.measure, y));
    painter.restore();
}

} // namespace velm
