#include "platform/engine/recordset_p.h"
#include "platform/text/letters.h"

#include <QStringList>

namespace velm {

using namespace Qt::Literals::StringLiterals;
using Place = Recordset::Private::Place;
using Editing = Recordset::Private::Editing;

void Recordset::Private::leaveEdit() {
    if (editing == Editing::No)
        return;
    editing = Editing::No;
    for (auto& value : edited)
        value.reset();
}

/// False, with the reason, when nothing can be written; ends the reading that would stand in the way.
bool Recordset::Private::mayWrite() {
    if (!db->writesPossible()) {
        error = db->error;
        return false;
    }
    db->releaseLocks();
    return true;
}

/// Runs several statements as one, inside or outside a transaction.
template <typename Work>
bool Recordset::Private::together(Work work) {
    if (!db->run(u"SAVEPOINT rangee"_s))
        return false;
    if (work() && db->run(u"RELEASE rangee"_s))
        return true;
    const QString reason = db->error;
    const Obstacle kind = db->obstacle;
    // After a full disk the engine may have undone everything by itself, the savepoint too.
    if (sqlite3_get_autocommit(db->handle) == 0) {
        db->run(u"ROLLBACK TO rangee"_s);
        db->run(u"RELEASE rangee"_s);
    }
    db->note(kind, reason);
    return false;
}

bool Recordset::Private::runBound(const QString& statement, const std::vector<sql::Value>& values) {
    const sql::Statement prepared(db->handle, statement, false);
    for (size_t i = 0; prepared.valid() && i < values.size(); ++i)
        prepared.bind(static_cast<int>(i) + 1, values[i]);
    if (prepared.valid() && prepared.run() == SQLITE_OK)
        return true;
    db->noteError();
    return false;
}

/// The statement that writes these fields (bits by field number): the last parameter of a change is its row.
sql::Statement* Recordset::Private::writeStatement(quint64 fields) {
    const bool adding = editing == Editing::Adding;
    sql::Statement& statement = changes[fields * 2 + (adding ? 1 : 0)];
    if (statement.valid())
        return &statement;
    QStringList columns;
    for (size_t i = 0; i < table->fields.size(); ++i) {
        if ((fields >> i & 1) == 0)
            continue;
        const QString& field = table->fields[i].name;
        columns << sql::quoted(field);
        if (foldedFields(*table).contains(field) && hasKeyColumn(field))
            columns << sql::quoted(keyColumn(field));
    }
    QString text;
    if (adding) {
        const QStringList marks(columns.size(), u"?"_s);
        text = u"INSERT INTO "_s + sql::quoted(name) +
               (columns.isEmpty() ? u" DEFAULT VALUES"_s
                                  : u'(' + columns.join(u',') + u") VALUES("_s + marks.join(u',') + u')');
    } else {
        text = u"UPDATE "_s + sql::quoted(name) + u" SET "_s + columns.join(u"=?,"_s) + u"=? WHERE rowid=?"_s;
    }
    if (statement.prepare(db->handle, text))
        return &statement;
    db->noteError();
    return nullptr;
}

bool Recordset::Private::writeRow() {
    quint64 fields = 0;
    for (size_t i = 0; i < table->fields.size(); ++i) {
        if (edited[i] && fieldCells[i] >= 0)
            fields |= quint64(1) << i;
    }
    if (fields == 0 && editing == Editing::Changing)
        return true;
    const sql::Statement* statement = writeStatement(fields);
    if (statement == nullptr)
        return false;
    const QStringList keyed = foldedFields(*table);
    std::vector<sql::Value> keyValues;
    keyValues.reserve(table->fields.size());
    int parameter = 0;
    for (size_t i = 0; i < table->fields.size(); ++i) {
        if ((fields >> i & 1) == 0)
            continue;
        const sql::Value& value = *edited[i];
        const QString& field = table->fields[i].name;
        statement->bind(++parameter, value);
        if (keyed.contains(field) && hasKeyColumn(field)) {
            keyValues.push_back(value.isNull() ? value : sql::Value::blob(sortKey(QString::fromUtf8(value.bytes))));
            statement->bind(++parameter, keyValues.back());
        }
    }
    const sql::Value changed = sql::Value::of(modified);
    if (editing == Editing::Changing)
        statement->bind(++parameter, changed);
    if (statement->run() != SQLITE_OK) {
        db->noteError();
        return false;
    }
    if (editing == Editing::Adding)
        modified = sqlite3_last_insert_rowid(db->handle);
    return true;
}

bool Recordset::Private::writeLazy() {
    const FieldDef* field = table->field(table->lazyField);
    if (field == nullptr || !edited[static_cast<size_t>(field - table->fields.data())])
        return true;
    const sql::Value& value = *edited[static_cast<size_t>(field - table->fields.data())];
    const sql::Value changed = sql::Value::of(modified);
    if (!side)
        return runBound(u"UPDATE "_s + sql::quoted(name) + u" SET "_s + sql::quoted(field->name) +
                            u"=? WHERE rowid=?"_s,
                        {value, changed});
    return runBound(u"INSERT OR REPLACE INTO "_s + sql::quoted(sideTable(*table)) + u"(rowid,"_s +
                        sql::quoted(field->name) + u") VALUES(?2,?1)"_s,
                    {value, changed});
}

bool Recordset::Private::write() {
    if (!mayWrite())
        return false;
    const bool written =
        table->lazyField.isEmpty() ? writeRow() : together([this] { return writeRow() && writeLazy(); });
    if (!written)
        error = db->error;
    return written;
}

bool Recordset::Private::remove() {
    if (!mayWrite())
        return false;
    const sql::Value leaving = sql::Value::of(rowId());
    const auto from = [&](const QString& where) {
        return runBound(u"DELETE FROM "_s + sql::quoted(where) + u" WHERE rowid=?"_s, {leaving});
    };
    const bool removed = side ? together([&] { return from(sideTable(*table)) && from(name); }) : from(name);
    if (!removed)
        error = db->error;
    return removed;
}

void Recordset::addNew() {
    d_->ready();
    d_->locate();
    d_->leaveEdit();
    d_->editing = Editing::Adding;
}

void Recordset::edit() {
    d_->ready();
    d_->locate();
    d_->leaveEdit();
    if (d_->place != Place::OnRow)
        d_->fail(u"no current record"_s);
    d_->editing = Editing::Changing;
    d_->modified = d_->rowId();
}

void Recordset::setValue(const QString& field, const QVariant& value) {
    d_->ready();
    const int number = d_->fieldNumber(field);
    if (d_->editing == Editing::No)
        d_->fail(u"update without addNew or edit"_s);
    if (d_->fieldCells[static_cast<size_t>(number)] < 0 && field != d_->table->lazyField)
        d_->fail(Failure::MissingField, {field});
    d_->edited[static_cast<size_t>(number)] = sql::Value::of(value);
}

bool Recordset::update() {
    d_->ready();
    if (d_->editing == Editing::No)
        d_->fail(u"update without addNew or edit"_s);
    d_->error.clear();
    const qint64 before = d_->modified;
    const bool changing = d_->editing == Editing::Changing;
    const bool written = d_->write();
    d_->leaveEdit();
    if (!written) {
        d_->modified = before;
        return false;
    }
    d_->counted.reset();
    if (changing)
        d_->take(d_->modified);
    else if (d_->place == Place::Empty)
        d_->place = Place::After;
    return true;
}

void Recordset::cancelUpdate() {
    d_->ready();
    d_->leaveEdit();
}

bool Recordset::remove() {
    d_->ready();
    d_->locate();
    d_->leaveEdit();
    d_->error.clear();
    if (d_->place != Place::OnRow)
        d_->fail(u"no current record"_s);
    d_->anchor(false);
    d_->dropPlan();
    if (!d_->remove())
        return false;
    d_->counted.reset();
    d_->place = Place::Gone;
    d_->row.clear();
    return true;
}

QString Recordset::lastError() const {
    return d_->error;
}

Bookmark Recordset::lastModified() const {
    return {d_->modified};
}

} // namespace velm
