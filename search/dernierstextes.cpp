#include "search/dernierstextes.h"

namespace velm {

bool DerniersTextes::retenu(const QString& texte) const {
    return !texte.trimmed().isEmpty() && texte.size() <= pluslong;
}

void DerniersTextes::ajoute(const QString& texte) {
    if (!retenu(texte))
        return;
    textes_.removeAll(texte);
    textes_.prepend(texte);
    if (textes_.size() > plusdetextes)
        textes_.resize(plusdetextes);
}

void DerniersTextes::charge(const Reglages& reglages) {
    textes_.clear();
    for (qsizetype rang = 1; rang <= plusdetextes; ++rang) {
        const QString texte = reglages.lit(serie_[static_cast<int>(rang)]);
        if (retenu(texte) && !textes_.contains(texte))
            textes_ << texte;
    }
}

void DerniersTextes::sauve(Reglages& reglages) const {
    for (qsizetype rang = 1; rang <= textes_.size(); ++rang)
        reglages.ecrit(serie_[static_cast<int>(rang)], textes_.at(rang - 1));
}

} // namespace velm
