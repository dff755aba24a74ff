// How what was lost is known again by the name of its dossier, and when a deleted dossier is a loss.
#include "reprises_support.h"

namespace velm::test {
namespace {

TEST_F(ReprisesNumerosTest, ARenamedDossierIsStillTheSame) {
    choisit(1);
    gestion.supprimer();
    clique(1);
    gestion.renommer();
    noeuds.setText(noeud(1), u"Loyers"_s);
    gestion.apreseditionnoeud();
    recommence();
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].nomdossier, u"Loyers");
    remettout();
    EXPECT_EQ(elements(), avant);
    EXPECT_EQ(dossiers().size(), 2U);
}

TEST_F(ReprisesNumerosTest, ANameThatWasNotSavedIsNotFollowed) {
    choisit(1);
    gestion.supprimer();
    noeuds.setText(noeud(1), u"Loyers"_s);
    gestion.arbre().notemodifie();
    disque.tombe(1, SQLITE_FULL, true);
    EXPECT_FALSE(gestion.arbre().Sauvearbre().ok());
    disque.guerit();
    EXPECT_EQ(relu().pertes()[0].nomdossier, u"Baux");
}

TEST_F(ReprisesNumerosTest, ADossierThatGetsItsNameLaterIsStillTheSame) {
    const qint64 neuf = nouveau(0, u"Neuf"_s);
    range(neuf);
    clique(neuf);
    choisit(1);
    gestion.supprimer();
    noeuds.setText(noeud(neuf), u"Crédit"_s);
    gestion.arbre().notemodifie();
    recommence();
    remettout();
    EXPECT_EQ(dossiers().size(), 3U);
    EXPECT_EQ(texte(neuf), u"Crédit [1]");
}

TEST_F(ReprisesNumerosTest, ADeletedDossierWhoseChildrenAreLeftComesBackWithThem) {
    ajoutedossier({5, 4, 5, u"Cinq"_s, 0});
    ajoutedossier({6, 5, 6, u"Six"_s, 0});
    rouvre();
    clique(4);
    gestion.developpe(noeud(4));
    gestion.charge(false);
    gestion.developpe(racine());
    EXPECT_EQ(noeud(6), 0) << "its children are not loaded";
    clique(5);
    gestion.supprimer();
    recommence();
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].sorte, Perte::Sorte::DossierSupprime);
    EXPECT_EQ(relu().pertes()[0].nomdossier, u"Cinq");
    remettout();
    EXPECT_EQ(noeuds.parent(noeud(5)), noeud(4));
    rouvre();
    EXPECT_EQ(noeuds.parent(noeud(6)), noeud(5));
}

TEST_F(ReprisesNumerosTest, ADeletedDossierWithNothingInItIsNoLoss) {
    ajoutedossier({5, 0, 5, u"Cinq"_s, 0});
    rouvre();
    supprimedossier(5);
    EXPECT_EQ(dossiers().size(), 2U);
    EXPECT_TRUE(journal.pertes().empty());
}

TEST_F(ReprisesNumerosTest, ADeletedDossierWithItemsIsFoundByThese) {
    ajoutedossier({5, 0, 5, u"Cinq"_s, 1});
    ajoutedossier({6, 5, 6, u"Six"_s, 0});
    ajouteelement({5, 1, u"LT000007"_s, u"Lettre"_s, 0, 0});
    rouvre(false);
    EXPECT_EQ(noeud(6), 0);
    supprimedossier(5);
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].sorte, Perte::Sorte::Element);
    remettout();
    rouvre();
    EXPECT_EQ(noeuds.parent(noeud(6)), noeud(5));
}

TEST_F(ReprisesNumerosTest, ALostDossierIsKnownByItsLastName) {
    const qint64 neuf = nouveau(1, u"Neuf"_s);
    range(neuf);
    clique(neuf);
    choisit(1);
    gestion.supprimer();
    noeuds.setText(noeud(neuf), u"Crédit"_s);
    clique(1);
    gestion.bas();
    recommence();
    ASSERT_EQ(relu().pertes().size(), 2U);
    remettout();
    EXPECT_EQ(dossiers().size(), 3U);
    EXPECT_EQ(texte(neuf), u"Crédit [1]");
}

TEST_F(ReprisesNumerosTest, TheNameOfAnotherDossierWithTheSameNumberIsNotFollowed) {
    supprimedossier(1);
    ajoutedossier({1, 0, 9, u"Étranger"_s, 0});
    rouvre();
    noeuds.setText(noeud(1), u"Autre"_s);
    gestion.arbre().notemodifie();
    recommence();
    EXPECT_EQ(relu().pertes()[0].nomdossier, u"Baux");
    remettout();
    EXPECT_EQ(elementsde(1), 0U);
    EXPECT_EQ(dossiers().size(), 3U);
}

} // namespace
} // namespace velm::test
