// What the frame tells of the window in front: status bar, title, size of the text; and the menu of the windows.
#include "platform/widgets/text/richtextbox.h"
#include "shell/bureau.h"
#include "shell/lignedetat.h"
#include "shell/recherches.h"
#include "tests/shell/selection_support.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QWheelEvent>
#include <QWindow>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class DevantTest : public test::SelectionTest {
protected:
    void SetUp() override {
        SelectionTest::SetUp();
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter arbre(*base.database, u"arborescences"_s,
                          {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"typededonnées"_s});
        ASSERT_TRUE(arbre.add({1, 0, u"CO"_s, u"Code de la consommation"_s}));
        ASSERT_TRUE(arbre.add({2, 1, u"CO"_s, u"Livre II"_s}));
        ASSERT_TRUE(base.database->execute(u"UPDATE données SET numeroarborescence=2 WHERE numart='000001'"_s));
    }
    void commence(const QString& ligne) {
        ASSERT_EQ(demarre(ligne), Demarrage::EnMarche);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    }
    QString panneau(const QString& cle) const { return barreetat().panelText(cle); }
    bool montre(const QString& cle) const { return barreetat().findChild<QWidget*>(cle)->isVisible(); }
    RichTextBox& vue(int indice) const { return programme->fenetre(indice)->vue(); }
    QString titre() const { return ecran().windowHandle()->title(); }
    void ferme(int indice) const { aire().around(programme->fenetre(indice))->close(); }
};

} // namespace

// ---- the status bar

TEST_F(DevantTest, TheStatusBarTellsWhereTheDocumentStands) {
    commence(u"CO1"_s);
    EVENTUALLY(panneau(u"référence"_s) == u"CO000001");
    EXPECT_EQ(panneau(u"chemin"_s), mots(9641, {u"Code de la consommation"_s, u"Livre II"_s})) << "the name once";
    EXPECT_EQ(panneau(u"position"_s), mots(9639, {u"2"_s, u"4"_s}));
    programme->ouvre(decoupecle(u"CO000004"));
    EVENTUALLY(panneau(u"référence"_s) == u"CO000004");
    EXPECT_EQ(panneau(u"chemin"_s), u"Code de la consommation");
    EXPECT_EQ(panneau(u"position"_s), mots(9639, {u"4"_s, u"4"_s}));
}

TEST_F(DevantTest, WithoutRoomTheWayLosesItsFirstParts) {
    {
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        TableWriter arbre(*base.database, u"arborescences"_s,
                          {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"typededonnées"_s});
        ASSERT_TRUE(arbre.add({3, 2, u"CO"_s, u"Chapitre II"_s}));
        ASSERT_TRUE(base.database->execute(u"UPDATE données SET numeroarborescence=3 WHERE numart='000001'"_s));
    }
    commence(u"CO1"_s);
    EVENTUALLY(!panneau(u"chemin"_s).isEmpty());
    auto* ligne =
        barreetat().findChild<QWidget*>(u"chemin"_s)->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const QString chemin = panneau(u"chemin"_s);
    const QString milieu = mots(9641, {mots(9641, {u"…"_s, u"Livre II"_s}), u"Chapitre II"_s});
    const QString fin = mots(9641, {u"…"_s, u"Chapitre II"_s});
    QList<QImage> dites;
    QList<QImage> voulues;
    for (const QString& celle : {milieu, fin}) {
        ligne->setFixedWidth(ligne->fontMetrics().horizontalAdvance(celle) + 1);
        QCoreApplication::processEvents();
        dites << ligne->grab().toImage();
    }
    for (const QString& celle : {milieu, fin}) {
        barreetat().setPanelText(u"chemin"_s, celle);
        ligne->setFixedWidth(ligne->fontMetrics().horizontalAdvance(celle) + 1);
        QCoreApplication::processEvents();
        voulues << ligne->grab().toImage();
    }
    EXPECT_EQ(dites, voulues) << chemin.toStdString();
}

TEST_F(DevantTest, AnotherWindowIsToldOfAndNoneOfNothing) {
    commence(u"CO1"_s);
    programme->ouvre(decoupecle(u"JP000007"));
    EVENTUALLY(panneau(u"référence"_s) == u"JP000007");
    ferme(2);
    EVENTUALLY(panneau(u"référence"_s) == u"CO000001");
    ferme(0);
    EVENTUALLY(panneau(u"référence"_s).isEmpty());
    EXPECT_TRUE(panneau(u"chemin"_s).isEmpty());
    EXPECT_FALSE(montre(u"référence"_s));
    EXPECT_FALSE(montre(u"position"_s));
    EXPECT_FALSE(montre(u"zoom"_s));
}

TEST_F(DevantTest, WhatALinkLeadsToStandsInPlaceOfTheWay) {
    commence(u"CO1"_s);
    EVENTUALLY(!panneau(u"chemin"_s).isEmpty());
    const auto* ligne =
        barreetat().findChild<QWidget*>(u"chemin"_s)->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    emit programme->fenetre(0)->cible(u"Article 2"_s);
    EXPECT_EQ(ligne->accessibleName(), u"Article 2");
    emit programme->fenetre(0)->cible(QString());
    EXPECT_EQ(ligne->accessibleName(), panneau(u"chemin"_s));
}

TEST_F(DevantTest, WhatASearchToldGoesWithItsListWhenAnotherWindowComes) {
    commence(u"CO1"_s);
    remplissage().remplitdecles({u"CO000001"_s, u"CO000002"_s});
    const QString compte = etat();
    EXPECT_FALSE(compte.isEmpty());
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_EQ(etat(), compte) << "the list is there to be seen";
    liste().affichemenuselection(false);
    EXPECT_TRUE(etat().isEmpty());
    liste().affichemenuselection(true);
    EXPECT_EQ(etat(), compte) << "told again";
    liste().affichemenuselection(false);
    ecran().dit(u" 0 document"_s);
    ferme(2);
    EVENTUALLY(etat().isEmpty());
}

// ---- the title

TEST_F(DevantTest, TheFramesTitleFollowsWhatIsReadInTheSameWindow) {
    commence(u"CO1"_s);
    EVENTUALLY(titre() == mots(9642, {u"Béta"_s, mots(8)}));
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_EQ(titre(), mots(9642, {u"alpha"_s, mots(8)}));
    presse(barrecommande(), "Précédent");
    EXPECT_EQ(titre(), mots(9642, {u"Béta"_s, mots(8)}));
}

TEST_F(DevantTest, TheFramesTitleBeginsWithWhatIsRead) {
    commence(QString());
    EXPECT_EQ(titre(), mots(8));
    programme->ouvre(decoupecle(u"CO000001"));
    EVENTUALLY(titre() == mots(9642, {u"Béta"_s, mots(8)}));
    aire().around(programme->fenetre(0))->showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(titre(), mots(9642, {u"Béta"_s, mots(8)}));
    entree("maffichagef", 2)->trigger();
    EVENTUALLY(titre() == mots(9642, {u"Jurisprudence"_s, mots(8)}));
    ferme(2);
    ferme(0);
    EVENTUALLY(titre() == mots(8));
}

// ---- the size of the text

TEST_F(DevantTest, OneSizeIsForAllWindowsAndForTheNextRun) {
    commence(u"CO1"_s);
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_EQ(panneau(u"zoom"_s), mots(9637, {u"100"_s}));
    entree("mzoom", 0)->trigger();
    EXPECT_EQ(vue(2).zoom(), 110);
    EXPECT_EQ(vue(0).zoom(), 110);
    EXPECT_EQ(panneau(u"zoom"_s), mots(9637, {u"110"_s}));
    entree("mzoom", 1)->trigger();
    entree("mzoom", 1)->trigger();
    EXPECT_EQ(vue(0).zoom(), 90);
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_EQ(vue(0).zoom(), 90);
    redemarre(u"CO1"_s);
    EXPECT_EQ(vue(0).zoom(), 90);
    EXPECT_EQ(reglage("GENERALITES", "ZOOM"), u"90");
    entree("mzoom", 2)->trigger();
    EXPECT_EQ(vue(0).zoom(), 100);
    EVENTUALLY(reglage("GENERALITES", "ZOOM") == u"100");
}

TEST_F(DevantTest, ASizeThatNobodyChoseIsNotWritten) {
    commence(u"CO1"_s);
    redemarre(u"CO1"_s);
    EXPECT_EQ(reglage("GENERALITES", "ZOOM"), u"(absent)");
}

TEST_F(DevantTest, TheWheelChangesAllOfThem) {
    commence(u"CO1"_s);
    programme->ouvre(decoupecle(u"JP000007"));
    QWheelEvent cran(QPointF(5, 5), vue(2).viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                     Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(vue(2).viewport(), &cran);
    EXPECT_EQ(vue(2).zoom(), 110);
    EXPECT_EQ(vue(0).zoom(), 110);
}

TEST_F(DevantTest, ThePublishersSizeStandsInForTheUsers) {
    {
        QFile maitre(dossier.filePath(u"master.ini"_s));
        ASSERT_TRUE(maitre.open(QIODevice::WriteOnly));
        maitre.write("[GENERALITES]\r\nZOOM=150\r\n");
    }
    commence(u"CO1"_s);
    EXPECT_EQ(vue(0).zoom(), 150);
    EXPECT_EQ(reglage("GENERALITES", "ZOOM"), u"(absent)");
}

TEST_F(DevantTest, ASizeOffTheScaleIsBounded) {
    regle(u"GENERALITES", u"ZOOM", u"9999"_s);
    commence(u"CO1"_s);
    EXPECT_EQ(vue(0).zoom(), SheetView::mostZoom);
}

TEST_F(DevantTest, WithoutADocumentWindowThereIsNoSize) {
    commence(QString());
    for (int rang = 0; rang < 3; ++rang)
        EXPECT_FALSE(entree("mzoom", rang)->isEnabled());
    programme->ouvre(decoupecle(u"CO000001"));
    for (int rang = 0; rang < 3; ++rang)
        EXPECT_TRUE(entree("mzoom", rang)->isEnabled());
    ferme(0);
    EVENTUALLY(!entree("mzoom", 0)->isEnabled());
}

TEST_F(DevantTest, TheKeysOfTheSizeWorkWhereverTheFocusIs) {
    commence(u"CO1"_s);
    volet().show();
    flex().setFocus();
    QTest::keyClick(&ecran(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(vue(0).zoom(), 110);
    QTest::keyClick(&ecran(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(vue(0).zoom(), 100);
    vue(0).setFocus();
    QTest::keyClick(&vue(0), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(vue(0).zoom(), 110);
    QTest::keyClick(&vue(0), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(vue(0).zoom(), 100);
}

TEST_F(DevantTest, APressOnTheSizeOffersItsMenu) {
    commence(u"CO1"_s);
    auto* panel = barreetat().findChild<QWidget*>(u"zoom"_s);
    EVENTUALLY(panel->isVisible());
    QTest::mouseClick(panel, Qt::LeftButton);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), u"mzoom");
    EXPECT_LE(menu->geometry().bottom(), barreetat().mapToGlobal(QPoint()).y());
    menu->close();
    QTest::mouseClick(barreetat().findChild<QWidget*>(u"référence"_s), Qt::LeftButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

// ---- the menu of the windows

TEST_F(DevantTest, TheWindowsAreCountedInTheirMenu) {
    commence(u"CO1"_s);
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_TRUE(entree("mlistefenetre", 1)->text().startsWith(u"&1 Code"));
    EXPECT_TRUE(entree("mlistefenetre", 3)->text().startsWith(u"&2 Juris"));
    ferme(0);
    EVENTUALLY(entree("mlistefenetre", 3)->text().startsWith(u"&1 Juris"));
}

TEST_F(DevantTest, AHiddenWindowIsNotCountedInTheirMenu) {
    commence(u"CO1"_s);
    programme->ouvre(decoupecle(u"JP000007"));
    programme->bureau().basculeslot(0);
    EXPECT_FALSE(entree("mlistefenetre", 1)->isVisible());
    EXPECT_TRUE(entree("mlistefenetre", 3)->text().startsWith(u"&1 Juris"));
}

TEST_F(DevantTest, TheTenthWindowIsChosenWithoutADigit) {
    commence(QString());
    for (int indice = 0; indice < 10; ++indice)
        programme->bureau().basculeslot(indice);
    EXPECT_TRUE(entree("mlistefenetre", 9)->text().startsWith(u"&9 "));
    EXPECT_FALSE(entree("mlistefenetre", 10)->text().contains(u'&'));
}

TEST_F(DevantTest, TheNextWindowComesForwardAndAllCanBeClosed) {
    commence(QString());
    EXPECT_FALSE(entree("mdisposition", 3)->isEnabled());
    EXPECT_FALSE(entree("mdisposition", 4)->isEnabled());
    programme->ouvre(decoupecle(u"CO000001"));
    programme->ouvre(decoupecle(u"JP000007"));
    entree("mdisposition", 3)->trigger();
    EXPECT_EQ(active(), programme->fenetre(0));
    aire().around(programme->fenetre(0))->showMaximized();
    entree("mdisposition", 4)->trigger();
    EVENTUALLY(programme->bureau().fenetres().empty());
    EXPECT_FALSE(entree("mdisposition", 4)->isEnabled());
    EXPECT_EQ(reglage("POSITIONFORME", "WINDOWSSTATE0"), u"2");
    EXPECT_EQ(reglage("POSITIONFORME", "WINDOWSSTATE2"), u"0") << "as it was before the other one closed";
}

TEST_F(DevantTest, TheLastDocumentsBearThePicturesOfTheirCollections) {
    commence(u"CO1"_s);
    EXPECT_FALSE(entree("mnuLastFile", 0)->icon().isNull());
    EXPECT_TRUE(entree("mnuLastFile", 1)->icon().isNull());
    programme->ouvre(decoupecle(u"CO000002"));
    QMenu* historique = barrecommande().menu(u"Précédent"_s);
    emit historique->aboutToShow();
    ASSERT_EQ(historique->actions().size(), 1);
    EXPECT_FALSE(historique->actions().front()->icon().isNull());
}

// ---- the search

TEST_F(DevantTest, ItsKeyBringsTheSearchAndPutsItAwayWhereItIs) {
    commence(u"CO1"_s);
    remplissage().remplitdecles({u"CO000001"_s, u"CO000002"_s});
    ASSERT_TRUE(volet().isVisible());
    const auto touche = [this] { QTest::keyClick(&ecran(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier); };
    touche();
    QWidget* formulaire = programme->recherches().formulaire();
    ASSERT_NE(formulaire, nullptr);
    EXPECT_TRUE(volet().isVisible());
    EVENTUALLY(formulaire->isAncestorOf(QApplication::focusWidget()));
    touche();
    EXPECT_FALSE(volet().isVisible());
    EXPECT_FALSE(formulaire->isVisible());
    touche();
    EXPECT_TRUE(volet().isVisible());
    EVENTUALLY(formulaire->isAncestorOf(QApplication::focusWidget()));
    vue(0).setFocus();
    EVENTUALLY(active() != nullptr);
    touche();
    EXPECT_TRUE(volet().isVisible()) << "the focus was elsewhere";
    EVENTUALLY(formulaire->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(DevantTest, APlaceIsLookedUpOnceAndNoMoreBehindTheEnd) {
    commence(QString());
    int demandes = 0;
    LigneDEtat ligne({ecran(), programme->bureau(), programme->corpus(), [](Texte) { return QString(); },
                      [&demandes](int) {
                          ++demandes;
                          return u"Une collection"_s;
                      }});
    programme->bureau().navigation().ouvre({u"CO"_s, u"000001"_s}, {});
    EVENTUALLY(demandes == 1);
    emit programme->bureau().devantchange();
    QTest::qWait(60);
    EXPECT_EQ(demandes, 1) << "of the same document";
    ligne.arrete();
    programme->bureau().navigation().ouvre({u"JP"_s, u"000007"_s}, {});
    QTest::qWait(60);
    EXPECT_EQ(demandes, 1);
}
