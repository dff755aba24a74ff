#include "platform/engine/database_p.h"
#include "platform/engine/enginefault.h"
#include "platform/engine/opening.h"
#include "platform/engine/recordset_p.h"
#include "platform/engine/snapshot_p.h"

#include <QDir>
#include <QFile>

#include <cerrno>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace opening;

const QString readSettings = u"PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA cache_size=-16384; "
                             "PRAGMA temp_store=MEMORY"_s;
const QString storeSettings = u"PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL"_s;
/// A base in the making is written to a file of its own and given its name when it is complete.
const QString buildSettings =
    u"PRAGMA page_size=4096; PRAGMA auto_vacuum=NONE; PRAGMA encoding='UTF-8'; "
    "PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE; PRAGMA secure_delete=OFF; "
    "PRAGMA cache_size=-65536; PRAGMA temp_store=MEMORY"_s;

/// What an opened handle still needs to be a base.
Database::Opened begun(std::unique_ptr<Database> database, bool shared) {
    Database::Private& d = *database->d();
    guard(d.handle);
    d.run(readSettings);
    d.immutable = !shared;
    d.beginReading();
    if (const OpenError error = probe(d); error != OpenError::None)
        return failure(error, d.obstacle, d.error);
    if (shared && sqlite3_db_readonly(d.handle, "main") != 0)
        return failure(OpenError::ReadOnly, Obstacle::ReadOnly, u"attempt to write a readonly database"_s);
    d.updatable = shared;
    if (shared && !d.schema.onlyRead)
        d.run(storeSettings);
    d.forgetError();
    return {std::move(database), OpenError::None, {}, Obstacle::None};
}

} // namespace

Database::Database() : d_(std::make_unique<Private>()) {}

Database::~Database() {
    close();
}

Database::Opened Database::open(const QString& path, OpenMode mode, const Schema& schema) {
    const QString absolute = QDir::current().absoluteFilePath(path);
    const bool shared = mode == OpenMode::Shared;
    if (Opened refused = refusal(absolute, shared); refused.error != OpenError::None)
        return refused;

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
        return failure(OpenError::Unreadable, d.obstacle, d.error);
    }
    return begun(std::move(database), shared);
}

Database::Opened Database::openBytes(const QByteArray& bytes, OpenMode mode, const Schema& schema) {
    if (Opened refused = refusal({formatOfBytes(bytes), Obstacle::None}); refused.error != OpenError::None)
        return refused;
    const bool shared = mode == OpenMode::Shared;
    std::unique_ptr<Database> database(new Database);
    Private& d = *database->d_;
    d.schema = schema;
    constexpr int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY;
    keepNoStatistics();
    const int result = sqlite3_open_v2(":memory:", &d.handle, flags, nullptr);
    sql::raiseIfMemory(result);
    if (!shared)
        d.bytes = bytes;
    if (result != SQLITE_OK || !(shared ? changeCopyOf(d.handle, bytes) : readFrom(d.handle, d.bytes))) {
        d.noteError();
        return failure(OpenError::Unreadable, d.obstacle, d.error);
    }
    return begun(std::move(database), shared);
}

Database::Opened Database::create(const QString& path, const Schema& schema, Making making) {
    const QString absolute = QDir::current().absoluteFilePath(path);
    if (Opened refused = making == Making::New ? makeFile(absolute) : Opened(); refused.error != OpenError::None)
        return refused;
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
    } else {
        d.noteError();
    }
    for (const TableDef& table : d.schema.tables)
        made = made && (table.optional || d.make(table));
    made = made && database->commit();
    if (!made) {
        database->close();
        QFile::remove(absolute);
        return failure(OpenError::Unreadable, d.obstacle, d.error);
    }
    return {std::move(database), OpenError::None, {}, Obstacle::None};
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

std::unique_ptr<Snapshot> Database::openQuery(const QString& text, QString* error) {
    return openQuery(text, QVariantList(), error);
}

std::unique_ptr<Snapshot> Database::openQuery(const QString& text, const QVariantList& values, QString* error) {
    return Snapshot::open(*d_, text, values, error);
}

bool Database::makeTable(const QString& name) {
    const TableDef* table = d_->handle != nullptr ? d_->schema.table(name) : nullptr;
    if (table == nullptr) {
        d_->note(Obstacle::Other, u"no such table: "_s + name);
        return false;
    }
    if (!d_->writing)
        releaseLocks();
    return d_->make(*table);
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

Obstacle Database::obstacle() const {
    return d_->obstacle;
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
    errno = 0;
    if (file->pMethods->xSync(file, SQLITE_SYNC_FULL) == SQLITE_OK)
        return true;
    const Obstacle why = obstacleOf(errno);
    d_->note(why == Obstacle::Full ? why : Obstacle::Device, u"disk I/O error"_s);
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
        note(Obstacle::ReadOnly, u"attempt to write a readonly database"_s);
        return false;
    }
    if (writing && sqlite3_get_autocommit(handle) != 0) {
        // Of the kind of what made the engine do that.
        error = u"the transaction was rolled back: "_s + error;
        return false;
    }
    return true;
}

void Database::Private::noteError() {
    note(obstacleOf(handle), QString::fromUtf8(sqlite3_errmsg(handle)));
}

void Database::Private::note(Obstacle kind, const QString& words) {
    obstacle = kind;
    error = words;
}

void Database::Private::forgetError() {
    note(Obstacle::None, QString());
}

bool Database::Private::run(const QString& statement) {
    if (sqlite3_exec(handle, statement.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    noteError();
    return false;
}

bool Database::Private::make(const TableDef& table) {
    bool made = true;
    for (const QString& statement : tableStatements(table))
        made = made && run(statement);
    for (const IndexDef& index : table.indexes)
        made = made && run(indexStatement(table, index));
    return made;
}

} // namespace velm
