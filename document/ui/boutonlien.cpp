#include "document/ui/boutonlien.h"

#include "platform/widgets/look/look.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace velm {
namespace {

constexpr int cotedelimage = 20;

} // namespace

BoutonLien::BoutonLien(const QIcon& icone, const QString& texte, QWidget* parent) : QAbstractButton(parent) {
    setIcon(icone);
    setIconSize({cotedelimage, cotedelimage});
    setText(texte);
    setAccessibleName(texte);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize BoutonLien::sizeHint() const {
    ensurePolished();
    const int largeur =
        look::grid + cotedelimage + look::spacing + fontMetrics().horizontalAdvance(text()) + 2 * look::grid;
    return {largeur, std::max(cotedelimage, fontMetrics().height()) + look::spacing};
}

QSize BoutonLien::minimumSizeHint() const {
    return {look::grid + cotedelimage, sizeHint().height()};
}

void BoutonLien::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    icon().paint(&peintre, QRect(look::grid, (height() - cotedelimage) / 2, cotedelimage, cotedelimage),
                 Qt::AlignCenter);
    const QRect place = rect().adjusted(look::grid + cotedelimage + look::spacing, 0, -look::grid, 0);
    const QString montre = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    QColor encre = palette().color(QPalette::Link);
    peintre.setPen(encre);
    peintre.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, montre);
    const int ligne = (height() + fontMetrics().height()) / 2 - fontMetrics().descent() + fontMetrics().underlinePos();
    constexpr float mince = 0.4F;
    encre.setAlphaF(underMouse() || isDown() ? 1.0F : mince);
    peintre.fillRect(QRect(place.left(), ligne, fontMetrics().horizontalAdvance(montre), 1), encre);
}

void BoutonLien::keyPressEvent(QKeyEvent* evenement) {
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(evenement);
}

} // namespace velm
