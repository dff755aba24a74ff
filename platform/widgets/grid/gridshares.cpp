#include "platform/widgets/grid/gridshares.h"

#include <cstddef>
#include <utility>

namespace velm {

std::vector<int> sharedWidths(int room, const std::vector<GridShare>& shares) {
    std::vector<int> widths(shares.size(), -1);
    int weights = 0;
    for (const GridShare& share : shares)
        weights += share.weight;
    // Who would get too little gets the least; the others share what is left then.
    bool again = true;
    while (std::exchange(again, false)) {
        for (std::size_t i = 0; i < shares.size(); ++i) {
            if (widths[i] >= 0 || room * shares[i].weight >= shares[i].least * weights)
                continue;
            widths[i] = shares[i].least;
            room -= widths[i];
            weights -= shares[i].weight;
            again = true;
        }
    }
    for (std::size_t i = 0; i < shares.size(); ++i) {
        if (widths[i] >= 0)
            continue;
        widths[i] = room * shares[i].weight / weights;
        room -= widths[i];
        weights -= shares[i].weight;
    }
    return widths;
}

} // namespace velm
