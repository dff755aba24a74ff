#pragma once
// What stood in the way of a file, in the words of the language file.
#include "core/texte.h"
#include "platform/base/obstacle.h"

#include <QString>

namespace velm {

/// The end of a sentence ("… cannot be opened: "), with its full stop. `mots` are the words of whoever met it, which
/// stand in for a kind that has none of its own.
QString raison(Obstacle obstacle, const QString& mots, const Libelles& texte);

} // namespace velm
