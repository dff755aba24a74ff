#include "platform/typeset/paperpage.h"

#include "platform/typeset/showntext.h"
#include "platform/typeset/type.h"

#include <algorithm>

namespace velm {

namespace {

constexpr int leastMargin = 8;    // pixels
constexpr int leastMeasure = 120; // pixels; a narrower window cuts the text off rather than breaking every word
// Ems that a table keeps behind its last stop; in a window that is narrower, as many as what stands there needs.
constexpr double tabRoom = 4.0;
constexpr double columnRoom = 10.0;
// Half points. Running text of any size up to the largest common one lies on the same sheet, so that nothing jumps from
// document to document; only large print gets a wider one, within reason.
constexpr double baseType = 2 * type::documentPoints;
constexpr int largestBaseType = 26;
constexpr int largestPageType = 32;
// Running French text in a book face takes about 0.43 em for a character. Those of the base type make 9000 twips, for
// which publishers set their tables: the width of the text on a printed page.
constexpr double characterWidth = 0.435;
constexpr int tabMeasureLimit = 1100; // pixels at 96 dots to the inch, beyond which a table does not widen the sheet

double pageEm(const ShownText* shown, int dpi) {
    const int halfPoints = shown != nullptr ? shown->mainFormat().size : 0;
    const double type = halfPoints > largestBaseType ? std::min(halfPoints, largestPageType) : baseType;
    return type / 144.0 * dpi;
}

/// The width that tables on tab stops need with so much behind the last stop; 0 when there are none.
int tableWidth(const ShownText* shown, int dpi, double room) {
    const auto pixels = [dpi](std::int32_t twips) { return twips * dpi / 1440.0; };
    const std::int32_t widest = shown != nullptr ? shown->widestTable() : 0;
    const double limit = tabMeasureLimit * dpi / 96.0;
    return widest > 0 ? static_cast<int>(std::min(limit, pixels(widest) + room)) : 0;
}

/// In ems; longer cells are of words, and break.
double lastColumn(const ShownText* shown) {
    constexpr double wideCharacter = 0.55;
    return shown != nullptr ? std::min(columnRoom, wideCharacter * shown->longestLastCell()) : 0;
}

} // namespace

PaperPage paperPage(int width, const ShownText* shown, int dpi) {
    PaperPage page;
    page.width = std::max(1, width);
    const double em = pageEm(shown, dpi);
    // A narrow window is for the text: the margin gives way before the measure does.
    constexpr int parts = 12;
    page.margin = std::min(qRound(type::sheetMargin * em), std::max(leastMargin, page.width / parts));
    const int longest =
        std::max(qRound(type::measureCharacters * characterWidth * em), tableWidth(shown, dpi, tabRoom * em));
    page.measure = std::clamp(page.width - 2 * page.margin, leastMeasure, std::max(leastMeasure, longest));
    page.tableMeasure = std::max(page.measure, std::min(longest, tableWidth(shown, dpi, lastColumn(shown) * em)));
    page.sheetWidth = page.measure + 2 * page.margin;
    page.sheetLeft = std::max(0, (page.width - page.sheetWidth) / 2);
    page.textLeft = page.sheetLeft + page.margin;
    return page;
}

} // namespace velm
