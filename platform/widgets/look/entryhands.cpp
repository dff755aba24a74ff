#include "platform/widgets/look/entryhands.h"

#include "platform/widgets/look/labeleditor.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimerEvent>

#include <utility>

namespace velm {

EntryHands::EntryHands(QAbstractScrollArea& view, EntryAccess access)
    : QObject(&view), access_(std::move(access)), editor_(new LabelEditor(view.viewport())) {
    connect(editor_, &LabelEditor::ended, this, &EntryHands::ended);
}

int EntryHands::edited() const {
    return editor_->entry();
}

bool EntryHands::startLabelEdit(int entry) {
    const QPointer<EntryHands> self(this);
    endLabelEdit(true);
    if (!self || access_.labelPlace(entry).isEmpty())
        return false;
    bool cancel = false;
    emit labelEditBegins(entry, &cancel);
    // Whoever was asked may have changed everything.
    if (!self || cancel || editor_->entry() != 0)
        return false;
    const QRect place = access_.labelPlace(entry);
    if (place.isEmpty())
        return false;
    editor_->begin(entry, access_.label(entry), place);
    return self && editor_->entry() == entry;
}

void EntryHands::endLabelEdit(bool keep) {
    editor_->end(keep);
}

void EntryHands::ended(int entry, const QString& text, bool keep) {
    const QPointer<EntryHands> self(this);
    if (keep)
        access_.setLabel(entry, text);
    if (self)
        emit labelEdited(entry, text, !keep);
}

void EntryHands::lay() {
    if (edited() == 0)
        return;
    const QRect place = access_.labelPlace(edited());
    if (!place.isEmpty()) {
        editor_->lay(place);
        return;
    }
    // Its entry is out of sight for good. The view is being laid out: whoever hears of it must not change that now.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (access_.labelPlace(edited()).isEmpty())
                endLabelEdit(true);
        },
        Qt::QueuedConnection);
}

void EntryHands::setCentred(bool centred) {
    editor_->setAlignment(centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void EntryHands::renumber(int entry) {
    if (edited() == 0)
        return;
    if (entry != 0) {
        editor_->setEntry(entry);
        return;
    }
    gone_ = edited();
    const QSignalBlocker quiet(editor_);
    editor_->end(false);
}

void EntryHands::tellGone() {
    if (const int entry = std::exchange(gone_, 0); entry != 0)
        emit labelEdited(entry, QString(), true);
}

void EntryHands::silence() {
    blockSignals(true);
    editor_->end(false);
}

void EntryHands::pressed(const QMouseEvent& event) {
    forget();
    dragged_ = false;
    pressed_ = event.button() == Qt::LeftButton ? access_.at(event.position().toPoint()) : 0;
    pressedAt_ = event.position().toPoint();
    const bool alone = event.modifiers() == Qt::NoModifier && !std::exchange(focusedNow_, false);
    second_ = alone && pressed_ != 0 && pressed_ == access_.selected();
}

bool EntryHands::moved(const QMouseEvent& event) {
    if (!dragging_ || !event.buttons().testFlag(Qt::LeftButton))
        return false;
    const int far = (event.position().toPoint() - pressedAt_).manhattanLength();
    if (pressed_ == 0 || dragged_ || far < QApplication::startDragDistance())
        return true;
    dragged_ = true;
    second_ = false;
    emit dragBegins(pressed_, event.globalPosition().toPoint());
    return true;
}

void EntryHands::released(const QMouseEvent& event) {
    const QPoint at = event.position().toPoint();
    if (std::exchange(second_, false) && access_.labelPlace(pressed_).contains(at))
        slowClick_.start(QApplication::doubleClickInterval(), this);
}

void EntryHands::forget() {
    slowClick_.stop();
    second_ = false;
}

bool EntryHands::keyed(const QKeyEvent& event) {
    forget();
    const int entry = access_.selected();
    if (event.key() != Qt::Key_F2 || event.modifiers() != Qt::NoModifier || entry == 0)
        return false;
    emit labelEditWanted(entry);
    return true;
}

void EntryHands::timerEvent(QTimerEvent* event) {
    if (event->timerId() != slowClick_.timerId())
        return;
    slowClick_.stop();
    if (pressed_ != 0 && pressed_ == access_.selected())
        emit labelEditWanted(pressed_);
}

} // namespace velm
