#include "platform/widgets/look/labeleditor.h"

#include "platform/widgets/look/look.h"

#include <QKeyEvent>
#include <QStyleOptionFrame>

#include <algorithm>
#include <utility>

namespace velm {

LabelEditor::LabelEditor(QWidget* viewport) : QLineEdit(viewport) {
    hide();
    connect(this, &QLineEdit::textChanged, this, [this] { lay(label_); });
}

void LabelEditor::begin(int entry, const QString& text, const QRect& label) {
    entry_ = entry;
    label_ = label;
    setText(text);
    setAccessibleName(text);
    lay(label);
    show();
    raise();
    parentWidget()->update(); // the words below are not painted now
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void LabelEditor::lay(const QRect& label) {
    label_ = label;
    const QMargins margins = textMargins() + contentsMargins();
    constexpr int beside = 6 * look::grid; // the edges, the caret, and the next letter
    const int wanted = fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + beside;
    const int room = parentWidget()->width() - 2;
    const int width = std::min(std::max(wanted, 12 * look::grid), room);
    const int height = std::max(fontMetrics().height() + look::grid, std::min(label.height(), sizeHint().height()));
    const int beginning =
        alignment().testFlag(Qt::AlignHCenter) ? label.center().x() - width / 2 : label.left() - inset();
    const int left = std::clamp(beginning, 0, std::max(0, room - width));
    setGeometry(left, label.top() + (label.height() - height) / 2, width, height);
}

/// Where the first letter stands in the field.
int LabelEditor::inset() const {
    constexpr int beforeText = 2; // the field's own
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).left() + textMargins().left() +
           beforeText;
}

void LabelEditor::end(bool keep) {
    if (entry_ == 0)
        return;
    const int entry = std::exchange(entry_, 0);
    const QString written = text();
    if (hasFocus() && parentWidget()->parentWidget())
        parentWidget()->parentWidget()->setFocus(Qt::OtherFocusReason);
    hide();
    parentWidget()->update();
    emit ended(entry, written, keep);
}

bool LabelEditor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // No command of the window takes a key while words are typed.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Delete ||
            key == Qt::Key_Insert || key == Qt::Key_F2) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            event->accept();
            end(true);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void LabelEditor::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
        event->accept();
        end(key != Qt::Key_Escape);
        return;
    }
    QLineEdit::keyPressEvent(event);
    // What the field has no use for moves nothing below it.
    event->accept();
}

void LabelEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
        return;
    if (event->reason() != Qt::ActiveWindowFocusReason) {
        end(true);
        return;
    }
    // The window may be on its way out, and what it consists of gone: then nobody is told any more.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!hasFocus())
                end(true);
        },
        Qt::QueuedConnection);
}

} // namespace velm
