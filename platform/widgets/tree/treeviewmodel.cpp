#include "platform/widgets/tree/treeviewmodel.h"

#include <QFont>

#include <utility>

namespace velm {

QModelIndex TreeViewModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    return createIndex(row, 0, static_cast<quintptr>(nodes_.childAt(nodeOf(parent), row)));
}

QModelIndex TreeViewModel::parent(const QModelIndex& index) const {
    return indexOf(nodes_.parent(nodeOf(index)));
}

int TreeViewModel::rowCount(const QModelIndex& parent) const {
    const int node = nodeOf(parent);
    return isTold(node) ? told_[static_cast<std::size_t>(node)] : 0;
}

int TreeViewModel::columnCount(const QModelIndex& parent) const {
    Q_UNUSED(parent)
    return 1;
}

QIcon TreeViewModel::picture(int node) const {
    const QString& open = nodes_.selectedImage(node);
    const QString& name = nodes_.expanded(node) && !open.isEmpty() ? open : nodes_.image(node);
    if (name.isEmpty() || !images_)
        return {};
    const auto known = pictures_.constFind(name);
    return known != pictures_.constEnd() ? *known : *pictures_.insert(name, images_(name));
}

namespace {

/// The rest is the view's.
QFont heavier() {
    QFont font;
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

QVariant TreeViewModel::data(const QModelIndex& index, int role) const {
    const int node = nodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return shown_ ? shown_(node) : nodes_.text(node);
    case Qt::AccessibleTextRole:
        return nodes_.text(node);
    case Qt::FontRole:
        return node == marked_ && node != 0 ? heavier() : QVariant();
    case Qt::DecorationRole: {
        const QIcon icon = picture(node);
        return icon.isNull() ? QVariant() : icon;
    }
    default:
        return {};
    }
}

QModelIndex TreeViewModel::indexOf(int node) const {
    if (!nodes_.contains(node) || !isTold(node))
        return {};
    return createIndex(nodes_.place(node), 0, static_cast<quintptr>(node));
}

void TreeViewModel::setImages(std::function<QIcon(const QString& name)> images) {
    images_ = std::move(images);
    pictures_.clear();
}

void TreeViewModel::setMarked(int node) {
    const int before = std::exchange(marked_, node);
    changed(before);
    changed(node);
}

void TreeViewModel::reset() {
    beginResetModel();
    told_.assign(1, 0);
    marked_ = 0;
    endResetModel();
}

void TreeViewModel::added(int first) {
    const int count = nodes_.count();
    // New nodes bring their children along; those of older nodes are told one parent after the other.
    told_.resize(static_cast<std::size_t>(count) + 1);
    for (int node = first; node <= count; ++node)
        told(node) = nodes_.children(node);
    for (int node = first; node <= count; ++node) {
        const int parent = nodes_.parent(node);
        const int now = childCount(parent);
        if (!nodes_.contains(node) || parent >= first || told(parent) == now)
            continue;
        beginInsertRows(indexOf(parent), told(parent), now - 1);
        told(parent) = now;
        endInsertRows();
    }
}

void TreeViewModel::comes(int parent, int place) {
    change_ = Change::Insertion;
    parents_ = {parent};
    beginInsertRows(indexOf(parent), place, place);
}

void TreeViewModel::goes(int node) {
    change_ = Change::Removal;
    parents_ = {nodes_.parent(node)};
    if (marked_ == node || nodes_.isAbove(node, marked_))
        marked_ = 0;
    beginRemoveRows(indexOf(nodes_.parent(node)), nodes_.place(node), nodes_.place(node));
}

void TreeViewModel::moves(int node, int parent) {
    change_ = Change::Move;
    parents_ = {nodes_.parent(node), parent};
    const int place = nodes_.place(node);
    beginMoveRows(indexOf(nodes_.parent(node)), place, place, indexOf(parent), nodes_.children(parent));
}

void TreeViewModel::rearranged() {
    told_.resize(static_cast<std::size_t>(nodes_.count()) + 1);
    for (const int parent : parents_)
        told(parent) = childCount(parent);
    switch (std::exchange(change_, Change::None)) {
    case Change::Insertion:
        endInsertRows();
        break;
    case Change::Removal:
        endRemoveRows();
        break;
    case Change::Move:
        endMoveRows();
        break;
    case Change::None:
        break;
    }
}

void TreeViewModel::changed(int node) {
    const QModelIndex index = indexOf(node);
    if (index.isValid())
        emit dataChanged(index, index);
}

} // namespace velm
