// Keys and mouse of the document view.
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/richtextbox.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace velm {

namespace {

constexpr int wheelNotch = 120;

} // namespace

QPointF RichTextBox::toDocument(const QPoint& point) const {
    return QPointF(point) + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
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
    for (const LinkRange& range : linkRanges_) {
        placed.push_back({shown_.toDocument(range.start), shown_.toDocument(range.end)});
    }
    layout_->setLinks(LinkRanges(placed));
}

void RichTextBox::hover(const QPoint& point) {
    const int position = layout_->characterAt(toDocument(point));
    const int link = position < 0 ? -1 : layout_->links().at(position);
    if (link != hoveredLink_) {
        hoveredLink_ = link;
        layout_->setHoveredLink(link);
        viewport()->setCursor(link < 0 ? Qt::IBeamCursor : Qt::PointingHandCursor);
        viewport()->update();
        emit linkHovered(link);
    }
}

void RichTextBox::leaveHover() {
    if (hoveredLink_ >= 0) {
        hoveredLink_ = -1;
        layout_->setHoveredLink(-1);
        viewport()->setCursor(Qt::IBeamCursor);
        viewport()->update();
        emit linkHovered(-1);
    }
}

bool RichTextBox::reachLink(bool next) {
    const qsizetype caret = control_.selStart();
    const qsizetype from = control_.selLength() > 0 ? caret + 1 : caret;
    int found = -1;
    const auto startOf = [this](int link) { return linkRanges_[static_cast<std::size_t>(link)].start; };
    for (int link = 0; link < static_cast<int>(linkRanges_.size()); ++link) {
        const LinkRange& range = linkRanges_[static_cast<std::size_t>(link)];
        const bool beyond = next ? range.start >= from : range.start < caret;
        const bool nearer = found < 0 || (next ? range.start < startOf(found) : range.start > startOf(found));
        if (range.start < range.end && range.end <= control_.length() && beyond && nearer) {
            found = link;
        }
    }
    if (found < 0) {
        return false;
    }
    const LinkRange range = linkRanges_[static_cast<std::size_t>(found)];
    control_.setSelStart(range.start);
    control_.setSelLength(range.end - range.start);
    reachedLink_ = found;
    emit linkHovered(found);
    return true;
}

void RichTextBox::leaveReached() {
    if (std::exchange(reachedLink_, -1) >= 0) {
        emit linkHovered(-1);
    }
}

bool RichTextBox::focusNextPrevChild(bool next) {
    return reachLink(next) || QTextEdit::focusNextPrevChild(next);
}

void RichTextBox::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    leaveReached();
}

void RichTextBox::leaveEvent(QEvent* event) {
    QTextEdit::leaveEvent(event);
    leaveHover();
}

bool RichTextBox::viewportEvent(QEvent* event) {
    if (place_) { // the toolkit's constructor has events of its own
        place_->stay();
    }
    if (event->type() == QEvent::Leave) {
        leaveHover();
    }
    return QTextEdit::viewportEvent(event);
}

// ---- mouse

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
    QTextEdit::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton) {
        hover(event->position().toPoint());
    }
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
    doubled_ = false;
    QTextEdit::mousePressEvent(event);
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // Its first half was told already; the second may fall on the document that the first one has opened.
    doubled_ = event->button() == Qt::LeftButton;
    QTextEdit::mouseDoubleClickEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    QTextEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && !std::exchange(doubled_, false)) {
        emit clicked(control_.selStart());
    }
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse) {
        const QPointF point = toDocument(viewport()->mapFromGlobal(event->globalPos()));
        const int exact = layout_->characterAt(point);
        const int position = exact >= 0 ? exact : layout_->hitTest(point, Qt::FuzzyHit);
        emit rightClicked(shown_.toModel(position), event->globalPos());
    } else {
        const QPoint caret = viewport()->mapToGlobal(cursorRect().bottomLeft());
        emit rightClicked(control_.selStart(), caret);
    }
}

void RichTextBox::wheelEvent(QWheelEvent* event) {
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

// ---- keys

// While the document fills, its end is not the text's.
bool RichTextBox::selectToEnd(const QKeyEvent& event) {
    const bool all = event.matches(QKeySequence::SelectAll);
    const bool select = event.matches(QKeySequence::SelectEndOfDocument);
    if (fill_->isDone() || !(all || select || event.matches(QKeySequence::MoveToEndOfDocument))) {
        return false;
    }
    const qsizetype end = control_.length();
    const qsizetype start = all ? 0 : (select ? control_.selStart() : end);
    control_.setSelStart(start);
    control_.setSelLength(end - start);
    return true;
}

// With the caret on the first or last line the sheet's margin beyond it shows too.
void RichTextBox::showMargins() {
    QScrollBar& bar = *verticalScrollBar();
    const int margin = layout_->page().margin;
    const QRect caret = cursorRect();
    if (bar.value() <= 2 * margin && caret.top() + bar.value() <= 2 * margin) {
        bar.setValue(bar.minimum());
    } else if (bar.value() >= bar.maximum() - 2 * margin && textCursor().atEnd()) {
        bar.setValue(bar.maximum());
    }
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    place_->stay();
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (control && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
        zoomStep(1);
    } else if (control && event->key() == Qt::Key_Minus) {
        zoomStep(-1);
    } else if (control && event->key() == Qt::Key_0) {
        setZoom(100);
    } else if (control && event->key() == Qt::Key_Insert) {
        copy();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Where two links touch, a link that was reached is meant itself and not the one that ends where it begins.
        emit clicked(control_.selStart() + (reachedLink_ >= 0 ? 1 : 0));
    } else if (!selectToEnd(*event)) {
        QTextEdit::keyPressEvent(event);
        showMargins();
        return;
    }
    event->accept();
}

} // namespace velm
