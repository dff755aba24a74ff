#include "core/colonnes.h"

#include "core/reglages.h"
#include "core/texte.h"
#include "platform/text/number.h"

#include <algorithm>

namespace velm {

namespace {

constexpr qsizetype chiffresparlargeur = 6;

/// The digit of an order at a place; -1 where there is none.
int chiffre(QStringView ordre, int place) {
    if (place >= ordre.size() || ordre[place] < u'0' || ordre[place] > u'9')
        return -1;
    return ordre[place].unicode() - u'0';
}

} // namespace

Colonnes::Colonnes(ModeleColonnes modele, const Libelles& texte) : modele_(std::move(modele)) {
    for (const ModeleColonne& colonne : modele_.colonnes) {
        titres_ << (texte && colonne.titre ? texte(*colonne.titre) : QString());
        etats_.push_back({etats_.size(), colonne.largeur});
        visibles_ += colonne.largeur > 0 ? 1 : 0;
    }
}

// ---- of a column

int Colonnes::champ(int place) const {
    return la(place) ? colonne(place).champ : -1;
}

int Colonnes::largeur(int place) const {
    return la(place) ? etats_[static_cast<std::size_t>(place)].largeur : 0;
}

QString Colonnes::titre(int place) const {
    return la(place) ? titres_.at(static_cast<qsizetype>(etats_[static_cast<std::size_t>(place)].modele)) : QString();
}

int Colonnes::place(int champ) const {
    for (int place = 0; place < nombre(); ++place) {
        if (colonne(place).champ == champ)
            return place;
    }
    return -1;
}

bool Colonnes::usuelle(int place) const {
    return !la(place) || largeur(place) == colonne(place).largeur;
}

bool Colonnes::largeursusuelles() const {
    for (int place = 0; place < nombre(); ++place) {
        if (!usuelle(place))
            return false;
    }
    return true;
}

// ---- changes

void Colonnes::changelargeur(int place, int twips) {
    if (vue(place))
        etats_[static_cast<std::size_t>(place)].largeur = std::max(twips, 0);
}

void Colonnes::deplace(int place, int vers) {
    if (!vue(place) || !vue(vers))
        return;
    const auto a = etats_.begin() + place;
    const auto b = etats_.begin() + vers;
    if (place < vers)
        std::rotate(a, a + 1, b + 1);
    else
        std::rotate(b, a, a + 1);
}

// ---- the texts that are kept

QString Colonnes::ordre() const {
    QString masque;
    for (int place = 0; place < visibles_; ++place)
        masque += QString::number(champ(place));
    return masque + modele_.suite;
}

QString Colonnes::largeurs() const {
    QString masque;
    for (int place = 0; place < visibles_; ++place)
        masque += QString::number(std::min(largeur(place), modele_.plusgrandeecrite))
                      .rightJustified(chiffresparlargeur, u'0');
    return masque;
}

void Colonnes::prend(QStringView ordre, QStringView largeurs) {
    if (estordre(ordre)) {
        for (int place = 0; place < visibles_; ++place)
            deplace(this->place(chiffre(ordre, place)), place);
    }
    for (int place = 0; place < visibles_; ++place)
        prendlargeur(place, val(largeurs.mid(chiffresparlargeur * place, chiffresparlargeur)));
}

bool Colonnes::estordre(QStringView ordre) const {
    if (modele_.suite.isEmpty() && ordre.size() != visibles_)
        return false;
    std::vector<int> lus;
    std::vector<int> voulus;
    for (int place = 0; place < visibles_; ++place) {
        lus.push_back(chiffre(ordre, place));
        voulus.push_back(champ(place));
    }
    return std::ranges::is_permutation(lus, voulus);
}

void Colonnes::prendlargeur(int place, double lue) {
    const double largeur = modele_.plafonne ? std::min<double>(lue, modele_.plusgrande) : lue;
    if (largeur >= modele_.pluspetite && largeur < modele_.plusgrande + 1.0)
        changelargeur(place, static_cast<int>(largeur));
}

// ---- the settings

void litcolonnes(const Reglages& reglages, const ClesColonnes& cles, Colonnes& colonnes) {
    colonnes.prend(reglages.lit(cles.ordre), reglages.lit(cles.largeurs));
}

void ecritcolonnes(Reglages& reglages, const ClesColonnes& cles, const Colonnes& colonnes) {
    Colonnes gardees(colonnes.modele());
    litcolonnes(reglages, cles, gardees);
    if (colonnes.ordre() != reglages.lit(cles.ordre))
        reglages.ecrit(cles.ordre, colonnes.ordre());
    if (colonnes.largeurs() != gardees.largeurs())
        reglages.ecrit(cles.largeurs, colonnes.largeurs());
}

} // namespace velm
