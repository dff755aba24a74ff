#include "platform/typeset/showntext.h"
#include "tests/platform/typeset/sampletext.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

RichText oneRun(const QString& text, const CharFormat& format = {}) {
    RichText rich;
    rich.append(text, rich.intern(format), rich.intern(ParaFormat{}));
    return rich;
}

} // namespace

TEST(ShownText, AnEmptyTextHasOneParagraph) {
    const ShownText shown;
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.documentLength(), 0);
    EXPECT_EQ(shown.toDocument(5), 0);
    EXPECT_EQ(shown.toModel(5), 0);
}

TEST(ShownText, AParagraphEndTakesTwoPositionsOfTheModelAndOneOfTheDocument) {
    const ShownText shown(oneRun(u"ab\r\n\r\ncde"_s));
    EXPECT_EQ(shown.count(), 3);
    EXPECT_EQ(shown.text(), u"ab\u2029\u2029cde"_s);
    EXPECT_EQ(shown.toDocument(2), 2); // before CR
    EXPECT_EQ(shown.toDocument(3), 2); // between CR and LF
    EXPECT_EQ(shown.toDocument(4), 3);
    EXPECT_EQ(shown.toDocument(5), 3);
    EXPECT_EQ(shown.toDocument(6), 4);
    EXPECT_EQ(shown.toDocument(9), 7);
    EXPECT_EQ(shown.toModel(2), 2);
    EXPECT_EQ(shown.toModel(3), 4);
    EXPECT_EQ(shown.toModel(4), 6);
    EXPECT_EQ(shown.toModel(7), 9);
}

TEST(ShownText, PositionsAreClamped) {
    const ShownText shown(oneRun(u"ab\r\n"_s));
    EXPECT_EQ(shown.toDocument(-4), 0);
    EXPECT_EQ(shown.toDocument(400), 3);
    EXPECT_EQ(shown.toModel(-1), 0);
    EXPECT_EQ(shown.toModel(400), 4);
}

TEST(ShownText, EveryDocumentPositionComesBack) {
    const ShownText shown(sample::lawArticle());
    for (int position = 0; position <= shown.documentLength(); ++position)
        ASSERT_EQ(shown.toDocument(shown.toModel(position)), position);
}

TEST(ShownText, CharactersWithoutShapeKeepTheirPlace) {
    const ShownText shown(oneRun(u"a\vb\fc\u0001d\u2029e\uFFFCf\r\ng\uFDD0h"_s));
    EXPECT_EQ(shown.text(), u"a\u2028b\u2060c\u2060d e f\u2029g\uFFFDh"_s);
}

TEST(ShownText, HiddenTextKeepsItsPlaceWithoutWidth) {
    CharFormat hidden;
    hidden.hidden = true;
    RichText rich = oneRun(u"ab"_s);
    rich.append(u"se\r\ncret", rich.intern(hidden), rich.intern(ParaFormat{}));
    const ShownText shown(rich);
    EXPECT_EQ(shown.text(), u"ab\u2060\u2060\u2029\u2060\u2060\u2060\u2060"_s);
    EXPECT_EQ(shown.count(), 2);
}

TEST(ShownText, BlanksOfPunctuationHoldTheLineTogether) {
    const ShownText shown(oneRun(u"un : « deux » ; trois ? quatre ! : a b\u00A0:"_s));
    EXPECT_EQ(shown.text(), u"un\u00A0: «\u00A0deux\u00A0»\u00A0; trois\u00A0? quatre\u00A0!\u00A0: a b\u00A0:"_s);
    EXPECT_EQ(shown.modelLength(), shown.documentLength());
}

TEST(ShownText, TheNumberOfAnArticleStaysWithItsLetter) {
    const ShownText held(oneRun(u"l\u2019article L. 145-18, R.* 12, D* 3, R*. 4 et n° 93-949"_s));
    EXPECT_EQ(held.text(), u"l\u2019article L.\u00A0145-18, R.* 12, D* 3, R*.\u00A04 et n°\u00A093-949"_s);
    const ShownText free(oneRun(u"S.A.R.L. 12, HL. 3, L. bis, B. 4, degrés° 5, L.  6"_s));
    EXPECT_EQ(free.text(), u"S.A.R.L.\u00A012, HL. 3, L. bis, B. 4, degrés° 5, L.  6"_s);
    EXPECT_EQ(ShownText(oneRun(u"L. 1"_s)).text(), u"L.\u00A01"_s);
    EXPECT_EQ(ShownText(oneRun(u"L. "_s)).text(), u"L. "_s);
}

TEST(ShownText, AnObjectKeepsItsSign) {
    RichText rich = oneRun(u"a"_s);
    CharFormat format;
    format.object = rich.addObject({});
    rich.append(u"\uFFFC", rich.intern(format), rich.intern(ParaFormat{}));
    EXPECT_EQ(ShownText(rich).text(), u"a\uFFFC"_s);
}

TEST(ShownText, OnlyAParagraphOfNothingElseIsAPageBreak) {
    const ShownText shown(oneRun(u"a\r\n\f\r\nb\f\r\n\fc\r\n\f"_s));
    ASSERT_EQ(shown.count(), 5);
    EXPECT_FALSE(shown.paragraph(0).pageBreak);
    EXPECT_TRUE(shown.paragraph(1).pageBreak);
    EXPECT_FALSE(shown.paragraph(2).pageBreak);
    EXPECT_FALSE(shown.paragraph(3).pageBreak);
    EXPECT_TRUE(shown.paragraph(4).pageBreak);
}

TEST(ShownText, TheFormatOfAParagraphIsThatOfItsEnd) {
    RichText rich;
    ParaFormat first;
    first.startIndent = 100;
    ParaFormat second;
    second.startIndent = 200;
    const FormatId character = rich.intern(CharFormat{});
    rich.append(u"a\r\n", character, rich.intern(first));
    rich.append(u"b", character, rich.intern(second));
    const ShownText shown(rich);
    EXPECT_EQ(shown.format(0).startIndent, 100);
    EXPECT_EQ(shown.format(1).startIndent, 200);
}

} // namespace velm
