// The menus, pop-ups and keys of the frame.
#include "core/langue.h"
#include "platform/widgets/frame/childarea.h"
#include "shell/bureau.h"
#include "shell/menus.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocument>
#include <QTextDocumentFragment>

using namespace velm;

namespace {

class MenusTest : public test::EcranTest {
protected:
    std::vector<test::DocumentEssai> documents() const override {
        std::vector<test::DocumentEssai> tous = EcranTest::documents();
        tous.push_back({QStringLiteral("EU000003"), titrelong(), "{\\rtf1\\ansi Quatre.\\par}"});
        return tous;
    }
    static QString titrelong() { return QStringLiteral("Prix & délais ").repeated(12).trimmed(); }

    /// A tip as it is read.
    static QString lu(const QString& infobulle) {
        const bool riche = Qt::mightBeRichText(infobulle);
        return (riche ? QTextDocumentFragment::fromHtml(infobulle).toPlainText() : infobulle).simplified();
    }

    /// The pop-up that a right click on a bar opens.
    static QMenu* contextuel(Toolbar& barre) {
        const QPoint milieu = barre.rect().center();
        QContextMenuEvent clic(QContextMenuEvent::Mouse, milieu, barre.mapToGlobal(milieu));
        QApplication::sendEvent(&barre, &clic);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
};

/// Access keys that stand twice in a menu, of this menu and those below it.
QStringList doublons(const QString& nom, const QList<QAction*>& entrees) {
    QStringList resultat;
    QMap<QChar, QString> vues;
    for (QAction* entree : entrees) {
        if (entree->menu())
            resultat += doublons(entree->menu()->objectName(), entree->menu()->actions());
        const QString cle = QKeySequence::mnemonic(entree->text()).toString();
        if (cle.isEmpty())
            continue;
        const QChar lettre = cle.back();
        if (vues.contains(lettre))
            resultat << nom + QStringLiteral(": ") + vues.value(lettre) + QStringLiteral(" / ") + entree->text();
        vues.insert(lettre, entree->text());
    }
    return resultat;
}

} // namespace

TEST_F(MenusTest, ARightClickOnABarOffersItsFivePlaces) {
    demarre(QString());
    const struct {
        Toolbar& barre;
        const char* nom;
        const char* tableau;
        const char* dansmenu;
    } barres[] = {{barrecommande(), "ContextMenuBarreCommandes", "mbarre5", "mbarre1"},
                  {barreecran(), "ContextMenuBarreTable", "mbarre6", "mbarre2"}};
    for (const auto& b : barres) {
        QMenu* menu = contextuel(b.barre);
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->objectName(), QString::fromLatin1(b.nom));
        EXPECT_EQ(menu->actions().size(), 5);
        menu->close();
        for (const int place : {2, 4, 3, 1, 1}) {
            entree(b.tableau, place)->trigger();
            EXPECT_EQ(b.barre.dockedAt(), place);
            EXPECT_EQ(positionscochees(b.tableau), std::vector<int>{place});
            EXPECT_EQ(positionscochees(b.dansmenu), std::vector<int>{place});
        }
        entree(b.dansmenu, 3)->trigger();
        EXPECT_EQ(positionscochees(b.tableau), std::vector<int>{3});
        entree(b.tableau, 0)->trigger();
        EXPECT_FALSE(b.barre.isVisible());
        EXPECT_EQ(positionscochees(b.dansmenu), std::vector<int>{0});
    }
    entree("mbarre4", 2)->trigger();
    EXPECT_EQ(positionscochees("mbarre3"), std::vector<int>{2});
    EXPECT_EQ(reglage("BARRE", "OUTILS"), u"2");
}

TEST_F(MenusTest, BarsStandAtEveryEdgeAndTurnWithIt) {
    demarre(QString());
    for (const auto& [tableau, barre] : {std::pair("mbarre1", &barrecommande()), std::pair("mbarre2", &barreecran())}) {
        for (const int place : {1, 2, 3, 4}) {
            entree(tableau, place)->trigger();
            EXPECT_TRUE(barre->isVisible());
            EXPECT_EQ(barre->orientation(), place <= 2 ? Qt::Horizontal : Qt::Vertical);
        }
    }
}

TEST_F(MenusTest, AHiddenCommandBarKeepsItsShortcuts) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"CO000002"));
    entree("mbarre1", 0)->trigger();
    ASSERT_FALSE(barrecommande().isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    QTest::keyClick(&ecran(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
    QTest::keyClick(&ecran(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(volet().isVisible());
}

TEST_F(MenusTest, AccessKeysAreUniqueInEachMenuInBothLanguages) {
    demarre(QStringLiteral("CO1"));
    for (const char* extension : {"FR", "EN"}) {
        Langue langue([](const QString& numero) { ADD_FAILURE() << numero.toStdString(); });
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR),
                              QString::fromLatin1(extension));
        QMenuBar barre;
        const auto texte = [&](Texte lequel) { return langue.lireressource(lequel); };
        Actions actions(texte, [](const QString&) { return QIcon(); });
        const MenusEcran essai(barre, actions, texte);
        EXPECT_EQ(doublons(QStringLiteral("bar"), barre.actions()), QStringList()) << extension;
    }
}

TEST_F(MenusTest, ALongTitleIsElidedInTheMenusAndWholeInTheTip) {
    demarre(QStringLiteral("EU3"));
    const QAction* dernier = entree("mnuLastFile", 0);
    EXPECT_TRUE(dernier->text().startsWith(QStringLiteral("&1 EU-Prix && délais")));
    EXPECT_TRUE(dernier->text().contains(u'…'));
    EXPECT_EQ(lu(dernier->toolTip()), QStringLiteral("EU-") + titrelong());
    const QAction* fenetre = entree("mlistefenetre", 2);
    EXPECT_TRUE(fenetre->text().contains(u'…'));
    EXPECT_EQ(lu(fenetre->toolTip()), QStringLiteral("Droit européen - ") + titrelong());
    // Every ampersand of the title is doubled, also where it was cut.
    EXPECT_EQ(QString(fenetre->text()).remove(QStringLiteral("&&")).count(u'&'), 1) << "that of the digit";
    const auto* menu = ecran().menuBar()->findChild<QMenu*>(QStringLiteral("mfichier"));
    EXPECT_LT(menu->sizeHint().width(), 800);
    EXPECT_TRUE(menu->toolTipsVisible());
}

TEST_F(MenusTest, TheEntryOfASlotNamesTheWindowThatItBringsForward) {
    demarre(QStringLiteral("CO1"));
    Textes* premiere = programme->fenetre(0);
    entree("maffichagetfu")->trigger();
    programme->ouvre(decoupecle(u"CO000002"));
    ASSERT_NE(programme->fenetre(0), premiere);
    premiere->setWindowTitle(QStringLiteral("Un autre titre"));
    EXPECT_EQ(entree("mlistefenetre", 1)->text(), u"&1 Code de la consommation - Article 2");
    entree("mlistefenetre", 1)->trigger();
    EXPECT_EQ(programme->bureau().active()->referencecourante(), u"CO000002");
}

TEST_F(MenusTest, CtrlTabWalksTheWindows) {
    demarre(QStringLiteral("CO1"));
    programme->ouvre(decoupecle(u"JP000007"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    programme->fenetre(2)->vue().setFocus();
    QTest::keyPress(programme->fenetre(2)->vue().viewport(), Qt::Key_Control);
    QTest::keyClick(programme->fenetre(2)->vue().viewport(), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(programme->fenetre(2)->vue().viewport(), Qt::Key_Control);
    EVENTUALLY(programme->bureau().active() == programme->fenetre(0));
    EXPECT_TRUE(entree("mlistefenetre", 1)->isChecked());
}

TEST_F(MenusTest, WithoutAHelpFileNothingOffersHelp) {
    demarre(QStringLiteral("CO1"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    EXPECT_FALSE(entree("maide0", 2)->isVisible());
    QTest::keyClick(programme->fenetre(0)->vue().viewport(), Qt::Key_F1);
    EXPECT_TRUE(dialogues.texts().isEmpty());
    EXPECT_TRUE(navigateur.files.isEmpty());
    EXPECT_FALSE(programme->aidepresente());
}

TEST_F(MenusTest, F1OpensTheHelpFile) {
    QFile aide(dossier.filePath(QStringLiteral("Velm2000.chm")));
    ASSERT_TRUE(aide.open(QIODevice::WriteOnly));
    demarre(QStringLiteral("CO1"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    EXPECT_TRUE(entree("maide0", 2)->isVisible());
    EXPECT_TRUE(programme->aidepresente());
    QTest::keyClick(programme->fenetre(0)->vue().viewport(), Qt::Key_F1);
    EXPECT_EQ(navigateur.files, QStringList{aide.fileName()});
}

TEST_F(MenusTest, CtrlQAsksAndLeaves) {
    demarre(QStringLiteral("CO1"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    dialogues.answers = {Bouton::Non};
    QTest::keyClick(programme->fenetre(0)->vue().viewport(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(ecran().isVisible());
    dialogues.answers = {Bouton::Oui};
    QTest::keyClick(programme->fenetre(0)->vue().viewport(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(ecran().isVisible());
    EXPECT_EQ(dialogues.texts(), (QStringList{questiondefin(), questiondefin()}));
}

TEST_F(MenusTest, WhatIsNotBuiltYetStandsInItsPlaceAndIsOff) {
    demarre(QStringLiteral("CO1"));
    for (const char* nom : {"Menu_MajNet", "mediteur", "moutils3", "mfichier2(2)", "maide0(1)"}) {
        EXPECT_FALSE(entree(nom)->isEnabled()) << nom;
        EXPECT_FALSE(entree(nom)->text().isEmpty()) << nom;
    }
    EXPECT_FALSE(entree("mlistefenetre", 12)->isVisible());
    EXPECT_TRUE(barreecran().isButtonEnabled(QStringLiteral("Index")));
    for (const char* cle : {"chrono", "numéro", "motclé"})
        EXPECT_TRUE(barrecommande().isButtonEnabled(QString::fromUtf8(cle))) << cle;
    EXPECT_TRUE(barrecommande().isButtonEnabled(QStringLiteral("Imprimer")));
    EXPECT_FALSE(barrecommande().isButtonEnabled(QStringLiteral("imprimereject"))) << "no job is open";
    EXPECT_FALSE(barrecommande().isButtonVisible(QStringLiteral("imprimereject")));
    QMenu* ejections = barrecommande().menu(QStringLiteral("imprimereject"));
    ASSERT_NE(ejections, nullptr);
    emit ejections->aboutToShow();
    EXPECT_EQ(ejections->actions().size(), 3);
}

TEST_F(MenusTest, EverythingThatTakesTheFocusHasAnAccessibleName) {
    demarre(QStringLiteral("CO1"));
    entree("mselection")->trigger();
    entree("maide0", 0)->trigger();
    entree("maide1", 0)->trigger();
    int vus = 0;
    for (QWidget* widget : ecran().findChildren<QWidget*>()) {
        const bool prend = widget->isVisible() && widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy();
        if (!prend || qobject_cast<QMdiSubWindow*>(widget))
            continue;
        const QAccessibleInterface* pont = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(pont, nullptr);
        EXPECT_FALSE(pont->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
        ++vus;
    }
    EXPECT_GT(vus, 10);
}

TEST_F(MenusTest, TheToolkitsOwnMenusSpeakTheLanguageFromTheFirstWindowOn) {
    demarre(QStringLiteral("CO1"));
    const QMenu* systeme = aire().around(programme->fenetre(0))->systemMenu();
    ASSERT_NE(systeme, nullptr);
    QStringList textes;
    for (const QAction* action : systeme->actions())
        textes << QString(action->text()).remove(u'&').section(u'\t', 0, 0);
    EXPECT_TRUE(textes.contains(QStringLiteral("Fermer"))) << textes.join(u',').toStdString();
}
