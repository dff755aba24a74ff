// Texts that no publisher writes: the view takes them in and lays them out bit by bit, and answers meanwhile.
#include "viewfixture.h"

#include <QTextBlock>

#ifdef VELM_ADDRESS_SANITIZER
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Bytes of memory that are in use.
std::size_t taken() {
#ifdef VELM_ADDRESS_SANITIZER
    return __sanitizer_get_current_allocated_bytes(); // it keeps accounts of its own
#else
    const auto account = mallinfo2();
    return account.uordblks + account.hblkhd;
#endif
}

class LongTexts : public Box {
protected:
    /// More than is taken in at once.
    static RichText manyLines() {
        QStringList lines;
        for (int i = 0; i < 30'000; ++i)
            lines += u"ligne %1"_s.arg(i);
        return sample::plain(lines);
    }
    static RichText oneRun(const QString& text) {
        RichText rich;
        rich.append(text, rich.intern(CharFormat{}), rich.intern(ParaFormat{}));
        return rich;
    }
    QString lineAtTop() {
        const PaperLayout::Line line = layout().lineAt(box.verticalScrollBar()->value());
        return box.document()->findBlock(line.start).text();
    }
    int blocksWithLines() {
        int count = 0;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
            count += block.layout()->lineCount() > 0 ? 1 : 0;
        return count;
    }
};

} // namespace

TEST_F(LongTexts, ComeInBetweenTwoRoundsOfEvents) {
    show(manyLines());
    EXPECT_FALSE(box.isSettled());
    int blocks = box.document()->blockCount();
    EXPECT_GT(blocks, 1000);
    int rounds = 0;
    for (; blocks < 30'000; ++rounds) {
        QApplication::processEvents();
        const int now = box.document()->blockCount();
        ASSERT_GE(now, blocks);
        ASSERT_LE(now - blocks, 6000);
        blocks = now;
    }
    EXPECT_GT(rounds, 5);
    settle();
    EXPECT_EQ(box.document()->blockCount(), 30'000);
    EXPECT_EQ(box.document()->lastBlock().text(), u"ligne 29999"_s);
}

TEST_F(LongTexts, TheWindowAnswersWhileTheyComeIn) {
    show(manyLines());
    key(Qt::Key_PageDown);
    EXPECT_GT(selStart(), 100);
    EXPECT_GT(box.verticalScrollBar()->value(), 200);
    const QPoint at = pointOf(selStart() + 5);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, at);
    const qsizetype clicked = selStart();
    EXPECT_FALSE(box.isSettled());
    settle();
    EXPECT_EQ(selStart(), clicked);
    EXPECT_TRUE(caretIsVisible());
}

TEST_F(LongTexts, CanBeClosedOrReplacedWhileTheyComeIn) {
    auto other = std::make_unique<RichTextBox>();
    other->control().richTextForEdit() = manyLines();
    other->control().notifyChanged();
    other->show();
    QApplication::processEvents();
    EXPECT_FALSE(other->isSettled());
    other.reset();
    show(manyLines());
    QApplication::processEvents();
    show(sample::plain({u"un"_s, u"deux"_s}));
    settle();
    EXPECT_EQ(box.toPlainText(), u"un\ndeux"_s);
}

TEST_F(LongTexts, APlaceFarAheadShowsAsSoonAsItIsThere) {
    show(manyLines());
    const qsizetype place = find(u"ligne 25555");
    box.setSelStart(place);
    box.setSelLength(11);
    EXPECT_EQ(selStart(), place);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
    EVENTUALLY_WITHIN(60000, box.textCursor().selectedText() == u"ligne 25555");
    EXPECT_TRUE(caretIsVisible());
    EXPECT_EQ(selStart(), place);
    settle();
    EXPECT_TRUE(caretIsVisible());
    EXPECT_EQ(box.textCursor().selectedText(), u"ligne 25555"_s);
}

TEST_F(LongTexts, WhoScrollsMeanwhileIsNotTakenElsewhere) {
    show(manyLines());
    box.reveal(find(u"ligne 25555"));
    wheel(-3, Qt::NoModifier);
    const QString top = lineAtTop();
    EXPECT_NE(top, u"ligne 0"_s);
    settle();
    EXPECT_EQ(lineAtTop(), top);
}

TEST_F(LongTexts, AWindowThatIsShownMeanwhileShowsItsPlaceToo) {
    box.hide();
    show(manyLines());
    const qsizetype place = find(u"ligne 25555");
    box.setSelStart(place);
    box.show();
    EXPECT_FALSE(box.isSettled());
    settle();
    EXPECT_TRUE(caretIsVisible());
    EXPECT_GT(box.verticalScrollBar()->value(), 100'000);
}

TEST_F(LongTexts, MarksFarDownKeepThePlace) {
    show(manyLines());
    settle();
    box.reveal(find(u"ligne 25000"));
    const QString top = lineAtTop();
    CharChange mark;
    mark.mask = CharChange::Colour;
    mark.values.colour = 255;
    box.control().richTextForEdit().changeCharacters(10, 5, mark);
    box.control().notifyChanged();
    EXPECT_FALSE(box.isSettled());
    settle();
    EXPECT_EQ(lineAtTop(), top);
}

TEST_F(LongTexts, TheKeysToTheEndMeanTheWholeText) {
    show(manyLines());
    const qsizetype length = box.control().length();
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 0);
    EXPECT_EQ(selLength(), length);
    box.setSelStart(20);
    key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 20);
    EXPECT_EQ(selLength(), length - 20);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), length);
    EXPECT_EQ(selLength(), 0);
    EXPECT_FALSE(box.isSettled());
    settle();
    EXPECT_EQ(box.textCursor().position(), box.document()->characterCount() - 1);
    EXPECT_TRUE(caretIsVisible());
}

TEST_F(LongTexts, WhatIsNotThereYetIsNoText) {
    show(manyLines());
    box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum() / 10 * 9);
    const QPoint nothing(layout().page().textLeft + 4, 100);
    EXPECT_EQ(layout().characterAt(nothing + QPointF(0, box.verticalScrollBar()->value())), -1);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, nothing);
    EXPECT_LT(selStart(), box.control().length());
    box.viewport()->grab();
    settle();
    EXPECT_GT(box.document()->blockCount(), 29'000);
}

TEST_F(LongTexts, AWordWithoutEndIsLookedAtOnce) {
    show(oneRun(QString(1'000'000, u'x')));
    settle();
    EXPECT_GE(layout().work().characters, 1'000'000);
    EXPECT_LE(layout().work().characters, 1'300'000);
    EXPECT_EQ(box.document()->blockCount(), 1'000'000 / ShownText::longestPart + 1);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 1'000'000);
    EXPECT_TRUE(caretIsVisible());
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selLength(), 1'000'000);
}

TEST_F(LongTexts, TheCaretWalksThroughThePartsOfAParagraph) {
    const QString text = u"mot "_s.repeated(ShownText::longestPart / 2) + QString(2 * ShownText::longestPart, u'x');
    show(oneRun(text));
    ASSERT_EQ(box.document()->blockCount(), 4);
    for (qsizetype place = ShownText::longestPart - 10; place < ShownText::longestPart + 10;) {
        box.setSelStart(place);
        key(Qt::Key_Right);
        ASSERT_EQ(selStart(), place + 1);
        place = selStart();
    }
    const int border = box.document()->lastBlock().position();
    box.setSelStart(ShownText(box.control().richText()).toModel(border) - 3);
    const qsizetype start = selStart();
    for (int i = 0; i < 7; ++i) {
        key(Qt::Key_Right); // one of them goes from the end of a line to the beginning of the next
    }
    EXPECT_EQ(selStart(), start + 6);
}

TEST_F(LongTexts, SettlingKeepsNoLinesOfWhatWasNotShown) {
    show(sample::longText(600'000));
    settle();
    EXPECT_GT(box.document()->blockCount(), 2000);
    EXPECT_LT(blocksWithLines(), 200);
}

TEST_F(LongTexts, LinesOfWhatWasShownLongAgoGo) {
    show(manyLines());
    settle();
    for (int i = 0; i < 400; ++i)
        box.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_GT(box.verticalScrollBar()->value(), 150'000);
    EXPECT_LE(blocksWithLines(), 2100);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(box.document()->firstBlock().layout()->lineCount(), 1);
}

TEST_F(LongTexts, TextIsDrawnHoweverFarDown) {
    RichText rich;
    ParaFormat format;
    format.spaceBefore = 32767;
    rich.append(u"mmmm\r\n"_s.repeated(4000), rich.intern(CharFormat{}), rich.intern(format));
    show(rich);
    box.setZoom(RichTextBox::mostZoom);
    settle();
    EXPECT_GT(layout().documentSize().height(), 35e6);
    box.setSelStart(rich.length() - 6);
    const QImage image = box.viewport()->grab().toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = layout().page().textLeft + 12; x < layout().page().textLeft + 200; ++x)
            dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    EXPECT_GT(dark, 500);
}

TEST_F(LongTexts, AParagraphOfManyMegabytesTakesAtMostTwentyTimesItsSize) {
    show(sample::lawArticle());
    settle();
    const std::size_t before = taken();
    constexpr std::size_t characters = 6'000'000;
    show(oneRun(u"le prix du bien "_s.repeated(characters / 16)));
    std::size_t most = taken();
    while (!box.isSettled()) {
        QApplication::processEvents();
        most = std::max(most, taken());
    }
    EXPECT_LE(most - before, 20 * characters);
    EXPECT_GE(most - before, 2 * characters);
}

} // namespace velm
