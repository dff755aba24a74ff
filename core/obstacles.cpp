#include "core/obstacles.h"

#include "core/texte.h"

#include <array>

namespace velm {

QString raison(Obstacle obstacle, const QString& mots, const Libelles& texte) {
    // In the order of the kinds, from the first that has words.
    constexpr std::array raisons{Texte::RaisonAbsent,      Texte::RaisonSansDossier,    Texte::RaisonDejaLa,
                                 Texte::RaisonAccesRefuse, Texte::RaisonPasOrdinaire,   Texte::RaisonPasUnDossier,
                                 Texte::RaisonDisquePlein, Texte::RaisonProtege,        Texte::RaisonOccupe,
                                 Texte::RaisonMemoire,     Texte::RaisonErreurDuDisque, Texte::RaisonPasUneBase};
    if (obstacle == Obstacle::None || obstacle == Obstacle::Other)
        return mots.endsWith(u'.') ? mots : mots + u'.';
    return texte(raisons.at(static_cast<std::size_t>(obstacle) - static_cast<std::size_t>(Obstacle::Missing)));
}

} // namespace velm
