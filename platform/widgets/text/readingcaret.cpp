#include "platform/widgets/text/readingcaret.h"

#include "platform/widgets/text/paperlayout.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextEdit>

namespace velm {

namespace {

enum class Use {
    None,
    Toggle,
    Scroll, ///< while there is no caret to move
    Move,   ///< takes it along: by a page, to an end of the text
    Show,   ///< moves it by itself, or selects with it
};

Use useOf(const QKeyEvent& event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
    case Qt::Key_F7:
        return event.modifiers() == Qt::NoModifier ? Use::Toggle : Use::None;
    case Qt::Key_Up:
    case Qt::Key_Down:
        return shift || control ? Use::Show : Use::Scroll;
    case Qt::Key_Left:
    case Qt::Key_Right:
        return Use::Show;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (shift)
            return Use::Show;
        return control ? Use::Move : Use::Scroll;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return shift ? Use::Show : Use::Move;
    default:
        return Use::None;
    }
}

QScrollBar::SliderAction scrollOf(int key) {
    switch (key) {
    case Qt::Key_Home:
        return QScrollBar::SliderToMinimum;
    case Qt::Key_End:
        return QScrollBar::SliderToMaximum;
    case Qt::Key_Down:
        return QScrollBar::SliderSingleStepAdd;
    default:
        return QScrollBar::SliderSingleStepSub;
    }
}

} // namespace

ReadingCaret::ReadingCaret(QTextEdit& view, PaperLayout& layout, std::function<void(int)> put)
    : view_(view), layout_(layout), put_(std::move(put)) {
    hide();
}

void ReadingCaret::show(bool shown, bool selecting) {
    shown_ = shown;
    layout_.setCaretShown(shown || selecting);
    view_.viewport()->update();
}

/// A caret that nobody sees does not call the reader back to where it was left.
void ReadingCaret::fetch() {
    if (view_.viewport()->rect().intersects(view_.cursorRect()))
        return;
    const std::int64_t top = view_.verticalScrollBar()->value();
    PaperLayout::Line line = layout_.lineAt(top);
    if (line.top < top)
        line = layout_.lineAt(line.top + line.height);
    if (layout_.isAvailable(line.start))
        put_(line.start);
}

bool ReadingCaret::key(const QKeyEvent& event) {
    const Use use = useOf(event);
    if (use == Use::None || (shown_ && use != Use::Toggle))
        return false;
    if (use == Use::Scroll) {
        view_.verticalScrollBar()->triggerAction(scrollOf(event.key()));
        return true;
    }
    // What is selected from where the caret stands keeps that end.
    if (!shown_ && !event.modifiers().testFlag(Qt::ShiftModifier))
        fetch();
    if (use != Use::Move)
        show(!shown_, false);
    return use == Use::Toggle;
}

} // namespace velm
