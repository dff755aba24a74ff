// A tree whose structure changes under the view.
#include "tests/support/rounds.h"
#include "treefixture.h"

#include <QAbstractItemModelTester>

#include <random>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using TreeViewChangeTest = TreeTest;

} // namespace

TEST_F(TreeViewChangeTest, WhatComesGoesAndMovesIsSeenAndTellsNothing) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setExpanded(2, true);
    told.clear();
    const int between = nodes.addBeside(3, TreeNodes::Beside::Before, u"entre"_s, u"entre"_s, {}, {});
    EXPECT_LT(rectOf(5).top(), rectOf(between).top());
    EXPECT_LT(rectOf(between).top(), rectOf(3).top());
    nodes.remove(between);
    EXPECT_EQ(rectOf(3).top(), rectOf(5).bottom() + 1);
    nodes.setExpanded(3, true);
    ASSERT_TRUE(nodes.setParent(2, 3));
    EXPECT_TRUE(nodes.expanded(2));
    EXPECT_GT(rectOf(2).top(), rectOf(6).top());
    EXPECT_GT(rectOf(4).top(), rectOf(2).top());
    EXPECT_TRUE(told.isEmpty()) << told.join(u'\n').toStdString();
}

TEST_F(TreeViewChangeTest, TheSelectionStaysOnTheNodeThatMoves) {
    plant();
    nodes.setExpanded(1, true);
    nodes.select(2);
    told.clear();
    ASSERT_TRUE(nodes.setParent(2, 3));
    EXPECT_EQ(tree.nodeOf(tree.currentIndex()), 2);
    nodes.remove(2);
    EXPECT_EQ(tree.nodeOf(tree.currentIndex()), 3);
    EXPECT_EQ(nodes.selected(), 3);
    EXPECT_TRUE(told.isEmpty()) << told.join(u'\n').toStdString();
}

TEST_F(TreeViewChangeTest, AMarkOnWhatGoesIsGone) {
    plant();
    tree.setMarked(4);
    nodes.remove(2);
    EXPECT_EQ(tree.marked(), 0);
}

TEST_F(TreeViewChangeTest, RandomChangesKeepTheModelInOrder) {
    const QAbstractItemModelTester tester(tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(11);
    for (int step = 0; step < test::rounds(3000); ++step) {
        const int node = static_cast<int>(random() % static_cast<unsigned>(nodes.count() + 1));
        const int other = static_cast<int>(random() % static_cast<unsigned>(nodes.count() + 1));
        const QString key = QString::number(step);
        switch (random() % 8) {
        case 0:
        case 1:
            nodes.add(node, key, key, {}, {});
            break;
        case 2:
            nodes.addBeside(node, TreeNodes::Beside::Before, key, key, {}, {});
            break;
        case 3:
            nodes.remove(node);
            break;
        case 4:
            nodes.setParent(node, other);
            break;
        case 5:
            nodes.setExpanded(node, random() % 2 == 0);
            break;
        case 6:
            nodes.select(node);
            break;
        default:
            nodes.setRedraw(random() % 2 == 0);
        }
        if (step % 50 == 0)
            QCoreApplication::processEvents();
        if (step % 700 == 699)
            nodes.clear();
    }
    nodes.setRedraw(true);
    for (int node = 1; node <= nodes.count(); ++node) {
        if (!nodes.contains(node))
            continue;
        ASSERT_EQ(tree.model()->rowCount(tree.indexOf(node)), nodes.children(node));
        if (nodes.children(node) != 0)
            ASSERT_EQ(tree.isExpanded(tree.indexOf(node)), nodes.expanded(node)) << node;
    }
}

} // namespace velm
