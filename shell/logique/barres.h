#pragma once
// Where the frame's three bars and its status bar stand, and the settings that keep it.
#include "core/parametres.h"
#include "core/reglages.h"

#include <array>
#include <optional>

namespace velm {

enum class Barre { Commande, Ecran, Outils };

/// Position numbers of a bar: 0 hidden, 1 top, 2 bottom, 3 left, 4 right.
inline constexpr int nombredepositions = 5;
inline constexpr std::array toutesbarres{Barre::Commande, Barre::Ecran, Barre::Outils};

class EtatBarres {
public:
    /// `reglages` must live longer.
    explicit EtatBarres(Reglages& reglages) : reglages_(reglages) {}

    /// Takes the places of the last run. A stored place outside 1 to 4 is the bar's usual one.
    void charge(const Preferences& preferences);

    /// Moves or hides a bar and saves it at once. Hiding (0) keeps the place; numbers outside 0 to 4 do nothing.
    void place(Barre barre, int position);
    /// The place where a bar stands or would stand, 1 to 4.
    int dernierposition(Barre barre) const { return de(barre).position; }
    bool visible(Barre barre) const { return de(barre).visible; }
    /// 0 for a hidden bar, else its place.
    int position(Barre barre) const { return visible(barre) ? dernierposition(barre) : 0; }

    /// Shows or hides the status bar and saves it at once.
    void commuteetat();
    bool etat() const { return etat_; }

private:
    struct Place {
        int position;
        bool visible = true;
    };
    Place& de(Barre barre) { return places_[static_cast<std::size_t>(barre)]; }
    const Place& de(Barre barre) const { return places_[static_cast<std::size_t>(barre)]; }

    Reglages& reglages_;
    std::array<Place, 3> places_{{{1}, {3}, {4}}};
    bool etat_ = true;
};

/// The ground of the frame behind its windows.
struct FondEcran {
    int image = -1;                ///< picture 0 to 4, or none
    std::optional<qint64> couleur; ///< 0x00BBGGRR; nothing: as it was
};

/// The ground of a number: -1 no picture and the colour unchanged, 0 to 4 a picture on its colour, 5 the user's plain
/// colour. Nothing for any other number: the frame stays as it is.
std::optional<FondEcran> fondecran(int numero, qint64 fondcouleur);

} // namespace velm
