#include "platform/typeset/setdocument.h"

#include <QTextBlock>

#include <algorithm>

namespace velm {

namespace {

constexpr qsizetype charactersAtOnce = 4096;

PaperPage pageOf(int width, int hang) {
    PaperPage page;
    page.measure = std::max(1, pixelsFromTwips(width));
    page.tableMeasure = page.measure;
    page.margin = pixelsFromTwips(hang);
    return page;
}

/// Of the type of most characters, as on the screen.
double mainHeight(const ShownText& shown) {
    return std::clamp(shown.mainFormat().size, 12, 96) / 144.0 * SetDocument::dpi;
}

/// The lines, and the letters that were kept for them.
void forget(QTextLayout& lines) {
    lines.clearLayout();
    lines.setCacheEnabled(false);
    lines.setText({}); // a block has its own; what was shaped goes
}

} // namespace

/// Gives the fonts their device and the pictures their room; it paints nothing.
class SetDocument::Layout final : public QAbstractTextDocumentLayout {
public:
    Layout(QTextDocument* document, const ShownText& shown, int measure, double highest)
        : QAbstractTextDocumentLayout(document), measure_(measure), highest_(highest) {
        device_.dpi = dpi;
        setPaintDevice(&device_);
        pictures_.setContent(&shown);
    }
    void draw(QPainter*, const PaintContext&) override {}
    int hitTest(const QPointF&, Qt::HitTestAccuracy) const override { return -1; }
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return {}; }
    QRectF frameBoundingRect(QTextFrame*) const override { return {}; }
    QRectF blockBoundingRect(const QTextBlock&) const override { return {}; }

protected:
    void documentChanged(int, int, int) override {}
    void resizeInlineObject(QTextInlineObject item, int, const QTextFormat& format) override {
        const QSize twips = pictures_.size(format);
        if (!twips.isValid())
            return;
        const double width = twips.width() / twipsPerDot;
        const double height = twips.height() / twipsPerDot;
        const double fit = std::min({1.0, measure_ / std::max(1.0, width), highest_ / std::max(1.0, height)});
        item.setWidth(width * fit);
        item.setAscent(height * fit);
        item.setDescent(0);
    }

private:
    Density device_;
    SheetPictures pictures_;
    double measure_;
    double highest_;
};

double SetDocument::points(double asked) {
    constexpr double pointsPerInch = 72;
    return std::max(1, qRound(asked * dpi / pointsPerInch)) * pointsPerInch / dpi;
}

SetDocument::SetDocument(const RichText& rich, int width, int hang, int height)
    : shown_(rich), page_(pageOf(width, hang)), setter_(shown_, page_, dpi, mainHeight(shown_)), fill_(document_) {
    // The room between lines is the type's.
    constexpr double room = 2;
    const double highest = std::max(1.0, height / twipsPerDot - room * mainHeight(shown_));
    document_.setDocumentLayout(new Layout(&document_, shown_, page_.measure, highest));
    fill_.begin(shown_, rich);
}

SetDocument::~SetDocument() = default;

SetDocument::Block SetDocument::block(int number) {
    while (fill_.blocks() <= number && !fill_.step(charactersAtOnce)) {
    }
    const QTextBlock block = document_.findBlockByNumber(number);
    if (number != current_) {
        if (current_ >= 0)
            forget(*document_.findBlockByNumber(current_).layout());
        block.layout()->setCacheEnabled(true); // places are asked for: the letters are shaped once
        height_ = setter_.set(*block.layout(), number, work_);
        current_ = number;
    }
    return {block.layout(), height_};
}

double SetDocument::firstLetter(int number) const {
    const QTextBlock block = document_.findBlockByNumber(number);
    const QTextBlock::iterator first = block.begin();
    const QTextCharFormat format = first.atEnd() ? block.charFormat() : first.fragment().charFormat();
    return format.fontPointSize() / 72.0 * dpi;
}

} // namespace velm
