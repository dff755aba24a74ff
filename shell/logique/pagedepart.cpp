#include "shell/logique/pagedepart.h"

#include "core/cle.h"
#include "core/langue.h"
#include "core/nombres.h"

#include <algorithm>

namespace velm {

namespace {

/// Labels begin with the code of their collection: on the start page the picture tells it.
QString sanscode(const QString& libelle, const QString& code) {
    const bool porte = libelle.startsWith(code) && libelle.mid(code.size(), 1) == u'-';
    return porte ? libelle.mid(code.size() + 1) : libelle;
}

} // namespace

PageDepart pagedepart(std::span<const QString> cles, std::span<const QString> libelles, const Libelles& texte) {
    PageDepart page;
    for (int indice = 0; indice < nombredecollections; ++indice)
        page.collections.push_back({indice, texte(libelledefenetre(indice))});
    for (std::size_t rang = 0; rang < std::min(cles.size(), libelles.size()); ++rang) {
        const Cle cle = decoupecle(cles[rang]);
        const QString titre = sanscode(libelles[rang], cle.code).simplified();
        if (!cle.vide() && !titre.isEmpty())
            page.derniers.push_back({static_cast<int>(rang), cle.indice(), titre});
    }
    return page;
}

QString bilandepart(const QString& cherche, qint64 montres, std::optional<qint64> entout, const Libelles& texte) {
    const QString ecrits = nombreecrit(montres, texte);
    if (montres == 0)
        return remplace(texte(Texte::BureauRienTrouve), {cherche});
    if (entout && *entout > montres)
        return remplace(texte(Texte::BilanPremiersSur), {ecrits, nombreecrit(*entout, texte)});
    if (montres == 1)
        return texte(Texte::BilanUnDocument);
    return remplace(texte(entout ? Texte::BilanDocuments : Texte::BureauPremiers), {ecrits});
}

} // namespace velm
