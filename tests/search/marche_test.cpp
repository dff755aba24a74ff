// The turns of a search: what it tells, and how it hears that it is to stop.
#include "search/marche.h"
#include "tests/search/recherche_support.h"

using namespace velm;
using namespace velm::test;

namespace {

class MarcheTest : public BaseRecherche {
protected:
    Marche marche() {
        return Marche(cession, nouvelarret(), [this](const Marche::Etape& etape) { etapes.push_back(etape); });
    }
    std::vector<Marche::Etape> etapes;
    Resultat resultat;
};

} // namespace

TEST_F(MarcheTest, WithoutTurnsItGoesOnAndIsHeardByNobody) {
    Marche seule;
    seule.commence(10);
    EXPECT_FALSE(seule.due());
    EXPECT_TRUE(seule.continuer(resultat));
    EXPECT_FALSE(resultat.arretee());
}

TEST_F(MarcheTest, TheBeginningTellsOfHowMuchItIs) {
    marche().commence(7);
    ASSERT_EQ(etapes.size(), 1U);
    EXPECT_EQ(etapes.front().vus, 0);
    EXPECT_EQ(etapes.front().total, 7);
    EXPECT_EQ(etapes.front().compte, std::nullopt);
}

TEST_F(MarcheTest, EachTurnTellsHowFarItIsAndThenLetsEventsThrough) {
    int tours = 0;
    evenement = [&] { EXPECT_EQ(etapes.size(), static_cast<std::size_t>(++tours) + 1); };
    Marche ici = marche();
    ici.commence(2);
    for (const qint64 vus : {1, 2, 3}) {
        resultat.vus = vus;
        resultat.compte = vus * 10;
        EXPECT_TRUE(ici.due());
        EXPECT_TRUE(ici.continuer(resultat));
        EXPECT_EQ(etapes.back().vus, std::min<qint64>(vus, 2)) << "never above the total";
        EXPECT_EQ(etapes.back().compte, vus * 10);
    }
    EXPECT_EQ(tours, 3);
}

TEST_F(MarcheTest, BetweenTwoTurnsNothingIsToldButAStopIsHeard) {
    Cession longue({}, std::chrono::hours(1));
    Marche ici(longue, nouvelarret(), [this](const Marche::Etape& etape) { etapes.push_back(etape); });
    EXPECT_FALSE(ici.due());
    EXPECT_TRUE(ici.continuer(resultat));
    EXPECT_TRUE(etapes.empty());
    arretesi(true);
    EXPECT_FALSE(ici.continuer(resultat));
    EXPECT_EQ(resultat.issue, Resultat::Issue::Arretee);
}

TEST_F(MarcheTest, AStopInATurnIsTheResultsIssue) {
    evenement = [this] { arretesi(true); };
    Marche ici = marche();
    EXPECT_FALSE(ici.continuer(resultat));
    EXPECT_TRUE(resultat.arretee());
}

TEST_F(MarcheTest, ATableIsPutBackBehindATurn) {
    ajoutedocuments(3);
    ouvre();
    Recordset& donnees = corpus.donnees();
    donnees.setIndex(u"primarykey"_s);
    donnees.seek(Seek::Equal, u"CO"_s, u"000002"_s);
    evenement = [&donnees] { donnees.moveLast(); };
    Marche ici = marche();
    EXPECT_TRUE(ici.continuer(resultat, donnees));
    EXPECT_EQ(donnees.text(u"numart"_s), u"000002");
    evenement = [this] {
        arretesi(true);
        corpus.base().close();
    };
    EXPECT_FALSE(ici.continuer(resultat, donnees)) << "and the table is not touched again";
}

TEST_F(MarcheTest, ASearchBeginsWithACountOfItsOwnAndTheWordsOfTheOneBefore) {
    resultat.mot1 = u"avant"_s;
    resultat.vus = resultat.hits = 4;
    resultat.compte = 4;
    resultat.issue = Resultat::Issue::Arretee;
    resultat.lignes.ajoute({u"CO", u"000001", u"a", u"", u"", u"", u"CO000001"});
    resultat.commence();
    EXPECT_EQ(resultat.issue, Resultat::Issue::Terminee);
    EXPECT_EQ(resultat.vus + resultat.hits, 0);
    EXPECT_EQ(resultat.compte, std::nullopt);
    EXPECT_EQ(resultat.mot1, u"avant");
    EXPECT_EQ(resultat.lignes.nombre(), 1);
}
