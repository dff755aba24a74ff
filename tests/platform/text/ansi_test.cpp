#include "platform/text/ansi.h"

#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray everyByte() {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

/// The upper half as the code page's table gives it.
const QString upperHalf =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178"_s;

TEST(Ansi, DecodesEveryByte) {
    const QString text = ansi::decode(everyByte());
    ASSERT_EQ(text.size(), 256);
    for (int i = 0; i < 256; ++i) {
        const char16_t expected = i >= 0x80 && i <= 0x9F ? upperHalf[i - 0x80].unicode() : static_cast<char16_t>(i);
        EXPECT_EQ(text[i].unicode(), expected) << i;
        EXPECT_EQ(ansi::fromUnicode(expected), static_cast<unsigned char>(i)) << i;
    }
}

TEST(Ansi, EveryByteStringSurvivesTheWayThereAndBack) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes;
        const auto length = random() % 100;
        for (size_t i = 0; i < length; ++i)
            bytes.append(static_cast<char>(random() % 4 == 0 ? random() % 256 : random() % 128));
        const QString text = ansi::decode(bytes);
        EXPECT_EQ(text.size(), bytes.size());
        EXPECT_EQ(ansi::encode(text), bytes);
    }
}

TEST(Ansi, AHighByteAtAnyPlaceOfABlockIsFound) {
    for (qsizetype length = 1; length <= 70; ++length) {
        for (qsizetype at = 0; at < length; ++at) {
            QByteArray bytes(length, 'a');
            bytes[at] = static_cast<char>(0x9C);
            QString expected(length, u'a');
            expected[at] = u'œ';
            EXPECT_EQ(ansi::decode(bytes), expected);
        }
    }
}

TEST(Ansi, WhatTheCodePageCannotHoldIsSubstitutedOncePerCharacter) {
    EXPECT_EQ(ansi::encode(u"a\u0411b"), QByteArray("a?b"));
    EXPECT_EQ(ansi::encode(u"a\U0001F600b"), QByteArray("a?b"));
    EXPECT_EQ(ansi::encode(u"a\U0001F600b", '_'), QByteArray("a_b"));
    const char16_t lone[] = {u'a', 0xD83D, u'b', 0xDE00};
    EXPECT_EQ(ansi::encode(QStringView(lone, 4)), QByteArray("a?b?"));
}

TEST(Ansi, OnlyTheFiveUndefinedControlPositionsCanBeEncoded) {
    int encodable = 0;
    for (char16_t unit = 0x80; unit < 0xA0; ++unit)
        encodable += ansi::fromUnicode(unit).has_value();
    EXPECT_EQ(encodable, 5);
}

TEST(Ansi, EmptyTextsStayEmpty) {
    EXPECT_TRUE(ansi::decode({}).isEmpty());
    EXPECT_TRUE(ansi::encode({}).isEmpty());
    EXPECT_TRUE(ansi::decodeFile({}).isEmpty());
}

TEST(Ansi, AFileWithTheMarkIsUtf8AndLosesTheMark) {
    EXPECT_EQ(ansi::decodeFile("\xEF\xBB\xBF\xC3\xA9\xE2\x82\xAC"), u"é€"_s);
    EXPECT_EQ(ansi::decodeFile("\xEF\xBB\xBF"), QString());
    EXPECT_EQ(ansi::decodeFile("\xEF\xBB\xBF"
                               "a\xFFz"),
              u"a\uFFFDz"_s);
}

TEST(Ansi, AFileWithoutTheMarkIsOfTheCodePage) {
    EXPECT_EQ(ansi::decodeFile("\xE9\x80"), u"é€"_s);
    EXPECT_EQ(ansi::decodeFile("\xC3\xA9"), u"Ã©"_s);
    EXPECT_EQ(ansi::decodeFile("\xEF\xBB"), u"ï»"_s);
}

} // namespace
