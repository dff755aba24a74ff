#pragma once
// Documents that take one another in, round and round.
#include "collection/document.h"

namespace velm {

/// For each document, from 0, the documents that it takes in; what is no document has a negative number.
using Inclusions = std::vector<std::vector<qsizetype>>;

/// The way of an inclusion that leads back to a document on it: from there to the one that includes it.
using BoucleDInclusions = std::vector<qsizetype>;

/// One for each inclusion that leads back, in the order in which they are met.
std::vector<BoucleDInclusions> bouclesdinclusions(const Inclusions& inclusions);

} // namespace velm
