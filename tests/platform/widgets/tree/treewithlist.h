#pragma once
// A window with a tree and a list, between which entries are carried.
#include "platform/widgets/list/listview.h"
#include "platform/widgets/look/carrier.h"
#include "platform/widgets/tree/treeview.h"

#include <QIcon>

namespace velm {

/// A tree and a list beside it: entries of both hang on the pointer and come to nodes of the tree, but the first.
class TreeWithList : public QWidget {
public:
    TreeWithList() {
        resize(640, 400);
        tree.setGeometry(10, 10, 250, 380);
        list.setGeometry(270, 10, 360, 380);
        tree.setDragging(true);
        list.setDragging(true);
        connect(&tree, &TreeView::dragBegins, this, [this](int node) { carry(tree.nodes().text(node)); });
        connect(&list, &ListView::dragBegins, this, [this](int item) { carry(list.items().text(item)); });
        connect(&carrier, &Carrier::over, this, [this](QWidget* under, const QPoint& at) { over(under, at); });
        connect(&carrier, &Carrier::dropped, this, [this](QWidget* under, const QPoint& at) {
            told << QStringLiteral("%1 on %2").arg(carried).arg(nodeUnder(under, at));
            end();
        });
        connect(&carrier, &Carrier::cancelled, this, [this] {
            told << QStringLiteral("cancelled");
            end();
        });
        connect(&tree, &TreeView::nodeClicked, this, [this](int node) { told << QStringLiteral("node %1").arg(node); });
        connect(&list, &ListView::itemClicked, this, [this](int item) { told << QStringLiteral("item %1").arg(item); });
        connect(&tree, &TreeView::labelEditWanted, this, [this] { told << QStringLiteral("wanted"); });
        connect(&list, &ListView::labelEditWanted, this, [this] { told << QStringLiteral("wanted"); });
        connect(&tree, &TreeView::expanding, this,
                [this](int node) { told << QStringLiteral("expanding %1").arg(node); });
    }
    ~TreeWithList() override { carrier.finish(); }
    void plant(int branches, int items) {
        tree.nodes().add(0, QStringLiteral("r"), QStringLiteral("racine"), {}, {});
        for (int i = 2; i <= branches + 1; ++i)
            tree.nodes().add(1, QStringLiteral("b%1").arg(i), QStringLiteral("branche %1").arg(i), {}, {});
        tree.nodes().setExpanded(1, true);
        for (int i = 1; i <= items; ++i)
            list.items().add(0, QStringLiteral("e%1").arg(i), QStringLiteral("article %1").arg(i), {});
    }
    void carry(const QString& label) {
        carried = label;
        carrier.carry(this, QIcon(), label, mode);
    }
    int nodeUnder(const QWidget* under, const QPoint& at) const {
        return under == tree.viewport() ? tree.nodeAt(tree.viewport()->mapFromGlobal(at)) : 0;
    }
    void over(const QWidget* under, const QPoint& at) {
        const int node = nodeUnder(under, at);
        carrier.setAllowed(node > 1);
        tree.setDropTarget(node > 1 ? node : 0);
        tree.hover(node);
        if (under == tree.viewport())
            tree.scrollNear(tree.viewport()->mapFromGlobal(at));
    }
    void end() {
        tree.setDropTarget(0);
        tree.hover(0);
    }

    TreeView tree{this};
    ListView list{this};
    Carrier carrier;
    Carrier::Mode mode = Carrier::Mode::UntilRelease;
    QString carried;
    QStringList told;
};

} // namespace velm
