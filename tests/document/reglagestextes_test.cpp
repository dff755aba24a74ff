#include "document/listecollection.h"
#include "document/reglagestextes.h"

#include <QTemporaryDir>

#include <array>
#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ReglagesTextesTest : public testing::Test {
protected:
    void met(const QString& nom, const QString& valeur) { magasin.save(u"POSITIONFORME", nom, valeur); }
    QString lu(const QString& nom) const { return magasin.get(u"POSITIONFORME", nom, u"(absent)"_s); }

    QTemporaryDir dossier;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglages{magasin};
};

// ---- the columns of the list block, as they are stored

QString ordredescolonnes(QStringView enregistre) {
    Colonnes colonnes(ListeCollection::modele());
    colonnes.prend(enregistre, {});
    return colonnes.ordre();
}

QString ordreaenregistrer(const std::array<int, 4>& champs) {
    if (champs == std::array{-1, -1, -1, -1})
        return ListeCollection::ordrejamaisrempli.toString();
    Colonnes colonnes(ListeCollection::modele());
    for (int place = 0; place < 4; ++place)
        colonnes.deplace(colonnes.place(champs.at(static_cast<std::size_t>(place))), place);
    return colonnes.ordre();
}

std::array<int, 4> largeursdescolonnes(QStringView enregistre) {
    Colonnes colonnes(ListeCollection::modele());
    colonnes.prend({}, enregistre);
    return {colonnes.largeur(0), colonnes.largeur(1), colonnes.largeur(2), colonnes.largeur(3)};
}

QString largeursaenregistrer(const std::array<int, 4>& largeurs) {
    Colonnes colonnes(ListeCollection::modele());
    for (int place = 0; place < 4; ++place)
        colonnes.changelargeur(place, largeurs.at(static_cast<std::size_t>(place)));
    return colonnes.largeurs();
}

} // namespace

TEST_F(ReglagesTextesTest, AbsentSettingsGiveTheDefaults) {
    const ReglagesTextes lus = litreglagestextes(reglages, 3);
    ReglagesTextes usuels;
    usuels.place.etat = 2; // a first start
    EXPECT_EQ(lus, usuels);
    EXPECT_EQ(lus.place.hauteur, 4245);
    EXPECT_EQ(lus.place.largeur, 0);
    EXPECT_EQ(lus.posseparateur, 1000);
    EXPECT_EQ(lus.arrangement, Arrangement::Dessus);
    EXPECT_EQ(lus.bloc, Bloc::Recherche);
    EXPECT_EQ(lus.listeordre, u"01234");
    EXPECT_EQ(lus.listelargeurs, u"002000002000002000002000");
}

TEST_F(ReglagesTextesTest, AWindowWithoutAPlaceFillsTheFrameUnlessOthersWereLeftNormal) {
    EXPECT_EQ(litreglagestextes(reglages, 3).place.etat, 2);
    met(u"WINDOWSSTATE0"_s, u"2"_s);
    met(u"WINDOWSSTATE1"_s, u"1"_s);
    EXPECT_EQ(litreglagestextes(reglages, 3).place.etat, 2);
    met(u"WINDOWSSTATE10"_s, u"0"_s);
    EXPECT_EQ(litreglagestextes(reglages, 3).place.etat, 0);
    EXPECT_EQ(litreglagestextes(reglages, 0).place.etat, 2);
    EXPECT_EQ(litreglagestextes(reglages, 1).place.etat, 1);
}

TEST_F(ReglagesTextesTest, AWindowIsAFirstOneUntilAnythingOfItIsStored) {
    int indice = 0;
    for (const auto& nom :
         {u"WINDOWSSTATE"_s, u"WINDOWSLEFT"_s, u"WINDOWSTOP"_s, u"WINDOWSWIDTH"_s, u"WINDOWSHEIGHT"_s,
          u"WINDOWSARBRE"_s, u"WINDOWSSEPARVH"_s, u"WINDOWSSEPAR"_s, u"ORDRECOLONNE"_s, u"LARGEURCOLONNE"_s}) {
        EXPECT_TRUE(jamaisouverte(reglages, indice)) << nom.toStdString();
        met(nom + QString::number(indice), u"0"_s);
        EXPECT_FALSE(jamaisouverte(reglages, indice)) << nom.toStdString();
        ++indice;
    }
    EXPECT_TRUE(jamaisouverte(reglages, 10)) << "each for itself";
    ecritreglagestextes(reglages, 10, {});
    EXPECT_FALSE(jamaisouverte(reglages, 10));
}

TEST_F(ReglagesTextesTest, EachWindowRestoresItsOwnSavedValues) {
    ReglagesTextes un;
    un.place = {0, 150, 300, 9000, 6000};
    un.bloc = Bloc::Arbre;
    un.arrangement = Arrangement::ACote;
    un.posseparateur = 4305;
    un.listeordre = u"31024"_s;
    un.listelargeurs = u"004000001500000700002001"_s;
    ReglagesTextes autre;
    autre.place.etat = 2;
    autre.bloc = Bloc::Liste;
    ecritreglagestextes(reglages, 1, un);
    ecritreglagestextes(reglages, 10, autre);
    const ReglagesStore frais(magasin.path());
    EXPECT_EQ(litreglagestextes(reglages, 1), un);
    EXPECT_EQ(litreglagestextes(reglages, 10), autre);
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"WINDOWSSEPAR1"), u"4305");
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"ORDRECOLONNE1"), u"31024");
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"WINDOWSARBRE1"), u"1");
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"WINDOWSSEPARVH1"), u"0");
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"WINDOWSARBRE10"), u"2");
    EXPECT_EQ(frais.get(u"POSITIONFORME", u"WINDOWSSEPARVH10"), u"1");
    EXPECT_EQ(litreglagestextes(reglages, 0), ReglagesTextes());
}

TEST_F(ReglagesTextesTest, AWindowThatIsNotInNormalStateWritesNoPosition) {
    ReglagesTextes agrandie;
    agrandie.place = {2, 10, 20, 30, 40};
    ecritreglagestextes(reglages, 0, agrandie);
    EXPECT_EQ(lu(u"WINDOWSSTATE0"_s), u"2");
    for (const auto& nom : {u"WINDOWSLEFT0"_s, u"WINDOWSTOP0"_s, u"WINDOWSWIDTH0"_s, u"WINDOWSHEIGHT0"_s})
        EXPECT_EQ(lu(nom), u"(absent)");
}

TEST_F(ReglagesTextesTest, AnArrangementOtherThanZeroPutsThePanelAbove) {
    met(u"WINDOWSSEPARVH2"_s, u"0"_s);
    EXPECT_EQ(litreglagestextes(reglages, 2).arrangement, Arrangement::ACote);
    met(u"WINDOWSSEPARVH2"_s, u"7"_s);
    EXPECT_EQ(litreglagestextes(reglages, 2).arrangement, Arrangement::Dessus);
}

TEST_F(ReglagesTextesTest, NonsenseInTheStoreIsNoFailure) {
    for (const auto& nom : {u"WINDOWSSTATE5"_s, u"WINDOWSLEFT5"_s, u"WINDOWSTOP5"_s, u"WINDOWSWIDTH5"_s,
                            u"WINDOWSHEIGHT5"_s, u"WINDOWSSEPAR5"_s, u"WINDOWSSEPARVH5"_s, u"WINDOWSARBRE5"_s})
        met(nom, u"pas un nombre"_s);
    met(u"ORDRECOLONNE5"_s, u"\u00E9t\u00E9"_s);
    met(u"LARGEURCOLONNE5"_s, u"xyz"_s);
    ReglagesTextes lus = litreglagestextes(reglages, 5);
    EXPECT_EQ(lus.place, PlaceTextes({0, 0, 0, 0, 0}));
    EXPECT_EQ(lus.listeordre, u"01234");
    EXPECT_EQ(lus.listelargeurs, u"002000002000002000002000");

    met(u"WINDOWSSTATE5"_s, u"99"_s);
    met(u"WINDOWSLEFT5"_s, u"-1e300"_s);
    met(u"WINDOWSWIDTH5"_s, u"-40"_s);
    met(u"WINDOWSSEPAR5"_s, u"1e300"_s);
    met(u"WINDOWSARBRE5"_s, u"12"_s);
    lus = litreglagestextes(reglages, 5);
    EXPECT_EQ(lus.place.etat, 0);
    EXPECT_EQ(lus.place.gauche, -1'000'000);
    EXPECT_EQ(lus.place.largeur, 0);
    EXPECT_EQ(lus.posseparateur, 1'000'000);
    EXPECT_EQ(lus.bloc, Bloc::Liste);
}

TEST(ColonnesDeLaListe, AColumnOrderOfAllFoursFallsBackToTheDefault) {
    EXPECT_EQ(ordredescolonnes(u"44444"), u"01234");
}

TEST(ColonnesDeLaListe, AnOrderThatIsNoneFallsBackToTheDefault) {
    for (const auto& texte : {u""_s, u"0"_s, u"012"_s, u"00124"_s, u"x1234"_s, u"41230"_s, u"    4"_s})
        EXPECT_EQ(ordredescolonnes(texte), u"01234") << texte.toStdString();
}

TEST(ColonnesDeLaListe, AnOrderIsReadWhateverStandsBehindIt) {
    EXPECT_EQ(ordredescolonnes(u"3210"), u"32104");
    EXPECT_EQ(ordredescolonnes(u"10324"), u"10324");
    EXPECT_EQ(ordredescolonnes(u"2013999999"), u"20134");
}

TEST(ColonnesDeLaListe, MovedColumnsAreWrittenBackAsDigitsWithFourAtTheEnd) {
    EXPECT_EQ(ordreaenregistrer({1, 0, 3, 2}), u"10324");
    EXPECT_EQ(ordreaenregistrer({-1, -1, -1, -1}), u"44444");
}

TEST(ColonnesDeLaListe, WidthsAreReadInGroupsOfSixDigits) {
    EXPECT_EQ(largeursdescolonnes(u"001000002000003000004500"), (std::array{1000, 2000, 3000, 4500}));
    EXPECT_EQ(largeursdescolonnes(u"0010000020"), (std::array{1000, 20, 2000, 2000}));
    EXPECT_EQ(largeursdescolonnes(u"abcdef-00009000000999999"), (std::array{2000, 2000, 2000, 30'000}));
    EXPECT_EQ(largeursdescolonnes(u""), (std::array{2000, 2000, 2000, 2000}));
}

TEST(ColonnesDeLaListe, WidthsAreWrittenInGroupsOfSixDigits) {
    EXPECT_EQ(largeursaenregistrer({1, 20, 300, 4000}), u"000001000020000300004000");
    EXPECT_EQ(largeursaenregistrer({-5, 12'345'678, 0, 2}), u"000000999999000000000002");
}
