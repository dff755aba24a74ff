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

int TreeNodes::make(int parent, const QString& key, const QString& text, const QString& image,
                    const QString& selectedImage) {
    Node node;
    node.key = key;
    node.text = text;
    node.image = image;
    node.selectedImage = selectedImage;
    node.parent = parent;
    node.level = parent == 0 ? 0 : level(parent) + 1;
    nodes_.push_back(std::move(node));
    if (!key.isEmpty())
        byKey_.insert(nodes_.back().key, count());
    return count();
}

int TreeNodes::add(int parent, const QString& key, const QString& text, const QString& image,
                   const QString& selectedImage) {
    if ((parent != 0 && !contains(parent)) || (!key.isEmpty() && byKey_.contains(key)))
        return 0;
    const int node = make(parent, key, text, image, selectedImage);
    std::vector<int>& siblings = childrenOf(parent);
    find(node)->place = static_cast<int>(siblings.size());
    siblings.push_back(node);
    tellAdded(node);
    return node;
}

int TreeNodes::addUnder(const QString& parentKey, const QString& key, const QString& text, const QString& image,
                        const QString& selectedImage) {
    const int parent = indexOf(parentKey);
    return parent == 0 ? 0 : add(parent, key, text, image, selectedImage);
}

int TreeNodes::addBeside(int sibling, Beside side, const QString& key, const QString& text, const QString& image,
                         const QString& selectedImage) {
    if (!contains(sibling) || (!key.isEmpty() && byKey_.contains(key)))
        return 0;
    const int above = parent(sibling);
    const int where = place(sibling) + (side == Beside::After ? 1 : 0);
    tellUntold();
    if (observer_)
        observer_->nodeComes(above, where);
    const int node = make(above, key, text, image, selectedImage);
    std::vector<int>& siblings = childrenOf(above);
    siblings.insert(siblings.begin() + where, node);
    renumber(above, where);
    if (observer_)
        observer_->rearranged();
    return node;
}

void TreeNodes::remove(int node) {
    if (!contains(node))
        return;
    if (selected_ == node || isAbove(node, selected_))
        select(parent(node));
    tellUntold();
    if (observer_)
        observer_->nodeGoes(node);
    const int above = parent(node);
    const int where = place(node);
    for (const int gone : branch(node)) {
        byKey_.remove(at(gone).key);
        *find(gone) = Node{.stands = false};
    }
    std::vector<int>& siblings = childrenOf(above);
    siblings.erase(siblings.begin() + where);
    renumber(above, where);
    if (observer_)
        observer_->rearranged();
}

bool TreeNodes::setParent(int node, int parent) {
    if (!contains(node) || !contains(parent) || node == parent || isAbove(node, parent))
        return false;
    const int before = at(node).parent;
    const int where = place(node);
    if (before == parent && next(node) == 0)
        return true;
    tellUntold();
    if (observer_)
        observer_->nodeMoves(node, parent);
    std::vector<int>& siblings = childrenOf(before);
    siblings.erase(siblings.begin() + where);
    renumber(before, where);
    childrenOf(parent).push_back(node);
    find(node)->parent = parent;
    renumber(parent, children(parent) - 1);
    for (const int moved : branch(node))
        find(moved)->level = level(at(moved).parent) + 1;
    if (observer_)
        observer_->rearranged();
    return true;
}

bool TreeNodes::setKey(int node, const QString& key) {
    Node* found = find(node);
    if (!found || (found->key != key && !key.isEmpty() && byKey_.contains(key)))
        return false;
    byKey_.remove(found->key);
    found->key = key;
    if (!key.isEmpty())
        byKey_.insert(key, node);
    return true;
}

void TreeNodes::renumber(int parent, int from) {
    const std::vector<int>& siblings = childrenOf(parent);
    for (std::size_t place = static_cast<std::size_t>(from); place < siblings.size(); ++place)
        find(siblings[place])->place = static_cast<int>(place);
}

std::vector<int> TreeNodes::branch(int node) const {
    std::vector<int> all{node};
    for (std::size_t next = 0; next < all.size(); ++next) {
        const std::vector<int>& below = at(all[next]).children;
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
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
    if (on)
        tellUntold();
    if (observer_)
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
    if (!observer_) {
        untold_ = {};
        return;
    }
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
