// Where a dialog over a text lies so that what was found can be seen.
#include "document/placelibre.h"

#include <gtest/gtest.h>

using namespace velm;

namespace {

const QRect ecran(0, 0, 1600, 1000);
const QRect vue(200, 100, 1200, 800);
constexpr QSize taille(350, 160);

QRect couche(const QPoint& coin) {
    return {coin, taille};
}

} // namespace

TEST(PlaceLibre, ItBeginsInTheUpperRightCornerOfTheText) {
    const QPoint coin = premiereplace(taille, {ecran, vue, {}, {}});
    EXPECT_EQ(coin, QPoint(1400 - 8 - 350, 108));
    const QPoint bord = premiereplace(taille, {ecran, QRect(1500, 980, 300, 100), {}, {}});
    EXPECT_TRUE(ecran.contains(couche(bord)));
}

TEST(PlaceLibre, WhereItCoversNothingItStays) {
    const QRect ici = couche({300, 300});
    EXPECT_EQ(placelibre(ici, {ecran, vue, {}, {}}), ici.topLeft());
    EXPECT_EQ(placelibre(ici, {ecran, vue, QRect(300, 700, 40, 20), {QRect(800, 300, 40, 20)}}), ici.topLeft());
}

TEST(PlaceLibre, ItLeavesTheHitThatIsShown) {
    const QRect ici = couche({300, 300});
    const QRect hit(400, 400, 40, 20);
    const QPoint place = placelibre(ici, {ecran, vue, hit, {}});
    EXPECT_FALSE(couche(place).intersects(hit));
    EXPECT_EQ(place, premiereplace(taille, {ecran, vue, {}, {}}));
    // Also a hit right beside it: a line is to be seen around it.
    EXPECT_NE(placelibre(ici, {ecran, vue, QRect(400, 462, 40, 20), {}}), ici.topLeft());
}

TEST(PlaceLibre, OfTheCornersItTakesTheOneWhereItCoversTheFewest) {
    const QRect ici = couche({600, 400});
    const QRect hit(700, 450, 40, 20);
    const QRect hautdroite(1200, 150, 40, 20);
    const QRect basdroite(1200, 850, 40, 20);
    EXPECT_EQ(placelibre(ici, {ecran, vue, hit, {hautdroite}}), QPoint(1400 - 8 - 350, 900 - 8 - 160));
    EXPECT_EQ(placelibre(ici, {ecran, vue, hit, {hautdroite, basdroite}}), QPoint(208, 108));
    const QRect hautgauche(300, 150, 40, 20);
    EXPECT_EQ(placelibre(ici, {ecran, vue, hit, {hautdroite, basdroite, hautgauche}}), QPoint(208, 900 - 8 - 160));
}

TEST(PlaceLibre, ForOtherHitsItMovesOnlyWhereItCoversNone) {
    const QRect ici = couche({600, 400});
    const QRect autre(700, 450, 40, 20);
    EXPECT_EQ(placelibre(ici, {ecran, vue, {}, {autre}}), QPoint(1400 - 8 - 350, 108));
    std::vector<QRect> partout{autre, QRect(710, 500, 40, 20)};
    for (const QPoint& coin : {QPoint(1200, 150), QPoint(1200, 850), QPoint(300, 150), QPoint(300, 850)})
        partout.emplace_back(coin, QSize(40, 20));
    EXPECT_EQ(placelibre(ici, {ecran, vue, {}, partout}), ici.topLeft());
}

TEST(PlaceLibre, InASmallWindowItGoesBesideTheHitAndNeverLeavesTheScreen) {
    const QRect petite(600, 400, 360, 200);
    const QRect hit(700, 500, 40, 20);
    const QPoint place = placelibre(couche({650, 420}), {ecran, petite, hit, {}});
    EXPECT_FALSE(couche(place).intersects(hit));
    EXPECT_TRUE(ecran.contains(couche(place)));
    const QRect bas(600, 960, 40, 20);
    const QPoint dessus = placelibre(couche({500, 840}), {ecran, QRect(480, 830, 360, 170), bas, {}});
    EXPECT_FALSE(couche(dessus).intersects(bas));
    EXPECT_TRUE(ecran.contains(couche(dessus)));
}
