#include "dossiers/lignesdossiers.h"

#include "platform/base/failure.h"
#include "platform/engine/recordset.h"

#include <QHash>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// In the order of their places; those of one parent side by side.
std::vector<LigneDossier> lues(Database& base) {
    QString erreur;
    const auto rangees = base.openQuery(u"SELECT numerodutype, dépendance, typededonnées, nbarticles FROM "
                                        "arborescences ORDER BY dépendance, ordre, numerodutype"_s,
                                        &erreur);
    if (!rangees)
        runtimeError(erreur);
    std::vector<LigneDossier> lignes;
    for (; !rangees->eof(); rangees->moveNext())
        lignes.push_back({rangees->number(0), rangees->number(1), 0, rangees->text(2), rangees->number(3), false});
    return lignes;
}

} // namespace

std::vector<LigneDossier> lignesdesdossiers(Database& base) {
    std::vector<LigneDossier> restent = lues(base);
    QHash<qint64, std::size_t> premiers; // children of each, by the place of the first
    for (std::size_t i = restent.size(); i-- > 0;)
        premiers[restent[i].parent] = i;
    std::vector<LigneDossier> lignes;
    struct Niveau {
        qint64 parent;
        std::size_t suivant;
    };
    std::vector<Niveau> chemin;
    const auto descend = [&](qint64 parent) {
        if (const auto premier = premiers.constFind(parent); premier != premiers.constEnd())
            chemin.push_back({parent, *premier});
    };
    std::vector<bool> vus(restent.size());
    for (descend(0); !chemin.empty();) {
        const std::size_t i = chemin.back().suivant++;
        // What was seen begins a circle.
        if (i == restent.size() || restent[i].parent != chemin.back().parent || vus[i]) {
            chemin.pop_back();
            continue;
        }
        vus[i] = true;
        restent[i].niveau = static_cast<int>(chemin.size()) - 1;
        lignes.push_back(restent[i]);
        descend(restent[i].numero);
    }
    for (std::size_t i = 0; i < restent.size(); ++i) {
        if (!vus[i]) {
            restent[i].perdu = true;
            lignes.push_back(restent[i]);
        }
    }
    return lignes;
}

} // namespace velm
