#include "platform/richtext/lineends.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

TEST(LineEnds, ATextWithPairsOnlyIsClean) {
    EXPECT_TRUE(lineEnds(u"").clean);
    EXPECT_TRUE(lineEnds(u"sans fin").clean);
    EXPECT_TRUE(lineEnds(u"\r\nun\r\n\r\ndeux").clean);
    for (const QString& text : {u"un\ndeux"_s, u"\n"_s, u"un\rdeux"_s, u"un\r"_s, u"\n\r"_s, u"\r\n\n"_s, u"\r\r\n"_s})
        EXPECT_FALSE(lineEnds(text).clean) << text.toStdString();
}

TEST(LineEnds, WhatStandsBehindTheLastOneIsCounted) {
    EXPECT_EQ(lineEnds(u"sans fin").behind, -1);
    EXPECT_EQ(lineEnds(u"un\r\n").behind, 0);
    EXPECT_EQ(lineEnds(u"un\r\ndeux\r\ntrois").behind, 5);
}

TEST(LineEnds, EachOfThemBecomesOnePair) {
    EXPECT_EQ(withCleanLineEnds(u"a\nb\rc\r\nd"), u"a\r\nb\r\nc\r\nd");
    EXPECT_EQ(withCleanLineEnds(u"\n\r\n\r\r"), u"\r\n\r\n\r\n\r\n");
    EXPECT_EQ(withCleanLineEnds(u"rien"), u"rien");
    EXPECT_EQ(withCleanLineEnds(u""), QString());
}

} // namespace velm
