#pragma once
// Single fields of single rows, read where they lie: for those who look through a great many.
#include "platform/engine/database.h"

#include <QByteArrayView>

namespace velm {

class RowReader {
public:
    enum class Found { Row, NoRow, Failed };

    /// `table` may be a side table. A table or field that the base lacks leaves the reader unusable.
    RowReader(const Database& database, const QString& table, const std::vector<QString>& fields);
    ~RowReader();
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    bool usable() const;

    /// Reads a row by its id. What cannot be read is no run-time error here: the base's lastError() tells.
    Found read(qint64 row);
    /// The last read row is no longer needed: what was given out of it becomes invalid, and no lock stays.
    void release();

    // Fields of the row, counted as they were given. Views are valid until the next read() or release().
    bool isNull(int field) const;
    qint64 number(int field) const;
    /// The bytes of a bytes field; of a text one byte for each character in the ANSI code page.
    QByteArrayView bytes(int field) const;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
