#pragma once
// Waiting for what comes with the next events. The toolkit's own waiting macros report to its own test runner only: in
// a GoogleTest they end the test without failing it.
#include <QTest>

#include <gtest/gtest.h>

/// Fails when a condition does not come true within five seconds of handling events.
#define EVENTUALLY(...) EXPECT_TRUE(QTest::qWaitFor([&] { return static_cast<bool>(__VA_ARGS__); })) << #__VA_ARGS__
/// The same with a time of one's own, in milliseconds.
#define EVENTUALLY_WITHIN(milliseconds, ...)                                                                           \
    EXPECT_TRUE(QTest::qWaitFor([&] { return static_cast<bool>(__VA_ARGS__); }, milliseconds)) << #__VA_ARGS__
