// The document window: links in the text and beside it, the pop-up menus.
#include "core/schemas.h"
#include "document/ui/listedeliens.h"
#include "platform/widgets/look/plaintext.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using LiensTextes = velm::test::BaseTextes;

namespace {

QAction* entree(Textes& fenetre, const QString& nom) {
    return fenetre.findChild<QAction*>(nom);
}

} // namespace

TEST_F(LiensTextes, OpeningOneListShowsBothGrids) {
    Textes& fenetre = ouvre("CO000001");
    EXPECT_FALSE(fenetre.volet().liens().visible());
    EXPECT_EQ(fenetre.volet().liens().couleurbouton(), 255);
    fenetre.volet().liens().bouton()->click();
    EXPECT_TRUE(fenetre.volet().liens().grille()->isVisible());
    EXPECT_TRUE(fenetre.volet().correlats().grille()->isVisible());
    EXPECT_EQ(fenetre.volet().liens().couleurbouton(), 65280);
    EXPECT_EQ(fenetre.volet().correlats().couleurbouton(), 255);
    EXPECT_EQ(fenetre.volet().correlats().grille()->rows(), 1);
    EXPECT_EQ(fenetre.volet().liens().cles(), (QStringList{u"CO000003"_s, u"CO000002"_s}));
    EXPECT_EQ(fenetre.volet().liens().grille()->text(1, 0), u"CO");
    EXPECT_EQ(fenetre.volet().liens().grille()->text(1, 1), u"Zone franche");
}

TEST_F(LiensTextes, TheCorrelatesListWhatCitesTheDocument) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().correlats().bouton()->click();
    EXPECT_EQ(fenetre.volet().correlats().cles(), (QStringList{u"CO000002"_s, u"JP000007"_s}));
}

TEST_F(LiensTextes, ClosingTheSecondListHidesBothGrids) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    fenetre.volet().correlats().bouton()->click();
    fenetre.volet().liens().bouton()->click();
    EXPECT_TRUE(fenetre.volet().liens().grille()->isVisible());
    EXPECT_EQ(fenetre.volet().liens().grille()->rows(), 1);
    EXPECT_EQ(fenetre.volet().liens().couleurbouton(), 255);
    fenetre.volet().correlats().bouton()->click();
    EXPECT_FALSE(fenetre.volet().liens().grille()->isVisible());
    EXPECT_FALSE(fenetre.volet().correlats().grille()->isVisible());
    EXPECT_TRUE(controle(fenetre, u"entetelistedesliens"_s)->isVisible());
}

TEST_F(LiensTextes, AListReloadsWhenTheDocumentChangesWhileItIsOpen) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    ouvre("CO000002");
    EXPECT_EQ(fenetre.volet().liens().cles(), QStringList{u"CO000001"_s});
    EXPECT_EQ(fenetre.volet().correlats().grille()->rows(), 1);
    ouvre("CO000004");
    EXPECT_TRUE(fenetre.volet().liens().cles().isEmpty());
}

TEST_F(LiensTextes, NothingIsReadWhileTheListsAreClosed) {
    banc.reset();
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DROP TABLE \"liens\""_s));
    }
    banc = std::make_unique<test::BancTextes>(chemin());
    ouvre("CO000001");
    EXPECT_EQ(ouvre("CO000002").referencecourante(), u"CO000002");
    QTest::qWait(50);
    EXPECT_EQ(banc->fenetre(0)->volet().liens().bouton()->text(), u"Liens") << "nor can they be counted";
}

TEST_F(LiensTextes, AnEmptyWindowOpensEmptyLists) {
    banc->navigation.ouvrefenetre(0);
    Textes& fenetre = *banc->fenetre(0);
    fenetre.volet().liens().bouton()->click();
    EXPECT_TRUE(fenetre.volet().liens().cles().isEmpty());
    EXPECT_TRUE(fenetre.volet().liens().ouverte());
}

TEST_F(LiensTextes, AClickOnRow0SortsAscendingThenDescendingAndOnlyOneColumnBearsTheMark) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    FlexGrid& grille = *fenetre.volet().liens().grille();
    cliquecellule(grille, 0, 1);
    EXPECT_EQ(grille.sortMark(1), FlexGrid::Mark::Ascending);
    EXPECT_EQ(fenetre.volet().liens().cles(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
    EXPECT_EQ(grille.headerCell(1), banc->langue.lireressource(Texte{300}) + u'>');
    cliquecellule(grille, 0, 1);
    EXPECT_EQ(grille.headerCell(1), banc->langue.lireressource(Texte{300}) + u'<');
    EXPECT_EQ(fenetre.volet().liens().cles(), (QStringList{u"CO000003"_s, u"CO000002"_s}));
    cliquecellule(grille, 0, 0);
    EXPECT_EQ(grille.sortMark(0), FlexGrid::Mark::Ascending);
    EXPECT_EQ(grille.sortMark(1), FlexGrid::Mark::None);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
}

TEST_F(LiensTextes, AClickOnARowOpensItsDocumentWithoutFoldingThePanel) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    const int position = fenetre.division().disposition().posseparateur;
    cliquecellule(*fenetre.volet().liens().grille(), 2, 1);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, position);
}

TEST_F(LiensTextes, ADoubleClickOnARowOpensOneDocumentOnly) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    cliquecellule(*fenetre.volet().liens().grille(), 2, 1, true);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre.lecture().parcours().historique.precedent.nombre(), 1);
}

TEST_F(LiensTextes, ReturnOnARowOpensItsDocument) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().correlats().bouton()->click();
    FlexGrid& grille = *fenetre.volet().correlats().grille();
    grille.setRow(2);
    QTest::keyClick(grille.view(), Qt::Key_Return);
    EXPECT_EQ(banc->navigation.referencecourante(), u"JP000007");
}

TEST_F(LiensTextes, AClickOnTheFirstAndBehindTheLastCharacterOpensTheLink) {
    Textes& fenetre = ouvre("CO000001");
    cliquetexte(fenetre, 5); // "Voir l'article 2": the link begins at 5 and ends behind 15
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    ouvre("CO000001");
    fenetre.vue().setSelStart(16);
    QTest::keyClick(&fenetre.vue(), Qt::Key_Return);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
}

TEST_F(LiensTextes, ADragCountsAsAClickWhereItsSelectionBegins) {
    // "Voir l'article 2 et": the link begins at 5 and ends behind 15.
    const auto tirede = [this](qsizetype de, qsizetype a) {
        Textes& fenetre = ouvre("CO000001");
        const auto ou = [&fenetre](qsizetype position) {
            fenetre.vue().setSelStart(position);
            return fenetre.vue().cursorRect().center();
        };
        const QPoint debut = ou(de);
        const QPoint fin = ou(a);
        QWidget* surface = fenetre.vue().viewport();
        QTest::mousePress(surface, Qt::LeftButton, {}, debut);
        QMouseEvent chemin(QEvent::MouseMove, fin, surface->mapToGlobal(fin), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(surface, &chemin);
        QTest::mouseRelease(surface, Qt::LeftButton, {}, fin);
        return fenetre.referencecourante();
    };
    EXPECT_EQ(tirede(1, 9), u"CO000001");
    EXPECT_EQ(banc->fenetre(0)->vue().control().selText(), u"oir l'ar");
    EXPECT_EQ(tirede(9, 18), u"CO000002");
    EXPECT_EQ(tirede(18, 9), u"CO000002");
    EXPECT_EQ(tirede(9, 1), u"CO000001");
}

TEST_F(LiensTextes, AClickOutsideOpensNothing) {
    Textes& fenetre = ouvre("CO000001");
    cliquetexte(fenetre, 1);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
    EXPECT_TRUE(banc->navigateur.urls.isEmpty());
    EXPECT_TRUE(banc->navigateur.mails.isEmpty());
}

TEST_F(LiensTextes, AnInternalLinkPassesItsShownTextAsAnchorAndFoldsThePanel) {
    Textes& fenetre = ouvre("CO000001");
    cliquetexte(fenetre, fenetre.vue().control().text().indexOf(u"Ligne 40"_s) + 3);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_TRUE(fenetre.division().disposition().replie());
    EXPECT_TRUE(fenetre.vue().control().text().mid(fenetre.vue().selStart()).startsWith(u"Ligne 40."_s));
}

TEST_F(LiensTextes, WebAndMailLinksGoToTheUsersPrograms) {
    Textes& fenetre = ouvre("CO000001");
    const QString texte = fenetre.vue().control().text();
    cliquetexte(fenetre, texte.indexOf(u"le site"_s) + 2);
    cliquetexte(fenetre, texte.indexOf(u"nous"_s) + 1);
    EXPECT_EQ(banc->navigateur.urls, QStringList{u"http://https://example.org"_s});
    EXPECT_EQ(banc->navigateur.mails, QStringList{u"a@example.org"_s});
}

TEST_F(LiensTextes, TheLinkUnderThePointerTellsItsTarget) {
    Textes& fenetre = ouvre("CO000001");
    QStringList cibles;
    QObject::connect(&fenetre, &Textes::cible, &fenetre, [&](const QString& texte) { cibles << texte; });
    const QString texte = fenetre.vue().control().text();
    QTest::mouseMove(fenetre.vue().viewport(), {1, 1});
    for (const auto& mot : {u"article"_s, u"le site"_s, u"nous"_s, u"ailleurs"_s, u"Voir"_s}) {
        fenetre.vue().setSelStart(texte.indexOf(mot) + 1);
        QTest::mouseMove(fenetre.vue().viewport(), fenetre.vue().cursorRect().center() + QPoint(2, 0));
    }
    EXPECT_EQ(cibles, (QStringList{u"CO000002 - Article 2"_s, u"https://example.org"_s, u"a@example.org"_s,
                                   u"CO000099"_s, QString()}));
}

TEST_F(LiensTextes, ATipBesideThePointerTellsTheTargetsTitle) {
    Textes& fenetre = ouvre("CO000001");
    const QString texte = fenetre.vue().control().text();
    QWidget& surface = *fenetre.vue().viewport();
    const auto bulle = [&](QStringView mot) {
        fenetre.vue().setSelStart(texte.indexOf(mot) + 1);
        const QPoint ici = fenetre.vue().cursorRect().center() + QPoint(2, 0);
        QTest::mouseMove(&surface, {1, 1});
        QTest::mouseMove(&surface, ici);
        QHelpEvent demande(QEvent::ToolTip, ici, surface.mapToGlobal(ici));
        QApplication::sendEvent(&surface, &demande);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(bulle(u"article"), plainTip(u"Article 2"_s));
    EXPECT_EQ(bulle(u"le site"), plainTip(u"https://example.org"_s));
    EXPECT_EQ(bulle(u"nous"), plainTip(u"a@example.org"_s));
    EVENTUALLY(bulle(u"Voir").isEmpty());
    EVENTUALLY(bulle(u"ailleurs").isEmpty()); // the document is not in the base
}

TEST_F(LiensTextes, TurningLinksIntoAListKeepsTheGridsOrder) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    fenetre.volet().liens().grille()->sort(1, false);
    QStringList cles;
    QObject::connect(&fenetre, &Textes::selection, &fenetre, [&](const QStringList& recues) { cles = recues; });
    QAction* selection = entree(fenetre, u"MnuLiensSelection"_s);
    ASSERT_NE(selection, nullptr);
    EXPECT_TRUE(selection->isEnabled());
    selection->trigger();
    EXPECT_EQ(cles, (QStringList{u"CO000002"_s, u"CO000003"_s}));
}

TEST_F(LiensTextes, TheMenuOfAListOpensTheRowUnderThePointer) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    FlexGrid& grille = *fenetre.volet().liens().grille();
    grille.setRow(2);
    emit grille.rightClicked(1, 1, {10, 10});
    auto* menu = fenetre.findChild<QMenu*>(u"ContextMenuLiens"_s);
    ASSERT_NE(menu, nullptr);
    EVENTUALLY(menu->isVisible());
    EXPECT_EQ(grille.row(), 1);
    menu->close();
    entree(fenetre, u"MnuLiensOuvrir"_s)->trigger();
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
}

TEST_F(LiensTextes, APassageIsCopiedWithItsReferenceInAllForms) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.vue().setSelStart(0);
    fenetre.vue().setSelLength(4);
    ASSERT_TRUE(fenetre.peut(Ordre::CopierReference));
    fenetre.fait(Ordre::CopierReference);
    const ContenuPressePapiers& contenu = banc->pressepapiers.contenu;
    EXPECT_TRUE(contenu.texte.startsWith(u"Voir\n"_s)) << contenu.texte.toStdString();
    EXPECT_TRUE(contenu.texte.contains(u"CO000001"_s));
    EXPECT_TRUE(contenu.html.contains(u"Voir"_s) && contenu.html.contains(u"CO000001"_s));
    EXPECT_TRUE(contenu.html.trimmed().endsWith(u"</html>"_s)) << "one document";
    EXPECT_TRUE(contenu.rtf.startsWith("{\\rtf1") && contenu.rtf.contains("CO000001"));
    EXPECT_EQ(fenetre.vue().selLength(), 4) << "nothing in the window changes";
    // Without a selection all of it.
    fenetre.vue().setSelLength(0);
    emit fenetre.vue().rightClicked(0, {10, 10});
    entree(fenetre, u"MnuCopyReference"_s)->trigger();
    EXPECT_TRUE(contenu.texte.contains(fenetre.vue().control().text().left(30)));
    EXPECT_TRUE(contenu.texte.contains(u"CO000001"_s));
}

TEST_F(LiensTextes, TheEntriesThatPrintAndSendTellTheFrame) {
    Textes& fenetre = ouvre("CO000001");
    std::vector<Ordre> dits;
    QObject::connect(&fenetre, &Textes::sortie, &fenetre, [&](Ordre ordre) { dits.push_back(ordre); });
    emit fenetre.vue().rightClicked(0, {10, 10});
    for (const auto& nom : {u"MnuPrint"_s, u"MnuSend(0)"_s, u"MnuSend(1)"_s})
        entree(fenetre, nom)->trigger();
    for (const Ordre ordre : {Ordre::Enregistrer, Ordre::ImprimerPage, Ordre::ExporterPdf, Ordre::Quitter}) {
        EXPECT_EQ(fenetre.peut(ordre), ordre != Ordre::Quitter);
        fenetre.fait(ordre);
    }
    EXPECT_EQ(dits, (std::vector{Ordre::Imprimer, Ordre::EnvoyerTexte, Ordre::EnvoyerPiece, Ordre::Enregistrer,
                                 Ordre::Imprimer, Ordre::ExporterPdf}));
}

TEST_F(LiensTextes, TheTextsMenuHoldsItsEntriesAndCopies) {
    Textes& fenetre = ouvre("CO000001");
    emit fenetre.vue().rightClicked(0, {10, 10});
    auto* menu = fenetre.findChild<QMenu*>(u"ContextMenu"_s);
    ASSERT_NE(menu, nullptr);
    EVENTUALLY(menu->isVisible());
    menu->close();
    for (const auto& nom : {u"MnuPrint"_s, u"MnuSend(0)"_s, u"MnuSend(1)"_s}) {
        ASSERT_NE(entree(fenetre, nom), nullptr) << nom.toStdString();
        EXPECT_TRUE(entree(fenetre, nom)->isEnabled()) << nom.toStdString();
    }
    ASSERT_NE(entree(fenetre, u"MnuStore"_s), nullptr);
    EXPECT_FALSE(entree(fenetre, u"MnuStore"_s)->isEnabled()) << "there are no dossiers";
    entree(fenetre, u"MnuCopy"_s)->trigger();
    EXPECT_TRUE(banc->pressepapiers.contenu.rtf.startsWith("{\\rtf1"));
    EXPECT_TRUE(banc->pressepapiers.contenu.texte.isEmpty()) << "without a selection all of it, as rich text alone";
    EXPECT_TRUE(banc->pressepapiers.contenu.html.isEmpty());
    entree(fenetre, u"MnuSelectAll"_s)->trigger();
    EXPECT_EQ(fenetre.vue().selLength(), fenetre.vue().control().length());
    entree(fenetre, u"MnuCopy"_s)->trigger();
    EXPECT_TRUE(banc->pressepapiers.contenu.texte.startsWith(u"Voir"_s));
    entree(fenetre, u"MnuOuvrirLiens"_s)->trigger();
    EXPECT_TRUE(fenetre.volet().liens().ouverte());
    entree(fenetre, u"MnuOuvrirCorrélats"_s)->trigger();
    EXPECT_TRUE(fenetre.volet().correlats().ouverte());
}

TEST_F(LiensTextes, CopyingWithoutASelectionTakesTheWholeRichTextAndLeavesWhatIsShown) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.vue().setSelStart(7);
    const QByteArray rtf = fenetre.vue().control().textRtf();
    fenetre.fait(Ordre::Copier);
    EXPECT_EQ(banc->pressepapiers.contenu.rtf, rtf);
    EXPECT_EQ(fenetre.vue().control().textRtf(), rtf);
    EXPECT_EQ(fenetre.vue().selStart(), 7);
    EXPECT_EQ(fenetre.vue().selLength(), 0);
    fenetre.vue().setSelStart(0);
    fenetre.vue().setSelLength(4);
    fenetre.fait(Ordre::Copier);
    EXPECT_EQ(banc->pressepapiers.contenu.texte, u"Voir");
    EXPECT_EQ(fenetre.vue().selLength(), 4);
}

TEST_F(LiensTextes, CopyingAnEmptyWindowLeavesTheClipboard) {
    banc->navigation.ouvrefenetre(0);
    banc->pressepapiers.contenu.texte = u"avant"_s;
    banc->fenetre(0)->fait(Ordre::Copier);
    EXPECT_EQ(banc->pressepapiers.texte(), u"avant");
}
