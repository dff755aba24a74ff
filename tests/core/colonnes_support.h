#pragma once
// The columns of two lists, and short names for what is seen of them.
#include "core/colonnes.h"

#include <vector>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

inline ModeleColonnes trouves() {
    return {.colonnes = {{0, 3000, Texte::Titre},
                         {1, 2000, Texte::ColonneMotCle1},
                         {2, 2000, Texte::ColonneMotCle2},
                         {3, 2000, Texte::ColonneMotCle3},
                         {5, 500, {}},
                         {4, 1000, Texte::ColonneReference},
                         {6, 0, {}}}};
}

inline ModeleColonnes collection() {
    return {.colonnes = {{0, 2000, Texte::Titre},
                         {1, 2000, Texte::ColonneMotCle1},
                         {2, 2000, Texte::ColonneMotCle2},
                         {3, 2000, Texte::ColonneMotCle3},
                         {4, 0, Texte::ColonneReference}},
            .pluspetite = 1,
            .plusgrande = 30'000,
            .plafonne = true,
            .plusgrandeecrite = 999'999,
            .suite = u"4"_s};
}

inline QString texte(Texte lequel) {
    return u"t%1"_s.arg(static_cast<int>(lequel));
}

inline std::vector<int> champs(const Colonnes& colonnes) {
    std::vector<int> tous;
    for (int place = 0; place < colonnes.nombre(); ++place)
        tous.push_back(colonnes.champ(place));
    return tous;
}

inline std::vector<int> largeurs(const Colonnes& colonnes) {
    std::vector<int> toutes;
    for (int place = 0; place < colonnes.nombre(); ++place)
        toutes.push_back(colonnes.largeur(place));
    return toutes;
}

} // namespace velm::test
