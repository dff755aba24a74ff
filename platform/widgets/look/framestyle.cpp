#include "platform/widgets/look/framestyle.h"

#include "platform/widgets/look/barpaint.h"
#include "platform/widgets/look/boxpaint.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/popuprows.h"
#include "platform/widgets/look/titlepaint.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolBar>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int barPadding = 6; ///< around the picture of a bar's button
constexpr int menuEntryHeight = 26;

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

/// Four strips along the inner edge. A line of a pen would lie in the middle of what these cover, and at one and a half
/// times the size under what begins beside it.
void drawEdges(const QRect& rect, const QColor& colour, QPainter& painter) {
    const QRect inner = rect.adjusted(1, 1, -1, -1);
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, colour);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, colour);
    painter.fillRect(rect.left(), inner.top(), 1, inner.height(), colour);
    painter.fillRect(rect.right(), inner.top(), 1, inner.height(), colour);
}

/// A thin line around what is no control.
void drawOutline(const QStyleOption& option, QPainter& painter) {
    drawEdges(option.rect, quietLine(option.palette), painter);
}

void drawWindowFrame(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, windowSurface(option.palette, false));
    drawEdges(option.rect, windowOutline(option.palette, option.state & QStyle::State_Active), painter);
}

void drawTip(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, option.palette.color(QPalette::ToolTipBase));
    drawOutline(option, painter);
}

/// A line over what is said at the window's foot.
void drawStatusBar(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    painter.fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 1)), quietLine(option.palette));
}

/// The pages of tabs lie on the window: a line under the tabs is all that parts them.
void drawTabPane(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(QRect(option.rect.topLeft(), QSize(option.rect.width(), 1)), quietLine(option.palette));
}

/// The field inside of a drop-down list is a part of that.
bool liesInBox(const QWidget* widget) {
    return widget && qobject_cast<const QComboBox*>(widget->parentWidget());
}

/// What is offered below a field is read as a list is.
bool isOffered(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) && widget->window()->windowType() == Qt::Popup;
}

bool isPopupOfBox(const QWidget* widget) {
    return widget && widget->inherits("QComboBoxPrivateContainer");
}

void drawMenuEntry(const QProxyStyle& style, const QStyleOptionMenuItem& item, QPainter& painter,
                   const QWidget* widget) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator && item.text.isEmpty()) {
        const QRect rect = item.rect;
        painter.fillRect(rect.left() + look::grid, rect.center().y(), rect.width() - 2 * look::grid, 1,
                         quietLine(item.palette));
        return;
    }
    // A tint under the chosen entry, so that its picture stays as legible as its words.
    QStyleOptionMenuItem quiet = item;
    quiet.palette.setColor(QPalette::Highlight, windowSurface(item.palette, true));
    quiet.palette.setColor(QPalette::HighlightedText, item.palette.color(QPalette::WindowText));
    style.QProxyStyle::drawControl(QStyle::CE_MenuItem, &quiet, &painter, widget);
}

} // namespace

QColor quietLine(const QPalette& palette) {
    return look::mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.22);
}

FrameStyle::FrameStyle(QStyle* base) : QProxyStyle(base) {}

void FrameStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option); bar && control == CC_TitleBar)
        drawTitleBar(*this, *bar, *painter, widget);
    else if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
             slider && control == CC_ScrollBar)
        drawScrollBar(*slider, *painter);
    else if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
             button && control == CC_ToolButton)
        drawToolButton(*this, *button, *painter, widget);
    else if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option); box && control == CC_ComboBox)
        drawComboBox(*this, *box, *painter, widget);
    else if (control == CC_MdiControls)
        drawMdiControls(*this, *option, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void FrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (element) {
    case PE_FrameWindow:
        return drawWindowFrame(*option, *painter);
    case PE_FrameFocusRect: // the focus has its ring
    case PE_FrameTabBarBase:
        return;
    case PE_PanelButtonCommand:
        return drawPushButton(*option, *painter);
    case PE_PanelLineEdit:
    case PE_FrameLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (liesInBox(widget))
            return;
        if (!frame || frame->lineWidth > 0)
            drawField(*option, *painter);
        else
            painter->fillRect(option->rect, option->palette.color(QPalette::Base));
        return;
    }
    case PE_IndicatorCheckBox:
        return drawCheck(*option, *painter);
    case PE_IndicatorRadioButton:
        return drawRadio(*option, *painter);
    case PE_IndicatorToolBarSeparator:
        return drawSeparator(*option, *painter);
    case PE_IndicatorArrowDown:
        return drawArrow(*painter, QRectF(option->rect).center(),
                         option->palette.color(option->state & State_Enabled ? QPalette::Active : QPalette::Disabled,
                                               QPalette::ButtonText));
    case PE_PanelTipLabel:
        return drawTip(*option, *painter);
    case PE_PanelStatusBar:
        return drawStatusBar(*option, *painter);
    case PE_FrameTabWidget:
        return drawTabPane(*option, *painter);
    case PE_PanelScrollAreaCorner:
        return painter->fillRect(
            option->rect,
            option->palette.color(qobject_cast<const QAbstractItemView*>(widget) ? QPalette::Base : QPalette::Window));
    case PE_Frame:
        if (!isPopupOfBox(widget))
            return drawOutline(*option, *painter);
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    // Fusion's edge is darker than the window: in a dark palette nobody sees it.
    if (element == PE_PanelMenu)
        drawOutline(*option, *painter);
}

void FrameStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    const auto* bar = qstyleoption_cast<const QStyleOptionToolBar*>(option);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (item && element == CE_MenuItem)
        return drawMenuEntry(*this, *item, *painter, widget);
    if (item && element == CE_MenuBarItem)
        return drawMenuBarItem(*this, *item, *painter);
    if (element == CE_MenuBarEmptyArea)
        return painter->fillRect(option->rect, option->palette.color(QPalette::Window));
    if (bar && element == CE_ToolBar)
        return drawToolBar(*bar, *painter);
    if (tab && element == CE_TabBarTabShape)
        return drawTab(*tab, *painter);
    if (progress && element == CE_ProgressBarGroove)
        return drawProgressGround(*progress, *painter);
    if (progress && element == CE_ProgressBarContents && drawProgress(*progress, *painter))
        return;
    if (button && element == CE_PushButtonLabel && isFilled(*button)) {
        QStyleOptionButton white = *button;
        white.palette.setColor(QPalette::ButtonText, Qt::white);
        return QProxyStyle::drawControl(element, &white, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

QRect FrameStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (slider && control == CC_ScrollBar)
        return visualRect(slider->direction, slider->rect, scrollBarPart(*slider, part));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize FrameStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, contents, widget);
    switch (type) {
    case CT_PushButton: {
        constexpr int leastWidth = 80;
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const int least = button && !button->text.isEmpty() ? leastWidth : 0;
        return {std::max(contents.width() + 2 * besideWords, least), std::max(contents.height() + 10, controlHeight)};
    }
    case CT_LineEdit:
    case CT_ComboBox:
        return {usual.width(), std::max(contents.height() + 8, controlHeight)};
    case CT_ToolButton:
        if (widget && qobject_cast<const QToolBar*>(widget->parentWidget()))
            return contents + QSize(2 * barPadding, 2 * barPadding);
        break;
    case CT_ItemViewItem:
        if (isOffered(widget))
            return {usual.width(), usual.height() + 2 * look::grid};
        break;
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            item && item->menuItemType != QStyleOptionMenuItem::Separator)
            return {usual.width(), std::max(usual.height(), menuEntryHeight)};
        break;
    default:
        break;
    }
    return usual;
}

int FrameStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollExtent;
    case PM_ScrollBarSliderMin:
        return leastThumb;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return 4 * look::grid;
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
        return 0;
    case PM_ToolTipLabelFrameWidth:
        return look::grid;
    case PM_ToolBarExtensionExtent:
        return 5 * look::grid;
    case PM_ToolBarSeparatorExtent:
        return 2 * look::grid + 1;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void FrameStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (isPopupOfBox(widget))
        keepRowsWhole(*widget);
    auto* bar = qobject_cast<QScrollBar*>(widget);
    if (!bar)
        return;
    // There is no track: what lies around the bar is its ground, that of a list being the list's own.
    bar->setAttribute(Qt::WA_OpaquePaintEvent, false);
    if (const QWidget* box = bar->parentWidget(); box && qobject_cast<QAbstractItemView*>(box->parentWidget())) {
        bar->setBackgroundRole(QPalette::Base);
        bar->setAutoFillBackground(true);
    }
}

int FrameStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    // Buttons of boxes say in words what they do.
    if (hint == SH_WindowFrame_Mask || hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    // What cannot be had now is paler, and has no second shape beside it.
    if (hint == SH_EtchDisabledText)
        return 0;
    // What a box offers is like a menu, but where it would be one over the whole screen: a few rows then, and a bar.
    if (hint == SH_ComboBox_Popup) {
        const auto* box = qobject_cast<const QComboBox*>(widget);
        return box == nullptr || box->count() <= box->maxVisibleItems() ? 1 : 0;
    }
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
