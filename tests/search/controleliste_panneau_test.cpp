// What the panel of the selection list shows, and who else fills the list.
#include "search/fichiercriteres.h"
#include "search/selectionoutil.h"
#include "tests/search/controleliste_support.h"

#include <QFile>

using namespace velm;
using namespace velm::test;

namespace {

using PanneauListeTest = ControleListeTest;

/// More documents than are shown without a question.
class LonguePanneauTest : public AvecControle {
protected:
    void SetUp() override {
        AvecControle::SetUp();
        ajoutedocuments(230);
        mots = {{u"PRIX"_s, entrees(1, 230)}};
        ouvre();
        demarre();
    }
};

const QStringList cache{u"cache"_s, u"cache les critères"_s, u"dispositions"_s};

} // namespace

// ---- what is published

TEST_F(PanneauListeTest, TheEndOfASearchPublishesTheButtons) {
    const std::vector duresultat{Ordre::PrecedentRecherche, Ordre::SuivantRecherche, Ordre::SauverCriteres,
                                 Ordre::ImprimerCriteres, Ordre::EnvoyerCriteres};
    for (const bool present : {true, false}) {
        remplit(present ? QStringList{u"CO000001"_s} : QStringList());
        for (const Ordre ordre : duresultat)
            EXPECT_EQ(panneau.permis(ordre), present) << static_cast<int>(ordre);
        EXPECT_TRUE(panneau.permis(Ordre::OuvrirCriteres));
    }
    EXPECT_EQ(panneau.permis_.size(), 7) << "those, and the one that merges";
}

TEST_F(PanneauListeTest, TheButtonOfTheFormFollowsIt) {
    controle->formulairevisible(true);
    EXPECT_TRUE(panneau.enfonces.value(Ordre::AfficherCriteres));
    EXPECT_EQ(panneau.bulles.value(Ordre::AfficherCriteres), u"t2431");
    controle->formulairevisible(false);
    EXPECT_FALSE(panneau.enfonces.value(Ordre::AfficherCriteres));
    EXPECT_EQ(panneau.bulles.value(Ordre::AfficherCriteres), u"t2430");
}

TEST_F(PanneauListeTest, ThePanelBringsTheFormAsLongAsThereWasNoResult) {
    controle->affichemenuselection(true);
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"montre les critères"_s, u"dispositions"_s}));
    panneau.journal.clear();
    controle->affichemenuselection(false);
    EXPECT_EQ(panneau.journal, cache);
    EXPECT_EQ(etatdit(), QString());
    remplit({});
    panneau.journal.clear();
    controle->affichemenuselection(true);
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"dispositions"_s}));
}

TEST_F(PanneauListeTest, NothingOfTheListIsTouchedWhileItIsFilled) {
    remplit();
    grille.choisit(2, 2);
    grille.caches = 0;
    const auto rien = [] { ADD_FAILURE() << "the memory suffices"; };
    remplissage().remplit(
        [this](const std::stop_token&) {
            EXPECT_FALSE(grille.montree);
            controle->suivantrecherche();
            controle->precedentrecherche();
            controle->trie(0);
            controle->supprime();
            controle->imprime();
            controle->ouvre();
            EXPECT_EQ(grille.choisies, (std::pair{2, 2}));
            EXPECT_TRUE(panneau.ouverts.isEmpty());
            EXPECT_TRUE(dialogues.messages.empty());
            EXPECT_EQ(controle->liste().lignes(), 5);
            EXPECT_EQ(controle->liste().marque(0), ListeSelection::Marque::Aucune);
        },
        rien);
    EXPECT_EQ(grille.caches, 1);
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(grille.figee);
}

TEST_F(PanneauListeTest, AListThatComesWhileASearchRunsStopsItAndWaitsForItsEnd) {
    remplissage().remplit(
        [this](const std::stop_token& recherche) {
            EXPECT_FALSE(recherche.stop_requested());
            remplit({u"CO000001"_s});
            EXPECT_TRUE(recherche.stop_requested());
            EXPECT_EQ(controle->liste().lignes(), 0);
            EXPECT_FALSE(grille.montree);
            // The newest one wins.
            remplit({u"CO000003"_s, u"CO000002"_s});
        },
        [] { ADD_FAILURE() << "the memory suffices"; });
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"CO000003"_s, u"CO000002"_s}));
    EXPECT_EQ(grille.caches, 2);
    EXPECT_TRUE(grille.montree);
}

// ---- criteria files

TEST_F(PanneauListeTest, RowsOfACriteriaFileComeBackWithoutASearch) {
    remplit();
    controle->trie(0);
    panneau.etats.clear();
    FichierCriteres fichier;
    fichier.texterapide = u"rapide"_s;
    fichier.coldata = {0, 1, 2, 3, 5, 4};
    for (const QString& numero : {u"000003"_s, u"000001"_s})
        fichier.lignes.push_back({{u"Titre"_s, u"a"_s, u"b"_s, u"c"_s, u"CO"_s, numero}, u"CO"_s + numero});
    remplissage().restitue(fichier);
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"CO000003"_s, u"CO000001"_s}));
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(remplissage().visible());
    EXPECT_EQ(panneau.etats, QStringList{u" 2 documents"_s});
    EXPECT_EQ(controle->liste().marque(0), ListeSelection::Marque::Aucune);
    EXPECT_EQ(controle->liste().row(), 0);
    EXPECT_EQ(controle->liste().resultat().mot1, u"rapide");
    fichier.lignes.clear();
    remplissage().restitue(fichier);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_EQ(controle->liste().rows(), 1);
    EXPECT_TRUE(remplissage().visible());
    EXPECT_EQ(etatdit(), u" 0 document");
}

// ---- the word search of a document window

TEST_F(PanneauListeTest, ASearchOfAWindowTellsItsLinesAndShowsWhatItFound) {
    QStringList lignes;
    remplissage().cherchedans(u"CO"_s, u"prix deux"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
    EXPECT_EQ(lignes, (QStringList{u"prix : 5 ( 4 )"_s, u"deux : 3 ( 2 )"_s}));
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"CO000002"_s, u"CO000004"_s}));
    EXPECT_EQ(controle->liste().resultat().mot1, u"DEUX");
    EXPECT_EQ(controle->liste().resultat().mot2, u"PRIX");
    EXPECT_EQ(etatdit(), u" 2 documents");
    EXPECT_TRUE(grille.montree);
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"dispositions"_s}));
}

TEST_F(PanneauListeTest, ASearchOfAWindowWithoutAResultHidesTheListAndTheForm) {
    remplit();
    panneau.journal.clear();
    QStringList lignes;
    remplissage().cherchedans(u"CO"_s, u"ab introuvable"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
    EXPECT_EQ(controle->liste().lignes(), 0);
    EXPECT_FALSE(grille.montree);
    EXPECT_FALSE(remplissage().visible());
    EXPECT_EQ(panneau.journal, cache);
    EXPECT_EQ(lignes.size(), 2);
    EXPECT_EQ(etatdit(), u" 0 document") << "what was found stays said";
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    // A line of one letter is refused word by word, not sent elsewhere.
    remplissage().cherchedans(u"CO"_s, u"a"_s, {[&](const QString& ligne) { lignes << ligne; }, {}});
    EXPECT_EQ(lignes.size(), 3);
}

TEST_F(PanneauListeTest, ASearchOfAWindowThatTheMemoryDoesNotSufficeForShowsWhatThereIs) {
    remplit();
    remplissage().cherchedans(u"CO"_s, u"prix"_s, {[](const QString&) { throw std::bad_alloc(); }, {}});
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9567"_s});
    EXPECT_EQ(controle->liste().lignes(), 0);
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_FALSE(remplissage().encours());
}

TEST_F(PanneauListeTest, ASearchOfAWindowSaysInWordsWhatItFoundAndWhatNot) {
    std::vector<BilanRecherche> entendus;
    const RemplissageListe::EcouteFenetre ecoute{{}, [&](const BilanRecherche& bilan) { entendus.push_back(bilan); }};
    remplissage().cherchedans(u"CO"_s, u"prix"_s, ecoute);
    ASSERT_EQ(entendus.size(), 1U);
    EXPECT_EQ(entendus.back().phrase, u"t9730");
    EXPECT_EQ(bilandit(), u"t9730") << "over the rows as well";
    remplissage().cherchedans(u"CO"_s, u"zut"_s, ecoute);
    EXPECT_EQ(entendus.back().phrase, u"t9721");
    EXPECT_TRUE(entendus.back().rien);
    EXPECT_TRUE(panneau.bilans.back().rien);
}

TEST_F(LonguePanneauTest, WhatASearchOfAWindowHasCutCanBeSeenWhole) {
    dialogues.answers = {Bouton::Oui};
    std::vector<BilanRecherche> entendus;
    QStringList lignes;
    remplissage().cherchedans(u"CO"_s, u"prix"_s,
                              {[&](const QString& ligne) { lignes << ligne; },
                               [&](const BilanRecherche& bilan) { entendus.push_back(bilan); }});
    EXPECT_EQ(controle->liste().lignes(), 200);
    EXPECT_TRUE(entendus.back().coupe);
    EXPECT_TRUE(panneau.bilans.back().coupe);
    remplissage().toutafficher();
    EXPECT_EQ(controle->liste().lignes(), 230) << "without another question";
    EXPECT_FALSE(entendus.back().coupe);
    EXPECT_EQ(entendus.size(), 2U);
    EXPECT_EQ(lignes.size(), 1) << "its lines stand already";
    remplissage().toutafficher();
    EXPECT_EQ(entendus.size(), 2U) << "there is no more";
}

TEST_F(LonguePanneauTest, ASearchOfAWindowHearsUnderItsQuestionThatItIsToStop) {
    for (const Bouton reponse : {Bouton::Oui, Bouton::Non}) {
        dialogues.answers = {reponse};
        dialogues.meanwhile = [this] { remplissage().arrete(); };
        remplissage().cherchedans(u"CO"_s, u"prix"_s, {});
        EXPECT_EQ(controle->liste().resultat().issue, Resultat::Issue::Arretee);
        EXPECT_EQ(controle->liste().lignes(), 0);
    }
    dialogues.answers = {Bouton::Non};
    dialogues.meanwhile = [this] { remplissage().remplitdecles({u"CO000007"_s}); };
    remplissage().cherchedans(u"CO"_s, u"prix"_s, {});
    EXPECT_EQ(controle->liste().cle(1), u"CO000007") << "what was wanted meanwhile begins when it has left";
    EXPECT_EQ(controle->liste().lignes(), 1);
}

TEST_F(PanneauListeTest, ASearchOfAWindowThatIsStoppedLooksForNoFurtherWord) {
    QStringList lignes;
    remplissage().cherchedans(u"CO"_s, u"d* p*"_s,
                              {[&](const QString& ligne) {
                                   lignes << ligne;
                                   remplissage().arrete();
                               },
                               {}});
    EXPECT_EQ(lignes, QStringList{u"deux : 3 ( 2 )"_s});
    EXPECT_EQ(controle->liste().lignes(), 0);
    EXPECT_FALSE(remplissage().encours());
}

TEST_F(LonguePanneauTest, ASearchOfAWindowLetsNothingThrough) {
    evenement = [] { ADD_FAILURE() << "a turn"; };
    remplissage().cherchedans(u"CO"_s, u"pri*"_s, {}, true);
    EXPECT_EQ(controle->liste().lignes(), 230);
}

TEST_F(PanneauListeTest, WhatIsSaidOverTheRowsFollowsThem) {
    EXPECT_EQ(bilandit(), u"t9737") << "before there is anything";
    remplit();
    EXPECT_EQ(bilandit(), u"t9732");
    grille.choisies = {1, 4};
    controle->supprime();
    EXPECT_EQ(controle->liste().lignes(), 1);
    EXPECT_EQ(bilandit(), u"t9731");
    remplissage().remplit([this](const std::stop_token&) { EXPECT_EQ(bilandit(), QString()) << "of other rows"; },
                          [] {});
}

// ---- tools

TEST_F(PanneauListeTest, AToolFillsTheListFromItsFileAndWidensThePanel) {
    const QString chemin = fichierselection(dossier.path());
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write("prix\r\ntaxe\r\nCO000003\r\nCO000999\r\nJP000007\r\n");
    fichier.close();
    EXPECT_TRUE(remplissage().prenddoutil(dossier.path()));
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"CO000003"_s, u"JP000007"_s}));
    EXPECT_EQ(controle->liste().resultat().mot1, u"prix");
    EXPECT_EQ(controle->liste().resultat().mot2, u"taxe");
    EXPECT_EQ(etatdit(), u" 2 documents");
    EXPECT_EQ(panneau.journal, (QStringList{u"élargit"_s, u"montre"_s, u"dispositions"_s}));
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(remplissage().visible());
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(QFile::exists(chemin));
    EXPECT_FALSE(remplissage().prenddoutil(dossier.path()));
    EXPECT_EQ(controle->liste().lignes(), 2);
    EXPECT_EQ(panneau.journal.size(), 3);
}
