#include "platform/widgets/linkranges.h"

#include <gtest/gtest.h>

namespace velm {

TEST(LinkRanges, FindsTheRangeThatCoversAPosition) {
    const LinkRanges links({{10, 15}, {2, 5}});
    EXPECT_EQ(links.at(1), -1);
    EXPECT_EQ(links.at(2), 1);
    EXPECT_EQ(links.at(4), 1);
    EXPECT_EQ(links.at(5), -1);
    EXPECT_EQ(links.at(14), 0);
    EXPECT_EQ(links.at(15), -1);
}

TEST(LinkRanges, TheFirstOfTheOwnersListWinsWhereTheyOverlap) {
    const LinkRanges links({{5, 8}, {0, 100}, {6, 50}});
    EXPECT_EQ(links.at(3), 1);
    EXPECT_EQ(links.at(6), 0);
    EXPECT_EQ(links.at(9), 1);
    EXPECT_EQ(links.at(99), 1);
}

TEST(LinkRanges, EmptyAndBackwardRangesLeadNowhere) {
    const LinkRanges links({{5, 5}, {9, 3}, {-1, 4}});
    EXPECT_TRUE(links.isEmpty());
    EXPECT_EQ(links.at(5), -1);
}

TEST(LinkRanges, GivesThoseThatTouchAStretch) {
    const LinkRanges links({{0, 40}, {50, 60}, {10, 12}, {55, 70}});
    const auto within = links.within(39, 51);
    ASSERT_EQ(within.size(), 2U);
    EXPECT_EQ(within[0].index, 0);
    EXPECT_EQ(within[1].index, 1);
    EXPECT_TRUE(links.within(40, 50).empty());
}

} // namespace velm
