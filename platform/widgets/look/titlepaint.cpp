#include "platform/widgets/look/titlepaint.h"

#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <array>

namespace velm {

namespace {

constexpr int titleIconSide = 16;
constexpr double glyphHalf = 4; ///< half the side of the signs on title buttons
constexpr double signWidth = 1.25;

enum class Sign { Minimise, Maximise, Restore, Close };

void drawSign(QPainter& painter, Sign sign, const QRectF& around, const QColor& ink) {
    const QPointF c(std::floor(around.center().x()) + 0.5, std::floor(around.center().y()) + 0.5);
    const double h = glyphHalf;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, sign == Sign::Close);
    painter.setPen(QPen(ink, signWidth));
    painter.setBrush(Qt::NoBrush);
    switch (sign) {
    case Sign::Minimise:
        painter.drawLine(c + QPointF(-h, h), c + QPointF(h, h));
        break;
    case Sign::Maximise:
        painter.drawRect(QRectF(c - QPointF(h, h), c + QPointF(h, h)));
        break;
    case Sign::Restore:
        painter.drawRect(QRectF(c + QPointF(-h, 2 - h), c + QPointF(h - 2, h)));
        painter.drawPolyline(QList<QPointF>{c + QPointF(2 - h, 2 - h), c + QPointF(2 - h, -h), c + QPointF(h, -h),
                                            c + QPointF(h, h - 2), c + QPointF(h - 2, h - 2)});
        break;
    case Sign::Close:
        painter.drawLine(c + QPointF(-h, -h), c + QPointF(h, h));
        painter.drawLine(c + QPointF(-h, h), c + QPointF(h, -h));
        break;
    }
    painter.restore();
}

void drawButton(QPainter& painter, Sign sign, const QRect& place, const QStyleOptionComplex& option,
                QStyle::SubControl control, const QColor& under) {
    const QColor ink = option.palette.color(QPalette::WindowText);
    const bool touched = option.activeSubControls & control;
    if (touched && option.state & QStyle::State_Sunken)
        painter.fillRect(place, look::mixed(under, ink, 0.3));
    else if (touched && option.state & QStyle::State_MouseOver)
        painter.fillRect(place, look::mixed(under, ink, 0.16));
    drawSign(painter, sign, place, ink);
}

struct TitleButton {
    QStyle::SubControl control;
    Sign sign;
};

bool hasButton(const QStyleOptionTitleBar& bar, QStyle::SubControl control) {
    const bool minimised = bar.titleBarState & Qt::WindowMinimized;
    const bool maximised = bar.titleBarState & Qt::WindowMaximized;
    const bool canMinimise = bar.titleBarFlags & Qt::WindowMinimizeButtonHint;
    const bool canMaximise = bar.titleBarFlags & Qt::WindowMaximizeButtonHint;
    switch (control) {
    case QStyle::SC_TitleBarMinButton:
        return canMinimise && !minimised;
    case QStyle::SC_TitleBarMaxButton:
        return canMaximise && !maximised;
    case QStyle::SC_TitleBarNormalButton:
        return (canMinimise && minimised) || (canMaximise && maximised);
    default:
        return bar.titleBarFlags & Qt::WindowSystemMenuHint;
    }
}

} // namespace

QColor windowSurface(const QPalette& palette, bool active) {
    const QColor window = palette.color(QPalette::Window);
    const QColor accent = look::accentColour(look::themeOf(palette));
    return active ? look::mixed(window, accent, 0.22) : window;
}

QColor windowOutline(const QPalette& palette, bool active) {
    const QColor accent = look::accentColour(look::themeOf(palette));
    return active ? look::mixed(palette.color(QPalette::Window), accent, 0.7) : quietLine(palette);
}

void drawTitleBar(const QStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) {
    static constexpr std::array buttons{TitleButton{QStyle::SC_TitleBarMinButton, Sign::Minimise},
                                        TitleButton{QStyle::SC_TitleBarMaxButton, Sign::Maximise},
                                        TitleButton{QStyle::SC_TitleBarNormalButton, Sign::Restore},
                                        TitleButton{QStyle::SC_TitleBarCloseButton, Sign::Close}};
    const bool active = bar.titleBarState & QStyle::State_Active;
    const QColor under = windowSurface(bar.palette, active);
    const QRect rect = bar.rect;
    painter.fillRect(rect, windowOutline(bar.palette, active));
    painter.fillRect(rect.adjusted(1, 1, -1, -1), under);
    const auto place = [&](QStyle::SubControl control) {
        return style.subControlRect(QStyle::CC_TitleBar, &bar, control, widget);
    };
    if (!bar.icon.isNull()) {
        QRect icon(0, 0, titleIconSide, titleIconSide);
        icon.moveCenter(place(QStyle::SC_TitleBarSysMenu).center());
        bar.icon.paint(&painter, icon);
    }
    QFont font = painter.font();
    font.setWeight(active ? QFont::DemiBold : QFont::Normal);
    painter.setFont(font);
    const QColor ink = bar.palette.color(QPalette::WindowText);
    painter.setPen(active ? ink : look::mixed(under, ink, 0.75));
    const QRect label = place(QStyle::SC_TitleBarLabel).adjusted(look::spacing, 0, -look::grid, 0);
    painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, label.width()));
    for (const TitleButton& button : buttons) {
        if (bar.subControls & button.control && hasButton(bar, button.control))
            drawButton(painter, button.sign, place(button.control), bar, button.control, under);
    }
}

void drawMdiControls(const QStyle& style, const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) {
    static constexpr std::array buttons{TitleButton{QStyle::SC_MdiMinButton, Sign::Minimise},
                                        TitleButton{QStyle::SC_MdiNormalButton, Sign::Restore},
                                        TitleButton{QStyle::SC_MdiCloseButton, Sign::Close}};
    for (const TitleButton& button : buttons) {
        if (option.subControls & button.control)
            drawButton(painter, button.sign,
                       style.subControlRect(QStyle::CC_MdiControls, &option, button.control, widget), option,
                       button.control, option.palette.color(QPalette::Window));
    }
}

} // namespace velm
