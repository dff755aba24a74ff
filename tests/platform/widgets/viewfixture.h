#pragma once
// A document view on a screen that nobody sees, under a watch for warnings of the toolkit.
#include "platform/widgets/paperlayout.h"
#include "platform/widgets/richtextbox.h"
#include "sampletext.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velm {

/// Every message of the toolkit fails the test that caused it.
class QuietTest : public testing::Test {
protected:
    QuietTest() : before_(qInstallMessageHandler(&QuietTest::complain)) {}
    ~QuietTest() override { qInstallMessageHandler(before_); }

private:
    static void complain(QtMsgType type, const QMessageLogContext& context, const QString& message) {
        Q_UNUSED(context)
        if (type != QtDebugMsg && type != QtInfoMsg) {
            ADD_FAILURE() << "toolkit warning: " << message.toStdString();
        }
    }
    QtMessageHandler before_;
};

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
    void settle() { QTRY_VERIFY_WITH_TIMEOUT(box.isSettled(), 60000); }
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

} // namespace velm
