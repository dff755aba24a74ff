#include "platform/text/twips.h"
#include "platform/widgets/childarea.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include <array>
#include <climits>
#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A child that may refuse to close, and remembers the sizes in which it was painted.
class Child : public QTextEdit {
public:
    bool refuses = false;
    int asked = 0;
    std::vector<QSize> painted;

protected:
    void closeEvent(QCloseEvent* event) override {
        ++asked;
        event->setAccepted(!refuses);
    }
    void paintEvent(QPaintEvent* event) override {
        painted.push_back(size());
        QTextEdit::paintEvent(event);
    }
};

class ChildAreaTest : public testing::Test {
protected:
    ChildAreaTest() {
        frame.menuBar()->addMenu(u"Fichier"_s);
        area = new ChildArea(&frame);
        frame.setCentralWidget(area);
        frame.resize(900, 700);
    }

    void showFrame() {
        frame.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&frame));
        frame.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
    }

    Child* add(const QString& title = u"Fenêtre"_s) {
        auto* child = new Child;
        child->setWindowTitle(title);
        area->add(child);
        return child;
    }
    std::vector<Child*> addShown(int count) {
        std::vector<Child*> all;
        for (int index = 1; index <= count; ++index) {
            all.push_back(add(u"Fenêtre %1"_s.arg(index)));
            area->place(all.back(), ChildArea::Normal, 0, 0, 0, 0);
            area->activate(all.back());
        }
        return all;
    }
    QRect placeOf(QWidget* child) const { return area->around(child)->geometry(); }
    QRect inside() const { return area->viewport()->rect(); }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code), modifiers);
    }

    QMainWindow frame;
    ChildArea* area = nullptr;
};

} // namespace

// ---- making, showing, hiding, closing

TEST_F(ChildAreaTest, AnAddedChildIsHiddenUntilItIsActivated) {
    showFrame();
    Child* child = add(u"Code du travail"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(child->isVisible());
    EXPECT_EQ(area->activeChild(), nullptr);
    area->activate(child);
    EXPECT_TRUE(child->isVisible());
    EXPECT_EQ(area->activeChild(), child);
    EXPECT_TRUE(child->hasFocus());
    EXPECT_EQ(area->around(child)->windowTitle(), u"Code du travail");
    child->setWindowTitle(u"Article 2"_s);
    EXPECT_EQ(area->around(child)->windowTitle(), u"Article 2");
}

TEST_F(ChildAreaTest, AddingTwiceGivesTheSameFrame) {
    Child* child = add();
    EXPECT_EQ(area->add(child), area->around(child));
    EXPECT_EQ(area->children().size(), 1u);
    QWidget foreign;
    EXPECT_EQ(area->around(&foreign), nullptr);
    EXPECT_EQ(area->around(nullptr), nullptr);
}

TEST_F(ChildAreaTest, ChildrenStandInTheOrderOfTheirMaking) {
    showFrame();
    const auto made = addShown(4);
    area->activate(made[1]);
    area->hideChild(made[2]);
    EXPECT_EQ(area->children(), (std::vector<QWidget*>{made[0], made[1], made[2], made[3]}));
}

TEST_F(ChildAreaTest, HidingActivatesTheOneUsedBefore) {
    showFrame();
    const auto made = addShown(3);
    area->activate(made[0]);
    const QSignalSpy told(area, &ChildArea::childActivated);
    area->hideChild(made[0]);
    EXPECT_EQ(area->activeChild(), made[2]);
    EXPECT_TRUE(made[2]->hasFocus());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ChildAreaTest, TheLastOneHiddenLeavesNoneActive) {
    showFrame();
    const auto made = addShown(2);
    const QSignalSpy told(area, &ChildArea::childActivated);
    area->hideChild(made[0]);
    EXPECT_EQ(told.count(), 0);
    area->hideChild(made[1]);
    EXPECT_EQ(area->activeChild(), nullptr);
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.at(0).at(0).value<QWidget*>(), nullptr);
    area->activate(made[1]);
    EXPECT_EQ(area->activeChild(), made[1]);
    EXPECT_TRUE(made[1]->isVisible());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(ChildAreaTest, ADialogueInFrontChangesNothingOfTheActiveChild) {
    showFrame();
    const auto made = addShown(2);
    const QSignalSpy told(area, &ChildArea::childActivated);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(area->activeChild(), made[1]);
    frame.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    EXPECT_EQ(area->activeChild(), made[1]);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(ChildAreaTest, AClosedChildIsDeletedAndTheNextOneActive) {
    showFrame();
    const auto made = addShown(2);
    const QPointer<QWidget> gone(made[1]);
    EXPECT_TRUE(area->around(made[1])->close());
    EXPECT_EQ(area->activeChild(), made[0]);
    EVENTUALLY(gone.isNull());
    EXPECT_EQ(area->children(), std::vector<QWidget*>{made[0]});
}

TEST_F(ChildAreaTest, AChildThatClosesItselfTakesItsFrameAlongAfterOneQuestion) {
    showFrame();
    const auto made = addShown(2);
    made[1]->refuses = true;
    EXPECT_FALSE(made[1]->close());
    EXPECT_EQ(made[1]->asked, 1);
    EXPECT_TRUE(made[1]->isVisible());
    made[1]->refuses = false;
    const QPointer<QWidget> gone(made[1]);
    const QPointer<QMdiSubWindow> around(area->around(made[1]));
    EXPECT_TRUE(made[1]->close());
    EXPECT_EQ(made[1]->asked, 2);
    EVENTUALLY(gone.isNull() && around.isNull());
    EXPECT_EQ(area->activeChild(), made[0]);
}

TEST_F(ChildAreaTest, AChildThatHidesOrDiesTakesItsFrameAlong) {
    showFrame();
    const auto made = addShown(3);
    made[2]->hide();
    EVENTUALLY(area->around(made[2])->isHidden());
    area->activate(made[2]);
    EXPECT_TRUE(made[2]->isVisible());
    const QPointer<QMdiSubWindow> around(area->around(made[1]));
    delete made[1];
    EVENTUALLY(around.isNull());
    EXPECT_EQ(area->children().size(), 2u);
}

// ---- places and states

TEST_F(ChildAreaTest, APlaceIsGivenBackInTwips) {
    showFrame();
    Child* child = add();
    area->place(child, ChildArea::Normal, 300, 450, 6000, 4500);
    area->activate(child);
    EXPECT_EQ(placeOf(child), QRect(20, 30, 400, 300));
    EXPECT_EQ(area->twipsOf(child), QRect(300, 450, 6000, 4500));
    EXPECT_EQ(area->stateOf(child), ChildArea::Normal);
}

TEST_F(ChildAreaTest, NonsenseGivesAWindowThatCanBeReached) {
    showFrame();
    const std::vector<std::array<int, 4>> nonsense{{-1000000, -1000000, -5, -5},
                                                   {1000000, 1000000, 1000000, 1000000},
                                                   {0, 1000000, 6000, 1},
                                                   {INT_MIN, INT_MAX, INT_MAX, INT_MIN}};
    for (const auto& [left, top, width, height] : nonsense) {
        Child* child = add();
        area->place(child, 7, left, top, width, height);
        area->activate(child);
        const QRect place = placeOf(child);
        EXPECT_TRUE(inside().contains(place)) << place.x() << ' ' << place.y();
        EXPECT_GE(place.height(), area->around(child)->minimumSizeHint().height());
        EXPECT_EQ(area->stateOf(child), ChildArea::Normal);
    }
}

TEST_F(ChildAreaTest, WithoutAStoredSizeWindowsTakeTwoThirdsAndDoNotHideEachOther) {
    showFrame();
    const auto made = addShown(3);
    for (Child* child : made) {
        EXPECT_EQ(placeOf(child).width(), inside().width() * 2 / 3);
        EXPECT_EQ(placeOf(child).height(), inside().height() * 2 / 3);
    }
    EXPECT_EQ(placeOf(made[1]).topLeft() - placeOf(made[0]).topLeft(), QPoint(cascadeStep, cascadeStep));
}

TEST_F(ChildAreaTest, PlacesWishedBeforeTheFrameHasItsSizeAreKept) {
    frame.resize(300, 250);
    Child* child = add();
    area->place(child, ChildArea::Normal, 1500, 1500, 7500, 6000);
    area->activate(child);
    showFrame();
    frame.resize(900, 700);
    EVENTUALLY(placeOf(child) == QRect(100, 100, 500, 400));
    // Moved by hand it stays where it is.
    area->around(child)->move(0, 0);
    frame.resize(1000, 800);
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOf(child), QRect(0, 0, 500, 400));
}

TEST_F(ChildAreaTest, AMaximisedChildIsShownAtOnceInItsSize) {
    showFrame();
    Child* child = add();
    area->place(child, ChildArea::Maximised, 0, 0, 6000, 4500);
    EXPECT_EQ(area->stateOf(child), ChildArea::Maximised);
    EXPECT_FALSE(child->isVisible());
    area->activate(child);
    EVENTUALLY(!child->painted.empty());
    EXPECT_EQ(area->stateOf(child), ChildArea::Maximised);
    EXPECT_EQ(placeOf(child), inside());
    for (const QSize& size : child->painted)
        EXPECT_EQ(size, child->size());
    area->around(child)->showNormal();
    EXPECT_EQ(placeOf(child).size(), QSize(400, 300));
}

TEST_F(ChildAreaTest, MaximisedBeforeTheFrameIsShownFillsTheArea) {
    Child* child = add();
    area->place(child, ChildArea::Maximised, 0, 0, 6000, 4500);
    area->activate(child);
    showFrame();
    EVENTUALLY(placeOf(child) == inside());
    EXPECT_EQ(area->stateOf(child), ChildArea::Maximised);
    EXPECT_EQ(area->activeChild(), child);
    frame.resize(1000, 800);
    EVENTUALLY(placeOf(child) == inside());
}

TEST_F(ChildAreaTest, AMaximisedChildKeepsTheNextOneMaximised) {
    showFrame();
    const auto made = addShown(2);
    area->around(made[1])->showMaximized();
    Child* third = add();
    area->place(third, ChildArea::Normal, 0, 0, 6000, 4500);
    area->activate(third);
    EXPECT_EQ(area->stateOf(third), ChildArea::Maximised);
    area->activate(made[0]);
    EXPECT_EQ(area->stateOf(made[0]), ChildArea::Maximised);
    area->hideChild(made[0]);
    EXPECT_EQ(area->stateOf(area->activeChild()), ChildArea::Maximised);
    area->around(area->activeChild())->close();
    EXPECT_EQ(area->stateOf(area->activeChild()), ChildArea::Maximised);
}

TEST_F(ChildAreaTest, MinimisedChildrenComeBackWhenActivated) {
    showFrame();
    const auto made = addShown(2);
    area->around(made[1])->showMinimized();
    EXPECT_EQ(area->stateOf(made[1]), ChildArea::Minimised);
    area->activate(made[1]);
    EXPECT_EQ(area->stateOf(made[1]), ChildArea::Normal);
    EXPECT_TRUE(made[1]->isVisible());
}

TEST_F(ChildAreaTest, AChildStoredMinimisedIsShownSoOnlyWhenAsked) {
    showFrame();
    Child* restored = add();
    area->place(restored, ChildArea::Minimised, 0, 0, 6000, 4500);
    area->showPlaced(restored);
    EXPECT_EQ(area->stateOf(restored), ChildArea::Minimised);
    EXPECT_TRUE(area->around(restored)->isVisible());
    Child* opened = add();
    area->place(opened, ChildArea::Minimised, 0, 0, 6000, 4500);
    area->activate(opened);
    EXPECT_EQ(area->stateOf(opened), ChildArea::Normal);
}

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
