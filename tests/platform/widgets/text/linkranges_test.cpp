#include "platform/widgets/text/linkranges.h"

#include <gtest/gtest.h>
#include <random>

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
    EXPECT_EQ(links.within(0, 100).size(), 3U) << "what lies under another one does not count";
}

TEST(LinkRanges, AgreesWithAWalkOverAllOfThem) {
    std::mt19937 random(5);
    const auto upTo = [&random](unsigned bound) { return static_cast<qsizetype>(random() % bound); };
    for (int round = 0; round < 300; ++round) {
        std::vector<LinkRange> ranges(random() % 12);
        for (LinkRange& range : ranges) {
            range.start = upTo(60) - 2;
            range.end = range.start + upTo(20) - 2;
        }
        const LinkRanges links(ranges);
        qsizetype end = 0;
        for (const LinkRanges::Entry& entry : links.within(0, 200)) {
            ASSERT_LT(entry.start, entry.end);
            ASSERT_LE(end, entry.start);
            end = entry.end;
        }
        for (qsizetype position = 0; position < 90; ++position) {
            int first = -1;
            for (int i = static_cast<int>(ranges.size()) - 1; i >= 0; --i) {
                const LinkRange& range = ranges[static_cast<std::size_t>(i)];
                first = range.start >= 0 && range.start <= position && position < range.end ? i : first;
            }
            ASSERT_EQ(links.at(position), first);
        }
    }
}

} // namespace velm
