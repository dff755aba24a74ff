#include "tests/vues/traits.h"

namespace velm::vues {

double halfTones(const QImage& picture) {
    constexpr int least = 51;
    constexpr int full = 204;
    int inked = 0;
    int half = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = qAlpha(picture.pixel(x, y));
            inked += alpha > least ? 1 : 0;
            half += alpha > least && alpha < full ? 1 : 0;
        }
    }
    return inked == 0 ? 0 : double(half) / inked;
}

} // namespace velm::vues
