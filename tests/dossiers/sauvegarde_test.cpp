// What a save writes, and what it leaves.
#include "sauvegarde_support.h"

namespace velm::test {
namespace {

TEST_F(SauvegardeTest, SavingAnEmptyTreeWritesNothingButTheNumber) {
    ouvre();
    charge();
    sauve();
    EXPECT_TRUE(dossiers().empty());
    EXPECT_EQ(derniernumero(), 0);
    arbre.marquersuppression(arbre.ajoute(noeud(0), u"x"_s), true);
    sauve();
    EXPECT_TRUE(dossiers().empty());
    EXPECT_EQ(derniernumero(), 2);
}

TEST_F(SauvegardeTest, ANewDossierIsWrittenAtSave) {
    ouvre({{4, 0, 1, u"Vieux"_s, 2}});
    charge();
    noeuds.setText(arbre.ajoute(noeud(4), QString()), u"Nouveau"_s);
    EXPECT_TRUE(arbre.modifie());
    EXPECT_EQ(dossiers().size(), 1U);
    sauve();
    EXPECT_FALSE(arbre.modifie());
    EXPECT_EQ(dossiers(), (Rangees{{4, 0, 1, u"Vieux"_s, 2}, {5, 4, 2, u"Nouveau"_s, 0}}));
}

TEST_F(SauvegardeTest, ARenamedDossierIsWrittenAtSave) {
    ouvre({{1, 0, 1, u"Avant"_s, 3}});
    charge();
    arbre.commencerenommage(noeud(1));
    arbre.remetcompteur(noeud(1));
    EXPECT_EQ(dossiers().front().nom, u"Avant"_s);
    noeuds.setText(noeud(1), u"Après"_s);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"Après"_s, 0}}));
}

TEST_F(SauvegardeTest, AMovedDossierIsWrittenWithItsParent) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 1}, {3, 2, 3, u"c"_s, 0}});
    charge();
    arbre.toutdevelopper();
    ASSERT_TRUE(arbre.deplace(noeud(2), noeud(1)));
    EXPECT_EQ(noeuds.tag(noeud(3)), u"+D"_s);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 1, 2, u"b"_s, 1}, {3, 2, 3, u"c"_s, 0}}));
}

TEST_F(SauvegardeTest, ASaveWritesNameAndCountOfUntouchedNodes) {
    ouvre({{1, 0, 7, u"Loi [12]"_s, 3}, {2, 0, 9, u"b"_s, 0}});
    charge();
    arbre.modifierelements(noeud(2), 4);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"Loi [12]"_s, 3}, {2, 0, 2, u"b"_s, 4}}));
}

TEST_F(SauvegardeTest, NodesThatWereNotLoadedKeepTheirRowsAsTheyAre) {
    ouvre({{1, 0, 7, u"a"_s, 0}, {2, 1, 90, u"b"_s, 5}});
    charge();
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 1, 90, u"b"_s, 5}}));
}

TEST_F(SauvegardeTest, ABracketedNameLosesItsBracketsAtSave) {
    ouvre();
    charge();
    noeuds.setText(arbre.ajoute(noeud(0), QString()), u"Loi [1989]"_s);
    noeuds.setText(arbre.ajoute(noeud(0), QString()), u"Loi [projet]"_s);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"Loi"_s, 1989}, {2, 0, 2, u"Loi"_s, 0}}));
}

TEST_F(SauvegardeTest, TwoSavesKeepTheOrderAndChangeTheNumbers) {
    ouvre({{1, 0, 5, u"a"_s, 0}, {2, 0, 6, u"b"_s, 0}, {3, 0, 8, u"c"_s, 0}});
    charge();
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}, {3, 0, 3, u"c"_s, 0}}));
    // With one in front that has no row, the next save gives other numbers to the same dossiers.
    arbre.toutdevelopper();
    ASSERT_TRUE(arbre.deplace(arbre.ajoute(noeud(0), u"n"_s), noeud(1)));
    sauve();
    EXPECT_EQ(dossiers(),
              (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 0, 3, u"b"_s, 0}, {3, 0, 4, u"c"_s, 0}, {4, 1, 2, u"n"_s, 0}}));
    charge();
    EXPECT_EQ(dessin(), u"1 2 3"_s);
}

TEST_F(SauvegardeTest, MarksStayAfterASave) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}});
    charge();
    arbre.ajoute(noeud(0), u"n"_s);
    arbre.commencerenommage(noeud(1));
    arbre.descend(noeud(2));
    sauve();
    EXPECT_EQ(noeuds.tag(noeud(3)), u"+AD"_s);
    EXPECT_EQ(noeuds.tag(noeud(1)), u"R"_s);
    EXPECT_EQ(noeuds.tag(noeud(2)), u"D"_s);
    // A new dossier that was saved is not written as a second row.
    noeuds.setText(noeud(3), u"autre"_s);
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{1, 0, 1, u"a"_s, 0}, {2, 0, 3, u"b"_s, 0}, {3, 0, 2, u"autre"_s, 0}}));
}

TEST_F(SauvegardeTest, OneNumberIsSkippedAfterAWindowThatAddedADossier) {
    ouvre();
    charge();
    EXPECT_EQ(arbre.numero(arbre.ajoute(noeud(0), u"a"_s)), 1);
    sauve();
    EXPECT_EQ(derniernumero(), 2);
    charge();
    EXPECT_EQ(arbre.numero(arbre.ajoute(noeud(0), u"b"_s)), 3);
    sauve();
    EXPECT_EQ(derniernumero(), 4);
    charge();
    sauve();
    EXPECT_EQ(derniernumero(), 4);
}

TEST_F(SauvegardeTest, TheNextNumberIsNeverBelowThatOfANewDossier) {
    ouvre();
    charge();
    arbre.ajoute(noeud(0), u"a"_s);
    arbre.ajoute(noeud(0), u"b"_s);
    arbre.monte(noeud(2));
    arbre.litprochainnumero(); // as if nothing had been added
    magasin.dbdossiers().execute(u"PRAGMA query_only=ON"_s);
    EXPECT_FALSE(arbre.Sauvearbre().ok());
    EXPECT_EQ(arbre.prochainnumero(), 1) << "a save that fails leaves it";
    magasin.dbdossiers().execute(u"PRAGMA query_only=OFF"_s);
    sauve();
    EXPECT_EQ(arbre.prochainnumero(), 2);
    EXPECT_EQ(derniernumero(), 2);
}

TEST_F(SauvegardeTest, ASaveAndALoadKeepTheUserWaitingUnderAnHourglass) {
    struct SablierNote final : Sablier {
        int pointeur() const override { return ici; }
        void fixepointeur(int valeur) override {
            ici = valeur;
            mis += valeur == attente ? 1 : 0;
        }
        int ici = defaut;
        int mis = 0;
    } note;
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 1, 2, u"b"_s, 0}});
    ArbreDossiers sien(magasin, noeuds, note, u"Mes dossiers"_s);
    sien.litprochainnumero();
    sien.chargearbre();
    EXPECT_EQ(note.mis, 0);
    sien.developpe(noeud(0));
    EXPECT_EQ(note.mis, 1);
    EXPECT_TRUE(sien.Sauvearbre().ok());
    EXPECT_EQ(note.mis, 2);
    EXPECT_EQ(note.ici, Sablier::defaut);
}

TEST_F(SauvegardeTest, ARowThatIsGoneIsPassedOver) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}});
    charge();
    arbre.commencerenommage(noeud(1));
    arbre.descend(noeud(1));
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM arborescences WHERE numerodutype=1"_s));
    sauve();
    EXPECT_EQ(dossiers(), (Rangees{{2, 0, 1, u"b"_s, 0}}));
}

TEST_F(SauvegardeTest, AMovedUnsavedDossierBelowAnotherIsLost) {
    ouvre({{1, 0, 1, u"a"_s, 0}, {2, 0, 2, u"b"_s, 0}});
    charge();
    arbre.toutdevelopper();
    const int nouveau = arbre.ajoute(noeud(1), u"n"_s);
    const qint64 numero = arbre.numero(nouveau);
    arbre.descend(noeud(1));
    EXPECT_EQ(noeuds.tag(noeud(numero)), QString());
    sauve();
    EXPECT_EQ(numeros(), (Numeros{1, 2}));
    EXPECT_EQ(dessin(), u"2 1 .3"_s);
}

TEST_F(SauvegardeTest, TwoThousandDossiersAreOneTransaction) {
    ouvre();
    charge();
    for (int i = 0; i < 2000; ++i)
        arbre.ajoute(noeud(i % 7 == 0 ? 0 : i), u"Dossier"_s);
    sauve();
    EXPECT_EQ(dossiers().size(), 2000U);
    EXPECT_FALSE(magasin.dbdossiers().inTransaction());
}

} // namespace
} // namespace velm::test
