// The selection list in the real frame: its grid, its buttons, its rows on paper.
#include "tests/shell/selection_support.h"

#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

// ---- the grid

TEST_F(SelectionTest, TheGridStartsWithItsHeaderOnlyAndHidden) {
    ouvre({});
    ecran().montreselection(true);
    EXPECT_EQ(flex().rows(), 1);
    EXPECT_TRUE(flex().isHidden());
    for (const char* cle :
         {"précédentrecherche", "suivantrecherche", "sauvercritères", "imprimercritères", "envoyercritères"})
        EXPECT_FALSE(enabled(cle)) << cle;
}

TEST_F(SelectionTest, WidthsOrderAndHeadersOfTheGridComeFromTheMasks) {
    ouvre();
    const std::vector<int> largeurs{3000, 2000, 2000, 2000, 500, 1000, 0};
    const std::vector<int> champs{0, 1, 2, 3, 5, 4, 6};
    for (int place = 0; place < flex().cols(); ++place) {
        EXPECT_EQ(flex().colWidth(place), largeurs.at(static_cast<std::size_t>(place)));
        EXPECT_EQ(flex().colData(place), champs.at(static_cast<std::size_t>(place)));
    }
    EXPECT_EQ(flex().header(0), u"Titre");
    EXPECT_EQ(flex().header(4), QString());
    EXPECT_EQ(flex().text(2, 0), u"alpha");
    EXPECT_EQ(flex().text(2, 4), u"CO");
    EXPECT_EQ(flex().text(2, 5), u"000002");
    EXPECT_EQ(flex().text(2, 6), u"CO000002");
}

TEST_F(SelectionTest, AColumnThatTheUserDragsTakesItsMeaningWithItAndKeepsItsPlace) {
    ouvre();
    volet().changelargeurliste(14000);
    QHeaderView* entete = flex().view()->horizontalHeader();
    entete->moveSection(0, 2);
    EXPECT_EQ(liste().liste().colonnes().champ(2), 0);
    EXPECT_EQ(flex().colData(2), 0);
    flex().setColWidth(2, 4500);
    remplissage().remplitdecles({u"CO000003"_s});
    EXPECT_EQ(flex().text(1, 2), u"Delta");
    EXPECT_EQ(liste().liste().texte(1, 2), u"Delta");
    doublecliqueentete(2);
    EXPECT_EQ(flex().sortMark(2), FlexGrid::Mark::Ascending);
    redemarre();
    EXPECT_EQ(liste().liste().colonnes().ordre(), u"120354");
    EXPECT_EQ(flex().colData(2), 0);
    EXPECT_EQ(flex().colWidth(2), 4500);
    remplissage().remplitdecles({u"CO000003"_s});
    EXPECT_EQ(flex().text(1, 2), u"Delta");
    EXPECT_EQ(flex().text(1, 6), u"CO000003");
}

TEST_F(SelectionTest, ADamagedOrderOfTheColumnsIsPassedOver) {
    regle(u"RECHERCHE", u"ORDRECOLONNE", u"999999"_s);
    regle(u"RECHERCHE", u"LARGEURCOLONNE", u"1e9999-00001abc"_s);
    ouvre();
    EXPECT_EQ(liste().liste().colonnes().ordre(), u"012354");
    EXPECT_EQ(flex().colWidth(0), 3000);
    EXPECT_EQ(flex().text(1, 0), u"Béta");
}

TEST_F(SelectionTest, ADoubleClickOnAHeaderSortsAnotherReverses) {
    ouvre();
    liste().liste().resultat().mot1 = u"prix"_s;
    flex().setRow(4);
    doublecliqueentete(0);
    EXPECT_EQ(colonne(0), (QStringList{u"alpha"_s, u"Béta"_s, u"Delta"_s, u"gamma"_s, u"Un arrêt"_s}));
    EXPECT_EQ(flex().headerCell(0), u"Titre>");
    EXPECT_EQ(flex().row(), 4); // gamma
    doublecliqueentete(0);
    EXPECT_EQ(colonne(0).first(), u"Un arrêt");
    EXPECT_EQ(flex().headerCell(0), u"Titre<");
    EXPECT_EQ(flex().text(flex().row(), 0), u"gamma");
    doublecliqueentete(0);
    EXPECT_EQ(flex().headerCell(0), u"Titre>");
    EXPECT_EQ(active(), nullptr) << "a click on a header has opened a document";
}

TEST_F(SelectionTest, OnlyOneHeaderBearsAMarkAndANewResultTakesItAway) {
    ouvre();
    doublecliqueentete(0);
    liste().trie(5);
    EXPECT_EQ(flex().sortMark(0), FlexGrid::Mark::None);
    EXPECT_EQ(flex().sortMark(5), FlexGrid::Mark::Ascending);
    remplissage().remplitdecles({u"CO000003"_s, u"CO000001"_s});
    EXPECT_EQ(flex().sortMark(5), FlexGrid::Mark::None);
    EXPECT_EQ(colonne(0), (QStringList{u"Delta"_s, u"Béta"_s}));
    EXPECT_EQ(flex().row(), 0);
}

TEST_F(SelectionTest, GroupingMergesEqualCellsAndChangesItsToolTip) {
    ouvre({u"CO000001"_s, u"CO000001"_s, u"CO000002"_s});
    EXPECT_EQ(barre().toolTip(u"regrouper"_s),
              u"Regrouper les cellules identiques\u00A0: se voit dans une liste plus large, à plusieurs colonnes");
    volet().changelargeurliste(14000);
    EVENTUALLY(!flex().isNarrow());
    EXPECT_EQ(barre().toolTip(u"regrouper"_s), u"Regrouper les cellules identiques");
    presse(barre(), "regrouper");
    EXPECT_TRUE(flex().mergeCells());
    EXPECT_EQ(barre().toolTip(u"regrouper"_s), u"Séparer les cellules identiques");
    presse(barre(), "regrouper");
    EXPECT_FALSE(flex().mergeCells());
    EXPECT_EQ(barre().toolTip(u"regrouper"_s), u"Regrouper les cellules identiques");
}

TEST_F(SelectionTest, AListWithoutEqualNeighboursSaysSoInTheTipOfGrouping) {
    constexpr auto sans = u"Regrouper les cellules identiques\u00A0: ici, toutes diffèrent de leurs voisines";
    ouvre();
    volet().changelargeurliste(14000);
    EVENTUALLY(!flex().isNarrow());
    EXPECT_EQ(barre().toolTip(u"regrouper"_s), sans);
    // The column that comes first is the one that is grouped, as long as none is sorted.
    flex().view()->horizontalHeader()->moveSection(liste().liste().colonnes().place(ListeSelection::Reference), 0);
    EXPECT_EQ(barre().toolTip(u"regrouper"_s), u"Regrouper les cellules identiques");
}

// ---- buttons and the status bar

TEST_F(SelectionTest, OpeningACriteriaFileIsAlwaysEnabled) {
    ouvre({});
    EXPECT_TRUE(enabled("ouvrircritères"));
    acheve(false);
    EXPECT_TRUE(enabled("ouvrircritères"));
    EXPECT_FALSE(enabled("sauvercritères"));
    EXPECT_FALSE(enabled("imprimercritères"));
    acheve(true);
    EXPECT_TRUE(enabled("ouvrircritères"));
    EXPECT_TRUE(enabled("sauvercritères"));
    EXPECT_TRUE(enabled("imprimercritères"));
    EXPECT_TRUE(enabled("envoyercritères"));
    EXPECT_TRUE(enabled("précédentrecherche"));
    EXPECT_TRUE(enabled("suivantrecherche"));
}

TEST_F(SelectionTest, TheEndOfASearchTouchesTheButtonsOfTheListOnly) {
    ouvre({});
    const auto etats = [this] {
        QList<bool> tous;
        for (const Toolbar* autre : {&barrecommande(), &barreecran()}) {
            for (int rang = 1; rang <= autre->buttonCount(); ++rang)
                tous << autre->isButtonEnabled(autre->keyAt(rang));
        }
        for (const QAction* action : ecran().menuBar()->findChildren<QAction*>())
            tous << action->isEnabled();
        return tous;
    };
    const QList<bool> avant = etats();
    acheve(true);
    EXPECT_EQ(etats(), avant);
    acheve(false);
    EXPECT_EQ(etats(), avant);
    for (const char* cle : {"détruire", "détruirebarre", "majgroupe"})
        EXPECT_FALSE(barre().hasButton(QString::fromUtf8(cle))) << cle;
}

TEST_F(SelectionTest, TheStatusTextLeavesThePointerAlone) {
    ouvre();
    remplissage().dit(3);
    EXPECT_EQ(etat(), u" 3 documents");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    const Attente attente(sablier);
    static_cast<void>(remplissage().nouveau());
    EXPECT_EQ(etat(), QString());
    EXPECT_EQ(sablier.pointeur(), Sablier::attente);
}

// ---- removing

TEST_F(SelectionTest, DeleteRemovesTheSelectedRowsAndUpdatesTheCount) {
    ouvre();
    flex().setRow(2);
    flex().setRowSel(3);
    QTest::keyClick(flex().view(), Qt::Key_Delete);
    EXPECT_EQ(colonne(0), (QStringList{u"Béta"_s, u"gamma"_s, u"Un arrêt"_s}));
    EXPECT_EQ(etat(), u" 3 documents");
    EXPECT_EQ(flex().row(), 2);
    QTest::keyClick(flex().view(), Qt::Key_Delete);
    QTest::keyClick(flex().view(), Qt::Key_Delete);
    EXPECT_EQ(etat(), u" 1 document");
}

TEST_F(SelectionTest, RemovingAllRowsLeavesTheHeaderAndTheSingularWord) {
    ouvre();
    QTest::keyClick(flex().view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(flex().selectedRows(), (std::pair{1, 5}));
    menu("ContextMenuSuppress")->trigger();
    EXPECT_EQ(flex().rows(), 1);
    EXPECT_EQ(etat(), u" 0 document");
    QTest::keyClick(flex().view(), Qt::Key_Delete);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(etat(), u" 0 document");
    EXPECT_EQ(active(), nullptr);
}

TEST_F(SelectionTest, TheRightButtonOffersTheRowUnderIt) {
    ouvre();
    QTest::mouseClick(flex().view()->viewport(), Qt::RightButton, {}, milieu(3));
    auto* popup = volet().findChild<QMenu*>(u"ContextMenu"_s);
    EVENTUALLY(popup->isVisible());
    EXPECT_EQ(flex().row(), 3);
    EXPECT_TRUE(menu("ContextMenuPrint")->isEnabled());
    popup->close();
    menu("ContextMenuOuvrir")->trigger();
    EXPECT_EQ(active()->referencecourante(), u"CO000003");
}

// ---- printing

TEST_F(SelectionTest, PrintingTheListAsksFirst) {
    ouvre();
    flex().setRow(2);
    dialogues.answers = {Bouton::Non, Bouton::Oui, Bouton::Oui};
    presse(barre(), "imprimercritères");
    EXPECT_TRUE(imprimante.tableaux.empty());
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dialogues.messages.front().texte, u"Voulez-vous imprimer la liste\u00A0?");
    EXPECT_EQ(dialogues.messages.front().titre, u"Impression de la liste");
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Question);
    EXPECT_EQ(dialogues.messages.front().boutons, Bouton::Oui | Bouton::Non);
    presse(barre(), "imprimercritères");
    menu("ContextMenuPrint")->trigger();
    ASSERT_EQ(imprimante.tableaux.size(), 2U);
    for (const PaperTable& tableau : imprimante.tableaux) {
        EXPECT_EQ(tableau.rows.count(u'\r'), 4);
        EXPECT_TRUE(tableau.rows.startsWith(u"Béta\t"));
        EXPECT_EQ(tableau.headers.value(0), u"Titre");
        EXPECT_EQ(tableau.widths, (QList<int>{3000, 2000, 2000, 2000, 500, 1000, 0}));
    }
    EXPECT_EQ(flex().selectedRows(), (std::pair{1, 5}));
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(SelectionTest, AnEmptyListIsNotPrinted) {
    ouvre({});
    menu("ContextMenuPrint")->trigger();
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_TRUE(imprimante.tableaux.empty());
}

TEST_F(SelectionTest, APrinterThatFailsIsSaidOnce) {
    ouvre();
    imprimante.works = false;
    dialogues.acceptPlainBoxes = true;
    dialogues.answers = {Bouton::Oui, Bouton::Ok};
    presse(barre(), "imprimercritères");
    ASSERT_EQ(dialogues.texts(), (QStringList{mots(2432), mots(9496)}));
    EXPECT_EQ(dialogues.messages.back().icone, Icone::Exclamation);
    EXPECT_EQ(dialogues.messages.back().titre, u"Impression de la liste");
}
