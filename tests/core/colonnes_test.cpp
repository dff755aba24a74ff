// The columns of lists.
#include "colonnes_oracle.h"
#include "colonnes_support.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST(ColonnesTest, AModelGivesTheColumnsThatNobodyHasTouched) {
    const Colonnes colonnes(trouves(), texte);
    EXPECT_EQ(colonnes.nombre(), 7);
    EXPECT_EQ(colonnes.visibles(), 6);
    EXPECT_EQ(champs(colonnes), (std::vector{0, 1, 2, 3, 5, 4, 6}));
    EXPECT_EQ(largeurs(colonnes), (std::vector{3000, 2000, 2000, 2000, 500, 1000, 0}));
    EXPECT_EQ(colonnes.ordre(), OracleTrouves::masqueordre);
    EXPECT_EQ(colonnes.largeurs(), OracleTrouves::masquelargeurs);
    EXPECT_EQ(Colonnes(collection()).ordre(), u"01234");
    EXPECT_EQ(Colonnes(collection()).largeurs(), u"002000002000002000002000");
}

TEST(ColonnesTest, ATitleIsTheTextOfItsNumberAndMovesWithItsColumn) {
    Colonnes colonnes(trouves(), texte);
    for (const int place : {0, 1, 2, 3, 5})
        EXPECT_EQ(colonnes.titre(place), texte(Texte{titreduchamp(OracleTrouves::masqueordre[place])})) << place;
    EXPECT_TRUE(colonnes.titre(4).isEmpty());
    EXPECT_TRUE(colonnes.titre(6).isEmpty());
    colonnes.deplace(5, 0);
    EXPECT_EQ(colonnes.titre(0), u"t304");
    EXPECT_TRUE(Colonnes(trouves()).titre(0).isEmpty());
}

TEST(ColonnesTest, OutsideThereIsNoColumn) {
    const Colonnes colonnes(trouves(), texte);
    for (const int place : {-1, 7, 1000}) {
        EXPECT_EQ(colonnes.champ(place), -1);
        EXPECT_EQ(colonnes.largeur(place), 0);
        EXPECT_TRUE(colonnes.titre(place).isEmpty());
    }
    EXPECT_EQ(colonnes.place(9), -1);
    EXPECT_EQ(colonnes.place(-1), -1);
}

TEST(ColonnesTest, AColumnTakesItsMeaningAndItsWidthAlong) {
    Colonnes colonnes(trouves());
    colonnes.deplace(0, 5);
    EXPECT_EQ(champs(colonnes), (std::vector{1, 2, 3, 5, 4, 0, 6}));
    EXPECT_EQ(largeurs(colonnes), (std::vector{2000, 2000, 2000, 500, 1000, 3000, 0}));
    EXPECT_EQ(colonnes.place(0), 5);
    EXPECT_EQ(colonnes.place(5), 3);
    colonnes.deplace(5, 1);
    EXPECT_EQ(champs(colonnes), (std::vector{1, 0, 2, 3, 5, 4, 6}));
}

TEST(ColonnesTest, WhatIsNeverSeenStaysWhereItIsAndUnseen) {
    Colonnes colonnes(trouves());
    for (const auto& [de, vers] : {std::pair{6, 0}, {0, 6}, {-1, 0}, {0, -1}, {7, 1}})
        colonnes.deplace(de, vers);
    colonnes.changelargeur(6, 500);
    colonnes.changelargeur(-1, 500);
    EXPECT_EQ(champs(colonnes), champs(Colonnes(trouves())));
    EXPECT_EQ(largeurs(colonnes), largeurs(Colonnes(trouves())));
}

TEST(ColonnesTest, WidthsAreUsualUntilOneIsTouched) {
    Colonnes colonnes(trouves());
    EXPECT_TRUE(colonnes.largeursusuelles());
    colonnes.deplace(0, 4);
    EXPECT_TRUE(colonnes.largeursusuelles()) << "a column was moved only";
    colonnes.changelargeur(2, 2001);
    EXPECT_FALSE(colonnes.largeursusuelles());
    colonnes.changelargeur(2, -5);
    EXPECT_EQ(colonnes.largeur(2), 0);
}
