#include "platform/widgets/frame/toolbartip.h"

#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QToolButton>
#include <QToolTip>

#include <algorithm>

namespace velm {

void showTipBeside(QToolButton& button, bool before) {
    const QRect place(button.mapToGlobal(QPoint()), button.size());
    QToolTip::showText(place.center(), button.toolTip(), &button);
    // The toolkit puts a tip below the pointer, wherever it is told to: it is moved afterwards.
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        windows, [](const QWidget* window) { return window->inherits("QTipLabel") && window->isVisible(); });
    if (tip == windows.end())
        return;
    const int left = before ? place.left() - look::grid - (*tip)->width() : place.right() + 1 + look::grid;
    (*tip)->move(left, place.center().y() - (*tip)->height() / 2);
}

} // namespace velm
