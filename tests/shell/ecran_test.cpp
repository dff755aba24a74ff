// The frame with its bars, menus, slots and ground, in the real program.
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/barresecran.h"
#include "shell/bureau.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

using namespace velm;

namespace {

using EcranTest = test::EcranTest;

} // namespace

TEST_F(EcranTest, TheFrameLoadsWithItsBarsAtTheirSavedPlaces) {
    regle(u"BARRE", u"COMMANDE", QStringLiteral("2"));
    regle(u"BARRE", u"ECRAN", QStringLiteral("4"));
    regle(u"BARRE", u"OUTILS", QStringLiteral("1"));
    demarre(QString());
    EXPECT_EQ(barrecommande().dockedAt(), 2);
    EXPECT_EQ(barreecran().dockedAt(), 4);
    EXPECT_EQ(positionscochees("mbarre3"), std::vector<int>{1});
    EXPECT_FALSE(barreoutils().isVisible()) << "a bar without buttons takes no place";
    EXPECT_EQ(ecran().toolBarArea(&barrecommande()), Qt::BottomToolBarArea);
    EXPECT_EQ(ecran().toolBarArea(&barreecran()), Qt::RightToolBarArea);
    EXPECT_TRUE(barrecommande().isVisible());
}

TEST_F(EcranTest, AHiddenBarStaysHiddenButTheCommandBarComesBack) {
    demarre(QString());
    entree("mbarre1", 0)->trigger();
    entree("mbarre2", 0)->trigger();
    EXPECT_FALSE(barrecommande().isVisible());
    EXPECT_FALSE(barreecran().isVisible());
    redemarre();
    EXPECT_TRUE(barrecommande().isVisible());
    EXPECT_FALSE(barreecran().isVisible());
    EXPECT_FALSE(barrecommande().value(QStringLiteral("Barrefenêtre")));
    EXPECT_TRUE(barrecommande().value(QStringLiteral("Barreoutils")));
}

TEST_F(EcranTest, Position0HidesAndKeepsThePlace) {
    demarre(QString());
    entree("mbarre2", 2)->trigger();
    EXPECT_EQ(barreecran().dockedAt(), 2);
    presse(barrecommande(), "Barrefenêtre");
    EXPECT_FALSE(barreecran().isVisible());
    EXPECT_EQ(reglage("BARRE", "ECRAN"), u"2");
    EXPECT_EQ(reglage("BARRE", "ECRANVISIBLE"), u"0");
    presse(barrecommande(), "Barrefenêtre");
    EXPECT_TRUE(barreecran().isVisible());
    EXPECT_EQ(barreecran().dockedAt(), 2);
}

TEST_F(EcranTest, OnlyOnePositionIsCheckedInTheMenu) {
    demarre(QString());
    EXPECT_EQ(positionscochees("mbarre1"), std::vector<int>{1});
    EXPECT_EQ(positionscochees("mbarre2"), std::vector<int>{3});
    EXPECT_EQ(positionscochees("mbarre3"), std::vector<int>{4});
    for (const int position : {2, 0, 3, 3, 1}) {
        entree("mbarre1", position)->trigger();
        EXPECT_EQ(positionscochees("mbarre1"), std::vector<int>{position});
    }
    EXPECT_EQ(barrecommande().dockedAt(), 1);
}

TEST_F(EcranTest, TheStatusBarsStateIsSaved) {
    demarre(QString());
    EXPECT_TRUE(barreetat().isVisible());
    EXPECT_TRUE(entree("maffichage0", 3)->isChecked());
    entree("maffichage0", 3)->trigger();
    EXPECT_FALSE(barreetat().isVisible());
    EXPECT_FALSE(entree("maffichage0", 3)->isChecked());
    EXPECT_EQ(reglage("BARRE", "ETAT"), u"0");
    redemarre();
    EXPECT_FALSE(barreetat().isVisible());
    EXPECT_FALSE(entree("maffichage0", 3)->isChecked());
}

TEST_F(EcranTest, ASlotButtonShowsHidesAndShowsAgain) {
    demarre(QString());
    EXPECT_EQ(programme->fenetre(2), nullptr);
    presse(barreecran(), "JP");
    Textes* fenetre = programme->fenetre(2);
    ASSERT_NE(fenetre, nullptr);
    EXPECT_TRUE(fenetre->isVisible());
    EXPECT_EQ(fenetre->windowTitle(), u"Jurisprudence");
    presse(barreecran(), "JP");
    EXPECT_EQ(programme->fenetre(2), fenetre);
    EXPECT_FALSE(fenetre->isVisible());
    presse(barreecran(), "JP");
    EXPECT_EQ(programme->fenetre(2), fenetre);
    EXPECT_TRUE(fenetre->isVisible());
}

TEST_F(EcranTest, ButtonAndMenuEntryStayEqual) {
    demarre(QString());
    const auto egaux = [&](bool ouverte) {
        EXPECT_EQ(barreecran().value(QStringLiteral("CO")), ouverte);
        EXPECT_EQ(entree("maffichagef", 0)->isChecked(), ouverte);
    };
    egaux(false);
    entree("maffichagef", 0)->trigger();
    egaux(true);
    presse(barreecran(), "CO");
    egaux(false);
    presse(barreecran(), "CO");
    egaux(true);
    aire().around(programme->fenetre(0))->close();
    egaux(false);
}

TEST_F(EcranTest, WindowListEntriesFollowTheOpenSlots) {
    demarre(QStringLiteral("CO1"));
    EXPECT_TRUE(entree("mlistefenetre", 1)->isVisible());
    EXPECT_EQ(entree("mlistefenetre", 1)->text(), u"&1 Code de la consommation - Article premier");
    EXPECT_TRUE(entree("mlistefenetre", 1)->isChecked());
    EXPECT_FALSE(entree("mlistefenetre", 3)->isVisible());
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_TRUE(entree("mlistefenetre", 3)->isVisible());
    EXPECT_TRUE(entree("mlistefenetre", 3)->isChecked());
    EXPECT_FALSE(entree("mlistefenetre", 1)->isChecked());
    entree("mlistefenetre", 1)->trigger();
    EXPECT_EQ(programme->bureau().active(), programme->fenetre(0));
    EXPECT_TRUE(entree("mlistefenetre", 1)->isChecked());
    aire().around(programme->fenetre(0))->close();
    EXPECT_FALSE(entree("mlistefenetre", 1)->isVisible());
}

TEST_F(EcranTest, TheSeparatorHidesWithAnEmptyListOfLastDocuments) {
    demarre(QString());
    const auto* separateur = ecran().findChild<QAction*>(QStringLiteral("lineLastFile"));
    ASSERT_NE(separateur, nullptr);
    EXPECT_FALSE(separateur->isVisible());
    EXPECT_FALSE(entree("mnuLastFile", 0)->isVisible());
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_TRUE(separateur->isVisible());
    EXPECT_TRUE(entree("mnuLastFile", 0)->isVisible());
    EXPECT_EQ(entree("mnuLastFile", 0)->text(), u"&1 CO-Article 2");
    EXPECT_FALSE(entree("mnuLastFile", 1)->isVisible());
}

TEST_F(EcranTest, ALastDocumentOpensOnClick) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"CO000002"));
    entree("mnuLastFile", 1)->trigger();
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
    EXPECT_EQ(entree("mnuLastFile", 0)->text(), u"&1 CO-Article premier");
}

TEST_F(EcranTest, TheLastDocumentsAreKeptBetweenRuns) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"JP000007"));
    redemarre();
    EXPECT_EQ(entree("mnuLastFile", 0)->text(), u"&1 JP-Un arrêt");
    EXPECT_EQ(entree("mnuLastFile", 1)->text(), u"&2 CO-Article premier");
    EXPECT_EQ(reglage("DERNIERSDOCUMENTS", "REF0"), u"JP000007");
}

TEST_F(EcranTest, OneWindowModeIsWrittenAtOnce) {
    demarre(QStringLiteral("CO1"));
    EXPECT_TRUE(entree("maffichagetfu")->isChecked());
    entree("maffichagetfu")->trigger();
    EXPECT_FALSE(entree("maffichagetfu")->isChecked());
    EXPECT_EQ(reglage("GENERALITES", "MULTIFENETRE"), u"0");
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_EQ(programme->bureau().fenetres().size(), 2u);
    entree("maffichagetfu")->trigger();
    EXPECT_EQ(reglage("GENERALITES", "MULTIFENETRE"), u"1");
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_EQ(programme->bureau().fenetres().size(), 2u);
}

TEST_F(EcranTest, OneWindowModeIsMirroredInEveryWindow) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"JP000007"));
    for (const bool une : {false, true}) {
        entree("maffichagetfu")->trigger();
        for (Textes* ouverte : programme->bureau().fenetres()) {
            aire().activate(ouverte);
            // Every window is served by the frame's menu bar: no second entry could say otherwise.
            const auto entrees = ecran().findChildren<QAction*>(QStringLiteral("maffichagetfu"));
            ASSERT_EQ(entrees.size(), 1);
            EXPECT_TRUE(entrees.front()->isVisible());
            EXPECT_EQ(entrees.front()->isChecked(), une) << typedindice(ouverte->indice()).toStdString();
        }
        EXPECT_EQ(programme->bureau().navigation().unefenetre(), une);
    }
}

TEST_F(EcranTest, ThePartnersEntryIsDisabledWithoutAPicture) {
    demarre(QString());
    EXPECT_FALSE(entree("maide1", 1)->isEnabled());
    QImage(40, 30, QImage::Format_RGB32).save(dossier.filePath(QStringLiteral("partners.bmp")));
    redemarre();
    EXPECT_TRUE(entree("maide1", 1)->isEnabled());
}

TEST_F(EcranTest, TheCriteriaFileOfTheCommandLinePressesTheSearchButton) {
    demarre(dossier.filePath(QStringLiteral("essai.cv2")));
    EXPECT_TRUE(barrecommande().value(QStringLiteral("Rechercher")));
    EXPECT_TRUE(volet().isVisible());
}

TEST_F(EcranTest, TheSelectionPanelComesAndGoesWithItsButtonAndKeepsItsWidth) {
    regle(u"EDITEUR", u"LARGEURSELECTION", QStringLiteral("3000"));
    demarre(QString());
    EXPECT_FALSE(volet().isVisible());
    entree("mselection")->trigger();
    EXPECT_TRUE(volet().isVisible());
    EXPECT_TRUE(barrecommande().value(QStringLiteral("Rechercher")));
    EXPECT_EQ(volet().width(), 200);
    volet().changelargeurliste(4000);
    presse(barrecommande(), "Rechercher");
    EXPECT_FALSE(volet().isVisible());
    redemarre();
    EXPECT_EQ(reglage("EDITEUR", "LARGEURSELECTION"), u"4060");
    EXPECT_EQ(volet().largeurpane(), 4060);
}

TEST_F(EcranTest, TheArrangingButtonsShowWithMoreThanThreeForms) {
    demarre(QString());
    const auto montres = [&] { return barrecommande().isButtonVisible(QStringLiteral("Cascade")); };
    EXPECT_FALSE(montres());
    presse(barreecran(), "CO");
    presse(barreecran(), "EU");
    EXPECT_FALSE(montres());
    presse(barreecran(), "JP");
    EXPECT_TRUE(montres());
    aire().around(programme->fenetre(1))->close();
    EXPECT_FALSE(montres());
}

TEST_F(EcranTest, GoingBackInTheFrameOpensTheOtherCollectionsWindow) {
    demarre(QStringLiteral("CO1"));
    EXPECT_FALSE(barrecommande().isButtonEnabled(QStringLiteral("Précédent")));
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_TRUE(barrecommande().isButtonEnabled(QStringLiteral("Précédent")));
    presse(barrecommande(), "Précédent");
    EXPECT_EQ(programme->bureau().active(), programme->fenetre(0));
    EXPECT_EQ(programme->bureau().navigation().referencecourante(), u"CO000001");
    EXPECT_TRUE(barrecommande().isButtonEnabled(QStringLiteral("Suivant")));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    QTest::keyClick(&ecran(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(programme->bureau().active(), programme->fenetre(2));
}

TEST_F(EcranTest, TheMousesOwnButtonsWalkTheHistory) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"CO000002"));
    QTest::mouseClick(programme->fenetre(0)->vue().viewport(), Qt::BackButton);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
    QTest::mouseClick(programme->fenetre(0)->vue().viewport(), Qt::ForwardButton);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000002");
}

TEST_F(EcranTest, TheMenusOfDocumentsShowWithADocumentWindowOnly) {
    demarre(QString());
    const auto* edition = ecran().menuBar()->findChild<QMenu*>(QStringLiteral("medition"));
    ASSERT_NE(edition, nullptr);
    EXPECT_FALSE(edition->menuAction()->isVisible());
    presse(barreecran(), "CO");
    EXPECT_TRUE(edition->menuAction()->isVisible());
    EXPECT_FALSE(entree("medition0", 0)->isEnabled());
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_TRUE(entree("medition0", 0)->isEnabled());
    presse(barreecran(), "CO");
    EXPECT_FALSE(edition->menuAction()->isVisible());
}

TEST_F(EcranTest, EveryButtonHasANameAndATip) {
    demarre(QStringLiteral("CO1"));
    int vus = 0;
    for (const QToolButton* bouton : ecran().findChildren<QToolButton*>()) {
        if (bouton->objectName().startsWith(QStringLiteral("qt_")) || !bouton->isVisible())
            continue;
        EXPECT_FALSE(bouton->toolTip().isEmpty()) << bouton->objectName().toStdString();
        EXPECT_FALSE(bouton->accessibleName().isEmpty()) << bouton->objectName().toStdString();
        EXPECT_FALSE(bouton->icon().isNull()) << bouton->objectName().toStdString();
        ++vus;
    }
    // Those of the command bar, of the eleven collections and of the window.
    EXPECT_GT(vus, 25);
}

TEST_F(EcranTest, TheTwoHistoriesDifferInTipAndPicture) {
    demarre(QStringLiteral("CO1"));
    const Toolbar& fenetre = programme->fenetre(0)->barrechild();
    for (const QString& cle : {QStringLiteral("Précédent"), QStringLiteral("Suivant")}) {
        const QString ici = fenetre.toolTip(cle);
        const QString partout = barrecommande().toolTip(cle);
        EXPECT_NE(ici, partout);
        const QString debut = ici.left(ici.indexOf(u'('));
        EXPECT_TRUE(partout.startsWith(debut)) << partout.toStdString();
        EXPECT_NE(fenetre.widget(cle)->icon().name(), barrecommande().widget(cle)->icon().name());
    }
}

TEST_F(EcranTest, TheButtonOfAnEmptyCollectionIsFaintAndSaysWhy) {
    demarre(QString());
    auto& barres = *ecran().findChild<BarresEcran*>();
    const QToolButton& bouton = *barreecran().widget(QStringLiteral("JP"));
    const auto dessin = [&bouton] { return bouton.icon().pixmap(QSize(24, 24), 1.0).toImage(); };
    const QImage plein = dessin();
    const QString nom = barreecran().toolTip(QStringLiteral("JP"));
    barres.marquevide(2, true);
    EXPECT_NE(dessin(), plein);
    EXPECT_TRUE(barreecran().toolTip(QStringLiteral("JP")).startsWith(nom + u' '));
    EXPECT_TRUE(bouton.isEnabled()) << "it can be opened all the same";
    barres.marquevide(2, false);
    EXPECT_EQ(dessin(), plein);
    EXPECT_EQ(barreecran().toolTip(QStringLiteral("JP")), nom);
}

TEST_F(EcranTest, AHiddenWindowIsShownAgainByTheNextOpening) {
    demarre(QStringLiteral("CO1"));
    Textes* fenetre = programme->fenetre(0);
    presse(barreecran(), "CO");
    EXPECT_FALSE(fenetre->isVisible());
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_EQ(programme->fenetre(0), fenetre);
    EXPECT_TRUE(fenetre->isVisible());
    EXPECT_EQ(programme->bureau().fenetres().size(), 1u);
}

TEST_F(EcranTest, ADocumentCanBePutIntoTheDossiersWhileTheyAreOpen) {
    ASSERT_EQ(demarre(QStringLiteral("CO1")), Demarrage::EnMarche);
    const auto offre = [this](int indice) {
        return programme->fenetre(indice)->barrechild().isButtonVisible(QStringLiteral("document"));
    };
    EXPECT_FALSE(programme->bureau().dossiersouverts());
    EXPECT_FALSE(offre(0));
    programme->bureau().changedossiersouverts(true);
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_TRUE(offre(2));
}
