#pragma once
// A tree in a window that nobody sees, and what it tells.
#include "platform/widgets/tree/treeview.h"
#include "tests/support/eventually.h"
#include "tests/support/quiet.h"

#include <QScrollBar>
#include <QSignalSpy>

namespace velm {

class TreeTest : public QuietTest {
protected:
    TreeTest() {
        tree.resize(300, 400);
        tree.show();
        tree.setFocus();
        QApplication::setActiveWindow(&tree);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&tree));
        QObject::connect(&tree, &TreeView::expanding, &tree,
                         [this](int node) { told.append(QStringLiteral("expanding %1").arg(node)); });
        QObject::connect(&tree, &TreeView::collapsed, &tree,
                         [this](int node) { told.append(QStringLiteral("collapsed %1").arg(node)); });
        QObject::connect(&tree, &TreeView::nodeClicked, &tree,
                         [this](int node) { told.append(QStringLiteral("clicked %1").arg(node)); });
        QObject::connect(&tree, &TreeView::nodeActivated, &tree,
                         [this](int node) { told.append(QStringLiteral("activated %1").arg(node)); });
        QObject::connect(&tree, &TreeView::selectionMoved, &tree,
                         [this](int node) { told.append(QStringLiteral("moved %1").arg(node)); });
        QObject::connect(&tree, &TreeView::nodeRightClicked, &tree,
                         [this](int node) { told.append(QStringLiteral("right %1").arg(node)); });
    }

    int add(int parent, const QString& key) {
        return nodes.add(parent, key, key, QStringLiteral("fermé"), QStringLiteral("ouvert"));
    }
    /// Root 1, below it branches 2 and 3; 4 and 5 below 2, 6 below 3.
    void plant() {
        add(0, QStringLiteral("racine"));
        add(1, QStringLiteral("A"));
        add(1, QStringLiteral("B"));
        add(2, QStringLiteral("A1"));
        add(2, QStringLiteral("A2"));
        add(3, QStringLiteral("B1"));
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

} // namespace velm
