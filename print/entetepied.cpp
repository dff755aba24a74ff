#include "print/entetepied.h"

#include "platform/text/number.h"

#include <algorithm>

namespace velm {
namespace {

/// What a setting of alignment means; any other number leaves the pen where it is.
enum Cadrage { Gauche = 0, Centre = 1, Droite = 2 };

PrintFont policede(const PoliceImpression& police) {
    return {police.fonte, static_cast<double>(police.taille), police.gras == 1, police.italique == 1};
}

} // namespace

int placesurfeuille(qint64 twips) {
    constexpr qint64 auplus = 1 << 24;
    return static_cast<int>(std::clamp(twips, -auplus, auplus));
}

void EnteteEtPied::dessine(const ReglagesImpression& reglages, const QString& entete, const QString& pied) {
    ++etat_.numeropage;
    // A number is printed with the place of its sign, and measured without it.
    const Bloc numero{numberText(etat_.numeropage), QString::number(etat_.numeropage)};
    const qint64 haut = reglages.margehaute - etat_.decalagey;
    const qint64 bas = imprimante_.sheet().height - reglages.margebasse - etat_.decalagey;
    if (!entete.isEmpty())
        dessinebloc(reglages, reglages.ligneentete, haut, {entete, entete});
    if (reglages.nopageentete != 0)
        dessinebloc(reglages, reglages.lignenopageentete, haut, numero);
    if (!pied.isEmpty())
        dessinebloc(reglages, reglages.lignepied, bas, {pied, pied});
    if (reglages.nopagepied != 0)
        dessinebloc(reglages, reglages.lignenopagepied, bas, numero);
}

void EnteteEtPied::dessinebloc(const ReglagesImpression& reglages, const LigneImpression& ligne, qint64 hauteur,
                               const Bloc& bloc) {
    imprimante_.setFont(policede(ligne.police));
    imprimante_.setY(placesurfeuille(hauteur));
    placebloc(reglages, ligne.cadrage, bloc.mesure);
    imprimante_.print(bloc.imprime);
}

void EnteteEtPied::placebloc(const ReglagesImpression& reglages, int cadrage, const QString& mesure) {
    const qint64 feuille = imprimante_.sheet().width;
    const qint64 gauche = reglages.margegauche - etat_.decalagex;
    switch (cadrage) {
    case Gauche:
        imprimante_.setX(placesurfeuille(gauche));
        break;
    case Centre: {
        const qint64 libre =
            feuille - etat_.decalagex - reglages.margegauche - reglages.margedroite - imprimante_.textWidth(mesure);
        imprimante_.setX(placesurfeuille(roundHalfEven(static_cast<double>(libre) / 2) + gauche));
        break;
    }
    case Droite:
        imprimante_.setX(
            placesurfeuille(feuille - reglages.margedroite - imprimante_.textWidth(mesure) - etat_.decalagex));
        break;
    default:
        break;
    }
}

} // namespace velm
