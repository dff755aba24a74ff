#include "shell/logique/barres.h"

#include "core/tablereglages.h"

namespace velm {

namespace {

struct ReglagesBarre {
    ReglageEntier position;
    ReglageEntier visible;
};

ReglagesBarre reglagesde(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return {reglage::barreecran, reglage::ecranvisible};
    case Barre::Outils:
        return {reglage::barreoutils, reglage::outilsvisibles};
    case Barre::Commande:
        break;
    }
    return {reglage::barrecommande, reglage::commandesvisiblesecrit};
}

bool estplace(int position) {
    return position >= 1 && position < nombredepositions;
}

} // namespace

void EtatBarres::charge(const Preferences& preferences) {
    const auto prend = [this](Barre barre, int position, int visible) {
        if (estplace(position))
            de(barre).position = position;
        de(barre).visible = visible == 1;
    };
    prend(Barre::Commande, preferences.barrecommande, preferences.commandesvisibles);
    prend(Barre::Ecran, preferences.barreecran, preferences.ecranvisible);
    prend(Barre::Outils, preferences.barreoutils, preferences.outilsvisibles);
    etat_ = preferences.barreetat;
}

void EtatBarres::place(Barre barre, int position) {
    if (position != 0 && !estplace(position))
        return;
    Place& ici = de(barre);
    ici.visible = position != 0;
    if (ici.visible)
        ici.position = position;
    const ReglagesBarre reglages = reglagesde(barre);
    reglages_.ecrit(reglages.position, ici.position);
    reglages_.ecrit(reglages.visible, ici.visible ? 1 : 0);
}

void EtatBarres::commuteetat() {
    etat_ = !etat_;
    reglages_.ecrit(reglage::barreetat, etat_);
}

std::optional<FondEcran> fondecran(int numero, qint64 fondcouleur) {
    constexpr std::array<qint64, 5> couleurs{0xC0FFFF, 0xADDBFF, 0xDBF1F7, 0xE1E9EC, 0xFFFFFF};
    if (numero < -1 || numero > 5)
        return std::nullopt;
    if (numero == -1)
        return FondEcran{};
    if (numero == 5)
        return FondEcran{-1, fondcouleur};
    return FondEcran{numero, couleurs[static_cast<std::size_t>(numero)]};
}

} // namespace velm
