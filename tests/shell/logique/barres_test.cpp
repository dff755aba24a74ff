#include "shell/logique/barres.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;

namespace {

class BarresTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier_.isValid()); }

    QString lu(const char* cle) const {
        return magasin_.get(QStringLiteral("BARRE"), QString::fromUtf8(cle), QStringLiteral("(absent)"));
    }
    EtatBarres relu() {
        EtatBarres barres(reglages_);
        barres.charge(litpreferences(reglages_, dossier_.path()));
        return barres;
    }

    QTemporaryDir dossier_;
    ReglagesStore magasin_{dossier_.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages_{magasin_};
};

} // namespace

TEST_F(BarresTest, AtFirstCommandsStandOnTopWindowsLeftToolsRight) {
    const EtatBarres barres = relu();
    EXPECT_EQ(barres.position(Barre::Commande), 1);
    EXPECT_EQ(barres.position(Barre::Ecran), 3);
    EXPECT_EQ(barres.position(Barre::Outils), 4);
    EXPECT_TRUE(barres.etat());
}

TEST_F(BarresTest, Position0HidesAndKeepsThePlace) {
    EtatBarres barres = relu();
    barres.place(Barre::Ecran, 2);
    barres.place(Barre::Ecran, 0);
    EXPECT_EQ(barres.position(Barre::Ecran), 0);
    EXPECT_EQ(barres.dernierposition(Barre::Ecran), 2);
    EXPECT_EQ(lu("ECRAN"), u"2");
    EXPECT_EQ(lu("ECRANVISIBLE"), u"0");
    EXPECT_FALSE(relu().visible(Barre::Ecran));
    EXPECT_EQ(relu().dernierposition(Barre::Ecran), 2);
}

TEST_F(BarresTest, AHiddenBarStaysHiddenButTheCommandBarComesBack) {
    EtatBarres barres = relu();
    for (const Barre barre : toutesbarres)
        barres.place(barre, 0);
    EXPECT_EQ(lu("COMMANDESVISISIBLES"), u"0");
    EXPECT_EQ(lu("COMMANDESVISIBLES"), u"(absent)");
    EXPECT_EQ(lu("OUTILSVISIBLES"), u"0");
    EXPECT_TRUE(relu().visible(Barre::Commande));
    EXPECT_FALSE(relu().visible(Barre::Ecran));
    EXPECT_FALSE(relu().visible(Barre::Outils));
}

TEST_F(BarresTest, HidingTheCommandBarAndShowingItOnTopRestoresIt) {
    EtatBarres barres = relu();
    barres.place(Barre::Commande, 0);
    barres.place(Barre::Commande, 1);
    EXPECT_EQ(barres.position(Barre::Commande), 1);
    EXPECT_EQ(lu("COMMANDE"), u"1");
    EXPECT_EQ(lu("COMMANDESVISISIBLES"), u"1");
}

TEST_F(BarresTest, APositionThatIsNoneDoesNothing) {
    EtatBarres barres = relu();
    for (const int position : {-1, 5, 1000}) {
        barres.place(Barre::Outils, position);
        EXPECT_EQ(barres.position(Barre::Outils), 4) << position;
    }
    EXPECT_EQ(lu("OUTILS"), u"(absent)");
}

TEST_F(BarresTest, AStoredPlaceThatIsNoneIsTheUsualOne) {
    reglages_.savesetting(QStringLiteral("BARRE"), QStringLiteral("ECRAN"), QStringLiteral("77"));
    reglages_.savesetting(QStringLiteral("BARRE"), QStringLiteral("OUTILS"), QStringLiteral("-3"));
    EXPECT_EQ(relu().position(Barre::Ecran), 3);
    EXPECT_EQ(relu().position(Barre::Outils), 4);
}

TEST_F(BarresTest, TheStatusBarsStateIsSaved) {
    EtatBarres barres = relu();
    barres.commuteetat();
    EXPECT_FALSE(barres.etat());
    EXPECT_EQ(lu("ETAT"), u"0");
    EXPECT_FALSE(relu().etat());
    barres.commuteetat();
    EXPECT_EQ(lu("ETAT"), u"1");
    EXPECT_TRUE(relu().etat());
}

TEST(FondEcranTest, EachGroundHasItsPictureAndColour) {
    constexpr qint64 choisie = 0x123456;
    const std::array<qint64, 5> couleurs{12648447, 11394047, 14414327, 14805484, 16777215};
    for (int numero = 0; numero < 5; ++numero) {
        const auto fond = fondecran(numero, choisie);
        ASSERT_TRUE(fond);
        EXPECT_EQ(fond->image, numero);
        EXPECT_EQ(fond->couleur, couleurs.at(static_cast<std::size_t>(numero)));
    }
}

TEST(FondEcranTest, ThePlainGroundTakesTheChosenColourAndNoPicture) {
    const auto fond = fondecran(5, 0x123456);
    ASSERT_TRUE(fond);
    EXPECT_EQ(fond->image, -1);
    EXPECT_EQ(fond->couleur, 0x123456);
}

TEST(FondEcranTest, MinusOneTakesThePictureAwayAndLeavesTheColour) {
    const auto fond = fondecran(-1, 0x123456);
    ASSERT_TRUE(fond);
    EXPECT_EQ(fond->image, -1);
    EXPECT_FALSE(fond->couleur);
}

TEST(FondEcranTest, OtherNumbersDoNothing) {
    for (const int numero : {-2, 6, 100})
        EXPECT_FALSE(fondecran(numero, 0));
}
