#include "search/cession.h"
#include "search/selectionoutil.h"
#include "tests/search/recherche_support.h"

#include <QFile>

using namespace velm;
using namespace velm::test;

namespace {

class CessionTest : public BaseRecherche {};

class SelectionOutilTest : public BaseRecherche {
protected:
    QString ecrit(const QByteArray& octets) const {
        QFile fichier(fichierselection(dossier.path()));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
        return fichier.fileName();
    }
};

} // namespace

TEST_F(CessionTest, EventsPassOnlyAfterAStepOfTime) {
    Cession longue({}, std::chrono::hours(1));
    EXPECT_FALSE(longue.due());
    Cession courte({}, std::chrono::milliseconds(0));
    EXPECT_TRUE(courte.due());
}

TEST_F(CessionTest, ATableIsPutBackOnItsIndexAndItsRow) {
    ajoutedocuments(5);
    ouvre();
    Recordset& donnees = corpus.donnees();
    donnees.setIndex(u"primarykey"_s);
    donnees.seek(Seek::Equal, u"CO"_s, u"000003"_s);
    evenement = [&] {
        donnees.setIndex(u"idate"_s);
        donnees.moveLast();
    };
    EXPECT_TRUE(cession.cede(donnees, {}));
    EXPECT_EQ(donnees.index(), u"primarykey");
    EXPECT_EQ(donnees.text(u"numart"_s), u"000003");
    donnees.moveNext();
    EXPECT_EQ(donnees.text(u"numart"_s), u"000004");
}

TEST_F(CessionTest, AStoppedSearchDoesNotTouchTheTableAgain) {
    ajoutedocuments(2);
    ouvre();
    Recordset& donnees = corpus.donnees();
    donnees.setIndex(u"primarykey"_s);
    const std::stop_token vu = nouvelarret();
    evenement = [&] {
        arretesi(true);
        corpus.base().close();
    };
    EXPECT_FALSE(cession.cede(donnees, vu));
}

TEST_F(SelectionOutilTest, TheFileFillsTheListAndIsDeleted) {
    ajoutedocuments(4);
    ouvre();
    const QString chemin = ecrit("pr\xEAt\r\ncr\xE9"
                                 "dit\r\nCO000003\r\nZZ000001\r\n\r\nCO\r\nCO000001\r\nCO000099\r\n");
    Resultat& resultat = liste.resultat();
    ASSERT_TRUE(remplitdepuisoutil(chemin, corpus, resultat));
    EXPECT_EQ(resultat.hits, 2);
    EXPECT_EQ(cles(), QStringList({u"CO000003"_s, u"CO000001"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"prêt");
    EXPECT_EQ(liste.resultat().mot2, u"crédit");
    EXPECT_EQ(resultat.compte, 2);
    EXPECT_FALSE(QFile::exists(chemin));
}

TEST_F(SelectionOutilTest, NoFileChangesNothing) {
    ajoutedocuments(1);
    ouvre();
    liste.resultat().mot1 = u"avant"_s;
    liste.resultat().lignes.ajoute({u"CO", u"000001", u"t", u"", u"", u"", u"CO000001"});
    EXPECT_FALSE(remplitdepuisoutil(fichierselection(dossier.path()), corpus, liste.resultat()));
    EXPECT_EQ(liste.rows(), 2);
    EXPECT_EQ(liste.resultat().mot1, u"avant");
    EXPECT_EQ(liste.resultat().compte, std::nullopt);
}

TEST_F(SelectionOutilTest, AFileOfOneLineSetsOneWord) {
    ouvre();
    liste.resultat().mot2 = u"avant"_s;
    ASSERT_TRUE(remplitdepuisoutil(ecrit("mot"), corpus, liste.resultat()));
    EXPECT_EQ(liste.resultat().mot1, u"mot");
    EXPECT_EQ(liste.resultat().mot2, u"avant");
    EXPECT_EQ(liste.resultat().compte, 0);
    ASSERT_TRUE(remplitdepuisoutil(ecrit(""), corpus, liste.resultat()));
    EXPECT_EQ(liste.resultat().mot1, u"mot");
}

TEST_F(SelectionOutilTest, AFullListStopsTheReading) {
    ajoutedocuments(4);
    ouvre();
    liste.resultat().lignes.limite(1);
    ASSERT_TRUE(remplitdepuisoutil(ecrit("a\nb\nCO000001\nCO000002\n"), corpus, liste.resultat()));
    EXPECT_EQ(liste.resultat().hits, 1);
}
