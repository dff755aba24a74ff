// What a search by words shows: the rows, the question, the stop, the end.
#include "tests/search/controleliste_support.h"

using namespace velm;
using namespace velm::test;

namespace {

/// Through what fills the list, with its question, its status panel and its hourglass.
class AffichageDicoTest : public AvecControle {
protected:
    void ouvre() {
        AvecControle::ouvre();
        demarre();
    }
    Bilan lance(const DemandeDico& demande) {
        lignes.clear();
        panneau.etats.clear();
        const Resultat& resultat = remplissage().cherchemots(
            demande, [this](const QString& texte) { lignes << texte; }, nouvelarret());
        if (resultat.issue != Resultat::Issue::TexteCourt)
            remplissage().acheve();
        return {resultat.issue, resultat.vus, resultat.hits, resultat.arretee()};
    }
    Bilan cherche(const QString& texte, qint64 limite = limitedindex(0)) {
        return lance({texte, touteslettres(), true, limite});
    }
    ListeSelection& liste() const { return controle->liste(); }
    bool visible() const { return remplissage().visible(); }
    const QStringList& etats() const { return panneau.etats; }
    QStringList cles() const {
        QStringList toutes;
        for (int rang = 1; rang < liste().rows(); ++rang)
            toutes << liste().cle(rang);
        return toutes;
    }
    QStringList lignes;
};

} // namespace

TEST_F(AffichageDicoTest, APostingDecodesToItsCodeAndSixDigits) {
    EXPECT_EQ(decodeentree(entree('A', 7)).texte(), u"CO000007");
    EXPECT_EQ(decodeentree(entree('K', 0x010203)).texte(), u"DI066051");
    EXPECT_EQ(decodeentree(QByteArray("E\xFF\xFF\xFF")).texte(), u"JR777215");
    EXPECT_TRUE(decodeentree(entree('L', 7)).code.isEmpty());
    EXPECT_TRUE(decodeentree(entree('@', 7)).code.isEmpty());
    EXPECT_TRUE(decodeentree("A1").code.isEmpty());
}

TEST_F(AffichageDicoTest, LettersOfButtonsCodesAndWindows) {
    EXPECT_EQ(touteslettres(), "ABCDEFGHIJK");
    EXPECT_EQ(lettresdesboutons({false, true, false, true}), "BD");
    EXPECT_EQ(lettresdescodes(u"EUCO").value_or("?"), "AB");
    EXPECT_EQ(lettresdescodes(u"").value_or("?"), "");
    EXPECT_FALSE(lettresdescodes(u"COOE"));
    EXPECT_FALSE(lettresdescodes(u"COE"));
    EXPECT_EQ(lettredutype(u"DI"), "K");
    EXPECT_TRUE(lettredutype(u"IN").isEmpty());
}

TEST_F(AffichageDicoTest, APostingWithoutADocumentIsSkippedAndNotCounted) {
    ajoutedocuments(60);
    mots = {{u"UN"_s, entrees(100, 150) + entrees(1, 60)}};
    ouvre();
    EXPECT_EQ(cherche(u"un un"_s).hits, 50);
    EXPECT_EQ(cles().first(), u"CO000001");
    EXPECT_EQ(cles().last(), u"CO000050");
    EXPECT_EQ(etats().last(), u" 50 documents");
}

TEST_F(AffichageDicoTest, DamagedListsShowWhatTheyHold) {
    ajoutedocuments(3);
    mots = {{u"COURTE"_s, entrees(1, 2) + "A\x01"},
            {u"LETTRES"_s, entree('Z', 1) + entree('\xFF', 2) + entree('A', 3) + entree('\0', 1)},
            {u"MINUSCULE"_s, "A"}};
    ouvre();
    EXPECT_EQ(cherche(u"courte"_s).hits, 2);
    EXPECT_EQ(cherche(u"lettres"_s).hits, 1);
    EXPECT_EQ(lignes, QStringList(u"lettres : 4"_s));
    EXPECT_EQ(cherche(u"minuscule"_s).hits, 0);
    EXPECT_EQ(cherche(u"courte lettres minuscule"_s).hits, 0);
    EXPECT_EQ(lance({u"courte lettres minuscule"_s, touteslettres(), false}).hits, 3);
    EXPECT_EQ(lance({u"courte minuscule"_s, "A", false}).hits, 2);
}

TEST_F(AffichageDicoTest, TwoHundredDocumentsAskNothingTwoHundredAndOneAsk) {
    ajoutedocuments(201);
    mots = {{u"DEUXCENTS"_s, entrees(1, 200)}, {u"DEUXCENTUN"_s, entrees(1, 201)}};
    ouvre();
    EXPECT_EQ(cherche(u"deuxcents"_s, sanslimite).hits, 200);
    EXPECT_TRUE(dialogues.messages.empty());
    dialogues.answers = {Bouton::Oui};
    EXPECT_EQ(cherche(u"deuxcentun"_s, sanslimite).hits, 200);
    ASSERT_EQ(dialogues.messages.size(), 1U);
    const Message& question = dialogues.messages.front();
    EXPECT_EQ(question.texte, u"La recherche a trouvé 201 documents. N’afficher que 200 ?");
    EXPECT_EQ(question.titre, u"Recherche par mots");
    EXPECT_EQ(question.boutons, Bouton::Oui | Bouton::Non | Bouton::Annuler | Bouton::Aide);
    EXPECT_EQ(question.contexteAide, 2);
}

TEST_F(AffichageDicoTest, NoShowsAllAndCancelShowsNothing) {
    ajoutedocuments(300);
    mots = {{u"TROISCENTS"_s, entrees(1, 300)}};
    ouvre();
    dialogues.answers = {Bouton::Non, Bouton::Annuler};
    EXPECT_EQ(cherche(u"troiscents"_s, sanslimite).hits, 300);
    liste().resultat().mot1.clear();
    const Bilan abandon = cherche(u"troiscents"_s, sanslimite);
    EXPECT_EQ(abandon.issue, Resultat::Issue::Abandonnee);
    EXPECT_EQ(liste().rows(), 1);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_EQ(liste().resultat().mot1, u"TROISCENTS");
    EXPECT_EQ(etats().last(), QString());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(AffichageDicoTest, ALimitAsksNothing) {
    ajoutedocuments(300);
    mots = {{u"TROISCENTS"_s, entrees(1, 300)}};
    ouvre();
    EXPECT_EQ(cherche(u"troiscents"_s, limitedindex(0)).hits, 50);
    EXPECT_EQ(cherche(u"troiscents"_s, limitedindex(1)).hits, 100);
    EXPECT_EQ(limitedindex(2), sanslimite);
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(AffichageDicoTest, ATextOfTwoCharactersMovesToTheCriteriaAndLeavesTheListGone) {
    ajoutedocuments(3);
    mots = {{u"UN"_s, entrees(1, 3)}};
    ouvre();
    cherche(u"un "_s);
    EXPECT_EQ(liste().rows(), 4);
    const Bilan resultat = cherche(u"un"_s);
    EXPECT_EQ(resultat.issue, Resultat::Issue::TexteCourt);
    EXPECT_EQ(liste().rows(), 1);
    EXPECT_FALSE(visible());
    EXPECT_EQ(panneau.publications, std::vector<bool>{true}) << "the buttons stay as they were";
    EXPECT_TRUE(lignes.isEmpty());
    EXPECT_EQ(etats().last(), QString());
}

TEST_F(AffichageDicoTest, TheListIsHiddenWhileItFills) {
    ajoutedocuments(3);
    mots = {{u"UNE"_s, entrees(1, 3)}};
    ouvre();
    int tours = 0;
    evenement = [&] {
        ++tours;
        EXPECT_FALSE(visible());
        EXPECT_EQ(sablier.pointeur(), Sablier::attente);
    };
    cherche(u"une"_s);
    EXPECT_EQ(tours, 3);
    EXPECT_TRUE(visible());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(panneau.permis(Ordre::OuvrirCriteres));
    EXPECT_EQ(etats(), QStringList({QString(u""_s), u" 3 documents"_s}));
}

TEST_F(AffichageDicoTest, ASearchThatIsFatalLeavesNoWaitCursor) {
    for (char16_t lettre = u'A'; lettre <= u'Z'; ++lettre)
        mots.push_back({u"M"_s + QChar(lettre), entrees(1, 1)});
    ouvre();
    QString ligne;
    for (const auto& [mot, postes] : mots)
        ligne += mot + u' ';
    const GardeArret garde;
    EXPECT_THROW(cherche(ligne), Arret);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(AffichageDicoTest, NoRowDisablesTheListsButtons) {
    ouvre();
    cherche(u"rien"_s);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(panneau.permis(Ordre::OuvrirCriteres));
    EXPECT_TRUE(visible());
}

TEST_F(AffichageDicoTest, TheStopFlagEndsTheDisplayWithTheRowsSoFar) {
    ajoutedocuments(9);
    mots = {{u"UNE"_s, entrees(1, 9)}};
    ouvre();
    evenement = [&] { arretesi(liste().rows() >= 5); };
    const Bilan resultat = cherche(u"une"_s);
    EXPECT_EQ(resultat.issue, Resultat::Issue::Arretee);
    EXPECT_EQ(liste().rows(), 5);
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(visible());
    EXPECT_EQ(etats(), QStringList(QString(u""_s)));
}

TEST_F(AffichageDicoTest, TheStopFlagEndsTheWalkOfAWildcard) {
    ajoutedocuments(1);
    mots = {{u"BROC"_s, entree('A', 1)}, {u"BROCHE"_s, entree('A', 1)}, {u"BROSSE"_s, entree('A', 1)}};
    ouvre();
    liste().resultat().mot1 = u"avant"_s;
    evenement = [&] { arretesi(lignes.size() >= 2); };
    EXPECT_EQ(cherche(u"bro*"_s).issue, Resultat::Issue::Arretee);
    EXPECT_EQ(lignes.size(), 2);
    EXPECT_EQ(liste().rows(), 1);
    EXPECT_EQ(liste().resultat().mot1, u"avant");
}

TEST_F(AffichageDicoTest, EventsThatMoveTheTablesDoNotDisturbTheSearch) {
    ajoutedocuments(6);
    mots = {{u"BROC"_s, entree('A', 1)},
            {u"BROCHE"_s, entrees(2, 4)},
            {u"BROSSE"_s, entrees(4, 6)},
            {u"ZOO"_s, entree('A', 2)}};
    ouvre();
    evenement = [&] {
        corpus.dico().moveLast();
        corpus.donnees().setIndex(u"idate"_s);
        corpus.donnees().moveFirst();
    };
    EXPECT_EQ(cherche(u"bro*"_s).hits, 6);
    EXPECT_EQ(lignes, QStringList({u"broc : 1"_s, u"broche : 3"_s, u"brosse : 3"_s}));
}

TEST_F(AffichageDicoTest, ASearchThatBeginsMeanwhileWins) {
    ajoutedocuments(9);
    mots = {{u"UNE"_s, entrees(1, 5)}, {u"AUTRE"_s, entrees(6, 9)}};
    ouvre();
    bool lancee = false;
    Bilan autre;
    evenement = [&] {
        if (lancee || liste().rows() < 3)
            return;
        lancee = true;
        autre = cherche(u"autre"_s);
    };
    EXPECT_EQ(cherche(u"une"_s).issue, Resultat::Issue::Arretee);
    EXPECT_EQ(autre.hits, 4);
    EXPECT_EQ(cles(), QStringList({u"CO000006"_s, u"CO000007"_s, u"CO000008"_s, u"CO000009"_s}));
    EXPECT_EQ(liste().resultat().mot1, u"AUTRE");
    EXPECT_TRUE(visible());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(AffichageDicoTest, ABaseThatIsClosedMeanwhileIsNotTouchedAgain) {
    ajoutedocuments(5);
    mots = {{u"UNE"_s, entrees(1, 5)}};
    ouvre();
    evenement = [&] {
        if (liste().rows() == 3) {
            corpus.fermebase();
            arretesi(true);
        }
    };
    EXPECT_EQ(cherche(u"une"_s).issue, Resultat::Issue::Arretee);
    EXPECT_EQ(liste().rows(), 3);
}

TEST_F(AffichageDicoTest, AFullListEndsTheDisplayWithTheRowsSoFar) {
    ajoutedocuments(5);
    mots = {{u"UNE"_s, entrees(1, 5)}};
    ouvre();
    liste().resultat().lignes.limite(2);
    const Bilan resultat = cherche(u"une"_s);
    EXPECT_EQ(resultat.hits, 2);
    EXPECT_EQ(resultat.issue, Resultat::Issue::Terminee);
    EXPECT_EQ(etats().last(), u" 2 documents");
}

TEST_F(AffichageDicoTest, ADocumentWindowSearchesItsOwnCollectionForAllWords) {
    documents = {{u"CO000001"_s, u"a"_s}, {u"EU000001"_s, u"b"_s}, {u"EU000002"_s, u"c"_s}};
    mots = {{u"UN"_s, entree('A', 1) + entree('B', 1)}, {u"DEUX"_s, entree('B', 1) + entree('B', 2)}};
    ouvre();
    evenement = [] { ADD_FAILURE() << "events pass"; };
    DemandeDico demande = DemandeDico::defenetre(u"un deux"_s, u"EU");
    demande.tous = false;
    EXPECT_EQ(lance(demande).hits, 1);
    EXPECT_EQ(lignes, QStringList({u"un : 2 ( 1 )"_s, u"deux : 2 ( 2 )"_s}));
    EXPECT_EQ(cles(), QStringList(u"EU000001"_s));
    EXPECT_TRUE(visible());
    // A short line is searched.
    EXPECT_EQ(lance(DemandeDico::defenetre(u"a"_s, u"EU")).issue, Resultat::Issue::Terminee);
    EXPECT_EQ(lignes, QStringList(u"a : inconnu"_s));
    EXPECT_EQ(lance(DemandeDico::defenetre(u"un"_s, u"CO")).hits, 1);
}

TEST_F(AffichageDicoTest, ADocumentWindowAsksAboveTwoHundred) {
    ajoutedocuments(201);
    mots = {{u"TOUS"_s, entrees(1, 201)}};
    ouvre();
    dialogues.answers = {Bouton::Non};
    DemandeDico demande = DemandeDico::defenetre(u"tous"_s, u"CO");
    demande.limite = limitedindex(0);
    EXPECT_EQ(lance(demande).hits, 201);
}

TEST_F(AffichageDicoTest, ANewResultBearsNoSortMark) {
    ajoutedocuments(3);
    mots = {{u"UNE"_s, entrees(1, 3)}};
    ouvre();
    cherche(u"une"_s);
    liste().trie(0, false);
    EXPECT_EQ(liste().entetecellule(0), u"t300>");
    cherche(u"une"_s);
    EXPECT_EQ(liste().entetecellule(0), u"t300");
}
