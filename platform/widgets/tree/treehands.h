#pragma once
// What a hand does to the nodes of a tree beyond opening and choosing them: editing labels in their place, carrying
// nodes and dropping upon them.
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QTreeView>

namespace velm {

class EntryHands;

class TreeHands : public QTreeView {
    Q_OBJECT

public:
    explicit TreeHands(QWidget* parent = nullptr);

    // ---- a label, edited in its place: Return, Tab and the loss of the focus keep, Escape cancels
    /// Opens the editor on a node, all of its text selected. False where labelEditBegins() was refused or the node
    /// cannot be seen: it is scrolled into sight first. Another edit ends before, and is kept.
    bool startLabelEdit(int node);
    /// Ends the edit, if there is one, and tells labelEdited().
    void endLabelEdit(bool keep);
    /// The node whose label is edited, 0 for none.
    int editedNode() const;

    // ---- dropping upon nodes
    /// Shows one node as the one that would be dropped upon; 0 for none, as after it has gone.
    void setDropTarget(int node);
    int dropTarget() const { return dropTarget_; }
    /// The node at a place, anywhere in its row; 0 for none.
    int nodeAt(const QPoint& viewportPos) const { return nodeOf(indexAt(viewportPos)); }
    /// Scrolls by a step where the place is near the upper or lower edge, faster outside. For whoever carries, again
    /// and again while the pointer is there; a step comes some time after the one before. True when something moved.
    bool scrollNear(const QPoint& viewportPos);
    /// The pointer rests on a node while something is carried (0: on none): after a while a closed one with children
    /// opens, as by the user. May be told again and again.
    void hover(int node);
    static constexpr int hoverMilliseconds = 600;
    /// Whether nodes can be dragged. While they can, a press that moves chooses no other node on its way.
    void setDragging(bool on);

    virtual QModelIndex indexOf(int node) const = 0;
    virtual int nodeOf(const QModelIndex& index) const = 0;

signals:
    /// Directly before the editor opens; who sets *cancel refuses.
    void labelEditBegins(int node, bool* cancel);
    /// The editor is closed. Not cancelled: the node shows the text already. A node that went while it was edited is
    /// told when it has gone, cancelled.
    void labelEdited(int node, const QString& text, bool cancelled);
    /// By F2 or a second slow click on the selected node; startLabelEdit() is the owner's.
    void labelEditWanted(int node);
    /// The left button was pressed on a node and has moved: it is still down.
    void dragBegins(int node, const QPoint& globalPosition);

protected:
    virtual QRect wordsPlace(int node) const = 0; ///< in the viewport; empty where it is not shown
    virtual QString labelOf(int node) const = 0;
    virtual void setLabel(int node, const QString& text) = 0;
    virtual void bringNear(int node) = 0;
    virtual bool canOpen(int node) const = 0;

    EntryHands& hands() { return *hands_; }
    /// Over the row of the node that would be dropped upon; under it with `below`.
    void paintTarget(QPainter& painter, const QRect& row, bool below) const;

    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void updateGeometries() override;

private:
    EntryHands* hands_;
    QBasicTimer resting_;
    QElapsedTimer lastStep_; ///< of the scrolling
    int dropTarget_ = 0;
    int hovered_ = 0;
};

} // namespace velm
