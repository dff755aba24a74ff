#pragma once
// Rows that a grid fetches when it paints them. For lists of whole collections, which are never held in memory.
#include <QString>

#include <optional>

namespace velm {

class GridSource {
public:
    virtual ~GridSource() = default;
    virtual int rowCount() const = 0;
    /// Text of a cell: row from 0, column of the source from 0. Must be quick: it is asked at each painting.
    virtual QString text(int row, int column) const = 0;
    /// Puts the rows into the order of a column. False when it cannot.
    virtual bool sort(int column, bool descending) = 0;
    /// The first row from `from` on whose text begins so, -1 for none. Without an answer the grid walks through the
    /// rows itself, as far as it gets in the blink of an eye.
    virtual std::optional<int> find(int column, const QString& beginning, int from) const {
        Q_UNUSED(column)
        Q_UNUSED(beginning)
        Q_UNUSED(from)
        return std::nullopt;
    }
};

} // namespace velm
