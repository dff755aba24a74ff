#include "platform/widgets/text/seenplaces.h"

namespace velm {

std::optional<int> commonMove(const SeenPlaces& before, const SeenPlaces& after) {
    std::optional<int> move;
    auto old = before.begin();
    for (const SeenPlace& place : after) {
        while (old != before.end() && old->paragraph < place.paragraph)
            ++old;
        if (old == before.end())
            break;
        if (old->paragraph != place.paragraph)
            continue;
        if (move.value_or(place.top - old->top) != place.top - old->top)
            return std::nullopt;
        move = place.top - old->top;
    }
    return move;
}

} // namespace velm
