#include "control_support.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velm {
namespace {

struct Heard : RichTextObserver {
    int texts = 0;
    int selections = 0;
    int properties = 0;
    void richTextChanged() override { ++texts; }
    void richSelectionChanged() override { ++selections; }
    void richPropertiesChanged() override { ++properties; }
    std::vector<int> counts() const { return {texts, selections, properties}; }
};

using Content = test::RichTextControlTest;
using Selection = test::RichTextControlTest;
using Telling = test::RichTextControlTest;

// ---- content

TEST_F(Content, TextIsReplacedAndTheCaretGoesToTheStart) {
    load(u"un");
    select(1, 1);
    load(u"deux\ntrois");
    EXPECT_EQ(control.text(), u"deux\r\ntrois");
    EXPECT_EQ(control.selStart(), 0);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Content, TextMayComeFromTheControlItself) {
    load(u"abcdef");
    control.setText(control.richText().segments().first.sliced(2));
    EXPECT_EQ(control.text(), u"cdef");
}

TEST_F(Content, ALoadDropsTheLastParagraphEnd) {
    load(u"avant");
    select(2, 1);
    control.setTextRtf("{\\rtf1 un\\par deux\\par }");
    EXPECT_EQ(control.text(), u"un\r\ndeux");
    EXPECT_EQ(control.selStart(), 0);
}

TEST_F(Content, WhatIsNoRtfGivesAnEmptyText) {
    load(u"avant");
    select(2, 3);
    control.setTextRtf("simple text");
    EXPECT_EQ(control.text(), QString());
    EXPECT_EQ(control.selStart(), 0);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Content, DirectChangesClampTheSelection) {
    load(u"0123456789");
    select(4, 5);
    control.richTextForEdit().remove(0, 6);
    control.notifyChanged();
    EXPECT_EQ(control.selStart(), 4);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Content, TheWholeIsGivenAsRtf) {
    load(u"un\ndeux");
    RichTextControl other;
    other.setTextRtf(control.textRtf());
    EXPECT_EQ(other.text(), u"un\r\ndeux");
}

// ---- selection

TEST_F(Selection, PositionsAreClampedToTheText) {
    load(u"abc");
    select(-4, 2);
    EXPECT_EQ(control.selStart(), 0);
    EXPECT_EQ(control.selText(), u"ab");
    select(2, 999000);
    EXPECT_EQ(control.selLength(), 1);
    control.setSelLength(-1);
    EXPECT_EQ(control.selLength(), 0);
    control.setSelStart(50);
    EXPECT_EQ(control.selStart(), 3);
}

TEST_F(Selection, SettingTheStartEmptiesTheSelection) {
    load(u"abcdef");
    select(1, 3);
    control.setSelStart(1);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Selection, NewTextTakesThePlaceOfTheSelectionAndTheCaretStandsBehindIt) {
    load(u"abcdef");
    select(1, 3);
    control.setSelText(u"X\nY");
    EXPECT_EQ(control.text(), u"aX\r\nYef");
    EXPECT_EQ(control.selStart(), 5);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Selection, EmptyTextDeletesTheSelection) {
    load(u"ab{I=COxx}cd");
    select(2, 8);
    control.setSelText(u"");
    EXPECT_EQ(control.text(), u"abcd");
    EXPECT_EQ(control.selStart(), 2);
}

TEST_F(Selection, TextPutBetweenCrAndLfComesBeforeThem) {
    load(u"a\nb");
    control.setSelStart(2);
    EXPECT_EQ(control.selStart(), 2);
    control.setSelText(u"x");
    EXPECT_EQ(control.text(), u"ax\r\nb");
    EXPECT_EQ(control.selStart(), 2);
}

TEST_F(Selection, DeletingHalfALineEndDeletesIt) {
    load(u"a\nb");
    select(1, 1);
    EXPECT_EQ(control.selText(), u"\r");
    control.setSelText(u"-");
    EXPECT_EQ(control.text(), u"a-b");
    EXPECT_EQ(control.selStart(), 2);
}

TEST_F(Selection, RtfInASelectionKeepsItsLastParagraphEnd) {
    load(u"ab");
    select(1, 0);
    EXPECT_TRUE(control.setSelRtf("{\\rtf1 un\\par deux\\par }"));
    EXPECT_EQ(control.text(), u"aun\r\ndeux\r\nb");
    EXPECT_EQ(control.selStart(), 11);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Selection, RtfBringsItsFormatAndLeavesThatOfTheNeighbours) {
    load(u"ab");
    select(1, 0);
    EXPECT_TRUE(control.setSelRtf("{\\rtf1\\i xy}"));
    EXPECT_EQ(control.text(), u"axyb");
    select(1, 2);
    EXPECT_EQ(control.selItalic(), true);
    select(0, 1);
    EXPECT_EQ(control.selItalic(), false);
    select(3, 1);
    EXPECT_EQ(control.selItalic(), false);
}

TEST_F(Selection, WhatIsNoRtfLeavesTheSelectionAsItIs) {
    load(u"abcd");
    select(1, 2);
    Heard heard;
    control.setObserver(&heard);
    EXPECT_FALSE(control.setSelRtf("xy"));
    EXPECT_EQ(control.text(), u"abcd");
    EXPECT_EQ(control.selLength(), 2);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(0, 0, 0));
}

TEST_F(Selection, ASelectionIsGivenAsRtf) {
    load(u"abcd");
    select(1, 2);
    RichTextControl other;
    other.setTextRtf(control.selRtf());
    EXPECT_EQ(other.text(), u"bc");
}

TEST_F(Selection, UpToStopsOnTheCharacterForwardAndBehindItBackward) {
    load(u"un deux\ntrois");
    control.upTo(u" ", true, false);
    EXPECT_EQ(control.selStart(), 2);
    control.upTo(u"\r\n", true, false);
    EXPECT_EQ(control.selStart(), 7);
    control.setSelStart(12);
    control.upTo(u"\r\n", false, false);
    EXPECT_EQ(control.selStart(), 9);
    control.upTo(u"\r\n", false, false);
    EXPECT_EQ(control.selStart(), 9);
}

TEST_F(Selection, UpToWithoutAHitGoesToTheEdgeOfTheText) {
    load(u"abc");
    control.setSelStart(1);
    control.upTo(u"z", true, false);
    EXPECT_EQ(control.selStart(), 3);
    control.upTo(u"z", false, false);
    EXPECT_EQ(control.selStart(), 0);
}

TEST_F(Selection, UpToNegatedStopsWhereAnotherCharacterStands) {
    load(u"   abc   ");
    control.upTo(u" ", true, true);
    EXPECT_EQ(control.selStart(), 3);
    control.setSelStart(9);
    control.upTo(u" ", false, true);
    EXPECT_EQ(control.selStart(), 6);
}

TEST_F(Selection, UpToStartsFromTheEdgesOfTheSelection) {
    load(u"a.bcd.e");
    select(0, 3);
    control.upTo(u".", true, false);
    EXPECT_EQ(control.selStart(), 5);
    EXPECT_EQ(control.selLength(), 0);
}

TEST_F(Selection, FindSelectsTheHit) {
    load(u"Le bail, le Bail");
    EXPECT_EQ(control.find(u"BAIL"), 3);
    EXPECT_EQ(control.selText(), u"bail");
    EXPECT_EQ(control.find(u"bail", 4), 12);
    EXPECT_EQ(control.selStart(), 12);
}

TEST_F(Selection, FindWithoutAHitLeavesTheSelection) {
    load(u"Le bail");
    select(1, 2);
    EXPECT_EQ(control.find(u"rien"), -1);
    EXPECT_EQ(control.find(u""), -1);
    EXPECT_EQ(control.selStart(), 1);
    EXPECT_EQ(control.selLength(), 2);
}

TEST_F(Selection, FindBeginsAtTheSelectionUnlessAStartIsGiven) {
    load(u"un un un");
    control.setSelStart(1);
    EXPECT_EQ(control.find(u"un"), 3);
    EXPECT_EQ(control.find(u"un", 0), 0);
    EXPECT_EQ(control.find(u"un", 4, 7), -1);
}

// ---- telling

TEST_F(Telling, EachChangeIsTold) {
    Heard heard;
    control.setObserver(&heard);
    load(u"abc");
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(1, 1, 0));
    control.setSelStart(0);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(1, 2, 0));
    control.setSelLength(2);
    control.setSelBold(true);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(2, 3, 0));
    control.setBackColor(0x00FF00);
    control.setBackColor(0x00FF00);
    control.setVisible(false);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(2, 3, 2));
    EXPECT_EQ(control.backColor(), 0x00FF00);
    EXPECT_FALSE(control.visible());
}

TEST_F(Telling, WithRedrawOffEverythingIsToldOnceWhenItComesOn) {
    Heard heard;
    control.setObserver(&heard);
    control.setRedraw(false);
    EXPECT_FALSE(control.redraw());
    load(u"abc");
    select(0, 2);
    control.setSelBold(true);
    control.setSelText(u"x");
    control.setBackColor(1);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(0, 0, 0));
    control.setRedraw(true);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(1, 1, 1));
    control.setRedraw(true);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(1, 1, 1));
}

TEST_F(Telling, OnlyWhatChangedIsToldWhenRedrawComesOn) {
    load(u"abc");
    Heard heard;
    control.setObserver(&heard);
    control.setRedraw(false);
    control.setRedraw(true);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(0, 0, 0));
    control.setRedraw(false);
    control.setSelStart(2);
    control.setRedraw(true);
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(0, 1, 0));
}

TEST_F(Telling, TheObserverFindsTheNewStateWhenItHears) {
    struct Looker : RichTextObserver {
        RichTextControl* control = nullptr;
        QString seen;
        qsizetype caret = -1;
        void richTextChanged() override {
            seen = control->text();
            caret = control->selStart();
        }
        void richSelectionChanged() override {}
        void richPropertiesChanged() override {}
    } looker;
    looker.control = &control;
    load(u"abc");
    select(1, 2);
    control.setObserver(&looker);
    control.setSelText(u"xyz");
    EXPECT_EQ(looker.seen, u"axyz");
    EXPECT_EQ(looker.caret, 4);
    control.setObserver(nullptr);
    control.setSelText(u"!");
    EXPECT_EQ(looker.seen, u"axyz");
}

TEST_F(Telling, DirectChangesAreToldByTheNotification) {
    load(u"abc");
    Heard heard;
    control.setObserver(&heard);
    control.richTextForEdit().replace(0, 0, u"x");
    EXPECT_EQ(heard.texts, 0);
    control.notifyChanged();
    EXPECT_THAT(heard.counts(), ::testing::ElementsAre(1, 0, 0));
}

} // namespace
} // namespace velm
