#include "document/peinture.h"

#include <numeric>

namespace velm::passes {

std::vector<std::int32_t> dessus(std::int32_t cellules, const std::vector<Trait>& traits,
                                 const std::function<bool(std::int32_t couleur)>& compte) {
    std::vector<std::int32_t> couleurs(static_cast<std::size_t>(cellules), -1);
    // Next cell at or behind each one that is still bare; paths are shortened as they are walked.
    std::vector<std::int32_t> nue(static_cast<std::size_t>(cellules) + 1);
    std::iota(nue.begin(), nue.end(), 0);
    const auto premierenue = [&nue](std::int32_t i) {
        while (nue[static_cast<std::size_t>(i)] != i) {
            std::int32_t& suivante = nue[static_cast<std::size_t>(i)];
            suivante = nue[static_cast<std::size_t>(suivante)];
            i = suivante;
        }
        return i;
    };
    for (std::size_t k = traits.size(); k-- > 0;) {
        const Trait& trait = traits[k];
        if (!compte(trait.couleur))
            continue;
        for (std::int32_t i = premierenue(trait.debut); i < trait.fin; i = premierenue(i)) {
            couleurs[static_cast<std::size_t>(i)] = trait.couleur;
            nue[static_cast<std::size_t>(i)] = i + 1;
        }
    }
    return couleurs;
}

} // namespace velm::passes
