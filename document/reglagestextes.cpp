#include "document/reglagestextes.h"

#include "core/cle.h"
#include "core/tablereglages.h"
#include "document/listecollection.h"
#include "platform/text/number.h"

#include <algorithm>
#include <array>

namespace velm {
namespace {

/// Stored are the places in these.
constexpr std::array blocs{Bloc::Recherche, Bloc::Arbre, Bloc::Liste};
constexpr std::array arrangements{Arrangement::ACote, Arrangement::Dessus};

template <class Sorte>
bool existe(const Reglages& reglages, const Serie<Sorte>& serie, int indice) {
    return reglages.existe(serie[indice].cle);
}

/// Window settings must never keep a window from opening: any text is read as the number it begins with.
int nombre(const Reglages& reglages, const ReglageLibre& reglage) {
    constexpr double borne = 1'000'000;
    return static_cast<int>(roundHalfEven(std::clamp(reglages.lit(reglage), -borne, borne)));
}

/// Nobody has chosen a place for this window. It fills the frame, unless there are windows that the user has laid
/// beside one another.
int premieretat(const Reglages& reglages) {
    constexpr int normal = 0;
    constexpr int agrandi = 2;
    for (int indice = 0; indice < nombredecollections; ++indice) {
        const auto& etat = reglage::fenetreetat[indice];
        if (reglages.existe(etat.cle) && nombre(reglages, etat) == normal)
            return normal;
    }
    return agrandi;
}

int rang(const auto& valeurs, auto valeur) {
    return static_cast<int>(std::ranges::find(valeurs, valeur) - valeurs.begin());
}

} // namespace

ReglagesTextes litreglagestextes(const Reglages& reglages, int indice) {
    ReglagesTextes lus;
    const bool placee = reglages.existe(reglage::fenetreetat[indice].cle);
    const int etat = placee ? nombre(reglages, reglage::fenetreetat[indice]) : premieretat(reglages);
    lus.place.etat = etat >= 0 && etat <= 2 ? etat : 0;
    lus.place.gauche = nombre(reglages, reglage::fenetregauche[indice]);
    lus.place.haut = nombre(reglages, reglage::fenetrehaut[indice]);
    lus.place.largeur = std::max(0, nombre(reglages, reglage::fenetrelargeur[indice]));
    lus.place.hauteur = std::max(0, nombre(reglages, reglage::fenetrehauteur[indice]));
    const int bloc = std::clamp(nombre(reglages, reglage::fenetrebloc[indice]), 0, static_cast<int>(blocs.size()) - 1);
    lus.bloc = blocs.at(static_cast<std::size_t>(bloc));
    lus.arrangement = arrangements.at(nombre(reglages, reglage::fenetredisposition[indice]) == 0 ? 0U : 1U);
    lus.posseparateur = std::max(0, nombre(reglages, reglage::fenetreseparateur[indice]));
    Colonnes colonnes(ListeCollection::modele());
    colonnes.prend(reglages.lit(reglage::fenetrecolonnes[indice]), reglages.lit(reglage::fenetrelargeurs[indice]));
    lus.listeordre = colonnes.ordre();
    lus.listelargeurs = colonnes.largeurs();
    return lus;
}

bool jamaisouverte(const Reglages& reglages, int indice) {
    const auto rien = [&](const auto&... series) { return (!existe(reglages, series, indice) && ...); };
    return rien(reglage::fenetreetat, reglage::fenetregauche, reglage::fenetrehaut, reglage::fenetrelargeur,
                reglage::fenetrehauteur, reglage::fenetrebloc, reglage::fenetredisposition, reglage::fenetreseparateur,
                reglage::fenetrecolonnes, reglage::fenetrelargeurs);
}

void ecritreglagestextes(Reglages& reglages, int indice, const ReglagesTextes& valeurs) {
    ReglagesStore::Batch lot(reglages.magasin());
    reglages.ecrit(reglage::fenetreetat[indice], valeurs.place.etat);
    if (valeurs.place.etat == 0) {
        reglages.ecrit(reglage::fenetregauche[indice], valeurs.place.gauche);
        reglages.ecrit(reglage::fenetrehaut[indice], valeurs.place.haut);
        reglages.ecrit(reglage::fenetrelargeur[indice], valeurs.place.largeur);
        reglages.ecrit(reglage::fenetrehauteur[indice], valeurs.place.hauteur);
    }
    reglages.ecrit(reglage::fenetreseparateur[indice], valeurs.posseparateur);
    reglages.ecrit(reglage::fenetredisposition[indice], rang(arrangements, valeurs.arrangement));
    reglages.ecrit(reglage::fenetrebloc[indice], rang(blocs, valeurs.bloc));
    reglages.ecrit(reglage::fenetrecolonnes[indice], valeurs.listeordre);
    reglages.ecrit(reglage::fenetrelargeurs[indice], valeurs.listelargeurs);
    if (!lot.commit())
        reglages.signaleechec();
}

} // namespace velm
