// The chosen collections and the text by which they are kept.
#include "search/typeschoisis.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(TypesChoisisTest, ANewWindowHasAllTypesOn) {
    const TypesChoisis types;
    EXPECT_TRUE(types.tous());
    EXPECT_EQ(types.statut(), u"11111111111");
    EXPECT_EQ(types.codes(), codestypes);
}

TEST(TypesChoisisTest, ThePressedTypesAreRememberedInTheOrderOfTheButtons) {
    const TypesChoisis types = TypesChoisis::lit(u"10000000001");
    EXPECT_EQ(types.liste(), (QStringList{u"CO"_s, u"DI"_s}));
    EXPECT_EQ(types.statut(), u"10000000001");
    EXPECT_EQ(TypesChoisis::lit(types.statut()), types);
    EXPECT_TRUE(TypesChoisis::lit(u"00000000000").aucun());
}

TEST(TypesChoisisTest, ADamagedTextReleasesOnlyWhatItNames) {
    EXPECT_EQ(TypesChoisis::lit(u"").statut(), u"11111111111");
    EXPECT_EQ(TypesChoisis::lit(u"0x0").statut(), u"01011111111");
    EXPECT_EQ(TypesChoisis::lit(u"111111111110000").statut(), u"11111111111");
}

TEST(TypesChoisisTest, CodesAreReadInPairs) {
    EXPECT_EQ(TypesChoisis::decodes(u"JPCO").codes(), u"COJP");
    EXPECT_TRUE(TypesChoisis::decodes(u"OE").aucun()) << "no pair straddles two";
}
