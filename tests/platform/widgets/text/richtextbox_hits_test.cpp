// What was found in a text: the ground under it, the ticks beside the scroll bar, and that nothing of it is in the
// text.
#include "platform/widgets/text/hitstrip.h"
#include "viewfixture.h"

#include <QClipboard>
#include <QMimeData>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class Hits : public Box {
protected:
    HitStrip& strip() { return *box.findChild<HitStrip*>(); }
    QScrollBar& bar() { return *box.verticalScrollBar(); }
    /// In the ground beside the letters, below the base line of a position.
    QColor groundAt(qsizetype position) {
        const QPoint at = pointOf(position);
        return box.viewport()->grab().toImage().pixelColor(at.x(), at.y() + 9);
    }
    void setHits(std::vector<HitRange> hits) { box.setHits(HitKind::Words, std::move(hits)); }
    std::vector<HitRange> every(QStringView word) {
        std::vector<HitRange> hits;
        for (qsizetype at = find(word); at >= 0; at = find(word, at + 1))
            hits.push_back({at, at + word.size()});
        return hits;
    }
    const QColor found_ = look::sheet(Qt::white, QPalette()).found;
    const QColor current_ = look::sheet(Qt::white, QPalette()).foundCurrent;
    const RichText text_ = sample::plain({u"un ....... deux ....... trois ......."_s});
};

} // namespace

TEST_F(Hits, AGroundIsUnderEachOfThemAndNowhereElse) {
    show(text_);
    setHits({{3, 10}, {16, 23}});
    EXPECT_EQ(groundAt(5), found_);
    EXPECT_EQ(groundAt(18), found_);
    EXPECT_EQ(groundAt(12), QColor(Qt::white));
    EXPECT_EQ(groundAt(33), QColor(Qt::white));
    setHits({});
    EXPECT_EQ(groundAt(5), QColor(Qt::white));
}

TEST_F(Hits, TheOneThatIsSelectedIsStronger) {
    show(text_);
    setHits({{3, 10}, {16, 23}});
    box.setSelStart(16);
    box.setSelLength(7);
    EXPECT_EQ(groundAt(18), current_) << "and not in the colour of selections";
    EXPECT_EQ(groundAt(5), found_);
    EXPECT_EQ(strip().ticks().size(), 2U);
    box.setSelLength(6);
    EXPECT_EQ(groundAt(18), box.palette().color(QPalette::Highlight)) << "a selection is painted as one";
    EXPECT_EQ(groundAt(22), found_) << "beside it the ground is as it was";
    box.setSelStart(0);
    EXPECT_EQ(groundAt(18), found_);
}

TEST_F(Hits, WhereTheyOverlapTheGroundIsTheSame) {
    show(text_);
    setHits({{3, 8}, {4, 9}, {5, 10}});
    for (const qsizetype place : {3, 5, 8})
        EXPECT_EQ(groundAt(place), found_) << place;
}

TEST_F(Hits, AHitOverSeveralLinesAndParagraphsIsWhole) {
    show(sample::plain({u"mot ....."_s.repeated(60), u"...... fin"_s}));
    setHits({{2, 60 * 9 + 2 + 4}});
    for (const qsizetype place : {5, 200, 400, 60 * 9 - 2, 60 * 9 + 3})
        EXPECT_EQ(groundAt(place), found_) << place;
    EXPECT_NE(groundAt(60 * 9 + 9), found_);
}

TEST_F(Hits, OnDarkPaperTheGroundLightsUp) {
    show(text_);
    box.control().setBackColor(0x201008);
    setHits({{3, 10}});
    EXPECT_GT(groundAt(5).lightness(), groundAt(12).lightness() + 10);
    EXPECT_LT(groundAt(5).lightness(), 120);
}

TEST_F(Hits, TheTextAndItsCopiesHoldNothingOfThem) {
    show(text_);
    const QByteArray rtf = box.control().textRtf();
    const quint64 revision = box.control().richText().revision();
    setHits({{3, 10}});
    EXPECT_EQ(box.control().textRtf(), rtf);
    EXPECT_EQ(box.control().richText().revision(), revision);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    const QString html = QApplication::clipboard()->mimeData()->html();
    EXPECT_FALSE(html.contains(u"background-color"));
    EXPECT_FALSE(html.contains(found_.name()));
}

TEST_F(Hits, ThoseOfATextLookedForHideTheMarkedWords) {
    show(text_);
    setHits({{3, 10}});
    box.setHits(HitKind::Text, {{16, 23}});
    EXPECT_EQ(groundAt(18), found_);
    EXPECT_EQ(groundAt(5), QColor(Qt::white));
    box.setHits(HitKind::Text, {});
    EXPECT_EQ(groundAt(18), QColor(Qt::white));
    EXPECT_EQ(groundAt(5), found_);
}

TEST_F(Hits, AnotherTextComesWithoutAnyTheSameOneKeepsThem) {
    show(text_);
    QSignalSpy replaced(&box, &RichTextBox::contentReplaced);
    setHits({{3, 10}});
    box.control().setSelStart(0);
    box.control().setSelLength(2);
    box.control().setSelBold(true);
    EXPECT_EQ(replaced.count(), 0);
    EXPECT_EQ(groundAt(6), found_);
    show(sample::plain({u"xx ....... autre"_s}));
    EXPECT_EQ(replaced.count(), 1);
    EXPECT_EQ(groundAt(6), QColor(Qt::white));
    EXPECT_TRUE(strip().ticks().empty());
}

// ---- ticks

TEST_F(Hits, TicksOfATextThatIsSeenWholeStandBesideItsLines) {
    show(sample::plain({u"un"_s, u"deux"_s, u"trois"_s, u"quatre"_s, u"cinq"_s}));
    settle();
    setHits({{0, 2}, {find(u"cinq"), find(u"cinq") + 4}});
    ASSERT_FALSE(bar().isVisible() && bar().maximum() > 0);
    for (const auto& [tick, position] : {std::pair(0U, qsizetype{0}), std::pair(1U, find(u"cinq"))})
        EXPECT_NEAR(strip().top(tick), pointOf(position).y(), 12);
}

TEST_F(Hits, TicksStandWhereTheTextIs) {
    show(sample::longText(60000));
    settle();
    const qsizetype length = box.control().length();
    setHits({{10, 14}, {length / 2, length / 2 + 4}, {length - 5, length - 1}});
    const auto& ticks = strip().ticks();
    ASSERT_EQ(ticks.size(), 3U);
    EXPECT_LT(ticks[0], 0.01F);
    EXPECT_NEAR(ticks[1], 0.5F, 0.05F);
    EXPECT_GT(ticks[2], 0.98F);
    EXPECT_LT(strip().top(0), strip().top(1));
    EXPECT_LT(strip().top(1), strip().top(2));
    EXPECT_LT(strip().top(2), strip().height());
    const QImage image = strip().grab().toImage();
    const auto inked = [&image](int y) { return image.pixelColor(3, y) == look::foundTick(Qt::white, false); };
    EXPECT_TRUE(inked(strip().top(1)));
    EXPECT_FALSE(inked(strip().top(1) + 20));
}

TEST_F(Hits, AClickOnATickGoesThereAndLeavesTheCaret) {
    show(sample::longText(60000));
    settle();
    const qsizetype middle = box.control().length() / 2;
    setHits({{10, 14}, {middle, middle + 4}});
    QTest::mouseClick(&strip(), Qt::LeftButton, {}, QPoint(2, strip().top(1) + 3));
    EXPECT_GT(pointOf(middle).y(), 0);
    EXPECT_LT(pointOf(middle).y(), box.viewport()->height());
    EXPECT_EQ(box.selStart(), 0);
    bar().setValue(bar().maximum());
    const int there = bar().value();
    QTest::mouseClick(&strip(), Qt::LeftButton, {}, QPoint(2, strip().top(1) + 60)); // beside all ticks
    EXPECT_EQ(bar().value(), there);
    QTest::mouseClick(&strip(), Qt::RightButton, {}, QPoint(2, strip().top(0)));
    EXPECT_EQ(bar().value(), there);
}

TEST_F(Hits, TheTickOfTheOneThatIsShownIsAnother) {
    show(sample::longText(60000));
    settle();
    setHits(every(u"Article"));
    const qsizetype one = every(u"Article")[12].start;
    const QImage before = strip().grab().toImage();
    box.setSelStart(one);
    box.setSelLength(7);
    const QColor strong = look::foundTick(Qt::white, true);
    const int y = strip().top(12);
    EXPECT_NE(before.pixelColor(3, y), strong);
    EXPECT_EQ(strip().grab().toImage().pixelColor(3, y), strong);
}

TEST_F(Hits, TicksFollowTheHeightsOfALongText) {
    show(sample::longText(600000));
    setHits(every(u"Article L. 400-1"));
    ASSERT_EQ(strip().ticks().size(), 1U);
    settle();
    const float settled = strip().ticks()[0];
    const double real =
        double(
            layout().lineOf(ShownText(box.control().richText()).toDocument(every(u"Article L. 400-1")[0].start)).top) /
        layout().documentSize().height();
    EXPECT_NEAR(settled, real, 0.001);
    box.setZoom(300);
    settle();
    EXPECT_EQ(strip().ticks().size(), 1U);
}

TEST_F(Hits, TheRoomOfTheTicksIsAlwaysKept) {
    show(text_);
    const int width = box.viewport()->width();
    setHits({{3, 10}});
    EXPECT_EQ(box.viewport()->width(), width);
    show(sample::longText(60000));
    EXPECT_EQ(box.viewport()->width(), width);
    for (const int wanted : {900, 400}) {
        box.resize(wanted, 500);
        EXPECT_EQ(strip().geometry().left(), box.viewport()->geometry().right() + 1);
        EXPECT_EQ(strip().geometry().right() + 1, bar().mapTo(&box, QPoint()).x());
        EXPECT_EQ(strip().height(), bar().height());
    }
}

// ---- where they are seen

TEST_F(Hits, WhatTheScreenShowsOfThemIsKnown) {
    show(sample::longText(60000));
    EXPECT_TRUE(box.seenHits().current.isNull());
    setHits(every(u"garantie"));
    const auto seen = box.seenHits();
    EXPECT_TRUE(seen.current.isNull());
    EXPECT_GT(seen.others.size(), 0U);
    EXPECT_LT(seen.others.size(), 20U);
    for (const QRect& place : seen.others)
        EXPECT_TRUE(box.viewport()->rect().contains(place));
    const qsizetype first = every(u"garantie")[0].start;
    box.setSelStart(first);
    box.setSelLength(8);
    const SeenHits now = box.seenHits();
    EXPECT_EQ(now.others.size() + 1, seen.others.size());
    EXPECT_TRUE(now.current.contains(pointOf(first + 3)));
    bar().setValue(bar().maximum());
    EXPECT_TRUE(box.seenHits().current.isNull());
}

} // namespace velm
