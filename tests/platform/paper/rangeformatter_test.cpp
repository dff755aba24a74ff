#include "platform/paper/rangeformatter.h"
#include "tests/platform/typeset/sampletext.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

RichText plain(const QString& text) {
    RichText rich;
    rich.append(text, rich.intern(CharFormat{}), rich.intern(ParaFormat{}));
    return rich;
}

class RangeFormatterTest : public testing::Test {
protected:
    /// All pages of a range, as the characters that each begins with.
    std::vector<qsizetype> pages(const RichText& rich, const QRect& rectangle, qsizetype from = 0, qsizetype to = -1) {
        const qsizetype end = to < 0 ? rich.length() : to;
        std::vector<qsizetype> begins;
        for (qsizetype at = from;;) {
            job.pages.emplace_back();
            begins.push_back(at);
            const auto done = formatter.format(rich, at, to, rectangle, job);
            bottom = done.bottom;
            if (done.next >= end)
                return begins;
            EXPECT_GT(done.next, at) << "a page takes a line at least";
            if (done.next <= at)
                return begins;
            at = done.next;
        }
    }
    QStringList linesOf(const JobPage& page) const {
        QStringList lines;
        float at = -1;
        for (const JobRun& run : page.runs) {
            if (run.baseline != at)
                lines << QString();
            at = run.baseline;
            lines.last() += job.text(run).toString();
        }
        return lines;
    }

    RangeFormatter formatter;
    JobPages job;
    int bottom = 0;
    const QRect sheet{567, 1134, 9000, 14000};
};

} // namespace

TEST_F(RangeFormatterTest, AnEmptyTextPrintsNothingAndEndsAtOnce) {
    EXPECT_EQ(pages(RichText(), sheet), std::vector<qsizetype>{0});
    EXPECT_TRUE(job.pages[0].runs.empty());
}

TEST_F(RangeFormatterTest, ALinkHasAPlaceOnEachLineThatItTakes) {
    const RichText rich = plain(u"avant "_s + u"lien "_s.repeated(60) + u"après\r\nautre"_s);
    formatter.setLinks({{306, 311, u"https://b"_s}, {6, 305, u"https://a"_s}, {900, 950, u"https://c"_s}});
    pages(rich, sheet);
    const std::vector<JobLink>& links = job.pages[0].links;
    ASSERT_GT(links.size(), 3U);
    EXPECT_EQ(links.back().address, u"https://b");
    EXPECT_GT(links.front().where.left(), sheet.left() + 200) << "behind what stands before it";
    for (std::size_t i = 0; i + 1 < links.size(); ++i) {
        EXPECT_EQ(links[i].address, u"https://a");
        EXPECT_GT(links[i].where.width(), 100);
        EXPECT_LE(links[i].where.right(), sheet.right() + 60);
        if (i > 0) {
            EXPECT_GE(links[i].where.top(), links[i - 1].where.bottom() - 1);
        }
    }
}

TEST_F(RangeFormatterTest, LinksOfARangeAreThoseOfItsLetters) {
    const RichText rich = plain(u"un deux trois"_s);
    formatter.setLinks({{0, 2, u"https://un"_s}, {3, 7, u"https://deux"_s}, {8, 13, u"https://trois"_s}});
    pages(rich, sheet, 5, 10);
    ASSERT_EQ(job.pages[0].links.size(), 2U);
    EXPECT_EQ(job.pages[0].links[0].address, u"https://deux");
    EXPECT_NEAR(job.pages[0].links[0].where.left(), sheet.left(), 30);
    EXPECT_EQ(job.pages[0].links[1].address, u"https://trois");
}

TEST_F(RangeFormatterTest, EachPageGoesOnWhereTheOneBeforeEnded) {
    QString text;
    for (int i = 1; i <= 300; ++i)
        text += u"Ligne %1\r\n"_s.arg(i);
    const RichText rich = plain(text);
    const auto begins = pages(rich, sheet);
    EXPECT_GT(begins.size(), 5U);
    QStringList all;
    for (const JobPage& page : job.pages) {
        all += linesOf(page);
        for (const JobRun& run : page.runs) {
            EXPECT_GE(run.baseline, sheet.top());
            EXPECT_LE(run.baseline, sheet.top() + sheet.height());
        }
    }
    ASSERT_EQ(all.size(), 300);
    EXPECT_EQ(all.first(), u"Ligne 1");
    EXPECT_EQ(all.last(), u"Ligne 300");
    for (std::size_t i = 1; i < begins.size(); ++i)
        EXPECT_EQ(rich.at(begins[i]), u'L');
    EXPECT_EQ(job.sources.size(), 1U) << "it is set once";
}

TEST_F(RangeFormatterTest, APageTooLowForALineTakesOneAllTheSame) {
    const auto begins = pages(plain(u"Une\r\nDeux\r\nTrois"_s), {0, 0, 9000, 10});
    EXPECT_EQ(begins, (std::vector<qsizetype>{0, 5, 11}));
}

TEST_F(RangeFormatterTest, ARangePrintsItsCharactersAlone) {
    const RichText rich = plain(u"Un deux trois\r\nquatre cinq"_s);
    pages(rich, sheet, 3, 21);
    EXPECT_EQ(linesOf(job.pages[0]), (QStringList{u"deux trois"_s, u"quatre"_s}));
}

TEST_F(RangeFormatterTest, WhatLiesBeyondTheTextPrintsNothing) {
    job.pages.emplace_back();
    EXPECT_EQ(formatter.format(plain(u"court"_s), 50, 60, sheet, job).next, 5);
    EXPECT_TRUE(job.pages[0].runs.empty());
}

TEST_F(RangeFormatterTest, APageBreakEndsItsPage) {
    pages(plain(u"Avant\r\n\f\r\nAprès"_s), sheet);
    ASSERT_EQ(job.pages.size(), 2U);
    EXPECT_EQ(linesOf(job.pages[0]), QStringList{u"Avant"_s});
    EXPECT_EQ(linesOf(job.pages[1]), QStringList{u"Après"_s});
}

TEST_F(RangeFormatterTest, TheBottomIsThatOfTheTextPrinted) {
    pages(plain(u"Une"_s), sheet);
    const int one = bottom;
    EXPECT_GT(one, sheet.top() + 200);
    pages(plain(u"Une\r\nDeux"_s), sheet);
    EXPECT_EQ(bottom - one, one - sheet.top());
}

TEST_F(RangeFormatterTest, ChangedTextIsSetAnew) {
    RichText rich = plain(u"Une\r\nDeux"_s);
    pages(rich, sheet);
    rich.replace(0, 3, u"Trois");
    pages(rich, sheet);
    EXPECT_EQ(linesOf(job.pages.back()), (QStringList{u"Trois"_s, u"Deux"_s}));
}

} // namespace velm
