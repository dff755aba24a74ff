#include "platform/widgets/list/listview.h"

#include "platform/widgets/grid/gridlook.h"
#include "platform/widgets/list/listwatch.h"
#include "platform/widgets/list/widesttext.h"
#include "platform/widgets/look/chosenalone.h"
#include "platform/widgets/look/look.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace velm {

namespace {

constexpr int leastColumn = 120;
constexpr int iconColumn = 220; ///< of small icons
constexpr int usualLine = 16;   ///< the height of type that these were measured for

int scaled(int pixels, const QFontMetrics& metrics) {
    return pixels * std::max(usualLine, metrics.height()) / usualLine;
}

} // namespace

ListView::ListView(QWidget* parent) : QListView(parent), watch_(std::make_unique<Watch>(*this)) {
    setModel(&watch_->model);
    setItemDelegate(&watch_->delegate);
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setMovement(Static);
    setResizeMode(Adjust);
    setWrapping(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
        if (!std::exchange(watch_->doubled, false))
            emit itemClicked(ListViewModel::itemOf(index));
    });
    connect(this, &QListView::doubleClicked, this,
            [this](const QModelIndex& index) { emit itemActivated(ListViewModel::itemOf(index)); });
    EntryHands& hands = watch_->hands;
    connect(&hands, &EntryHands::labelEditBegins, this, &ListView::labelEditBegins);
    connect(&hands, &EntryHands::labelEdited, this, &ListView::labelEdited);
    connect(&hands, &EntryHands::labelEditWanted, this, &ListView::labelEditWanted);
    connect(&hands, &EntryHands::dragBegins, this, &ListView::dragBegins);
    items_.setObserver(watch_.get());
    setArrangement(Arrangement::List);
}

ListView::~ListView() {
    items_.setObserver(nullptr);
    watch_->hands.silence();
    watch_->program = true;
    setModel(nullptr);
}

void ListView::setArrangement(Arrangement arrangement) {
    arrangement_ = arrangement;
    watch_->delegate.setArrangement(arrangement);
    watch_->hands.setCentred(arrangement == Arrangement::LargeIcons);
    const bool columns = arrangement == Arrangement::List;
    setFlow(columns ? TopToBottom : LeftToRight);
    setHorizontalScrollBarPolicy(columns ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(columns ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    watch_->measured = false;
    measure();
    ensureVisible(items_.selected());
}

int ListView::columnOfRow(int least) const {
    // A row as wide as the viewport would wrap.
    const int room = viewport()->width() - 1;
    return room / std::max(1, room / least);
}

void ListView::measure() {
    if (std::exchange(watch_->measured, true))
        return;
    const QFontMetrics metrics = fontMetrics();
    const int edge = gridlook::iconEdge(metrics);
    QSize cell(scaled(iconColumn, metrics), gridlook::rowHeight(metrics));
    if (arrangement_ == Arrangement::LargeIcons) {
        cell.setWidth(columnOfRow(scaled(leastColumn, metrics)));
        cell.setHeight(ListDelegate::largeEdge(metrics) + 2 * metrics.height() + 2 * look::spacing + look::grid);
    } else if (arrangement_ == Arrangement::List) {
        const int beside = edge + 2 * look::grid + look::spacing + 1;
        // One column has all of the room, if its texts need it; none has more than can be seen at once.
        const bool one = items_.count() * cell.height() <= viewport()->height();
        const int room = std::max(viewport()->width() - 1, 1);
        const int most = one ? room : std::min(scaled(ListDelegate::widestColumn, metrics), room);
        cell.setWidth(
            std::clamp(widestText(items_, metrics, most) + beside, std::min(most, scaled(leastColumn, metrics)), most));
    } else
        cell.setWidth(columnOfRow(cell.width()));
    setIconSize(QSize(1, 1) * (arrangement_ == Arrangement::LargeIcons ? ListDelegate::largeEdge(metrics) : edge));
    horizontalScrollBar()->setSingleStep(cell.width());
    if (cell == watch_->delegate.cell() && gridSize() == cell)
        return;
    watch_->delegate.setCell(cell);
    setGridSize(cell);
}

void ListView::setImages(std::function<QIcon(const QString& name)> images) {
    watch_->model.setImages(std::move(images));
    viewport()->update();
}

void ListView::setFaint(std::function<bool(const QString& key)> faint) {
    watch_->model.setFaint(std::move(faint));
    viewport()->update();
}

void ListView::setTips(std::function<QString(int item)> tips) {
    watch_->model.setDescriptions(tips);
    tips_ = std::move(tips);
}

void ListView::setDragging(bool on) {
    watch_->hands.setDragging(on);
}

void ListView::ensureVisible(int item) {
    const QModelIndex index = watch_->model.indexOf(item);
    if (index.isValid())
        scrollTo(index);
}

int ListView::itemAt(const QPoint& viewportPos) const {
    return ListViewModel::itemOf(indexAt(viewportPos));
}

QRect ListView::itemPlace(int item) const {
    return visualRect(watch_->model.indexOf(item));
}

bool ListView::startLabelEdit(int item) {
    ensureVisible(item);
    return watch_->hands.startLabelEdit(item);
}

void ListView::endLabelEdit(bool keep) {
    watch_->hands.endLabelEdit(keep);
}

int ListView::editedItem() const {
    return watch_->hands.edited();
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (watch_->program)
        return;
    items_.noteSelected(ListViewModel::itemOf(current));
    emit selectionMoved(items_.selected());
}

QItemSelectionModel::SelectionFlags ListView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    return chosenAlone(index, QListView::selectionCommand(index, event));
}

// ---- painting

void ListView::initViewItemOption(QStyleOptionViewItem* option) const {
    QListView::initViewItemOption(option);
    if (!hasFocus())
        option->palette = gridlook::unfocused(option->palette);
}

void ListView::doItemsLayout() {
    measure();
    QListView::doItemsLayout();
}

void ListView::paintEvent(QPaintEvent* event) {
    // Otherwise what has just been listed would be painted a moment later than the ground.
    executeDelayedItemsLayout();
    QListView::paintEvent(event);
}

void ListView::resizeEvent(QResizeEvent* event) {
    watch_->measured = false;
    QListView::resizeEvent(event);
}

void ListView::updateGeometries() {
    QListView::updateGeometries();
    watch_->hands.lay();
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int item = itemAt(help.pos());
    const QRect cell = itemPlace(item);
    const bool seen = item == 0 || watch_->delegate.fits(items_.text(item), cell, font());
    const QString tip = tips_ && item != 0 ? tips_(item) : seen ? QString() : items_.text(item);
    gridlook::showTip(viewport(), help, cell, tip);
    return true;
}

// ---- events

bool ListView::event(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        watch_->measured = false;
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
        return QListView::event(event);
    // Not the list's own: it would make a first entry current that nobody selected.
    event->accept();
    noteFocus(static_cast<const QFocusEvent&>(*event));
    return true;
}

void ListView::noteFocus(const QFocusEvent& event) {
    viewport()->update();
    if (!event.gotFocus())
        watch_->hands.forget();
    else if (event.reason() == Qt::MouseFocusReason)
        watch_->hands.focusedByMouse();
    if (event.gotFocus())
        emit focusTaken();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    watch_->doubled = false;
    watch_->hands.pressed(*event);
    QListView::mousePressEvent(event);
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    if (!watch_->hands.moved(*event))
        QListView::mouseMoveEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    QListView::mouseReleaseEvent(event);
    watch_->hands.released(*event);
    if (event->button() == Qt::RightButton && viewport()->rect().contains(at))
        emit itemRightClicked(itemAt(at), event->globalPosition().toPoint());
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    watch_->doubled = true;
    watch_->hands.forget();
    QListView::mouseDoubleClickEvent(event);
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    const QRect place = itemPlace(items_.selected());
    const QPoint at = place.isValid() ? place.center() : viewport()->rect().center();
    emit itemRightClicked(items_.selected(), viewport()->mapToGlobal(at));
}

void ListView::keyPressEvent(QKeyEvent* event) {
    const bool bare = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    const bool back = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (bare && back && items_.selected() != 0)
        emit itemActivated(items_.selected());
    else if (!watch_->hands.keyed(*event))
        QListView::keyPressEvent(event);
    else
        event->accept();
}

} // namespace velm
