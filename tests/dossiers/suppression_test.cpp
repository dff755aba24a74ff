// What a save does with dossiers that are marked for deletion.
#include "sauvegarde_support.h"

namespace velm::test {
namespace {

TEST_F(SauvegardeTest, ANewDossierDeletedBeforeASaveWritesNothing) {
    ouvre({{1, 0, 1, u"a"_s, 0}});
    charge();
    const int nouveau = arbre.ajoute(noeud(0), u"n"_s);
    arbre.marquersuppression(nouveau, true);
    EXPECT_EQ(noeuds.tag(nouveau), u"+AS"_s);
    sauve();
    EXPECT_EQ(numeros(), (Numeros{1}));
    EXPECT_EQ(dessin(), u"1"_s);
}

TEST_F(SauvegardeTest, AMarkedLeafIsDeletedWithItsItems) {
    ouvre({{1, 0, 1, u"a"_s, 2}, {2, 0, 2, u"b"_s, 1}}, {{1, 1, u"CO000001"_s, u"x"_s, 0, 0},
                                                         {1, 4, u"CO000002"_s, u"y"_s, 0, 0},
                                                         {2, 1, u"CO000001"_s, u"z"_s, 0, 0}});
    charge();
    arbre.marquersuppression(noeud(1), true);
    EXPECT_EQ(elements().size(), 3U);
    sauve();
    EXPECT_EQ(numeros(), (Numeros{2}));
    EXPECT_EQ(proprietaires(), (Numeros{2}));
    EXPECT_EQ(dessin(), u"2"_s);
}

TEST_F(SauvegardeTest, UnopenedChildrenOfAMarkedLeafBecomeOrphans) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}, {3, 1, 3, u"c"_s, 1}}, {{3, 1, u"CO000001"_s, u"x"_s, 0, 0}});
    charge();
    arbre.marquersuppression(noeud(1), true);
    sauve();
    EXPECT_EQ(numeros(), (Numeros{2, 3}));
    EXPECT_EQ(proprietaires(), (Numeros{3}));
}

TEST_F(SauvegardeTest, AMarkedDossierWithLoadedChildrenKeepsItsRow) {
    ouvre({{1, 0, 5, u"a"_s, 1}, {2, 1, 6, u"b"_s, 1}, {3, 0, 7, u"c"_s, 0}},
          {{1, 1, u"CO000001"_s, u"x"_s, 0, 0}, {2, 1, u"CO000001"_s, u"y"_s, 0, 0}});
    charge();
    arbre.toutdevelopper();
    arbre.marquersuppression(noeud(1), true);
    sauve();
    // As it was: its place is not written, and the running number passes it over.
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 5, u"a"_s, 1}, {3, 0, 1, u"c"_s, 0}}));
    EXPECT_EQ(proprietaires(), (Numeros{1}));
    EXPECT_EQ(dessin(), u"1 .2 3"_s);
    charge();
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"3 1"_s);
}

TEST_F(SauvegardeTest, AnUnmarkedChildOfAMarkedDossierIsSaved) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 1, 2, u"b"_s, 0}, {3, 1, 3, u"c"_s, 0}});
    charge();
    arbre.toutdevelopper();
    arbre.marquersuppression(noeud(1), true);
    arbre.marquersuppression(noeud(3), false);
    EXPECT_EQ(noeuds.tag(noeud(3)), u"+"_s);
    EXPECT_EQ(noeuds.image(noeud(3)), u"dossierfermé"_s);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0}, {3, 1, 1, u"c"_s, 0}}));
}

TEST_F(SauvegardeTest, TheLastRootChildStaysVisibleAfterItsDeletion) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}, {3, 0, 3, u"c"_s, 0}});
    charge();
    for (const qint64 un : {1, 2, 3})
        arbre.marquersuppression(noeud(un), true);
    sauve();
    EXPECT_TRUE(dossiers().empty());
    EXPECT_EQ(dessin(), u"3"_s);
    charge();
    EXPECT_EQ(dessin(), QString());
}

} // namespace
} // namespace velm::test
