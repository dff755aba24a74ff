// Which of tree and list the commands are about, and what a window begins and ends with.
#include "differences.h"
#include "gestion_banc.h"

namespace velm::test {
namespace {

class GestionGardesTest : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        ouvre({{1, 0, 1, u"Baux"_s, 2},
               {2, 1, 2, u"Habitation"_s, 0},
               {3, 0, 3, u"Vente"_s, 1},
               {4, 0, 4, u"Crédit"_s, 0},
               {5, 2, 5, u"Meublés"_s, 0}},
              {{1, 1, u"CO000001"_s, u"Article un"_s, 0, 0},
               {1, 2, u"EU000002"_s, u"Directive"_s, 1204, 310},
               {3, 1, u"CO000003"_s, u"Garantie"_s, 0, 0}});
        ASSERT_TRUE(gestion.charge(true));
    }
    int noeud(qint64 numero) const { return fenetre.noeud(numero); }
    const CommandesDossiers& commandes() const { return fenetre.vue.commandes; }

    FenetreEssai fenetre{magasin, u" %1"_s};
    GestionDossiers& gestion = fenetre.gestion;
};

TEST_F(GestionGardesTest, AWindowBeginsWithAnEmptyListAndNoCommands) {
    fenetre.clique(noeud(1));
    EXPECT_EQ(fenetre.elements.count(), 2);
    ASSERT_TRUE(gestion.charge(false));
    EXPECT_EQ(fenetre.elements.count(), 0);
    EXPECT_EQ(commandes(), CommandesDossiers());
    EXPECT_EQ(noeud(2), 0) << "one level";
}

TEST_F(GestionGardesTest, AStoreThatAnotherHoldsLaterIsNotShownEither) {
    magasin.dbdossiers().execute(u"PRAGMA busy_timeout=0"_s);
    const auto autre = Database::open(chemin(), OpenMode::Shared, dossiersSchema()).database;
    ASSERT_TRUE(autre && autre->execute(u"BEGIN EXCLUSIVE"_s));
    EXPECT_FALSE(gestion.charge(true));
    EXPECT_EQ(fenetre.dits(), QStringList{u"9895"_s});
}

TEST_F(GestionGardesTest, WhatWaitsOpensAllLevelsAndTakesTheList) {
    ASSERT_TRUE(gestion.charge(false));
    gestion.active({});
    EXPECT_EQ(noeud(5), 0) << "nothing waits";
    EXPECT_FALSE(gestion.sourcedeliste());
    EXPECT_EQ(fenetre.elements.count(), 0);
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    EXPECT_NE(noeud(5), 0);
    EXPECT_TRUE(gestion.sourcedeliste());
    EXPECT_EQ(fenetre.elements.selected(), 1);
    gestion.renonce();
    EXPECT_FALSE(gestion.attend());
    EXPECT_EQ(elements().size(), 3U);
}

TEST_F(GestionGardesTest, AClickBesideTheDossiersLeavesTheList) {
    fenetre.clique(noeud(1));
    gestion.noeudclique(0);
    EXPECT_EQ(fenetre.elements.count(), 2);
}

TEST_F(GestionGardesTest, TheCommandsAreAboutWhatHasTheFocus) {
    fenetre.clique(noeud(3));
    fenetre.cliqueelement(1);
    EXPECT_TRUE(gestion.sourcedeliste());
    EXPECT_FALSE(commandes().haut || commandes().bas) << "the only item";
    EXPECT_FALSE(commandes().ajouter);
    gestion.arbrefocus();
    EXPECT_FALSE(gestion.sourcedeliste());
    EXPECT_TRUE(commandes().haut && commandes().bas) << "a dossier between two";
    EXPECT_TRUE(commandes().ajouter);
    gestion.listefocus();
    EXPECT_TRUE(gestion.sourcedeliste());
    EXPECT_FALSE(commandes().haut || commandes().bas);
}

TEST_F(GestionGardesTest, WithTheTreeInUseADossierIsRenamedAndDeletedNotTheItemThatIsSelected) {
    fenetre.clique(noeud(3));
    fenetre.cliqueelement(1);
    gestion.arbrefocus();
    gestion.renommer();
    EXPECT_EQ(fenetre.vue.elementedite, 0);
    EXPECT_EQ(fenetre.vue.noeudedite, noeud(3));
    gestion.apreseditionnoeud();
    fenetre.elements.select(1);
    gestion.supprimer();
    EXPECT_EQ(elements().size(), 3U);
    EXPECT_TRUE(gestion.arbre().porte(noeud(3), u'S'));
}

TEST_F(GestionGardesTest, WithTheListInUseAndNoItemChosenADossierIsDeleted) {
    fenetre.clique(noeud(4));
    gestion.listefocus();
    gestion.supprimer();
    EXPECT_TRUE(gestion.arbre().porte(noeud(4), u'S'));
}

TEST_F(GestionGardesTest, BehindTheLastItemNoCommandIsLeft) {
    fenetre.clique(noeud(3));
    fenetre.cliqueelement(1);
    gestion.supprimer();
    EXPECT_EQ(fenetre.elements.count(), 0);
    EXPECT_EQ(commandes(), CommandesDossiers());
    EXPECT_EQ(fenetre.noeuds.text(noeud(3)), u"Vente"_s);
}

TEST_F(GestionGardesTest, AClickInAnEmptyListLeavesNoCommand) {
    fenetre.clique(noeud(4));
    EXPECT_TRUE(commandes().supprimer && commandes().renommer && commandes().haut);
    gestion.listefocus();
    gestion.elementclique(0);
    EXPECT_EQ(commandes(), CommandesDossiers());
}

TEST_F(GestionGardesTest, AnItemWhoseRowIsNotFoundStaysAndSoDoesTheCount) {
    fenetre.clique(noeud(1));
    fenetre.cliqueelement(1);
    ASSERT_TRUE(fenetre.elements.setKey(1, u"CO000001 9"_s));
    gestion.supprimer();
    EXPECT_EQ(fenetre.elements.count(), 2);
    EXPECT_EQ(fenetre.noeuds.text(noeud(1)), u"Baux [2]"_s);
    EXPECT_TRUE(fenetre.dits().isEmpty());
}

TEST_F(GestionGardesTest, ANewDossierListsItsOwnItemsWhichAreNone) {
    fenetre.clique(noeud(1));
    gestion.ajouter();
    EXPECT_EQ(fenetre.elements.count(), 0);
    EXPECT_FALSE(commandes().contenu);
    EXPECT_FALSE(gestion.arbre().porte(fenetre.vue.noeudedite, u'R'));
    // Its label is edited, but the selection is free.
    fenetre.clique(noeud(3));
    EXPECT_EQ(fenetre.elements.count(), 1);
}

TEST_F(GestionGardesTest, TheRootsLabelEndsAnEditing) {
    fenetre.clique(noeud(1));
    gestion.renommer();
    EXPECT_FALSE(gestion.avanteditionnoeud(fenetre.noeuds.childAt(0, 0)));
    fenetre.clique(noeud(3));
    EXPECT_EQ(fenetre.noeuds.selected(), noeud(3)) << "nothing holds the selection any more";
    EXPECT_EQ(fenetre.elements.count(), 1);
    EXPECT_TRUE(gestion.avanteditionnoeud(noeud(1)));
}

TEST_F(GestionGardesTest, ADossierThatWasMovedIsTheOneThatIsChosen) {
    fenetre.clique(noeud(3));
    gestion.haut();
    EXPECT_EQ(fenetre.noeuds.selected(), noeud(3));
    EXPECT_FALSE(commandes().haut) << "it is the first now";
    EXPECT_TRUE(commandes().bas);
    gestion.bas();
    gestion.bas();
    EXPECT_TRUE(commandes().haut);
    EXPECT_FALSE(commandes().bas);
    EXPECT_EQ(fenetre.elements.count(), 1);
}

TEST_F(GestionGardesTest, AMoveMakesTheTreeChanged) {
    fenetre.clique(noeud(1));
    fenetre.cliqueelement(1);
    EXPECT_FALSE(gestion.arbre().modifie());
    gestion.depose(noeud(4));
    EXPECT_TRUE(gestion.arbre().modifie());
    EXPECT_EQ(fenetre.noeuds.text(noeud(1)), u"Baux [1]"_s);
    EXPECT_EQ(fenetre.noeuds.text(noeud(4)), u"Crédit [1]"_s);
    EXPECT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers()[3].compte, 1);
}

TEST_F(GestionGardesTest, StoringMakesTheTreeChanged) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    gestion.depose(noeud(4));
    EXPECT_TRUE(gestion.arbre().modifie());
    EXPECT_EQ(fenetre.elements.count(), 0);
    EXPECT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers()[3].compte, 1);
}

TEST_F(GestionGardesTest, APendingEditOfATitleSwallowsADrop) {
    fenetre.clique(noeud(1));
    fenetre.cliqueelement(1);
    gestion.renommer();
    gestion.depose(noeud(4));
    EXPECT_EQ(fenetre.elements.count(), 2);
    gestion.depose(noeud(4));
    EXPECT_EQ(fenetre.elements.count(), 1) << "the next one is not";
}

TEST_F(GestionGardesTest, ClosingWithANameBeingEditedSaves) {
    ASSERT_TRUE(magasin.dbdossiers().execute(u"UPDATE arborescences SET ordre=ordre+10"_s));
    fenetre.clique(noeud(1));
    gestion.renommer();
    EXPECT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers().front(), (RangeeDossier{1, 0, 1, u"Baux"_s, 2}));
}

TEST_F(GestionGardesTest, ItemsOfTheRootAreStoredUnderItAndShowNoCount) {
    gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    gestion.depose(fenetre.noeuds.childAt(0, 0));
    EXPECT_EQ(fenetre.noeuds.text(fenetre.noeuds.childAt(0, 0)).indexOf(u'['), -1);
    fenetre.clique(fenetre.noeuds.childAt(0, 0));
    EXPECT_EQ(fenetre.elements.count(), 1);
    EXPECT_EQ(elements().front().dossier, 0);
}

} // namespace
} // namespace velm::test
