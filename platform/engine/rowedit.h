#pragma once
// The values that are being edited for one row of a table, and their writing. Internal to this room.
#include "platform/engine/database_p.h"
#include "platform/engine/storedtable.h"

#include <optional>
#include <unordered_map>

namespace velm {

class RowEdit {
public:
    /// Both outlive it.
    RowEdit(Database::Private& db, const StoredTable& table);

    void beginAdding();
    void beginChanging(qint64 row);
    /// Drops the values.
    void leave();
    bool isOpen() const { return editing_ != Editing::No; }
    bool isAdding() const { return editing_ == Editing::Adding; }

    void setValue(int field, const QVariant& value);
    /// Null for a field that was not set.
    const sql::Value* value(int field) const;

    /// Writes the values; the edit stays open. The row that holds them now, or nothing: the base has the reason.
    std::optional<qint64> write();
    /// Deletes a row, with what its side table holds. False when that fails: the base has the reason.
    bool remove(qint64 row);

private:
    enum class Editing : quint8 { No, Adding, Changing };

    bool mayWrite();
    bool writeRow();
    bool writeLazy();
    const sql::Statement* statementFor(quint64 fields);
    bool runBound(const QString& statement, const std::vector<sql::Value>& values);
    template <typename Work>
    bool together(Work work);

    Database::Private& db_;
    const StoredTable& table_;
    Editing editing_ = Editing::No;
    qint64 row_ = 0;
    std::vector<std::optional<sql::Value>> values_; ///< by field
    std::unordered_map<quint64, sql::Statement> statements_;
};

} // namespace velm
