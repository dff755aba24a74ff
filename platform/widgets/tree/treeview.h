#pragma once
// A tree of nodes with pictures, shown from TreeNodes.
//
// Offered: nodes, keys, pictures, tags and selection through nodes(); the signals below for what the user does. A
// node's open picture shows while it is expanded. Changes between nodes().setRedraw(false) and (true) repaint once.
// Texts are cut at their right end, and never so that one has to scroll sideways: branches deep in a narrow tree are
// indented less. One node may be marked, whatever is selected. Keyboard: arrows, Home, End, Page, "+", "-" move and
// open; "*" opens the loaded nodes below; Return activates; typing looks up. What the program does through nodes() is
// shown and causes none of the signals.
#include "platform/controls/treenodes.h"
#include "platform/widgets/tree/treehands.h"

#include <QIcon>

#include <functional>
#include <memory>

namespace velm {

class TreeView : public TreeHands {
    Q_OBJECT

public:
    explicit TreeView(QWidget* parent = nullptr);
    ~TreeView() override;

    TreeNodes& nodes() { return nodes_; }
    const TreeNodes& nodes() const { return nodes_; }

    /// Who draws a picture of a name; names without one show none.
    void setImages(std::function<QIcon(const QString& name)> images);
    /// What is shown of a node's text; its tip tells the whole. Asked when it is painted: must be quick.
    void setShownText(std::function<QString(int node)> shown);
    /// How many characters at the end of a text stay in sight when it is cut: what is before them is cut then.
    void setKeptEnd(std::function<qsizetype(const QString& text)> kept);
    /// Shows one node as the one that is looked at elsewhere: heavier, in the accent's ink and tint. It is neither
    /// selected nor scrolled to. 0 for none, as after a clear().
    void setMarked(int node);
    int marked() const;
    /// Scrolls until a node can be seen; opens what lies above it.
    void ensureVisible(int node) { goTo(node, EnsureVisible); }
    /// The same, and a node that was out of sight comes to stand in the middle.
    void bringIntoSight(int node) { goTo(node, PositionAtCenter); }
    QModelIndex indexOf(int node) const override;
    int nodeOf(const QModelIndex& index) const override;

signals:
    /// The user opens a node, before its children are painted: the moment to load what lies below. Nodes that "*"
    /// opened are told when their children come into sight.
    void expanding(int node);
    void collapsed(int node);
    void nodeClicked(int node);                                    ///< left button
    void nodeActivated(int node);                                  ///< double click or Return
    void nodeReturned(int node);                                   ///< Return alone, where a click acts already
    void nodeRightClicked(int node, const QPoint& globalPosition); ///< node 0: beside all nodes
    void selectionMoved(int node);

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QRect wordsPlace(int node) const override;
    QString labelOf(int node) const override { return nodes_.text(node); }
    void setLabel(int node, const QString& text) override { nodes_.setText(node, text); }
    void bringNear(int node) override { goTo(node, EnsureVisible); }
    bool canOpen(int node) const override { return nodes_.children(node) > 0 && !nodes_.expanded(node); }
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Watch;
    void userOpened(const QModelIndex& index);
    void userClosed(const QModelIndex& index);
    void openLoaded(int node);
    void goTo(int node, ScrollHint hint);
    void indent();
    void takeFont();

    TreeNodes nodes_;
    std::unique_ptr<Watch> watch_;
};

} // namespace velm
