#include "shell/frmabout_logo.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <cmath>
#include <numbers>

/// A library's resources do not come in by themselves; the macro wants the global name space.
static void chargeressources() {
    Q_INIT_RESOURCE(velm);
}

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

// The measures of the book in the picture's own square of 64.
constexpr double carre = 64;
constexpr double pli = 32;
constexpr double largeurpage = 20;
constexpr double hautpli = 20.5;
constexpr double hautbord = 15.5;
constexpr double hauteurpage = 28;
constexpr double levee = 7;

/// A page on its way from right to left, over the book at rest.
class PageTournee {
public:
    explicit PageTournee(double angle) : cosinus_(std::cos(angle)), sinus_(std::sin(angle)) {}

    void peint(QPainter& peintre) const {
        QPainterPath page(point(0, 0));
        page.quadTo(point(0.5, 0), point(1, 0));
        page.lineTo(point(1, 1));
        page.quadTo(point(0.5, 1), point(0, 1));
        page.closeSubpath();
        // The steeper the page stands, the less light falls on it.
        const QColor papier = QColor::fromRgb(0xFF, 0xFF, 0xFF).darker(100 + int(14 * sinus_));
        peintre.setPen(QPen(QColor::fromRgb(0x1F, 0x4E, 0x79, 150), 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        peintre.setBrush(papier);
        peintre.drawPath(page);
        peintre.setPen(QPen(QColor::fromRgb(0x8F, 0xA9, 0xC4), 1.8, Qt::SolidLine, Qt::RoundCap));
        for (const double rang : {0.28, 0.52, 0.76}) {
            if (std::abs(cosinus_) > 0.25)
                peintre.drawLine(point(0.28, rang), point(0.75, rang));
        }
    }

private:
    /// `part` goes from the fold to the free edge, `rang` from top to bottom.
    QPointF point(double part, double rang) const {
        const double x = pli + cosinus_ * largeurpage * part;
        const double bord = hautpli + (hautbord - hautpli) * part * (1.4 - 0.4 * part);
        return {x, bord - levee * sinus_ * part + hauteurpage * rang};
    }

    double cosinus_;
    double sinus_;
};

} // namespace

QPixmap imagelogo(int image, int cote, qreal densite) {
    if (image < 0 || cote <= 0 || !(densite > 0))
        return {};
    static const bool chargees = (chargeressources(), true);
    Q_UNUSED(chargees);
    QPixmap resultat((QSizeF(cote, cote) * densite).toSize());
    resultat.setDevicePixelRatio(densite);
    resultat.fill(Qt::transparent);
    QPainter peintre(&resultat);
    peintre.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer repos(u":/velmorante.svg"_s);
    repos.render(&peintre, QRectF(0, 0, cote, cote));
    const int rang = image % nombredimages;
    if (rang > 0) {
        peintre.scale(cote / carre, cote / carre);
        // Never quite upright: the page would vanish.
        PageTournee(std::numbers::pi * (rang - 0.3) / (nombredimages - 1)).peint(peintre);
    }
    return resultat;
}

Logo::Logo(int cote, QWidget* parent) : QWidget(parent) {
    setFixedSize(cote, cote);
}

void Logo::suivante() {
    image_ = (image_ + 1) % nombredimages;
    update();
}

void Logo::paintEvent(QPaintEvent*) {
    QPainter(this).drawPixmap(0, 0, imagelogo(image_, width(), devicePixelRatioF()));
}

void Logo::mouseReleaseEvent(QMouseEvent* evenement) {
    if (evenement->button() == Qt::LeftButton && rect().contains(evenement->position().toPoint()))
        emit clique();
}

} // namespace velm
