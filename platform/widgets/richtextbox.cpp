#include "platform/widgets/richtextbox.h"

#include "platform/widgets/documentfill.h"
#include "platform/widgets/look.h"
#include "platform/widgets/paperlayout.h"
#include "platform/widgets/richmime.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimerEvent>

#include <array>

namespace velm {

namespace {

constexpr int screenDpi = 96;
constexpr int sliceMilliseconds = 6; // of laying out between two rounds of events
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
    setUndoRedoEnabled(false);
    layout_ = new PaperLayout(document());
    document()->setDefaultFont(look::documentFont());
    document()->setDocumentLayout(layout_);
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
    showSelection();
}

// ---- following the control

void RichTextBox::richTextChanged() {
    const QString before = shown_.text();
    const Anchor place = anchor();
    rebuild();
    showSelection();
    if (shown_.text() == before) {
        restore(place); // only the looks changed
    } else {
        revealCaret();
    }
}

void RichTextBox::rebuild() {
    following_ = true;
    const RichText& rich = control_.richText();
    formats_.reset();
    shown_ = ShownText(rich);
    layout_->setContent(&shown_);
    fillDocument(*document(), shown_, rich, formats_);
    following_ = false;
    placeLinks();
    leaveHover();
    startSettling();
}

void RichTextBox::showSelection() {
    QTextCursor cursor = textCursor();
    const int start = shown_.toDocument(control_.selStart());
    const int end = shown_.toDocument(control_.selStart() + control_.selLength());
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) {
        return;
    }
    following_ = true;
    moving_ = true; // the caret is revealed by our own rule
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    const int value = verticalScrollBar()->value();
    setTextCursor(cursor);
    verticalScrollBar()->setValue(value);
    moving_ = false;
    following_ = false;
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

RichTextBox::Anchor RichTextBox::anchor() const {
    const int value = verticalScrollBar()->value();
    if (value <= layout_->page().margin) {
        return {0, value, true};
    }
    const PaperLayout::Line line = layout_->lineAt(value);
    return {line.start, static_cast<int>(value - line.top), false};
}

void RichTextBox::restore(const Anchor& anchor) {
    const bool before = std::exchange(moving_, true);
    if (anchor.atTop) {
        verticalScrollBar()->setValue(anchor.offset);
    } else {
        const PaperLayout::Line line = layout_->lineOf(anchor.position);
        emit layout_->documentSizeChanged(layout_->documentSize());
        verticalScrollBar()->setValue(static_cast<int>(line.top) + std::min(anchor.offset, line.height - 1));
    }
    moving_ = before;
}

void RichTextBox::layOutAround() {
    if (layout_->isComplete()) {
        return;
    }
    const Anchor place = anchor();
    const int value = verticalScrollBar()->value();
    const int height = viewport()->height();
    layout_->layOutBetween(value - height, value + 2 * height);
    restore(place);
}

void RichTextBox::revealCaret() {
    reveal(control_.selStart());
}

void RichTextBox::reveal(qsizetype wanted) {
    reveal_ = isVisible() ? -1 : wanted;
    const int position = shown_.toDocument(wanted);
    const int height = viewport()->height();
    PaperLayout::Line line = layout_->lineOf(position);
    layout_->layOutBetween(line.top - height, line.top + height);
    line = layout_->lineOf(position);
    emit layout_->documentSizeChanged(layout_->documentSize());
    const bool before = std::exchange(moving_, true);
    const int value = verticalScrollBar()->value();
    if (position == 0) {
        verticalScrollBar()->setValue(0);
    } else if (line.top < value || line.top + line.height > value + height) {
        verticalScrollBar()->setValue(static_cast<int>(line.top) - height / 4);
    }
    moving_ = before;
}

bool RichTextBox::isSettled() const {
    return layout_->isComplete();
}

void RichTextBox::startSettling() {
    if (!layout_->isComplete()) {
        settling_.start(0, this);
    }
}

void RichTextBox::timerEvent(QTimerEvent* event) {
    if (event->timerId() != settling_.timerId()) {
        QTextEdit::timerEvent(event);
        return;
    }
    const Anchor place = anchor();
    if (layout_->settle(sliceMilliseconds)) {
        settling_.stop();
    }
    restore(place);
}

void RichTextBox::scrollContentsBy(int dx, int dy) {
    QTextEdit::scrollContentsBy(dx, dy);
    if (!moving_) {
        layOutAround();
    }
    leaveHover();
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    const Anchor place = anchor();
    moving_ = true;
    QTextEdit::resizeEvent(event);
    moving_ = false;
    restore(place);
    startSettling();
}

void RichTextBox::showEvent(QShowEvent* event) {
    QTextEdit::showEvent(event);
    if (const qsizetype wanted = std::exchange(reveal_, -1); wanted >= 0) {
        reveal(wanted);
    }
}

// ---- size

void RichTextBox::setZoom(int percent) {
    percent = std::clamp(percent, leastZoom, mostZoom);
    if (percent == zoom_) {
        return;
    }
    const Anchor place = anchor();
    zoom_ = percent;
    moving_ = true;
    layout_->setDpi(qRound(screenDpi * percent / 100.0));
    moving_ = false;
    restore(place);
    startSettling();
    viewport()->update();
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
        if (paper.left() > 0) {
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
