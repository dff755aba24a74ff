#include "platform/widgets/frame/toolbar_p.h"
#include "platform/widgets/frame/toolbartip.h"
#include "platform/widgets/frame/toolbarwalk.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOptionToolButton>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace velm {

namespace {

constexpr int iconSide = 24; ///< that of the grid on which the pictures are drawn
constexpr int atTheRight = 4;

} // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent), d_(std::make_unique<Private>(*this)) {
    setMovable(false);
    setFloatable(false);
    setIconSize({iconSide, iconSide});
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    connect(this, &QToolBar::orientationChanged, this, [this] {
        for (const Private::Button& button : d_->buttons)
            alignButton(button.key);
    });
}

Toolbar::~Toolbar() = default;

void Toolbar::setImages(std::function<QIcon(const QString& name)> images) {
    d_->images = std::move(images);
    for (Private::Button& button : d_->buttons) {
        if (!button.command)
            d_->show(button, d_->picture(button.image));
    }
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
    d_->show(d_->buttons.back(), d_->picture(image));
    addAction(action);
    if (d_->window)
        d_->window->addAction(action);
    widgetForAction(action)->setObjectName(key);
    connect(action, &QAction::triggered, this, [this, key] { emit buttonClicked(key); });
    if (QToolButton* button = widget(key)) {
        button->installEventFilter(this);
        chooseTabStop(nullptr);
    }
    if (kind == Kind::DropDown)
        addMenu(key, *action);
    alignButton(key);
}

void Toolbar::addCommand(const QString& key, Kind kind, QAction& command) {
    addButton(key, kind);
    Private::Button& button = *d_->find(key);
    button.command = &command;
    button.shortcut = command.shortcut();
    connect(button.action, &QAction::triggered, &command, &QAction::trigger);
    // The press alone has moved the button: it follows what came of it.
    connect(button.action, &QAction::triggered, &command, [this, key] { follow(key); });
    connect(&command, &QAction::changed, this, [this, key] { follow(key); });
    follow(key);
}

void Toolbar::follow(const QString& key) {
    Private::Button& button = *d_->find(key);
    button.enabled = button.command->isEnabled();
    button.action->setEnabled(button.enabled);
    button.action->setChecked(button.command->isChecked());
    if (button.picture.cacheKey() != button.command->icon().cacheKey())
        d_->show(button, button.command->icon());
}

void Toolbar::alignButton(const QString& key) {
    // On an upright bar the arrows of drop-downs stand beside the column of pictures, and do not push theirs out of it.
    if (QToolButton* button = widget(key))
        layout()->setAlignment(button, orientation() == Qt::Vertical ? Qt::AlignLeft : Qt::Alignment());
}

void Toolbar::addMenu(const QString& key, QAction& action) {
    auto* menu = new QMenu(this);
    menu->setToolTipsVisible(true);
    menu->setObjectName(key);
    connect(menu, &QMenu::aboutToShow, this, [this, key, menu] { fillMenu(key, *menu); });
    action.setMenu(menu);
    widget(key)->setPopupMode(QToolButton::MenuButtonPopup);
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
        button->master().setEnabled(enabled);
    }
}

bool Toolbar::isButtonEnabled(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button && button->enabled;
}

void Toolbar::setButtonFaint(const QString& key, bool faint) {
    if (Private::Button* button = d_->find(key); button && button->faint != faint) {
        button->faint = faint;
        d_->show(*button, button->picture);
    }
}

void Toolbar::setValue(const QString& key, bool down) {
    if (Private::Button* button = d_->find(key))
        button->master().setChecked(down);
}

bool Toolbar::value(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button && button->master().isChecked();
}

void Toolbar::setMenus(const QString& key, const ButtonMenus* menus) {
    if (Private::Button* button = d_->find(key))
        button->menus = menus;
}

void Toolbar::setMenuImages(std::function<QString(const QString& menuKey)> names) {
    d_->menuImages = std::move(names);
}

void Toolbar::setMenuSubjects(std::function<QString(const QString& menuKey)> subjects) {
    d_->menuSubjects = std::move(subjects);
}

void Toolbar::fillMenu(const QString& key, QMenu& menu) {
    menu.clear();
    QString before;
    const ButtonMenus* entries = d_->find(key)->menus;
    for (int index = 1; entries && index <= entries->count(); ++index) {
        const ButtonMenu& entry = entries->at(index);
        const QString subject = d_->menuSubjects ? d_->menuSubjects(entry.key) : QString();
        if (!subject.isEmpty() && subject == before)
            continue;
        before = subject;
        const QString line = entry.text.simplified();
        const QString shown = entryText(line, menu.fontMetrics());
        QAction* action = menu.addAction(withoutMnemonic(shown));
        if (d_->menuImages)
            action->setIcon(d_->picture(d_->menuImages(entry.key)));
        action->setToolTip(entryTip(line, shown));
        action->setObjectName(entry.key);
        connect(action, &QAction::triggered, this,
                [this, key, index, menuKey = entry.key] { emit menuClicked(key, index, menuKey); });
    }
}

QToolButton* Toolbar::widget(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button ? d_->widgetOf(*button) : nullptr;
}

QMenu* Toolbar::menu(const QString& key) const {
    const Private::Button* button = d_->find(key);
    return button ? button->action->menu() : nullptr;
}

void Toolbar::dock(QMainWindow& window, int position) {
    static constexpr std::array areas{Qt::TopToolBarArea, Qt::BottomToolBarArea, Qt::LeftToolBarArea,
                                      Qt::RightToolBarArea};
    if (position < 0 || position > static_cast<int>(areas.size()))
        return;
    if (position > 0)
        d_->edge = position;
    d_->position = position;
    if (d_->window != &window) {
        d_->window = &window;
        window.addActions(actions()); // shortcuts of a hidden bar go on working
    }
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

void Toolbar::chooseTabStop(QToolButton* wanted) {
    const std::vector<QToolButton*> buttons = d_->widgets();
    QToolButton* chosen = tabStop(buttons, wanted);
    for (QToolButton* button : buttons)
        button->setFocusPolicy(button == chosen ? Qt::TabFocus : Qt::NoFocus);
}

void Toolbar::moveFocus(const QToolButton& from, int step) {
    if (QToolButton* target = stepFrom(from, step, d_->widgets()))
        target->setFocus(Qt::TabFocusReason);
}

bool Toolbar::buttonKey(QToolButton& button, const QKeyEvent& event) {
    const bool across = orientation() == Qt::Horizontal;
    const int key = event.key();
    if (key == (across ? Qt::Key_Left : Qt::Key_Up))
        moveFocus(button, -1);
    else if (key == (across ? Qt::Key_Right : Qt::Key_Down))
        moveFocus(button, 1);
    else if (key == Qt::Key_Home)
        moveFocus(button, -buttonCount());
    else if (key == Qt::Key_End)
        moveFocus(button, buttonCount());
    else if (key == (across ? Qt::Key_Down : Qt::Key_Right) && hasEntries(button))
        button.showMenu();
    else
        return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
    return true;
}

bool Toolbar::hasEntries(const QToolButton& button) const {
    const ButtonMenus* menus = d_->find(button.objectName())->menus;
    return menus && !menus->isEmpty();
}

/// Whether a press would open a menu that has nothing to show.
bool Toolbar::opensNothing(const QToolButton& button, const QPoint& position) const {
    if (button.popupMode() != QToolButton::MenuButtonPopup || hasEntries(button))
        return false;
    QStyleOptionToolButton option;
    option.initFrom(&button);
    option.subControls = QStyle::SC_All;
    option.features = QStyleOptionToolButton::MenuButtonPopup | QStyleOptionToolButton::HasMenu;
    return button.style()
        ->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButtonMenu, &button)
        .contains(position);
}

bool Toolbar::eventFilter(QObject* watched, QEvent* event) {
    auto* button = qobject_cast<QToolButton*>(watched);
    if (!button)
        return QToolBar::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusIn:
        chooseTabStop(button);
        break;
    case QEvent::EnabledChange:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        chooseTabStop(nullptr);
        break;
    case QEvent::KeyPress:
        if (buttonKey(*button, static_cast<QKeyEvent&>(*event)))
            return true;
        break;
    case QEvent::ToolTip:
        if (orientation() != Qt::Vertical)
            break;
        showTipBeside(*button, d_->edge == atTheRight);
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (opensNothing(*button, static_cast<QMouseEvent*>(event)->position().toPoint()))
            return true;
        break;
    default:
        break;
    }
    return QToolBar::eventFilter(watched, event);
}

} // namespace velm
