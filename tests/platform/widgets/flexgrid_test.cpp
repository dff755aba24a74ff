#include "gridfixture.h"
#include "platform/text/letters.h"
#include "platform/text/twips.h"
#include "platform/widgets/gridrows.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>
#include <numeric>
#include <random>

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

// ---- order

TEST_F(FlexGridTest, TheSortedColumnBearsTheMarkAndNoOther) {
    fill({{u"b"_s, u"x"_s}, {u"a"_s, u"y"_s}});
    grid.setHeader(0, u"Titre"_s);
    grid.setHeader(1, u"Code"_s);
    grid.sort(0, false);
    EXPECT_EQ(grid.headerCell(0), u"Titre>"_s);
    EXPECT_EQ(grid.header(0), u"Titre"_s);
    grid.sort(0, true);
    EXPECT_EQ(grid.headerCell(0), u"Titre<"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
    grid.sort(1, true);
    EXPECT_EQ(grid.headerCell(0), u"Titre"_s);
    EXPECT_EQ(grid.headerCell(1), u"Code<"_s);
    grid.setSortMark(1, Mark::None);
    EXPECT_EQ(grid.headerCell(1), u"Code"_s);
    EXPECT_EQ(grid.text(1, 1), u"y"_s);
    EXPECT_FALSE(grid.sort(2, false));
}

TEST_F(FlexGridTest, AHeaderCellMayBeWrittenWithItsMark) {
    grid.setCols(1);
    grid.setText(0, 0, u"Titre<"_s);
    EXPECT_EQ(grid.header(0), u"Titre"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
    grid.setText(0, 0, u"Titre"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::None);
    grid.setHeader(0, u"Sujet>"_s);
    EXPECT_EQ(grid.headerCell(0), u"Sujet"_s);
}

TEST_F(FlexGridTest, RowsAreSortedInFrenchOrder) {
    fill({{u"Zèbre"_s}, {u"école"_s}, {u"ecole"_s}, {u"Abri"_s}, {u"abri"_s}, {u""_s}, {u"écart"_s}, {u"Eclat"_s}});
    grid.sort(0, false);
    EXPECT_EQ(column(0),
              (QStringList{u""_s, u"Abri"_s, u"abri"_s, u"écart"_s, u"Eclat"_s, u"ecole"_s, u"école"_s, u"Zèbre"_s}));
    grid.sort(0, true);
    EXPECT_EQ(column(0),
              (QStringList{u"Zèbre"_s, u"école"_s, u"ecole"_s, u"Eclat"_s, u"écart"_s, u"Abri"_s, u"abri"_s, u""_s}));
}

TEST(FrenchOrder, IsThatOfAStableSortByKeys) {
    std::mt19937 random(4);
    const QString letters = u"aAbBéÉeEçcz œ-12\u4E00"_s;
    for (int round = 0; round < 60; ++round) {
        QStringList texts;
        for (int i = 0; i < 300; ++i) {
            QString text = round % 2 == 0 ? QString() : u"préfixe commun"_s;
            for (unsigned length = random() % 4; length > 0; --length)
                text += letters.at(static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size())));
            texts.append(text);
        }
        for (const bool descending : {false, true}) {
            std::vector<int> expected(static_cast<std::size_t>(texts.size()));
            std::iota(expected.begin(), expected.end(), 0);
            std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
                const QByteArray left = sortKey(texts.at(a));
                const QByteArray right = sortKey(texts.at(b));
                return descending ? right < left : left < right;
            });
            EXPECT_EQ(frenchOrder(
                          static_cast<int>(texts.size()), [&](int row) { return texts.at(row); }, descending),
                      expected);
        }
    }
}

TEST_F(FlexGridTest, TheSelectedRowStaysSelectedWhereTheSortPutsIt) {
    number(200);
    grid.setRow(200);
    grid.sort(1, true);
    EXPECT_EQ(grid.text(grid.row(), 1), u"200"_s);
    EXPECT_LT(grid.row(), 200);
    EXPECT_GE(grid.row(), grid.topRow());
    EXPECT_LE(grid.row(), grid.topRow() + rowsWidget()->height() / grid.view()->rowHeight(0));
    grid.selectAll();
    grid.sort(1, false);
    EXPECT_EQ(range(), Range(1, 200));
}

// ---- merging

TEST_F(FlexGridTest, EqualNeighboursMergeWithinWhatEqualsOnTheirLeft) {
    fill({{u"A"_s, u"x"_s, u"1"_s}, {u"A"_s, u"x"_s, u"1"_s}, {u"A"_s, u"y"_s, u"1"_s}, {u"B"_s, u"y"_s, u"1"_s}});
    EXPECT_FALSE(grid.joinsAbove(2, 0));
    grid.setMergeCells(true);
    const auto joins = [this](int row) {
        return std::array{grid.joinsAbove(row, 0), grid.joinsAbove(row, 1), grid.joinsAbove(row, 2)};
    };
    EXPECT_EQ(joins(1), (std::array{false, false, false}));
    EXPECT_EQ(joins(2), (std::array{true, true, true}));
    EXPECT_EQ(joins(3), (std::array{true, false, false}));
    EXPECT_EQ(joins(4), (std::array{false, false, false}));
    EXPECT_EQ(joins(5), (std::array{false, false, false}));
    // What counts is where the columns stand, and whether they are seen.
    grid.setColPosition(2, 0);
    EXPECT_EQ(joins(4), (std::array{true, false, false}));
    grid.setColPosition(0, 2);
    grid.setColWidth(0, 0);
    EXPECT_EQ(joins(4), (std::array{true, true, true}));
}

TEST_F(FlexGridTest, AMergedCellIsPaintedAsOneWithItsTextOnTop) {
    number(0);
    std::vector<QStringList> rows;
    for (int i = 0; i < 60; ++i)
        rows.push_back({u"même"_s, QString::number(i)});
    fill(rows);
    grid.setColWidth(0, 3000);
    const auto ink = [this](int row) {
        const QRect cell = grid.view()->visualRect(grid.view()->model()->index(row - 1, 0));
        const QImage image = grid.grab(QRect(rowsWidget()->mapTo(&grid, cell.topLeft()), cell.size())).toImage();
        std::set<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width() - 2; ++x)
                colours.insert(image.pixel(x, y));
        }
        return static_cast<int>(colours.size());
    };
    EXPECT_GT(ink(2), 2);
    grid.setMergeCells(true);
    EXPECT_GT(ink(1), 2);
    EXPECT_EQ(ink(2), 1) << "neither text nor line inside";
    grid.setTopRow(20);
    EXPECT_EQ(grid.topRow(), 20);
    EXPECT_GT(ink(20), 2) << "the text moves to the top of what is seen";
    EXPECT_EQ(ink(21), 1);
}

// ---- redraw, many rows

TEST_F(FlexGridTest, NothingIsShownBeforeRedrawIsBackOn) {
    number(3);
    grid.setRow(3);
    grid.setRedraw(false);
    EXPECT_FALSE(grid.redraw());
    grid.setRows(1);
    number(50);
    grid.setRow(40);
    EXPECT_EQ(grid.rows(), 51);
    EXPECT_EQ(grid.text(50, 1), u"50"_s);
    EXPECT_EQ(grid.view()->model()->rowCount(), 3);
    QApplication::processEvents();
    QSignalSpy reset(grid.view()->model(), &QAbstractItemModel::modelReset);
    grid.setRedraw(true);
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(grid.view()->model()->rowCount(), 50);
    EXPECT_EQ(range(), Range(40, 40));
    EXPECT_EQ(grid.view()->selectionModel()->currentIndex().row(), 39);
}

TEST_F(FlexGridTest, OneRepaintShowsAWholeFill) {
    class Paints : public QObject {
    public:
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    number(1);
    rowsWidget()->installEventFilter(&paints);
    // What showed the window has been painted when a while goes by without anything.
    do {
        paints.count = 0;
        QTest::qWait(50);
    } while (paints.count > 0);
    grid.setRedraw(false);
    for (int i = 0; i < 500; ++i) {
        grid.addItem(u"x\ty"_s);
        if (i % 100 == 0)
            QApplication::processEvents();
    }
    grid.sort(1, false);
    EXPECT_EQ(paints.count, 0);
    grid.setRedraw(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    QTest::qWait(50);
    EXPECT_EQ(paints.count, 1);
    rowsWidget()->removeEventFilter(&paints);
}

TEST_F(FlexGridTest, ANewFillIsShownFromItsFirstRow) {
    number(500);
    grid.setTopRow(300);
    grid.setRedraw(false);
    grid.setRows(1);
    number(400);
    grid.setRedraw(true);
    EXPECT_EQ(grid.topRow(), 1);
}

namespace {

/// Rows that are made up when they are asked for; it counts how often that is.
class Numbers : public GridSource {
public:
    explicit Numbers(int count) : count_(count) {}
    int rowCount() const override { return count_; }
    QString text(int row, int column) const override {
        ++asked;
        return column == 0 ? u"ligne %1"_s.arg(at(row)) : QString::number(at(row));
    }
    bool sort(int column, bool descending) override {
        down_ = descending;
        return column == 0;
    }
    mutable int asked = 0;

private:
    int at(int row) const { return down_ ? count_ - row : row + 1; }
    int count_;
    bool down_ = false;
};

} // namespace

TEST_F(FlexGridTest, AMillionRowsOfASourceAreAskedOnlyWhenSeen) {
    grid.setCols(2);
    auto owned = std::make_unique<Numbers>(1000000);
    Numbers& numbers = *owned;
    QElapsedTimer time;
    time.start();
    grid.setSource(std::move(owned));
    grid.grab();
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_LT(numbers.asked, 500);
    EXPECT_EQ(grid.rows(), 1000001);
    EXPECT_EQ(grid.source(), &numbers);
    numbers.asked = 0;
    time.start();
    for (int row = 1; row <= 1000000; row += 10000) {
        grid.setTopRow(row);
        grid.grab();
    }
    key(Qt::Key_End);
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_LT(numbers.asked, 110 * 200);
    EXPECT_EQ(range(), Range(1000000, 1000000));
    EXPECT_GT(grid.topRow(), 999900);
    EXPECT_EQ(grid.text(1000000, 1), u"1000000"_s);
    EXPECT_EQ(grid.text(1000001, 1), QString());
}

TEST_F(FlexGridTest, ASourceSortsItselfOrNotAtAll) {
    grid.setCols(2);
    grid.setSource(std::make_unique<Numbers>(1000));
    EXPECT_TRUE(grid.sort(0, true));
    EXPECT_EQ(grid.text(1, 1), u"1000"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
    EXPECT_FALSE(grid.sort(1, true));
    EXPECT_EQ(grid.sortMark(1), Mark::None);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
}

TEST_F(FlexGridTest, TheRowsOfASourceAreItsOwn) {
    grid.setCols(2);
    grid.setSource(std::make_unique<Numbers>(10));
    grid.addItem(u"a\tb"_s);
    grid.removeItem(1);
    grid.setText(1, 0, u"x"_s);
    grid.setRows(5);
    EXPECT_EQ(grid.rows(), 11);
    EXPECT_EQ(grid.text(1, 0), u"ligne 1"_s);
    grid.setRows(1);
    EXPECT_EQ(grid.source(), nullptr);
    EXPECT_EQ(grid.rows(), 1);
    grid.setSource(std::make_unique<Numbers>(10));
    grid.setSource(nullptr);
    EXPECT_EQ(grid.rows(), 1);
}

TEST_F(FlexGridTest, AColumnOfASourceIsItsOwnWhereverItStands) {
    grid.setCols(2);
    grid.setSource(std::make_unique<Numbers>(10));
    grid.setColPosition(0, 1);
    EXPECT_EQ(grid.text(3, 0), u"3"_s);
    EXPECT_TRUE(grid.sort(1, true));
    EXPECT_EQ(grid.text(1, 1), u"ligne 10"_s);
}

} // namespace velm
