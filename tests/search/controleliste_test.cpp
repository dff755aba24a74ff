// What is done with the rows of the selection list.
#include "tests/search/controleliste_support.h"

using namespace velm;
using namespace velm::test;

namespace {

const QString section = u"RECHERCHE"_s;
const QString cleordre = u"ORDRECOLONNE"_s;
const QString clelargeurs = u"LARGEURCOLONNE"_s;
using Marque = ListeSelection::Marque;

} // namespace

TEST_F(ControleListeTest, ItStartsHiddenWithoutRowsAndWithOneButton) {
    EXPECT_EQ(controle->liste().rows(), 1);
    EXPECT_FALSE(grille.montree);
    EXPECT_FALSE(grille.figee);
    EXPECT_FALSE(remplissage().visible());
    EXPECT_EQ(panneau.permis_, (QHash<Ordre, bool>{{Ordre::Regrouper, true}}));
    EXPECT_TRUE(panneau.journal.isEmpty());
}

// ---- filling

TEST_F(ControleListeTest, KeysFillTheListInTheirOrderWithTheFieldsOfTheirDocuments) {
    remplit({u"JP000007"_s, u"CO000001"_s});
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"JP000007"_s, u"CO000001"_s}));
    EXPECT_EQ(colonne(ListeSelection::Titre), (QStringList{u"Un arrêt"_s, u"Béta"_s}));
    EXPECT_EQ(colonne(ListeSelection::Reference), (QStringList{u"JP"_s, u"CO"_s}));
    EXPECT_EQ(colonne(ListeSelection::Numart), (QStringList{u"000007"_s, u"000001"_s}));
    EXPECT_EQ(colonne(ListeSelection::Motcle3), (QStringList{QString(), u"Taxe"_s}));
    EXPECT_EQ(etatdit(), u" 2 documents");
    EXPECT_TRUE(grille.montree);
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"dispositions"_s}));
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
}

TEST_F(ControleListeTest, KeysWithoutADocumentArePassedOver) {
    remplit({u"ZZ000001"_s, u"CO000099"_s, u"CO000003"_s, QString()});
    EXPECT_EQ(colonne(ListeSelection::Clef), QStringList{u"CO000003"_s});
    EXPECT_EQ(etatdit(), u" 1 document");
}

TEST_F(ControleListeTest, ANewListTakesThePlaceOfTheOneBefore) {
    remplit();
    controle->liste().resultat().mot1 = u"prix"_s;
    grille.choisit(3, 3);
    remplit({u"CO000002"_s});
    EXPECT_EQ(colonne(ListeSelection::Clef), QStringList{u"CO000002"_s});
    EXPECT_EQ(grille.choisies, (std::pair{0, 0}));
    EXPECT_EQ(controle->liste().resultat().mot1, u"prix") << "the words to mark are those of the last search";
    remplit({});
    EXPECT_EQ(controle->liste().lignes(), 0);
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
}

TEST_F(ControleListeTest, AFullListTakesNoMoreKeys) {
    controle->liste().resultat().lignes.limite(2);
    remplit();
    EXPECT_EQ(colonne(ListeSelection::Clef), (QStringList{u"CO000001"_s, u"CO000002"_s}));
    EXPECT_EQ(etatdit(), u" 2 documents");
}

TEST_F(ControleListeTest, WhereTheMemoryDoesNotSufficeWhatTheListHoldsStays) {
    panneau.surprise = [this] {
        if (controle->liste().lignes() > 1)
            throw std::bad_alloc();
    };
    remplit({u"CO000001"_s, u"CO000002"_s});
    panneau.surprise = {};
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9567"_s});
    EXPECT_EQ(dialogues.messages.front().titre, u"t8");
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Exclamation);
    EXPECT_EQ(controle->liste().lignes(), 2);
    EXPECT_TRUE(grille.montree);
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"dispositions"_s}));
    remplit({u"CO000003"_s});
    EXPECT_EQ(controle->liste().lignes(), 1);
}

// ---- columns

TEST_F(ControleListeTest, OrderAndWidthsOfTheColumnsAreWrittenWhenTheyHaveChanged) {
    controle->ecritcolonnes();
    EXPECT_EQ(reglages->getsetting(section, cleordre), QString());
    EXPECT_EQ(reglages->getsetting(section, clelargeurs), QString());
    controle->liste().colonnes().deplace(0, 2);
    grille.largeurs[2] = 4500;
    controle->ecritcolonnes();
    EXPECT_EQ(reglages->getsetting(section, cleordre), u"120354");
    demarre();
    EXPECT_EQ(controle->liste().colonnes().ordre(), u"120354");
    EXPECT_EQ(controle->liste().colonnes().largeur(2), 4500);
    controle->liste().colonnes().deplace(2, 0);
    controle->ecritcolonnes();
    EXPECT_EQ(reglages->getsetting(section, cleordre), u"012354") << "the order of the masks replaces another";
}

TEST_F(ControleListeTest, ADamagedOrderOfTheColumnsIsPassedOver) {
    reglages->savesetting(section, cleordre, u"999999"_s);
    reglages->savesetting(section, clelargeurs, u"1e9999-00001abc"_s);
    demarre();
    EXPECT_EQ(controle->liste().colonnes().ordre(), u"012354");
    EXPECT_EQ(controle->liste().colonnes().largeur(0), 3000);
}

TEST_F(ControleListeTest, AColumnIsSortedUpFirstAndThenTheOtherWayRound) {
    remplit();
    grille.choisit(4, 4);
    controle->trie(0);
    EXPECT_EQ(colonne(ListeSelection::Titre),
              (QStringList{u"alpha"_s, u"Béta"_s, u"Delta"_s, u"gamma"_s, u"Un arrêt"_s}));
    EXPECT_EQ(grille.choisies, (std::pair{4, 4})) << "gamma";
    controle->trie(0);
    EXPECT_EQ(colonne(ListeSelection::Titre).first(), u"Un arrêt");
    EXPECT_EQ(grille.choisies, (std::pair{2, 2}));
    controle->trie(0);
    EXPECT_EQ(colonne(ListeSelection::Titre).first(), u"alpha");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(ControleListeTest, ANewResultBearsNoMarkAndStandsAsItWasFound) {
    remplit();
    controle->trie(5);
    EXPECT_EQ(controle->liste().marque(5), Marque::Ascendante);
    grille.marques[5] = Marque::Ascendante;
    remplit({u"CO000003"_s, u"CO000001"_s});
    EXPECT_EQ(grille.marques[5], Marque::Aucune);
    EXPECT_EQ(colonne(ListeSelection::Titre), (QStringList{u"Delta"_s, u"Béta"_s}));
}

TEST_F(ControleListeTest, GroupingMergesEqualCellsAndChangesItsToolTip) {
    controle->regroupe(true);
    EXPECT_TRUE(grille.regroupee);
    EXPECT_EQ(panneau.bulles.value(Ordre::Regrouper), u"t2608");
    controle->regroupe(false);
    EXPECT_FALSE(grille.regroupee);
    EXPECT_EQ(panneau.bulles.value(Ordre::Regrouper), u"t2605");
}

TEST_F(ControleListeTest, TheTipOfGroupingTellsWhereNoNeighboursAreAlike) {
    const auto bulle = [this] { return panneau.bulles.value(Ordre::Regrouper); };
    remplit({u"CO000001"_s, u"CO000003"_s});
    EXPECT_EQ(bulle(), u"t9790") << "their titles differ";
    controle->regroupe(true);
    EXPECT_EQ(bulle(), u"t2608") << "what is pressed can be released";
    remplit({u"CO000001"_s, u"CO000001"_s, u"CO000003"_s});
    EXPECT_EQ(bulle(), u"t2608");
    controle->regroupe(false);
    EXPECT_EQ(bulle(), u"t2605");
    grille.choisit(1, 1);
    controle->supprime();
    EXPECT_EQ(bulle(), u"t9790") << "of the two that were alike one is gone";
    grille.etroit = true;
    controle->remplissage().ditregroupement();
    EXPECT_EQ(bulle(), u"t9890") << "a list without columns shows none of it";
    controle->regroupe(true);
    EXPECT_EQ(bulle(), u"t2608");
    controle->regroupe(false);
    grille.etroit = false;
    controle->remplissage().ditregroupement();
    // The sorted column is the first that is grouped: both are of the same collection.
    controle->trie(controle->liste().colonnes().place(ListeSelection::Reference));
    EXPECT_EQ(bulle(), u"t2605");
    remplit({u"CO000001"_s});
    EXPECT_EQ(bulle(), u"t2605") << "one row has no neighbour";
}

// ---- opening

TEST_F(ControleListeTest, SelectedRowsOpenFromTheFirstToTheLastWithTheWordsToMark) {
    remplit();
    controle->liste().resultat().mot1 = u"deux"_s;
    controle->liste().resultat().mot2 = u"prix"_s;
    grille.choisit(3, 1);
    controle->ouvre();
    EXPECT_EQ(panneau.ouverts,
              (QStringList{u"CO000001 deux prix"_s, u"CO000002 deux prix"_s, u"CO000003 deux prix"_s}));
}

TEST_F(ControleListeTest, WithoutASelectedRowNothingOpens) {
    remplit();
    controle->ouvre();
    EXPECT_TRUE(panneau.ouverts.isEmpty());
}

TEST_F(ControleListeTest, ManyRowsAreOpenedAfterAQuestionOnly) {
    remplit(QStringList(51, u"CO000001"_s));
    grille.choisittout();
    dialogues.answers = {Bouton::Non};
    controle->ouvre();
    EXPECT_TRUE(panneau.ouverts.isEmpty());
    ASSERT_EQ(dialogues.texts(), QStringList{u"t9495"_s});
    EXPECT_EQ(dialogues.messages.back().titre, u"t8");
    EXPECT_EQ(dialogues.messages.back().icone, Icone::Question);
    EXPECT_EQ(dialogues.messages.back().boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(dialogues.messages.back().defaut, Bouton::Non);
    dialogues.answers = {Bouton::Oui};
    controle->ouvre();
    EXPECT_EQ(panneau.ouverts.size(), 51);
    grille.choisit(1, 50);
    controle->ouvre();
    EXPECT_EQ(panneau.ouverts.size(), 101);
    EXPECT_EQ(dialogues.messages.size(), 2U) << "fifty are opened without a question";
}

TEST_F(ControleListeTest, TheNextRowOpensAloneAndStopsAtTheLast) {
    remplit();
    controle->suivantrecherche();
    EXPECT_EQ(grille.choisies, (std::pair{1, 1}));
    grille.choisit(4, 2);
    controle->suivantrecherche();
    EXPECT_EQ(grille.choisies, (std::pair{5, 5}));
    controle->suivantrecherche();
    EXPECT_EQ(panneau.ouverts, (QStringList{u"CO000001  "_s, u"JP000007  "_s}));
}

TEST_F(ControleListeTest, ThePreviousRowOpensAloneAndStopsAtTheFirst) {
    remplit();
    controle->precedentrecherche();
    EXPECT_TRUE(panneau.ouverts.isEmpty());
    grille.choisit(3, 5);
    controle->precedentrecherche();
    EXPECT_EQ(grille.choisies, (std::pair{2, 2}));
    grille.choisit(1, 1);
    controle->precedentrecherche();
    EXPECT_EQ(panneau.ouverts, QStringList{u"CO000002  "_s});
}

// ---- removing

TEST_F(ControleListeTest, RemovedRowsLeaveTheirPlaceToTheNextAndTheNewCount) {
    remplit();
    grille.choisit(2, 3);
    controle->supprime();
    EXPECT_EQ(colonne(ListeSelection::Titre), (QStringList{u"Béta"_s, u"gamma"_s, u"Un arrêt"_s}));
    EXPECT_EQ(grille.choisies, (std::pair{2, 2}));
    EXPECT_EQ(etatdit(), u" 3 documents");
    EXPECT_FALSE(grille.figee);
    grille.choisittout();
    controle->supprime();
    EXPECT_EQ(etatdit(), u" 0 document");
    const qsizetype dits = panneau.etats.size();
    controle->supprime();
    EXPECT_EQ(panneau.etats.size(), dits) << "nothing was selected";
}

// ---- printing

TEST_F(ControleListeTest, PrintingTheListAsksFirst) {
    remplit();
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    controle->imprime();
    EXPECT_TRUE(imprimante.tableaux.empty());
    EXPECT_EQ(grille.choisies, (std::pair{0, 0}));
    controle->imprime();
    ASSERT_EQ(imprimante.tableaux.size(), 1U);
    const PaperTable& tableau = imprimante.tableaux.front();
    EXPECT_EQ(tableau.title, u"t33");
    EXPECT_EQ(tableau.rows, u"1-5") << "all rows, whatever was selected";
    EXPECT_EQ(tableau.widths, (QList<int>{3000, 2000, 2000, 2000, 500, 1000, 0}));
    ASSERT_EQ(tableau.headers.size(), 7);
    EXPECT_EQ(tableau.headers.first(), controle->liste().colonnes().titre(0));
    EXPECT_EQ(dialogues.texts(), QStringList(2, u"t2432"_s));
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Question);
    EXPECT_EQ(dialogues.messages.front().boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(ControleListeTest, AnEmptyListIsNotPrinted) {
    controle->imprime();
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_TRUE(imprimante.tableaux.empty());
}

TEST_F(ControleListeTest, APrinterThatFailsIsSaidOnce) {
    remplit();
    imprimante.works = false;
    dialogues.answers = {Bouton::Oui, Bouton::Ok};
    controle->imprime();
    ASSERT_EQ(dialogues.texts(), (QStringList{u"t2432"_s, u"t9496"_s}));
    EXPECT_EQ(dialogues.messages.back().icone, Icone::Exclamation);
    EXPECT_EQ(dialogues.messages.back().titre, u"t33");
}
