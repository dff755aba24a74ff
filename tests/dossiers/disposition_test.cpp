#include "dossiers/dispositiondossiers.h"

#include <gtest/gtest.h>
#include <random>

namespace velm::test {
namespace {

constexpr DispositionDossiers::Mesures mesures{36, 300, 0, 140};

TEST(DispositionDossiers, TheSplitKeepsItsShare) {
    DispositionDossiers disposition;
    disposition.separe(300, {900, 600}, mesures);
    const auto avant = disposition.places({900, 600}, mesures, 110);
    EXPECT_NEAR(avant.separateur.left(), 300, 6);
    const auto large = disposition.places({1500, 700}, mesures, 110);
    const double part = double(avant.arbre.width()) / (avant.arbre.width() + avant.liste.width());
    EXPECT_NEAR(double(large.arbre.width()) / (large.arbre.width() + large.liste.width()), part, 0.01);
    EXPECT_EQ(disposition.places({900, 600}, mesures, 110), avant);
}

TEST(DispositionDossiers, NothingLiesOnAnother) {
    std::mt19937 random(3);
    DispositionDossiers disposition;
    for (int tour = 0; tour < 2000; ++tour) {
        const QSize fenetre = DispositionDossiers::minimum(mesures) +
                              QSize(static_cast<int>(random() % 1500), static_cast<int>(random() % 900));
        disposition.separe(static_cast<int>(random() % 3000) - 500, fenetre, mesures);
        DispositionDossiers::Mesures une = mesures;
        une.ligne = tour % 2 == 0 ? 0 : 40;
        const auto places = disposition.places(fenetre, une, 110);
        EXPECT_GE(places.arbre.width(), 79);
        EXPECT_GE(places.liste.width(), 79);
        EXPECT_LT(places.arbre.right(), places.liste.left());
        EXPECT_LT(places.liste.right(), places.colonne.left());
        EXPECT_EQ(places.colonne.left() - places.liste.right() - 1, 8);
        EXPECT_LE(places.colonne.right(), fenetre.width());
        EXPECT_LE(places.arbre.bottom(), fenetre.height());
        EXPECT_FALSE(places.barre.intersects(places.barrevue));
        EXPECT_LT(places.barre.bottom(), places.arbre.top());
        EXPECT_FALSE(places.ligne.intersects(places.arbre));
    }
}

} // namespace
} // namespace velm::test
