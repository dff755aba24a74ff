#include "document/sourceliens.h"

#include "core/texte.h"
#include "platform/text/frenchorder.h"

namespace velm {

ModeleColonnes SourceLiens::modele() {
    return {.colonnes = {{Code, 360, {}}, {Titre, 2000, Texte::Titre}, {Clef, 0, {}}}};
}

QString SourceLiens::text(int row, int column) const {
    if (row < 0 || row >= rowCount())
        return {};
    const LigneLien& ligne = lignes_[static_cast<std::size_t>(row)];
    switch (column) {
    case Code:
        return ligne.code;
    case Titre:
        return ligne.titre;
    case Clef:
        return ligne.cle.texte();
    default:
        return {};
    }
}

Cle SourceLiens::cle(int row) const {
    return row >= 0 && row < rowCount() ? lignes_[static_cast<std::size_t>(row)].cle : Cle();
}

bool SourceLiens::sort(int column, bool descending) {
    if (column < Code || column > Clef)
        return false;
    std::vector<LigneLien> rangees;
    rangees.reserve(lignes_.size());
    for (const int row : frenchOrder(
             rowCount(), [&](int rang) { return text(rang, column); }, descending))
        rangees.push_back(lignes_[static_cast<std::size_t>(row)]);
    lignes_ = std::move(rangees);
    return true;
}

} // namespace velm
