#include "platform/widgets/grid/gridview.h"

#include "platform/widgets/grid/gridlook.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace velm {

namespace {

/// The colours of a list with or without the focus.
struct Tones {
    explicit Tones(const QWidget& view)
        : palette(view.hasFocus() ? view.palette() : gridlook::unfocused(view.palette())),
          group(!view.isEnabled()       ? QPalette::Disabled
                : view.isActiveWindow() ? QPalette::Active
                                        : QPalette::Inactive) {}
    QColor ground() const { return palette.color(group, QPalette::Highlight); }
    QColor text(bool selected) const {
        return palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    }
    QColor line() const { return gridlook::hairline(palette); }

    QPalette palette;
    QPalette::ColorGroup group;
};

void paintGround(QPainter& painter, const QRect& rect, const Tones& tones, bool selected, bool line) {
    if (selected) {
        painter.fillRect(rect, tones.ground());
    } else if (line) {
        painter.setPen(QPen(tones.line(), 0));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
}

} // namespace

struct GridView::Delegate : public QStyledItemDelegate {
    explicit Delegate(GridView* owner) : QStyledItemDelegate(owner), view(*owner) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int row = index.row();
        const int place = view.placeOf(index.column());
        const bool selected = view.isSelected(row);
        const Tones tones(view);
        paintGround(*painter, option.rect, tones, selected, !view.joinsAbove(row + 1, place));
        if (!view.showsText(row, place))
            return;
        const QString text = index.data().toString();
        if (text.isEmpty())
            return;
        painter->setFont(option.font);
        painter->setPen(tones.text(selected));
        const QFontMetrics& metrics = option.fontMetrics;
        const QRect rect = gridlook::textRect(option.rect);
        // Titles that share their beginning ("Code de commerce, art. …") are told apart by their end.
        painter->drawText(rect, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine,
                          metrics.elidedText(text, Qt::ElideMiddle, rect.width()));
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QFontMetrics metrics(option.font);
        return {metrics.horizontalAdvance(index.data().toString()) + 2 * gridlook::padding + 1,
                gridlook::rowHeight(metrics)};
    }

    GridView& view;
};

GridView::GridView(GridModel& model, QWidget* parent)
    : QTableView(parent), model_(model), header_(new GridHeader(model, this)) {
    setModel(&model);
    setHorizontalHeader(header_);
    setItemDelegate(new Delegate(this));
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
    const int height = gridlook::rowHeight(fontMetrics());
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    header_->setFont(font());
    updateGeometries();
}

// ---- selection

void GridView::select(int anchor, int end, bool reveal) {
    const int last = model_.count() - 1;
    waitTimer_.stop();
    waiting_ = -1;
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
        selection.setCurrentIndex(model_.index(end_, logicalAt(firstPlace())), QItemSelectionModel::NoUpdate);
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

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (syncing_ || !index.isValid())
        return;
    executeDelayedItemsLayout();
    const int row = index.row();
    const int page = pageRows();
    const int top = topRow();
    if (hint == PositionAtTop || row < top) {
        setTopRow(row);
    } else if (hint == PositionAtBottom || row >= top + page) {
        setTopRow(row - page + 1);
    } else if (hint == PositionAtCenter) {
        setTopRow(row - page / 2);
    }
}

// ---- merging

void GridView::setMerging(bool merging) {
    merging_ = merging;
    viewport()->update();
}

int GridView::joinedNow(int row) const {
    if (row <= 0 || row >= model_.count())
        return 0;
    const int places = header_->count();
    for (int place = 0; place < places; ++place) {
        const int logical = logicalAt(place);
        if (!header_->isSectionHidden(logical) && !model_.same(row, row - 1, logical))
            return place;
    }
    return places;
}

int GridView::joined(int row) const {
    if (!merging_)
        return 0;
    const auto known = static_cast<std::size_t>(row - joinsFrom_);
    return row >= joinsFrom_ && known < joins_.size() ? joins_[known] : joinedNow(row);
}

QRect GridView::cellRect(int row, int place) const {
    return visualRect(model_.index(row, logicalAt(place)));
}

void GridView::paintEvent(QPaintEvent* event) {
    if (merging_) {
        joinsFrom_ = topRow();
        const int below = std::min(joinsFrom_ + pageRows() + 2, model_.count());
        for (int row = joinsFrom_; row < below; ++row)
            joins_.push_back(joinedNow(row));
    }
    QTableView::paintEvent(event);
    joins_.clear();
    paintBeside();
}

void GridView::paintBeside() {
    const int left = header_->length() - header_->offset();
    const int width = viewport()->width() - left;
    if (width <= 0)
        return;
    QPainter painter(viewport());
    const Tones tones(*this);
    const int last = std::min(topRow() + pageRows() + 1, model_.rowCount());
    for (int row = topRow(); row < last; ++row)
        paintGround(painter, {left, rowViewportPosition(row), width, rowHeight(row)}, tones, isSelected(row), true);
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    // The text of a merged cell stands at the top of what is seen of it.
    if (merging_ && dy != 0)
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

int GridView::firstPlace() const {
    for (int place = 0; place < header_->count(); ++place) {
        if (!header_->isSectionHidden(logicalAt(place)))
            return place;
    }
    return 0;
}

int GridView::placeAt(int x) const {
    return header_->visualIndexAt(x);
}

} // namespace velm
