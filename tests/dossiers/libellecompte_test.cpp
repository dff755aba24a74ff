#include "dossiers/libellecompte.h"

#include <gtest/gtest.h>
#include <limits>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(LibelleCompte, TheCountStandsInBracketsNoneForZero) {
    EXPECT_EQ(aveccompteur(u"Baux"_s, 3), u"Baux [3]");
    EXPECT_EQ(aveccompteur(u"Baux"_s, 0), u"Baux");
    EXPECT_EQ(sanscompteur(u"Baux [3]"_s), u"Baux");
    EXPECT_EQ(compteurarbo(u"Baux [3]"_s), 3);
    EXPECT_EQ(sanscompteur(u"Baux"_s), u"Baux");
    EXPECT_EQ(compteurarbo(u"Baux"_s), 0);
    EXPECT_EQ(compteurarbo(QString()), 0);
    EXPECT_EQ(compteurarbo(u"12 rue des Lilas"_s), 0);
    EXPECT_EQ(compteurarbo(u"12]"_s), 0);
    EXPECT_EQ(sanscompteur(u"Baux]"_s), u"Baux]");
    EXPECT_EQ(sanscompteur(u"[3] Baux"_s), u"[3] Baux");
}

TEST(LibelleCompte, ANameInBracketsIsTakenForACount) {
    EXPECT_EQ(sanscompteur(u"Loi [1989]"_s), u"Loi");
    EXPECT_EQ(compteurarbo(u"Loi [1989]"_s), 1989);
    EXPECT_EQ(sanscompteur(u"Loi [projet]"_s), u"Loi");
    EXPECT_EQ(compteurarbo(u"Loi [projet]"_s), 0);
}

TEST(LibelleCompte, WhateverStandsBeforeTheBracketGoesWithIt) {
    EXPECT_EQ(sanscompteur(u"Baux[3]"_s), u"Bau");
    EXPECT_EQ(sanscompteur(u"[3]"_s), u"");
    EXPECT_EQ(sanscompteur(u"x[3]"_s), u"");
}

TEST(LibelleCompte, ACountIsChangedWhereItStands) {
    EXPECT_EQ(compteurchange(u"Baux"_s, 1), u"Baux [1]");
    EXPECT_EQ(compteurchange(u"Baux [1]"_s, 1), u"Baux [2]");
    EXPECT_EQ(compteurchange(u"Baux [1]"_s, -1), u"Baux");
    EXPECT_EQ(compteurchange(u"Baux"_s, -1), u"Baux [-1]");
    EXPECT_EQ(compteurchange(u"Baux [-1]"_s, 1), u"Baux");
    EXPECT_EQ(compteurchange(u"Baux"_s, 0), u"Baux");
    EXPECT_EQ(compteurchange(u"Loi [a] [9]"_s, 2), u"Loi [a] [11]");
    EXPECT_EQ(compteurchange(u"Loi [a]"_s, 2), u"Loi [2]");
    EXPECT_EQ(compteurchange(u"[3]"_s, -3), u"");
    EXPECT_EQ(compteurchange(u"12]"_s, 2), u"12] [2]");
}

TEST(LibelleCompte, ACountThatHasNoNextOneStays) {
    constexpr qint64 dernier = std::numeric_limits<qint64>::max();
    EXPECT_EQ(comptechange(3, -1), 2);
    EXPECT_EQ(comptechange(dernier, 1), dernier);
    EXPECT_EQ(comptechange(-dernier - 1, -1), -dernier - 1);
}

} // namespace
} // namespace velm::test
