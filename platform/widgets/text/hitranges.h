#pragma once
// Places of the text that were looked for and found. They may overlap.
#include <QtGlobal>

#include <span>
#include <vector>

namespace velm {

/// From start up to, but without, end.
struct HitRange {
    qsizetype start = 0;
    qsizetype end = 0;

    friend auto operator<=>(const HitRange&, const HitRange&) = default;
};

class HitRanges {
public:
    HitRanges() = default;
    /// In any order; empty ranges and doubles are left out.
    explicit HitRanges(std::vector<HitRange> ranges);

    /// In the order of the text.
    const std::vector<HitRange>& all() const { return ranges_; }
    bool isEmpty() const { return ranges_.empty(); }
    /// Of the very range, or -1.
    int indexOf(const HitRange& range) const;
    /// All that touch [start, end), and maybe some that end before.
    std::span<const HitRange> around(qsizetype start, qsizetype end) const;

private:
    std::vector<HitRange> ranges_;
    qsizetype longest_ = 0;
};

} // namespace velm
