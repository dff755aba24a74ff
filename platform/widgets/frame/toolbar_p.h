#pragma once
// The buttons that a bar holds.
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/plaintext.h"

#include <QAction>
#include <QHash>
#include <QMainWindow>
#include <QPointer>

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

        QAction& master() const { return command ? *command : *action; }
    };

    std::vector<Button> buttons;
    QHash<QString, std::size_t> places;
    std::function<QIcon(const QString&)> images = &icon;
    QPointer<QMainWindow> window;
    int position = 0;
    int edge = 1;

    Button* find(const QString& key) {
        const auto place = places.constFind(key);
        Q_ASSERT(place != places.constEnd());
        return place == places.constEnd() ? nullptr : &buttons[*place];
    }
    const Button* find(const QString& key) const { return const_cast<Private*>(this)->find(key); }

    QIcon picture(const QString& name) const { return name.isEmpty() || !images ? QIcon() : images(name); }

    static void showTip(Button& button) {
        const QString keys = button.shortcut.toString(QKeySequence::NativeText);
        button.action->setText(withoutMnemonic(button.toolTip));
        button.action->setToolTip(
            plainTip(keys.isEmpty() ? button.toolTip : QStringLiteral("%1 (%2)").arg(button.toolTip, keys)));
    }
};

} // namespace velm
