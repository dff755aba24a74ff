#pragma once
// A division of a window of a usual size.
#include "document/dispositiontextes.h"

namespace velm::test {

inline constexpr MesuresTextes mesures{480, 420, 75};
inline constexpr int hauteurdegrille = 1200; // what lists need

inline DispositionTextes disposition(Arrangement arrangement, int position, int largeur = 12000, int hauteur = 9000) {
    DispositionTextes d;
    d.arrangement = arrangement;
    d.posseparateur = position;
    d.changetaille(largeur, hauteur, mesures);
    d.partagelistes();
    d.replaceseparateur();
    return d;
}

} // namespace velm::test
