#include "platform/widgets/frame/childareakeys.h"

#include <QKeyEvent>

namespace velm {

ChildAreaKey childAreaKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool shift = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    if (!shift && modifiers != Qt::ControlModifier)
        return ChildAreaKey::None;
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F6:
        return shift ? ChildAreaKey::Previous : ChildAreaKey::Next;
    case Qt::Key_F4:
    case Qt::Key_W:
        return shift ? ChildAreaKey::None : ChildAreaKey::Close;
    default:
        return ChildAreaKey::None;
    }
}

} // namespace velm
