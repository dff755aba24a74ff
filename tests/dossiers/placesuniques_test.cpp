// Saves into a store that lets no two dossiers have one place.
#include "sauvegarde_support.h"

namespace velm::test {
namespace {

class PlacesUniquesTest : public SauvegardeTest {
protected:
    void SetUp() override {
        SauvegardeTest::SetUp();
        ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}, {3, 0, 3, u"c"_s, 0}, {4, 99, 5, u"hors"_s, 0}});
        ASSERT_TRUE(magasin.dbdossiers().execute(u"CREATE UNIQUE INDEX places ON arborescences(ordre)"_s));
        charge();
    }
};

TEST_F(PlacesUniquesTest, APlaceThatIsTakenIsPassedOver) {
    noeuds.setText(arbre.ajoute(noeud(0), QString()), u"n"_s);
    ASSERT_NE(arbre.monte(noeud(3)), 0);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0},
                                   {2, 0, 4, u"b"_s, 0},
                                   {3, 0, 3, u"c"_s, 0},
                                   {4, 99, 5, u"hors"_s, 0},
                                   {5, 0, 6, u"n"_s, 0}}));
    charge();
    EXPECT_EQ(dessin(), u"1 3 2 5"_s);
    // Again and again, in the same order.
    for (int i = 0; i < 5; ++i) {
        sauve();
        charge();
        EXPECT_EQ(dessin(), u"1 3 2 5"_s);
    }
}

TEST_F(PlacesUniquesTest, ARenamedDossierWhosePlaceIsTakenKeepsItsOwnAndItsNewName) {
    arbre.commencerenommage(noeud(3));
    noeuds.setText(noeud(3), u"autre"_s);
    ASSERT_TRUE(magasin.dbdossiers().execute(u"UPDATE arborescences SET ordre=-1 WHERE numerodutype=3; "
                                             "UPDATE arborescences SET ordre=3 WHERE numerodutype=4; "
                                             "UPDATE arborescences SET ordre=-2 WHERE numerodutype=2; "
                                             "UPDATE arborescences SET ordre=-3 WHERE numerodutype=1"_s));
    sauve();
    EXPECT_EQ(
        dossiers(),
        (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}, {3, 0, -1, u"autre"_s, 0}, {4, 99, 3, u"hors"_s, 0}}));
}

TEST_F(PlacesUniquesTest, ARowThatNoPlaceHelpsIsRefusedInTheEnd) {
    ASSERT_TRUE(
        magasin.dbdossiers().execute(u"DROP INDEX places; CREATE UNIQUE INDEX noms ON arborescences(typededonnées)"_s));
    noeuds.setText(noeud(1), u"c"_s);
    // No place helps: as many are tried as there are rows.
    EXPECT_EQ(arbre.Sauvearbre().obstacle, Obstacle::Exists);
    EXPECT_EQ(dossiers().front().nom, u"a"_s);
    arbre.commencerenommage(noeud(1));
    noeuds.setText(noeud(1), u"c"_s);
    EXPECT_EQ(arbre.Sauvearbre().obstacle, Obstacle::Exists);
    noeuds.setText(noeud(1), u"d"_s);
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(dossiers().front().nom, u"d"_s);
    // So it is with one that has moved and with one that is new.
    ASSERT_TRUE(arbre.deplace(noeud(2), noeud(3)));
    noeuds.setText(noeud(2), u"d"_s);
    EXPECT_EQ(arbre.Sauvearbre().obstacle, Obstacle::Exists);
    noeuds.setText(noeud(2), u"b"_s);
    const int nouveau = arbre.ajoute(noeud(0), u"c"_s);
    EXPECT_EQ(arbre.Sauvearbre().obstacle, Obstacle::Exists);
    EXPECT_EQ(dossiers().size(), 4U);
    EXPECT_EQ(dossiers()[1].parent, 0);
    noeuds.setText(nouveau, u"e"_s);
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    EXPECT_EQ(dossiers().size(), 5U);
    EXPECT_EQ(dossiers()[1].parent, 3);
}

} // namespace
} // namespace velm::test
