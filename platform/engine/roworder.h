#pragma once
// One order of the rows of a table, of an index or of the row ids, and the statements that read it. Internal to this
// room.
#include "platform/engine/statement.h"
#include "platform/engine/storedtable.h"

namespace velm {

/// What the column behind the equal ones must satisfy.
enum class Bound : quint8 { None, Above, AtLeast, Below };

/// A stretch of an order: the first `equal` columns as in the walk's keys, the next one bounded, the rest free. A walk
/// from any row of an index on n fields is at most n + 1 stretches one after the other, each of which the index serves
/// by itself; comparing all columns at once would lose the rows with Nulls.
struct Stretch {
    int equal = 0;
    Bound bound = Bound::None;
    sql::Value limit;
    bool lastIsNull = false; ///< the last of the equal columns is Null, whatever the key says
};

class RowOrder {
public:
    /// `index` null: by the row ids. The table outlives the order.
    RowOrder(sqlite3* handle, const StoredTable& table, const IndexDef* index);

    const IndexDef* index() const { return index_; }
    /// Columns that tell the place of a row: those of the index, then the row id.
    size_t depth() const { return places_.size(); }
    /// Where such a column stands in a row.
    int cell(size_t column) const { return places_[column].cell; }
    bool isNumeric(size_t column) const { return places_[column].numeric; }
    bool isFolded(size_t column) const { return places_[column].folded; }
    /// Cells of a row: those of the table, then the keys of this order.
    int width() const { return width_; }

    /// Reads a stretch; its parameters are the equal columns, then the limit. `forced`: through the index, where the
    /// base has it.
    QString stretchText(const Stretch& stretch, bool backward, bool forced) const;
    /// Reads one row by its id.
    QString rowText() const;

private:
    struct Place {
        QString expression;
        int cell = 0;
        bool numeric = false;
        bool folded = false;
    };

    const IndexDef* index_;
    std::vector<Place> places_;
    QString columns_; ///< what is selected
    QString table_;   ///< between its quotes
    QString forced_;  ///< the clause that names the index
    int width_;
};

} // namespace velm
