// How columns share the width of the list, and what a narrow list shows.
#include "gridfixture.h"
#include "platform/base/twips.h"

#include <QClipboard>
#include <QScrollBar>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class FlexGridWidth : public GridTest {
protected:
    FlexGridWidth() {
        grid.resize(1000, 300);
        fill(
            {{u"Un titre"_s, u"bail"_s, u"loyer"_s, u"000001"_s}, {u"Un autre"_s, u"vente"_s, QString(), u"000002"_s}});
        for (int col = 0; col < 4; ++col) {
            grid.setColWidth(col, 1500);
            grid.setHeader(col, QString(QChar(u'A' + col)));
        }
        grid.setColWeight(0, 3);
        grid.setColWeight(1, 2);
        grid.setColWeight(2, 2);
    }
    int shown(int col) const {
        const QTableView& view = *grid.view();
        return view.columnWidth(view.horizontalHeader()->logicalIndex(col));
    }
    int together() const { return shown(0) + shown(1) + shown(2) + shown(3); }
    /// As a hand does it: the right edge of a column moves.
    void drag(int col, int by) const {
        const QHeaderView& header = *grid.view()->horizontalHeader();
        const int logical = header.logicalIndex(col);
        const QPoint edge(header.sectionViewportPosition(logical) + header.sectionSize(logical) - 1,
                          header.height() / 2);
        QTest::mousePress(headerWidget(), Qt::LeftButton, {}, edge);
        QTest::mouseMove(headerWidget(), edge + QPoint(by, 0));
        QTest::mouseRelease(headerWidget(), Qt::LeftButton, {}, edge + QPoint(by, 0));
    }
    bool ink(const QRect& where) const {
        const QImage rows = rowsWidget()->grab(where).toImage();
        for (int y = 0; y < rows.height(); ++y) {
            for (int x = 0; x < rows.width(); ++x) {
                if (rows.pixelColor(x, y) != grid.palette().color(QPalette::Base))
                    return true;
            }
        }
        return false;
    }
};

} // namespace

TEST_F(FlexGridWidth, AColumnHasRoomForItsWidestTextUntilSomebodyHoldsIt) {
    const QString longest = u"septembre et davantage"_s;
    grid.setColWidth(3, 300);
    grid.setHeader(3, u"D"_s, longest);
    EXPECT_GE(shown(3), grid.view()->fontMetrics().horizontalAdvance(longest));
    EXPECT_EQ(grid.colWidth(3), 300) << "its own width stays";
    EXPECT_EQ(together(), grid.view()->viewport()->width()) << "the others share the rest";
    grid.setHeader(3, u"D"_s, u"x"_s);
    EXPECT_GE(shown(3), pixelsFromTwips(300)) << "never less than its own";
    grid.setHeader(3, u"D"_s, longest);
    drag(3, -40);
    const int held = shown(3);
    EXPECT_EQ(grid.colWidth(3), twipsFromPixels(held));
    grid.setHeader(3, u"D"_s, longest);
    EXPECT_EQ(shown(3), held);
}

TEST_F(FlexGridWidth, TheWidestTextIsShownWholeInWhateverSize) {
    for (const double size : {7.0, 8.25, 9.0, 9.3, 10.7, 12.1}) {
        QFont font = grid.font();
        font.setPointSizeF(size);
        grid.setFont(font);
        for (const auto& month : {u"September"_s, u"septembre"_s, u"décembre"_s, u"February"_s}) {
            grid.setColWidth(3, 300);
            grid.setHeader(3, u"D"_s, month);
            const QFontMetrics metrics = grid.view()->fontMetrics();
            EXPECT_GT(shown(3), metrics.horizontalAdvance(month) + 16) << size << ' ' << month.toStdString();
        }
    }
}

TEST_F(FlexGridWidth, HeadersOfSharedColumnsAreWholeWhereThereIsRoomForAll) {
    const QStringList headers{u"Intitulé du document"_s, u"Mot clé 1"_s, u"Mot clé 2"_s};
    for (int col = 0; col < 3; ++col)
        grid.setHeader(col, headers[col]);
    QFont heavy = grid.view()->horizontalHeader()->font();
    heavy.setWeight(QFont::DemiBold);
    const auto needed = [&](int col) { return QFontMetrics(heavy).horizontalAdvance(headers[col]) + 16; };
    grid.setColWeight(0, 20);
    for (const int width : {1000, 700, 520}) {
        grid.resize(width, 300);
        for (int col = 0; col < 3; ++col)
            EXPECT_GE(shown(col), needed(col)) << headers[col].toStdString() << ' ' << width;
        EXPECT_EQ(together(), rowsWidget()->width());
    }
    grid.resize(350, 300);
    EXPECT_EQ(grid.view()->horizontalScrollBar()->maximum(), 0) << "no bar for the sake of headers";
}

TEST_F(FlexGridWidth, ACellOfAFewLettersIsCutAtItsEndAndAWiderOneInItsMiddle) {
    grid.setRows(1);
    fill({{u"Dispositions générales du livre premier"_s}, {u"Dispositions générales du livre second"_s}});
    const auto equal = [this](int width) {
        grid.setColWidth(0, twipsFromPixels(width));
        grid.setColHeld(0, true);
        const auto cell = [&](int row) {
            const QRect place(0, grid.view()->rowViewportPosition(row - 1), width, grid.view()->rowHeight(row - 1));
            return rowsWidget()->grab(place).toImage();
        };
        return cell(1) == cell(2);
    };
    EXPECT_TRUE(equal(70)) << "the beginning";
    EXPECT_FALSE(equal(200)) << "both ends";
}

TEST_F(FlexGridWidth, ColumnsWithAWeightShareWhatTheOthersLeave) {
    for (const int width : {1000, 1400, 611}) {
        grid.resize(width, 300);
        EXPECT_EQ(shown(3), 100);
        EXPECT_EQ(together(), rowsWidget()->width()) << width;
        EXPECT_NEAR(shown(0) * 2, shown(1) * 3, 6);
        EXPECT_NEAR(shown(1), shown(2), 1);
        EXPECT_EQ(grid.view()->horizontalScrollBar()->maximum(), 0);
    }
    grid.setColWidth(2, 0);
    EXPECT_EQ(together(), rowsWidget()->width()) << "a hidden one has no share";
    EXPECT_EQ(shown(2), 0);
}

TEST_F(FlexGridWidth, WhatAColumnHasOfTheFreeWidthIsNotItsOwn) {
    for (int col = 0; col < 4; ++col)
        EXPECT_EQ(grid.colWidth(col), 1500) << col;
    grid.setColWeight(0, 0);
    EXPECT_EQ(shown(0), 100);
    EXPECT_EQ(together(), rowsWidget()->width());
}

TEST_F(FlexGridWidth, AColumnThatTheUserDragsKeepsItsWidthAndTheOnesBehindItShareTheRest) {
    const int first = shown(0);
    drag(1, 60);
    const int dragged = shown(1);
    EXPECT_EQ(grid.colWidth(1), twipsFromPixels(dragged));
    EXPECT_EQ(shown(0), first) << "what lies before the hand stays";
    EXPECT_EQ(together(), rowsWidget()->width());
    EXPECT_EQ(grid.colWidth(0), 1500) << "nobody has touched it";
    EXPECT_EQ(grid.colWidth(2), 1500);
    grid.resize(1300, 300);
    EXPECT_EQ(shown(1), dragged);
    EXPECT_EQ(together(), rowsWidget()->width());
}

TEST_F(FlexGridWidth, AHeldColumnKeepsItsOwnWidth) {
    grid.setColHeld(0, true);
    EXPECT_EQ(shown(0), 100);
    EXPECT_EQ(together(), rowsWidget()->width());
    grid.setColHeld(0, false);
    EXPECT_GT(shown(0), 300);
}

TEST_F(FlexGridWidth, OnlyTheHeaviestTakesMoreThanItsTextsNeed) {
    EXPECT_GT(shown(1), 200);
    grid.fitShares();
    const int needed = shown(1);
    EXPECT_LT(needed, 120);
    EXPECT_GT(needed, grid.fontMetrics().horizontalAdvance(u"vente"_s));
    EXPECT_LT(shown(2), needed + 20);
    EXPECT_EQ(together(), rowsWidget()->width()) << "the title has the rest";
    grid.setHeader(2, u"Un intitulé de plus de lettres"_s);
    grid.fitShares();
    EXPECT_GT(shown(2), grid.fontMetrics().horizontalAdvance(grid.header(2)));
    grid.sort(1, true);
    EXPECT_EQ(shown(1), needed) << "an order changes no width";
    grid.setText(1, 1, u"un mot clé bien plus long que l’autre"_s);
    EXPECT_EQ(shown(1), needed);
    grid.fitShares();
    EXPECT_GT(shown(1), grid.fontMetrics().horizontalAdvance(grid.text(1, 1)));
    grid.setText(2, 0, u"Un titre "_s.repeated(60));
    grid.fitShares();
    EXPECT_GT(shown(0), 3 * shown(1) / 2) << "it has its share at least";
    EXPECT_EQ(together(), rowsWidget()->width());
    drag(0, -100);
    EXPECT_EQ(together(), rowsWidget()->width()) << "of what lies behind the hand, the last has the rest";
    grid.setColHeld(0, false);
    grid.setRows(1);
    grid.fitShares();
    EXPECT_GT(shown(1), 200) << "without rows, by their weights alone";
    EXPECT_EQ(together(), rowsWidget()->width());
}

TEST_F(FlexGridWidth, WhoeverWidensAColumnMakesNoNarrowListOfIt) {
    grid.setNarrowBelow(420);
    grid.resize(560, 300);
    drag(3, 100);
    EXPECT_EQ(shown(3), 200);
    EXPECT_GT(shown(1), 0);
}

TEST_F(FlexGridWidth, AMovedColumnTakesItsShareAlong) {
    const int first = shown(0);
    grid.setColPosition(0, 2);
    EXPECT_NEAR(shown(2), first, 1);
    EXPECT_EQ(together(), rowsWidget()->width());
}

TEST_F(FlexGridWidth, ANarrowListShowsTheHeaviestColumnOverItsWholeWidthInRowsOfTwoLines) {
    grid.setNarrowBelow(420);
    const int one = grid.view()->rowHeight(0);
    grid.setColPosition(0, 3);
    std::vector<bool> told;
    QObject::connect(&grid, &FlexGrid::narrowChanged, &grid, [&] { told.push_back(grid.isNarrow()); });
    grid.resize(300, 300);
    EXPECT_EQ(shown(3), rowsWidget()->width());
    EXPECT_EQ(shown(0) + shown(1) + shown(2), 0);
    EXPECT_GT(grid.view()->rowHeight(0), one + grid.fontMetrics().height() - 2);
    EXPECT_EQ(grid.view()->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(grid.colWidth(0), 1500) << "widths are what they were";
    grid.resize(520, 300);
    EXPECT_EQ(grid.view()->rowHeight(0), one) << "the column without a weight has 100 of it";
    EXPECT_EQ(together(), rowsWidget()->width());
    EXPECT_GT(shown(0), 0);
    grid.resize(519, 300);
    EXPECT_EQ(shown(3), rowsWidget()->width());
    grid.setNarrowBelow(0);
    EXPECT_EQ(grid.view()->rowHeight(0), one);
    EXPECT_EQ(told, (std::vector{true, false, true, false}));
}

TEST_F(FlexGridWidth, TheSecondLineHoldsTheOtherTextsWithAWeight) {
    grid.setNarrowBelow(420);
    grid.resize(300, 300);
    const int height = grid.view()->rowHeight(0);
    const QRect below(0, height / 2 + 3, rowsWidget()->width(), height / 2 - 6);
    EXPECT_TRUE(ink(below));
    grid.setText(1, 1, QString());
    grid.setText(1, 2, QString());
    EXPECT_FALSE(ink(below)) << "the number has no weight";
    grid.setText(1, 2, u"loyer"_s);
    EXPECT_TRUE(ink(QRect(0, below.top(), 60, below.height()))) << "no gap where a text is empty";
    grid.setText(1, 0, QString());
    EXPECT_TRUE(ink(below)) << "a row without a title";
}

TEST_F(FlexGridWidth, ANarrowListMergesNothingAndCopiesAllColumns) {
    grid.setText(2, 0, u"Un titre"_s);
    grid.setMergeCells(true);
    ASSERT_TRUE(grid.joinsAbove(2, 0));
    grid.setNarrowBelow(420);
    grid.resize(300, 300);
    EXPECT_FALSE(grid.joinsAbove(2, 0));
    EXPECT_TRUE(grid.mergeCells());
    grid.setRow(1);
    QTest::keyClick(grid.view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"Un titre\tbail\tloyer\t000001"_s);
    grid.resize(900, 300);
    EXPECT_TRUE(grid.joinsAbove(2, 0));
}

TEST_F(FlexGridWidth, TheSelectedRowStaysInSightWhenRowsBecomeTaller) {
    number(200);
    grid.setNarrowBelow(420);
    const int page = rowsWidget()->height() / grid.view()->rowHeight(0);
    grid.setRow(page - 1);
    grid.resize(300, 300);
    EXPECT_GE(grid.row(), grid.topRow());
    EXPECT_LE((grid.row() - grid.topRow() + 1) * grid.view()->rowHeight(0), rowsWidget()->height());
}

TEST_F(FlexGridWidth, AListOfNothingSaysWhy) {
    grid.setEmptyText(u"Rien ici."_s);
    const QRect first(0, 0, rowsWidget()->width(), grid.view()->verticalHeader()->defaultSectionSize());
    grid.setRows(1);
    EXPECT_TRUE(ink(first));
    grid.setEmptyText({});
    EXPECT_FALSE(ink(first));
    grid.setEmptyText(u"Rien ici."_s);
    grid.addItem(u"\t\t\t"_s);
    EXPECT_FALSE(ink(first.adjusted(0, 0, 0, -1))) << "beside a row it says nothing";
}

} // namespace velm
