#include "platform/widgets/look/framestyle.h"

#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>

#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int iconSide = 16;
constexpr double glyphHalf = 4; ///< half the side of the signs on title buttons
constexpr double stroke = 1.25;

QColor mixed(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor surface(const QPalette& palette, bool active) {
    const QColor window = palette.color(QPalette::Window);
    const QColor accent = look::accentColour(look::themeOf(palette));
    return active ? mixed(window, accent, 0.22) : window;
}

QColor outline(const QPalette& palette, bool active) {
    const QColor accent = look::accentColour(look::themeOf(palette));
    return active ? mixed(palette.color(QPalette::Window), accent, 0.7) : quietLine(palette);
}

enum class Sign { Minimise, Maximise, Restore, Close };

void drawSign(QPainter& painter, Sign sign, const QRectF& around, const QColor& ink) {
    const QPointF c(std::floor(around.center().x()) + 0.5, std::floor(around.center().y()) + 0.5);
    const double h = glyphHalf;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, sign == Sign::Close);
    painter.setPen(QPen(ink, stroke));
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
        painter.fillRect(place, mixed(under, ink, 0.3));
    else if (touched && option.state & QStyle::State_MouseOver)
        painter.fillRect(place, mixed(under, ink, 0.16));
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

void drawTitleBar(const QStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) {
    static constexpr std::array buttons{TitleButton{QStyle::SC_TitleBarMinButton, Sign::Minimise},
                                        TitleButton{QStyle::SC_TitleBarMaxButton, Sign::Maximise},
                                        TitleButton{QStyle::SC_TitleBarNormalButton, Sign::Restore},
                                        TitleButton{QStyle::SC_TitleBarCloseButton, Sign::Close}};
    const bool active = bar.titleBarState & QStyle::State_Active;
    const QColor under = surface(bar.palette, active);
    const QRect rect = bar.rect;
    painter.fillRect(rect, outline(bar.palette, active));
    painter.fillRect(rect.adjusted(1, 1, -1, -1), under);
    const auto place = [&](QStyle::SubControl control) {
        return style.subControlRect(QStyle::CC_TitleBar, &bar, control, widget);
    };
    if (!bar.icon.isNull()) {
        QRect icon(0, 0, iconSide, iconSide);
        icon.moveCenter(place(QStyle::SC_TitleBarSysMenu).center());
        bar.icon.paint(&painter, icon);
    }
    QFont font = painter.font();
    font.setWeight(active ? QFont::DemiBold : QFont::Normal);
    painter.setFont(font);
    const QColor ink = bar.palette.color(QPalette::WindowText);
    painter.setPen(active ? ink : mixed(under, ink, 0.75));
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

/// Two chevrons in the colour of text, for what does not fit on a bar.
class MoreEngine final : public QIconEngine {
public:
    explicit MoreEngine(bool downwards) : downwards_(downwards) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QGuiApplication::palette().color(QPalette::ButtonText), 1.5));
        painter->translate(QRectF(rect).center());
        if (downwards_)
            painter->rotate(90);
        for (const double from : {-3.5, 0.5})
            painter->drawPolyline(QList<QPointF>{{from, -3}, {from + 3, 0}, {from, 3}});
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new MoreEngine(downwards_); }

private:
    bool downwards_;
};

/// Things whose edge is darker than the window: in a dark palette nobody sees it.
bool isOutlined(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_PanelMenu || element == QStyle::PE_FrameLineEdit ||
           element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_Frame;
}

void drawOutline(const QStyleOption& option, QPainter& painter) {
    if (option.state & QStyle::State_HasFocus)
        return; // has an edge of its own
    painter.save();
    painter.setPen(quietLine(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace

QColor quietLine(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.22);
}

FrameStyle::FrameStyle(QStyle* base) : QProxyStyle(base) {}

void FrameStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control == CC_TitleBar && bar)
        drawTitleBar(*this, *bar, *painter, widget);
    else if (control == CC_MdiControls)
        drawMdiControls(*this, *option, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void FrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element != PE_FrameWindow) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (isOutlined(element) && look::themeOf(option->palette) == look::Theme::Dark)
            drawOutline(*option, *painter);
        return;
    }
    const QRect rect = option->rect;
    painter->fillRect(rect, surface(option->palette, false));
    painter->setPen(outline(option->palette, option->state & State_Active));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
}

void FrameStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item || (element != CE_MenuItem && element != CE_MenuBarItem)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty()) {
        const QRect rect = item->rect;
        painter->fillRect(rect.left() + look::grid, rect.center().y(), rect.width() - 2 * look::grid, 1,
                          quietLine(item->palette));
        return;
    }
    // A tint under the chosen entry, so that its picture stays as legible as its words.
    QStyleOptionMenuItem quiet = *item;
    quiet.palette.setColor(QPalette::Highlight, surface(item->palette, true));
    quiet.palette.setColor(QPalette::HighlightedText, item->palette.color(QPalette::WindowText));
    QProxyStyle::drawControl(element, &quiet, painter, widget);
}

int FrameStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    // Buttons of boxes say in words what they do.
    if (hint == SH_WindowFrame_Mask || hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    // A history of hundreds stays one column, and scrolls.
    if (hint == SH_Menu_Scrollable)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QIcon FrameStyle::standardIcon(StandardPixmap standard, const QStyleOption* option, const QWidget* widget) const {
    if (standard == SP_ToolBarHorizontalExtensionButton || standard == SP_ToolBarVerticalExtensionButton)
        return QIcon(new MoreEngine(standard == SP_ToolBarVerticalExtensionButton));
    switch (standard) {
    case SP_MessageBoxQuestion:
        return icon(u"boitequestion"_s);
    case SP_MessageBoxInformation:
        return icon(u"boiteinformation"_s);
    case SP_MessageBoxWarning:
        return icon(u"boiteattention"_s);
    case SP_MessageBoxCritical:
        return icon(u"boitearret"_s);
    default:
        break;
    }
    return QProxyStyle::standardIcon(standard, option, widget);
}

} // namespace velm
