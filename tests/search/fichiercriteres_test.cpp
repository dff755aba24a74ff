#include "fichiercriteres_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(FichierCriteresTest, SavingAndReadingBackRestoresEveryControl) {
    EXPECT_EQ(relu(octets(formulaire())), formulaire());
    EtatFormulaire vide;
    vide.criteres.emplacement = {};
    EXPECT_EQ(relu(octets(vide)), vide);
}

TEST_F(FichierCriteresTest, TheLinesStandInTheirOrder) {
    remplit(1);
    const QByteArray attendu = "VELMORante 2000 - CV2\r\n1\r\nvente consommateur\r\n0\r\n2\r\nrapide\r\n1\r\nvente\r\n"
                               "0\r\n1\r\n1\r\nd\xE9"
                               "faut \xAB cach\xE9 \xBB\r\n1\r\n0\r\net non\r\ngarantie\r\n0\r\n1\r\n"
                               "D\xE9"
                               "cret\r\n1\r\n2\r\n2003\r\nX  X  X  X \r\n2\r\n0\r\n1\r\n2\r\n3\r\n5\r\n4\r\n"
                               "Titre 1\r\nun\r\ndeux\r\n\r\nEU\r\n000001\r\nEU000001\r\n";
    QByteArray obtenu = octets(formulaire());
    EXPECT_EQ(lignes(obtenu).size(), 30 + 7);
    // Columns 4 and 5 as the list has them.
    const QList<QByteArray> toutes = lignes(obtenu);
    for (int colonne = 0; colonne < 6; ++colonne)
        EXPECT_EQ(toutes.at(24 + colonne).toInt(), liste.colonnes().champ(colonne));
    EXPECT_EQ(obtenu, attendu);
}

TEST_F(FichierCriteresTest, TheTypeButtonsAreSavedAsXAndBlank) {
    EtatFormulaire forme;
    forme.boutons[1] = true;
    forme.boutons[10] = true;
    EXPECT_EQ(lignes(octets(forme)).at(22), " X        X");
    QList<QByteArray> toutes = lignes(octets(forme));
    toutes[22] = "X";
    EXPECT_EQ(relu(joint(toutes)).boutons, (std::array<bool, 11>{true}));
    toutes[22] = "xyzXXXXXXXXXXXXXXXXXX";
    EXPECT_EQ(relu(joint(toutes)).boutons,
              (std::array<bool, 11>{false, false, false, true, true, true, true, true, true, true, true}));
}

TEST_F(FichierCriteresTest, RowsComeBackAsTheyWere) {
    remplit(40);
    const QStringList avant = rangees();
    const auto fichier = litfichiercriteres(octets(formulaire()));
    ASSERT_TRUE(fichier);
    liste.vide();
    remplit(3);
    rendlignes(*fichier, liste.resultat().lignes);
    EXPECT_EQ(rangees(), avant);
}

TEST_F(FichierCriteresTest, RowsOfAMovedGridLandUnderTheirHeaders) {
    remplit(5);
    const QStringList avant = rangees();
    std::mt19937 moteur(5);
    std::uniform_int_distribution<int> colonne(0, 5);
    for (int ronde = 0; ronde < 60; ++ronde) {
        const auto fichier = litfichiercriteres(octets(formulaire()));
        ASSERT_TRUE(fichier);
        liste.colonnes().deplace(colonne(moteur), colonne(moteur));
        rendlignes(*fichier, liste.resultat().lignes);
        ASSERT_EQ(rangees(), avant) << ronde;
    }
}

TEST_F(FichierCriteresTest, ACountOfOneRestoresTheCriteriaAndLeavesTheListEmpty) {
    const QByteArray sansrangee = octets(formulaire());
    EXPECT_EQ(lignes(sansrangee).at(23), "1");
    EXPECT_EQ(lignes(sansrangee).size(), 30);
    remplit(2);
    const auto fichier = litfichiercriteres(sansrangee);
    ASSERT_TRUE(fichier);
    rendlignes(*fichier, liste.resultat().lignes);
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(etatde(*fichier, items, 0), formulaire());
}

TEST_F(FichierCriteresTest, NegationIsNotSaved) {
    EtatFormulaire nie = formulaire();
    nie.criteres.prefixe = 1;
    EXPECT_EQ(octets(nie), octets(formulaire()));
    EXPECT_EQ(relu(octets(nie), 0).criteres.prefixe, 0);
    EXPECT_EQ(relu(octets(nie), 1).criteres.prefixe, 1);
}

TEST_F(FichierCriteresTest, CodesStayInTheBoxAndAreReplacedInTheWord) {
    EtatFormulaire forme;
    forme.criteres.texterech = {u"a^pb"_s, u"c^td"_s};
    const auto fichier = litfichiercriteres(octets(forme));
    ASSERT_TRUE(fichier);
    EXPECT_EQ(etatde(*fichier, items, 0).criteres.texterech, forme.criteres.texterech);
    rendmots(*fichier, liste.resultat());
    EXPECT_EQ(liste.resultat().mot1, u"a\r\nb");
    EXPECT_EQ(liste.resultat().mot2, u"c\td");
}

TEST_F(FichierCriteresTest, TheCriteriaTextBeatsTheQuickTextAsFirstWord) {
    FichierCriteres fichier;
    liste.resultat().mot1 = u"avant"_s;
    liste.resultat().mot2 = u"avant"_s;
    rendmots(fichier, liste.resultat());
    EXPECT_EQ(liste.resultat().mot1, u"avant");
    EXPECT_TRUE(liste.resultat().mot2.isEmpty()) << "the second word is set even when empty";
    fichier.texterapide = u"ra^tpide"_s;
    rendmots(fichier, liste.resultat());
    EXPECT_EQ(liste.resultat().mot1, u"ra\tpide");
    fichier.criteres.texterech[0] = u"critère"_s;
    rendmots(fichier, liste.resultat());
    EXPECT_EQ(liste.resultat().mot1, u"critère");
}

TEST_F(FichierCriteresTest, TheKeywordListIsFilledOnce) {
    documents = {{u"CO000001"_s, u"a"_s}};
    ouvre();
    const auto ajoute = [&](const QString& motcle) {
        TableWriter table(corpus.base(), u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
        ASSERT_TRUE(table.add({motcle, 1}));
    };
    corpus.base().releaseLocks();
    ajoute(u"vente"_s);
    ajoute(u"crédit"_s);
    corpus.ouvretables();
    ListeMotsCles motscles(u"(Tous)"_s);
    FichierCriteres fichier;
    fichier.combomotcle = u"(Tous)"_s;
    EXPECT_FALSE(motscles.manque(fichier));
    fichier.combomotcle = u"vente"_s;
    EXPECT_TRUE(motscles.manque(fichier));
    EXPECT_EQ(motscles.items().size(), 1);
    motscles.lirelesmotscles(corpus);
    EXPECT_FALSE(motscles.manque(fichier));
    const QStringList lus = motscles.items();
    EXPECT_EQ(lus, QStringList({u"(Tous)"_s, u"crédit"_s, u"vente"_s})); // in the order of the key
    ajoute(u"bail"_s);
    motscles.lirelesmotscles(corpus);
    EXPECT_EQ(motscles.items(), lus);
}

TEST_F(FichierCriteresTest, AnEmptyKeywordTableLeavesTheFirstItem) {
    documents = {{u"CO000001"_s, u"a"_s}};
    ouvre();
    ListeMotsCles motscles(u"(Tous)"_s);
    motscles.lirelesmotscles(corpus);
    EXPECT_EQ(motscles.items(), QStringList(u"(Tous)"_s));
}

TEST(MotsDeLaRecherche, AreThoseOfTheTabOnTopElseOfTheFirstThatHasAny) {
    FichierCriteres f;
    EXPECT_EQ(motsdelarecherche(f), QString());
    f.Textedico = u" vente  immeuble "_s;
    EXPECT_EQ(motsdelarecherche(f), u"vente immeuble");
    f.criteres.texterech = {u"vice"_s, u"caché"_s};
    EXPECT_EQ(motsdelarecherche(f), u"vice caché");
    f.texterapide = u"garantie"_s;
    EXPECT_EQ(motsdelarecherche(f), u"garantie");
    f.ongletrecherche = 1;
    EXPECT_EQ(motsdelarecherche(f), u"vice caché");
    f.ongletrecherche = 2;
    EXPECT_EQ(motsdelarecherche(f), u"vente immeuble");
    for (const int aucun : {-1, 3}) {
        f.ongletrecherche = aucun;
        EXPECT_EQ(motsdelarecherche(f), u"garantie");
    }
}
