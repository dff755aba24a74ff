#include "search/ui/champdate.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace velm {

ChampDate::ChampDate(QWidget* parent) : QLineEdit(parent) {
    connect(
        this, &ChampDate::abandonne, this,
        [this] {
            if (isVisible() && !hasFocus() && !acheve() && (!retient || retient(QApplication::focusWidget())))
                reprend();
        },
        Qt::QueuedConnection);
}

bool ChampDate::quitte() {
    if (acheve())
        return true;
    reprend();
    return false;
}

/// Completes the text; false when it cannot stand.
bool ChampDate::acheve() {
    if (valide && !valide(text()))
        return false;
    if (complete) {
        if (const QString texte = complete(text()); texte != text())
            setText(texte);
    }
    return true;
}

void ChampDate::reprend() {
    setFocus(Qt::OtherFocusReason);
    selectAll();
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
