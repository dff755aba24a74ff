#include "platform/engine/rowreader.h"

#include "platform/engine/database_p.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

struct RowReader::Private {
    Database::Private* db = nullptr;
    sql::Statement statement;
    sql::Value row;
    bool onRow = false;
    mutable QByteArray converted;
};

RowReader::RowReader(const Database& database, const QString& table, const std::vector<QString>& fields)
    : d_(std::make_unique<Private>()) {
    Database::Private& db = *database.d();
    if (db.handle == nullptr)
        return;
    d_->db = &db;
    QStringList columns;
    for (const QString& field : fields)
        columns << sql::quoted(field);
    d_->statement.prepare(db.handle,
                          u"SELECT "_s + columns.join(u',') + u" FROM "_s + sql::quoted(table) + u" WHERE rowid=?1"_s);
}

RowReader::~RowReader() = default;

bool RowReader::usable() const {
    return d_->statement.valid();
}

RowReader::Found RowReader::read(qint64 row) {
    release();
    if (!usable())
        return Found::NoRow;
    d_->db->beginReading();
    d_->row = sql::Value::of(row);
    d_->statement.bind(1, d_->row);
    const int result = d_->statement.step();
    d_->onRow = result == SQLITE_ROW;
    if (d_->onRow)
        return Found::Row;
    if (result != SQLITE_DONE)
        d_->db->noteError();
    d_->statement.reset();
    return result == SQLITE_DONE ? Found::NoRow : Found::Failed;
}

void RowReader::release() {
    if (d_->onRow)
        d_->statement.reset();
    d_->onRow = false;
}

bool RowReader::isNull(int field) const {
    return !d_->onRow || d_->statement.cell(field).kind == sql::Value::Kind::Null;
}

qint64 RowReader::number(int field) const {
    return d_->onRow ? sql::toNumber(d_->statement.cell(field)) : 0;
}

QByteArrayView RowReader::bytes(int field) const {
    if (!d_->onRow)
        return {};
    const sql::Cell cell = d_->statement.cell(field);
    return sql::viewBytes(cell, d_->converted);
}

} // namespace velm
