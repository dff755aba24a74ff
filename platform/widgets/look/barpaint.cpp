#include "platform/widgets/look/barpaint.h"

#include "platform/widgets/look/boxpaint.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/titlepaint.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace velm {

namespace {

bool lies(const QStyleOption& option) {
    return option.state & QStyle::State_Horizontal;
}

/// From where to where along the bar.
QRect stretch(const QStyleOptionSlider& bar, int from, int length) {
    return bar.orientation == Qt::Horizontal ? QRect(bar.rect.x() + from, bar.rect.y(), length, bar.rect.height())
                                             : QRect(bar.rect.x(), bar.rect.y() + from, bar.rect.width(), length);
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const int whole = bar.orientation == Qt::Horizontal ? bar.rect.width() : bar.rect.height();
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    const qint64 fair = range > 0 ? qint64(whole) * bar.pageStep / (range + bar.pageStep) : whole;
    const int thumb = std::clamp(static_cast<int>(fair), std::min(leastThumb, whole), whole);
    const int from =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, whole - thumb, bar.upsideDown);
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSlider:
        return stretch(bar, from, thumb);
    case QStyle::SC_ScrollBarSubPage:
        return stretch(bar, 0, from);
    case QStyle::SC_ScrollBarAddPage:
        return stretch(bar, from + thumb, whole - from - thumb);
    default:
        return {}; // no arrows
    }
}

void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter) {
    if (bar.maximum <= bar.minimum || !(bar.state & QStyle::State_Enabled))
        return;
    const bool touched = bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken) &&
                         bar.activeSubControls & QStyle::SC_ScrollBarSlider;
    const QColor usual = look::edge(bar.palette);
    const int beside = touched ? 1 : 3; // thin, while nobody wants it
    const QRect thumb = scrollBarPart(bar, QStyle::SC_ScrollBarSlider).adjusted(beside, beside, -beside, -beside);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(touched ? look::mixed(usual, bar.palette.color(QPalette::WindowText), 0.35) : usual);
    const double round = std::min(thumb.width(), thumb.height()) / 2.0;
    painter.drawRoundedRect(thumb, round, round);
    painter.restore();
}

void drawToolBar(const QStyleOptionToolBar& bar, QPainter& painter) {
    painter.fillRect(bar.rect, bar.palette.color(QPalette::Window));
    QRect line = bar.rect;
    switch (bar.toolBarArea) {
    case Qt::TopToolBarArea:
        line.setTop(line.bottom());
        break;
    case Qt::BottomToolBarArea:
        line.setBottom(line.top());
        break;
    case Qt::LeftToolBarArea:
        line.setLeft(line.right());
        break;
    case Qt::RightToolBarArea:
        line.setRight(line.left());
        break;
    default:
        return;
    }
    painter.fillRect(line, quietLine(bar.palette));
}

void drawSeparator(const QStyleOption& option, QPainter& painter) {
    constexpr double part = 0.6;
    QRect line = option.rect;
    if (lies(option)) {
        const int length = qRound(line.height() * part);
        line = QRect(line.center().x(), line.y() + (line.height() - length) / 2, 1, length);
    } else {
        const int length = qRound(line.width() * part);
        line = QRect(line.x() + (line.width() - length) / 2, line.center().y(), length, 1);
    }
    painter.fillRect(line, look::edge(option.palette));
}

void drawMenuBarItem(const QStyle& style, const QStyleOptionMenuItem& item, QPainter& painter) {
    painter.fillRect(item.rect, item.palette.color(QPalette::Window));
    if (item.state & QStyle::State_Selected && item.state & QStyle::State_Enabled)
        drawFace(painter, item.rect.adjusted(1, 1, -1, -1), windowSurface(item.palette, true), {});
    int alignment = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (!style.styleHint(QStyle::SH_UnderlineShortcut, &item))
        alignment |= Qt::TextHideMnemonic;
    style.drawItemText(&painter, item.rect, alignment, item.palette, item.state & QStyle::State_Enabled, item.text,
                       QPalette::WindowText);
}

} // namespace velm
