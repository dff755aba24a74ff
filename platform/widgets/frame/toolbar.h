#pragma once
// A bar of tool buttons that are found by their text keys.
//
// Offered: plain, check, group, separator and drop-down buttons; keys are unique, buttons also count from 1; pictures
// by name; docking at an edge of the main window by position number. Icons stand without text, tool tips carry the
// shortcut; what does not fit goes into the platform's overflow menu. The Tab key reaches a bar once, the arrow keys,
// Home and End walk its buttons.
#include "platform/controls/buttonmenus.h"

#include <QIcon>
#include <QKeySequence>
#include <QToolBar>

#include <functional>
#include <memory>
#include <vector>

class QMainWindow;
class QMenu;
class QToolButton;

namespace velm {

class Toolbar : public QToolBar {
    Q_OBJECT

public:
    enum class Kind {
        Plain,
        Check,    ///< stays down until it is pressed again
        Group,    ///< of neighbouring group buttons at most one is down
        DropDown, ///< with a menu at its side
        Separator
    };

    explicit Toolbar(QWidget* parent = nullptr);
    ~Toolbar() override;

    /// Who draws a picture of a name.
    void setImages(std::function<QIcon(const QString& name)> images);

    /// Adds a button at the end. The key is also its objectName. A key already in use, or an unknown one below, is an
    /// error of the caller: asserted, and passed over in a release.
    void addButton(const QString& key, Kind kind, const QString& image = QString());
    /// Adds a button that stands for an action, which others show, too, and which is not owned: its picture, and
    /// whether it is enabled and down, are the action's, and a press triggers the action. What is set here of these is
    /// set on the action; of its tool tip and whether it is visible the bar alone decides.
    void addCommand(const QString& key, Kind kind, QAction& command);
    bool hasButton(const QString& key) const;
    int buttonCount() const;
    QString keyAt(int index) const; ///< index from 1

    void setToolTip(const QString& key, const QString& text);
    QString toolTip(const QString& key) const; ///< as given, without the shortcut
    /// Pressing it clicks the button wherever the focus is in the window; shown in the tool tip.
    void setShortcut(const QString& key, const QKeySequence& shortcut);
    void setButtonVisible(const QString& key, bool visible);
    bool isButtonVisible(const QString& key) const; ///< as it was set
    void setButtonEnabled(const QString& key, bool enabled);
    bool isButtonEnabled(const QString& key) const;
    /// Draws the picture as faint as that of a button that is off, though it can be pressed: what it opens is empty.
    void setButtonFaint(const QString& key, bool faint);
    /// Down or up; the look alone changes, no click is told. Of a group the others are released.
    void setValue(const QString& key, bool down);
    bool value(const QString& key) const;

    /// The drop-down entries, held here or by whoever owns them elsewhere. The menu is made from them each time it
    /// opens, of all of them, and scrolls where the screen is too low. Long ones are cut in their middle.
    void setMenus(const QString& key, const ButtonMenus* menus);
    /// Names the picture of each drop-down entry by the entry's key; an empty name for none.
    void setMenuImages(std::function<QString(const QString& menuKey)> names);
    /// What an entry is about: of neighbours that are about the same, the first alone is offered.
    void setMenuSubjects(std::function<QString(const QString& menuKey)> subjects);

    QToolButton* widget(const QString& key) const; ///< null for separators
    QMenu* menu(const QString& key) const;         ///< the menu of a drop-down, null for others

    /// The position number of a docked bar: 0 hidden (the edge is kept), 1 top, 2 bottom, 3 left, 4 right.
    void dock(QMainWindow& window, int position);
    int dockedAt() const; ///< 0 to 4

signals:
    void buttonClicked(const QString& key);
    /// An entry of a drop-down was chosen; index from 1.
    void menuClicked(const QString& key, int index, const QString& menuKey);
    void rightClicked(const QPoint& globalPosition); ///< anywhere on the bar

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addMenu(const QString& key, QAction& action);
    void follow(const QString& key);
    void alignButton(const QString& key);
    void fillMenu(const QString& key, QMenu& menu);
    bool hasEntries(const QToolButton& button) const;
    bool opensNothing(const QToolButton& button, const QPoint& position) const;
    bool buttonKey(QToolButton& button, const QKeyEvent& event);
    void moveFocus(const QToolButton& from, int step);
    void chooseTabStop(QToolButton* wanted);

    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
