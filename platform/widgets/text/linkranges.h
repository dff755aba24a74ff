#pragma once
// Ranges of the text that lead somewhere. Where they overlap the first of the owner's list counts; each keeps the
// number under which its owner knows it.
#include <QtGlobal>

#include <span>
#include <vector>

namespace velm {

/// From start up to, but without, end.
struct LinkRange {
    qsizetype start = 0;
    qsizetype end = 0;
};

class LinkRanges {
public:
    /// A stretch that leads to one place.
    struct Entry {
        qsizetype start = 0;
        qsizetype end = 0;
        int index = 0;
    };

    LinkRanges() = default;
    explicit LinkRanges(const std::vector<LinkRange>& ranges);

    bool isEmpty() const { return entries_.empty(); }
    /// The range of the lowest number that covers the position, or -1.
    int at(qsizetype position) const;
    /// The stretches that touch [start, end), in the order of the text; they do not overlap.
    std::span<const Entry> within(qsizetype start, qsizetype end) const;

private:
    std::vector<Entry> entries_; // in the order of the text
};

/// Of links in any order the nearest one that begins at or behind `from`, or the nearest one before it; -1 for none.
/// Only those that lie in a text of `length` and hold something.
int linkBeside(const std::vector<LinkRange>& links, qsizetype from, bool next, qsizetype length);

} // namespace velm
