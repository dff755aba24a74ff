#pragma once
// A list of entries with pictures, in one of three arrangements, shown from ListItems. Entries count from 1; 0 is none.
//
// One entry at most is selected. Keyboard: arrows, Home, End, Page; typing looks up; Return activates; F2 asks for an
// edit. Texts are cut at their right end, the tip tells the whole. What the program does through items() is shown and
// causes none of the signals.
#include "platform/controls/listitems.h"
#include "platform/widgets/list/listdelegate.h"

#include <QIcon>
#include <QListView>

#include <functional>
#include <memory>

namespace velm {

class EntryHands;

class ListView : public QListView {
    Q_OBJECT

public:
    using Arrangement = ListArrangement;

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    ListItems& items() { return items_; }
    const ListItems& items() const { return items_; }

    void setArrangement(Arrangement arrangement);
    Arrangement arrangement() const { return arrangement_; }
    /// Who draws a picture of a name; names without one show none.
    void setImages(std::function<QIcon(const QString& name)> images);
    /// Whether an entry is shown faint. Asked when it is painted: must be quick.
    void setFaint(std::function<bool(const QString& key)> faint);
    /// What is told of an entry beside the pointer, and to who cannot see it; without it the whole text, where that
    /// cannot be seen.
    void setTips(std::function<QString(int item)> tips);
    /// Whether entries can be dragged. While they can, a press that moves chooses no other entry on its way.
    void setDragging(bool on);
    void ensureVisible(int item);
    int itemAt(const QPoint& viewportPos) const;
    QRect itemPlace(int item) const; ///< in the viewport
    void doItemsLayout() override;

    // ---- a label, edited in its place, as in TreeHands
    bool startLabelEdit(int item);
    void endLabelEdit(bool keep);
    int editedItem() const;

signals:
    void itemClicked(int item);   ///< left button
    void itemActivated(int item); ///< double click or Return
    void selectionMoved(int item);
    void focusTaken();
    void itemRightClicked(int item, const QPoint& globalPosition); ///< entry 0: beside all entries
    void dragBegins(int item, const QPoint& globalPosition);
    void labelEditWanted(int item);
    void labelEditBegins(int item, bool* cancel);
    void labelEdited(int item, const QString& text, bool cancelled);

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    bool viewportEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void updateGeometries() override;

private:
    class Watch;
    void measure();
    /// The width of the columns that share a row, each of them at least so wide.
    int columnOfRow(int least) const;
    void noteFocus(const QFocusEvent& event);

    ListItems items_;
    Arrangement arrangement_ = Arrangement::List;
    std::function<QString(int item)> tips_;
    std::unique_ptr<Watch> watch_;
};

} // namespace velm
