#include "childareafixture.h"

#include <array>
#include <climits>

namespace velm {

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

TEST_F(ChildAreaTest, TheLastOneInSightClosedLeavesNoneActive) {
    showFrame();
    const auto made = addShown(2);
    area->hideChild(made[0]);
    const QSignalSpy told(area, &ChildArea::childActivated);
    area->around(made[1])->close();
    EXPECT_EQ(area->activeChild(), nullptr);
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.at(0).at(0).value<QWidget*>(), nullptr);
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

} // namespace velm
