// The list block of a document window.
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"
#include "tests/support/little_memory.h"

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using FenetreTextes = velm::test::BaseTextes;

TEST_F(FenetreTextes, TheListHasFourVisibleColumnsAndAHiddenNumber) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    const FlexGrid& flex = fenetre.panneau().flex();
    ASSERT_EQ(flex.cols(), 5);
    for (int colonne = 0; colonne < 4; ++colonne) {
        EXPECT_EQ(flex.header(colonne), banc->langue.lireressource(Texte{300 + colonne}));
        EXPECT_GE(flex.colWidth(colonne), 2000);
        const QAbstractItemModel* lignes = flex.view()->model();
        EXPECT_EQ(lignes->headerData(colonne, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
                  int(Qt::AlignLeft | Qt::AlignVCenter));
        EXPECT_TRUE(lignes->index(0, colonne).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    }
    EXPECT_EQ(flex.colWidth(4), 0);
    EXPECT_EQ(flex.sortMark(0), FlexGrid::Mark::Ascending);
    EXPECT_EQ(flex.text(1, 0), u"Article 2");
    EXPECT_EQ(flex.text(1, 4), u"000002");
    EXPECT_EQ(flex.text(3, 0), u"Être lié");
}

TEST_F(FenetreTextes, WidthsThatNobodyTouchedShareTheRoomAndAreNotStored) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.resize(1200, 700);
    presse(fenetre, u"tableau"_s);
    const QTableView& vue = *fenetre.panneau().flex().view();
    const auto ensemble = [&vue] {
        return vue.columnWidth(0) + vue.columnWidth(1) + vue.columnWidth(2) + vue.columnWidth(3);
    };
    EVENTUALLY(ensemble() == vue.viewport()->width());
    const int cles = vue.columnWidth(1) + vue.columnWidth(2) + vue.columnWidth(3);
    EXPECT_GT(vue.columnWidth(0), cles) << "most of it the title: the keywords are short";
    for (const int colonne : {1, 2, 3})
        EXPECT_GT(vue.columnWidth(colonne),
                  fenetre.fontMetrics().horizontalAdvance(fenetre.panneau().flex().text(1, colonne)));
    fenetre.resize(600, 700);
    EVENTUALLY(ensemble() == vue.viewport()->width());
    fenetre.close();
    EXPECT_EQ(banc->lu(u"LARGEURCOLONNE0"_s), u"002000002000002000002000");
}

TEST_F(FenetreTextes, AWidthThatWasTouchedStays) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.resize(1200, 700);
    presse(fenetre, u"tableau"_s);
    QTableView& vue = *fenetre.panneau().flex().view();
    vue.horizontalHeader()->resizeSection(2, 100);
    for (const int largeur : {900, 1100}) {
        fenetre.resize(largeur, 700);
        EVENTUALLY(vue.columnWidth(0) + vue.columnWidth(1) + vue.columnWidth(3) + 100 == vue.viewport()->width());
        EXPECT_EQ(vue.columnWidth(2), 100);
    }
    fenetre.close();
    EXPECT_EQ(banc->lu(u"LARGEURCOLONNE0"_s), u"002000002000001500002000");
}

TEST_F(FenetreTextes, TheStoredOrderAndWidthsOfTheColumnsAreTaken) {
    banc->met(u"ORDRECOLONNE0"_s, u"10324"_s);
    banc->met(u"LARGEURCOLONNE0"_s, u"003000001500002100000900"_s);
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    const FlexGrid& flex = fenetre.panneau().flex();
    EXPECT_EQ(flex.header(0), banc->langue.lireressource(Texte{301}));
    EXPECT_EQ(flex.header(1), banc->langue.lireressource(Texte{300}));
    EXPECT_EQ(flex.text(1, 0), u"bail");
    EXPECT_NEAR(flex.colWidth(0), 3000, 15);
    EXPECT_NEAR(flex.colWidth(3), 900, 15);
}

TEST_F(FenetreTextes, AColumnOrderOfAllFoursFallsBackToTheDefault) {
    banc->met(u"ORDRECOLONNE0"_s, u"44444"_s);
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    EXPECT_EQ(fenetre.panneau().flex().header(0), banc->langue.lireressource(Texte{300}));
    EXPECT_EQ(fenetre.panneau().flex().header(3), banc->langue.lireressource(Texte{303}));
}

TEST_F(FenetreTextes, MovedColumnsAreWrittenBackAsDigitsWithFourAtTheEnd) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    fenetre.panneau().flex().sort(1, false);
    fenetre.panneau().flex().setColPosition(0, 2);
    fenetre.panneau().flex().setColWidth(0, 1500);
    fenetre.close();
    EXPECT_EQ(banc->lu(u"ORDRECOLONNE0"_s), u"12034");
    EXPECT_EQ(banc->lu(u"LARGEURCOLONNE0"_s).left(6), u"001500");
}

TEST_F(FenetreTextes, AListNeverShownWritesFoursAndItsWidthsAsTheyWereRead) {
    banc->met(u"LARGEURCOLONNE0"_s, u"003000001500002100000900"_s);
    ouvre("CO000001").close();
    EXPECT_EQ(banc->lu(u"ORDRECOLONNE0"_s), u"44444");
    EXPECT_EQ(banc->lu(u"LARGEURCOLONNE0"_s), u"003000001500002100000900");
}

TEST_F(FenetreTextes, ADoubleClickInTheListOpensItsDocumentAndOnTheHeaderSorts) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"tableau"_s);
    const int position = fenetre.division().disposition().posseparateur;
    cliquecellule(fenetre.panneau().flex(), 1, 0);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
    cliquecellule(fenetre.panneau().flex(), 1, 0, true);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, position);
    cliquecellule(fenetre.panneau().flex(), 0, 0, true);
    EXPECT_EQ(fenetre.panneau().flex().sortMark(0), FlexGrid::Mark::Descending);
    EXPECT_EQ(fenetre.panneau().flex().text(1, 0), u"Zone franche");
    fenetre.panneau().flex().view()->setFocus();
    fenetre.panneau().flex().setRow(1);
    QTest::keyClick(fenetre.panneau().flex().view(), Qt::Key_Return);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
}

TEST_F(FenetreTextes, AListThatDoesNotFitWhenItsWindowIsMadeIsSaidAndFilledLater) {
    banc->met(u"WINDOWSARBRE0"_s, u"2"_s);
    {
        const velm::test::LittleMemory peu(0);
        banc->navigation.ouvrefenetre(0);
    }
    EXPECT_EQ(banc->voisinage.dits, QStringList{banc->langue.lireressource(Texte{9567})});
    Textes& fenetre = *banc->fenetre(0);
    EXPECT_EQ(fenetre.panneau().flex().rows(), 1);
    presse(fenetre, u"tableau"_s);
    EXPECT_EQ(fenetre.panneau().flex().rows(), 5);
    EXPECT_EQ(banc->voisinage.dits.size(), 1);
}
