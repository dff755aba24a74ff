#include "collection/inclusions.h"

#include <gtest/gtest.h>

namespace velm {

using Boucles = std::vector<BoucleDInclusions>;

TEST(Inclusions, DocumentsThatOnlyTakeInOthersGoNowhereRound) {
    EXPECT_EQ(bouclesdinclusions({}), Boucles());
    EXPECT_EQ(bouclesdinclusions({{1, 2}, {2}, {}, {0, 1, -1}}), Boucles()) << "the same one twice is no circle";
}

TEST(Inclusions, ADocumentMayTakeInItself) {
    EXPECT_EQ(bouclesdinclusions({{}, {1}}), (Boucles{{1}}));
}

TEST(Inclusions, TheWayBeginsWhereItIsComeBackTo) {
    // 0 leads into the circle of 1, 2 and 3 without being on it.
    EXPECT_EQ(bouclesdinclusions({{1}, {2}, {3}, {1}}), (Boucles{{1, 2, 3}}));
}

TEST(Inclusions, EachInclusionThatLeadsBackIsOne) {
    EXPECT_EQ(bouclesdinclusions({{1}, {0, 2, 0}, {1}}), (Boucles{{0, 1}, {1, 2}, {0, 1}}));
}

TEST(Inclusions, WhatIsNoDocumentIsPassedOver) {
    EXPECT_EQ(bouclesdinclusions({{-1, 0}}), (Boucles{{0}}));
}

} // namespace velm
