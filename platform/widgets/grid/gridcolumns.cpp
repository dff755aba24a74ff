#include "platform/widgets/grid/gridcolumns.h"

#include "platform/base/twips.h"
#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/grid/gridshares.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>

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
    QObject::connect(header, &QHeaderView::sectionResized, header, [this](int column, int, int size) {
        if (!arranging_ && column != stretched_ && column != alone_ && size > 0)
            resized(column, size);
    });
    view_.onResized = [this] { arrange(); };
}

std::vector<int> GridColumns::order() const {
    std::vector<int> columns(static_cast<std::size_t>(count()));
    std::ranges::generate(columns, [this, place = 0]() mutable { return logical(place++); });
    return columns;
}

std::vector<QStringList> GridColumns::cells(int first, int last, bool hidden) const {
    std::vector<QStringList> rows;
    for (int row = first; row >= 0 && row <= last; ++row) {
        QStringList& cells = rows.emplace_back();
        for (int place = 0; place < count(); ++place) {
            if (hidden || !isHidden(place))
                cells.append(model_.text(row, logical(place)));
        }
    }
    return rows;
}

bool GridColumns::isStretched(int column) const {
    const GridHeader& header = view_.header();
    return stretched_ == column && !header.isSectionHidden(column) && header.sectionSize(column) > 0;
}

bool GridColumns::isShared(int column) const {
    const GridModel::Column& one = std::as_const(model_).column(column);
    return one.weight > 0 && !one.held && one.twips > 0 && column != stretched_;
}

/// The column of the greatest weight, of several the first one as they stand; -1 for none.
int GridColumns::heaviest() const {
    int found = -1;
    for (const int one : order()) {
        const GridModel::Column& column = std::as_const(model_).column(one);
        const int heaviest = found < 0 ? 0 : std::as_const(model_).column(found).weight;
        if (column.twips > 0 && column.weight > heaviest)
            found = one;
    }
    return found;
}

void GridColumns::show(int column) {
    const QScopedValueRollback guard(arranging_, true);
    GridHeader& header = view_.header();
    const int twips = model_.column(column).twips;
    const bool filling = column == stretched_ || column == alone_;
    header.setSectionResizeMode(column, filling ? QHeaderView::Stretch : QHeaderView::Interactive);
    header.setSectionHidden(column, twips <= 0 || (alone_ >= 0 && column != alone_));
    if (twips > 0 && !filling && !isShared(column))
        header.resizeSection(column, shownWidth(column));
}

/// Its own width, or what its texts want where that is more and nobody has chosen.
int GridColumns::shownWidth(int column) const {
    const GridModel::Column& shown = std::as_const(model_).column(column);
    const int own = std::max(1, pixelsFromTwips(shown.twips));
    if (shown.widest.isEmpty() || shown.held)
        return own;
    // One more: the width of a text is told in whole pixels, and it is cut by what it really has.
    const int cells = view_.fontMetrics().horizontalAdvance(shown.widest) + 2 * gridlook::padding + 1;
    return std::max({own, cells, view_.header().sectionSizeHint(column) + 2 * gridlook::padding});
}

void GridColumns::showAll() {
    const QScopedValueRollback guard(arranging_, true);
    GridHeader& header = view_.header();
    for (int column = 0; column < count(); ++column)
        header.moveSection(header.visualIndex(column), column);
    alone_ = -1;
    for (int column = 0; column < count(); ++column)
        show(column);
    arrange();
}

/// What is left for those that share. A column that the user widens narrows no list, nor does one whose texts are
/// short.
bool GridColumns::isNarrow() const {
    int room = view_.width();
    for (int column = 0; column < count(); ++column) {
        const GridModel::Column& one = std::as_const(model_).column(column);
        if (one.weight == 0 && one.twips > 0 && !one.held && one.widest.isEmpty() && column != stretched_)
            room -= pixelsFromTwips(one.twips);
    }
    return room < narrowBelow_;
}

/// Everything as the list's width wants it.
void GridColumns::arrange() {
    const QScopedValueRollback guard(arranging_, true);
    const int alone = isNarrow() ? heaviest() : -1;
    std::vector<int> below;
    for (const int column : order()) {
        const GridModel::Column& one = std::as_const(model_).column(column);
        if (alone >= 0 && column != alone && one.twips > 0 && (one.weight > 0 || !one.widest.isEmpty()))
            below.push_back(column);
    }
    view_.setSecondLine(std::move(below));
    if (std::exchange(alone_, alone) != alone) {
        for (int column = 0; column < count(); ++column)
            show(column);
        if (onNarrow)
            onNarrow();
    }
    if (alone_ < 0)
        share(0);
}

/// Gives the columns from a place on that share what the others leave.
void GridColumns::share(int fromPlace) {
    constexpr int least = 6 * gridlook::padding;
    const QScopedValueRollback guard(arranging_, true);
    GridHeader& header = view_.header();
    std::vector<GridShare> shares;
    std::vector<int> columns;
    std::vector<int> headers;
    int room = view_.viewport()->width();
    for (int place = 0; place < count(); ++place) {
        const int column = logical(place);
        if (place >= fromPlace && isShared(column)) {
            shares.push_back({model_.column(column).weight, least, model_.column(column).need});
            columns.push_back(column);
            headers.push_back(header.sectionSizeHint(column));
        } else {
            room -= header.sectionSize(column);
        }
    }
    std::vector<int> widths = sharedWidths(room, withLeast(room, headers, shares));
    // What nobody needs has the heaviest, or, where it stays as it is, the last one.
    if (const auto widest = std::ranges::find(columns, heaviest()); !columns.empty())
        widths[widest == columns.end() ? columns.size() - 1 : static_cast<std::size_t>(widest - columns.begin())] +=
            std::max(room - std::accumulate(widths.begin(), widths.end(), 0), 0);
    for (std::size_t i = 0; i < columns.size(); ++i)
        header.resizeSection(columns[i], widths[i]);
}

/// The first rows stand for the others.
int GridColumns::needOf(int column) const {
    constexpr int looked = 32;
    const QFontMetrics metrics = view_.fontMetrics();
    int text = 0;
    for (int row = 0; row < std::min(model_.count(), looked); ++row)
        text = std::max(text, metrics.horizontalAdvance(model_.text(row, column)));
    const int picture = model_.column(column).before ? gridlook::iconEdge(metrics) + gridlook::padding : 0;
    return std::max(picture + text + 2 * gridlook::padding + 1, view_.header().neededWidth(column));
}

void GridColumns::fitShares() {
    for (int column = 0; column < count(); ++column) {
        if (isShared(column))
            model_.column(column).need = model_.count() > 0 ? needOf(column) : 0;
    }
    arrange();
}

/// The user has the edge of a column in hand: those left of it stay where they are meanwhile.
void GridColumns::resized(int column, int size) {
    model_.column(column).twips = twipsFromPixels(size);
    model_.column(column).held = true;
    share(view_.placeOf(column) + 1);
}

void GridColumns::setNarrowBelow(int pixels) {
    narrowBelow_ = pixels;
    arrange();
}

void GridColumns::setWeight(int place, int weight) {
    if (!has(place))
        return;
    column(place).weight = std::max(weight, 0);
    show(logical(place));
    arrange();
}

void GridColumns::setHeld(int place, bool held) {
    if (!has(place))
        return;
    column(place).held = held;
    show(logical(place));
    arrange();
}

void GridColumns::setCount(int wanted) {
    std::vector<int> from = order();
    const int stretchPlace = stretched_ < 0 ? -1 : view_.placeOf(stretched_);
    from.resize(static_cast<std::size_t>(wanted), -1);
    stretched_ = stretchPlace < wanted ? stretchPlace : -1;
    {
        const QScopedValueRollback guard(arranging_, true);
        model_.setColumns(from);
        for (int place = 0; place < count(); ++place)
            column(place).before = nullptr;
    }
    showAll();
}

void GridColumns::setWidth(int place, int twips) {
    if (!has(place))
        return;
    column(place).twips = std::max(twips, 0);
    show(logical(place));
    arrange();
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
    arrange();
}

void GridColumns::move(int place, int to) {
    if (!has(place) || !has(to))
        return;
    const QScopedValueRollback guard(arranging_, true);
    view_.header().moveSection(place, to);
    arrange();
}

void GridColumns::setAlignment(int place, Align align, FlexGrid::Wording wording) {
    if (!has(place))
        return;
    column(place).align = align;
    column(place).wording = std::move(wording);
    model_.headerChanged(logical(place));
    view_.viewport()->update();
}

void GridColumns::setPicture(int place, FlexGrid::Picture picture, int before) {
    if (!has(place) || before >= count())
        return;
    if (before < 0) {
        column(place).picture = std::move(picture);
    } else {
        column(before).before = std::move(picture);
        column(before).beforeOf = logical(place);
    }
    view_.viewport()->update();
}

void GridColumns::setData(int place, int number) {
    if (has(place))
        column(place).data = number;
}

int GridColumns::data(int place) const {
    return has(place) ? column(place).data : 0;
}

void GridColumns::setHeader(int place, const QString& text, const QString& widest) {
    if (!has(place))
        return;
    column(place).header = withoutMark(text);
    column(place).widest = widest;
    model_.headerChanged(logical(place));
    if (!widest.isEmpty()) {
        show(logical(place));
        arrange();
    }
}

QString GridColumns::header(int place) const {
    return has(place) ? column(place).header : QString();
}

void GridColumns::setMark(int place, Mark wanted) {
    if (!has(place) || mark(place) == wanted)
        return;
    column(place).mark = wanted;
    model_.headerChanged(logical(place));
    view_.sortingChanged();
}

FlexGrid::Mark GridColumns::mark(int place) const {
    return has(place) ? column(place).mark : Mark::None;
}

void GridColumns::setHeaderCell(int place, const QString& text) {
    if (!has(place))
        return;
    setMark(place, markOf(text));
    setHeader(place, text, QString(column(place).widest));
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
