#include "arborescence_support.h"

namespace velm::test {
namespace {

TEST_F(ArborescenceTest, TheRootsKeyIsTheCodeAndABlankZero) {
    charge(u"EU"_s);
    ASSERT_EQ(arbre.count(), 1);
    EXPECT_EQ(arbre.key(1), u"EU 0"_s);
    EXPECT_EQ(arbre.text(1), u"Collection 1"_s);
    EXPECT_EQ(arbre.image(1), u"fermé1"_s);
    EXPECT_EQ(arbre.selectedImage(1), u"ouvert1"_s);
    EXPECT_EQ(arbre.tag(1), u"+"_s) << "an empty node counts as loaded";
}

TEST_F(ArborescenceTest, ACollectionWithoutBranchesShowsItsRootAndItsOwnDocuments) {
    documents = {{u"CO000001"_s, u"Un"_s, 0}, {u"EU000001"_s, u"Autre"_s, 0}, {u"CO000002"_s, u"Deux"_s, 0}};
    charge();
    EXPECT_EQ(enfants(u"CO 0"_s), (QStringList{u"@CO000001"_s, u"@CO000002"_s}));
    const int feuille = arbre.indexOf(u"@CO000002"_s);
    EXPECT_EQ(arbre.text(feuille), u"Deux"_s);
    EXPECT_EQ(arbre.image(feuille), u"document"_s);
    EXPECT_EQ(arbre.selectedImage(feuille), u"document"_s);
}

TEST_F(ArborescenceTest, BranchesFollowTheirOrderAndBearTheirLabels) {
    noeuds = {{12, 0, u"CO"_s, 3, u"Trois"_s},
              {7, 0, u"CO"_s, 1, u"Un"_s},
              {9, 0, u"CO"_s, 2, u"Deux"_s},
              {5, 0, u"EU"_s, 0, u"Ailleurs"_s}};
    charge();
    EXPECT_EQ(enfants(u"CO 0"_s), (QStringList{u"CO 7"_s, u"CO 9"_s, u"CO 12"_s}));
    EXPECT_EQ(arbre.text(arbre.indexOf(u"CO 12"_s)), u"Trois"_s);
}

TEST_F(ArborescenceTest, TheFirstLoadHoldsThreeLevels) {
    chaine(6);
    charge();
    EXPECT_TRUE(present(u"CO 0"_s));
    EXPECT_TRUE(present(u"CO 1"_s));
    EXPECT_TRUE(present(u"CO 2"_s));
    EXPECT_FALSE(present(u"CO 3"_s));
    EXPECT_EQ(arborescence.profondeurmax(), 3);
    EXPECT_EQ(etiquette(u"CO 1"_s), u"+"_s);
    EXPECT_EQ(etiquette(u"CO 2"_s), QString()) << "its children are still to come";
}

TEST_F(ArborescenceTest, DocumentsHangUnderTheirNodeWhenItCountsAny) {
    noeuds = {{4, 0, u"CO"_s, 1, u"Livre"_s, 2}};
    documents = {{u"CO000001"_s, u"Un"_s, 4}, {u"CO000002"_s, u"Deux"_s, 4}, {u"CO000003"_s, u"Trois"_s, 5}};
    charge();
    EXPECT_EQ(enfants(u"CO 4"_s), (QStringList{u"@CO000001"_s, u"@CO000002"_s}));
    EXPECT_FALSE(present(u"@CO000003"_s));
}

TEST_F(ArborescenceTest, DocumentsStandBeforeTheBranchesOfTheirNode) {
    noeuds = {{4, 0, u"CO"_s, 1, u"Livre"_s, 1}, {5, 4, u"CO"_s, 1, u"Titre"_s, 0}};
    documents = {{u"CO000001"_s, u"Un"_s, 4}};
    charge();
    EXPECT_EQ(enfants(u"CO 4"_s), (QStringList{u"@CO000001"_s, u"CO 5"_s}));
}

TEST_F(ArborescenceTest, ANodeThatCountsNoneHasNoDocuments) {
    noeuds = {{4, 0, u"CO"_s, 1, u"Livre"_s, 0}, {5, 4, u"CO"_s, 1, u"Titre"_s, 0}};
    documents = {{u"CO000001"_s, u"Un"_s, 4}};
    charge();
    EXPECT_EQ(enfants(u"CO 4"_s), QStringList{u"CO 5"_s});
    EXPECT_FALSE(present(u"@CO000001"_s));
}

TEST_F(ArborescenceTest, DocumentsOfAnEndNodeThatCountsNoneHangUnderTheRoot) {
    noeuds = {{4, 0, u"CO"_s, 1, u"Livre"_s, 0}};
    documents = {{u"CO000001"_s, u"Un"_s, 4}};
    charge();
    EXPECT_TRUE(enfants(u"CO 4"_s).isEmpty());
    EXPECT_EQ(enfants(u"CO 0"_s), (QStringList{u"CO 4"_s, u"@CO000001"_s}));
}

TEST_F(ArborescenceTest, ExpandingLoadsWhatLiesBelowTheChildren) {
    chaine(8);
    charge();
    developpe(u"CO 1"_s);
    EXPECT_EQ(arborescence.profondeurmax(), 4);
    EXPECT_TRUE(present(u"CO 3"_s));
    EXPECT_FALSE(present(u"CO 4"_s));
    EXPECT_EQ(etiquette(u"CO 2"_s), u"+"_s);
    EXPECT_TRUE(present(u"@CO000003"_s));
    developpe(u"CO 2"_s);
    EXPECT_TRUE(present(u"CO 4"_s));
    EXPECT_FALSE(present(u"CO 5"_s));
}

TEST_F(ArborescenceTest, ALoadedChildIsNotLoadedAgain) {
    noeuds = {{1, 0, u"CO"_s, 1, u"Livre"_s, 1}, {2, 1, u"CO"_s, 1, u"Titre"_s, 1}};
    documents = {{u"CO000001"_s, u"Un"_s, 1}, {u"CO000002"_s, u"Deux"_s, 2}};
    charge();
    const int avant = arbre.count();
    corpus.fermebase(); // whoever read it now would end the program
    developpe(u"CO 0"_s);
    developpe(u"CO 1"_s);
    EXPECT_EQ(arbre.count(), avant);
}

TEST_F(ArborescenceTest, ADocumentKeyMetTwiceShowsOnce) {
    noeuds = {{1, 0, u"CO"_s, 1, u"Livre"_s, 2}};
    documents = {{u"CO000001"_s, u"Un"_s, 1}, {u"CO000002"_s, u"Deux"_s, 1}};
    charge();
    // The end node is walked a second time for the root, where its documents are refused.
    arborescence.chargebranche(arbre, arbre.indexOf(u"CO 1"_s));
    EXPECT_EQ(arbre.count(), 4);
    EXPECT_EQ(enfants(u"CO 0"_s), QStringList{u"CO 1"_s});
}

TEST_F(ArborescenceTest, PicturesFollowTheDepth) {
    chaine(4);
    charge();
    developpe(u"CO 1"_s);
    for (const int profondeur : {1, 2, 3}) {
        const int noeud = arbre.indexOf(u"CO"_s + numberText(profondeur));
        EXPECT_EQ(arbre.image(noeud), u"fermé%1"_s.arg(profondeur));
        EXPECT_EQ(arbre.selectedImage(noeud), u"ouvert%1"_s.arg(profondeur));
    }
    EXPECT_EQ(arborescence.imagenoeud(0, false), u"fermé0"_s);
    EXPECT_EQ(arborescence.imagenoeud(10, true), u"ouvert10"_s);
    EXPECT_EQ(arborescence.imagenoeud(11, true), QString());
    EXPECT_EQ(arborescence.imagenoeud(-1, true), QString());
}

TEST_F(ArborescenceTest, AClickOnADocumentGivesItsCommandAndOneOnABranchNone) {
    noeuds = {{1, 0, u"CO"_s, 1, u"Livre"_s, 1}};
    documents = {{u"CO000001"_s, u"Un"_s, 1}};
    charge();
    EXPECT_EQ(commandeclic(arbre.indexOf(u"@CO000001"_s), u"CO"_s), u"TACO000001"_s);
    EXPECT_TRUE(commandeclic(arbre.indexOf(u"CO 1"_s), u"CO"_s).isEmpty());
    EXPECT_TRUE(commandeclic(1, u"CO"_s).isEmpty());
    EXPECT_TRUE(commandeclic(0, u"CO"_s).isEmpty());
    EXPECT_TRUE(commandeclic(99, u"CO"_s).isEmpty());
}

TEST_F(ArborescenceTest, ADocumentThatWritesItsCodeInAnotherCaseIsOneOfItsCollection) {
    noeuds = {{1, 0, u"CO"_s, 1, u"Livre"_s, 1}};
    documents = {{u"co000001"_s, u"Un"_s, 1}};
    charge();
    const int feuille = arbre.child(arbre.indexOf(u"CO 1"_s));
    ASSERT_EQ(arbre.key(feuille), u"@co000001"_s);
    EXPECT_EQ(commandeclic(feuille, u"CO"_s), u"TACO000001"_s);
}

TEST_F(ArborescenceTest, DocumentsOfAnotherCollectionWithTheSameNodeAreNotAdded) {
    noeuds = {{4, 0, u"CO"_s, 1, u"Livre"_s, 2}};
    documents = {{u"EU000001"_s, u"Avant"_s, 4},
                 {u"CO000001"_s, u"Un"_s, 4},
                 {u"DI000001"_s, u"Après"_s, 4},
                 {u"CO000002"_s, u"Deux"_s, 4}};
    charge();
    EXPECT_EQ(enfants(u"CO 4"_s), (QStringList{u"@CO000001"_s, u"@CO000002"_s}));
}

TEST_F(ArborescenceTest, LevelsCountFromTheRoot) {
    chaine(2);
    charge();
    EXPECT_EQ(Arborescence::niveaunoeud(arbre, 1), 0);
    EXPECT_EQ(Arborescence::niveaunoeud(arbre, arbre.indexOf(u"CO 2"_s)), 2);
    EXPECT_EQ(Arborescence::niveaunoeud(arbre, arbre.indexOf(u"@CO000002"_s)), 3);
    EXPECT_EQ(Arborescence::niveaunoeud(arbre, 0), 0);
}

TEST_F(ArborescenceTest, LoadingIsShownOnceAndUnderTheHourglass) {
    chaine(5);
    Vue vue;
    arbre.setObserver(&vue);
    charge();
    EXPECT_EQ(vue.remises, 1);
    EXPECT_EQ(vue.ajouts, 1);
    developpe(u"CO 1"_s);
    EXPECT_EQ(vue.ajouts, 2);
    EXPECT_EQ(sablier.vus, (QList<int>{Sablier::attente, Sablier::defaut}));
    developpe(u"CO 1"_s);
    EXPECT_EQ(vue.ajouts, 2) << "nothing new, nothing to show";
    EXPECT_EQ(vue.autres, 0);
    arbre.setObserver(nullptr);
}

TEST_F(ArborescenceTest, LoadingAgainReplacesTheTree) {
    chaine(3);
    charge();
    const int avant = arbre.count();
    developpe(u"CO 1"_s);
    arborescence.chargearbrebase(arbre, u"CO"_s);
    EXPECT_EQ(arbre.count(), avant);
}

// ---- what a base may hold that it should not

TEST_F(ArborescenceTest, TheTreeEndsAtTheTenthLevel) {
    chaine(14);
    charge();
    for (int i = 0; i <= 14; ++i)
        developpe(u"CO"_s + numberText(i));
    EXPECT_TRUE(present(u"CO 10"_s));
    EXPECT_TRUE(present(u"@CO000010"_s));
    EXPECT_FALSE(present(u"CO 11"_s));
    EXPECT_EQ(etiquette(u"CO 10"_s), QString());
}

TEST_F(ArborescenceTest, ARowThatHangsFromItselfIsPassedOver) {
    noeuds = {{0, 0, u"CO"_s, 1, u"Zéro"_s, 1}, {3, 3, u"CO"_s, 1, u"Seul"_s, 1}, {4, 0, u"CO"_s, 2, u"Livre"_s, 0}};
    documents = {{u"CO000001"_s, u"Un"_s, 3}};
    charge();
    EXPECT_EQ(enfants(u"CO 0"_s), QStringList{u"CO 4"_s});
    arborescence.cherchebranche(arbre, 3);
    EXPECT_EQ(arbre.selected(), 0);
}

TEST_F(ArborescenceTest, RowsInACircleAreNeverReached) {
    noeuds = {{1, 2, u"CO"_s, 1, u"Un"_s, 0},
              {2, 3, u"CO"_s, 1, u"Deux"_s, 0},
              {3, 1, u"CO"_s, 1, u"Trois"_s, 0},
              {4, 0, u"CO"_s, 1, u"Livre"_s, 0}};
    charge();
    EXPECT_EQ(arbre.count(), 2);
    arborescence.cherchebranche(arbre, 2);
    EXPECT_EQ(arbre.selected(), 0);
    EXPECT_EQ(arbre.count(), 2);
}

TEST_F(ArborescenceTest, ARowWhoseParentDoesNotExistIsNotShown) {
    noeuds = {{5, 404, u"CO"_s, 1, u"Orphelin"_s, 0}, {6, 5, u"CO"_s, 1, u"Enfant"_s, 0}};
    charge();
    EXPECT_EQ(arbre.count(), 1);
    arborescence.cherchebranche(arbre, 6);
    EXPECT_EQ(arbre.selected(), 0);
}

TEST_F(ArborescenceTest, NodesThatDoNotStandOrAreDocumentsLoadNothing) {
    chaine(1);
    charge();
    const int avant = arbre.count();
    for (const int noeud : {-1, 0, 99, arbre.indexOf(u"@CO000001"_s)}) {
        arborescence.chargebranche(arbre, noeud);
        arborescence.developpe(arbre, noeud);
    }
    EXPECT_EQ(arbre.count(), avant);
    EXPECT_TRUE(sablier.vus.isEmpty());
    TreeNodes vide;
    arborescence.cherchebranche(vide, 1);
    arborescence.choisitdocument(vide, decoupecle(u"CO000001"_s));
    EXPECT_EQ(vide.selected(), 0);
}

} // namespace
} // namespace velm::test
