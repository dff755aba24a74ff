#include "document/clic.h"

namespace velm {
namespace {

/// Row of the first link with the position within its limits, or -1.
qsizetype rangdulien(const QStringList& cibles, const ListePositions& debuts, const ListePositions& fins,
                     qsizetype position) {
    for (qsizetype rang = 0; rang < cibles.size(); ++rang) {
        if (debuts.valeur(rang) <= position && fins.valeur(rang) >= position)
            return rang;
    }
    return -1;
}

} // namespace

Clic clicdans(const ListesLiens& listes, qsizetype position) {
    qsizetype rang = rangdulien(listes.Listehyperlien, listes.Listestarthyperlien, listes.Listeendhyperlien, position);
    if (rang >= 0)
        return {Clic::Vers::Document, listes.Listehyperlien.at(rang), listes.ListeValeurHyperLien.value(rang)};
    rang = rangdulien(listes.ListeUrl, listes.ListeStartUrl, listes.ListeEndUrl, position);
    if (rang >= 0)
        return {Clic::Vers::Adresse, listes.ListeUrl.at(rang), {}};
    rang = rangdulien(listes.ListeEmail, listes.ListeStartEmail, listes.ListeEndEmail, position);
    if (rang >= 0)
        return {Clic::Vers::Courrier, listes.ListeEmail.at(rang), {}};
    return {};
}

} // namespace velm
