#include "platform/widgets/toolbar.h"

#include "platform/widgets/icons.h"

#include <QAction>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace velm {

namespace {

constexpr int iconSide = 20;
constexpr qsizetype longestEntry = 60;

QString literal(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

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
    };

    std::vector<Button> buttons;
    QHash<QString, std::size_t> places;
    std::function<QIcon(const QString&)> images = &icon;
    int position = 0;
    int edge = 1;

    Button* find(const QString& key) {
        const auto place = places.constFind(key);
        Q_ASSERT(place != places.constEnd());
        return place == places.constEnd() ? nullptr : &buttons[*place];
    }
    const Button* find(const QString& key) const { return const_cast<Private*>(this)->find(key); }

    static void showTip(Button& button) {
        const QString keys = button.shortcut.toString(QKeySequence::NativeText);
        button.action->setText(literal(button.toolTip));
        button.action->setToolTip(keys.isEmpty() ? button.toolTip
                                                 : QStringLiteral("%1 (%2)").arg(button.toolTip, keys));
    }
};

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent), d_(std::make_unique<Private>()) {
    setMovable(false);
    setFloatable(false);
    setIconSize({iconSide, iconSide});
    setToolButtonStyle(Qt::ToolButtonIconOnly);
}

Toolbar::~Toolbar() = default;

void Toolbar::setImages(std::function<QIcon(const QString& name)> images) {
    d_->images = std::move(images);
    for (Private::Button& button : d_->buttons)
        button.action->setIcon(button.image.isEmpty() ? QIcon() : d_->images(button.image));
}

void Toolbar::addButton(const QString& key, Kind kind, const QString& image) {
    Q_ASSERT(!key.isEmpty() && !hasButton(key));
    if (key.isEmpty() || hasButton(key))
        return;
    auto* action = new QAction(this);
    const bool neighbour = !d_->buttons.empty() && d_->buttons.back().kind == Kind::Group;
    if (kind == Kind::Group) {
        auto* group = neighbour ? d_->buttons.back().action->actionGroup() : new QActionGroup(this);
        group->addAction(action);
    }
    action->setCheckable(kind == Kind::Check || kind == Kind::Group);
    action->setSeparator(kind == Kind::Separator);
    d_->places.insert(key, d_->buttons.size());
    d_->buttons.push_back({key, kind, action, image, {}, {}});
    if (!image.isEmpty())
        action->setIcon(d_->images(image));
    addAction(action);
    if (QWidget* button = widgetForAction(action))
        button->setObjectName(key);
    connect(action, &QAction::triggered, this, [this, key] { emit buttonClicked(key); });
}

bool Toolbar::hasButton(const QString& key) const {
    return d_->places.contains(key);
}

int Toolbar::buttonCount() const {
    return static_cast<int>(d_->buttons.size());
}

QString Toolbar::keyAt(int index) const {
    const bool inside = index >= 1 && index <= buttonCount();
    Q_ASSERT(inside);
    return inside ? d_->buttons[static_cast<std::size_t>(index - 1)].key : QString();
}

void Toolbar::setToolTip(const QString& key, const QString& text) {
    if (Private::Button* button = d_->find(key)) {
        button->toolTip = text;
        Private::showTip(*button);
        if (QWidget* shown = widgetForAction(button->action))
            shown->setAccessibleName(text);
    }
}

QString Toolbar::toolTip(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button ? button->toolTip : QString();
}

void Toolbar::setShortcut(const QString& key, const QKeySequence& shortcut) {
    if (Private::Button* button = d_->find(key)) {
        button->shortcut = shortcut;
        button->action->setShortcut(shortcut);
        Private::showTip(*button);
    }
}

void Toolbar::setButtonVisible(const QString& key, bool visible) {
    if (Private::Button* button = d_->find(key)) {
        button->visible = visible;
        button->action->setVisible(visible);
    }
}

bool Toolbar::isButtonVisible(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button && button->visible;
}

void Toolbar::setButtonEnabled(const QString& key, bool enabled) {
    if (Private::Button* button = d_->find(key)) {
        button->enabled = enabled;
        button->action->setEnabled(enabled);
    }
}

bool Toolbar::isButtonEnabled(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button && button->enabled;
}

void Toolbar::setValue(const QString& key, bool down) {
    if (Private::Button* button = d_->find(key))
        button->action->setChecked(down);
}

bool Toolbar::value(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button && button->action->isChecked();
}

void Toolbar::setImage(const QString& key, const QString& image) {
    if (Private::Button* button = d_->find(key)) {
        button->image = image;
        button->action->setIcon(image.isEmpty() ? QIcon() : d_->images(image));
    }
}

void Toolbar::setMenus(const QString& key, const ButtonMenus* menus) {
    Private::Button* button = d_->find(key);
    if (!button)
        return;
    button->menus = menus;
    auto* shown = widget(key);
    if (!shown || shown->menu())
        return;
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToShow, this, [this, key, menu] {
        menu->clear();
        const ButtonMenus* entries = d_->find(key)->menus;
        for (int index = 1; entries && index <= std::min(entries->count(), shownMenus); ++index) {
            const ButtonMenu& entry = entries->at(index);
            const QString text =
                entry.text.size() > longestEntry ? entry.text.left(longestEntry - 1) + u'\u2026' : entry.text;
            QAction* action = menu->addAction(literal(text));
            action->setEnabled(entry.enabled);
            connect(action, &QAction::triggered, this,
                    [this, key, index, menuKey = entry.key] { emit menuClicked(key, index, menuKey); });
        }
    });
    button->action->setMenu(menu);
    shown->setPopupMode(QToolButton::MenuButtonPopup);
}

QToolButton* Toolbar::widget(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button ? qobject_cast<QToolButton*>(widgetForAction(button->action)) : nullptr;
}

void Toolbar::dock(QMainWindow& window, int position) {
    static constexpr std::array areas{Qt::TopToolBarArea, Qt::BottomToolBarArea, Qt::LeftToolBarArea,
                                      Qt::RightToolBarArea};
    if (position < 0 || position > static_cast<int>(areas.size()))
        return;
    if (position > 0)
        d_->edge = position;
    d_->position = position;
    const Qt::ToolBarArea area = areas.at(static_cast<std::size_t>(d_->edge - 1));
    if (window.toolBarArea(this) != area)
        window.addToolBar(area, this);
    setVisible(position > 0);
}

int Toolbar::dockedAt() const {
    return d_->position;
}

void Toolbar::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    emit rightClicked(event->globalPos());
}

} // namespace velm
