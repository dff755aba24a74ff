#include "platform/widgets/text/hitranges.h"

#include <algorithm>

namespace velm {

HitRanges::HitRanges(std::vector<HitRange> ranges) : ranges_(std::move(ranges)) {
    std::erase_if(ranges_, [](const HitRange& range) { return range.start < 0 || range.start >= range.end; });
    std::sort(ranges_.begin(), ranges_.end());
    ranges_.erase(std::unique(ranges_.begin(), ranges_.end()), ranges_.end());
    for (const HitRange& range : ranges_)
        longest_ = std::max(longest_, range.end - range.start);
}

int HitRanges::indexOf(const HitRange& range) const {
    const auto found = std::lower_bound(ranges_.begin(), ranges_.end(), range);
    return found == ranges_.end() || *found != range ? -1 : static_cast<int>(found - ranges_.begin());
}

std::span<const HitRange> HitRanges::around(qsizetype start, qsizetype end) const {
    const auto begins = [](const HitRange& range, qsizetype position) { return range.start < position; };
    const auto first = std::lower_bound(ranges_.begin(), ranges_.end(), start - longest_, begins);
    return {first, std::lower_bound(first, ranges_.end(), end, begins)};
}

} // namespace velm
