#include "platform/widgets/grid/mergedcells.h"

#include <QHeaderView>

namespace velm {

int MergedCells::joined(int row) const {
    if (!on_)
        return 0;
    const auto known = static_cast<std::size_t>(row - knownFrom_);
    return row >= knownFrom_ && known < known_.size() ? known_[known] : compared(row);
}

void MergedCells::remember(int first, int behind) {
    if (!on_)
        return;
    knownFrom_ = first;
    for (int row = first; row < behind; ++row)
        known_.push_back(compared(row));
}

int MergedCells::compared(int row) const {
    if (row <= 0 || row >= model_.count())
        return 0;
    const int places = header_.count();
    for (int place = 0; place < places; ++place) {
        const int logical = header_.logicalIndex(place);
        if (!header_.isSectionHidden(logical) && !model_.same(row, row - 1, logical))
            return place;
    }
    return places;
}

} // namespace velm
