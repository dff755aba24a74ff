// What a user's hands do to a grid of documents.
#include "tests/document/ui/grilledocuments_support.h"

#include <QSignalSpy>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

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
