// Bases of any content, opened in memory and used in every way: an input is a whole base, or a list of changes to a
// sound one.
#include "core/schemas.h"
#include "platform/base/failure.h"
#include "reserve.h"
#include "tests/platform/engine/exercise.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

struct Ended {};

void require(bool held) {
    if (!held)
        std::abort();
}

/// Any value that a field may have; those of a unique index differ.
QVariant valueOf(const FieldDef& field, int row) {
    switch (field.type) {
    case FieldType::Long:
        return row;
    case FieldType::Date:
        return u"2001-02-0%1"_s.arg(row + 1);
    case FieldType::Memo:
        return QString(qsizetype(row) * 90, u'x');
    case FieldType::Bytes:
        return QByteArray(qsizetype(row) * 80, 'A');
    case FieldType::Text:
        break;
    }
    return u"Texte %1"_s.arg(row);
}

/// A base with rows in one table. Small pages make deep trees of few rows, and most bytes of the base structure.
QByteArray sampleOf(const TableDef& table) {
    constexpr int rows = 6;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"base.dat"_s);
    {
        const auto made = Database::create(path, {{table}, false});
        require(made.database && (!table.optional || made.database->makeTable(table.name)));
        std::vector<QString> names;
        for (const FieldDef& field : table.fields)
            names.push_back(field.name);
        {
            TableWriter writer(*made.database, table.name, names);
            for (int row = 0; row < rows; ++row) {
                std::vector<QVariant> values;
                for (const FieldDef& field : table.fields)
                    values.push_back(valueOf(field, row));
                require(writer.add(values));
            }
            require(writer.finish());
        }
        require(made.database->execute(u"PRAGMA page_size=512"_s) && made.database->execute(u"VACUUM"_s));
    }
    QFile file(path);
    require(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// One table under its schema, and a sound base that holds it.
struct Ground {
    const TableDef& table;
    Schema schema;
    QByteArray sample;
};

std::vector<Ground> makeGrounds() {
    fuzz::useReserve();
    setRuntimeErrorHandler([](const RuntimeFailure&) { throw Ended(); });
    std::vector<Ground> grounds;
    for (const Schema* schema : {&corpusSchema(), &dossiersSchema()}) {
        for (const TableDef& table : schema->tables)
            grounds.push_back({table, {{table}, schema->onlyRead}, sampleOf(table)});
    }
    return grounds;
}

/// One use of one table: the inputs take turns at them.
void use(const QByteArray& bytes, const Ground& ground, OpenMode mode, unsigned number) {
    const auto opened = Database::openBytes(bytes, mode, ground.schema);
    if (!opened.database)
        return;
    try {
        testing::TableUse uses(*opened.database, ground.table);
        uses(number % uses.count());
    } catch (const Ended&) {
        // Damage that is met ends in a run-time error; what it leaves must stand its own closing.
    }
}

} // namespace

/// Two bytes choose table, opening and use; the rest is a base, or else a list of changes to the sample: place (2
/// bytes) and new value, over and over.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<Ground> grounds = makeGrounds();
    if (size < 2)
        return 0;
    const Ground& here = grounds[data[0] % grounds.size()];
    const OpenMode mode = data[1] < 128 ? OpenMode::ExclusiveReadOnly : OpenMode::Shared;
    const QByteArrayView rest(data + 2, static_cast<qsizetype>(size) - 2);
    if (rest.startsWith("SQLite format 3")) {
        use(rest.toByteArray(), here, mode, data[1]);
        return 0;
    }
    QByteArray changed = here.sample;
    for (qsizetype i = 0; i + 3 <= rest.size(); i += 3) {
        const auto at = static_cast<unsigned char>(rest[i]) << 8 | static_cast<unsigned char>(rest[i + 1]);
        changed[at % changed.size()] = rest[i + 2];
    }
    use(changed, here, mode, data[1]);
    return 0;
}
