#include "gridfixture.h"
#include "platform/base/twips.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Mark = FlexGrid::Mark;
using FlexGridTest = GridTest;

} // namespace

// ---- rows and columns

TEST_F(FlexGridTest, AnEmptyGridHasItsHeaderRow) {
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.clip(), QString());
    EXPECT_EQ(grid.text(1, 0), QString());
}

TEST_F(FlexGridTest, ARowIsATextPartedByTabs) {
    grid.setCols(3);
    grid.addItem(u"CO\tTitre\tCO000123"_s);
    grid.addItem(u"JP"_s);
    grid.addItem(u"a\tb\tc\td\te"_s);
    EXPECT_EQ(grid.rows(), 4);
    EXPECT_EQ(grid.text(1, 2), u"CO000123"_s);
    EXPECT_EQ(grid.text(2, 0), u"JP"_s);
    EXPECT_EQ(grid.text(2, 1), QString());
    EXPECT_EQ(grid.text(3, 2), u"c"_s);
}

TEST_F(FlexGridTest, CellsOutsideAreEmptyAndTakeNothing) {
    number(2);
    for (const auto& [row, col] : {std::pair(-1, 0), std::pair(3, 0), std::pair(1, -1), std::pair(1, 2)}) {
        grid.setText(row, col, u"x"_s);
        EXPECT_EQ(grid.text(row, col), QString());
    }
    EXPECT_EQ(column(0), (QStringList{u"ligne 1"_s, u"ligne 2"_s}));
}

TEST_F(FlexGridTest, RowsAreCutAndAddedAtTheEnd) {
    number(5);
    grid.setRows(3);
    EXPECT_EQ(column(1), (QStringList{u"1"_s, u"2"_s}));
    grid.setRows(4);
    EXPECT_EQ(column(1), (QStringList{u"1"_s, u"2"_s, QString()}));
    grid.setText(3, 1, u"9"_s);
    EXPECT_EQ(grid.text(3, 1), u"9"_s);
    grid.setRows(-7);
    EXPECT_EQ(grid.rows(), 1);
}

TEST_F(FlexGridTest, RowsBelowARemovedOneMoveUp) {
    number(5);
    grid.removeItem(2);
    grid.removeItem(0);
    grid.removeItem(5);
    EXPECT_EQ(column(1), (QStringList{u"1"_s, u"3"_s, u"4"_s, u"5"_s}));
    grid.addItem(u"neuf\t9"_s);
    EXPECT_EQ(column(1), (QStringList{u"1"_s, u"3"_s, u"4"_s, u"5"_s, u"9"_s}));
    for (int i = 0; i < 9; ++i)
        grid.removeItem(1);
    EXPECT_EQ(grid.rows(), 1);
}

TEST_F(FlexGridTest, AColumnOfNoWidthIsHidden) {
    number(1);
    grid.setColWidth(1, 0);
    EXPECT_TRUE(grid.view()->isColumnHidden(1));
    EXPECT_EQ(grid.colWidth(1), 0);
    EXPECT_EQ(grid.text(1, 1), u"1"_s);
    grid.setColWidth(1, 1500);
    EXPECT_FALSE(grid.view()->isColumnHidden(1));
    EXPECT_EQ(grid.view()->columnWidth(1), pixelsFromTwips(1500));
    grid.setColWidth(1, 1507);
    EXPECT_EQ(grid.colWidth(1), 1507);
}

TEST_F(FlexGridTest, AColumnThatIsDraggedWiderTellsItsWidth) {
    number(1);
    grid.setColWidth(0, 3000);
    const int edge = grid.view()->columnWidth(0) - 1;
    const int y = grid.view()->horizontalHeader()->height() / 2;
    QTest::mousePress(headerWidget(), Qt::LeftButton, {}, {edge, y});
    QTest::mouseMove(headerWidget(), {edge + 40, y});
    QTest::mouseRelease(headerWidget(), Qt::LeftButton, {}, {edge + 40, y});
    EXPECT_EQ(grid.colWidth(0), 3000 + twipsFromPixels(40));
}

TEST_F(FlexGridTest, OneColumnTakesTheWidthThatIsLeft) {
    number(1);
    grid.setColWidth(1, 1500);
    grid.setStretchCol(0);
    EXPECT_EQ(grid.view()->columnWidth(0), rowsWidget()->width() - 100);
    grid.resize(700, 300);
    EXPECT_EQ(grid.view()->columnWidth(0), rowsWidget()->width() - 100);
    EXPECT_EQ(grid.colWidth(0), twipsFromPixels(rowsWidget()->width() - 100));
    grid.setStretchCol(-1);
    grid.setColWidth(0, 600);
    EXPECT_EQ(grid.view()->columnWidth(0), 40);
}

TEST_F(FlexGridTest, AMovedColumnTakesAlongWhatBelongsToIt) {
    fill({{u"a"_s, u"b"_s, u"c"_s}});
    for (int col = 0; col < 3; ++col) {
        grid.setColData(col, 10 + col);
        grid.setColWidth(col, 1500 * (col + 1));
        grid.setHeader(col, QString(QChar(u'A' + col)));
    }
    grid.setSortMark(0, Mark::Descending);
    grid.setColPosition(0, 2);
    EXPECT_EQ(grid.text(1, 0) + grid.text(1, 1) + grid.text(1, 2), u"bca"_s);
    EXPECT_EQ(grid.text(0, 0) + grid.text(0, 1) + grid.text(0, 2), u"BCA<"_s);
    EXPECT_EQ(grid.colData(2), 10);
    EXPECT_EQ(grid.colWidth(2), 1500);
    EXPECT_EQ(grid.colWidth(0), 3000);
    grid.setColPosition(0, 3);
    grid.setColPosition(-1, 0);
    EXPECT_EQ(grid.header(0), u"B"_s);
}

TEST_F(FlexGridTest, ANewRowIsFilledInTheOrderOfTheColumnsAsTheyStand) {
    fill({{u"a"_s, u"b"_s, u"c"_s}});
    grid.setColPosition(2, 0);
    grid.addItem(u"C\tA\tB"_s);
    EXPECT_EQ(grid.text(2, 0), u"C"_s);
    grid.setColPosition(0, 2);
    EXPECT_EQ(grid.text(2, 0) + grid.text(2, 1) + grid.text(2, 2), u"ABC"_s);
}

TEST_F(FlexGridTest, TheUserDragsAColumnByItsHeader) {
    fill({{u"a"_s, u"b"_s, u"c"_s}});
    for (int col = 0; col < 3; ++col)
        grid.setColWidth(col, 1500);
    QSignalSpy moved(&grid, &FlexGrid::columnMoved);
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    const QPoint from = headerPoint(0);
    const auto drag = [&] {
        QTest::mousePress(headerWidget(), Qt::LeftButton, {}, from);
        for (int x = from.x(); x <= from.x() + 230; x += 10)
            QTest::mouseMove(headerWidget(), {x, from.y()});
        QTest::mouseRelease(headerWidget(), Qt::LeftButton, {}, {from.x() + 230, from.y()});
    };
    drag();
    EXPECT_EQ(moved.size(), 0);
    grid.setColumnsMovable(true);
    clicked.clear();
    drag();
    ASSERT_EQ(moved.size(), 1);
    EXPECT_EQ(moved.at(0).at(0).toInt(), 0);
    EXPECT_EQ(moved.at(0).at(1).toInt(), 2);
    EXPECT_EQ(grid.text(1, 0) + grid.text(1, 1) + grid.text(1, 2), u"bca"_s);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(FlexGridTest, ColumnsThatTheProgramMovesAreNotTold) {
    number(1);
    QSignalSpy moved(&grid, &FlexGrid::columnMoved);
    grid.setColPosition(0, 1);
    grid.setCols(3);
    EXPECT_EQ(moved.size(), 0);
}

TEST_F(FlexGridTest, ColumnsAreAddedAndCutAsTheyStand) {
    fill({{u"a"_s, u"b"_s, u"c"_s}, {u"d"_s, u"e"_s, u"f"_s}});
    grid.setColWidth(0, 750);
    grid.setColData(0, 7);
    grid.setColPosition(0, 1);
    grid.setCols(2);
    EXPECT_EQ(grid.text(1, 0) + grid.text(1, 1) + grid.text(1, 2), u"ba"_s);
    EXPECT_EQ(grid.text(2, 0) + grid.text(2, 1), u"ed"_s);
    EXPECT_EQ(grid.colData(1), 7);
    EXPECT_EQ(grid.colWidth(1), 750);
    EXPECT_EQ(grid.view()->columnWidth(grid.view()->horizontalHeader()->logicalIndex(1)), 50);
    grid.setCols(4);
    EXPECT_EQ(grid.text(1, 0) + grid.text(1, 1) + grid.text(1, 2), u"ba"_s);
    grid.addItem(u"1\t2\t3\t4"_s);
    EXPECT_EQ(grid.text(3, 3), u"4"_s);
    grid.setCols(0);
    EXPECT_EQ(grid.rows(), 4);
    EXPECT_EQ(grid.text(1, 0), QString());
}

} // namespace velm
