#pragma once
// TreeNodes as a view of Qt sees them. Nodes that were added while redraw was off are not seen before they are told.
#include "platform/controls/treenodes.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <functional>

namespace velm {

class TreeViewModel : public QAbstractItemModel {
public:
    TreeViewModel(const TreeNodes& nodes, QObject* parent) : QAbstractItemModel(parent), nodes_(nodes) {}

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override { return rowCount(parent) > 0; }
    QVariant data(const QModelIndex& index, int role) const override;

    QModelIndex indexOf(int node) const;
    static int nodeOf(const QModelIndex& index) { return static_cast<int>(index.internalId()); }
    void setImages(std::function<QIcon(const QString& name)> images);
    /// What is shown of a text; who cannot see it is told the whole.
    void setShownText(std::function<QString(int node)> shown) { shown_ = std::move(shown); }
    void setMarked(int node);
    int marked() const { return marked_; }

    // ---- what happened to the nodes
    void reset();
    void added(int first);
    void changed(int node);
    void comes(int parent, int place);
    void goes(int node);
    void moves(int node, int parent);
    /// The end of each of these three.
    void rearranged();

private:
    enum class Change { None, Insertion, Removal, Move };

    /// How many children of a node have been told; node 0 are the roots.
    int& told(int node) { return told_[static_cast<std::size_t>(node)]; }
    bool isTold(int node) const { return node >= 0 && static_cast<std::size_t>(node) < told_.size(); }
    int childCount(int node) const { return node == 0 ? nodes_.rootCount() : nodes_.children(node); }
    QIcon picture(int node) const;

    const TreeNodes& nodes_;
    std::vector<int> told_ = {0};
    std::function<QIcon(const QString& name)> images_;
    std::function<QString(int node)> shown_;
    int marked_ = 0;
    Change change_ = Change::None;
    std::vector<int> parents_; ///< those whose children a change concerns
    mutable QHash<QString, QIcon> pictures_;
};

} // namespace velm
