#include "platform/engine/database_p.h"
#include "platform/engine/format.h"
#include "platform/engine/recordset_p.h"
#include "platform/text/letters.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int busyMilliseconds = 5000;
constexpr int longestValue = 256 * 1024 * 1024;

/// The stored key of a text, for bases that another tool has made without it.
void keyFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    const QByteArray key = sortKey(QString::fromUtf8(text, sqlite3_value_bytes(values[0])));
    sqlite3_result_blob64(context, key.constData(), static_cast<sqlite3_uint64>(key.size()), SQLITE_TRANSIENT);
}

/// An absolute path never reads as a URI, whatever the file is called.
QByteArray plainName(const QString& path) {
    return QFile::encodeName(path);
}

QByteArray unchangingName(const QString& path) {
    qsizetype slashes = 0;
    while (slashes + 1 < path.size() && path[slashes + 1] == u'/')
        ++slashes;
    return "file://" + QUrl::toPercentEncoding(path.mid(slashes), "/") + "?immutable=1";
}

/// Counting its memory takes the library a lock that all connections share, and nobody asks for the count.
void keepNoStatistics() {
    [[maybe_unused]] static const int once = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

/// What a base may not do to us, however it was made.
void guard(sqlite3* handle) {
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, busyMilliseconds);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    // A literal in double quotes that was not translated is an error, not a text.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, longestValue);
    sqlite3_create_function_v2(handle, "cle_tri", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                               keyFunction, nullptr, nullptr, nullptr);
}

const QString readSettings = u"PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA cache_size=-16384; "
                             "PRAGMA temp_store=MEMORY"_s;
const QString storeSettings = u"PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL"_s;
/// A base in the making is written to a file of its own and given its name when it is complete.
const QString buildSettings =
    u"PRAGMA page_size=4096; PRAGMA auto_vacuum=NONE; PRAGMA encoding='UTF-8'; "
    "PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE; PRAGMA secure_delete=OFF; "
    "PRAGMA cache_size=-65536; PRAGMA temp_store=MEMORY"_s;

Database::Opened failure(OpenError error, const QString& message) {
    return {nullptr, error, message};
}

/// Reads a page, so that nothing that opens is unreadable; takes part in undoing an interrupted change.
OpenError probe(Database::Private& d) {
    bool any = false;
    const QStringList tables = [&d] {
        QStringList names;
        sql::Statement statement(d.handle, u"SELECT name FROM sqlite_schema WHERE type='table'"_s);
        if (!statement.valid())
            return names;
        int result = statement.step();
        for (; result == SQLITE_ROW; result = statement.step())
            names << sql::toText(statement.cell(0));
        if (result != SQLITE_DONE)
            names.clear();
        return names;
    }();
    sql::raiseIfMemory(sqlite3_errcode(d.handle));
    switch (sqlite3_errcode(d.handle) & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        d.noteError();
        return OpenError::Unreadable;
    case SQLITE_READONLY:
        d.noteError();
        return OpenError::ReadOnly;
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        break;
    default:
        d.noteError();
        return OpenError::Foreign;
    }
    if (isTruncated(d.handle)) {
        d.error = u"the file is shorter than its header says"_s;
        return OpenError::Foreign;
    }
    for (const TableDef& table : d.schema.tables)
        any = any || tables.contains(table.name);
    if (!any) {
        d.error = u"the file holds none of the tables"_s;
        return OpenError::Foreign;
    }
    return OpenError::None;
}

} // namespace

Database::Database() : d_(std::make_unique<Private>()) {}

Database::~Database() {
    close();
}

Database::Opened Database::open(const QString& path, OpenMode mode, const Schema& schema) {
    const QString absolute = QDir::current().absoluteFilePath(path);
    switch (detectFormat(absolute)) {
    case FileFormat::Missing:
        return failure(OpenError::Missing, u"unable to open database file"_s);
    case FileFormat::Unreadable:
        return failure(OpenError::Unreadable, u"unable to read the file"_s);
    case FileFormat::OldEngine:
        return failure(OpenError::OldEngine, u"file of an older engine"_s);
    case FileFormat::Foreign:
        return failure(OpenError::Foreign, u"file is not a database"_s);
    case FileFormat::Base:
        break;
    }
    const bool shared = mode == OpenMode::Shared;
    if (shared && !canBeWritten(absolute))
        return failure(OpenError::ReadOnly, u"attempt to write a readonly database"_s);
    if (!shared && hasHotJournal(absolute))
        return failure(OpenError::Unreadable, u"an interrupted change must be undone first"_s);

    std::unique_ptr<Database> database(new Database);
    Private& d = *database->d_;
    d.path = path;
    d.schema = schema;
    const int flags = SQLITE_OPEN_NOMUTEX | (shared ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    const QByteArray name = shared ? plainName(absolute) : unchangingName(absolute);
    keepNoStatistics();
    if (const int result = sqlite3_open_v2(name.constData(), &d.handle, flags, nullptr); result != SQLITE_OK) {
        sql::raiseIfMemory(result);
        d.noteError();
        return failure(OpenError::Unreadable, d.error);
    }
    guard(d.handle);
    d.run(readSettings);
    d.immutable = !shared;
    d.beginReading();
    if (const OpenError error = probe(d); error != OpenError::None)
        return failure(error, d.error);
    if (shared && sqlite3_db_readonly(d.handle, "main") != 0)
        return failure(OpenError::ReadOnly, u"attempt to write a readonly database"_s);
    d.updatable = shared;
    if (shared && !schema.onlyRead)
        d.run(storeSettings);
    d.error.clear();
    return {std::move(database), OpenError::None, {}};
}

Database::Opened Database::create(const QString& path, const Schema& schema) {
    const QString absolute = QDir::current().absoluteFilePath(path);
    QFile file(absolute);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return failure(OpenError::Unreadable, file.errorString());
    file.close();
    std::unique_ptr<Database> database(new Database);
    Private& d = *database->d_;
    d.path = path;
    d.schema = schema;
    d.building = true;
    d.updatable = true;
    keepNoStatistics();
    bool made = sqlite3_open_v2(plainName(absolute).constData(), &d.handle, SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE,
                                nullptr) == SQLITE_OK;
    if (made) {
        guard(d.handle);
        made = d.run(buildSettings) && database->begin();
    }
    for (const TableDef& table : d.schema.tables)
        made = made && (table.optional || d.make(table));
    made = made && database->commit();
    if (!made) {
        d.noteError();
        const QString message = d.error;
        database->close();
        QFile::remove(absolute);
        return failure(OpenError::Unreadable, message);
    }
    return {std::move(database), OpenError::None, {}};
}

QString Database::path() const {
    return d_->path;
}

bool Database::updatable() const {
    return d_->updatable;
}

std::unique_ptr<Recordset> Database::openTable(const QString& name) {
    std::unique_ptr<Recordset> recordset(new Recordset);
    recordset->d_->attach(d_.get(), name);
    return recordset;
}

bool Database::begin() {
    if (d_->writing || d_->handle == nullptr)
        return false;
    releaseLocks();
    d_->writing = d_->run(u"BEGIN IMMEDIATE"_s);
    return d_->writing;
}

bool Database::commit() {
    if (!d_->writing)
        return false;
    if (!d_->writesPossible()) {
        d_->writing = false;
        return false;
    }
    const bool committed = d_->run(u"COMMIT"_s);
    if (!committed && sqlite3_get_autocommit(d_->handle) == 0)
        sqlite3_exec(d_->handle, "ROLLBACK", nullptr, nullptr, nullptr);
    d_->writing = false;
    return committed;
}

void Database::rollback() {
    if (!d_->writing)
        return;
    if (sqlite3_get_autocommit(d_->handle) == 0)
        d_->run(u"ROLLBACK"_s);
    d_->writing = false;
}

bool Database::inTransaction() const {
    return d_->writing;
}

bool Database::execute(const QString& statements) {
    if (d_->handle == nullptr)
        return false;
    if (!d_->writing)
        releaseLocks();
    return d_->run(statements);
}

QString Database::lastError() const {
    return d_->error;
}

bool Database::check(QString* report) {
    if (d_->handle == nullptr)
        return false;
    sql::Statement statement(d_->handle, u"PRAGMA integrity_check(20)"_s, false);
    QStringList lines;
    int result = statement.valid() ? statement.step() : SQLITE_ERROR;
    for (; result == SQLITE_ROW; result = statement.step())
        lines << sql::toText(statement.cell(0));
    if (result != SQLITE_DONE)
        lines << QString::fromUtf8(sqlite3_errmsg(d_->handle));
    if (report != nullptr)
        *report = lines.join(u'\n');
    return lines == QStringList{u"ok"_s};
}

void Database::releaseLocks() {
    d_->releaseLocks();
}

void Database::Private::releaseLocks() {
    if (!reading)
        return;
    for (Recordset::Private* recordset : recordsets)
        recordset->dropPlan();
    for (Snapshot::Private* snapshot : snapshots)
        snapshot->drain();
    reading = false;
    run(u"COMMIT"_s);
}

bool Database::sync() {
    sqlite3_file* file = nullptr;
    if (d_->handle == nullptr || d_->writing ||
        sqlite3_file_control(d_->handle, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr)
        return false;
    if (file->pMethods->xSync(file, SQLITE_SYNC_FULL) == SQLITE_OK)
        return true;
    d_->error = u"disk I/O error"_s;
    return false;
}

void Database::close() {
    if (d_->handle == nullptr)
        return;
    const auto recordsets = d_->recordsets;
    for (Recordset::Private* recordset : recordsets)
        recordset->detach();
    const auto snapshots = d_->snapshots;
    for (Snapshot::Private* snapshot : snapshots)
        snapshot->detach();
    rollback();
    sqlite3_close_v2(d_->handle);
    d_->handle = nullptr;
    d_->updatable = false;
    d_->reading = false;
}

void Database::Private::beginReading() {
    if (schema.onlyRead && !reading && !writing && !immutable && !building)
        reading = sqlite3_exec(handle, "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool Database::Private::writesPossible() {
    if (!updatable) {
        error = u"attempt to write a readonly database"_s;
        return false;
    }
    if (writing && sqlite3_get_autocommit(handle) != 0) {
        error = u"the transaction was rolled back: "_s + error;
        return false;
    }
    return true;
}

void Database::Private::noteError() {
    error = QString::fromUtf8(sqlite3_errmsg(handle));
}

bool Database::Private::run(const QString& statement) {
    if (sqlite3_exec(handle, statement.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    noteError();
    return false;
}

bool Database::Private::hasTable(const QString& name) const {
    return !columnsOf(name).isEmpty();
}

QStringList Database::Private::columnsOf(const QString& table) const {
    const sql::Statement statement(handle, u"SELECT name FROM pragma_table_info(?1)"_s, false);
    QStringList names;
    if (!statement.valid())
        return names;
    const sql::Value name = sql::Value::of(QVariant(table));
    statement.bind(1, name);
    while (statement.step() == SQLITE_ROW)
        names << sql::toText(statement.cell(0));
    return names;
}

bool Database::Private::hasIndex(const TableDef& table, const IndexDef& index) const {
    const sql::Statement statement(
        handle,
        u"SELECT i.name FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) AS i WHERE l.name=?2 AND "
        "l.partial=0 ORDER BY i.seqno"_s,
        false);
    if (!statement.valid())
        return false;
    const sql::Value tableName = sql::Value::of(QVariant(table.name));
    const sql::Value indexName = sql::Value::of(QVariant(table.name + u'_' + index.name));
    statement.bind(1, tableName);
    statement.bind(2, indexName);
    QStringList columns;
    while (statement.step() == SQLITE_ROW)
        columns << sql::toText(statement.cell(0));
    QStringList wanted;
    for (const IndexField& field : index.fields)
        wanted << (field.folded ? keyColumn(field.field) : field.field);
    return columns == wanted;
}

} // namespace velm
