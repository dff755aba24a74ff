#pragma once
// The rows of a grid as a view of Qt sees them: texts in memory or a source that is asked. Rows and columns count from
// 0, and columns stand in the order of their making; where they stand on the screen is the header's affair.
#include "platform/controls/gridsource.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/grid/gridrows.h"

#include <QAbstractTableModel>

namespace velm {

class GridModel : public QAbstractTableModel {
public:
    struct Column {
        QString header;
        QString widest; ///< of its texts, that it is to have room for
        FlexGrid::Align align = FlexGrid::Align::Left;
        FlexGrid::Wording wording;
        FlexGrid::Mark mark = FlexGrid::Mark::None;
        FlexGrid::Picture picture;
        FlexGrid::Picture before; ///< of the text that another column has, before this one's own
        int beforeOf = -1;        ///< that column
        int data = 0;
        int twips = 960;
        int weight = 0;    ///< its share of the free width; 0 for none
        bool held = false; ///< keeps its own width all the same
        int need = 0;      ///< pixels: of its share it takes no more; 0 for all
    };

    using QAbstractTableModel::QAbstractTableModel;

    int columnCount(const QModelIndex& parent = {}) const override;
    /// As the view knows it: while the model is silent, the number of rows before.
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : told_; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    bool hasColumn(int column) const { return column >= 0 && column < columnCount(); }
    Column& column(int column) { return columns_[static_cast<std::size_t>(column)]; }
    const Column& column(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    /// New columns; each takes over what the named old one had, -1 is a new one.
    void setColumns(const std::vector<int>& from);
    void headerChanged(int column);

    /// Rows as they are now.
    int count() const { return source_ ? source_->rowCount() : rows_.count(); }
    QString text(int row, int column) const;
    QString shown(int row, int ofColumn) const; ///< what the eye is given for it
    bool same(int row, int other, int column) const { return text(row, column) == text(other, column); }
    void setText(int row, int column, const QString& text);
    void resize(int count);
    /// Appends rows; the cells of each stand in the columns that `order` names, one after the other.
    void append(const std::vector<QStringList>& rows, const std::vector<int>& order);
    void append(const QString& line, const std::vector<int>& order);
    void remove(int row);
    /// False when the rows could not be sorted.
    bool sortBy(int column, bool descending);

    GridRows& rows() { return rows_; }
    GridSource* source() const { return source_.get(); }
    void setSource(std::unique_ptr<GridSource> source);

    /// Silent, the model changes without a word; loud again, it tells all at once.
    void setSilent(bool silent);
    bool silent() const { return silent_; }

private:
    template <typename Change>
    void replaced(Change change);
    void fill(int row, const QStringList& cells, const std::vector<int>& order);

    std::vector<Column> columns_;
    GridRows rows_;
    std::unique_ptr<GridSource> source_;
    int told_ = 0;
    bool silent_ = false;
    bool changed_ = false;
};

} // namespace velm
