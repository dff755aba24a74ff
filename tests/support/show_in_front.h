#pragma once
// A window that the keys of a test reach.
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace velm::test {

/// Shows a window and waits until it is the active one.
inline void showInFront(QWidget& window) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

} // namespace velm::test
