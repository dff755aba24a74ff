#include "platform/widgets/frame/toolbarwalk.h"

#include <QToolButton>

#include <algorithm>

namespace velm {

namespace {

bool usable(const QToolButton* button) {
    return button && button->isEnabled() && button->isVisibleTo(button->parentWidget());
}

} // namespace

QToolButton* tabStop(const std::vector<QToolButton*>& buttons, QToolButton* wanted) {
    if (usable(wanted))
        return wanted;
    const auto now = std::ranges::find_if(
        buttons, [](const QToolButton* button) { return usable(button) && button->focusPolicy() != Qt::NoFocus; });
    if (now != buttons.end())
        return *now;
    const auto first = std::ranges::find_if(buttons, usable);
    return first == buttons.end() ? nullptr : *first;
}

QToolButton* stepFrom(const QToolButton& from, int step, const std::vector<QToolButton*>& buttons) {
    std::vector<QToolButton*> reachable;
    std::ptrdiff_t here = 0;
    for (QToolButton* button : buttons) {
        if (button == &from)
            here = std::ssize(reachable);
        if (button->isEnabled() && button->isVisible())
            reachable.push_back(button);
    }
    if (reachable.empty())
        return nullptr;
    return reachable[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(here + step, 0, std::ssize(reachable) - 1))];
}

} // namespace velm
