#include "platform/system/endsignals.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <csignal>
#include <gtest/gtest.h>

using namespace velm;

namespace {

bool becomes(const std::function<bool()>& condition) {
    const QDeadlineTimer enough(std::chrono::seconds(60));
    while (!condition() && !enough.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return condition();
}

} // namespace

TEST(EndSignalsTest, EachOfTheThreeIsHeardInTheLoop) {
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        int heard = 0;
        const EndSignals wishes([&heard] { ++heard; });
        ASSERT_EQ(std::raise(number), 0);
        EXPECT_EQ(heard, 0) << "nothing is done in the handler";
        EXPECT_TRUE(becomes([&heard] { return heard > 0; })) << number;
    }
}

TEST(EndSignalsTest, SeveralMakeOneCall) {
    int heard = 0;
    const EndSignals wishes([&heard] { ++heard; });
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        std::raise(number);
    EXPECT_TRUE(becomes([&heard] { return heard > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, 1);
}

TEST(EndSignalsTest, ASecondOneOfAKindHasItsUsualEffect) {
    EXPECT_EXIT(
        {
            const EndSignals wishes([] {});
            std::raise(SIGTERM);
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "^$");
}

TEST(EndSignalsTest, WhatWasIgnoredStaysIgnored) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    int heard = 0;
    {
        const EndSignals wishes([&heard] { ++heard; });
        std::raise(SIGHUP);
        QCoreApplication::processEvents();
        EXPECT_EQ(heard, 0);
        std::raise(SIGTERM);
        EXPECT_TRUE(becomes([&heard] { return heard == 1; }));
    }
    EXPECT_EQ(std::signal(SIGHUP, before), SIG_IGN);
}

TEST(EndSignalsTest, AfterItTheSignalsHaveTheirEffectOfBefore) {
    const auto mine = [](int) {};
    const auto before = std::signal(SIGTERM, mine);
    {
        const EndSignals wishes([] {});
    }
    EXPECT_EQ(std::signal(SIGTERM, before), static_cast<void (*)(int)>(mine));
}
