#include "collection/inclusions.h"

#include <algorithm>
#include <iterator>

namespace velm {
namespace {

enum class EtatDeLInclusion : quint8 { Neuf, EnCours, Fini };

struct Pas {
    std::size_t document;
    std::size_t prochaine;
};

BoucleDInclusions boucle(const std::vector<Pas>& chemin, std::size_t retour) {
    BoucleDInclusions tour;
    const auto debut =
        std::find_if(chemin.begin(), chemin.end(), [&](const Pas& pas) { return pas.document == retour; });
    std::transform(debut, chemin.end(), std::back_inserter(tour),
                   [](const Pas& pas) { return static_cast<qsizetype>(pas.document); });
    return tour;
}

} // namespace

std::vector<BoucleDInclusions> bouclesdinclusions(const Inclusions& inclusions) {
    std::vector<BoucleDInclusions> boucles;
    std::vector<EtatDeLInclusion> etats(inclusions.size(), EtatDeLInclusion::Neuf);
    std::vector<Pas> chemin;
    for (std::size_t depart = 0; depart < inclusions.size(); ++depart) {
        if (etats[depart] != EtatDeLInclusion::Neuf || inclusions[depart].empty())
            continue;
        chemin.assign(1, {depart, 0});
        etats[depart] = EtatDeLInclusion::EnCours;
        while (!chemin.empty()) {
            Pas& pas = chemin.back();
            if (pas.prochaine == inclusions[pas.document].size()) {
                etats[pas.document] = EtatDeLInclusion::Fini;
                chemin.pop_back();
                continue;
            }
            const qsizetype cible = inclusions[pas.document][pas.prochaine++];
            if (cible < 0)
                continue;
            const auto c = static_cast<std::size_t>(cible);
            if (etats[c] == EtatDeLInclusion::EnCours) {
                boucles.push_back(boucle(chemin, c));
            } else if (etats[c] == EtatDeLInclusion::Neuf) {
                etats[c] = EtatDeLInclusion::EnCours;
                chemin.push_back({c, 0});
            }
        }
    }
    return boucles;
}

} // namespace velm
