#pragma once
// How the entries of a ListView are laid out and drawn.
#include <QStyledItemDelegate>

namespace velm {

enum class ListArrangement {
    List,       ///< rows in columns, from top to bottom, with small pictures
    LargeIcons, ///< large pictures above two lines of words, from left to right
    SmallIcons  ///< small pictures beside their words, from left to right
};

class ListDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The widest column of the list arrangement, in pixels at the usual size of type.
    static constexpr int widestColumn = 320;

    void setArrangement(ListArrangement arrangement) { arrangement_ = arrangement; }
    /// All entries are of one size.
    void setCell(const QSize& cell) { cell_ = cell; }
    const QSize& cell() const { return cell_; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Where the picture and the words stand in a cell.
    QRect picturePlace(const QRect& cell, const QFontMetrics& metrics) const;
    QRect wordsPlace(const QRect& cell, const QFontMetrics& metrics) const;
    /// Whether the whole text can be seen in such a cell.
    bool fits(const QString& text, const QRect& cell, const QFont& font) const;
    /// The height of large pictures.
    static int largeEdge(const QFontMetrics& metrics);
    /// The ink of faint entries.
    static QColor faintInk(const QPalette& palette);

private:
    /// The text in the lines that there is room for, the last one cut.
    QStringList lines(const QString& text, const QFont& font, int width) const;

    ListArrangement arrangement_ = ListArrangement::List;
    QSize cell_;
};

} // namespace velm
