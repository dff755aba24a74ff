#include "platform/paper/pagepainter.h"
#include "platform/paper/printjob.h"
#include "platform/richtext/richtext.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class PrintJobTest : public testing::Test {
protected:
    static RichText plain(const QString& text) {
        RichText rich;
        CharFormat format;
        format.family = u"Liberation Serif"_s;
        rich.append(text, rich.intern(format), rich.intern(ParaFormat{}));
        return rich;
    }
    static PrintDevice::Sheet a4() { return {11906, 16838, 11906, 16838, 0, 0}; }
    QStringList words(std::size_t page) const {
        QStringList all;
        for (const JobRun& run : out.pages.at(page).runs)
            all << out.text(run).toString();
        return all;
    }

    JobPages out;
    int outs = 0;
    PrintJob job{a4(), [this](const JobPages& pages) {
                     out = pages;
                     ++outs;
                 }};
};

} // namespace

TEST_F(PrintJobTest, NothingLeavesBeforeTheEnd) {
    EXPECT_FALSE(job.isOpen());
    job.blank();
    EXPECT_TRUE(job.isOpen());
    job.format(plain(u"Texte"_s), 0, -1, {567, 567, 9000, 14000});
    job.newPage();
    EXPECT_EQ(job.pages().pages.size(), 2U);
    EXPECT_EQ(outs, 0);
    job.endDocument();
    EXPECT_EQ(outs, 1);
    EXPECT_FALSE(job.isOpen());
    EXPECT_EQ(words(0), QStringList{u"Texte"_s});
}

TEST_F(PrintJobTest, AJobThatIsThrownAwayWasNothing) {
    job.blank();
    job.discard();
    EXPECT_FALSE(job.isOpen());
    EXPECT_EQ(outs, 0);
}

TEST_F(PrintJobTest, AnEndWithoutAJobIsOneEmptySheet) {
    job.endDocument();
    ASSERT_EQ(out.pages.size(), 1U);
    EXPECT_TRUE(out.pages[0].runs.empty());
}

TEST_F(PrintJobTest, AFailureOnTheWayOutLeavesTheJobOpen) {
    PrintJob failing(a4(), [](const JobPages&) { throw PrintFailure("gone"); });
    failing.blank();
    EXPECT_THROW(failing.endDocument(), PrintFailure);
    EXPECT_TRUE(failing.isOpen());
}

TEST_F(PrintJobTest, TextStandsAtThePenWhichThenGoesToTheLeftBelow) {
    job.setFont({u"Liberation Sans"_s, 10, true, false});
    job.setX(1000);
    job.setY(500);
    job.print(u"En-tête"_s);
    job.print(u"dessous"_s);
    job.endDocument();
    ASSERT_EQ(out.pages[0].runs.size(), 2U);
    const JobRun& one = out.pages[0].runs[0];
    const JobRun& two = out.pages[0].runs[1];
    EXPECT_EQ(one.x, 1000);
    EXPECT_GT(one.baseline, 500 + 100);
    EXPECT_EQ(two.x, 0);
    EXPECT_NEAR(two.baseline - one.baseline, job.textHeight(u"A"_s), 1);
    EXPECT_EQ(out.styles[one.style].bold, true);
}

TEST_F(PrintJobTest, WidthsAreThoseOfTheFont) {
    job.setFont({u"Liberation Sans"_s, 10, false, false});
    const int ten = job.textWidth(u"12345"_s);
    job.setFont({u"Liberation Sans"_s, 20, false, false});
    EXPECT_NEAR(job.textWidth(u"12345"_s), 2 * ten, 4);
    EXPECT_GT(ten, 5 * 100) << "five figures of ten points";
    EXPECT_LT(ten, 5 * 130);
}

TEST_F(PrintJobTest, AnotherPaperServesTheNextJob) {
    PrintDevice::Sheet paper = a4();
    PrintJob asking([&] { return paper; }, [](const JobPages&) {});
    asking.blank();
    paper = {8000, 9000, 8000, 9000, 0, 0};
    EXPECT_EQ(asking.sheet(), a4());
    asking.discard();
    EXPECT_EQ(asking.sheet().width, 8000);
    asking.blank();
    EXPECT_EQ(asking.pages().width, 8000);
}

TEST_F(PrintJobTest, EachSheetIsToldWhenItIsDoneAndCanBeTheLast) {
    std::size_t told = 0;
    job.setProgress([&](const JobPages& pages) {
        told = pages.pages.size();
        return told < 2;
    });
    job.blank();
    EXPECT_EQ(told, 0U);
    job.newPage();
    EXPECT_EQ(told, 1U);
    EXPECT_THROW(job.newPage(), PrintFailure);
    EXPECT_EQ(job.pages().pages.size(), 2U) << "the job stands as it stood";
}

TEST_F(PrintJobTest, GoesOnBehindTheSheetsOfAnotherJob) {
    job.format(plain(u"Un"_s), 0, -1, {1440, 1440, 9000, 14000});
    PrintJob other(a4(), [this](const JobPages& pages) { out = pages; });
    other.resume(job.pages());
    EXPECT_TRUE(other.isOpen());
    other.newPage();
    other.print(u"Deux"_s);
    other.endDocument();
    ASSERT_EQ(out.pages.size(), 2U);
    EXPECT_EQ(out.text(out.pages[0].runs.front()), u"Un");
    EXPECT_EQ(out.text(out.pages[1].runs.front()), u"Deux");
    EXPECT_EQ(job.pages().pages.size(), 1U) << "the first one is not touched";
}

TEST_F(PrintJobTest, WhatWasPrintedSinceAMarkCanBeTakenBack) {
    job.print(u"Un"_s);
    const PrintJob::Mark mark = job.mark();
    job.print(u"Deux"_s);
    job.rule(0, 100, 50);
    job.goBack(mark);
    EXPECT_EQ(job.pages().pages.back().runs.size(), 1U);
    EXPECT_TRUE(job.pages().pages.back().fills.empty());
    job.newPage();
    job.print(u"Trois"_s);
    job.goBack(mark);
    EXPECT_EQ(job.pages().pages.back().runs.size(), 1U) << "another sheet stays as it is";
}

TEST_F(PrintJobTest, AllLinesOfAJobAreOneSource) {
    for (int i = 0; i < 70'000; ++i)
        job.print(QString::number(i));
    EXPECT_EQ(job.pages().sources.size(), 1U);
    EXPECT_EQ(job.pages().text(job.pages().pages.back().runs.back()), u"69999");
}

TEST_F(PrintJobTest, JobsOnePaperAreAppendedWithTheirStylesAndTexts) {
    PrintJob first(a4(), [this](const JobPages& pages) { out.append(pages); });
    first.setFont({u"Liberation Sans"_s, 10, false, false});
    first.print(u"Un"_s);
    first.endDocument();
    first.setFont({u"Liberation Sans"_s, 14, true, false});
    first.print(u"Deux"_s);
    first.format(plain(u"Trois"_s), 0, -1, {1440, 1440, 9000, 14000});
    first.endDocument();
    ASSERT_EQ(out.pages.size(), 2U);
    EXPECT_EQ(out.width, a4().width);
    EXPECT_EQ(out.text(out.pages[0].runs.front()), u"Un");
    EXPECT_EQ(out.styles[out.pages[0].runs.front().style].points, 10);
    EXPECT_EQ(out.text(out.pages[1].runs.front()), u"Deux");
    EXPECT_EQ(out.styles[out.pages[1].runs.front().style].points, 14);
    EXPECT_EQ(out.text(out.pages[1].runs.back()), u"Trois");
    EXPECT_EQ(out.sources.back().page, 1);
}

TEST_F(PrintJobTest, WhatIsOnAPageIsPainted) {
    job.format(plain(u"MMMM"_s), 0, -1, {1440, 1440, 9000, 14000});
    job.rule(0, 11906, 8000);
    job.endDocument();
    QImage image(595, 842, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.scale(595 / out.width, 842 / out.height);
        PagePainter(out).paint(painter, 0);
    }
    const auto dark = [&](const QRect& where) {
        int count = 0;
        for (int y = where.top(); y <= where.bottom(); ++y) {
            for (int x = where.left(); x <= where.right(); ++x)
                count += qGray(image.pixel(x, y)) < 250 ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(dark({72, 72, 45, 18}), 30) << "letters, at an inch from the corner";
    EXPECT_EQ(dark({0, 0, 70, 395}), 0);
    EXPECT_GT(dark({0, 398, 595, 4}), 100) << "the rule";
}

} // namespace velm
