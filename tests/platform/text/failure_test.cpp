#include "platform/text/failure.h"
#include "tests/support/arret.h"

#include <gtest/gtest.h>
#include <thread>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST(FailureOf, GivesBackTheErrorThatEndsAPieceOfWork) {
    const GardeArret garde;
    bool behind = false;
    const auto failure = failureOf([&behind] {
        runtimeError(Failure::MissingIndex, {u"a"_s, u"b"_s});
        behind = true;
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->what, Failure::MissingIndex);
    EXPECT_EQ(failure->parts, (QStringList{u"a"_s, u"b"_s}));
    EXPECT_FALSE(behind);
    EXPECT_FALSE(failureOf([] {}));
}

TEST(FailureOf, TheHandlerHearsOfErrorsBeforeAndBehindIt) {
    const GardeArret garde;
    EXPECT_TRUE(failureOf([] {
        EXPECT_TRUE(failureOf([] { runtimeError(u"x"_s); }));
        runtimeError(u"y"_s);
    }));
    EXPECT_THROW(runtimeError(u"x"_s), Arret);
    EXPECT_THROW(failureOf([] { throw std::bad_alloc(); }), std::bad_alloc) << "what is no run-time error goes on";
    EXPECT_THROW(runtimeError(u"x"_s), Arret);
}

TEST(FailureOf, OtherThreadsAreNotGuarded) {
    const GardeArret garde;
    bool heard = false;
    failureOf([&heard] {
        std::thread([&heard] {
            try {
                runtimeError(u"x"_s);
            } catch (const Arret&) {
                heard = true;
            }
        }).join();
    });
    EXPECT_TRUE(heard);
}
