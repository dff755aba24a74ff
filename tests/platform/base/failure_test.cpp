#include "platform/base/failure.h"
#include "tests/support/arret.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <thread>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Ended {};

/// Puts the handler that stood before back.
class RuntimeErrorTest : public testing::Test {
protected:
    void SetUp() override { before_ = setRuntimeErrorHandler({}); }
    void TearDown() override { setRuntimeErrorHandler(std::move(before_)); }

private:
    RuntimeErrorHandler before_;
};

} // namespace

TEST_F(RuntimeErrorTest, AHandlerMayReplaceItselfWhileItRuns) {
    bool held = false;
    setRuntimeErrorHandler([&held, words = std::make_shared<int>()](const RuntimeFailure&) {
        // Looked at from outside: had the handler gone, its own members could not be asked.
        bool& answer = held;
        const std::weak_ptr<int> mine = words;
        setRuntimeErrorHandler([](const RuntimeFailure&) {});
        answer = !mine.expired();
        throw Ended();
    });
    EXPECT_THROW(runtimeError(u"x"_s), Ended);
    EXPECT_TRUE(held) << "what the handler holds went while it ran";
}

TEST_F(RuntimeErrorTest, TheHandlerGetsAllThatIsKnown) {
    std::optional<RuntimeFailure> got;
    setRuntimeErrorHandler([&got](const RuntimeFailure& failure) {
        got = failure;
        throw Ended();
    });
    const RuntimeFailure failure{
        Failure::NotANumber, {u"A/B"_s, u"c"_s}, FaultySetting{u"file"_s, u"A"_s, u"B"_s, u"c"_s}, true};
    EXPECT_THROW(runtimeError(failure), Ended);
    ASSERT_TRUE(got && got->setting);
    EXPECT_EQ(got->what, Failure::NotANumber);
    EXPECT_EQ(got->parts, failure.parts);
    EXPECT_EQ(got->setting->file, u"file");
    EXPECT_TRUE(got->said);
    EXPECT_THROW(runtimeError(Failure::MissingTable, {u"t"_s}), Ended);
    EXPECT_FALSE(got->setting);
    EXPECT_FALSE(got->said);
}

TEST_F(RuntimeErrorTest, WithoutAHandlerThePartsGoToStandardErrorAndTheProcessEnds) {
    EXPECT_EXIT(runtimeError(Failure::MissingIndex, {u"index"_s, u"table"_s}), testing::ExitedWithCode(70),
                "^index table\n$");
}

TEST_F(RuntimeErrorTest, AHandlerThatReturnsEndsTheProcess) {
    setRuntimeErrorHandler([](const RuntimeFailure&) {});
    EXPECT_DEATH(runtimeError(u"x"_s), "^$");
}

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
