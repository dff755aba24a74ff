#include "tests/vues/examen.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Texts of a control, as they are painted.
QString plain(const QString& text) {
    QString words;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size())
            ++i;
        words += text[i];
    }
    return words;
}

int widthOf(const QWidget& widget, const QString& text) {
    int most = 0;
    for (const QString& line : plain(text).split(u'\n'))
        most = std::max(most, widget.fontMetrics().horizontalAdvance(line));
    return most;
}

/// The area that scrolls a widget; null for none.
const QAbstractScrollArea* scrollerOf(const QWidget& widget) {
    for (const QWidget* above = widget.parentWidget(); above && !widget.isWindow(); above = above->parentWidget()) {
        const auto* const area = qobject_cast<const QAbstractScrollArea*>(above->parentWidget());
        if (area && area->viewport() == above && !above->parentWidget()->inherits("QMdiArea"))
            return area;
        if (above->isWindow())
            break;
    }
    return nullptr;
}

bool isControl(const QWidget& widget) {
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           (qobject_cast<const QLineEdit*>(&widget) && !qobject_cast<const QComboBox*>(widget.parentWidget())) ||
           (label && !label->text().isEmpty());
}

// ---- room

struct Room {
    QSize needed;
    QSize given;

    bool isEnough() const { return needed.width() <= given.width() && needed.height() <= given.height(); }
};

Room roomOf(const QLabel& label) {
    const QRect room = label.contentsRect();
    if (label.text().isEmpty())
        return {};
    if (label.wordWrap())
        return {{0, label.heightForWidth(label.width())}, label.size()};
    if (label.textFormat() == Qt::RichText)
        return {label.sizeHint(), label.size()};
    return {{widthOf(label, label.text()), label.fontMetrics().height()}, {room.width(), label.height()}};
}

Room roomOf(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.subControls = QStyle::SC_All;
    option.editable = box.isEditable();
    option.frame = true;
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    // Entries that others wrote may be cut; what a box shows now may not.
    const int words = box.isEditable() ? 0 : widthOf(box, QString(box.currentText()).replace(u"&"_s, u"&&"_s));
    return {{words, box.fontMetrics().height()}, {field.width(), box.height()}};
}

Room roomOf(const QLineEdit& field) {
    constexpr int inner = 2; // beside the text, in the toolkit's own fields
    const QMargins margins = field.textMargins();
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    const QRect room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    const int words = field.fontMetrics().horizontalAdvance(field.placeholderText());
    return {{words, field.fontMetrics().height()},
            {room.width() - margins.left() - margins.right() - 2 * inner, field.height()}};
}

Room roomOf(const QAbstractButton& button) {
    if (button.text().isEmpty())
        return {};
    const auto* const tool = qobject_cast<const QToolButton*>(&button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly)
        return {};
    return {button.sizeHint(), button.size()};
}

Room roomOf(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return roomOf(*label);
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget))
        return roomOf(*box);
    if (const auto* const field = qobject_cast<const QLineEdit*>(&widget))
        return roomOf(*field);
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return roomOf(*button);
    if (const auto* const box = qobject_cast<const QGroupBox*>(&widget))
        return {{widthOf(*box, box->title()), 0}, box->size()};
    return {};
}

QString lacking(const QWidget& widget, const Room& room) {
    return u"%1 needs %2x%3 and has %4x%5"_s.arg(named(widget))
        .arg(room.needed.width())
        .arg(room.needed.height())
        .arg(room.given.width())
        .arg(room.given.height());
}

void lookAtTabs(const QTabBar& tabs, QStringList& faults) {
    for (int i = 0; i < tabs.count(); ++i) {
        const QRect place = tabs.tabRect(i);
        const int picture = tabs.tabIcon(i).isNull() ? 0 : tabs.iconSize().width();
        const bool fits = tabs.isTabVisible(i) && widthOf(tabs, tabs.tabText(i)) + picture <= place.width();
        if (!fits || !tabs.rect().contains(place))
            faults << u"%1 cuts its tab \"%2\""_s.arg(named(tabs), tabs.tabText(i));
    }
}

void lookAtHeader(const QHeaderView& header, QStringList& faults) {
    if (header.orientation() != Qt::Horizontal || !header.model())
        return;
    const int margin = 2 * header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    for (int i = 0; i < header.count(); ++i) {
        if (header.isSectionHidden(i) || header.sectionSize(i) == 0)
            continue;
        const QString words = header.model()->headerData(i, Qt::Horizontal).toString();
        const QVariant type = header.model()->headerData(i, Qt::Horizontal, Qt::FontRole);
        const QFontMetrics metrics(type.isValid() ? type.value<QFont>() : header.font());
        const int needed = words.isEmpty() ? 0 : metrics.horizontalAdvance(words) + margin;
        if (needed > header.sectionSize(i))
            faults << u"%1 cuts its header \"%2\": needs %3 and has %4"_s.arg(named(header), words)
                          .arg(needed)
                          .arg(header.sectionSize(i));
    }
}

void lookAtMenu(const QMenu& menu, QStringList& faults) {
    if (menu.width() < menu.sizeHint().width())
        faults << u"%1 is narrower than its entries"_s.arg(named(menu));
    if (!menu.screen()->geometry().contains(menu.geometry()))
        faults << u"%1 sticks out of the screen"_s.arg(named(menu));
}

/// Where a widget may be seen, in its own pixels: all of it, unless something that holds it cuts it.
bool isWhole(const QWidget& widget) {
    QRect left = widget.rect();
    for (const QWidget* above = &widget; !above->isWindow(); above = above->parentWidget())
        left &= QRect(widget.mapFrom(above->parentWidget(), QPoint()), above->parentWidget()->size());
    return left == widget.rect();
}

} // namespace

QStringList clipped(QWidget& window) {
    QStringList faults;
    for (const QWidget* const widget : seen(window)) {
        const Room room = roomOf(*widget);
        // Cut on purpose, with the whole in the tool tip.
        const bool onPurpose = qobject_cast<const QLabel*>(widget) && !widget->toolTip().isEmpty();
        if (!room.isEnough() && !onPurpose)
            faults << lacking(*widget, room);
        if (isControl(*widget) && !scrollerOf(*widget) && !isWhole(*widget))
            faults << named(*widget) + u" sticks out of what holds it"_s;
        if (const auto* const tabs = qobject_cast<const QTabBar*>(widget))
            lookAtTabs(*tabs, faults);
        if (const auto* const header = qobject_cast<const QHeaderView*>(widget))
            lookAtHeader(*header, faults);
        if (const auto* const menu = qobject_cast<const QMenu*>(widget))
            lookAtMenu(*menu, faults);
    }
    return faults;
}

QStringList overlapping(QWidget& window) {
    QStringList faults;
    QList<const QWidget*> controls;
    for (const QWidget* const widget : seen(window)) {
        if (isControl(*widget) && !scrollerOf(*widget))
            controls << widget;
    }
    const auto placeOf = [&](const QWidget* control) {
        return QRect(control->mapTo(&window, QPoint()), control->size());
    };
    for (qsizetype i = 0; i < controls.size(); ++i) {
        for (qsizetype j = i + 1; j < controls.size(); ++j) {
            const QWidget* const one = controls[i];
            const QWidget* const other = controls[j];
            const bool within = one->isAncestorOf(other) || other->isAncestorOf(one);
            if (!within && placeOf(one).intersects(placeOf(other)))
                faults << named(*one) + u" lies on "_s + named(*other);
        }
    }
    return faults;
}

} // namespace velm::vues
