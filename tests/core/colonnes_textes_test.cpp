// The texts that keep columns, held against the procedures that once read and wrote them.
#include "colonnes_oracle.h"
#include "colonnes_support.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

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

} // namespace

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
