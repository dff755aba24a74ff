#include "richtext_support.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace test;

// ---- formats of new text

TEST(RichTextChanges, NewTextTakesTheFormatOfTheFirstReplacedCharacter) {
    RichText text = plain(u"abcd");
    text.changeCharacters(1, 1, {CharChange::Bold, bold()});
    text.replace(1, 2, u"XYZ");
    EXPECT_TRUE(text.charFormatAt(1).bold);
    EXPECT_TRUE(text.charFormatAt(3).bold);
    EXPECT_FALSE(text.charFormatAt(4).bold);
}

TEST(RichTextChanges, InsertedTextTakesTheFormatOfTheCharacterBefore) {
    RichText text = plain(u"abcd");
    text.changeCharacters(1, 1, {CharChange::Bold, bold()});
    EXPECT_TRUE(text.insertionFormat(2).bold);
    EXPECT_FALSE(text.insertionFormat(1).bold);
    text.replace(2, 0, u"X");
    EXPECT_TRUE(text.charFormatAt(2).bold);
}

TEST(RichTextChanges, AtAParagraphsStartInsertedTextTakesTheFormatOfTheCharacterBehind) {
    RichText text = plain(u"ab\ncd");
    text.changeCharacters(4, 1, {CharChange::Bold, bold()});
    EXPECT_TRUE(text.insertionFormat(4).bold);
    text.replace(4, 0, u"X");
    EXPECT_TRUE(text.charFormatAt(4).bold);
    text.changeCharacters(0, 1, {CharChange::Bold, bold()});
    text.replace(0, 0, u"X");
    EXPECT_TRUE(text.charFormatAt(0).bold);
}

TEST(RichTextChanges, InAnEmptyLastParagraphInsertedTextTakesTheFormatOfTheTail) {
    RichText text = plain(u"ab\n");
    text.setTail(text.intern(bold()), text.intern(indented(5)));
    EXPECT_TRUE(text.insertionFormat(4).bold);
    text.replace(4, 0, u"X");
    EXPECT_TRUE(text.charFormatAt(4).bold);
    EXPECT_EQ(indentAt(text, 4), 5);
}

TEST(RichTextChanges, TextTypedAfterDeletingAllKeepsTheFormatThatStood) {
    RichText text;
    text.append(u"abc", text.intern(bold()), text.intern(indented(7)));
    text.remove(0, 3);
    EXPECT_TRUE(text.charFormat(text.tailCharacter()).bold);
    text.replace(0, 0, u"x");
    EXPECT_TRUE(text.charFormatAt(0).bold);
    EXPECT_EQ(indentAt(text, 0), 7);
}

TEST(RichTextChanges, NewTextIsNeverAnObject) {
    RichText text;
    CharFormat format = bold();
    format.object = text.addObject({RichObject::Kind::Png, "png", 10, 10});
    text.append(u"\uFFFC", text.intern(format), 0);
    text.replace(1, 0, u"a");
    EXPECT_EQ(text.charFormatAt(1), bold());
    text.replace(0, 1, u"b");
    EXPECT_EQ(text.charFormatAt(0), bold());
    EXPECT_EQ(text.charFormatAt(1), bold());
}

TEST(RichTextChanges, TheTailCannotBeSetWhileTheLastParagraphHoldsText) {
    RichText text = plain(u"abc");
    text.setTail(text.intern(bold()), text.intern(indented(5)));
    EXPECT_EQ(text.charFormat(text.tailCharacter()), CharFormat());
    EXPECT_EQ(indentAt(text, 3), 0);
}

// ---- paragraphs

TEST(RichTextChanges, AJoinedParagraphKeepsTheFormatOfTheLast) {
    const QStringList three = {QStringLiteral("un"), QStringLiteral("deux"), QStringLiteral("trois")};
    RichText text = numbered(three);
    text.remove(1, 5); // from within the first into the second
    EXPECT_EQ(text.text(), u"uux\r\ntrois");
    EXPECT_EQ(indentAt(text, 0), 2);
    EXPECT_EQ(indentAt(text, 5), 3);
    text.remove(3, 2); // the line end alone
    EXPECT_EQ(indentAt(text, 0), 3);
}

TEST(RichTextChanges, ADeletionToTheTextsEndLeavesTheFormatOfTheLastParagraph) {
    RichText text = numbered({QStringLiteral("un"), QStringLiteral("deux"), QStringLiteral("trois")});
    text.remove(5, 999000);
    EXPECT_EQ(text.text(), u"un\r\nd");
    EXPECT_EQ(indentAt(text, 4), 3);
    EXPECT_EQ(indentAt(text, 0), 1);
    text.remove(4, 1);
    EXPECT_EQ(indentAt(text, 4), 3);
    EXPECT_EQ(text.paraFormat(text.tailParagraph()), indented(3));
}

TEST(RichTextChanges, ANewLineEndSplitsAParagraphInTwoOfItsFormat) {
    RichText text = numbered({QStringLiteral("un"), QStringLiteral("deux"), QStringLiteral("trois")});
    text.replace(6, 0, u"\n");
    EXPECT_EQ(text.text(), u"un\r\nde\r\nux\r\ntrois");
    EXPECT_EQ(indentAt(text, 4), 2);
    EXPECT_EQ(indentAt(text, 8), 2);
    text.replace(text.length(), 0, u"\n");
    EXPECT_EQ(indentAt(text, 12), 3);
    EXPECT_EQ(indentAt(text, text.length()), 3);
}

TEST(RichTextChanges, APasteBringsTheFormatsOfParagraphsThatEndInIt) {
    RichText text = numbered({QStringLiteral("un"), QStringLiteral("deux")});
    RichText other;
    other.append(u"A\r\n", 0, other.intern(indented(10)));
    other.append(u"B", 0, other.intern(indented(11)));
    EXPECT_EQ(text.replace(1, 0, other), 4);
    EXPECT_EQ(text.text(), u"uA\r\nBn\r\ndeux");
    EXPECT_EQ(indentAt(text, 0), 10);
    EXPECT_EQ(indentAt(text, 4), 1);
    EXPECT_EQ(indentAt(text, 8), 2);
}

TEST(RichTextChanges, APasteAtTheTextsEndLeavesTheLastParagraphItsFormat) {
    RichText text = numbered({QStringLiteral("un"), QStringLiteral("deux")});
    RichText other;
    other.append(u"A\r\nB", 0, other.intern(indented(10)));
    text.replace(text.length(), 0, other);
    EXPECT_EQ(indentAt(text, 4), 10);
    EXPECT_EQ(indentAt(text, 11), 2);
}

TEST(RichTextChanges, ATextMayBePastedIntoItself) {
    RichText text = plain(u"ab\ncd");
    text.replace(1, 1, text);
    EXPECT_EQ(text.text(), u"aab\r\ncd\r\ncd");
    const auto [first, second] = text.segments();
    text.replace(0, 0, first.isEmpty() ? second : first);
    EXPECT_TRUE(text.text().endsWith(u"aab\r\ncd\r\ncd"));
}

TEST(RichTextChanges, ParagraphChangesReachWhatTheRangeTouches) {
    const ParaChange change{ParaChange::Start, indented(100)};
    const QStringList three = {QStringLiteral("un"), QStringLiteral("deux"), QStringLiteral("trois")};
    RichText text = numbered(three);
    text.changeParagraphs(4, 6, change); // exactly the second with its line end
    EXPECT_EQ(indentAt(text, 0), 1);
    EXPECT_EQ(indentAt(text, 4), 100);
    EXPECT_EQ(indentAt(text, 10), 3);
    text = numbered(three);
    text.changeParagraphs(5, 0, change);
    EXPECT_EQ(indentAt(text, 4), 100);
    text = numbered(three);
    text.changeParagraphs(3, 8, change);
    EXPECT_EQ(indentAt(text, 0), 100);
    EXPECT_EQ(indentAt(text, 10), 100);
    text.changeParagraphs(text.length(), 0, {ParaChange::Start, indented(200)});
    EXPECT_EQ(indentAt(text, 10), 200);
}

TEST(RichTextChanges, AnEmptyLastParagraphCanBeFormatted) {
    RichText text = plain(u"un\n");
    text.changeParagraphs(4, 0, {ParaChange::Start, indented(9)});
    EXPECT_EQ(indentAt(text, 0), 0);
    EXPECT_EQ(indentAt(text, 4), 9);
    text.changeParagraphs(0, 4, {ParaChange::Start, indented(8)});
    EXPECT_EQ(indentAt(text, 0), 8);
    EXPECT_EQ(indentAt(text, 4), 9);
}

TEST(RichTextChanges, TabStopsAreKeptInOrder) {
    RichText text = plain(u"a");
    ParaChange change{ParaChange::Tabs, {}};
    change.values.tabs = {300, 100, 0, 300, -5};
    for (int i = 0; i < 40; ++i)
        change.values.tabs.push_back(1000 + i);
    text.changeParagraphs(0, 0, change);
    const std::vector<std::int32_t>& tabs = text.paraFormatAt(0).tabs;
    ASSERT_EQ(tabs.size(), 32U);
    EXPECT_EQ(tabs[0], 100);
    EXPECT_EQ(tabs[1], 300);
    EXPECT_EQ(tabs[31], 1029);
}

TEST(RichTextChanges, AChangeWithoutPropertiesIsNone) {
    RichText text = plain(u"abc");
    const quint64 revision = text.revision();
    text.changeCharacters(0, 3, {0, bold()});
    text.changeParagraphs(0, 3, {0, indented(4)});
    text.changeCharacters(1, 0, {CharChange::Bold, bold()});
    text.replace(1, 0, u"");
    text.remove(1, 0);
    EXPECT_EQ(text.revision(), revision);
    EXPECT_EQ(text.charFormatAt(0), CharFormat());
    EXPECT_EQ(indentAt(text, 0), 0);
}

TEST(RichTextChanges, ManyReplacementsFromLeftToRightAreLinear) {
    // One long paragraph: quadratic behaviour would move or scan 10^10 units and more.
    QString source;
    for (int i = 0; i < 50000; ++i)
        source += QStringLiteral("mot {L=x|COOOOOOO} fin ");
    RichText text = plain(source);
    const ParaChange change{ParaChange::Start, indented(5)};
    qsizetype count = 0;
    for (qsizetype at = text.indexOf(u'{'); at >= 0; at = text.indexOf(u'{', at)) {
        const qsizetype end = text.indexOf(u'}', at);
        text.replace(at, end + 1 - at, ++count % 2 == 0 ? u"x" : u"\r\n\f\r\n");
        text.changeParagraphs(at, 1, change);
    }
    EXPECT_EQ(count, 50000);
    EXPECT_EQ(text.length(), 50000 * 9 + 25000 * 1 + 25000 * 5);
    EXPECT_EQ(text.indexOf(u'{'), -1);
    EXPECT_EQ(indentAt(text, text.length()), 5);
}

} // namespace
} // namespace velm
