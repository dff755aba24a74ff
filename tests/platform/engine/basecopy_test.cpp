// Second bases made of an open one.
#include "core/schemas.h"
#include "platform/engine/basecopy.h"
#include "tests/platform/engine/base.h"
#include "tests/support/full_disk.h"
#include "tests/support/without_rights.h"

#include <QDir>

#include <sys/stat.h>

namespace velm::testing {
namespace {

class BaseCopyTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        base = store(dossiersSchema());
        ASSERT_TRUE(base);
        fills(1, 400);
    }
    void fills(int first, int last) {
        ASSERT_TRUE(base->begin());
        const auto folders = base->openTable(u"arborescences"_s);
        for (int i = first; i <= last; ++i) {
            folders->addNew();
            folders->setValue(u"numerodutype"_s, i);
            folders->setValue(u"typededonnées"_s, QString(300, u'n'));
            ASSERT_TRUE(folders->update());
        }
        ASSERT_TRUE(base->commit());
    }
    QString copy() const { return path(u"copie.dat"_s); }
    qint64 rowsOfCopy() const {
        const auto opened = Database::open(copy(), OpenMode::ExclusiveReadOnly, dossiersSchema()).database;
        return opened && opened->check() ? opened->openTable(u"arborescences"_s)->recordCount() : -1;
    }
    QStringList others() const {
        return QFileInfo(copy()).dir().entryList({u"copie.dat?*"_s}, QDir::Files | QDir::Hidden);
    }

    std::unique_ptr<Database> base;
};

TEST_F(BaseCopyTest, ABackUpHoldsAllThatTheBaseHolds) {
    ASSERT_TRUE(backUp(*base, copy()));
    EXPECT_EQ(rowsOfCopy(), 400);
    EXPECT_TRUE(others().isEmpty());
    EXPECT_EQ(base->openTable(u"arborescences"_s)->recordCount(), 400);
    // The base goes on.
    fills(401, 402);
    EXPECT_EQ(rowsOfCopy(), 400);
}

TEST_F(BaseCopyTest, ABackUpReplacesWhatIsThere) {
    ASSERT_TRUE(backUp(*base, copy()));
    fills(401, 500);
    ASSERT_TRUE(backUp(*base, copy()));
    EXPECT_EQ(rowsOfCopy(), 500);
}

TEST_F(BaseCopyTest, ABackUpTellsHowFarItIs) {
    fills(401, 6000);
    std::vector<double> told;
    ASSERT_TRUE(backUp(*base, copy(), [&](double percent) { told.push_back(percent); }));
    ASSERT_GT(told.size(), 1U);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.front(), 0);
    EXPECT_EQ(told.back(), 100);
}

TEST_F(BaseCopyTest, WhatAKilledBackUpHasLeftIsNoHindrance) {
    QFile half(copy() + u".nouveau"_s);
    ASSERT_TRUE(half.open(QIODevice::WriteOnly) && half.write(QByteArray(5000, 'x')) == 5000);
    half.close();
    ASSERT_TRUE(backUp(*base, copy()));
    EXPECT_EQ(rowsOfCopy(), 400);
    EXPECT_TRUE(others().isEmpty());
}

TEST_F(BaseCopyTest, OnAFullDiskTheOldCopyStaysWhole) {
    ASSERT_TRUE(backUp(*base, copy()));
    fills(401, 800);
    for (const auto make : {+[](Database&from, const QString&to) { return backUp(from, to); }, &rebuildInto}) {
        {
            const test::FullDisk full(100'000);
            EXPECT_FALSE(make(*base, copy()));
        }
        EXPECT_EQ(base->obstacle(), Obstacle::Full);
        EXPECT_FALSE(base->lastError().isEmpty());
        EXPECT_EQ(rowsOfCopy(), 400);
        EXPECT_TRUE(others().isEmpty());
    }
    ASSERT_TRUE(rebuildInto(*base, copy()));
    EXPECT_EQ(rowsOfCopy(), 800);
}

TEST_F(BaseCopyTest, WhereNothingMayBeWrittenNothingIsLeft) {
    const QString folder = path(u"ferme"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0555), 0);
    const test::WithoutRights none;
    EXPECT_FALSE(backUp(*base, folder + u"/copie.dat"_s));
    EXPECT_FALSE(base->lastError().isEmpty());
    EXPECT_FALSE(rebuildInto(*base, folder + u"/copie.dat"_s));
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(BaseCopyTest, AFolderInItsPlaceIsNotReplaced) {
    ASSERT_TRUE(QDir().mkpath(copy() + u"/plein"_s));
    EXPECT_FALSE(backUp(*base, copy()));
    EXPECT_NE(base->obstacle(), Obstacle::None);
    EXPECT_FALSE(rebuildInto(*base, copy()));
    EXPECT_TRUE(QDir(copy() + u"/plein"_s).exists());
    EXPECT_TRUE(others().isEmpty());
}

TEST_F(BaseCopyTest, ARebuiltBaseHasNoRoomUnused) {
    ASSERT_TRUE(base->execute(u"DELETE FROM arborescences WHERE numerodutype>10"_s));
    const qint64 before = QFileInfo(path()).size();
    ASSERT_TRUE(rebuildInto(*base, copy()));
    EXPECT_EQ(rowsOfCopy(), 10);
    EXPECT_LT(QFileInfo(copy()).size(), before / 2);
    EXPECT_EQ(QFileInfo(path()).size(), before);
}

TEST_F(BaseCopyTest, NoBaseIsRebuiltInsideATransaction) {
    ASSERT_TRUE(base->begin());
    EXPECT_FALSE(rebuildInto(*base, copy()));
    EXPECT_FALSE(QFile::exists(copy()));
    EXPECT_TRUE(others().isEmpty());
    EXPECT_TRUE(base->commit());
}

TEST_F(BaseCopyTest, APathMayHoldAnyCharacters) {
    const QString odd = path(u"une copie à 100 % ?mode=ro#'\".dat"_s);
    ASSERT_TRUE(backUp(*base, odd));
    EXPECT_TRUE(QFile::exists(odd));
    ASSERT_TRUE(QFile::remove(odd));
    ASSERT_TRUE(rebuildInto(*base, odd));
    EXPECT_TRUE(QFile::exists(odd));
}

TEST_F(BaseCopyTest, ABaseIsCompleteWithAllTablesAndAllFields) {
    QString missing = u"as it was"_s;
    EXPECT_TRUE(complete(*base, &missing));
    EXPECT_EQ(missing, u"as it was"_s);
    ASSERT_TRUE(base->execute(u"ALTER TABLE données RENAME COLUMN titre TO intitulé"_s));
    EXPECT_FALSE(complete(*base, &missing));
    EXPECT_EQ(missing, u"données"_s);
    ASSERT_TRUE(base->execute(u"ALTER TABLE données RENAME COLUMN intitulé TO TITRE"_s));
    EXPECT_TRUE(complete(*base));
    ASSERT_TRUE(base->execute(u"DROP TABLE paramètres"_s));
    EXPECT_FALSE(complete(*base, &missing));
    EXPECT_EQ(missing, u"paramètres"_s);
}

TEST_F(BaseCopyTest, ACorpusIsCompleteWithoutItsOptionalTablesAndItsSideTable) {
    ASSERT_TRUE(QFile::remove(path()));
    const auto made = Database::create(path(), corpusSchema());
    ASSERT_TRUE(made.database);
    EXPECT_TRUE(complete(*made.database));
}

} // namespace
} // namespace velm::testing
