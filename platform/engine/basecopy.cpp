#include "platform/engine/basecopy.h"

#include "platform/engine/catalogue.h"
#include "platform/engine/database_p.h"
#include "platform/engine/enginefault.h"
#include "platform/engine/opening.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int pagesAtOnce = 256;

/// A file in the making, beside the one whose name it gets.
class Making {
public:
    Making(Database::Private& d, const QString& path)
        : d_(d), target_(behindLinks(path)), name_(target_ + u".nouveau"_s) {
        clear();
    }
    ~Making() {
        if (!done_)
            clear();
    }
    Making(const Making&) = delete;
    Making& operator=(const Making&) = delete;

    const QString& name() const { return name_; }

    /// Forces it on the disk and gives it its name; its folder is forced, too, as a name is part of that. Whoever could
    /// read the one before can read it, and nobody else.
    bool takesPlace() {
        const QByteArray from = QFile::encodeName(name_);
        const QByteArray to = QFile::encodeName(target_);
        struct stat before {};
        const bool replaces = ::stat(to.constData(), &before) == 0;
        if (replaces && ::chmod(from.constData(), before.st_mode & rights) != 0)
            return failed();
        if (!force(from, O_RDONLY) || std::rename(from.constData(), to.constData()) != 0)
            return failed();
        done_ = true;
        return force(QFile::encodeName(QFileInfo(target_).absolutePath()), O_RDONLY | O_DIRECTORY) || failed();
    }

private:
    /// What the engine keeps beside a file goes with it: of one that a killed process left it would be taken for this
    /// one's.
    void clear() const {
        for (const QString& kept : {QString(), u"-journal"_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(name_ + kept);
    }
    static constexpr mode_t rights = 07777;

    /// A link goes on leading to what it led to.
    static QString behindLinks(const QString& path) {
        const QString real = QFileInfo(path).canonicalFilePath();
        return real.isEmpty() ? QDir::current().absoluteFilePath(path) : real;
    }
    static bool force(const QByteArray& path, int flags) {
        const int file = ::open(path.constData(), flags | O_CLOEXEC);
        if (file < 0)
            return false;
        const bool forced = ::fsync(file) == 0;
        const int error = errno;
        ::close(file);
        errno = error;
        return forced;
    }
    bool failed() {
        const int error = errno;
        d_.note(obstacleOf(error), qt_error_string(error));
        return false;
    }

    Database::Private& d_;
    QString target_;
    QString name_;
    bool done_ = false;
};

/// The connection to a file in the making.
class Target {
public:
    explicit Target(const QString& path) {
        constexpr int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        sqlite3_open_v2(opening::plainName(path).constData(), &handle_, flags, nullptr);
    }
    ~Target() { sqlite3_close_v2(handle_); }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    sqlite3* handle() const { return handle_; }

private:
    sqlite3* handle_ = nullptr;
};

bool copyPages(sqlite3* from, sqlite3* to, const std::function<void(double)>& progress) {
    sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
    if (backup == nullptr)
        return false;
    int result = SQLITE_OK;
    while (result == SQLITE_OK) {
        result = sqlite3_backup_step(backup, pagesAtOnce);
        const int all = std::max(1, sqlite3_backup_pagecount(backup));
        if (progress)
            progress(100.0 * (all - sqlite3_backup_remaining(backup)) / all);
    }
    return sqlite3_backup_finish(backup) == SQLITE_OK && result == SQLITE_DONE;
}

} // namespace

bool backUp(Database& base, const QString& path, const std::function<void(double percent)>& progress) {
    Database::Private& d = *base.d();
    Making making(d, path);
    {
        const Target target(making.name());
        if (!copyPages(d.handle, target.handle(), progress)) {
            const Obstacle kind = obstacleOf(target.handle());
            d.note(kind == Obstacle::None ? obstacleOf(d.handle) : kind,
                   QString::fromUtf8(sqlite3_errmsg(kind == Obstacle::None ? d.handle : target.handle())));
            return false;
        }
    }
    return making.takesPlace();
}

bool rebuildInto(Database& base, const QString& path) {
    Database::Private& d = *base.d();
    Making making(d, path);
    base.releaseLocks();
    const sql::Statement statement(d.handle, u"VACUUM INTO ?1"_s, false);
    // Bound as it lies, so that it has to outlive the statement's run.
    const sql::Value name = sql::Value::of(QVariant(QString::fromUtf8(opening::plainName(making.name()))));
    if (statement.valid())
        statement.bind(1, name);
    if (!statement.valid() || statement.run() != SQLITE_OK) {
        d.noteError();
        return false;
    }
    return making.takesPlace();
}

bool complete(const Database& base, QString* missing) {
    const Database::Private& d = *base.d();
    for (const TableDef& table : d.schema.tables) {
        if (table.optional)
            continue;
        const QStringList columns = catalogue::columnsOf(d.handle, table.name);
        const bool whole = std::all_of(table.fields.begin(), table.fields.end(), [&](const FieldDef& field) {
            return field.name == table.lazyField || columns.contains(field.name, Qt::CaseInsensitive);
        });
        if (!columns.isEmpty() && whole)
            continue;
        if (missing != nullptr)
            *missing = table.name;
        return false;
    }
    return true;
}

} // namespace velm
