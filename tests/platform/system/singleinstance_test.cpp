#include "platform/system/singleinstance.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Sets a variable for the length of a scope; an empty value takes it away.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const QString& value)
        : name_(name), before_(qgetenv(name)), was_(qEnvironmentVariableIsSet(name)) {
        if (value.isEmpty())
            qunsetenv(name);
        else
            qputenv(name, QFile::encodeName(value));
    }
    ~EnvironmentVariable() {
        if (was_)
            qputenv(name_, before_);
        else
            qunsetenv(name_);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    EnvironmentVariable(EnvironmentVariable&&) = delete;
    EnvironmentVariable& operator=(EnvironmentVariable&&) = delete;

private:
    const char* name_;
    QByteArray before_;
    bool was_;
};

class Instance : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString name = u"velm2000"_s;

    template <typename Condition>
    static bool eventually(Condition condition) {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < 20000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        return condition();
    }
};

TEST_F(Instance, TheFirstIsFirstAndTheSecondIsNot) {
    const SingleInstance first(name, folder.path());
    const SingleInstance second(name, folder.path());
    const SingleInstance third(name, folder.path());
    EXPECT_TRUE(first.first());
    EXPECT_FALSE(second.first());
    EXPECT_FALSE(third.first());
}

TEST_F(Instance, NamesAndFoldersAreApart) {
    const QTemporaryDir other;
    const SingleInstance first(name, folder.path());
    EXPECT_TRUE(SingleInstance(u"other"_s, folder.path()).first());
    EXPECT_TRUE(SingleInstance(name, other.path()).first());
}

TEST_F(Instance, TheLockEndsWithTheFirst) {
    {
        const SingleInstance first(name, folder.path());
        EXPECT_TRUE(first.first());
    }
    EXPECT_TRUE(SingleInstance(name, folder.path()).first());
}

TEST_F(Instance, ARequestRaisesTheFirst) {
    SingleInstance first(name, folder.path());
    int raised = 0;
    first.setOnRaise([&] { ++raised; });
    const SingleInstance second(name, folder.path());
    EXPECT_TRUE(second.raiseFirst());
    EXPECT_TRUE(eventually([&] { return raised == 1; }));
    EXPECT_TRUE(second.raiseFirst());
    EXPECT_TRUE(eventually([&] { return raised == 2; }));
}

TEST_F(Instance, ARequestDuringTheStartIsNotLost) {
    SingleInstance first(name, folder.path());
    EXPECT_TRUE(SingleInstance(name, folder.path()).raiseFirst());
    EXPECT_TRUE(SingleInstance(name, folder.path()).raiseFirst());
    int raised = 0;
    first.setOnRaise([&] { ++raised; });
    EXPECT_TRUE(eventually([&] { return raised > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(raised, 1) << "waiting requests make one call";
}

TEST_F(Instance, ManyRequestsNeverBlock) {
    const SingleInstance first(name, folder.path());
    const SingleInstance second(name, folder.path());
    for (int i = 0; i < 100000; ++i)
        ASSERT_TRUE(second.raiseFirst());
}

TEST_F(Instance, OnlyASecondAsks) {
    const SingleInstance first(name, folder.path());
    EXPECT_FALSE(first.raiseFirst());
}

TEST_F(Instance, AKilledFirstLeavesNoLock) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const SingleInstance first(name, folder.path());
        const char answer = first.first() ? 'y' : 'n';
        if (write(ready[1], &answer, 1) == 1)
            pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_FALSE(SingleInstance(name, folder.path()).first());
    EXPECT_TRUE(SingleInstance(name, folder.path()).raiseFirst());
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    close(ready[0]);
    close(ready[1]);
    SingleInstance next(name, folder.path());
    EXPECT_TRUE(next.first());
    // The dead one's request went with it.
    int raised = 0;
    next.setOnRaise([&] { ++raised; });
    QCoreApplication::processEvents();
    EXPECT_EQ(raised, 0);
}

TEST_F(Instance, AFolderThatIsMissingIsMade) {
    const QString deep = folder.filePath(u"a/b"_s);
    const SingleInstance first(name, deep);
    EXPECT_TRUE(first.first());
    EXPECT_FALSE(SingleInstance(name, deep).first());
}

TEST_F(Instance, AFolderThatCannotBeUsedStillLetsOnlyOneStart) {
    const EnvironmentVariable home("HOME", folder.path());
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // One that others may write to is not trusted.
    const QString open = folder.filePath(u"open"_s);
    ASSERT_TRUE(QDir().mkpath(open));
    ASSERT_EQ(chmod(QFile::encodeName(open).constData(), 0777), 0);
    for (const QString& unusable : {file.fileName(), file.fileName() + u"/x"_s, open}) {
        const SingleInstance first(name, unusable);
        EXPECT_TRUE(first.first()) << unusable.toStdString();
        const SingleInstance second(name, unusable);
        EXPECT_FALSE(second.first()) << unusable.toStdString();
        EXPECT_FALSE(second.raiseFirst());
    }
    EXPECT_TRUE(QDir(open).isEmpty()) << "nothing is made where others may write";
    const QByteArray lure = QFile::encodeName(open + u'/' + name + u".raise"_s);
    ASSERT_EQ(mkfifo(lure.constData(), 0600), 0);
    const int heard = ::open(lure.constData(), O_RDWR | O_NONBLOCK);
    const SingleInstance first(name, open);
    EXPECT_FALSE(SingleInstance(name, open).raiseFirst());
    char byte = 0;
    EXPECT_EQ(read(heard, &byte, 1), -1) << "and nothing is written there";
    close(heard);
}

TEST_F(Instance, WithoutAnyFolderEveryProgramStarts) {
    const EnvironmentVariable home("HOME", folder.filePath(u"absent"_s));
    const SingleInstance first(name, u"/dev/null"_s);
    EXPECT_TRUE(first.first());
    EXPECT_TRUE(SingleInstance(name, u"/dev/null"_s).first());
}

TEST_F(Instance, WithoutAFileToLockStillOnlyOneStarts) {
    const EnvironmentVariable home("HOME", folder.path());
    ASSERT_TRUE(QDir().mkpath(folder.filePath(name + u".lock"_s)));
    const SingleInstance first(name, folder.path());
    EXPECT_TRUE(first.first());
    EXPECT_FALSE(SingleInstance(name, folder.path()).first());
}

TEST_F(Instance, WithoutARuntimeFolderThereIsAPrivateOneInTheCache) {
    if (QFileInfo::exists(u"/run/user/%1"_s.arg(geteuid())))
        GTEST_SKIP() << "the system has made this user a runtime folder";
    const EnvironmentVariable cache("XDG_CACHE_HOME", folder.filePath(u"cache"_s));
    for (const QString& runtime : {QString(), folder.filePath(u"absent"_s), u"/tmp"_s}) {
        const EnvironmentVariable without("XDG_RUNTIME_DIR", runtime);
        EXPECT_EQ(SingleInstance::defaultFolder(u"velmorante2000"_s), folder.filePath(u"cache/velmorante2000"_s));
    }
    const EnvironmentVariable none("XDG_RUNTIME_DIR", QString());
    const SingleInstance first(name, SingleInstance::defaultFolder(u"velmorante2000"_s));
    EXPECT_TRUE(first.first());
    struct stat info {};
    ASSERT_EQ(stat(QFile::encodeName(SingleInstance::defaultFolder(u"velmorante2000"_s)).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777U, 0700U);
    // Where temporary files go has no say in it.
    const EnvironmentVariable temporary("TMPDIR", folder.filePath(u"elsewhere"_s));
    EXPECT_FALSE(SingleInstance(name, SingleInstance::defaultFolder(u"velmorante2000"_s)).first());
}

TEST_F(Instance, ARuntimeFolderOfTheUsersOwnIsTaken) {
    const EnvironmentVariable runtime("XDG_RUNTIME_DIR", folder.path());
    EXPECT_EQ(SingleInstance::defaultFolder(u"velmorante2000"_s), folder.path());
}

TEST_F(Instance, SomethingElseInPlaceOfThePipeIsNotWrittenTo) {
    QFile lure(folder.filePath(name + u".raise"_s));
    ASSERT_TRUE(lure.open(QIODevice::WriteOnly));
    SingleInstance first(name, folder.path());
    EXPECT_TRUE(first.first());
    first.setOnRaise([] { ADD_FAILURE(); });
    EXPECT_FALSE(SingleInstance(name, folder.path()).raiseFirst());
    EXPECT_EQ(QFileInfo(lure.fileName()).size(), 0);
}

} // namespace

TEST_F(Instance, ALinkInPlaceOfTheLockIsNotFollowed) {
    const QString elsewhere = folder.filePath(u"elsewhere"_s);
    const QString inside = folder.filePath(u"inside"_s);
    ASSERT_TRUE(QDir().mkpath(inside));
    ASSERT_TRUE(QFile::setPermissions(inside, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    ASSERT_TRUE(QFile::link(elsewhere, inside + u'/' + name + u".lock"_s));
    const SingleInstance first(name, inside);
    EXPECT_TRUE(first.first());
    EXPECT_FALSE(QFile::exists(elsewhere));
}
