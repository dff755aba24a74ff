#include "search/ui/rangees.h"

#include <QLabel>

#include <algorithm>
#include <utility>

namespace velm {

namespace {

bool prendtout(const QLayoutItem* piece) {
    return piece->expandingDirections().testFlag(Qt::Horizontal);
}

int hauteur(const QLayoutItem* piece, int largeur) {
    return piece->hasHeightForWidth() ? piece->heightForWidth(largeur) : piece->sizeHint().height();
}

} // namespace

bool Rangees::Rangee::remplie() const {
    return std::ranges::any_of(pieces, [](const QLayoutItem* piece) { return !piece->isEmpty(); });
}

/// Whether the row is a short control and, behind it, one that takes the rest.
bool Rangees::Rangee::prendlereste() const {
    return pieces.size() > 1 && !prendtout(pieces.front()) && prendtout(pieces.back());
}

/// Height of the row's first control, beside whose middle the label stands.
int Rangees::Rangee::hauteur() const {
    const auto premier =
        std::ranges::find_if(pieces, [](const QLayoutItem* piece) { return piece->sizeHint().height() > 0; });
    return premier == pieces.end() ? 0 : (*premier)->sizeHint().height();
}

Rangees::Rangees(QWidget* parent) : QLayout(parent) {
    setContentsMargins({});
}

Rangees::~Rangees() {
    rangees_.clear();
    pieces_.clear();
}

// ---- making

void Rangees::rangee(QLabel* etiquette, const Espaces& espaces) {
    rangees_.push_back({nullptr, {}, espaces});
    if (!etiquette)
        return;
    addWidget(etiquette);
    rangees_.back().etiquette = rangees_.back().pieces.back();
    rangees_.back().pieces.clear();
}

void Rangees::addLayout(QLayout* ensemble) {
    addChildLayout(ensemble);
    addItem(ensemble);
}

void Rangees::ajouteressort() {
    addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
}

void Rangees::addItem(QLayoutItem* piece) {
    pieces_.emplace_back(piece);
    rangees_.back().pieces.push_back(piece);
    invalidate();
}

QLayoutItem* Rangees::itemAt(int rang) const {
    return rang >= 0 && rang < count() ? pieces_[static_cast<std::size_t>(rang)].get() : nullptr;
}

QLayoutItem* Rangees::takeAt(int rang) {
    if (!itemAt(rang))
        return nullptr;
    QLayoutItem* prise = pieces_[static_cast<std::size_t>(rang)].release();
    pieces_.erase(pieces_.begin() + rang);
    for (Rangee& rangee : rangees_) {
        std::erase(rangee.pieces, prise);
        if (rangee.etiquette == prise)
            rangee.etiquette = nullptr;
    }
    invalidate();
    return prise;
}

// ---- measures

int Rangees::intitules() const {
    int large = 0;
    for (const Rangee& rangee : rangees_) {
        if (rangee.etiquette)
            large = std::max(large, rangee.etiquette->sizeHint().width());
    }
    return large;
}

/// The controls before those that take the rest are as wide as one another.
int Rangees::premieres() const {
    int large = 0;
    for (const Rangee& rangee : rangees_) {
        if (rangee.prendlereste())
            large = std::max(large, rangee.pieces.front()->sizeHint().width());
    }
    return large;
}

int Rangees::besoin(const Rangee& rangee, const QLayoutItem* piece) const {
    if (rangee.prendlereste() && piece == rangee.pieces.front())
        return premieres();
    return prendtout(piece) ? piece->minimumSize().width() : piece->sizeHint().width();
}

/// What controls need in one line.
int Rangees::enligne(const Rangee& rangee, const Ligne& ligne) const {
    int large = -rangee.espaces.ecart;
    for (const QLayoutItem* piece : ligne)
        large += besoin(rangee, piece) + rangee.espaces.ecart;
    return std::max(large, 0);
}

/// Narrower, the labels stand above. Controls alone may break before that.
int Rangees::largeurutile() const {
    int large = 0;
    for (const Rangee& rangee : rangees_) {
        if (std::ranges::any_of(rangee.pieces, prendtout))
            large = std::max(large, enligne(rangee, rangee.pieces));
        for (const QLayoutItem* piece : rangee.pieces)
            large = std::max(large, besoin(rangee, piece));
    }
    const int devant = intitules();
    return devant > 0 ? devant + look::spacing + large : 0;
}

QSize Rangees::sizeHint() const {
    int large = 0;
    for (const Rangee& rangee : rangees_) {
        int ici = enligne(rangee, rangee.pieces);
        for (const QLayoutItem* piece : rangee.pieces)
            ici += prendtout(piece) ? std::max(piece->sizeHint().width() - piece->minimumSize().width(), 0) : 0;
        large = std::max(large, ici);
    }
    const int devant = intitules();
    large += devant > 0 ? devant + look::spacing : 0;
    return {large, dispose({0, 0, large, 0}, false)};
}

/// The less wide, the higher: as high as it is at least, wherever it has room.
QSize Rangees::minimumSize() const {
    int large = intitules();
    for (const Rangee& rangee : rangees_) {
        for (const QLayoutItem* piece : rangee.pieces)
            large = std::max(large, besoin(rangee, piece));
    }
    return {large, dispose({0, 0, QWIDGETSIZE_MAX, 0}, false)};
}

int Rangees::heightForWidth(int largeur) const {
    return dispose({0, 0, largeur, 0}, false);
}

Qt::Orientations Rangees::expandingDirections() const {
    const bool toute = std::ranges::any_of(
        rangees_, [](const Rangee& rangee) { return std::ranges::any_of(rangee.pieces, prendtout); });
    return toute ? Qt::Horizontal : Qt::Orientations();
}

// ---- places

void Rangees::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    dispose(place, true);
}

/// Puts all in its place, or only measures: the height that it takes.
int Rangees::dispose(const QRect& dans, bool pose) const {
    const int devant = dans.width() < largeurutile() ? 0 : intitules();
    const int marge = devant > 0 ? devant + look::spacing : 0;
    int haut = dans.top();
    for (const Rangee& rangee : rangees_) {
        if (!rangee.remplie())
            continue;
        if (haut > dans.top())
            haut += look::spacing + rangee.espaces.dessus;
        if (QLayoutItem* nom = rangee.etiquette; nom && devant > 0) {
            if (pose)
                nom->setGeometry({dans.left(), haut, devant, std::max(rangee.hauteur(), nom->sizeHint().height())});
        } else if (nom) {
            if (pose)
                nom->setGeometry({dans.left(), haut, dans.width(), nom->sizeHint().height()});
            haut += nom->sizeHint().height() + look::grid;
        }
        haut = poserangee(rangee, {dans.left() + marge, haut, dans.width() - marge, 0}, pose);
    }
    return haut - dans.top();
}

std::vector<Rangees::Ligne> Rangees::lignes(const Rangee& rangee, int largeur) const {
    std::vector<Ligne> toutes(1);
    Ligne pieces = rangee.pieces;
    if (rangee.espaces.adroite && enligne(rangee, pieces) > largeur)
        std::rotate(pieces.begin(), pieces.begin() + 1, pieces.end());
    for (QLayoutItem* piece : pieces) {
        Ligne ensemble = toutes.back();
        ensemble.push_back(piece);
        if (toutes.back().empty() || enligne(rangee, ensemble) <= largeur)
            toutes.back() = std::move(ensemble);
        else
            toutes.push_back({piece});
    }
    return toutes;
}

/// Where the row ends.
int Rangees::poserangee(const Rangee& rangee, const QRect& dans, bool pose) const {
    int haut = dans.top();
    for (const Ligne& ligne : lignes(rangee, dans.width())) {
        haut += haut > dans.top() ? look::spacing : 0;
        haut = poseligne(rangee, ligne, {dans.left(), haut, dans.width(), 0}, pose);
    }
    return haut;
}

int Rangees::poseligne(const Rangee& rangee, const Ligne& ligne, const QRect& dans, bool pose) const {
    int reste = std::max(dans.width() - enligne(rangee, ligne), 0);
    const bool etire = std::ranges::any_of(ligne, prendtout);
    int gauche = dans.left() + (rangee.espaces.adroite && !etire ? reste : 0);
    int bas = dans.top();
    int premier = 0;
    for (QLayoutItem* piece : ligne) {
        const int plus = prendtout(piece) ? std::exchange(reste, 0) : 0;
        const int large = std::min(besoin(rangee, piece) + plus, dans.width());
        const int haute = hauteur(piece, large);
        premier = premier > 0 ? premier : haute;
        // Lower ones stand in the middle of the first one, higher ones go on below it.
        const int haut = dans.top() + std::max(premier - haute, 0) / 2;
        if (pose)
            piece->setGeometry({gauche, haut, large, haute});
        gauche += large + rangee.espaces.ecart;
        bas = std::max(bas, haut + haute);
    }
    return bas;
}

} // namespace velm
