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
/// is a run-time error, and so are an unknown field and a file that cannot be read; a read beyond the ends gives Null.
/// Recordsets do not disturb one another, not even on the same table.
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
    /// An empty text sorts before every other value, also before numbers; Null rows before everything. Moves go on from
    /// the row in the order of the index; rows with equal keys follow one another by row id. Text compares without
    /// regard to case; folded fields by the order of sortKey(). Dates are texts yyyy-MM-dd or QDate. More keys than the
    /// index has fields, or a seek without an index, are run-time errors.
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
    /// A whole number is a qlonglong, a date a text.
    QVariant value(const QString& field) const;
    /// As text, Null as the empty text. Dates in the form yyyy-MM-dd.
    QString text(const QString& field) const;
    /// As a whole number, Null and non-numbers as 0.
    qint64 number(const QString& field) const;
    /// Bytes of a Bytes or Memo field; of a text one byte for each character in the ANSI code page.
    QByteArray bytes(const QString& field) const;
    bool isNull(const QString& field) const;

    void addNew();
    void edit();
    void setValue(const QString& field, const QVariant& value);
    /// False when the row cannot be written (a unique index repeats, the disk is full, the base is read-only); the edit
    /// is then dropped and lastError() tells why. After an addNew the position stays where it was.
    bool update();
    void cancelUpdate();
    /// The row that the last addNew or edit wrote.
    Bookmark lastModified() const;
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

/// The rows of a query, read forward. On a base that is only read they come from the file as they are asked for; of a
/// store they are all taken at the beginning, so that no lock stays and later writes do not show. A lazy field is not
/// among the columns of its table.
class Snapshot {
public:
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    bool eof() const;
    void moveNext();
    QVariant value(const QString& field) const;
    QVariant value(int column) const;
    QString text(const QString& field) const;
    QString text(int column) const;
    qint64 number(const QString& field) const;
    qint64 number(int column) const;
    /// The UTF-8 of a text as it lies in the row, until the next move; a Null is empty. Nothing for numbers and bytes.
    std::optional<QByteArrayView> utf8(int column) const;
    /// The bytes of a text or of bytes as they lie in the row, until the next move; empty for all else.
    QByteArrayView raw(int column) const;
    /// Takes the whole numbers of the first column of the rows from this one on, as many as are wanted or there are,
    /// and moves behind them. For long walks, of which each row would cost more than its number.
    void takeNumbers(std::vector<qint64>& into, qsizetype most);
    /// False once the base is closed.
    bool usable() const;
    int columns() const;

    struct Private;

private:
    friend class Database;
    Snapshot();
    static std::unique_ptr<Snapshot> open(Database::Private& base, const QString& text, const QVariantList& values,
                                          QString* error);
    std::unique_ptr<Private> d_;
};

/// Fast insertion into one table for makers of bases: values in the order of the given fields, key columns computed.
/// Writers that live at the same time share one transaction (an open one is used), which ends with the last of them.
/// On a table that is still empty the indexes that are not unique are built at the end, from sorted keys.
/// The side table of a lazy field can be written by itself, row by row in the order of its owner's rows, so that the
/// two do not lie mixed in the file. Bytes given to a text field are its UTF-8.
class TableWriter {
public:
    TableWriter(Database& database, const QString& table, const std::vector<QString>& fields);
    ~TableWriter();
    TableWriter(const TableWriter&) = delete;
    TableWriter& operator=(const TableWriter&) = delete;

    /// False when the row cannot be written; lastError() of the database tells why. Rows get ascending row ids.
    bool add(const std::vector<QVariant>& values);

    /// Builds what was put off and ends the writing; the destructor does it too, but cannot tell of a failure.
    bool finish();

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
