#include "platform/widgets/flexgrid.h"

#include "platform/text/twips.h"
#include "platform/widgets/gridmodel.h"
#include "platform/widgets/gridview.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QVBoxLayout>

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

struct FlexGrid::Private {
    explicit Private(FlexGrid* grid) : model(grid), view(new GridView(model, grid)) {}

    bool hasPlace(int place) const { return place >= 0 && place < model.columnCount(); }
    int logical(int place) const { return view->logicalAt(place); }
    GridModel::Column& column(int place) { return model.column(logical(place)); }
    std::vector<int> order() const {
        std::vector<int> columns;
        for (int place = 0; place < model.columnCount(); ++place)
            columns.push_back(logical(place));
        return columns;
    }
    bool isStretched(int column) const {
        return stretched == column && !view->header().isSectionHidden(column) && view->header().sectionSize(column) > 0;
    }
    void showColumn(int column);
    void showColumns();
    QString line(int row, bool hidden) const;
    QString lines(bool hidden, const QString& between) const;
    void clampSelection(bool reveal = false) { view->select(view->anchor(), view->end(), reveal); }

    GridModel model;
    GridView* view;
    int stretched = -1;     ///< logical column
    bool arranging = false; ///< the program, not the user, changes the header
    bool goHome = false;    ///< the rows are others: show the first one
};

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

QString FlexGrid::Private::line(int row, bool hidden) const {
    QStringList cells;
    for (int place = 0; place < model.columnCount(); ++place) {
        if (hidden || !view->header().isSectionHidden(logical(place)))
            cells.append(model.text(row, logical(place)));
    }
    return cells.join(u'\t');
}

QString FlexGrid::Private::lines(bool hidden, const QString& between) const {
    QString text;
    if (view->end() < 0)
        return text;
    const auto [first, last] = std::minmax({view->anchor(), view->end()});
    for (int row = first; row <= last; ++row) {
        if (row > first)
            text += between;
        text += line(row, hidden);
    }
    return text;
}

FlexGrid::FlexGrid(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(d_->view);
    setFocusProxy(d_->view);
    GridView& view = *d_->view;
    view.onClicked = [this](int row, int place) { emit clicked(row + 1, place); };
    view.onDoubleClicked = [this](int row, int place) { emit doubleClicked(row + 1, place); };
    view.onRightClicked = [this](int row, int place, const QPoint& at) { emit rightClicked(row + 1, place, at); };
    view.onActivated = [this](int row) { emit activated(row + 1); };
    view.onDelete = [this] { emit deletePressed(); };
    view.onCopy = [this] { QGuiApplication::clipboard()->setText(d_->lines(false, QStringLiteral("\r\n"))); };
    view.onAnchorChanged = [this] { emit rowChanged(row()); };
    GridHeader& header = view.header();
    header.onClicked = [this](int place) { emit clicked(0, place); };
    header.onDoubleClicked = [this](int place) { emit doubleClicked(0, place); };
    header.onRightClicked = [this](int place, const QPoint& at) { emit rightClicked(0, place, at); };
    connect(&header, &QHeaderView::sectionMoved, this, [this](int, int from, int to) {
        if (!d_->arranging)
            emit columnMoved(from, to);
    });
    connect(&header, &QHeaderView::sectionResized, this, [this](int column, int, int size) {
        if (!d_->arranging && column != d_->stretched && size > 0)
            d_->model.column(column).twips = twipsFromPixels(size);
    });
}

FlexGrid::~FlexGrid() {
    // Before its model goes.
    delete d_->view;
}

// ---- columns

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
    d_->model.headerChanged(d_->logical(col));
    d_->view->viewport()->update();
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

// ---- rows

int FlexGrid::rows() const {
    return d_->model.count() + 1;
}

void FlexGrid::setRows(int count) {
    d_->goHome = d_->goHome || (count <= 1 && !redraw());
    d_->model.resize(count - 1);
    d_->clampSelection();
}

void FlexGrid::addItem(const QString& cells) {
    d_->model.append(cells, d_->order());
}

void FlexGrid::addItems(const std::vector<QStringList>& rows) {
    d_->model.append(rows, d_->order());
}

void FlexGrid::removeItem(int row) {
    if (row < 1 || row >= rows() || source())
        return;
    const auto moved = [removed = row - 1](int at) { return at > removed ? at - 1 : at; };
    const int anchor = moved(d_->view->anchor());
    const int end = moved(d_->view->end());
    d_->view->whileChanging([this, row] { d_->model.remove(row - 1); });
    d_->view->select(anchor, end, false);
}

QString FlexGrid::text(int row, int col) const {
    if (!d_->hasPlace(col))
        return {};
    return row == 0 ? headerCell(col) : d_->model.text(row - 1, d_->logical(col));
}

void FlexGrid::setText(int row, int col, const QString& text) {
    if (!d_->hasPlace(col))
        return;
    if (row == 0) {
        d_->column(col).mark = markOf(text);
        setHeader(col, text);
        return;
    }
    d_->model.setText(row - 1, d_->logical(col), text);
    // Neighbours may be one cell with this one now, or no more.
    if (redraw() && mergeCells())
        d_->view->viewport()->update();
}

void FlexGrid::setSource(std::unique_ptr<GridSource> source) {
    d_->model.setSource(std::move(source));
    d_->view->select(-1, -1, false);
    showFirst();
}

GridSource* FlexGrid::source() const {
    return d_->model.source();
}

// ---- order

bool FlexGrid::sort(int col, bool descending) {
    if (!d_->hasPlace(col))
        return false;
    GridView& view = *d_->view;
    GridRows& memory = d_->model.rows();
    const bool all = view.anchor() != view.end() && selectedRows() == std::pair(1, rows() - 1);
    const int followed = source() || view.anchor() < 0 ? -1 : memory.identity(view.anchor());
    if (!d_->model.sortBy(d_->logical(col), descending))
        return false;
    for (int place = 0; place < cols(); ++place)
        setSortMark(place, place != col ? Mark::None : descending ? Mark::Descending : Mark::Ascending);
    if (!all) {
        const int row = followed < 0 ? -1 : memory.find(followed);
        view.select(row, row, true);
        if (row < 0)
            showFirst();
    }
    return true;
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

void FlexGrid::setMergeCells(bool merge) {
    d_->view->setMerging(merge);
}

bool FlexGrid::mergeCells() const {
    return d_->view->merging();
}

bool FlexGrid::joinsAbove(int row, int col) const {
    return d_->hasPlace(col) && row >= 1 && d_->view->joinsAbove(row - 1, col);
}

// ---- selection

int FlexGrid::row() const {
    return d_->view->anchor() + 1;
}

int FlexGrid::rowSel() const {
    return d_->view->end() + 1;
}

void FlexGrid::setRow(int row) {
    d_->view->select(row - 1, row - 1, true);
}

void FlexGrid::setRowSel(int row) {
    if (row < 1)
        return;
    const int anchor = d_->view->anchor();
    d_->view->select(anchor < 0 ? row - 1 : anchor, row - 1, true);
}

void FlexGrid::selectAll() {
    d_->view->selectAll();
}

std::pair<int, int> FlexGrid::selectedRows() const {
    return std::minmax({row(), rowSel()});
}

QString FlexGrid::clip() const {
    return d_->lines(true, QStringLiteral("\r"));
}

int FlexGrid::rowAt(const QPoint& point) const {
    const GridHeader& header = d_->view->header();
    if (header.rect().contains(header.mapFrom(this, point)))
        return 0;
    const QWidget& rows = *d_->view->viewport();
    const QPoint at = rows.mapFrom(this, point);
    const int row = rows.rect().contains(at) ? d_->view->rowAt(at.y()) : -1;
    return row < 0 ? -1 : row + 1;
}

int FlexGrid::topRow() const {
    return d_->view->topRow() + 1;
}

void FlexGrid::setTopRow(int row) {
    d_->view->setTopRow(row - 1);
}

void FlexGrid::showFirst() {
    d_->goHome = !redraw();
    if (redraw())
        setTopRow(1);
}

void FlexGrid::setRedraw(bool on) {
    if (on == redraw())
        return;
    if (!on) {
        d_->view->setUpdatesEnabled(false);
        d_->model.setSilent(true);
        return;
    }
    d_->view->whileChanging([this] { d_->model.setSilent(false); });
    d_->view->select(d_->view->anchor(), d_->view->end(), false);
    if (std::exchange(d_->goHome, false))
        d_->view->setTopRow(0);
    d_->view->setUpdatesEnabled(true);
}

bool FlexGrid::redraw() const {
    return !d_->model.silent();
}

QTableView* FlexGrid::view() const {
    return d_->view;
}

bool FlexGrid::event(QEvent* event) {
    // The view has the focus: it must bear the name that the list was given.
    if (event->type() == QEvent::Polish || event->type() == QEvent::Show)
        d_->view->setAccessibleName(accessibleName());
    return QWidget::event(event);
}

void FlexGrid::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        d_->view->takeFont();
}

} // namespace velm
