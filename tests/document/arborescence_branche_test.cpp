// The way to a branch or a leaf.
#include "arborescence_support.h"

namespace velm::test {
namespace {

TEST_F(ArborescenceTest, BranchesOnTheWayAreLoadedAndOpened) {
    chaine(9);
    noeuds.push_back({50, 0, u"CO"_s, 2, u"Ailleurs"_s, 0});
    charge();
    arborescence.cherchebranche(arbre, 9);
    const int cherche = arbre.indexOf(u"CO 9"_s);
    ASSERT_NE(cherche, 0);
    EXPECT_EQ(arbre.selected(), cherche);
    for (int parent = arbre.parent(cherche); parent != 0; parent = arbre.parent(parent))
        EXPECT_TRUE(arbre.expanded(parent)) << arbre.key(parent).toStdString();
    EXPECT_FALSE(arbre.expanded(cherche));
    EXPECT_FALSE(arbre.expanded(arbre.indexOf(u"CO 50"_s)));
}

TEST_F(ArborescenceTest, ABranchThatIsLoadedIsSelectedAtOnce) {
    chaine(2);
    charge();
    arborescence.cherchebranche(arbre, 2);
    EXPECT_EQ(arbre.selected(), arbre.indexOf(u"CO 2"_s));
    EXPECT_TRUE(arbre.expanded(arbre.indexOf(u"CO 1"_s)));
    arborescence.cherchebranche(arbre, 0);
    EXPECT_EQ(arbre.selected(), 1);
}

TEST_F(ArborescenceTest, AnUnknownNodeEndsTheSearchForABranch) {
    chaine(3);
    charge();
    arborescence.cherchebranche(arbre, 1);
    const int avant = arbre.selected();
    for (const qint64 inconnu : {qint64{999}, qint64{-4}, std::numeric_limits<qint64>::max()})
        arborescence.cherchebranche(arbre, inconnu);
    EXPECT_EQ(arbre.selected(), avant);
}

TEST_F(ArborescenceTest, ABranchBelowTheLastLevelIsPassedOver) {
    chaine(13);
    charge();
    arborescence.cherchebranche(arbre, 13);
    EXPECT_EQ(arbre.selected(), arbre.indexOf(u"CO 10"_s)) << "as far down as the tree goes";
}

TEST_F(ArborescenceTest, TheDocumentsLeafIsSelected) {
    chaine(6);
    charge();
    arborescence.choisitdocument(arbre, decoupecle(u"CO000006"_s));
    EXPECT_EQ(arbre.selected(), 0) << "its branch is not loaded yet";
    arborescence.cherchebranche(arbre, 6);
    arborescence.choisitdocument(arbre, decoupecle(u"CO000006"_s));
    EXPECT_EQ(arbre.selected(), arbre.indexOf(u"@CO000006"_s));
    EXPECT_TRUE(arbre.expanded(arbre.indexOf(u"CO 6"_s)));
}

} // namespace
} // namespace velm::test
