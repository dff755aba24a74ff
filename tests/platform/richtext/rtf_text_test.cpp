// What an RTF document says as plain text.
#include "tests/platform/richtext/rtf_support.h"

using namespace Qt::Literals::StringLiterals;
using velm::RtfLoad;
using velm::test::bodyText;
using velm::test::textOf;

TEST(RtfText, APlainDocument) {
    EXPECT_EQ(textOf("{\\rtf1 Bonjour}"), u"Bonjour"_s);
    EXPECT_EQ(textOf("{\\rtf1}"), QString());
}

TEST(RtfText, AParagraphEndIsCrLf) {
    EXPECT_EQ(bodyText("un\\par deux\\par trois\\par"), u"un\r\ndeux\r\ntrois"_s);
}

TEST(RtfText, AWholeLoadDropsOnlyTheVeryLastParagraphEnd) {
    EXPECT_EQ(bodyText("un\\par"), u"un"_s);
    EXPECT_EQ(bodyText("un\\par\\par"), u"un\r\n"_s);
    EXPECT_EQ(bodyText("un\\par \r\n"), u"un"_s);
    EXPECT_EQ(bodyText("un\\par  "), u"un\r\n "_s);
}

TEST(RtfText, ASelectionKeepsTheLastParagraphEnd) {
    EXPECT_EQ(bodyText("un\\par", RtfLoad::Selection), u"un\r\n"_s);
    EXPECT_EQ(bodyText("un", RtfLoad::Selection), u"un"_s);
}

TEST(RtfText, HeadsThatAreAccepted) {
    for (const char* head : {"{\\rtf1 x}", "{\\rtf x}", "{\\rtf2 x}", "{\\urtf x}", "{\\urtf0 x}", " \r\n{\\rtf1 x}",
                             "\xEF\xBB\xBF{\\rtf1 x}", "{ \\rtf1 x}", "{{\\colortbl;\\red1\\green2\\blue3;}x}"})
        EXPECT_EQ(textOf(head), u"x"_s) << head;
}

TEST(RtfText, WhatIsNoRtfIsEmptyAndFalse) {
    for (const char* bytes : {"", " ", "{", "texte", "{texte}", "{\\rt x}", "{\\rtfx y}", "{\\pard x}", "\\rtf1 x",
                              "{{\\b x}}", "<html>"}) {
        QString out = u"old"_s;
        EXPECT_FALSE(velm::rtfToText(bytes, out, RtfLoad::Whole)) << bytes;
        EXPECT_EQ(out, QString()) << bytes;
        velm::RichText rich;
        rich.replace(0, 0, u"old");
        EXPECT_FALSE(velm::readRtf(bytes, rich)) << bytes;
        EXPECT_TRUE(rich.isEmpty()) << bytes;
        EXPECT_EQ(velm::rtfToText(bytes), QString()) << bytes;
    }
}

TEST(RtfText, ABufferIsKeptFromCallToCall) {
    QString buffer;
    EXPECT_TRUE(velm::rtfToText("{\\rtf1 un texte plus long}", buffer, RtfLoad::Whole));
    EXPECT_TRUE(velm::rtfToText("{\\rtf1 court}", buffer, RtfLoad::Whole));
    EXPECT_EQ(buffer, u"court"_s);
}

TEST(RtfText, EscapedSignsAndRawLineEnds) {
    EXPECT_EQ(bodyText("a\\\\b\\{c\\}d\r\ne\nf"), u"a\\b{c}def"_s);
    EXPECT_EQ(bodyText("\\{S=N1\\}|\\{F\\}"), u"{S=N1}|{F}"_s);
}

TEST(RtfText, OneBlankEndsAControlWordAndBelongsToIt) {
    EXPECT_EQ(bodyText("a\\b  b\\b0c\\i-1 d\\fs20e"), u"a bcde"_s);
}

TEST(RtfText, SpecialCharacters) {
    EXPECT_EQ(bodyText("\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\endash\\emdash"), u"‘’“”•–—"_s);
    EXPECT_EQ(bodyText("a\\tab b\\emspace\\enspace\\qmspace c"), u"a\tb   c"_s);
    EXPECT_EQ(bodyText("\\ltrmark\\rtlmark\\zwj\\zwnj"), u"\u200E\u200F\u200D\u200C"_s);
    EXPECT_EQ(bodyText("a\\~b\\_c\\-d"), u"a\u00A0b\u2011c\u00ADd"_s);
    EXPECT_EQ(bodyText("a\tb"), u"a\tb"_s);
    EXPECT_EQ(bodyText("a\\\tb"), u"a\tb"_s);
}

TEST(RtfText, ANulByteIsABlank) {
    EXPECT_EQ(textOf(QByteArrayView("{\\rtf1\\ansi{Th\0is\0 is}}\0", 24)), u"Th is  is"_s);
    EXPECT_EQ(bodyText("a\\'00b\\u0?c"), u"a b c"_s);
}

TEST(RtfText, LineBreaksAndPageBreaksAreLineEnds) {
    EXPECT_EQ(bodyText("a\\line b\\lbr1 c\\page d\\sect e\\column f"), u"a\r\nb\r\nc\r\nd\r\ne\r\nf"_s);
    EXPECT_EQ(bodyText("a\\\nb\\\r\nc\\\rd"), u"a\r\nb\r\nc\r\nd"_s);
    EXPECT_EQ(bodyText("a\\'0db\\'0ac\\u13?d"), u"a\r\nb\r\nc\r\nd"_s);
}

TEST(RtfText, AFormFeedStaysACharacter) {
    EXPECT_EQ(bodyText("a\\par\\'0c\\par b"), u"a\r\n\f\r\nb"_s);
    EXPECT_EQ(bodyText("a\fb"), u"a\fb"_s);
}

TEST(RtfText, HiddenTextStays) {
    EXPECT_EQ(bodyText("a{\\v b}c"), u"abc"_s);
}

TEST(RtfText, UnicodeWithItsFallbacks) {
    EXPECT_EQ(bodyText("\\u8364?x"), u"€x"_s);
    EXPECT_EQ(bodyText("\\u8364\\'80x"), u"€x"_s);
    EXPECT_EQ(bodyText("\\uc0\\u8364 x"), u"€x"_s);
    EXPECT_EQ(bodyText("\\uc2\\u8364EUx"), u"€x"_s);
    EXPECT_EQ(bodyText("{\\uc2\\u8364EU}\\u8364?x"), u"€€x"_s);
    EXPECT_EQ(bodyText("\\uc3\\u8364E\r\nU\\'52x"), u"€x"_s);
    EXPECT_EQ(bodyText("\\u8217\\rquote s"), u"’s"_s);
}

TEST(RtfText, AFallbackEndsAtABraceOrAWordThatIsNoCharacter) {
    EXPECT_EQ(bodyText("{\\u8364}x"), u"€x"_s);
    EXPECT_EQ(bodyText("\\u8364{x}"), u"€x"_s);
    EXPECT_EQ(bodyText("\\u8364\\par x"), u"€\r\nx"_s);
    EXPECT_EQ(bodyText("\\uc5\\u8364 ab\\tab x"), u"€ab\tx"_s.remove(1, 2));
}

TEST(RtfText, NumbersOfUnicodeBeyondSixteenBits) {
    EXPECT_EQ(bodyText("\\u-10179?\\u-8694?"), u"\U0001F60A"_s);
    EXPECT_EQ(bodyText("\\u128522?"), u"\U0001F60A"_s);
    EXPECT_EQ(bodyText("\\u65533?\\u-3?"), u"\uFFFD\uFFFD"_s);
    EXPECT_EQ(bodyText("\\u99999999999?x"), u"\uFFFDx"_s);
}

TEST(RtfText, AHalfOfASurrogatePairIsNoCharacter) {
    EXPECT_EQ(bodyText("a\\u-10240?b\\u-9216?c"), u"a\uFFFDb\uFFFDc"_s);
    EXPECT_EQ(bodyText("\\u-9216?\\u-10240?"), u"\uFFFD\uFFFD"_s);
}

TEST(RtfText, NumbersSaturate) {
    EXPECT_EQ(bodyText("a\\fs99999999999999999999 b\\li-99999999999 c\\uc99999999999 \\u65 d"), u"abcA"_s);
}

TEST(RtfText, UnknownWordsAreIgnored) {
    EXPECT_EQ(bodyText("a\\zorglub b\\zorglub12c\\" + QByteArray(4000, 'z') + " d"), u"abcd"_s);
    EXPECT_EQ(bodyText("a\\PAR b"), u"ab"_s);
    EXPECT_EQ(bodyText("a\\;b\\|c\\:d"), u"abcd"_s);
}

TEST(RtfText, UnknownGroupsShowTheirTextUnlessTheyMayBeIgnored) {
    EXPECT_EQ(bodyText("a{\\zorglub b}c"), u"abc"_s);
    EXPECT_EQ(bodyText("a{\\*\\zorglub b{c}\\{\\}d}e"), u"ae"_s);
    EXPECT_EQ(bodyText("a{\r\n\\* \\zorglub b}e"), u"ae"_s);
    EXPECT_EQ(bodyText("a{\\b\\*\\zorglub b}c"), u"abc"_s);
}

TEST(RtfText, WhatIsNoBodyText) {
    for (const char* word :
         {"info",    "stylesheet", "header",     "headerl",  "headerr", "headerf",      "footer", "footerl", "footerr",
          "footerf", "footnote",   "annotation", "colortbl", "pntext",  "listtext",     "pn",     "xe",      "tc",
          "fldinst", "nonshppict", "ftnsep",     "aftncn",   "objdata", "nonesttables", "revtbl"}) {
        EXPECT_EQ(bodyText("a{\\"_ba + word + " b{\\b c}\\'64}e"), u"ae"_s) << word;
        EXPECT_EQ(bodyText("a{\\*\\"_ba + word + " b{\\b c}\\'64}e"), u"ae"_s) << word;
    }
}

TEST(RtfText, FieldsShowTheirResult) {
    EXPECT_EQ(bodyText("a{\\field{\\*\\fldinst{HYPERLINK \"http://x\"}}{\\fldrslt{\\ul lien}}}b"), u"alienb"_s);
    EXPECT_EQ(bodyText("a{\\field\\flddirty{\\fldinst PAGE}{\\fldrslt 3}}b"), u"a3b"_s);
}

TEST(RtfText, OfTwoFormsTheOneInUnicodeCounts) {
    EXPECT_EQ(bodyText("a{\\upr{\\'3f b}{\\*\\ud{\\u345\\'3f b}}}c"), u"a\u0159 bc"_s);
}

TEST(RtfText, BinaryBytesAreNoText) {
    EXPECT_EQ(bodyText("a\\bin4 }}{{b"), u"ab"_s);
    EXPECT_EQ(bodyText("a{\\*\\zorglub\\bin3 }}} x}b"), u"ab"_s);
    EXPECT_EQ(bodyText("a\\bin0 b\\bin-7 c"), u"abc"_s);
    EXPECT_EQ(textOf("{\\rtf1 a\\bin99999999 bcd}"), u"a"_s);
}

TEST(RtfText, WhatIsMissingAtTheEndDoesNotMatter) {
    EXPECT_EQ(textOf("{\\rtf1 a{\\b b"), u"ab"_s);
    for (const char* end : {"\\", "\\'", "\\*", "{\\*", "{\\*\\", "\\u", "\\uc", "\\bin", "{\\fonttbl", "{\\upr",
                            "{\\*\\pn", "{\\listtext", "{\\colortbl", "{\\fonttbl{\\f0\\'", "{"})
        EXPECT_EQ(textOf("{\\rtf1 a"_ba + end), u"a"_s) << end;
}

TEST(RtfText, HexadecimalDigitsThatAreNone) {
    EXPECT_EQ(bodyText("a\\'zzb\\'"), u"azzb"_s);
    EXPECT_EQ(bodyText("a\\'4"), u"a4"_s);
}

TEST(RtfText, APictureIsOneCharacter) {
    EXPECT_EQ(bodyText("a{\\pict\\pngblip 89504e}b"), u"a\uFFFCb"_s);
    EXPECT_EQ(bodyText("a{\\*\\shppict{\\pict\\pngblip 89}}{\\nonshppict{\\pict\\wmetafile8 01}}b"), u"a\uFFFCb"_s);
    EXPECT_EQ(bodyText("a{\\object{\\*\\objdata 00}{\\result{\\pict 00}}}b"), u"a\uFFFCb"_s);
    EXPECT_EQ(textOf("{\\rtf1 a{\\pict"), u"a\uFFFC"_s);
}

TEST(RtfText, TheFirstClosingBraceOfTheDocumentEndsIt) {
    EXPECT_EQ(textOf("{\\rtf1 a}b{c}"), u"a"_s);
    EXPECT_EQ(textOf("{\\rtf1 a{b}}}c"), u"ab"_s);
}

TEST(RtfText, GroupsNestWithoutBound) {
    const QByteArray deep(200'000, '{');
    EXPECT_EQ(textOf("{\\rtf1 a" + deep + "\\b b"), u"ab"_s);
    EXPECT_EQ(textOf("{\\rtf1 a" + deep + "b" + QByteArray(200'000, '}') + "c}d"), u"abc"_s);
    EXPECT_EQ(textOf("{\\rtf1 a{\\*\\x" + deep + QByteArray(200'000, '}') + "}b}"), u"ab"_s);
}

TEST(RtfText, ACodePageBeyondTheDepthThatIsKeptDoesNotLeakOut) {
    const QByteArray deep(6000, '{');
    const QByteArray shallow(6000, '}');
    EXPECT_EQ(bodyText(deep + "\\f1" + shallow + "\\'80"), u"€"_s);
}
