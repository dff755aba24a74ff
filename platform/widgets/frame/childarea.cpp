#include "platform/widgets/frame/childarea.h"

#include "platform/base/twips.h"
#include "platform/widgets/frame/childareakeys.h"
#include "platform/widgets/frame/childframe.h"
#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace velm {

ChildArea::ChildArea(QWidget* parent) : QMdiArea(parent), frames_(*this) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setActivationOrder(ActivationHistoryOrder); // closing one brings the one used before forward
    connect(this, &QMdiArea::subWindowActivated, this, &ChildArea::tellActive);
    connect(this, &ChildArea::childHid, this, &ChildArea::hideFrames, Qt::QueuedConnection);
    // Connected before any window is: they answer a click into one of their controls by becoming the active one, and
    // then it must be known which one has the focus. What is hidden has it only on its way to another one.
    connect(qApp, &QApplication::focusChanged, this, [](const QWidget*, QWidget* now) {
        ChildFrame* frame = ChildFrame::around(now);
        if (!frame)
            return;
        if (now != frame->widget() && now->isVisible())
            frame->rememberControl(now);
        // A child may choose a control when it becomes the active one; in an icon nobody would see where the keys go.
        if (frame->isMinimized() && !now->isVisible())
            frame->setFocus();
    });
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
    auto* frame = new ChildFrame(child);
    addSubWindow(frame);
    frame->hide(); // in so many words, or it would appear with the area
    // A frame without its child is worth nothing.
    connect(child, &QObject::destroyed, frame, &QObject::deleteLater);
    // The toolkit makes an icon active, too, when it was used last; its controls have the focus then, and nobody sees
    // it. Between the two of them nothing is connected any more by now.
    connect(frame, &ChildFrame::closed, frame, [this] {
        if (const ChildFrame* current = frames_.front(); current && current->isMinimized())
            setActiveSubWindow(frames_.lastUsed());
        // Of the last one that can be seen the toolkit says nothing while there are hidden ones.
        tellActive();
    });
    connect(
        frame, &QMdiSubWindow::windowStateChanged, frame, [this, frame] { followState(*frame); }, Qt::QueuedConnection);
    return frame;
}

QMdiSubWindow* ChildArea::around(const QWidget* child) const {
    return frames_.around(child);
}

QPoint ChildArea::scrolled() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void ChildArea::place(QWidget* child, int state, int left, int top, int width, int height) {
    ChildFrame* frame = frames_.around(child);
    if (!frame)
        return;
    ChildWish wish{{pixelsFromTwips(left), pixelsFromTwips(top), pixelsFromTwips(width), pixelsFromTwips(height)}, {}};
    for (const ChildFrame* other : frames_.all())
        wish.rank += other->isHidden() ? 0 : 1;
    frame->wish(wish, state);
}

int ChildArea::stateOf(const QWidget* child) const {
    const ChildFrame* frame = frames_.around(child);
    if (!frame)
        return Normal;
    if (frame->wishedState() != Normal)
        return frame->wishedState();
    return frame->isMinimized() ? Minimised : frame->isMaximized() ? Maximised : Normal;
}

QRect ChildArea::twipsOf(const QWidget* child) const {
    const ChildFrame* frame = frames_.around(child);
    if (!frame)
        return {};
    const QRect place = frame->geometry().translated(scrolled());
    return {twipsFromPixels(place.x()), twipsFromPixels(place.y()), twipsFromPixels(place.width()),
            twipsFromPixels(place.height())};
}

void ChildArea::showPlaced(QWidget* child) {
    ChildFrame* frame = frames_.around(child);
    if (!frame)
        return;
    const int state = frame->takeWishedState();
    const ChildFrame* before = frames_.front();
    const bool filling = state == Maximised || (before && before != frame && before->isMaximized());
    if (state == Minimised || filling)
        frame->delayPlace();
    if (state == Minimised) {
        child->show();
        frame->showMinimized();
        return;
    }
    // Shown at once in the state that it shall have.
    const bool updating = updatesEnabled();
    setUpdatesEnabled(false);
    const auto again = qScopeGuard([&] { setUpdatesEnabled(updating); });
    child->show();
    if (filling)
        frame->showMaximized();
    else
        frame->show();
    focus(*frame);
}

void ChildArea::activate(QWidget* child) {
    ChildFrame* frame = frames_.around(child);
    if (!frame)
        return;
    if (frame->wishedState() == Minimised)
        frame->takeWishedState();
    if (frame->isHidden())
        showPlaced(child);
    if (frame->isMinimized())
        frame->showNormal();
    focus(*frame);
}

void ChildArea::focus(ChildFrame& frame) {
    const QWidget* before = told_;
    setActiveSubWindow(&frame);
    if (before != told_ || !frame.hasFocusInside())
        frame.giveFocus(Qt::ActiveWindowFocusReason);
}

void ChildArea::hideChild(QWidget* child) {
    ChildFrame* frame = frames_.around(child);
    if (!frame)
        return;
    // The next one comes forward first, so that it takes over a maximised one's place.
    if (frames_.front() == frame)
        setActiveSubWindow(frames_.lastUsed(frame));
    frame->hide();
    tellActive();
}

QWidget* ChildArea::activeChild() const {
    const ChildFrame* frame = frames_.front();
    return frame ? frame->widget() : nullptr;
}

void ChildArea::tellActive() {
    QWidget* active = activeChild();
    if (told_ == active)
        return;
    told_ = active;
    // Before the toolkit looks for a control by itself.
    if (ChildFrame* frame = frames_.around(active))
        frame->giveFocus(Qt::ActiveWindowFocusReason);
    emit childActivated(active);
}

std::vector<QWidget*> ChildArea::children() const {
    std::vector<QWidget*> all;
    for (const ChildFrame* frame : frames_.all()) {
        if (QWidget* child = frame->widget())
            all.push_back(child);
    }
    return all;
}

void ChildArea::arrange(Arrangement arrangement) {
    const bool updating = updatesEnabled();
    setUpdatesEnabled(false);
    const auto again = qScopeGuard([&] { setUpdatesEnabled(updating); });
    const bool cascading = arrangement == Arrangement::Cascade;
    // The active window lies on top; in a cascade that is the last place.
    const QList<ChildFrame*> windows = frames_.open(cascading ? StackingOrder : CreationOrder);
    std::vector<QSize> least;
    for (ChildFrame* frame : windows) {
        frame->forgetWish();
        if (frame->isMaximized())
            frame->showNormal();
        least.push_back(frame->leastSize());
    }
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    const auto along = arrangement == Arrangement::TileHorizontal ? Qt::Vertical : Qt::Horizontal;
    const int bar = verticalScrollBar()->sizeHint().width();
    const QSize room = frames_.roomOverIcons();
    const auto places = cascading ? cascadePlaces(least, room) : tilePlaces(least, room, along, bar);
    for (ChildFrame* frame : frames_.all()) {
        if (!frame->isMinimized())
            frame->setTile({});
    }
    for (std::size_t index = 0; index < places.size(); ++index) {
        ChildFrame* frame = windows[static_cast<qsizetype>(index)];
        frame->setGeometry(places[index]);
        frame->setTile(cascading ? QRect() : places[index]);
    }
    tiles_ = windows.size();
    tiling_ = arrangement;
}

/// A tile that becomes an icon leaves its place to the others, and gets it back when it is a window among them again.
void ChildArea::followState(const ChildFrame& frame) {
    if (frame.hasTile() && !frame.isMaximized() && frames_.lieTiled(tiles_ + (frame.isMinimized() ? -1 : 1), &frame))
        arrange(tiling_);
}

void ChildArea::setBack(const QPixmap& picture, const QColor& colour) {
    picture_ = picture;
    colour_ = colour;
    viewport()->update();
}

QColor ChildArea::shownColour() const {
    return colour_.isValid() ? colour_ : look::ground(look::themeOf(palette()));
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
    // Scroll bars that come or go for one window move no other.
    const QSize before = std::exchange(room_, maximumViewportSize());
    if (frames_.lieTiled(tiles_)) {
        arrange(tiling_);
    } else {
        for (ChildFrame* frame : frames_.all())
            frame->followArea(before == room_ ? QSize() : before);
    }
    viewport()->update();
}

void ChildArea::scrollContentsBy(int dx, int dy) {
    QMdiArea::scrollContentsBy(dx, dy);
    viewport()->update(); // the picture stays in the middle
}

bool ChildArea::viewportEvent(QEvent* event) {
    const bool handled = QMdiArea::viewportEvent(event);
    // The one used before may be hidden: then the next one after it.
    if (event->type() == QEvent::ChildRemoved && !activeSubWindow() && frames_.front())
        setActiveSubWindow(frames_.front());
    return handled;
}

// ---- keys, and what windows do by themselves

void ChildArea::walk(bool forward) {
    const QList<ChildFrame*> windows = frames_.shown();
    if (windows.isEmpty())
        return;
    const qsizetype here = windows.indexOf(frames_.front());
    const qsizetype next = here + (forward ? 1 : -1) + windows.size();
    focus(*windows[next % windows.size()]);
}

bool ChildArea::windowKey(const QKeyEvent& event, bool perform) {
    const ChildAreaKey key = childAreaKey(event);
    if (key == ChildAreaKey::None || !perform)
        return key != ChildAreaKey::None;
    if (key != ChildAreaKey::Close)
        walk(key == ChildAreaKey::Next);
    else if (ChildFrame* frame = frames_.front())
        frame->close();
    return true;
}

/// A child that closes takes its frame along, after it has been asked itself.
bool ChildArea::closeAround(QObject& child, QEvent& event) {
    ChildFrame* frame = frames_.around(qobject_cast<QWidget*>(&child));
    if (!frame)
        return false;
    child.event(&event);
    if (event.isAccepted())
        frame->close();
    return true;
}

void ChildArea::hideFrames() {
    for (ChildFrame* frame : frames_.all()) {
        QWidget* child = frame->widget();
        if (std::exchange(frame->childHid, false) && child && child->isHidden() && !frame->isMinimized())
            hideChild(child);
    }
}

bool ChildArea::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        auto* widget = qobject_cast<QWidget*>(watched);
        const bool press = event->type() == QEvent::KeyPress;
        if (!widget || widget->window() != window() || !windowKey(static_cast<QKeyEvent&>(*event), press))
            break;
        event->accept();
        return true;
    }
    case QEvent::Close:
        if (closeAround(*watched, *event))
            return true;
        break;
    case QEvent::HideToParent:
        // Later, for frames hide their children, too, when they close or are minimised.
        if (ChildFrame* frame = frames_.around(qobject_cast<QWidget*>(watched))) {
            frame->childHid = true;
            emit childHid(QPrivateSignal());
        }
        break;
    default:
        break;
    }
    return QMdiArea::eventFilter(watched, event);
}

} // namespace velm
