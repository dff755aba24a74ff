#include "platform/widgets/frame/childareaplaces.h"

#include <climits>
#include <gtest/gtest.h>
#include <random>

namespace velm {

TEST(ChildAreaPlaces, WhateverIsWishedLiesInTheAreaOrHasTheLeastSize) {
    std::mt19937 random(7);
    const std::vector<int> numbers{INT_MIN / 15, -66666, -1, 0, 1, 40, 333, 900, 66666, INT_MAX / 15};
    const auto any = [&] { return numbers[random() % numbers.size()]; };
    const QSize least(120, 40);
    for (int round = 0; round < 5000; ++round) {
        const QSize area(static_cast<int>(random() % 1000), static_cast<int>(random() % 1000));
        ChildWish wish{QRect(), least, static_cast<int>(random() % 13)};
        wish.place = QRect(QPoint(any(), any()), QSize(any(), any()));
        const QRect place = fittedPlace(wish, area);
        EXPECT_GE(place.left(), 0);
        EXPECT_GE(place.top(), 0);
        EXPECT_LE(place.left() + place.width(), std::max(area.width(), least.width()));
        EXPECT_LE(place.top() + place.height(), std::max(area.height(), least.height()));
        EXPECT_GE(place.width(), least.width());
        EXPECT_GE(place.height(), least.height());
    }
}

TEST(ChildAreaPlaces, APlaceThatFitsIsKept) {
    const QRect wished(33, 44, 400, 300);
    EXPECT_EQ(fittedPlace({wished, QSize(100, 30), 5}, QSize(900, 700)), wished);
    EXPECT_EQ(fittedPlace({QRect(-20, 650, 400, 300), QSize(100, 30), 0}, QSize(900, 700)), QRect(0, 400, 400, 300));
}

TEST(ChildAreaPlaces, TilesShareTheRemainderAndLeaveNoGap) {
    for (int count = 1; count <= 13; ++count) {
        const std::vector<QSize> least(static_cast<std::size_t>(count), QSize(20, 20));
        int next = 0;
        for (const QRect& tile : tilePlaces(least, QSize(997, 601), Qt::Horizontal, 14)) {
            EXPECT_EQ(tile.left(), next);
            EXPECT_EQ(tile.height(), 601);
            EXPECT_NEAR(tile.width(), 997 / count, 1);
            next += tile.width();
        }
        EXPECT_EQ(next, 997);
    }
}

TEST(ChildAreaPlaces, TilesWithoutRoomKeepTheLargestMinimumAndLeaveRoomForTheScrollBar) {
    const std::vector<QSize> least{QSize(100, 90), QSize(100, 120), QSize(100, 30)};
    const auto tiles = tilePlaces(least, QSize(500, 200), Qt::Vertical, 14);
    ASSERT_EQ(tiles.size(), 3u);
    EXPECT_EQ(tiles.back(), QRect(0, 240, 486, 120));
}

TEST(ChildAreaPlaces, NoTwoTitlesOfACascadeLieOnEachOther) {
    const std::vector<QSize> least(30, QSize(120, 40));
    const auto places = cascadePlaces(least, QSize(1200, 800));
    for (std::size_t one = 0; one < places.size(); ++one) {
        EXPECT_TRUE(QRect(0, 0, 1200, 800).contains(places[one]));
        for (std::size_t other = 0; other < one; ++other)
            EXPECT_NE(places[one].topLeft(), places[other].topLeft());
    }
}

TEST(ChildAreaPlaces, NothingToPlaceGivesNothing) {
    EXPECT_TRUE(cascadePlaces({}, QSize(100, 100)).empty());
    EXPECT_TRUE(tilePlaces({}, QSize(100, 100), Qt::Vertical, 14).empty());
    EXPECT_EQ(cascadePlaces({QSize(50, 20)}, QSize(0, 0)).front(), QRect(0, 0, 50, 20));
}

} // namespace velm
