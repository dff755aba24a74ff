#include "core/schemas.h"
#include "platform/text/letters.h"
#include "search/rechercherapide.h"
#include "search/remplacecodes.h"
#include "search/texteenmajuscules.h"
#include "tests/search/recherche_support.h"
#include "tests/support/rounds.h"

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

class RechercheRapideTest : public BaseRecherche {
protected:
    Bilan cherche(const QString& texte, const QByteArray& lettres = touteslettres(), qint64 limite = sanslimite) {
        return bilan([&](Marche& marche, Resultat& resultat) {
            RechercheRapide(corpus, marche).cherche({texte, lettres, limite}, resultat);
        });
    }
    void petite() {
        documents = {{u"CO000001"_s, u"Garantie légale"_s, {u"vente"_s, u"défaut"_s, u"recours"_s}, 1},
                     {u"CO000002"_s, u"Crédit"_s, {u"prêt"_s}, 2},
                     {u"CO000003"_s, QString(), {}, 0},
                     {u"EU000001"_s, u"Directive garantie"_s, {}, 9},
                     {u"DI000001"_s, u"Divers * étoile"_s, {}, 2}};
        noeuds = {{1, u"Partie générale"_s}, {2, u"Crédit à la consommation"_s}};
        ouvre();
    }
};

} // namespace

TEST_F(RechercheRapideTest, BeyondTheLimitDocumentsAreCountedWhereThatIsWanted) {
    petite();
    const auto compte = [this](qint64 limite, bool voulu) {
        Marche marche;
        Resultat resultat;
        RechercheRapide(corpus, marche).cherche({u"garantie"_s, touteslettres(), limite, voulu}, resultat);
        EXPECT_EQ(resultat.compte, resultat.lignes.nombre()) << "of the rows";
        return std::tuple(resultat.lignes.nombre(), resultat.limitee, resultat.total);
    };
    EXPECT_EQ(compte(1, true), std::tuple(1, true, std::optional<qint64>(2)));
    EXPECT_EQ(compte(1, false), std::tuple(1, true, std::optional<qint64>()));
    EXPECT_EQ(compte(2, true), std::tuple(2, false, std::optional<qint64>(2))) << "there are no more";
    EXPECT_EQ(compte(3, true), std::tuple(2, false, std::optional<qint64>()));
}

TEST_F(RechercheRapideTest, ATextIsFoundInTitleKeywordsAndNodeLabel) {
    petite();
    cherche(u"légale"_s);
    EXPECT_EQ(cles(), QStringList(u"CO000001"_s));
    for (const QString& motcle : {u"vent"_s, u"défaut"_s, u"recours"_s}) {
        cherche(motcle);
        EXPECT_EQ(cles(), QStringList(u"CO000001"_s));
    }
    cherche(u"à la conso"_s);
    EXPECT_EQ(cles(), QStringList({u"CO000002"_s, u"DI000001"_s}));
    EXPECT_EQ(liste.texte(1, 0), u"Crédit");
    EXPECT_EQ(liste.texte(1, 1), u"prêt");
    EXPECT_EQ(liste.texte(1, 6), u"CO000002");
    cherche(u"générale"_s);
    EXPECT_EQ(cles(), QStringList(u"CO000001"_s));
}

TEST_F(RechercheRapideTest, HitsComeInTheOrderOfTheTypesThenOfTheNumbers) {
    petite();
    cherche(u"GARANTIE"_s);
    EXPECT_EQ(cles(), QStringList({u"CO000001"_s, u"EU000001"_s}));
    EXPECT_EQ(panneau.last(), u" 2 documents");
    cherche(u"garantie"_s, "B");
    EXPECT_EQ(cles(), QStringList(u"EU000001"_s));
    EXPECT_EQ(panneau.last(), u" 1 document");
}

TEST_F(RechercheRapideTest, AccentsMatterCaseDoesNot) {
    petite();
    EXPECT_EQ(cherche(u"CRÉDIT"_s).hits, 2);
    EXPECT_EQ(cherche(u"crédit"_s).hits, 2);
    EXPECT_EQ(cherche(u"credit"_s).hits, 0);
}

TEST_F(RechercheRapideTest, AStarIsAnOrdinaryCharacterAndSeveralWordsAreOneText) {
    petite();
    EXPECT_EQ(cherche(u"*"_s).hits, 1);
    EXPECT_EQ(cherche(u"garan*"_s).hits, 0);
    EXPECT_EQ(cherche(u"garantie légale"_s).hits, 1);
    EXPECT_EQ(cherche(u"légale garantie"_s).hits, 0);
}

TEST_F(RechercheRapideTest, AnEmptyTextListsUpToTheLimitInTheMiddleOfAType) {
    petite();
    EXPECT_EQ(cherche(QString()).hits, 5);
    const Bilan deux = cherche(QString(), touteslettres(), 2);
    EXPECT_EQ(deux.hits, 2);
    EXPECT_EQ(cles(), QStringList({u"CO000001"_s, u"CO000002"_s}));
    EXPECT_FALSE(deux.arretee);
}

TEST_F(RechercheRapideTest, NoTypePressedListsNothingAndSetsNoWord) {
    petite();
    liste.resultat().mot1 = u"avant"_s;
    EXPECT_EQ(cherche(QString(), {}).hits, 0);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_EQ(cherche(QString(), "C").hits, 0);
    EXPECT_EQ(liste.resultat().mot1, u"avant");
    EXPECT_TRUE(progres.empty());
}

TEST_F(RechercheRapideTest, APressedTypeWithoutDocumentsAddsNothing) {
    petite();
    EXPECT_EQ(cherche(QString(), "BC").hits, 1);
    EXPECT_EQ(cles(), QStringList(u"EU000001"_s));
}

TEST_F(RechercheRapideTest, TheFirstWordToMarkIsTheTextTheSecondIsEmpty) {
    petite();
    liste.resultat().mot2 = u"avant"_s;
    cherche(u"un^tdeux"_s);
    EXPECT_EQ(liste.resultat().mot1, u"un\tdeux");
    EXPECT_TRUE(liste.resultat().mot2.isEmpty());
}

TEST_F(RechercheRapideTest, CodesOfTheTextAreReplacedEverywhere) {
    EXPECT_EQ(remplacecodes(u"a^pb^tc^p"_s), u"a\r\nb\tc\r\n");
    EXPECT_EQ(remplacecodes(u"^^p^P"_s), u"^\r\n^P");
    documents = {{u"CO000001"_s, u"une\r\nsuite"_s}, {u"CO000002"_s, u"une\tsuite"_s}};
    ouvre();
    cherche(u"une^psuite"_s);
    EXPECT_EQ(cles(), QStringList(u"CO000001"_s));
    cherche(u"une^tsuite"_s);
    EXPECT_EQ(cles(), QStringList(u"CO000002"_s));
}

TEST_F(RechercheRapideTest, TheNodeIsReadOnlyWhenTheShortFieldsFail) {
    petite();
    corpus.arborescences().setIndex(u"enfants"_s);
    corpus.arborescences().moveLast();
    const Bookmark avant = corpus.arborescences().bookmark();
    corpus.arborescences().setIndex(u"primarykey"_s);
    corpus.arborescences().setBookmark(avant);
    cherche(QString());
    EXPECT_EQ(corpus.arborescences().bookmark(), avant);
    cherche(u"générale"_s);
    EXPECT_NE(corpus.arborescences().bookmark(), avant);
}

TEST_F(RechercheRapideTest, ANodeThatIsNotThereIsNoHit) {
    documents = {{u"CO000001"_s, u"a"_s, {}, 77}};
    ouvre();
    EXPECT_EQ(cherche(u"z"_s).hits, 0);
}

TEST_F(RechercheRapideTest, ATextAsLongAsABoxTakesIsSearched) {
    const QString longue = u"été "_s.repeated(8191) + u"fin"_s;
    documents = {{u"CO000001"_s, longue}, {u"CO000002"_s, longue.chopped(1)}};
    ouvre();
    cherche(upperCase(longue));
    EXPECT_EQ(cles(), QStringList(u"CO000001"_s));
}

TEST_F(RechercheRapideTest, AStopKeepsTheRowsFound) {
    ajoutedocuments(20);
    ouvre();
    evenement = [&] { arretesi(liste.rows() >= 8); };
    const Bilan resultat = cherche(u"titre"_s);
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(liste.rows(), 8);
}

TEST_F(RechercheRapideTest, EventsMayMoveTheTablesAndCloseTheBase) {
    ajoutedocuments(20);
    ouvre();
    evenement = [&] {
        corpus.donnees().setIndex(u"idate"_s);
        corpus.donnees().moveLast();
        corpus.arborescences().setIndex(u"enfants"_s);
        corpus.base().releaseLocks();
    };
    EXPECT_EQ(cherche(u"titre"_s).hits, 20);
    evenement = [&] {
        if (liste.rows() == 5) {
            corpus.fermebase();
            arretesi(true);
        }
    };
    EXPECT_TRUE(cherche(u"titre"_s).arretee);
    EXPECT_EQ(liste.rows(), 5);
}

TEST_F(RechercheRapideTest, ProgressNeverPassesItsMaximum) {
    ajoutedocuments(20);
    ouvre();
    {
        // The stored counts may lag behind the table.
        const auto base = Database::open(corpus.chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        corpus.base().releaseLocks();
        ASSERT_TRUE(base.database->execute(u"UPDATE paramètres SET nbarticles='000005'"_s));
    }
    EXPECT_EQ(cherche(u"titre"_s).vus, 20);
    ASSERT_FALSE(progres.empty());
    for (const auto& [vus, total] : progres) {
        EXPECT_LE(vus, total);
        EXPECT_EQ(total, 5);
    }
}

TEST_F(RechercheRapideTest, AFullListEndsTheWalk) {
    ajoutedocuments(20);
    ouvre();
    liste.resultat().lignes.limite(3);
    const Bilan resultat = cherche(u"titre"_s);
    EXPECT_EQ(resultat.hits, 3);
    EXPECT_EQ(panneau.last(), u" 3 documents");
}

TEST_F(RechercheRapideTest, ASearchThatEndsAtItsLimitSaysSo) {
    ajoutedocuments(12);
    ouvre();
    cherche(u"titre"_s, touteslettres(), 10);
    EXPECT_TRUE(liste.resultat().limitee);
    EXPECT_FALSE(liste.resultat().total) << "it has seen no more";
    cherche(u"titre"_s, touteslettres(), 13);
    EXPECT_FALSE(liste.resultat().limitee);
}

TEST_F(RechercheRapideTest, ABaseWithoutTheTableIsARunTimeError) {
    petite();
    ASSERT_TRUE(corpus.base().execute(u"DROP TABLE arborescences"_s));
    corpus.ouvretables();
    const GardeArret garde;
    EXPECT_THROW(cherche(u"x"_s), Arret);
}

TEST(TexteEnMajusculesTest, SearchingInPlaceEqualsSearchingTheUpperCasedText) {
    std::mt19937 moteur(13);
    const QString alphabet = u"aAbBéÉßŒœÿµƒŉ€ǆıſﬀ\u0000\uFFFFК"_s + QString::fromUcs4(U"\U00010428\U0001F600");
    const auto hasard = [&](int plusgrande) {
        QString texte;
        const int taille = std::uniform_int_distribution<int>(0, plusgrande)(moteur);
        for (int i = 0; i < taille; ++i)
            texte += alphabet[std::uniform_int_distribution<qsizetype>(0, alphabet.size() - 1)(moteur)];
        return texte;
    };
    for (int ronde = 0; ronde < test::rounds(20'000); ++ronde) {
        const QString cherche = hasard(3);
        TexteEnMajuscules texte(cherche);
        // Surrogates that stand alone become something else on the way: the base holds what comes of them.
        QByteArray utf8 = hasard(30).toUtf8();
        if (ronde % 5 == 0 && !utf8.isEmpty())
            utf8[ronde % utf8.size()] = static_cast<char>(ronde);
        ASSERT_EQ(texte.estdans(QByteArrayView(utf8)), upperCase(QString::fromUtf8(utf8)).contains(upperCase(cherche)))
            << ronde;
    }
}
