// Many nodes at once.
#include "treefixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using TreeViewBulk = TreeTest;

} // namespace

TEST_F(TreeViewBulk, ChildrenLoadedWhileABranchOpensLeaveAllElseAsItIs) {
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

TEST_F(TreeViewBulk, NothingIsSeenOfABulkBeforeItsEnd) {
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

TEST_F(TreeViewBulk, ATreeIsPlantedAnewInOneBulk) {
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

TEST_F(TreeViewBulk, AModelOfManyNodesFollowsEveryBulk) {
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

TEST_F(TreeViewBulk, TheStarOpensWhatIsLoadedAndAsksOnlyForWhatIsSeen) {
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

TEST_F(TreeViewBulk, ANodeFarBelowComesIntoSight) {
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

TEST_F(TreeViewBulk, AVeryDeepTreeCanBeOpened) {
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

} // namespace velm
