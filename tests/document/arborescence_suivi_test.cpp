// The tree as it follows a document, and the titles as they are shown in it.
#include "arborescence_support.h"

namespace velm::test {
namespace {

/// How often a tree was to be shown anew.
struct Compte final : TreeObserver {
    void treeReset() override {}
    void nodesAdded(int) override {}
    void nodeChanged(int) override {}
    void nodeExpansion(int, bool) override {}
    void nodeSelected(int) override {}
    void redrawSwitched(bool) override { ++redessins; }
    void nodeComes(int, int) override {}
    void nodeGoes(int) override {}
    void nodeMoves(int, int) override {}
    void rearranged() override {}
    int redessins = 0;
};

TEST_F(ArborescenceTest, TheWayToADocumentOpensAndNothingIsSelected) {
    chaine(9);
    charge();
    arbre.select(1);
    const int feuille = arborescence.mene(arbre, decoupecle(u"CO000009"_s), 9);
    ASSERT_NE(feuille, 0);
    EXPECT_EQ(arbre.key(feuille), u"@CO000009");
    EXPECT_EQ(Arborescence::feuillede(arbre, decoupecle(u"CO000009"_s)), feuille);
    for (int parent = arbre.parent(feuille); parent != 0; parent = arbre.parent(parent))
        EXPECT_TRUE(arbre.expanded(parent)) << arbre.key(parent).toStdString();
    EXPECT_EQ(arbre.selected(), 1);
    EXPECT_TRUE(sablier.vus.isEmpty());
}

TEST_F(ArborescenceTest, NoMoreIsLoadedThanBranchesOpenedByHandWouldHaveLoaded) {
    const auto plante = [this] {
        chaine(8);
        for (int i = 20; i < 40; ++i) {
            noeuds.push_back({i, i < 30 ? 0 : i - 10, u"CO"_s, i, u"Autre"_s, 1});
            documents.push_back({u"CO"_s + QString::number(i).rightJustified(6, u'0'), u"Ailleurs"_s, i});
        }
    };
    plante();
    charge();
    arborescence.mene(arbre, decoupecle(u"CO000008"_s), 8);
    const int menee = arbre.count();
    arborescence.chargearbrebase(arbre, u"CO"_s);
    for (int i = 0; i <= 8; ++i)
        developpe(u"CO"_s + numberText(i));
    EXPECT_EQ(menee, arbre.count());
}

TEST_F(ArborescenceTest, ADocumentThatIsLoadedComesOutUnderItsBranches) {
    chaine(2);
    charge();
    arbre.setExpanded(1, false);
    const int feuille = arborescence.mene(arbre, decoupecle(u"CO000002"_s), 404);
    EXPECT_EQ(arbre.key(feuille), u"@CO000002");
    EXPECT_TRUE(arbre.expanded(1));
    EXPECT_TRUE(arbre.expanded(arbre.indexOf(u"CO 2"_s)));
}

TEST_F(ArborescenceTest, AWayThatIsOpenIsNotShownAnew) {
    Compte compte;
    chaine(2);
    charge();
    const int feuille = arborescence.mene(arbre, decoupecle(u"CO000002"_s), 2);
    arbre.setObserver(&compte);
    EXPECT_EQ(arborescence.mene(arbre, decoupecle(u"CO000002"_s), 2), feuille);
    EXPECT_EQ(compte.redessins, 0);
    arbre.setExpanded(arbre.indexOf(u"CO 1"_s), false);
    EXPECT_EQ(arborescence.mene(arbre, decoupecle(u"CO000002"_s), 2), feuille);
    EXPECT_GT(compte.redessins, 0);
    EXPECT_TRUE(arbre.expanded(arbre.indexOf(u"CO 1"_s)));
    arbre.setObserver(nullptr);
}

TEST_F(ArborescenceTest, NothingLeadsToADocumentThatHangsNowhere) {
    chaine(3);
    charge();
    for (const qint64 numero : {qint64{0}, qint64{2}, qint64{404}})
        EXPECT_EQ(arborescence.mene(arbre, decoupecle(u"CO000099"_s), numero), 0) << numero;
    TreeNodes vide;
    EXPECT_EQ(arborescence.mene(vide, decoupecle(u"CO000001"_s), 1), 0);
    EXPECT_EQ(Arborescence::feuillede(vide, decoupecle(u"CO000001"_s)), 0);
}

TEST(LibelleCourt, ATitleLeavesOutWhatAnAncestorSays) {
    const auto montre = [](const QStringList& ancetres, const QString& titre) {
        TreeNodes arbre;
        int parent = 0;
        for (const QString& ancetre : ancetres)
            parent = arbre.add(parent, u"CO "_s + QString::number(arbre.count()), ancetre, {}, {});
        return Arborescence::libellecourt(arbre, arbre.add(parent, u"@CO000001"_s, titre, {}, {}));
    };
    const QString code = u"Code du travail"_s;
    EXPECT_EQ(montre({code}, u"Code du travail, art. L1"_s), u"art. L1");
    EXPECT_EQ(montre({code, u"Livre Ier : Contrats"_s}, u"Code du travail, art. L1"_s), u"art. L1");
    EXPECT_EQ(montre({code}, u"CODE DU TRAVAIL, art. L1"_s), u"art. L1");
    EXPECT_EQ(montre({u"La démission"_s}, u"La démission - Et ensuite ?"_s), u"Et ensuite ?");
    EXPECT_EQ(montre({u"Directive 2019/882 relative aux produits"_s}, u"Directive 2019/882, art. 34"_s), u"art. 34")
        << "the ancestor may say more";
    EXPECT_EQ(montre({u"A, B"_s}, u"A, B, C"_s), u"C") << "as much as it repeats";
    EXPECT_EQ(montre({u"A"_s}, u"A, B, C"_s), u"B, C");
    EXPECT_EQ(montre({u"Livres"_s, u"Fiche 1"_s}, u"Fiche 1 : Début"_s), u"Début");
}

TEST(LibelleCourt, ATitleLeavesOutTheWordThatItsNeighboursHaveBeforeTheirNumbers) {
    TreeNodes arbre;
    const int branche = arbre.add(0, u"CO 0"_s, u"Chapitre II"_s, {}, {});
    const auto ajoute = [&](const QString& titre) { return arbre.add(branche, u"@"_s + titre, titre, {}, {}); };
    const auto montre = [&](int noeud) { return Arborescence::libellecourt(arbre, noeud); };
    const int premiere = ajoute(u"Article 312-1 \u2013 Offre"_s);
    EXPECT_EQ(montre(premiere), u"Article 312-1 \u2013 Offre") << "alone it says what it is";
    const int seconde = ajoute(u"Article 312-2 \u2013 Contenu"_s);
    EXPECT_EQ(montre(premiere), u"312-1 \u2013 Offre");
    EXPECT_EQ(montre(seconde), u"312-2 \u2013 Contenu");
    EXPECT_EQ(montre(ajoute(u"Annexe 1"_s)), u"Annexe 1") << "its neighbour is no annex";
    EXPECT_EQ(montre(ajoute(u"Annexe unique"_s)), u"Annexe unique");
    EXPECT_EQ(montre(ajoute(u"12 mois"_s)), u"12 mois");
    const int sous = arbre.add(branche, u"CO 1"_s, u"Section 1"_s, {}, {});
    EXPECT_EQ(montre(ajoute(u"Section 2"_s)), u"Section 2") << "branches are no neighbours";
    EXPECT_EQ(montre(sous), u"Section 1");
}

TEST(LibelleCourt, ATitleStaysWholeWhereItRepeatsNothing) {
    TreeNodes arbre;
    const int racine = arbre.add(0, u"CO 0"_s, u"Code du travail"_s, {}, {});
    const int branche = arbre.add(racine, u"CO 1"_s, u"Code du travail, livre Ier"_s, {}, {});
    EXPECT_EQ(Arborescence::libellecourt(arbre, branche), u"Code du travail, livre Ier") << "branches never";
    const auto montre = [&](const QString& titre) {
        return Arborescence::libellecourt(arbre, arbre.add(branche, u"@"_s + titre, titre, {}, {}));
    };
    for (const auto& titre : {u"Code du travail"_s, u"Code du travail, "_s, u"Code du travail maritime, art. 1"_s,
                              u"Code du travailleur, art. 2"_s, u", art. 3"_s, u""_s})
        EXPECT_EQ(montre(titre), titre);
    EXPECT_EQ(Arborescence::libellecourt(arbre, 0), QString());
    arbre.setText(racine, u"Codes et lois"_s);
    arbre.setText(branche, u"Livre Ier"_s);
    EXPECT_EQ(montre(u"Code, art. 1"_s), u"Code, art. 1") << "half a word says something else";
}

} // namespace
} // namespace velm::test
