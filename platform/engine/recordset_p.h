#pragma once
#include "platform/base/failure.h"
#include "platform/engine/database_p.h"

#include <optional>
#include <span>
#include <unordered_map>

namespace velm {

struct Recordset::Private {
    enum class Place : quint8 {
        Pending, ///< on the first row of the order, not looked up yet
        OnRow,
        Gone, ///< the row was deleted here; its keys still tell the neighbours
        Before,
        After,
        Empty ///< no row at all: both ends at once
    };
    enum class Editing : quint8 { No, Adding, Changing };
    /// What the column behind the equal ones must satisfy.
    enum class Bound : quint8 { None, Above, AtLeast, Below };

    /// A stretch of an order: the first `equal` columns as in the plan's keys, the next one bounded, the rest free. A
    /// walk from any row of an index on n fields is at most n + 1 stretches one after the other, each of which the
    /// index serves by itself; comparing all columns at once would lose the rows with Nulls.
    struct Stretch {
        int equal = 0;
        Bound bound = Bound::None;
        sql::Value limit;
        bool lastIsNull = false; ///< the last of the equal columns is Null, whatever the plan's key says
    };

    /// One order of the rows: of an index, or of the row ids.
    struct Order {
        const IndexDef* index = nullptr;
        std::vector<QString> expressions; ///< of the index's columns, then rowid
        std::vector<int> cells;           ///< where the columns stand in the row
        std::vector<bool> numeric;
        std::vector<bool> folded;
        QString columns; ///< what is selected
        QString source;  ///< table with its forced index
        int width = 0;   ///< columns selected
    };

    Database::Private* db = nullptr;
    QString name;
    const TableDef* table = nullptr;
    QStringList present; ///< columns that the base has
    std::vector<int> fieldCells;
    QString fieldColumns;

    std::vector<Order> orders; ///< row order first, then as in the schema; made on first use
    size_t order = 0;
    std::unordered_map<size_t, sql::Statement> statements;
    sql::Statement byRow;
    sql::Statement lazyInSide;
    sql::Statement lazyInRow;
    sql::Statement counting;

    sql::Row row;
    sql::Row lazy;
    std::optional<qint64> counted;

    std::vector<sql::Value> keys; ///< of the plan: index columns, then row id
    std::vector<Stretch> plan;
    size_t stretch = 0;
    const sql::Statement* live = nullptr; ///< stands on the current row, inside the stretch

    std::vector<std::optional<sql::Value>> edited;
    std::unordered_map<quint64, sql::Statement> changes;
    QString error;
    qint64 modified = 0;

    int behind = -1; ///< from which column on stretches are to be added at the end of the plan
    Place place = Place::Pending;
    Editing editing = Editing::No;
    bool absent = false; ///< the base has no such table
    bool side = false;   ///< the lazy field has its side table
    bool lazyLoaded = false;
    bool unmatched = false;
    bool backward = false;

    // Set-up
    void attach(Database::Private* database, const QString& tableName);
    void detach();
    [[noreturn]] void fail(Failure what, const QStringList& parts);
    [[noreturn]] void fail(const QString& message);
    [[noreturn]] void failWithEngine();
    /// Every operation begins here: an unusable recordset ends in a run-time error.
    void ready();
    int fieldNumber(const QString& field);
    const Order& current();
    QString missingField(const IndexDef& index) const;
    Order makeOrder(const IndexDef* index) const;

    // Cursor
    qint64 rowId() const { return row.at(0).integer; }
    void locate();
    void dropPlan();
    const sql::Statement& statementFor(const Stretch& wanted);
    QString stretchText(const Stretch& wanted);
    bool next();
    void anchor(bool toBackward);
    void go(bool toBackward);
    void toEnd(bool toBackward);
    void move(bool toBackward);
    void addStretchesBehind(int level);
    void find(Seek how, std::span<const QVariant* const> wanted);
    sql::Value keyValue(const Order& by, size_t column, const QVariant& value) const;
    bool take(qint64 rowId);

    // Values
    sql::Cell cell(const QString& field);
    sql::Cell lazyCell();
    bool loadLazy(sql::Statement& statement, const QString& from);

    // Edits
    void leaveEdit();
    bool hasKeyColumn(const QString& field) const;
    bool mayWrite();
    bool write();
    bool writeRow();
    bool writeLazy();
    sql::Statement* writeStatement(quint64 fields);
    bool runBound(const QString& statement, const std::vector<sql::Value>& values);
    bool remove();
    template <typename Work>
    bool together(Work work);
};

struct Snapshot::Private {
    Database::Private* db = nullptr;
    std::vector<sql::Value> bound; ///< what the statement reads its values from
    sql::Statement statement;
    QStringList names;
    bool standing = false; ///< the statement is still open
    bool ended = true;
    sql::Row row;
    std::vector<sql::Row> held;
    size_t next = 0;

    void bind(const QVariantList& values);
    void advance();
    void drain();
    void detach();
    bool step(sql::Row& into);
    int column(const QString& field) const;
};

} // namespace velm
