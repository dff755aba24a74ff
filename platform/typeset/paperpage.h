#pragma once
// Where sheet and text lie in the width of the window.
#include <algorithm>

namespace velm {

class ShownText;

struct PaperPage {
    int width = 0;
    int sheetLeft = 0;
    int sheetWidth = 0;
    int textLeft = 0;
    int measure = 1;      ///< width of the text
    int tableMeasure = 1; ///< of rows on tab stops: in a narrow window more than is seen at once
    int margin = 0;       ///< above and below the text

    /// As far as there is something to see: more than the window, where a table is wider.
    int extent() const { return std::max(width, textLeft + tableMeasure + margin); }
    bool breaksLinesAs(const PaperPage& other) const {
        return measure == other.measure && tableMeasure == other.tableMeasure && margin == other.margin;
    }

    friend bool operator==(const PaperPage&, const PaperPage&) = default;
};

/// The page of a text in a window of so many pixels, on a screen of dpi dots to the inch; null for no text.
PaperPage paperPage(int width, const ShownText* shown, int dpi);

} // namespace velm
