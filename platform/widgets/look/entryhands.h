#pragma once
// What a hand does to the entries of a tree or a list beyond choosing them: editing a label in its place, asking for
// that by a second slow click, beginning a drag. The view passes its events and says where its entries are.
#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>

class QAbstractScrollArea;
class QKeyEvent;
class QMouseEvent;

namespace velm {

class LabelEditor;

/// Entries are numbers; 0 is none.
struct EntryAccess {
    std::function<int(const QPoint& viewportPos)> at;
    std::function<QRect(int entry)> labelPlace; ///< where its words stand; empty for an entry that is not there
    std::function<QString(int entry)> label;
    std::function<void(int entry, const QString& text)> setLabel;
    std::function<int()> selected;
};

class EntryHands final : public QObject {
    Q_OBJECT

public:
    EntryHands(QAbstractScrollArea& view, EntryAccess access);

    /// Opens the editor on an entry, unless its owner refuses; ends another edit first, keeping it. False where none
    /// was opened.
    bool startLabelEdit(int entry);
    /// Shows the new label where it is kept, and tells labelEdited(); nothing where no label is edited.
    void endLabelEdit(bool keep);
    int edited() const;
    /// Lays the editor over its entry, which has another place or size. One that has no place any more is edited no
    /// longer, which is told a moment later.
    void lay();
    /// Whether the words stand in the middle of their place.
    void setCentred(bool centred);
    /// The edited entry is called so from now on; 0: it is gone, which tellGone() will tell.
    void renumber(int entry);
    /// Tells that the edited entry has gone: labelEdited() of its old number, cancelled.
    void tellGone();
    /// The view goes: nothing is told any more.
    void silence();

    void setDragging(bool on) { dragging_ = on; }

    // ---- what happens to the view
    /// It got the focus by this press.
    void focusedByMouse() { focusedNow_ = true; }
    void pressed(const QMouseEvent& event); ///< before the view has it
    /// True where the view must not have the event.
    bool moved(const QMouseEvent& event);
    void released(const QMouseEvent& event);
    void forget(); ///< a double click, a key, a loss of the focus: no slow click any more
    /// F2 asks for the edit of the selected entry.
    bool keyed(const QKeyEvent& event);

signals:
    void labelEditBegins(int entry, bool* cancel);
    void labelEdited(int entry, const QString& text, bool cancelled);
    void labelEditWanted(int entry);
    void dragBegins(int entry, const QPoint& globalPosition);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void ended(int entry, const QString& text, bool keep);

    EntryAccess access_;
    LabelEditor* editor_; ///< the viewport's child, which lives longer
    QBasicTimer slowClick_;
    QPoint pressedAt_;
    int pressed_ = 0;
    int gone_ = 0;
    bool second_ = false; ///< the press was on what was selected already
    bool dragging_ = false;
    bool dragged_ = false;
    bool focusedNow_ = false;
};

} // namespace velm
