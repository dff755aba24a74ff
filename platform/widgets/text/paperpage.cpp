#include "platform/widgets/text/paperpage.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/text/showntext.h"

#include <algorithm>

namespace velm {

namespace {

constexpr int leastMeasure = 120;        // pixels; a narrower window cuts the text off rather than breaking every word
constexpr double tabRoom = 4.0;          // ems that a table keeps behind its last stop
constexpr std::int32_t tableRoom = 9000; // twips: tables are set for the width of a printed page's text
constexpr int smallestPageType = 22;  // half points: a document of small tables or of large titles keeps the page that
constexpr int largestPageType = 32;   // running text would have
constexpr int tabMeasureLimit = 1100; // pixels at 96 dots to the inch, beyond which a table does not widen the sheet

double pageEm(const ShownText* shown, int dpi) {
    const int halfPoints = shown != nullptr ? shown->mainFormat().size : smallestPageType;
    return std::clamp(halfPoints, smallestPageType, largestPageType) / 144.0 * dpi;
}

/// The width that tables on tab stops need; 0 when there are none.
int tableWidth(const ShownText* shown, int dpi, double em) {
    const auto pixels = [dpi](std::int32_t twips) { return twips * dpi / 1440.0; };
    const std::int32_t widest = shown != nullptr ? shown->widestTable() : 0;
    const double limit = tabMeasureLimit * dpi / 96.0;
    const double needed = std::max(pixels(tableRoom), pixels(widest) + tabRoom * em);
    return widest > 0 ? static_cast<int>(std::min(limit, needed)) : 0;
}

} // namespace

PaperPage paperPage(int width, const ShownText* shown, int dpi) {
    PaperPage page;
    page.width = std::max(1, width);
    const double em = pageEm(shown, dpi);
    // A narrow window is for the text: the margin gives way before the measure does.
    constexpr int parts = 12;
    page.margin = std::min(qRound(look::sheetMargin * em), std::max(look::spacing, page.width / parts));
    // Running French text in a book face takes about 0.43 em for a character.
    const int longest = std::max(qRound(look::measureCharacters * 0.43 * em), tableWidth(shown, dpi, em));
    page.measure = std::clamp(page.width - 2 * page.margin, leastMeasure, std::max(leastMeasure, longest));
    page.sheetWidth = page.measure + 2 * page.margin;
    page.sheetLeft = std::max(0, (page.width - page.sheetWidth) / 2);
    page.textLeft = page.sheetLeft + page.margin;
    return page;
}

} // namespace velm
