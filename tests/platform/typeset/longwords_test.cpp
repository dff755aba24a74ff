#include "platform/typeset/longwords.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

TEST(LongWords, OrdinaryTextHasNone) {
    EXPECT_TRUE(LongWords(u"").isEmpty());
    EXPECT_TRUE(LongWords(u"mot "_s.repeated(4000)).isEmpty());
    EXPECT_TRUE(LongWords(QString(LongWords::longest, u'x')).isEmpty());
    EXPECT_TRUE(LongWords(u"mot-"_s.repeated(4000)).isEmpty()) << "a line may end behind a hyphen";
    EXPECT_TRUE(LongWords(u"\u4E2D\u6587"_s.repeated(4000)).isEmpty()) << "or between ideographs";
}

TEST(LongWords, GoOnUntilAWholeLineIsLeft) {
    const QString text = u"avant "_s + QString(3000, u'x') + u" après"_s;
    LongWords words(text);
    EXPECT_FALSE(words.goesOn(0)) << "the first line holds words";
    EXPECT_EQ(words.restAt(0), 0);
    EXPECT_EQ(words.restAt(6), 3000);
    EXPECT_TRUE(words.goesOn(6));
    EXPECT_TRUE(words.goesOn(3005 - LongWords::longest));
    EXPECT_EQ(words.end(), 3006);
    EXPECT_FALSE(words.goesOn(3006 - LongWords::longest));
    EXPECT_EQ(words.restAt(3010), 0);
}

TEST(LongWords, EachOfSeveralIsFound) {
    const QString text = QString(2000, u'x') + u' ' + QString(2000, u'y') + u'\t' + QString(2000, u'z');
    LongWords words(text);
    EXPECT_TRUE(words.goesOn(0));
    EXPECT_FALSE(words.goesOn(1900));
    EXPECT_TRUE(words.goesOn(2001));
    EXPECT_TRUE(words.goesOn(4002));
    EXPECT_FALSE(words.goesOn(5900));
}

} // namespace velm
