#include "platform/engine/storedtable.h"

#include "platform/engine/catalogue.h"
#include "platform/engine/statement.h"

#include <cstring>

namespace velm {

using namespace Qt::Literals::StringLiterals;

StoredTable::StoredTable(sqlite3* handle, const TableDef& table)
    : definition(table), present(catalogue::columnsOf(handle, table.name)), cells(table.fields.size(), -1),
      columns(u"rowid"_s) {
    if (!isThere())
        return;
    side = !table.lazyField.isEmpty() && catalogue::columnsOf(handle, sideTable(table)).contains(table.lazyField);
    for (size_t i = 0; i < table.fields.size(); ++i) {
        const QString& field = table.fields[i].name;
        if (field == table.lazyField || !present.contains(field))
            continue;
        cells[i] = width++;
        columns += u',' + sql::quoted(field);
    }
}

QString StoredTable::missingField(const IndexDef& index) const {
    for (const IndexField& field : index.fields) {
        if (!present.contains(field.field))
            return field.field;
    }
    return {};
}

int StoredTable::fieldNumber(const QString& field) const {
    // Asked for every value that is read: the comparison of QString costs three times as much.
    const auto size = static_cast<size_t>(field.size()) * sizeof(QChar);
    for (size_t i = 0; i < definition.fields.size(); ++i) {
        const QString& candidate = definition.fields[i].name;
        if (candidate.size() == field.size() && std::memcmp(candidate.constData(), field.constData(), size) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace velm
