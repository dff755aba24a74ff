// Tables as text with tabs.
#include "tests/platform/richtext/rtf_support.h"

using namespace Qt::Literals::StringLiterals;
using velm::RichText;
using velm::test::bodyText;
using velm::test::richBody;

TEST(RtfTables, ACellEndsInATabAndARowInAParagraphEnd) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\row c\\cell d\\cell\\row\\pard e"),
              u"a\tb\t\r\nc\td\t\r\ne"_s);
}

TEST(RtfTables, MissingCellsAreFilledUp) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\cellx3000\\intbl a\\cell\\row\\pard b"), u"a\t\t\t\r\nb"_s);
}

TEST(RtfTables, CellsBeyondTheDefinedOnesAreNoColumns) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\intbl a\\cell b\\cell\\row\\pard c"), u"a\tb \r\nc"_s);
}

TEST(RtfTables, AParagraphEndInsideARowIsABlank) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\intbl a\\par b\\line c\\cell d\\cell\\row\\pard e\\par f"),
              u"a b c\td\t\r\ne\r\nf"_s);
}

TEST(RtfTables, AParagraphBehindARowIsNoneOfIt) {
    EXPECT_EQ(bodyText("\\par \\pard \\trowd \\cellx6000 \\intbl \\cell \\row \\par \\pard x\\par"),
              u"\r\n\t\r\n\r\nx"_s);
}

TEST(RtfTables, ATableWithoutDefinitionsStillSeparates) {
    EXPECT_EQ(bodyText("\\intbl a\\cell b\\cell\\row\\pard c"), u"a\tb\t\r\nc"_s);
    EXPECT_EQ(bodyText("\\intbl a\\par b"), u"a\r\nb"_s);
}

TEST(RtfTables, DefinitionsMayStandBehindTheCellsOnceMore) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\pard\\intbl{\\trowd\\cellx1000"
                       "\\cellx2000\\row}\\pard c"),
              u"a\tb\t\r\nc"_s);
}

TEST(RtfTables, NestedCellsRunOnWithBlanks) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\pard\\intbl a\\itap2 b\\nestcell c\\nestcell{\\*\\nesttableprops"
                       "\\trowd\\cellx10\\cellx20\\cellx30\\nestrow}{\\nonesttables\\par}\\itap1\\cell d\\cell\\row"
                       "\\pard e"),
              u"ab c  \td\t\r\ne"_s);
}

TEST(RtfTables, ColumnsAreTabStops) {
    const RichText text = richBody("\\trowd\\trgaph70\\trleft100\\cellx1000\\cellx3000\\pard\\intbl\\qc a\\cell b\\cell"
                                   "\\row\\pard e\\par");
    const velm::ParaFormat& row = text.paraFormatAt(0);
    EXPECT_EQ(row.tabs, (std::vector<std::int32_t>{1070, 3070}));
    EXPECT_EQ(row.startIndent, 170);
    EXPECT_EQ(row.alignment, velm::Alignment::Left);
    EXPECT_TRUE(text.paraFormatAt(text.length() - 1).tabs.empty());
}

TEST(RtfTables, ManyColumnsCostNoMoreThanTheyHold) {
    QByteArray body = "\\trowd";
    for (int i = 1; i <= 5000; ++i)
        body += "\\cellx" + QByteArray::number(i);
    for (int i = 0; i < 1000; ++i)
        body += "\\cell\\row";
    const QString text = bodyText(body + " x");
    EXPECT_TRUE(text.endsWith(u"\t\r\nx"));
    EXPECT_LE(text.size(), 1000 * 66);
    EXPECT_EQ(richBody(body).paraFormatAt(0).tabs.size(), 32U);
}

TEST(RtfTables, EmptyRowsAreNotFilled) {
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\intbl\\row\\row\\row x"), u"\t\t\r\n\r\n\r\nx"_s);
}
