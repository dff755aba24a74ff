// The panel of the selection list, and who else fills the list.
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/look/noteline.h"
#include "search/selectionoutil.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/recherches.h"
#include "tests/shell/selection_support.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QToolButton>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

using VoletTest = SelectionTest;

TEST_F(VoletTest, AnEmptyListShowsTheSearchFormWithThePaneAndHidesItWithIt) {
    ouvre({});
    QSignalSpy voulus(&programme->selection(), &Selection::criteresvoulus);
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(volet().isVisible());
    EXPECT_EQ(voulus.size(), 1);
    EXPECT_TRUE(voulus.first().first().toBool());
    EXPECT_TRUE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Masquer les critères de recherche");
    presse(barrecommande(), "Rechercher");
    EXPECT_FALSE(volet().isVisible());
    EXPECT_FALSE(voulus.last().first().toBool());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(etat(), QString());
}

TEST_F(VoletTest, AListWithAResultShowsWithoutTheForm) {
    ouvre();
    presse(barrecommande(), "Rechercher");
    EXPECT_FALSE(volet().isVisible());
    EXPECT_EQ(etat(), QString());
    QSignalSpy voulus(&programme->selection(), &Selection::criteresvoulus);
    entree("mselection")->trigger();
    EXPECT_TRUE(volet().isVisible());
    EXPECT_TRUE(flex().isVisible());
    EXPECT_TRUE(voulus.isEmpty());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Afficher les critères de recherche");
}

TEST_F(VoletTest, TheCriteriaButtonShowsAndHidesTheFormAndChangesItsToolTip) {
    ouvre();
    presse(barre(), "affichercritères");
    EXPECT_NE(programme->recherches().formulaire(), nullptr);
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Masquer les critères de recherche");
    presse(barre(), "affichercritères");
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Afficher les critères de recherche");
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
}

TEST_F(VoletTest, DraggingTheBarResizesThePaneBothWaysAndNeverBelowItsMinimum) {
    ouvre();
    ecran().resize(1000, 700);
    auto* bord = volet().findChild<SplitterBar*>(u"separateurrecherche"_s);
    const auto tire = [bord](int pas) {
        const QPoint prise = bord->rect().center();
        QTest::mousePress(bord, Qt::LeftButton, {}, prise);
        QTest::mouseMove(bord, prise + QPoint(pas, 0));
        QTest::mouseRelease(bord, Qt::LeftButton, {}, bord->rect().center());
    };
    const int avant = volet().width();
    tire(200);
    EXPECT_NEAR(volet().width(), avant + 200, 8);
    EXPECT_EQ(volet().largeurpane(), volet().largeurliste() + 60);
    tire(-100);
    EXPECT_NEAR(volet().width(), avant + 100, 8);
    tire(-2000);
    EXPECT_EQ(volet().largeurliste(), 60);
    EXPECT_EQ(volet().largeurpane(), 120);
    EXPECT_GE(volet().width(), SplitterBar::thickness);
}

TEST_F(VoletTest, TheFocusComesBackToAListThatWasFilledAnew) {
    ouvre();
    flex().setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    ASSERT_TRUE(flex().view()->hasFocus());
    remplissage().remplitdecles({u"CO000003"_s});
    EXPECT_TRUE(flex().view()->hasFocus());
}

TEST_F(VoletTest, NothingOfTheListIsTouchedWhileItIsFilled) {
    ouvre();
    flex().setRow(2);
    remplissage().remplit(
        [this](const std::stop_token&) {
            EXPECT_TRUE(flex().isHidden());
            presse(barre(), "suivantrecherche");
            liste().trie(0);
            liste().supprime();
            liste().ouvre();
            EXPECT_EQ(active(), nullptr);
            EXPECT_EQ(liste().liste().lignes(), 5);
        },
        [] {});
    EXPECT_TRUE(flex().isVisible());
    EXPECT_TRUE(flex().redraw());
}

TEST_F(VoletTest, AListThatComesWhileASearchRunsStopsItAndWaitsForItsEnd) {
    ouvre({});
    QStringList lignes;
    remplissage().remplit(
        [&](const std::stop_token& recherche) {
            EXPECT_FALSE(recherche.stop_requested());
            remplissage().remplitdecles({u"CO000001"_s});
            EXPECT_TRUE(recherche.stop_requested());
            EXPECT_EQ(liste().liste().lignes(), 0);
            // The newest one wins.
            remplissage().cherchedans(u"CO"_s, u"deux"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
            EXPECT_TRUE(lignes.isEmpty());
        },
        [] {});
    EVENTUALLY(lignes.size() == 1);
    EXPECT_EQ(colonne(6), (QStringList{u"CO000002"_s, u"CO000004"_s}));
    EXPECT_TRUE(flex().isVisible());
}

TEST_F(VoletTest, WhatTheListIsStandsOverIt) {
    ouvre({});
    liste().affichemenuselection(true);
    const NoteLine& note = volet().note();
    EXPECT_FALSE(note.text().isEmpty()) << "of what will come";
    EXPECT_LE(note.geometry().bottom(), flex().y());
    EXPECT_GE(note.y(), barre().geometry().bottom());
    const QString avant = note.text();
    remplissage().remplitdecles({u"CO000001"_s, u"CO000002"_s});
    EXPECT_NE(note.text(), avant);
    EXPECT_TRUE(note.text().startsWith(u'2'));
    liste().affichemenuselection(false);
    liste().affichemenuselection(true);
    EXPECT_TRUE(note.text().startsWith(u'2')) << "as long as the rows stand";
    bool encore = false;
    remplissage().ditbilan({u"50 premiers"_s, false, true}, [&encore] { encore = true; });
    QTest::mouseClick(note.link(), Qt::LeftButton);
    EXPECT_TRUE(encore);
}

TEST_F(VoletTest, WhatWasNotFoundIsSaidOnceByTheFormAsLongAsItIsSeen) {
    ouvre({});
    liste().affichemenuselection(true);
    const NoteLine& note = volet().note();
    liste().formulairevisible(true);
    remplissage().ditbilan({u"Aucun document ne contient « zut »."_s, true, false});
    EXPECT_EQ(note.text(), QString());
    EXPECT_EQ(flex().emptyText(), u"Aucun document trouvé.") << "the form says of what";
    liste().formulairevisible(false);
    EXPECT_EQ(flex().emptyText(), u"Aucun document ne contient « zut ».") << "nobody else does";
    remplissage().ditbilan({u"3 documents"_s, false, false});
    EXPECT_EQ(note.text(), u"3 documents");
    EXPECT_EQ(flex().emptyText(), u"Aucun document trouvé.");
}

// ---- the word search of a document window

TEST_F(VoletTest, TheBlockOfAWindowSearchesItsOwnCollectionForAllWords) {
    ouvre({});
    programme->ouvre(decoupecle(u"CO000001"));
    Textes& fenetre = *active();
    presse(fenetre.barrechild(), "barrehoriz");
    presse(fenetre.barrechild(), "recherchedico");
    auto* boite = fenetre.findChild<QLineEdit*>(u"Textedico"_s);
    auto* resultat = fenetre.findChild<QListWidget*>(u"resultat"_s);
    QTest::keyClicks(boite, u"prix deux"_s);
    QTest::keyClick(boite, Qt::Key_Return);
    EXPECT_TRUE(volet().isVisible());
    EXPECT_TRUE(barrecommande().value(u"Rechercher"_s));
    EXPECT_EQ(colonne(6), (QStringList{u"CO000002"_s, u"CO000004"_s}));
    EXPECT_EQ(etat(), u" 2 documents");
    ASSERT_EQ(resultat->count(), 2);
    EXPECT_EQ(resultat->item(0)->text(), u"prix : 5 ( 4 )");
    EXPECT_EQ(resultat->item(1)->text(), u"deux : 4 ( 3 )");
    EXPECT_EQ(liste().liste().resultat().mot1, u"DEUX");
    EXPECT_EQ(liste().liste().resultat().mot2, u"PRIX");
    for (const char* cle :
         {"précédentrecherche", "suivantrecherche", "sauvercritères", "ouvrircritères", "envoyercritères"})
        EXPECT_TRUE(enabled(cle)) << cle;
    QTest::mouseClick(resultat->viewport(), Qt::LeftButton, {}, resultat->visualItemRect(resultat->item(0)).center());
    EXPECT_EQ(boite->text(), u"prix");
    EXPECT_EQ(flex().rows(), 5);
    presse(barre(), "suivantrecherche");
    EXPECT_EQ(active()->lecture().mots().mot1, u"PRIX");
    EXPECT_EQ(marques(*active()), 2);
}

TEST_F(VoletTest, ASearchOfAWindowWithoutAResultHidesTheListAndReleasesTheButton) {
    ouvre();
    programme->ouvre(decoupecle(u"CO000001"));
    QStringList lignes;
    remplissage().cherchedans(u"CO"_s, u"ab introuvable"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
    EXPECT_EQ(flex().rows(), 1);
    EXPECT_TRUE(flex().isHidden());
    EXPECT_FALSE(barrecommande().value(u"Rechercher"_s));
    EXPECT_EQ(lignes.size(), 2);
    EXPECT_EQ(etat(), u" 0 document");
    EXPECT_FALSE(enabled("suivantrecherche"));
    // A line of one letter is refused word by word, not sent elsewhere.
    remplissage().cherchedans(u"CO"_s, u"a"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
    EXPECT_EQ(lignes.size(), 3);
}

TEST_F(VoletTest, ASearchOfAWindowWithoutAResultTakesTheFormWithTheList) {
    ouvre({});
    programme->ouvre(decoupecle(u"CO000001"));
    Textes& fenetre = *active();
    presse(fenetre.barrechild(), "barrehoriz");
    presse(fenetre.barrechild(), "recherchedico");
    presse(barrecommande(), "Rechercher");
    const FrmVelmorSelect* formulaire = programme->recherches().formulaire();
    ASSERT_TRUE(formulaire && formulaire->isVisible());
    auto* boite = fenetre.findChild<QLineEdit*>(u"Textedico"_s);
    QTest::mouseClick(boite, Qt::LeftButton);
    QTest::keyClicks(boite, u"introuvable"_s);
    QTest::keyClick(boite, Qt::Key_Return);
    EXPECT_FALSE(volet().isVisible());
    EXPECT_FALSE(formulaire->isVisible());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Afficher les critères de recherche");
    EXPECT_EQ(active(), &fenetre);
    EXPECT_EQ(ecran().focusWidget(), boite);
    EXPECT_EQ(etat(), u" 0 document") << "what was found stays said";
    // What the form finds next is seen.
    presse(barrecommande(), "Rechercher");
    ASSERT_TRUE(formulaire->isVisible());
    formulaire->findChild<QTabWidget*>(u"ongletrecherche"_s)->setCurrentIndex(2);
    formulaire->findChild<QLineEdit*>(u"Textedico"_s)->setText(u"deux"_s);
    QTest::mouseClick(formulaire->findChild<QPushButton*>(u"cmdokdico"_s), Qt::LeftButton);
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(colonne(6), (QStringList{u"CO000002"_s, u"CO000004"_s, u"JP000007"_s}));
}

TEST_F(VoletTest, HidingThePaneLooksAgainWhetherThereAreWindowsToArrange) {
    ouvre();
    for (int indice = 0; indice < 2; ++indice)
        programme->bureau().basculeslot(indice);
    // The form counts as a window of the frame, too, but says nothing when it is made.
    presse(barre(), "affichercritères");
    const auto disposables = [this] { return barrecommande().isButtonVisible(u"Cascade"_s); };
    EXPECT_FALSE(disposables());
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(disposables());
}

// ---- tools

TEST_F(VoletTest, AToolFillsTheListFromItsFileAndShowsThePane) {
    ouvre({});
    volet().changelargeurliste(500);
    const QString chemin = fichierselection(dossier.path());
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write("prix\r\n\r\nCO000003\r\nCO000999\r\nJP000007\r\n");
    fichier.close();
    EXPECT_TRUE(remplissage().prenddoutil(dossier.path()));
    EXPECT_EQ(colonne(6), (QStringList{u"CO000003"_s, u"JP000007"_s}));
    EXPECT_EQ(etat(), u" 2 documents");
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(volet().largeurliste(), 2000);
    EXPECT_FALSE(QFile::exists(chemin));
    EXPECT_TRUE(enabled("suivantrecherche"));
    EXPECT_FALSE(remplissage().prenddoutil(dossier.path()));
    EXPECT_EQ(flex().rows(), 3);
    EXPECT_TRUE(flex().isVisible());
}
