#pragma once
// Heights of a column of paragraphs: the top of any, and the one at any height, in logarithmic time.
#include <cstdint>
#include <vector>

namespace velm {

class HeightTree {
public:
    void assign(std::vector<int> heights);
    int count() const { return static_cast<int>(heights_.size()); }
    int height(int index) const { return heights_[static_cast<std::size_t>(index)]; }
    void setHeight(int index, int height);
    /// Sum of the heights before `index`; count() gives the whole.
    std::int64_t top(int index) const;
    std::int64_t total() const { return top(count()); }
    /// The paragraph that covers `y`; the first or last beyond the ends; -1 when there is none.
    int at(std::int64_t y) const;

private:
    std::vector<int> heights_;
    std::vector<std::int64_t> sums_; // a binary indexed tree
};

} // namespace velm
