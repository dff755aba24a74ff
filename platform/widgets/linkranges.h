#pragma once
// Ranges of the text that lead somewhere. They may overlap; each keeps the number under which its owner knows it.
#include <QtGlobal>

#include <vector>

namespace velm {

/// From start up to, but without, end.
struct LinkRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

class LinkRanges {
public:
    struct Entry {
        qsizetype start = 0;
        qsizetype end = 0;
        int index = 0;
        qsizetype furthest = 0; ///< the greatest end up to here
    };

    LinkRanges() = default;
    explicit LinkRanges(const std::vector<LinkRange>& ranges);

    bool isEmpty() const { return entries_.empty(); }
    /// The range of the lowest number that covers the position, or -1.
    int at(qsizetype position) const;
    /// Those that overlap [start, end), by start.
    std::vector<Entry> within(qsizetype start, qsizetype end) const;

private:
    std::vector<Entry> entries_;
};

} // namespace velm
