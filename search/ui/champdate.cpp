#include "search/ui/champdate.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace velm {

bool ChampDate::quitte() {
    if (valide && !valide(text())) {
        setFocus(Qt::OtherFocusReason);
        selectAll();
        return false;
    }
    if (complete) {
        if (const QString texte = complete(text()); texte != text())
            setText(texte);
    }
    return true;
}

ChampDate::ChampDate(QWidget* parent) : QLineEdit(parent) {
    connect(
        this, &ChampDate::abandonne, this,
        [this] {
            if (isVisible() && !hasFocus())
                quitte();
        },
        Qt::QueuedConnection);
}

void ChampDate::focusOutEvent(QFocusEvent* evenement) {
    QLineEdit::focusOutEvent(evenement);
    // Only the user's own leaving: two boxes that held the focus against one another would never end.
    switch (evenement->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::MouseFocusReason:
    case Qt::ShortcutFocusReason:
        // The focus is on its way: it comes back once it has arrived.
        emit abandonne();
        break;
    default:
        break;
    }
}

void ChampDate::keyPressEvent(QKeyEvent* evenement) {
    if (touche && !evenement->text().isEmpty() && !touche(evenement->text()))
        return;
    QLineEdit::keyPressEvent(evenement);
}

} // namespace velm
