// Columns of a grid: places, widths, headers and their marks.
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid_p.h"

#include <QScopedValueRollback>

namespace velm {
namespace {

constexpr QChar ascendingMark = u'>';
constexpr QChar descendingMark = u'<';

FlexGrid::Mark markOf(const QString& cell) {
    return cell.endsWith(ascendingMark)    ? FlexGrid::Mark::Ascending
           : cell.endsWith(descendingMark) ? FlexGrid::Mark::Descending
                                           : FlexGrid::Mark::None;
}

QString withoutMark(const QString& cell) {
    return markOf(cell) == FlexGrid::Mark::None ? cell : cell.chopped(1);
}

} // namespace

void FlexGrid::Private::showColumn(int column) {
    const QScopedValueRollback guard(arranging, true);
    GridHeader& header = view->header();
    const int twips = model.column(column).twips;
    header.setSectionResizeMode(column, column == stretched ? QHeaderView::Stretch : QHeaderView::Interactive);
    header.setSectionHidden(column, twips <= 0);
    if (twips > 0 && column != stretched)
        header.resizeSection(column, std::max(1, pixelsFromTwips(twips)));
}

void FlexGrid::Private::showColumns() {
    const QScopedValueRollback guard(arranging, true);
    GridHeader& header = view->header();
    for (int column = 0; column < model.columnCount(); ++column) {
        header.moveSection(header.visualIndex(column), column);
        showColumn(column);
    }
}

void FlexGrid::setCols(int count) {
    count = std::max(count, 0);
    if (count == cols())
        return;
    std::vector<int> from = d_->order();
    const int stretchPlace = d_->stretched < 0 ? -1 : d_->view->placeOf(d_->stretched);
    from.resize(static_cast<std::size_t>(count), -1);
    d_->stretched = stretchPlace < count ? stretchPlace : -1;
    {
        const QScopedValueRollback guard(d_->arranging, true);
        d_->model.setColumns(from);
    }
    d_->showColumns();
    d_->view->restoreSelection();
}

int FlexGrid::cols() const {
    return d_->model.columnCount();
}

void FlexGrid::setColWidth(int col, int twips) {
    if (!d_->hasPlace(col))
        return;
    d_->column(col).twips = std::max(twips, 0);
    d_->showColumn(d_->logical(col));
}

int FlexGrid::colWidth(int col) const {
    if (!d_->hasPlace(col))
        return 0;
    const int column = d_->logical(col);
    return d_->isStretched(column) ? twipsFromPixels(d_->view->header().sectionSize(column))
                                   : d_->model.column(column).twips;
}

void FlexGrid::setColAlignment(int col, Align align) {
    if (!d_->hasPlace(col))
        return;
    d_->column(col).align = align;
    setHeaderAlignment(col, align);
    d_->view->viewport()->update();
}

void FlexGrid::setHeaderAlignment(int col, Align align) {
    if (!d_->hasPlace(col))
        return;
    d_->column(col).headerAlign = align;
    d_->model.headerChanged(d_->logical(col));
}

void FlexGrid::setColData(int col, int number) {
    if (d_->hasPlace(col))
        d_->column(col).data = number;
}

int FlexGrid::colData(int col) const {
    return d_->hasPlace(col) ? d_->column(col).data : 0;
}

void FlexGrid::setColPosition(int col, int place) {
    if (!d_->hasPlace(col) || !d_->hasPlace(place))
        return;
    const QScopedValueRollback guard(d_->arranging, true);
    d_->view->header().moveSection(col, place);
}

void FlexGrid::setColumnsMovable(bool movable) {
    d_->view->header().setSectionsMovable(movable);
}

void FlexGrid::setStretchCol(int col) {
    const int before = d_->stretched;
    d_->stretched = d_->hasPlace(col) ? d_->logical(col) : -1;
    for (const int column : {before, d_->stretched}) {
        if (column >= 0)
            d_->showColumn(column);
    }
}

void FlexGrid::setHeader(int col, const QString& text) {
    if (!d_->hasPlace(col))
        return;
    d_->column(col).header = withoutMark(text);
    d_->model.headerChanged(d_->logical(col));
}

QString FlexGrid::header(int col) const {
    return d_->hasPlace(col) ? d_->column(col).header : QString();
}

QString FlexGrid::headerCell(int col) const {
    switch (sortMark(col)) {
    case Mark::Ascending:
        return header(col) + ascendingMark;
    case Mark::Descending:
        return header(col) + descendingMark;
    case Mark::None:
        break;
    }
    return header(col);
}

void FlexGrid::setHeaderFontSize(int points) {
    d_->view->header().setPoints(points);
}

FlexGrid::Mark FlexGrid::sortMark(int col) const {
    return d_->hasPlace(col) ? d_->column(col).mark : Mark::None;
}

void FlexGrid::setSortMark(int col, Mark mark) {
    if (!d_->hasPlace(col) || sortMark(col) == mark)
        return;
    d_->column(col).mark = mark;
    d_->model.headerChanged(d_->logical(col));
}

void FlexGrid::setHeaderCell(int col, const QString& text) {
    d_->column(col).mark = markOf(text);
    setHeader(col, text);
}

} // namespace velm
