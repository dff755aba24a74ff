#pragma once
// A table of the schema as an open base has it. Internal to this room.
#include "platform/engine/schema.h"

#include <vector>

struct sqlite3;

namespace velm {

struct StoredTable {
    /// The definition outlives it.
    StoredTable(sqlite3* handle, const TableDef& table);

    /// False when the base lacks the table.
    bool isThere() const { return !present.isEmpty(); }
    const QString& name() const { return definition.name; }
    bool hasKeyColumn(const QString& field) const { return present.contains(keyColumn(field)); }
    /// The first field of the index that the base lacks; empty when it has them all.
    QString missingField(const IndexDef& index) const;
    /// -1 for none of that name.
    int fieldNumber(const QString& field) const;

    const TableDef& definition;
    QStringList present;    ///< columns that the base has
    std::vector<int> cells; ///< by field, where it stands in a row: 0 is the row id, -1 it does not
    int width = 1;          ///< cells of a row, that of the row id included
    QString columns;        ///< what is selected for a row: the row id and the fields
    bool side = false;      ///< the lazy field has its side table
};

} // namespace velm
