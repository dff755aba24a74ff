#include "platform/widgets/text/sheetbar.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionSlider>

namespace velm {

QRect SheetBar::groove() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarGroove, this);
}

void SheetBar::paintEvent(QPaintEvent* event) {
    if (minimum() < maximum())
        QScrollBar::paintEvent(event);
    else
        QPainter(this).fillRect(event->rect(), beside_());
}

} // namespace velm
