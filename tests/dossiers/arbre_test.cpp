// What the tree shows of the store, and how it is loaded.
#include "differences.h"

namespace velm::test {
namespace {

using ChargementTest = ArbreTest;

TEST_F(ChargementTest, AnEmptyStoreShowsTheRootAlone) {
    ouvre();
    charge();
    EXPECT_EQ(dessinnoeuds(noeuds), u"0|X  0|Mes dossiers|dossierfermé|dossierouvert|+"_s);
    EXPECT_TRUE(noeuds.expanded(noeud(0)));
    EXPECT_EQ(arbre.prochainnumero(), 1);
    EXPECT_FALSE(arbre.modifie());
}

TEST_F(ChargementTest, TheTreeLoadsOneLevelAhead) {
    ouvre({{1, 0, 1, u"Un"_s, 0}, {2, 1, 2, u"Deux"_s, 0}, {3, 2, 3, u"Trois"_s, 0}, {4, 3, 4, u"Quatre"_s, 0}});
    charge();
    // The recursive call of the loader never happens: one level.
    EXPECT_EQ(dessin(), u"1"_s);
    arbre.developpe(noeud(0));
    EXPECT_EQ(dessin(), u"1 .2"_s);
    EXPECT_EQ(noeuds.tag(noeud(1)), u"+"_s);
    EXPECT_EQ(noeuds.tag(noeud(2)), QString());
    arbre.developpe(noeud(1));
    EXPECT_EQ(dessin(), u"1 .2 ..3"_s);
}

TEST_F(ChargementTest, ANodesKeyKeepsTwoBlanks) {
    ouvre({{12, 0, 1, u"Douze"_s, 0}, {-4, 0, 2, u"Moins"_s, 0}});
    charge();
    EXPECT_EQ(noeuds.key(noeuds.childAt(noeud(0), 0)), u"X  12"_s);
    EXPECT_EQ(noeuds.key(noeuds.childAt(noeud(0), 1)), u"X -4"_s);
    EXPECT_EQ(arbre.numero(noeud(12)), 12);
    EXPECT_EQ(arbre.numero(noeud(-4)), -4);
}

TEST_F(ChargementTest, TheCountStandsInBracketsNoneForZero) {
    ouvre({{1, 0, 1, u"Baux"_s, 3}, {2, 0, 2, u"Crédit"_s, 0}, {3, 0, 3, u"Moins"_s, -1}});
    charge();
    EXPECT_EQ(noeuds.text(noeud(1)), u"Baux [3]"_s);
    EXPECT_EQ(noeuds.text(noeud(2)), u"Crédit"_s);
    EXPECT_EQ(noeuds.text(noeud(3)), u"Moins [-1]"_s);
}

TEST_F(ChargementTest, SiblingsStandInTheirOrderNotInThatOfTheirNumbers) {
    ouvre({{1, 0, 9, u"c"_s, 0}, {2, 0, 5, u"b"_s, 0}, {3, 0, -1, u"a"_s, 0}});
    charge();
    EXPECT_EQ(dessin(), u"3 2 1"_s);
}

TEST_F(ChargementTest, WhatIsLoadedBelowAMarkedNodeIsMarked) {
    ouvre({{1, 0, 1, u"Un"_s, 0}, {2, 1, 2, u"Deux"_s, 0}});
    charge();
    arbre.marquersuppression(noeud(1), true);
    EXPECT_EQ(noeuds.tag(noeud(1)), u"S"_s);
    arbre.developpe(noeud(0));
    EXPECT_EQ(noeuds.tag(noeud(1)), u"+S"_s);
    EXPECT_EQ(noeuds.tag(noeud(2)), u"S"_s);
    EXPECT_EQ(noeuds.image(noeud(2)), u"dossierfermésuppr"_s);
    EXPECT_EQ(noeuds.selectedImage(noeud(2)), u"dossierouvertsuppr"_s);
}

TEST_F(ChargementTest, ANodeIsNotLoadedTwiceAndOneThatMovedStaysWhereItIs) {
    ouvre({{1, 0, 1, u"Un"_s, 0}, {2, 0, 2, u"Deux"_s, 0}, {3, 1, 3, u"Trois"_s, 0}});
    charge();
    arbre.toutdevelopper();
    ASSERT_TRUE(arbre.deplace(noeud(3), noeud(2)));
    ASSERT_EQ(arbre.descend(noeud(1)), noeud(1));
    EXPECT_EQ(noeuds.tag(noeud(1)), u"+D"_s);
    EXPECT_EQ(noeuds.tag(noeud(2)), u"+D"_s);
    ASSERT_NE(arbre.monte(noeud(1)), 0);
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"1 2 .3"_s);
}

TEST_F(ChargementTest, ExpandAllLoadsEveryLevel) {
    ouvre({{1, 0, 1, u"Un"_s, 0}, {2, 1, 2, u"Deux"_s, 0}, {3, 2, 3, u"Trois"_s, 0}, {4, 0, 4, u"Quatre"_s, 0}});
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"1 .2 ..3 4"_s);
    for (int i = 1; i <= noeuds.count(); ++i) {
        EXPECT_TRUE(noeuds.expanded(i));
        EXPECT_EQ(noeuds.tag(i), u"+"_s);
    }
    EXPECT_TRUE(noeuds.redraw());
}

TEST_F(ChargementTest, CollapseAllFoldsTheRootToo) {
    ouvre({{1, 0, 1, u"Un"_s, 0}, {2, 1, 2, u"Deux"_s, 0}});
    charge();
    arbre.toutdevelopper();
    arbre.toutreduire();
    for (int i = 1; i <= noeuds.count(); ++i)
        EXPECT_FALSE(noeuds.expanded(i));
    EXPECT_TRUE(noeuds.redraw());
}

TEST_F(ChargementTest, TheTestBeforeADeletionWalksAndFindsNothing) {
    ouvre({{1, 0, 1, u"Un"_s, 5}, {2, 1, 2, u"Deux"_s, 0}}, {{1, 1, u"CO000001"_s, u"t"_s, 0, 0}});
    charge();
    arbre.toutdevelopper();
    EXPECT_FALSE(arbre.testearticle(noeud(1)));
    EXPECT_FALSE(arbre.testearticle(noeud(0)));
}

TEST_F(ChargementTest, CountingFindsTheItemsOfOneDossier) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0},
               {1, 7, u"CO000001"_s, u"b"_s, 0, 0},
               {3, 1, u"CO000002"_s, u"c"_s, 0, 0}});
    charge();
    EXPECT_EQ(arbre.comptearticle(1), 2);
    EXPECT_EQ(arbre.comptearticle(2), 0);
    EXPECT_EQ(arbre.comptearticle(3), 1);
    EXPECT_EQ(arbre.comptearticle(4), 0);
    EXPECT_EQ(arbre.comptearticle(0), 0);
}

// ---- rows that no save has written

TEST_F(ChargementTest, CyclesAndOrphansAreNotReached) {
    ouvre({{1, 2, 1, u"a"_s, 0},
           {2, 1, 2, u"b"_s, 0},
           {3, 3, 3, u"c"_s, 0},
           {4, 99, 4, u"d"_s, 0},
           {5, 0, 5, u"e"_s, 0}});
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"5"_s);
    arbre.notemodifie();
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(dossiers().size(), 5U);
}

TEST_F(ChargementTest, ARowWithTheRootsNumberIsPassedOver) {
    ouvre({{0, 0, 1, u"racine"_s, 0}, {1, 0, 2, u"Un"_s, 0}});
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"1"_s);
    EXPECT_EQ(noeuds.text(noeud(0)), u"Mes dossiers"_s);
}

TEST_F(ChargementTest, RowsOfNullsAreReadAsNothing) {
    ouvre({{1, 0, 1, u"Un"_s, 0}});
    ASSERT_TRUE(magasin.dbdossiers().execute(
        u"INSERT INTO arborescences DEFAULT VALUES; INSERT INTO arborescences(numerodutype,dépendance) VALUES(2,0);"
        "INSERT INTO données DEFAULT VALUES; INSERT INTO données DEFAULT VALUES;"
        "INSERT INTO données(arborescence) VALUES(1); INSERT INTO données(arborescence) VALUES(1)"_s));
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"2 1"_s);
    EXPECT_EQ(noeuds.text(noeud(2)), QString());
    ListItems elements;
    ContenuDossier contenu(magasin, elements, u"extrait"_s);
    contenu.liste(1);
    EXPECT_EQ(dessinelements(elements), u" 0||"_s);
    arbre.notemodifie();
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(arbre.comptearticle(1), 2);
}

TEST_F(ChargementTest, HugeNumbersStayTheirOwn) {
    constexpr qint64 grand = 9'007'199'254'740'993; // no double is it
    constexpr qint64 dernier = std::numeric_limits<qint64>::max();
    constexpr qint64 premier = std::numeric_limits<qint64>::min();
    ouvre({{grand, 0, 1, u"a"_s, 0},
           {grand - 1, 0, 2, u"b"_s, 0},
           {dernier, grand, 3, u"c"_s, dernier},
           {premier, 0, 4, u"d"_s, premier}});
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(noeuds.text(noeud(grand)), u"a"_s);
    EXPECT_EQ(arbre.numero(noeud(grand)), grand);
    EXPECT_EQ(arbre.numero(noeud(dernier)), dernier);
    EXPECT_EQ(noeuds.parent(noeud(dernier)), noeud(grand));
    EXPECT_EQ(arbre.numero(noeud(premier)), premier);
    noeuds.setText(noeud(grand), u"autre"_s);
    arbre.notemodifie();
    ASSERT_TRUE(arbre.Sauvearbre().ok());
    charge();
    EXPECT_EQ(noeuds.text(noeud(grand)), u"autre"_s);
    EXPECT_EQ(noeuds.text(noeud(grand - 1)), u"b"_s);
    // The number after the last one is none; the next window asks on from the beginning.
    const int nouveau = arbre.ajoute(noeud(0), u"n"_s);
    EXPECT_EQ(arbre.numero(nouveau), 1);
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(dossiers().size(), 5U);
    arbre.modifierelements(noeud(dernier), 1);
    arbre.modifierelements(noeud(premier), -1);
}

TEST_F(ChargementTest, ANameOf64KilobytesIsKept) {
    const QString long64 = QString(65536, u'é');
    ouvre({{1, 0, 1, long64, 2}}, {{1, 1, u"CO000001"_s, long64, 0, 0}});
    charge();
    EXPECT_EQ(noeuds.text(noeud(1)), long64 + u" [2]"_s);
    arbre.notemodifie();
    ASSERT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(dossiers(), (std::vector<RangeeDossier>{{1, 0, 1, long64, 2}}));
}

TEST_F(ChargementTest, AStoreWithoutItsRowOfNumbersIsARunTimeError) {
    ouvre();
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM paramètres"_s));
    EXPECT_THROW(arbre.litprochainnumero(), Arret);
    EXPECT_FALSE(magasin.sain());
}

} // namespace
} // namespace velm::test
