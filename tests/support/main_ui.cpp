#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Windows of tests need no display; a test that wants one says so in its environment.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    // What the toolkit remembers of its dialogs is neither the user's nor another run's.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
