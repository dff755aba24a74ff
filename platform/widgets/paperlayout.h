#pragma once
// Lays a document out on its sheet, paragraph by paragraph and only when asked.
//
// Paragraphs not yet laid out count with an estimated height, so that any place of a long document can be shown at
// once; settle() does the rest in slices. Lengths of the model are twips on a screen of dpi() dots to the inch, which
// is how the view is enlarged: no format changes. Heights and tops are whole pixels.
#include "platform/widgets/heighttree.h"
#include "platform/widgets/linkranges.h"
#include "platform/widgets/look.h"
#include "platform/widgets/showntext.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPaintDevice>
#include <QTextBlock>
#include <QTextLayout>

#include <unordered_map>

namespace velm {

/// Where sheet and text lie in the width of the window.
struct PaperPage {
    int width = 0;
    int sheetLeft = 0;
    int sheetWidth = 0;
    int textLeft = 0;
    int measure = 1; ///< width of the text
    int margin = 0;  ///< above and below the text

    friend bool operator==(const PaperPage&, const PaperPage&) = default;
};

class PaperLayout final : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    explicit PaperLayout(QTextDocument* document);
    ~PaperLayout() override;

    /// What the document holds next; the filling that follows makes it known. Stays the caller's.
    void setContent(const ShownText* shown);
    const PaperPage& page() const { return page_; }

    int dpi() const { return device_.dpi; }
    void setDpi(int dpi);
    void setSheet(const look::Sheet& sheet) { sheet_ = sheet; }
    const look::Sheet& sheet() const { return sheet_; }
    /// Ranges in positions of the document.
    void setLinks(LinkRanges links) { links_ = std::move(links); }
    const LinkRanges& links() const { return links_; }
    void setHoveredLink(int index) { hovered_ = index; }

    bool isComplete() const { return next_ >= heights_.count(); }
    /// Lays out for about so many milliseconds; true when all is done.
    bool settle(int milliseconds);
    /// Lays out what lies between two heights, as far as is known before.
    void layOutBetween(std::int64_t top, std::int64_t bottom);

    struct Line {
        int start = 0; ///< in the document
        std::int64_t top = 0;
        int height = 0;
    };
    Line lineAt(std::int64_t y);
    Line lineOf(int position);
    /// The character under a point, or -1.
    int characterAt(const QPointF& point);
    QRectF blockRect(const QTextBlock& block);

    void draw(QPainter* painter, const PaintContext& context) override;
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
    // A screen of any density, for the fonts of the lines.
    struct Device final : QPaintDevice {
        int dpi = 96;
        QPaintEngine* paintEngine() const override { return nullptr; }
        int metric(PaintDeviceMetric metric) const override;
    };

    double pixels(std::int32_t twips) const { return twips * device_.dpi / 1440.0; }
    double fontHeight() const;
    void updatePage();
    double pageEm() const;
    int tableWidth() const;
    void forgetLines();
    int estimate(int number, double lineHeight, double averageWidth) const;

    QTextBlock layOut(int number); ///< the block, laid out
    void layOut(int number, const QTextBlock& block);
    int layOutLines(QTextLayout& lines, int number) const; ///< the paragraph's height
    int breakLines(QTextLayout& lines, int number) const;
    QTextOption optionFor(const ParaFormat& format) const;
    QList<QTextOption::Tab> tabsFor(const ParaFormat& format, double left) const;
    double lineLeft(const ParaFormat& format, bool first) const;
    int lineHeight(const ParaFormat& format, double natural, bool pictures) const;
    Line lineIn(int number, int line);
    int slotTop(const QTextLayout& lines, int line, int height) const;

    void drawBlock(QPainter& painter, const PaintContext& context, int number, const QTextBlock& block);
    void drawBullet(QPainter& painter, int number, const QTextBlock& block, double top) const;
    void drawPageBreak(QPainter& painter, const QTextLayout& lines, double top) const;
    void drawSelection(QPainter& painter, const QTextLayout& lines, int number, double top,
                       const QTextLayout::FormatRange& range, bool pastEnd) const;
    QList<QTextLayout::FormatRange> linkFormats(const QTextBlock& block,
                                                const QList<QTextLayout::FormatRange>& selected) const;
    const RichObject* objectOf(const QTextFormat& format) const;
    QSize pictureTwips(int number, const RichObject& object);
    const QImage& picture(int number, const RichObject& object);

    const ShownText* shown_ = nullptr;
    Device device_;
    PaperPage page_;
    HeightTree heights_;
    std::vector<std::uint32_t> laid_; ///< generation in which a paragraph was laid out
    std::uint32_t generation_ = 1;
    int next_ = 0; ///< settle() goes on here: all before is laid out
    int knownRevision_ = -1;
    look::Sheet sheet_;
    LinkRanges links_;
    int hovered_ = -1;
    std::unordered_map<int, QSize> pictureSizes_;
    std::unordered_map<int, QImage> pictures_;
};

} // namespace velm
