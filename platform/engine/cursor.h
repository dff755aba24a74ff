#pragma once
// The walk through the rows of a table: where it stands, and how it goes on. Internal to this room.
#include "platform/engine/database_p.h"
#include "platform/engine/roworder.h"

#include <optional>
#include <span>
#include <unordered_map>

namespace velm {

/// Starts pending on the first row of its order. A statement that the engine refuses ends in a run-time error.
class Cursor {
public:
    enum class Place : quint8 {
        Pending, ///< on the first row of the order, not looked up yet
        OnRow,
        Gone, ///< the row was deleted here; its keys still tell the neighbours
        Before,
        After,
        Empty ///< no row at all: both ends at once
    };

    /// Both outlive it. The order is one of the table's indexes, counted from 1, or 0 for the row ids.
    Cursor(Database::Private& db, const StoredTable& table, size_t order);

    size_t order() const { return order_; }
    /// Takes another order: the position becomes its first row.
    void setOrder(size_t order);

    Place place() const { return place_; }
    bool isOnRow() const { return place_ == Place::OnRow; }
    /// The current row as it was read: its id, then the fields where the table says.
    const sql::Row& row() const { return row_; }
    qint64 rowId() const { return row_.at(0).integer; }
    /// Another number for every row that was read, also for one read again.
    quint64 reading() const { return reading_; }

    /// Looks up what is pending.
    void locate() {
        if (place_ == Place::Pending)
            toEnd(false);
    }
    void toEnd(bool last);
    void move(bool backward);
    /// Positions by the leading fields of the order, which is to be that of an index. False when there is no such row.
    bool find(Seek how, std::span<const QVariant* const> wanted);
    /// Goes to a row by its id. False (and no current row) when there is none.
    bool take(qint64 rowId);

    /// The current row was deleted: the next move goes to its neighbours.
    void rowDeleted();
    /// A row was added: a table without rows has an end now.
    void rowAdded();

    /// Ends what is being read; the position stays.
    void dropPlan();
    /// The engine has refused something: there is no current row, and its words are a run-time error.
    [[noreturn]] void failWithEngine();

private:
    const RowOrder& current();
    const sql::Statement& statementFor(const Stretch& wanted);
    void enter(const Stretch& entered);
    bool next();
    void addStretchesBehind(int level);
    void anchor(bool backward);
    void go(bool backward);
    void loseRow(Place place);
    sql::Value keyValue(const RowOrder& by, size_t column, const QVariant& value) const;

    Database::Private& db_;
    const StoredTable& table_;
    std::vector<std::optional<RowOrder>> orders_; ///< row order first, then as in the schema; made on first use
    size_t order_;
    std::unordered_map<size_t, sql::Statement> statements_;
    sql::Statement byRow_;

    sql::Row row_;
    quint64 reading_ = 0;
    Place place_ = Place::Pending;

    std::vector<sql::Value> keys_; ///< of the plan: index columns, then row id
    std::vector<Stretch> plan_;
    size_t stretch_ = 0;
    int behind_ = -1; ///< from which column on stretches are to be added at the end of the plan
    bool backward_ = false;
    const sql::Statement* live_ = nullptr; ///< stands on the current row, inside the stretch
};

} // namespace velm
