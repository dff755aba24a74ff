// Fills, redraw, and rows that a source makes up.
#include "gridfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Mark = FlexGrid::Mark;
using FlexGridFill = GridTest;

class Paints : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// What was to be painted so far has been once a window that is shown after it has been.
void everythingIsPainted() {
    QWidget later;
    Paints paints;
    later.installEventFilter(&paints);
    later.show();
    EVENTUALLY(paints.count > 0);
}

} // namespace

TEST_F(FlexGridFill, NothingIsShownBeforeRedrawIsBackOn) {
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

TEST_F(FlexGridFill, OneRepaintShowsAWholeFill) {
    Paints paints;
    number(1);
    rowsWidget()->installEventFilter(&paints);
    do {
        paints.count = 0;
        everythingIsPainted();
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
    EVENTUALLY(paints.count > 0);
    everythingIsPainted();
    EXPECT_EQ(paints.count, 1);
    rowsWidget()->removeEventFilter(&paints);
}

TEST_F(FlexGridFill, ARowThatIsSetBeforeTheGridIsShownIsSeen) {
    FlexGrid other;
    other.setCols(1);
    for (int i = 1; i <= 100; ++i)
        other.addItem(QString::number(i));
    other.setRow(3);
    other.resize(300, 300);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    EXPECT_EQ(other.topRow(), 1);
    other.hide();
    other.setRow(90);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    EXPECT_GT(other.topRow(), 70);
    EXPECT_LE(other.topRow(), 90);
}

namespace {

class Growing : public GridSource {
public:
    explicit Growing(const int& count) : count_(count) {}
    int rowCount() const override { return count_; }
    QString text(int row, int column) const override { return QString::number(row + column); }
    bool sort(int, bool) override { return false; }
    std::optional<int> find(int, const QString& beginning, int from) const override {
        const int wanted = beginning.toInt();
        return wanted >= from && wanted < count_ ? wanted : -1;
    }

private:
    const int& count_;
};

} // namespace

TEST_F(FlexGridFill, ASourceThatGrowsOrShrinksIsSeenAfterRedraw) {
    int count = 10;
    grid.setCols(1);
    grid.setSource(std::make_unique<Growing>(count));
    grid.setRow(10);
    for (const int now : {50, 4, 0}) {
        count = now;
        grid.setRedraw(false);
        grid.setRedraw(true);
        EXPECT_EQ(grid.view()->model()->rowCount(), now);
        EXPECT_EQ(grid.row(), std::min(10, now));
        grid.grab();
    }
}

TEST_F(FlexGridFill, ASourceLooksItsRowsUpItself) {
    int count = 1000000;
    grid.setCols(1);
    grid.setSource(std::make_unique<Growing>(count));
    QTest::keyClicks(grid.view(), u"765432"_s);
    EXPECT_EQ(grid.row(), 765433);
    QTest::qWait(QApplication::keyboardInputInterval() + 20);
    QTest::keyClicks(grid.view(), u"7"_s);
    EXPECT_EQ(grid.row(), 8) << "from the first row again";
}

TEST_F(FlexGridFill, ANewFillIsShownFromItsFirstRow) {
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

TEST_F(FlexGridFill, AMillionRowsOfASourceAreAskedOnlyWhenSeen) {
    grid.setCols(2);
    auto owned = std::make_unique<Numbers>(1000000);
    Numbers& numbers = *owned;
    grid.setSource(std::move(owned));
    grid.grab();
    EXPECT_LT(numbers.asked, 500);
    EXPECT_EQ(grid.rows(), 1000001);
    EXPECT_EQ(grid.source(), &numbers);
    numbers.asked = 0;
    for (int row = 1; row <= 1000000; row += 10000) {
        grid.setTopRow(row);
        grid.grab();
    }
    key(Qt::Key_End);
    EXPECT_LT(numbers.asked, 110 * 200);
    EXPECT_EQ(range(), Range(1000000, 1000000));
    EXPECT_GT(grid.topRow(), 999900);
    EXPECT_EQ(grid.text(1000000, 1), u"1000000"_s);
    EXPECT_EQ(grid.text(1000001, 1), QString());
}

TEST_F(FlexGridFill, ASourceSortsItselfOrNotAtAll) {
    grid.setCols(2);
    grid.setSource(std::make_unique<Numbers>(1000));
    EXPECT_TRUE(grid.sort(0, true));
    EXPECT_EQ(grid.text(1, 1), u"1000"_s);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
    EXPECT_FALSE(grid.sort(1, true));
    EXPECT_EQ(grid.sortMark(1), Mark::None);
    EXPECT_EQ(grid.sortMark(0), Mark::Descending);
}

TEST_F(FlexGridFill, TheRowsOfASourceAreItsOwn) {
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

TEST_F(FlexGridFill, AColumnOfASourceIsItsOwnWhereverItStands) {
    grid.setCols(2);
    grid.setSource(std::make_unique<Numbers>(10));
    grid.setColPosition(0, 1);
    EXPECT_EQ(grid.text(3, 0), u"3"_s);
    EXPECT_TRUE(grid.sort(1, true));
    EXPECT_EQ(grid.text(1, 1), u"ligne 10"_s);
}

} // namespace velm
