// What the mouse does to a grid.
#include "gridinputfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

TEST_F(FlexGridInput, TheMouseDragsARange) {
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    QTest::mousePress(rowsWidget(), Qt::LeftButton, {}, pointOf(2, 0));
    EXPECT_EQ(range(), GridTest::Range(2, 2));
    QTest::mouseMove(rowsWidget(), pointOf(6, 1));
    EXPECT_EQ(range(), GridTest::Range(2, 6));
    QTest::mouseMove(rowsWidget(), pointOf(1, 1));
    QTest::mouseRelease(rowsWidget(), Qt::LeftButton, {}, pointOf(1, 1));
    EXPECT_EQ(range(), GridTest::Range(2, 1));
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(FlexGridInput, ADragBelowTheRowsScrollsOn) {
    QTest::mousePress(rowsWidget(), Qt::LeftButton, {}, pointOf(2, 0));
    QTest::mouseMove(rowsWidget(), {20, rowsWidget()->height() + 10});
    EXPECT_TRUE(QTest::qWaitFor([this] { return grid.rowSel() > 2 + pageRows(); }));
    EXPECT_GT(grid.topRow(), 1);
    QTest::mouseMove(rowsWidget(), {20, -10});
    EXPECT_TRUE(QTest::qWaitFor([this] { return grid.rowSel() == 1; }));
    QTest::mouseRelease(rowsWidget(), Qt::LeftButton, {}, {20, -10});
    EXPECT_EQ(range(), GridTest::Range(2, 1));
}

TEST_F(FlexGridInput, AClickIsToldOnceAndADoubleClickAfterIt) {
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    QSignalSpy doubled(&grid, &FlexGrid::doubleClicked);
    press(4, 1);
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked.at(0).at(0).toInt(), 4);
    EXPECT_EQ(clicked.at(0).at(1).toInt(), 1);
    EXPECT_EQ(range(), GridTest::Range(4, 4));
    pressTwice(rowsWidget(), pointOf(5, 0));
    ASSERT_EQ(doubled.size(), 1);
    EXPECT_EQ(doubled.at(0).at(0).toInt(), 5);
    EXPECT_EQ(clicked.size(), 2);
    press(5, 0);
    EXPECT_EQ(clicked.size(), 3);
}

TEST_F(FlexGridInput, ADoubleClickIsToldWithAllSelectedRows) {
    grid.setRow(3);
    grid.setRowSel(6);
    GridTest::Range seen;
    QObject::connect(&grid, &FlexGrid::doubleClicked, &grid, [&] { seen = range(); });
    pressTwice(rowsWidget(), pointOf(4, 0));
    EXPECT_EQ(seen, GridTest::Range(3, 6));
}

TEST_F(FlexGridInput, ASingleClickInARangeGivesItUpAfterAWhile) {
    grid.setRow(3);
    grid.setRowSel(6);
    press(4, 0);
    EXPECT_EQ(range(), GridTest::Range(3, 6));
    EXPECT_TRUE(QTest::qWaitFor([this] { return range() == GridTest::Range(4, 4); }));
    grid.setRow(3);
    grid.setRowSel(6);
    press(5, 0);
    key(Qt::Key_Down);
    EXPECT_EQ(range(), GridTest::Range(6, 6));
}

TEST_F(FlexGridInput, ADragFromWithinARangeStartsAnew) {
    grid.setRow(3);
    grid.setRowSel(6);
    QTest::mousePress(rowsWidget(), Qt::LeftButton, {}, pointOf(4, 0));
    QTest::mouseMove(rowsWidget(), pointOf(8, 0));
    QTest::mouseRelease(rowsWidget(), Qt::LeftButton, {}, pointOf(8, 0));
    EXPECT_EQ(range(), GridTest::Range(4, 8));
}

TEST_F(FlexGridInput, TheHeaderIsRowZero) {
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    QSignalSpy doubled(&grid, &FlexGrid::doubleClicked);
    QSignalSpy right(&grid, &FlexGrid::rightClicked);
    grid.setColPosition(0, 1);
    QTest::mouseClick(headerWidget(), Qt::LeftButton, {}, headerPoint(1));
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked.at(0).at(0).toInt(), 0);
    EXPECT_EQ(clicked.at(0).at(1).toInt(), 1);
    pressTwice(headerWidget(), headerPoint(0));
    ASSERT_EQ(doubled.size(), 1);
    EXPECT_EQ(doubled.at(0).at(0).toInt(), 0);
    EXPECT_EQ(doubled.at(0).at(1).toInt(), 0);
    QTest::mouseClick(headerWidget(), Qt::RightButton, {}, headerPoint(0));
    ASSERT_EQ(right.size(), 1);
    EXPECT_EQ(right.at(0).at(0).toInt(), 0);
    EXPECT_EQ(grid.row(), 0);
}

TEST_F(FlexGridInput, ColumnsThatCanBeDraggedCanBeClickedToo) {
    grid.setColumnsMovable(true);
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    QTest::mouseClick(headerWidget(), Qt::LeftButton, {}, headerPoint(0));
    EXPECT_EQ(clicked.size(), 1);
}

TEST_F(FlexGridInput, ARightClickSelectsWhatIsNotSelected) {
    QSignalSpy right(&grid, &FlexGrid::rightClicked);
    QSignalSpy clicked(&grid, &FlexGrid::clicked);
    grid.setRow(3);
    grid.setRowSel(5);
    rightClick(4, 0);
    EXPECT_EQ(range(), GridTest::Range(3, 5));
    rightClick(7, 1);
    EXPECT_EQ(range(), GridTest::Range(7, 7));
    ASSERT_EQ(right.size(), 2);
    EXPECT_EQ(right.at(1).at(0).toInt(), 7);
    EXPECT_EQ(right.at(1).at(1).toInt(), 1);
    EXPECT_EQ(right.at(1).at(2).toPoint(), rowsWidget()->mapToGlobal(pointOf(7, 1)));
    EXPECT_EQ(clicked.size(), 0);
}

} // namespace velm
