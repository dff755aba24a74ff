#include "outil/atelier.h"

#include "core/texte.h"
#include "platform/system/files.h"

#include <algorithm>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

QString chemindossiers(const Contexte& contexte) {
    const QString chemin = contexte.valeur(u"--dossiers"_s);
    return chemin.isEmpty() ? joinPath(contexte.dossierprogramme(), Magasin::nomfichier) : chemin;
}

int echouemagasin(Contexte& contexte, Texte lequel, const EchecEcriture& echec) {
    const QString chemin = chemindossiers(contexte);
    if (echec.obstacle == Obstacle::Damaged)
        return contexte.echoue(Echec, Texte::MagasinEndommage, {chemin});
    return contexte.echouefichier(lequel, chemin, echec.obstacle, echec.mots);
}

Atelier::Atelier(Contexte& contexte)
    : arbre(magasin, noeuds, sablier_, contexte.texte(Texte::MesDossiers)),
      contenu(magasin, elements, contexte.texte(Texte::MotExtrait)) {
    magasin.ouvremagasin(chemindossiers(contexte));
}

std::optional<LigneDossier> dossiernumero(Database& base, qint64 numero) {
    const std::vector<LigneDossier> lignes = lignesdesdossiers(base);
    const auto ligne = std::ranges::find(lignes, numero, &LigneDossier::numero);
    return ligne == lignes.end() ? std::nullopt : std::optional(*ligne);
}

} // namespace velm::outil
