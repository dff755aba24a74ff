#include "search/barresannees.h"

#include <algorithm>

namespace velm {

namespace {

/// One for each year, those without documents too.
std::vector<BarreAnnees> uneparannee(const std::vector<AnneeChrono>& annees) {
    const int premiere = annees.front().annee;
    std::vector<BarreAnnees> barres;
    for (int annee = premiere; annee <= annees.back().annee; ++annee)
        barres.push_back({annee, annee, 0});
    for (const AnneeChrono& une : annees)
        barres[static_cast<std::size_t>(une.annee - premiere)].nombre += une.nombre;
    return barres;
}

} // namespace

std::vector<BarreAnnees> barresdesannees(const std::vector<AnneeChrono>& annees, int places) {
    if (annees.empty() || places < 1)
        return {};
    if (annees.back().annee - annees.front().annee < places)
        return uneparannee(annees);
    const auto nombre = static_cast<int>(annees.size());
    const int parbarre = (nombre + places - 1) / places;
    std::vector<BarreAnnees> barres;
    for (int ici = 0; ici < nombre; ++ici) {
        const AnneeChrono& une = annees[static_cast<std::size_t>(ici)];
        if (ici % parbarre == 0)
            barres.push_back({une.annee, une.annee, 0});
        barres.back().derniere = une.annee;
        barres.back().nombre += une.nombre;
    }
    return barres;
}

} // namespace velm
