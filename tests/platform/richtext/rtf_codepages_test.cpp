// Bytes of RTF in the code page of their font or document.
#include "platform/richtext/rtf_codepage.h"
#include "tests/platform/richtext/rtf_support.h"

using namespace Qt::Literals::StringLiterals;
using velm::test::textOf;

namespace {

/// A document with one font of that character set.
QString inCharset(int charset, const QByteArray& body) {
    return textOf("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset" +
                  QByteArray::number(charset) + " B;}}\\f1 " + body + "}");
}

} // namespace

TEST(RtfCodePages, EachCharacterSetHasItsPage) {
    struct Case {
        int charset;
        char16_t e9;
    };
    // The character of the byte E9.
    for (const Case c : {Case{0, u'é'}, Case{1, u'é'}, Case{2, u'\u00E9'}, Case{77, u'È'}, Case{161, u'ι'},
                         Case{162, u'é'}, Case{163, u'é'}, Case{177, u'י'}, Case{178, u'é'}, Case{186, u'é'},
                         Case{204, u'й'}, Case{222, u'้'}, Case{238, u'é'}, Case{254, u'Θ'}, Case{255, u'Ú'}})
        EXPECT_EQ(inCharset(c.charset, "\\'e9"), QString(QChar(c.e9))) << c.charset;
}

TEST(RtfCodePages, TheDocumentsPageServesFontsWithoutOne) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1251 \\'e9}"), u"й"_s);
    EXPECT_EQ(textOf("{\\rtf1\\mac \\'8e}"), u"é"_s);
    EXPECT_EQ(textOf("{\\rtf1\\pc \\'82}"), u"é"_s);
    EXPECT_EQ(textOf("{\\rtf1\\pca \\'82\\'9b}"), u"éø"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi \\'80\\'9c}"), u"€œ"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0 A;}{\\f1\\cpg1253 B;}}\\f0\\'e9\\f1\\'e9}"), u"йι"_s);
}

TEST(RtfCodePages, AnUnknownPageReadsAsWindows1252) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg0 \\'e9}"), u"é"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg31337 \\'e9}"), u"é"_s);
    EXPECT_EQ(inCharset(99, "\\'e9"), u"é"_s);
}

TEST(RtfCodePages, RawBytesReadLikeEscapedOnes) {
    EXPECT_EQ(inCharset(204, "\xE9\\'e9"), u"йй"_s);
}

TEST(RtfCodePages, TheFontOfAGroupEndsWithIt) {
    EXPECT_EQ(inCharset(204, "\\'e9{\\f0\\'e9}\\'e9\\plain\\'e9"), u"йéйé"_s);
    EXPECT_EQ(inCharset(204, "\\f99\\'e9\\f-3\\'e9"), u"éé"_s);
}

TEST(RtfCodePages, TheDefaultFontSpeaksFirst) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}\\'e9\\f0\\'e9}"),
              u"йé"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\deff31506{\\fonttbl{\\f31506\\fcharset204 B;}}\\'e9}"), u"й"_s);
}

TEST(RtfCodePages, ATableOfFontsWithoutInnerGroups) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi{\\fonttbl\\f0\\fcharset0 A;\\f1\\fcharset204 B;}\\f1\\'e9}"), u"й"_s);
}

TEST(RtfCodePages, BytesOfSymbolFontsStay) {
    EXPECT_EQ(inCharset(2, "abc\\'b7\\'80"), u"abc\u00B7\u0080"_s);
}

TEST(RtfCodePages, PairsOfBytes) {
    const QString japanese = inCharset(128, "\\'93\\'fa\\'96{}\\'7bx");
    if (japanese.contains(QChar::ReplacementCharacter) && !japanese.contains(u'日'))
        GTEST_SKIP() << "this Qt has no converters for East Asian code pages";
    EXPECT_EQ(inCharset(128, "\\'93\\'fa\\'96\\'7b"), u"日本"_s);
    EXPECT_EQ(inCharset(128, "\\'93\r\n\\'fa\x96\x7B"), u"日本"_s);
    EXPECT_EQ(inCharset(128, "\\'83A\\'83\\'5c\x83\\"), u"アソソ"_s);
    EXPECT_EQ(inCharset(128, "\\'b1x"), u"ｱx"_s);
    EXPECT_EQ(inCharset(134, "\\'d6\\'d0\\'ce\\'c4"), u"中文"_s);
    EXPECT_EQ(inCharset(136, "\\'a4\\'a4\\'a4\\'e5"), u"中文"_s);
    EXPECT_EQ(inCharset(129, "\\'c7\\'d1"), u"한"_s);
}

TEST(RtfCodePages, ALeadByteWithoutItsPair) {
    EXPECT_EQ(inCharset(128, "\\'93\\par x"), u"\uFFFD\r\nx"_s);
    EXPECT_EQ(inCharset(128, "{\\'93}x"), u"\uFFFDx"_s);
    EXPECT_EQ(inCharset(128, "\\'93"), u"\uFFFD"_s);
    EXPECT_EQ(inCharset(128, "\\'93\\'20x"), u"\uFFFD x"_s);
}

TEST(RtfCodePages, AFontThatChangesItsPageInsideItsName) {
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl{\\f0\\fcharset128\\'e6\\fcharset0 x;}}a}"), u"a"_s);
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl{\\f0\\fcharset128\\'e6\\fcharset134\\'e6;}}a}"), u"a"_s);
}

TEST(RtfCodePages, Utf8AsAPage) {
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg65001 \\'c3\\'a9\xC3\xA9\xF0\x9F\x98\x8A}"), u"éé\U0001F60A"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg65001 \\'e9x\xC3}"), u"éxÃ"_s);
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg65001 \xED\xA0\x80}").size(), 3);
}

TEST(RtfCodePages, EveryPageIsComplete) {
    for (const int number : {1250, 1251, 1252, 1253, 1254, 1255, 1256,  1257,  1258,  874,   437,
                             850,  852,  860,  863,  865,  866,  10000, 10006, 10007, 10029, 10081}) {
        const velm::rtf::CodePage& page = velm::rtf::codePage(number);
        EXPECT_EQ(page.number, number);
        for (unsigned byte = 0; byte < 256; ++byte) {
            if (byte == '\r' || byte == '\n')
                EXPECT_EQ(page.units[byte], 0);
            else
                EXPECT_NE(page.units[byte], 0) << number << ' ' << byte;
        }
    }
}
