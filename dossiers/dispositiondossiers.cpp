#include "dossiers/dispositiondossiers.h"

#include "platform/base/twips.h"

#include <algorithm>

namespace velm {
namespace {

constexpr int bord = pixelsFromTwips(60);
constexpr int entre = pixelsFromTwips(45); ///< the splitter's own width, over which it reaches a little at both sides
constexpr int bas = pixelsFromTwips(120);
constexpr int autourcolonne = pixelsFromTwips(120);
constexpr int colonneminimum = pixelsFromTwips(1530) - autourcolonne;
constexpr int avantcolonne = pixelsFromTwips(120);
constexpr int prise = 5;
constexpr int moindre = 80; ///< of tree and of list
constexpr int moindrehauteur = 200;

int libre(QSize fenetre, int colonne) {
    return fenetre.width() - 2 * bord - entre - avantcolonne - std::max(colonne, colonneminimum) - autourcolonne;
}

} // namespace

void DispositionDossiers::partage(double part) {
    part_ = std::clamp(part, 0.0, 1.0);
}

void DispositionDossiers::separe(int x, QSize fenetre, const Mesures& mesures) {
    const int largeur = libre(fenetre, mesures.colonne);
    if (largeur > 2 * moindre)
        partage(double(std::clamp(x - bord, moindre, largeur - moindre)) / largeur);
}

DispositionDossiers::Places DispositionDossiers::places(QSize fenetre, const Mesures& mesures,
                                                        int largeurbarrevue) const {
    const int colonne = std::max(mesures.colonne, colonneminimum);
    const int largeur = std::max(libre(fenetre, mesures.colonne), 0);
    const int arbre = int(part_ * largeur + 0.5);
    const int haut = bas + mesures.barre + bord;
    const int milieu = haut + (mesures.ligne == 0 ? 0 : mesures.ligne + bord);
    const int hauteur = std::max(fenetre.height() - milieu - bas, 0);
    Places places;
    places.arbre = {2 * bord, milieu, arbre, hauteur};
    places.liste = {2 * bord + arbre + entre, milieu, largeur - arbre, hauteur};
    places.separateur = {places.arbre.right() + 1 - (prise - entre) / 2, milieu, prise, hauteur};
    places.colonne = {fenetre.width() - colonne - autourcolonne, haut, colonne,
                      std::max(fenetre.height() - haut - bas, 0)};
    const int fin = places.liste.right() + 1;
    places.barrevue = {fin - largeurbarrevue, bas, largeurbarrevue, mesures.barre};
    places.barre = {2 * bord, bas, std::max(fin - largeurbarrevue - 2 * bord, 0), mesures.barre};
    if (mesures.ligne != 0)
        places.ligne = {2 * bord, haut, fin - 2 * bord, mesures.ligne};
    return places;
}

QSize DispositionDossiers::minimum(const Mesures& mesures) {
    const int partage = std::max(3 * moindre + entre, mesures.barres);
    const int largeur = 2 * bord + partage + avantcolonne + std::max(mesures.colonne, colonneminimum) + autourcolonne;
    return {largeur, moindrehauteur + mesures.barre + mesures.ligne};
}

} // namespace velm
