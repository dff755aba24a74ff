#include "platform/widgets/text/richtextbox.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/text/hitstrip.h"
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/richmime.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

namespace velm {

RichTextBox::RichTextBox(QWidget* parent)
    : SheetView(parent), own_(std::make_unique<RichTextControl>()), control_(*own_) {
    prepare();
}

RichTextBox::RichTextBox(RichTextControl& control, QWidget* parent) : SheetView(parent), control_(control) {
    prepare();
}

RichTextBox::~RichTextBox() {
    control_.setObserver(nullptr);
    disconnect(this, nullptr, this, nullptr);
}

void RichTextBox::prepare() {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    viewport()->setMouseTracking(true);
    visible_ = control_.visible();
    marks_ = new HitMarks(shown(), sheetLayout(), hitStrip(), this);
    connect(&hitStrip(), &HitStrip::clicked, this, [this](int tick) { reveal(marks_->start(tick)); });
    readingCaret_ = std::make_unique<ReadingCaret>(*this, sheetLayout(), [this](int position) { putCaret(position); });
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::takeUserSelection);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::takeUserSelection);
    control_.setObserver(this);
    applySheet();
    setContent(control_.richText());
}

// ---- following the control

void RichTextBox::richTextChanged() {
    setChangedContent(control_.richText(), control_.selStart());
}

void RichTextBox::contentSet(bool another) {
    placeLinks();
    leaveHover();
    marks_->place(another);
    if (another)
        readingCaret_->hide();
    showSelection();
    if (another)
        emit contentReplaced();
}

void RichTextBox::contentGrew() {
    showSelection();
}

void RichTextBox::wentElsewhere() {
    leaveHover();
}

void RichTextBox::showSelection() {
    if (marks_->select({control_.selStart(), control_.selStart() + control_.selLength()}))
        viewport()->update();
    QTextCursor cursor = textCursor();
    int start = shown().toDocument(control_.selStart());
    int end = shown().toDocument(control_.selStart() + control_.selLength());
    if (!sheetLayout().isAvailable(end))
        start = end = 0;
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end)
        return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    placeCursor(cursor);
}

void RichTextBox::richSelectionChanged() {
    if (isFollowing())
        return;
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
    if (isFollowing() || !control_.redraw() || control_.length() != shown().modelLength())
        return;
    const QTextCursor cursor = textCursor();
    const qsizetype start = shown().toModel(cursor.selectionStart());
    const qsizetype length = shown().toModel(cursor.selectionEnd()) - start;
    if (start == control_.selStart() && length == control_.selLength())
        return;
    {
        const auto guard = following();
        control_.setSelStart(start);
        control_.setSelLength(length);
    }
    marks_->select({start, start + length});
    viewport()->update();
    leaveReached();
}

void RichTextBox::putCaret(int position) {
    {
        const auto guard = following();
        control_.setSelStart(shown().toModel(position));
    }
    showSelection();
}

void RichTextBox::revealCaret() {
    reveal(control_.selStart());
}

void RichTextBox::applySheet() {
    const QColor paper = viewColour(control_.backColor());
    const bool dark = look::themeOf(palette()) == look::Theme::Dark;
    const bool soft = tone_ == PaperTone::Soft || (tone_ == PaperTone::SoftInTheDark && dark);
    setSheet(look::sheet(soft ? look::softPaper(paper) : paper, palette()));
}

void RichTextBox::setPaperTone(PaperTone tone) {
    tone_ = tone;
    applySheet();
}

void RichTextBox::changeEvent(QEvent* event) {
    SheetView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        applySheet();
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

QPointF RichTextBox::toDocument(const QPoint& point) const {
    return QPointF(point) + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

// ---- what was found

void RichTextBox::setHits(HitKind kind, std::vector<HitRange> hits) {
    marks_->set(kind, HitRanges(std::move(hits)));
    viewport()->update();
}

SeenHits RichTextBox::seenHits() {
    return marks_->seen(*this);
}

// ---- links and hovering

void RichTextBox::setLinkRanges(const std::vector<LinkRange>& ranges) {
    linkRanges_ = ranges;
    placeLinks();
    leaveHover();
    leaveReached();
    viewport()->update();
}

void RichTextBox::placeLinks() {
    std::vector<LinkRange> placed;
    placed.reserve(linkRanges_.size());
    for (const LinkRange& range : linkRanges_)
        placed.push_back({shown().toDocument(range.start), shown().toDocument(range.end)});
    sheetLayout().setLinks(LinkRanges(placed));
}

void RichTextBox::hover(const QPoint& point) {
    const int position = sheetLayout().characterAt(toDocument(point));
    const int link = position < 0 ? -1 : sheetLayout().links().at(position);
    if (link != hoveredLink_) {
        hoveredLink_ = link;
        sheetLayout().setHoveredLink(link);
        viewport()->setCursor(link < 0 ? Qt::IBeamCursor : Qt::PointingHandCursor);
        viewport()->update();
        emit linkHovered(link);
    }
}

void RichTextBox::leaveHover() {
    if (hoveredLink_ >= 0) {
        hoveredLink_ = -1;
        sheetLayout().setHoveredLink(-1);
        viewport()->setCursor(Qt::IBeamCursor);
        viewport()->update();
        emit linkHovered(-1);
    }
}

bool RichTextBox::reachLink(bool next) {
    const qsizetype caret = control_.selStart();
    const qsizetype from = next && control_.selLength() > 0 ? caret + 1 : caret;
    const int found = linkBeside(linkRanges_, from, next, control_.length());
    if (found < 0)
        return false;
    const LinkRange range = linkRanges_[static_cast<std::size_t>(found)];
    control_.setSelStart(range.start);
    control_.setSelLength(range.end - range.start);
    reachedLink_ = found;
    emit linkHovered(found);
    return true;
}

void RichTextBox::leaveReached() {
    if (std::exchange(reachedLink_, -1) >= 0)
        emit linkHovered(-1);
}

bool RichTextBox::focusNextPrevChild(bool next) {
    return reachLink(next) || SheetView::focusNextPrevChild(next);
}

void RichTextBox::focusOutEvent(QFocusEvent* event) {
    SheetView::focusOutEvent(event);
    leaveReached();
}

void RichTextBox::leaveEvent(QEvent* event) {
    SheetView::leaveEvent(event);
    leaveHover();
}

bool RichTextBox::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave)
        leaveHover();
    return SheetView::viewportEvent(event);
}

// ---- mouse

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
    SheetView::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton)
        hover(event->position().toPoint());
    else if (textCursor().hasSelection())
        readingCaret_->setSelecting(true);
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
    doubled_ = false;
    SheetView::mousePressEvent(event);
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // Its first half was told already; the second may fall on the document that the first one has opened.
    doubled_ = event->button() == Qt::LeftButton;
    SheetView::mouseDoubleClickEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    SheetView::mouseReleaseEvent(event);
    readingCaret_->setSelecting(false);
    if (event->button() == Qt::LeftButton && !std::exchange(doubled_, false))
        emit clicked(control_.selStart());
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse) {
        const QPointF point = toDocument(viewport()->mapFromGlobal(event->globalPos()));
        const int exact = sheetLayout().characterAt(point);
        const int position = exact >= 0 ? exact : sheetLayout().hitTest(point, Qt::FuzzyHit);
        emit rightClicked(shown().toModel(position), event->globalPos());
    } else {
        const QPoint caret = viewport()->mapToGlobal(cursorRect().bottomLeft());
        emit rightClicked(control_.selStart(), caret);
    }
}

// ---- keys

// While the document fills, its end is not the text's.
bool RichTextBox::selectToEnd(const QKeyEvent& event) {
    const bool all = event.matches(QKeySequence::SelectAll);
    const bool select = event.matches(QKeySequence::SelectEndOfDocument);
    if (isFilled() || !(all || select || event.matches(QKeySequence::MoveToEndOfDocument)))
        return false;
    const qsizetype end = control_.length();
    const qsizetype start = all ? 0 : (select ? control_.selStart() : end);
    control_.setSelStart(start);
    control_.setSelLength(end - start);
    return true;
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    stay();
    if (readingCaret_->key(*event)) {
        event->accept();
        return;
    }
    if (event->modifiers().testFlag(Qt::ControlModifier) && event->key() == Qt::Key_Insert) {
        copy();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Where two links touch, a link that was reached is meant itself and not the one that ends where it begins.
        emit clicked(control_.selStart() + (reachedLink_ >= 0 ? 1 : 0));
    } else if (!selectToEnd(*event)) {
        SheetView::keyPressEvent(event);
        return;
    }
    event->accept();
}

} // namespace velm
