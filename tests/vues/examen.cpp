#include "tests/vues/examen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QHash>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the toolkit makes for itself: parts of a control, not controls.
bool isInner(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    const QString name = widget.objectName();
    const bool ofField = qobject_cast<const QLineEdit*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent) ||
                         (qobject_cast<const QComboBox*>(parent) && !qobject_cast<const QLineEdit*>(&widget));
    return ofField || (name.startsWith(u"qt_") && !qobject_cast<const QLabel*>(&widget)) ||
           qobject_cast<const QTabBar*>(parent) || qobject_cast<const QMenuBar*>(parent) ||
           qobject_cast<const QScrollBar*>(&widget) ||
           (parent && (parent->inherits("QMdi::ControlContainer") || parent->inherits("QMdi::ControllerWidget") ||
                       widget.inherits("QMdi::ControllerWidget") || widget.inherits("QTableCornerButton")));
}

void collect(QWidget& widget, QList<QWidget*>& found) {
    found << &widget;
    for (QObject* const object : widget.children()) {
        auto* const child = qobject_cast<QWidget*>(object);
        if (!child || child->isWindow() || !child->isVisible() || isInner(*child))
            continue;
        auto* const frame = qobject_cast<QMdiSubWindow*>(child);
        const auto* const area = frame ? frame->mdiArea() : nullptr;
        if (!area || area->activeSubWindow() == frame)
            collect(*child, found);
    }
}

// ---- letters

QString letterOf(const QString& text) {
    return QKeySequence::mnemonic(text).toString();
}

void lookAtLetters(const QString& where, const QList<std::pair<QString, QString>>& all, QStringList& faults) {
    QHash<QString, QString> first;
    for (const auto& [letter, owner] : all) {
        if (letter.isEmpty())
            continue;
        if (first.contains(letter) && first.value(letter) != owner)
            faults << u"%1: %2 is the letter of %3 and of %4"_s.arg(where, letter, first.value(letter), owner);
        else
            first.insert(letter, owner);
    }
}

QList<std::pair<QString, QString>> lettersOf(const QList<QAction*>& actions) {
    QList<std::pair<QString, QString>> all;
    for (const QAction* const action : actions) {
        if (action->isVisible() && !action->isSeparator())
            all.append({letterOf(action->text()), u'"' + action->text() + u'"'});
    }
    return all;
}

QList<std::pair<QString, QString>> lettersOf(const QWidget& widget) {
    const QString name = named(widget);
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return {{label->buddy() ? letterOf(label->text()) : QString(), name}};
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return {{letterOf(button->text()), name}};
    if (const auto* const bar = qobject_cast<const QMenuBar*>(&widget))
        return lettersOf(bar->actions());
    QList<std::pair<QString, QString>> all;
    if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            all.append({letterOf(tabs->tabText(i)), u"tab \"%1\""_s.arg(tabs->tabText(i))});
    }
    return all;
}

bool isLabelled(const QWidget& widget, const QList<QWidget*>& window) {
    return std::ranges::any_of(window, [&](const QWidget* other) {
        const auto* const label = qobject_cast<const QLabel*>(other);
        return label && label->buddy() == &widget && !label->text().isEmpty();
    });
}

bool saysSomething(const QWidget& widget, const QList<QWidget*>& window) {
    if (!widget.toolTip().isEmpty() || isLabelled(widget, window))
        return true;
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        return !button->text().isEmpty();
    if (const auto* const field = qobject_cast<const QLineEdit*>(&widget))
        return !field->placeholderText().isEmpty() || !field->accessibleName().isEmpty();
    return !widget.accessibleName().isEmpty();
}

} // namespace

QString named(const QWidget& widget) {
    QString words;
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        words = label->text();
    else if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
        words = button->text();
    else
        words = widget.windowTitle();
    const QWidget* known = &widget;
    while (known->objectName().isEmpty() && known->parentWidget())
        known = known->parentWidget();
    const QString name = known == &widget ? widget.objectName() : u"in "_s + known->objectName();
    const QString line = QString::fromLatin1(widget.metaObject()->className()) + u' ' + name;
    return words.isEmpty() ? line : line + u" \""_s + words.left(60).simplified() + u'"';
}

QList<QWidget*> seen(QWidget& window) {
    QList<QWidget*> found;
    collect(window, found);
    return found;
}

QStringList equalTips(QWidget& window) {
    QStringList faults;
    QHash<QString, const QWidget*> first;
    for (const QWidget* const widget : seen(window)) {
        const QString tip = widget->toolTip();
        if (tip.isEmpty())
            continue;
        const QWidget* const other = first.value(tip);
        // One command that stands on the frame's bar and on a window's.
        const bool same = other && QSet<QString>{other->objectName(), widget->objectName()} ==
                                       QSet<QString>{u"Dossiers"_s, u"dossiers"_s};
        if (other && !same && !other->isAncestorOf(widget) && !widget->isAncestorOf(other))
            faults << u"%1 and %2 have the tip \"%3\""_s.arg(named(*other), named(*widget), tip);
        first.insert(tip, widget);
    }
    return faults;
}

QStringList equalMnemonics(QWidget& window) {
    QStringList faults;
    if (const auto* const menu = qobject_cast<const QMenu*>(&window)) {
        lookAtLetters(named(window), lettersOf(menu->actions()), faults);
        return faults;
    }
    QList<std::pair<QString, QString>> all;
    for (const QWidget* const widget : seen(window))
        all += lettersOf(*widget);
    lookAtLetters(named(window), all, faults);
    return faults;
}

QStringList unnamed(QWidget& window) {
    QStringList faults;
    const QList<QWidget*> all = seen(window);
    for (const QWidget* const widget : all) {
        const bool field = qobject_cast<const QLineEdit*>(widget) && !qobject_cast<QComboBox*>(widget->parentWidget());
        const bool control =
            field || qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget) ||
            (qobject_cast<const QAbstractItemView*>(widget) && !qobject_cast<const QHeaderView*>(widget) &&
             !isLabelled(*widget->parentWidget(), all) && widget->parentWidget()->accessibleName().isEmpty());
        if (control && !saysSomething(*widget, all))
            faults << named(*widget) + u" has neither words nor a tip"_s;
    }
    return faults;
}

} // namespace velm::vues
