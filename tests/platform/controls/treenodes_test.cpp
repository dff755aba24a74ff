#include "platform/controls/treenodes.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Writes down what a tree tells.
class Journal : public TreeObserver {
public:
    void treeReset() override { told.emplace_back("reset"); }
    void nodesAdded(int first) override { told.push_back("added from " + std::to_string(first)); }
    void nodeChanged(int node) override { told.push_back("changed " + std::to_string(node)); }
    void nodeExpansion(int node, bool expanded) override {
        told.push_back((expanded ? "opened " : "closed ") + std::to_string(node));
    }
    void nodeSelected(int node) override { told.push_back("selected " + std::to_string(node)); }
    void redrawSwitched(bool on) override { told.emplace_back(on ? "on" : "off"); }
    void nodeComes(int parent, int place) override {
        told.push_back("comes below " + std::to_string(parent) + " at " + std::to_string(place));
    }
    void nodeGoes(int node) override { told.push_back("goes " + std::to_string(node)); }
    void nodeMoves(int node, int parent) override {
        told.push_back("moves " + std::to_string(node) + " below " + std::to_string(parent));
    }
    void rearranged() override { told.emplace_back("rearranged"); }

    std::vector<std::string> told;
};

using Told = std::vector<std::string>;

class TreeNodesTest : public testing::Test {
protected:
    int add(int parent, const QString& key) { return nodes.add(parent, key, key.toLower(), u"fermé"_s, u"ouvert"_s); }

    TreeNodes nodes;
};

} // namespace

TEST_F(TreeNodesTest, NodesCountFromOneInTheOrderOfTheirMaking) {
    EXPECT_EQ(nodes.count(), 0);
    EXPECT_EQ(add(0, u"A"_s), 1);
    EXPECT_EQ(add(1, u"B"_s), 2);
    EXPECT_EQ(add(0, u"C"_s), 3);
    EXPECT_EQ(add(1, u"D"_s), 4);
    EXPECT_EQ(nodes.count(), 4);
    EXPECT_EQ(nodes.rootCount(), 2);
    EXPECT_EQ(nodes.text(2), u"b"_s);
    EXPECT_EQ(nodes.image(2), u"fermé"_s);
    EXPECT_EQ(nodes.selectedImage(2), u"ouvert"_s);
    EXPECT_FALSE(nodes.expanded(1));
}

TEST_F(TreeNodesTest, ANodeIsReachedByItsKeyAndItsKin) {
    add(0, u"A"_s);
    add(1, u"B"_s);
    add(1, u"C"_s);
    add(3, u"D"_s);
    EXPECT_EQ(nodes.indexOf(u"C"_s), 3);
    EXPECT_EQ(nodes.indexOf(u"c"_s), 0);
    EXPECT_EQ(nodes.child(1), 2);
    EXPECT_EQ(nodes.next(2), 3);
    EXPECT_EQ(nodes.next(3), 0);
    EXPECT_EQ(nodes.child(3), 4);
    EXPECT_EQ(nodes.child(4), 0);
    EXPECT_EQ(nodes.parent(4), 3);
    EXPECT_EQ(nodes.children(1), 2);
    EXPECT_EQ(nodes.childAt(1, 1), 3);
    EXPECT_EQ(nodes.childAt(1, 2), 0);
    EXPECT_EQ(nodes.childAt(0, 0), 1);
    EXPECT_EQ(nodes.place(3), 1);
    EXPECT_EQ(nodes.level(1), 0);
    EXPECT_EQ(nodes.level(4), 2);
}

TEST_F(TreeNodesTest, WhatIsAboveANodeIsAllTheWayToItsRoot) {
    const int root = add(0, u"A"_s);
    const int child = add(root, u"B"_s);
    const int leaf = add(child, u"C"_s);
    const int other = add(root, u"D"_s);
    EXPECT_TRUE(nodes.isAbove(root, leaf));
    EXPECT_TRUE(nodes.isAbove(child, leaf));
    EXPECT_FALSE(nodes.isAbove(other, leaf));
    EXPECT_FALSE(nodes.isAbove(leaf, leaf));
    EXPECT_FALSE(nodes.isAbove(leaf, root));
    EXPECT_FALSE(nodes.isAbove(0, root)) << "above a root there is nothing";
    EXPECT_FALSE(nodes.isAbove(root, 0));
}

TEST_F(TreeNodesTest, AKeyInUseIsRefused) {
    add(0, u"A"_s);
    add(1, u"B"_s);
    EXPECT_EQ(add(0, u"B"_s), 0);
    EXPECT_EQ(nodes.count(), 2);
    EXPECT_EQ(nodes.parent(2), 1);
}

TEST_F(TreeNodesTest, NodesWithoutAKeyMayBeMany) {
    EXPECT_EQ(add(0, {}), 1);
    EXPECT_EQ(add(0, {}), 2);
    EXPECT_EQ(nodes.indexOf({}), 0);
}

TEST_F(TreeNodesTest, AParentThatDoesNotStandIsRefused) {
    add(0, u"A"_s);
    for (const int parent : {-1, 2, 99})
        EXPECT_EQ(add(parent, u"B"_s), 0) << parent;
    EXPECT_EQ(nodes.addUnder(u"inconnu"_s, u"B"_s, {}, {}, {}), 0);
    EXPECT_EQ(nodes.addUnder({}, u"B"_s, {}, {}, {}), 0);
    EXPECT_EQ(nodes.count(), 1);
    EXPECT_EQ(nodes.addUnder(u"A"_s, u"B"_s, {}, {}, {}), 2);
    EXPECT_EQ(nodes.parent(2), 1);
}

TEST_F(TreeNodesTest, AClearedTreeTakesTheSameKeysAgain) {
    add(0, u"A"_s);
    add(1, u"B"_s);
    nodes.select(2);
    nodes.clear();
    EXPECT_EQ(nodes.count(), 0);
    EXPECT_EQ(nodes.selected(), 0);
    EXPECT_EQ(nodes.indexOf(u"A"_s), 0);
    EXPECT_EQ(nodes.childAt(0, 0), 0);
    EXPECT_EQ(add(0, u"B"_s), 1);
}

TEST_F(TreeNodesTest, ANodeThatDoesNotStandHasNothingAndTakesNothing) {
    add(0, u"A"_s);
    Journal journal;
    nodes.setObserver(&journal);
    for (const int node : {0, -3, 2, 1 << 30}) {
        EXPECT_TRUE(nodes.key(node).isEmpty() && nodes.text(node).isEmpty() && nodes.tag(node).isEmpty()) << node;
        EXPECT_EQ(nodes.children(node), 0) << node;
        EXPECT_EQ(nodes.parent(node), 0) << node;
        EXPECT_EQ(nodes.next(node), 0) << node;
        EXPECT_FALSE(nodes.expanded(node)) << node;
        nodes.setText(node, u"x"_s);
        nodes.setTag(node, u"+"_s);
        nodes.setImages(node, u"x"_s, u"y"_s);
        nodes.setExpanded(node, true);
        nodes.noteExpanded(node, true);
        nodes.noteSelected(node);
        EXPECT_EQ(nodes.selected(), 0) << node;
    }
    EXPECT_EQ(journal.told, Told());
    nodes.select(7);
    EXPECT_EQ(nodes.selected(), 0);
}

TEST_F(TreeNodesTest, ATagIsKept) {
    add(0, u"A"_s);
    nodes.setTag(1, u"+"_s);
    EXPECT_EQ(nodes.tag(1), u"+"_s);
}

TEST_F(TreeNodesTest, EachChangeIsTold) {
    Journal journal;
    nodes.setObserver(&journal);
    add(0, u"A"_s);
    add(1, u"B"_s);
    add(1, u"B"_s); // refused
    nodes.setText(1, u"autre"_s);
    nodes.setText(1, u"autre"_s);
    nodes.setImages(2, u"x"_s, u"y"_s);
    nodes.setExpanded(1, true);
    nodes.setExpanded(1, true);
    nodes.select(2);
    nodes.clear();
    EXPECT_EQ(journal.told,
              (Told{"added from 1", "added from 2", "changed 1", "changed 2", "opened 1", "selected 2", "reset"}));
}

TEST_F(TreeNodesTest, WhatTheViewSaysIsKeptAndNotToldBack) {
    add(0, u"A"_s);
    Journal journal;
    nodes.setObserver(&journal);
    nodes.noteExpanded(1, true);
    nodes.noteSelected(1);
    EXPECT_TRUE(nodes.expanded(1));
    EXPECT_EQ(nodes.selected(), 1);
    EXPECT_EQ(journal.told, Told());
}

TEST_F(TreeNodesTest, ABulkOfChangesIsToldInFewWords) {
    add(0, u"A"_s);
    Journal journal;
    nodes.setObserver(&journal);
    nodes.setRedraw(false);
    for (int i = 0; i < 100; ++i)
        add(1, QString::number(i));
    nodes.setText(1, u"autre"_s);
    nodes.setText(2, u"autre"_s);
    nodes.setExpanded(1, true);
    nodes.select(5);
    EXPECT_EQ(journal.told, Told{"off"});
    nodes.setRedraw(true);
    nodes.setRedraw(true);
    EXPECT_EQ(journal.told, (Told{"off", "added from 2", "opened 1", "changed 0", "selected 5", "on"}));
}

TEST_F(TreeNodesTest, AClearInABulkIsToldAtOnceAndForgetsWhatWasToBeTold) {
    add(0, u"A"_s);
    Journal journal;
    nodes.setObserver(&journal);
    nodes.setRedraw(false);
    add(1, u"B"_s);
    nodes.setExpanded(1, true);
    nodes.clear();
    add(0, u"C"_s);
    nodes.setRedraw(true);
    EXPECT_EQ(journal.told, (Told{"off", "reset", "added from 1", "on"}));
}

TEST_F(TreeNodesTest, NothingIsToldOfABulkWithoutChanges) {
    Journal journal;
    nodes.setObserver(&journal);
    nodes.setRedraw(false);
    nodes.setRedraw(true);
    EXPECT_EQ(journal.told, (Told{"off", "on"}));
}

TEST_F(TreeNodesTest, ATreeMayBeVeryDeep) {
    constexpr int depth = 100000;
    for (int node = 0; node < depth; ++node)
        ASSERT_EQ(add(node, QString::number(node)), node + 1);
    EXPECT_EQ(nodes.level(depth), depth - 1);
    EXPECT_EQ(nodes.parent(depth), depth - 1);
    nodes.clear();
    EXPECT_EQ(nodes.count(), 0);
}

TEST_F(TreeNodesTest, ATextOfANodeMayNameAnother) {
    add(0, u"A"_s);
    for (int i = 0; i < 100; ++i)
        ASSERT_NE(nodes.add(1, QString::number(i), nodes.text(1), nodes.image(1), nodes.selectedImage(1)), 0);
    EXPECT_EQ(nodes.text(101), u"a"_s);
    EXPECT_EQ(nodes.selectedImage(101), u"ouvert"_s);
}

} // namespace velm
