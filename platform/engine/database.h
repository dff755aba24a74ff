#pragma once
// A base of tables over SQLite, in the words the logic speaks: tables with named indexes, seeks, moves, bookmarks.
#include "platform/base/obstacle.h"
#include "platform/engine/schema.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

namespace velm {

enum class OpenMode {
    Shared,           ///< read and write, other processes may have the base open
    ExclusiveReadOnly ///< for media that cannot be written; the file is taken as unchanging
};

enum class OpenError {
    None,
    Missing,    ///< no such file; opening never creates one
    Unreadable, ///< no permission, a folder, a device error: `Opened::obstacle` tells which
    OldEngine,  ///< the signature of an older engine's file: another reader's business
    Foreign,    ///< not a base: empty, truncated, or of another kind
    ReadOnly    ///< Shared was asked for, and the file or its folder cannot be written
};

class Recordset;
class Snapshot;

/// One open base, for one thread. Recordsets and snapshots that are still there when it closes become unusable; table
/// writers must be gone before.
///
/// A base that is damaged beyond its first page opens; the read that meets the damage is a run-time error with the
/// engine's words. Lack of memory is none: opening and reading then throw std::bad_alloc, as everything else does.
class Database {
public:
    struct Opened {
        std::unique_ptr<Database> database; ///< null when it failed
        OpenError error = OpenError::None;
        QString message;                    ///< the engine's own words, for a report
        Obstacle obstacle = Obstacle::None; ///< which of the kinds that a message tells apart
    };

    /// Opens an existing file and reads from it, so that a file of another kind fails here. The one place where file
    /// formats are told apart.
    static Opened open(const QString& path, OpenMode mode, const Schema& schema);

    /// Opens a base that lies in memory, as open() does a file of these bytes; nothing of it touches a disk, path() is
    /// empty. Changes that Shared allows stay in the open base and go with it.
    static Opened openBytes(const QByteArray& bytes, OpenMode mode, const Schema& schema);

    enum class Making {
        New,      ///< fails when the file exists
        OverEmpty ///< into the empty file that is there
    };

    /// Makes an empty base with the tables of the schema that are not optional. Only for makers of bases: quick, locked
    /// for everybody else until close(), and without a store's care for what is on the disk before sync(). The same
    /// rows written in the same steps by the same version of the engine give the same bytes.
    static Opened create(const QString& path, const Schema& schema, Making making = Making::New);

    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    QString path() const;
    /// True when writes are possible.
    bool updatable() const;

    /// A table-type recordset on the first row of the primary order (of the row ids, where there is no primary key).
    /// Never fails: when the base lacks the table the recordset is unusable, and its first use is a run-time error. A
    /// field that the base lacks is a run-time error where it is read. An index or a key column that the base lacks
    /// costs time only: the rows are then sorted at run time.
    std::unique_ptr<Recordset> openTable(const QString& name);

    /// A snapshot of one reading query, standing on its first row. Text marks in double quotes are translated to the
    /// engine's single quotes first. `values` stand for ?1, ?2… as they are, whatever marks they hold: bytes as bytes,
    /// dates as in a seek. Null and `error` set when the query cannot be run, also when it wants more or fewer values.
    std::unique_ptr<Snapshot> openQuery(const QString& sql, const QVariantList& values, QString* error = nullptr);
    std::unique_ptr<Snapshot> openQuery(const QString& sql, QString* error = nullptr);

    /// Ends the read transaction that a base which is only read holds while it is in use, so that another program can
    /// write to it; the next operation takes a new one. Positions stay. (A file replaced by renaming another over it
    /// needs no such help: what is open goes on reading the old one until it is closed.)
    void releaseLocks();

    /// Transactions do not nest. begin() takes the write lock at once. commit() returns false (and has rolled back)
    /// when the disk is full or fails.
    bool begin();
    bool commit();
    void rollback();
    bool inTransaction() const;

    /// Runs statements without result (makers of bases, tests). False and lastError() on failure.
    bool execute(const QString& sql);
    /// The last failure of this base, of its recordsets and of its writers: the engine's words, and their kind.
    QString lastError() const;
    Obstacle obstacle() const;

    /// True when the whole file passes the engine's own check; slow, on demand only.
    bool check(QString* report = nullptr);

    /// Makes an optional table of the schema in a base that lacks it, for makers of bases. False on failure.
    bool makeTable(const QString& name);

    /// Forces the file on the disk, for makers of bases before they give it its name. False when that fails.
    bool sync();

    /// Closes; open recordsets become unusable. Closing twice does nothing.
    void close();

    struct Private;
    Private* d() const { return d_.get(); }

private:
    Database();
    std::unique_ptr<Private> d_;
};

/// The double-quoted literals of a query text as single-quoted ones ("a""b" gives 'a"b'); the rest unchanged.
QString translateQuotes(const QString& sql);

} // namespace velm
