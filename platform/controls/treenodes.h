#pragma once
// The nodes of a tree control, without the control: unique keys, pictures closed and open, tags. Nodes count from 1 in
// the order of their making, and the index of one that was removed is given to no other; 0 is no node. Views watch
// through TreeObserver.
#include <QHash>
#include <QString>

#include <vector>

namespace velm {

class TreeObserver {
public:
    virtual ~TreeObserver() = default;
    virtual void treeReset() = 0; ///< all nodes are gone; told even while redraw is off
    /// The nodes from `first` to count() are new, each behind the children that its parent had.
    virtual void nodesAdded(int first) = 0;
    virtual void nodeChanged(int node) = 0;                  ///< text or pictures; 0: of several nodes
    virtual void nodeExpansion(int node, bool expanded) = 0; ///< the program opened or closed a node
    virtual void nodeSelected(int node) = 0;                 ///< the program selected a node
    /// Off: what comes is told when redraw is on again. On: all that was to be told has been told.
    virtual void redrawSwitched(bool on) = 0;

    // ---- a change of the structure, which is told before and after it even while redraw is off; nothing else is told
    // in between
    virtual void nodeComes(int parent, int place) = 0; ///< between the children that the parent has
    virtual void nodeGoes(int node) = 0;               ///< with all below it
    virtual void nodeMoves(int node, int parent) = 0;  ///< to stand as the last child of another one
    virtual void rearranged() = 0;                     ///< what was told by one of these three has been done
};

class TreeNodes {
public:
    TreeNodes() = default;
    TreeNodes(const TreeNodes&) = delete;
    TreeNodes& operator=(const TreeNodes&) = delete;

    /// Adds a last child of `parent` (0: a root) and gives its index; 0, with nothing changed, when the key is in use
    /// or the parent is none. Duplicates are found in constant time.
    int add(int parent, const QString& key, const QString& text, const QString& image, const QString& selectedImage);
    /// The same with the parent's key.
    int addUnder(const QString& parentKey, const QString& key, const QString& text, const QString& image,
                 const QString& selectedImage);
    enum class Beside { Before, After };
    /// Adds a sibling right before or after a node, otherwise as add().
    int addBeside(int sibling, Beside side, const QString& key, const QString& text, const QString& image,
                  const QString& selectedImage);
    /// Removes a node with all below it. A selection in it passes to its parent.
    void remove(int node);
    /// Makes a node, with all below it, the last child of another one. False, with nothing changed, when that is the
    /// node itself or below it, or when one of them does not stand. The last child of its parent stays where it is.
    bool setParent(int node, int parent);
    /// Another key; false, with nothing changed, when it is in use.
    bool setKey(int node, const QString& key);
    void clear();

    /// The highest index that was given; some may not stand any more.
    int count() const { return static_cast<int>(nodes_.size()); }
    bool contains(int node) const {
        return node >= 1 && node <= count() && nodes_[static_cast<std::size_t>(node - 1)].stands;
    }
    /// Index of a key, 0 for none.
    int indexOf(const QString& key) const { return byKey_.value(key, 0); }

    // ---- of a node; one that does not stand has empty texts and neither parent nor children
    const QString& key(int node) const { return at(node).key; }
    const QString& text(int node) const { return at(node).text; }
    const QString& image(int node) const { return at(node).image; }
    const QString& selectedImage(int node) const { return at(node).selectedImage; }
    const QString& tag(int node) const { return at(node).tag; }
    int parent(int node) const { return at(node).parent; }
    int children(int node) const { return static_cast<int>(at(node).children.size()); }
    int child(int node) const;              ///< the first one, 0 for none; node 0 gives the first root
    int next(int node) const;               ///< the next sibling, 0 for none
    int childAt(int node, int place) const; ///< from 0; node 0 gives the roots
    int rootCount() const { return static_cast<int>(roots_.size()); }
    int place(int node) const { return at(node).place; } ///< among its siblings, from 0
    int level(int node) const { return at(node).level; } ///< steps up to its root, which has 0
    bool isAbove(int above, int node) const;             ///< a parent, or a parent of one
    bool expanded(int node) const { return at(node).expanded; }

    void setText(int node, const QString& text);
    void setTag(int node, const QString& tag);
    void setImages(int node, const QString& image, const QString& selectedImage);
    /// By the program. Does not load anything: see TreeView::expanding for the user's expansions.
    void setExpanded(int node, bool expanded);
    /// What the view tells of the user's doing: kept, not told back.
    void noteExpanded(int node, bool expanded);

    int selected() const { return selected_; }
    void select(int node); ///< 0 for none; a node that does not stand is none
    void noteSelected(int node) { selected_ = contains(node) ? node : 0; }

    /// While off, the observer hears of nothing but a clear(); when it comes back on, of what changed, in few words.
    void setRedraw(bool on);
    bool redraw() const { return redraw_; }

    void setObserver(TreeObserver* observer) { observer_ = observer; }

private:
    struct Node {
        QString key;
        QString text;
        QString image;
        QString selectedImage;
        QString tag;
        int parent = 0;
        int place = 0;
        int level = 0;
        bool expanded = false;
        bool stands = true;
        std::vector<int> children;
    };
    /// What is still to be told when redraw comes back on.
    struct Untold {
        int added = 0; ///< first new node, 0 for none
        bool changed = false;
        bool selected = false;
        std::vector<int> expansions;
    };
    static const Node& none();
    const Node& at(int node) const { return contains(node) ? nodes_[static_cast<std::size_t>(node - 1)] : none(); }
    Node* find(int node) { return contains(node) ? &nodes_[static_cast<std::size_t>(node - 1)] : nullptr; }
    std::vector<int>& childrenOf(int parent);
    int make(int parent, const QString& key, const QString& text, const QString& image, const QString& selectedImage);
    void renumber(int parent, int from);
    /// The node and all below it, each before what is below it.
    std::vector<int> branch(int node) const;
    void tellAdded(int node);
    void tellChanged(int node);
    void tellUntold();

    std::vector<Node> nodes_;
    std::vector<int> roots_;
    QHash<QString, int> byKey_;
    int selected_ = 0;
    bool redraw_ = true;
    Untold untold_;
    TreeObserver* observer_ = nullptr;
};

} // namespace velm
