#include "platform/widgets/text/heighttree.h"

#include <algorithm>
#include <bit>

namespace velm {

void HeightTree::assign(std::vector<int> heights) {
    heights_ = std::move(heights);
    const std::size_t n = heights_.size();
    sums_.assign(n + 1, 0);
    for (std::size_t i = 1; i <= n; ++i) {
        sums_[i] += heights_[i - 1];
        const std::size_t parent = i + (i & (~i + 1));
        if (parent <= n)
            sums_[parent] += sums_[i];
    }
}

void HeightTree::setHeight(int index, int height) {
    const auto at = static_cast<std::size_t>(index);
    const std::int64_t change = std::int64_t{height} - heights_[at];
    heights_[at] = height;
    for (std::size_t i = at + 1; i < sums_.size(); i += i & (~i + 1))
        sums_[i] += change;
}

std::int64_t HeightTree::top(int index) const {
    std::int64_t sum = 0;
    for (auto i = static_cast<std::size_t>(index); i > 0; i -= i & (~i + 1))
        sum += sums_[i];
    return sum;
}

int HeightTree::at(std::int64_t y) const {
    if (heights_.empty())
        return -1;
    std::size_t before = 0; // paragraphs that end at or above y
    for (std::size_t step = std::bit_floor(heights_.size()); step > 0; step /= 2) {
        if (before + step < sums_.size() && sums_[before + step] <= y) {
            before += step;
            y -= sums_[before];
        }
    }
    return static_cast<int>(std::min(before, heights_.size() - 1));
}

} // namespace velm
