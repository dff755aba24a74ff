#include "search/listeindex.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString tabledesdocuments = u" FROM données"_s;

std::vector<ColonneCorpus> colonnesdelindex() {
    std::vector<ColonneCorpus> colonnes;
    for (const ModeleColonne& une : ListeIndex::modele().colonnes)
        colonnes.push_back({.champ = ListeIndex::champ(une.champ)});
    return colonnes;
}

} // namespace

QString ListeIndex::champ(int chiffre) {
    switch (chiffre) {
    case 0:
        return u"titre"_s;
    case 1:
        return u"motclé1"_s;
    case 2:
        return u"motclé2"_s;
    case 3:
        return u"motclé3"_s;
    case 4:
    case 7:
        return u"numart"_s;
    case 5:
    case 6:
        return u"référence"_s;
    default:
        return {};
    }
}

ModeleColonnes ListeIndex::modele() {
    return {.colonnes = {{5, 500, {}},
                         {4, 1000, Texte::ColonneReference},
                         {0, 3000, Texte::Titre, 4},
                         {1, 2000, Texte::ColonneMotCle1, 1},
                         {2, 2000, Texte::ColonneMotCle2, 1},
                         {3, 2000, Texte::ColonneMotCle3, 1},
                         {6, 0, {}},
                         {7, 0, {}}}};
}

ListeIndex::ListeIndex(Corpus& corpus, const QString& source)
    : ListeCorpus(corpus, colonnesdelindex(), source, u" ORDER BY référence, numart"_s, 0) {}

RequeteIndex::Suite RequeteIndex::reselect(const TypesChoisis& types) {
    // From nothing each time, so that it does not grow.
    champs_.clear();
    for (const ModeleColonne& une : ListeIndex::modele().colonnes)
        champs_ += (champs_.isEmpty() ? QString() : u","_s) + ListeIndex::champ(une.champ);
    const QString codeschoisis = types.codes();
    if (codeschoisis == codestypes) {
        source_ = tabledesdocuments;
    } else if (codeschoisis.isEmpty()) {
        return Suite::Cachee;
    } else if (codeschoisis == derniercodes_) {
        return Suite::Inchangee;
    } else {
        source_ = tabledesdocuments + u" WHERE référence in (\""_s + types.liste().join(u"\",\""_s) + u"\")"_s;
    }
    derniercodes_ = codeschoisis;
    return Suite::Nouvelle;
}

} // namespace velm
