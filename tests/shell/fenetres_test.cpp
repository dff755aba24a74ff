// The document windows in the frame: their focus, their places from run to run, and what tells of them.
#include "platform/base/twips.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/tree/treeview.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/recherches.h"
#include "tests/shell/selection_support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScreen>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class FenetresTest : public SelectionTest {
protected:
    /// Starts with a frame of a size of its own and the windows of two collections.
    void commence() {
        cadre(700, 600);
        ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
        programme->ouvre(decoupecle(u"JP000007"));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    }
    void cadre(int largeur, int hauteur) const {
        for (const auto& [cle, valeur] : {std::pair{u"WINDOWSSTATE", 0},
                                          {u"WINDOWSLEFT", 0},
                                          {u"WINDOWSTOP", 0},
                                          {u"WINDOWSWIDTH", twipsFromPixels(largeur)},
                                          {u"WINDOWSHEIGHT", twipsFromPixels(hauteur)}})
            regle(u"POSITIONMDI", cle, QString::number(valeur));
    }
    void restaure(const QString& fenetres, const QString& contenus) const {
        regle(u"GENERALITES", u"RESTAUREFEN", u"1"_s);
        regle(u"POSITIONFORME", u"MDICHILD", fenetres);
        regle(u"POSITIONFORME", u"MDICHILDCONTENU", contenus);
    }
    void place(int indice, int etat, const QRect& pixels) const {
        const QString numero = QString::number(indice);
        for (const auto& [nom, valeur] : {std::pair{u"WINDOWSSTATE"_s, etat},
                                          {u"WINDOWSLEFT"_s, twipsFromPixels(pixels.x())},
                                          {u"WINDOWSTOP"_s, twipsFromPixels(pixels.y())},
                                          {u"WINDOWSWIDTH"_s, twipsFromPixels(pixels.width())},
                                          {u"WINDOWSHEIGHT"_s, twipsFromPixels(pixels.height())}})
            regle(u"POSITIONFORME", nom + numero, QString::number(valeur));
    }
    void quitte() {
        dialogues.answers.push_back(Bouton::Oui);
        ASSERT_TRUE(programme->quitteprogramme());
        programme.reset();
    }
    /// What is stored of a window: state, place.
    QList<int> ecrit(int indice) const {
        QList<int> valeurs;
        for (const char* nom : {"WINDOWSSTATE", "WINDOWSLEFT", "WINDOWSTOP", "WINDOWSWIDTH", "WINDOWSHEIGHT"})
            valeurs << reglage("POSITIONFORME", qPrintable(QString::fromLatin1(nom) + QString::number(indice))).toInt();
        return valeurs;
    }
    Textes& fenetre(int indice) const { return *programme->fenetre(indice); }
    QMdiSubWindow& autour(const QWidget& enfant) const { return *ecran().aire().around(&enfant); }
    QMdiSubWindow& autour(int indice) const { return autour(fenetre(indice)); }
    bool liste(int indice) const { return entree("mlistefenetre", indice + 1)->isVisible(); }
    void touche(Qt::Key touche, Qt::KeyboardModifiers avec) const {
        QWidget* celui = QApplication::focusWidget();
        ASSERT_NE(celui, nullptr);
        QTest::keyClick(celui, touche, avec);
    }
    QWidget* formulaire() const { return programme->recherches().formulaire(); }
};

} // namespace

// ---- the focus

TEST_F(FenetresTest, TheFocusComesBackToTheTreeTheTextOrTheListThatHadIt) {
    commence();
    presse(fenetre(0).barrechild(), "barrehoriz");
    for (const bool agrandie : {false, true}) {
        if (agrandie)
            autour(*active()).showMaximized();
        ecran().aire().activate(&fenetre(0));
        presse(fenetre(0).barrechild(), "arbre");
        const std::vector<QWidget*> controles{&fenetre(0).arbre(), &fenetre(0).vue(),
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
        fenetre(0).flex().setFocus();
        touche(Qt::Key_Tab, Qt::ControlModifier);
        touche(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_TRUE(fenetre(0).flex().view()->hasFocus()) << agrandie;
    }
}

TEST_F(FenetresTest, TheHistoryOfTheFrameLeavesTheFocusInEachWindowWhereItWas) {
    commence();
    for (const bool agrandie : {false, true}) {
        if (agrandie)
            autour(*active()).showMaximized();
        presse(fenetre(2).barrechild(), "arbre");
        fenetre(2).arbre().setFocus();
        touche(Qt::Key_Left, Qt::AltModifier);
        ASSERT_EQ(active(), &fenetre(0));
        presse(fenetre(0).barrechild(), "arbre");
        fenetre(0).vue().setFocus();
        touche(Qt::Key_Right, Qt::AltModifier);
        ASSERT_EQ(active(), &fenetre(2));
        EXPECT_TRUE(fenetre(2).arbre().hasFocus()) << agrandie;
        touche(Qt::Key_Left, Qt::AltModifier);
        EXPECT_TRUE(fenetre(0).vue().hasFocus()) << agrandie;
        touche(Qt::Key_Right, Qt::AltModifier);
    }
}

TEST_F(FenetresTest, AWindowChosenFromTheListOrShownByItsButtonHasItsFocusAgain) {
    commence();
    presse(fenetre(0).barrechild(), "arbre");
    fenetre(0).arbre().setFocus();
    presse(ecran().barreecran(), "CO");
    EXPECT_EQ(active(), &fenetre(2));
    presse(ecran().barreecran(), "CO");
    EXPECT_TRUE(fenetre(0).arbre().hasFocus());
    entree("mlistefenetre", 3)->trigger();
    entree("mlistefenetre", 1)->trigger();
    EXPECT_TRUE(fenetre(0).arbre().hasFocus());
    presse(ecran().barreecran(), "CO");
    presse(ecran().barreecran(), "JP");
    EXPECT_EQ(active(), nullptr);
    presse(ecran().barreecran(), "CO");
    EXPECT_TRUE(fenetre(0).arbre().hasFocus());
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
    presse(ecran().barreecran(), "CO");
    EXPECT_FALSE(liste(0));
    EXPECT_TRUE(liste(2));
    entree("maffichagef", 0)->trigger();
    EXPECT_TRUE(liste(0));
    presse(ecran().barreecran(), "CO");
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_TRUE(liste(0));
    presse(ecran().barreecran(), "JP");
    quitte();
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILD"), u"00X           ");
}

TEST_F(FenetresTest, AHiddenWindowThatIsBroughtForwardTellsItEverywhere) {
    commence();
    presse(ecran().barreecran(), "CO");
    programme->bureau().amene(0);
    EXPECT_EQ(active(), &fenetre(0));
    EXPECT_TRUE(liste(0));
    EXPECT_TRUE(ecran().barreecran().value(u"CO"_s));
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

TEST_F(FenetresTest, AtTheEndEachWindowWritesTheStateAndPlaceThatItHad) {
    // The one that is maximised, and the one behind it.
    for (const auto& [pleine, autre] : {std::pair{2, 0}, {0, 2}}) {
        regle(u"POSITIONFORME", u"WINDOWSSTATE2", u"0"_s); // whatever the first turn has left
        commence();
        autour(autre).setGeometry(20, 30, 400, 350);
        autour(pleine).setGeometry(60, 90, 450, 400);
        ecran().aire().activate(&fenetre(pleine));
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
    ecran().aire().activate(&fenetre(0));
    autour(0).showMaximized();
    quitte();
    EXPECT_EQ(ecrit(0), (QList<int>{2, 600, 750, 6600, 4950}));
}

TEST_F(FenetresTest, TheUsersOwnClosingOfTheFrameWritesThemToo) {
    commence();
    autour(2).setGeometry(20, 30, 400, 350);
    ecran().aire().activate(&fenetre(0));
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
    EXPECT_EQ(ecran().aire().children().size(), 1U);
    EXPECT_EQ(ecrit(0), (QList<int>{0, 600, 750, 7500, 6000}));
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

TEST_F(FenetresTest, TheOnlyWindowLeftAsAnIconIsRestoredAsOne) {
    cadre(700, 600);
    restaure(u"02  X         "_s, QString(16, u' ') + u"JP000007"_s);
    place(2, 1, {10, 20, 450, 380});
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_TRUE(autour(2).isMinimized());
    EXPECT_EQ(active(), &fenetre(2));
    ecran().aire().activate(&fenetre(2));
    EXPECT_EQ(autour(2).geometry(), QRect(10, 20, 450, 380));
    EXPECT_TRUE(fenetre(2).isVisible());
}

TEST_F(FenetresTest, AnIconOfTheSearchFormComesBackByItsButton) {
    commence();
    presse(ecran().barrecommande(), "Rechercher");
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
    presse(ecran().barrecommande(), "Rechercher");
    EXPECT_TRUE(autour(*formulaire()).isHidden());
    presse(ecran().barrecommande(), "Rechercher");
    EXPECT_TRUE(formulaire()->isVisible());
    EXPECT_FALSE(autour(*formulaire()).isMinimized());
}

TEST_F(FenetresTest, TheRunMayEndWithTheSearchFormOpenAfterItsListsWereUsed) {
    for (const bool demande : {true, false}) {
        commence();
        presse(ecran().barrecommande(), "Rechercher");
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

// ---- the panel and the frame

TEST_F(FenetresTest, ThePanelTakesAtMostWhatTheFrameHas) {
    cadre(700, 500);
    regle(u"EDITEUR", u"LARGEURSELECTION", u"32000"_s);
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    presse(ecran().barrecommande(), "Rechercher");
    QCoreApplication::processEvents();
    EXPECT_EQ(ecran().width(), 700);
    EXPECT_LT(volet().width(), 700);
    EXPECT_GT(volet().width(), 400);
    EXPECT_GT(ecran().aire().width(), 50) << "the windows keep some room";
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
    presse(ecran().barrecommande(), "Rechercher");
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
    EXPECT_GT(ecran().aire().width(), 50);
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
    ecran().picturesselection().changelargeurpane(6750);
    presse(ecran().barrecommande(), "Rechercher");
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
