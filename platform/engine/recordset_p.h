#pragma once
#include "platform/base/failure.h"
#include "platform/engine/cursor.h"
#include "platform/engine/lazyfield.h"
#include "platform/engine/rowedit.h"

namespace velm {

struct Recordset::Private {
    /// What there is while the base is open and has the table.
    struct Parts {
        Parts(Database::Private& db, const TableDef& definition);

        StoredTable table;
        Cursor cursor;
        LazyField lazy;
        RowEdit edit;
        sql::Statement counting;
    };

    Database::Private* db = nullptr;
    QString name;
    QString index;
    std::unique_ptr<Parts> parts;
    std::optional<qint64> counted;
    QString error;
    qint64 modified = 0;
    bool absent = false; ///< the base has no such table
    bool unmatched = false;

    void attach(Database::Private* database, const QString& tableName);
    void detach();
    void dropPlan();
    /// Every operation begins here: an unusable recordset ends in a run-time error.
    Parts& ready();
    /// Before every move: what was being edited is dropped.
    Cursor& leaving();
    [[noreturn]] void fail(Failure what, const QStringList& parts);
    [[noreturn]] void fail(const QString& message);
    int fieldNumber(const QString& field);
    sql::Cell cell(const QString& field);
    void find(Seek how, std::span<const QVariant* const> wanted);
};

} // namespace velm
