#pragma once
// The tables of the two bases.
#include "platform/engine/schema.h"

namespace velm {

/// Tables of velm2000.dat.
const Schema& corpusSchema();
/// Tables of dossiers.dat.
const Schema& dossiersSchema();

} // namespace velm
