#include "platform/text/ansilines.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(AnsiReadable, LettersLoseNoMoreThanTheirAccents) {
    EXPECT_EQ(ansi::encodeReadable(u"Dvořák, Łódź, Ő"_s), "Dvor\xE1k, L\xF3"
                                                          "dz, O");
    EXPECT_EQ(ansi::encodeReadable(u"e\u0301te\u0301"_s), "\xE9t\xE9") << "the page has it, in another form";
    EXPECT_EQ(ansi::encodeReadable(u"œuvre – 5 €"_s), "\x9Cuvre \x96 5 \x80");
}

TEST(AnsiReadable, SignsBecomeSuchAsLookLikeThem) {
    EXPECT_EQ(ansi::encodeReadable(u"a\u2011b ≤ c → d ﬁn 5\u202F%"_s), "a-b <= c -> d fin 5 %");
    EXPECT_EQ(ansi::encodeReadable(u"no\u200Bthing"_s), "nothing");
    EXPECT_EQ(ansi::encodeReadable(u"Ж 漢 😀 \xD800"_s), "? ? ? ?");
}

TEST(AnsiReadable, WhatThePageHasStaysAsItIs) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(ansi::encodeReadable(ansi::decode(all)), all);
}

TEST(AnsiLines, ALineEndInsideATextIsABlank) {
    ansi::LineWriter writer(ansi::encodeReadable);
    writer.line(u"a\r\nb\rc\nd"_s);
    writer.line(u""_s);
    EXPECT_EQ(writer.take(), "a b c d\r\n\r\n");
}

TEST(AnsiLines, AnyEndOfALineEndsIt) {
    ansi::LineReader reader("a\r\nb\rc\n\nd");
    QStringList lines;
    while (!reader.atEnd())
        lines << reader.line();
    EXPECT_EQ(lines, (QStringList{u"a"_s, u"b"_s, u"c"_s, QString(), u"d"_s}));
    EXPECT_EQ(reader.line(), QString());
    EXPECT_TRUE(reader.atEnd());
}
