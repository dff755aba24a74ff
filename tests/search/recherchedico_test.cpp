// The line of words: what is accepted, refused and told of each.
#include "core/parametres.h"
#include "platform/text/letters.h"
#include "search/recherchedico.h"
#include "tests/search/recherche_support.h"

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

class RechercheDicoTest : public BaseRecherche {
protected:
    Bilan cherche(const QString& ligne, const QByteArray& lettres = touteslettres(), bool tous = true,
                  qint64 limite = limitedindex(0)) {
        return lance({ligne, lettres, tous, limite});
    }
    Bilan lance(const DemandeDico& demande) {
        lignes.clear();
        return bilan([&](Marche& marche, Resultat& resultat) {
            RechercheDico recherche(corpus, marche,
                                    {[this](const QString& texte) { lignes << texte; }, textes(Texte{7300})},
                                    [this] { return std::uniform_real_distribution<double>(0, 1)(hasard); });
            recherche.cherche(demande, resultat);
        });
    }

    QStringList lignes;
    std::mt19937 hasard{5};
};

} // namespace

TEST_F(RechercheDicoTest, WordsAreSplitAtEverySeparator) {
    const QString separateurs = separateursmots();
    for (const QChar c : separateurs)
        EXPECT_EQ(decoupemots(u"un"_s + c + u"deux"_s, separateurs), QStringList({u"un"_s, u"deux"_s}));
    EXPECT_EQ(decoupemots(u"un*deux~trois", separateurs), QStringList(u"un*deux~trois"_s));
    EXPECT_EQ(decoupemots(u"un deux ", separateurs), QStringList({u"un"_s, u"deux"_s}));
    EXPECT_EQ(decoupemots(u" un", separateurs), QStringList({QString(u""_s), u"un"_s}));
    EXPECT_TRUE(decoupemots(u"", separateurs).isEmpty());
}

TEST_F(RechercheDicoTest, TwoSeparatorsGiveAnEmptyWordThatIsRefused) {
    ouvre();
    cherche(u"zut  zut"_s);
    EXPECT_EQ(lignes, QStringList({u"zut : inconnu"_s, u" : inconnu"_s, u"zut : inconnu"_s}));
}

TEST_F(RechercheDicoTest, ShortWordsNumbersAndWordsEndingInADigitAreRefused) {
    mots = {{u"A"_s, entree('A', 1)}, {u"1998"_s, entree('A', 1)}, {u"MP3"_s, entree('A', 1)}};
    ouvre();
    cherche(u"a 1998 mp3 L122-3 12bis *"_s);
    EXPECT_EQ(lignes, QStringList({u"a : inconnu"_s, u"1998 : inconnu"_s, u"mp3 : inconnu"_s, u"L122 : inconnu"_s,
                                   u"3 : inconnu"_s, u"12bis : inconnu"_s, u"* : inconnu"_s}));
    EXPECT_EQ(liste.rows(), 1);
}

TEST_F(RechercheDicoTest, AWordInLowerCaseAndInCapitalsGivesTheSame) {
    ajoutedocuments(3);
    mots = {{u"GARANTIE"_s, entrees(1, 2)}};
    ouvre();
    for (const QString& mot : {u"garantie"_s, u"GARANTIE"_s, u"Garantie"_s}) {
        cherche(mot);
        EXPECT_EQ(lignes, QStringList(mot + u" : 2"_s));
        EXPECT_EQ(cles(), QStringList({u"CO000001"_s, u"CO000002"_s}));
        EXPECT_EQ(liste.resultat().mot1, u"GARANTIE");
    }
}

TEST_F(RechercheDicoTest, AnExactWordIsLookedUpWithItsAccents) {
    ajoutedocuments(2);
    mots = {{u"MARCHE"_s, entree('A', 1)}, {u"MARCHÉ"_s, entree('A', 2)}};
    ouvre();
    cherche(u"marché"_s);
    EXPECT_EQ(cles(), QStringList(u"CO000002"_s));
    cherche(u"màrche"_s);
    EXPECT_EQ(lignes, QStringList(u"màrche : inconnu"_s));
}

TEST_F(RechercheDicoTest, AWildcardFoldsAccents) {
    ajoutedocuments(4);
    mots = {{u"MARCHE"_s, entree('A', 1)},
            {u"MARCHÉ"_s, entree('A', 2)},
            {u"MARCHÉS"_s, entree('A', 3)},
            {u"MARDI"_s, entree('A', 4)}};
    ouvre();
    cherche(u"marche*"_s);
    EXPECT_EQ(lignes, QStringList({u"marche : 1"_s, u"marché : 1"_s, u"marchés : 1"_s}));
    EXPECT_EQ(liste.rows(), 4);
    // The walk still begins at the text with its accents.
    cherche(u"marché*"_s);
    EXPECT_EQ(lignes, QStringList({u"marché : 1"_s, u"marchés : 1"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"marché");
}

TEST_F(RechercheDicoTest, CharactersOutsideTheTableStay) {
    EXPECT_EQ(normalisemot(u"éÈàçñôûîöüÖÜÿæœz"), u"EEACNOUIöüÖÜÿæœZ");
    mots = {{u"ŒUVRE"_s, entree('A', 1)}};
    ouvre();
    cherche(u"œuvr*"_s);
    EXPECT_EQ(lignes, QStringList(u"œuvr* : inconnu"_s));
}

TEST_F(RechercheDicoTest, AnUnknownWordAndAWildcardWithoutAMatchAreRefused) {
    mots = {{u"BROCANTE"_s, entree('A', 1)}};
    ouvre();
    cherche(u"zut bru* zz* bro**"_s);
    EXPECT_EQ(lignes, QStringList({u"zut : inconnu"_s, u"bru* : inconnu"_s, u"zz* : inconnu"_s, u"bro** : inconnu"_s}));
}

TEST_F(RechercheDicoTest, AWordWithAnEmptyListShowsZeroAndEntersNoWord) {
    ajoutedocuments(1);
    mots = {{u"VIDE"_s, QByteArray()}, {u"VIDEO"_s, entree('A', 1)}};
    ouvre();
    cherche(u"vide video"_s);
    EXPECT_EQ(lignes, QStringList({u"vide : 0"_s, u"video : 1"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"VIDEO");
    EXPECT_TRUE(liste.resultat().mot2.isEmpty());
    // A wildcard passes such a word over without a line.
    cherche(u"vid*"_s);
    EXPECT_EQ(lignes, QStringList(u"video : 1"_s));
}

TEST_F(RechercheDicoTest, WhatWasFoundBeyondTheLimitIsKnown) {
    ajoutedocuments(60);
    mots = {{u"BRO"_s, entrees(1, 60) + entree('B', 1)}, {u"BROC"_s, entrees(1, 50)}};
    ouvre();
    cherche(u"bro"_s, "A");
    EXPECT_TRUE(liste.resultat().limitee);
    EXPECT_EQ(liste.resultat().total, 60);
    EXPECT_EQ(liste.resultat().partout, 61) << "in all collections";
    cherche(u"broc"_s, "A");
    EXPECT_FALSE(liste.resultat().limitee) << "as many as were wanted, and no more";
    EXPECT_FALSE(liste.resultat().total);
    cherche(u"bro broc"_s, "A");
    EXPECT_FALSE(liste.resultat().partout) << "of several words";
    cherche(u"bro*"_s, "A");
    EXPECT_TRUE(liste.resultat().limitee);
    EXPECT_FALSE(liste.resultat().partout) << "of several words as well";
    cherche(u"zut"_s, "A", true, 60);
    EXPECT_FALSE(liste.resultat().limitee);
}

TEST_F(RechercheDicoTest, AFilteredWordShowsBothCounts) {
    documents = {{u"CO000001"_s, u"a"_s}, {u"EU000001"_s, u"b"_s}, {u"EU000002"_s, u"c"_s}};
    mots = {{u"BRO"_s, entree('A', 1) + entree('B', 1) + entree('B', 2)}, {u"BROC"_s, entree('A', 1)}};
    ouvre();
    cherche(u"bro"_s, "B");
    EXPECT_EQ(lignes, QStringList(u"bro : 3 ( 2 )"_s));
    EXPECT_EQ(cles(), QStringList({u"EU000001"_s, u"EU000002"_s}));
    cherche(u"br*"_s, "B");
    EXPECT_EQ(lignes, QStringList({u"bro : 3 ( 2 )"_s, u"broc : 1 ( 0 )"_s}));
    cherche(u"br*"_s);
    EXPECT_EQ(lignes, QStringList({u"bro : 3"_s, u"broc : 1"_s}));
}

TEST_F(RechercheDicoTest, AWildcardJoinsTheListsOfAllItsWords) {
    ajoutedocuments(9);
    mots = {{u"BROCANTE"_s, entrees(1, 2)}, {u"BROCHE"_s, entrees(2, 5)}, {u"BRUIT"_s, entrees(6, 9)}};
    ouvre();
    cherche(u"bro*"_s);
    EXPECT_EQ(cles(), QStringList({u"CO000002"_s, u"CO000003"_s, u"CO000004"_s, u"CO000005"_s, u"CO000001"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"bro");
}

TEST_F(RechercheDicoTest, AllWordsOrAnyWord) {
    ajoutedocuments(9);
    mots = {{u"UN"_s, entrees(1, 4)}, {u"DEUX"_s, entrees(3, 8)}};
    ouvre();
    EXPECT_EQ(cherche(u"un deux"_s).hits, 2);
    EXPECT_EQ(cles(), QStringList({u"CO000003"_s, u"CO000004"_s}));
    EXPECT_EQ(cherche(u"un deux"_s, touteslettres(), false).hits, 8);
    EXPECT_EQ(cles().first(), u"CO000003");
    EXPECT_EQ(cles().last(), u"CO000002");
}

TEST_F(RechercheDicoTest, AListEmptiedByTheFilterStaysInTheTable) {
    documents = {{u"CO000001"_s, u"a"_s}, {u"EU000001"_s, u"b"_s}};
    mots = {{u"UN"_s, entree('A', 1)}, {u"DEUX"_s, entree('B', 1)}};
    ouvre();
    EXPECT_EQ(cherche(u"un deux"_s, "B").hits, 0);
    EXPECT_EQ(lignes, QStringList({u"un : 1 ( 0 )"_s, u"deux : 1 ( 1 )"_s}));
    EXPECT_EQ(liste.resultat().mot1, u"UN");
    EXPECT_EQ(liste.resultat().mot2, u"DEUX");
    EXPECT_EQ(cherche(u"un deux"_s, "B", false).hits, 1);
    EXPECT_EQ(cles(), QStringList(u"EU000001"_s));
}

TEST_F(RechercheDicoTest, NoTypePressedGivesNoDocument) {
    ajoutedocuments(1);
    mots = {{u"UN"_s, entree('A', 1)}};
    ouvre();
    EXPECT_EQ(cherche(u"un un"_s, {}, false).hits, 0);
    EXPECT_EQ(lignes.first(), u"un : 1 ( 0 )");
}

TEST_F(RechercheDicoTest, TheTwoRarestWordsAreMarkedWithoutTheirStar) {
    ajoutedocuments(9);
    mots = {{u"UN"_s, entrees(1, 4)}, {u"DEUX"_s, entrees(3, 8)}, {u"TROIS"_s, entrees(2, 4)}};
    ouvre();
    cherche(u"deux Un* trois"_s);
    EXPECT_EQ(liste.resultat().mot1, u"TROIS");
    EXPECT_EQ(liste.resultat().mot2, u"Un");
    cherche(u"deux"_s);
    EXPECT_EQ(liste.resultat().mot1, u"DEUX");
    EXPECT_TRUE(liste.resultat().mot2.isEmpty());
    // Without any word those of the search before stay.
    cherche(u"rien"_s);
    EXPECT_EQ(liste.resultat().mot1, u"DEUX");
}

TEST_F(RechercheDicoTest, TwentyWordsAreAcceptedTheTwentyFirstIsFatal) {
    ajoutedocuments(1);
    mots = {{u"UN"_s, entree('A', 1)}};
    ouvre();
    const QString vingt = u"un "_s.repeated(20);
    EXPECT_EQ(cherche(vingt).hits, 1);
    EXPECT_EQ(cherche(u"rien "_s.repeated(10'000) + vingt).hits, 1);
    EXPECT_EQ(lignes.size(), 10'020);
    const GardeArret garde;
    try {
        cherche(vingt + u"un"_s);
        FAIL() << "the program goes on";
    } catch (const Arret& fin) {
        EXPECT_STREQ(fin.what(), "21 20");
    }
    EXPECT_THROW(cherche(u"un "_s.repeated(10'000)), Arret);
}

TEST_F(RechercheDicoTest, VeryLongLinesAndWordsAreLookedUpLikeOthers) {
    ajoutedocuments(1);
    mots = {{u"UN"_s, entree('A', 1)}};
    ouvre();
    const QString longue = u"x"_s.repeated(32'767);
    cherche(longue);
    EXPECT_EQ(lignes, QStringList(longue + u" : inconnu"_s));
    cherche(u"é"_s.repeated(32'766) + u'*');
    EXPECT_EQ(lignes.size(), 1);
    cherche(u","_s.repeated(32'764) + u"un"_s);
    EXPECT_EQ(lignes.size(), 32'765);
    EXPECT_EQ(liste.rows(), 2);
}

TEST_F(RechercheDicoTest, AResultLineGivesItsWordBack) {
    EXPECT_EQ(motdelaligne(u"garantie : 12 ( 5 )"_s), u"garantie");
    EXPECT_EQ(motdelaligne(u"zut : inconnu"_s), u"zut");
    EXPECT_TRUE(motdelaligne(u"sans marque"_s).isEmpty());
    EXPECT_TRUE(motdelaligne(u" : inconnu"_s).isEmpty());
}
