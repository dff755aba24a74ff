// The start page: what stands in the frame while no window is open.
#include "tests/shell/depart_support.h"

#include <QMdiSubWindow>

#include <set>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(DepartTest, ItStandsThereWhileNoWindowDoes) {
    commence();
    EVENTUALLY(page().isVisible());
    EXPECT_TRUE(champ().hasFocus());
    programme->ouvre(decoupecle(u"JP000007"));
    EVENTUALLY(!page().isVisible());
    aire().around(programme->fenetre(2))->close();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(champ().hasFocus());
}

TEST_F(DepartTest, ItIsNotSeenOverADocumentOfTheCommandLine) {
    commence(u"CO1"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(page().isVisible());
}

TEST_F(DepartTest, CollectionsAreToldWithTheirNumbersAndEmptyOnesAreFaint) {
    commence();
    EVENTUALLY(page().isVisible());
    ASSERT_EQ(collections().size(), 11U);
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    EXPECT_EQ(collections()[0]->text(), u"Code de la consommation");
    EXPECT_EQ(collections()[0]->suite(), u"14");
    EXPECT_TRUE(collections()[0]->isEnabled());
    EXPECT_EQ(collections()[1]->suite(), mots(9629));
    EXPECT_FALSE(collections()[1]->isEnabled());
    EXPECT_TRUE(collections()[2]->accessibleName().contains(u"1 document"));
    QTest::mouseClick(collections()[1], Qt::LeftButton);
    EXPECT_EQ(programme->fenetre(1), nullptr);
}

TEST_F(DepartTest, AClickOnACollectionOpensItsWindow) {
    commence();
    EVENTUALLY(page().isVisible());
    QTest::mouseClick(collections()[2], Qt::LeftButton);
    ASSERT_NE(programme->fenetre(2), nullptr);
    EXPECT_TRUE(actions().estcochee(Ordre::Collection, 2));
}

TEST_F(DepartTest, TheLastDocumentsOpenAgain) {
    commence();
    EVENTUALLY(page().isVisible());
    EXPECT_TRUE(page().derniers().lignes().empty());
    programme->ouvre(decoupecle(u"CO000002"));
    programme->ouvre(decoupecle(u"JP000007"));
    EVENTUALLY(!page().isVisible());
    entree("mdisposition", 4)->trigger();
    EVENTUALLY(page().isVisible());
    EXPECT_EQ(noms(page().derniers()), (QStringList{u"Un arrêt"_s, u"Article 2"_s}));
    QTest::mouseClick(page().derniers().lignes()[1], Qt::LeftButton);
    ASSERT_NE(programme->fenetre(0), nullptr);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000002");
}

TEST_F(DepartTest, WhatIsTypedIsFoundAtOnce) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"crédit"_s);
    EVENTUALLY(page().trouves().isVisible());
    EXPECT_EQ(noms(page().trouves()), (QStringList{u"Crédit"_s, u"Crédit gratuit"_s}));
    EXPECT_FALSE(page().collections().isVisible());
    EVENTUALLY(bilan()->text() == mots(9725, {u"2"_s}));
    EXPECT_EQ(page().trouves().lignes()[0]->suite(), u"Code de la consommation");
    EXPECT_EQ(page().trouves().lignes()[0]->accessibleName(), mots(9632, {u"Crédit"_s, u"Code de la consommation"_s}));
    tape(u" g"_s);
    EVENTUALLY(noms(page().trouves()) == QStringList{u"Crédit gratuit"_s});
    QTest::keyClick(&champ(), Qt::Key_Escape);
    EVENTUALLY(page().collections().isVisible());
    EXPECT_FALSE(page().trouves().isVisible());
}

TEST_F(DepartTest, NothingFoundAndRowsLeftOutAreSaid) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"zzz"_s);
    EVENTUALLY(bilan()->isVisible());
    EXPECT_EQ(bilan()->text(), mots(9626, {u"zzz"_s}));
    EXPECT_TRUE(page().trouves().lignes().empty());
    EXPECT_FALSE(bouton(u"touslesresultats"_s)->isVisible());
    EXPECT_FALSE(bouton(u"recherchedetaillee"_s)->isVisible());
    champ().setText(u"article"_s);
    EVENTUALLY(bilan()->text() == mots(9726, {u"9"_s, u"12"_s}));
    EXPECT_TRUE(bilan()->isVisible());
    EXPECT_EQ(page().trouves().lignes().size(), 9U);
    EXPECT_TRUE(bouton(u"touslesresultats"_s)->isVisible());
    EXPECT_TRUE(bouton(u"recherchedetaillee"_s)->isVisible());
    EXPECT_TRUE(bilan()->link()->isHidden());
}

TEST_F(DepartTest, WhereNothingIsFoundTheSheetShrinksAndTheFieldStays) {
    commence();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    QCoreApplication::processEvents();
    const int ordinaire = feuille()->height();
    const int haut = champ().mapTo(&page(), QPoint()).y();
    tape(u"zzz"_s);
    EVENTUALLY(bilan()->isVisible());
    EVENTUALLY(feuille()->height() < ordinaire * 2 / 3);
    EXPECT_EQ(champ().mapTo(&page(), QPoint()).y(), haut);
    ecran().resize(ecran().size() - QSize(0, 20));
    QCoreApplication::processEvents();
    EXPECT_LE(std::abs(champ().mapTo(&page(), QPoint()).y() - haut), 20 / 3 + 1);
    QTest::keyClick(&champ(), Qt::Key_Escape);
    EVENTUALLY(feuille()->height() == ordinaire);
    EXPECT_TRUE(champ().text().isEmpty());
}

TEST_F(DepartTest, TheOtherWayToSearchIsALinkOfTheAnswer) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"zzz"_s);
    EVENTUALLY(bilan()->isVisible());
    EXPECT_EQ(bilan()->link()->text(), mots(9631));
    QTest::keyClick(&champ(), Qt::Key_Down);
    EXPECT_TRUE(bilan()->link()->hasFocus());
    bilan()->link()->click();
    ASSERT_NE(programme->recherches().formulaire(), nullptr);
    EXPECT_TRUE(programme->recherches().formulaire()->isVisible());
}

TEST_F(DepartTest, WhatIsSaidOfARowStandsBehindItsName) {
    commence();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    for (const LigneDepart* ligne : collections()) {
        const QRect suite = ligne->placedelasuite();
        const int nom = ligne->fontMetrics().horizontalAdvance(ligne->text());
        const int texte = ligne->fontMetrics().horizontalAdvance(ligne->suite());
        const bool laplace = 24 + 2 * 8 + nom + 8 + texte + 8 < ligne->width();
        EXPECT_TRUE(laplace || !ligne->isEnabled()) << ligne->text().toStdString();
        EXPECT_EQ(suite.isEmpty(), !laplace) << ligne->text().toStdString();
        EXPECT_EQ(ligne->toolTip(), laplace ? QString() : ligne->suite()) << ligne->text().toStdString();
        EXPECT_TRUE(!laplace || suite.left() == 24 + 2 * 8 + nom + 8) << ligne->text().toStdString();
    }
    taille(900, 700);
    programme->ouvre(decoupecle(u"CO000002"));
    EVENTUALLY(!page().isVisible());
    entree("mdisposition", 4)->trigger();
    EVENTUALLY(page().isVisible());
    const LigneDepart& document = *page().derniers().lignes().front();
    EXPECT_EQ(document.suite(), u"Code de la consommation");
    EXPECT_FALSE(document.placedelasuite().isEmpty());
    auto& etroite = const_cast<LigneDepart&>(document);
    etroite.resize(24 + 3 * 8 + document.fontMetrics().horizontalAdvance(document.text()) + 20, document.height());
    EXPECT_TRUE(document.placedelasuite().isEmpty()) << "the title comes first";
    EXPECT_EQ(document.toolTip(), document.suite());
    etroite.resize(24 + 3 * 8 + 20, document.height());
    EXPECT_EQ(document.toolTip(), document.text());
}

TEST_F(DepartTest, AWideFrameHasAWiderSheetInThreeColumns) {
    commence();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    taille(2200, 1000);
    EVENTUALLY(feuille()->width() == 880);
    const auto colonnes = [this] {
        std::set<int> gauches;
        for (const LigneDepart* ligne : collections())
            gauches.insert(ligne->x());
        return gauches.size();
    };
    EVENTUALLY(colonnes() == 3U);
    taille(900, 700);
    EVENTUALLY(feuille()->width() == 640);
    EVENTUALLY(colonnes() == 2U);
}

TEST_F(DepartTest, InALowFrameTheRoomAroundGoesFirst) {
    commence();
    EVENTUALLY(page().isVisible());
    taille(900, 700);
    EVENTUALLY(feuille()->layout()->contentsMargins() == QMargins(24, 24, 24, 24));
    taille(900, 360);
    EVENTUALLY(feuille()->layout()->contentsMargins() == QMargins(24, 8, 24, 8));
    EVENTUALLY(feuille()->y() == 4);
    taille(900, 700);
    EVENTUALLY(feuille()->layout()->contentsMargins() == QMargins(24, 24, 24, 24));
}

TEST_F(DepartTest, ADocumentThatWasFoundOpensWithItsWordMarked) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"crédit"_s);
    EVENTUALLY(page().trouves().isVisible());
    QTest::mouseClick(page().trouves().lignes()[0], Qt::LeftButton);
    ASSERT_NE(programme->fenetre(0), nullptr);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000013");
    EXPECT_EQ(programme->fenetre(0)->lecture().mots().mot1, u"crédit");
    EVENTUALLY(!page().isVisible());
}

TEST_F(DepartTest, ReturnPutsAllOfItIntoTheList) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"article"_s);
    QTest::keyClick(&champ(), Qt::Key_Return);
    EVENTUALLY(volet().isVisible());
    EXPECT_EQ(programme->selection().liste().lignes(), 12);
    EXPECT_TRUE(page().isVisible());
    EXPECT_EQ(programme->recherches().formulaire(), nullptr);
}

TEST_F(DepartTest, TheArrowKeysWalkItsRowsAndReturnOpens) {
    commence();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    QTest::keyClick(&champ(), Qt::Key_Down);
    EXPECT_TRUE(collections()[0]->hasFocus());
    QTest::keyClick(collections()[0], Qt::Key_Down);
    EXPECT_TRUE(collections()[2]->hasFocus()) << "over the empty one";
    QTest::keyClick(collections()[2], Qt::Key_Down);
    EXPECT_TRUE(collections()[2]->hasFocus()) << "nothing lies below";
    QTest::keyClick(collections()[2], Qt::Key_Home);
    EXPECT_TRUE(collections()[0]->hasFocus());
    QTest::keyClick(collections()[0], Qt::Key_Up);
    EXPECT_TRUE(champ().hasFocus());
    QTest::keyClick(&champ(), Qt::Key_Down);
    QTest::keyClick(collections()[0], Qt::Key_End);
    EXPECT_TRUE(collections()[2]->hasFocus());
    QTest::keyClick(collections()[2], Qt::Key_Return);
    EXPECT_NE(programme->fenetre(2), nullptr);
}

TEST_F(DepartTest, TheTabKeyStopsOnceInEachGroup) {
    commence(u"CO2"_s);
    entree("mdisposition", 4)->trigger();
    EVENTUALLY(page().isVisible());
    EVENTUALLY(!collections()[0]->suite().isEmpty());
    champ().setFocus();
    QTest::keyClick(&champ(), Qt::Key_Tab);
    EXPECT_TRUE(collections()[0]->hasFocus());
    QTest::keyClick(collections()[0], Qt::Key_Down);
    QTest::keyClick(collections()[2], Qt::Key_Tab);
    EXPECT_TRUE(page().derniers().lignes()[0]->hasFocus());
    QTest::keyClick(page().derniers().lignes()[0], Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(collections()[2]->hasFocus()) << "where it was";
    QTest::keyClick(collections()[2], Qt::Key_Down);
    EXPECT_TRUE(page().derniers().lignes()[0]->hasFocus());
    QTest::keyClick(page().derniers().lignes()[0], Qt::Key_Up);
    EXPECT_TRUE(collections()[2]->hasFocus());
}

TEST_F(DepartTest, ANarrowFrameHasOneColumnAndScrolls) {
    commence();
    EVENTUALLY(page().isVisible());
    ecran().showNormal();
    ecran().resize(900, 700);
    EVENTUALLY(collections()[10]->x() > collections()[0]->x());
    ecran().resize(420, 400);
    EVENTUALLY(collections()[10]->x() == collections()[0]->x());
    EVENTUALLY(page().widget()->height() > page().viewport()->height());
    EVENTUALLY(page().widget()->width() <= page().viewport()->width());
    champ().setText(u"article"_s);
    const auto* tous = bouton(u"touslesresultats"_s);
    const auto* autre = bouton(u"recherchedetaillee"_s);
    EVENTUALLY(tous->isVisible());
    EVENTUALLY(autre->y() > tous->y());
    EXPECT_LE(tous->mapTo(&page(), tous->rect().bottomRight()).x(), page().width());
}

TEST_F(DepartTest, TheProgramEndsWhileSomethingIsBeingLookedFor) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"a"_s);
    dialogues.answers.push_back(Bouton::Oui);
    EXPECT_TRUE(programme->quitteprogramme());
    QCoreApplication::processEvents();
}
