#pragma once
// Which cells of a grid are shown as one with the cell above: equal neighbours of a column, within what equals in the
// columns before it. The sorted column comes first, wherever it stands, then the others from the left. Rows count from
// 0, columns ("places") as they stand on the screen.
#include "platform/widgets/grid/gridmodel.h"

class QHeaderView;

namespace velm {

class MergedCells {
public:
    /// Both outlive it.
    MergedCells(const GridModel& model, const QHeaderView& header) : model_(model), header_(header) {}

    void setOn(bool on) { on_ = on; }
    bool isOn() const { return on_; }
    /// Number of columns, in the order in which they are compared, that a row shows as one with the row above.
    int joined(int row) const;
    /// Which of them stands at a place.
    int rank(int place) const;

    /// Rows are compared once and for all until forget(): for the time of a painting.
    void remember(int first, int behind);
    void forget();

private:
    int compared(int row) const;
    int sorted() const;
    static int placeOf(int rank, int first);

    const GridModel& model_;
    const QHeaderView& header_;
    bool on_ = false;
    std::vector<int> known_;
    int knownFrom_ = 0;
    int knownSorted_ = -1;
};

} // namespace velm
