#pragma once
// The buttons that a bar holds.
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/plaintext.h"

#include <QAction>
#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QToolButton>

#include <vector>

namespace velm {

struct Toolbar::Private {
    struct Button {
        QString key;
        Kind kind;
        QAction* action;
        QString image;
        QString toolTip;
        QKeySequence shortcut;
        bool enabled = true;
        bool visible = true;
        const ButtonMenus* menus = nullptr;
        QPointer<QAction> command = nullptr; ///< what the button stands for, if not for itself
        QIcon picture = {};
        bool faint = false;

        QAction& master() const { return command ? *command : *action; }
    };

    explicit Private(const Toolbar& toolbar) : bar(toolbar) {}

    const Toolbar& bar;
    std::vector<Button> buttons;
    QHash<QString, std::size_t> places;
    std::function<QIcon(const QString&)> images = &icon;
    std::function<QString(const QString&)> menuImages;
    std::function<QString(const QString&)> menuSubjects;
    QPointer<QMainWindow> window;
    int position = 0;
    int edge = 1;

    Button* find(const QString& key) {
        const auto place = places.constFind(key);
        Q_ASSERT(place != places.constEnd());
        return place == places.constEnd() ? nullptr : &buttons[*place];
    }
    const Button* find(const QString& key) const { return const_cast<Private*>(this)->find(key); }

    QToolButton* widgetOf(const Button& button) const {
        return qobject_cast<QToolButton*>(bar.widgetForAction(button.action));
    }
    /// Those that are no separators, in their order.
    std::vector<QToolButton*> widgets() const {
        std::vector<QToolButton*> all;
        for (const Button& button : buttons) {
            if (QToolButton* shown = widgetOf(button))
                all.push_back(shown);
        }
        return all;
    }

    QIcon picture(const QString& name) const { return name.isEmpty() || !images ? QIcon() : images(name); }

    static void show(Button& button, const QIcon& picture) {
        button.picture = picture;
        button.action->setIcon(button.faint ? faintIcon(picture) : picture);
    }

    static void showTip(Button& button) {
        const QString keys = button.shortcut.toString(QKeySequence::NativeText);
        button.action->setText(withoutMnemonic(button.toolTip));
        button.action->setToolTip(
            plainTip(keys.isEmpty() ? button.toolTip : QStringLiteral("%1 (%2)").arg(button.toolTip, keys)));
    }
};

} // namespace velm
