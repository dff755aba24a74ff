// Formats that RTF gives to characters and paragraphs.
#include "platform/richtext/runs_json.h"
#include "tests/platform/richtext/rtf_support.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;
using velm::Alignment;
using velm::CharFormat;
using velm::ParaFormat;
using velm::RichText;
using velm::RtfLoad;
using velm::test::richBody;
using velm::test::richOf;

namespace {

/// The format of the letter X in a body.
CharFormat atX(const QByteArray& body) {
    const RichText text = richBody(body);
    return text.charFormatAt(text.indexOf(u'X'));
}

ParaFormat paragraphOfX(const QByteArray& body) {
    const RichText text = richBody(body + "\\par");
    return text.paraFormatAt(text.indexOf(u'X'));
}

} // namespace

TEST(RtfFormats, ADocumentBeginsWithItsDefaults) {
    const CharFormat format = atX("X");
    EXPECT_EQ(format.family, u"Arial"_s);
    EXPECT_EQ(format.size, 24);
    EXPECT_EQ(format.colour, velm::autoColour);
    EXPECT_FALSE(format.bold || format.italic || format.underline || format.strike || format.hidden);
    EXPECT_EQ(paragraphOfX("X"), ParaFormat());
}

TEST(RtfFormats, SwitchesGoOnAndOff) {
    EXPECT_TRUE(atX("\\b X").bold);
    EXPECT_FALSE(atX("\\b\\b0 X").bold);
    EXPECT_TRUE(atX("\\b1 X").bold);
    EXPECT_TRUE(atX("\\i X").italic);
    EXPECT_TRUE(atX("\\strike X").strike);
    EXPECT_TRUE(atX("\\striked1 X").strike);
    EXPECT_TRUE(atX("\\v X").hidden);
    for (const char* word : {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulth", "ulw", "ulwave"}) {
        EXPECT_TRUE(atX("\\"_ba + word + " X").underline) << word;
        EXPECT_FALSE(atX("\\"_ba + word + "\\ulnone X").underline) << word;
        EXPECT_FALSE(atX("\\"_ba + word + "\\ul0 X").underline) << word;
    }
}

TEST(RtfFormats, PlainAndGroupsBringTheDefaultsBack) {
    EXPECT_EQ(atX("\\b\\i\\fs40\\cf1\\plain X"), atX("X"));
    EXPECT_EQ(atX("{\\b\\i\\fs40\\cf1 a}X"), atX("X"));
    EXPECT_TRUE(atX("\\b{\\b0 a}X").bold);
}

TEST(RtfFormats, SizesAreHalfPointsAndStayInBounds) {
    EXPECT_EQ(atX("\\fs19 X").size, 19);
    EXPECT_EQ(atX("\\fs X").size, 24);
    EXPECT_EQ(atX("\\fs-5 X").size, 1);
    EXPECT_EQ(atX("\\fs99999999999 X").size, 3276);
}

TEST(RtfFormats, ColoursComeFromTheTable) {
    EXPECT_EQ(atX("\\cf1 X").colour, 0x1000FF);
    EXPECT_EQ(atX("\\cf2 X").colour, 0xFF0000);
    EXPECT_EQ(atX("\\cf1\\cf0 X").colour, velm::autoColour);
    EXPECT_EQ(atX("\\cf9 X").colour, velm::autoColour);
    EXPECT_EQ(atX("\\cf-1 X").colour, velm::autoColour);
    EXPECT_EQ(atX("\\highlight2 X").background, 0xFF0000);
    EXPECT_EQ(atX("\\cb1 X").background, 0x1000FF);
    EXPECT_EQ(atX("\\chcbpat1 X").background, 0x1000FF);
    const RichText first = richOf("{\\rtf1{\\colortbl\\red300\\green1;}\\cf0 X}");
    EXPECT_EQ(first.charFormatAt(0).colour, 0x0001FF);
}

TEST(RtfFormats, OffsetsFromTheBaseLine) {
    EXPECT_EQ(atX("\\up6 X").offset, 60);
    EXPECT_EQ(atX("\\dn3 X").offset, -30);
    EXPECT_EQ(atX("\\up6\\up0 X").offset, 0);
    EXPECT_EQ(atX("\\up6\\nosupersub X").offset, 0);
    EXPECT_EQ(atX("\\super\\fs18 X").offset, 60);
    EXPECT_EQ(atX("\\sub\\fs18 X").offset, -60);
    EXPECT_EQ(atX("\\super\\super0 X").offset, 0);
}

TEST(RtfFormats, FontNames) {
    const RichText text =
        richOf("{\\rtf1\\deff1{\\fonttbl{\\f0\\fnil\\fcharset0{\\*\\panose 02}Times New Roman"
               "{\\*\\falt Tms};}{\\f1\\fcharset238 Pe\\'9aek;}{\\f300\\fnil \\u916?x;}{\\f4 A\\'3bB;}}"
               "a\\f0 b\\f300 c\\f4 d\\f5 e}");
    EXPECT_EQ(text.charFormatAt(0).family, u"Pešek"_s);
    EXPECT_EQ(text.charFormatAt(1).family, u"Times New Roman"_s);
    EXPECT_EQ(text.charFormatAt(2).family, u"Δx"_s);
    EXPECT_EQ(text.charFormatAt(3).family, u"A;B"_s);
    EXPECT_EQ(text.charFormatAt(4).family, QString());
}

TEST(RtfFormats, IndentsAreFirstLineAndFurtherLines) {
    const ParaFormat format = paragraphOfX("\\li720\\fi-360\\ri100\\sb60\\sa120 X");
    EXPECT_EQ(format.startIndent, 360);
    EXPECT_EQ(format.offset, 360);
    EXPECT_EQ(format.rightIndent, 100);
    EXPECT_EQ(format.spaceBefore, 60);
    EXPECT_EQ(format.spaceAfter, 120);
}

TEST(RtfFormats, AlignmentAndSpacing) {
    EXPECT_EQ(paragraphOfX("\\qc X").alignment, Alignment::Centre);
    EXPECT_EQ(paragraphOfX("\\qr X").alignment, Alignment::Right);
    EXPECT_EQ(paragraphOfX("\\qj X").alignment, Alignment::Justify);
    EXPECT_EQ(paragraphOfX("\\qj\\ql X").alignment, Alignment::Left);
    EXPECT_EQ(paragraphOfX("\\sl360\\slmult1 X").lineSpacing, 360);
    EXPECT_TRUE(paragraphOfX("\\sl360\\slmult1 X").lineMultiple);
    EXPECT_EQ(paragraphOfX("\\sl-240\\slmult0 X").lineSpacing, -240);
    EXPECT_FALSE(paragraphOfX("\\sl-240\\slmult0 X").lineMultiple);
}

TEST(RtfFormats, TabStopsAreSortedAndAtMostThirtyTwo) {
    EXPECT_EQ(paragraphOfX("\\tx2000\\tqr\\tx1000\\tx2000 X").tabs, (std::vector<std::int32_t>{1000, 2000}));
    QByteArray many;
    for (int i = 1; i <= 100; ++i)
        many += "\\tx" + QByteArray::number(i * 10);
    EXPECT_EQ(paragraphOfX(many + " X").tabs.size(), 32U);
    EXPECT_TRUE(paragraphOfX("\\tx1000\\pard X").tabs.empty());
    EXPECT_EQ(paragraphOfX("\\tx1000{\\tx2000 a}X").tabs, (std::vector<std::int32_t>{1000}));
}

TEST(RtfFormats, TheStateAtTheParagraphEndCounts) {
    const RichText text = richBody("A\\qc\\par B\\par C\\pard\\par");
    EXPECT_EQ(text.text(), u"A\r\nB\r\nC"_s);
    EXPECT_EQ(text.paraFormatAt(0).alignment, Alignment::Centre);
    EXPECT_EQ(text.paraFormatAt(3).alignment, Alignment::Centre);
    EXPECT_EQ(text.paraFormatAt(6).alignment, Alignment::Left);
}

TEST(RtfFormats, ALastParagraphWithoutItsEndHasNoFormat) {
    const RichText text = richBody("\\qc A\\par B");
    EXPECT_EQ(text.paraFormatAt(0).alignment, Alignment::Centre);
    EXPECT_EQ(text.paraFormatAt(3).alignment, Alignment::Left);
    EXPECT_EQ(richBody("\\qc A\\par", RtfLoad::Selection).paraFormatAt(0).alignment, Alignment::Centre);
}

TEST(RtfFormats, TheParagraphEndCarriesTheFormatInForce) {
    const RichText text =
        richOf("{\\rtf1{\\fonttbl{\\f0\\fswiss Arial;}}{\\fs10{\\pard\\fs16\\fi200\\li360\\f0 First\\par"
               "{\\f0\\fs25 Second\\par{\\f0\\fs26 Third}\\par{\\f0\\fs22 Fourth}\\par}}}");
    EXPECT_EQ(text.text(), u"First\r\nSecond\r\nThird\r\nFourth"_s);
    EXPECT_EQ(text.charFormatAt(5).size, 16);
    EXPECT_EQ(text.charFormatAt(6).size, 16);
    EXPECT_EQ(text.charFormatAt(13).size, 25);
    EXPECT_EQ(text.charFormatAt(15).size, 26);
    EXPECT_EQ(text.charFormatAt(20).size, 25);
    EXPECT_EQ(text.charFormatAt(22).size, 22);
}

TEST(RtfFormats, TheDroppedParagraphEndGivesTheEmptyLastParagraph) {
    const RichText text = richBody("A\\par\\qc\\b\\par");
    EXPECT_EQ(text.text(), u"A\r\n"_s);
    EXPECT_EQ(text.paraFormatAt(3).alignment, Alignment::Centre);
    EXPECT_TRUE(text.charFormatAt(3).bold);
    EXPECT_EQ(richBody("\\qc\\par").paraFormatAt(0).alignment, Alignment::Centre);
}

TEST(RtfFormats, BulletsOfOldLists) {
    const ParaFormat format = paragraphOfX(
        "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent360{\\pntxtb\\'B7}}\\fi-200\\li300 X");
    EXPECT_TRUE(format.bullet);
    EXPECT_EQ(format.startIndent, 100);
    EXPECT_EQ(format.offset, 200);
    const ParaFormat byIndent = paragraphOfX("{\\*\\pn\\pnlvlblt\\pnindent360}X");
    EXPECT_EQ(byIndent.startIndent, 0);
    EXPECT_EQ(byIndent.offset, 360);
    EXPECT_TRUE(paragraphOfX("{\\*\\pn\\pnlvlblt}a\\par X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\*\\pn\\pnlvlblt}a\\par\\pard X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec}X").bullet);
}

TEST(RtfFormats, BulletsOfNewLists) {
    EXPECT_TRUE(paragraphOfX("{\\listtext\\pard\\plain\\f1\\'b7\\tab}\\pard\\ls1 X").bullet);
    EXPECT_TRUE(paragraphOfX("{\\listtext\\u8226?\\tab}X").bullet);
    EXPECT_TRUE(paragraphOfX("{\\listtext\\u-3913\\'b7\\tab}X").bullet);
    EXPECT_TRUE(paragraphOfX("{\\listtext\\bullet\\tab}X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\listtext 1.\\tab}X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\listtext 1\\tab}X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\listtext a)\\tab}X").bullet);
    EXPECT_FALSE(paragraphOfX("{\\listtext\\'b7\\tab}a\\par X").bullet);
}

TEST(RtfFormats, TheLineBehindALineBreakContinuesItsParagraph) {
    const RichText text = richBody("{\\*\\pn\\pnlvlblt}\\fi-200\\li300\\sb50\\sa70 a\\line b\\line c\\par d\\par");
    const ParaFormat& first = text.paraFormatAt(0);
    EXPECT_TRUE(first.bullet);
    EXPECT_EQ(first.spaceBefore, 50);
    EXPECT_EQ(first.spaceAfter, 0);
    const ParaFormat& last = text.paraFormatAt(6);
    EXPECT_FALSE(last.bullet);
    EXPECT_EQ(last.startIndent, 300);
    EXPECT_EQ(last.offset, 0);
    EXPECT_EQ(last.spaceBefore, 0);
    EXPECT_EQ(last.spaceAfter, 70);
    EXPECT_TRUE(text.paraFormatAt(9).bullet);
}

TEST(RtfFormats, RunsAsJson) {
    const QByteArray json =
        velm::formatsJson(richBody("a{\\b\\fs19\\cf1 b}{\\pict\\pngblip\\picwgoal15\\pichgoal30 00}"));
    const QJsonArray runs = QJsonDocument::fromJson(json).array();
    ASSERT_EQ(runs.size(), 3);
    EXPECT_EQ(runs[0][u"text"].toString(), u"a"_s);
    EXPECT_EQ(runs[0][u"b"].toInt(-1), 0);
    EXPECT_TRUE(runs[0][u"color"].isUndefined());
    EXPECT_EQ(runs[1][u"text"].toString(), u"b"_s);
    EXPECT_EQ(runs[1][u"b"].toInt(), 1);
    EXPECT_EQ(runs[1][u"size"].toDouble(), 9.5);
    EXPECT_EQ(runs[1][u"color"].toString(), u"#ff0010"_s);
    EXPECT_EQ(runs[2][u"text"].toString(), QString());
    EXPECT_EQ(runs[2][u"picture"].toString(), u"png"_s);
    EXPECT_EQ(runs[2][u"height"].toInt(), 30);
}
