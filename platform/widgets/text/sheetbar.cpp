#include "platform/widgets/text/sheetbar.h"

#include <QPaintEvent>
#include <QPainter>

namespace velm {

void SheetBar::paintEvent(QPaintEvent* event) {
    if (minimum() < maximum())
        QScrollBar::paintEvent(event);
    else
        QPainter(this).fillRect(event->rect(), beside_());
}

} // namespace velm
