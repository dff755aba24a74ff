#include "platform/engine/lazyfield.h"

#include "platform/base/failure.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

sql::Cell LazyField::cell() {
    if (reading_ != cursor_.reading()) {
        const TableDef& table = table_.definition;
        value_.clear();
        const bool found =
            table_.side && load(inSide_, sideTable(table)) && value_.at(0).kind != sql::Value::Kind::Null;
        if (!found && table_.present.contains(table.lazyField))
            load(inRow_, table.name);
        reading_ = cursor_.reading();
    }
    return value_.at(0);
}

bool LazyField::load(sql::Statement& statement, const QString& from) {
    if (!statement.valid() &&
        !statement.prepare(db_.handle, u"SELECT "_s + sql::quoted(table_.definition.lazyField) + u" FROM "_s +
                                           sql::quoted(from) + u" WHERE rowid=?1"_s))
        cursor_.failWithEngine();
    const auto key = sql::Value::of(cursor_.rowId());
    const sql::Reset reset(statement);
    statement.bind(1, key);
    const int result = statement.step();
    sql::raiseIfMemory(result);
    if (result == SQLITE_ROW)
        value_.take(statement, 1);
    else if (result != SQLITE_DONE)
        runtimeError(QString::fromUtf8(sqlite3_errstr(result)) + u": "_s + from);
    return result == SQLITE_ROW;
}

} // namespace velm
