#include "document/ui/textelu.h"

#include <QFocusEvent>

namespace velm {

TexteLu::TexteLu(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void TexteLu::montre(const QString& texte) {
    setText(texte);
    setAccessibleDescription(texte);
}

void TexteLu::focusInEvent(QFocusEvent* evenement) {
    QLabel::focusInEvent(evenement);
    if (evenement->reason() == Qt::TabFocusReason || evenement->reason() == Qt::BacktabFocusReason)
        setSelection(0, static_cast<int>(text().size()));
}

void TexteLu::focusOutEvent(QFocusEvent* evenement) {
    QLabel::focusOutEvent(evenement);
    // The menu by which it is copied takes the focus as well.
    if (evenement->reason() != Qt::PopupFocusReason && evenement->reason() != Qt::ActiveWindowFocusReason)
        setSelection(0, 0);
}

} // namespace velm
