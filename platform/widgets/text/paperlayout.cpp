#include "platform/widgets/text/paperlayout.h"

#include "platform/widgets/text/viewformats.h"

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
constexpr std::size_t mostLines = 2000; // blocks that keep their lines; more than any screen shows
constexpr double tallest = 2e9;         // pixels: what a scroll bar can tell of

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
    available_ = 0;
    lines_.clear();
    pictureSizes_.clear();
    pictures_.clear();
    updatePage();
    forgetLines();
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
    const std::int32_t widest = shown_ != nullptr ? shown_->widestTable() : 0;
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
    const int length = shown_->documentEnd(number) - shown_->documentStart(number);
    const double room = std::max(40.0, page_.measure - pixels(format.startIndent + format.rightIndent));
    const double lines = std::max(1.0, std::ceil(length * averageWidth / room));
    return qRound(lines * lineHeight) + setter().spaceBefore(number) + setter().spaceAfter(number);
}

void PaperLayout::forgetLines() {
    for (const int number : std::exchange(lines_, {})) {
        document()->findBlockByNumber(number).layout()->clearLayout();
    }
    next_ = 0;
    const int count = shown_ != nullptr ? shown_->count() : 0;
    laid_.assign(static_cast<std::size_t>(count), false);
    lined_.assign(static_cast<std::size_t>(count), false);
    std::vector<int> heights(static_cast<std::size_t>(count));
    const double em = fontHeight();
    for (int i = 0; i < count; ++i) {
        heights[static_cast<std::size_t>(i)] = estimate(i, 1.12 * look::singleLine * em, 0.45 * em);
    }
    heights_.assign(std::move(heights));
}

// The document is filled from what is known already; only the window's width may be another.
void PaperLayout::documentChanged(int from, int removed, int added) {
    Q_UNUSED(from)
    Q_UNUSED(removed)
    Q_UNUSED(added)
    const PaperPage before = page_;
    updatePage();
    emit documentSizeChanged(documentSize());
    if (page_ != before) {
        emit update();
    }
}

QTextBlock PaperLayout::layOut(int number) {
    QTextBlock block = document()->findBlockByNumber(number);
    layOut(number, block);
    return block;
}

bool PaperLayout::layOut(int number, const QTextBlock& block) {
    if (number < 0 || number >= available_ || lined_[static_cast<std::size_t>(number)]) {
        return false;
    }
    const int height = setter().set(*block.layout(), number, work_);
    keepLines(number);
    return takeHeight(number, height);
}

// A layout of its own for the while: the block's would keep its lines, and the engine behind them.
void PaperLayout::measure(int number, const QTextBlock& block) {
    if (!laid_[static_cast<std::size_t>(number)]) {
        QTextLayout lines(block);
        takeHeight(number, setter().set(lines, number, work_));
    }
}

bool PaperLayout::takeHeight(int number, int height) {
    laid_[static_cast<std::size_t>(number)] = true;
    if (height == heights_.height(number)) {
        return false;
    }
    heights_.setHeight(number, height);
    return true;
}

void PaperLayout::keepLines(int number) {
    lined_[static_cast<std::size_t>(number)] = true;
    lines_.push_back(number);
    if (lines_.size() > mostLines) {
        const int oldest = lines_.front();
        lines_.pop_front();
        lined_[static_cast<std::size_t>(oldest)] = false;
        document()->findBlockByNumber(oldest).layout()->clearLayout();
    }
}

bool PaperLayout::settle(int milliseconds) {
    constexpr int stride = 4000; // characters between two looks at the clock
    QElapsedTimer clock;
    clock.start();
    QTextBlock block = document()->findBlockByNumber(next_);
    for (int left = stride; next_ < available_; block = block.next(), ++next_) {
        measure(next_, block);
        left -= 100 + shown_->documentEnd(next_) - shown_->documentStart(next_);
        if (left <= 0) {
            left = stride;
            if (clock.elapsed() >= milliseconds) {
                ++next_;
                break;
            }
        }
    }
    emit documentSizeChanged(documentSize());
    return isComplete();
}

bool PaperLayout::layOutBetween(std::int64_t top, std::int64_t bottom) {
    int number = heights_.at(std::max<std::int64_t>(0, top - page_.margin));
    if (number < 0) {
        return false;
    }
    bool changed = false;
    std::int64_t y = paragraphTop(number);
    for (QTextBlock block = document()->findBlockByNumber(number); number < available_;
         block = block.next(), ++number) {
        changed |= layOut(number, block);
        y += heights_.height(number);
        if (y > bottom) {
            break;
        }
    }
    return changed;
}

SeenPlaces PaperLayout::placesFrom(std::int64_t top, int height) const {
    SeenPlaces places;
    int number = heights_.at(top - page_.margin);
    std::int64_t y = number < 0 ? height : paragraphTop(number) - top;
    for (; y < height; y += heights_.height(number++)) {
        places.push_back({number, static_cast<int>(y)});
        if (number == heights_.count()) {
            break;
        }
    }
    return places;
}

QSizeF PaperLayout::documentSize() const {
    return {qreal(page_.width), std::min(tallest, qreal(heights_.total()) + 2.0 * page_.margin)};
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
    if (number < 0 || number >= available_) {
        return {};
    }
    layOut(number, block);
    return {qreal(page_.textLeft), qreal(heights_.top(number) + page_.margin), qreal(page_.measure),
            qreal(heights_.height(number))};
}

} // namespace velm
