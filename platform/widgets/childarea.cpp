#include "platform/widgets/childarea.h"

#include "platform/text/twips.h"
#include "platform/widgets/look.h"

#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>

#include <algorithm>

namespace velm {

namespace {

QSize leastSize(const QMdiSubWindow& window) {
    return window.minimumSizeHint().expandedTo(window.minimumSize());
}

} // namespace

ChildArea::ChildArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setActivationOrder(ActivationHistoryOrder); // closing one brings the one used before forward
    connect(this, &QMdiArea::subWindowActivated, this, &ChildArea::tellActive);
    connect(this, &ChildArea::childHid, this, &ChildArea::hideFrames, Qt::QueuedConnection);
}

ChildArea::~ChildArea() {
    // The windows go while there is somebody to forget them.
    disconnect(this, &QMdiArea::subWindowActivated, this, nullptr);
    qDeleteAll(subWindowList());
}

QMdiSubWindow* ChildArea::add(QWidget* child) {
    if (QMdiSubWindow* known = around(child))
        return known;
    child->hide();
    // The ground may have a pointer of its own, which is not that of the windows on it.
    if (!child->testAttribute(Qt::WA_SetCursor))
        child->setCursor(Qt::ArrowCursor);
    QMdiSubWindow* window = addSubWindow(child);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->hide(); // in so many words, or it would appear with the area
    // A frame without its child is worth nothing.
    connect(child, &QObject::destroyed, window, &QObject::deleteLater);
    connect(window, &QObject::destroyed, this, [this, window] { placed_.erase(window); });
    return window;
}

QMdiSubWindow* ChildArea::around(const QWidget* child) const {
    for (QMdiSubWindow* window : subWindowList()) {
        if (child && window->widget() == child)
            return window;
    }
    return nullptr;
}

QPoint ChildArea::scrolled() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void ChildArea::place(QWidget* child, int state, int left, int top, int width, int height) {
    QMdiSubWindow* window = around(child);
    if (!window)
        return;
    Placed& placed = placed_[window];
    placed.wish.place = {pixelsFromTwips(left), pixelsFromTwips(top), pixelsFromTwips(width), pixelsFromTwips(height)};
    placed.wish.rank = 0;
    for (const QMdiSubWindow* other : subWindowList()) {
        if (other != window && !other->isHidden())
            ++placed.wish.rank;
    }
    placed.state = state;
    fit(*window, placed);
}

void ChildArea::fit(QMdiSubWindow& window, Placed& placed) {
    placed.wish.least = leastSize(window);
    placed.fitted = fittedPlace(placed.wish, viewport()->size()).translated(-scrolled());
    window.setGeometry(placed.fitted);
}

/// A window keeps to what was wished for it as long as nobody has moved it: the area may take its size only later.
void ChildArea::fitPlaced() {
    for (auto entry = placed_.begin(); entry != placed_.end();) {
        QMdiSubWindow& window = *entry->first;
        const bool shownOtherwise = window.isMaximized() || window.isMinimized();
        if (!shownOtherwise && window.geometry() != entry->second.fitted) {
            entry = placed_.erase(entry);
            continue;
        }
        if (!shownOtherwise)
            fit(window, entry->second);
        ++entry;
    }
}

int ChildArea::stateOf(const QWidget* child) const {
    QMdiSubWindow* window = around(child);
    if (!window)
        return Normal;
    const auto placed = placed_.find(window);
    if (placed != placed_.end() && placed->second.state != Normal)
        return placed->second.state;
    return window->isMinimized() ? Minimised : window->isMaximized() ? Maximised : Normal;
}

QRect ChildArea::twipsOf(const QWidget* child) const {
    const QMdiSubWindow* window = around(child);
    if (!window)
        return {};
    const QRect place = window->geometry().translated(scrolled());
    return {twipsFromPixels(place.x()), twipsFromPixels(place.y()), twipsFromPixels(place.width()),
            twipsFromPixels(place.height())};
}

void ChildArea::showPlaced(QWidget* child) {
    QMdiSubWindow* window = around(child);
    if (!window)
        return;
    const auto placed = placed_.find(window);
    const int state = placed == placed_.end() ? int(Normal) : std::exchange(placed->second.state, int(Normal));
    const QMdiSubWindow* before = front();
    const bool filling = state == Maximised || (before && before != window && before->isMaximized());
    if (state == Minimised || filling)
        placed_.erase(window); // its place is where it will be restored
    if (state == Minimised) {
        child->show();
        window->showMinimized();
        return;
    }
    // Shown at once in the state that it shall have.
    const bool updating = updatesEnabled();
    setUpdatesEnabled(false);
    const auto again = qScopeGuard([&] { setUpdatesEnabled(updating); });
    child->show();
    if (filling)
        window->showMaximized();
    else
        window->show();
    focus(*window);
}

void ChildArea::activate(QWidget* child) {
    QMdiSubWindow* window = around(child);
    if (!window)
        return;
    const auto placed = placed_.find(window);
    if (placed != placed_.end() && placed->second.state == Minimised)
        placed->second.state = Normal;
    if (window->isHidden()) {
        showPlaced(child);
        return;
    }
    if (window->isMinimized())
        window->showNormal();
    focus(*window);
}

void ChildArea::focus(QMdiSubWindow& window) {
    setActiveSubWindow(&window);
    QWidget* child = window.widget();
    if (!child || child->isAncestorOf(focusWidget()) || child->hasFocus())
        return;
    QWidget* last = child->focusWidget();
    (last ? last : child)->setFocus(Qt::ActiveWindowFocusReason);
}

/// The window that was used last of those that are shown, icons last.
QMdiSubWindow* ChildArea::lastUsed(const QMdiSubWindow* except) const {
    QMdiSubWindow* last = nullptr;
    for (QMdiSubWindow* window : subWindowList(ActivationHistoryOrder)) {
        const bool better = !last || !window->isMinimized() || last->isMinimized();
        if (window != except && !window->isHidden() && better)
            last = window;
    }
    return last;
}

QMdiSubWindow* ChildArea::front() const {
    QMdiSubWindow* current = currentSubWindow();
    return current && !current->isHidden() ? current : lastUsed(nullptr);
}

void ChildArea::hideChild(QWidget* child) {
    QMdiSubWindow* window = around(child);
    if (!window || window->isHidden())
        return;
    // The next one comes forward first, so that it takes over a maximised one's place.
    if (front() == window)
        setActiveSubWindow(lastUsed(window));
    window->hide();
    tellActive();
}

QWidget* ChildArea::activeChild() const {
    const QMdiSubWindow* window = front();
    return window ? window->widget() : nullptr;
}

void ChildArea::tellActive() {
    QWidget* active = activeChild();
    if (told_ == active)
        return;
    told_ = active;
    emit childActivated(active);
}

std::vector<QWidget*> ChildArea::children() const {
    std::vector<QWidget*> all;
    for (const QMdiSubWindow* window : subWindowList(CreationOrder)) {
        if (QWidget* child = window->widget())
            all.push_back(child);
    }
    return all;
}

std::vector<QMdiSubWindow*> ChildArea::arrangeable(WindowOrder order) const {
    std::vector<QMdiSubWindow*> windows;
    for (QMdiSubWindow* window : subWindowList(order)) {
        if (!window->isHidden() && !window->isMinimized())
            windows.push_back(window);
    }
    return windows;
}

QSize ChildArea::roomForArranging() const {
    QSize room = maximumViewportSize();
    for (const QMdiSubWindow* window : subWindowList()) {
        if (!window->isHidden() && window->isMinimized())
            return room - QSize(0, window->height());
    }
    return room;
}

void ChildArea::arrange(Arrangement arrangement) {
    const bool updating = updatesEnabled();
    setUpdatesEnabled(false);
    const auto again = qScopeGuard([&] { setUpdatesEnabled(updating); });
    const bool cascading = arrangement == Arrangement::Cascade;
    // The active window lies on top; in a cascade that is the last place.
    const std::vector<QMdiSubWindow*> windows = arrangeable(cascading ? StackingOrder : CreationOrder);
    std::vector<QSize> least;
    for (QMdiSubWindow* window : windows) {
        if (window->isMaximized())
            window->showNormal();
        placed_.erase(window);
        least.push_back(leastSize(*window));
    }
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    const auto along = arrangement == Arrangement::TileHorizontal ? Qt::Vertical : Qt::Horizontal;
    const int bar = verticalScrollBar()->sizeHint().width();
    const auto places =
        cascading ? cascadePlaces(least, roomForArranging()) : tilePlaces(least, roomForArranging(), along, bar);
    tiled_.clear();
    for (std::size_t index = 0; index < windows.size(); ++index) {
        windows[index]->setGeometry(places[index]);
        if (!cascading)
            tiled_.emplace_back(windows[index], places[index]);
    }
    tiling_ = arrangement;
}

/// Whether the tiles lie as they were laid, and nothing beside them.
bool ChildArea::isTiled() const {
    const auto windows = arrangeable(CreationOrder);
    return !tiled_.empty() && std::ranges::equal(windows, tiled_, [](const QMdiSubWindow* window, const auto& tile) {
        return window == tile.first && !window->isMaximized() && window->geometry() == tile.second;
    });
}

void ChildArea::setBack(const QPixmap& picture, const QColor& colour) {
    picture_ = picture;
    colour_ = colour;
    viewport()->update();
}

QColor ChildArea::shownColour() const {
    return colour_.isValid() ? colour_ : palette().color(QPalette::Window).darker(112);
}

void ChildArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), shownColour());
    if (picture_.isNull())
        return;
    const QSize size = picture_.deviceIndependentSize().toSize();
    painter.drawPixmap((viewport()->width() - size.width()) / 2, (viewport()->height() - size.height()) / 2, picture_);
}

void ChildArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    fitPlaced();
    if (isTiled())
        arrange(tiling_);
    viewport()->update();
}

void ChildArea::scrollContentsBy(int dx, int dy) {
    QMdiArea::scrollContentsBy(dx, dy);
    viewport()->update(); // the picture stays in the middle
}

bool ChildArea::viewportEvent(QEvent* event) {
    const bool handled = QMdiArea::viewportEvent(event);
    // The one used before may be hidden: then the next one after it.
    if (event->type() == QEvent::ChildRemoved && !activeSubWindow() && front())
        setActiveSubWindow(front());
    return handled;
}

} // namespace velm
