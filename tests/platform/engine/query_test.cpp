#include "core/schemas.h"
#include "tests/platform/engine/base.h"

namespace velm::testing {
namespace {

TEST(TranslateQuotes, LiteralsInDoubleQuotesBecomeSingleQuoted) {
    EXPECT_EQ(translateQuotes(u"SELECT * FROM t WHERE a=\"x\""_s), u"SELECT * FROM t WHERE a='x'"_s);
    EXPECT_EQ(translateQuotes(u"a in (\"CO\",\"EU\")"_s), u"a in ('CO','EU')"_s);
    EXPECT_EQ(translateQuotes(u"a=\"\""_s), u"a=''"_s);
    EXPECT_EQ(translateQuotes(QString()), QString());
}

TEST(TranslateQuotes, ADoubledMarkIsOneMark) {
    EXPECT_EQ(translateQuotes(u"a=\"x\"\"y\""_s), u"a='x\"y'"_s);
}

TEST(TranslateQuotes, AnApostropheInsideIsKept) {
    EXPECT_EQ(translateQuotes(u"a=\"l'eau\""_s), u"a='l''eau'"_s);
}

TEST(TranslateQuotes, SingleQuotedLiteralsStandAsTheyAre) {
    EXPECT_EQ(translateQuotes(u"a='x\"y' AND b=\"z\""_s), u"a='x\"y' AND b='z'"_s);
    EXPECT_EQ(translateQuotes(u"a='l''\"eau' AND b=\"z\""_s), u"a='l''\"eau' AND b='z'"_s);
}

TEST(TranslateQuotes, WhatIsNotClosedStandsAsItIs) {
    EXPECT_EQ(translateQuotes(u"a=\"x"_s), u"a=\"x"_s);
    EXPECT_EQ(translateQuotes(u"a='x"_s), u"a='x"_s);
    EXPECT_EQ(translateQuotes(u"\""_s), u"\""_s);
}

class QueryTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        {
            auto made = Database::create(path(), corpusSchema());
            ASSERT_TRUE(made.database);
            fill(*made.database, u"données"_s, {u"référence"_s, u"numart"_s, u"motclé1"_s, u"contenu"_s},
                 {{u"CO"_s, u"000001"_s, u"Vente"_s, u"corps"_s},
                  {u"EU"_s, u"000002"_s, u"l'eau"_s, QVariant()},
                  {u"EU"_s, u"000003"_s, u"VENTE"_s, QVariant()}});
        }
        base = open(corpusSchema());
        ASSERT_TRUE(base);
    }
    QStringList found(const QString& sql) {
        QString error;
        const auto rows = base->openQuery(sql, &error);
        if (!rows)
            return {u"refused"_s, error.isEmpty() ? u"silently"_s : u"with a reason"_s};
        QStringList numbers;
        for (; !rows->eof(); rows->moveNext())
            numbers << rows->text(u"numart"_s);
        return numbers;
    }

    std::unique_ptr<Database> base;
};

TEST_F(QueryTest, RowsAreReadForwardByFieldName) {
    EXPECT_EQ(found(u"SELECT * FROM données WHERE référence in (\"EU\")"_s), (QStringList{u"000002"_s, u"000003"_s}));
    EXPECT_EQ(found(u"SELECT numart FROM données WHERE référence='JP'"_s), QStringList());
    const auto rows = base->openQuery(u"SELECT titre, motclé1, numart FROM données"_s);
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->columns(), 3);
    EXPECT_TRUE(rows->value(0).isNull());
    EXPECT_EQ(rows->value(u"motclé1"_s), QVariant(u"Vente"_s));
    EXPECT_EQ(rows->number(u"numart"_s), 1);
    EXPECT_TRUE(rows->value(99).isNull());
}

TEST_F(QueryTest, TextIsComparedWithoutRegardToCase) {
    EXPECT_EQ(found(u"SELECT * FROM données WHERE ((motclé1=\"vente\") OR (motclé2=\"vente\"))"_s),
              (QStringList{u"000001"_s, u"000003"_s}));
    EXPECT_EQ(found(u"SELECT * FROM données WHERE motclé1=\"l'eau\""_s), QStringList{u"000002"_s});
}

TEST_F(QueryTest, AKeywordWithADoubleQuoteBreaksTheQuery) {
    const QString keyword = u"dit \"abusif"_s;
    const QString broken = u"SELECT * FROM données WHERE ((motclé1=\""_s + keyword + u"\") OR (motclé2=\""_s + keyword +
                           u"\") OR (motclé3=\""_s + keyword + u"\"))"_s;
    EXPECT_EQ(found(broken), (QStringList{u"refused"_s, u"with a reason"_s}));
}

TEST_F(QueryTest, AValueIsTakenAsItIsWhateverMarksItHolds) {
    const QString one = u"SELECT numart FROM données WHERE motclé1=?1"_s;
    const auto numbers = [&](const QString& sql, const QVariantList& values) {
        QStringList all;
        for (const auto rows = base->openQuery(sql, values); !rows->eof(); rows->moveNext())
            all << rows->text(0);
        return all;
    };
    EXPECT_EQ(numbers(one, {u"l'eau"_s}), QStringList{u"000002"_s});
    EXPECT_EQ(numbers(one, {u"vente"_s}), (QStringList{u"000001"_s, u"000003"_s})) << "texts compare as in literals";
    EXPECT_EQ(numbers(one, {u"dit \"abusif"_s}), QStringList());
    EXPECT_EQ(numbers(one, {u"x\" OR \"1\"=\"1"_s}), QStringList());
    EXPECT_EQ(numbers(one, {QVariant()}), QStringList()) << "nothing equals Null";
    EXPECT_EQ(numbers(u"SELECT numart FROM données WHERE référence=?2 ORDER BY numart DESC LIMIT ?1"_s, {1, u"EU"_s}),
              QStringList{u"000003"_s});
}

TEST_F(QueryTest, NumbersAreTakenManyAtATimeAndTheRestIsStillThere) {
    const QString all = u"SELECT CAST(numart AS INTEGER), numart FROM données ORDER BY numart"_s;
    for (const qsizetype most : {1, 2, 3, 50}) {
        const auto rows = base->openQuery(all);
        ASSERT_TRUE(rows);
        std::vector<qint64> taken;
        int steps = 0;
        for (; !rows->eof() && steps < 9; ++steps) {
            const qint64 standing = rows->number(0);
            const auto before = taken.size();
            rows->takeNumbers(taken, most);
            EXPECT_LE(taken.size() - before, static_cast<std::size_t>(most));
            EXPECT_EQ(taken.at(before), standing) << "from the row on which it stands";
        }
        EXPECT_EQ(taken, (std::vector<qint64>{1, 2, 3})) << most;
    }
    const auto rows = base->openQuery(all);
    std::vector<qint64> first;
    rows->takeNumbers(first, 1);
    EXPECT_EQ(rows->text(1), u"000002"_s) << "it stands behind what was taken";
    rows->takeNumbers(first, 0);
    EXPECT_EQ(first.size(), 1U);
    EXPECT_TRUE(rows->usable());
    base->close();
    EXPECT_FALSE(rows->usable());
}

TEST_F(QueryTest, RawBytesAreThoseOfTheRow) {
    const auto rows = base->openQuery(u"SELECT x'00FF', motclé1, 7, NULL FROM données ORDER BY rowid"_s);
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->raw(0), QByteArrayView("\0\xFF", 2));
    EXPECT_EQ(rows->raw(1), QByteArrayView("Vente"));
    EXPECT_TRUE(rows->raw(2).isEmpty());
    EXPECT_TRUE(rows->raw(3).isEmpty());
}

TEST_F(QueryTest, BytesAreComparedAsBytes) {
    const QString beside = u"SELECT ?1 < ?2, typeof(?1)"_s;
    const auto rows = base->openQuery(beside, {QByteArray("a"), QByteArray("a\xFF")});
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->number(0), 1);
    EXPECT_EQ(rows->text(1), u"blob"_s);
}

TEST_F(QueryTest, ValuesLastAsLongAsTheRows) {
    std::unique_ptr<Snapshot> rows;
    {
        QVariantList values{QString(u"E"_s + u'U')};
        rows = base->openQuery(u"SELECT numart, ?1 FROM données WHERE référence=?1"_s, values);
        values[0] = u"CO"_s;
    }
    ASSERT_TRUE(rows);
    QStringList read;
    for (; !rows->eof(); rows->moveNext())
        read << rows->text(0) + rows->text(1);
    EXPECT_EQ(read, (QStringList{u"000002EU"_s, u"000003EU"_s}));
}

TEST_F(QueryTest, AQueryGetsAsManyValuesAsItWants) {
    const QString one = u"SELECT numart FROM données WHERE référence=?1"_s;
    for (const QVariantList& values : {QVariantList{}, QVariantList{u"CO"_s, u"EU"_s}}) {
        QString error;
        EXPECT_EQ(base->openQuery(one, values, &error), nullptr);
        EXPECT_FALSE(error.isEmpty());
    }
    EXPECT_EQ(base->openQuery(one), nullptr);
    EXPECT_EQ(base->openQuery(u"SELECT numart FROM données"_s, {u"CO"_s}), nullptr);
}

TEST_F(QueryTest, OnlyOneReadingQueryIsTaken) {
    const QStringList refused{u"refused"_s, u"with a reason"_s};
    EXPECT_EQ(found(u"DELETE FROM données"_s), refused);
    EXPECT_EQ(found(u"SELECT 1; DELETE FROM données"_s), refused);
    EXPECT_EQ(found(u""_s), refused);
    EXPECT_EQ(found(u"SELECT nothing FROM nowhere"_s), refused);
    EXPECT_EQ(found(u"SELECT référence FROM données WHERE numart=\"0\" AND \"x"_s), refused);
    EXPECT_EQ(base->openQuery(u"nonsense"_s), nullptr);
    EXPECT_EQ(base->openTable(u"données"_s)->recordCount(), 3);
}

TEST_F(QueryTest, AnUnknownColumnIsARunTimeError) {
    const auto rows = base->openQuery(u"SELECT numart FROM données"_s);
    ASSERT_TRUE(rows);
    EXPECT_THROW(rows->text(u"titre"_s), Ended);
}

TEST_F(QueryTest, TheBodyIsNoColumnOfItsTable) {
    const auto rows = base->openQuery(u"SELECT * FROM données"_s);
    ASSERT_TRUE(rows);
    EXPECT_THROW(rows->text(u"contenu"_s), Ended);
}

TEST_F(QueryTest, PastTheEndEverythingIsNull) {
    const auto rows = base->openQuery(u"SELECT * FROM données"_s);
    ASSERT_TRUE(rows);
    for (int i = 0; i < 5; ++i)
        rows->moveNext();
    EXPECT_TRUE(rows->eof());
    EXPECT_TRUE(rows->value(u"numart"_s).isNull());
}

TEST_F(QueryTest, ASnapshotOutlivesTheReleaseOfLocks) {
    const auto rows = base->openQuery(u"SELECT numart FROM données"_s);
    ASSERT_TRUE(rows);
    base->releaseLocks();
    foreign(u"DELETE FROM données"_s);
    QStringList numbers;
    for (; !rows->eof(); rows->moveNext())
        numbers << rows->text(u"numart"_s);
    EXPECT_EQ(numbers, (QStringList{u"000001"_s, u"000002"_s, u"000003"_s}));
}

TEST_F(QueryTest, AfterTheBaseIsClosedASnapshotIsUnusable) {
    const auto rows = base->openQuery(u"SELECT numart FROM données"_s);
    ASSERT_TRUE(rows);
    base->close();
    EXPECT_THROW(rows->moveNext(), Ended);
    EXPECT_EQ(base->openQuery(u"SELECT 1"_s), nullptr);
}

} // namespace
} // namespace velm::testing
