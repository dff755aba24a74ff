#pragma once
// Lengths on screen and paper are twips: 1440 to the inch, 567 to the centimetre, 20 to the point.

namespace velm {

inline constexpr int twipsPerInch = 1440;
inline constexpr int twipsPerPoint = 20;
/// At 96 dots to the inch, the density that stored window positions refer to.
inline constexpr int twipsPerPixel = 15;

constexpr int pixelsFromTwips(int twips) {
    return twips / twipsPerPixel;
}
constexpr int twipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}

} // namespace velm
