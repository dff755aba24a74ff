#pragma once
// A grid in a window that nobody sees, with the keyboard on it.
#include "platform/widgets/grid/flexgrid.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTableView>

namespace velm {

class GridTest : public QuietTest {
protected:
    GridTest() {
        grid.resize(500, 300);
        grid.show();
        grid.setFocus();
        QApplication::setActiveWindow(&grid);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&grid));
        EXPECT_TRUE(grid.view()->hasFocus());
    }

    void fill(const std::vector<QStringList>& rows) {
        grid.setCols(rows.empty() ? 1 : static_cast<int>(rows.front().size()));
        grid.addItems(rows);
    }
    /// Rows "ligne 1", "ligne 2" and so on, with a second column.
    void number(int count) {
        std::vector<QStringList> rows;
        rows.reserve(static_cast<std::size_t>(count));
        for (int i = 1; i <= count; ++i)
            rows.push_back({QStringLiteral("ligne %1").arg(i), QString::number(i)});
        fill(rows);
    }
    QStringList column(int col) const {
        QStringList texts;
        for (int row = 1; row < grid.rows(); ++row)
            texts.append(grid.text(row, col));
        return texts;
    }
    QPoint pointOf(int row, int col) const {
        const QTableView& view = *grid.view();
        const int logical = view.horizontalHeader()->logicalIndex(col);
        return view.visualRect(view.model()->index(row - 1, logical)).center();
    }
    QPoint headerPoint(int col) const {
        const QHeaderView& header = *grid.view()->horizontalHeader();
        const int logical = header.logicalIndex(col);
        return {header.sectionViewportPosition(logical) + header.sectionSize(logical) / 2, header.height() / 2};
    }
    QWidget* rowsWidget() const { return grid.view()->viewport(); }
    QWidget* headerWidget() const { return grid.view()->horizontalHeader()->viewport(); }
    void key(Qt::Key code, Qt::KeyboardModifiers with = Qt::NoModifier) { QTest::keyClick(grid.view(), code, with); }
    void press(int row, int col, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::mouseClick(rowsWidget(), Qt::LeftButton, with, pointOf(row, col));
    }
    /// As a hand does it: a click, and the second press told as a double click.
    void pressTwice(QWidget* widget, const QPoint& at) {
        QTest::mouseClick(widget, Qt::LeftButton, {}, at);
        QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
    }
    using Range = std::pair<int, int>;
    Range range() const { return {grid.row(), grid.rowSel()}; }

    FlexGrid grid;
};

} // namespace velm
