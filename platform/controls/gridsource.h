#pragma once
// Rows that a grid fetches when it paints them. For lists of whole collections, which are never held in memory.
#include <QString>

namespace velm {

class GridSource {
public:
    virtual ~GridSource() = default;
    virtual int rowCount() const = 0;
    /// Text of a cell: row from 0, column of the source from 0. Must be quick: it is asked at each painting.
    virtual QString text(int row, int column) const = 0;
    /// Puts the rows into the order of a column. False when it cannot.
    virtual bool sort(int column, bool descending) = 0;
};

} // namespace velm
