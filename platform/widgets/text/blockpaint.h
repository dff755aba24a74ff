#pragma once
// What the sheet shows of a block that is laid out: text, selections, links, what was found, bullet, page
// break, the rule under a table's head, caret. Painted from
// the block's own corner: far down a long text the engine's numbers end.
#include "platform/typeset/linesetter.h"
#include "platform/widgets/text/hitpaint.h"
#include "platform/widgets/text/linkpaint.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>

namespace velm {

class BlockPaint {
public:
    using Context = QAbstractTextDocumentLayout::PaintContext;

    /// `em` is the height in pixels of the document's main type. All that is not copied outlives it.
    BlockPaint(const ShownText& shown, const PaperPage& page, int dpi, double em, const look::Sheet& sheet,
               const LinkPaint& links, const HitPaint& hits)
        : shown_(shown), page_(page), dpi_(dpi), em_(em), sheet_(sheet), links_(links), hits_(hits),
          setter_(shown, page, dpi, em) {}

    /// Block `number`, of `height` pixels, as far as it lies in the clip.
    void paint(QPainter& painter, const Context& context, int number, const QTextBlock& block, int height,
               const QRectF& clip) const;

private:
    void paintText(QPainter& painter, QTextLayout& lines, int number, int height, const QRectF& clip,
                   const LinkPaint::Ranges& selected, std::vector<LookPass> passes) const;
    void paintBullet(QPainter& painter, int number, const QTextBlock& block) const;
    void paintHits(QPainter& painter, int number, const QTextLayout& lines, int height, const QRectF& clip,
                   const std::vector<LookPass>& marked) const;
    void paintHeadRule(QPainter& painter, int number, int height) const;
    void paintPageBreak(QPainter& painter, const QTextLayout& lines) const;
    QRegion selectionRegion(const QTextLayout& lines, int number, int height, const QTextLayout::FormatRange& range,
                            bool pastEnd, const QRectF& clip) const;

    const ShownText& shown_;
    const PaperPage& page_;
    int dpi_;
    double em_;
    const look::Sheet& sheet_;
    LinkPaint links_;
    HitPaint hits_;
    LineSetter setter_;
};

} // namespace velm
