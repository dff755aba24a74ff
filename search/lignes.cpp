#include "search/lignes.h"

#include <new>

namespace velm {

QString Lignes::champ(int rang, Champ champ) const {
    return vue(rang, champ).toString();
}

QStringView Lignes::vue(int rang, Champ champ) const {
    if (rang < 1 || rang > nombre() || champ < Titre || champ > Clef)
        return {};
    const Ligne& ligne = lignes_[ordre_[static_cast<std::size_t>(rang) - 1]];
    const auto numero = static_cast<std::size_t>(champ);
    const std::size_t debut = numero == 0 ? 0 : ligne.fins[numero - 1];
    return {textes_.data() + ligne.debut + debut, static_cast<qsizetype>(ligne.fins[numero] - debut)};
}

void Lignes::vide() {
    textes_.clear();
    lignes_.clear();
    ordre_.clear();
}

bool Lignes::ajoute(const FicheDocument& fiche) {
    if (nombre() >= capacite_)
        return false;
    const std::size_t avant = textes_.size();
    const std::size_t lignesavant = lignes_.size();
    try {
        Ligne neuve{avant, {}};
        std::size_t rang = 0;
        // In the order of Champ.
        for (const QStringView champ :
             {fiche.titre, fiche.motcle1, fiche.motcle2, fiche.motcle3, fiche.numart, fiche.reference, fiche.cle}) {
            textes_.insert(textes_.end(), champ.utf16(), champ.utf16() + champ.size());
            neuve.fins[rang++] = static_cast<quint32>(textes_.size() - avant);
        }
        lignes_.push_back(neuve);
        ordre_.push_back(static_cast<quint32>(lignes_.size() - 1));
    } catch (const std::bad_alloc&) {
        textes_.resize(avant);
        lignes_.resize(lignesavant);
        return false;
    }
    return true;
}

void Lignes::supprime(const std::vector<int>& rangs) {
    auto vers = ordre_.begin();
    auto retire = rangs.begin();
    for (int rang = 1; rang <= nombre(); ++rang) {
        if (retire != rangs.end() && *retire == rang)
            ++retire;
        else
            *vers++ = ordre_[static_cast<std::size_t>(rang) - 1];
    }
    ordre_.erase(vers, ordre_.end());
    if (ordre_.empty())
        vide();
}

void Lignes::supprime(int premier, int dernier) {
    if (premier == 1 && dernier == nombre())
        return vide();
    ordre_.erase(ordre_.begin() + premier - 1, ordre_.begin() + dernier);
}

void Lignes::range(const std::vector<int>& places) {
    std::vector<quint32> ordre;
    ordre.reserve(places.size());
    for (const int place : places)
        ordre.push_back(ordre_[static_cast<std::size_t>(place)]);
    ordre_ = std::move(ordre);
}

} // namespace velm
