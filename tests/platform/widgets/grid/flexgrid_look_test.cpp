// How the grid looks: pictures in cells, and headers.
#include "gridfixture.h"
#include "platform/widgets/look/look.h"

#include <QPainter>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using FlexGridLook = GridTest;

constexpr QColor pictured(200, 30, 160);

QIcon coloured() {
    QPixmap square(32, 32);
    square.fill(pictured);
    return QIcon(square);
}

} // namespace

TEST_F(FlexGridLook, ACellMayShowAPictureForItsText) {
    fill({{u"b"_s, u"CO"_s}, {u"a"_s, u"JP"_s}, {u"c"_s, QString()}});
    const auto seen = [this](int row) {
        const QImage rows = rowsWidget()->grab().toImage();
        return rows.pixelColor(pointOf(row, 1)) == pictured;
    };
    EXPECT_FALSE(seen(1));
    grid.setColPicture(1, [](const QString& text) { return text == u"CO" ? coloured() : QIcon(); });
    EXPECT_TRUE(seen(1));
    EXPECT_FALSE(seen(2)) << "where there is none, the text";
    grid.setColPosition(1, 0);
    const QImage moved = rowsWidget()->grab().toImage();
    EXPECT_EQ(moved.pixelColor(pointOf(1, 0)), pictured) << "it moves with its column";
    // The text is what it was for all else.
    grid.sort(0, false);
    EXPECT_EQ(column(0), (QStringList{QString(), u"CO"_s, u"JP"_s}));
    grid.setRow(2);
    EXPECT_EQ(grid.clip(), u"CO\tb"_s);
    grid.setColPicture(0, {});
    EXPECT_NE(rowsWidget()->grab().toImage().pixelColor(pointOf(2, 0)), pictured);
    grid.setColPicture(7, [](const QString&) { return coloured(); });
}

TEST_F(FlexGridLook, APictureMayStandBeforeTheTextForWhatAnotherColumnHas) {
    fill({{u"b"_s, u"CO"_s}, {u"a"_s, u"JP"_s}});
    const auto seen = [this](int row, int above = 0) {
        const QImage rows = rowsWidget()->grab().toImage();
        const int y = pointOf(row, grid.cols() - 1).y() - above;
        for (int x = 0; x < rows.width(); ++x) {
            if (rows.pixelColor(x, y) == pictured)
                return x;
        }
        return -1;
    };
    EXPECT_EQ(seen(1), -1);
    grid.setColPicture(
        1, [](const QString& text) { return text == u"CO" ? coloured() : QIcon(); }, 0);
    EXPECT_EQ(seen(1), 8) << "where the text stood";
    EXPECT_EQ(seen(2), -1);
    EXPECT_EQ(grid.text(1, 1), u"CO");
    EXPECT_NE(rowsWidget()->grab().toImage().pixelColor(pointOf(1, 1)), pictured) << "that column shows its text";
    // Both may stand elsewhere by then.
    grid.setColPosition(1, 0);
    EXPECT_NE(rowsWidget()->grab().toImage().pixelColor(pointOf(1, 0)), pictured);
    grid.setNarrowBelow(4000);
    grid.setColWeight(0, 1);
    grid.setColWeight(1, 2);
    EXPECT_EQ(grid.view()->columnWidth(0), grid.view()->viewport()->width());
    EXPECT_EQ(seen(1, 8), 8) << "also over a second line";
    EXPECT_EQ(seen(1, -12), -1) << "which begins where the text does";
    grid.setColPicture(
        0, [](const QString&) { return coloured(); }, 9);
    grid.setCols(1);
    EXPECT_EQ(seen(1), -1) << "without the other column there is none";
}

TEST_F(FlexGridLook, AMarkedRowIsHeavierInTheAccentsInkOnAGroundOfItsOwn) {
    fill({{u"HHHHHHHH"_s, u"x"_s}, {u"HHHHHHHH"_s, u"y"_s}, {u"HHHHHHHH"_s, u"z"_s}});
    const auto rowOf = [this](int row) {
        const QRect place = grid.view()->visualRect(grid.view()->model()->index(row - 1, 0));
        return rowsWidget()->grab(place.adjusted(0, 0, 0, -2)).toImage();
    };
    // The ground at the right end, where no text is; the darkest of the text.
    const auto ground = [](const QImage& image) { return image.pixelColor(image.width() - 2, image.height() / 2); };
    const auto ink = [](const QImage& image) {
        int pixels = 0;
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixelColor(x, image.height() / 2).lightness() < 140 ? 1 : 0;
        return pixels;
    };
    const QImage plain = rowOf(2);
    grid.setMarked(2);
    EXPECT_EQ(grid.marked(), 2);
    const QImage marked = rowOf(2);
    EXPECT_EQ(ground(marked), look::chosenGround(grid.palette()));
    EXPECT_NE(ground(plain), ground(marked));
    EXPECT_GT(ink(marked), ink(plain));
    EXPECT_EQ(rowOf(1), rowOf(3)) << "it alone";
    EXPECT_EQ(ground(rowOf(1)), ground(plain));
    const QImage beside = rowsWidget()->grab().toImage();
    EXPECT_EQ(beside.pixelColor(beside.width() - 2, pointOf(2, 0).y()), ground(marked)) << "to the end of the row";
    EXPECT_EQ(grid.row(), 0) << "not selected";
    grid.setRow(2);
    const QImage selected = rowOf(2);
    grid.setRow(1);
    EXPECT_NE(ground(selected), ground(marked)) << "selected, it looks selected";
    EXPECT_EQ(rowOf(2), marked);
    grid.setMarked(9);
    EXPECT_EQ(grid.marked(), 3) << "as other row numbers";
    grid.setMarked(-4);
    EXPECT_EQ(grid.marked(), 0);
}

TEST_F(FlexGridLook, AMarkGoesWithTheOrderOfItsRows) {
    number(3);
    grid.setMarked(2);
    grid.sort(0, true);
    EXPECT_EQ(grid.marked(), 0);
    grid.setMarked(2);
    grid.setSource(nullptr);
    EXPECT_EQ(grid.marked(), 0);
}

TEST_F(FlexGridLook, ARowOutOfSightIsBroughtIntoTheMiddleAndOneInSightStays) {
    number(200);
    const int page = rowsWidget()->height() / grid.view()->rowHeight(0);
    grid.bringIntoSight(3);
    EXPECT_EQ(grid.topRow(), 1);
    grid.bringIntoSight(100);
    EXPECT_EQ(grid.topRow(), 100 - page / 2);
    grid.bringIntoSight(grid.topRow() + page - 1);
    EXPECT_EQ(grid.topRow(), 100 - page / 2);
    grid.bringIntoSight(grid.topRow() + page);
    EXPECT_NE(grid.topRow(), 100 - page / 2) << "half in sight is out of sight";
    for (const int nowhere : {0, -1, 201}) {
        const int before = grid.topRow();
        grid.bringIntoSight(nowhere);
        EXPECT_EQ(grid.topRow(), before);
    }
}

namespace {

/// The first and the last column of pixels that differ from the ground.
std::pair<int, int> inked(const QImage& image) {
    int first = -1;
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) == image.pixelColor(0, 0))
                continue;
            first = first < 0 ? x : first;
            last = x;
        }
    }
    return {first, last};
}

} // namespace

TEST_F(FlexGridLook, HeadersStandOnTheEdgeOfTheirCellsInTheTypeOfTheList) {
    fill({{u"Hache"_s, u"Hache"_s}});
    grid.setColWidth(0, 3000);
    grid.setHeader(0, u"Hache"_s);
    const auto header = [this] {
        return headerWidget()->grab(QRect(0, 3, 190, headerWidget()->height() - 8)).toImage();
    };
    const int cell = inked(rowsWidget()->grab(QRect(0, 3, 190, grid.view()->rowHeight(0) - 6)).toImage()).first;
    EXPECT_NEAR(inked(header()).first, cell, 1);
    EXPECT_LT(inked(header()).second, 120);
    const int high = grid.view()->horizontalHeader()->sizeHint().height();
    EXPECT_NEAR(high, grid.view()->rowHeight(0) + 4, 2) << "one size";
    // The mark stands at the right, wherever the text ends.
    grid.setSortMark(0, FlexGrid::Mark::Ascending);
    EXPECT_NEAR(inked(header()).first, cell, 1);
    EXPECT_GT(inked(header()).second, 180);
    grid.setColAlignment(0, FlexGrid::Align::Right);
    grid.setSortMark(0, FlexGrid::Mark::None);
    EXPECT_GT(inked(header()).second, 180);
    EXPECT_GT(inked(header()).first, 100);
}

} // namespace velm
