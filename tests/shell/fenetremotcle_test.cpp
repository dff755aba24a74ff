// The window of the keywords.
#include "platform/base/failure.h"
#include "shell/fenetreslistes.h"
#include "tests/shell/numeros_support.h"

#include <QClipboard>
#include <QMenu>
#include <QMimeData>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class FenetreMotcleTest : public NumerosTest {
protected:
    FlexGrid& tableau() const { return motscles()->flex(); }
    int lignede(const QString& motcle) const { return static_cast<int>(affiches().indexOf(motcle)) + 1; }
    void touchedutableau(Qt::Key touche, Qt::KeyboardModifiers avec = {}) const {
        QTest::keyClick(tableau().view(), touche, avec);
    }
};

} // namespace

TEST_F(FenetreMotcleTest, AllKeywordsAreListedWithTheirCounts) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    EXPECT_EQ(motscles()->objectName(), u"frmrechmotcle");
    EXPECT_EQ(motscles()->windowTitle(), mots(9155));
    EXPECT_EQ(tableau().objectName(), u"tableau");
    EXPECT_EQ(tableau().cols(), 2);
    EXPECT_EQ(tableau().header(0), mots(8300));
    EXPECT_EQ(tableau().header(1), mots(9156));
    EXPECT_EQ(affiches(), (QStringList{u"Achat"_s, u"dit \"neuf\""_s, u"Prix"_s, u"Taxe"_s}));
    EXPECT_EQ(champs(tableau(), 1), (QStringList{u"12"_s, u"1"_s, u"3"_s, u"1"_s}));
    EXPECT_EQ(compteen(*motscles()), u"4 mots clés");
    EXPECT_TRUE(menu("moutils0(4)")->isChecked());
    EXPECT_TRUE(motscles()->barre().isHidden());
    const QAbstractItemModel& modele = *tableau().view()->model();
    EXPECT_TRUE(Qt::Alignment(modele.data(modele.index(0, 1), Qt::TextAlignmentRole).toInt()) & Qt::AlignRight);
    autour(*motscles()).resize(300, 300);
    EXPECT_FALSE(tableau().view()->horizontalHeader()->isSectionHidden(1)) << "numbers stay beside narrow keywords";
}

TEST_F(FenetreMotcleTest, ThousandsArePartedForTheEyeAlone) {
    ASSERT_TRUE(ouvrebase()->execute(u"UPDATE motclés SET nbarticle=1535 WHERE motcle='Achat'"_s));
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    const QAbstractItemModel& modele = *tableau().view()->model();
    EXPECT_EQ(modele.data(modele.index(0, 1), Qt::DisplayRole).toString(), u"1\u202f535");
    EXPECT_EQ(modele.data(modele.index(2, 1), Qt::DisplayRole).toString(), u"3");
    EXPECT_EQ(tableau().text(1, 1), u"1535") << "what is copied can be computed with";
}

TEST_F(FenetreMotcleTest, AClickListsTheDocumentsOfTheKeyword) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    programme->selection().controle().remplissage().remplitdecles({u"CO000003"_s});
    programme->selection().liste().resultat().mot1 = u"prix"_s;
    clique(tableau(), lignede(u"Prix"_s));
    EXPECT_EQ(clesdelaliste(), (QStringList{u"CO000001"_s, u"CO000002"_s, u"CO000004"_s, u"JP000007"_s}));
    EXPECT_EQ(etat(), u" 4 documents");
    EXPECT_TRUE(volet().isVisible());
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(programme->selection().liste().resultat().mot1, QString());
    clique(tableau(), lignede(u"Taxe"_s));
    EXPECT_EQ(clesdelaliste(), QStringList{u"CO000003"_s}) << "the result replaces the list";
    EXPECT_EQ(etat(), u" 1 document");
    clique(tableau(), lignede(u"Achat"_s));
    EXPECT_EQ(clesdelaliste(), QStringList());
    EXPECT_EQ(etat(), u" 0 document");
}

TEST_F(FenetreMotcleTest, ADocumentOfAKeywordOpensWithoutAMark) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    programme->selection().liste().resultat().mot1 = u"prix"_s;
    clique(tableau(), lignede(u"Taxe"_s));
    doubleclic(1);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->reference(), u"CO000003");
    EXPECT_EQ(marques(*active()), 0);
}

TEST_F(FenetreMotcleTest, ADoubleClickOnAKeywordListsItOnce) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    int fois = 0;
    const auto compte = QObject::connect(&tableau(), &FlexGrid::doubleClicked, [&] { ++fois; });
    doublecliquesur(tableau(), lignede(u"dit \"neuf\""_s));
    EXPECT_EQ(fois, 1);
    EXPECT_EQ(dialogues.messages.size(), 1U) << "one refusal";
    QObject::disconnect(compte);
}

TEST_F(FenetreMotcleTest, AClickOnTheHeaderDoesNothingADoubleClickSorts) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    const QStringList avant = affiches();
    cliqueentete(tableau(), 0);
    EXPECT_EQ(affiches(), avant);
    EXPECT_EQ(clesdelaliste(), QStringList());
    EXPECT_FALSE(flex().isVisible());
    tableau().setRow(lignede(u"Prix"_s));
    doublecliqueentetede(tableau(), 1);
    EXPECT_EQ(tableau().headerCell(1), mots(9156) + u'>');
    EXPECT_EQ(affiches(), (QStringList{u"dit \"neuf\""_s, u"Taxe"_s, u"Prix"_s, u"Achat"_s}));
    EXPECT_EQ(tableau().row(), lignede(u"Prix"_s)) << "the selected keyword goes with its row";
    doublecliqueentetede(tableau(), 1);
    EXPECT_EQ(tableau().headerCell(1), mots(9156) + u'<');
    EXPECT_EQ(affiches().first(), u"Achat");
    EXPECT_EQ(tableau().row(), lignede(u"Prix"_s));
    doublecliqueentetede(tableau(), 0);
    EXPECT_EQ(affiches(), avant);
    EXPECT_EQ(clesdelaliste(), QStringList());
}

TEST_F(FenetreMotcleTest, TypingGoesToAKeywordAndEnterListsIt) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    EXPECT_TRUE(tableau().view()->hasFocus());
    touchedutableau(Qt::Key_P);
    EXPECT_EQ(tableau().row(), lignede(u"Prix"_s));
    EXPECT_EQ(clesdelaliste(), QStringList()) << "going through the keywords lists nothing";
    touchedutableau(Qt::Key_Return);
    EXPECT_EQ(clesdelaliste().size(), 4);
    EXPECT_TRUE(tableau().view()->hasFocus());
}

TEST_F(FenetreMotcleTest, ADoubleQuoteIsSaidAndTheListStays) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    clique(tableau(), lignede(u"Taxe"_s));
    clique(tableau(), lignede(u"dit \"neuf\""_s));
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dialogues.messages[0].texte, mots(9551, {u"dit \"neuf\""_s}));
    EXPECT_EQ(clesdelaliste(), QStringList{u"CO000003"_s});
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(etat(), u" 1 document");
}

TEST_F(FenetreMotcleTest, TheMenuListsAndCopiesAndTheCopyKeyTakesTheRows) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    auto* menudutableau = motscles()->findChild<QMenu*>(u"ContextMenu"_s);
    ASSERT_NE(menudutableau, nullptr);
    QStringList entrees;
    for (const QAction* action : menudutableau->actions())
        entrees << action->objectName();
    EXPECT_EQ(entrees, (QStringList{u"ContextMenuOuvrir"_s, u"ContextMenuCopier"_s, u"ContextMenuPrint"_s}));
    EXPECT_EQ(menudutableau->actions().front()->text(), mots(9564));
    tableau().setRow(lignede(u"Taxe"_s));
    menudutableau->actions().front()->trigger();
    EXPECT_EQ(clesdelaliste(), QStringList{u"CO000003"_s});
    touchedutableau(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(tableau().selectedRows(), std::pair(1, 4));
    touchedutableau(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u"Achat\t12"_s));
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasHtml());
}

TEST_F(FenetreMotcleTest, RefillingKeepsOrderAndSelection) {
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    doublecliqueentetede(tableau(), 1);
    doublecliqueentetede(tableau(), 1);
    tableau().setRow(lignede(u"Taxe"_s));
    const QStringList avant = affiches();
    touchedutableau(Qt::Key_F5);
    EXPECT_EQ(affiches(), avant);
    EXPECT_EQ(tableau().row(), lignede(u"Taxe"_s));
}

TEST_F(FenetreMotcleTest, ABaseWithoutKeywordsSaysSoInThePlaceOfTheRows) {
    ASSERT_TRUE(ouvrebase()->execute(u"DELETE FROM motclés"_s));
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    EXPECT_EQ(tableau().rows(), 1);
    EXPECT_TRUE(tableau().isVisible());
    EXPECT_EQ(tableau().emptyText(), mots(9562));
    EXPECT_EQ(compteen(*motscles()), u"0 mot clé");
}

TEST_F(FenetreMotcleTest, KeywordsWithLineBreaksAndPercentSignsAreListed) {
    ASSERT_TRUE(
        ouvrebase()->execute(u"UPDATE données SET motclé2='deux' || char(10) || 'lignes' WHERE numart='000002'"_s));
    ASSERT_TRUE(ouvrebase()->execute(u"UPDATE données SET motclé2='100 %' WHERE numart='000001'"_s));
    {
        const auto base = ouvrebase();
        TableWriter table(*base, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
        ASSERT_TRUE(table.add({u"deux\nlignes"_s, 1}));
        ASSERT_TRUE(table.add({u"100 %"_s, 1}));
    }
    ASSERT_NO_FATAL_FAILURE(avecmotscles());
    clique(tableau(), lignede(u"deux\nlignes"_s));
    EXPECT_EQ(clesdelaliste(), QStringList{u"CO000002"_s});
    clique(tableau(), lignede(u"100 %"_s));
    EXPECT_EQ(clesdelaliste(), QStringList{u"CO000001"_s});
}

TEST_F(FenetreMotcleTest, ABaseWithoutTheTableIsNoticedWhereTheKeywordsAreWanted) {
    ASSERT_TRUE(ouvrebase()->execute(u"DROP TABLE motclés"_s));
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    // Not by the menu: the toolkit's actions lose memory where what they set off does not come back.
    const auto faute = failureOf([&] { programme->listes().bascule(Ordre::MotCle); });
    ASSERT_TRUE(faute.has_value());
    EXPECT_EQ(faute->what, Failure::MissingTable);
    EXPECT_EQ(faute->parts, QStringList{u"motclés"_s});
}
