#include "platform/controls/treenodes.h"

#include <utility>

namespace velm {

const TreeNodes::Node& TreeNodes::none() {
    static const Node node;
    return node;
}

std::vector<int>& TreeNodes::childrenOf(int parent) {
    Node* node = find(parent);
    return node ? node->children : roots_;
}

bool TreeNodes::isAbove(int above, int node) const {
    int at = parent(node);
    while (at != 0 && at != above)
        at = parent(at);
    return at != 0;
}

int TreeNodes::add(int parent, const QString& key, const QString& text, const QString& image,
                   const QString& selectedImage) {
    if ((parent != 0 && !contains(parent)) || (!key.isEmpty() && byKey_.contains(key)))
        return 0;
    Node node;
    node.key = key;
    node.text = text;
    node.image = image;
    node.selectedImage = selectedImage;
    node.parent = parent;
    node.place = static_cast<int>(childrenOf(parent).size());
    node.level = parent == 0 ? 0 : level(parent) + 1;
    nodes_.push_back(std::move(node));
    const int index = count();
    childrenOf(parent).push_back(index);
    if (!key.isEmpty())
        byKey_.insert(nodes_.back().key, index);
    tellAdded(index);
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
    untold_ = {};
    if (observer_)
        observer_->treeReset();
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
    Node* found = find(node);
    if (!found || found->text == text)
        return;
    found->text = text;
    tellChanged(node);
}

void TreeNodes::setTag(int node, const QString& tag) {
    if (Node* found = find(node))
        found->tag = tag;
}

void TreeNodes::setImages(int node, const QString& image, const QString& selectedImage) {
    Node* found = find(node);
    if (!found)
        return;
    found->image = image;
    found->selectedImage = selectedImage;
    tellChanged(node);
}

void TreeNodes::setExpanded(int node, bool expanded) {
    Node* found = find(node);
    if (!found || found->expanded == expanded)
        return;
    found->expanded = expanded;
    if (!redraw_)
        untold_.expansions.push_back(node);
    else if (observer_)
        observer_->nodeExpansion(node, expanded);
}

void TreeNodes::noteExpanded(int node, bool expanded) {
    if (Node* found = find(node))
        found->expanded = expanded;
}

void TreeNodes::select(int node) {
    selected_ = contains(node) ? node : 0;
    if (!redraw_)
        untold_.selected = true;
    else if (observer_)
        observer_->nodeSelected(selected_);
}

void TreeNodes::setRedraw(bool on) {
    if (on == redraw_)
        return;
    redraw_ = on;
    if (!observer_) {
        untold_ = {};
        return;
    }
    if (on)
        tellUntold();
    observer_->redrawSwitched(on);
}

void TreeNodes::tellAdded(int node) {
    if (!redraw_) {
        if (untold_.added == 0)
            untold_.added = node;
    } else if (observer_) {
        observer_->nodesAdded(node);
    }
}

void TreeNodes::tellChanged(int node) {
    if (!redraw_)
        untold_.changed = true;
    else if (observer_)
        observer_->nodeChanged(node);
}

void TreeNodes::tellUntold() {
    const Untold untold = std::exchange(untold_, {});
    if (untold.added != 0)
        observer_->nodesAdded(untold.added);
    for (const int node : untold.expansions)
        observer_->nodeExpansion(node, expanded(node));
    if (untold.changed)
        observer_->nodeChanged(0);
    if (untold.selected)
        observer_->nodeSelected(selected_);
}

} // namespace velm
