// When the caret of a text that is only read shows, and what the keys do meanwhile.
#include "viewfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class Reading : public Box {
protected:
    Reading() { QApplication::setCursorFlashTime(0); }

    /// Whether the picture is another one without a caret.
    bool caretShows() {
        const QImage seen = box.viewport()->grab().toImage();
        layout().setCaretShown(false);
        const bool shown = box.viewport()->grab().toImage() != seen;
        layout().setCaretShown(shown);
        return shown;
    }
    int top() const { return box.verticalScrollBar()->value(); }
    void scrollTo(int value) { box.verticalScrollBar()->setValue(value); }
};

} // namespace

TEST_F(Reading, NoCaretShowsUntilAKeyMovesIt) {
    show(sample::plain({u"  un deux"_s, u"trois"_s}));
    EXPECT_FALSE(caretShows());
    box.setSelStart(1);
    EXPECT_FALSE(caretShows());
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointOf(1));
    EXPECT_FALSE(caretShows());
    key(Qt::Key_Left);
    EXPECT_TRUE(caretShows());
    show(sample::plain({u"  autre"_s}));
    EXPECT_FALSE(caretShows()) << "in another text";
}

TEST_F(Reading, F7ShowsTheCaretAndHidesIt) {
    show(sample::plain({u"  un deux"_s}));
    key(Qt::Key_F7);
    EXPECT_TRUE(caretShows());
    EXPECT_EQ(selStart(), 0);
    key(Qt::Key_F7);
    EXPECT_FALSE(caretShows());
    key(Qt::Key_F7, Qt::ControlModifier);
    EXPECT_FALSE(caretShows());
}

TEST_F(Reading, SelectingWithAKeyShowsIt) {
    int size = 0;
    for (const auto code : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Right}) {
        show(sample::longText(size += 5000));
        EXPECT_FALSE(caretShows()) << code;
        key(code, Qt::ShiftModifier);
        EXPECT_GT(selLength(), 0);
        EXPECT_TRUE(caretShows()) << code;
    }
}

TEST_F(Reading, WhileTheMouseSelectsItShows) {
    show(sample::plain({u"un  deux  trois"_s}));
    QTest::mousePress(box.viewport(), Qt::LeftButton, {}, pointOf(0));
    const QPoint there = pointOf(9);
    QMouseEvent move(QEvent::MouseMove, QPointF(there), box.viewport()->mapToGlobal(QPointF(there)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &move);
    EXPECT_GT(selLength(), 0);
    EXPECT_TRUE(caretShows());
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, {}, there);
    EXPECT_FALSE(caretShows());
}

TEST_F(Reading, WithoutACaretUpAndDownScroll) {
    show(sample::longText(20000));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_GT(top(), 0);
    EXPECT_EQ(selStart(), 0);
    EXPECT_FALSE(caretShows());
    const int down = top();
    key(Qt::Key_Up);
    EXPECT_LT(top(), down);
    key(Qt::Key_End);
    EXPECT_EQ(top(), box.verticalScrollBar()->maximum());
    key(Qt::Key_Home);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(selStart(), 0);
    EXPECT_FALSE(caretShows());
    key(Qt::Key_F7);
    key(Qt::Key_Down);
    EXPECT_GT(selStart(), 0);
}

TEST_F(Reading, AKeyThatMovesTheCaretBeginsAtWhatIsSeen) {
    show(sample::longText(100000));
    scrollTo(5000);
    key(Qt::Key_PageDown);
    EXPECT_GT(top(), 5000 + box.viewport()->height() / 2);
    EXPECT_LT(top(), 5000 + box.viewport()->height() + 50);
    EXPECT_FALSE(caretShows());
    scrollTo(9000);
    key(Qt::Key_Right);
    EXPECT_NEAR(top(), 9000, 40);
    EXPECT_TRUE(caretShows());
}

TEST_F(Reading, ASelectionKeepsItsOtherEndHoweverFarItIs) {
    show(sample::longText(100000));
    box.setSelStart(3);
    scrollTo(5000);
    key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 3);
    EXPECT_GT(selLength(), 0);
}

} // namespace velm
