// The document windows in the frame: their focus, their places from run to run, and what tells of them.
#include "document/ui/panneautextes.h"
#include "fenetres_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

// ---- the focus

TEST_F(FenetresTest, TheFocusComesBackToTheTreeTheTextOrTheListThatHadIt) {
    commence();
    presse(fenetre(0).barrechild(), "barrehoriz");
    for (const bool agrandie : {false, true}) {
        if (agrandie)
            autour(*active()).showMaximized();
        aire().activate(&fenetre(0));
        presse(fenetre(0).barrechild(), "arbre");
        const std::vector<QWidget*> controles{&fenetre(0).panneau().arbre(), &fenetre(0).vue(),
                                              fenetre(0).findChild<QWidget*>(u"ouvrirlien"_s)};
        for (QWidget* controle : controles) {
            controle->setFocus();
            ASSERT_TRUE(controle->hasFocus());
            touche(Qt::Key_Tab, Qt::ControlModifier);
            ASSERT_EQ(active(), &fenetre(2));
            touche(Qt::Key_Tab, Qt::ControlModifier);
            ASSERT_EQ(active(), &fenetre(0));
            EXPECT_TRUE(controle->hasFocus()) << agrandie << controle->objectName().toStdString();
        }
        presse(fenetre(0).barrechild(), "tableau");
        fenetre(0).panneau().flex().setFocus();
        touche(Qt::Key_Tab, Qt::ControlModifier);
        touche(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(fenetre(0).panneau().flex().view()->hasFocus()) << agrandie;
    }
}

TEST_F(FenetresTest, TheHistoryOfTheFrameLeavesTheFocusInEachWindowWhereItWas) {
    commence();
    for (const bool agrandie : {false, true}) {
        if (agrandie)
            autour(*active()).showMaximized();
        presse(fenetre(2).barrechild(), "arbre");
        fenetre(2).panneau().arbre().setFocus();
        touche(Qt::Key_Left, Qt::AltModifier);
        ASSERT_EQ(active(), &fenetre(0));
        presse(fenetre(0).barrechild(), "arbre");
        fenetre(0).vue().setFocus();
        touche(Qt::Key_Right, Qt::AltModifier);
        ASSERT_EQ(active(), &fenetre(2));
        EXPECT_TRUE(fenetre(2).panneau().arbre().hasFocus()) << agrandie;
        touche(Qt::Key_Left, Qt::AltModifier);
        EXPECT_TRUE(fenetre(0).vue().hasFocus()) << agrandie;
        touche(Qt::Key_Right, Qt::AltModifier);
    }
}

TEST_F(FenetresTest, AWindowChosenFromTheListOrShownByItsButtonHasItsFocusAgain) {
    commence();
    presse(fenetre(0).barrechild(), "arbre");
    fenetre(0).panneau().arbre().setFocus();
    presse(barreecran(), "CO");
    EXPECT_EQ(active(), &fenetre(2));
    presse(barreecran(), "CO");
    EXPECT_TRUE(fenetre(0).panneau().arbre().hasFocus());
    entree("mlistefenetre", 3)->trigger();
    entree("mlistefenetre", 1)->trigger();
    EXPECT_TRUE(fenetre(0).panneau().arbre().hasFocus());
    presse(barreecran(), "CO");
    presse(barreecran(), "JP");
    EXPECT_EQ(active(), nullptr);
    presse(barreecran(), "CO");
    EXPECT_TRUE(fenetre(0).panneau().arbre().hasFocus());
}

TEST_F(FenetresTest, AStepInTheHistoryOfTheWindowInFrontLeavesTheFocusWhereItIs) {
    commence();
    programme->ouvre(decoupecle(u"JP000007"));
    programme->ouvre(decoupecle(u"CO000002"));
    programme->ouvre(decoupecle(u"CO000003"));
    presse(fenetre(0).barrechild(), "recherchedico");
    ASSERT_TRUE(fenetre(0).findChild<QLineEdit*>(u"Textedico"_s)->hasFocus());
    fenetre(0).vue().setFocus();
    touche(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(fenetre(0).referencecourante(), u"CO000002");
    EXPECT_TRUE(fenetre(0).vue().hasFocus());
}

// ---- what is hidden

TEST_F(FenetresTest, AHiddenWindowHasNoEntryInTheWindowList) {
    commence();
    EXPECT_TRUE(liste(0));
    presse(barreecran(), "CO");
    EXPECT_FALSE(liste(0));
    EXPECT_TRUE(liste(2));
    entree("maffichagef", 0)->trigger();
    EXPECT_TRUE(liste(0));
    presse(barreecran(), "CO");
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_TRUE(liste(0));
    presse(barreecran(), "JP");
    quitte();
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"00X           ");
}

TEST_F(FenetresTest, AHiddenWindowThatIsBroughtForwardTellsItEverywhere) {
    commence();
    presse(barreecran(), "CO");
    programme->bureau().amene(0);
    EXPECT_EQ(active(), &fenetre(0));
    EXPECT_TRUE(liste(0));
    EXPECT_TRUE(barreecran().value(u"CO"_s));
    EXPECT_TRUE(entree("maffichagef", 0)->isChecked());
    quitte();
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"00X X         ");
}

TEST_F(FenetresTest, WhoIsNotThereIsNotMadeByBringingItForward) {
    commence();
    programme->bureau().amene(4);
    EXPECT_EQ(programme->fenetre(4), nullptr);
    EXPECT_EQ(programme->bureau().fenetres().size(), 2u);
}

// ---- places from run to run

// ---- the panel and the frame

TEST_F(FenetresTest, ThePanelTakesAtMostWhatTheFrameHas) {
    cadre(700, 500);
    regle(u"EDITEUR", u"LARGEURSELECTION", u"32000"_s);
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    QCoreApplication::processEvents();
    EXPECT_EQ(ecran().width(), 700);
    EXPECT_LT(volet().width(), 700);
    EXPECT_GT(volet().width(), 400);
    EXPECT_GT(aire().width(), 50) << "the windows keep some room";
    // A frame that grows gives the panel what it is to have.
    const int avant = volet().width();
    ecran().resize(790, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(ecran().width(), 790);
    EXPECT_EQ(volet().width(), avant + 90);
    quitte();
    EXPECT_EQ(reglage("EDITEUR", "LARGEURSELECTION"), u"32000") << "nobody has changed it";
}

TEST_F(FenetresTest, ADragBeyondTheFrameStopsWhereThePanelDoes) {
    commence();
    presse(barrecommande(), "Rechercher");
    QCoreApplication::processEvents();
    auto* bord = volet().findChild<SplitterBar*>(u"separateurrecherche"_s);
    for (int tour = 0; tour < 3; ++tour) {
        const QPoint prise = bord->rect().center();
        QTest::mousePress(bord, Qt::LeftButton, {}, prise);
        QTest::mouseMove(bord, prise + QPoint(3000, 0));
        QTest::mouseRelease(bord, Qt::LeftButton, {}, bord->rect().center());
        QCoreApplication::processEvents();
        EXPECT_EQ(ecran().width(), 700);
    }
    const int plein = volet().width();
    EXPECT_GT(plein, 350);
    EXPECT_GT(aire().width(), 50);
    // What it takes is what it keeps: no room is owed when the frame grows, and none lost on the way back.
    EXPECT_NEAR(pixelsFromTwips(static_cast<int>(volet().largeurpane())), plein, 1);
    ecran().resize(790, 600);
    QCoreApplication::processEvents();
    EXPECT_NEAR(volet().width(), plein, 1);
    QTest::keyClick(bord, Qt::Key_Left);
    EXPECT_NEAR(volet().width(), plein - 8, 1);
}

TEST_F(FenetresTest, AFrameMadeSmallerTakesItsPanelAlong) {
    commence();
    volet().changelargeurpane(6750);
    presse(barrecommande(), "Rechercher");
    QCoreApplication::processEvents();
    EXPECT_EQ(volet().width(), 450);
    ecran().resize(400, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(ecran().width(), 400);
    EXPECT_LT(volet().width(), 400);
    ecran().resize(700, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(volet().width(), 450);
}
