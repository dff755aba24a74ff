// What was lost goes into its own dossier or none, whatever became of numbers, names and parents meanwhile.
#include "dossiers/libellecompte.h"
#include "reprises_support.h"

namespace velm::test {
namespace {

TEST_F(ReprisesNumerosTest, AfterARepairANewDossierGetsNoNumberOfALostOne) {
    supprimedossier(4);
    ASSERT_TRUE(repare());
    EXPECT_EQ(derniernumero(), 1);
    rouvre();
    std::vector<qint64> nouveaux;
    for (int i = 0; i < 3; ++i)
        nouveaux.push_back(nouveau(0, u"Neuf"_s));
    EXPECT_EQ(nouveaux, (std::vector<qint64>{2, 3, 5}));
    remettout();
    EXPECT_EQ(texte(4), u"Vente [1]");
    recommence();
    EXPECT_EQ(noms(), (QStringList{u"1 Baux/2"_s, u"2 Neuf/0"_s, u"3 Neuf/0"_s, u"4 Vente/1"_s, u"5 Neuf/0"_s}));
}

TEST_F(ReprisesNumerosTest, WhereTheNumberIsAnothersItComesBackInADossierOfItsOwn) {
    supprimedossier(1);
    ajoutedossier({1, 0, 9, u"Étranger"_s, 0});
    rouvre();
    EXPECT_TRUE(reprises.remet(journal.pertes()[0]).fait);
    const qint64 sien = gestion.arbre().numero(noeuds.selected());
    EXPECT_EQ(texte(sien), u"Baux [1]");
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].rangee.dossier, sien) << "the other one goes with it";
    EXPECT_TRUE(reprises.remet(relu().pertes()[0]).fait);
    EXPECT_EQ(texte(sien), u"Baux [2]");
    recommence();
    EXPECT_EQ(elementsde(1), 0U);
    EXPECT_EQ(elementsde(sien), 2U);
    EXPECT_EQ(texte(1), u"Étranger");
    EXPECT_GE(derniernumero(), sien);
}

TEST_F(ReprisesNumerosTest, SeveralThatCameFromOneDossierComeBackInOne) {
    supprimedossier(1);
    ajoutedossier({1, 0, 9, u"Étranger"_s, 0});
    rouvre();
    remettout();
    EXPECT_EQ(dossiers().size(), 3U);
    EXPECT_EQ(textedunoeud(gestion.arbre().numero(noeuds.selected())), u"Baux [2]");
    EXPECT_TRUE(relu().pertes().empty());
}

TEST_F(ReprisesNumerosTest, TheItemsOfALostDossierAreKeptThroughARepair) {
    const qint64 neuf = perddossier();
    recommence();
    ASSERT_EQ(journal.pertes().size(), 1U);
    ASSERT_TRUE(repare());
    EXPECT_EQ(elements(), avant);
    ASSERT_EQ(relu().pertes().size(), 2U);
    EXPECT_EQ(relu().pertes()[1].rangee.titre, u"Arrêt");
    EXPECT_EQ(relu().pertes()[1].nomdossier, u"Neuf");
    rouvre();
    remettout();
    EXPECT_EQ(texte(neuf), u"Neuf [1]");
    EXPECT_EQ(noeuds.parent(noeud(neuf)), noeud(1));
    EXPECT_EQ(elementsde(neuf), 1U);
}

TEST_F(ReprisesNumerosTest, ARepairThatIsStoppedLosesNothing) {
    const qint64 neuf = perddossier();
    recommence();
    EXPECT_FALSE(repare([](int) { return false; }));
    EXPECT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(elementsde(neuf), 1U);
}

TEST_F(ReprisesNumerosTest, ARepairLeavesTheItemsOfADossierThatHasItsRowAgain) {
    const qint64 neuf = perddossier();
    ASSERT_TRUE(gestion.ferme());
    ajoutedossier({neuf, 0, 9, u"Neuf"_s, 1});
    rouvre();
    ASSERT_TRUE(repare());
    EXPECT_EQ(elementsde(neuf), 1U);
    EXPECT_EQ(relu().pertes().size(), 1U);
}

TEST_F(ReprisesNumerosTest, WhatCannotBeReadBeforeARepairIsNoStep) {
    magasin.fermedossiers();
    EXPECT_THROW(reprises.vareparer(), Arret);
    reprises.change(true);
    EXPECT_FALSE(reprises.peutannuler());
    magasin.ouvredossiers(dossier());
}

TEST_F(ReprisesNumerosTest, ALostDossierThatIsStillInTheTreeGetsItsRow) {
    const qint64 neuf = perddossier();
    ASSERT_TRUE(gestion.arbre().Sauvearbre().ok());
    remettout();
    EXPECT_EQ(texte(neuf), u"Neuf [1]");
    recommence();
    EXPECT_EQ(texte(neuf), u"Neuf [1]");
    EXPECT_TRUE(journal.pertes().empty());
}

TEST_F(ReprisesNumerosTest, ADossierComesBackBelowItsOwnParentOnly) {
    ajoutedossier({5, 4, 5, u"Cinq"_s, 1});
    ajouteelement({5, 1, u"LT000007"_s, u"Lettre"_s, 0, 0});
    rouvre();
    supprimedossier(5);
    ASSERT_EQ(relu().pertes()[0].parent, 4);
    ASSERT_TRUE(
        magasin.dbdossiers().execute(u"UPDATE arborescences SET typededonnées='Étranger' WHERE numerodutype=4"_s));
    rouvre();
    remettout();
    EXPECT_EQ(texte(5), u"Cinq [1]");
    EXPECT_EQ(noeuds.parent(noeud(5)), racine());
}

TEST_F(ReprisesNumerosTest, TheParentsNumberIsNotGivenAgain) {
    ajoutedossier({5, 4, 5, u"Cinq"_s, 1});
    ajouteelement({5, 1, u"LT000007"_s, u"Lettre"_s, 0, 0});
    rouvre();
    supprimedossier(5);
    EXPECT_TRUE(reprises.connait(5));
    EXPECT_TRUE(reprises.connait(4));
    EXPECT_FALSE(reprises.connait(1));
}

TEST_F(ReprisesNumerosTest, LossesComeBackAllOfThemOrNone) {
    supprimedossier(1);
    ajoutedossier({1, 0, 9, u"Étranger"_s, 0});
    rouvre();
    const auto reste = elements();
    const int noeudsavant = noeuds.count();
    disque.tombe(1, SQLITE_FULL, true);
    EXPECT_FALSE(reprises.remet(journal.pertes()).fait);
    disque.guerit();
    EXPECT_EQ(elements(), reste);
    EXPECT_EQ(dossiers().size(), 2U);
    for (int un = noeudsavant + 1; un <= noeuds.count(); ++un)
        EXPECT_FALSE(noeuds.contains(un));
    EXPECT_EQ(relu().pertes().size(), 2U);
    remettout();
    EXPECT_EQ(elements().size(), reste.size() + 2);
}

// ---- counts and places

TEST_F(ReprisesNumerosTest, CountsGoBackWhereTheyWereChangedThoughTheRowWasAnothers) {
    ajouteelement({4, 2, u"EU000002"_s, u"Directive"_s, 0, 0});
    rouvre();
    const auto etaient = elements();
    const auto comptes = dossiers();
    clique(4);
    choisit(2);
    gestion.supprimer();
    EXPECT_EQ(elementsde(1), 1U) << "of the same document at the same place the first one is found";
    EXPECT_EQ(texte(4), sanscompteur(texte(4))) << "its count of 1 is 0 now";
    annule();
    EXPECT_EQ(elements(), etaient);
    EXPECT_EQ(dossiers(), comptes);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(texte(4), u"Vente [1]");
}

TEST_F(ReprisesNumerosTest, CountsComeBackWithALossThoughTheRowWasAnothers) {
    ajouteelement({4, 2, u"EU000002"_s, u"Directive"_s, 0, 0});
    rouvre();
    const auto etaient = elements();
    const auto comptes = dossiers();
    clique(4);
    choisit(2);
    gestion.supprimer();
    recommence();
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].compte, 4);
    EXPECT_TRUE(reprises.remet(relu().pertes()[0]).fait);
    EXPECT_EQ(elements(), etaient);
    EXPECT_EQ(dossiers(), comptes);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(texte(4), u"Vente [1]");
    recommence();
    EXPECT_EQ(dossiers(), comptes);
}

TEST_F(ReprisesNumerosTest, ADossierThatIsMadeAgainCountsWhatIsInIt) {
    ajouteelement({4, 2, u"EU000002"_s, u"Directive"_s, 0, 0});
    rouvre();
    clique(4);
    choisit(2);
    gestion.supprimer();
    recommence();
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM arborescences WHERE numerodutype=1"_s));
    rouvre();
    EXPECT_TRUE(reprises.remet(relu().pertes()[0]).fait);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(texte(4), u"Vente");
}

TEST_F(ReprisesNumerosTest, AnExtractThatLeftTheListAloneIsListedAgain) {
    clique(1);
    choisit(2);
    gestion.depose(noeud(4));
    EXPECT_EQ(titres(), QStringList{u"Article un"_s});
    EXPECT_EQ(texte(4), u"Vente [2]");
    annule();
    EXPECT_EQ(titres().size(), 2);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(texte(4), u"Vente [1]");
    EXPECT_EQ(elements(), avant);
}

TEST_F(ReprisesNumerosTest, WhatComesBackIsSelectedSoThatTheNextKeyIsAboutIt) {
    choisit(2);
    gestion.supprimer();
    annule();
    EXPECT_EQ(liste.selected(), 2);
    EXPECT_TRUE(vue.commandes.haut);
    EXPECT_FALSE(vue.commandes.ajouter) << "the list is in use";
    gestion.haut();
    EXPECT_EQ(liste.selected(), 1);
    annule();
    EXPECT_EQ(elements(), avant);
    EXPECT_NE(liste.selected(), 0);
    EXPECT_TRUE(vue.commandes.supprimer);
    gestion.supprimer();
    EXPECT_EQ(elements().size(), 2U) << "an item, not its dossier";
    EXPECT_FALSE(gestion.arbre().porte(noeud(1), u'S'));
}

TEST_F(ReprisesNumerosTest, AnEmptiedTitleIsFoundWhereItsRowWentInItsDossier) {
    choisit(1);
    gestion.renommer();
    gestion.apreseditionliste(QString());
    choisit(1);
    gestion.bas();
    remettout();
    ASSERT_EQ(elements().size(), 3U);
    EXPECT_EQ(elements()[1].titre, u"Article un");
    EXPECT_EQ(texte(1), u"Baux [2]");
}

TEST_F(ReprisesNumerosTest, AnEmptiedTitleWhoseRowIsGoneComesBackAsANewOne) {
    choisit(1);
    gestion.renommer();
    gestion.apreseditionliste(QString());
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM données WHERE numart='000001'"_s));
    remettout();
    EXPECT_EQ(elements(), avant);
}

TEST_F(ReprisesNumerosTest, AnUndoThatIsNoLongerPossibleIsGivenUp) {
    choisit(1);
    gestion.renommer();
    gestion.apreseditionliste(u"Autre nom"_s);
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM données WHERE numart='000001'"_s));
    EXPECT_TRUE(reprises.peutannuler());
    EXPECT_FALSE(reprises.annule().fait);
    EXPECT_FALSE(reprises.peutannuler());
}

} // namespace
} // namespace velm::test
