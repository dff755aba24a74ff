// What the user hears of a disk that fails: one message, nothing lost, and the second try succeeds.
#include "differences.h"
#include "disqueenpanne.h"
#include "gestion_banc.h"

namespace velm::test {
namespace {

class GestionPanneTest : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        ouvre({{1, 0, 1, u"Baux"_s, 2}, {2, 1, 2, u"Habitation"_s, 0}, {3, 0, 3, u"Vente"_s, 0}},
              {{1, 1, u"CO000001"_s, u"Article un"_s, 0, 0}, {1, 2, u"EU000002"_s, u"Directive"_s, 1204, 310}});
        ASSERT_TRUE(fenetre.gestion.charge(true));
        fenetre.clique(fenetre.noeud(1));
    }
    TablesModele tables() { return {dossiers(), elements(), derniernumero()}; }
    QString vu() const { return dessinnoeuds(fenetre.noeuds) + u'\n' + dessinelements(fenetre.elements); }

    /// Does `geste` on a full disk and again on one that is not.
    void expectToldOnce(const std::function<void()>& geste, const QString& message) {
        const TablesModele etaient = tables();
        const QString avant = vu();
        disque.tombe(1, SQLITE_FULL, true);
        geste();
        EXPECT_GT(disque.pannes(), 0);
        disque.guerit();
        EXPECT_EQ(fenetre.dits(), QStringList{message});
        EXPECT_EQ(differencedestables(tables(), etaient), QString());
        EXPECT_EQ(vu(), avant);
        geste();
        EXPECT_EQ(fenetre.dits().size(), 1);
        EXPECT_NE(differencedestables(tables(), etaient), QString());
    }

    DisqueEnPanne disque;
    FenetreEssai fenetre{magasin, u" %1"_s};
};

TEST_F(GestionPanneTest, AnItemThatCannotBeDeletedStays) {
    fenetre.cliqueelement(1);
    expectToldOnce([this] { fenetre.gestion.supprimer(); }, u"9816"_s);
    EXPECT_EQ(fenetre.noeuds.text(fenetre.noeud(1)), u"Baux [1]"_s);
}

TEST_F(GestionPanneTest, ItemsThatCannotBeExchangedStayInTheirOrder) {
    fenetre.cliqueelement(1);
    expectToldOnce([this] { fenetre.gestion.bas(); }, u"9816"_s);
}

TEST_F(GestionPanneTest, AnItemThatCannotBeMovedStaysInItsDossier) {
    fenetre.cliqueelement(1);
    expectToldOnce([this] { fenetre.gestion.depose(fenetre.noeud(3)); }, u"9816"_s);
    EXPECT_EQ(fenetre.noeuds.text(fenetre.noeud(3)), u"Vente [1]"_s);
}

TEST_F(GestionPanneTest, AnItemThatCannotBeStoredWaitsOn) {
    fenetre.gestion.active({u"JP000007"_s, u"Arrêt"_s, 0, 0});
    expectToldOnce([this] { fenetre.gestion.depose(fenetre.noeud(3)); }, u"9816"_s);
    EXPECT_FALSE(fenetre.gestion.attend());
}

TEST_F(GestionPanneTest, ATitleThatCannotBeStoredIsShownAsItWas) {
    for (const int index : {1, 2}) {
        fenetre.cliqueelement(index);
        const QString avant = vu();
        fenetre.gestion.renommer();
        disque.tombe(1, SQLITE_FULL, true);
        fenetre.gestion.apreseditionliste(u"Autre"_s);
        disque.guerit();
        EXPECT_EQ(vu(), avant);
        fenetre.gestion.renommer();
        fenetre.gestion.apreseditionliste(u"Autre"_s);
        EXPECT_EQ(elements()[static_cast<std::size_t>(index - 1)].titre, u"Autre"_s);
    }
    EXPECT_EQ(fenetre.dits(), (QStringList{u"9816"_s, u"9816"_s}));
}

TEST_F(GestionPanneTest, ATreeThatCannotBeSavedKeepsItsMarks) {
    fenetre.clique(fenetre.noeud(3));
    fenetre.gestion.supprimer();
    fenetre.clique(fenetre.noeud(2));
    fenetre.gestion.renommer();
    fenetre.noeuds.setText(fenetre.noeud(2), u"Autre"_s);
    fenetre.gestion.apreseditionnoeud();
    const QString avant = vu();
    disque.tombe(1, SQLITE_FULL, true);
    fenetre.dialogues.answers = {Bouton::Non};
    EXPECT_FALSE(fenetre.gestion.ferme());
    EXPECT_EQ(fenetre.dits(), QStringList{u"9813"_s});
    EXPECT_EQ(vu(), avant);
    EXPECT_TRUE(fenetre.gestion.arbre().modifie());
    disque.guerit();
    EXPECT_TRUE(fenetre.gestion.ferme());
    EXPECT_EQ(fenetre.dits().size(), 1);
    EXPECT_EQ(dossiers(), (std::vector<RangeeDossier>{{1, 0, 1, u"Baux"_s, 2}, {2, 1, 2, u"Autre"_s, 0}}));
}

TEST_F(GestionPanneTest, ACopyThatIsMissedIsSaidOnce) {
    for (const int jours : {-1, 0, 1})
        ASSERT_TRUE(QDir().mkpath(dossier() + u"/dossiers-"_s +
                                  QDate::currentDate().addDays(jours).toString(u"yyyy-MM-dd"_s) +
                                  u".dat.nouveau/occupé"_s));
    fenetre.cliqueelement(1);
    fenetre.gestion.bas();
    fenetre.gestion.haut();
    EXPECT_EQ(fenetre.vue.copiesmanquees, 1);
    EXPECT_TRUE(fenetre.dits().isEmpty());
}

TEST_F(GestionPanneTest, ClosingSavesUnsavedMarks) {
    fenetre.clique(fenetre.noeud(3));
    fenetre.gestion.supprimer();
    EXPECT_EQ(dossiers().size(), 3U);
    EXPECT_TRUE(fenetre.gestion.ferme());
    EXPECT_EQ(dossiers().size(), 2U);
    EXPECT_TRUE(fenetre.dits().isEmpty());
}

TEST_F(GestionPanneTest, ClosingWithNothingToSaveWritesNothing) {
    disque.guerit();
    EXPECT_TRUE(fenetre.gestion.ferme());
    EXPECT_EQ(disque.changements(), 0);
}

} // namespace
} // namespace velm::test
