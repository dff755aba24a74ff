#include "platform/widgets/grid/flexgrid.h"

#include "platform/widgets/grid/gridcolumns.h"
#include "platform/widgets/grid/gridmodel.h"
#include "platform/widgets/grid/gridview.h"
#include "platform/widgets/grid/tablemime.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QVBoxLayout>

namespace velm {

struct FlexGrid::Private {
    explicit Private(FlexGrid* grid) : model(grid), view(new GridView(model, grid)), columns(model, *view) {}
    void clampSelection() const { view->select(view->anchor(), view->end(), false); }
    GridModel model;
    GridView* view;
    GridColumns columns;
    bool goHome = false; ///< the rows are others: show the first one
};

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
    view.onCopy = [this] { copySelection(); };
    GridHeader& header = view.header();
    header.onClicked = [this](int place) { emit clicked(0, place); };
    header.onDoubleClicked = [this](int place) { emit doubleClicked(0, place); };
    header.onRightClicked = [this](int place, const QPoint& at) { emit rightClicked(0, place, at); };
    d_->columns.onMoved = [this](int from, int to) { emit columnMoved(from, to); };
    d_->columns.onNarrow = [this] { emit narrowChanged(); };
}

FlexGrid* FlexGrid::withFocus() {
    QWidget* widget = QApplication::focusWidget();
    while (widget && !qobject_cast<FlexGrid*>(widget))
        widget = widget->parentWidget();
    return qobject_cast<FlexGrid*>(widget);
}

FlexGrid::~FlexGrid() {
    delete d_->view; // before its model goes
}

// ---- columns

void FlexGrid::setCols(int count) {
    count = std::max(count, 0);
    if (count == cols())
        return;
    d_->columns.setCount(count);
    d_->view->restoreSelection();
}

int FlexGrid::cols() const {
    return d_->columns.count();
}

void FlexGrid::setColWidth(int col, int twips) {
    d_->columns.setWidth(col, twips);
}

int FlexGrid::colWidth(int col) const {
    return d_->columns.width(col);
}

void FlexGrid::setColAlignment(int col, Align align, Wording wording) {
    d_->columns.setAlignment(col, align, std::move(wording));
}

void FlexGrid::setColData(int col, int number) {
    d_->columns.setData(col, number);
}

int FlexGrid::colData(int col) const {
    return d_->columns.data(col);
}

void FlexGrid::setColPosition(int col, int place) {
    d_->columns.move(col, place);
}

void FlexGrid::setColPicture(int col, Picture picture, int before) {
    d_->columns.setPicture(col, std::move(picture), before);
}

void FlexGrid::setColumnsMovable(bool movable) {
    d_->view->header().setSectionsMovable(movable);
}

void FlexGrid::setStretchCol(int col) {
    d_->columns.setStretched(col);
}

void FlexGrid::setColWeight(int col, int weight) {
    d_->columns.setWeight(col, weight);
}

void FlexGrid::setColHeld(int col, bool held) {
    d_->columns.setHeld(col, held);
}

void FlexGrid::fitShares() {
    d_->columns.fitShares();
}

void FlexGrid::setNarrowBelow(int pixels) {
    d_->columns.setNarrowBelow(pixels);
}

bool FlexGrid::isNarrow() const {
    return d_->columns.narrow();
}

void FlexGrid::setHeader(int col, const QString& text, const QString& widest) {
    d_->columns.setHeader(col, text, widest);
}

QString FlexGrid::header(int col) const {
    return d_->columns.header(col);
}

QString FlexGrid::headerCell(int col) const {
    return d_->columns.headerCell(col);
}

void FlexGrid::setEmptyText(const QString& text) {
    d_->view->setEmptyText(text);
}

QString FlexGrid::emptyText() const {
    return d_->view->emptyText();
}

FlexGrid::Mark FlexGrid::sortMark(int col) const {
    return d_->columns.mark(col);
}

void FlexGrid::setSortMark(int col, Mark mark) {
    d_->columns.setMark(col, mark);
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
    d_->model.append(cells, d_->columns.order());
}

void FlexGrid::addItems(const std::vector<QStringList>& rows) {
    d_->model.append(rows, d_->columns.order());
}

void FlexGrid::removeItem(int row) {
    if (row < 1 || row >= rows() || source())
        return;
    const auto moved = [removed = row - 1](int at) { return at > removed ? at - 1 : at; };
    const auto [anchor, end] = std::pair(moved(d_->view->anchor()), moved(d_->view->end()));
    d_->view->whileChanging([this, row] { d_->model.remove(row - 1); });
    d_->view->select(anchor, end, false);
}

QString FlexGrid::text(int row, int col) const {
    if (!d_->columns.has(col))
        return {};
    return row == 0 ? headerCell(col) : d_->model.text(row - 1, d_->view->logicalAt(col));
}

void FlexGrid::setText(int row, int col, const QString& text) {
    if (!d_->columns.has(col))
        return;
    if (row == 0)
        return d_->columns.setHeaderCell(col, text);
    d_->model.setText(row - 1, d_->view->logicalAt(col), text);
    // Neighbours may be one cell with this one now, or no more.
    if (redraw() && mergeCells())
        d_->view->viewport()->update();
}

void FlexGrid::setSource(std::unique_ptr<GridSource> source) {
    d_->model.setSource(std::move(source));
    setMarked(0);
    d_->view->select(-1, -1, false);
    showFirst();
}

GridSource* FlexGrid::source() const {
    return d_->model.source();
}

bool FlexGrid::sort(int col, bool descending) {
    if (!d_->columns.has(col))
        return false;
    GridView& view = *d_->view;
    GridRows& memory = d_->model.rows();
    const bool all = view.anchor() != view.end() && selectedRows() == std::pair(1, rows() - 1);
    const int followed = source() || view.anchor() < 0 ? -1 : memory.identity(view.anchor());
    if (!d_->model.sortBy(d_->view->logicalAt(col), descending))
        return false;
    setMarked(0);
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

void FlexGrid::setMergeCells(bool merge) {
    d_->view->setMerging(merge);
}

bool FlexGrid::mergeCells() const {
    return d_->view->merging();
}

bool FlexGrid::joinsAbove(int row, int col) const {
    return d_->columns.has(col) && row >= 1 && d_->view->joinsAbove(row - 1, col);
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
    const auto [first, last] = selectedRows();
    return tableText(d_->columns.cells(first - 1, last - 1, true));
}

void FlexGrid::copySelection() {
    const auto [first, last] = selectedRows();
    // Without a row, what the clipboard holds stays.
    if (const auto rows = d_->columns.cells(first - 1, last - 1, false); !rows.empty())
        QApplication::clipboard()->setMimeData(tableMime(rows).release());
}

void FlexGrid::setCopy(std::function<void()> copy) {
    d_->view->onCopy = std::move(copy);
}

int FlexGrid::topRow() const {
    return d_->view->topRow() + 1;
}

void FlexGrid::setTopRow(int row) {
    d_->view->setTopRow(row - 1);
}

void FlexGrid::bringIntoSight(int row) {
    if (row > 0 && row < rows())
        d_->view->bringIntoSight(row - 1);
}

void FlexGrid::setMarked(int row) {
    d_->view->setMarked(row - 1);
}

int FlexGrid::marked() const {
    return d_->view->marked() + 1;
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
        return d_->model.setSilent(true);
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
