#include "core/obstacles.h"

namespace velm {

QString raison(Obstacle obstacle, const QString& mots, const std::function<QString(int)>& texte) {
    // In the order of the kinds, from the first that has words.
    constexpr int premier = 9530;
    constexpr int rangdupremier = static_cast<int>(Obstacle::Missing);
    if (obstacle == Obstacle::None || obstacle == Obstacle::Other)
        return mots.endsWith(u'.') ? mots : mots + u'.';
    return texte(premier + static_cast<int>(obstacle) - rangdupremier);
}

} // namespace velm
