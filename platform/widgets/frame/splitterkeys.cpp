#include "platform/widgets/frame/splitterkeys.h"

#include "platform/widgets/frame/splitterbar.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcut>

#include <algorithm>
#include <ranges>

namespace velm {

namespace {

/// Whether a bar lies in a child window behind the active one.
bool liesBehind(const SplitterBar& bar) {
    for (const QWidget* above = bar.parentWidget(); above && !above->isWindow(); above = above->parentWidget()) {
        if (auto* child = qobject_cast<const QMdiSubWindow*>(above))
            return child->mdiArea() && child->mdiArea()->activeSubWindow() != child;
    }
    return false;
}

} // namespace

void SplitterKeys::serve(QWidget& window) {
    if (!window.findChild<SplitterKeys*>(QString(), Qt::FindDirectChildrenOnly))
        new SplitterKeys(window);
}

SplitterKeys::SplitterKeys(QWidget& window) : QObject(&window), window_(window) {
    auto* key = new QShortcut(Qt::Key_F8, &window);
    connect(key, &QShortcut::activated, this, &SplitterKeys::next);
}

std::vector<SplitterBar*> SplitterKeys::reachable() const {
    std::vector<SplitterBar*> bars;
    for (SplitterBar* bar : window_.findChildren<SplitterBar*>()) {
        if (bar->isVisible() && bar->isEnabled() && !bar->size().isEmpty() && !liesBehind(*bar))
            bars.push_back(bar);
    }
    const auto corner = [this](const SplitterBar* bar) {
        const QPoint here = bar->mapTo(&window_, QPoint());
        return std::pair(here.y(), here.x());
    };
    std::ranges::sort(bars, {}, corner);
    return bars;
}

void SplitterKeys::next() {
    const std::vector<SplitterBar*> bars = reachable();
    if (bars.empty())
        return;
    QWidget* now = window_.focusWidget();
    const auto here = std::ranges::find(bars, now);
    if (here == bars.end()) {
        began_ = now;
        bars.front()->setFocus(Qt::ShortcutFocusReason);
    } else if (std::next(here) != bars.end()) {
        (*std::next(here))->setFocus(Qt::ShortcutFocusReason);
    } else if (began_ && began_->isVisible() && began_->isEnabled()) {
        began_->setFocus(Qt::ShortcutFocusReason);
    } else {
        (*here)->clearFocus();
    }
}

} // namespace velm
