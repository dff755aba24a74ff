#pragma once
// What a file holds of tables, columns and indexes, as the engine lists it. Internal to this room.
#include "platform/engine/schema.h"

struct sqlite3;

namespace velm::catalogue {

bool hasTable(sqlite3* handle, const QString& name);
/// Empty when there is no such table.
QStringList columnsOf(sqlite3* handle, const QString& table);
/// True when the base holds this index under our name and on our columns.
bool hasIndex(sqlite3* handle, const TableDef& table, const IndexDef& index);

} // namespace velm::catalogue
