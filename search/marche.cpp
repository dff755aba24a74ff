#include "search/marche.h"

#include <algorithm>

namespace velm {

Marche::Marche(Cession& cession, std::stop_token arret, Ecoute ecoute)
    : cession_(&cession), arret_(std::move(arret)), ecoute_(std::move(ecoute)) {
    cession_->commence();
}

void Marche::commence(qint64 total) {
    total_ = total;
    if (ecoute_)
        ecoute_({0, total_, std::nullopt});
}

void Marche::dit(const Resultat& resultat) const {
    if (ecoute_)
        ecoute_({std::min(resultat.vus, total_), total_, resultat.compte});
}

bool Marche::suit(Resultat& resultat) const {
    if (arret_.stop_requested())
        resultat.issue = Resultat::Issue::Arretee;
    return !resultat.arretee();
}

bool Marche::continuer(Resultat& resultat) {
    if (due()) {
        dit(resultat);
        cession_->cede(arret_);
    }
    return suit(resultat);
}

bool Marche::continuer(Resultat& resultat, Recordset& table) {
    if (due()) {
        dit(resultat);
        cession_->cede(table, arret_);
    }
    return suit(resultat);
}

} // namespace velm
