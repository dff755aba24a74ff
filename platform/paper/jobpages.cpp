#include "platform/paper/jobpages.h"

#include <algorithm>

namespace velm {

std::uint16_t JobPages::style(const JobStyle& style) {
    const auto known = std::ranges::find(styles, style);
    const auto number = static_cast<std::uint16_t>(known - styles.begin());
    if (known == styles.end())
        styles.push_back(style);
    return number;
}

} // namespace velm
