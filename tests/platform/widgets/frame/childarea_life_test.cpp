// Windows that go while the area is still asked for them.
#include "childareafixture.h"

#include <QComboBox>

namespace velm {

namespace {

/// What was to be deleted with the next round of events is deleted now.
void bury() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

TEST_F(ChildAreaTest, AWindowThatHasClosedIsNotLaidOutAnyMore) {
    showFrame();
    const auto made = addShown(3);
    for (Child* child : made) {
        area->around(child)->close();
        frame.resize(frame.size() + QSize(7, 5));
        bury();
        frame.resize(frame.size() + QSize(7, 5));
        // In the place of the one that has gone.
        area->activate(add());
        frame.resize(frame.size() + QSize(7, 5));
    }
    EXPECT_EQ(area->children().size(), 3u);
    for (QWidget* child : area->children())
        EXPECT_TRUE(inside().contains(placeOf(child)));
}

TEST_F(ChildAreaTest, AWindowThatWasDeletedIsNotLaidOutAnyMore) {
    showFrame();
    const auto made = addShown(2);
    delete area->around(made[1]);
    frame.resize(800, 600);
    EXPECT_EQ(area->children(), std::vector<QWidget*>{made[0]});
    EXPECT_TRUE(inside().contains(placeOf(made[0])));
}

TEST_F(ChildAreaTest, ATileThatHasClosedLeavesTheOthersWhereTheyAre) {
    showFrame();
    const auto made = addShown(3);
    area->arrange(ChildArea::Arrangement::TileVertical);
    const QRect first = placeOf(made[0]);
    area->around(made[1])->close();
    bury();
    frame.resize(950, 710);
    EVENTUALLY(area->width() == 950);
    EXPECT_EQ(placeOf(made[0]), first);
    area->activate(add());
    frame.resize(1000, 720);
    EVENTUALLY(area->width() == 1000);
    EXPECT_EQ(placeOf(made[0]), first);
}

TEST_F(ChildAreaTest, AChildThatHidesItselfAndGoesAtOnceTakesNobodyAlong) {
    showFrame();
    const auto made = addShown(2);
    made[1]->hide();
    delete area->around(made[1]);
    Child* next = add();
    area->activate(next);
    QCoreApplication::processEvents();
    EXPECT_TRUE(next->isVisible());
    EXPECT_TRUE(made[0]->isVisible());
}

TEST_F(ChildAreaTest, ABoxWithItsListDownGoesWithItsWindowAndTheWindowWithTheArea) {
    for (const bool whole : {false, true}) {
        showFrame();
        auto* child = new QWidget;
        auto* box = new QComboBox(child);
        box->addItems({u"un"_s, u"deux"_s});
        area->add(child);
        area->activate(child);
        QTest::mouseClick(box, Qt::LeftButton);
        EVENTUALLY(QApplication::activePopupWidget());
        if (whole) {
            delete area;
            area = nullptr;
        } else {
            delete area->around(child);
            EXPECT_TRUE(area->children().empty());
        }
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}

// ---- shown otherwise first

TEST_F(ChildAreaTest, AChildFirstShownMaximisedOrAsAnIconTakesItsPlaceInTheAreaThatThereIsThen) {
    for (const auto state : {ChildArea::Maximised, ChildArea::Minimised}) {
        frame.resize(400, 300);
        Child* child = add();
        area->place(child, state, 1500, 1500, 7500, 6000);
        area->showPlaced(child);
        showFrame();
        EXPECT_EQ(area->stateOf(child), state);
        frame.resize(900, 700);
        EVENTUALLY(area->width() == 900);
        EXPECT_EQ(area->stateOf(child), state);
        area->around(child)->showNormal();
        EXPECT_EQ(placeOf(child), QRect(100, 100, 500, 400)) << state;
        area->around(child)->close();
        frame.hide();
    }
}

TEST_F(ChildAreaTest, AnIconBesideAMaximisedChildTakesItsPlaceToo) {
    frame.resize(400, 300);
    for (const auto state : {ChildArea::Maximised, ChildArea::Minimised}) {
        Child* child = add();
        area->place(child, state, 1500, 1500, 7500, 6000);
        area->showPlaced(child);
    }
    showFrame();
    frame.resize(900, 700);
    EVENTUALLY(area->width() == 900);
    for (QWidget* child : area->children()) {
        area->around(child)->showNormal();
        EXPECT_EQ(placeOf(child), QRect(100, 100, 500, 400));
    }
}

TEST_F(ChildAreaTest, WithoutAStoredSizeItTakesTheUsualOneOfTheAreaThatThereIsThen) {
    frame.resize(400, 300);
    Child* child = add();
    area->place(child, ChildArea::Maximised, 0, 0, 0, 0);
    area->activate(child);
    showFrame();
    frame.resize(900, 700);
    EVENTUALLY(area->width() == 900);
    area->around(child)->showNormal();
    EXPECT_EQ(placeOf(child).size(), QSize(inside().width() * 2 / 3, inside().height() * 2 / 3));
}

TEST_F(ChildAreaTest, AMovedChildComesBackWhereItWasMoved) {
    showFrame();
    Child* child = add();
    area->place(child, ChildArea::Maximised, 1500, 1500, 4500, 4500);
    area->activate(child);
    area->around(child)->showNormal();
    area->around(child)->setGeometry(20, 30, 400, 350);
    area->around(child)->showMaximized();
    frame.resize(800, 650);
    EVENTUALLY(area->width() == 800);
    area->around(child)->showNormal();
    EXPECT_EQ(placeOf(child), QRect(20, 30, 400, 350));
}

TEST_F(ChildAreaTest, TheOneBehindAMaximisedChildComesToItsOwnPlace) {
    showFrame();
    Child* one = add();
    area->place(one, ChildArea::Maximised, 0, 0, 4500, 4500);
    area->activate(one);
    Child* two = add();
    area->place(two, ChildArea::Normal, 300, 300, 6000, 6000);
    area->activate(two);
    EXPECT_EQ(area->stateOf(two), ChildArea::Maximised);
    EXPECT_EQ(area->stateOf(one), ChildArea::Normal);
    EXPECT_EQ(placeOf(one), QRect(0, 0, 300, 300));
    area->around(two)->showNormal();
    EXPECT_EQ(placeOf(two), QRect(20, 20, 400, 400));
}

TEST_F(ChildAreaTest, AnIconThatWasHiddenIsAWindowAgainWhenItIsWanted) {
    showFrame();
    const auto made = addShown(2);
    area->around(made[1])->showMinimized();
    area->hideChild(made[1]);
    EXPECT_TRUE(area->around(made[1])->isHidden());
    area->activate(made[1]);
    EXPECT_EQ(area->stateOf(made[1]), ChildArea::Normal);
    EXPECT_TRUE(made[1]->isVisible());
    EXPECT_EQ(area->activeChild(), made[1]);
}

} // namespace velm
