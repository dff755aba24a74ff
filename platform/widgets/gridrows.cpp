#include "platform/widgets/gridrows.h"

#include "platform/text/letters.h"

#include <algorithm>
#include <cstring>

namespace velm {
namespace {

/// A sort key: its first bytes as one number, the whole in a store that all keys share.
struct Key {
    quint64 head;
    std::size_t begin;
    std::size_t size;
    int row;
};
constexpr std::size_t headSize = sizeof(quint64);

quint64 headOf(const QByteArray& key) {
    quint64 head = 0;
    for (qsizetype i = 0; i < static_cast<qsizetype>(headSize); ++i)
        head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return head;
}

class Keys {
public:
    Keys(int count, const std::function<QString(int)>& text) {
        keys_.reserve(static_cast<std::size_t>(count));
        for (int row = 0; row < count; ++row) {
            const QByteArray key = sortKey(text(row));
            keys_.push_back({headOf(key), bytes_.size(), static_cast<std::size_t>(key.size()), row});
            bytes_.insert(bytes_.end(), key.begin(), key.end());
        }
    }

    std::vector<int> order(bool descending) {
        std::sort(keys_.begin(), keys_.end(), [this, descending](const Key& a, const Key& b) {
            const int difference = compare(a, b);
            return difference == 0 ? a.row < b.row : (difference < 0) != descending;
        });
        std::vector<int> rows;
        rows.reserve(keys_.size());
        for (const Key& key : keys_)
            rows.push_back(key.row);
        return rows;
    }

private:
    int compare(const Key& a, const Key& b) const {
        if (a.head != b.head)
            return a.head < b.head ? -1 : 1;
        const int difference = std::memcmp(bytes_.data() + a.begin, bytes_.data() + b.begin, std::min(a.size, b.size));
        if (difference != 0 || a.size == b.size)
            return difference;
        return a.size < b.size ? -1 : 1;
    }

    std::vector<Key> keys_;
    std::vector<char> bytes_;
};

} // namespace

std::vector<int> frenchOrder(int count, const std::function<QString(int row)>& text, bool descending) {
    return Keys(count, text).order(descending);
}

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
