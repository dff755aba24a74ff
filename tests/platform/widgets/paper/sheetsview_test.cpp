// The sheets of a job on the screen.
#include "platform/widgets/paper/sheetsview.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Sheets of A4 with a black square each, whose side tells the number.
JobPages sheetsOf(int count) {
    JobPages job;
    job.width = 11906;
    job.height = 16838;
    for (int i = 0; i < count; ++i) {
        job.pages.emplace_back();
        job.pages.back().fills.push_back({{1000, 1000, 9000, 9000}, 0xFF000000, false});
    }
    return job;
}

class SheetsViewTest : public testing::Test {
protected:
    void shows(int count) {
        job = sheetsOf(count);
        view.resize(900, 600);
        view.setJob(&job);
        view.show();
    }
    double dark() {
        const QImage seen = view.viewport()->grab().toImage();
        qint64 black = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x)
                black += qGray(seen.pixel(x, y)) < 60 ? 1 : 0;
        }
        return double(black) / (double(seen.width()) * seen.height());
    }

    JobPages job;
    SheetsView view;
};

} // namespace

TEST(SheetRowsTest, AWholePageFitsAndAsManyAsFitStandBesideIt) {
    SheetRows rows;
    rows.setRoom({1000, 600});
    rows.setSheets({794, 1123}, 10);
    EXPECT_NEAR(rows.zoom(), (600 - 32) / 1123.0, 0.001);
    EXPECT_EQ(rows.columns(), 2);
    EXPECT_EQ(rows.sheet(0).top(), SheetRows::gap);
    EXPECT_EQ(rows.sheet(1).top(), rows.sheet(0).top());
    EXPECT_GT(rows.sheet(1).left(), rows.sheet(0).right());
    EXPECT_EQ(rows.sheet(2).left(), rows.sheet(0).left());
    EXPECT_EQ(rows.between(0, 10), std::pair(0, 2));
    EXPECT_EQ(rows.between(0, 100'000), std::pair(0, 10));
    rows.setSheets({794, 1123}, 1);
    EXPECT_EQ(rows.columns(), 1);
    EXPECT_NEAR(rows.sheet(0).center().x(), 500, 1) << "in the middle";
}

TEST(SheetRowsTest, AWidthThatIsFittedIsThatOfOneSheet) {
    SheetRows rows;
    rows.setRoom({400, 600});
    rows.setSheets({794, 1123}, 10);
    rows.setFit(SheetRows::Fit::Width, 1);
    EXPECT_EQ(rows.columns(), 1);
    EXPECT_NEAR(rows.sheet(0).width(), 400 - 32, 1);
}

TEST(SheetRowsTest, NoRoomNoSheetAndAbsurdZoomsDoNoHarm) {
    SheetRows rows;
    rows.setRoom({0, 0});
    rows.setSheets({0, 0}, 0);
    EXPECT_EQ(rows.between(0, 100), std::pair(0, 0));
    rows.setSheets({794, 1123}, 3);
    rows.setFit(SheetRows::Fit::None, 1e9);
    EXPECT_EQ(rows.zoom(), SheetRows::most);
    rows.setFit(SheetRows::Fit::None, -1);
    EXPECT_EQ(rows.zoom(), SheetRows::least);
    EXPECT_GE(rows.columns(), 1);
}

TEST_F(SheetsViewTest, PagesAreSeenAsTheyComeOut) {
    shows(1);
    // A sheet of 568 pixels' height has a square of 45 % of it.
    EXPECT_NEAR(dark(), 303.6 * 303.6 / (900 * 600), 0.02);
}

TEST_F(SheetsViewTest, KeysAndButtonsWalkThroughTheSheets) {
    shows(20);
    QSignalSpy moved(&view, &SheetsView::moved);
    EXPECT_EQ(view.current(), 0);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(view.current(), 19);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(view.current(), 0);
    QTest::keyClick(&view, Qt::Key_PageDown);
    const int second = view.current();
    EXPECT_GT(second, 0);
    view.walk(1);
    EXPECT_EQ(view.current(), 2 * second);
    QTest::keyClick(&view, Qt::Key_PageUp);
    EXPECT_EQ(view.current(), second);
    for (int i = 0; i < 30; ++i)
        view.walk(1);
    EXPECT_EQ(view.current(), 19);
    EXPECT_GT(moved.size(), 5);
}

TEST_F(SheetsViewTest, TheZoomKeepsThePageThatIsLookedAt) {
    shows(20);
    view.showSheet(10);
    view.setFit(SheetRows::Fit::Width);
    EXPECT_EQ(view.current(), 10);
    const double wide = view.zoom();
    view.zoomStep(-3);
    EXPECT_LT(view.zoom(), wide);
    EXPECT_EQ(view.fit(), SheetRows::Fit::None);
    EXPECT_NEAR(view.current(), 10, 3);
}

TEST_F(SheetsViewTest, SheetsMayBecomeMoreWhileTheyAreLookedAt) {
    shows(1);
    job.pages.push_back(job.pages[0]);
    view.grow();
    EXPECT_EQ(view.count(), 2);
    const double two = dark();
    job.pages[1].fills.clear();
    view.grow();
    EXPECT_LT(dark(), two * 0.6) << "the last sheet is painted anew";
}

TEST_F(SheetsViewTest, WithoutAJobThereIsNothing) {
    shows(3);
    view.setJob(nullptr);
    EXPECT_EQ(view.count(), 0);
    EXPECT_EQ(view.current(), -1);
    EXPECT_EQ(dark(), 0);
    view.walk(1);
    QTest::keyClick(&view, Qt::Key_End);
}

TEST_F(SheetsViewTest, ALineShowsWhereTheJobGoesOn) {
    shows(1);
    const QImage before = view.viewport()->grab().toImage();
    view.setMark(12'000, u"ici"_s);
    const QImage after = view.viewport()->grab().toImage();
    EXPECT_NE(before, after);
    int top = -1;
    for (int y = 0; y < after.height() && top < 0; ++y) {
        if (after.pixel(450, y) != before.pixel(450, y))
            top = y;
    }
    EXPECT_NEAR(top, 16 + 568 * 12'000 / 16'838, 3);
    view.setMark(-1, {});
    EXPECT_EQ(view.viewport()->grab().toImage(), before);
}
