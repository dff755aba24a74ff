#pragma once
// What a change makes of a format.
#include "platform/richtext/format.h"

#include <cstdint>
#include <vector>

namespace velm {

/// A paragraph has no more tab stops.
inline constexpr int mostTabs = 32;

/// Ascending, each once, none at or before the start, and no more than there may be.
std::vector<std::int32_t> orderedTabs(std::vector<std::int32_t> tabs);

/// Takes over the values that the change names.
void apply(const CharChange& change, CharFormat& format);
void apply(const ParaChange& change, ParaFormat& format);

} // namespace velm
