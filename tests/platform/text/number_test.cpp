#include "platform/text/number.h"

#include <QString>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Reading {
    QStringView text;
    double value;
};

TEST(Val, ReadsTheNumberThatATextBeginsWith) {
    const Reading readings[] = {
        {u"12", 12},
        {u"12 rue", 12},
        {u"007", 7},
        {u"-5", -5},
        {u"+5", 5},
        {u"3.25", 3.25},
        {u".5", 0.5},
        {u"-.5", -0.5},
        {u"5.", 5},
        {u"2450)", 2450},
        {u"31204310P", 31204310},
    };
    for (const Reading& r : readings)
        EXPECT_EQ(val(r.text), r.value) << r.text.toUtf8().constData();
}

TEST(Val, PassesOverBlanksTabsAndLineFeedsAlsoBetweenDigits) {
    EXPECT_EQ(val(u"  12"), 12);
    EXPECT_EQ(val(u"1 2 3"), 123);
    EXPECT_EQ(val(u"\t1\n2"), 12);
    EXPECT_EQ(val(u"- 5"), -5);
    EXPECT_EQ(val(u"1 . 5"), 1.5);
    EXPECT_EQ(val(u" 3 1204 310P"), 31204310) << "the tail of an extract's key";
    EXPECT_EQ(val(u"1 E 2"), 100);
}

TEST(Val, EndsAtACarriageReturnOrANoBreakSpace) {
    EXPECT_EQ(val(u"1\r2"), 1);
    EXPECT_EQ(val(u"1\u00A02"), 1);
}

TEST(Val, ATextWithoutANumberIsZero) {
    for (const QStringView text : {u""_s, u" "_s, u"abc"_s, u"-"_s, u"."_s, u"-."_s, u"E5"_s, u"--5"_s, u"+-5"_s})
        EXPECT_EQ(val(text), 0) << text.toUtf8().constData();
}

TEST(Val, OnlyAPointIsADecimalSign) {
    EXPECT_EQ(val(u"2,5"), 2);
    EXPECT_EQ(val(u"1.2.3"), 1.2);
}

TEST(Val, ExponentLettersCountBehindDigits) {
    EXPECT_EQ(val(u"1E3"), 1000);
    EXPECT_EQ(val(u"1e3"), 1000);
    EXPECT_EQ(val(u"1D3"), 1000);
    EXPECT_EQ(val(u"1d-3"), 0.001);
    EXPECT_EQ(val(u"15e+2x"), 1500);
    EXPECT_EQ(val(u"2.E2"), 200);
}

TEST(Val, AnExponentLetterWithoutDigitsIsNoPartOfTheNumber) {
    EXPECT_EQ(val(u"5E"), 5);
    EXPECT_EQ(val(u"5E+"), 5);
    EXPECT_EQ(val(u"5eme"), 5);
    EXPECT_EQ(val(u"1E2E3"), 100);
}

TEST(Val, HexadecimalMarksAreNotNumbers) {
    EXPECT_EQ(val(u"&H10"), 0);
    EXPECT_EQ(val(u"0x10"), 0);
}

TEST(Val, DigitsOfOtherScriptsAreNotDigits) {
    EXPECT_EQ(val(u"\u0661"), 0);
    EXPECT_EQ(val(u"\uFF11"), 0);
}

TEST(Val, IsFiniteBeyondTheRangeOfADouble) {
    EXPECT_EQ(val(u"1E999"), std::numeric_limits<double>::max());
    EXPECT_EQ(val(u"-1E999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(val(u"1E-999"), 0);
    EXPECT_EQ(val(u"1E99999999999999999999999"), std::numeric_limits<double>::max());
    EXPECT_EQ(val(u"1E-99999999999999999999999"), 0);
    EXPECT_EQ(val(u"0E999"), 0);
    EXPECT_EQ(val(u"0."_s + QString(5000, u'0') + u"1"_s), 0);
    EXPECT_EQ(val(QString(5000, u'9')), std::numeric_limits<double>::max());
    EXPECT_EQ(val(QString(5000, u'9') + u"E-9999"_s), 0);
    EXPECT_EQ(val(u"1"_s + QString(400, u'0') + u"E-400"_s), 1);
}

TEST(NumberText, HasABlankOrAMinusInTheSignPosition) {
    EXPECT_EQ(numberText(12), u" 12"_s);
    EXPECT_EQ(numberText(0), u" 0"_s);
    EXPECT_EQ(numberText(-3), u"-3"_s);
    EXPECT_EQ(numberText(std::numeric_limits<qint64>::min()), u"-9223372036854775808"_s);
    EXPECT_EQ(numberText(std::numeric_limits<qint64>::max()), u" 9223372036854775807"_s);
}

TEST(RoundHalfEven, AnExactHalfGoesToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(-1.5), -2);
    EXPECT_EQ(roundHalfEven(-2.5), -2);
    EXPECT_EQ(roundHalfEven(0.49999999999999994), 0);
    EXPECT_EQ(roundHalfEven(0.51), 1);
    EXPECT_EQ(roundHalfEven(-7.75), -8);
    EXPECT_EQ(roundHalfEven(4305), 4305);
}

TEST(RoundHalfEven, Saturates) {
    EXPECT_EQ(roundHalfEven(1e300), std::numeric_limits<qint64>::max());
    EXPECT_EQ(roundHalfEven(-1e300), std::numeric_limits<qint64>::min());
    EXPECT_EQ(roundHalfEven(9223372036854775808.0), std::numeric_limits<qint64>::max());
    EXPECT_EQ(roundHalfEven(-9223372036854775808.0), std::numeric_limits<qint64>::min());
    EXPECT_EQ(roundHalfEven(std::numeric_limits<double>::infinity()), std::numeric_limits<qint64>::max());
    EXPECT_EQ(roundHalfEven(std::nan("")), 0);
}

TEST(WholeNumber, TakesBlanksAroundAndOneSign) {
    EXPECT_EQ(wholeNumber(u"12"), 12);
    EXPECT_EQ(wholeNumber(u"  12\t"), 12);
    EXPECT_EQ(wholeNumber(u"-12"), -12);
    EXPECT_EQ(wholeNumber(u"+12"), 12);
    EXPECT_EQ(wholeNumber(u"007"), 7);
}

TEST(WholeNumber, AnythingElseIsNone) {
    for (const QStringView text :
         {u""_s, u" "_s, u"-"_s, u"+"_s, u"1 2"_s, u"- 1"_s, u"1.0"_s, u"1e3"_s, u"--1"_s, u"12a"_s, u"\u0661"_s})
        EXPECT_FALSE(wholeNumber(text)) << text.toUtf8().constData();
}

TEST(WholeNumber, MustFit) {
    EXPECT_EQ(wholeNumber(u"9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(wholeNumber(u"-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_FALSE(wholeNumber(u"9223372036854775808"));
    EXPECT_FALSE(wholeNumber(u"-9223372036854775809"));
    EXPECT_FALSE(wholeNumber(u"99999999999999999999"));
}

} // namespace
