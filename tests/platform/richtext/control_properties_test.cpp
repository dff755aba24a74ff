#include "control_support.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velm {
namespace {

using CharacterProperties = test::RichTextControlTest;
using ParagraphProperties = test::RichTextControlTest;

// ---- character properties

TEST_F(CharacterProperties, AreReadBackOnTheSelection) {
    load(u"abcdef");
    select(1, 3);
    control.setSelFontName(QStringLiteral("Courier New"));
    control.setSelFontSize(10.5);
    control.setSelBold(true);
    control.setSelItalic(true);
    control.setSelUnderline(true);
    control.setSelStrikeThru(true);
    control.setSelCharOffset(-60);
    control.setSelColor(255);
    EXPECT_EQ(control.selFontName(), u"Courier New");
    EXPECT_EQ(control.selFontSize(), 10.5);
    EXPECT_EQ(control.selBold(), true);
    EXPECT_EQ(control.selItalic(), true);
    EXPECT_EQ(control.selUnderline(), true);
    EXPECT_EQ(control.selStrikeThru(), true);
    EXPECT_EQ(control.selCharOffset(), -60);
    EXPECT_EQ(control.selColor(), 255);
    EXPECT_EQ(control.richText().charFormatAt(0), CharFormat());
    EXPECT_EQ(control.richText().charFormatAt(4), CharFormat());
}

TEST_F(CharacterProperties, AreNothingWhenMixed) {
    load(u"abcdef");
    select(1, 3);
    control.setSelFontName(QStringLiteral("Arial"));
    control.setSelFontSize(20);
    control.setSelBold(true);
    control.setSelItalic(true);
    control.setSelUnderline(true);
    control.setSelStrikeThru(true);
    control.setSelCharOffset(60);
    control.setSelColor(65280);
    select(0, 3);
    EXPECT_EQ(control.selFontName(), std::nullopt);
    EXPECT_EQ(control.selFontSize(), std::nullopt);
    EXPECT_EQ(control.selBold(), std::nullopt);
    EXPECT_EQ(control.selItalic(), std::nullopt);
    EXPECT_EQ(control.selUnderline(), std::nullopt);
    EXPECT_EQ(control.selStrikeThru(), std::nullopt);
    EXPECT_EQ(control.selCharOffset(), std::nullopt);
    EXPECT_EQ(control.selColor(), std::nullopt);
}

TEST_F(CharacterProperties, AreMixedAlsoWhenBothEndsAreAlike) {
    load(u"abc");
    select(1, 1);
    control.setSelBold(true);
    select(0, 3);
    EXPECT_EQ(control.selBold(), std::nullopt);
}

TEST_F(CharacterProperties, OfAnEmptySelectionAreThoseOfTheNextTypedText) {
    load(u"abc");
    control.setSelStart(1);
    control.setSelBold(true);
    control.setSelColor(255);
    EXPECT_EQ(control.selBold(), true);
    EXPECT_EQ(control.richText().charFormatAt(0), CharFormat());
    control.setSelText(u"xy");
    EXPECT_EQ(control.text(), u"axybc");
    EXPECT_FALSE(control.richText().charFormatAt(0).bold);
    EXPECT_TRUE(control.richText().charFormatAt(1).bold);
    EXPECT_EQ(control.richText().charFormatAt(2).colour, 255);
    EXPECT_FALSE(control.richText().charFormatAt(3).bold);
    control.setSelText(u"z");
    EXPECT_TRUE(control.richText().charFormatAt(3).bold);
}

TEST_F(CharacterProperties, OfAnEmptySelectionAreForgottenWhenTheCaretMoves) {
    load(u"abc");
    control.setSelStart(1);
    control.setSelBold(true);
    control.setSelStart(1);
    EXPECT_EQ(control.selBold(), false);
    control.setSelText(u"x");
    EXPECT_FALSE(control.richText().charFormatAt(1).bold);
}

TEST_F(CharacterProperties, WorkOnAnEmptyText) {
    control.setSelBold(true);
    control.setSelFontSize(30);
    EXPECT_EQ(control.selFontSize(), 30);
    control.setSelText(u"a");
    EXPECT_TRUE(control.richText().charFormatAt(0).bold);
    EXPECT_EQ(control.richText().charFormatAt(0).size, 60);
}

TEST_F(CharacterProperties, ImpossibleSizesChangeNothing) {
    load(u"abc");
    select(0, 3);
    for (const double points : {0.0, -3.0, 2160.5, std::nan("")})
        control.setSelFontSize(points);
    EXPECT_EQ(control.selFontSize(), 12);
    control.setSelFontSize(2160);
    EXPECT_EQ(control.selFontSize(), 2160);
}

// ---- paragraph properties

TEST_F(ParagraphProperties, ReachEveryParagraphThatTheSelectionTouches) {
    load(u"un\ndeux\ntrois\nquatre");
    select(5, 6); // within the second to within the third
    control.setSelAlignment(Alignment::Centre);
    control.setSelIndent(100);
    control.setSelRightIndent(200);
    control.setSelHangingIndent(-50);
    EXPECT_EQ(control.selAlignment(), Alignment::Centre);
    EXPECT_EQ(control.selIndent(), 100);
    EXPECT_EQ(control.selRightIndent(), 200);
    EXPECT_EQ(control.selHangingIndent(), -50);
    const RichText& text = control.richText();
    EXPECT_EQ(text.paraFormatAt(0), ParaFormat());
    EXPECT_EQ(text.paraFormatAt(4).startIndent, 100);
    EXPECT_EQ(text.paraFormatAt(16).startIndent, 100);
    EXPECT_EQ(text.paraFormatAt(17), ParaFormat());
}

TEST_F(ParagraphProperties, OfAnEmptySelectionAreThoseOfItsParagraph) {
    load(u"un\ndeux");
    control.setSelStart(6);
    control.setSelIndent(300);
    EXPECT_EQ(control.richText().paraFormatAt(4).startIndent, 300);
    EXPECT_EQ(control.richText().paraFormatAt(0).startIndent, 0);
}

TEST_F(ParagraphProperties, AreNothingWhenMixed) {
    load(u"un\ndeux");
    control.setSelStart(0);
    control.setSelAlignment(Alignment::Right);
    control.setSelIndent(1);
    control.setSelRightIndent(2);
    control.setSelHangingIndent(3);
    control.setSelBullet(true);
    control.setSelTabCount(1);
    control.setSelTab(0, 500);
    select(0, 5);
    EXPECT_EQ(control.selAlignment(), std::nullopt);
    EXPECT_EQ(control.selIndent(), std::nullopt);
    EXPECT_EQ(control.selRightIndent(), std::nullopt);
    EXPECT_EQ(control.selHangingIndent(), 0); // the bullet took the hanging indent back
    EXPECT_EQ(control.selBullet(), std::nullopt);
    EXPECT_EQ(control.selTabs(), std::nullopt);
    select(0, 4); // to right behind the first line end
    EXPECT_EQ(control.selAlignment(), Alignment::Right);
}

TEST_F(ParagraphProperties, ABulletSetsFurtherLinesInByTheBulletIndent) {
    load(u"un");
    control.setSelHangingIndent(70);
    control.setBulletIndent(283);
    EXPECT_EQ(control.selHangingIndent(), 70);
    control.setSelBullet(true);
    EXPECT_EQ(control.selBullet(), true);
    EXPECT_EQ(control.selHangingIndent(), 283);
    control.setBulletIndent(400);
    EXPECT_EQ(control.selHangingIndent(), 283);
    control.setSelBullet(false);
    EXPECT_EQ(control.selBullet(), false);
    EXPECT_EQ(control.selHangingIndent(), 0);
    control.setSelBullet(true);
    EXPECT_EQ(control.selHangingIndent(), 400);
}

TEST_F(ParagraphProperties, TabStopsAreCountedThenSetOneByOne) {
    load(u"un\tdeux");
    control.setSelTabCount(3);
    control.setSelTab(0, 2000);
    control.setSelTab(1, 1000);
    control.setSelTab(2, 3000);
    control.setSelTab(3, 4000);
    control.setSelTab(-1, 4000);
    EXPECT_THAT(control.selTabs().value(), ::testing::ElementsAre(1000, 2000, 3000));
    control.setSelTabCount(2);
    EXPECT_THAT(control.selTabs().value(), ::testing::ElementsAre(1000, 2000));
    control.setSelTabCount(0);
    EXPECT_THAT(control.selTabs().value(), ::testing::IsEmpty());
}

TEST_F(ParagraphProperties, TabStopsAreThirtyTwoAtMostAndPositive) {
    load(u"un");
    control.setSelTabCount(40);
    for (int i = 0; i < 40; ++i)
        control.setSelTab(i, i * 100);
    const std::vector<int> tabs = control.selTabs().value();
    EXPECT_EQ(tabs.size(), 31U);
    EXPECT_EQ(tabs.front(), 100);
    EXPECT_EQ(tabs.back(), 3100);
    control.setSelTabCount(-5);
    EXPECT_TRUE(control.selTabs().value().empty());
}

TEST_F(ParagraphProperties, TabStopsOfAnotherParagraphAreNotCarriedOver) {
    load(u"un\ndeux");
    control.setSelTabCount(2);
    control.setSelTab(0, 100);
    control.setSelStart(4);
    control.setSelTab(1, 200);
    EXPECT_TRUE(control.selTabs().value().empty());
}

} // namespace
} // namespace velm
