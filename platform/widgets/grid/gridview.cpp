#include "platform/widgets/grid/gridview.h"

#include "platform/widgets/grid/gridcells.h"
#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/look/copykey.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace velm {

GridView::GridView(GridModel& model, QWidget* parent)
    : QTableView(parent), model_(model), header_(new GridHeader(model, this)), cells_(new GridCells(*this)),
      merged_(model, *header_), mouse_(*this, model), lookUp_(model) {
    setModel(&model);
    setHorizontalHeader(header_);
    setItemDelegate(cells_);
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideRight);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { adoptSelection(); });
    connect(header_, &QHeaderView::sectionMoved, this, [this] { viewport()->update(); });
    takeFont();
}

void GridView::takeFont() {
    const int height = gridlook::rowHeight(fontMetrics(), secondLine_.empty() ? 1 : 2);
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    header_->setFont(font());
    updateGeometries();
}

void GridView::setSecondLine(std::vector<int> columns) {
    const bool taller = columns.empty() != secondLine_.empty();
    if (!taller && columns == secondLine_)
        return;
    const bool seen = end_ >= topRow() && end_ < topRow() + pageRows();
    secondLine_ = std::move(columns);
    viewport()->update();
    if (!taller)
        return;
    takeFont();
    setMerging(merging_);
    if (seen && isVisible())
        revealEnd();
}

void GridView::setEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

// ---- selection

void GridView::select(int anchor, int end, bool reveal) {
    const int last = model_.count() - 1;
    mouse_.forget();
    anchor_ = std::min(anchor, last);
    end_ = anchor_ < 0 ? -1 : std::clamp(end, 0, last);
    anchor_ = std::max(anchor_, -1);
    if (!model_.silent()) {
        restoreSelection();
        if (reveal)
            revealEnd();
    }
}

void GridView::revealEnd() {
    // Before the view is shown, nobody knows how many rows it will hold.
    revealWhenShown_ = !isVisible();
    if (!revealWhenShown_ && end_ >= 0)
        scrollTo(model_.index(end_, 0));
}

void GridView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (revealWhenShown_)
        revealEnd();
}

void GridView::restoreSelection() {
    const QScopedValueRollback guard(syncing_, true);
    QItemSelectionModel& selection = *selectionModel();
    const int columns = model_.columnCount();
    if (end_ < 0 || columns == 0 || std::max(anchor_, end_) >= model_.rowCount()) {
        selection.clear();
    } else {
        const auto [first, last] = std::minmax({anchor_, end_});
        selection.select({model_.index(first, 0), model_.index(last, columns - 1)},
                         QItemSelectionModel::ClearAndSelect);
        selection.setCurrentIndex(model_.index(end_, logicalAt(header_->firstShown())), QItemSelectionModel::NoUpdate);
    }
    viewport()->update();
}

void GridView::adoptSelection() {
    // Something but this view has selected rows: a tool for people who cannot see.
    if (syncing_ || model_.silent())
        return;
    int first = -1;
    int last = -1;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        first = first < 0 ? range.top() : std::min(first, range.top());
        last = std::max(last, range.bottom());
    }
    select(first, last, false);
}

void GridView::selectAll() {
    if (model_.count() > 0)
        select(0, model_.count() - 1, false);
}

int GridView::pageRows() const {
    return std::max(1, viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize()));
}

int GridView::topRow() const {
    return verticalScrollBar()->value();
}

void GridView::setTopRow(int row) {
    executeDelayedItemsLayout();
    updateGeometries();
    verticalScrollBar()->setValue(row);
}

void GridView::bringIntoSight(int row) {
    executeDelayedItemsLayout();
    if (row < topRow() || row >= topRow() + pageRows())
        setTopRow(row - pageRows() / 2);
}

void GridView::setMarked(int row) {
    marked_ = std::clamp(row, -1, model_.count() - 1);
    viewport()->update();
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (syncing_ || !index.isValid())
        return;
    executeDelayedItemsLayout();
    const int row = index.row();
    const int page = pageRows();
    const int top = topRow();
    if (hint == PositionAtTop || row < top)
        setTopRow(row);
    else if (hint == PositionAtBottom || row >= top + page)
        setTopRow(row - page + 1);
    else if (hint == PositionAtCenter)
        setTopRow(row - page / 2);
}

// ---- merging

void GridView::setMerging(bool merging) {
    merging_ = merging;
    merged_.setOn(merging && secondLine_.empty());
    viewport()->update();
}

void GridView::sortingChanged() {
    if (merging_)
        viewport()->update();
}

QRect GridView::cellRect(int row, int place) const {
    return visualRect(model_.index(row, logicalAt(place)));
}

void GridView::paintEvent(QPaintEvent* event) {
    const int shown = topRow() + pageRows();
    merged_.remember(topRow(), std::min(shown + 2, model_.count()));
    QTableView::paintEvent(event);
    merged_.forget();
    cells_->paintBeside(header_->length() - header_->offset(), topRow(), std::min(shown + 1, model_.rowCount()));
    if (model_.rowCount() == 0 && !emptyText_.isEmpty())
        paintEmpty();
}

/// In the place of the first row, as its cells stand.
void GridView::paintEmpty() {
    const int above = (verticalHeader()->defaultSectionSize() - fontMetrics().height()) / 2;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(gridlook::padding, above, -gridlook::padding, 0),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
}

void GridView::resizeEvent(QResizeEvent* event) {
    if (onResized)
        onResized();
    QTableView::resizeEvent(event);
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    // The text of a merged cell stands at the top of what is seen of it.
    if (merging() && dy != 0)
        viewport()->update();
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTableView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int row = rowAt(help.pos().y());
    const int place = placeAt(help.pos().x());
    const bool cell = row >= 0 && place >= 0;
    // The tip follows the pointer from cell to cell, cut or not.
    gridlook::showTip(viewport(), help, cell ? cellRect(row, place) : QRect(),
                      cell ? model_.text(row, logicalAt(place)) : QString());
    return true;
}

/// The column in which what is typed is looked up: the rows stand in its order.
int GridView::lookUpPlace() const {
    for (int place = 0; place < header_->count(); ++place) {
        const int logical = logicalAt(place);
        if (model_.column(logical).mark != FlexGrid::Mark::None && !header_->isSectionHidden(logical))
            return place;
    }
    return header_->firstShown();
}

// ---- mouse and keyboard

void GridView::mousePressEvent(QMouseEvent* event) {
    mouse_.press(*event);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    mouse_.move(*event);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    mouse_.release(*event);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    mouse_.doubleClick(*event);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard || end_ < 0 || !onRightClicked)
        return;
    scrollTo(model_.index(end_, 0));
    const int place = header_->firstShown();
    onRightClicked(end_, place, viewport()->mapToGlobal(cellRect(end_, place).center()));
}

void GridView::focusInEvent(QFocusEvent* event) {
    // Not the table's own: it would make a first cell current that nobody selected.
    event->accept();
    viewport()->update();
}

void GridView::moveTo(int row, bool extend) {
    const int last = model_.count() - 1;
    if (last < 0)
        return;
    const int target = std::clamp(row, 0, last);
    select(extend && anchor_ >= 0 ? anchor_ : target, target, true);
}

bool GridView::moveKey(const QKeyEvent& event) {
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    const int from = end_;
    switch (event.key()) {
    case Qt::Key_Up:
        moveTo(from - 1, extend);
        return true;
    case Qt::Key_Down:
        moveTo(from + 1, extend);
        return true;
    case Qt::Key_PageUp:
        moveTo(from - pageRows(), extend);
        return true;
    case Qt::Key_PageDown:
        moveTo(from + pageRows(), extend);
        return true;
    case Qt::Key_Home:
        moveTo(0, extend);
        return true;
    case Qt::Key_End:
        moveTo(model_.count() - 1, extend);
        return true;
    case Qt::Key_Left:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Right:
        horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    default:
        return false;
    }
}

bool GridView::event(QEvent* event) {
    return claimsCopyKey(*event) || QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    mouse_.settle();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    event->accept();
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else if (event->matches(QKeySequence::Copy)) {
        if (onCopy)
            onCopy();
    } else if ((modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier) && moveKey(*event)) {
        return;
    } else if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        if (end_ >= 0 && onActivated)
            onActivated(end_);
    } else if (modifiers == Qt::NoModifier && event->key() == Qt::Key_Delete) {
        if (onDelete)
            onDelete();
    } else if (modifiers == Qt::NoModifier && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        keyboardSearch(event->text());
    } else {
        event->ignore();
    }
}

void GridView::keyboardSearch(const QString& search) {
    const int found = lookUp_.typed(search, end_, logicalAt(lookUpPlace()));
    if (found >= 0)
        moveTo(found, false);
}

} // namespace velm
