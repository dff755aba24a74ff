#pragma once
#include "platform/engine/database.h"
#include "platform/engine/recordset.h"
#include "platform/engine/statement.h"

namespace velm {

struct Database::Private {
    sqlite3* handle = nullptr;
    QString path;
    Schema schema;
    QByteArray bytes; ///< what a base in memory that is only read is read from
    bool updatable = false;
    bool immutable = false; ///< the file is taken as unchanging: no lock is needed for a stable view
    bool building = false;  ///< made by create(): quick and without the safety of a store
    bool reading = false;   ///< the read transaction of the run is open
    bool writing = false;   ///< between begin() and its end, also when the engine has rolled back by itself
    int writers = 0;        ///< table writers that share one transaction
    bool writersBegan = false;
    QString error;
    Obstacle obstacle = Obstacle::None; ///< the kind of `error`
    std::vector<Recordset::Private*> recordsets;
    std::vector<Snapshot::Private*> snapshots;

    /// Takes the run's read transaction when this base is of that kind.
    void beginReading();
    /// Ends it; walks and snapshots go on without it.
    void releaseLocks();
    /// True when a walk may keep its statement standing between two moves.
    bool streams() const { return reading || immutable; }
    /// True when writes may go on: false after the engine has rolled an open transaction back by itself.
    bool writesPossible();
    /// Keeps the engine's words and their kind.
    void noteError();
    void note(Obstacle kind, const QString& words);
    void forgetError();
    bool run(const QString& statement);
    /// Makes a table with its side table and its indexes.
    bool make(const TableDef& table);
};

} // namespace velm
