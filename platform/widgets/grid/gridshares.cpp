#include "platform/widgets/grid/gridshares.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace velm {

std::vector<int> sharedWidths(int room, const std::vector<GridShare>& shares) {
    std::vector<int> widths(shares.size(), -1);
    int weights = 0;
    for (const GridShare& share : shares)
        weights += share.weight;
    // Each round gives somebody the width, so that there are no more of them than columns.
    const auto settle = [&](const auto& bound) {
        bool again = true;
        while (std::exchange(again, false)) {
            for (std::size_t i = 0; i < shares.size(); ++i) {
                const int width = widths[i] >= 0 ? -1 : bound(shares[i]);
                if (width < 0)
                    continue;
                widths[i] = width;
                room -= width;
                weights -= shares[i].weight;
                again = true;
            }
        }
    };
    // Who would get more than the most, or less than the least, gets that; the others share what is left then.
    settle([&](const GridShare& one) {
        return one.most > 0 && room * one.weight > one.most * weights ? std::max(one.most, one.least) : -1;
    });
    settle([&](const GridShare& one) { return room * one.weight < one.least * weights ? one.least : -1; });
    for (std::size_t i = 0; i < shares.size(); ++i) {
        if (widths[i] >= 0)
            continue;
        widths[i] = room * shares[i].weight / std::max(weights, 1);
        room -= widths[i];
        weights -= shares[i].weight;
    }
    return widths;
}

std::vector<GridShare> withLeast(int room, const std::vector<int>& wanted, std::vector<GridShare> shares) {
    if (std::accumulate(wanted.begin(), wanted.end(), 0) > room)
        return shares;
    for (std::size_t i = 0; i < shares.size(); ++i)
        shares[i].least = std::max(shares[i].least, wanted[i]);
    return shares;
}

} // namespace velm
