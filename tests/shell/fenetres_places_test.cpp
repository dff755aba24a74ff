// Where windows come back to, from run to run.
#include "fenetres_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(FenetresTest, AtTheEndEachWindowWritesTheStateAndPlaceThatItHad) {
    // The one that is maximised, and the one behind it.
    for (const auto& [pleine, autre] : {std::pair{2, 0}, {0, 2}}) {
        regle(u"POSITIONFORME", u"WINDOWSSTATE2", u"0"_s); // whatever the first turn has left
        commence();
        autour(autre).setGeometry(20, 30, 400, 350);
        autour(pleine).setGeometry(60, 90, 450, 400);
        aire().activate(&fenetre(pleine));
        autour(pleine).showMaximized();
        quitte();
        EXPECT_EQ(ecrit(autre), (QList<int>{0, 300, 450, 6000, 5250})) << pleine;
        EXPECT_EQ(ecrit(pleine).front(), 2) << pleine;
        EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"0%1X X         "_s.arg(pleine));
    }
}

TEST_F(FenetresTest, AMaximisedWindowLeavesThePlaceThatIsStoredAsItIs) {
    place(0, 0, {40, 50, 440, 330});
    commence();
    aire().activate(&fenetre(0));
    autour(0).showMaximized();
    quitte();
    EXPECT_EQ(ecrit(0), (QList<int>{2, 600, 750, 6600, 4950}));
}

TEST_F(FenetresTest, TheUsersOwnClosingOfTheFrameWritesThemToo) {
    commence();
    autour(2).setGeometry(20, 30, 400, 350);
    aire().activate(&fenetre(0));
    autour(0).showMaximized();
    dialogues.answers.push_back(Bouton::Oui);
    ASSERT_TRUE(ecran().close());
    EXPECT_EQ(ecrit(2), (QList<int>{0, 300, 450, 6000, 5250}));
    EXPECT_EQ(ecrit(0).front(), 2);
}

TEST_F(FenetresTest, AHiddenWindowGoesWhenAnotherOneTakesItsPlace) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    if (entree("maffichagetfu")->isChecked())
        entree("maffichagetfu")->trigger();
    autour(0).setGeometry(40, 50, 500, 400);
    const QPointer<Textes> cachee = &fenetre(0);
    programme->bureau().navigation().basculefenetre(0, false);
    ASSERT_TRUE(cachee && !cachee->isVisible());
    programme->ouvre(decoupecle(u"CO000002"));
    EVENTUALLY(!cachee);
    EXPECT_EQ(fenetre(0).referencecourante(), u"CO000002");
    EXPECT_TRUE(fenetre(0).isVisible());
    EXPECT_TRUE(liste(0));
    EXPECT_EQ(aire().children().size(), 1U);
    EXPECT_EQ(ecrit(0), (QList<int>{0, 600, 750, 7500, 6000}));
}

TEST_F(FenetresTest, AShownWindowStaysWhereAnotherOfItsCollectionComes) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    if (entree("maffichagetfu")->isChecked())
        entree("maffichagetfu")->trigger();
    const QPointer<Textes> premiere = &fenetre(0);
    programme->ouvre(decoupecle(u"CO000002"));
    ASSERT_NE(&fenetre(0), premiere);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(premiere);
    EXPECT_TRUE(premiere->isVisibleTo(&aire()));
    EXPECT_EQ(premiere->referencecourante(), u"CO000001");
}

TEST_F(FenetresTest, AWindowInTheHiddenOnesPlaceLeavesAsManyToArrange) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    if (entree("maffichagetfu")->isChecked())
        entree("maffichagetfu")->trigger();
    for (const int indice : {1, 2})
        programme->bureau().basculeslot(indice);
    const auto offertes = [this] { return barrecommande().isButtonVisible(u"Cascade"_s); };
    ASSERT_TRUE(offertes());
    programme->bureau().navigation().basculefenetre(0, false);
    programme->ouvre(decoupecle(u"CO000002"));
    EVENTUALLY(aire().children().size() == 3U);
    EXPECT_TRUE(offertes());
}

TEST_F(FenetresTest, AWindowRestoredMaximisedHasItsStoredSizeToComeBackTo) {
    cadre(790, 790);
    restaure(u"00X X         "_s, u"CO000001        JP000007"_s);
    place(0, 2, {40, 50, 650, 600});
    place(2, 0, {10, 20, 450, 380});
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_EQ(active(), &fenetre(0));
    EXPECT_TRUE(autour(0).isMaximized());
    EXPECT_EQ(autour(2).geometry(), QRect(10, 20, 450, 380));
    autour(0).showNormal();
    EXPECT_EQ(autour(0).geometry(), QRect(40, 50, 650, 600));
    quitte();
    EXPECT_EQ(ecrit(0), (QList<int>{0, 600, 750, 9750, 9000}));
    EXPECT_EQ(ecrit(2), (QList<int>{0, 150, 300, 6750, 5700}));
}

TEST_F(FenetresTest, AWindowLeftAsAnIconIsRestoredAsOneAndOpensWithADocument) {
    cadre(700, 600);
    restaure(u"00X X         "_s, u"CO000001        JP000007"_s);
    place(0, 0, {40, 50, 500, 400});
    place(2, 1, {10, 20, 450, 380});
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    EXPECT_TRUE(autour(2).isMinimized());
    EXPECT_TRUE(autour(2).isVisible());
    EXPECT_EQ(fenetre(2).referencecourante(), u"JP000007");
    EXPECT_EQ(active(), &fenetre(0));
    EXPECT_TRUE(fenetre(0).isAncestorOf(QApplication::focusWidget()));
    redemarre();
    EXPECT_TRUE(autour(2).isMinimized());
    EXPECT_EQ(ecrit(2), (QList<int>{1, 150, 300, 6750, 5700}));
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_FALSE(autour(2).isMinimized());
    EXPECT_EQ(autour(2).geometry(), QRect(10, 20, 450, 380));
    EXPECT_EQ(active(), &fenetre(2));
}

TEST_F(FenetresTest, AWindowThatIsRestoredTwiceComesForwardTheSecondTime) {
    restaure(u"00 XX         "_s, u"CO000001CO000002JP000007"_s); // the second of them under another's number
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_EQ(fenetre(0).referencecourante(), u"CO000001");
    EXPECT_EQ(active(), &fenetre(0));
}

TEST_F(FenetresTest, TheOnlyWindowLeftAsAnIconIsRestoredAsOne) {
    cadre(700, 600);
    restaure(u"02  X         "_s, QString(16, u' ') + u"JP000007"_s);
    place(2, 1, {10, 20, 450, 380});
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_TRUE(autour(2).isMinimized());
    EXPECT_EQ(active(), &fenetre(2));
    aire().activate(&fenetre(2));
    EXPECT_EQ(autour(2).geometry(), QRect(10, 20, 450, 380));
    EXPECT_TRUE(fenetre(2).isVisible());
}

TEST_F(FenetresTest, AnIconOfTheSearchFormComesBackByItsButton) {
    commence();
    presse(barrecommande(), "Rechercher");
    ASSERT_TRUE(formulaire()->isVisible());
    autour(*formulaire()).showMinimized();
    presse(barre(), "affichercritères");
    EXPECT_TRUE(formulaire()->isVisible());
    EXPECT_FALSE(autour(*formulaire()).isMinimized());
    EXPECT_TRUE(barre().value(u"affichercritères"_s));
    EXPECT_TRUE(formulaire()->isAncestorOf(QApplication::focusWidget()));
    presse(barre(), "affichercritères");
    EXPECT_FALSE(formulaire()->isVisible());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    // An icon goes with the panel, and is a window again when it comes back.
    presse(barre(), "affichercritères");
    autour(*formulaire()).showMinimized();
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(autour(*formulaire()).isHidden());
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(formulaire()->isVisible());
    EXPECT_FALSE(autour(*formulaire()).isMinimized());
}

TEST_F(FenetresTest, TheRunMayEndWithTheSearchFormOpenAfterItsListsWereUsed) {
    for (const bool demande : {true, false}) {
        commence();
        presse(barrecommande(), "Rechercher");
        int ouvertes = 0;
        for (QComboBox* boite : formulaire()->findChildren<QComboBox*>()) {
            if (!boite->isVisible())
                continue;
            QTest::mouseClick(boite, Qt::LeftButton, {}, {boite->width() - 6, boite->height() / 2});
            if (QWidget* choix = QApplication::activePopupWidget()) {
                QTest::keyClick(choix, Qt::Key_Down);
                QTest::keyClick(choix, Qt::Key_Return);
                ++ouvertes;
            }
        }
        EXPECT_GT(ouvertes, 0);
        if (demande)
            quitte();
        else
            programme.reset();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}
