#include "document/hautdeslistes.h"

#include <QtGlobal>

#include <algorithm>

namespace velm {
namespace {

// Hundredths of the height of the window: what opened lists take at most, headers and all.
constexpr int partdeslistes = 28;

int rangeesentieres(int hauteur, const MesuresTextes& mesures) {
    return mesures.titres + std::max(1, (hauteur - mesures.titres) / mesures.rangee) * mesures.rangee;
}

} // namespace

void HautDesListes::demande(int besoin, bool deja) {
    besoin_ = deja ? std::max(besoin_, besoin) : besoin;
}

void HautDesListes::lache(int place, int hauteur) {
    deplaces_ = true;
    lachesa_ = place;
    hauteurlors_ = std::max(1, hauteur);
}

/// A window that grows or shrinks gives what it has more or less to the text, not to the lists.
int HautDesListes::place(int hauteur, int texte, const MesuresTextes& mesures) const {
    if (deplaces_)
        return static_cast<int>(qint64{lachesa_} * hauteur / hauteurlors_);
    const int bas = std::max(0, hauteur - mesures.trait - mesures.entete);
    const int moitie = texte + std::max(0, bas - texte) / 2;
    const int plushaut = std::max(moitie, hauteur - hauteur * partdeslistes / 100);
    if (bas - besoin_ >= plushaut)
        return bas - besoin_;
    return std::max(moitie, bas - rangeesentieres(bas - plushaut, mesures));
}

} // namespace velm
