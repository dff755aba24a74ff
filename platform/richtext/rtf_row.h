#pragma once
// A row of a table, as far as text with tabs can show it: each cell ends in a tab, the row in a paragraph end.
#include <algorithm>
#include <array>

namespace velm::rtf {

class Row {
public:
    static constexpr int mostTabs = 32;   ///< stops that are remembered
    static constexpr int mostFilled = 32; ///< cells up to which missing ones are filled up

    /// \trowd: the definitions begin anew; cells already read stay.
    void define() {
        defined_ = 0;
        left = 0;
        gap = 0;
        open_ = true;
    }
    void addEdge(int twips) {
        if (defined_ < mostTabs)
            edges_[static_cast<std::size_t>(defined_)] = twips;
        ++defined_;
    }
    void enter() { open_ = true; }
    /// Counts a cell; false when the row has no such cell.
    bool endCell() {
        open_ = true;
        ++cells_;
        return defined_ == 0 || cells_ <= defined_;
    }
    /// Ends the row; returns how many cells are missing.
    int end() {
        const int missing = open_ ? std::min(defined_, mostFilled) - cells_ : 0;
        leave();
        return std::max(missing, 0);
    }
    void leave() {
        cells_ = 0;
        open_ = false;
    }
    /// Paragraph ends become blanks while this holds and the paragraph belongs to a table.
    bool holdsText() const { return open_ && defined_ > 0; }

    int stops() const { return std::min(defined_, mostTabs); }
    int edge(int index) const { return edges_[static_cast<std::size_t>(index)]; }

    int left = 0; ///< twips
    int gap = 0;  ///< half the space between two cells

private:
    std::array<int, mostTabs> edges_{};
    int defined_ = 0;
    int cells_ = 0;
    bool open_ = false;
};

} // namespace velm::rtf
