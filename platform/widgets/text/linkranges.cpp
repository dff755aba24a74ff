#include "platform/widgets/text/linkranges.h"

#include <algorithm>
#include <set>

namespace velm {

namespace {

struct Edge {
    qsizetype at = 0;
    int index = 0;
    bool opens = false;
};

std::vector<Edge> edgesOf(const std::vector<LinkRange>& ranges) {
    std::vector<Edge> edges;
    edges.reserve(2 * ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        if (ranges[i].start >= 0 && ranges[i].start < ranges[i].end) {
            edges.push_back({ranges[i].start, static_cast<int>(i), true});
            edges.push_back({ranges[i].end, static_cast<int>(i), false});
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.at < b.at; });
    return edges;
}

} // namespace

// From edge to edge the lowest of the open ranges counts.
LinkRanges::LinkRanges(const std::vector<LinkRange>& ranges) {
    std::set<int> open;
    qsizetype from = 0;
    for (const Edge& edge : edgesOf(ranges)) {
        if (!open.empty() && from < edge.at) {
            const int index = *open.begin();
            if (!entries_.empty() && entries_.back().end == from && entries_.back().index == index)
                entries_.back().end = edge.at;
            else
                entries_.push_back({from, edge.at, index});
        }
        from = edge.at;
        if (edge.opens)
            open.insert(edge.index);
        else
            open.erase(edge.index);
    }
}

std::span<const LinkRanges::Entry> LinkRanges::within(qsizetype start, qsizetype end) const {
    const auto first = std::upper_bound(entries_.begin(), entries_.end(), start,
                                        [](qsizetype position, const Entry& e) { return position < e.end; });
    const auto last = std::lower_bound(first, entries_.end(), end,
                                       [](const Entry& e, qsizetype position) { return e.start < position; });
    return {first, last};
}

int LinkRanges::at(qsizetype position) const {
    const auto found = within(position, position + 1);
    return found.empty() ? -1 : found.front().index;
}

} // namespace velm
