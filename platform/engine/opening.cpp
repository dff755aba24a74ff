#include "platform/engine/opening.h"

#include "platform/text/letters.h"

#include <QFile>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velm::opening {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int busyMilliseconds = 5000;
constexpr int longestValue = 256 * 1024 * 1024;
constexpr auto schemaName = "main";

/// The stored key of a text, for bases that another tool has made without it.
void keyFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    const QByteArray key = sortKey(QString::fromUtf8(text, sqlite3_value_bytes(values[0])));
    sqlite3_result_blob64(context, key.constData(), static_cast<sqlite3_uint64>(key.size()), SQLITE_TRANSIENT);
}

} // namespace

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

Database::Opened failure(OpenError error, Obstacle obstacle, const QString& message) {
    return {nullptr, error, message, obstacle};
}

Database::Opened refusal(const DetectedFormat& detected) {
    switch (detected.format) {
    case FileFormat::Missing:
        return failure(OpenError::Missing, detected.obstacle, u"unable to open database file"_s);
    case FileFormat::Unreadable:
        return failure(OpenError::Unreadable, detected.obstacle, u"unable to read the file"_s);
    case FileFormat::OldEngine:
        return failure(OpenError::OldEngine, Obstacle::Other, u"file of an older engine"_s);
    case FileFormat::Foreign:
        return failure(OpenError::Foreign, Obstacle::Damaged, u"file is not a database"_s);
    case FileFormat::Base:
        break;
    }
    return {};
}

Database::Opened refusal(const QString& path, bool shared) {
    if (Database::Opened refused = refusal(detectFormat(path)); refused.error != OpenError::None)
        return refused;
    if (shared && !canBeWritten(path))
        return failure(OpenError::ReadOnly, Obstacle::ReadOnly, u"attempt to write a readonly database"_s);
    const Journal journal = journalOf(path);
    if (journal == Journal::NoFile)
        return failure(OpenError::Unreadable, Obstacle::NotPlain, u"the journal beside the file is no plain file"_s);
    if (journal == Journal::Hot && !shared)
        return failure(OpenError::Unreadable, Obstacle::ReadOnly, u"an interrupted change must be undone first"_s);
    return {};
}

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
        d.note(Obstacle::Damaged, u"the file is shorter than its header says"_s);
        return OpenError::Foreign;
    }
    for (const TableDef& table : d.schema.tables)
        any = any || tables.contains(table.name);
    if (!any) {
        d.note(Obstacle::Damaged, u"the file holds none of the tables"_s);
        return OpenError::Foreign;
    }
    return OpenError::None;
}

bool readFrom(sqlite3* handle, const QByteArray& content) {
    const sqlite3_int64 size = content.size();
    // The engine asks for writable bytes and, told that they are only read, writes none.
    auto* there = reinterpret_cast<unsigned char*>(const_cast<char*>(content.constData()));
    return sqlite3_deserialize(handle, schemaName, there, size, size, SQLITE_DESERIALIZE_READONLY) == SQLITE_OK;
}

bool changeCopyOf(sqlite3* handle, const QByteArray& content) {
    const sqlite3_int64 size = content.size();
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(static_cast<sqlite3_uint64>(size)));
    if (copy == nullptr)
        return false;
    std::copy(content.begin(), content.end(), copy);
    // From here on the copy is the engine's, also when it refuses.
    return sqlite3_deserialize(handle, schemaName, copy, size, size,
                               SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE) == SQLITE_OK;
}

Database::Opened makeFile(const QString& path) {
    constexpr mode_t rights = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const int made = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights);
    if (made < 0) {
        const int refused = errno;
        const Obstacle why = obstacleOf(refused);
        return failure(OpenError::Unreadable, why == Obstacle::Missing ? Obstacle::NoFolder : why,
                       qt_error_string(refused));
    }
    ::close(made);
    return {};
}

} // namespace velm::opening
