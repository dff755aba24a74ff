#pragma once
// How well one colour is told from another, as people with weak eyes need it: 4.5 for words, 3 for what tells a state.
#include <QImage>

#include <algorithm>
#include <cmath>

namespace velm::test {

inline constexpr double words = 4.5;
inline constexpr double states = 3;

/// From 0 for black to 1 for white.
inline double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

inline double contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

/// The greatest contrast of a picture's pixels against one colour.
inline double contrast(const QImage& picture, const QColor& ground) {
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            most = std::max(most, contrast(picture.pixelColor(x, y), ground));
    }
    return most;
}

} // namespace velm::test
