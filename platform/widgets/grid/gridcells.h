#pragma once
// How the cells of a grid are painted.
#include <QStyledItemDelegate>

namespace velm {

class GridView;

class GridCells : public QStyledItemDelegate {
public:
    /// The view owns it.
    explicit GridCells(GridView& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Right of the last column, the rows from one to before another go on; `left` is where the columns end.
    void paintBeside(int left, int first, int behind) const;

private:
    void paintSecondLine(QPainter& painter, const QRect& rect, int row) const;
    bool paintPicture(QPainter& painter, const QStyleOptionViewItem& option, int column, const QString& text,
                      bool selected) const;
    int paintBefore(QPainter& painter, const QRect& cell, const QStyleOptionViewItem& option, const QModelIndex& index,
                    bool selected) const;
    void paintIcon(QPainter& painter, const QIcon& icon, const QRect& place, bool selected) const;

    GridView& view_;
};

} // namespace velm
