#include "document/reglagestextes.h"

#include "document/listecollection.h"
#include "platform/text/number.h"

#include <algorithm>
#include <array>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString section = u"POSITIONFORME"_s;

/// Stored are the places in these.
constexpr std::array blocs{Bloc::Recherche, Bloc::Arbre, Bloc::Liste};
constexpr std::array arrangements{Arrangement::ACote, Arrangement::Dessus};

/// Window settings must never keep a window from opening: any text is read as the number it begins with.
int nombre(const Reglages& reglages, const QString& nom, int indice, int defaut) {
    constexpr double borne = 1'000'000;
    const QString texte = reglages.getsetting(section, nom + QString::number(indice), QString::number(defaut));
    return static_cast<int>(roundHalfEven(std::clamp(val(texte), -borne, borne)));
}

QString rang(const auto& valeurs, auto valeur) {
    return QString::number(std::ranges::find(valeurs, valeur) - valeurs.begin());
}

QString texte(const Reglages& reglages, const QString& nom, int indice) {
    return reglages.getsetting(section, nom + QString::number(indice));
}

} // namespace

ReglagesTextes litreglagestextes(const Reglages& reglages, int indice) {
    ReglagesTextes lus;
    const int etat = nombre(reglages, u"WINDOWSSTATE"_s, indice, 0);
    lus.place.etat = etat >= 0 && etat <= 2 ? etat : 0;
    lus.place.gauche = nombre(reglages, u"WINDOWSLEFT"_s, indice, 0);
    lus.place.haut = nombre(reglages, u"WINDOWSTOP"_s, indice, 0);
    lus.place.largeur = std::max(0, nombre(reglages, u"WINDOWSWIDTH"_s, indice, 0));
    lus.place.hauteur = std::max(0, nombre(reglages, u"WINDOWSHEIGHT"_s, indice, lus.place.hauteur));
    const int bloc = std::clamp(nombre(reglages, u"WINDOWSARBRE"_s, indice, 0), 0, static_cast<int>(blocs.size()) - 1);
    lus.bloc = blocs.at(static_cast<std::size_t>(bloc));
    lus.arrangement = arrangements.at(nombre(reglages, u"WINDOWSSEPARVH"_s, indice, 1) == 0 ? 0U : 1U);
    lus.posseparateur = std::max(0, nombre(reglages, u"WINDOWSSEPAR"_s, indice, lus.posseparateur));
    Colonnes colonnes(ListeCollection::modele());
    colonnes.prend(texte(reglages, u"ORDRECOLONNE"_s, indice), texte(reglages, u"LARGEURCOLONNE"_s, indice));
    lus.listeordre = colonnes.ordre();
    lus.listelargeurs = colonnes.largeurs();
    return lus;
}

void ecritreglagestextes(Reglages& reglages, int indice, const ReglagesTextes& valeurs) {
    ReglagesStore::Batch lot(reglages.magasin());
    const auto ecrit = [&](const QString& nom, const QString& valeur) {
        reglages.savesetting(section, nom + QString::number(indice), valeur);
    };
    ecrit(u"WINDOWSSTATE"_s, QString::number(valeurs.place.etat));
    if (valeurs.place.etat == 0) {
        ecrit(u"WINDOWSLEFT"_s, QString::number(valeurs.place.gauche));
        ecrit(u"WINDOWSTOP"_s, QString::number(valeurs.place.haut));
        ecrit(u"WINDOWSWIDTH"_s, QString::number(valeurs.place.largeur));
        ecrit(u"WINDOWSHEIGHT"_s, QString::number(valeurs.place.hauteur));
    }
    ecrit(u"WINDOWSSEPAR"_s, QString::number(valeurs.posseparateur));
    ecrit(u"WINDOWSSEPARVH"_s, rang(arrangements, valeurs.arrangement));
    ecrit(u"WINDOWSARBRE"_s, rang(blocs, valeurs.bloc));
    ecrit(u"ORDRECOLONNE"_s, valeurs.listeordre);
    ecrit(u"LARGEURCOLONNE"_s, valeurs.listelargeurs);
    if (!lot.commit())
        reglages.signaleechec();
}

} // namespace velm
