#pragma once
// How columns share the width that a list has for them.
#include <vector>

namespace velm {

struct GridShare {
    int weight = 1; ///< above 0
    int least = 0;  ///< narrower it is not, even where there is no room
    int most = 0;   ///< wider it is not, unless this is less than `least`; 0 for as wide as may be
};

/// The widths of columns that fill `room` together, each by its weight. Where what is least takes more, they are wider
/// than the room; where all have the most, narrower.
std::vector<int> sharedWidths(int room, const std::vector<GridShare>& shares);

/// The same shares, where the room suffices for all of these widths, each with no less than its own of them.
std::vector<GridShare> withLeast(int room, const std::vector<int>& wanted, std::vector<GridShare> shares);

} // namespace velm
