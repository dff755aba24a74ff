#include "shell/fonds.h"

#include "platform/typeset/viewformats.h"
#include "shell/logique/barres.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>
#include <numbers>

namespace velm {

namespace {

constexpr double pi = std::numbers::pi;

/// A drawing around the origin; `etendue` is the area that can be seen.
using Dessin = void (*)(QPainter& peintre, const QRectF& etendue);

struct Fond {
    QRgb trait;
    Dessin dessin;
};

void trace(QPainter& peintre, double epaisseur, double part) {
    QPen plume = peintre.pen();
    plume.setWidthF(epaisseur);
    plume.setCapStyle(Qt::RoundCap);
    plume.setJoinStyle(Qt::RoundJoin);
    QColor couleur = plume.color();
    couleur.setAlphaF(float(part));
    plume.setColor(couleur);
    peintre.setPen(plume);
    peintre.setBrush(Qt::NoBrush);
}

/// A closed curve around the middle whose radius swings; lines of neighbouring phases make the woven bands of a bond.
QPainterPath onde(double rayon, double ampleur, int lobes, double phase) {
    constexpr int pas = 720;
    QPainterPath chemin;
    for (int i = 0; i <= pas; ++i) {
        const double angle = 2 * pi * i / pas;
        const double r = rayon + ampleur * std::sin(lobes * angle + phase);
        const QPointF point(r * std::cos(angle), r * std::sin(angle));
        if (i == 0)
            chemin.moveTo(point);
        else
            chemin.lineTo(point);
    }
    return chemin;
}

void rosace(QPainter& peintre, const QRectF&) {
    trace(peintre, 0.8, 0.3);
    struct Bande {
        double rayon, ampleur;
        int lobes, lignes;
    };
    constexpr std::array<Bande, 4> bandes{{{290, 26, 36, 6}, {215, 34, 24, 8}, {130, 40, 12, 8}, {55, 24, 8, 6}}};
    for (const Bande& bande : bandes) {
        for (int i = 0; i < bande.lignes; ++i)
            peintre.drawPath(onde(bande.rayon, bande.ampleur, bande.lobes, 2 * pi * i / bande.lignes));
    }
    trace(peintre, 1.2, 0.35);
    for (const double rayon : {332.0, 338.0, 254.0, 176.0, 88.0})
        peintre.drawEllipse(QPointF(), rayon, rayon);
}

/// A section mark of about 24 by 48: two hooks that hold each other.
QPainterPath paragraphe() {
    QPainterPath haut(QPointF(8, -17));
    haut.cubicTo(6, -23, -9, -24, -9, -15);
    haut.cubicTo(-9, -6, 10, -4, 10, 4);
    haut.cubicTo(10, 8, 7, 10, 4, 11);
    QPainterPath bas(QPointF(-8, 17));
    bas.cubicTo(-6, 23, 9, 24, 9, 15);
    bas.cubicTo(9, 6, -10, 4, -10, -4);
    bas.cubicTo(-10, -8, -7, -10, -4, -11);
    haut.addPath(bas);
    return haut;
}

void semis(QPainter& peintre, const QRectF& etendue) {
    constexpr double pas = 112;
    trace(peintre, 1.8, 0.3);
    const QPainterPath signe = paragraphe();
    const int colonnes = int(etendue.width() / 2 / pas) + 1;
    const int rangs = int(etendue.height() / 2 / (pas / 2)) + 1;
    for (int rang = -rangs; rang <= rangs; ++rang) {
        // Every second row stands between the marks of its neighbours.
        const double retrait = rang % 2 == 0 ? 0 : pas / 2;
        for (int colonne = -colonnes; colonne <= colonnes; ++colonne)
            peintre.drawPath(signe.translated(colonne * pas + retrait, rang * pas * 0.75));
    }
}

/// The old construction of a book's spread: diagonals give the place of the text on both pages.
void doublepage(QPainter& peintre, const QRectF&) {
    constexpr double largeur = 300;
    constexpr double hauteur = 450;
    const QRectF feuille(-largeur, -hauteur / 2, 2 * largeur, hauteur);
    trace(peintre, 1.4, 0.42);
    peintre.drawRect(feuille);
    peintre.drawLine(QLineF(0, feuille.top(), 0, feuille.bottom()));
    trace(peintre, 0.8, 0.32);
    peintre.drawLine(QLineF(feuille.bottomLeft(), feuille.topRight()));
    peintre.drawLine(QLineF(feuille.bottomRight(), feuille.topLeft()));
    for (const double cote : {-1.0, 1.0}) {
        const auto x = [cote](double part) { return cote * largeur * part; };
        const auto y = [&feuille](double part) { return feuille.top() + hauteur * part; };
        peintre.drawLine(QLineF(0, y(0), x(1), y(1)));
        // The diagonals of page and spread cross at two thirds; from there the ninths of the page follow.
        const QPointF croisee(x(1.0 / 3), y(1.0 / 3));
        const QPointF autre(-x(1.0 / 3), y(1.0 / 3));
        peintre.drawLine(QLineF(croisee, QPointF(croisee.x(), y(0))));
        peintre.drawLine(QLineF(QPointF(croisee.x(), y(0)), autre));
        trace(peintre, 1.4, 0.42);
        peintre.drawRect(QRectF(QPointF(x(1.0 / 9), y(1.0 / 9)), QPointF(x(7.0 / 9), y(7.0 / 9))).normalized());
        trace(peintre, 0.8, 0.32);
    }
    peintre.drawEllipse(QPointF(0, feuille.top() + hauteur / 3), largeur / 3, largeur / 3);
}

void balance(QPainter& peintre, const QRectF&) {
    trace(peintre, 1.6, 0.42);
    QPainterPath chemin;
    // The post, its foot and its finial.
    chemin.addEllipse(QPointF(0, -200), 11, 11);
    chemin.moveTo(-4, -186);
    chemin.cubicTo(-9, -60, -9, 60, -5, 168);
    chemin.moveTo(4, -186);
    chemin.cubicTo(9, -60, 9, 60, 5, 168);
    chemin.moveTo(-90, 204);
    chemin.cubicTo(-84, 178, -40, 176, -5, 168);
    chemin.moveTo(90, 204);
    chemin.cubicTo(84, 178, 40, 176, 5, 168);
    chemin.addRoundedRect(QRectF(-104, 204, 208, 12), 4, 4);
    // The beam, two shallow curves that meet at the knife edges.
    chemin.moveTo(-220, -150);
    chemin.cubicTo(-120, -172, -40, -158, 0, -172);
    chemin.cubicTo(40, -158, 120, -172, 220, -150);
    chemin.cubicTo(120, -154, 50, -136, 0, -142);
    chemin.cubicTo(-50, -136, -120, -154, -220, -150);
    peintre.drawPath(chemin);
    trace(peintre, 1, 0.36);
    for (const double cote : {-220.0, 220.0}) {
        // The strings hang apart on a ring: meeting in a point they would add up to a blot.
        QPainterPath plateau;
        plateau.addEllipse(QPointF(cote, -142), 8, 8);
        for (const double bord : {-74.0, -18.0, 18.0, 74.0}) {
            plateau.moveTo(cote + bord / 12, -134);
            plateau.lineTo(cote + bord, 40);
        }
        plateau.moveTo(cote - 80, 40);
        plateau.cubicTo(cote - 62, 92, cote + 62, 92, cote + 80, 40);
        plateau.closeSubpath();
        peintre.drawPath(plateau);
        for (int i = 1; i <= 3; ++i) {
            QPainterPath ombre(QPointF(cote - 80 + 6 * i, 40));
            ombre.cubicTo(cote - 62 + 10 * i, 92 - 12 * i, cote + 62 - 10 * i, 92 - 12 * i, cote + 80 - 6 * i, 40);
            peintre.drawPath(ombre);
        }
    }
}

/// Fine waves from edge to edge that swell in the middle, as on the paper of a deed.
void filigrane(QPainter& peintre, const QRectF& etendue) {
    constexpr double interligne = 14;
    constexpr double pas = 8;
    trace(peintre, 0.9, 0.26);
    const int lignes = int(etendue.height() / 2 / interligne) + 2;
    const int colonnes = int(etendue.width() / 2 / pas) + 2;
    for (int ligne = -lignes; ligne <= lignes; ++ligne) {
        QPainterPath chemin;
        for (int colonne = -colonnes; colonne <= colonnes; ++colonne) {
            const double x = colonne * pas;
            const double y = ligne * interligne;
            const double houle = std::exp(-(x * x + 2.2 * y * y) / (2 * 240.0 * 240.0));
            const QPointF point(x, y + 10 * std::sin(x / 90) + 34 * houle * std::sin(x / 38 + ligne * 0.42));
            if (chemin.elementCount() == 0)
                chemin.moveTo(point);
            else
                chemin.lineTo(point);
        }
        peintre.drawPath(chemin);
    }
}

const Fond* fond(int numero) {
    static constexpr std::array<Fond, nombredefonds> fonds{{{0xFFA8923C, rosace},
                                                            {0xFFA8672C, semis},
                                                            {0xFF8A7A48, doublepage},
                                                            {0xFF77705F, balance},
                                                            {0xFF1F4E79, filigrane}}};
    return numero >= 0 && numero < nombredefonds ? &fonds.at(static_cast<std::size_t>(numero)) : nullptr;
}

} // namespace

QColor couleurdefond(int numero) {
    return fond(numero) ? viewColour(static_cast<std::int32_t>(*fondecran(numero, 0)->couleur)) : QColor();
}

QPixmap imagedefond(int numero, const QSize& taille, qreal densite, look::Theme theme) {
    const Fond* choisi = fond(numero);
    if (!choisi || taille.isEmpty() || !(densite > 0))
        return {};
    QPixmap image((QSizeF(taille) * densite).toSize());
    image.setDevicePixelRatio(densite);
    // A veil over the strong colours below: the documents are to be the brightest thing on the screen.
    QColor voile = look::ground(theme);
    voile.setAlpha(theme == look::Theme::Light ? 0xC4 : 0);
    image.fill(voile);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.translate(taille.width() / 2.0, taille.height() / 2.0);
    const bool clair = theme == look::Theme::Light;
    peintre.setPen(clair ? QColor::fromRgb(choisi->trait) : couleurdefond(numero));
    // Light lines on a dark ground need less to be seen.
    peintre.setOpacity(clair ? 0.7 : 0.35);
    choisi->dessin(peintre, QRectF(QPointF(-taille.width() / 2.0, -taille.height() / 2.0), QSizeF(taille)));
    return image;
}

} // namespace velm
