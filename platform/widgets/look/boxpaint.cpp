#include "platform/widgets/look/boxpaint.h"

#include "platform/widgets/look/look.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace velm {

namespace {

constexpr double cornerRadius = 4;
constexpr double faded = 0.45; ///< of an edge, where it cannot be used

bool enabled(const QStyleOption& option) {
    return option.state & QStyle::State_Enabled;
}

bool hovered(const QStyleOption& option) {
    return enabled(option) && option.state & QStyle::State_MouseOver;
}

bool pressed(const QStyleOption& option) {
    return option.state & (QStyle::State_Sunken | QStyle::State_On);
}

QColor inkOf(const QStyleOption& option) {
    return option.palette.color(enabled(option) ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
}

QColor edgeOf(const QStyleOption& option) {
    const QColor edge = look::edge(option.palette);
    return enabled(option) ? edge : look::mixed(option.palette.color(QPalette::Window), edge, faded);
}

/// The window's colour with a breath of ink.
QColor breath(const QPalette& palette, QPalette::ColorRole ground, double part) {
    return look::mixed(palette.color(ground), palette.color(QPalette::WindowText), part);
}

QColor chosenHere(const QStyleOption& option) {
    const QColor ground = look::chosenGround(option.palette);
    const bool deeper = option.state & QStyle::State_Sunken || hovered(option);
    return deeper ? look::mixed(ground, look::chosenEdge(option.palette), 0.15) : ground;
}

QColor filling(const QStyleOption& option) {
    const look::Theme theme = look::themeOf(option.palette);
    const QColor standard = look::defaultButton(theme);
    if (option.state & QStyle::State_Sunken)
        return look::mixed(standard, Qt::black, 0.18);
    return hovered(option) ? look::mixed(standard, Qt::black, 0.09) : standard;
}

/// The box of a check mark or of a choice: filled where it is on.
void drawMarkGround(const QStyleOption& option, QPainter& painter, bool on, double corner) {
    QColor ground = option.palette.color(QPalette::Base);
    QColor edge = edgeOf(option);
    if (on && enabled(option))
        edge = ground = filling(option);
    else if (on)
        ground = edge;
    else if (hovered(option))
        ground = breath(option.palette, QPalette::Base, 0.06);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}

/// A pressed button of a bar: many of them are down for long, and say nothing that is new. A tint, and a line below the
/// picture by which it is told.
void drawMarkedFace(const QStyleOption& option, const QRect& face, QPainter& painter) {
    constexpr int line = 2;
    constexpr int length = 4 * look::grid;
    const bool touched = option.state & QStyle::State_Sunken || hovered(option);
    const QColor ground = look::chosenGround(option.palette);
    const QColor window = option.palette.color(QPalette::Window);
    drawFace(painter, face, touched ? ground : look::mixed(window, ground, 0.6), {});
    const int room = std::min(length, face.width());
    painter.fillRect(face.left() + (face.width() - room) / 2, face.bottom() + 1 - line, room, line,
                     look::chosenEdge(option.palette));
}

/// The signs on a filled box.
QColor signInk(const QStyleOption& option) {
    return enabled(option) ? QColor(Qt::white) : option.palette.color(QPalette::Base);
}

} // namespace

void drawFace(QPainter& painter, const QRect& place, const QColor& ground, const QColor& edge) {
    if (!ground.isValid() && !edge.isValid())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge.isValid() ? QPen(edge) : QPen(Qt::NoPen));
    painter.setBrush(ground.isValid() ? QBrush(ground) : QBrush(Qt::NoBrush));
    const double inset = edge.isValid() ? 0.5 : 0;
    painter.drawRoundedRect(QRectF(place).adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
    painter.restore();
}

// ---- buttons

bool isFilled(const QStyleOptionButton& button) {
    constexpr auto plain = QStyleOptionButton::DefaultButton;
    return button.features & plain && button.state & QStyle::State_Enabled && !(button.state & QStyle::State_On);
}

void drawPushButton(const QStyleOption& option, QPainter& painter) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (button && isFilled(*button)) {
        drawFace(painter, option.rect, filling(option), look::defaultButton(look::themeOf(option.palette)));
    } else if (button && button->features & QStyleOptionButton::Flat && !pressed(option)) {
        drawFace(painter, option.rect, hovered(option) ? breath(option.palette, QPalette::Window, 0.08) : QColor(), {});
    } else if (pressed(option)) {
        drawFace(painter, option.rect, chosenHere(option), look::chosenEdge(option.palette));
    } else {
        const QColor usual = option.palette.color(QPalette::Button);
        drawFace(painter, option.rect, hovered(option) ? breath(option.palette, QPalette::Button, 0.08) : usual,
                 edgeOf(option));
    }
}

void drawArrow(QPainter& painter, const QPointF& centre, const QColor& ink) {
    constexpr double half = 3.5;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.translate(centre);
    painter.drawPolyline(QList<QPointF>{{-half, -half / 2}, {0, half / 2}, {half, -half / 2}});
    painter.restore();
}

void drawToolButton(const QStyle& style, const QStyleOptionToolButton& button, QPainter& painter,
                    const QWidget* widget) {
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ToolButton, &button, part, widget);
    };
    const bool split = button.subControls & QStyle::SC_ToolButtonMenu;
    const bool menuDown = split && button.activeSubControls & QStyle::SC_ToolButtonMenu && pressed(button);
    const QRect face = button.rect.adjusted(1, 1, -1, -1);
    const bool raised = !(button.state & QStyle::State_AutoRaise);
    if (enabled(button) && pressed(button) && !raised)
        drawMarkedFace(button, face, painter);
    else if (enabled(button) && pressed(button))
        drawFace(painter, face, chosenHere(button), look::chosenEdge(button.palette));
    else if (hovered(button) || raised)
        drawFace(painter, face, hovered(button) ? breath(button.palette, QPalette::Window, 0.08) : QColor(),
                 raised ? edgeOf(button) : QColor());
    if (menuDown)
        drawFace(painter, place(QStyle::SC_ToolButtonMenu).adjusted(0, 1, -1, -1), filling(button), {});
    QStyleOptionToolButton label = button;
    label.state.setFlag(QStyle::State_Sunken, false);
    label.rect = place(QStyle::SC_ToolButton);
    style.drawControl(QStyle::CE_ToolButtonLabel, &label, &painter, widget);
    if (split) {
        const QRectF menu = place(QStyle::SC_ToolButtonMenu);
        drawArrow(painter, menu.center() - QPointF(1, 0), menuDown ? QColor(Qt::white) : inkOf(button));
    }
}

// ---- fields

void drawField(const QStyleOption& option, QPainter& painter) {
    drawFace(painter, option.rect, option.palette.color(enabled(option) ? QPalette::Base : QPalette::Window),
             edgeOf(option));
}

void drawComboBox(const QStyle& style, const QStyleOptionComboBox& box, QPainter& painter, const QWidget* widget) {
    if (box.editable) {
        drawField(box, painter);
    } else {
        const bool down = box.state & QStyle::State_On || box.state & QStyle::State_Sunken;
        const QColor usual = box.palette.color(QPalette::Button);
        const QColor ground = hovered(box) || down ? breath(box.palette, QPalette::Button, 0.08) : usual;
        drawFace(painter, box.rect, ground, edgeOf(box));
    }
    const QRectF arrow = style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, widget);
    drawArrow(painter, arrow.center(), inkOf(box));
}

void drawCheck(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const bool half = option.state & QStyle::State_NoChange;
    const bool on = half || option.state & QStyle::State_On;
    drawMarkGround(option, painter, on, cornerRadius - 1);
    painter.setPen(QPen(signInk(option), 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const QRectF box(option.rect);
    const auto at = [&box](double x, double y) { return box.topLeft() + QPointF(x * box.width(), y * box.height()); };
    if (half)
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    else if (on)
        painter.drawPolyline(QList<QPointF>{at(0.25, 0.53), at(0.43, 0.7), at(0.76, 0.32)});
    painter.restore();
}

void drawRadio(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const bool on = option.state & QStyle::State_On;
    const QRectF box(option.rect);
    drawMarkGround(option, painter, on, box.width() / 2);
    if (on) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(signInk(option));
        painter.drawEllipse(box.center(), box.width() * 0.2, box.height() * 0.2);
    }
    painter.restore();
}

// ---- tabs and progress

void drawTab(const QStyleOptionTab& tab, QPainter& painter) {
    constexpr int line = 2;
    const bool chosen = tab.state & QStyle::State_Selected;
    const QRect under(tab.rect.left(), tab.rect.bottom() - line + 1, tab.rect.width(), line);
    if (chosen)
        painter.fillRect(under.adjusted(look::grid, 0, -look::grid, 0), look::chosenEdge(tab.palette));
    else if (hovered(tab))
        drawFace(painter, tab.rect.adjusted(0, 0, 0, -line), breath(tab.palette, QPalette::Window, 0.06), {});
}

void drawProgressGround(const QStyleOptionProgressBar& bar, QPainter& painter) {
    drawFace(painter, bar.rect, breath(bar.palette, QPalette::Window, 0.1), edgeOf(bar));
}

bool drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter) {
    const double whole = double(bar.maximum) - bar.minimum;
    if (whole <= 0)
        return false;
    const double part = std::clamp((double(bar.progress) - bar.minimum) / whole, 0.0, 1.0);
    QRect done = bar.rect;
    if (bar.state & QStyle::State_Horizontal)
        done.setWidth(qRound(done.width() * part));
    else
        done.setTop(done.bottom() + 1 - qRound(done.height() * part));
    if (!done.isEmpty())
        drawFace(painter, done, look::focusColour(look::themeOf(bar.palette)), {});
    return true;
}

} // namespace velm
