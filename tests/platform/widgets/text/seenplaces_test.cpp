#include "platform/widgets/text/seenplaces.h"

#include <gtest/gtest.h>

namespace velm {

TEST(SeenPlaces, WhatMovedTogetherGivesItsMove) {
    EXPECT_EQ(commonMove({{3, -10}, {4, 20}, {5, 80}}, {{3, -10}, {4, 20}, {5, 80}}), 0);
    EXPECT_EQ(commonMove({{3, -10}, {4, 20}, {5, 80}}, {{4, -5}, {5, 55}, {6, 90}}), -25);
    EXPECT_EQ(commonMove({{4, -5}, {5, 55}, {6, 90}}, {{3, -10}, {4, 20}, {5, 80}}), 25);
}

TEST(SeenPlaces, WhatWentApartGivesNone) {
    EXPECT_EQ(commonMove({{3, -10}, {4, 20}, {5, 80}}, {{3, -10}, {4, 20}, {5, 81}}), std::nullopt);
    EXPECT_EQ(commonMove({{3, -10}, {4, 20}, {5, 80}}, {{4, -5}, {5, 56}, {6, 90}}), std::nullopt);
}

TEST(SeenPlaces, WhereNothingIsCommonThereIsNoMove) {
    EXPECT_EQ(commonMove({{3, -10}, {4, 20}}, {{5, 0}, {6, 20}}), std::nullopt);
    EXPECT_EQ(commonMove({{5, 0}, {6, 20}}, {{3, -10}, {4, 20}}), std::nullopt);
    EXPECT_EQ(commonMove({}, {{3, -10}}), std::nullopt);
    EXPECT_EQ(commonMove({{3, -10}}, {}), std::nullopt);
}

} // namespace velm
