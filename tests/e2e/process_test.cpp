#include "platform/system/settings.h"
#include "tests/e2e/host.h"
#include "tests/e2e/robot.h"
#include "tests/e2e/thread.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace velm::e2e {

using namespace Qt::Literals::StringLiterals;

// The executable, as a user starts it: it stands on the screen, asks, and its process ends.
TEST(TheProgram, EndsWhenItsQuestionIsAnswered) {
    constexpr int milliseconds = 60000;
    QTemporaryDir settings;
    Host host;
    ASSERT_TRUE(host.isReady() && settings.isValid());
    const QString executable = host.copyExecutable();
    ASSERT_FALSE(executable.isEmpty());
    ReglagesStore(settings.filePath(u"VELMORANTE2000/VELMORANTE2000.ini"_s)).save(u"OPTIONS", u"TIPS", u"0"_s);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, settings.path());
    program.setProcessEnvironment(environment);
    program.start(executable, {u"CO2"_s});
    ASSERT_TRUE(program.waitForStarted(milliseconds));
    ASSERT_TRUE(comesForward(program.processId(), u"Velmorante 2000"_s));
    key(u"ctrl+q"_s);
    ASSERT_TRUE(comesForward(program.processId(), u"Quitter"_s));
    photo(u"20-programme"_s);
    key(u"Return"_s);
    EXPECT_TRUE(program.waitForFinished(milliseconds));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardError().toStdString(), "");
}

} // namespace velm::e2e
