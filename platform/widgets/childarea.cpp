#include "platform/widgets/childarea.h"

#include "platform/text/twips.h"

#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPainter>

namespace velm {

ChildArea::ChildArea(QWidget* parent) : QMdiArea(parent), colour_(palette().color(QPalette::Mid)) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QMdiArea::subWindowActivated, this, [this] { emit childActivated(activeChild()); });
}

QMdiSubWindow* ChildArea::add(QWidget* child) {
    QMdiSubWindow* window = addSubWindow(child);
    window->setAttribute(Qt::WA_DeleteOnClose);
    return window;
}

QMdiSubWindow* ChildArea::around(const QWidget* child) const {
    for (QMdiSubWindow* window : subWindowList()) {
        if (child && window->widget() == child)
            return window;
    }
    return nullptr;
}

void ChildArea::place(QWidget* child, int state, int left, int top, int width, int height) {
    QMdiSubWindow* window = around(child);
    if (!window)
        return;
    window->setGeometry(pixelsFromTwips(left), pixelsFromTwips(top), pixelsFromTwips(width), pixelsFromTwips(height));
    if (state == Maximised)
        window->setWindowState(Qt::WindowMaximized);
    else if (state == Minimised)
        window->setWindowState(Qt::WindowMinimized);
}

int ChildArea::stateOf(const QWidget* child) const {
    const QMdiSubWindow* window = around(child);
    if (!window)
        return Normal;
    return window->isMinimized() ? Minimised : window->isMaximized() ? Maximised : Normal;
}

QRect ChildArea::twipsOf(const QWidget* child) const {
    const QMdiSubWindow* window = around(child);
    const QRect place = window ? window->geometry() : QRect();
    return {twipsFromPixels(place.x()), twipsFromPixels(place.y()), twipsFromPixels(place.width()),
            twipsFromPixels(place.height())};
}

void ChildArea::activate(QWidget* child) {
    QMdiSubWindow* window = around(child);
    if (!window)
        return;
    if (window->isMinimized())
        window->showNormal();
    window->show();
    setActiveSubWindow(window);
}

void ChildArea::hideChild(QWidget* child) {
    if (QMdiSubWindow* window = around(child))
        window->hide();
}

QWidget* ChildArea::activeChild() const {
    const QMdiSubWindow* window = currentSubWindow();
    return window && !window->isHidden() ? window->widget() : nullptr;
}

std::vector<QWidget*> ChildArea::children() const {
    std::vector<QWidget*> all;
    for (const QMdiSubWindow* window : subWindowList(CreationOrder))
        all.push_back(window->widget());
    return all;
}

std::vector<QMdiSubWindow*> ChildArea::arrangeable() const {
    std::vector<QMdiSubWindow*> windows;
    for (QMdiSubWindow* window : subWindowList(CreationOrder)) {
        if (window->isVisible() && !window->isMinimized())
            windows.push_back(window);
    }
    return windows;
}

void ChildArea::arrange(Arrangement arrangement) {
    for (QMdiSubWindow* window : arrangeable()) {
        if (window->isMaximized())
            window->showNormal();
    }
    if (arrangement == Arrangement::Cascade)
        cascadeSubWindows();
    else
        tileSubWindows();
}

void ChildArea::setBack(const QPixmap& picture, const QColor& colour) {
    picture_ = picture;
    colour_ = colour;
    viewport()->update();
}

void ChildArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), colour_);
    if (picture_.isNull())
        return;
    const QSizeF size = picture_.deviceIndependentSize();
    painter.drawPixmap(QPointF((viewport()->width() - size.width()) / 2, (viewport()->height() - size.height()) / 2),
                       picture_);
}

void ChildArea::keyPressEvent(QKeyEvent* event) {
    QMdiArea::keyPressEvent(event);
}

} // namespace velm
