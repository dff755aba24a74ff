#include "tests/platform/engine/base.h"

namespace velm::testing {
namespace {

class RecordsetTest : public EngineTest {
protected:
    const std::vector<QString> fields{u"référence"_s,          u"numart"_s, u"titre"_s, u"Date"_s,
                                      u"numeroarborescence"_s, u"contenu"_s};
    const Rows rows{{u"CO"_s, u"000001"_s, u"Étude"_s, u"2001-03-04"_s, 5, u"{\\rtf1 un}"_s},
                    {u"CO"_s, u"000002"_s, u"etude"_s, u"1999-12-31"_s, 5, u"{\\rtf1 deux}"_s},
                    {u"CO"_s, u"000003"_s, u"Abus"_s, QVariant(), 7, QVariant()},
                    {u"DI"_s, u"000001"_s, u"abus"_s, u"2001-03-04"_s, QVariant(), u"{\\rtf1 quatre}"_s},
                    {u"EU"_s, u"000009"_s, QVariant(), u"2000-01-01"_s, 5, u"{\\rtf1 cinq}"_s}};

    void SetUp() override {
        EngineTest::SetUp();
        {
            auto made = Database::create(path(), corpusSchema());
            ASSERT_TRUE(made.database) << made.message.toStdString();
            fill(*made.database, u"données"_s, fields, rows);
        }
        base = open(corpusSchema());
        ASSERT_TRUE(base);
        documents = base->openTable(u"données"_s);
    }

    QString key() const { return documents->text(u"référence"_s) + documents->text(u"numart"_s); }
    QStringList keysToEnd() {
        QStringList keys;
        for (; !documents->eof(); documents->moveNext())
            keys << key();
        return keys;
    }

    std::unique_ptr<Database> base;
    std::unique_ptr<Recordset> documents;
};

TEST_F(RecordsetTest, OpensOnTheFirstRowOfThePrimaryOrder) {
    EXPECT_EQ(documents->index(), u"primarykey"_s);
    EXPECT_EQ(key(), u"CO000001"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"DI000001"_s, u"EU000009"_s}));
}

TEST_F(RecordsetTest, SeekEqualFindsTheRowAndMovesGoOnFromThere) {
    documents->seek(Seek::Equal, u"CO"_s, u"000003"_s);
    EXPECT_FALSE(documents->noMatch());
    EXPECT_EQ(documents->text(u"titre"_s), u"Abus"_s);
    documents->moveNext();
    EXPECT_EQ(key(), u"DI000001"_s);
    documents->movePrevious();
    documents->movePrevious();
    EXPECT_EQ(key(), u"CO000002"_s);
}

TEST_F(RecordsetTest, IndexesOrderTheRows) {
    documents->setIndex(u"icattitre"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000003"_s, u"CO000002"_s, u"CO000001"_s, u"DI000001"_s, u"EU000009"_s}));
    documents->setIndex(u"idate"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000003"_s, u"CO000002"_s, u"EU000009"_s, u"CO000001"_s, u"DI000001"_s}));
    documents->setIndex(u"numerodutype"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"DI000001"_s, u"CO000001"_s, u"CO000002"_s, u"EU000009"_s, u"CO000003"_s}));
}

TEST_F(RecordsetTest, TheBodyIsFetchedOnDemand) {
    documents->seek(Seek::Equal, u"CO"_s, u"000002"_s);
    EXPECT_EQ(documents->text(u"contenu"_s), u"{\\rtf1 deux}"_s);
    documents->moveNext();
    EXPECT_TRUE(documents->isNull(u"contenu"_s));
    documents->moveNext();
    EXPECT_EQ(documents->bytes(u"contenu"_s), "{\\rtf1 quatre}");
}

} // namespace
} // namespace velm::testing
