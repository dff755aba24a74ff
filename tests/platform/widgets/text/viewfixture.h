#pragma once
// A document view on a screen that nobody sees, under a watch for warnings of the toolkit.
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/richtextbox.h"
#include "tests/platform/typeset/sampletext.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace velm {

class ViewTest : public QuietTest {
protected:
    ViewTest() {
        box.resize(900, 600);
        box.show();
        box.setFocus();
        QApplication::processEvents();
    }

    void show(const RichText& text) {
        box.control().setRedraw(false);
        box.control().setText(u"");
        box.control().richTextForEdit() = text;
        box.control().notifyChanged();
        box.control().setRedraw(true);
    }
    void settle() { EVENTUALLY_WITHIN(60000, box.isSettled()); }
    PaperLayout& layout() { return *qobject_cast<PaperLayout*>(box.document()->documentLayout()); }
    /// Where a position of the model stands, in pixels from the text's left edge and the sheet's top.
    QPoint place(qsizetype position) {
        const ShownText shown(box.control().richText());
        QTextCursor cursor(box.document());
        cursor.setPosition(shown.toDocument(position));
        const QRect caret = box.cursorRect(cursor);
        return {caret.left() - layout().page().textLeft, caret.top() + box.verticalScrollBar()->value()};
    }
    /// The same in the viewport, a little inside the character.
    QPoint pointOf(qsizetype position) {
        const QPoint at = place(position);
        return {at.x() + layout().page().textLeft + 2, at.y() - box.verticalScrollBar()->value() + 6};
    }

    RichTextBox box;
};

/// The same with a user's hands on it.
class Box : public ViewTest {
protected:
    qsizetype selStart() const { return box.control().selStart(); }
    qsizetype selLength() const { return box.control().selLength(); }
    qsizetype find(QStringView what, qsizetype from = 0) { return box.control().richText().indexOf(what, from); }
    bool caretIsVisible() {
        const QRect caret = box.cursorRect();
        return caret.top() >= 0 && caret.bottom() <= box.viewport()->height();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(&box, key, modifiers); }
    void wheel(int notches, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(100, 100), box.mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, 120 * notches),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box.viewport(), &event);
    }
};

} // namespace velm
