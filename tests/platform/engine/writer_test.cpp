#include "core/schemas.h"
#include "platform/engine/catalogue.h"
#include "platform/engine/database_p.h"
#include "tests/platform/engine/base.h"

#include <QFile>

namespace velm::testing {
namespace {

class WriterTest : public EngineTest {
protected:
    QByteArray bytesOf(const QString& name) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void build(const QString& name) {
        auto made = Database::create(path(name), corpusSchema());
        ASSERT_TRUE(made.database);
        TableWriter links(*made.database, u"liens"_s, {u"référencedépart"_s, u"numartdépart"_s});
        TableWriter documents(*made.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
        for (int i = 0; i < 3000; ++i) {
            ASSERT_TRUE(documents.add({u"CO"_s, u"%1"_s.arg(i, 6, 10, QChar(u'0')), u"Titre %1"_s.arg(i * 7 % 100),
                                       QByteArray("{\\rtf1 }").repeated(i % 50)}));
            ASSERT_TRUE(links.add({u"CO"_s, u"%1"_s.arg(i * 13 % 3000, 6, 10, QChar(u'0'))}));
        }
        ASSERT_TRUE(links.finish());
        ASSERT_TRUE(documents.finish());
        ASSERT_TRUE(made.database->sync());
    }
};

TEST_F(WriterTest, TheSameRowsGiveTheSameBytes) {
    build(u"one.dat"_s);
    build(u"two.dat"_s);
    EXPECT_EQ(bytesOf(u"one.dat"_s), bytesOf(u"two.dat"_s));
}

TEST_F(WriterTest, WhatIsWrittenIsWholeAndEveryIndexIsThere) {
    build(u"base.dat"_s);
    const auto base = open(corpusSchema());
    ASSERT_TRUE(base);
    QString report;
    EXPECT_TRUE(base->check(&report)) << report.toStdString();
    for (const TableDef& table : corpusSchema().tables) {
        for (const IndexDef& index : table.indexes)
            EXPECT_TRUE(catalogue::hasIndex(base->d()->handle, table, index)) << table.name.toStdString();
    }
    const auto links = base->openTable(u"liens"_s);
    EXPECT_EQ(links->recordCount(), 3000);
    EXPECT_FALSE(QFile::exists(path(u"base.dat-journal"_s)));
}

TEST_F(WriterTest, AnIndexOfOurNameThatAnotherToolMadeOtherwiseIsNotOurs) {
    Database::create(path(), corpusSchema());
    const TableDef& links = *corpusSchema().table(u"liens"_s);
    const IndexDef& index = *links.index(u"correlats"_s);
    const std::pair<QString, bool> makings[] = {
        {u"liens(référencearrivée, numartarrivée)"_s, true},
        {u"liens(numartarrivée, référencearrivée)"_s, false},
        {u"liens(référencearrivée)"_s, false},
        {u"liens(référencearrivée, numartarrivée) WHERE numartarrivée>'1'"_s, false},
        {u"données(référence, numart)"_s, false},
    };
    for (const auto& [making, ours] : makings) {
        SCOPED_TRACE(making.toStdString());
        foreign(u"DROP INDEX liens_correlats; CREATE INDEX liens_correlats ON "_s + making);
        const auto base = open(corpusSchema());
        ASSERT_TRUE(base);
        EXPECT_EQ(catalogue::hasIndex(base->d()->handle, links, index), ours);
    }
    foreign(u"DROP INDEX liens_correlats; CREATE INDEX liens_correlats ON données(référence, numart)"_s);
    foreign(u"ALTER TABLE données RENAME COLUMN référence TO référencearrivée;"
            "ALTER TABLE données RENAME COLUMN numart TO numartarrivée"_s);
    const auto base = open(corpusSchema());
    ASSERT_TRUE(base);
    EXPECT_FALSE(catalogue::hasIndex(base->d()->handle, links, index)) << "another table's";
}

TEST_F(WriterTest, ARepeatedKeyIsRefusedAtItsRow) {
    auto made = Database::create(path(), corpusSchema());
    TableWriter writer(*made.database, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
    EXPECT_TRUE(writer.add({u"Été"_s, 1}));
    EXPECT_FALSE(writer.add({u"ÉTÉ"_s, 2})) << "case makes no difference";
    EXPECT_NE(made.database->lastError(), QString());
    EXPECT_TRUE(writer.add({u"Ete"_s, 3})) << "accents do";
    EXPECT_TRUE(writer.finish());
    EXPECT_EQ(made.database->openTable(u"motclés"_s)->recordCount(), 2);
}

TEST_F(WriterTest, RowsOfTheWrongWidthAndUnknownFieldsAreRefused) {
    auto made = Database::create(path(), corpusSchema());
    TableWriter writer(*made.database, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
    EXPECT_FALSE(writer.add({u"seul"_s}));
    TableWriter unknownField(*made.database, u"motclés"_s, {u"inconnu"_s});
    EXPECT_FALSE(unknownField.add({1}));
    EXPECT_NE(made.database->lastError(), QString());
    EXPECT_FALSE(unknownField.finish());
    TableWriter unknownTable(*made.database, u"inconnue"_s, {u"a"_s});
    EXPECT_FALSE(unknownTable.add({1}));
    EXPECT_FALSE(unknownTable.finish());
    EXPECT_TRUE(writer.add({u"a"_s, 1}));
    EXPECT_TRUE(writer.finish());
    EXPECT_FALSE(writer.add({u"b"_s, 1})) << "it is finished";
}

TEST_F(WriterTest, AnOpenTransactionIsUsedAndLeftOpen) {
    auto made = Database::create(path(), corpusSchema());
    ASSERT_TRUE(made.database->begin());
    fill(*made.database, u"motclés"_s, {u"motcle"_s}, {{u"a"_s}});
    EXPECT_TRUE(made.database->inTransaction());
    made.database->rollback();
    EXPECT_EQ(made.database->openTable(u"motclés"_s)->recordCount(), 0);
}

TEST_F(WriterTest, RowsAreAddedToATableThatHasSome) {
    auto made = Database::create(path(), corpusSchema());
    fill(*made.database, u"liens"_s, {u"référencedépart"_s}, {{u"CO"_s}});
    fill(*made.database, u"liens"_s, {u"référencedépart"_s}, {{u"AD"_s}});
    const auto links = made.database->openTable(u"liens"_s);
    links->setIndex(u"liens"_s);
    EXPECT_EQ(rest(*links, u"référencedépart"_s), (QStringList{u"AD"_s, u"CO"_s}));
}

TEST_F(WriterTest, AFullDiskIsTold) {
    auto made = Database::create(path(), corpusSchema());
    ASSERT_TRUE(made.database->execute(u"PRAGMA max_page_count=40"_s));
    TableWriter writer(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s});
    int written = 0;
    while (written < 1000 && writer.add({u"MOT%1"_s.arg(written), QByteArray(4000, 'x')}))
        ++written;
    EXPECT_LT(written, 1000);
    EXPECT_FALSE(made.database->lastError().isEmpty());
}

TEST_F(WriterTest, EveryKindOfValueIsKept) {
    auto made = Database::create(path(), corpusSchema());
    fill(*made.database, u"données"_s, {u"référence"_s, u"numart"_s, u"Date"_s, u"BackColor"_s, u"titre"_s},
         {{u"CO"_s, u"000001"_s, QDate(1804, 3, 21), 0xFFFFFFU, true},
          {u"CO"_s, u"000002"_s, QDate(), 1.5, QVariant()}});
    const auto documents = made.database->openTable(u"données"_s);
    EXPECT_EQ(documents->text(u"Date"_s), u"1804-03-21"_s);
    EXPECT_EQ(documents->value(u"BackColor"_s), QVariant(16777215LL));
    EXPECT_EQ(documents->text(u"titre"_s), u"1"_s);
    documents->moveNext();
    EXPECT_TRUE(documents->isNull(u"Date"_s)) << "no date is Null";
    EXPECT_EQ(documents->number(u"BackColor"_s), 2);
    EXPECT_EQ(documents->text(u"BackColor"_s), u"1.5"_s);
}

} // namespace
} // namespace velm::testing
