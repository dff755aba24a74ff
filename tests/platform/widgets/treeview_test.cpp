#include "platform/widgets/treeview.h"
#include "viewfixture.h"

#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QIcon plain(Qt::GlobalColor colour) {
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

class TreeViewTest : public QuietTest {
protected:
    TreeViewTest() {
        tree.resize(300, 400);
        tree.show();
        tree.setFocus();
        QApplication::setActiveWindow(&tree);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&tree));
        QObject::connect(&tree, &TreeView::expanding, &tree,
                         [this](int node) { told.append(u"expanding %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::collapsed, &tree,
                         [this](int node) { told.append(u"collapsed %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::nodeClicked, &tree,
                         [this](int node) { told.append(u"clicked %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::nodeActivated, &tree,
                         [this](int node) { told.append(u"activated %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::selectionMoved, &tree,
                         [this](int node) { told.append(u"moved %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::nodeRightClicked, &tree,
                         [this](int node) { told.append(u"right %1"_s.arg(node)); });
    }

    int add(int parent, const QString& key) { return nodes.add(parent, key, key, u"fermé"_s, u"ouvert"_s); }
    /// Root 1, below it branches 2 and 3; 4 and 5 below 2, 6 below 3.
    void plant() {
        add(0, u"racine"_s);
        add(1, u"A"_s);
        add(1, u"B"_s);
        add(2, u"A1"_s);
        add(2, u"A2"_s);
        add(3, u"B1"_s);
    }
    QRect rectOf(int node) const { return tree.visualRect(tree.indexOf(node)); }
    QPoint pointOf(int node) const { return rectOf(node).center(); }
    /// The small arrow beside a branch.
    QPoint signOf(int node) const { return {rectOf(node).left() - tree.indentation() / 2, pointOf(node).y()}; }
    bool shown(int node) const { return rectOf(node).isValid(); }
    void click(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(tree.viewport(), button, {}, at);
    }
    void clickTwice(int node) {
        const QPoint at = pointOf(node);
        click(at);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, at);
    }
    void key(Qt::Key code) { QTest::keyClick(&tree, code); }
    QStringList takeTold() { return std::exchange(told, {}); }

    TreeView tree;
    TreeNodes& nodes = tree.nodes();
    QStringList told;
};

} // namespace

TEST_F(TreeViewTest, NodesStandBelowTheirParents) {
    plant();
    const QAbstractItemModel& model = *tree.model();
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.rowCount(tree.indexOf(1)), 2);
    EXPECT_EQ(tree.indexOf(5).parent(), tree.indexOf(2));
    EXPECT_EQ(tree.indexOf(5).row(), 1);
    EXPECT_EQ(tree.indexOf(5).data().toString(), u"A2"_s);
    EXPECT_TRUE(model.hasChildren(tree.indexOf(3)));
    EXPECT_FALSE(model.hasChildren(tree.indexOf(6)));
    EXPECT_EQ(tree.nodeOf(tree.indexOf(4)), 4);
    EXPECT_EQ(tree.nodeOf({}), 0);
    EXPECT_FALSE(tree.indexOf(0).isValid());
    EXPECT_FALSE(tree.indexOf(7).isValid());
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, WhatTheUserOpensIsToldBeforeItsChildrenArePainted) {
    plant();
    QObject::connect(&tree, &TreeView::expanding, &tree, [this](int node) {
        if (node == 1)
            add(1, u"C"_s);
    });
    click(signOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"expanding 1"_s});
    EXPECT_TRUE(nodes.expanded(1));
    EXPECT_TRUE(shown(2));
    EXPECT_TRUE(shown(7));
    click(signOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"collapsed 1"_s});
    EXPECT_FALSE(nodes.expanded(1));
    EXPECT_FALSE(shown(2));
}

TEST_F(TreeViewTest, WhatTheProgramDoesIsShownAndNotTold) {
    plant();
    nodes.setExpanded(1, true);
    EXPECT_TRUE(tree.isExpanded(tree.indexOf(1)));
    nodes.select(6);
    EXPECT_EQ(tree.currentIndex(), tree.indexOf(6));
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.indexOf(6)));
    EXPECT_TRUE(shown(6)) << "what lies above a selected node is open";
    EXPECT_TRUE(nodes.expanded(3));
    nodes.setExpanded(1, false);
    EXPECT_FALSE(shown(3));
    nodes.select(0);
    EXPECT_FALSE(tree.currentIndex().isValid());
    nodes.setText(2, u"autre"_s);
    EXPECT_EQ(tree.indexOf(2).data().toString(), u"autre"_s);
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, ASelectionBeforeTheTreeIsShownOpensNothingLater) {
    tree.hide();
    plant();
    nodes.select(6);
    tree.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    EXPECT_TRUE(shown(6));
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, AClickOnALeafIsToldAndAClickOnASignIsNot) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setExpanded(3, true);
    click(pointOf(6));
    EXPECT_EQ(takeTold(), (QStringList{u"moved 6"_s, u"clicked 6"_s}));
    EXPECT_EQ(nodes.selected(), 6);
    click(pointOf(6));
    EXPECT_EQ(takeTold(), QStringList{u"clicked 6"_s});
    click(signOf(2));
    EXPECT_EQ(takeTold(), QStringList{u"expanding 2"_s});
}

TEST_F(TreeViewTest, ADoubleClickTogglesABranchAndActivates) {
    plant();
    clickTwice(1);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"clicked 1"_s, u"activated 1"_s, u"expanding 1"_s}));
    clickTwice(1);
    EXPECT_EQ(takeTold(), (QStringList{u"clicked 1"_s, u"activated 1"_s, u"collapsed 1"_s}));
    click(pointOf(1));
    EXPECT_EQ(takeTold(), QStringList{u"clicked 1"_s});
}

TEST_F(TreeViewTest, ARightClickSelectsAndAsks) {
    plant();
    nodes.setExpanded(1, true);
    click(pointOf(3), Qt::RightButton);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 3"_s, u"right 3"_s}));
    click({100, 380}, Qt::RightButton);
    EXPECT_EQ(takeTold().last(), u"right 0"_s);
    nodes.select(2);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {1, 1}, {1, 1});
    QApplication::sendEvent(tree.viewport(), &menu);
    EXPECT_EQ(takeTold(), QStringList{u"right 2"_s});
}

TEST_F(TreeViewTest, TheKeyboardMovesOpensAndActivates) {
    plant();
    EXPECT_EQ(takeTold(), QStringList());
    key(Qt::Key_Down);
    EXPECT_EQ(takeTold(), QStringList{u"moved 1"_s});
    key(Qt::Key_Plus);
    EXPECT_EQ(takeTold(), QStringList{u"expanding 1"_s});
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 2"_s, u"expanding 2"_s}));
    key(Qt::Key_End);
    EXPECT_EQ(takeTold(), QStringList{u"moved 3"_s});
    key(Qt::Key_Return);
    EXPECT_EQ(takeTold(), QStringList{u"activated 3"_s});
    key(Qt::Key_Home);
    key(Qt::Key_Minus);
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"collapsed 1"_s}));
    EXPECT_EQ(nodes.selected(), 1);
}

TEST_F(TreeViewTest, ClosingABranchTakesTheCurrentNodeAlong) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setExpanded(2, true);
    nodes.select(5);
    click(signOf(1));
    EXPECT_EQ(takeTold(), (QStringList{u"moved 1"_s, u"collapsed 1"_s}));
    EXPECT_EQ(nodes.selected(), 1);
}

TEST_F(TreeViewTest, TheOpenPictureShowsWhileANodeIsOpen) {
    QStringList asked;
    tree.setImages([&](const QString& name) {
        asked.append(name);
        return name == u"fermé"_s ? plain(Qt::red) : name == u"ouvert"_s ? plain(Qt::green) : QIcon();
    });
    plant();
    const auto picture = [this](int node) {
        const auto icon = tree.indexOf(node).data(Qt::DecorationRole).value<QIcon>();
        return icon.isNull() ? QColor() : icon.pixmap(16).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(picture(1), QColor(Qt::red));
    nodes.setExpanded(1, true);
    EXPECT_EQ(picture(1), QColor(Qt::green));
    click(signOf(1));
    EXPECT_EQ(picture(1), QColor(Qt::red));
    nodes.setImages(1, u"inconnu"_s, {});
    EXPECT_EQ(picture(1), QColor());
    picture(2);
    picture(3);
    EXPECT_EQ(asked.count(u"fermé"_s), 1);
}

// ---- bulk changes

TEST_F(TreeViewTest, ChildrenLoadedWhileABranchOpensLeaveAllElseAsItIs) {
    nodes.setRedraw(false);
    add(0, u"racine"_s);
    for (int i = 0; i < 200; ++i)
        add(1, u"branche %1"_s.arg(i));
    for (int i = 2; i <= 201; ++i)
        add(i, u"chapitre %1"_s.arg(i));
    nodes.setExpanded(1, true);
    nodes.setRedraw(true);
    nodes.setExpanded(50, true);
    nodes.select(150);
    nodes.select(100);
    tree.verticalScrollBar()->setValue(60 * rectOf(100).height());
    const int scrolled = tree.verticalScrollBar()->value();
    QObject::connect(&tree, &TreeView::expanding, &tree, [this](int node) {
        nodes.setRedraw(false);
        for (int child = nodes.child(node); child != 0; child = nodes.next(child)) {
            for (int i = 0; i < 5; ++i)
                add(child, u"%1/%2"_s.arg(nodes.key(child)).arg(i));
        }
        nodes.setRedraw(true);
    });
    QSignalSpy reset(tree.model(), &QAbstractItemModel::modelReset);
    const int opened = tree.nodeOf(tree.indexAt({60, 100}));
    click(signOf(opened));
    EXPECT_EQ(takeTold(), QStringList{u"expanding %1"_s.arg(opened)});
    EXPECT_EQ(reset.size(), 0);
    const int child = nodes.child(opened);
    EXPECT_TRUE(shown(child));
    EXPECT_EQ(nodes.children(child), 5);
    EXPECT_TRUE(tree.model()->hasChildren(tree.indexOf(child)));
    EXPECT_TRUE(tree.isExpanded(tree.indexOf(opened)));
    EXPECT_TRUE(tree.isExpanded(tree.indexOf(50)));
    EXPECT_EQ(tree.currentIndex(), tree.indexOf(100));
    EXPECT_EQ(tree.verticalScrollBar()->value(), scrolled);
}

TEST_F(TreeViewTest, NothingIsSeenOfABulkBeforeItsEnd) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setRedraw(false);
    add(1, u"C"_s);
    add(2, u"A3"_s);
    add(7, u"C1"_s);
    nodes.setExpanded(7, true);
    nodes.select(9);
    EXPECT_EQ(tree.model()->rowCount(tree.indexOf(1)), 2);
    EXPECT_FALSE(tree.updatesEnabled());
    QApplication::processEvents();
    nodes.setRedraw(true);
    EXPECT_TRUE(tree.updatesEnabled());
    EXPECT_EQ(tree.model()->rowCount(tree.indexOf(1)), 3);
    EXPECT_EQ(tree.model()->rowCount(tree.indexOf(2)), 3);
    EXPECT_TRUE(shown(9));
    EXPECT_EQ(tree.currentIndex(), tree.indexOf(9));
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, ATreeIsPlantedAnewInOneBulk) {
    plant();
    nodes.setExpanded(1, true);
    nodes.select(3);
    for (int round = 0; round < 3; ++round) {
        nodes.setRedraw(false);
        nodes.clear();
        QApplication::processEvents();
        plant();
        nodes.setExpanded(1, true);
        nodes.select(2);
        nodes.setRedraw(true);
        EXPECT_TRUE(shown(3));
        EXPECT_FALSE(shown(4));
        EXPECT_EQ(tree.currentIndex(), tree.indexOf(2));
    }
    nodes.clear();
    EXPECT_EQ(tree.model()->rowCount(), 0);
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, AModelOfManyNodesFollowsEveryBulk) {
    // The same tree grown in bulks of random sizes below random parents, some of them open.
    unsigned seed = 7;
    const auto random = [&seed](int below) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<int>((seed >> 8U) % static_cast<unsigned>(below));
    };
    add(0, u"racine"_s);
    for (int bulk = 0; bulk < 40; ++bulk) {
        const bool redraw = bulk % 3 != 0;
        nodes.setRedraw(redraw);
        for (int i = random(50); i >= 0; --i) {
            const int node = add(random(nodes.count() + 1), {});
            if (random(3) == 0)
                nodes.setExpanded(nodes.parent(node), true);
        }
        nodes.setRedraw(true);
        for (int node = 1; node <= nodes.count(); ++node) {
            ASSERT_EQ(tree.model()->rowCount(tree.indexOf(node)), nodes.children(node));
            ASSERT_EQ(tree.indexOf(node).parent(), tree.indexOf(nodes.parent(node)));
            ASSERT_EQ(tree.model()->index(nodes.place(node), 0, tree.indexOf(nodes.parent(node))), tree.indexOf(node));
            if (nodes.children(node) > 0) {
                ASSERT_EQ(tree.isExpanded(tree.indexOf(node)), nodes.expanded(node)) << node;
            }
        }
        tree.grab();
    }
    EXPECT_EQ(told, QStringList());
}

TEST_F(TreeViewTest, TheStarOpensWhatIsLoadedAndAsksOnlyForWhatIsSeen) {
    nodes.setRedraw(false);
    add(0, u"racine"_s);
    for (int i = 0; i < 500; ++i) {
        const int branch = add(1, {});
        for (int j = 0; j < 5; ++j)
            add(branch, {});
    }
    nodes.setRedraw(true);
    nodes.setExpanded(1, true);
    nodes.select(1);
    const int before = nodes.count();
    QObject::connect(&tree, &TreeView::expanding, &tree, [this](int node) { add(nodes.child(node), {}); });
    key(Qt::Key_Asterisk);
    EXPECT_TRUE(nodes.expanded(nodes.childAt(1, 499)));
    EXPECT_EQ(told, QStringList());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !told.isEmpty(); }));
    EXPECT_EQ(told.first(), u"expanding 2"_s);
    EXPECT_LT(told.size(), 10);
    EXPECT_EQ(nodes.count(), before + told.size());
    const auto once = told.size();
    tree.viewport()->repaint();
    QApplication::processEvents();
    EXPECT_EQ(told.size(), once);
    tree.ensureVisible(nodes.childAt(1, 499));
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() > once; }));
    EXPECT_LT(told.size(), 20);
}

TEST_F(TreeViewTest, ANodeFarBelowComesIntoSight) {
    nodes.setRedraw(false);
    add(0, u"racine"_s);
    for (int i = 0; i < 300; ++i)
        add(add(1, {}), {});
    nodes.setRedraw(true);
    const int node = nodes.count();
    tree.ensureVisible(node);
    EXPECT_TRUE(tree.viewport()->rect().contains(pointOf(node)));
    EXPECT_EQ(told, QStringList());
    tree.ensureVisible(0);
    tree.ensureVisible(99999);
}

TEST_F(TreeViewTest, AVeryDeepTreeCanBeOpened) {
    constexpr int depth = 10000;
    nodes.setRedraw(false);
    for (int node = 0; node < depth; ++node)
        add(node, QString::number(node));
    for (int node = 1; node < depth; ++node)
        nodes.setExpanded(node, true);
    nodes.setRedraw(true);
    nodes.select(depth);
    EXPECT_TRUE(shown(depth));
    tree.grab();
    nodes.setExpanded(1, false);
    EXPECT_FALSE(shown(depth));
}

TEST_F(TreeViewTest, OnlyATextThatDoesNotFitHasATip) {
    plant();
    nodes.setExpanded(1, true);
    nodes.setText(2, u"Un titre <très> long qui ne tient jamais dans la largeur du volet"_s);
    const auto tip = [this](int node) {
        QHelpEvent help(QEvent::ToolTip, pointOf(node), tree.viewport()->mapToGlobal(pointOf(node)));
        QApplication::sendEvent(tree.viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_TRUE(tip(2).contains(u"&lt;très&gt; long"_s));
    tip(3);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(TreeViewTest, ToolsForPeopleWhoCannotSeeReadNodes) {
    plant();
    nodes.setExpanded(1, true);
    tree.grab();
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&tree);
    ASSERT_TRUE(view && view->tableInterface());
    EXPECT_EQ(view->tableInterface()->cellAt(2, 0)->text(QAccessible::Name), u"B"_s);
}

TEST_F(TreeViewTest, DeepTextsKeepSomeRoom) {
    tree.resize(120, 300);
    int node = 0;
    for (int level = 0; level < 12; ++level) {
        node = add(node, QString::number(level));
        nodes.setExpanded(nodes.parent(node), true);
    }
    tree.ensureVisible(node);
    EXPECT_GT(rectOf(node).width(), 60);
    EXPECT_GT(tree.header()->sectionSize(0), tree.viewport()->width());
}

} // namespace velm
