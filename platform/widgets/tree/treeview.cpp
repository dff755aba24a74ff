#include "platform/widgets/tree/treeview.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/tree/rowdelegate.h"
#include "platform/widgets/tree/treeindentation.h"
#include "platform/widgets/tree/treewatch.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace velm {

TreeView::TreeView(QWidget* parent) : TreeHands(parent), watch_(std::make_unique<Watch>(*this)) {
    setModel(&watch_->model);
    setItemDelegate(new RowDelegate(this));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTextElideMode(Qt::ElideRight); // the beginning of a branch bears its number
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    connect(this, &QTreeView::expanded, this, &TreeView::userOpened);
    connect(this, &QTreeView::collapsed, this, &TreeView::userClosed);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (!std::exchange(watch_->doubled, false))
            emit nodeClicked(nodeOf(index));
    });
    connect(this, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { emit nodeActivated(nodeOf(index)); });
    nodes_.setObserver(watch_.get());
    takeFont();
}

TreeView::~TreeView() {
    nodes_.setObserver(nullptr);
    hands().silence();
    // What the view says while its model goes is of no interest.
    watch_->program = true;
    setModel(nullptr);
}

void TreeView::setImages(std::function<QIcon(const QString& name)> images) {
    watch_->model.setImages(std::move(images));
    viewport()->update();
}

void TreeView::setShownText(std::function<QString(int node)> shown) {
    watch_->model.setShownText(std::move(shown));
    viewport()->update();
}

void TreeView::setKeptEnd(std::function<qsizetype(const QString& text)> kept) {
    static_cast<RowDelegate*>(itemDelegate())->keptEnd = std::move(kept);
    viewport()->update();
}

void TreeView::setMarked(int node) {
    watch_->model.setMarked(nodes_.contains(node) ? node : 0);
}

int TreeView::marked() const {
    return watch_->model.marked();
}

QModelIndex TreeView::indexOf(int node) const {
    return watch_->model.indexOf(node);
}

int TreeView::nodeOf(const QModelIndex& index) const {
    return index.isValid() && nodes_.contains(TreeViewModel::nodeOf(index)) ? TreeViewModel::nodeOf(index) : 0;
}

void TreeView::goTo(int node, ScrollHint hint) {
    const QModelIndex index = indexOf(node);
    if (!index.isValid())
        return;
    const QScopedValueRollback guard(watch_->program, true);
    watch_->openAbove(node);
    const QRect row = visualRect(index);
    if (row.top() < 0 || row.bottom() >= viewport()->height())
        scrollTo(index, hint);
}

QRect TreeView::wordsPlace(int node) const {
    const QModelIndex index = indexOf(node);
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return option.rect.isEmpty() ? QRect() : static_cast<const RowDelegate*>(itemDelegate())->words(option, index);
}

// ---- opening and closing

void TreeView::userOpened(const QModelIndex& index) {
    const int node = nodeOf(index);
    nodes_.noteExpanded(node, true);
    if (const int level = nodes_.level(node) + 1; level > watch_->deepest) {
        watch_->deepest = level;
        indent();
    }
    if (watch_->program)
        return;
    watch_->owed.erase(node);
    emit expanding(node);
}

void TreeView::userClosed(const QModelIndex& index) {
    const int node = nodeOf(index);
    nodes_.noteExpanded(node, false);
    if (watch_->program)
        return;
    // The current node does not stay where nobody sees it.
    if (nodes_.isAbove(node, nodeOf(currentIndex())))
        setCurrentIndex(index);
    emit collapsed(node);
}

void TreeView::openLoaded(int node) {
    const QScopedValueRollback guard(watch_->program, true);
    scheduleDelayedItemsLayout();
    std::vector<int> open{node};
    while (!open.empty()) {
        const int next = open.back();
        open.pop_back();
        const int children = nodes_.children(next);
        if (children == 0)
            continue;
        if (!nodes_.expanded(next)) {
            watch_->owed.insert(next);
            setExpanded(indexOf(next), true);
        }
        for (int place = 0; place < children; ++place)
            open.push_back(nodes_.childAt(next, place));
    }
}

void TreeView::indent() {
    const int wanted = treeIndentation(fontMetrics(), viewport()->width(), watch_->deepest);
    if (wanted != indentation())
        setIndentation(wanted);
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (watch_->program)
        return;
    nodes_.noteSelected(nodeOf(current));
    emit selectionMoved(nodeOf(current));
}

// ---- painting

void TreeView::initViewItemOption(QStyleOptionViewItem* option) const {
    QTreeView::initViewItemOption(option);
    if (!hasFocus())
        option->palette = gridlook::unfocused(option->palette);
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    const bool target = dropTarget() != 0 && nodeOf(index) == dropTarget();
    const bool selected = selectionModel()->isSelected(index);
    if (target && !selected)
        paintTarget(*painter, option.rect, true);
    else if (target && !hasFocus())
        row.palette.setColor(QPalette::Highlight, look::chosenGround(palette()));
    else if (nodeOf(index) == marked() && !selected) {
        painter->fillRect(option.rect, look::chosenGround(palette()));
        row.palette.setColor(QPalette::Text, look::accentColour(look::themeOf(palette())));
    }
    if (nodeOf(index) == editedNode()) { // the field lies over its words
        row.palette.setColor(QPalette::Text, Qt::transparent);
        row.palette.setColor(QPalette::HighlightedText, Qt::transparent);
    }
    QTreeView::drawRow(painter, row, index);
    if (!hasFocus() && selected && !target)
        gridlook::paintUnfocused(*painter, option.rect, palette());
    if (target)
        paintTarget(*painter, option.rect, false);
    watch_->comesIntoSight(nodes_.parent(nodeOf(index)));
}

void TreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    if (!model()->hasChildren(index))
        return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const bool selected = selectionModel()->isSelected(index);
    QColor colour = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    constexpr float quiet = 0.6F;
    colour.setAlphaF(selected && hasFocus() ? 1.0F : quiet);
    const QPointF centre(rect.right() + 1 - indentation() / 2.0, rect.top() + rect.height() / 2.0);
    gridlook::paintChevron(*painter, centre, isExpanded(index) ? gridlook::Point::Down : gridlook::Point::Right,
                           colour);
}

void TreeView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeFont();
}

void TreeView::takeFont() {
    setIconSize(QSize(1, 1) * gridlook::iconEdge(fontMetrics()));
    indent();
    scheduleDelayedItemsLayout();
}

void TreeView::resizeEvent(QResizeEvent* event) {
    // What is looked at elsewhere stays in sight where it was.
    const QRect before = visualRect(indexOf(marked()));
    QTreeView::resizeEvent(event);
    indent();
    if (before.isValid() && before.top() >= 0 && before.bottom() < event->oldSize().height())
        goTo(marked(), EnsureVisible);
}

bool TreeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex index = indexAt(help.pos());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    const QString& whole = nodes_.text(nodeOf(index));
    const bool seen = !index.isValid() || (index.data().toString() == whole &&
                                           static_cast<const RowDelegate*>(itemDelegate())->fits(option, index));
    gridlook::showTip(viewport(), help, option.rect, seen ? QString() : whole);
    return true;
}

// ---- mouse and keyboard

void TreeView::mousePressEvent(QMouseEvent* event) {
    watch_->doubled = false;
    TreeHands::mousePressEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint global = event->globalPosition().toPoint();
    const bool right = event->button() == Qt::RightButton && viewport()->rect().contains(event->position().toPoint());
    const int node = nodeOf(indexAt(event->position().toPoint()));
    TreeHands::mouseReleaseEvent(event);
    if (right)
        emit nodeRightClicked(node, global);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    watch_->doubled = true;
    TreeHands::mouseDoubleClickEvent(event);
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    const QModelIndex current = currentIndex();
    const QPoint at = current.isValid() ? visualRect(current).center() : viewport()->rect().center();
    emit nodeRightClicked(nodeOf(current), viewport()->mapToGlobal(at));
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    const int node = nodeOf(currentIndex());
    const bool bare = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    if (bare && node != 0 && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        emit nodeReturned(node);
        emit nodeActivated(node);
    } else if (bare && node != 0 && event->key() == Qt::Key_Asterisk) {
        openLoaded(node);
    } else if (!hands().keyed(*event)) {
        QTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
}

} // namespace velm
