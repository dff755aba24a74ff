#include "platform/typeset/paperpage.h"
#include "platform/typeset/showntext.h"
#include "platform/widgets/look/look.h"

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int dpi = 96;

/// A text of one type, set on these tab stops.
ShownText text(int halfPoints, const std::vector<int>& tabs = {}) {
    CharFormat type;
    type.size = halfPoints;
    ParaFormat format;
    format.tabs = tabs;
    RichText rich;
    rich.append(u"colonne\tcolonne\tcolonne\r\n"_s, rich.intern(type), rich.intern(format));
    return ShownText(rich);
}

} // namespace

TEST(PaperPage, TheSheetStandsInTheMiddleOfAWideWindow) {
    const PaperPage page = paperPage(1601, nullptr, dpi);
    EXPECT_EQ(page.width, 1601);
    EXPECT_LT(page.sheetWidth, 1601);
    EXPECT_EQ(page.sheetLeft, (1601 - page.sheetWidth) / 2);
    EXPECT_EQ(page.textLeft, page.sheetLeft + page.margin);
    EXPECT_EQ(page.sheetWidth, page.measure + 2 * page.margin);
}

TEST(PaperPage, InANarrowWindowTheMarginGivesWayAndThenTheTextIsCutOff) {
    const PaperPage wide = paperPage(1600, nullptr, dpi);
    const PaperPage narrow = paperPage(360, nullptr, dpi);
    EXPECT_LT(narrow.margin, wide.margin);
    EXPECT_EQ(narrow.sheetLeft, 0);
    EXPECT_EQ(narrow.sheetWidth, 360);
    const PaperPage least = paperPage(40, nullptr, dpi);
    EXPECT_EQ(least.measure, 120);
    EXPECT_EQ(least.margin, look::spacing);
    EXPECT_EQ(paperPage(-5, nullptr, dpi).width, 1);
}

TEST(PaperPage, RunningTextOfEverySizeLiesOnTheSameSheet) {
    const PaperPage empty = paperPage(3000, nullptr, dpi);
    for (const int halfPoints : {8, 18, 22, 23, 24, 26}) {
        const ShownText usual = text(halfPoints);
        EXPECT_EQ(paperPage(3000, &usual, dpi), empty) << halfPoints;
    }
    EXPECT_NEAR(empty.measure, 600, 2);
}

TEST(PaperPage, LargePrintGetsAWiderOneWithinReason) {
    const ShownText usual = text(24);
    const ShownText large = text(28);
    const ShownText largest = text(32);
    const ShownText title = text(90);
    EXPECT_GT(paperPage(3000, &large, dpi).measure, paperPage(3000, &usual, dpi).measure);
    EXPECT_GT(paperPage(3000, &largest, dpi).measure, paperPage(3000, &large, dpi).measure);
    EXPECT_EQ(paperPage(3000, &title, dpi), paperPage(3000, &largest, dpi));
}

TEST(PaperPage, OnlyATableThatNeedsItWidensTheSheet) {
    const ShownText narrow = text(24, {1000, 2000});
    EXPECT_GE(paperPage(3000, &narrow, dpi).measure, 9000 * dpi / 1440);
    EXPECT_EQ(paperPage(3000, &narrow, dpi), paperPage(3000, nullptr, dpi));
    const ShownText wide = text(24, {1000, 13000});
    EXPECT_GT(paperPage(3000, &wide, dpi).measure, 13000 * dpi / 1440);
    const ShownText widest = text(24, {1000, 30000});
    EXPECT_EQ(paperPage(3000, &widest, dpi).measure, 1100);
    EXPECT_EQ(paperPage(9000, &widest, 2 * dpi).measure, 2200);
}

TEST(PaperPage, InANarrowWindowATableKeepsTheWidthOfItsColumns) {
    const ShownText table = text(24, {2000, 5000});
    for (const int width : {120, 300, 400}) {
        const PaperPage page = paperPage(width, &table, dpi);
        EXPECT_GT(page.tableMeasure, 5000 * dpi / 1440 + 50) << width;
        EXPECT_GT(page.tableMeasure, page.measure) << width;
        EXPECT_EQ(paperPage(width, nullptr, dpi).tableMeasure, paperPage(width, nullptr, dpi).measure);
    }
    // No more than its last column needs, be it of figures or of words, and never more than in a window with room.
    const auto behind = [](int stop, const QString& cell, int width) {
        ParaFormat stops;
        stops.tabs = {stop};
        RichText rich;
        rich.append(u"a\t"_s + cell, rich.intern(CharFormat{}), rich.intern(stops));
        const ShownText shown(rich);
        return paperPage(width, &shown, dpi).tableMeasure - stop * dpi / 1440;
    };
    EXPECT_LT(behind(2000, u"12"_s, 60), 20);
    EXPECT_GT(behind(2000, u"observations"_s, 60), behind(2000, u"montant"_s, 60));
    const QString words = u"mot "_s.repeated(20);
    EXPECT_EQ(behind(2000, words, 60), behind(2000, words.repeated(9), 60));
    EXPECT_EQ(behind(8400, words, 60), behind(8400, words, 3000));
    EXPECT_LT(behind(8400, words, 60), behind(2000, words, 60));
}

TEST(PaperPage, GrowsWithTheDensity) {
    const PaperPage once = paperPage(9000, nullptr, dpi);
    const PaperPage twice = paperPage(9000, nullptr, 2 * dpi);
    EXPECT_NEAR(twice.measure, 2 * once.measure, 2);
    EXPECT_NEAR(twice.margin, 2 * once.margin, 2);
}

} // namespace velm
