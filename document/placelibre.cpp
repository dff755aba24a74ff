#include "document/placelibre.h"

#include <algorithm>

namespace velm {

namespace {

constexpr int ecart = 8;          // pixels between it and what it lies beside
constexpr int loin = 24;          // the same above and below the hit: a line
constexpr qsizetype cache = 1000; // as bad as covering so many others: covering the one that is shown

QPoint dans(const QRect& ecran, const QSize& taille, const QPoint& coin) {
    const int droite = std::max(ecran.left(), ecran.right() + 1 - taille.width());
    const int bas = std::max(ecran.top(), ecran.bottom() + 1 - taille.height());
    return {std::clamp(coin.x(), ecran.left(), droite), std::clamp(coin.y(), ecran.top(), bas)};
}

qsizetype couvre(const QRect& place, const Surface& surface) {
    const QRect courante = surface.courante.adjusted(-loin, -ecart, loin, ecart);
    const qsizetype autres =
        std::ranges::count_if(surface.autres, [&](const QRect& une) { return place.intersects(une); });
    return autres + (!surface.courante.isNull() && place.intersects(courante) ? cache : 0);
}

} // namespace

QPoint premiereplace(const QSize& taille, const Surface& surface) {
    const QPoint coin(surface.vue.right() + 1 - ecart - taille.width(), surface.vue.top() + ecart);
    return dans(surface.ecran, taille, coin);
}

QPoint placelibre(const QRect& ici, const Surface& surface) {
    const qsizetype maintenant = couvre(ici, surface);
    if (maintenant == 0)
        return ici.topLeft();
    const QRect bords = surface.vue.adjusted(ecart, ecart, -ecart, -ecart);
    const int droite = bords.right() + 1 - ici.width();
    const int bas = bords.bottom() + 1 - ici.height();
    std::vector<QPoint> coins{{droite, bords.top()}, {droite, bas}, bords.topLeft(), {bords.left(), bas}};
    if (!surface.courante.isNull()) {
        coins.emplace_back(ici.left(), surface.courante.bottom() + loin);
        coins.emplace_back(ici.left(), surface.courante.top() - loin - ici.height());
    }
    QPoint meilleur = ici.topLeft();
    qsizetype moins = maintenant < cache ? 1 : maintenant; // must be under it
    for (const QPoint& coin : coins) {
        const QPoint place = dans(surface.ecran, ici.size(), coin);
        const qsizetype la = couvre(QRect(place, ici.size()), surface);
        if (la < moins) {
            moins = la;
            meilleur = place;
        }
    }
    return meilleur;
}

} // namespace velm
