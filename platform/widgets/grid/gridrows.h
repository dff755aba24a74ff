#pragma once
// Rows of texts in memory. Rows and columns count from 0.
#include "platform/text/frenchorder.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace velm {

class GridRows {
public:
    int columns() const { return columns_; }
    int count() const { return static_cast<int>(order_.size()); }

    /// The cells of the first columns stay, in the order that `from` names them; -1 is a new column.
    void setColumns(const std::vector<int>& from);
    void reserve(int count);
    /// Appends an empty row and gives its index.
    int append();
    void resize(int count);
    void remove(int row);

    QString text(int row, int column) const;
    void setText(int row, int column, const QString& text);

    void sort(int column, bool descending);
    /// A number that stays with a row while it stands, wherever it moves.
    int identity(int row) const { return order_[static_cast<std::size_t>(row)]; }
    /// Where a row is now; -1 for none.
    int find(int identity) const;

private:
    std::size_t cell(int row, int column) const {
        return static_cast<std::size_t>(identity(row)) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(column);
    }
    bool holds(int row, int column) const { return row >= 0 && row < count() && column >= 0 && column < columns_; }
    void release(int row);

    int columns_ = 0;
    std::vector<QString> cells_; ///< of all rows, one behind the other, in the order of their making
    std::vector<int> order_;     ///< which of them stands where
    std::vector<int> free_;      ///< removed ones, to be used again
};

} // namespace velm
