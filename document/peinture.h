#pragma once
// Which of many overlapping strokes is on top where. Private to this folder and to its tests.
#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <vector>

namespace velm::passes {

/// A stretch [debut, fin) of cells that something was applied to; later strokes lie on earlier ones.
struct Trait {
    std::int32_t debut;
    std::int32_t fin;
    std::int32_t couleur; ///< whatever the caller tells them apart by, from 0
};

/// For each of `cellules` cells the colour of the topmost stroke among those that `compte` accepts; -1 for none. Linear
/// in cells and strokes, however they overlap.
std::vector<std::int32_t> dessus(std::int32_t cellules, const std::vector<Trait>& traits,
                                 const std::function<bool(std::int32_t couleur)>& compte);

} // namespace velm::passes
