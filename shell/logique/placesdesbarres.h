#pragma once
// Which commands stand on which bar, in what order.
#include "core/ordre.h"
#include "shell/logique/barres.h"

#include <QStringView>

#include <optional>
#include <span>

namespace velm {

/// What stands on a bar: a command with all its ranks, or a separator of that name.
struct PlaceDeBarre {
    std::optional<Ordre> ordre;
    QStringView separateur = {};
};

std::span<const PlaceDeBarre> placesde(Barre barre);
/// Of the bar over the selection list.
std::span<const PlaceDeBarre> placesdelaliste();
/// The entries at the side of a button, from the first on; none for most.
std::span<const Ordre> entreesdubouton(Ordre ordre);
/// The command that puts a bar somewhere; its rank is the position.
Ordre ordredeplace(Barre barre);

} // namespace velm
