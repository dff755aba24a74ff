// The form hides, and what runs behind it ends.
#include "cadre_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(CadreTest, CancelHidesTheForm) {
    clique(u"annulerrapide"_s);
    EXPECT_FALSE(formulaire->isVisible());
    formulaire->show();
    onglet(Onglet::Criteres);
    clique(u"annuler"_s);
    EXPECT_FALSE(formulaire->isVisible());
    formulaire->show();
    onglet(Onglet::Mots);
    clique(u"annulerdico"_s);
    EXPECT_FALSE(formulaire->isVisible());
    formulaire->show();
    QTest::keyClick(&champ(u"Textedico"_s), Qt::Key_Escape);
    EXPECT_FALSE(formulaire->isVisible());
}

TEST_F(CadreTest, ClosingKeepsTheFormWithWhatItHolds) {
    champ(u"texterapide"_s).setText(u"bail"_s);
    EXPECT_FALSE(formulaire->close());
    EXPECT_EQ(caches, 1);
    EXPECT_FALSE(formulaire->isVisible());
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"bail");
}

TEST_F(CadreTest, ClosingStopsAnySearch) {
    champ(u"texterapide"_s).setText(u"contrat"_s);
    pendant([this] { formulaire->close(); });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_FALSE(formulaire->isVisible());
    EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), chercher);

    formulaire->show();
    onglet(Onglet::Criteres);
    pendant([this] { formulaire->close(); });
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_EQ(bouton(u"cmdok"_s).text(), chercher);

    formulaire->show();
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"contrat"_s);
    pendant([this] { formulaire->close(); });
    clique(u"cmdokdico"_s);
    EXPECT_EQ(liste.lignes(), 0);
    EXPECT_FALSE(remplissage.encours());
    EXPECT_EQ(grille.profondeur, 0);
}

TEST_F(CadreTest, CancelDoesNothingWhileASearchRuns) {
    pendant([this] { clique(u"annulerrapide"_s); });
    clique(u"cmdokrapide"_s);
    EXPECT_TRUE(formulaire->isVisible());
    EXPECT_EQ(liste.lignes(), 7);
}

TEST_F(CadreTest, EscapeStopsASearchAndThenHides) {
    pendant([this] { QTest::keyClick(formulaire.get(), Qt::Key_Escape); });
    clique(u"cmdokrapide"_s);
    EXPECT_TRUE(formulaire->isVisible());
    EXPECT_EQ(liste.lignes(), 0);
}

TEST_F(CadreTest, TheNewestSearchWinsAndNoneStandsOnAnother) {
    onglet(Onglet::Mots);
    champ(u"Textedico"_s).setText(u"clause"_s);
    int tours = 0;
    evenement = [this, &tours] {
        // The same key held down.
        if (++tours < 40)
            QTest::keyClick(&champ(u"Textedico"_s), Qt::Key_Return);
        else if (tours == 40)
            champ(u"Textedico"_s).setText(u"contrat"_s);
    };
    QTest::keyClick(&champ(u"Textedico"_s), Qt::Key_Return);
    EXPECT_EQ(grille.plusprofond, 1);
    EXPECT_EQ(lignes(), QStringList{u"clause : 4"_s});
    EXPECT_EQ(liste.lignes(), 4);
    EXPECT_FALSE(remplissage.encours());
}

TEST_F(CadreTest, AnotherSearchEndsTheOneThatRuns) {
    champ(u"texterapide"_s).setText(u"contrat"_s);
    champ(u"Textedico"_s).setText(u"prêt"_s);
    pendant([this] {
        onglet(Onglet::Mots);
        clique(u"cmdokdico"_s);
    });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), chercher);
    EXPECT_FALSE(progression().isVisible());
    EXPECT_EQ(grille.plusprofond, 1);
    EXPECT_EQ(volet.publications.size(), 2U);
}
