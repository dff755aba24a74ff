#include "platform/widgets/text/heighttree.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace velm {

TEST(HeightTree, IsEmptyAtFirst) {
    HeightTree tree;
    tree.assign({});
    EXPECT_EQ(tree.total(), 0);
    EXPECT_EQ(tree.at(10), -1);
}

TEST(HeightTree, FindsTheParagraphAtAHeight) {
    HeightTree tree;
    tree.assign({10, 0, 5, 7});
    EXPECT_EQ(tree.total(), 22);
    EXPECT_EQ(tree.at(-3), 0);
    EXPECT_EQ(tree.at(0), 0);
    EXPECT_EQ(tree.at(9), 0);
    EXPECT_EQ(tree.at(10), 2); // the one without height covers nothing
    EXPECT_EQ(tree.at(14), 2);
    EXPECT_EQ(tree.at(15), 3);
    EXPECT_EQ(tree.at(21), 3);
    EXPECT_EQ(tree.at(22), 3);
    EXPECT_EQ(tree.at(1000), 3);
}

TEST(HeightTree, AgreesWithPlainSumsAfterChanges) {
    std::mt19937 random(7);
    for (int size = 1; size < 70; ++size) {
        std::vector<int> heights(static_cast<std::size_t>(size));
        for (int& height : heights)
            height = static_cast<int>(random() % 30);
        HeightTree tree;
        tree.assign(heights);
        for (int round = 0; round < 20; ++round) {
            const auto index = random() % heights.size();
            heights[index] = static_cast<int>(random() % 50);
            tree.setHeight(static_cast<int>(index), heights[index]);
            std::int64_t top = 0;
            for (int i = 0; i < size; ++i) {
                ASSERT_EQ(tree.top(i), top);
                const int height = heights[static_cast<std::size_t>(i)];
                if (height > 0) {
                    ASSERT_EQ(tree.at(top), i);
                    ASSERT_EQ(tree.at(top + height - 1), i);
                }
                top += height;
            }
            ASSERT_EQ(tree.total(), top);
        }
    }
}

} // namespace velm
