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

int linkBeside(const std::vector<LinkRange>& links, qsizetype from, bool next, qsizetype length) {
    int found = -1;
    const auto startOf = [&links](int link) { return links[static_cast<std::size_t>(link)].start; };
    for (int link = 0; link < static_cast<int>(links.size()); ++link) {
        const LinkRange& range = links[static_cast<std::size_t>(link)];
        const bool beyond = next ? range.start >= from : range.start < from;
        const bool nearer = found < 0 || (next ? range.start < startOf(found) : range.start > startOf(found));
        if (range.start < range.end && range.end <= length && beyond && nearer)
            found = link;
    }
    return found;
}

int LinkRanges::at(qsizetype position) const {
    const auto found = within(position, position + 1);
    return found.empty() ? -1 : found.front().index;
}

} // namespace velm
