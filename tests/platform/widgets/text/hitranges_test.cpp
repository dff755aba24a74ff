#include "platform/widgets/text/hitranges.h"

#include <gtest/gtest.h>

namespace velm {

TEST(HitRanges, StandInTheOrderOfTheTextOnce) {
    const HitRanges hits({{9, 12}, {3, 5}, {9, 12}, {4, 4}, {-1, 3}, {3, 9}});
    EXPECT_EQ(hits.all(), (std::vector<HitRange>{{3, 5}, {3, 9}, {9, 12}}));
    EXPECT_TRUE(HitRanges({{4, 4}}).isEmpty());
}

TEST(HitRanges, AreFoundByBothEnds) {
    const HitRanges hits({{3, 5}, {3, 9}, {9, 12}});
    EXPECT_EQ(hits.indexOf({3, 9}), 1);
    EXPECT_EQ(hits.indexOf({3, 8}), -1);
    EXPECT_EQ(hits.indexOf({9, 12}), 2);
    EXPECT_EQ(hits.indexOf({10, 12}), -1);
    EXPECT_EQ(HitRanges().indexOf({0, 1}), -1);
}

TEST(HitRanges, AroundAStretchNoneIsMissed) {
    const HitRanges hits({{0, 2}, {10, 40}, {12, 14}, {50, 52}, {60, 62}});
    const auto near = hits.around(31, 55);
    ASSERT_EQ(near.size(), 3U);
    EXPECT_EQ(near.front(), (HitRange{10, 40}));
    EXPECT_EQ(near.back(), (HitRange{50, 52}));
    EXPECT_TRUE(hits.around(100, 130).empty());
    EXPECT_TRUE(HitRanges().around(0, 100).empty());
}

} // namespace velm
