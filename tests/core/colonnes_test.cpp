// The columns of lists, and the texts that keep them. The procedures by which each list once read and wrote these texts
// by itself stand here as oracles.
#include "core/colonnes.h"
#include "core/reglages.h"
#include "platform/text/number.h"

#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

// ---- the oracles

int largeurdumasque(QStringView largeurs, int colonne) {
    const qsizetype debut = qsizetype{6} * colonne;
    if (debut < 0 || debut >= largeurs.size())
        return 0;
    return static_cast<int>(std::clamp(val(largeurs.mid(debut, 6)), 0.0, 999'999.0));
}

int champdumasque(QStringView ordre, int colonne) {
    if (colonne < 0 || colonne >= ordre.size() || ordre[colonne] < u'0' || ordre[colonne] > u'9')
        return -1;
    return ordre[colonne].unicode() - u'0';
}

int titreduchamp(QChar chiffre) {
    return 252 + chiffre.unicode();
}

/// The list of what was found.
struct OracleTrouves {
    static constexpr QStringView masquelargeurs = u"003000002000002000002000000500001000";
    static constexpr QStringView masqueordre = u"012354";

    struct Colonne {
        int champ;
        int largeur;
    };
    std::vector<Colonne> colonnes;

    OracleTrouves() {
        for (int i = 0; i < 6; ++i)
            colonnes.push_back({champdumasque(masqueordre, i), largeurdumasque(masquelargeurs, i)});
    }
    void deplace(int de, int vers) {
        if (de < 0 || de >= 6 || vers < 0 || vers >= 6)
            return;
        const auto a = colonnes.begin() + de;
        const auto b = colonnes.begin() + vers;
        if (de < vers)
            std::rotate(a, a + 1, b + 1);
        else
            std::rotate(b, a, a + 1);
    }
    void changelargeur(int place, int twips) {
        if (place >= 0 && place < 6)
            colonnes[static_cast<std::size_t>(place)].largeur = std::max(twips, 0);
    }
    void prend(QStringView ordre, QStringView largeurs) {
        if (ordre.size() == 6 && std::is_permutation(ordre.begin(), ordre.end(), masqueordre.begin())) {
            for (int place = 0; place < 6; ++place) {
                int ici = place;
                while (colonnes[static_cast<std::size_t>(ici)].champ != champdumasque(ordre, place))
                    ++ici;
                deplace(ici, place);
            }
        }
        for (int place = 0; place < 6; ++place) {
            const int largeur = largeurdumasque(largeurs, place);
            if (largeur >= 60 && largeur <= 32767)
                changelargeur(place, largeur);
        }
    }
    QString ordre() const {
        QString masque;
        for (const Colonne& colonne : colonnes)
            masque += QString::number(colonne.champ);
        return masque;
    }
    QString largeurs() const {
        QString masque;
        for (const Colonne& colonne : colonnes)
            masque += QString::number(std::min(colonne.largeur, 32767)).rightJustified(6, u'0');
        return masque;
    }
};

/// The list of a collection.
QString ordredescolonnes(QStringView enregistre) {
    const QString premiers = enregistre.left(4).toString();
    QString tries = premiers;
    std::sort(tries.begin(), tries.end());
    return (tries == u"0123" ? premiers : u"0123"_s) + u'4';
}

std::array<int, 4> largeursdescolonnes(QStringView enregistre) {
    std::array<int, 4> largeurs{};
    for (int colonne = 0; colonne < 4; ++colonne) {
        const double lue = val(enregistre.mid(6 * colonne, 6));
        largeurs.at(static_cast<std::size_t>(colonne)) = lue >= 1 ? static_cast<int>(std::min(lue, 30'000.0)) : 2000;
    }
    return largeurs;
}

QString largeursaenregistrer(const std::array<int, 4>& largeurs) {
    QString texte;
    for (const int largeur : largeurs)
        texte += QString::number(std::clamp(largeur, 0, 999'999)).rightJustified(6, u'0');
    return texte;
}

// ---- the same by their models

ModeleColonnes trouves() {
    return {.colonnes = {{0, 3000, Texte::Titre},
                         {1, 2000, Texte::ColonneMotCle1},
                         {2, 2000, Texte::ColonneMotCle2},
                         {3, 2000, Texte::ColonneMotCle3},
                         {5, 500, {}},
                         {4, 1000, Texte::ColonneReference},
                         {6, 0, {}}}};
}

ModeleColonnes collection() {
    return {.colonnes = {{0, 2000, Texte::Titre},
                         {1, 2000, Texte::ColonneMotCle1},
                         {2, 2000, Texte::ColonneMotCle2},
                         {3, 2000, Texte::ColonneMotCle3},
                         {4, 0, Texte::ColonneReference}},
            .pluspetite = 1,
            .plusgrande = 30'000,
            .plafonne = true,
            .plusgrandeecrite = 999'999,
            .suite = u"4"_s};
}

QString texte(Texte lequel) {
    return u"t%1"_s.arg(static_cast<int>(lequel));
}

std::vector<int> champs(const Colonnes& colonnes) {
    std::vector<int> tous;
    for (int place = 0; place < colonnes.nombre(); ++place)
        tous.push_back(colonnes.champ(place));
    return tous;
}

std::vector<int> largeurs(const Colonnes& colonnes) {
    std::vector<int> toutes;
    for (int place = 0; place < colonnes.nombre(); ++place)
        toutes.push_back(colonnes.largeur(place));
    return toutes;
}

/// Texts as a settings file may hold them: right, cut, too long, or of anything.
class Hasard {
public:
    explicit Hasard(unsigned graine) : source_(graine) {}

    int jusqua(int plus) { return std::uniform_int_distribution(0, plus)(source_); }
    QString ordre(QString chiffres) {
        std::shuffle(chiffres.begin(), chiffres.end(), source_);
        return abime(chiffres);
    }
    QString largeurs(int nombre) {
        static const QStringList etranges{u"000000"_s, u"-00060"_s, u"1e9999"_s, u"abcdef"_s, u"000059"_s,
                                          u"000060"_s, u"032767"_s, u"032768"_s, u"  12.7"_s, u"030001"_s,
                                          u"000001"_s, u"0.9999"_s, u"32767."_s, u"3276.8"_s, u"999999"_s};
        QString tous;
        for (int i = 0; i < nombre; ++i)
            tous += jusqua(2) == 0 ? etranges.at(jusqua(static_cast<int>(etranges.size()) - 1))
                                   : QString::number(jusqua(40'000)).rightJustified(6, u'0');
        return abime(tous);
    }

private:
    QString abime(QString juste) {
        switch (jusqua(5)) {
        case 0:
            return juste.left(jusqua(static_cast<int>(juste.size())));
        case 1:
            return juste + u"4x9"_s.left(jusqua(3));
        case 2:
            if (!juste.isEmpty())
                juste[jusqua(static_cast<int>(juste.size()) - 1)] = u"0123456789x- é"_s.at(jusqua(13));
            return juste;
        default:
            return juste;
        }
    }
    std::mt19937 source_;
};

class ColonnesGardees : public testing::Test {
protected:
    QString lu(const QString& nom) const { return magasin.get(u"LISTE", nom, u"(absent)"_s); }

    QTemporaryDir dossier;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglages{magasin};
    ClesColonnes cles{{{u"LISTE", u"ORDRE"}, u"012354", Maitre::Non}, {{u"LISTE", u"LARGEURS"}, u"", Maitre::Non}};
};

} // namespace

// ---- columns

TEST(ColonnesTest, AModelGivesTheColumnsThatNobodyHasTouched) {
    const Colonnes colonnes(trouves(), texte);
    EXPECT_EQ(colonnes.nombre(), 7);
    EXPECT_EQ(colonnes.visibles(), 6);
    EXPECT_EQ(champs(colonnes), (std::vector{0, 1, 2, 3, 5, 4, 6}));
    EXPECT_EQ(largeurs(colonnes), (std::vector{3000, 2000, 2000, 2000, 500, 1000, 0}));
    EXPECT_EQ(colonnes.ordre(), OracleTrouves::masqueordre);
    EXPECT_EQ(colonnes.largeurs(), OracleTrouves::masquelargeurs);
    EXPECT_EQ(Colonnes(collection()).ordre(), u"01234");
    EXPECT_EQ(Colonnes(collection()).largeurs(), u"002000002000002000002000");
}

TEST(ColonnesTest, ATitleIsTheTextOfItsNumberAndMovesWithItsColumn) {
    Colonnes colonnes(trouves(), texte);
    for (const int place : {0, 1, 2, 3, 5})
        EXPECT_EQ(colonnes.titre(place), texte(Texte{titreduchamp(OracleTrouves::masqueordre[place])})) << place;
    EXPECT_TRUE(colonnes.titre(4).isEmpty());
    EXPECT_TRUE(colonnes.titre(6).isEmpty());
    colonnes.deplace(5, 0);
    EXPECT_EQ(colonnes.titre(0), u"t304");
    EXPECT_TRUE(Colonnes(trouves()).titre(0).isEmpty());
}

TEST(ColonnesTest, OutsideThereIsNoColumn) {
    const Colonnes colonnes(trouves(), texte);
    for (const int place : {-1, 7, 1000}) {
        EXPECT_EQ(colonnes.champ(place), -1);
        EXPECT_EQ(colonnes.largeur(place), 0);
        EXPECT_TRUE(colonnes.titre(place).isEmpty());
    }
    EXPECT_EQ(colonnes.place(9), -1);
    EXPECT_EQ(colonnes.place(-1), -1);
}

TEST(ColonnesTest, AColumnTakesItsMeaningAndItsWidthAlong) {
    Colonnes colonnes(trouves());
    colonnes.deplace(0, 5);
    EXPECT_EQ(champs(colonnes), (std::vector{1, 2, 3, 5, 4, 0, 6}));
    EXPECT_EQ(largeurs(colonnes), (std::vector{2000, 2000, 2000, 500, 1000, 3000, 0}));
    EXPECT_EQ(colonnes.place(0), 5);
    EXPECT_EQ(colonnes.place(5), 3);
    colonnes.deplace(5, 1);
    EXPECT_EQ(champs(colonnes), (std::vector{1, 0, 2, 3, 5, 4, 6}));
}

TEST(ColonnesTest, WhatIsNeverSeenStaysWhereItIsAndUnseen) {
    Colonnes colonnes(trouves());
    for (const auto& [de, vers] : {std::pair{6, 0}, {0, 6}, {-1, 0}, {0, -1}, {7, 1}})
        colonnes.deplace(de, vers);
    colonnes.changelargeur(6, 500);
    colonnes.changelargeur(-1, 500);
    EXPECT_EQ(champs(colonnes), champs(Colonnes(trouves())));
    EXPECT_EQ(largeurs(colonnes), largeurs(Colonnes(trouves())));
}

TEST(ColonnesTest, WidthsAreUsualUntilOneIsTouched) {
    Colonnes colonnes(trouves());
    EXPECT_TRUE(colonnes.largeursusuelles());
    colonnes.deplace(0, 4);
    EXPECT_TRUE(colonnes.largeursusuelles()) << "a column was moved only";
    colonnes.changelargeur(2, 2001);
    EXPECT_FALSE(colonnes.largeursusuelles());
    colonnes.changelargeur(2, -5);
    EXPECT_EQ(colonnes.largeur(2), 0);
}

// ---- the texts

TEST(ColonnesTest, WidthsAreTakenByGroupsOfSixDigitsAndByPlaces) {
    Colonnes colonnes(trouves());
    colonnes.prend(u"543210", u"00050000100000006100");
    EXPECT_EQ(champs(colonnes), (std::vector{5, 4, 3, 2, 1, 0, 6}));
    EXPECT_EQ(largeurs(colonnes), (std::vector{500, 1000, 61, 2000, 2000, 3000, 0}));
}

TEST(ColonnesTest, AnOrderThatDoesNotNameEachColumnOnceChangesNothing) {
    for (const QString& mauvais :
         {QString(), u"0"_s, u"012344"_s, u"0123546"_s, u"01235x"_s, u"012356"_s, u"01235"_s, u"999999"_s}) {
        Colonnes colonnes(trouves());
        colonnes.prend(mauvais, {});
        EXPECT_EQ(colonnes.ordre(), u"012354") << mauvais.toStdString();
    }
}

TEST(ColonnesTest, WhatStandsBehindAnOrderIsReadOverWhereTheListWritesSomethingThere) {
    for (const auto& [lu, ordre] :
         {std::pair{u"3210"_s, u"32104"_s}, {u"10324"_s, u"10324"_s}, {u"2013999999"_s, u"20134"_s}}) {
        Colonnes colonnes(collection());
        colonnes.prend(lu, {});
        EXPECT_EQ(colonnes.ordre(), ordre);
    }
    Colonnes stricte(trouves());
    stricte.prend(u"5432104", {});
    EXPECT_EQ(stricte.ordre(), u"012354");
}

TEST(ColonnesTest, AWidthOutsideItsBoundsCountsAsNoneOrAsTheBound) {
    const auto prise = [](const ModeleColonnes& modele, const QString& largeur) {
        Colonnes colonnes(modele);
        colonnes.prend({}, largeur);
        return colonnes.largeur(0);
    };
    for (const auto& [lue, exacte, plafonnee] : {std::tuple{u"000059"_s, 3000, 59},
                                                 {u"000060"_s, 60, 60},
                                                 {u"000000"_s, 3000, 2000},
                                                 {u"0.9999"_s, 3000, 2000},
                                                 {u"000001"_s, 3000, 1},
                                                 {u"030000"_s, 30'000, 30'000},
                                                 {u"032767"_s, 32'767, 30'000},
                                                 {u"32767."_s, 32'767, 30'000},
                                                 {u"032768"_s, 3000, 30'000},
                                                 {u"1e9999"_s, 3000, 30'000},
                                                 {u"-00100"_s, 3000, 2000},
                                                 {u"abc"_s, 3000, 2000}}) {
        EXPECT_EQ(prise(trouves(), lue), exacte) << lue.toStdString();
        EXPECT_EQ(prise(collection(), lue), plafonnee) << lue.toStdString();
    }
}

TEST(ColonnesTest, AWidthIsWrittenInSixDigitsWhateverItIs) {
    Colonnes un(trouves());
    un.changelargeur(0, 12'345'678);
    un.changelargeur(1, 0);
    EXPECT_EQ(un.largeurs(), u"032767000000002000002000000500001000");
    Colonnes autre(collection());
    autre.changelargeur(0, 12'345'678);
    EXPECT_EQ(autre.largeurs(), u"999999002000002000002000");
}

TEST(ColonnesTest, TheListOfWhatWasFoundIsReadAndWrittenAsItEverWas) {
    Hasard hasard(20'250);
    for (int fois = 0; fois < 20'000; ++fois) {
        Colonnes colonnes(trouves());
        OracleTrouves oracle;
        for (int coup = hasard.jusqua(3); coup > 0; --coup) {
            const int de = hasard.jusqua(8) - 1;
            const int vers = hasard.jusqua(8) - 1;
            colonnes.deplace(de, vers);
            oracle.deplace(de, vers);
            const int place = hasard.jusqua(8) - 1;
            const int twips = hasard.jusqua(40'000) - 10;
            colonnes.changelargeur(place, twips);
            oracle.changelargeur(place, twips);
        }
        const QString ordre = hasard.ordre(u"012354"_s);
        const QString largeurs = hasard.largeurs(6);
        colonnes.prend(ordre, largeurs);
        oracle.prend(ordre, largeurs);
        ASSERT_EQ(colonnes.ordre(), oracle.ordre()) << ordre.toStdString();
        ASSERT_EQ(colonnes.largeurs(), oracle.largeurs()) << largeurs.toStdString();
        Colonnes encore(trouves());
        encore.prend(colonnes.ordre(), colonnes.largeurs());
        ASSERT_EQ(encore.ordre(), colonnes.ordre());
    }
}

TEST(ColonnesTest, TheListOfACollectionIsReadAndWrittenAsItEverWas) {
    Hasard hasard(1'959);
    for (int fois = 0; fois < 20'000; ++fois) {
        const QString ordre = hasard.ordre(u"0123"_s) + (hasard.jusqua(1) == 0 ? u"4"_s : QString());
        const QString largeurs = hasard.largeurs(4);
        Colonnes colonnes(collection());
        colonnes.prend(ordre, largeurs);
        ASSERT_EQ(colonnes.ordre(), ordredescolonnes(ordre)) << ordre.toStdString();
        ASSERT_EQ(colonnes.largeurs(), largeursaenregistrer(largeursdescolonnes(largeurs))) << largeurs.toStdString();
        const int place = hasard.jusqua(3);
        const int twips = hasard.jusqua(2'000'000);
        std::array<int, 4> touchees = largeursdescolonnes(largeurs);
        touchees.at(static_cast<std::size_t>(place)) = twips;
        colonnes.changelargeur(place, twips);
        ASSERT_EQ(colonnes.largeurs(), largeursaenregistrer(touchees));
    }
}

// ---- the settings

TEST_F(ColonnesGardees, NothingIsWrittenOfColumnsThatNobodyHasTouched) {
    Colonnes colonnes(trouves());
    litcolonnes(reglages, cles, colonnes);
    ecritcolonnes(reglages, cles, colonnes);
    EXPECT_EQ(lu(cles.ordre.cle.nom()), u"(absent)");
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), u"(absent)");
}

TEST_F(ColonnesGardees, ColumnsComeBackAsTheyWereLeft) {
    Colonnes colonnes(trouves());
    colonnes.deplace(0, 2);
    colonnes.changelargeur(2, 4500);
    ecritcolonnes(reglages, cles, colonnes);
    EXPECT_EQ(lu(cles.ordre.cle.nom()), u"120354");
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), u"002000002000004500002000000500001000");
    Colonnes encore(trouves());
    litcolonnes(reglages, cles, encore);
    EXPECT_EQ(champs(encore), champs(colonnes));
    EXPECT_EQ(largeurs(encore), largeurs(colonnes));
}

TEST_F(ColonnesGardees, OneThatWasMovedKeepsTheWidthThatWasStoredForIt) {
    magasin.save(u"LISTE", cles.largeurs.cle.nom(), u"004500002000002000002000000500001000"_s);
    Colonnes colonnes(trouves());
    litcolonnes(reglages, cles, colonnes);
    colonnes.deplace(0, 3);
    ecritcolonnes(reglages, cles, colonnes);
    Colonnes encore(trouves());
    litcolonnes(reglages, cles, encore);
    EXPECT_EQ(encore.largeur(3), 4500);
    EXPECT_EQ(encore.largeur(0), 2000);
}

TEST_F(ColonnesGardees, TheUsualOrderReplacesAnotherAndOneThatIsDamaged) {
    for (const QString& garde : {u"120354"_s, u"999999"_s}) {
        magasin.save(u"LISTE", cles.ordre.cle.nom(), garde);
        ecritcolonnes(reglages, cles, Colonnes(trouves()));
        EXPECT_EQ(lu(cles.ordre.cle.nom()), u"012354");
    }
    magasin.save(u"LISTE", cles.largeurs.cle.nom(), u"004500"_s);
    ecritcolonnes(reglages, cles, Colonnes(trouves()));
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), OracleTrouves::masquelargeurs);
}
