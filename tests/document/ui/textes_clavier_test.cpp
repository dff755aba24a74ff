// The document window: names, focus, the keyboard's roads, and windows that go at odd moments.
#include "document/ui/frmproperties.h"
#include "document/ui/listedeliens.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QSet>
#include <QSignalSpy>

#include <map>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ClavierTextes : public test::BaseTextes {
protected:
    /// An active window, so that the focus is real.
    Textes& devant(const char* cle) {
        Textes& fenetre = ouvre(cle);
        fenetre.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        return fenetre;
    }
    static QStringList sansnom(const QWidget& fenetre) {
        QStringList muets;
        for (const QWidget* enfant : fenetre.findChildren<QWidget*>()) {
            const auto* bouton = qobject_cast<const QAbstractButton*>(enfant);
            const bool nomme = !enfant->accessibleName().isEmpty() || (bouton && !bouton->text().isEmpty());
            const bool atteint = enfant->isVisibleTo(&fenetre) && (enfant->focusPolicy() & Qt::TabFocus);
            if (atteint && !enfant->focusProxy() && !nomme)
                muets << QString::fromLatin1(enfant->metaObject()->className()) + u' ' + enfant->objectName();
        }
        return muets;
    }
    /// The window's own control that has the focus, or holds what has it.
    static QString ou(Textes& fenetre) {
        const QWidget* celui = fenetre.focusWidget();
        while (celui && celui->parentWidget() != &fenetre)
            celui = celui->parentWidget();
        return celui ? celui->objectName() : QString();
    }
    /// The window's own controls in the order in which a key comes to them, from its bar on and round to it again.
    static QStringList tour(Textes& fenetre, Qt::Key touche) {
        const auto presse = [&] {
            const bool retour = touche == Qt::Key_Backtab;
            QTest::keyClick(fenetre.focusWidget(), touche, retour ? Qt::ShiftModifier : Qt::NoModifier);
        };
        constexpr int tropdepas = 40;
        for (int pas = 0; pas < tropdepas && ou(fenetre) != u"barrechild"; ++pas)
            presse();
        QStringList chemin{ou(fenetre)};
        for (int pas = 0; pas < tropdepas; ++pas) {
            presse();
            if (ou(fenetre) == chemin.first())
                return chemin;
            if (ou(fenetre) != chemin.last())
                chemin << ou(fenetre);
        }
        return chemin << u"(jamais revenu)"_s;
    }
    /// The same walk the other way round begins at the bar as well.
    static QStringList envers(QStringList chemin) {
        std::reverse(chemin.begin() + 1, chemin.end());
        return chemin;
    }
    static void menuauclavier(QWidget& surface) {
        QContextMenuEvent demande(QContextMenuEvent::Keyboard, surface.rect().center(),
                                  surface.mapToGlobal(surface.rect().center()));
        QApplication::sendEvent(&surface, &demande);
    }
};

} // namespace

TEST_F(ClavierTextes, EveryControlThatTakesTheFocusTellsItsName) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    for (const auto& bloc : {u"arbre"_s, u"tableau"_s, u"recherchedico"_s}) {
        presse(fenetre, bloc);
        EXPECT_EQ(sansnom(fenetre).join(u", "), QString()) << bloc.toStdString();
    }
    presse(fenetre, u"propriétés"_s);
    auto* boite = fenetre.findChild<frmproperties*>();
    ASSERT_NE(boite, nullptr);
    EXPECT_EQ(sansnom(*boite).join(u", "), QString());
}

TEST_F(ClavierTextes, TheTabKeyWalksAllControlsOfTheWindowAndComesBackToTheFirst) {
    const std::map<QString, QStringList> blocs{
        {u"arbre"_s, {u"arbre"_s}}, {u"tableau"_s, {u"flex"_s}}, {u"recherchedico"_s, {u"blocrecherche"_s}}};
    Textes& fenetre = devant("CO000002");
    controle(fenetre, u"blocrecherche"_s)->setEnabled(true);
    fenetre.volet().liens().bouton()->click();
    presse(fenetre, u"barrehoriz"_s);
    for (const auto& [bouton, panneau] : blocs) {
        presse(fenetre, bouton);
        const QStringList attendu = QStringList(u"barrechild"_s) + panneau +
                                    QStringList{u"rtfRichTextBox1"_s, u"entetelistedesliens"_s, u"flexlistedesliens"_s,
                                                u"entetelistedescorrelats"_s, u"flexlistedescorrélats"_s};
        EXPECT_EQ(tour(fenetre, Qt::Key_Tab).join(u' ').toStdString(), attendu.join(u' ').toStdString());
        EXPECT_EQ(tour(fenetre, Qt::Key_Backtab).join(u' ').toStdString(), envers(attendu).join(u' ').toStdString());
    }
}

TEST_F(ClavierTextes, TheTabKeyMissesNoControlThatTakesTheFocus) {
    for (const auto& disposition : {u"barrehoriz"_s, u"barreverti"_s}) {
        Textes& fenetre = devant("CO000002");
        controle(fenetre, u"blocrecherche"_s)->setEnabled(true);
        presse(fenetre, disposition);
        presse(fenetre, u"recherchedico"_s);
        tire(*controle<SplitterBar>(fenetre, u"separateur"_s), {200, 200});
        fenetre.volet().liens().bouton()->click();
        QSet<const QWidget*> attendus;
        for (const QWidget* enfant : fenetre.findChildren<QWidget*>()) {
            if (enfant->isVisible() && enfant->isEnabled() && (enfant->focusPolicy() & Qt::TabFocus) &&
                !enfant->focusProxy())
                attendus << enfant;
        }
        EXPECT_GT(attendus.size(), 7);
        const QWidget* depart = fenetre.focusWidget();
        QSet<const QWidget*> vus;
        for (int pas = 0; pas < 40 && (pas == 0 || fenetre.focusWidget() != depart); ++pas) {
            vus << fenetre.focusWidget();
            QTest::keyClick(fenetre.focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(fenetre.focusWidget(), depart);
        EXPECT_EQ(vus, attendus);
        fenetre.close();
    }
}

TEST_F(ClavierTextes, TheTabKeyWalksTheLinksOfTheTextAndReturnOpensOne) {
    Textes& fenetre = devant("CO000001");
    QStringList cibles;
    QObject::connect(&fenetre, &Textes::cible, &fenetre, [&](const QString& texte) {
        if (!texte.isEmpty())
            cibles << texte;
    });
    fenetre.vue().setFocus();
    for (int lien = 0; lien < 5; ++lien)
        QTest::keyClick(&fenetre.vue(), Qt::Key_Tab);
    EXPECT_EQ(cibles, (QStringList{u"CO000002 - Article 2"_s, u"https://example.org"_s, u"a@example.org"_s,
                                   u"CO000099"_s, u"CO000002 - Article 2"_s}));
    QTest::keyClick(&fenetre.vue(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(cibles.last(), u"CO000099");
    QTest::keyClick(&fenetre.vue(), Qt::Key_Tab);
    QTest::keyClick(&fenetre.vue(), Qt::Key_Return);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_TRUE(fenetre.vue().control().text().mid(fenetre.vue().selStart()).startsWith(u"Ligne 40."_s));
}

TEST_F(ClavierTextes, BehindTheLastLinkTheTabKeyLeavesTheText) {
    Textes& fenetre = devant("CO000001");
    fenetre.vue().setFocus();
    for (int lien = 0; lien < 6; ++lien)
        QTest::keyClick(fenetre.focusWidget(), Qt::Key_Tab);
    EXPECT_NE(ou(fenetre), u"rtfRichTextBox1");
    fenetre.vue().setSelStart(0);
    fenetre.vue().setFocus();
    QTest::keyClick(&fenetre.vue(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(ou(fenetre), u"rtfRichTextBox1");
}

TEST_F(ClavierTextes, AClickCountsFromTheFirstToBehindTheLastCharacterOfALink) {
    // "Voir l'article 2 et": the link begins at 5 and ends behind 15.
    for (const auto& [position, suivi] : {std::pair{4, false}, {5, true}, {16, true}, {17, false}}) {
        Textes& fenetre = ouvre("CO000001");
        cliquetexte(fenetre, position);
        EXPECT_EQ(fenetre.referencecourante() == u"CO000002", suivi) << position;
    }
}

TEST_F(ClavierTextes, ADoubleClickOnALinkFollowsItOnce) {
    Textes& fenetre = ouvre("CO000001");
    RichTextBox& vue = fenetre.vue();
    vue.setSelStart(7);
    const QPoint ici = vue.cursorRect().center() + QPoint(1, 0);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, {}, ici);
    QSignalSpy encore(&vue, &RichTextBox::clicked);
    QTest::mouseDClick(vue.viewport(), Qt::LeftButton, {}, ici);
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, {}, ici);
    EXPECT_EQ(encore.count(), 0);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, {}, ici);
    EXPECT_EQ(encore.count(), 1);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre.lecture().parcours().historique.precedent.nombre(), 1);
}

TEST_F(ClavierTextes, ASingleClickOnAHeaderOfTheListSortsNothing) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"tableau"_s);
    cliquecellule(fenetre.panneau().flex(), 0, 0);
    EXPECT_EQ(fenetre.panneau().flex().sortMark(0), FlexGrid::Mark::Ascending);
    EXPECT_EQ(fenetre.panneau().flex().text(1, 0), u"Article 2");
    cliquecellule(fenetre.panneau().flex(), 0, 1);
    EXPECT_EQ(fenetre.panneau().flex().sortMark(1), FlexGrid::Mark::None);
}

TEST_F(ClavierTextes, TreeAndListKeepTheFocusWhenTheirDocumentOpens) {
    Textes& fenetre = devant("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    TreeView& arbre = fenetre.panneau().arbre();
    arbre.setFocus();
    arbre.nodes().select(arbre.nodes().indexOf(u"@CO000003"_s));
    QTest::keyClick(&arbre, Qt::Key_Return);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
    EXPECT_TRUE(arbre.hasFocus());
    const int avant = arbre.nodes().selected();
    QTest::keyClick(fenetre.focusWidget(), Qt::Key_Up);
    EXPECT_NE(arbre.nodes().selected(), avant);

    presse(fenetre, u"tableau"_s);
    fenetre.panneau().flex().view()->setFocus();
    fenetre.panneau().flex().setRow(1);
    QTest::keyClick(fenetre.panneau().flex().view(), Qt::Key_Return);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_TRUE(fenetre.panneau().flex().view()->hasFocus());
    QTest::keyClick(fenetre.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(fenetre.panneau().flex().row(), 2);
}

TEST_F(ClavierTextes, MenusOpenByTheKeyboard) {
    Textes& fenetre = devant("CO000001");
    fenetre.volet().liens().bouton()->click();
    fenetre.volet().liens().grille()->setRow(2);
    for (const auto& [surface, nom] : {std::pair<QWidget*, QString>{fenetre.vue().viewport(), u"ContextMenu"_s},
                                       {fenetre.volet().liens().grille()->view()->viewport(), u"ContextMenuLiens"_s}}) {
        auto* menu = fenetre.findChild<QMenu*>(nom);
        ASSERT_NE(menu, nullptr);
        menuauclavier(*surface);
        EVENTUALLY(menu->isVisible());
        menu->close();
    }
    EXPECT_EQ(fenetre.volet().liens().grille()->row(), 2);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
}

TEST_F(ClavierTextes, ADocumentThatIsNotInTheBaseLeavesTheWindowAsItWas) {
    Textes& fenetre = ouvre("CO000001");
    const QString texte = fenetre.vue().control().text();
    const QString titre = fenetre.windowTitle();
    ouvre("CO999999");
    EXPECT_EQ(fenetre.vue().control().text(), texte);
    EXPECT_EQ(fenetre.windowTitle(), titre);
    EXPECT_EQ(fenetre.referencecourante(), u"CO999999");
    EXPECT_EQ(banc->navigation.derniersdocumentslibelles().front(), u"CO-Article premier");
    fenetre.volet().liens().bouton()->click();
    EXPECT_TRUE(fenetre.volet().liens().cles().isEmpty());
    presse(fenetre, u"Bas"_s);
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Bas"_s));
    presse(fenetre, u"Précédent"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
}

TEST_F(ClavierTextes, AWindowMayGoWhileItsPropertiesAreShown) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"propriétés"_s);
    const QPointer<frmproperties> boite = fenetre.findChild<frmproperties*>();
    ASSERT_FALSE(boite.isNull());
    fenetre.close();
    EXPECT_EQ(banc->fenetre(0), nullptr);
    if (boite) {
        EXPECT_EQ(boite->findChild<QWidget*>(u"numart"_s)->property("text").toString(), u"000001");
    }
    delete &fenetre;
    EXPECT_TRUE(boite.isNull());
    EXPECT_EQ(ouvre("CO000002").referencecourante(), u"CO000002");
}

TEST_F(ClavierTextes, WithoutADocumentThereAreNoProperties) {
    banc->navigation.ouvrefenetre(0);
    Textes& fenetre = *banc->fenetre(0);
    emit fenetre.barrechild().proprietes();
    EXPECT_EQ(fenetre.findChild<frmproperties*>(), nullptr);
}

TEST_F(ClavierTextes, AKeyThatTheTextHasNoUseForGoesOnToTheFrame) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    fenetre.vue().setFocus();
    QKeyEvent echappe(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&fenetre, &echappe);
    EXPECT_FALSE(echappe.isAccepted());
}

TEST_F(ClavierTextes, AWindowMayGoWhileItIsBroughtForward) {
    Textes* fenetre = &ouvre("CO000001");
    const QPointer<Textes> ici(fenetre);
    QObject::connect(fenetre, &Textes::premierplan, &fenetre->barrechild(), [fenetre] { delete fenetre; });
    banc->navigation.navigue(u"TACO000002"_s);
    EXPECT_TRUE(ici.isNull());
    EXPECT_EQ(banc->fenetre(0), nullptr);
}

TEST_F(ClavierTextes, AFollowedLinkIsNotTheTargetUnderThePointerAnyMore) {
    Textes& fenetre = ouvre("CO000001");
    QString cible = u"rien encore"_s;
    QObject::connect(&fenetre, &Textes::cible, &fenetre, [&](const QString& texte) { cible = texte; });
    const qsizetype lien = fenetre.vue().control().text().indexOf(u"article"_s) + 1;
    QTest::mouseMove(fenetre.vue().viewport(), {1, 1});
    fenetre.vue().setSelStart(lien);
    QTest::mouseMove(fenetre.vue().viewport(), fenetre.vue().cursorRect().center() + QPoint(2, 0));
    EXPECT_EQ(cible, u"CO000002 - Article 2");
    cliquetexte(fenetre, lien);
    EXPECT_EQ(cible, QString());
}

TEST_F(ClavierTextes, TheTextOfANarrowWindowIsNotCut) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.resize(150, 500);
    const RichTextBox& vue = fenetre.vue();
    QTextCursor curseur(vue.document());
    int droite = 0;
    while (!curseur.atEnd()) {
        curseur.movePosition(QTextCursor::NextCharacter);
        droite = std::max(droite, vue.cursorRect(curseur).left());
    }
    EXPECT_GT(droite, 90);
    EXPECT_LE(droite, vue.viewport()->width());
}
