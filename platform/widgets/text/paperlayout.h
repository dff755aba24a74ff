#pragma once
// Lays a document out on its sheet, block by block and only when asked.
//
// Blocks not yet laid out count with an estimated height, so that any place of a long document can be shown at once;
// settle() does the rest in slices, and keeps of each block no more than its height: lines are kept for what was shown
// of late. The document may still be filling: what it does not hold yet counts with its estimate too. Lengths of the
// model are twips on a screen of dpi() dots to the inch, which is how the view is enlarged: no format changes. Heights
// and tops are whole pixels.
#include "platform/typeset/density.h"
#include "platform/typeset/linesetter.h"
#include "platform/typeset/paperpage.h"
#include "platform/typeset/sheetpictures.h"
#include "platform/typeset/showntext.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/heighttree.h"
#include "platform/widgets/text/hitranges.h"
#include "platform/widgets/text/linkranges.h"
#include "platform/widgets/text/seenplaces.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>

#include <deque>

namespace velm {

class PaperLayout final : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    explicit PaperLayout(QTextDocument* document);
    ~PaperLayout() override;

    /// What the document is to hold. Stays the caller's.
    void setContent(const ShownText* shown);
    /// As many of its blocks as the document holds whole.
    void setAvailable(int blocks) { available_ = blocks; }
    bool isFilledTo(std::int64_t y) const { return available_ >= heights_.count() || paragraphTop(available_) > y; }
    bool isAvailable(int position) const { return shown_ != nullptr && shown_->blockAt(position) < available_; }
    const PaperPage& page() const { return page_; }

    int dpi() const { return device_.dpi; }
    void setDpi(int dpi);
    void setSheet(const look::Sheet& sheet) { sheet_ = sheet; }
    const look::Sheet& sheet() const { return sheet_; }
    /// Ranges in positions of the document.
    void setLinks(LinkRanges links) { links_ = std::move(links); }
    const LinkRanges& links() const { return links_; }
    void setHoveredLink(int index) { hovered_ = index; }
    /// What was found, in positions of the document, and the number of the one that is shown: the selection, which is
    /// not painted then. -1 for none.
    void setHits(HitRanges hits) { hits_ = std::move(hits); }
    const HitRanges& hits() const { return hits_; }
    void setCurrentHit(int index) { currentHit_ = index; }
    int currentHit() const { return currentHit_; }
    void setCaretShown(bool shown) { caretShown_ = shown; }

    bool isComplete() const { return next_ >= heights_.count(); }
    /// Lays out for about so many milliseconds; true when all is done.
    bool settle(int milliseconds);
    const LayoutWork& work() const { return work_; }
    /// Lays out what lies between two heights, as far as is known before; true when that changed a height.
    bool layOutBetween(std::int64_t top, std::int64_t bottom);
    /// What a window of this height shows from `top` on.
    SeenPlaces placesFrom(std::int64_t top, int height) const;
    /// Of a paragraph; of the one behind the last, where the text ends.
    std::int64_t paragraphTop(int number) const { return heights_.top(number) + page_.margin; }
    int paragraphCount() const { return heights_.count(); }

    struct Line {
        int start = 0; ///< in the document
        std::int64_t top = 0;
        int height = 0;
    };
    Line lineAt(std::int64_t y);
    Line lineOf(int position);
    /// Of a position that the document holds, from the left edge of the window's sheet.
    double leftOf(int position);
    /// The character under a point, or -1.
    int characterAt(const QPointF& point);
    QRectF blockRect(const QTextBlock& block);

    void draw(QPainter* painter, const PaintContext& wanted) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;
    void resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) override;
    void drawInlineObject(QPainter* painter, const QRectF& rect, QTextInlineObject object, int position,
                          const QTextFormat& format) override;

private:
    LineSetter setter() const { return {*shown_, page_, device_.dpi, fontHeight()}; }
    double pixels(std::int32_t twips) const { return twips * device_.dpi / 1440.0; }
    double fontHeight() const;
    void updatePage();
    void forgetLines();
    int estimate(int number, double lineHeight, double averageWidth) const;

    QTextBlock layOut(int number);                    ///< the block, with its lines
    bool layOut(int number, const QTextBlock& block); ///< whether the height changed
    void measure(int number, const QTextBlock& block);
    bool takeHeight(int number, int height);
    void keepLines(int number);
    PaintContext painted(const PaintContext& context) const;
    Line estimatedLine(int number) const;
    Line lineIn(int number, int line);

    const ShownText* shown_ = nullptr;
    Density device_; ///< a screen's, for the fonts of the lines
    PaperPage page_;
    HeightTree heights_;
    int available_ = 0;       ///< blocks that the document holds
    std::vector<bool> laid_;  ///< blocks whose height is known
    std::vector<bool> lined_; ///< blocks that have their lines
    std::deque<int> lines_;   ///< the same, in the order in which they came by them
    int next_ = 0;            ///< settle() goes on here: all before is laid out
    LayoutWork work_;
    look::Sheet sheet_;
    LinkRanges links_;
    int hovered_ = -1;
    HitRanges hits_;
    int currentHit_ = -1;
    bool caretShown_ = true;
    SheetPictures pictures_;
};

} // namespace velm
