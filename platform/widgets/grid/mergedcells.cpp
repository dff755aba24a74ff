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
    knownSorted_ = sorted();
    for (int row = first; row < behind; ++row)
        known_.push_back(compared(row));
}

void MergedCells::forget() {
    known_.clear();
    knownSorted_ = -1;
}

int MergedCells::compared(int row) const {
    if (row <= 0 || row >= model_.count())
        return 0;
    const int places = header_.count();
    const int first = sorted();
    for (int rank = 0; rank < places; ++rank) {
        const int logical = header_.logicalIndex(placeOf(rank, first));
        if (!header_.isSectionHidden(logical) && !model_.same(row, row - 1, logical))
            return rank;
    }
    return places;
}

/// Where the sorted column stands; the first place without one.
int MergedCells::sorted() const {
    if (knownSorted_ >= 0)
        return knownSorted_;
    for (int place = 0; place < header_.count(); ++place) {
        const int logical = header_.logicalIndex(place);
        if (model_.column(logical).mark != FlexGrid::Mark::None && !header_.isSectionHidden(logical))
            return place;
    }
    return 0;
}

int MergedCells::placeOf(int rank, int first) {
    return rank == 0 ? first : rank <= first ? rank - 1 : rank;
}

int MergedCells::rank(int place) const {
    const int first = sorted();
    return place == first ? 0 : place < first ? place + 1 : place;
}

} // namespace velm
