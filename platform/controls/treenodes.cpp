#include "platform/controls/treenodes.h"

namespace velm {

int TreeNodes::add(int parent, const QString& key, const QString& text, const QString& image,
                   const QString& selectedImage) {
    if ((parent != 0 && !contains(parent)) || (!key.isEmpty() && byKey_.contains(key)))
        return 0;
    const std::vector<int>& before = parent == 0 ? roots_ : at(parent).children;
    const int place = static_cast<int>(before.size());
    if (TreeObserver* observer = told())
        observer->nodeAdding(parent, place);
    Node node;
    node.key = key;
    node.text = text;
    node.image = image;
    node.selectedImage = selectedImage;
    node.parent = parent;
    node.place = place;
    nodes_.push_back(std::move(node));
    const int index = count();
    (parent == 0 ? roots_ : at(parent).children).push_back(index);
    if (!key.isEmpty())
        byKey_.insert(key, index);
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->nodeAdded(index);
    return index;
}

int TreeNodes::addUnder(const QString& parentKey, const QString& key, const QString& text, const QString& image,
                        const QString& selectedImage) {
    const int parent = indexOf(parentKey);
    return parent == 0 ? 0 : add(parent, key, text, image, selectedImage);
}

void TreeNodes::clear() {
    nodes_.clear();
    roots_.clear();
    byKey_.clear();
    selected_ = 0;
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->treeReset();
}

int TreeNodes::child(int node) const {
    return childAt(node, 0);
}

int TreeNodes::next(int node) const {
    return contains(node) ? childAt(parent(node), place(node) + 1) : 0;
}

int TreeNodes::childAt(int node, int place) const {
    if (node != 0 && !contains(node))
        return 0;
    const std::vector<int>& children = node == 0 ? roots_ : at(node).children;
    return place >= 0 && place < static_cast<int>(children.size()) ? children[static_cast<std::size_t>(place)] : 0;
}

void TreeNodes::setText(int node, const QString& text) {
    at(node).text = text;
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->nodeChanged(node);
}

void TreeNodes::setImages(int node, const QString& image, const QString& selectedImage) {
    at(node).image = image;
    at(node).selectedImage = selectedImage;
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->nodeChanged(node);
}

void TreeNodes::setExpanded(int node, bool expanded) {
    at(node).expanded = expanded;
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->nodeExpansion(node, expanded);
}

void TreeNodes::select(int node) {
    selected_ = contains(node) ? node : 0;
    changed_ = true;
    if (TreeObserver* observer = told())
        observer->nodeSelected(selected_);
}

void TreeNodes::setRedraw(bool on) {
    if (on == redraw_)
        return;
    redraw_ = on;
    if (!on) {
        changed_ = false;
    } else if (changed_ && observer_) {
        observer_->treeReset();
    }
}

} // namespace velm
