#include "platform/engine/rowedit.h"

#include "platform/text/letters.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

RowEdit::RowEdit(Database::Private& db, const StoredTable& table)
    : db_(db), table_(table), values_(table.definition.fields.size()) {}

void RowEdit::beginAdding() {
    leave();
    editing_ = Editing::Adding;
}

void RowEdit::beginChanging(qint64 row) {
    leave();
    editing_ = Editing::Changing;
    row_ = row;
}

void RowEdit::setValue(int field, const QVariant& value) {
    values_[static_cast<size_t>(field)] = sql::Value::of(value);
}

const sql::Value* RowEdit::value(int field) const {
    const std::optional<sql::Value>& value = values_[static_cast<size_t>(field)];
    return value ? &*value : nullptr;
}

void RowEdit::leave() {
    if (editing_ == Editing::No)
        return;
    editing_ = Editing::No;
    for (auto& value : values_)
        value.reset();
}

/// False when nothing can be written; ends the reading that would stand in the way.
bool RowEdit::mayWrite() {
    if (!db_.writesPossible())
        return false;
    db_.releaseLocks();
    return true;
}

/// Runs several statements as one, inside or outside a transaction.
template <typename Work>
bool RowEdit::together(Work work) {
    if (!db_.run(u"SAVEPOINT rangee"_s))
        return false;
    if (work() && db_.run(u"RELEASE rangee"_s))
        return true;
    const QString reason = db_.error;
    const Obstacle kind = db_.obstacle;
    // After a full disk the engine may have undone everything by itself, the savepoint too.
    if (sqlite3_get_autocommit(db_.handle) == 0) {
        db_.run(u"ROLLBACK TO rangee"_s);
        db_.run(u"RELEASE rangee"_s);
    }
    db_.note(kind, reason);
    return false;
}

bool RowEdit::runBound(const QString& statement, const std::vector<sql::Value>& values) {
    const sql::Statement prepared(db_.handle, statement, false);
    for (size_t i = 0; prepared.valid() && i < values.size(); ++i)
        prepared.bind(static_cast<int>(i) + 1, values[i]);
    if (prepared.valid() && prepared.run() == SQLITE_OK)
        return true;
    db_.noteError();
    return false;
}

/// The statement that writes these fields (bits by field number): the last parameter of a change is its row.
const sql::Statement* RowEdit::statementFor(quint64 fields) {
    const bool adding = editing_ == Editing::Adding;
    sql::Statement& statement = statements_[fields * 2 + (adding ? 1 : 0)];
    if (statement.valid())
        return &statement;
    QStringList columns;
    for (size_t i = 0; i < table_.definition.fields.size(); ++i) {
        if ((fields >> i & 1) == 0)
            continue;
        const QString& field = table_.definition.fields[i].name;
        columns << sql::quoted(field);
        if (foldedFields(table_.definition).contains(field) && table_.hasKeyColumn(field))
            columns << sql::quoted(keyColumn(field));
    }
    QString text;
    if (adding) {
        const QStringList marks(columns.size(), u"?"_s);
        text = u"INSERT INTO "_s + sql::quoted(table_.name()) +
               (columns.isEmpty() ? u" DEFAULT VALUES"_s
                                  : u'(' + columns.join(u',') + u") VALUES("_s + marks.join(u',') + u')');
    } else {
        text = u"UPDATE "_s + sql::quoted(table_.name()) + u" SET "_s + columns.join(u"=?,"_s) + u"=? WHERE rowid=?"_s;
    }
    if (statement.prepare(db_.handle, text))
        return &statement;
    db_.noteError();
    return nullptr;
}

bool RowEdit::writeRow() {
    quint64 fields = 0;
    for (size_t i = 0; i < table_.definition.fields.size(); ++i) {
        if (values_[i] && table_.cells[i] >= 0)
            fields |= quint64(1) << i;
    }
    if (fields == 0 && editing_ == Editing::Changing)
        return true;
    const sql::Statement* statement = statementFor(fields);
    if (statement == nullptr)
        return false;
    const QStringList keyed = foldedFields(table_.definition);
    std::vector<sql::Value> keyValues;
    keyValues.reserve(table_.definition.fields.size());
    int parameter = 0;
    for (size_t i = 0; i < table_.definition.fields.size(); ++i) {
        if ((fields >> i & 1) == 0)
            continue;
        const sql::Value& value = *values_[i];
        const QString& field = table_.definition.fields[i].name;
        statement->bind(++parameter, value);
        if (keyed.contains(field) && table_.hasKeyColumn(field)) {
            keyValues.push_back(value.isNull() ? value : sql::Value::blob(sortKey(QString::fromUtf8(value.bytes))));
            statement->bind(++parameter, keyValues.back());
        }
    }
    const sql::Value changed = sql::Value::of(row_);
    if (editing_ == Editing::Changing)
        statement->bind(++parameter, changed);
    if (statement->run() != SQLITE_OK) {
        db_.noteError();
        return false;
    }
    if (editing_ == Editing::Adding)
        row_ = sqlite3_last_insert_rowid(db_.handle);
    return true;
}

bool RowEdit::writeLazy() {
    const FieldDef* field = table_.definition.field(table_.definition.lazyField);
    if (field == nullptr || !values_[static_cast<size_t>(field - table_.definition.fields.data())])
        return true;
    const sql::Value& value = *values_[static_cast<size_t>(field - table_.definition.fields.data())];
    const sql::Value changed = sql::Value::of(row_);
    if (!table_.side)
        return runBound(u"UPDATE "_s + sql::quoted(table_.name()) + u" SET "_s + sql::quoted(field->name) +
                            u"=? WHERE rowid=?"_s,
                        {value, changed});
    return runBound(u"INSERT OR REPLACE INTO "_s + sql::quoted(sideTable(table_.definition)) + u"(rowid,"_s +
                        sql::quoted(field->name) + u") VALUES(?2,?1)"_s,
                    {value, changed});
}

std::optional<qint64> RowEdit::write() {
    if (!mayWrite())
        return std::nullopt;
    const bool plain = table_.definition.lazyField.isEmpty();
    const bool written = plain ? writeRow() : together([this] { return writeRow() && writeLazy(); });
    return written ? std::optional(row_) : std::nullopt;
}

bool RowEdit::remove(qint64 row) {
    if (!mayWrite())
        return false;
    const sql::Value leaving = sql::Value::of(row);
    const auto from = [&](const QString& where) {
        return runBound(u"DELETE FROM "_s + sql::quoted(where) + u" WHERE rowid=?"_s, {leaving});
    };
    if (!table_.side)
        return from(table_.name());
    return together([&] { return from(sideTable(table_.definition)) && from(table_.name()); });
}

} // namespace velm
