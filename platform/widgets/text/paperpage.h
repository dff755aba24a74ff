#pragma once
// Where sheet and text lie in the width of the window.

namespace velm {

struct PaperPage {
    int width = 0;
    int sheetLeft = 0;
    int sheetWidth = 0;
    int textLeft = 0;
    int measure = 1; ///< width of the text
    int margin = 0;  ///< above and below the text

    friend bool operator==(const PaperPage&, const PaperPage&) = default;
};

} // namespace velm
