#include "platform/engine/recordset.h"

#include "platform/engine/recordset_p.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace velm {

using namespace Qt::Literals::StringLiterals;
using Place = Recordset::Private::Place;
using Editing = Recordset::Private::Editing;

void Recordset::Private::attach(Database::Private* database, const QString& tableName) {
    name = tableName;
    if (database->handle == nullptr)
        return;
    db = database;
    db->recordsets.push_back(this);
    db->beginReading();
    table = db->schema.table(name);
    present = table != nullptr ? db->columnsOf(name) : QStringList();
    if (present.isEmpty()) {
        sql::raiseIfMemory(sqlite3_errcode(db->handle));
        absent = true;
        return;
    }
    side = !table->lazyField.isEmpty() && db->columnsOf(sideTable(*table)).contains(table->lazyField);
    fieldCells.assign(table->fields.size(), -1);
    int cells = 1;
    for (size_t i = 0; i < table->fields.size(); ++i) {
        const QString& field = table->fields[i].name;
        if (field == table->lazyField || !present.contains(field))
            continue;
        fieldCells[i] = cells++;
        fieldColumns += u',' + sql::quoted(field);
    }
    const IndexDef* primary = table->index(u"primarykey"_s);
    order = primary != nullptr && missingField(*primary).isEmpty()
                ? static_cast<size_t>(primary - table->indexes.data()) + 1
                : 0;
    orders.resize(table->indexes.size() + 1);
    edited.resize(table->fields.size());
}

void Recordset::Private::detach() {
    if (db == nullptr)
        return;
    dropPlan();
    statements.clear();
    changes.clear();
    for (sql::Statement* statement : {&byRow, &lazyInSide, &lazyInRow, &counting})
        *statement = sql::Statement();
    std::erase(db->recordsets, this);
    db = nullptr;
    row.clear();
    place = Place::Empty;
    editing = Editing::No;
}

void Recordset::Private::fail(Failure what, const QStringList& parts) {
    dropPlan();
    runtimeError(what, parts);
}

void Recordset::Private::fail(const QString& message) {
    fail(Failure::Engine, {message + u": "_s + name});
}

void Recordset::Private::failWithEngine() {
    const int result = sqlite3_errcode(db->handle);
    db->noteError();
    const QString message = db->error + u": "_s + name;
    dropPlan();
    row.clear();
    place = Place::After;
    sql::raiseIfMemory(result);
    runtimeError(message);
}

void Recordset::Private::ready() {
    if (absent)
        runtimeError(Failure::MissingTable, {name});
    if (db == nullptr)
        runtimeError(u"the base is closed: "_s + name);
    db->beginReading();
}

const Recordset::Private::Order& Recordset::Private::current() {
    Order& made = orders[order];
    if (made.width == 0)
        made = makeOrder(order == 0 ? nullptr : &table->indexes[order - 1]);
    return made;
}

int Recordset::Private::fieldNumber(const QString& field) {
    // Asked for every value that is read: the comparison of QString costs three times as much.
    const auto size = static_cast<size_t>(field.size()) * sizeof(QChar);
    for (size_t i = 0; i < table->fields.size(); ++i) {
        const QString& candidate = table->fields[i].name;
        if (candidate.size() == field.size() && std::memcmp(candidate.constData(), field.constData(), size) == 0)
            return static_cast<int>(i);
    }
    fail(Failure::MissingField, {field});
}

QString Recordset::Private::missingField(const IndexDef& index) const {
    for (const IndexField& field : index.fields) {
        if (!present.contains(field.field))
            return field.field;
    }
    return {};
}

bool Recordset::Private::hasKeyColumn(const QString& field) const {
    return present.contains(keyColumn(field));
}

/// The value to read: an edited one while editing, else that of the current row.
sql::Cell Recordset::Private::cell(const QString& field) {
    ready();
    locate();
    const auto number = static_cast<size_t>(fieldNumber(field));
    const bool isLazy = field == table->lazyField;
    const int at = fieldCells[number];
    if (at < 0 && !(isLazy && (side || present.contains(field))))
        fail(Failure::MissingField, {field});
    if (editing != Editing::No && edited[number]) {
        const sql::Value& value = *edited[number];
        return {value.kind, value.integer, value.real, value.bytes};
    }
    if (editing == Editing::Adding || place != Place::OnRow)
        return {};
    return isLazy ? lazyCell() : row.at(at);
}

sql::Cell Recordset::Private::lazyCell() {
    if (!lazyLoaded) {
        lazy.clear();
        const bool found = side && loadLazy(lazyInSide, sideTable(*table)) && lazy.at(0).kind != sql::Value::Kind::Null;
        if (!found && present.contains(table->lazyField))
            loadLazy(lazyInRow, name);
        lazyLoaded = true;
    }
    return lazy.at(0);
}

bool Recordset::Private::loadLazy(sql::Statement& statement, const QString& from) {
    if (!statement.valid() &&
        !statement.prepare(db->handle, u"SELECT "_s + sql::quoted(table->lazyField) + u" FROM "_s + sql::quoted(from) +
                                           u" WHERE rowid=?1"_s))
        failWithEngine();
    const auto key = sql::Value::of(rowId());
    const sql::Reset reset(statement);
    statement.bind(1, key);
    const int result = statement.step();
    sql::raiseIfMemory(result);
    if (result == SQLITE_ROW)
        lazy.take(statement, 1);
    else if (result != SQLITE_DONE)
        runtimeError(QString::fromUtf8(sqlite3_errstr(result)) + u": "_s + from);
    return result == SQLITE_ROW;
}

Recordset::Recordset() : d_(std::make_unique<Private>()) {}

Recordset::~Recordset() {
    close();
}

bool Recordset::usable() const {
    return d_->db != nullptr && !d_->absent;
}

QString Recordset::table() const {
    return d_->name;
}

void Recordset::setIndex(const QString& name) {
    d_->ready();
    const IndexDef* index = d_->table->index(name);
    if (index == nullptr)
        d_->fail(Failure::MissingIndex, {name, d_->name});
    if (const QString missing = d_->missingField(*index); !missing.isEmpty())
        d_->fail(Failure::MissingField, {missing});
    const size_t wanted = static_cast<size_t>(index - d_->table->indexes.data()) + 1;
    if (wanted == d_->order)
        return;
    d_->leaveEdit();
    d_->dropPlan();
    d_->order = wanted;
    d_->byRow = sql::Statement();
    d_->row.clear();
    d_->place = Place::Pending;
}

QString Recordset::index() const {
    return d_->order == 0 || d_->table == nullptr ? QString() : d_->table->indexes[d_->order - 1].name;
}

void Recordset::seek(Seek how, const QVariant& k1) {
    d_->ready();
    d_->leaveEdit();
    d_->find(how, std::array{&k1});
}

void Recordset::seek(Seek how, const QVariant& k1, const QVariant& k2) {
    d_->ready();
    d_->leaveEdit();
    d_->find(how, std::array{&k1, &k2});
}

void Recordset::seek(Seek how, const QVariant& k1, const QVariant& k2, const QVariant& k3) {
    d_->ready();
    d_->leaveEdit();
    d_->find(how, std::array{&k1, &k2, &k3});
}

bool Recordset::noMatch() const {
    return d_->unmatched;
}

void Recordset::moveFirst() {
    d_->ready();
    d_->leaveEdit();
    d_->toEnd(false);
}

void Recordset::moveLast() {
    d_->ready();
    d_->leaveEdit();
    d_->toEnd(true);
}

void Recordset::moveNext() {
    d_->ready();
    d_->leaveEdit();
    d_->move(false);
}

void Recordset::movePrevious() {
    d_->ready();
    d_->leaveEdit();
    d_->move(true);
}

bool Recordset::eof() const {
    d_->ready();
    d_->locate();
    return d_->place == Place::After || d_->place == Place::Empty;
}

bool Recordset::bof() const {
    d_->ready();
    d_->locate();
    return d_->place == Place::Before || d_->place == Place::Empty;
}

qint64 Recordset::recordCount() {
    d_->ready();
    if (d_->counted && d_->db->streams())
        return *d_->counted;
    if (!d_->counting.valid() &&
        !d_->counting.prepare(d_->db->handle, u"SELECT count(*) FROM "_s + sql::quoted(d_->name)))
        d_->failWithEngine();
    if (d_->counting.step() != SQLITE_ROW)
        d_->failWithEngine();
    d_->counted = d_->counting.cell(0).integer;
    d_->counting.reset();
    return *d_->counted;
}

Bookmark Recordset::bookmark() const {
    d_->ready();
    d_->locate();
    return d_->place == Place::OnRow ? Bookmark{d_->rowId()} : Bookmark{};
}

bool Recordset::setBookmark(Bookmark place) {
    d_->ready();
    d_->leaveEdit();
    if (d_->place == Place::OnRow && place.row == d_->rowId())
        return true;
    return d_->take(place.row);
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

void Recordset::close() {
    d_->detach();
}

} // namespace velm
