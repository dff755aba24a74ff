#include "tests/support/contrast.h"
#include "treehandsfixture.h"

#include <QAccessible>
#include <QPointer>
#include <QRandomGenerator>

namespace velm {

TEST_F(TreeHandsTest, ReturnKeepsTheLabelAndActivatesNothing) {
    ASSERT_TRUE(tree.startLabelEdit(4));
    EXPECT_EQ(tree.editedNode(), 4);
    EXPECT_TRUE(editor()->hasFocus());
    EXPECT_EQ(editor()->selectedText(), u"A1"_s);
    QTest::keyClicks(editor(), u"Neuf"_s);
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_EQ(takeTold(), QStringList{u"edited 4 Neuf"_s});
    EXPECT_EQ(nodes.text(4), u"Neuf"_s);
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_FALSE(editor()->isVisible());
}

TEST_F(TreeHandsTest, EscapeCancelsTheEditAlone) {
    QWidget window;
    auto* inside = new TreeView(&window);
    inside->nodes().add(0, u"a"_s, u"Ancien"_s, {}, {});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    int escapes = 0;
    auto* action = new QAction(&window);
    action->setShortcut(Qt::Key_Escape);
    window.addAction(action);
    QObject::connect(action, &QAction::triggered, &window, [&] { ++escapes; });
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_TRUE(inside->startLabelEdit(1));
    const QSignalSpy edited(inside, &TreeView::labelEdited);
    auto* field = inside->viewport()->findChild<QLineEdit*>();
    QTest::keyClicks(field, u"Neuf"_s);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(escapes, 0);
    ASSERT_EQ(edited.count(), 1);
    EXPECT_TRUE(edited.at(0).at(2).toBool());
    EXPECT_EQ(inside->nodes().text(1), u"Ancien"_s);
    QTest::keyClick(inside, Qt::Key_Escape);
    EXPECT_EQ(escapes, 1) << "without an edit it is the window's again";
}

TEST_F(TreeHandsTest, TabAndTheLossOfTheFocusKeep) {
    tree.startLabelEdit(4);
    QTest::keyClicks(editor(), u"x"_s);
    QTest::keyClick(editor(), Qt::Key_Tab);
    EXPECT_EQ(takeTold(), QStringList{u"edited 4 x"_s});
    tree.startLabelEdit(5);
    QTest::keyClicks(editor(), u"y"_s);
    tree.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(takeTold(), QStringList{u"edited 5 y"_s});
}

TEST_F(TreeHandsTest, TheOwnerMayRefuseAnEdit) {
    QObject::connect(&tree, &TreeView::labelEditBegins, &tree, [](int node, bool* cancel) { *cancel = node == 1; });
    EXPECT_FALSE(tree.startLabelEdit(1));
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_TRUE(tree.startLabelEdit(2));
    EXPECT_FALSE(tree.startLabelEdit(99));
}

TEST_F(TreeHandsTest, AnotherEditEndsTheFirstAndKeepsIt) {
    tree.startLabelEdit(4);
    QTest::keyClicks(editor(), u"x"_s);
    EXPECT_TRUE(tree.startLabelEdit(5));
    EXPECT_EQ(takeTold(), QStringList{u"edited 4 x"_s});
    EXPECT_EQ(tree.editedNode(), 5);
}

TEST_F(TreeHandsTest, ANewTextOfTheNodeLeavesWhatIsWritten) {
    tree.startLabelEdit(4);
    nodes.setText(4, u"A1 [3]"_s);
    EXPECT_EQ(editor()->text(), u"A1"_s);
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_EQ(nodes.text(4), u"A1 [3]"_s);
}

TEST_F(TreeHandsTest, ANodeThatGoesTakesItsEditWithIt) {
    tree.startLabelEdit(4);
    nodes.remove(2);
    EXPECT_EQ(tree.editedNode(), 0);
    EXPECT_EQ(takeTold(), QStringList{u"edited 4  cancelled"_s});
    tree.startLabelEdit(6);
    takeTold();
    nodes.clear();
    EXPECT_EQ(takeTold(), QStringList{u"edited 6  cancelled"_s});
}

TEST_F(TreeHandsTest, TheEditorGrowsWithItsTextAndFollowsItsNode) {
    tree.startLabelEdit(4);
    const QRect before = editor()->geometry();
    QTest::keyClicks(editor(), u"un titre nettement plus long"_s);
    EXPECT_GT(editor()->width(), before.width());
    QTest::keyClicks(editor(), QString(200, u'm'));
    EXPECT_LE(editor()->geometry().right(), tree.viewport()->width());
    nodes.addBeside(4, TreeNodes::Beside::Before, u"davant"_s, u"davant"_s, {}, {});
    tree.doItemsLayout();
    EXPECT_LE(std::abs(editor()->geometry().center().y() - rectOf(4).center().y()), 1);
    EXPECT_GT(editor()->y(), before.y());
}

TEST_F(TreeHandsTest, AnEditWhoseNodeIsShutAwayIsKeptAMomentLater) {
    tree.startLabelEdit(4);
    QTest::keyClicks(editor(), u"x"_s);
    nodes.setExpanded(2, false);
    EVENTUALLY(tree.editedNode() == 0);
    EXPECT_EQ(takeTold(), QStringList{u"edited 4 x"_s});
    EXPECT_EQ(nodes.text(4), u"x"_s);
    EXPECT_FALSE(editor()->isVisible());
}

TEST_F(TreeHandsTest, OnlyASlowClickOnTheWordsAsksForAnEdit) {
    nodes.select(4);
    click({rectOf(4).right() - 4, pointOf(4).y()});
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_TRUE(told.filter(u"wanted"_s).isEmpty());
    EXPECT_EQ(nodes.selected(), 4);
}

TEST_F(TreeHandsTest, WithTheControlKeyTooTheSelectedNodeStaysSelected) {
    nodes.select(2);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier, wordsOf(2));
    QTest::keyClick(&tree, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.indexOf(2)));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier, wordsOf(5));
    EXPECT_EQ(nodes.selected(), 5);
    EXPECT_EQ(tree.selectionModel()->selectedIndexes(), QModelIndexList{tree.indexOf(5)});
}

TEST_F(TreeHandsTest, F2AndASecondSlowClickAskForAnEdit) {
    nodes.select(2);
    key(Qt::Key_F2);
    EXPECT_EQ(takeTold(), QStringList{u"wanted 2"_s});
    click(pointOf(4));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_FALSE(takeTold().contains(u"wanted 4"_s)) << "the first click selects";
    click(wordsOf(4));
    EVENTUALLY(told.contains(u"wanted 4"_s));
}

TEST_F(TreeHandsTest, ADoubleClickAsksForNoEdit) {
    nodes.select(5);
    click(wordsOf(5));
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, wordsOf(5));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, wordsOf(5));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    EXPECT_TRUE(told.filter(u"wanted"_s).isEmpty());
}

TEST_F(TreeHandsTest, NothingOfTheOldWordsIsSeenBesideTheEditor) {
    nodes.setText(4, u"un long libellé, long"_s);
    const auto inked = [this] {
        const QImage row = tree.viewport()->grab(rectOf(4).adjusted(90, 0, 0, 0)).toImage();
        return test::contrast(row, tree.palette().color(QPalette::Base)) > 2;
    };
    EXPECT_TRUE(inked());
    tree.startLabelEdit(4);
    QTest::keyClicks(editor(), u"i"_s);
    ASSERT_LT(editor()->geometry().right(), rectOf(4).left() + 88);
    EXPECT_FALSE(inked());
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_TRUE(inked());
}

TEST_F(TreeHandsTest, WhoCannotSeeHearsNodesAndTheEditor) {
    tree.setAccessibleName(u"Dossiers"_s);
    nodes.select(2);
    tree.grab();
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&tree);
    ASSERT_TRUE(view && view->tableInterface());
    EXPECT_EQ(view->role(), QAccessible::Tree);
    EXPECT_EQ(view->text(QAccessible::Name), u"Dossiers"_s);
    QAccessibleInterface* const second = view->tableInterface()->cellAt(1, 0);
    EXPECT_EQ(second->role(), QAccessible::TreeItem);
    EXPECT_EQ(second->text(QAccessible::Name), u"A"_s);
    EXPECT_TRUE(second->state().selected);
    EXPECT_TRUE(second->state().expanded);
    tree.startLabelEdit(2);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(editor())->text(QAccessible::Name), u"A"_s);
}

TEST_F(TreeHandsTest, EditorsSurviveWhateverHappensToTheTree) {
    QRandomGenerator random(13);
    QPointer<TreeView> other;
    for (int step = 0; step < 4000; ++step) {
        if (!other) {
            other = new TreeView;
            other->setDragging(true);
            other->show();
        }
        TreeNodes& some = other->nodes();
        const int node = random.bounded(some.count() + 2);
        const int other2 = random.bounded(some.count() + 2);
        switch (random.bounded(12)) {
        case 0:
            if (random.bounded(20) == 0)
                delete other;
            break;
        case 1:
            if (random.bounded(10) == 0)
                some.clear();
            break;
        case 2:
            some.remove(node);
            break;
        case 3:
            some.setParent(node, other2);
            break;
        case 4:
        case 5:
            some.add(some.contains(node) ? node : 0, QString::number(step), u"n"_s, {}, {});
            break;
        case 6:
            other->setDropTarget(node);
            other->hover(other2);
            break;
        case 7:
            other->endLabelEdit(random.bounded(2) == 0);
            break;
        case 8:
            some.setExpanded(node, random.bounded(2) == 0);
            break;
        case 9:
            QCoreApplication::processEvents();
            break;
        default:
            other->startLabelEdit(node);
        }
        if (other && other->editedNode() != 0)
            EXPECT_TRUE(other->nodes().contains(other->editedNode()));
        if (other && other->dropTarget() != 0)
            EXPECT_TRUE(other->nodes().contains(other->dropTarget()));
    }
    delete other;
}

} // namespace velm
