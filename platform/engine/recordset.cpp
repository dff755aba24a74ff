#include "platform/engine/recordset.h"

#include "platform/engine/recordset_p.h"

#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;
using Place = Cursor::Place;

namespace {

/// The primary order, or 0 for that of the row ids where there is none.
size_t firstOrder(const StoredTable& table) {
    const IndexDef* primary = table.definition.index(u"primarykey"_s);
    if (primary == nullptr || !table.missingField(*primary).isEmpty())
        return 0;
    return static_cast<size_t>(primary - table.definition.indexes.data()) + 1;
}

} // namespace

Recordset::Private::Parts::Parts(Database::Private& base, const TableDef& definition)
    : table(base.handle, definition), cursor(base, table, firstOrder(table)), lazy(base, table, cursor),
      edit(base, table) {}

void Recordset::Private::attach(Database::Private* database, const QString& tableName) {
    name = tableName;
    if (database->handle == nullptr)
        return;
    db = database;
    db->recordsets.push_back(this);
    db->beginReading();
    if (const TableDef* table = db->schema.table(name))
        parts = std::make_unique<Parts>(*db, *table);
    absent = !parts || !parts->table.isThere();
    if (absent) {
        parts.reset();
        sql::raiseIfMemory(sqlite3_errcode(db->handle));
        return;
    }
    if (const size_t order = parts->cursor.order(); order > 0)
        index = parts->table.definition.indexes[order - 1].name;
}

void Recordset::Private::detach() {
    if (db == nullptr)
        return;
    parts.reset();
    std::erase(db->recordsets, this);
    db = nullptr;
}

void Recordset::Private::dropPlan() {
    if (parts)
        parts->cursor.dropPlan();
}

void Recordset::Private::fail(Failure what, const QStringList& words) {
    dropPlan();
    runtimeError(what, words);
}

void Recordset::Private::fail(const QString& message) {
    fail(Failure::Engine, {message + u": "_s + name});
}

Recordset::Private::Parts& Recordset::Private::ready() {
    if (absent)
        runtimeError(Failure::MissingTable, {name});
    if (db == nullptr)
        runtimeError(u"the base is closed: "_s + name);
    db->beginReading();
    return *parts;
}

Cursor& Recordset::Private::leaving() {
    Parts& open = ready();
    open.edit.leave();
    return open.cursor;
}

int Recordset::Private::fieldNumber(const QString& field) {
    const int number = parts->table.fieldNumber(field);
    if (number < 0)
        fail(Failure::MissingField, {field});
    return number;
}

/// The value to read: an edited one while editing, else that of the current row.
sql::Cell Recordset::Private::cell(const QString& field) {
    Parts& open = ready();
    open.cursor.locate();
    const int number = fieldNumber(field);
    const bool isLazy = field == open.table.definition.lazyField;
    const int at = open.table.cells[static_cast<size_t>(number)];
    if (at < 0 && !(isLazy && (open.table.side || open.table.present.contains(field))))
        fail(Failure::MissingField, {field});
    if (open.edit.isOpen()) {
        if (const sql::Value* edited = open.edit.value(number))
            return {edited->kind, edited->integer, edited->real, edited->bytes};
    }
    if (open.edit.isAdding() || !open.cursor.isOnRow())
        return {};
    return isLazy ? open.lazy.cell() : open.cursor.row().at(at);
}

void Recordset::Private::find(Seek how, std::span<const QVariant* const> wanted) {
    unmatched = !leaving().find(how, wanted);
}

Recordset::Recordset() : d_(std::make_unique<Private>()) {}

Recordset::~Recordset() {
    close();
}

bool Recordset::usable() const {
    return d_->parts != nullptr;
}

QString Recordset::table() const {
    return d_->name;
}

void Recordset::setIndex(const QString& name) {
    Private::Parts& open = d_->ready();
    const TableDef& table = open.table.definition;
    const IndexDef* index = table.index(name);
    if (index == nullptr)
        d_->fail(Failure::MissingIndex, {name, d_->name});
    if (const QString missing = open.table.missingField(*index); !missing.isEmpty())
        d_->fail(Failure::MissingField, {missing});
    const size_t wanted = static_cast<size_t>(index - table.indexes.data()) + 1;
    if (wanted == open.cursor.order())
        return;
    open.edit.leave();
    open.cursor.setOrder(wanted);
    d_->index = name;
}

QString Recordset::index() const {
    return d_->index;
}

void Recordset::seek(Seek how, const QVariant& k1) {
    d_->find(how, std::array{&k1});
}

void Recordset::seek(Seek how, const QVariant& k1, const QVariant& k2) {
    d_->find(how, std::array{&k1, &k2});
}

void Recordset::seek(Seek how, const QVariant& k1, const QVariant& k2, const QVariant& k3) {
    d_->find(how, std::array{&k1, &k2, &k3});
}

bool Recordset::noMatch() const {
    return d_->unmatched;
}

void Recordset::moveFirst() {
    d_->leaving().toEnd(false);
}

void Recordset::moveLast() {
    d_->leaving().toEnd(true);
}

void Recordset::moveNext() {
    d_->leaving().move(false);
}

void Recordset::movePrevious() {
    d_->leaving().move(true);
}

bool Recordset::eof() const {
    Cursor& cursor = d_->ready().cursor;
    cursor.locate();
    return cursor.place() == Place::After || cursor.place() == Place::Empty;
}

bool Recordset::bof() const {
    Cursor& cursor = d_->ready().cursor;
    cursor.locate();
    return cursor.place() == Place::Before || cursor.place() == Place::Empty;
}

qint64 Recordset::recordCount() {
    Private::Parts& open = d_->ready();
    if (d_->counted && d_->db->streams())
        return *d_->counted;
    sql::Statement& counting = open.counting;
    if (!counting.valid() && !counting.prepare(d_->db->handle, u"SELECT count(*) FROM "_s + sql::quoted(d_->name)))
        open.cursor.failWithEngine();
    if (counting.step() != SQLITE_ROW)
        open.cursor.failWithEngine();
    d_->counted = counting.cell(0).integer;
    counting.reset();
    return *d_->counted;
}

Bookmark Recordset::bookmark() const {
    Cursor& cursor = d_->ready().cursor;
    cursor.locate();
    return cursor.isOnRow() ? Bookmark{cursor.rowId()} : Bookmark{};
}

bool Recordset::setBookmark(Bookmark place) {
    Cursor& cursor = d_->leaving();
    return (cursor.isOnRow() && place.row == cursor.rowId()) || cursor.take(place.row);
}

QVariant Recordset::value(const QString& field) const {
    return sql::toVariant(d_->cell(field));
}

QString Recordset::text(const QString& field) const {
    return sql::toText(d_->cell(field));
}

qint64 Recordset::number(const QString& field) const {
    return sql::toNumber(d_->cell(field));
}

QByteArray Recordset::bytes(const QString& field) const {
    return sql::toBytes(d_->cell(field));
}

bool Recordset::isNull(const QString& field) const {
    return d_->cell(field).kind == sql::Value::Kind::Null;
}

void Recordset::addNew() {
    d_->ready().cursor.locate();
    d_->parts->edit.beginAdding();
}

void Recordset::edit() {
    Private::Parts& open = d_->ready();
    open.cursor.locate();
    open.edit.leave();
    if (!open.cursor.isOnRow())
        d_->fail(u"no current record"_s);
    d_->modified = open.cursor.rowId();
    open.edit.beginChanging(d_->modified);
}

void Recordset::setValue(const QString& field, const QVariant& value) {
    Private::Parts& open = d_->ready();
    const int number = d_->fieldNumber(field);
    if (!open.edit.isOpen())
        d_->fail(u"update without addNew or edit"_s);
    if (open.table.cells[static_cast<size_t>(number)] < 0 && field != open.table.definition.lazyField)
        d_->fail(Failure::MissingField, {field});
    open.edit.setValue(number, value);
}

bool Recordset::update() {
    Private::Parts& open = d_->ready();
    if (!open.edit.isOpen())
        d_->fail(u"update without addNew or edit"_s);
    d_->error.clear();
    const bool adding = open.edit.isAdding();
    const std::optional<qint64> written = open.edit.write();
    open.edit.leave();
    if (!written) {
        d_->error = d_->db->error;
        return false;
    }
    d_->modified = *written;
    d_->counted.reset();
    if (adding)
        open.cursor.rowAdded();
    else
        open.cursor.take(*written);
    return true;
}

void Recordset::cancelUpdate() {
    d_->ready().edit.leave();
}

bool Recordset::remove() {
    Private::Parts& open = d_->ready();
    open.cursor.locate();
    open.edit.leave();
    d_->error.clear();
    if (!open.cursor.isOnRow())
        d_->fail(u"no current record"_s);
    open.cursor.dropPlan();
    if (!open.edit.remove(open.cursor.rowId())) {
        d_->error = d_->db->error;
        return false;
    }
    d_->counted.reset();
    open.cursor.rowDeleted();
    return true;
}

QString Recordset::lastError() const {
    return d_->error;
}

Bookmark Recordset::lastModified() const {
    return {d_->modified};
}

void Recordset::close() {
    d_->detach();
}

} // namespace velm
