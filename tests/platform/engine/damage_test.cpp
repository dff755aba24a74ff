// Damaged bases: whatever is in the file, either it does not open, or a read ends in a run-time error, or it works.
#include "core/schemas.h"
#include "tests/platform/engine/base.h"
#include "tests/platform/engine/exercise.h"
#include "tests/support/rounds.h"

#include <QFile>

#include <map>
#include <random>

namespace velm::testing {
namespace {

class DamageTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        make();
        whole = contents(path());
        ASSERT_GT(whole.size(), 40 * 4096);
    }

    void make() {
        auto made = Database::create(path(), corpusSchema());
        ASSERT_TRUE(made.database);
        for (const TableDef& table : corpusSchema().tables) {
            if (table.optional) {
                ASSERT_TRUE(made.database->makeTable(table.name));
            }
        }
        // The file then ends in rows, not in the indexes that are built last.
        fill(*made.database, u"motclés"_s, {u"motcle"_s}, {{u"Abus"_s}});
        makeRows(*made.database);
        Rows keywords;
        for (int i = 0; i < 300; ++i)
            keywords.push_back({u"Mot-clé de la collection %1"_s.arg(i)});
        fill(*made.database, u"motclés"_s, {u"motcle"_s}, keywords);
    }
    static void makeRows(Database& made) {
        TableWriter documents(
            made, u"données"_s,
            {u"référence"_s, u"numart"_s, u"titre"_s, u"Date"_s, u"numeroarborescence"_s, u"contenu"_s});
        TableWriter words(made, u"dico"_s, {u"mot"_s, u"liste"_s});
        TableWriter links(made, u"liens"_s, {u"référencedépart"_s, u"numartdépart"_s});
        for (int i = 0; i < 120; ++i) {
            documents.add({u"CO"_s, u"%1"_s.arg(i, 6, 10, QChar(u'0')), u"Titre %1"_s.arg(i * 7 % 100),
                           u"2001-02-0%1"_s.arg(i % 9 + 1), i / 5, QString(qsizetype(i) * 16, u'x')});
            words.add({u"MOT%1"_s.arg(i), QByteArray(qsizetype(i) * 3, 'A')});
            links.add({u"CO"_s, u"%1"_s.arg(i % 40, 6, 10, QChar(u'0'))});
        }
    }
    /// Where a table and its indexes begin, from page 1.
    std::vector<qsizetype> pagesOf(const QString& table) const {
        sqlite3* handle = nullptr;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_open(path().toUtf8().constData(), &handle), SQLITE_OK);
        const QByteArray query = "SELECT rootpage FROM sqlite_master WHERE tbl_name='" + table.toUtf8() + '\'';
        EXPECT_EQ(sqlite3_prepare_v2(handle, query.constData(), -1, &statement, nullptr), SQLITE_OK);
        std::vector<qsizetype> pages;
        while (sqlite3_step(statement) == SQLITE_ROW)
            pages.push_back(sqlite3_column_int(statement, 0));
        sqlite3_finalize(statement);
        sqlite3_close(handle);
        EXPECT_FALSE(pages.empty());
        return pages;
    }
    static QByteArray contents(const QString& file) {
        QFile source(file);
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        return source.readAll();
    }
    void write(const QByteArray& bytes) {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }
    void use(const QByteArray& bytes, OpenMode mode) {
        QFile::remove(path() + u"-journal"_s);
        write(bytes);
        const Schema& schema = corpusSchema();
        const Outcome outcome = exercise<Ended>(Database::open(path(), mode, schema), schema);
        ++outcomes[outcome];
        EXPECT_EQ(exercise<Ended>(Database::openBytes(bytes, mode, schema), schema), outcome) << "in memory";
    }
    void use(const QByteArray& bytes) {
        use(bytes, OpenMode::ExclusiveReadOnly);
        use(bytes, OpenMode::Shared);
    }

    QByteArray whole;
    std::map<Outcome, int> outcomes;
};

TEST_F(DamageTest, TheWholeBaseReads) {
    use(whole);
    EXPECT_EQ(outcomes[Outcome::Read], 2);
}

TEST_F(DamageTest, TruncatedAtEveryPageItDoesNotOpen) {
    for (qsizetype size = 0; size < whole.size(); size += 4096)
        use(whole.left(size));
    EXPECT_EQ(outcomes[Outcome::NotOpened], 2 * static_cast<int>((whole.size() + 4095) / 4096));
}

TEST_F(DamageTest, TruncatedBehindAHeaderThatDoesNotTellItEndsInARunTimeError) {
    QByteArray untold = whole;
    untold[92] = static_cast<char>(untold[92] + 1); // the page count is then not trusted
    for (qsizetype size = 4096; size < whole.size(); size += 4096)
        use(untold.left(size));
    EXPECT_EQ(outcomes[Outcome::Read], 0);
    EXPECT_GT(outcomes[Outcome::Ended], 0);
}

TEST_F(DamageTest, FlippedBytes) {
    std::mt19937 random(1);
    for (int round = 0; round < velm::test::rounds(500); ++round) {
        QByteArray damaged = whole;
        const int flips = 1 + static_cast<int>(random() % 8);
        for (int i = 0; i < flips; ++i) {
            // One in four goes where the structure is: the header and the beginnings of pages.
            auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(whole.size()));
            if (random() % 4 == 0)
                at = at / 4096 * 4096 + static_cast<qsizetype>(random() % 110);
            damaged[at] = static_cast<char>(static_cast<unsigned char>(damaged[at]) ^ (1U << random() % 8));
        }
        use(damaged, round % 2 == 0 ? OpenMode::ExclusiveReadOnly : OpenMode::Shared);
    }
    EXPECT_GT(outcomes[Outcome::NotOpened], 0);
    EXPECT_GT(outcomes[Outcome::Ended], 0);
    EXPECT_GT(outcomes[Outcome::Read], 0);
}

TEST_F(DamageTest, PagesOfRubbishOrZeros) {
    std::mt19937 random(2);
    for (qsizetype page = 0; page < whole.size() / 4096; page += velm::test::oneInHowMany) {
        QByteArray damaged = whole;
        for (qsizetype i = 0; i < 4096; ++i)
            damaged[page * 4096 + i] = static_cast<char>(page % 2 == 0 ? 0 : random());
        use(damaged);
    }
    EXPECT_GT(outcomes[Outcome::Ended], 0);
}

TEST_F(DamageTest, TheRunTimeErrorSpeaksTheEnginesWords) {
    // What tells of the tables takes more than the first page.
    QByteArray damaged = whole;
    for (const qsizetype page : pagesOf(u"dico"_s)) {
        for (qsizetype i = 0; i < 4096; ++i)
            damaged[(page - 1) * 4096 + i] = '\x55';
    }
    write(damaged);
    const auto base = open(corpusSchema());
    ASSERT_TRUE(base);
    const auto words = base->openTable(u"dico"_s);
    try {
        words->moveFirst();
        FAIL() << "a page of rubbish was read";
    } catch (const Ended& error) {
        EXPECT_EQ(error.what_, Failure::Engine);
        EXPECT_NE(std::string(error.what()).find("malformed"), std::string::npos) << error.what();
    }
    EXPECT_FALSE(base->check());
}

} // namespace
} // namespace velm::testing
