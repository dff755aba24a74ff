#include "platform/engine/catalogue.h"

#include "platform/engine/statement.h"

// The engine's lists are read as statements of their own: as tables in a query each would be set up anew for it.

namespace velm::catalogue {

using namespace Qt::Literals::StringLiterals;

namespace {

/// True when the table has an index of that name over all of its rows.
bool hasWholeIndex(sqlite3* handle, const QString& table, const QString& index) {
    constexpr int nameCell = 1;
    constexpr int partialCell = 4;
    const sql::Statement indexes(handle, u"PRAGMA index_list("_s + sql::quoted(table) + u')', false);
    while (indexes.valid() && indexes.step() == SQLITE_ROW) {
        if (sql::toText(indexes.cell(nameCell)) == index)
            return sql::toNumber(indexes.cell(partialCell)) == 0;
    }
    return false;
}

} // namespace

bool hasTable(sqlite3* handle, const QString& name) {
    return !columnsOf(handle, name).isEmpty();
}

QStringList columnsOf(sqlite3* handle, const QString& table) {
    const sql::Statement columns(handle, u"PRAGMA table_info("_s + sql::quoted(table) + u')', false);
    QStringList names;
    while (columns.valid() && columns.step() == SQLITE_ROW)
        names << sql::toText(columns.cell(1));
    return names;
}

bool hasIndex(sqlite3* handle, const TableDef& table, const IndexDef& index) {
    const QString name = table.name + u'_' + index.name;
    if (!hasWholeIndex(handle, table.name, name))
        return false;
    const sql::Statement fields(handle, u"PRAGMA index_info("_s + sql::quoted(name) + u')', false);
    QStringList columns;
    while (fields.valid() && fields.step() == SQLITE_ROW)
        columns << sql::toText(fields.cell(2));
    QStringList wanted;
    for (const IndexField& field : index.fields)
        wanted << (field.folded ? keyColumn(field.field) : field.field);
    return columns == wanted;
}

} // namespace velm::catalogue
