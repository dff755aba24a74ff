#include "shell/lignedepart.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QPainter>

namespace velm {

namespace {

constexpr int cotedelimage = 24;
constexpr int margedelaligne = look::spacing;
constexpr double arrondidelaligne = look::grid;
constexpr int plusetroit = 160; ///< a row that can still be read

} // namespace

LigneDepart::LigneDepart(const QIcon& image, const QString& nom, QWidget* parent) : QAbstractButton(parent) {
    setIcon(image);
    setText(nom);
    setAccessibleName(nom);
    setFocusPolicy(Qt::NoFocus); // its group lets the Tab key stop at one of its rows
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void LigneDepart::changesuite(const QString& suite) {
    suite_ = suite;
    montrebulle();
    update();
}

/// Including the gap between it and the name.
int LigneDepart::largeurdelasuite() const {
    return suite_.isEmpty() ? 0 : margedelaligne + fontMetrics().horizontalAdvance(suite_) + 1;
}

QSize LigneDepart::sizeHint() const {
    const int suite = isEnabled() ? largeurdelasuite() : 0;
    return {fontMetrics().horizontalAdvance(text()) + cotedelimage + 3 * margedelaligne + suite,
            minimumSizeHint().height()};
}

QSize LigneDepart::minimumSizeHint() const {
    return {plusetroit, std::max(cotedelimage, fontMetrics().height()) + look::grid};
}

QRect LigneDepart::placedunom() const {
    return rect().adjusted(cotedelimage + 2 * margedelaligne, 0, -margedelaligne, 0);
}

QRect LigneDepart::placedelasuite() const {
    const QRect place = placedunom();
    const int nom = fontMetrics().horizontalAdvance(text());
    const int suite = largeurdelasuite();
    return suite > 0 && nom + suite <= place.width() ? place.adjusted(nom + margedelaligne, 0, 0, 0) : QRect();
}

QString LigneDepart::nommontre() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, placedunom().width());
}

void LigneDepart::montrebulle() {
    const bool entier = nommontre() == text();
    setToolTip(plainTip(!entier ? text() : placedelasuite().isEmpty() ? suite_ : QString()));
}

void LigneDepart::resizeEvent(QResizeEvent* evenement) {
    QAbstractButton::resizeEvent(evenement);
    montrebulle();
}

void LigneDepart::enterEvent(QEnterEvent* evenement) {
    QAbstractButton::enterEvent(evenement);
    update();
}

void LigneDepart::leaveEvent(QEvent* evenement) {
    QAbstractButton::leaveEvent(evenement);
    update();
}

void LigneDepart::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    if (isEnabled() && (underMouse() || isDown())) {
        QColor teinte = palette().color(QPalette::Highlight);
        teinte.setAlphaF(isDown() ? 0.25F : 0.12F);
        peintre.setPen(Qt::NoPen);
        peintre.setBrush(teinte);
        peintre.drawRoundedRect(rect(), arrondidelaligne, arrondidelaligne);
    }
    const QRect image(margedelaligne, (height() - cotedelimage) / 2, cotedelimage, cotedelimage);
    icon().paint(&peintre, image, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    peintre.setPen(palette().color(QPalette::WindowText));
    peintre.drawText(placedunom(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, nommontre());
    if (isEnabled())
        peintre.setPen(palette().color(QPalette::PlaceholderText));
    peintre.drawText(placedelasuite(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, suite_);
}

} // namespace velm
