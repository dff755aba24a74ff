#include "platform/widgets/frame/childframe.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QMdiArea>
#include <QScrollBar>

#include <utility>

namespace velm {

ChildFrame::ChildFrame(QWidget* child) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(child);
    // Whoever gives the focus to the window as a whole gives it to the child, and not to the first of its controls.
    if (child->focusPolicy() == Qt::NoFocus)
        child->setFocusPolicy(Qt::ClickFocus);
    // Told of what the user or the area does: a new style makes it normal for a moment as well, and says nothing.
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates before, Qt::WindowStates now) {
        constexpr Qt::WindowStates otherwise = Qt::WindowMaximized | Qt::WindowMinimized;
        if (delayed_ && (before & otherwise) && !(now & otherwise)) {
            delayed_ = false;
            fit();
        }
    });
}

ChildFrame::~ChildFrame() {
    // The toolkit's part tells of its state on its way out.
    disconnect(this, &QMdiSubWindow::windowStateChanged, this, nullptr);
}

ChildFrame* ChildFrame::around(const QWidget* widget) {
    while (widget && !widget->isWindow()) {
        widget = widget->parentWidget();
        if (auto* frame = qobject_cast<const ChildFrame*>(widget))
            return const_cast<ChildFrame*>(frame);
    }
    return nullptr;
}

// ---- its place

void ChildFrame::wish(const ChildWish& wish, int state) {
    wish_ = wish;
    state_ = state;
    fit();
}

int ChildFrame::takeWishedState() {
    return std::exchange(state_, 0);
}

void ChildFrame::fit() {
    const QMdiArea* area = mdiArea();
    if (!area || !wish_)
        return;
    const QPoint scrolled(area->horizontalScrollBar()->value(), area->verticalScrollBar()->value());
    wish_->least = leastSize();
    fitted_ = fittedPlace(*wish_, area->viewport()->size()).translated(-scrolled);
    setGeometry(fitted_);
}

void ChildFrame::followArea(const QSize& before) {
    if (delayed_ || isMaximized() || isMinimized() || (!wish_ && isHidden()))
        return;
    if (!wish_ || geometry() != fitted_) {
        if (!QRect(QPoint(), before).contains(geometry()))
            return forgetWish();
        wish_ = ChildWish{geometry(), {}};
    }
    fit();
}

void ChildFrame::forgetWish() {
    wish_.reset();
    delayed_ = false;
}

// ---- the focus

QWidget* ChildFrame::usableControl() const {
    const QWidget* child = widget();
    const bool usable = child && control_ && child->isAncestorOf(control_) && control_->isVisibleTo(window()) &&
                        control_->isEnabled() && control_->focusPolicy() != Qt::NoFocus;
    return usable ? control_.data() : nullptr;
}

bool ChildFrame::hasFocusInside() const {
    const QWidget* child = widget();
    const QWidget* now = window()->focusWidget();
    return child && now && child->isAncestorOf(now) && now->isVisibleTo(window());
}

void ChildFrame::giveFocus(Qt::FocusReason reason) {
    QWidget* child = widget();
    if (!child || isMinimized())
        return;
    if (QWidget* control = usableControl())
        control->setFocus(reason);
    else if (!hasFocusInside())
        child->setFocus(reason);
}

void ChildFrame::closeEvent(QCloseEvent* event) {
    QMdiSubWindow::closeEvent(event);
    if (event->isAccepted())
        emit closed();
}

void ChildFrame::changeEvent(QEvent* event) {
    // The toolkit hides the window while it changes its state, and the focus walks on to the next control.
    const QPointer<QWidget> control = control_;
    QMdiSubWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    control_ = control;
    if (isAncestorOf(window()->focusWidget()))
        giveFocus(Qt::OtherFocusReason);
}

void ChildFrame::focusInEvent(QFocusEvent* event) {
    QMdiSubWindow::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason)
        giveFocus(Qt::MouseFocusReason);
}

bool ChildFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && watched == widget()) {
        if (QWidget* control = usableControl()) {
            control->setFocus(static_cast<QFocusEvent*>(event)->reason());
            return true;
        }
    }
    return QMdiSubWindow::eventFilter(watched, event);
}

} // namespace velm
