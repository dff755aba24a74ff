#include "platform/widgets/text/sheetview.h"

#include "platform/typeset/type.h"
#include "platform/widgets/text/hitstrip.h"
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/sheetbar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimerEvent>
#include <QWheelEvent>

#include <array>

namespace velm {

namespace {

constexpr int screenDpi = 96;
constexpr int sliceMilliseconds = 6; // of laying out between two rounds of events
// Of filling, in characters: what takes as long, and what is there at once; no publisher's text is longer.
constexpr qsizetype sliceCharacters = 400'000;
constexpr qsizetype charactersAtOnce = 4'000'000;
constexpr std::array zoomSteps{25, 50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400, 500};
constexpr int wheelNotch = 120;

} // namespace

SheetView::SheetView(QWidget* parent) : QTextEdit(parent) {
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setUndoRedoEnabled(false);
    layout_ = new PaperLayout(document());
    document()->setDefaultFont(type::documentFont());
    document()->setDocumentLayout(layout_);
    fill_ = std::make_unique<DocumentFill>(*document());
    place_ = std::make_unique<ViewPlace>(*this, *layout_, [this] { wentElsewhere(); });
    bar_ = new SheetBar([this] { return besideSheet(); }, this);
    setVerticalScrollBar(bar_);
    strip_ = new HitStrip(*bar_, this);
    setViewportMargins(0, 0, HitStrip::room, 0);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

SheetView::~SheetView() = default;

// ---- the text

bool SheetView::setContent(const RichText& rich) {
    const ViewPlace::Moving moving(*place_);
    const QString before = shown_.text();
    anchor_.reset();
    {
        const auto guard = following();
        shown_ = ShownText(rich);
        layout_->setContent(&shown_);
        fill_->begin(shown_, rich);
        fill_->step(charactersAtOnce);
    }
    layout_->setAvailable(fill_->blocks());
    const bool another = shown_.text() != before;
    if (another)
        horizontalScrollBar()->setValue(0);
    contentSet(another);
    viewport()->update();
    keepWorking();
    return another;
}

void SheetView::setChangedContent(const RichText& rich, qsizetype caret) {
    const ViewPlace::Anchor place = anchor_ ? *anchor_ : place_->anchor();
    const ViewPlace::Moving moving(*place_);
    if (setContent(rich))
        reveal(caret);
    else if (place.atTop || layout_->isAvailable(place.position)) // only the looks changed
        place_->restore(place);
    else
        anchor_ = place;
}

void SheetView::fillSlice() {
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    const bool ahead = layout_->isFilledTo(verticalScrollBar()->value() + viewport()->height());
    {
        const auto guard = following();
        fill_->step(sliceCharacters);
    }
    layout_->setAvailable(fill_->blocks());
    place_->restore(place);
    contentGrew();
    showWhatWaited();
    if (!ahead)
        viewport()->update();
}

void SheetView::showWhatWaited() {
    if (anchor_ && layout_->isAvailable(anchor_->position))
        place_->restore(*std::exchange(anchor_, std::nullopt));
    if (reveal_ >= 0 && isVisible() && layout_->isAvailable(shown_.toDocument(reveal_)))
        reveal(reveal_);
}

void SheetView::placeCursor(const QTextCursor& cursor) {
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    const auto guard = following();
    setTextCursor(cursor);
    place_->restore(place); // the caret is revealed by our own rule
    // What the toolkit repaints of a selection that goes is lower than the lines of the sheet.
    viewport()->update();
}

// ---- place

void SheetView::reveal(qsizetype wanted) {
    const int position = shown_.toDocument(wanted);
    const bool available = layout_->isAvailable(position);
    anchor_.reset();
    reveal_ = isVisible() && available ? -1 : wanted;
    if (available)
        place_->reveal(position);
}

void SheetView::stay() {
    place_->stay();
}

bool SheetView::isSettled() const {
    return fill_->isDone() && layout_->isComplete();
}

void SheetView::keepWorking() {
    if (!isSettled())
        working_.start(0, this);
}

void SheetView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != working_.timerId()) {
        QTextEdit::timerEvent(event);
        return;
    }
    if (!fill_->isDone()) {
        fillSlice();
        return;
    }
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    if (layout_->settle(sliceMilliseconds))
        working_.stop();
    place_->restore(place);
}

// The toolkit's own answer would move the pixels by what the bar moved; heights may have changed meanwhile.
void SheetView::scrollContentsBy(int dx, int dy) {
    Q_UNUSED(dy)
    if (dx != 0)
        viewport()->update();
    if (place_->isMoving())
        return;
    const ViewPlace::Moving moving(*place_);
    place_->layOutAround();
    if (isVisible()) { // who goes elsewhere no longer waits
        reveal_ = -1;
        anchor_.reset();
    }
}

void SheetView::resizeEvent(QResizeEvent* event) {
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    QTextEdit::resizeEvent(event);
    const QRect text = viewport()->geometry();
    strip_->setGeometry(text.right() + 1, text.top(), HitStrip::room, text.height());
    updateBeside(); // what lies there may be the sheet now
    place_->restore(place);
    keepWorking();
}

void SheetView::showEvent(QShowEvent* event) {
    const qsizetype wanted = std::exchange(reveal_, -1);
    QTextEdit::showEvent(event);
    if (wanted >= 0)
        reveal(wanted);
}

// With the caret on the first or last line the sheet's margin beyond it shows too.
void SheetView::showMargins() {
    QScrollBar& bar = *verticalScrollBar();
    const int margin = layout_->page().margin;
    const QRect caret = cursorRect();
    if (bar.value() <= 2 * margin && caret.top() + bar.value() <= 2 * margin)
        bar.setValue(bar.minimum());
    else if (bar.value() >= bar.maximum() - 2 * margin && textCursor().atEnd())
        bar.setValue(bar.maximum());
}

bool SheetView::viewportEvent(QEvent* event) {
    if (place_) // the toolkit's constructor has events of its own
        place_->stay();
    return QTextEdit::viewportEvent(event);
}

// ---- size

void SheetView::setZoom(int percent) {
    percent = std::clamp(percent, leastZoom, mostZoom);
    if (percent == zoom_)
        return;
    {
        const ViewPlace::Anchor place = place_->anchor();
        const ViewPlace::Moving moving(*place_);
        zoom_ = percent;
        layout_->setDpi(qRound(screenDpi * percent / 100.0));
        place_->restore(place);
    }
    keepWorking();
    viewport()->update();
    updateBeside();
    emit zoomChanged(zoom_);
}

void SheetView::zoomStep(int steps) {
    for (; steps > 0; --steps) {
        const auto next = std::upper_bound(zoomSteps.begin(), zoomSteps.end(), zoom_);
        setZoom(next == zoomSteps.end() ? mostZoom : *next);
    }
    for (; steps < 0; ++steps) {
        const auto next = std::lower_bound(zoomSteps.begin(), zoomSteps.end(), zoom_);
        setZoom(next == zoomSteps.begin() ? leastZoom : *std::prev(next));
    }
}

void SheetView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        wheelRest_ = 0;
        QTextEdit::wheelEvent(event);
        return;
    }
    event->accept();
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / wheelNotch;
    wheelRest_ -= notches * wheelNotch;
    zoomStep(notches);
}

bool SheetView::zoomKey(const QKeyEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoomStep(1);
        return true;
    case Qt::Key_Minus:
        zoomStep(-1);
        return true;
    case Qt::Key_0:
        setZoom(100);
        return true;
    default:
        return false;
    }
}

void SheetView::keyPressEvent(QKeyEvent* event) {
    stay();
    if (zoomKey(*event)) {
        event->accept();
        return;
    }
    QTextEdit::keyPressEvent(event);
    showMargins();
}

// ---- colours

void SheetView::setSheet(const look::Sheet& sheet) {
    layout_->setSheet(sheet);
    viewport()->update();
    updateBeside();
}

void SheetView::updateBeside() {
    bar_->update();
    strip_->update();
}

QColor SheetView::besideSheet() const {
    const bool whole = layout_->page().sheetWidth >= viewport()->width();
    return whole ? layout_->sheet().paper : layout_->sheet().surface;
}

void SheetView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        const look::Sheet& sheet = layout_->sheet();
        const PaperPage& page = layout_->page();
        const QRect whole = event->rect();
        const QRect paper(page.sheetLeft, 0, page.sheetWidth, viewport()->height());
        if (paper.width() < viewport()->width()) {
            painter.fillRect(whole, sheet.surface);
            painter.fillRect(paper.adjusted(-1, 0, 1, 0) & whole, sheet.edge);
        }
        painter.fillRect(paper & whole, sheet.paper);
    }
    QTextEdit::paintEvent(event);
}

} // namespace velm
