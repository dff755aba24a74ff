#pragma once
// The question that a search by words asks before it shows very many documents.
#include "core/texte.h"
#include "platform/system/dialogues.h"
#include "platform/system/sablier.h"

#include <optional>

namespace velm {

/// How many of `nombre` documents are to be shown; nothing when the user gives the search up. The pointer is an
/// ordinary one meanwhile and the hourglass behind it.
std::optional<qint64> demandelimite(qint64 nombre, Dialogues& dialogues, Sablier& sablier, const Libelles& texte);

} // namespace velm
