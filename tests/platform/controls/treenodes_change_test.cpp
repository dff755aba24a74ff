// Trees that are changed: nodes between others, nodes that go, that move, that are called otherwise.
#include "platform/controls/treenodes.h"
#include "tests/support/rounds.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using Beside = TreeNodes::Beside;

/// Root 1 with the children 2, 3, 4; 5 and 6 below 3.
class TreeChangesTest : public testing::Test {
protected:
    void SetUp() override {
        add(0, u"R"_s);
        for (const auto& key : {u"A"_s, u"B"_s, u"C"_s})
            add(1, key);
        add(3, u"B1"_s);
        add(3, u"B2"_s);
    }
    int add(int parent, const QString& key) { return nodes.add(parent, key, key.toLower(), {}, {}); }
    std::vector<int> below(int node) const {
        std::vector<int> all;
        for (int child = nodes.child(node); child != 0; child = nodes.next(child)) {
            EXPECT_EQ(nodes.place(child), static_cast<int>(all.size()));
            EXPECT_EQ(nodes.parent(child), node);
            all.push_back(child);
        }
        EXPECT_EQ(all.size(), static_cast<std::size_t>(node == 0 ? nodes.rootCount() : nodes.children(node)));
        return all;
    }
    TreeNodes nodes;
};

using Nodes = std::vector<int>;

} // namespace

TEST_F(TreeChangesTest, ANodeComesBetweenOthers) {
    EXPECT_EQ(nodes.addBeside(3, Beside::Before, u"avant B"_s, {}, {}, {}), 7);
    EXPECT_EQ(nodes.addBeside(3, Beside::After, u"après B"_s, {}, {}, {}), 8);
    EXPECT_EQ(below(1), (Nodes{2, 7, 3, 8, 4}));
    EXPECT_EQ(nodes.level(7), 1);
    EXPECT_EQ(nodes.addBeside(3, Beside::After, u"A"_s, {}, {}, {}), 0);
    EXPECT_EQ(nodes.addBeside(99, Beside::After, u"Z"_s, {}, {}, {}), 0);
    EXPECT_EQ(nodes.count(), 8);
}

TEST_F(TreeChangesTest, ARootComesBesideARoot) {
    EXPECT_EQ(nodes.addBeside(1, Beside::Before, u"Q"_s, {}, {}, {}), 7);
    EXPECT_EQ(nodes.childAt(0, 0), 7);
    EXPECT_EQ(nodes.next(7), 1);
}

TEST_F(TreeChangesTest, ANodeGoesWithAllBelowItAndItsIndexIsGivenToNoOther) {
    nodes.remove(3);
    EXPECT_EQ(below(1), (Nodes{2, 4}));
    for (const int gone : {3, 5, 6}) {
        EXPECT_FALSE(nodes.contains(gone));
        EXPECT_EQ(nodes.key(gone), QString());
    }
    EXPECT_EQ(nodes.indexOf(u"B1"_s), 0);
    EXPECT_EQ(add(1, u"B"_s), 7);
    nodes.remove(3);
    EXPECT_EQ(below(1), (Nodes{2, 4, 7}));
}

TEST_F(TreeChangesTest, ASelectionInWhatGoesPassesToTheParent) {
    nodes.select(6);
    nodes.remove(3);
    EXPECT_EQ(nodes.selected(), 1);
    nodes.select(2);
    nodes.remove(4);
    EXPECT_EQ(nodes.selected(), 2);
}

TEST_F(TreeChangesTest, ANodeMovesWithAllBelowItToTheEndOfAnother) {
    add(5, u"B11"_s);
    EXPECT_TRUE(nodes.setParent(3, 2));
    EXPECT_EQ(below(1), (Nodes{2, 4}));
    EXPECT_EQ(below(2), (Nodes{3}));
    EXPECT_EQ(nodes.level(3), 2);
    EXPECT_EQ(nodes.level(7), 4);
    EXPECT_EQ(nodes.indexOf(u"B11"_s), 7);
    EXPECT_TRUE(nodes.setParent(2, 1));
    EXPECT_EQ(below(1), (Nodes{4, 2}));
}

TEST_F(TreeChangesTest, NoNodeMovesBelowItself) {
    EXPECT_FALSE(nodes.setParent(3, 3));
    EXPECT_FALSE(nodes.setParent(3, 6));
    EXPECT_FALSE(nodes.setParent(1, 5));
    EXPECT_FALSE(nodes.setParent(99, 1));
    EXPECT_FALSE(nodes.setParent(2, 99));
    EXPECT_FALSE(nodes.setParent(2, 0));
    EXPECT_EQ(below(1), (Nodes{2, 3, 4}));
    EXPECT_EQ(below(3), (Nodes{5, 6}));
}

TEST_F(TreeChangesTest, ANodeIsCalledOtherwiseUnlessAnotherIsCalledSo) {
    EXPECT_TRUE(nodes.setKey(2, u"A$"_s));
    EXPECT_EQ(nodes.indexOf(u"A"_s), 0);
    EXPECT_EQ(nodes.indexOf(u"A$"_s), 2);
    EXPECT_FALSE(nodes.setKey(3, u"A$"_s));
    EXPECT_EQ(nodes.key(3), u"B");
    EXPECT_TRUE(nodes.setKey(3, u"B"_s));
    EXPECT_EQ(nodes.indexOf(u"B"_s), 3);
    EXPECT_FALSE(nodes.setKey(99, u"Z"_s));
}

TEST_F(TreeChangesTest, RandomChangesGiveTheTreeOfListsOfChildren) {
    std::mt19937 random(7);
    for (int round = 0; round < test::rounds(200); ++round) {
        nodes.clear();
        std::map<int, Nodes> lists{{0, {}}};
        std::map<int, int> above;
        const auto any = [&] {
            auto at = lists.begin();
            std::advance(at, static_cast<int>(random() % lists.size()));
            return at->first;
        };
        const auto forget = [&](int node) {
            Nodes all{node};
            for (std::size_t i = 0; i < all.size(); ++i) {
                const Nodes children = lists[all[i]];
                all.insert(all.end(), children.begin(), children.end());
                lists.erase(all[i]);
            }
        };
        for (int step = 0; step < 60; ++step) {
            const int node = any();
            const int other = any();
            const QString key = QString::number(step);
            switch (random() % 5) {
            case 0:
            case 1: {
                const int made = nodes.add(node, key, key, {}, {});
                ASSERT_NE(made, 0);
                lists[node].push_back(made);
                lists[made];
                above[made] = node;
                break;
            }
            case 2: {
                const bool after = random() % 2 == 0;
                const int made = nodes.addBeside(node, after ? Beside::After : Beside::Before, key, key, {}, {});
                ASSERT_EQ(made != 0, node != 0);
                if (made == 0)
                    break;
                Nodes& siblings = lists[above[node]];
                siblings.insert(std::find(siblings.begin(), siblings.end(), node) + (after ? 1 : 0), made);
                lists[made];
                above[made] = above[node];
                break;
            }
            case 3:
                if (node != 0 && random() % 3 == 0) {
                    nodes.remove(node);
                    std::erase(lists[above[node]], node);
                    forget(node);
                }
                break;
            default: {
                bool cycle = node == 0 || other == 0;
                for (int up = other; up != 0 && !cycle; up = above[up])
                    cycle = up == node;
                ASSERT_EQ(nodes.setParent(node, other), !cycle);
                if (cycle)
                    break;
                std::erase(lists[above[node]], node);
                lists[other].push_back(node);
                above[node] = other;
            }
            }
        }
        for (const auto& [node, children] : lists)
            ASSERT_EQ(below(node), children);
    }
}

} // namespace velm
