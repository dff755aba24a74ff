#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Windows of tests need no display; a test that wants one says so in its environment.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
