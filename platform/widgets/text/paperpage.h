#pragma once
// Where sheet and text lie in the width of the window.

namespace velm {

class ShownText;

struct PaperPage {
    int width = 0;
    int sheetLeft = 0;
    int sheetWidth = 0;
    int textLeft = 0;
    int measure = 1; ///< width of the text
    int margin = 0;  ///< above and below the text

    friend bool operator==(const PaperPage&, const PaperPage&) = default;
};

/// The page of a text in a window of so many pixels, on a screen of dpi dots to the inch; null for no text.
PaperPage paperPage(int width, const ShownText* shown, int dpi);

} // namespace velm
