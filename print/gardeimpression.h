#pragma once
// What becomes of whatever stands in the way of printing.
#include "core/texte.h"
#include "platform/system/dialogues.h"

#include <functional>

namespace velm {

/// Does some printing. Where the printer fails, or a place on the sheet is out of bounds, it ends there without a word,
/// and the job stays as it stood; margins without room between them are told.
void imprimesousgarde(const std::function<void()>& travail, Dialogues& dialogues, const Libelles& texte);

} // namespace velm
