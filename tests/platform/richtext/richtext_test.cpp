#include "richtext_support.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace velm {
namespace {

using namespace test;

// ---- reading

TEST(RichText, AnEmptyTextHasTheDefaultFormats) {
    const RichText text;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.text(), QString());
    EXPECT_EQ(text.charFormatAt(0), CharFormat());
    EXPECT_EQ(text.paraFormatAt(0), ParaFormat());
    EXPECT_EQ(text.paragraphStart(0), 0);
    EXPECT_EQ(text.paragraphEnd(0), 0);
    EXPECT_EQ(text.indexOf(u'a'), -1);
    EXPECT_EQ(text.indexOf(u"a"), -1);
    EXPECT_EQ(text.lastIndexOf(u'a', 0), -1);
}

TEST(RichText, PositionsOutsideTheTextAreClamped) {
    RichText text = plain(u"abc");
    EXPECT_EQ(text.at(-1), u'\0');
    EXPECT_EQ(text.at(3), u'\0');
    EXPECT_EQ(text.text(-5, 2), u"ab");
    EXPECT_EQ(text.text(2, 999000), u"c");
    EXPECT_EQ(text.text(9, 1), QString());
    EXPECT_EQ(text.text(1, -1), QString());
    EXPECT_EQ(text.charFormatIdAt(-7), text.charFormatIdAt(0));
    EXPECT_EQ(text.paraFormatIdAt(99), text.paraFormatIdAt(0));
    EXPECT_EQ(text.indexOf(u'a', -3), 0);
    EXPECT_EQ(text.indexOf(u"a", 99), -1);
    EXPECT_EQ(text.lastIndexOf(u'c', 99), 2);
    EXPECT_EQ(text.lastIndexOf(u'c', -1), -1);
    EXPECT_EQ(text.lastIndexOf(u'c', std::numeric_limits<qsizetype>::min()), -1);
    const qsizetype far = std::numeric_limits<qsizetype>::max();
    EXPECT_EQ(text.replace(far, far, u"d"), 1);
    EXPECT_EQ(text.text(), u"abcd");
    text.remove(2, far);
    EXPECT_EQ(text.text(), u"ab");
}

TEST(RichText, SearchFindsHitsAcrossThePlaceOfTheLastChange) {
    for (qsizetype place = 0; place <= 9; ++place) {
        RichText text = plain(u"..{S=a}..");
        text.replace(place, 0, u"x");
        text.remove(place, 1);
        EXPECT_EQ(text.indexOf(u"{S=a}"), 2) << place;
        EXPECT_EQ(text.indexOf(u"{S=a}", 2), 2) << place;
        EXPECT_EQ(text.indexOf(u"{S=a}", 3), -1) << place;
        EXPECT_EQ(text.indexOf(u'}'), 6) << place;
        EXPECT_EQ(text.indexOf(u"..", 1), 7) << place;
    }
}

TEST(RichText, ParagraphsAreBoundedByTheirLineEnds) {
    const RichText text = plain(u"un\r\n\r\ndeux");
    EXPECT_EQ(text.paragraphStart(3), 0);
    EXPECT_EQ(text.paragraphEnd(0), 4);
    EXPECT_EQ(text.paragraphStart(4), 4);
    EXPECT_EQ(text.paragraphEnd(5), 6);
    EXPECT_EQ(text.paragraphStart(10), 6);
    EXPECT_EQ(text.paragraphEnd(10), 10);
}

TEST(RichText, UnknownFormatNumbersStandForTheDefault) {
    RichText text;
    text.append(u"abc", 4711, 4711);
    EXPECT_EQ(text.charFormatAt(1), CharFormat());
    EXPECT_EQ(text.paraFormatAt(1), ParaFormat());
    text.changeCharacters(0, 3, {CharChange::Bold, bold()});
    EXPECT_EQ(text.charFormatAt(1), bold());
}

TEST(RichText, EqualFormatsHaveOneNumber) {
    RichText text;
    EXPECT_EQ(text.intern(CharFormat()), 0U);
    EXPECT_EQ(text.intern(ParaFormat()), 0U);
    const FormatId id = text.intern(bold());
    EXPECT_EQ(text.intern(bold()), id);
    EXPECT_NE(id, 0U);
    // A reference stays good while others come.
    const CharFormat& kept = text.charFormat(id);
    for (int i = 0; i < 1000; ++i) {
        CharFormat other;
        other.size = 100 + i;
        text.intern(other);
    }
    EXPECT_EQ(kept, bold());
}

TEST(RichText, RunsAreMaximalAlsoAcrossThePlaceOfTheLastChange) {
    RichText text = plain(u"aabbbbcc");
    text.changeCharacters(2, 4, {CharChange::Bold, bold()});
    text.replace(4, 0, u"x");
    text.remove(4, 1);
    std::vector<std::pair<qsizetype, qsizetype>> runs;
    text.forEachRun(1, 6, [&](qsizetype start, qsizetype count, FormatId) { runs.emplace_back(start, count); });
    EXPECT_THAT(runs, ::testing::ElementsAre(std::pair(1, 1), std::pair(2, 4), std::pair(6, 1)));
}

// ---- line ends

TEST(RichText, EveryLineEndBecomesCrLf) {
    EXPECT_EQ(plain(u"a\nb\rc\r\nd\n\re\r\r\nf").text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\nf");
    RichText text;
    EXPECT_EQ(text.replace(0, 0, u"\n"), 2);
    EXPECT_EQ(text.replace(0, 0, u"\r"), 2);
    EXPECT_EQ(text.text(), u"\r\n\r\n");
    text.append(u"x\ny", 0, 0);
    EXPECT_EQ(text.text(), u"\r\n\r\nx\r\ny");
}

TEST(RichText, AFormFeedStaysACharacter) {
    RichText text = plain(u"a{FF}b");
    EXPECT_EQ(text.replace(1, 4, u"\r\n\f\r\n"), 5);
    EXPECT_EQ(text.text(), u"a\r\n\f\r\nb");
}

TEST(RichText, HalfALineEndIsRemovedWhole) {
    RichText text = plain(u"a\r\nb");
    EXPECT_EQ(text.changeRange(1, 1), std::pair(qsizetype{1}, qsizetype{2}));
    EXPECT_EQ(text.changeRange(2, 1), std::pair(qsizetype{1}, qsizetype{2}));
    EXPECT_EQ(text.changeRange(2, 0), std::pair(qsizetype{1}, qsizetype{0}));
    text.remove(2, 2);
    EXPECT_EQ(text.text(), u"a");
}

TEST(RichText, TextPutBetweenCrAndLfComesBeforeThem) {
    RichText text = plain(u"a\r\nb");
    text.replace(2, 0, u"x");
    EXPECT_EQ(text.text(), u"ax\r\nb");
}

// ---- objects, copies

TEST(RichText, ObjectsComeAlongAndOnlyThoseThatAreUsed) {
    RichText other;
    const RichObject first{RichObject::Kind::Png, "un", 1, 1};
    const RichObject second{RichObject::Kind::Jpeg, "deux", 2, 2};
    CharFormat format;
    other.addObject(first);
    format.object = other.addObject(second);
    other.append(u"a\uFFFC\uFFFC", other.intern(format), 0);
    RichText text = plain(u"xy");
    text.addObject(first);
    text.replace(1, 0, other);
    ASSERT_EQ(text.objects().size(), 2U);
    EXPECT_EQ(text.objects()[static_cast<std::size_t>(text.charFormatAt(3).object)], second);
    EXPECT_EQ(text.charFormatAt(4).object, -1);
    EXPECT_EQ(text.copy(3, 1).objects().size(), 1U);
    EXPECT_TRUE(text.copy(0, 1).objects().empty());
}

TEST(RichText, ACopyIsATextOfItsOwn) {
    RichText text = numbered({QStringLiteral("un"), QStringLiteral("deux"), QString()});
    text.changeCharacters(1, 4, {CharChange::Bold, bold()});
    EXPECT_TRUE(sameContent(text.copy(0, text.length()), text));
    RichText part = text.copy(1, 4);
    EXPECT_EQ(part.text(), u"n\r\nd");
    EXPECT_TRUE(part.charFormatAt(0).bold);
    EXPECT_EQ(indentAt(part, 0), 1);
    EXPECT_EQ(indentAt(part, 3), 2);
    part.remove(0, 4);
    EXPECT_EQ(text.text(), u"un\r\ndeux\r\n");
    EXPECT_EQ(text.copy(3, 2).text(), u"\r\nd");
    EXPECT_EQ(indentAt(text.copy(1, 3), 3), 1);
    EXPECT_EQ(indentAt(text.copy(text.length(), 0), 0), 2); // the tail carries on
}

TEST(RichText, ContentIsComparedByWhatTheNumbersStandFor) {
    RichText a;
    RichText b;
    b.intern(indented(99));
    CharFormat other;
    other.size = 99;
    b.intern(other);
    for (RichText* text : {&a, &b})
        text->append(u"ab\r\n", text->intern(bold()), text->intern(indented(3)));
    EXPECT_NE(a.charFormatIdAt(0), b.charFormatIdAt(0));
    EXPECT_TRUE(sameContent(a, b));
    RichText c = b;
    c.changeCharacters(1, 1, {CharChange::Bold, CharFormat()});
    EXPECT_FALSE(sameContent(a, c));
    c = b;
    c.changeParagraphs(0, 0, {ParaChange::Start, indented(4)});
    EXPECT_FALSE(sameContent(a, c));
    c = b;
    c.setTail(c.tailCharacter(), 0);
    EXPECT_FALSE(sameContent(a, c));
    c = b;
    c.setTail(0, c.tailParagraph());
    EXPECT_FALSE(sameContent(a, c));
    c = b;
    c.replace(0, 1, u"x");
    EXPECT_FALSE(sameContent(a, c));
}

TEST(RichText, EqualObjectsAreEqualUnderAnyNumber) {
    RichText a;
    RichText b;
    b.addObject({RichObject::Kind::Dib, "autre", 1, 1});
    for (RichText* text : {&a, &b}) {
        CharFormat format;
        format.object = text->addObject({RichObject::Kind::Png, "png", 1, 1});
        text->append(u"\uFFFC", text->intern(format), 0);
    }
    EXPECT_TRUE(sameContent(a, b));
    RichText c;
    CharFormat format;
    format.object = c.addObject({RichObject::Kind::Png, "png", 1, 2});
    c.append(u"\uFFFC", c.intern(format), 0);
    EXPECT_FALSE(sameContent(a, c));
    EXPECT_FALSE(sameContent(a, plain(u"\uFFFC")));
}

// ---- life

TEST(RichText, TheRevisionGrowsWithEveryChange) {
    RichText text;
    quint64 last = text.revision();
    const auto grew = [&] { return std::exchange(last, text.revision()) < text.revision(); };
    text.append(u"abc", 0, 0);
    EXPECT_TRUE(grew());
    text.replace(0, 1, u"x");
    EXPECT_TRUE(grew());
    text.changeCharacters(0, 1, {CharChange::Bold, bold()});
    EXPECT_TRUE(grew());
    text.changeParagraphs(0, 1, {ParaChange::Start, indented(1)});
    EXPECT_TRUE(grew());
    text.remove(0, 1);
    EXPECT_TRUE(grew());
    text.clear();
    EXPECT_TRUE(grew());
    text.setTail(text.intern(bold()), 0);
    EXPECT_TRUE(grew());
    text = RichText();
    EXPECT_TRUE(grew());
    const RichText other;
    text = other;
    EXPECT_TRUE(grew());
}

// That a text may be used after it was moved from is the point here.
// NOLINTBEGIN(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
TEST(RichText, WhatIsMovedFromIsAnEmptyText) {
    RichText text = plain(u"abc");
    RichText other = std::move(text);
    EXPECT_EQ(other.text(), u"abc");
    EXPECT_TRUE(text.isEmpty());
    text.replace(0, 0, u"new");
    text = std::move(other);
    EXPECT_EQ(text.text(), u"abc");
    EXPECT_TRUE(other.isEmpty());
    other.append(u"x", 0, 0);
    EXPECT_EQ(other.text(), u"x");
}
// NOLINTEND(bugprone-use-after-move,clang-analyzer-cplusplus.Move)

TEST(RichText, ACopiedTextLivesOnItsOwn) {
    RichText text = plain(u"abcdef");
    text.remove(2, 1);
    RichText other = text;
    other.replace(0, 1, u"XYZ");
    EXPECT_EQ(text.text(), u"abdef");
    EXPECT_EQ(other.text(), u"XYZbdef");
    other = text;
    other.remove(0, 1);
    EXPECT_EQ(text.text(), u"abdef");
    const RichText& same = other;
    other = same;
    EXPECT_EQ(other.text(), u"bdef");
}

TEST(RichText, ClearingForgetsFormatsAndObjects) {
    RichText text;
    text.addObject({});
    text.append(u"abc\r\n", text.intern(bold()), text.intern(indented(2)));
    text.clear();
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(text.objects().empty());
    EXPECT_EQ(text.charFormatAt(0), CharFormat());
    EXPECT_EQ(text.paraFormatAt(0), ParaFormat());
}

} // namespace
} // namespace velm
