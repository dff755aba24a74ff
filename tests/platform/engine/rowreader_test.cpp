#include "core/schemas.h"
#include "platform/engine/rowreader.h"
#include "tests/platform/engine/base.h"

namespace velm::testing {
namespace {

class RowReaderTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        const auto made = Database::create(path(), corpusSchema());
        ASSERT_NE(made.database, nullptr);
        fill(*made.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s},
             {{u"CO"_s, u"000001"_s, u"Été à 5 €"_s}, {u"CO"_s, u"000002"_s, QVariant()}});
        fill(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s}, {{u"UN"_s, QByteArray("A\0\0\1\xFF", 5)}});
        ASSERT_TRUE(made.database->execute(u"INSERT INTO données(référence,numart,titre) VALUES('CO','000003',42)"_s));
    }
};

TEST_F(RowReaderTest, FieldsAreReadWhereTheyLie) {
    const auto base = open(corpusSchema());
    RowReader reader(*base, u"données"_s, {u"titre"_s, u"numart"_s});
    ASSERT_TRUE(reader.usable());
    ASSERT_EQ(reader.read(1), RowReader::Found::Row);
    EXPECT_EQ(reader.bytes(0).toByteArray(), "\xC9t\xE9 \xE0 5 \x80");
    EXPECT_EQ(reader.bytes(1).toByteArray(), "000001");
    EXPECT_EQ(reader.number(1), 1);
    EXPECT_FALSE(reader.isNull(0));
    ASSERT_EQ(reader.read(2), RowReader::Found::Row);
    EXPECT_TRUE(reader.isNull(0));
    EXPECT_TRUE(reader.bytes(0).isEmpty());
    ASSERT_EQ(reader.read(3), RowReader::Found::Row);
    EXPECT_EQ(reader.bytes(0).toByteArray(), "42");
}

TEST_F(RowReaderTest, BytesComeAsTheyAre) {
    const auto base = open(corpusSchema());
    RowReader reader(*base, u"dico"_s, {u"liste"_s});
    ASSERT_EQ(reader.read(1), RowReader::Found::Row);
    EXPECT_EQ(reader.bytes(0).toByteArray(), QByteArray("A\0\0\1\xFF", 5));
}

TEST_F(RowReaderTest, ARowThatIsNotThereHoldsNothing) {
    const auto base = open(corpusSchema());
    RowReader reader(*base, u"données"_s, {u"titre"_s});
    for (const qint64 row : {0, -1, 4}) {
        EXPECT_EQ(reader.read(row), RowReader::Found::NoRow);
        EXPECT_TRUE(reader.isNull(0));
        EXPECT_TRUE(reader.bytes(0).isEmpty());
        EXPECT_EQ(reader.number(0), 0);
    }
    ASSERT_EQ(reader.read(1), RowReader::Found::Row);
    reader.release();
    EXPECT_TRUE(reader.isNull(0));
}

TEST_F(RowReaderTest, WhatTheBaseLacksLeavesTheReaderUnusable) {
    const auto base = open(corpusSchema());
    for (RowReader* reader :
         {new RowReader(*base, u"absente"_s, {u"titre"_s}), new RowReader(*base, QString(), {u"titre"_s}),
          new RowReader(*base, u"données"_s, {u"absent"_s})}) {
        const std::unique_ptr<RowReader> owned(reader);
        EXPECT_FALSE(owned->usable());
        EXPECT_EQ(owned->read(1), RowReader::Found::NoRow);
    }
}

TEST_F(RowReaderTest, AReaderHoldsNoLockOnceReleased) {
    const auto base = open(corpusSchema());
    RowReader reader(*base, u"données"_s, {u"titre"_s});
    ASSERT_EQ(reader.read(1), RowReader::Found::Row);
    reader.release();
    base->releaseLocks();
    const auto other = open(corpusSchema());
    EXPECT_TRUE(other->execute(u"UPDATE données SET titre='neuf' WHERE id=1"_s));
    ASSERT_EQ(reader.read(1), RowReader::Found::Row);
    EXPECT_EQ(reader.bytes(0).toByteArray(), "neuf");
}

} // namespace
} // namespace velm::testing
