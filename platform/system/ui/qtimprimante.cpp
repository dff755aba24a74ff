#include "platform/system/ui/qtimprimante.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStringTokenizer>

#include <algorithm>
#include <numeric>

namespace velm {

namespace {

constexpr double corps = 9;
constexpr int coupure = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;

/// The sheets, from top to bottom and one after the other.
class Feuilles {
public:
    Feuilles(QPrinter& imprimante, QPainter& peintre, const TableauImprime& tableau)
        : imprimante_(imprimante), peintre_(peintre), tableau_(tableau) {
        police_.setPointSizeF(corps);
        grasse_ = police_;
        grasse_.setBold(true);
        const QFontMetricsF mesures(police_, &imprimante_);
        hauteurligne_ = mesures.lineSpacing();
        blanc_ = mesures.horizontalAdvance(QLatin1Char('n'));
        surface_ = QRectF(peintre_.viewport());
        // The last line of a sheet holds its number, with a blank one above it.
        bas_ = surface_.height() - 2 * hauteurligne_;
        const double total = std::max(1, std::accumulate(tableau_.largeurs.begin(), tableau_.largeurs.end(), 0));
        for (const int largeur : tableau_.largeurs)
            largeurs_ << surface_.width() * largeur / total;
    }

    bool imprime() {
        commence();
        for (const QStringView ligne : qTokenize(QStringView(tableau_.lignes), u'\r')) {
            const QList<QStringView> cellules = ligne.split(u'\t');
            const double hauteur = hauteurdelaligne(cellules);
            if (haut_ + hauteur > bas_ && haut_ > debut_) {
                numerote();
                if (!imprimante_.newPage())
                    return false;
                ++page_;
                commence();
            }
            ecrit(cellules, hauteur);
        }
        numerote();
        return true;
    }

private:
    void commence() {
        haut_ = 0;
        peintre_.setFont(grasse_);
        QList<QStringView> entetes;
        for (const QString& entete : tableau_.entetes)
            entetes << entete;
        ecrit(entetes, hauteurdelaligne(entetes));
        peintre_.drawLine(QPointF(0, haut_), QPointF(surface_.width(), haut_));
        haut_ += hauteurligne_ / 4;
        debut_ = haut_;
        peintre_.setFont(police_);
    }

    double place(qsizetype colonne) const { return std::max(largeurs_[colonne] - blanc_, 0.0); }

    /// As many lines as the longest cell takes, at most a sheet.
    double hauteurdelaligne(const QList<QStringView>& cellules) const {
        const QFontMetricsF mesures(peintre_.font(), &imprimante_);
        double hauteur = mesures.height();
        for (qsizetype colonne = 0; colonne < std::min(cellules.size(), largeurs_.size()); ++colonne) {
            const QString texte = cellules[colonne].toString();
            if (place(colonne) <= 0 || mesures.horizontalAdvance(texte) <= place(colonne))
                continue;
            const QRectF large(0, 0, place(colonne), surface_.height());
            hauteur = std::max(hauteur, mesures.boundingRect(large, coupure, texte).height());
        }
        return std::min(hauteur + hauteurligne_ / 5, bas_ - debut_);
    }

    void ecrit(const QList<QStringView>& cellules, double hauteur) {
        double gauche = 0;
        for (qsizetype colonne = 0; colonne < std::min(cellules.size(), largeurs_.size()); ++colonne) {
            if (place(colonne) > 0)
                peintre_.drawText(QRectF(gauche, haut_, place(colonne), hauteur), coupure,
                                  cellules[colonne].toString());
            gauche += largeurs_[colonne];
        }
        haut_ += hauteur;
    }

    void numerote() {
        peintre_.drawText(QRectF(0, surface_.height() - hauteurligne_, surface_.width(), hauteurligne_),
                          Qt::AlignCenter, QString::number(page_));
    }

    QPrinter& imprimante_;
    QPainter& peintre_;
    const TableauImprime& tableau_;
    QFont police_;
    QFont grasse_;
    QRectF surface_;
    QList<double> largeurs_;
    double hauteurligne_ = 0;
    double blanc_ = 0;
    double haut_ = 0;
    double debut_ = 0; ///< below the headers
    double bas_ = 0;
    int page_ = 1;
};

} // namespace

bool imprimetableau(QPrinter& imprimante, const TableauImprime& tableau) {
    imprimante.setDocName(tableau.titre);
    QPainter peintre;
    if (!peintre.begin(&imprimante))
        return false;
    return Feuilles(imprimante, peintre, tableau).imprime() && peintre.end();
}

bool QtImprimante::imprime(const TableauImprime& tableau) {
    const QPrinterInfo celle = QPrinterInfo::defaultPrinter();
    if (celle.isNull())
        return false;
    QPrinter imprimante(celle, QPrinter::HighResolution);
    return imprimetableau(imprimante, tableau);
}

} // namespace velm
