#include "childareafixture.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace velm {

// ---- arrangements

TEST_F(ChildAreaTest, ACascadeLeavesEveryTitleInSightAndTheActiveOneInFront) {
    showFrame();
    const auto made = addShown(12);
    area->activate(made[4]);
    area->arrange(ChildArea::Arrangement::Cascade);
    EXPECT_EQ(area->activeChild(), made[4]);
    EXPECT_TRUE(made[4]->hasFocus());
    std::vector<QPoint> starts;
    for (Child* child : made) {
        EXPECT_TRUE(inside().contains(placeOf(child)));
        EXPECT_EQ(placeOf(child).width(), inside().width() * 7 / 10);
        EXPECT_EQ(std::count(starts.begin(), starts.end(), placeOf(child).topLeft()), 0);
        starts.push_back(placeOf(child).topLeft());
    }
    EXPECT_EQ(area->subWindowList(QMdiArea::StackingOrder).last(), area->around(made[4]));
}

TEST_F(ChildAreaTest, TilingFillsTheAreaToTheLastPixel) {
    showFrame();
    const auto made = addShown(3);
    area->arrange(ChildArea::Arrangement::TileHorizontal);
    int top = 0;
    for (Child* child : made) {
        EXPECT_EQ(placeOf(child).topLeft(), QPoint(0, top));
        EXPECT_EQ(placeOf(child).width(), inside().width());
        top += placeOf(child).height();
    }
    EXPECT_EQ(top, inside().height());
    area->arrange(ChildArea::Arrangement::TileVertical);
    int left = 0;
    for (Child* child : made) {
        EXPECT_EQ(placeOf(child).topLeft(), QPoint(left, 0));
        EXPECT_EQ(placeOf(child).height(), inside().height());
        left += placeOf(child).width();
    }
    EXPECT_EQ(left, inside().width());
    EXPECT_EQ(area->activeChild(), made[2]);
    EXPECT_TRUE(made[2]->hasFocus());
}

TEST_F(ChildAreaTest, TilesFollowTheAreaUntilOneIsMoved) {
    showFrame();
    const auto made = addShown(2);
    area->arrange(ChildArea::Arrangement::TileVertical);
    frame.resize(1001, 640);
    EVENTUALLY(placeOf(made[0]).width() + placeOf(made[1]).width() == 1001);
    EXPECT_EQ(placeOf(made[1]).height(), inside().height());
    area->around(made[1])->move(30, 40);
    const QRect moved = placeOf(made[1]);
    frame.resize(900, 600);
    EVENTUALLY(area->width() == 900);
    EXPECT_EQ(placeOf(made[1]), moved);
}

TEST_F(ChildAreaTest, ATileThatBecomesAnIconLeavesItsPlaceToTheOthersAndGetsItBack) {
    showFrame();
    const auto made = addShown(3);
    area->arrange(ChildArea::Arrangement::TileVertical);
    const QRect first = placeOf(made[0]);
    const QRect last = placeOf(made[2]);
    area->around(made[0])->showMinimized();
    EVENTUALLY(placeOf(made[1]).width() + placeOf(made[2]).width() == inside().width());
    EXPECT_EQ(placeOf(made[1]).height(), inside().height() - area->around(made[0])->height());
    EXPECT_FALSE(placeOf(made[0]).intersects(placeOf(made[1])));
    area->around(made[0])->showNormal();
    EVENTUALLY(placeOf(made[2]) == last);
    EXPECT_EQ(placeOf(made[0]), first);
}

TEST_F(ChildAreaTest, ATileThatFillsTheAreaAfterItWasAnIconGoesOnFillingIt) {
    showFrame();
    const auto made = addShown(3);
    area->arrange(ChildArea::Arrangement::TileVertical);
    const QRect last = placeOf(made[2]);
    area->around(made[0])->showMinimized();
    QApplication::processEvents();
    area->around(made[0])->showMaximized();
    QApplication::processEvents();
    EXPECT_TRUE(area->around(made[0])->isMaximized());
    area->around(made[0])->showNormal();
    EVENTUALLY(placeOf(made[2]) == last);
}

TEST_F(ChildAreaTest, AnIconBesideWindowsThatAreNoTilesMovesNone) {
    showFrame();
    const auto made = addShown(3);
    area->arrange(ChildArea::Arrangement::TileVertical);
    area->around(made[1])->move(30, 40);
    const QRect moved = placeOf(made[1]);
    const QRect last = placeOf(made[2]);
    area->around(made[0])->showMinimized();
    QApplication::processEvents();
    EXPECT_EQ(placeOf(made[1]), moved);
    EXPECT_EQ(placeOf(made[2]), last);
    area->arrange(ChildArea::Arrangement::TileVertical);
    const QRect tile = placeOf(made[1]);
    area->activate(add());
    area->around(made[0])->showNormal();
    QApplication::processEvents();
    EXPECT_EQ(placeOf(made[1]), tile) << "there are more windows than tiles";
}

TEST_F(ChildAreaTest, AWindowThatStoodInsideIsBroughtIntoASmallerArea) {
    showFrame();
    const auto made = addShown(2);
    area->around(made[0])->setGeometry(400, 100, 450, 300);
    area->around(made[1])->setGeometry(700, 50, 400, 300);
    frame.resize(700, 500);
    EVENTUALLY(area->width() == 700);
    EXPECT_EQ(placeOf(made[0]), QRect(250, 100, 450, 300));
    EXPECT_EQ(placeOf(made[1]), QRect(700, 50, 400, 300)) << "somebody has put it across the edge";
    frame.resize(900, 700);
    EVENTUALLY(area->width() == 900);
    EXPECT_EQ(placeOf(made[0]), QRect(400, 100, 450, 300)) << "and comes back";
}

TEST_F(ChildAreaTest, HiddenAndMinimisedWindowsAreNotArranged) {
    showFrame();
    const auto made = addShown(4);
    area->hideChild(made[0]);
    area->around(made[1])->showMinimized();
    const int icon = area->around(made[1])->height();
    area->activate(made[2]);
    area->arrange(ChildArea::Arrangement::TileVertical);
    EXPECT_TRUE(area->around(made[0])->isHidden());
    EXPECT_EQ(area->stateOf(made[1]), ChildArea::Minimised);
    EXPECT_EQ(placeOf(made[2]).width() + placeOf(made[3]).width(), inside().width());
    EXPECT_EQ(placeOf(made[2]).height(), inside().height() - icon);
}

TEST_F(ChildAreaTest, AMaximisedWindowIsArrangedWithTheOthers) {
    showFrame();
    const auto made = addShown(2);
    area->around(made[1])->showMaximized();
    area->arrange(ChildArea::Arrangement::TileHorizontal);
    EXPECT_EQ(area->stateOf(made[1]), ChildArea::Normal);
    EXPECT_EQ(placeOf(made[0]).height() + placeOf(made[1]).height(), inside().height());
    EXPECT_EQ(area->activeChild(), made[1]);
}

TEST_F(ChildAreaTest, TooManyWindowsKeepTheirLeastSizeAndTheAreaScrolls) {
    showFrame();
    const auto made = addShown(12);
    for (Child* child : made)
        child->setMinimumHeight(120);
    area->arrange(ChildArea::Arrangement::TileHorizontal);
    EVENTUALLY(area->verticalScrollBar()->maximum() > 0);
    for (Child* child : made)
        EXPECT_GE(child->height(), 120);
    EVENTUALLY(placeOf(made[0]).width() == inside().width());
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
}

TEST_F(ChildAreaTest, ArrangingNothingDoesNothing) {
    showFrame();
    for (const auto way : {ChildArea::Arrangement::Cascade, ChildArea::Arrangement::TileHorizontal,
                           ChildArea::Arrangement::TileVertical})
        area->arrange(way);
    EXPECT_EQ(area->activeChild(), nullptr);
    // Nor does it wait for the windows to come.
    addShown(1);
    frame.resize(frame.size() + QSize(60, 60));
    EXPECT_LT(area->around(area->children().front())->width(), area->viewport()->width());
}

// ---- keys

TEST_F(ChildAreaTest, KeysWalkTheWindows) {
    showFrame();
    const auto made = addShown(3);
    area->hideChild(made[1]);
    area->activate(made[2]);
    key(Qt::Key_Tab);
    EXPECT_EQ(area->activeChild(), made[0]);
    EXPECT_TRUE(made[0]->hasFocus());
    key(Qt::Key_Tab);
    EXPECT_EQ(area->activeChild(), made[2]);
    key(Qt::Key_F6);
    EXPECT_EQ(area->activeChild(), made[0]);
    key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(area->activeChild(), made[2]);
    EXPECT_TRUE(made[0]->toPlainText().isEmpty());
    EXPECT_TRUE(made[2]->toPlainText().isEmpty());
}

TEST_F(ChildAreaTest, KeysCloseTheActiveWindowAndNoOther) {
    showFrame();
    const auto made = addShown(3);
    key(Qt::Key_F4);
    EXPECT_EQ(area->activeChild(), made[1]);
    key(Qt::Key_W);
    EXPECT_EQ(area->activeChild(), made[0]);
    made[0]->refuses = true;
    key(Qt::Key_W);
    EXPECT_EQ(area->activeChild(), made[0]);
    EXPECT_EQ(made[0]->asked, 1);
    EXPECT_EQ(area->children().size(), 1u);
}

TEST_F(ChildAreaTest, KeysOfOtherWindowsAreLeftAlone) {
    showFrame();
    const auto made = addShown(2);
    QTextEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    QTest::keyClick(&other, Qt::Key_W, Qt::ControlModifier);
    QTest::keyClick(&other, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(area->activeChild(), made[1]);
    EXPECT_EQ(area->children().size(), 2u);
}

// ---- background

TEST_F(ChildAreaTest, ThePictureLiesInTheMiddleOverTheColour) {
    showFrame();
    QPixmap picture(100, 60);
    picture.fill(Qt::red);
    area->setBack(picture, QColor(0xC0, 0xFF, 0xFF));
    EXPECT_EQ(area->backColour(), QColor(0xC0, 0xFF, 0xFF));
    EXPECT_EQ(area->backPicture().size(), QSize(100, 60));
    const auto pixel = [this](QPoint from) {
        return area->viewport()->grab().toImage().pixelColor(inside().center() + from);
    };
    EXPECT_EQ(pixel({0, 0}), QColor(Qt::red));
    EXPECT_EQ(pixel({-48, -28}), QColor(Qt::red));
    EXPECT_EQ(pixel({-53, 0}), QColor(0xC0, 0xFF, 0xFF));
    EXPECT_EQ(pixel({0, 33}), QColor(0xC0, 0xFF, 0xFF));
    area->setBack({}, QColor(Qt::white));
    EXPECT_EQ(pixel({0, 0}), QColor(Qt::white));
}

TEST_F(ChildAreaTest, APictureLargerThanTheAreaIsClippedAroundItsMiddle) {
    showFrame();
    QPixmap picture(3000, 3000);
    picture.fill(Qt::blue);
    QPainter(&picture).fillRect(1490, 1490, 20, 20, Qt::red);
    area->setBack(picture, Qt::white);
    const QImage shown = area->viewport()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(inside().center()), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(ChildAreaTest, AFinePictureTakesItsLogicalSize) {
    showFrame();
    QPixmap picture(200, 200);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::red);
    area->setBack(picture, Qt::white);
    const QImage shown = area->viewport()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(inside().center() + QPoint(45, 45)), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(inside().center() + QPoint(55, 0)), QColor(Qt::white));
}

} // namespace velm
