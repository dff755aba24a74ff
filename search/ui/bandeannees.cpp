#include "search/ui/bandeannees.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int hauteurdesbarres = 36;
constexpr int marge = look::spacing; ///< beside the bars
constexpr int plusetroite = 4;       ///< a bar with the gap beside it
constexpr int pluslarge = 56;
constexpr int plusbasse = 2; ///< a year with one document is seen all the same

} // namespace

BandeAnnees::BandeAnnees(const Libelles& texte, QWidget* parent) : QWidget(parent), texte_(texte) {
    setObjectName(u"bandeannees"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ditcourante();
}

void BandeAnnees::montre(std::vector<AnneeChrono> annees) {
    annees_ = std::move(annees);
    courante_ = survolee_ = -1;
    range();
}

void BandeAnnees::range() {
    const int avant = courante_ >= 0 ? barres_[static_cast<std::size_t>(courante_)].annee : -1;
    barres_ = barresdesannees(annees_, std::max(1, (width() - 2 * marge) / plusetroite));
    const auto la = std::ranges::find_if(
        barres_, [avant](const BarreAnnees& une) { return une.annee <= avant && avant <= une.derniere; });
    courante_ = la == barres_.end() ? -1 : static_cast<int>(la - barres_.begin());
    survolee_ = -1;
    laplushaute_ = 0;
    for (const BarreAnnees& une : barres_)
        laplushaute_ = std::max(laplushaute_, une.nombre);
    // The Tab key stops only where something can be done.
    setEnabled(!barres_.empty());
    ditcourante();
    update();
}

QSize BandeAnnees::sizeHint() const {
    return {0, hauteurdesbarres + fontMetrics().height() + look::spacing + look::grid};
}

QSize BandeAnnees::minimumSizeHint() const {
    return sizeHint();
}

QRect BandeAnnees::place(int rang) const {
    const auto nombre = static_cast<int>(barres_.size());
    if (rang < 0 || rang >= nombre)
        return {};
    const int large = std::min(width() - 2 * marge, nombre * pluslarge);
    const int gauche = marge + large * rang / nombre;
    return {gauche, 0, marge + large * (rang + 1) / nombre - gauche, height()};
}

int BandeAnnees::sous(const QPoint& point) const {
    for (int rang = 0; rang < static_cast<int>(barres_.size()); ++rang) {
        if (place(rang).contains(point))
            return rang;
    }
    return -1;
}

QString BandeAnnees::dit(int rang) const {
    if (rang < 0 || rang >= static_cast<int>(barres_.size()))
        return {};
    const BarreAnnees& une = barres_[static_cast<std::size_t>(rang)];
    const QString annee = QString::number(une.annee);
    const QString annees = une.annee == une.derniere
                               ? annee
                               : remplace(texte_(Texte::EntreDesAnnees), {annee, QString::number(une.derniere)});
    const QString nombre = remplace(texte_(une.nombre > 1 ? Texte::CompteDocuments : Texte::CompteUnDocument),
                                    {nombreecrit(une.nombre, texte_)});
    return remplace(texte_(Texte::NomEtNombre), {annees, nombre});
}

/// Who cannot see the bars hears which one the keys are on.
void BandeAnnees::ditcourante() {
    const QString nom = texte_(Texte::DocumentsParAnnee);
    const QString laquelle = dit(courante_);
    setAccessibleName(laquelle.isEmpty() ? nom : remplace(texte_(Texte::LigneEtiquetee), {nom, laquelle}));
}

void BandeAnnees::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().color(QPalette::Base));
    const int sol = height() - fontMetrics().height() - look::grid;
    const QColor barre = palette().color(QPalette::Link);
    QColor calme = barre;
    calme.setAlphaF(0.65F);
    int libre = marge;
    for (int rang = 0; rang < static_cast<int>(barres_.size()); ++rang) {
        const BarreAnnees& une = barres_[static_cast<std::size_t>(rang)];
        const QRect ici = place(rang);
        const int haut = une.nombre == 0 ? 0
                                         : std::max(plusbasse, static_cast<int>(qint64{hauteurdesbarres} * une.nombre /
                                                                                std::max(laplushaute_, 1)));
        const bool vive = rang == survolee_ || (rang == courante_ && hasFocus());
        peintre.fillRect(QRect(ici.left(), sol - haut, std::max(ici.width() - 1, 1), haut), vive ? barre : calme);
        // As many years are written as there is room for.
        const QString annee = QString::number(une.annee);
        const int large = fontMetrics().horizontalAdvance(annee);
        const int milieu = std::clamp(ici.center().x() - large / 2, marge, std::max(width() - marge - large, marge));
        if (milieu < libre || milieu + large > width())
            continue;
        peintre.setPen(palette().color(QPalette::Text));
        peintre.drawText(QRect(milieu, sol, large, height() - sol), Qt::AlignCenter, annee);
        libre = milieu + large + look::spacing;
    }
    peintre.fillRect(0, height() - 1, width(), 1, palette().color(QPalette::Mid));
}

void BandeAnnees::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    range();
}

void BandeAnnees::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange || evenement->type() == QEvent::StyleChange)
        updateGeometry();
}

// ---- what is pressed

void BandeAnnees::choisit(int rang) {
    courante_ = barres_.empty() ? -1 : std::clamp(rang, 0, static_cast<int>(barres_.size()) - 1);
    ditcourante();
    update();
    // The keys show what the pointer would.
    if (hasFocus() && courante_ >= 0 && isVisible())
        QToolTip::showText(mapToGlobal(place(courante_).bottomLeft()), plainTip(dit(courante_)), this);
}

void BandeAnnees::presse(int rang) {
    if (rang < 0 || rang >= static_cast<int>(barres_.size()))
        return;
    const BarreAnnees une = barres_[static_cast<std::size_t>(rang)];
    if (une.nombre > 0)
        emit voulue(une.annee, une.derniere);
}

void BandeAnnees::mousePressEvent(QMouseEvent* evenement) {
    const int rang = evenement->button() == Qt::LeftButton ? sous(evenement->position().toPoint()) : -1;
    if (rang < 0)
        return;
    courante_ = rang;
    ditcourante();
    update();
    presse(rang);
}

void BandeAnnees::mouseMoveEvent(QMouseEvent* evenement) {
    if (std::exchange(survolee_, sous(evenement->position().toPoint())) != survolee_)
        update();
}

void BandeAnnees::leaveEvent(QEvent* evenement) {
    QWidget::leaveEvent(evenement);
    survolee_ = -1;
    update();
}

void BandeAnnees::keyPressEvent(QKeyEvent* evenement) {
    const auto nombre = static_cast<int>(barres_.size());
    switch (evenement->key()) {
    case Qt::Key_Left:
        return choisit(courante_ - 1);
    case Qt::Key_Right:
        return choisit(courante_ + 1);
    case Qt::Key_Home:
        return choisit(0);
    case Qt::Key_End:
        return choisit(nombre - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return presse(courante_);
    default:
        return QWidget::keyPressEvent(evenement);
    }
}

void BandeAnnees::focusInEvent(QFocusEvent* evenement) {
    QWidget::focusInEvent(evenement);
    if (courante_ < 0 && !barres_.empty()) {
        courante_ = 0;
        ditcourante();
    }
    update();
}

void BandeAnnees::focusOutEvent(QFocusEvent* evenement) {
    QWidget::focusOutEvent(evenement);
    update();
}

bool BandeAnnees::event(QEvent* evenement) {
    if (evenement->type() != QEvent::ToolTip)
        return QWidget::event(evenement);
    const auto& aide = static_cast<const QHelpEvent&>(*evenement);
    const int rang = sous(aide.pos());
    if (rang >= 0)
        QToolTip::showText(aide.globalPos(), plainTip(dit(rang)), this, place(rang));
    else
        QToolTip::hideText();
    return true;
}

} // namespace velm
