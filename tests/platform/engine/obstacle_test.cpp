// What stood in the way of a base, by kind: without a look at the engine's words.
#include "core/schemas.h"
#include "platform/engine/rowreader.h"
#include "tests/platform/engine/base.h"
#include "tests/support/full_disk.h"
#include "tests/support/odd_files.h"
#include "tests/support/without_rights.h"

#include <QFile>
#include <QFileInfo>

namespace velm::testing {
namespace {

using test::FullDisk;
using test::NobodyWaits;
using test::WithoutRights;

class ObstacleTest : public EngineTest {
protected:
    void make() const { ASSERT_TRUE(Database::create(path(), corpusSchema()).database); }
    QString folder() const { return QFileInfo(path()).absolutePath(); }
    void write(const QByteArray& bytes) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    Obstacle opening(OpenMode mode = OpenMode::Shared) const {
        return Database::open(path(), mode, corpusSchema()).obstacle;
    }
    void both(Obstacle wanted) const {
        EXPECT_EQ(opening(OpenMode::Shared), wanted);
        EXPECT_EQ(opening(OpenMode::ExclusiveReadOnly), wanted);
    }
    Obstacle making(const QString& name) const { return Database::create(path(name), corpusSchema()).obstacle; }
    /// Rows until one does not fit any more.
    static void fillUp(Database& base) {
        TableWriter writer(base, u"dico"_s, {u"mot"_s, u"liste"_s});
        int written = 0;
        while (written < 100000 && writer.add({u"MOT%1"_s.arg(written), QByteArray(4000, 'x')}))
            ++written;
        EXPECT_LT(written, 100000);
    }
};

TEST_F(ObstacleTest, MissingDeniedAndDamagedBasesAreToldApart) {
    both(Obstacle::Missing);
    make();
    both(Obstacle::None);
    write("not a base at all, but long enough to hold a header of one hundred bytes, which this text is meant to be.");
    both(Obstacle::Damaged);
    write("\0\1\0\0Standard Jet DB");
    both(Obstacle::Damaged);
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::Permissions()));
    const WithoutRights nobody;
    both(Obstacle::Denied);
}

TEST_F(ObstacleTest, AFolderThatHidesItsBaseDeniesIt) {
    ASSERT_TRUE(QDir().mkpath(path(u"hidden"_s)));
    ASSERT_TRUE(Database::create(path(u"hidden/base.dat"_s), corpusSchema()).database);
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(path(u"hidden"_s), QFile::Permissions(0x7000)));
    {
        const WithoutRights nobody;
        const auto opened = Database::open(path(u"hidden/base.dat"_s), OpenMode::Shared, corpusSchema());
        EXPECT_EQ(opened.obstacle, Obstacle::Denied);
        EXPECT_EQ(opened.error, OpenError::Unreadable) << "it may be there";
    }
    QFile::setPermissions(path(u"hidden"_s), QFile::Permissions(0x7777));
}

TEST_F(ObstacleTest, WhatIsNoPlainFileIsNoBase) {
    const NobodyWaits watch;
    for (const auto& odd : {test::putPipe, test::putDevice, test::putFolder}) {
        odd(path());
        both(Obstacle::NotPlain);
    }
}

TEST_F(ObstacleTest, AJournalThatIsNoPlainFileKeepsNobodyWaiting) {
    const NobodyWaits watch;
    make();
    for (const auto& odd : {test::putPipe, test::putDevice, test::putFolder}) {
        odd(path(u"base.dat-journal"_s));
        both(Obstacle::NotPlain);
        EXPECT_EQ(Database::open(path(), OpenMode::Shared, corpusSchema()).error, OpenError::Unreadable);
    }
}

TEST_F(ObstacleTest, AReadOnlyBaseIsToldWhenItIsToBeWritten) {
    make();
    const auto base = open(corpusSchema(), OpenMode::ExclusiveReadOnly);
    EXPECT_EQ(base->obstacle(), Obstacle::None);
    const auto settings = base->openTable(u"paramètres"_s);
    settings->addNew();
    EXPECT_FALSE(settings->update());
    EXPECT_EQ(base->obstacle(), Obstacle::ReadOnly);
}

TEST_F(ObstacleTest, ABaseThatAnotherHoldsIsBusy) {
    make();
    const auto first = open(corpusSchema());
    const auto second = open(corpusSchema());
    ASSERT_TRUE(first->execute(u"PRAGMA busy_timeout=0"_s) && second->execute(u"PRAGMA busy_timeout=0"_s));
    ASSERT_TRUE(first->begin());
    EXPECT_FALSE(second->begin());
    EXPECT_EQ(second->obstacle(), Obstacle::Busy);
}

TEST_F(ObstacleTest, MakingTellsWhyItFails) {
    make();
    EXPECT_EQ(making(u"base.dat"_s), Obstacle::Exists);
    EXPECT_EQ(making(u"absent/base.dat"_s), Obstacle::NoFolder);
    ASSERT_TRUE(QFile::setPermissions(folder(), QFile::Permissions(0x7555)));
    const WithoutRights nobody;
    EXPECT_EQ(making(u"other.dat"_s), Obstacle::Denied);
}

TEST_F(ObstacleTest, AFileThatMayNotGrowIsAFullDisk) {
    for (const rlim_t bytes : {0U, 1U, 4096U, 30'000U}) {
        const FullDisk full(bytes);
        EXPECT_EQ(making(u"base.dat"_s), Obstacle::Full) << bytes;
        EXPECT_FALSE(QFile::exists(path())) << bytes;
    }
}

TEST_F(ObstacleTest, AFullDiskIsToldByTheWriter) {
    auto made = Database::create(path(), corpusSchema());
    {
        ASSERT_TRUE(made.database->execute(u"PRAGMA max_page_count=100"_s));
        fillUp(*made.database);
    }
    EXPECT_EQ(made.database->obstacle(), Obstacle::Full) << "the engine's own word for it";
    made = Database::create(path(u"other.dat"_s), corpusSchema());
    // Pages that do not fit into the cache go to the file at once.
    ASSERT_TRUE(made.database->execute(u"PRAGMA cache_size=5"_s));
    const FullDisk full(200'000);
    fillUp(*made.database);
    EXPECT_EQ(made.database->obstacle(), Obstacle::Full) << "the system's";
}

TEST_F(ObstacleTest, AFullDiskIsToldByTheEndOfATransaction) {
    auto made = Database::create(path(), corpusSchema());
    ASSERT_TRUE(made.database->begin());
    {
        TableWriter writer(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s});
        ASSERT_TRUE(writer.add({u"MOT"_s, QByteArray(1'000'000, 'x')}));
        ASSERT_TRUE(writer.finish());
    }
    const FullDisk full(200'000);
    EXPECT_FALSE(made.database->commit());
    EXPECT_EQ(made.database->obstacle(), Obstacle::Full);
}

TEST_F(ObstacleTest, AFullDiskIsStillToldAfterTheRowWasUndone) {
    auto made = Database::create(path(), dossiersSchema());
    made.database->close();
    const auto base = open(dossiersSchema());
    ASSERT_TRUE(base->execute(u"PRAGMA max_page_count=12"_s));
    const auto items = base->openTable(u"données"_s);
    bool written = true;
    for (int row = 0; written && row < 1000; ++row) {
        items->addNew();
        items->setValue(u"titre"_s, QString(2000, u'x'));
        written = items->update();
    }
    ASSERT_FALSE(written);
    EXPECT_EQ(base->obstacle(), Obstacle::Full);
}

TEST_F(ObstacleTest, ADamagedRowIsToldByItsReader) {
    auto made = Database::create(path(), corpusSchema());
    fill(*made.database, u"données_contenu"_s, {u"contenu"_s}, {{QByteArray(20'000, 'x')}});
    made.database->close();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    // The pages of the long value lie at the end; the first four bytes of each name the next one.
    for (qint64 page = file.size() - 4096; page >= file.size() - 3 * 4096; page -= 4096) {
        ASSERT_TRUE(file.seek(page));
        file.write(QByteArray(4, '\xff'));
    }
    file.close();
    const auto base = open(corpusSchema());
    RowReader reader(*base, u"données_contenu"_s, {u"contenu"_s});
    EXPECT_EQ(reader.read(1), RowReader::Found::Failed);
    EXPECT_EQ(base->obstacle(), Obstacle::Damaged);
    EXPECT_NE(base->lastError(), QString());
}

TEST_F(ObstacleTest, AnEmptyFileIsFilledOnDemand) {
    write({});
    EXPECT_EQ(making(u"base.dat"_s), Obstacle::Exists);
    EXPECT_TRUE(Database::create(path(), corpusSchema(), Database::Making::OverEmpty).database);
    both(Obstacle::None);
}

} // namespace
} // namespace velm::testing
