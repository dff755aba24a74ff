// The rows of a grid of documents: their order, and what stays of them when they are filled anew.
#include "tests/document/ui/grilledocuments_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

// ---- order

TEST_F(GrilleDocumentsTest, AHeaderSortsUpwardsAndThenTheOtherWayRoundAndAloneBearsAMark) {
    avec(30);
    doubleclique(*flex, 0, 0);
    EXPECT_EQ(flex->headerCell(0), u"t300>");
    EXPECT_EQ(titres(*flex, 2), (QStringList{u"Titre 00001"_s, u"Titre 00002"_s}));
    doubleclique(*flex, 0, 0);
    EXPECT_EQ(flex->headerCell(0), u"t300<");
    EXPECT_EQ(flex->text(1, 0), u"Titre 00030");
    doubleclique(*flex, 0, 1);
    EXPECT_EQ(flex->headerCell(0), u"t300");
    EXPECT_EQ(flex->headerCell(1), u"t301>");
    EXPECT_EQ(titres(*flex, 3), (QStringList{u"Titre 00030"_s, u"Titre 00020"_s, u"Titre 00010"_s}));
    EXPECT_TRUE(ouvertes.isEmpty());
}

TEST_F(GrilleDocumentsTest, TheSelectedDocumentIsFollowedThroughASortWhereTheListSaysSo) {
    avec(5, {.suitletri = true});
    flex->setRow(2);
    grille->trie(0);
    EXPECT_EQ(flex->row(), 4);
    EXPECT_EQ(grille->cle(4).texte(), u"CO000004");
    flex->selectAll();
    grille->trie(0);
    EXPECT_EQ(flex->selectedRows(), std::pair(1, 5)) << "all rows stay selected";
    grille.reset();
    avec(5);
    flex->setRow(2);
    grille->trie(0);
    EXPECT_EQ(flex->row(), 0);
}

// ---- refilling

TEST_F(GrilleDocumentsTest, TheSameListAnewKeepsItsOrderItsSelectionAndItsPlace) {
    avec(1'000);
    grille->trie(0);
    flex->setTopRow(400);
    flex->setRow(404);
    grille->recharge(SourceEssai::de(1'200));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::Ascending);
    EXPECT_EQ(flex->text(1, 0), u"Titre 00001");
    EXPECT_EQ(flex->rows(), 1'201);
    EXPECT_EQ(flex->row(), 404);
    EXPECT_EQ(flex->rowSel(), 404);
    EXPECT_EQ(flex->topRow(), 400);
    grille->trie(0);
    flex->setRow(1'200 - 403);
    grille->recharge(SourceEssai::de(1'000));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::Descending);
    EXPECT_EQ(grille->cle(flex->row()).texte(), u"CO000404");
}

TEST_F(GrilleDocumentsTest, ADocumentThatIsGoneIsSelectedNoMore) {
    avec(100);
    flex->setRow(1);
    grille->recharge(SourceEssai::de(99));
    EXPECT_EQ(flex->row(), 0);
    EXPECT_EQ(flex->rows(), 100);
    grille->recharge(nullptr);
    EXPECT_EQ(flex->rows(), 1);
    grille->recharge(SourceEssai::de(2));
    EXPECT_EQ(flex->topRow(), 1);
}

TEST_F(GrilleDocumentsTest, AnotherListBeginsAtItsFirstRowWithoutAMark) {
    avec(1'000);
    grille->trie(0);
    flex->setRow(700);
    grille->charge(SourceEssai::de(900));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::None);
    EXPECT_EQ(flex->row(), 0);
    EXPECT_EQ(flex->topRow(), 1);
    EXPECT_EQ(flex->text(1, 0), u"Titre 00900");
    flex->setRedraw(false);
    grille->charge(SourceEssai::de(5));
    EXPECT_FALSE(flex->redraw()) << "who has stopped the painting lets it go on";
    flex->setRedraw(true);
    EXPECT_EQ(flex->rows(), 6);
}

TEST_F(GrilleDocumentsTest, AGridThatHadTheFocusBeforeItWasHiddenHasItAgain) {
    avec(5);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    flex->setFocus();
    grille->cache();
    EXPECT_TRUE(flex->isHidden());
    EXPECT_FALSE(flex->redraw());
    grille->montre(true);
    EXPECT_TRUE(flex->isVisible());
    EXPECT_TRUE(flex->redraw());
    EXPECT_TRUE(flex->view()->hasFocus());
    autre->setFocus();
    grille->cache();
    grille->montre(true);
    EXPECT_TRUE(autre->hasFocus()) << "it did not have it";
    autre->setEnabled(false);
    flex->setFocus();
    grille->cache();
    grille->montre(true);
    EXPECT_TRUE(flex->view()->hasFocus()) << "where nothing else could have it";
    autre->setEnabled(true);
    flex->setFocus();
    grille->cache();
    grille->montre(false);
    EXPECT_TRUE(flex->isHidden());
    grille->montre(true);
    EXPECT_FALSE(flex->view()->hasFocus());
}

TEST_F(GrilleDocumentsTest, AGridThatComesBackTakesTheFocusFromNobodyOutside) {
    QWidget cadre;
    auto* dehors = new QLineEdit(&cadre);
    avec(5);
    fenetre.setParent(&cadre);
    fenetre.show();
    cadre.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    flex->setFocus();
    grille->cache();
    dehors->setFocus();
    grille->montre(true);
    EXPECT_TRUE(dehors->hasFocus());
    fenetre.setParent(nullptr);
}
