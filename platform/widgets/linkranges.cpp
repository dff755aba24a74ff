#include "platform/widgets/linkranges.h"

#include <algorithm>

namespace velm {

LinkRanges::LinkRanges(const std::vector<LinkRange>& ranges) {
    entries_.reserve(ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        if (ranges[i].start >= 0 && ranges[i].start < ranges[i].end) {
            entries_.push_back({ranges[i].start, ranges[i].end, static_cast<int>(i), 0});
        }
    }
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const Entry& a, const Entry& b) { return a.start < b.start; });
    qsizetype furthest = 0;
    for (Entry& entry : entries_) {
        furthest = std::max(furthest, entry.end);
        entry.furthest = furthest;
    }
}

std::vector<LinkRanges::Entry> LinkRanges::within(qsizetype start, qsizetype end) const {
    std::vector<Entry> found;
    auto entry = std::lower_bound(entries_.begin(), entries_.end(), end,
                                  [](const Entry& e, qsizetype position) { return e.start < position; });
    while (entry != entries_.begin()) {
        --entry;
        if (entry->furthest <= start) {
            break;
        }
        if (entry->end > start) {
            found.push_back(*entry);
        }
    }
    std::reverse(found.begin(), found.end());
    return found;
}

int LinkRanges::at(qsizetype position) const {
    int best = -1;
    for (const Entry& entry : within(position, position + 1)) {
        if (best < 0 || entry.index < best) {
            best = entry.index;
        }
    }
    return best;
}

} // namespace velm
