// Where the program finds what it needs: its base, its lock, its files, and the update tool beside its base.
#include "tests/process/started.h"
#include "tests/support/odd_files.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace velm;
using namespace velm::test;

namespace {

class Places : public StartedProgram {};

TEST_F(Places, AMovedPortableFolderOpensItsBase) {
    set(u"BASE", u"CHEMIN", at(u"folder"_s) + u'/');
    ASSERT_TRUE(QDir().rename(at(u"folder"_s), at(u"renamed folder"_s)));
    QProcess& program = start(u"renamed folder"_s);
    EVENTUALLY_WITHIN(milliseconds, stands() || program.state() == QProcess::NotRunning);
    EXPECT_EQ(program.state(), QProcess::Running) << program.readAllStandardError().constData();
    EXPECT_EQ(get(u"BASE", u"CHEMIN"), at(u"renamed folder"_s) + u'/');
}

TEST_F(Places, ASecondStartWithoutARuntimeFolderEndsAtOnce) {
    if (QFileInfo::exists(u"/run/user/%1"_s.arg(geteuid())))
        GTEST_SKIP() << "the system has made this user a runtime folder";
    environment_.remove(u"XDG_RUNTIME_DIR"_s);
    ASSERT_TRUE(QDir().mkpath(at(u"tmp1"_s)) && QDir().mkpath(at(u"tmp2"_s)));
    environment_.insert(u"TMPDIR"_s, at(u"tmp1"_s));
    QProcess& first = start();
    EVENTUALLY_WITHIN(milliseconds, stands());
    struct stat info {};
    ASSERT_EQ(stat(QFile::encodeName(at(u"cache/velmorante2000"_s)).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777U, 0700U);
    environment_.insert(u"TMPDIR"_s, at(u"tmp2"_s));
    QProcess& second = start();
    ASSERT_TRUE(second.waitForFinished(milliseconds));
    EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(first.state(), QProcess::Running);
}

TEST_F(Places, ASecondStartEndsEvenWhereTheCacheCannotBeUsed) {
    if (QFileInfo::exists(u"/run/user/%1"_s.arg(geteuid())))
        GTEST_SKIP() << "the system has made this user a runtime folder";
    environment_.remove(u"XDG_RUNTIME_DIR"_s);
    environment_.insert(u"XDG_CACHE_HOME"_s, settings());
    ASSERT_TRUE(QDir().mkpath(at(u"home"_s)));
    QProcess& first = start();
    EVENTUALLY_WITHIN(milliseconds, stands());
    EXPECT_TRUE(start().waitForFinished(milliseconds));
    EXPECT_EQ(first.state(), QProcess::Running);
}

TEST_F(Places, APipeInPlaceOfTheDefaultsOrTheTipsDoesNotKeepItWaiting) {
    set(u"OPTIONS", u"TIPS", u"1"_s);
    putPipe(at(u"folder/master.ini"_s));
    putPipe(at(u"folder/langues/TIPS.FR"_s));
    QProcess& program = start();
    EVENTUALLY_WITHIN(milliseconds, stands());
    EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(Places, APipeInPlaceOfTheSettingsDoesNotKeepItWaiting) {
    putPipe(settings());
    environment_.insert(u"QT_LOGGING_RULES"_s, u"*=false"_s);
    QProcess& program = start();
    // Its settings tell nothing here: what it registers with the desktop does.
    EVENTUALLY_WITHIN(milliseconds, QFileInfo::exists(at(u"data/applications/velmorante2000.desktop"_s)));
    EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(Places, TheUpdateToolBesideTheBaseIsStartedWithWhatItNeeds) {
    ASSERT_TRUE(QDir().mkpath(at(u"disc"_s)));
    ASSERT_TRUE(QFile::rename(at(u"folder/velm2000.dat"_s), at(u"disc/velm2000.dat"_s)));
    set(u"BASE", u"CHEMIN", at(u"disc"_s));
    const QString told = at(u"told"_s);
    ASSERT_EQ(writeWhole(at(u"disc/MAJver.exe"_s),
                         "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" >'" + QFile::encodeName(told) + ".part'\n/bin/mv '" +
                             QFile::encodeName(told) + ".part' '" + QFile::encodeName(told) + "'\n")
                  .kind,
              Obstacle::None);
    ASSERT_EQ(writeWhole(at(u"disc/velm2000.exe"_s), "newer").kind, Obstacle::None);
    QFile newer(at(u"disc/velm2000.exe"_s));
    ASSERT_TRUE(newer.open(QIODevice::ReadWrite));
    ASSERT_TRUE(newer.setFileTime(QDateTime::currentDateTime().addDays(1), QFile::FileModificationTime));
    newer.close();
    for (const QString& name : {u"disc"_s, u"disc/MAJver.exe"_s})
        ASSERT_TRUE(QFile::setPermissions(at(name), QFile::Permissions(0x7755)));
    QProcess& program = start();
    ASSERT_TRUE(program.waitForFinished(milliseconds));
    EXPECT_EQ(program.exitCode(), 0);
    EVENTUALLY_WITHIN(milliseconds, QFileInfo::exists(told));
    EXPECT_EQ(readPlain(told).bytes, "1\n" + QFile::encodeName(at(u"folder"_s)) + "/," +
                                         QFile::encodeName(at(u"disc"_s)) + "/,velm2000.exe,Velmorante 2000\n");
    EXPECT_FALSE(stands()) << "nothing of the program was shown";
}

} // namespace
