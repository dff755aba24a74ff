#include "platform/widgets/text/hitpaint.h"

#include "platform/widgets/text/textpieces.h"

#include <QPainter>
#include <QtMath>

namespace velm {

namespace {

/// As high as the line's own type, so that neighbouring lines stay apart; but not beyond the line's band.
QRect ground(const QTextLayout& lines, const LineBands& bands, int number, int left, int right) {
    const QTextLine line = lines.lineAt(number);
    const int top = std::max(bands.top(number), qFloor(line.y()));
    const int bottom = std::min(bands.top(number + 1), qCeil(line.y() + line.height()));
    return {left, top, right - left, bottom - top};
}

/// What is painted of a block: its lines from one on, and the stretch of its text that they hold.
struct Stretch {
    const QTextLayout& lines;
    const LineBands& bands;
    int first;
    int start; ///< of the block, in the document
    int from;  ///< in the block
    int to;
    bool mixed;

    QRegion places(std::span<const HitRange> hits) const {
        TextPieces pieces(lines, first);
        pieces.setMixedDirections(mixed);
        QRegion where;
        int done = from; // they may overlap
        for (const HitRange& hit : hits) {
            const int end = static_cast<int>(std::min<qsizetype>(to, hit.end - start));
            pieces.each(static_cast<int>(std::max<qsizetype>(done, hit.start - start)), end,
                        [&](int line, int left, int right) { where += ground(lines, bands, line, left, right); });
            done = std::max(done, end);
        }
        return where;
    }
};

void fill(QPainter& painter, const QRegion& where, const QColor& colour) {
    for (const QRect& rect : where)
        painter.fillRect(rect, colour);
}

void paintRing(QPainter& painter, const QRegion& where, const QColor& colour) {
    QRegion inside;
    for (const QRect& rect : where)
        inside += rect.adjusted(1, 1, -1, -1);
    fill(painter, where - inside, colour);
}

} // namespace

void HitPaint::paint(QPainter& painter, int number, const QTextLayout& lines, const LineBands& bands,
                     const QRectF& clip, const QRegion& but) const {
    if (hits_.isEmpty() || bands.count() == 0)
        return;
    const int first = bands.at(qFloor(clip.top()));
    const int last = bands.at(qCeil(clip.bottom()));
    const int start = shown_.documentStart(number);
    const int from = lines.lineAt(first).textStart();
    const int to = lines.lineAt(last).textStart() + lines.lineAt(last).textLength();
    const auto hits = hits_.around(start + from, start + to);
    if (hits.empty())
        return;
    const bool mixed = runsLeftward(QStringView(shown_.text()).sliced(start + from, to - from));
    const Stretch stretch{lines, bands, first, start, from, to, mixed};
    QRegion current;
    if (current_ >= 0)
        current = stretch.places(std::span(hits_.all()).subspan(static_cast<std::size_t>(current_), 1));
    painter.save();
    painter.setCompositionMode(sheet_.lightPaper ? QPainter::CompositionMode_Multiply
                                                 : QPainter::CompositionMode_Screen);
    fill(painter, stretch.places(hits) - current - but, sheet_.found);
    fill(painter, current, sheet_.foundCurrent);
    painter.restore();
    paintRing(painter, current, sheet_.foundRing);
}

} // namespace velm
