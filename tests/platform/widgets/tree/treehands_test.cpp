#include "tests/support/contrast.h"
#include "tests/support/show_in_front.h"
#include "treehandsfixture.h"

namespace velm {

TEST_F(TreeHandsTest, AClickBesideTheNodesLeavesTheSelection) {
    nodes.select(2);
    click({50, 390});
    EXPECT_EQ(nodes.selected(), 2);
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.indexOf(2)));
}

TEST_F(TreeHandsTest, ADragBeginsOnceAndChoosesNothingOnItsWay) {
    tree.setDragging(true);
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, pointOf(4));
    takeTold();
    moveWithButton(pointOf(4) + QPoint(1, 0));
    EXPECT_EQ(takeTold(), QStringList());
    moveWithButton(pointOf(2));
    moveWithButton(pointOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"drag 4"_s});
    EXPECT_EQ(nodes.selected(), 4);
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, pointOf(1));
}

TEST_F(TreeHandsTest, NoDragBeginsBesideTheNodesOrUnasked) {
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, pointOf(4));
    moveWithButton(pointOf(1));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, pointOf(1));
    tree.setDragging(true);
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, QPoint(50, 390));
    moveWithButton(pointOf(1));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, pointOf(1));
    EXPECT_TRUE(told.filter(u"drag"_s).isEmpty());
}

TEST_F(TreeHandsTest, TheDropTargetIsSeenAndGoesWithItsNode) {
    nodes.select(1);
    const QImage before = tree.viewport()->grab(rectOf(4)).toImage();
    tree.setDropTarget(4);
    EXPECT_EQ(tree.dropTarget(), 4);
    EXPECT_EQ(nodes.selected(), 1);
    const QImage after = tree.viewport()->grab(rectOf(4)).toImage();
    EXPECT_NE(before, after);
    const QColor ground = tree.palette().color(QPalette::Base);
    EXPECT_GE(test::contrast(after.pixelColor(after.width() / 2, 0), ground), test::states);
    nodes.remove(2);
    EXPECT_EQ(tree.dropTarget(), 0);
    tree.setDropTarget(4);
    EXPECT_EQ(tree.dropTarget(), 0) << "it does not stand";
    tree.setDropTarget(6);
    nodes.clear();
    EXPECT_EQ(tree.dropTarget(), 0);
}

TEST_F(TreeHandsTest, ASelectedTargetLooksLikeAnyOtherTarget) {
    const auto cornerOf = [this](int node) {
        const QImage row = tree.viewport()->grab(rectOf(node)).toImage();
        return row.pixelColor(row.width() - 6, row.height() / 2);
    };
    nodes.select(4);
    QWidget other;
    test::showInFront(other);
    ASSERT_FALSE(tree.hasFocus());
    const QColor grey = cornerOf(4);
    tree.setDropTarget(5);
    const QColor target = cornerOf(5);
    EXPECT_NE(grey, target);
    tree.setDropTarget(4);
    EXPECT_EQ(cornerOf(4), target);
}

TEST_F(TreeHandsTest, NearItsEdgesItScrolls) {
    for (int i = 0; i < 60; ++i)
        add(1, u"n%1"_s.arg(i));
    tree.doItemsLayout();
    QScrollBar& bar = *tree.verticalScrollBar();
    EXPECT_FALSE(tree.scrollNear({20, 200}));
    EXPECT_FALSE(tree.scrollNear({20, 2})) << "it stands at its top";
    EXPECT_TRUE(tree.scrollNear({20, tree.viewport()->height() - 2}));
    const int slow = bar.value();
    EXPECT_GT(slow, 0);
    EXPECT_FALSE(tree.scrollNear({20, tree.viewport()->height() + 100})) << "too soon";
    EXPECT_EQ(bar.value(), slow);
    EVENTUALLY(tree.scrollNear({20, tree.viewport()->height() + 100}));
    EXPECT_GT(bar.value() - slow, slow);
    EVENTUALLY(tree.scrollNear({20, 2}));
}

TEST_F(TreeHandsTest, AClosedNodeOpensUnderWhatRestsOnIt) {
    tree.hover(3);
    tree.hover(3);
    EXPECT_FALSE(nodes.expanded(3));
    EVENTUALLY(nodes.expanded(3));
    EXPECT_EQ(takeTold(), QStringList{u"expanding 3"_s});
    nodes.setExpanded(3, false);
    tree.hover(0);
    tree.hover(3);
    tree.hover(0);
    QTest::qWait(TreeView::hoverMilliseconds + 100);
    EXPECT_FALSE(nodes.expanded(3)) << "the pointer went on";
}

} // namespace velm
