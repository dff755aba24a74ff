#include "platform/widgets/treeview.h"

namespace velm {

class TreeView::Model {};

TreeView::TreeView(QWidget* parent) : QTreeView(parent), model_(std::make_unique<Model>()) {}

TreeView::~TreeView() = default;

void TreeView::setImages(std::function<QIcon(const QString& name)>) {}

void TreeView::ensureVisible(int) {}

QModelIndex TreeView::indexOf(int) const {
    return {};
}

int TreeView::nodeOf(const QModelIndex&) const {
    return 0;
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    QTreeView::contextMenuEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    QTreeView::keyPressEvent(event);
}

} // namespace velm
