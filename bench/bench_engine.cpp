// The base: opening, seeks, walks, bulk writing; beside them what a query for each row costs on the same file.
#include "core/schemas.h"
#include "platform/engine/recordset.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <sqlite3.h>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr int documentsCount = 100'000;
constexpr int collections = 3;
constexpr int walked = 30'000;
const QStringList codes{u"CO"_s, u"EU"_s, u"JP"_s};

QString sixDigits(int number) {
    return QString::number(number).rightJustified(6, u'0');
}

/// A deterministic scatter.
int scattered(int i) {
    return static_cast<int>(static_cast<unsigned>(i) * 2654435761U % documentsCount);
}

/// A base of 100,000 documents in three collections, made once.
class Base {
public:
    Base() {
        path = folder.filePath(u"banc.dat"_s);
        auto made = Database::create(path, corpusSchema());
        if (!made.database) {
            std::fputs("bench_engine: cannot make a base\n", stderr);
            std::exit(1);
        }
        TableWriter writer(*made.database, u"données"_s,
                           {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                            u"Source"_s, u"Date"_s, u"numeroarborescence"_s, u"BackColor"_s, u"contenu"_s});
        const QString body =
            u"{\\rtf1\\ansi "_s + u"Le consommateur peut demander la réparation du préjudice. "_s.repeated(35) + u'}';
        for (int i = 0; i < documentsCount; ++i)
            writer.add({codes[i * collections / documentsCount], sixDigits(i),
                        u"Article L%1, dispositions communes"_s.arg(scattered(i)), u"Clauses abusives"_s,
                        u"Information des consommateurs"_s, u"Contrats"_s,
                        u"Journal officiel du 18 mars 2014, page 5400"_s,
                        u"20%1-0%2-1%3"_s.arg(i % 90 + 10).arg(i % 9 + 1).arg(i % 10), i / 12, 16777215, body});
        writer.finish();
    }
    QString path;

private:
    QTemporaryDir folder;
};

Base& base() {
    static Base made;
    return made;
}

struct Opened {
    std::unique_ptr<Database> database = Database::open(base().path, OpenMode::Shared, corpusSchema()).database;
    std::unique_ptr<Recordset> documents = database->openTable(u"données"_s);
};

/// What the lists read of a row.
qsizetype shortFields(const Recordset& row) {
    return row.text(u"référence"_s).size() + row.text(u"numart"_s).size() + row.text(u"titre"_s).size() +
           row.text(u"motclé1"_s).size() + row.text(u"motclé2"_s).size() + row.text(u"motclé3"_s).size();
}

void openBase(benchmark::State& state) {
    base();
    for ([[maybe_unused]] auto _ : state) {
        Opened opened;
        benchmark::DoNotOptimize(opened.documents->text(u"titre"_s));
    }
}
BENCHMARK(openBase)->Unit(benchmark::kMicrosecond);

void seekAndShortFields(benchmark::State& state) {
    const Opened opened;
    int i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int number = scattered(i++ % documentsCount);
        opened.documents->seek(Seek::Equal, codes[static_cast<qsizetype>(number) * collections / documentsCount],
                               sixDigits(number));
        benchmark::DoNotOptimize(shortFields(*opened.documents));
    }
}
BENCHMARK(seekAndShortFields)->Unit(benchmark::kMicrosecond);

void seekAndBody(benchmark::State& state) {
    const Opened opened;
    int i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int number = scattered(i++ % documentsCount);
        opened.documents->seek(Seek::Equal, codes[static_cast<qsizetype>(number) * collections / documentsCount],
                               sixDigits(number));
        benchmark::DoNotOptimize(opened.documents->bytes(u"contenu"_s));
    }
}
BENCHMARK(seekAndBody)->Unit(benchmark::kMicrosecond);

void walkCollection(benchmark::State& state) {
    const Opened opened;
    for ([[maybe_unused]] auto _ : state) {
        opened.documents->seek(Seek::GreaterOrEqual, u"CO"_s);
        for (int i = 0; i < walked && !opened.documents->eof(); ++i, opened.documents->moveNext())
            benchmark::DoNotOptimize(shortFields(*opened.documents));
    }
}
BENCHMARK(walkCollection)->Unit(benchmark::kMillisecond);

void walkByDate(benchmark::State& state) {
    const Opened opened;
    opened.documents->setIndex(u"idate"_s);
    for ([[maybe_unused]] auto _ : state) {
        opened.documents->seek(Seek::Greater, QString());
        for (int i = 0; i < walked && !opened.documents->eof(); ++i, opened.documents->moveNext())
            benchmark::DoNotOptimize(shortFields(*opened.documents));
    }
}
BENCHMARK(walkByDate)->Unit(benchmark::kMillisecond);

/// Each step disturbed by a bookmark to another row and back, as a window's event may do.
void walkDisturbed(benchmark::State& state) {
    const Opened opened;
    for ([[maybe_unused]] auto _ : state) {
        opened.documents->seek(Seek::GreaterOrEqual, u"CO"_s);
        const Bookmark first = opened.documents->bookmark();
        for (int i = 0; i < walked / 10 && !opened.documents->eof(); ++i, opened.documents->moveNext()) {
            const Bookmark here = opened.documents->bookmark();
            opened.documents->setBookmark(first);
            opened.documents->setBookmark(here);
        }
    }
}
BENCHMARK(walkDisturbed)->Unit(benchmark::kMillisecond);

/// The peer: a query text for each row.
class Plain {
public:
    Plain() { sqlite3_open_v2(base().path.toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr); }
    ~Plain() { sqlite3_close(handle); }
    Plain(const Plain&) = delete;
    Plain& operator=(const Plain&) = delete;

    qsizetype row(const QString& where) const {
        const QByteArray text =
            (u"SELECT référence, numart, titre, motclé1, motclé2, motclé3 FROM données WHERE "_s + where).toUtf8();
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, text.constData(), -1, &statement, nullptr);
        const qsizetype size = sqlite3_step(statement) == SQLITE_ROW ? fields(statement) : 0;
        sqlite3_finalize(statement);
        return size;
    }

    template <typename Body>
    bool preparedSeeks(Body body) const {
        sqlite3_exec(handle, "BEGIN; PRAGMA cache_size=-32768", nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        const char* text = "SELECT référence, numart, titre, motclé1, motclé2, motclé3 FROM données "
                           "WHERE référence=?1 AND numart=?2";
        const bool prepared = sqlite3_prepare_v3(handle, text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) == 0;
        body([statement](const QString& code, const QString& number) {
            const QByteArray first = code.toUtf8();
            const QByteArray second = number.toUtf8();
            sqlite3_bind_text(statement, 1, first.constData(), static_cast<int>(first.size()), SQLITE_STATIC);
            sqlite3_bind_text(statement, 2, second.constData(), static_cast<int>(second.size()), SQLITE_STATIC);
            const qsizetype size = sqlite3_step(statement) == SQLITE_ROW ? fields(statement) : 0;
            sqlite3_reset(statement);
            return size;
        });
        sqlite3_finalize(statement);
        sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
        return prepared;
    }

private:
    static qsizetype fields(sqlite3_stmt* statement) {
        qsizetype size = 0;
        for (int i = 0; i < 6; ++i) {
            const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            size += QString::fromUtf8(bytes, sqlite3_column_bytes(statement, i)).size();
        }
        return size;
    }

    sqlite3* handle = nullptr;
};

void peerQueryForEachSeek(benchmark::State& state) {
    const Plain plain;
    int i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int number = scattered(i++ % documentsCount);
        benchmark::DoNotOptimize(plain.row(u"référence='%1' AND numart='%2'"_s.arg(
            codes[static_cast<qsizetype>(number) * collections / documentsCount], sixDigits(number))));
    }
}
BENCHMARK(peerQueryForEachSeek)->Unit(benchmark::kMicrosecond);

void peerQueryForEachRowOfAWalk(benchmark::State& state) {
    const Plain plain;
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < walked; ++i)
            benchmark::DoNotOptimize(
                plain.row(u"référence='CO' AND numart>='%1' ORDER BY référence, numart LIMIT 1"_s.arg(sixDigits(i))));
    }
}
BENCHMARK(peerQueryForEachRowOfAWalk)->Unit(benchmark::kMillisecond);

/// The floor: one prepared statement of the bare engine inside a read transaction, only the six fields.
void floorPreparedSeek(benchmark::State& state) {
    const Plain plain;
    benchmark::DoNotOptimize(plain.preparedSeeks([&](const auto& seek) {
        int i = 0;
        for ([[maybe_unused]] auto _ : state) {
            const int number = scattered(i++ % documentsCount);
            benchmark::DoNotOptimize(
                seek(codes[static_cast<qsizetype>(number) * collections / documentsCount], sixDigits(number)));
        }
    }));
}
BENCHMARK(floorPreparedSeek)->Unit(benchmark::kMicrosecond);

void writeSmallRows(benchmark::State& state) {
    constexpr int rows = 200'000;
    for ([[maybe_unused]] auto _ : state) {
        const QTemporaryDir folder;
        auto made = Database::create(folder.filePath(u"liens.dat"_s), corpusSchema());
        TableWriter writer(*made.database, u"liens"_s,
                           {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s});
        for (int i = 0; i < rows; ++i)
            writer.add({u"CO"_s, sixDigits(i / 4), u"EU"_s, sixDigits(scattered(i))});
        writer.finish();
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(writeSmallRows)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
