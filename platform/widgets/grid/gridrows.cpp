#include "platform/widgets/grid/gridrows.h"

#include <algorithm>

namespace velm {

void GridRows::setColumns(const std::vector<int>& from) {
    const auto now = from.size();
    std::vector<QString> cells(order_.size() * now);
    for (int row = 0; row < count(); ++row) {
        for (std::size_t column = 0; column < now; ++column) {
            if (holds(row, from[column]))
                cells[static_cast<std::size_t>(row) * now + column] = std::move(cells_[cell(row, from[column])]);
        }
    }
    cells_ = std::move(cells);
    columns_ = static_cast<int>(now);
    free_.clear();
    for (int row = 0; row < count(); ++row)
        order_[static_cast<std::size_t>(row)] = row;
}

void GridRows::reserve(int count) {
    const auto rows = static_cast<std::size_t>(std::max(count, 0));
    order_.reserve(rows);
    cells_.reserve(rows * static_cast<std::size_t>(columns_));
}

int GridRows::append() {
    if (free_.empty()) {
        order_.push_back(count());
        cells_.resize(cells_.size() + static_cast<std::size_t>(columns_));
    } else {
        order_.push_back(free_.back());
        free_.pop_back();
    }
    return count() - 1;
}

void GridRows::resize(int count) {
    if (count <= 0) {
        order_.clear();
        cells_.clear();
        free_.clear();
        return;
    }
    while (this->count() > count) {
        release(this->count() - 1);
        order_.pop_back();
    }
    while (this->count() < count)
        append();
}

void GridRows::release(int row) {
    for (int column = 0; column < columns_; ++column)
        cells_[cell(row, column)] = QString();
    free_.push_back(identity(row));
}

void GridRows::remove(int row) {
    if (row < 0 || row >= count())
        return;
    release(row);
    order_.erase(order_.begin() + row);
}

QString GridRows::text(int row, int column) const {
    return holds(row, column) ? cells_[cell(row, column)] : QString();
}

void GridRows::setText(int row, int column, const QString& text) {
    if (holds(row, column))
        cells_[cell(row, column)] = text;
}

void GridRows::sort(int column, bool descending) {
    const std::vector<int> places = frenchOrder(
        count(), [&](int row) { return text(row, column); }, descending);
    std::vector<int> order;
    order.reserve(places.size());
    for (const int row : places)
        order.push_back(identity(row));
    order_ = std::move(order);
}

int GridRows::find(int identity) const {
    const auto found = std::find(order_.begin(), order_.end(), identity);
    return found == order_.end() ? -1 : static_cast<int>(found - order_.begin());
}

} // namespace velm
