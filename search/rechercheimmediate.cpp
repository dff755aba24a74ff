#include "search/rechercheimmediate.h"

#include "search/rechercherapide.h"
#include "search/typescherches.h"

#include <utility>

namespace velm {

RechercheImmediate::RechercheImmediate(Corpus& corpus, std::function<void()> evenements, Ecoute ecoute,
                                       std::chrono::milliseconds pas)
    : corpus_(corpus), ecoute_(std::move(ecoute)), poste_(std::move(evenements), pas) {}

void RechercheImmediate::cherche(const QString& texte, qint64 limite) {
    poste_.fait([this, texte, limite](const std::stop_token& arret) { fait(texte, limite, arret); });
}

void RechercheImmediate::fait(const QString& texte, qint64 limite, const std::stop_token& arret) {
    Resultat resultat;
    qint64 dits = 0;
    Marche marche(poste_.cession(), arret, [&](const Marche::Etape& etape) {
        if (etape.compte.value_or(0) > std::exchange(dits, etape.compte.value_or(0)))
            ecoute_(resultat, false);
    });
    RechercheRapide(corpus_, marche).cherche({texte, touteslettres(), limite, true}, resultat);
    if (!resultat.arretee())
        ecoute_(resultat, true);
}

} // namespace velm
