#include "platform/widgets/grid/gridcolumns.h"

#include "platform/base/twips.h"

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

GridColumns::GridColumns(GridModel& model, GridView& view) : model_(model), view_(view) {
    QHeaderView* header = &view.header();
    QObject::connect(header, &QHeaderView::sectionMoved, header, [this](int, int from, int to) {
        if (!arranging_ && onMoved)
            onMoved(from, to);
    });
    QObject::connect(header, &QHeaderView::sectionResized, header, [this](int resized, int, int size) {
        if (!arranging_ && resized != stretched_ && size > 0)
            model_.column(resized).twips = twipsFromPixels(size);
    });
}

std::vector<int> GridColumns::order() const {
    std::vector<int> columns;
    for (int place = 0; place < count(); ++place)
        columns.push_back(logical(place));
    return columns;
}

bool GridColumns::isStretched(int column) const {
    const GridHeader& header = view_.header();
    return stretched_ == column && !header.isSectionHidden(column) && header.sectionSize(column) > 0;
}

void GridColumns::show(int column) {
    const QScopedValueRollback guard(arranging_, true);
    GridHeader& header = view_.header();
    const int twips = model_.column(column).twips;
    header.setSectionResizeMode(column, column == stretched_ ? QHeaderView::Stretch : QHeaderView::Interactive);
    header.setSectionHidden(column, twips <= 0);
    if (twips > 0 && column != stretched_)
        header.resizeSection(column, std::max(1, pixelsFromTwips(twips)));
}

void GridColumns::showAll() {
    const QScopedValueRollback guard(arranging_, true);
    GridHeader& header = view_.header();
    for (int column = 0; column < count(); ++column) {
        header.moveSection(header.visualIndex(column), column);
        show(column);
    }
}

void GridColumns::setCount(int wanted) {
    std::vector<int> from = order();
    const int stretchPlace = stretched_ < 0 ? -1 : view_.placeOf(stretched_);
    from.resize(static_cast<std::size_t>(wanted), -1);
    stretched_ = stretchPlace < wanted ? stretchPlace : -1;
    {
        const QScopedValueRollback guard(arranging_, true);
        model_.setColumns(from);
    }
    showAll();
}

void GridColumns::setWidth(int place, int twips) {
    if (!has(place))
        return;
    column(place).twips = std::max(twips, 0);
    show(logical(place));
}

int GridColumns::width(int place) const {
    if (!has(place))
        return 0;
    return isStretched(logical(place)) ? twipsFromPixels(view_.header().sectionSize(logical(place)))
                                       : column(place).twips;
}

void GridColumns::setStretched(int place) {
    const int before = stretched_;
    stretched_ = has(place) ? logical(place) : -1;
    for (const int changed : {before, stretched_}) {
        if (changed >= 0)
            show(changed);
    }
}

void GridColumns::move(int place, int to) {
    if (!has(place) || !has(to))
        return;
    const QScopedValueRollback guard(arranging_, true);
    view_.header().moveSection(place, to);
}

void GridColumns::setAlignment(int place, Align align) {
    if (!has(place))
        return;
    column(place).align = align;
    setHeaderAlignment(place, align);
    view_.viewport()->update();
}

void GridColumns::setHeaderAlignment(int place, Align align) {
    if (!has(place))
        return;
    column(place).headerAlign = align;
    model_.headerChanged(logical(place));
}

void GridColumns::setData(int place, int number) {
    if (has(place))
        column(place).data = number;
}

int GridColumns::data(int place) const {
    return has(place) ? column(place).data : 0;
}

void GridColumns::setHeader(int place, const QString& text) {
    if (!has(place))
        return;
    column(place).header = withoutMark(text);
    model_.headerChanged(logical(place));
}

QString GridColumns::header(int place) const {
    return has(place) ? column(place).header : QString();
}

void GridColumns::setMark(int place, Mark wanted) {
    if (!has(place) || mark(place) == wanted)
        return;
    column(place).mark = wanted;
    model_.headerChanged(logical(place));
}

FlexGrid::Mark GridColumns::mark(int place) const {
    return has(place) ? column(place).mark : Mark::None;
}

void GridColumns::setHeaderCell(int place, const QString& text) {
    if (!has(place))
        return;
    column(place).mark = markOf(text);
    setHeader(place, text);
}

QString GridColumns::headerCell(int place) const {
    switch (mark(place)) {
    case Mark::Ascending:
        return header(place) + ascendingMark;
    case Mark::Descending:
        return header(place) + descendingMark;
    case Mark::None:
        break;
    }
    return header(place);
}

} // namespace velm
