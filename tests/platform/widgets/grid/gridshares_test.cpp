#include "platform/widgets/grid/gridshares.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace velm;

TEST(GridShares, ColumnsShareTheRoomByTheirWeightsToTheLastPixel) {
    EXPECT_EQ(sharedWidths(900, {{3, 0}, {2, 0}, {2, 0}, {2, 0}}), (std::vector{300, 200, 200, 200}));
    for (int room = 0; room < 50; ++room) {
        const std::vector<int> widths = sharedWidths(room, {{3, 0}, {2, 0}, {1, 0}});
        EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), room);
    }
}

TEST(GridShares, NoneIsNarrowerThanItsLeastAndTheOthersHaveTheLess) {
    EXPECT_EQ(sharedWidths(300, {{1, 120}, {2, 0}, {2, 0}}), (std::vector{120, 90, 90}));
    EXPECT_EQ(sharedWidths(100, {{3, 60}, {1, 60}}), (std::vector{60, 60})) << "wider than the room";
    // That one has its least may leave another too little.
    EXPECT_EQ(sharedWidths(200, {{1, 100}, {2, 75}, {3, 0}}), (std::vector{100, 75, 25}));
}

TEST(GridShares, NoneIsWiderThanItsMostAndTheOthersHaveTheRest) {
    EXPECT_EQ(sharedWidths(900, {{3, 0}, {2, 0, 100}, {2, 0}, {2, 0}}), (std::vector{342, 100, 229, 229}));
    EXPECT_EQ(sharedWidths(900, {{1, 0}, {2, 0, 100}, {2, 0, 90}}), (std::vector{710, 100, 90}));
    EXPECT_EQ(sharedWidths(300, {{1, 0}, {1, 0, 100}, {1, 0, 120}}), (std::vector{100, 100, 100}));
    // What one does not take is enough for another one to have its most.
    EXPECT_EQ(sharedWidths(300, {{1, 0, 110}, {1, 0, 10}, {1, 0}}), (std::vector{110, 10, 180}));
    EXPECT_EQ(sharedWidths(300, {{1, 60, 20}, {1, 0}}), (std::vector{60, 240})) << "the least counts first";
    EXPECT_EQ(sharedWidths(300, {{1, 0, 20}, {1, 0, 30}}), (std::vector{20, 30})) << "nobody wants the rest";
}

TEST(GridShares, NoColumnsShareNothing) {
    EXPECT_TRUE(sharedWidths(300, {}).empty());
}
