#include "document/ui/etiquette.h"

#include "platform/widgets/look/plaintext.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace velm {

Etiquette::Etiquette(const QString& texte, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setText(texte);
}

QSize Etiquette::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void Etiquette::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    const QRect place = contentsRect();
    const auto ou = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
    style()->drawItemText(&peintre, place, ou, palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideRight, place.width()), foregroundRole());
}

bool Etiquette::event(QEvent* evenement) {
    if (evenement->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QLabel::event(evenement);
    if (fontMetrics().horizontalAdvance(text()) > contentsRect().width())
        QToolTip::showText(static_cast<QHelpEvent*>(evenement)->globalPos(), plainTip(text()), this);
    else
        QToolTip::hideText();
    return true;
}

} // namespace velm
