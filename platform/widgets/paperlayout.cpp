#include "platform/widgets/paperlayout.h"

#include "platform/widgets/viewformats.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QTextDocument>

#include <cmath>

namespace velm {

namespace {

constexpr int leastMeasure = 120;        // pixels; a narrower window cuts the text off rather than breaking every word
constexpr double tabRoom = 4.0;          // ems that a table keeps behind its last stop
constexpr std::int32_t tableRoom = 9000; // twips: tables are set for the width of a printed page's text
constexpr int smallestPageType = 22;  // half points: a document of small tables or of large titles keeps the page that
constexpr int largestPageType = 32;   // running text would have
constexpr int tabMeasureLimit = 1100; // pixels at 96 dots to the inch, beyond which a table does not widen the sheet

} // namespace

int PaperLayout::Device::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return 1;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dpi;
    default:
        return QPaintDevice::metric(metric);
    }
}

PaperLayout::PaperLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {
    setPaintDevice(&device_);
}

PaperLayout::~PaperLayout() = default;

void PaperLayout::setContent(const ShownText* shown) {
    shown_ = shown;
    pictureSizes_.clear();
    pictures_.clear();
    knownRevision_ = -1;
}

void PaperLayout::setDpi(int dpi) {
    if (dpi != device_.dpi) {
        device_.dpi = dpi;
        updatePage();
        forgetLines();
        emit documentSizeChanged(documentSize());
        emit update();
    }
}

double PaperLayout::fontHeight() const {
    const int halfPoints = shown_ != nullptr ? shown_->mainFormat().size : 24;
    return std::clamp(halfPoints, 12, 96) / 144.0 * device_.dpi;
}

double PaperLayout::pageEm() const {
    const int halfPoints = shown_ != nullptr ? shown_->mainFormat().size : smallestPageType;
    return std::clamp(halfPoints, smallestPageType, largestPageType) / 144.0 * device_.dpi;
}

/// The width that tables on tab stops need; 0 when there are none.
int PaperLayout::tableWidth() const {
    std::int32_t widest = 0;
    for (int i = 0; shown_ != nullptr && i < shown_->count(); ++i) {
        const ParaFormat& format = shown_->format(i);
        if (shown_->paragraph(i).tabs && !format.tabs.empty()) {
            widest = std::max(widest, format.tabs.back());
        }
    }
    const double limit = tabMeasureLimit * device_.dpi / 96.0;
    const double needed = std::max(pixels(tableRoom), pixels(widest) + tabRoom * pageEm());
    return widest > 0 ? static_cast<int>(std::min(limit, needed)) : 0;
}

void PaperLayout::updatePage() {
    PaperPage page;
    page.width = std::max(1, static_cast<int>(document()->pageSize().width()));
    const double em = pageEm();
    // A narrow window is for the text: the margin gives way before the measure does.
    constexpr int parts = 12;
    page.margin = std::min(qRound(look::sheetMargin * em), std::max(look::spacing, page.width / parts));
    // Running French text in a book face takes about 0.43 em for a character.
    const int longest = std::max(qRound(look::measureCharacters * 0.43 * em), tableWidth());
    page.measure = std::clamp(page.width - 2 * page.margin, leastMeasure, std::max(leastMeasure, longest));
    page.sheetWidth = page.measure + 2 * page.margin;
    page.sheetLeft = std::max(0, (page.width - page.sheetWidth) / 2);
    page.textLeft = page.sheetLeft + page.margin;
    const bool measureDiffers = page.measure != page_.measure || page.margin != page_.margin;
    page_ = page;
    if (measureDiffers) {
        forgetLines();
    }
}

int PaperLayout::estimate(int number, double lineHeight, double averageWidth) const {
    const ParaFormat& format = shown_->format(number);
    const int end = number + 1 < shown_->count() ? shown_->documentStart(number + 1) - 1 : shown_->documentLength();
    const int length = end - shown_->documentStart(number);
    const double room = std::max(40.0, page_.measure - pixels(format.startIndent + format.rightIndent));
    const double lines = std::max(1.0, std::ceil(length * averageWidth / room));
    return qRound(lines * lineHeight + pixels(std::max(0, format.spaceBefore) + std::max(0, format.spaceAfter)));
}

void PaperLayout::forgetLines() {
    ++generation_;
    next_ = 0;
    const int count = shown_ != nullptr ? std::min(shown_->count(), document()->blockCount()) : 0;
    laid_.resize(static_cast<std::size_t>(count));
    std::vector<int> heights(static_cast<std::size_t>(count));
    const double em = fontHeight();
    for (int i = 0; i < count; ++i) {
        heights[static_cast<std::size_t>(i)] = estimate(i, 1.12 * look::singleLine * em, 0.45 * em);
    }
    heights_.assign(std::move(heights));
}

void PaperLayout::documentChanged(int from, int removed, int added) {
    Q_UNUSED(from)
    Q_UNUSED(removed)
    Q_UNUSED(added)
    if (document()->revision() != knownRevision_) {
        knownRevision_ = document()->revision();
        updatePage();
        forgetLines();
    } else {
        updatePage(); // only the window's width
    }
    emit documentSizeChanged(documentSize());
    emit update();
}

QTextBlock PaperLayout::layOut(int number) {
    QTextBlock block = document()->findBlockByNumber(number);
    layOut(number, block);
    return block;
}

void PaperLayout::layOut(int number, const QTextBlock& block) {
    if (number < 0 || number >= heights_.count() || laid_[static_cast<std::size_t>(number)] == generation_) {
        return;
    }
    QTextLayout& lines = *block.layout();
    const int height = layOutLines(lines, number);
    laid_[static_cast<std::size_t>(number)] = generation_;
    if (height != heights_.height(number)) {
        heights_.setHeight(number, height);
    }
}

bool PaperLayout::settle(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    QTextBlock block = document()->findBlockByNumber(next_);
    while (next_ < heights_.count() && block.isValid()) {
        layOut(next_, block);
        block = block.next();
        ++next_;
        if (next_ % 8 == 0 && clock.elapsed() >= milliseconds) {
            break;
        }
    }
    emit documentSizeChanged(documentSize());
    return isComplete();
}

void PaperLayout::layOutBetween(std::int64_t top, std::int64_t bottom) {
    int number = heights_.at(std::max<std::int64_t>(0, top - page_.margin));
    if (number < 0) {
        return;
    }
    std::int64_t y = heights_.top(number) + page_.margin;
    for (QTextBlock block = document()->findBlockByNumber(number); block.isValid() && number < heights_.count();
         block = block.next(), ++number) {
        layOut(number, block);
        y += heights_.height(number);
        if (y > bottom) {
            break;
        }
    }
}

QSizeF PaperLayout::documentSize() const {
    return {qreal(page_.width), qreal(heights_.total()) + 2.0 * page_.margin};
}

QRectF PaperLayout::frameBoundingRect(QTextFrame* frame) const {
    Q_UNUSED(frame)
    return {QPointF(), documentSize()};
}

QRectF PaperLayout::blockBoundingRect(const QTextBlock& block) const {
    // Lines are laid out on demand; to the document this is a mere look-up.
    return const_cast<PaperLayout*>(this)->blockRect(block);
}

QRectF PaperLayout::blockRect(const QTextBlock& block) {
    const int number = block.blockNumber();
    if (number < 0 || number >= heights_.count()) {
        return {};
    }
    layOut(number, block);
    return {qreal(page_.textLeft), qreal(heights_.top(number) + page_.margin), qreal(page_.measure),
            qreal(heights_.height(number))};
}

} // namespace velm
