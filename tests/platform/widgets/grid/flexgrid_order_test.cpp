// The order of rows, and neighbours shown as one.
#include "gridfixture.h"
#include "platform/text/letters.h"
#include "platform/widgets/grid/gridrows.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Mark = FlexGrid::Mark;
using FlexGridOrder = GridTest;

} // namespace

TEST_F(FlexGridOrder, TheSortedColumnBearsTheMarkAndNoOther) {
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

TEST_F(FlexGridOrder, AHeaderCellMayBeWrittenWithItsMark) {
    grid.setCols(1);
    grid.setText(0, 0, u"Titre<"_s);
    EXPECT_EQ(grid.header(0), u"Titre"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
    grid.setText(0, 0, u"Titre"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::None);
    grid.setHeader(0, u"Sujet>"_s);
    EXPECT_EQ(grid.headerCell(0), u"Sujet"_s);
}

TEST_F(FlexGridOrder, RowsAreSortedInFrenchOrder) {
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

TEST_F(FlexGridOrder, TheSelectedRowStaysSelectedWhereTheSortPutsIt) {
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

TEST_F(FlexGridOrder, EqualNeighboursMergeWithinWhatEqualsOnTheirLeft) {
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

TEST_F(FlexGridOrder, AMergedCellIsPaintedAsOneWithItsTextOnTop) {
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

} // namespace velm
