#include "tests/vues/clavier.h"

#include "tests/vues/examen.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A text gives the focus away after its last link: so many presses of the key at most.
constexpr int patience = 600;

QRect placeIn(const QWidget& window, const QWidget& widget) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

/// The control that a widget belongs to: of a box that can be written into, the box.
QWidget* controlOf(QWidget* widget) {
    return widget && widget->parentWidget() && widget->parentWidget()->focusProxy() == widget ? widget->parentWidget()
                                                                                              : widget;
}

struct Walk {
    QList<QWidget*> stops; ///< the first one only once
    bool closed = false;
    QString gone; ///< where the way left the window
};

/// A new dossier is made from the tree alone, and by a key of its own: the way of the Tab key through the list of items
/// switches its command off.
bool mayPass(const QWidget& widget) {
    return widget.objectName() == u"ajouter" && widget.window()->objectName() == u"frmdossiers";
}

/// Presses a key until the focus is where it began.
Walk walk(QWidget& window, QWidget& first, Qt::KeyboardModifiers modifiers) {
    Walk way;
    first.setFocus(Qt::TabFocusReason);
    way.stops << controlOf(&first);
    for (int press = 0; press < patience && !way.closed; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, modifiers);
        QWidget* const next = controlOf(QApplication::focusWidget());
        if (!next || !window.isAncestorOf(next)) {
            way.gone = next ? named(*next) : u"nowhere"_s;
            break;
        }
        if (next == way.stops.last())
            continue;
        // The way may switch off what it began with.
        const bool passed = mayPass(*way.stops.first()) && !way.stops.first()->isEnabled();
        way.closed = next == way.stops.first() || (passed && next == way.stops.value(1));
        if (!way.closed && way.stops.contains(next))
            break; // a circle that leaves the first one out
        if (!way.closed)
            way.stops << next;
    }
    way.closed = way.closed || (way.stops.size() == 1 && way.gone.isEmpty());
    return way;
}

bool sameLine(const QRect& one, const QRect& other) {
    const int common = std::min(one.bottom(), other.bottom()) - std::max(one.top(), other.top());
    return 2 * common > std::min(one.height(), other.height());
}

/// One reads a line from left to right, then the next line; and one column, then the one beside it.
bool against(const QRect& before, const QRect& after) {
    if (sameLine(before, after))
        return after.right() < before.left();
    return after.bottom() <= before.top() && after.left() < before.right();
}

/// The place of a dialog's default button, which is reached before the others of its line; empty without one.
QRect defaultPlace(QWidget& window) {
    for (const QWidget* const widget : seen(window)) {
        const auto* const button = qobject_cast<const QPushButton*>(widget);
        if (button && button->isDefault())
            return placeIn(window, *button);
    }
    return {};
}

/// The steps against the order of reading; a circle has one that leads back to its beginning.
QStringList goneBack(QWidget& window, const QList<QWidget*>& circle) {
    const QRect last = defaultPlace(window);
    QStringList steps;
    for (qsizetype i = 0; i < circle.size(); ++i) {
        const QWidget& one = *circle[i];
        const QWidget& next = *circle[(i + 1) % circle.size()];
        const QRect from = placeIn(window, one);
        const QRect to = placeIn(window, next);
        const bool closing = !last.isNull() && sameLine(from, last) && sameLine(to, last);
        if (!closing && against(from, to))
            steps << u"Tab goes back from %1 to %2"_s.arg(named(one), named(next));
    }
    if (!steps.isEmpty())
        steps.removeLast();
    return steps;
}

QString listed(const QList<QWidget*>& widgets) {
    QStringList names;
    for (const QWidget* const widget : widgets)
        names << (widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                                 : widget->objectName());
    return names.join(u" > "_s);
}

QImage picture(QWidget& window, const QRect& place) {
    return window.grab(place & window.rect()).toImage();
}

/// Whether more than a caret differs.
bool differs(const QImage& one, const QImage& other) {
    constexpr int caret = 4;
    int least = one.width();
    int most = -1;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) {
                least = std::min(least, x);
                most = std::max(most, x);
            }
        }
    }
    return most - least + 1 > caret;
}

} // namespace

QList<QWidget*> reachable(QWidget& window) {
    QList<QWidget*> all;
    for (QWidget* const widget : seen(window)) {
        const bool byTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        const QWidget* const owner = controlOf(widget);
        const bool proxied = owner != widget && (owner->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (widget != &window && byTab && widget->isEnabled() && !proxied && !widget->visibleRegion().isEmpty())
            all << widget;
    }
    return all;
}

QStringList tabFaults(QWidget& window) {
    QList<QWidget*> wanted = reachable(window);
    if (wanted.isEmpty())
        return {};
    QWidget* const before = QApplication::focusWidget();
    QWidget* first = window.nextInFocusChain();
    while (first != &window && !wanted.contains(first))
        first = first->nextInFocusChain();
    if (first == &window)
        first = wanted.first();
    QStringList faults;
    first->setFocus(Qt::TabFocusReason);
    if (!QApplication::focusWidget())
        return {named(window) + u" takes no focus"_s};
    Walk there = walk(window, *first, Qt::NoModifier);
    // Commands that are open only while the focus is in one control, and have keys of their own.
    QList<QWidget*> passing = wanted + there.stops;
    passing.removeIf([](const QWidget* widget) { return widget->isEnabled() || !mayPass(*widget); });
    const auto passes = [&passing](QWidget* widget) { return passing.contains(widget); };
    wanted.removeIf(passes);
    there.stops.removeIf(passes);
    if (there.stops.isEmpty())
        return {};
    first = there.stops.first();
    if (!there.gone.isEmpty())
        faults << u"Tab leaves the window for %1: %2"_s.arg(there.gone, listed(there.stops));
    else if (!there.closed)
        faults << u"Tab does not come back to %1: %2"_s.arg(named(*there.stops.first()), listed(there.stops));
    for (const QWidget* const widget : wanted) {
        const bool reached = std::ranges::any_of(there.stops, [widget](const QWidget* stop) {
            return stop == widget || widget->isAncestorOf(stop) || stop->isAncestorOf(widget);
        });
        if (!reached)
            faults << u"Tab never reaches "_s + named(*widget);
    }
    faults += goneBack(window, there.stops);
    QList<QWidget*> back = walk(window, *first, Qt::ShiftModifier).stops;
    back.removeIf(passes);
    std::reverse(back.begin() + 1, back.end());
    // The command that passes may be open on one way alone.
    const QList<QWidget*> way = back;
    back.removeIf([&there](QWidget* widget) { return mayPass(*widget) && !there.stops.contains(widget); });
    there.stops.removeIf([&way](QWidget* widget) { return mayPass(*widget) && !way.contains(widget); });
    if (there.closed && back != there.stops)
        faults << u"Shift+Tab goes another way: %1 instead of %2"_s.arg(listed(back), listed(there.stops));
    if (before)
        before->setFocus();
    return faults;
}

QStringList withoutRing(QWidget& window) {
    constexpr int around = 4;
    QStringList faults;
    const QList<QWidget*> all = reachable(window);
    if (all.size() < 2)
        return {};
    QWidget* const before = QApplication::focusWidget();
    for (QWidget* const widget : all) {
        QWidget* const other = widget == all.first() ? all.last() : all.first();
        const QRect place = placeIn(window, *widget).adjusted(-around, -around, around, around);
        other->setFocus(Qt::TabFocusReason);
        QTest::keyClick(other, Qt::Key_Shift); // who uses keys is shown where they go
        QCoreApplication::processEvents();
        if (!widget->isEnabled() && mayPass(*widget))
            continue; // it has passed with the focus of another one
        const QImage without = picture(window, place);
        widget->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        const QImage with = picture(window, place);
        if (without.size() != with.size() || !differs(without, with))
            faults << named(*widget) + u" shows no focus"_s;
    }
    if (before)
        before->setFocus();
    return faults;
}

} // namespace velm::vues
