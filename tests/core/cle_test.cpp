#include "core/cle.h"

#include <QSet>

#include <gtest/gtest.h>
#include <unordered_set>

using namespace velm;

TEST(Cle, IsSplitIntoCodeAndNumber) {
    const Cle cle = decoupecle(u"CO000123");
    EXPECT_EQ(cle.code, u"CO");
    EXPECT_EQ(cle.numero, u"000123");
    EXPECT_EQ(cle.texte(), u"CO000123");
    EXPECT_EQ(decoupecle(u"C").code, u"C");
    EXPECT_TRUE(decoupecle(u"C").numero.isEmpty());
}

TEST(Cle, ATextThatIsNoKeyComesBackAsItWas) {
    for (const QStringView texte : {u"", u"C", u"CO", u"CO1", u"co000001", u"CO00000123", u"-1", u"  "})
        EXPECT_EQ(decoupecle(texte).texte(), texte);
}

TEST(Cle, OnlyTheEmptyOneNamesNoDocument) {
    EXPECT_TRUE(Cle().vide());
    EXPECT_TRUE(decoupecle(u"").vide());
    EXPECT_FALSE(decoupecle(u"C").vide());
    EXPECT_FALSE((Cle{{}, QStringLiteral("000001")}.vide()));
}

TEST(Cle, TellsTheSlotOfItsWindow) {
    EXPECT_EQ(decoupecle(u"JP000007").indice(), 2);
    EXPECT_EQ(decoupecle(u"IN000001").indice(), 11);
    EXPECT_EQ(decoupecle(u"ZZ000001").indice(), 0);
}

TEST(Cle, IsFoundAgainAmongOthers) {
    const Cle une = decoupecle(u"CO000001");
    EXPECT_EQ(une, (Cle{QStringLiteral("CO"), QStringLiteral("000001")}));
    EXPECT_NE(une, decoupecle(u"EU000001"));
    EXPECT_NE(une, decoupecle(u"CO000002"));
    EXPECT_NE(une, decoupecle(u"co000001")) << "the case counts";
    const QSet<Cle> vues{une, decoupecle(u"EU000001"), decoupecle(u"CO000001")};
    EXPECT_EQ(vues.size(), 2);
    EXPECT_TRUE(vues.contains(une));
    const std::unordered_set<Cle> autres{une, decoupecle(u"EU000001"), decoupecle(u"CO000001")};
    EXPECT_EQ(autres.size(), 2U);
    EXPECT_FALSE(autres.contains(decoupecle(u"CO000002")));
}

TEST(Cle, OfSevenOrNineCharactersIsNone) {
    EXPECT_TRUE(estcle(u"CO000123"));
    EXPECT_FALSE(estcle(u"CO00012"));
    EXPECT_FALSE(estcle(u"CO0001234"));
    EXPECT_FALSE(estcle(u""));
}

TEST(Cle, OfTheMarkupKnowsTheElevenCodesAndPairsThatStraddle) {
    for (qsizetype i = 0; i < codestypes.size(); i += 2)
        EXPECT_TRUE(estcle(codestypes.sliced(i, 2).toString() + QStringLiteral("000001")));
    EXPECT_FALSE(estcle(u"IN000001"));
    EXPECT_FALSE(estcle(u"XX000001"));
    // DI stands before VP here: their straddling pair is IV, where the list of types has PD.
    EXPECT_TRUE(estcle(u"IV000001"));
    EXPECT_FALSE(estcle(u"PD000001"));
    EXPECT_EQ(codesmarques, u"COEUJPCLJRPRLTADGLDIVP");
}

TEST(Cle, EachCodeMapsToItsSlotAndBack) {
    const QStringList codes{QStringLiteral("CO"), QStringLiteral("EU"), QStringLiteral("JP"), QStringLiteral("CL"),
                            QStringLiteral("JR"), QStringLiteral("PR"), QStringLiteral("LT"), QStringLiteral("AD"),
                            QStringLiteral("GL"), QStringLiteral("VP"), QStringLiteral("DI"), QStringLiteral("IN")};
    for (int i = 0; i < codes.size(); ++i) {
        EXPECT_EQ(indicedetype(codes.at(i)), i);
        EXPECT_EQ(typedindice(i), codes.at(i));
    }
    EXPECT_EQ(indicedetype(u"IN"), 11);
    EXPECT_TRUE(typedindice(12).isEmpty());
    EXPECT_TRUE(typedindice(-1).isEmpty());
}

TEST(Cle, AnUnknownCodeMapsToSlotZero) {
    EXPECT_EQ(indicedetype(u"ZZ"), 0);
    EXPECT_EQ(indicedetype(u"co"), 0);
}

TEST(Cle, APairThatStraddlesTwoCodesIsRoundedToTheEvenSlot) {
    EXPECT_EQ(indicedetype(u"OE"), 0); // 0.5
    EXPECT_EQ(indicedetype(u"UJ"), 2); // 1.5
    EXPECT_EQ(indicedetype(u"PC"), 2); // 2.5
    EXPECT_EQ(indicedetype(u"LJ"), 4); // 3.5
}

TEST(Cle, SixDigitsArePaddedAndCut) {
    EXPECT_EQ(sixchiffres(7), u"000007");
    EXPECT_EQ(sixchiffres(0), u"000000");
    EXPECT_EQ(sixchiffres(123456), u"123456");
    EXPECT_EQ(sixchiffres(1234567), u"234567");
    EXPECT_EQ(sixchiffres(-1), u"0000-1");
}

TEST(Cle, AKeyIsReadAsPeopleWriteIt) {
    for (const QStringView saisie : {u"CO000088", u"co000088", u"Co88", u"cO 88 "}) {
        const auto cle = clesaisie(saisie);
        ASSERT_TRUE(cle) << saisie.toString().toStdString();
        EXPECT_EQ(cle->texte(), u"CO000088");
    }
    for (const QStringView saisie : {u"", u"CO", u"C1", u"CO12x", u"COE5", u"article"})
        EXPECT_FALSE(clesaisie(saisie)) << saisie.toString().toStdString();
}
