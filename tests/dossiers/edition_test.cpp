// What editing changes in the nodes and in their tags, before any save.
#include "differences.h"

namespace velm::test {
namespace {

class EditionTest : public ArbreTest {
protected:
    /// 1 (2, 3 (4)) and 5, all loaded.
    void SetUp() override {
        ArbreTest::SetUp();
        ouvre({{1, 0, 1, u"un"_s, 3},
               {2, 1, 2, u"deux"_s, 0},
               {3, 1, 3, u"trois"_s, 0},
               {4, 3, 4, u"quatre"_s, 0},
               {5, 0, 5, u"cinq"_s, 0}});
        charge();
        arbre.toutdevelopper();
    }
    QString lettres(qint64 numero) const { return noeuds.tag(noeud(numero)); }
};

TEST_F(EditionTest, ANewDossierTakesTheNextFreeNumber) {
    EXPECT_EQ(arbre.prochainnumero(), 6);
    const int nouveau = arbre.ajoute(noeud(3), u"n"_s);
    EXPECT_EQ(noeuds.key(nouveau), u"X  6"_s);
    EXPECT_EQ(dessin(), u"1 .2 .3 ..4 ..6 5"_s);
    EXPECT_EQ(noeuds.tag(nouveau), u"+A"_s);
    EXPECT_EQ(noeuds.selected(), nouveau);
    EXPECT_EQ(noeuds.image(nouveau), u"dossierfermé"_s);
    EXPECT_EQ(noeuds.selectedImage(nouveau), u"dossierouvert"_s);
    EXPECT_EQ(arbre.prochainnumero(), 7);
    EXPECT_TRUE(arbre.modifie());
}

TEST_F(EditionTest, ANewDossierOpensItsParent) {
    noeuds.setExpanded(noeud(5), false);
    arbre.ajoute(noeud(5), u"n"_s);
    EXPECT_TRUE(noeuds.expanded(noeud(5)));
}

TEST_F(EditionTest, NumbersOfRowsAndOfItemsAreNotGivenAgain) {
    ajoutedossier({6, 99, 1, u"caché"_s, 0});
    ajouteelement({7, 1, u"CO000001"_s, u"sans dossier"_s, 0, 0});
    EXPECT_EQ(arbre.numero(arbre.ajoute(noeud(0), u"n"_s)), 8);
    EXPECT_EQ(arbre.numero(arbre.ajoute(noeud(0), u"n"_s)), 9);
}

TEST_F(EditionTest, NumbersOfNodesAreNotGivenAgain) {
    arbre.ajoute(noeud(0), u"n"_s);
    arbre.litprochainnumero(); // as before
    EXPECT_EQ(arbre.numero(arbre.ajoute(noeud(0), u"n"_s)), 7);
}

TEST_F(EditionTest, RenamingShowsTheBareNameAndTheCountComesBack) {
    EXPECT_EQ(arbre.commencerenommage(noeud(1)), u"un"_s);
    EXPECT_EQ(noeuds.text(noeud(1)), u"un"_s);
    arbre.remetcompteur(noeud(1));
    EXPECT_EQ(noeuds.text(noeud(1)), u"un [3]"_s);
    arbre.commencerenommage(noeud(1));
    EXPECT_EQ(lettres(1), u"+R"_s);
    arbre.commencerenommage(noeud(5));
    arbre.remetcompteur(noeud(5));
    EXPECT_EQ(noeuds.text(noeud(5)), u"cinq"_s);
}

TEST_F(EditionTest, DeletingMarksADossierAndWhatIsLoadedBelowIt) {
    arbre.marquersuppression(noeud(3), true);
    EXPECT_EQ(lettres(3), u"+S"_s);
    EXPECT_EQ(lettres(4), u"+S"_s);
    EXPECT_EQ(lettres(1), u"+"_s);
    EXPECT_EQ(noeuds.image(noeud(4)), u"dossierfermésuppr"_s);
    EXPECT_EQ(noeuds.selectedImage(noeud(4)), u"dossierouvertsuppr"_s);
    EXPECT_TRUE(arbre.modifie());
}

TEST_F(EditionTest, DeletingAgainTakesTheMarkOff) {
    arbre.commencerenommage(noeud(4));
    arbre.marquersuppression(noeud(3), true);
    EXPECT_EQ(lettres(4), u"+RS"_s);
    arbre.marquersuppression(noeud(3), false);
    EXPECT_EQ(lettres(3), u"+"_s);
    EXPECT_EQ(lettres(4), u"+R"_s);
    EXPECT_EQ(noeuds.image(noeud(4)), u"dossierfermé"_s);
    EXPECT_EQ(noeuds.selectedImage(noeud(4)), u"dossierouvert"_s);
}

TEST_F(EditionTest, MovingADossierMarksItAndItsNeighbour) {
    ASSERT_NE(arbre.monte(noeud(3)), 0);
    EXPECT_EQ(dessin(), u"1 .3 ..4 .2 5"_s);
    EXPECT_EQ(lettres(3), u"+D"_s);
    EXPECT_EQ(lettres(2), u"+D"_s);
    EXPECT_EQ(lettres(1), u"+"_s);
    EXPECT_EQ(noeuds.selected(), noeud(3));
    EXPECT_TRUE(arbre.modifie());
    ASSERT_NE(arbre.descend(noeud(3)), 0);
    EXPECT_EQ(dessin(), u"1 .2 .3 ..4 5"_s);
    EXPECT_EQ(lettres(3), u"+D"_s) << "one letter of a kind";
}

TEST_F(EditionTest, ADossierAtTheEndOfItsSiblingsStays) {
    EXPECT_EQ(arbre.monte(noeud(2)), 0);
    EXPECT_EQ(arbre.descend(noeud(3)), 0);
    EXPECT_EQ(arbre.monte(noeud(0)), 0);
    EXPECT_EQ(arbre.descend(noeud(0)), 0);
    EXPECT_EQ(dessin(), u"1 .2 .3 ..4 5"_s);
    EXPECT_FALSE(arbre.modifie());
}

TEST_F(EditionTest, MovingADossierLosesTheMarksBelowIt) {
    arbre.marquersuppression(noeud(4), true);
    arbre.commencerenommage(noeud(3));
    ASSERT_NE(arbre.monte(noeud(3)), 0);
    EXPECT_EQ(lettres(3), u"+RD"_s) << "its own stay";
    EXPECT_EQ(lettres(4), QString()) << "not loaded any more, either";
    EXPECT_EQ(noeuds.image(noeud(4)), u"dossierfermésuppr"_s) << "the picture stays";
    arbre.toutdevelopper();
    EXPECT_EQ(dessin(), u"1 .3 ..4 .2 5"_s) << "what is there already is not loaded a second time";
}

TEST_F(EditionTest, ADossierThatMovesStaysOpenOrClosedAsItWas) {
    noeuds.setExpanded(noeud(3), true);
    noeuds.setExpanded(noeud(4), false);
    arbre.monte(noeud(3));
    EXPECT_TRUE(noeuds.expanded(noeud(3)));
    EXPECT_FALSE(noeuds.expanded(noeud(4)));
    noeuds.setExpanded(noeud(1), false);
    arbre.descend(noeud(1));
    EXPECT_FALSE(noeuds.expanded(noeud(1)));
    EXPECT_TRUE(noeuds.expanded(noeud(3)));
}

TEST_F(EditionTest, DroppingADossierMarksItAndAllBelowIt) {
    ASSERT_TRUE(arbre.deplace(noeud(3), noeud(5)));
    EXPECT_EQ(dessin(), u"1 .2 5 .3 ..4"_s);
    EXPECT_EQ(lettres(3), u"+D"_s);
    EXPECT_EQ(lettres(4), u"+D"_s);
    EXPECT_EQ(lettres(5), u"+"_s);
    EXPECT_TRUE(arbre.modifie());
}

TEST_F(EditionTest, DroppingADossierOnItselfOrBelowItselfIsRefused) {
    EXPECT_FALSE(arbre.deplace(noeud(1), noeud(1)));
    EXPECT_FALSE(arbre.deplace(noeud(1), noeud(4)));
    EXPECT_FALSE(arbre.deplace(noeud(0), noeud(1)));
    EXPECT_EQ(dessin(), u"1 .2 .3 ..4 5"_s);
    EXPECT_EQ(lettres(1), u"+"_s);
    EXPECT_FALSE(arbre.modifie());
}

TEST_F(EditionTest, TheRootShowsNoCount) {
    arbre.modifierelements(noeud(0), 3);
    EXPECT_EQ(noeuds.text(noeud(0)), u"Mes dossiers"_s);
    arbre.modifierelements(noeud(5), 2);
    EXPECT_EQ(noeuds.text(noeud(5)), u"cinq [2]"_s);
    arbre.modifierelements(noeud(5), -2);
    EXPECT_EQ(noeuds.text(noeud(5)), u"cinq"_s);
    arbre.modifierelements(0, 1);
}

/// A view that opens the root as soon as it sees it, and asks what is selected.
struct VueImpatiente final : TreeObserver {
    explicit VueImpatiente(ArbreDossiers& arbre) : arbre(arbre) {}
    void redrawSwitched(bool on) override {
        if (on)
            arbre.developpe(1);
    }
    void treeReset() override {}
    void nodesAdded(int /*first*/) override {}
    void nodeChanged(int /*node*/) override {}
    void nodeExpansion(int /*node*/, bool /*expanded*/) override {}
    void nodeSelected(int node) override { choisi = arbre.numero(node); }
    void nodeComes(int /*parent*/, int /*place*/) override {}
    void nodeGoes(int /*node*/) override {}
    void nodeMoves(int /*node*/, int /*parent*/) override {}
    void rearranged() override {}
    ArbreDossiers& arbre;
    qint64 choisi = 0;
};

TEST_F(EditionTest, ADossierThatMovesKeepsItsNumberAllTheTime) {
    VueImpatiente vue(arbre);
    noeuds.setObserver(&vue);
    arbre.monte(noeud(3));
    EXPECT_EQ(vue.choisi, 3);
    noeuds.setObserver(nullptr);
}

TEST_F(EditionTest, NothingIsLoadedBecauseTheTreeIsBuilt) {
    VueImpatiente vue(arbre);
    noeuds.setObserver(&vue);
    arbre.chargearbre();
    EXPECT_EQ(dessin(), u"1 5"_s);
    noeuds.setRedraw(false);
    noeuds.setRedraw(true);
    EXPECT_EQ(dessin(), u"1 .2 .3 5"_s);
    noeuds.setObserver(nullptr);
}

} // namespace
} // namespace velm::test
