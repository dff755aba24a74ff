#include "platform/engine/catalogue.h"
#include "platform/engine/database_p.h"
#include "platform/text/letters.h"

#include <QStringList>

namespace velm {

using namespace Qt::Literals::StringLiterals;

struct TableWriter::Private {
    Database* database = nullptr;
    Database::Private* db = nullptr;
    const TableDef* table = nullptr;
    TableDef itself;           ///< the table itself when it is a side table
    std::vector<bool> keyed;   ///< by given field: its key follows it
    std::vector<bool> textual; ///< by given field: bytes are UTF-8
    size_t lazy = SIZE_MAX;    ///< which of the given fields goes to the side table
    sql::Statement insert;
    sql::Statement insertSide;
    std::vector<const IndexDef*> putOff;
    std::vector<sql::Value> values;
    std::vector<sql::Value> keys;
    bool good = true;
    bool finished = false;

    void find(const QString& name);
    bool prepare(const std::vector<QString>& fields);
    void putOffIndexes();
    bool add(const std::vector<QVariant>& row);
    bool finish();
    bool failed();
};

bool TableWriter::Private::failed() {
    db->noteError();
    good = false;
    return false;
}

void TableWriter::Private::find(const QString& name) {
    table = db->schema.table(name);
    for (const TableDef& owner : db->schema.tables) {
        const FieldDef* lazyField = owner.lazyField.isEmpty() ? nullptr : owner.field(owner.lazyField);
        if (lazyField == nullptr || sideTable(owner) != name)
            continue;
        itself = {name, {*lazyField}, {}, {}};
        table = &itself;
    }
}

bool TableWriter::Private::prepare(const std::vector<QString>& fields) {
    QStringList columns;
    const QStringList folded = foldedFields(*table);
    const QStringList present = catalogue::columnsOf(db->handle, table->name);
    const bool side = !table->lazyField.isEmpty() && catalogue::hasTable(db->handle, sideTable(*table));
    for (size_t i = 0; i < fields.size(); ++i) {
        keyed.push_back(folded.contains(fields[i]) && present.contains(keyColumn(fields[i])));
        const FieldDef* field = table->field(fields[i]);
        textual.push_back(field != nullptr && (field->type == FieldType::Text || field->type == FieldType::Memo));
        if (side && fields[i] == table->lazyField) {
            lazy = i;
            continue;
        }
        columns << sql::quoted(fields[i]);
        if (keyed.back())
            columns << sql::quoted(keyColumn(fields[i]));
    }
    const QStringList marks(columns.size(), u"?"_s);
    if (!insert.prepare(db->handle, u"INSERT INTO "_s + sql::quoted(table->name) + u'(' + columns.join(u',') +
                                        u") VALUES("_s + marks.join(u',') + u')'))
        return failed();
    if (lazy != SIZE_MAX &&
        !insertSide.prepare(db->handle, u"INSERT INTO "_s + sql::quoted(sideTable(*table)) + u"(rowid,"_s +
                                            sql::quoted(table->lazyField) + u") VALUES(?1,?2)"_s))
        return failed();
    values.resize(fields.size());
    keys.resize(fields.size());
    return true;
}

/// An index built at the end is sorted once; the unique ones stay, so that a repetition is noticed at its row.
void TableWriter::Private::putOffIndexes() {
    const sql::Statement any(db->handle, u"SELECT 1 FROM "_s + sql::quoted(table->name) + u" LIMIT 1"_s, false);
    if (!any.valid() || any.step() != SQLITE_DONE)
        return;
    for (const IndexDef& index : table->indexes) {
        if (!index.unique && catalogue::hasIndex(db->handle, *table, index) &&
            db->run(u"DROP INDEX "_s + sql::quoted(table->name + u'_' + index.name)))
            putOff.push_back(&index);
    }
}

bool TableWriter::Private::add(const std::vector<QVariant>& row) {
    if (!good || finished || row.size() != values.size())
        return false;
    int parameter = 0;
    for (size_t i = 0; i < row.size(); ++i) {
        values[i] = sql::Value::of(row[i]);
        if (textual[i] && values[i].kind == sql::Value::Kind::Blob)
            values[i].kind = sql::Value::Kind::Text;
        if (i == lazy)
            continue;
        insert.bind(++parameter, values[i]);
        if (!keyed[i])
            continue;
        keys[i] = values[i].isNull() ? sql::Value() : sql::Value::blob(sortKey(row[i].toString()));
        insert.bind(++parameter, keys[i]);
    }
    if (insert.run() != SQLITE_OK) {
        db->noteError();
        return false;
    }
    if (lazy == SIZE_MAX || values[lazy].isNull())
        return true;
    const sql::Value rowId = sql::Value::of(sqlite3_last_insert_rowid(db->handle));
    insertSide.bind(1, rowId);
    insertSide.bind(2, values[lazy]);
    return insertSide.run() == SQLITE_OK || failed();
}

bool TableWriter::Private::finish() {
    if (finished)
        return good;
    finished = true;
    insert = sql::Statement();
    insertSide = sql::Statement();
    for (const IndexDef* index : putOff)
        good = db->run(indexStatement(*table, *index)) && good;
    if (--db->writers == 0 && db->writersBegan) {
        db->writersBegan = false;
        good = database->commit() && good;
    }
    return good;
}

TableWriter::TableWriter(Database& database, const QString& table, const std::vector<QString>& fields)
    : d_(std::make_unique<Private>()) {
    d_->database = &database;
    d_->db = database.d();
    d_->find(table);
    if (d_->table == nullptr || d_->db->handle == nullptr) {
        d_->db->note(Obstacle::Other, u"no such table: "_s + table);
        d_->good = false;
        d_->finished = true;
        return;
    }
    if (d_->db->writers++ == 0 && !database.inTransaction())
        d_->db->writersBegan = database.begin();
    d_->good = database.inTransaction() && d_->db->writesPossible();
    if (!d_->good)
        return;
    d_->putOffIndexes();
    d_->prepare(fields);
}

TableWriter::~TableWriter() {
    d_->finish();
}

bool TableWriter::add(const std::vector<QVariant>& values) {
    return d_->add(values);
}

bool TableWriter::finish() {
    return d_->finish();
}

} // namespace velm
