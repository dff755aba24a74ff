#pragma once
// Where the paragraphs on the screen stand, so that pixels are moved only where a move gives the right picture.
#include <optional>
#include <vector>

namespace velm {

struct SeenPlace {
    int paragraph = 0;
    int top = 0; ///< pixels below the window's upper edge; negative above it

    friend bool operator==(const SeenPlace&, const SeenPlace&) = default;
};

/// In the order of the text. The end of the text counts as one more paragraph where it can be seen.
using SeenPlaces = std::vector<SeenPlace>;

/// How far down all that both show went; nothing when they show nothing in common, or when it went apart.
std::optional<int> commonMove(const SeenPlaces& before, const SeenPlaces& after);

} // namespace velm
