// Where a view stands while heights become known: what the screen shows is laid out before it is painted, the bar knows
// the text's height, and what is read stays where it is.
#include "viewfixture.h"

#include <QMouseEvent>
#include <QTextBlock>

#include <functional>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class PlaceTest : public Box {
protected:
    /// Paragraphs that come out higher or lower than anybody would think beforehand.
    void paragraphs(const QString& letters) {
        RichText text;
        for (int i = 0; i < 400; ++i)
            text.append(letters.repeated(40 + i % 7) + u"\r\n"_s, text.intern(CharFormat{}), text.intern(ParaFormat{}));
        show(text);
    }
    QScrollBar& bar() { return *box.verticalScrollBar(); }
    /// What the toolkit does when it looks for something there.
    void layOutAbove() {
        for (QTextBlock block = box.document()->begin(); block.blockNumber() < 100; block = block.next())
            layout().blockBoundingRect(block);
    }
    int startOfTop() { return layout().lineAt(bar().value()).start; }
    /// Painting finds nothing new, and the bar reaches to the end.
    void expectReady(const std::string& when) {
        const QSizeF size = layout().documentSize();
        EXPECT_EQ(bar().maximum(), static_cast<int>(size.height()) - box.viewport()->height()) << when;
        const int top = bar().value();
        box.viewport()->grab();
        EXPECT_EQ(layout().documentSize(), size) << when;
        EXPECT_EQ(bar().value(), top) << when;
    }
};

const QString narrow = u"ill il "_s;
const QString broad = u"MWM WM "_s;

} // namespace

TEST_F(PlaceTest, WhatTheScreenShowsIsLaidOutBeforeItIsPainted) {
    for (const QString& letters : {narrow, broad}) {
        paragraphs(letters);
        expectReady("at the beginning");
        box.setZoom(150);
        expectReady("larger at the beginning");
        bar().setValue(bar().maximum() / 2);
        expectReady("in the middle");
        box.setZoom(70);
        expectReady("smaller in the middle");
        box.resize(box.width() - 300, box.height());
        expectReady("at another width");
        box.reveal(box.control().length() / 4 * 3);
        expectReady("at a place");
        key(Qt::Key_End, Qt::ControlModifier);
        expectReady("at the end");
        box.setZoom(100);
        expectReady("larger at the end");
        box.setZoom(60);
        expectReady("smaller at the end");
        box.resize(900, 600);
    }
}

TEST_F(PlaceTest, WhatIsLaidOutAboveMovesNothingOfWhatIsRead) {
    const std::vector<std::pair<const char*, std::function<void()>>> next{
        {"an event of the screen",
         [this] {
             QEvent event(QEvent::ToolTip);
             QApplication::sendEvent(box.viewport(), &event);
         }},
        {"a key", [this] { key(Qt::Key_Shift); }},
        {"another size", [this] { box.setZoom(110); }},
        {"other looks", [this] { box.control().notifyChanged(); }},
    };
    for (const auto& [name, happen] : next) {
        paragraphs(broad);
        box.setZoom(100);
        box.reveal(box.control().length() / 2);
        ASSERT_FALSE(box.isSettled());
        const int start = startOfTop();
        layOutAbove();
        ASSERT_NE(startOfTop(), start) << name;
        happen();
        EXPECT_EQ(startOfTop(), start) << name;
    }
}

TEST_F(PlaceTest, AHeightAboveTheTextStaysAsItIsAtAnySize) {
    paragraphs(broad);
    bar().setValue(10);
    ASSERT_GT(layout().page().margin, 10);
    box.setZoom(200);
    EXPECT_EQ(bar().value(), 10);
}

TEST_F(PlaceTest, TheLowestEdgeOfALineStaysOfThatLineWhenItGetsSmaller) {
    paragraphs(broad);
    box.setZoom(300);
    const PaperLayout::Line line = layout().lineOf(box.document()->findBlockByNumber(200).position());
    box.reveal(box.control().length() / 2);
    bar().setValue(static_cast<int>(layout().lineOf(line.start).top) + line.height - 1);
    ASSERT_EQ(startOfTop(), line.start);
    box.setZoom(50);
    EXPECT_EQ(startOfTop(), line.start);
}

TEST_F(PlaceTest, APlaceBelowTheLargestLettersIsInSightAtOnce) {
    RichText text;
    CharFormat large;
    large.size = 144;
    qsizetype place = 0;
    for (int i = 0; i < 400; ++i) {
        place = i == 200 ? text.length() : place;
        text.append(u"mot\r\n"_s, text.intern(i >= 180 && i < 200 ? large : CharFormat{}), text.intern(ParaFormat{}));
    }
    show(text);
    box.reveal(place);
    const PaperLayout::Line line = layout().lineOf(ShownText(box.control().richText()).toDocument(place));
    EXPECT_GE(line.top, bar().value());
    EXPECT_LE(line.top + line.height, bar().value() + box.viewport()->height());
    expectReady("below large letters");
}

TEST_F(PlaceTest, APlaceInSightMovesNothingAndTheFirstOneShowsTheMargin) {
    paragraphs(broad);
    bar().setValue(10);
    box.reveal(600);
    EXPECT_EQ(bar().value(), 10);
    expectReady("around a place in sight");
    box.reveal(0);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(PlaceTest, AMarkUnderThePointerIsLeftWhenTheTextMovesAway) {
    paragraphs(broad);
    settle();
    box.setLinkRanges({{0, 6}});
    const QPointF at = pointOf(2);
    QMouseEvent move(QEvent::MouseMove, at, box.viewport()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &move);
    const QSignalSpy hovered(&box, &RichTextBox::linkHovered);
    bar().setValue(300);
    ASSERT_EQ(hovered.count(), 1);
    EXPECT_EQ(hovered.first().first().toInt(), -1);
}

TEST_F(PlaceTest, WhoReadsTheEndKeepsItInSightWhateverSizeTheLettersTake) {
    for (const QString& letters : {narrow, broad}) {
        for (const int larger : {100, 200, 300}) {
            box.setZoom(larger);
            paragraphs(letters);
            bar().setValue(bar().maximum());
            bar().setValue(bar().maximum()); // what came into sight may have moved it
            for (const int parts : {8, 5, 3}) {
                const int smaller = larger * parts / 10;
                box.setZoom(smaller);
                EXPECT_EQ(bar().value(), bar().maximum()) << larger << " to " << smaller;
                expectReady("smaller at the end");
            }
            settle();
            EXPECT_EQ(bar().value(), bar().maximum()) << larger;
        }
    }
}

TEST_F(PlaceTest, ATextThatIsWhollyInSightStaysAtItsBeginningWhenTheLettersGrow) {
    RichText text;
    text.append(u"ligne\r\n"_s.repeated(12), text.intern(CharFormat{}), text.intern(ParaFormat{}));
    show(text);
    ASSERT_EQ(bar().maximum(), 0);
    for (const int larger : {200, 300, 400}) {
        box.setZoom(larger);
        EXPECT_EQ(bar().value(), 0) << larger;
        settle();
        EXPECT_EQ(bar().value(), 0) << larger;
    }
    EXPECT_GT(bar().maximum(), 0);
}

TEST_F(PlaceTest, ATextThatWasWhollyInSightStaysAtItsBeginningInANarrowerView) {
    int higher = 0;
    for (int width = 880; width >= 200; width -= 40) {
        box.resize(900, 600);
        RichText text;
        text.append(broad.repeated(120) + u"\r\n"_s, text.intern(CharFormat{}), text.intern(ParaFormat{}));
        show(text);
        settle();
        ASSERT_EQ(bar().maximum(), 0);
        box.resize(width, 600);
        EXPECT_EQ(bar().value(), 0) << width;
        box.viewport()->grab();
        EXPECT_EQ(bar().value(), 0) << width;
        settle();
        EXPECT_EQ(bar().value(), 0) << width;
        higher += bar().maximum() > 0 ? 1 : 0;
    }
    EXPECT_GT(higher, 0);
}

// ---- a place that waits until its text has come in again

namespace {

class WaitingPlaceTest : public PlaceTest {
protected:
    /// More lines than are taken in at once, each twice as high as it is thought; the screen shows one far down.
    WaitingPlaceTest() {
        RichText text;
        text.append((u"MWMWM "_s.repeated(10) + u"\r\n"_s).repeated(24'000), text.intern(CharFormat{}),
                    text.intern(ParaFormat{}));
        show(text);
        settle();
        box.reveal(box.control().length() / 10 * 9);
        start_ = startOfTop();
    }
    void mark() {
        CharChange change;
        change.mask = CharChange::Colour;
        change.values.colour = ++colour_;
        box.control().richTextForEdit().changeCharacters(10, 5, change);
        box.control().notifyChanged();
        ASSERT_FALSE(layout().isAvailable(start_));
    }

    int start_ = 0;

private:
    int colour_ = 0;
};

} // namespace

TEST_F(WaitingPlaceTest, ComesBackUnderTheEyes) {
    mark();
    settle();
    EXPECT_EQ(startOfTop(), start_);
}

TEST_F(WaitingPlaceTest, OutlastsAnotherMark) {
    mark();
    mark();
    settle();
    EXPECT_EQ(startOfTop(), start_);
}

TEST_F(WaitingPlaceTest, IsGivenUpByWhoWantsToSeeAnotherOne) {
    mark();
    box.reveal(0);
    settle();
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(WaitingPlaceTest, IsGivenUpByWhoScrolls) {
    mark();
    bar().setValue(500);
    const int start = startOfTop();
    settle();
    EXPECT_EQ(startOfTop(), start);
}

TEST_F(WaitingPlaceTest, GoesWithItsText) {
    mark();
    paragraphs(narrow);
    settle();
    EXPECT_EQ(bar().value(), 0);
}

} // namespace velm
