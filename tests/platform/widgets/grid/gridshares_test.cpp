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

TEST(GridShares, NoColumnsShareNothing) {
    EXPECT_TRUE(sharedWidths(300, {}).empty());
}
