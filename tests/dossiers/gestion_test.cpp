// What clicks, keys and drops do in the window of the dossiers, without the window.
#include "gestion_banc.h"

namespace velm::test {
namespace {

TEST_F(GestionTest, NothingIsOpenBeforeADossierIsChosen) {
    EXPECT_EQ(vue.commandes, CommandesDossiers());
    EXPECT_EQ(noeuds.text(racine()), u"<4201>");
}

TEST_F(GestionTest, SelectingADossierListsItsItemsInOrder) {
    clique(1);
    EXPECT_EQ(titres(), (QStringList{u"Article un"_s, u"Directive [extrait]"_s}));
    EXPECT_EQ(elementsdeliste.key(1), u"CO000001 1");
    EXPECT_EQ(elementsdeliste.key(2), u"EU000002 2 1204 310P");
    EXPECT_EQ(elementsdeliste.image(2), u"EU");
    EXPECT_TRUE(vue.commandes.contenu);
    clique(2);
    EXPECT_EQ(elementsdeliste.count(), 0);
    EXPECT_FALSE(vue.commandes.contenu);
}

TEST_F(GestionTest, UpAndDownAreEnabledByPlace) {
    clique(1);
    EXPECT_FALSE(vue.commandes.haut);
    EXPECT_TRUE(vue.commandes.bas);
    clique(4);
    EXPECT_TRUE(vue.commandes.haut);
    EXPECT_FALSE(vue.commandes.bas);
    clique(1);
    cliqueelement(1);
    EXPECT_FALSE(vue.commandes.haut);
    EXPECT_TRUE(vue.commandes.bas);
    cliqueelement(2);
    EXPECT_TRUE(vue.commandes.haut);
    EXPECT_FALSE(vue.commandes.bas);
    EXPECT_FALSE(vue.commandes.ajouter);
}

TEST_F(GestionTest, TheRootCanBeNeitherRenamedNorDeleted) {
    clique(0);
    EXPECT_FALSE(vue.commandes.renommer);
    EXPECT_FALSE(vue.commandes.supprimer);
    EXPECT_TRUE(vue.commandes.ajouter);
    gestion.renommer();
    gestion.supprimer();
    EXPECT_EQ(vue.noeudedite, 0);
    EXPECT_FALSE(gestion.avanteditionnoeud(racine()));
    EXPECT_FALSE(gestion.peuttirernoeud());
    EXPECT_FALSE(gestion.arbre().modifie());
}

TEST_F(GestionTest, NothingCanBeAddedUnderAMarkedDossier) {
    clique(4);
    gestion.supprimer();
    EXPECT_FALSE(vue.commandes.ajouter);
    gestion.ajouter();
    EXPECT_EQ(vue.noeudedite, 0);
    EXPECT_EQ(noeuds.image(noeud(4)), u"dossierfermésuppr");
}

TEST_F(GestionTest, NothingCanBeDroppedOnAMarkedDossier) {
    clique(4);
    gestion.supprimer();
    clique(2);
    gestion.pressesurarbre();
    EXPECT_FALSE(gestion.peutdeposer(noeud(4)));
    gestion.depose(noeud(4));
    EXPECT_EQ(noeuds.parent(noeud(2)), noeud(1));
}

TEST_F(GestionTest, ANewDossierTakesTheNextFreeNumberAndIsNamedAtOnce) {
    clique(2);
    gestion.ajouter();
    EXPECT_EQ(vue.noeudedite, noeud(5));
    EXPECT_EQ(noeuds.parent(noeud(5)), noeud(2));
    EXPECT_EQ(noeuds.tag(noeud(5)), u"+A");
    EXPECT_EQ(noeuds.selected(), noeud(5));
    noeuds.setText(noeud(5), u"Paris"_s);
    gestion.apreseditionnoeud();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(nomenregistre(5), u"Paris/0");
    EXPECT_EQ(derniernumero(), 6);
}

TEST_F(GestionTest, AConfirmedRenameLosesTheCount) {
    clique(1);
    gestion.renommer();
    EXPECT_EQ(vue.noeudedite, noeud(1));
    EXPECT_EQ(textedunoeud(1), u"Baux [2]");
    noeuds.setText(noeud(1), u"Locations"_s);
    gestion.apreseditionnoeud();
    EXPECT_EQ(textedunoeud(1), u"Locations");
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(nomenregistre(1), u"Locations/0");
    EXPECT_EQ(elements().size(), 3U);
}

TEST_F(GestionTest, ARenameThatIsGivenUpKeepsNameAndCount) {
    clique(1);
    gestion.renommer();
    gestion.apreseditionnoeud();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(nomenregistre(1), u"Baux/2");
}

TEST_F(GestionTest, RenamingAnItemStoresTheBareTitle) {
    expectRenamed(1, u"Article un"_s, u"Premier"_s, u"Premier"_s);
}

TEST_F(GestionTest, RenamingAnExtractKeepsItsSuffixOnScreenOnly) {
    expectRenamed(2, u"Directive"_s, u"Passage"_s, u"Passage [extrait]"_s);
}

TEST_F(GestionTest, DeletingAnItemAsksNothingAndLowersTheCount) {
    clique(1);
    cliqueelement(1);
    gestion.supprimer();
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_EQ(titres(), QStringList{u"Directive [extrait]"_s});
    EXPECT_EQ(textedunoeud(1), u"Baux [1]");
    EXPECT_EQ(nomenregistre(1), u"Baux/1");
    EXPECT_EQ(elementsdeliste.selected(), 1);
}

TEST_F(GestionTest, DeletingADossierWithChildrenAsks) {
    clique(1);
    dialogues.answers = {Bouton::Non};
    gestion.supprimer();
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dialogues.messages[0].texte, u"<2006> \"Baux\" <4007>");
    EXPECT_EQ(dialogues.messages[0].titre, u"<4008>");
    EXPECT_EQ(dialogues.messages[0].contexteAide, 8);
    EXPECT_FALSE(gestion.arbre().modifie());
    dialogues.answers = {Bouton::Oui};
    gestion.supprimer();
    for (const qint64 numero : {1, 2, 3})
        EXPECT_TRUE(gestion.arbre().porte(noeud(numero), u'S')) << numero;
    gestion.supprimer();
    EXPECT_EQ(dialogues.messages.size(), 2U) << "taking the mark off asks nothing";
    EXPECT_FALSE(gestion.arbre().porte(noeud(3), u'S'));
}

TEST_F(GestionTest, DeletingADossierWithoutChildrenAsksNothingAndAgainTakesTheMarkOff) {
    clique(4);
    gestion.supprimer();
    EXPECT_TRUE(gestion.arbre().porte(noeud(4), u'S'));
    gestion.supprimer();
    EXPECT_FALSE(gestion.arbre().porte(noeud(4), u'S'));
    EXPECT_EQ(noeuds.image(noeud(4)), u"dossierfermé");
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(GestionTest, MovingAnItemUpExchangesTheTwoPlaces) {
    clique(1);
    cliqueelement(2);
    gestion.haut();
    EXPECT_EQ(titres(), (QStringList{u"Directive [extrait]"_s, u"Article un"_s}));
    EXPECT_EQ(elementsdeliste.key(1), u"EU000002 1 1204 310P");
    EXPECT_EQ(elementsdeliste.key(2), u"CO000001 2");
    EXPECT_EQ(elementsdeliste.selected(), 1);
    EXPECT_FALSE(vue.commandes.haut);
    EXPECT_TRUE(vue.commandes.bas);
    EXPECT_EQ(elements().at(0).cle, u"EU000002");
    gestion.haut();
    EXPECT_EQ(elementsdeliste.selected(), 1);
}

TEST_F(GestionTest, DroppingADossierOnAnotherMovesIt) {
    clique(4);
    gestion.pressesurarbre();
    gestion.depose(noeud(2));
    EXPECT_EQ(noeuds.parent(noeud(4)), noeud(2));
    EXPECT_TRUE(gestion.arbre().porte(noeud(4), u'D'));
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers().at(3).parent, 2);
}

TEST_F(GestionTest, DroppingADossierOnItsOwnDescendantIsRefused) {
    clique(1);
    gestion.pressesurarbre();
    dialogues.answers = {Bouton::Ok};
    gestion.depose(noeud(3));
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dialogues.messages[0].texte, u"<2015>");
    EXPECT_EQ(dialogues.messages[0].titre, u"<2016>");
    EXPECT_EQ(dialogues.messages[0].icone, Icone::Stop);
    EXPECT_FALSE(gestion.arbre().modifie());
    gestion.depose(noeud(1));
    EXPECT_EQ(dialogues.messages.size(), 1U) << "on itself nothing happens";
}

TEST_F(GestionTest, StoringTakesTheDossierThatItFallsOn) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    EXPECT_EQ(vue.attente, u"Arrêt");
    EXPECT_EQ(titres(), QStringList{u"Arrêt"_s});
    EXPECT_TRUE(noeuds.expanded(noeud(1)));
    gestion.depose(noeud(2));
    EXPECT_FALSE(gestion.attend());
    EXPECT_EQ(vue.attente, QString());
    EXPECT_EQ(textedunoeud(2), u"Habitation [1]");
    EXPECT_EQ(elementsdeliste.count(), 0);
    const RangeeElement attendue{2, 1, u"JP000007"_s, u"Arrêt"_s, 0, 0};
    EXPECT_EQ(elements().at(2), attendue);
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(nomenregistre(2), u"Habitation/1");
}

TEST_F(GestionTest, WhatIsStoredInTheDossierThatIsShownIsSeenThere) {
    clique(2);
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 12});
    EXPECT_EQ(elementsdeliste.key(1), u"JP000007 1 0 12P");
    gestion.depose(noeud(2));
    EXPECT_EQ(titres(), QStringList{u"Arrêt [extrait]"_s});
}

TEST_F(GestionTest, ClosingWithoutADropStoresNothing) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    gestion.renonce();
    EXPECT_FALSE(gestion.attend());
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(elements().size(), 3U);
}

TEST_F(GestionTest, ADropWhileSomethingWaitsAlwaysStoresIt) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    clique(1);
    cliqueelement(1);
    gestion.depose(noeud(2));
    EXPECT_EQ(elements().size(), 4U);
    EXPECT_EQ(elements().at(2).cle, u"JP000007");
    EXPECT_EQ(titres(), QStringList{u"Directive [extrait]"_s}) << "the selected entry leaves the list";
}

TEST_F(GestionTest, ADroppedDocumentMovesToTheFirstFreePlace) {
    clique(4);
    cliqueelement(1);
    gestion.depose(noeud(1));
    EXPECT_EQ(elementsdeliste.count(), 0);
    EXPECT_EQ(textedunoeud(4), u"Vente");
    EXPECT_EQ(textedunoeud(1), u"Baux [3]");
    const RangeeElement attendue{1, 3, u"CO000003"_s, u"Garantie"_s, 0, 0};
    EXPECT_EQ(elements().at(2), attendue);
}

TEST_F(GestionTest, ADroppedExtractStaysInItsDossierButLeavesTheList) {
    clique(1);
    cliqueelement(2);
    gestion.depose(noeud(4));
    EXPECT_EQ(titres(), QStringList{u"Article un"_s});
    EXPECT_EQ(elements().at(1).dossier, 1);
    EXPECT_EQ(textedunoeud(1), u"Baux [1]");
    EXPECT_EQ(textedunoeud(4), u"Vente [2]");
}

TEST_F(GestionTest, APendingEditPinsTheSelection) {
    clique(1);
    gestion.renommer();
    noeuds.select(noeud(4));
    gestion.noeudclique(noeud(4));
    EXPECT_EQ(noeuds.selected(), noeud(1));
    EXPECT_EQ(titres().size(), 2);
    gestion.apreseditionnoeud();
    cliqueelement(1);
    gestion.renommer();
    elementsdeliste.select(2);
    gestion.elementclique(2);
    EXPECT_EQ(elementsdeliste.selected(), 1);
    noeuds.select(noeud(4));
    gestion.noeudclique(noeud(4));
    EXPECT_EQ(titres().size(), 2);
}

TEST_F(GestionTest, APendingEditSwallowsADrop) {
    clique(4);
    gestion.pressesurarbre();
    gestion.renommer();
    gestion.depose(noeud(2));
    EXPECT_EQ(noeuds.parent(noeud(4)), racine());
    gestion.depose(noeud(2));
    EXPECT_EQ(noeuds.parent(noeud(4)), noeud(2));
}

TEST_F(GestionTest, ClosingWithAListEditOpenEmptiesTheTitle) {
    clique(1);
    cliqueelement(1);
    gestion.renommer();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(elements().at(0).titre, QString());
}

TEST_F(GestionTest, AStoreThatCannotBeWrittenIsToldAndTheUserMayStay) {
    clique(4);
    gestion.supprimer();
    magasin.dbdossiers().execute(u"PRAGMA query_only=ON"_s);
    dialogues.answers = {Bouton::Non};
    EXPECT_FALSE(gestion.ferme());
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_TRUE(gestion.arbre().porte(noeud(4), u'S'));
    dialogues.answers = {Bouton::Oui};
    EXPECT_TRUE(gestion.ferme());
    EXPECT_TRUE(gestion.ferme(true)) << "nobody is asked";
    EXPECT_EQ(dossiers().size(), 4U);
    magasin.dbdossiers().execute(u"PRAGMA query_only=OFF"_s);
    EXPECT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers().size(), 3U);
}

TEST_F(GestionTest, AnItemThatCannotBeStoredWaitsOn) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    magasin.dbdossiers().execute(u"PRAGMA query_only=ON"_s);
    gestion.depose(noeud(2));
    EXPECT_EQ(dialogues.messages.size(), 1U);
    EXPECT_TRUE(gestion.attend());
    magasin.dbdossiers().execute(u"PRAGMA query_only=OFF"_s);
    gestion.depose(noeud(2));
    EXPECT_FALSE(gestion.attend());
    EXPECT_EQ(elements().size(), 4U);
}

} // namespace
} // namespace velm::test
