#include "platform/typeset/type.h"

#include <gtest/gtest.h>

namespace velm {

TEST(Type, DocumentsAreSetInABookFace) {
    EXPECT_TRUE(type::serifFamilies().contains(type::documentFont().families().value(0)));
    EXPECT_NEAR(type::documentFont().pointSizeF(), type::documentPoints, 0.01);
}

} // namespace velm
