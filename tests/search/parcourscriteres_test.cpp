// The walk of the criteria search: narrowing, stops, what goes on meanwhile, damage and bounds.
#include "tests/search/recherchecriteres_support.h"
#include "tests/support/without_rights.h"

#include <QFile>

using namespace velm;
using namespace velm::test;

namespace {

class ParcoursCriteresTest : public RechercheCriteresTest {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Textes, ParcoursCriteresTest, testing::Values(true, false),
                         [](const auto& cas) { return std::string(cas.param ? "Plies" : "Corps"); });

TEST_P(ParcoursCriteresTest, NarrowingKeepsTheRowsThatPass) {
    petite();
    cherche();
    liste.trie(0, false);
    const QStringList avant = cles();
    texte(u"garantie"_s);
    const Bilan resultat = affine();
    EXPECT_EQ(resultat.vus, 5);
    EXPECT_EQ(resultat.hits, 3);
    QStringList attendus = avant;
    attendus.removeAll(u"CO000002"_s);
    attendus.removeAll(u"CO000003"_s);
    EXPECT_EQ(cles(), attendus);
    EXPECT_EQ(panneau.last(), u" 3 documents");
    EXPECT_EQ(progres.back(), (std::pair<qint64, qint64>(4, 5)));
    texte(u"consommateur"_s);
    affine();
    EXPECT_EQ(cles(), ::liste({u"EU000001"_s}));
    EXPECT_EQ(panneau.last(), u" 1 document");
}

TEST_P(ParcoursCriteresTest, NarrowingTheLastRowEmptiesTheList) {
    petite();
    texte(u"vendeur"_s);
    cherche();
    ASSERT_EQ(liste.rows(), 2);
    texte(u"absent"_s);
    affine();
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(panneau.last(), u" 0 document");
}

TEST_P(ParcoursCriteresTest, NarrowingARowWhoseDocumentIsGoneUsesTheCurrentRecord) {
    petite();
    for (const QString& cle : {u"CO000077"_s, u"EU000001"_s, u"CO000099"_s, u"CO000002"_s, u"ZZ"_s})
        liste.resultat().lignes.ajoute({cle.left(2), cle.mid(2), {}, {}, {}, {}, cle});
    corpus.donnees().setIndex(u"primarykey"_s);
    corpus.donnees().seek(Seek::Equal, u"AD"_s, u"000001"_s);
    texte(u"garantie"_s);
    affine();
    // Tested on AD 1, on itself, on EU 1, on itself and on CO 2.
    EXPECT_EQ(cles(), ::liste({u"CO000077"_s, u"EU000001"_s, u"CO000099"_s}));
}

TEST_P(ParcoursCriteresTest, NarrowingARowWhoseDocumentIsGoneWithoutACurrentRecordTestsAnEmptyOne) {
    petite();
    for (const QString& cle : {u"CO000077"_s, u"EU000001"_s})
        liste.resultat().lignes.ajoute({cle.left(2), cle.mid(2), {}, {}, {}, {}, cle});
    corpus.donnees().moveLast();
    corpus.donnees().moveNext();
    texte(u"garantie"_s);
    affine();
    EXPECT_EQ(cles(), ::liste({u"EU000001"_s}));
}

TEST_P(ParcoursCriteresTest, AStopKeepsTheRowsFound) {
    beaucoup(40);
    texte(u"pair"_s);
    evenement = [&] { arretesi(liste.rows() >= 8); };
    const Bilan resultat = cherche();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(liste.rows(), 8);
    EXPECT_EQ(liste.cle(7), u"CO000014");
}

TEST_P(ParcoursCriteresTest, AStopWhileNarrowingKeepsWhatWasNotTested) {
    beaucoup(40);
    cherche();
    texte(u"pair"_s);
    int tours = 0;
    evenement = [&] { arretesi(++tours >= 11); };
    const Bilan resultat = affine();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(resultat.vus, 10);
    EXPECT_EQ(liste.lignes(), 35);
    EXPECT_EQ(liste.cle(5), u"CO000010");
    EXPECT_EQ(liste.cle(6), u"CO000011");
    EXPECT_EQ(panneau.last(), u" 35 documents");
}

TEST_P(ParcoursCriteresTest, ThePositionOfTheWalkSurvivesAnEventInBetween) {
    beaucoup(60);
    texte(u"pair"_s);
    evenement = [&] {
        corpus.donnees().setIndex(u"idate"_s);
        corpus.donnees().moveLast();
        corpus.base().releaseLocks();
    };
    EXPECT_EQ(cherche().hits, 30);
    cherche();
    EXPECT_EQ(affine().hits, 30);
}

TEST_P(ParcoursCriteresTest, ASearchThatBeginsMeanwhileEndsThisOne) {
    beaucoup(60);
    int tours = 0;
    Criteres autres;
    autres.texterech[0] = u"Titre 7"_s;
    evenement = [&] {
        if (++tours == 5)
            cherche(autres, touteslettres());
    };
    const Bilan resultat = cherche();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(cles(), ::liste({u"CO000007"_s}));
}

TEST_P(ParcoursCriteresTest, TheBaseMayBeClosedByAnEventThatStopsTheSearch) {
    beaucoup(60);
    texte(u"pair"_s);
    evenement = [&] {
        if (liste.rows() > 4) {
            arretesi(true);
            corpus.fermebase();
        }
    };
    EXPECT_TRUE(cherche().arretee);
    EXPECT_EQ(liste.rows(), 5);
}

TEST_P(ParcoursCriteresTest, TheProgressBarNeverPassesItsMaximum) {
    beaucoup(40);
    texte(u"pair"_s);
    // The stored counts may lag behind the table.
    change(u"UPDATE paramètres SET nbarticles='000025'"_s);
    EXPECT_EQ(cherche().vus, 40);
    ASSERT_GT(progres.size(), 30U);
    EXPECT_EQ(progres.front(), (std::pair<qint64, qint64>(0, 25)));
    qint64 avant = 0;
    for (const auto& [vus, total] : progres) {
        EXPECT_LE(vus, total);
        EXPECT_GE(vus, avant);
        avant = vus;
        EXPECT_EQ(total, 25);
    }
}

TEST_P(ParcoursCriteresTest, AFullGridEndsTheWalk) {
    beaucoup(40);
    liste.resultat().lignes.limite(7);
    const Bilan resultat = cherche();
    EXPECT_EQ(resultat.hits, 7);
    EXPECT_EQ(liste.rows(), 8);
    EXPECT_FALSE(resultat.arretee);
    EXPECT_EQ(panneau.last(), u" 7 documents");
}

TEST_P(ParcoursCriteresTest, BothCoresAndOneFindTheSame) {
    for (int i = 1; i <= 3000; ++i)
        pieces.push_back({u"CO"_s + sixchiffres(i), u"t"_s, QString::number(i * 7919 % 100'003).repeated(5)});
    ouvre();
    for (const QString& chiffres : {u"17"_s, u"99"_s, u"4242"_s}) {
        texte(chiffres);
        lieux(false, true, false);
        evenement = {};
        cherche();
        QStringList attendus;
        for (const Piece& p : pieces) {
            if (p.corps.contains(chiffres))
                attendus << p.cle;
        }
        EXPECT_EQ(cles(), attendus);
        ASSERT_FALSE(attendus.isEmpty());
    }
}

TEST_P(ParcoursCriteresTest, AReadOnlyBaseIsSearchedToo) {
    beaucoup(200);
    const QString chemin = corpus.chemin();
    corpus.fermebase();
    constexpr QFile::Permissions lire = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    constexpr QFile::Permissions entrer = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(chemin, lire));
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), lire | entrer));
    {
        const WithoutRights sansdroits;
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        EXPECT_FALSE(corpus.updatable());
        corpus.ouvretables();
        texte(u"pair"_s);
        EXPECT_EQ(trouve().size(), 100);
        corpus.fermebase();
    }
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), lire | entrer | QFile::WriteOwner));
}

TEST_P(ParcoursCriteresTest, ABaseWithoutTheTableOfDocumentsIsARunTimeError) {
    petite();
    change(u"DROP TABLE données"_s);
    corpus.fermebase();
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"pieces1.dat"_s)), OpenError::None);
    corpus.ouvretables();
    const GardeArret garde;
    EXPECT_THROW(cherche(), Arret);
}

TEST_P(ParcoursCriteresTest, ATextAsLongAsABoxTakesIsSearched) {
    QString longue = u"été "_s.repeated(8191) + u"fin"_s;
    pieces = {{u"CO000001"_s, u"a"_s, longue}, {u"CO000002"_s, u"b"_s, longue.chopped(1)}};
    ouvre();
    texte(longue.toUpper());
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}
