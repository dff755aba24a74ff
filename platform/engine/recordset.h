#pragma once
#include "platform/engine/database.h"

namespace velm {

enum class Seek { Equal, GreaterOrEqual, Greater };

/// A place in a table: the row, independent of the index in force.
struct Bookmark {
    qint64 row = 0;
    bool valid() const { return row != 0; }
    friend bool operator==(Bookmark, Bookmark) = default;
};

/// A table with a current row and a current index. Any operation on an unusable recordset (table missing, base closed)
/// is a run-time error; a read beyond the ends gives Null.
class Recordset {
public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool usable() const;
    QString table() const;

    /// Takes the index by name; the position becomes the first row of that order. An unknown name is a run-time error.
    /// Setting the index in force again keeps the position.
    void setIndex(const QString& name);
    QString index() const;

    /// Positions by the leading fields of the index. On no match noMatch() is true and there is no current row (eof).
    /// An empty text sorts before every other value; Null rows before everything.
    void seek(Seek how, const QVariant& k1);
    void seek(Seek how, const QVariant& k1, const QVariant& k2);
    void seek(Seek how, const QVariant& k1, const QVariant& k2, const QVariant& k3);
    bool noMatch() const;

    void moveFirst();
    void moveLast();
    void moveNext();     ///< past the last row: eof() becomes true
    void movePrevious(); ///< before the first row: bof() becomes true
    bool eof() const;
    bool bof() const;
    qint64 recordCount();

    Bookmark bookmark() const;
    /// Goes back to a row; free of cost when it is the current one. False (and no current row) when it is gone.
    bool setBookmark(Bookmark place);

    /// Value of a field of the current row (of the edited values while editing). The lazy field is fetched on demand.
    QVariant value(const QString& field) const;
    /// As text, Null as the empty text. Dates in the form yyyy-MM-dd.
    QString text(const QString& field) const;
    /// As a whole number, Null and non-numbers as 0.
    qint64 number(const QString& field) const;
    /// Raw bytes of a Bytes or Memo field.
    QByteArray bytes(const QString& field) const;
    bool isNull(const QString& field) const;

    void addNew();
    void edit();
    void setValue(const QString& field, const QVariant& value);
    /// False when the row cannot be written (a unique index repeats, the disk is full, the base is read-only); the edit
    /// is then dropped and lastError() tells why. After an addNew the position stays where it was.
    bool update();
    void cancelUpdate();
    /// Deletes the current row; the next move goes to its neighbours.
    bool remove();
    QString lastError() const;

    /// Releases the statements; idempotent.
    void close();

    struct Private;

private:
    friend class Database;
    Recordset();
    std::unique_ptr<Private> d_;
};

/// The rows of a query, read forward; at most `Snapshot::held` rows ahead in memory.
class Snapshot {
public:
    ~Snapshot();
    bool eof() const;
    void moveNext();
    QVariant value(const QString& field) const;
    QVariant value(int column) const;
    QString text(const QString& field) const;
    qint64 number(const QString& field) const;
    int columns() const;

    struct Private;

private:
    friend class Database;
    Snapshot();
    std::unique_ptr<Private> d_;
};

/// Fast insertion into one table for makers of bases: values in the order of the given fields, key columns computed.
class TableWriter {
public:
    TableWriter(Database& database, const QString& table, const std::vector<QString>& fields);
    ~TableWriter();
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    /// False when the row cannot be written; lastError() of the database tells why. Rows get ascending row ids.
    bool add(const std::vector<QVariant>& values);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
