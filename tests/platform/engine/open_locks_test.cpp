// Bases that others hold, have left in the middle of a change, or put in another's place.
#include "openfixture.h"

namespace velm::testing {
namespace {

/// Whether another process finds a lock on the file.
bool lockedForOthers(const QString& file) {
    const pid_t child = fork();
    if (child == 0) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        const int descriptor = ::open(file.toUtf8().constData(), O_RDWR);
        const bool locked = fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
        _exit(locked ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST_F(OpenTest, LooksAtAFileWithoutDroppingTheLocksOfItsOwnProcess) {
    make();
    EXPECT_FALSE(lockedForOthers(path()));
    const auto base = open(corpusSchema());
    ASSERT_TRUE(base->begin());
    EXPECT_TRUE(lockedForOthers(path()));
    EXPECT_EQ(errorOf(path(), OpenMode::Shared), OpenError::None);
    EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
    EXPECT_TRUE(lockedForOthers(path()));
}

TEST_F(OpenTest, ReleasedLocksAreGoneForOthers) {
    make();
    const auto base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    words->seek(Seek::Equal, u"MOT5"_s);
    EXPECT_TRUE(lockedForOthers(path()));
    base->releaseLocks();
    EXPECT_FALSE(lockedForOthers(path()));
}

TEST_F(OpenTest, ATruncatedFileIsForeign) {
    make();
    const QByteArray whole = contents();
    const qsizetype pageSize = 4096;
    ASSERT_GT(whole.size(), 10 * pageSize);
    for (qsizetype size = 0; size < whole.size(); size += pageSize) {
        write(whole.left(size));
        expectBoth(path(), OpenError::Foreign);
    }
    write(whole.left(whole.size() - 1));
    expectBoth(path(), OpenError::Foreign);
    write(whole);
    expectBoth(path(), OpenError::None);
    write(whole + QByteArray(4096, '\0'));
    expectBoth(path(), OpenError::None);
}

TEST_F(OpenTest, AnInterruptedChangeIsUndoneAtTheSharedOpening) {
    make();
    const QByteArray before = contents();
    QByteArray journal;
    QByteArray half;
    {
        const auto base = open(corpusSchema());
        ASSERT_TRUE(base->execute(u"PRAGMA cache_size=5"_s));
        ASSERT_TRUE(base->begin());
        // More than the cache holds, so that some of it is in the file before the end.
        ASSERT_TRUE(base->execute(u"UPDATE dico SET liste=zeroblob(600)"_s));
        half = contents();
        QFile file(path(u"base.dat-journal"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        journal = file.readAll();
        base->rollback();
    }
    ASSERT_NE(half, before);
    write(half);
    write(journal, u"base.dat-journal"_s);
    EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::Unreadable)
        << "without writing it cannot be undone, and half a change is not shown";
    EXPECT_EQ(errorOf(path(), OpenMode::Shared), OpenError::None);
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
}

TEST_F(OpenTest, AnEmptyOrWipedJournalIsNoObstacle) {
    make();
    write(QByteArray(), u"base.dat-journal"_s);
    EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
    write(QByteArray(512, '\0'), u"base.dat-journal"_s);
    EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
}

TEST_F(OpenTest, AnUpdateToolWritesAfterTheLocksAreReleased) {
    make();
    const auto base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    words->seek(Seek::Equal, u"MOT5"_s);
    words->moveNext();
    EXPECT_EQ(words->text(u"mot"_s), u"MOT50"_s);
    base->releaseLocks();
    foreign(u"DELETE FROM dico WHERE mot='MOT500'"_s);
    words->moveNext();
    EXPECT_EQ(words->text(u"mot"_s), u"MOT501"_s) << "the walk goes on in what is there now";
}

TEST_F(OpenTest, AFileReplacedByAnotherIsReadOnAsItWas) {
    make();
    const auto base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    make(u"new.dat"_s);
    ASSERT_EQ(std::rename(path(u"new.dat"_s).toUtf8().constData(), path().toUtf8().constData()), 0);
    EXPECT_EQ(rest(*words, u"mot"_s).size(), 2000);
    words->seek(Seek::Equal, u"MOT77"_s);
    EXPECT_FALSE(words->noMatch());
}

} // namespace
} // namespace velm::testing
