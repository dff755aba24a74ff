#pragma once
// The field of a table that is kept out of its rows, fetched when it is asked for. Internal to this room.
#include "platform/engine/cursor.h"

namespace velm {

class LazyField {
public:
    /// All outlive it. The table has a lazy field.
    LazyField(Database::Private& db, const StoredTable& table, Cursor& cursor)
        : db_(db), table_(table), cursor_(cursor) {}

    /// Of the cursor's current row; valid until the next call.
    sql::Cell cell();

private:
    bool load(sql::Statement& statement, const QString& from);

    Database::Private& db_;
    const StoredTable& table_;
    Cursor& cursor_;
    sql::Statement inSide_;
    sql::Statement inRow_;
    sql::Row value_;
    quint64 reading_ = 0; ///< of the cursor, whose value this is
};

} // namespace velm
