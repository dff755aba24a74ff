#include "viewfixture.h"

#include <QClipboard>
#include <QTextBlock>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Counts the paint events of a viewport.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

// ---- selection both ways

TEST_F(Box, TheControlsSelectionShowsInTheView) {
    show(sample::plain({u"un"_s, u"deux"_s, u"trois"_s}));
    box.setSelStart(4);
    box.setSelLength(9);
    EXPECT_EQ(box.textCursor().selectedText(), u"deux\u2029tro"_s);
    box.setSelStart(2);
    EXPECT_FALSE(box.textCursor().hasSelection());
    EXPECT_EQ(box.textCursor().position(), 2);
}

TEST_F(Box, TheUsersSelectionGoesToTheControl) {
    show(sample::plain({u"un"_s, u"deux"_s, u"trois"_s}));
    key(Qt::Key_F7); // without a caret this key scrolls
    key(Qt::Key_Down);
    EXPECT_EQ(selStart(), 4);
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 4);
    EXPECT_EQ(selLength(), 4);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_GT(selLength(), 6);
    EXPECT_EQ(box.control().selText(), u"deux\r\ntrois"_s.left(selLength()));
}

TEST_F(Box, SelectingBackwardKeepsTheMovingEnd) {
    show(sample::plain({u"abcdef"_s}));
    box.setSelStart(4);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 2);
    EXPECT_EQ(selLength(), 2);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(selLength(), 1);
}

TEST_F(Box, EverythingIsSelectedByControlA) {
    show(sample::plain({u"un"_s, u"deux"_s}));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 0);
    EXPECT_EQ(selLength(), 8);
}

TEST_F(Box, ADragSelects) {
    show(sample::plain({u"un mot ici"_s}));
    const QPoint from = pointOf(3) - QPoint(2, 0);
    const QPoint to = pointOf(6) - QPoint(2, 0);
    QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), box.viewport()->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &move);
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(selLength(), 3);
    EXPECT_EQ(box.control().selText(), u"mot"_s);
}

TEST_F(Box, TheTextCannotBeEdited) {
    show(sample::plain({u"abc"_s}));
    QTest::keyClicks(&box, u"xyz"_s);
    key(Qt::Key_Delete);
    key(Qt::Key_Backspace);
    QApplication::clipboard()->setText(u"collé"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.control().text(), u"abc"_s);
    EXPECT_EQ(box.toPlainText(), u"abc"_s);
}

TEST_F(Box, TheCaretIsShownAndMovesByKeys) {
    show(sample::plain({u"un deux"_s, u"trois"_s}));
    EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 3);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 14);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 0);
}

TEST_F(Box, UpToAndFindMoveTheViewToo) {
    show(sample::plain({u"un deux"_s, u"trois quatre"_s}));
    EXPECT_EQ(box.findText(u"QUATRE"), 15);
    EXPECT_EQ(box.textCursor().selectedText(), u"quatre"_s);
    box.upTo(u"\r\n", false, false);
    EXPECT_EQ(selStart(), 9);
    EXPECT_EQ(box.textCursor().position(), 8);
    EXPECT_FALSE(box.textCursor().hasSelection());
}

TEST_F(Box, ANewDocumentBeginsAtItsTop) {
    show(sample::longText(30000));
    box.setSelStart(box.control().length());
    EXPECT_GT(box.verticalScrollBar()->value(), 0);
    box.setRedraw(false);
    box.control().setText(u"neuf");
    box.control().setSelStart(0);
    box.setRedraw(true);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
    EXPECT_EQ(box.textCursor().position(), 0);
}

// ---- place

TEST_F(Box, TheCaretIsScrolledIntoViewWhereverItGoes) {
    show(sample::longText(400000));
    const qsizetype length = box.control().length();
    for (const qsizetype part : {50, 90, 10, 100, 0, 73}) {
        box.setSelStart(length * part / 100);
        EXPECT_TRUE(caretIsVisible()) << part;
        box.viewport()->repaint();
        EXPECT_TRUE(caretIsVisible()) << part;
    }
}

TEST_F(Box, AnyPlaceCanBeShownWhileTheCaretStaysWhereItIs) {
    show(sample::longText(400000));
    box.setSelStart(7);
    const qsizetype length = box.control().length();
    for (const qsizetype part : {50, 100, 3, 0}) {
        const qsizetype place = length * part / 100;
        box.reveal(place);
        box.viewport()->repaint();
        const QPoint there = pointOf(place);
        EXPECT_GE(there.y(), 0) << part;
        EXPECT_LE(there.y(), box.viewport()->height()) << part;
        EXPECT_EQ(box.selStart(), 7);
    }
}

TEST_F(Box, APlaceAtTheEdgeIsMovedAwayFromIt) {
    show(sample::longText(100000));
    box.reveal(50000);
    const int middle = box.verticalScrollBar()->value();
    box.reveal(50000);
    EXPECT_EQ(box.verticalScrollBar()->value(), middle);
    for (const int away : {2, box.viewport()->height() - 30}) { // from the upper edge, from the lower
        box.verticalScrollBar()->setValue(middle + pointOf(50000).y() - away);
        box.reveal(50000);
        EXPECT_GT(pointOf(50000).y(), 60) << away;
        EXPECT_LT(pointOf(50000).y(), box.viewport()->height() - 60) << away;
    }
}

TEST_F(Box, APlaceIsShownAsSoonAsTheWindowIs) {
    show(sample::longText(100000));
    box.hide();
    box.reveal(50000);
    box.show();
    box.viewport()->repaint();
    EXPECT_GE(pointOf(50000).y(), 0);
    EXPECT_LE(pointOf(50000).y(), box.viewport()->height());
    EXPECT_EQ(box.selStart(), 0);
}

TEST_F(Box, WhatIsReadStaysInPlaceWhileTheRestIsLaidOut) {
    show(sample::longText(600000));
    EXPECT_FALSE(box.isSettled());
    box.setSelStart(300000);
    box.viewport()->repaint();
    const int before = box.cursorRect().top();
    settle();
    EXPECT_EQ(box.cursorRect().top(), before);
    const int estimated = box.verticalScrollBar()->maximum();
    EXPECT_EQ(estimated, static_cast<int>(layout().documentSize().height()) - box.viewport()->height());
}

TEST_F(Box, WhatIsReadStaysInPlaceWhenTheWindowIsResized) {
    show(sample::longText(100000));
    settle();
    box.setSelStart(50000);
    const int lineTop = box.cursorRect().top();
    EXPECT_GT(lineTop, 0);
    // The line at the window's top stays the line at the top.
    const auto top = [&] { return layout().lineAt(box.verticalScrollBar()->value()); };
    const int start = top().start;
    box.resize(450, 600);
    EXPECT_LE(top().start, start);
    EXPECT_GT(top().start + 200, start);
    settle();
    EXPECT_LE(top().start, start);
    EXPECT_GT(top().start + 200, start);
}

TEST_F(Box, ScrollingUpThroughUnknownHeightsDoesNotJump) {
    show(sample::longText(300000));
    box.setSelStart(150000);
    box.viewport()->repaint();
    for (int i = 0; i < 60; ++i) {
        const PaperLayout::Line line = layout().lineAt(box.verticalScrollBar()->value());
        const int seen = static_cast<int>(line.top) - box.verticalScrollBar()->value();
        box.verticalScrollBar()->setValue(box.verticalScrollBar()->value() - 30);
        const PaperLayout::Line same = layout().lineOf(line.start);
        ASSERT_EQ(static_cast<int>(same.top) - box.verticalScrollBar()->value(), seen + 30) << i;
    }
}

TEST_F(Box, PageKeysAndEndReachEveryPlace) {
    show(sample::longText(60000));
    key(Qt::Key_PageDown);
    EXPECT_GT(box.verticalScrollBar()->value(), 200);
    EXPECT_TRUE(caretIsVisible());
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), box.control().length());
    QApplication::processEvents();
    EXPECT_TRUE(caretIsVisible());
    key(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_GT(selLength(), 100);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
}

TEST_F(Box, ADocumentLoadedBeforeTheWindowShowsOpensAtItsCaret) {
    RichTextBox hidden;
    hidden.resize(600, 400);
    hidden.setRedraw(false);
    hidden.control().richTextForEdit() = sample::longText(50000);
    hidden.control().notifyChanged();
    hidden.setSelStart(30000);
    hidden.setRedraw(true);
    hidden.show();
    QApplication::processEvents();
    const QRect caret = hidden.cursorRect();
    EXPECT_GE(caret.top(), 0);
    EXPECT_LT(caret.bottom(), hidden.viewport()->height());
}

// ---- the redraw switch

TEST_F(Box, NothingIsRepaintedUntilRedrawComesBackThenOnce) {
    show(sample::lawArticle());
    QApplication::processEvents();
    PaintCounter paints(box.viewport());
    box.setRedraw(false);
    for (int i = 0; i < 50; ++i) {
        box.setSelStart(i);
        box.setSelLength(3);
        box.control().setSelColor(255);
        box.control().setSelBold(true);
        QApplication::processEvents();
    }
    EXPECT_EQ(paints.count, 0);
    box.setRedraw(true);
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 1);
    EXPECT_EQ(box.document()->firstBlock().begin().fragment().charFormat().fontWeight(), int(QFont::Bold));
}

TEST_F(Box, AnOldPictureTakesNoSelectionWhileRedrawIsOff) {
    show(sample::plain({u"abcdef"_s}));
    box.setRedraw(false);
    box.control().setText(u"autre");
    box.control().setSelStart(1);
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 1);
    EXPECT_EQ(selLength(), 0);
    box.setRedraw(true);
    EXPECT_EQ(box.toPlainText(), u"autre"_s);
    EXPECT_EQ(box.textCursor().position(), 1);
}

TEST_F(Box, MarksKeepThePlaceAndTheSelection) {
    show(sample::longText(60000));
    settle();
    box.verticalScrollBar()->setValue(2000);
    const int value = box.verticalScrollBar()->value();
    CharChange mark;
    mark.mask = CharChange::Colour;
    mark.values.colour = 255;
    box.control().richTextForEdit().changeCharacters(10, 5, mark);
    box.control().notifyChanged();
    settle();
    EXPECT_EQ(box.verticalScrollBar()->value(), value);
}

} // namespace velm
