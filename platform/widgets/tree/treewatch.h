#pragma once
// How a TreeView follows its nodes.
#include "platform/widgets/look/entryhands.h"
#include "platform/widgets/tree/treeview.h"
#include "platform/widgets/tree/treeviewmodel.h"

#include <QScopedValueRollback>

#include <unordered_set>
#include <utility>

namespace velm {

/// Brings what the program does to the nodes into the view, and tells it from what the user does.
class TreeView::Watch final : public TreeObserver {
public:
    explicit Watch(TreeView& owner) : view(owner), model(owner.nodes_, &owner) {}

    void treeReset() override {
        const QScopedValueRollback guard(program, true);
        owed.clear();
        seen.clear();
        deepest = 0;
        model.reset();
        view.setDropTarget(0);
        view.hover(0);
        view.hands().renumber(0);
        view.indent();
        view.hands().tellGone();
    }
    void nodesAdded(int first) override {
        const QScopedValueRollback guard(program, true);
        model.added(first);
    }
    void nodeChanged(int node) override {
        if (node != 0)
            model.changed(node);
        else
            view.viewport()->update();
    }
    void nodeExpansion(int node, bool expanded) override {
        const QScopedValueRollback guard(program, true);
        view.setExpanded(model.indexOf(node), expanded);
    }
    void nodeSelected(int node) override {
        const QScopedValueRollback guard(program, true);
        openAbove(node);
        if (node == 0)
            view.selectionModel()->clear();
        else
            view.selectionModel()->setCurrentIndex(model.indexOf(node), QItemSelectionModel::ClearAndSelect);
        view.viewport()->update();
    }
    void redrawSwitched(bool on) override { view.setUpdatesEnabled(on); }
    void nodeComes(int parent, int place) override { model.comes(parent, place); }
    void nodeGoes(int node) override {
        owed.erase(node);
        const auto goes = [&](int used) { return used == node || view.nodes_.isAbove(node, used); };
        if (goes(view.dropTarget()))
            view.setDropTarget(0);
        if (goes(view.editedNode()))
            view.hands().renumber(0);
        const QScopedValueRollback guard(program, true);
        model.goes(node);
    }
    void nodeMoves(int node, int parent) override { model.moves(node, parent); }
    void rearranged() override {
        {
            const QScopedValueRollback guard(program, true);
            model.rearranged();
        }
        view.hands().tellGone();
    }

    void openAbove(int node) {
        std::vector<int> above;
        for (int parent = view.nodes_.parent(node); parent != 0; parent = view.nodes_.parent(parent)) {
            if (!view.nodes_.expanded(parent))
                above.push_back(parent);
        }
        if (above.size() > 1)
            view.scheduleDelayedItemsLayout();
        for (auto parent = above.rbegin(); parent != above.rend(); ++parent)
            view.setExpanded(model.indexOf(*parent), true);
    }

    /// The children of a node are being painted: it is told after that, once.
    void comesIntoSight(int node) {
        if (owed.erase(node) == 0)
            return;
        if (seen.empty())
            QMetaObject::invokeMethod(
                &view, [this] { tellSeen(); }, Qt::QueuedConnection);
        seen.push_back(node);
    }
    void tellSeen() {
        for (const int node : std::exchange(seen, {})) {
            if (view.nodes_.expanded(node))
                emit view.expanding(node);
        }
    }

    TreeView& view;
    TreeViewModel model;
    bool program = false;         ///< the program is at work, not the user
    bool doubled = false;         ///< the release that follows ends a double click
    int deepest = 0;              ///< level of the deepest children that can be seen
    std::unordered_set<int> owed; ///< opened, but not told yet
    std::vector<int> seen;
};

} // namespace velm
