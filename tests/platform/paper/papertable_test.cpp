// A list on the sheets of a job.
#include "platform/paper/jobpages.h"
#include "platform/paper/papertable.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

PaperTable list(int rows) {
    PaperTable t{u"Impression"_s, {u"Titre"_s, u"Mot clé"_s, u"Clef"_s}, {3000, 1000, 0}, {}};
    for (int i = 1; i <= rows; ++i)
        t.rows += (i > 1 ? u"\r"_s : QString()) + u"Un titre qui est long, numéro %1\tvente\tCO%1"_s.arg(i);
    return t;
}

std::size_t sheets(const PaperTable& table) {
    return tablePages(sheetA4, table).pages.size();
}

QStringList texts(const JobPages& job, std::size_t page) {
    QStringList all;
    for (const JobRun& run : job.pages.at(page).runs)
        all << job.text(run).toString();
    return all;
}

} // namespace

TEST(PaperTableTest, AShortListTakesOneSheetAndALongOneMore) {
    EXPECT_EQ(sheets(list(1)), 1U);
    EXPECT_EQ(sheets(list(20)), 1U);
    const std::size_t deuxcents = sheets(list(200));
    EXPECT_GT(deuxcents, 2U);
    const std::size_t deuxmille = sheets(list(2000));
    // The last sheet is seldom full.
    EXPECT_GT(deuxmille, 10 * (deuxcents - 1));
    EXPECT_LE(deuxmille, 10 * deuxcents);
}

TEST(PaperTableTest, EverySheetHasTheHeadersAndItsNumber) {
    const JobPages job = tablePages(sheetA4, list(200));
    for (std::size_t page = 0; page < job.pages.size(); ++page) {
        const QStringList here = texts(job, page);
        EXPECT_EQ(here.value(0), u"Titre");
        EXPECT_EQ(here.value(1), u"Mot clé") << "the column of width 0 is left out";
        EXPECT_EQ(here.back(), QString::number(page + 1));
        EXPECT_EQ(job.pages[page].fills.size(), 1U) << "the rule below the headers";
    }
    EXPECT_EQ(texts(job, 0).value(2), u"Un titre qui est long, numéro 1");
    EXPECT_EQ(texts(job, 0).value(3), u"vente");
}

TEST(PaperTableTest, NothingLiesOutsideWhatCanBePrinted) {
    const PrintDevice::Sheet sheet{11906, 16838, 11306, 16238, 300, 300};
    const JobPages job = tablePages(sheet, list(300));
    EXPECT_EQ(job.offsetX, 300);
    for (const JobPage& page : job.pages) {
        for (const JobRun& run : page.runs) {
            EXPECT_GE(run.x, 0);
            EXPECT_LE(run.x + run.width, sheet.printableWidth);
            EXPECT_LE(run.baseline, sheet.printableHeight);
        }
    }
}

TEST(PaperTableTest, LongCellsTakeSeveralLines) {
    PaperTable longer = list(40);
    const std::size_t before = sheets(longer);
    longer.rows.replace(u"qui est long"_s, u"qui est "_s + u"vraiment très long "_s.repeated(20));
    EXPECT_GT(sheets(longer), 2 * before);
    // One that no sheet can hold is cut.
    longer.rows = u"un mot "_s.repeated(20'000) + u"\rcourt"_s;
    EXPECT_EQ(sheets(longer), 2U);
}

TEST(PaperTableTest, RowsThatFitNoColumnDoNoHarm) {
    EXPECT_EQ(sheets({{}, {}, {}, u"a\tb\rc"_s}), 1U);
    EXPECT_EQ(sheets({u"t"_s, {u"un"_s}, {0, 0}, u"a\tb\t\tc\r\r"_s}), 1U);
    EXPECT_EQ(sheets({u"t"_s, {u"un"_s}, {1, 1, 1}, u"seule"_s}), 1U);
}

TEST(PaperTableTest, ASheetTooSmallForItTakesSomethingAllTheSame) {
    const JobPages job = tablePages({400, 300, 400, 300, 0, 0}, list(50));
    EXPECT_GE(job.pages.size(), 1U);
    EXPECT_LE(job.pages.size(), 60U);
}
