#include "platform/widgets/text/paperlayout.h"

#include "platform/typeset/type.h"
#include "platform/widgets/text/blockpaint.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QTextDocument>

#include <cmath>

namespace velm {

namespace {

constexpr std::size_t mostLines = 2000; // blocks that keep their lines; more than any screen shows
constexpr double tallest = 2e9;         // pixels: what a scroll bar can tell of

} // namespace

PaperLayout::PaperLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {
    setPaintDevice(&device_);
}

PaperLayout::~PaperLayout() = default;

void PaperLayout::setContent(const ShownText* shown) {
    shown_ = shown;
    available_ = 0;
    lines_.clear();
    pictures_.setContent(shown);
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

void PaperLayout::updatePage() {
    const int width = static_cast<int>(document()->pageSize().width());
    const PaperPage before = std::exchange(page_, paperPage(width, shown_, device_.dpi));
    if (!page_.breaksLinesAs(before))
        forgetLines();
}

int PaperLayout::estimate(int number, double lineHeight, double averageWidth) const {
    const ParaFormat& format = shown_->format(number);
    const int length = shown_->documentEnd(number) - shown_->documentStart(number);
    const double room = std::max(40.0, setter().measure(number) - pixels(format.startIndent + format.rightIndent));
    const double lines = std::max(1.0, std::ceil(length * averageWidth / room));
    return qRound(lines * lineHeight) + setter().spaceBefore(number) + setter().spaceAfter(number);
}

void PaperLayout::forgetLines() {
    for (const int number : std::exchange(lines_, {}))
        document()->findBlockByNumber(number).layout()->clearLayout();
    next_ = 0;
    const int count = shown_ != nullptr ? shown_->count() : 0;
    laid_.assign(static_cast<std::size_t>(count), false);
    lined_.assign(static_cast<std::size_t>(count), false);
    std::vector<int> heights(static_cast<std::size_t>(count));
    const double em = fontHeight();
    for (int i = 0; i < count; ++i)
        heights[static_cast<std::size_t>(i)] = estimate(i, 1.12 * type::singleLine * em, 0.45 * em);
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
    if (page_ != before)
        emit update();
}

QTextBlock PaperLayout::layOut(int number) {
    QTextBlock block = document()->findBlockByNumber(number);
    layOut(number, block);
    return block;
}

bool PaperLayout::layOut(int number, const QTextBlock& block) {
    if (number < 0 || number >= available_ || lined_[static_cast<std::size_t>(number)])
        return false;
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
    if (height == heights_.height(number))
        return false;
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
    if (number < 0)
        return false;
    bool changed = false;
    std::int64_t y = paragraphTop(number);
    for (QTextBlock block = document()->findBlockByNumber(number); number < available_;
         block = block.next(), ++number) {
        changed |= layOut(number, block);
        y += heights_.height(number);
        if (y > bottom)
            break;
    }
    return changed;
}

SeenPlaces PaperLayout::placesFrom(std::int64_t top, int height) const {
    SeenPlaces places;
    int number = heights_.at(top - page_.margin);
    std::int64_t y = number < 0 ? height : paragraphTop(number) - top;
    for (; y < height; y += heights_.height(number++)) {
        places.push_back({number, static_cast<int>(y)});
        if (number == heights_.count())
            break;
    }
    return places;
}

QSizeF PaperLayout::documentSize() const {
    if (shown_ == nullptr || shown_->documentLength() == 0)
        return {qreal(page_.width), 0}; // nothing to scroll to on a blank sheet
    return {qreal(page_.extent()), std::min(tallest, qreal(heights_.total()) + 2.0 * page_.margin)};
}

double PaperLayout::leftOf(int position) {
    const QTextBlock block = layOut(shown_->blockAt(position));
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    return page_.textLeft + (line.isValid() ? line.cursorToX(position - block.position()) : 0);
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
    if (number < 0 || number >= available_)
        return {};
    layOut(number, block);
    return {qreal(page_.textLeft), qreal(heights_.top(number) + page_.margin), qreal(setter().measure(number)),
            qreal(heights_.height(number))};
}

// ---- lines and characters

/// Of a block that the document does not hold yet: one line, as high as the block is estimated.
PaperLayout::Line PaperLayout::estimatedLine(int number) const {
    return {shown_->documentStart(number), paragraphTop(number), heights_.height(number)};
}

PaperLayout::Line PaperLayout::lineIn(int number, int line) {
    const QTextBlock block = layOut(number);
    const LineBands bands(*block.layout(), heights_.height(number));
    Line found;
    found.start = block.position() + (line < bands.count() ? block.layout()->lineAt(line).textStart() : 0);
    found.height = bands.top(line + 1) - bands.top(line);
    found.top = paragraphTop(number) + bands.top(line);
    return found;
}

PaperLayout::Line PaperLayout::lineAt(std::int64_t y) {
    const int number = heights_.at(y - page_.margin);
    if (number < 0)
        return {};
    if (number >= available_)
        return estimatedLine(number);
    const QTextBlock block = layOut(number);
    const LineBands bands(*block.layout(), heights_.height(number));
    return lineIn(number, bands.at(static_cast<int>(y - paragraphTop(number))));
}

PaperLayout::Line PaperLayout::lineOf(int position) {
    if (shown_ == nullptr)
        return {};
    const int number = shown_->blockAt(position);
    if (number >= available_)
        return estimatedLine(number);
    const QTextBlock block = layOut(number);
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    return lineIn(number, line.isValid() ? line.lineNumber() : 0);
}

int PaperLayout::characterAt(const QPointF& point) {
    const Line line = lineAt(static_cast<std::int64_t>(std::floor(point.y())));
    if (!isAvailable(line.start) || point.y() < double(line.top) || point.y() >= double(line.top + line.height))
        return -1;
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid())
        return -1;
    const double x = point.x() - page_.textLeft;
    const QRectF natural = text.naturalTextRect();
    if (x < natural.left() || x >= natural.right())
        return -1;
    return block.position() + text.xToCursor(x, QTextLine::CursorOnCharacter);
}

int PaperLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    auto* self = const_cast<PaperLayout*>(this); // lays out on demand
    if (accuracy == Qt::ExactHit)
        return self->characterAt(point);
    const Line line = self->lineAt(static_cast<std::int64_t>(std::floor(point.y()))); // the nearest
    if (!isAvailable(line.start))
        return document()->lastBlock().position(); // as far as the document goes
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid())
        return block.position();
    return block.position() + text.xToCursor(point.x() - page_.textLeft);
}

// ---- painting

/// Without what is painted in another way, or not at all.
PaperLayout::PaintContext PaperLayout::painted(const PaintContext& context) const {
    PaintContext own = context;
    if (currentHit_ >= 0)
        own.selections.clear();
    if (!caretShown_)
        own.cursorPosition = -1;
    return own;
}

void PaperLayout::draw(QPainter* painter, const PaintContext& wanted) {
    const PaintContext context = painted(wanted);
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    int number = heights_.at(static_cast<std::int64_t>(std::floor(clip.top())) - page_.margin);
    if (number < 0)
        return;
    const LinkPaint links(*shown_, links_, sheet_, hovered_);
    const HitPaint hits(*shown_, hits_, currentHit_, sheet_);
    const BlockPaint paint(*shown_, page_, device_.dpi, fontHeight(), sheet_, links, hits);
    painter->save();
    painter->setPen(sheet_.ink);
    for (QTextBlock block = document()->findBlockByNumber(number); number < available_;
         block = block.next(), ++number) {
        const auto top = double(paragraphTop(number));
        if (top > clip.bottom())
            break;
        layOut(number, block);
        const QPointF corner(page_.textLeft, top);
        painter->translate(corner);
        paint.paint(*painter, context, number, block, heights_.height(number), clip.translated(-corner));
        painter->translate(-corner);
    }
    painter->restore();
}

void PaperLayout::resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) {
    Q_UNUSED(position)
    const QSize twips = pictures_.size(format);
    if (!twips.isValid())
        return;
    const double width = pixels(twips.width());
    const double fit = std::min(1.0, page_.measure / width);
    item.setWidth(width * fit);
    item.setAscent(pixels(twips.height()) * fit);
    item.setDescent(0);
}

void PaperLayout::drawInlineObject(QPainter* painter, const QRectF& rect, QTextInlineObject item, int position,
                                   const QTextFormat& format) {
    Q_UNUSED(item)
    Q_UNUSED(position)
    pictures_.paint(*painter, rect, format, sheet_.rule);
}

} // namespace velm
