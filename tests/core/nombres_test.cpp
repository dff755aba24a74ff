#include "core/nombres.h"
#include "tests/core/texteslivres.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

Libelles mille(const QString& ecrit) {
    return [ecrit](Texte lequel) { return lequel == Texte::MilleEcrit ? ecrit : u"autre"_s; };
}

} // namespace

TEST(Nombres, ThousandsArePartedAsTheLanguageFileParts) {
    const Libelles texte = mille(u"1.000"_s);
    EXPECT_EQ(nombreecrit(0, texte), u"0");
    EXPECT_EQ(nombreecrit(999, texte), u"999");
    EXPECT_EQ(nombreecrit(1'000, texte), u"1.000");
    EXPECT_EQ(nombreecrit(18'402, texte), u"18.402");
    EXPECT_EQ(nombreecrit(123'456, texte), u"123.456");
    EXPECT_EQ(nombreecrit(1'234'567, texte), u"1.234.567");
}

TEST(Nombres, TheSignIsNoDigit) {
    EXPECT_EQ(nombreecrit(-123, mille(u"1.000"_s)), u"-123");
    EXPECT_EQ(nombreecrit(-1'234, mille(u"1.000"_s)), u"-1.234");
}

TEST(Nombres, ATextThatIsNoThousandPartsNothing) {
    for (const QString& ecrit : {u"1000"_s, QString(), u"t9760"_s, u"9760"_s, u"1.00"_s, u"2.000"_s, u"1 00 "_s})
        EXPECT_EQ(nombreecrit(18'402, mille(ecrit)), u"18402") << ecrit.toStdString();
}

TEST(Nombres, FrenchTakesTheNarrowSpaceAndEnglishTheComma) {
    EXPECT_EQ(nombreecrit(18'402, test::texteslivres(u"FR"_s)), u"18\u202F402");
    EXPECT_EQ(nombreecrit(18'402, test::texteslivres(u"EN"_s)), u"18,402");
}
