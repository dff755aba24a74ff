#include "platform/widgets/text/richtextbox.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/richmime.h"
#include "platform/widgets/text/sheetbar.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimerEvent>

#include <array>

namespace velm {

namespace {

constexpr int screenDpi = 96;
constexpr int sliceMilliseconds = 6; // of laying out between two rounds of events
// Of filling, in characters: what takes as long, and what is there at once; no publisher's text is longer.
constexpr qsizetype sliceCharacters = 400'000;
constexpr qsizetype charactersAtOnce = 4'000'000;
constexpr std::array zoomSteps{25, 50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400, 500};

} // namespace

RichTextBox::RichTextBox(QWidget* parent)
    : QTextEdit(parent), own_(std::make_unique<RichTextControl>()), control_(*own_) {
    prepare();
}

RichTextBox::RichTextBox(RichTextControl& control, QWidget* parent) : QTextEdit(parent), control_(control) {
    prepare();
}

RichTextBox::~RichTextBox() {
    control_.setObserver(nullptr);
    disconnect(this, nullptr, this, nullptr);
}

void RichTextBox::prepare() {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setUndoRedoEnabled(false);
    layout_ = new PaperLayout(document());
    document()->setDefaultFont(look::documentFont());
    document()->setDocumentLayout(layout_);
    fill_ = std::make_unique<DocumentFill>(*document());
    place_ = std::make_unique<ViewPlace>(*this, *layout_, [this] { leaveHover(); });
    setVerticalScrollBar(new SheetBar([this] { return besideSheet(); }, this));
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    visible_ = control_.visible();
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::takeUserSelection);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::takeUserSelection);
    control_.setObserver(this);
    applySheet();
    rebuild();
}

// ---- following the control

void RichTextBox::richTextChanged() {
    const QString before = shown_.text();
    {
        const ViewPlace::Anchor place = anchor_ ? *anchor_ : place_->anchor();
        const ViewPlace::Moving moving(*place_);
        rebuild();
        if (shown_.text() != before) {
            revealCaret();
        } else if (place.atTop || layout_->isAvailable(place.position)) { // only the looks changed
            place_->restore(place);
        } else {
            anchor_ = place;
        }
    }
}

void RichTextBox::rebuild() {
    const ViewPlace::Moving moving(*place_);
    anchor_.reset();
    {
        const QScopedValueRollback following(following_, true);
        shown_ = ShownText(control_.richText());
        layout_->setContent(&shown_);
        fill_->begin(shown_, control_.richText());
        fill_->step(charactersAtOnce);
    }
    layout_->setAvailable(fill_->blocks());
    placeLinks();
    leaveHover();
    showSelection();
    viewport()->update();
    keepWorking();
}

void RichTextBox::fillSlice() {
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    const bool ahead = layout_->isFilledTo(verticalScrollBar()->value() + viewport()->height());
    {
        const QScopedValueRollback following(following_, true);
        fill_->step(sliceCharacters);
    }
    layout_->setAvailable(fill_->blocks());
    place_->restore(place);
    showSelection();
    showWhatWaited();
    if (!ahead) {
        viewport()->update();
    }
}

void RichTextBox::showWhatWaited() {
    if (anchor_ && layout_->isAvailable(anchor_->position)) {
        place_->restore(*std::exchange(anchor_, std::nullopt));
    }
    if (reveal_ >= 0 && isVisible() && layout_->isAvailable(shown_.toDocument(reveal_))) {
        reveal(reveal_);
    }
}

void RichTextBox::showSelection() {
    QTextCursor cursor = textCursor();
    int start = shown_.toDocument(control_.selStart());
    int end = shown_.toDocument(control_.selStart() + control_.selLength());
    selectionWaits_ = !layout_->isAvailable(end);
    if (selectionWaits_) {
        start = end = 0;
    }
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) {
        return;
    }
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    const QScopedValueRollback following(following_, true);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    place_->restore(place); // the caret is revealed by our own rule
    // What the toolkit repaints of a selection that goes is lower than the lines of the sheet.
    viewport()->update();
}

void RichTextBox::richSelectionChanged() {
    if (following_) {
        return;
    }
    leaveReached();
    showSelection();
    revealCaret();
}

void RichTextBox::richPropertiesChanged() {
    applySheet();
    if (visible_ != control_.visible()) {
        visible_ = control_.visible();
        setVisible(visible_);
    }
}

void RichTextBox::takeUserSelection() {
    // While the control's redraw is off the view may show an older text; its positions mean nothing then.
    if (following_ || !control_.redraw() || control_.length() != shown_.modelLength()) {
        return;
    }
    const QTextCursor cursor = textCursor();
    const qsizetype start = shown_.toModel(cursor.selectionStart());
    const qsizetype length = shown_.toModel(cursor.selectionEnd()) - start;
    if (start == control_.selStart() && length == control_.selLength()) {
        return;
    }
    following_ = true;
    control_.setSelStart(start);
    control_.setSelLength(length);
    following_ = false;
    viewport()->update();
    leaveReached();
}

// ---- place

void RichTextBox::revealCaret() {
    reveal(control_.selStart());
}

void RichTextBox::reveal(qsizetype wanted) {
    const int position = shown_.toDocument(wanted);
    const bool available = layout_->isAvailable(position);
    anchor_.reset();
    reveal_ = isVisible() && available ? -1 : wanted;
    if (available) {
        place_->reveal(position);
    }
}

bool RichTextBox::isSettled() const {
    return fill_->isDone() && layout_->isComplete();
}

void RichTextBox::keepWorking() {
    if (!isSettled()) {
        working_.start(0, this);
    }
}

void RichTextBox::timerEvent(QTimerEvent* event) {
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
    if (layout_->settle(sliceMilliseconds)) {
        working_.stop();
    }
    place_->restore(place);
}

// The toolkit's own answer would move the pixels by what the bar moved; heights may have changed meanwhile.
void RichTextBox::scrollContentsBy(int dx, int dy) {
    Q_UNUSED(dx)
    Q_UNUSED(dy)
    if (place_->isMoving()) {
        return;
    }
    const ViewPlace::Moving moving(*place_);
    place_->layOutAround();
    if (isVisible()) { // who goes elsewhere no longer waits
        reveal_ = -1;
        anchor_.reset();
    }
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    const ViewPlace::Anchor place = place_->anchor();
    const ViewPlace::Moving moving(*place_);
    QTextEdit::resizeEvent(event);
    verticalScrollBar()->update(); // what lies beside it may be the sheet now
    place_->restore(place);
    keepWorking();
}

void RichTextBox::showEvent(QShowEvent* event) {
    const qsizetype wanted = std::exchange(reveal_, -1);
    QTextEdit::showEvent(event);
    if (wanted >= 0) {
        reveal(wanted);
    }
}

// ---- size

void RichTextBox::setZoom(int percent) {
    percent = std::clamp(percent, leastZoom, mostZoom);
    if (percent == zoom_) {
        return;
    }
    {
        const ViewPlace::Anchor place = place_->anchor();
        const ViewPlace::Moving moving(*place_);
        zoom_ = percent;
        layout_->setDpi(qRound(screenDpi * percent / 100.0));
        place_->restore(place);
    }
    keepWorking();
    viewport()->update();
    verticalScrollBar()->update();
}

void RichTextBox::zoomStep(int steps) {
    for (; steps > 0; --steps) {
        const auto next = std::upper_bound(zoomSteps.begin(), zoomSteps.end(), zoom_);
        setZoom(next == zoomSteps.end() ? mostZoom : *next);
    }
    for (; steps < 0; ++steps) {
        const auto next = std::lower_bound(zoomSteps.begin(), zoomSteps.end(), zoom_);
        setZoom(next == zoomSteps.begin() ? leastZoom : *std::prev(next));
    }
}

// ---- colours

void RichTextBox::applySheet() {
    layout_->setSheet(look::sheet(viewColour(control_.backColor()), palette()));
    viewport()->update();
    verticalScrollBar()->update();
}

QColor RichTextBox::besideSheet() const {
    const bool whole = layout_->page().sheetWidth >= viewport()->width();
    return whole ? layout_->sheet().paper : layout_->sheet().surface;
}

void RichTextBox::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (layout_ != nullptr && (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)) {
        applySheet();
    }
}

void RichTextBox::paintEvent(QPaintEvent* event) {
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

// ---- copying

QMimeData* RichTextBox::createMimeDataFromSelection() const {
    return new RichMime(control_.richText().copy(control_.selStart(), control_.selLength()));
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
    Q_UNUSED(source)
    return false;
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
    Q_UNUSED(source)
}

} // namespace velm
