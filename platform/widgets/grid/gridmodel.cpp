#include "platform/widgets/grid/gridmodel.h"

namespace velm {

namespace {

int alignmentOf(FlexGrid::Align align) {
    switch (align) {
    case FlexGrid::Align::Centre:
        return static_cast<int>(Qt::AlignHCenter | Qt::AlignVCenter);
    case FlexGrid::Align::Right:
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    case FlexGrid::Align::Left:
        break;
    }
    return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!hasColumn(index.column()))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return shown(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return alignmentOf(column(index.column()).align);
    default:
        return {};
    }
}

QString GridModel::shown(int row, int ofColumn) const {
    const FlexGrid::Wording& wording = column(ofColumn).wording;
    return wording ? wording(text(row, ofColumn)) : text(row, ofColumn);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || !hasColumn(section))
        return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return column(section).header;
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(column(section).align);
    return {};
}

template <typename Change>
void GridModel::replaced(Change change) {
    if (silent_) {
        change();
        changed_ = true;
        return;
    }
    beginResetModel();
    change();
    told_ = count();
    endResetModel();
}

void GridModel::setColumns(const std::vector<int>& from) {
    // The columns are told even while the rows are not: the header must know them to place them.
    beginResetModel();
    std::vector<Column> columns(from.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (hasColumn(from[i]))
            columns[i] = std::move(column(from[i]));
    }
    columns_ = std::move(columns);
    rows_.setColumns(from);
    told_ = silent_ ? told_ : count();
    endResetModel();
}

void GridModel::headerChanged(int column) {
    emit headerDataChanged(Qt::Horizontal, column, column);
}

QString GridModel::text(int row, int column) const {
    if (!source_)
        return rows_.text(row, column);
    return row >= 0 && row < source_->rowCount() && hasColumn(column) ? source_->text(row, column) : QString();
}

void GridModel::setText(int row, int column, const QString& text) {
    if (source_ || row < 0 || row >= rows_.count() || !hasColumn(column))
        return;
    rows_.setText(row, column, text);
    if (!silent_)
        emit dataChanged(index(row, column), index(row, column));
}

void GridModel::resize(int count) {
    if (count <= 0 || source_) {
        if (count > 0)
            return;
        replaced([this] {
            source_.reset();
            rows_.resize(0);
        });
        return;
    }
    if (count != rows_.count())
        replaced([this, count] { rows_.resize(count); });
}

void GridModel::fill(int row, const QStringList& cells, const std::vector<int>& order) {
    const qsizetype width = std::min(cells.size(), static_cast<qsizetype>(order.size()));
    for (qsizetype i = 0; i < width; ++i)
        rows_.setText(row, order[static_cast<std::size_t>(i)], cells[i]);
}

void GridModel::append(const std::vector<QStringList>& rows, const std::vector<int>& order) {
    if (source_ || rows.empty())
        return;
    const int added = static_cast<int>(rows.size());
    if (!silent_)
        beginInsertRows({}, told_, told_ + added - 1);
    if (added > 1)
        rows_.reserve(rows_.count() + added);
    for (const QStringList& cells : rows)
        fill(rows_.append(), cells, order);
    changed_ = true;
    if (!silent_) {
        told_ += added;
        endInsertRows();
    }
}

void GridModel::append(const QString& line, const std::vector<int>& order) {
    append(std::vector<QStringList>{line.split(u'\t')}, order);
}

void GridModel::remove(int row) {
    if (source_ || row < 0 || row >= rows_.count())
        return;
    if (!silent_)
        beginRemoveRows({}, row, row);
    rows_.remove(row);
    changed_ = true;
    if (!silent_) {
        --told_;
        endRemoveRows();
    }
}

bool GridModel::sortBy(int column, bool descending) {
    if (!hasColumn(column))
        return false;
    if (!source_)
        rows_.sort(column, descending);
    else if (!source_->sort(column, descending))
        return false;
    if (silent_)
        changed_ = true;
    else if (told_ > 0)
        emit dataChanged(index(0, 0), index(told_ - 1, columnCount() - 1));
    return true;
}

void GridModel::setSource(std::unique_ptr<GridSource> source) {
    replaced([this, &source] {
        rows_.resize(0);
        source_ = std::move(source);
    });
}

void GridModel::setSilent(bool silent) {
    if (silent == silent_)
        return;
    silent_ = silent;
    if (silent) {
        changed_ = false;
        return;
    }
    if (!changed_ && told_ == count())
        return;
    beginResetModel();
    told_ = count();
    endResetModel();
}

} // namespace velm
