#pragma once
// Prepared statements and the values that go in and out of them. Internal to this room.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QVariant>

#include <new>
#include <sqlite3.h>
#include <vector>

namespace velm::sql {

/// A name between double quotes.
QString quoted(const QString& name);

/// A value to bind or to keep: a copy that owns its bytes.
struct Value {
    enum class Kind : quint8 { Null, Integer, Real, Text, Blob };
    Kind kind = Kind::Null;
    qint64 integer = 0;
    double real = 0;
    QByteArray bytes; ///< UTF-8 of a text

    bool isNull() const { return kind == Kind::Null; }
    static Value of(const QVariant& value);
    static Value of(qint64 number) { return {Kind::Integer, number, 0, {}}; }
    static Value blob(QByteArray bytes) { return {Kind::Blob, 0, 0, std::move(bytes)}; }
};

/// A value as it lies in a row, without a copy.
struct Cell {
    Value::Kind kind = Value::Kind::Null;
    qint64 integer = 0;
    double real = 0;
    QByteArrayView bytes;
};

QVariant toVariant(const Cell& cell);
QString toText(const Cell& cell);
/// As a whole number: texts that are none, and Null, are 0.
qint64 toNumber(const Cell& cell);
/// The bytes of a blob; a text gives its bytes in the ANSI code page, one for each character.
QByteArray toBytes(const Cell& cell);
/// The same without a copy where the bytes lie ready; else in `buffer`.
QByteArrayView viewBytes(const Cell& cell, QByteArray& buffer);
Value toValue(const Cell& cell);

/// Lack of memory is no error of the base: it goes the way of all lack of memory.
inline void raiseIfMemory(int result) {
    if ((result & 0xFF) == SQLITE_NOMEM)
        throw std::bad_alloc();
}

class Statement {
public:
    Statement() = default;
    /// `kept`: it is run many times.
    Statement(sqlite3* handle, const QString& text, bool kept = true) { prepare(handle, text, kept); }
    ~Statement() { sqlite3_finalize(raw_); }
    Statement(Statement&& other) noexcept : raw_(other.raw_) { other.raw_ = nullptr; }
    Statement& operator=(Statement&& other) noexcept {
        std::swap(raw_, other.raw_);
        return *this;
    }

    /// False when the text is no single statement that the base can run.
    bool prepare(sqlite3* handle, const QString& text, bool kept = true);
    bool valid() const { return raw_ != nullptr; }
    sqlite3_stmt* raw() const { return raw_; }

    /// Parameters are counted from 1. The value must outlive the next reset().
    void bind(int parameter, const Value& value) const;
    /// SQLITE_ROW, SQLITE_DONE or an error.
    int step() const { return sqlite3_step(raw_); }
    void reset() const { sqlite3_reset(raw_); }
    /// Runs to the end and resets.
    int run() const;
    Cell cell(int column) const;

private:
    sqlite3_stmt* raw_ = nullptr;
};

/// Resets a statement at the end of a stretch of work, however it is left.
class Reset {
public:
    explicit Reset(const Statement& statement) : statement_(statement) {}
    ~Reset() { statement_.reset(); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;

private:
    const Statement& statement_;
};

/// The current row, copied out of its statement into one reused block.
class Row {
public:
    void take(const Statement& statement, int columns);
    void clear() { entries_.clear(); }
    int columns() const { return static_cast<int>(entries_.size()); }
    /// Null beyond the columns.
    Cell at(int column) const;

private:
    struct Entry {
        Value::Kind kind;
        qint64 integer;
        double real;
        qsizetype offset;
        qsizetype size;
    };
    std::vector<Entry> entries_;
    std::vector<char> block_;
};

} // namespace velm::sql
