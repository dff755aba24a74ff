#include "platform/base/memory.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace velm;

TEST(WithinMemory, WorkThatHasEnoughIsDone) {
    bool done = false;
    EXPECT_TRUE(withinMemory([&done] { done = true; }));
    EXPECT_TRUE(done);
}

TEST(WithinMemory, WorkThatAsksForTooMuchIsGivenUp) {
    bool behind = false;
    EXPECT_FALSE(withinMemory([&behind] {
        std::vector<int> numbers;
        numbers.reserve(std::numeric_limits<std::size_t>::max() / 2); // more than any container holds
        behind = true;
    }));
    EXPECT_FALSE(withinMemory([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(behind);
}

TEST(WithinMemory, OtherErrorsGoOn) {
    EXPECT_THROW(withinMemory([] { throw std::runtime_error("x"); }), std::runtime_error);
}
