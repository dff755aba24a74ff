#include "core/dates.h"
#include "tests/core/texteslivres.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(Dates, ADateOfTheBaseIsWrittenInWords) {
    EXPECT_EQ(dateecrite(u"2005-02-18"_s, test::texteslivres(u"FR"_s)), u"18\u00A0février 2005");
    EXPECT_EQ(dateecrite(u"2005-02-18"_s, test::texteslivres(u"EN"_s)), u"18\u00A0February 2005");
}

TEST(Dates, TheFirstOfAMonthHasItsOwnWord) {
    EXPECT_EQ(dateecrite(u"1993-07-01"_s, test::texteslivres(u"FR"_s)), u"1er\u00A0juillet 1993");
    EXPECT_EQ(dateecrite(u"1993-07-01"_s, test::texteslivres(u"EN"_s)), u"1\u00A0July 1993");
    EXPECT_EQ(dateecrite(u"1993-07-11"_s, test::texteslivres(u"FR"_s)), u"11\u00A0juillet 1993");
}

TEST(Dates, EachMonthHasItsName) {
    const QStringList mois{u"janvier"_s, u"février"_s, u"mars"_s,      u"avril"_s,   u"mai"_s,      u"juin"_s,
                           u"juillet"_s, u"août"_s,    u"septembre"_s, u"octobre"_s, u"novembre"_s, u"décembre"_s};
    for (int rang = 1; rang <= 12; ++rang)
        EXPECT_EQ(dateecrite(u"2000-%1-05"_s.arg(rang, 2, 10, QChar(u'0')), test::texteslivres(u"FR"_s)),
                  u"5\u00A0%1 2000"_s.arg(mois.at(rang - 1)));
}

TEST(Dates, WhatIsNoDateOfACalendarStaysAsItIs) {
    for (const QString& texte : {QString(), u"2005"_s, u"2005-02"_s, u"2005-02-30"_s, u"18/02/2005"_s, u"an II"_s,
                                 u"2005-02-18 "_s, u"2005-2-18"_s})
        EXPECT_EQ(dateecrite(texte, test::texteslivres(u"FR"_s)), texte);
}
