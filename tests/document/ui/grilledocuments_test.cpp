#include "document/ui/grilledocuments.h"
#include "platform/widgets/look/look.h"
#include "tests/document/ui/liste_support.h"
#include "tests/support/eventually.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <optional>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class GrilleDocumentsTest : public testing::Test {
protected:
    void SetUp() override {
        auto* colonne = new QVBoxLayout(&fenetre);
        colonne->addWidget(autre);
        colonne->addWidget(flex);
        fenetre.resize(700, 300);
    }
    GrilleDocuments& construit(const GrilleDocuments::Usage& usage = {}) {
        grille.emplace(*flex, colonnes, usage);
        QObject::connect(&*grille, &GrilleDocuments::ouvertes, &*grille, [this](const std::vector<Cle>& cles) {
            QStringList textes;
            for (const Cle& cle : cles)
                textes << cle.texte();
            ouvertes << textes.join(u' ');
        });
        QObject::connect(&*grille, &GrilleDocuments::trivoulu, &*grille, &GrilleDocuments::trie);
        fenetre.show();
        return *grille;
    }
    GrilleDocuments& avec(int nombre, const GrilleDocuments::Usage& usage = {}) {
        construit(usage).charge(SourceEssai::de(nombre));
        return *grille;
    }
    std::vector<int> champs() const {
        std::vector<int> tous;
        for (int place = 0; place < flex->cols(); ++place)
            tous.push_back(flex->colData(place));
        return tous;
    }

    QWidget fenetre;
    QLineEdit* autre = new QLineEdit;
    FlexGrid* flex = new FlexGrid;
    Colonnes colonnes{SourceEssai::modele(), textenumerote};
    std::optional<GrilleDocuments> grille;
    QStringList ouvertes;
};

} // namespace

// ---- columns

TEST_F(GrilleDocumentsTest, TheGridHasTheColumnsOfTheList) {
    avec(3);
    EXPECT_EQ(champs(), (std::vector{0, 1, 6}));
    EXPECT_EQ(flex->colWidth(0), 3000);
    EXPECT_EQ(flex->colWidth(2), 0);
    EXPECT_EQ(flex->header(0), u"t300");
    EXPECT_EQ(flex->header(2), QString());
    EXPECT_EQ(flex->text(1, 0), u"Titre 00003");
    EXPECT_EQ(flex->text(1, 2), u"CO000003");
    EXPECT_TRUE(flex->redraw());
}

TEST_F(GrilleDocumentsTest, ColumnsStandAsTheyWereLeftAndTheSourceDoesNotNotice) {
    colonnes.deplace(0, 1);
    colonnes.changelargeur(0, 1234);
    avec(3);
    EXPECT_EQ(champs(), (std::vector{1, 0, 6}));
    EXPECT_EQ(flex->colWidth(0), 1234);
    EXPECT_EQ(flex->header(0), u"t301");
    EXPECT_EQ(flex->text(1, 0), u"mot 3");
    EXPECT_EQ(flex->text(1, 1), u"Titre 00003");
    colonnes.deplace(0, 1);
    grille->montrecolonnes();
    EXPECT_EQ(champs(), (std::vector{0, 1, 6}));
    EXPECT_EQ(flex->colWidth(1), 1234);
}

TEST_F(GrilleDocumentsTest, HeadersAndCellsStandOnTheLeft) {
    avec(3);
    const QHeaderView* entete = flex->view()->horizontalHeader();
    EXPECT_TRUE(entete->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(flex->view()->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(entete->sectionsMovable());
}

TEST_F(GrilleDocumentsTest, ColumnsShareTheFreeWidthUntilTheyAreGivenAnother) {
    colonnes = Colonnes({.colonnes = {{0, 3000, Texte::Titre, 3}, {1, 2000, Texte::ColonneMotCle1, 2}, {6, 0, {}}}});
    avec(3);
    const auto ensemble = [this] { return flex->view()->columnWidth(0) + flex->view()->columnWidth(1); };
    EVENTUALLY(ensemble() == flex->view()->viewport()->width());
    grille->releve();
    EXPECT_EQ(colonnes.largeurs(), u"003000002000") << "what is free is not kept";
    flex->view()->horizontalHeader()->resizeSection(1, 100);
    grille->releve();
    EXPECT_EQ(colonnes.largeurs(), u"003000001500");
    // At the next start that one keeps its width.
    grille.reset();
    flex->setCols(0);
    construit();
    EVENTUALLY(ensemble() == flex->view()->viewport()->width());
    EXPECT_EQ(flex->view()->columnWidth(1), 100);
}

TEST_F(GrilleDocumentsTest, ANarrowListShowsTitlesOverKeywords) {
    colonnes = Colonnes({.colonnes = {{0, 3000, Texte::Titre, 3}, {1, 2000, Texte::ColonneMotCle1, 2}, {6, 0, {}}}});
    avec(3);
    const int ligne = flex->view()->rowHeight(0);
    fenetre.resize(380, 300);
    EVENTUALLY(flex->view()->isColumnHidden(1));
    EXPECT_GT(flex->view()->rowHeight(0), ligne);
}

TEST_F(GrilleDocumentsTest, TheCodeOfACollectionIsSeenAsItsPicture) {
    construit({.champimage = 1})
        .charge(std::make_unique<SourceEssai>(std::vector<QStringList>{
            {u"a"_s, u"JP"_s, u"JP000001"_s}, {u"b"_s, u"XX"_s, u"XX000001"_s}, {u"c"_s, u"JP"_s, u"JP000002"_s}}));
    const auto [surface, ou] = cellule(*flex, 1, 1);
    const auto cellules = [&, surface = surface](int ligne) {
        const QRect ici(cellule(*flex, ligne, 1).second - QPoint(8, 8), QSize(16, 16));
        return surface->grab(ici).toImage();
    };
    EXPECT_EQ(cellules(1), cellules(3));
    EXPECT_NE(cellules(1), cellules(2)) << "of no collection, the text";
    const QColor teinte = look::hue(2, look::themeOf(flex->palette()));
    const QImage image = cellules(1);
    bool vue = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            vue |= image.pixelColor(x, y).hue() == teinte.hue();
    }
    EXPECT_TRUE(vue) << "in the hue of its collection";
}

TEST_F(GrilleDocumentsTest, WhatTheUserDoesToColumnsTheListKnows) {
    avec(3);
    flex->view()->horizontalHeader()->moveSection(0, 1);
    EXPECT_EQ(colonnes.ordre(), u"10");
    flex->setColWidth(1, 4321);
    flex->setColPosition(1, 0);
    grille->releve();
    EXPECT_EQ(colonnes.ordre(), u"01");
    EXPECT_EQ(colonnes.largeurs(), u"004321002000");
}

TEST_F(GrilleDocumentsTest, OneColumnMayTakeTheWidthThatIsLeftAndThenNoneIsDragged) {
    avec(3, {.deplacables = false, .champetire = 1});
    EVENTUALLY(flex->colWidth(1) > 2000);
    EXPECT_FALSE(flex->view()->horizontalHeader()->sectionsMovable());
    EXPECT_TRUE(flex->view()->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
}

// ---- opening

TEST_F(GrilleDocumentsTest, ADoubleClickOpensTheSelectedRowsFromTheFirstToTheLast) {
    avec(5);
    flex->setRow(4);
    flex->setRowSel(2);
    doubleclique(*flex, 3, 0);
    EXPECT_EQ(ouvertes, QStringList{u"CO000004 CO000003 CO000002"_s});
    clique(*flex, 1, 0);
    EXPECT_EQ(ouvertes.size(), 1) << "one click selects";
}

TEST_F(GrilleDocumentsTest, ReturnOpensTheSelectedRows) {
    avec(5);
    flex->setRow(2);
    flex->setRowSel(3);
    QTest::keyClick(flex->view(), Qt::Key_Return);
    EXPECT_EQ(ouvertes, QStringList{u"CO000004 CO000003"_s});
}

TEST_F(GrilleDocumentsTest, AListMayOpenThePressedRowAlone) {
    avec(5, {.plage = false});
    flex->setRow(4);
    flex->setRowSel(2);
    doubleclique(*flex, 3, 0);
    EXPECT_EQ(ouvertes, QStringList{u"CO000003"_s});
    flex->setRow(1);
    flex->setRowSel(5);
    QTest::keyClick(flex->view(), Qt::Key_Return);
    EXPECT_EQ(ouvertes.last(), u"CO000001");
}

TEST_F(GrilleDocumentsTest, AListMayOpenWithOneClickAndTheSecondHalfOfADoubleOneOpensNothing) {
    avec(5, {.unclic = true, .plage = false});
    clique(*flex, 2, 0);
    clique(*flex, 3, 0);
    EXPECT_EQ(ouvertes, QStringList{u"CO000004"_s});
    clique(*flex, 0, 0);
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::Ascending) << "a header is pressed at any time";
    EXPECT_TRUE(QTest::qWaitFor([this] {
        clique(*flex, 3, 0);
        return ouvertes.size() > 1;
    }));
    EXPECT_EQ(ouvertes.last(), u"CO000003");
}

TEST_F(GrilleDocumentsTest, ARowWithoutADocumentOpensNothing) {
    construit().charge(std::make_unique<SourceEssai>(
        std::vector<QStringList>{{u"sans"_s, u""_s, u""_s}, {u"avec"_s, u""_s, u"CO000001"_s}}));
    flex->setRow(1);
    QTest::keyClick(flex->view(), Qt::Key_Return);
    EXPECT_TRUE(ouvertes.isEmpty());
    flex->setRowSel(2);
    QTest::keyClick(flex->view(), Qt::Key_Return);
    EXPECT_EQ(ouvertes, QStringList{u"CO000001"_s});
    EXPECT_TRUE(grille->cle(0).vide());
    EXPECT_TRUE(grille->cle(3).vide());
}

TEST_F(GrilleDocumentsTest, DocumentsAreNamedByTheirRowsAndOutsideThereAreNone) {
    avec(3);
    EXPECT_EQ(grille->cles(-5, 99).size(), 3U);
    EXPECT_EQ(grille->cles(2, 2), std::vector{decoupecle(u"CO000002")});
    EXPECT_TRUE(grille->cles(3, 2).empty());
    grille->vide();
    EXPECT_EQ(flex->rows(), 1);
    EXPECT_EQ(grille->source(), nullptr);
    EXPECT_TRUE(grille->cles(1, 3).empty());
    EXPECT_TRUE(grille->cle(1).vide());
}

// ---- order

TEST_F(GrilleDocumentsTest, AHeaderSortsUpwardsAndThenTheOtherWayRoundAndAloneBearsAMark) {
    avec(30);
    doubleclique(*flex, 0, 0);
    EXPECT_EQ(flex->headerCell(0), u"t300>");
    EXPECT_EQ(titres(*flex, 2), (QStringList{u"Titre 00001"_s, u"Titre 00002"_s}));
    doubleclique(*flex, 0, 0);
    EXPECT_EQ(flex->headerCell(0), u"t300<");
    EXPECT_EQ(flex->text(1, 0), u"Titre 00030");
    doubleclique(*flex, 0, 1);
    EXPECT_EQ(flex->headerCell(0), u"t300");
    EXPECT_EQ(flex->headerCell(1), u"t301>");
    EXPECT_EQ(titres(*flex, 3), (QStringList{u"Titre 00030"_s, u"Titre 00020"_s, u"Titre 00010"_s}));
    EXPECT_TRUE(ouvertes.isEmpty());
}

TEST_F(GrilleDocumentsTest, TheSelectedDocumentIsFollowedThroughASortWhereTheListSaysSo) {
    avec(5, {.suitletri = true});
    flex->setRow(2);
    grille->trie(0);
    EXPECT_EQ(flex->row(), 4);
    EXPECT_EQ(grille->cle(4).texte(), u"CO000004");
    flex->selectAll();
    grille->trie(0);
    EXPECT_EQ(flex->selectedRows(), std::pair(1, 5)) << "all rows stay selected";
    grille.reset();
    avec(5);
    flex->setRow(2);
    grille->trie(0);
    EXPECT_EQ(flex->row(), 0);
}

// ---- refilling

TEST_F(GrilleDocumentsTest, TheSameListAnewKeepsItsOrderItsSelectionAndItsPlace) {
    avec(1'000);
    grille->trie(0);
    flex->setTopRow(400);
    flex->setRow(404);
    grille->recharge(SourceEssai::de(1'200));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::Ascending);
    EXPECT_EQ(flex->text(1, 0), u"Titre 00001");
    EXPECT_EQ(flex->rows(), 1'201);
    EXPECT_EQ(flex->row(), 404);
    EXPECT_EQ(flex->rowSel(), 404);
    EXPECT_EQ(flex->topRow(), 400);
    grille->trie(0);
    flex->setRow(1'200 - 403);
    grille->recharge(SourceEssai::de(1'000));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::Descending);
    EXPECT_EQ(grille->cle(flex->row()).texte(), u"CO000404");
}

TEST_F(GrilleDocumentsTest, ADocumentThatIsGoneIsSelectedNoMore) {
    avec(100);
    flex->setRow(1);
    grille->recharge(SourceEssai::de(99));
    EXPECT_EQ(flex->row(), 0);
    EXPECT_EQ(flex->rows(), 100);
    grille->recharge(nullptr);
    EXPECT_EQ(flex->rows(), 1);
    grille->recharge(SourceEssai::de(2));
    EXPECT_EQ(flex->topRow(), 1);
}

TEST_F(GrilleDocumentsTest, AnotherListBeginsAtItsFirstRowWithoutAMark) {
    avec(1'000);
    grille->trie(0);
    flex->setRow(700);
    grille->charge(SourceEssai::de(900));
    EXPECT_EQ(flex->sortMark(0), FlexGrid::Mark::None);
    EXPECT_EQ(flex->row(), 0);
    EXPECT_EQ(flex->topRow(), 1);
    EXPECT_EQ(flex->text(1, 0), u"Titre 00900");
    flex->setRedraw(false);
    grille->charge(SourceEssai::de(5));
    EXPECT_FALSE(flex->redraw()) << "who has stopped the painting lets it go on";
    flex->setRedraw(true);
    EXPECT_EQ(flex->rows(), 6);
}

TEST_F(GrilleDocumentsTest, AGridThatHadTheFocusBeforeItWasHiddenHasItAgain) {
    avec(5);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    flex->setFocus();
    grille->cache();
    EXPECT_TRUE(flex->isHidden());
    EXPECT_FALSE(flex->redraw());
    grille->montre(true);
    EXPECT_TRUE(flex->isVisible());
    EXPECT_TRUE(flex->redraw());
    EXPECT_TRUE(flex->view()->hasFocus());
    autre->setFocus();
    grille->cache();
    grille->montre(true);
    EXPECT_TRUE(autre->hasFocus()) << "it did not have it";
    flex->setFocus();
    grille->cache();
    grille->montre(false);
    EXPECT_TRUE(flex->isHidden());
    grille->montre(true);
    EXPECT_FALSE(flex->view()->hasFocus());
}

// ---- other keys and buttons, copying, printing

TEST_F(GrilleDocumentsTest, DeleteAndTheRightButtonAreTold) {
    avec(5);
    QSignalSpy suppression(&*grille, &GrilleDocuments::suppressionvoulue);
    QSignalSpy menu(&*grille, &GrilleDocuments::menuvoulu);
    flex->setRow(2);
    flex->setRowSel(4);
    QTest::keyClick(flex->view(), Qt::Key_Delete);
    EXPECT_EQ(suppression.size(), 1);
    clique(*flex, 3, 0, Qt::RightButton);
    EXPECT_EQ(menu.size(), 1);
    EXPECT_EQ(flex->selectedRows(), std::pair(2, 4)) << "the rows that are selected stay so";
}

TEST_F(GrilleDocumentsTest, TheRightButtonMaySelectTheRowUnderIt) {
    avec(5, {.menuchoisit = true});
    QSignalSpy menu(&*grille, &GrilleDocuments::menuvoulu);
    flex->setRow(2);
    flex->setRowSel(4);
    clique(*flex, 3, 0, Qt::RightButton);
    EXPECT_EQ(flex->selectedRows(), std::pair(3, 3));
    emit flex->rightClicked(0, 0, {});
    EXPECT_EQ(flex->selectedRows(), std::pair(3, 3)) << "a header is no row";
    EXPECT_EQ(menu.size(), 2);
}

TEST_F(GrilleDocumentsTest, ThePaperBearsAllRowsUnderTheTitlesAsTheyStand) {
    colonnes.deplace(0, 1);
    avec(2);
    grille->trie(0);
    const TableauImprime papier = grille->tableau(u"titre"_s);
    EXPECT_EQ(papier.titre, u"titre");
    EXPECT_EQ(papier.entetes, (QStringList{u"t301"_s, u"t300"_s, QString()}));
    EXPECT_EQ(papier.largeurs, (QList<int>{2000, 3000, 0}));
    EXPECT_EQ(papier.lignes, u"mot 1\tTitre 00001\tCO000001\rmot 2\tTitre 00002\tCO000002");
}
