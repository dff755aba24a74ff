#include "viewfixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>

namespace velm {

using namespace Qt::Literals::StringLiterals;

// ---- copying

TEST_F(Box, CopyOffersRtfHtmlAndText) {
    show(sample::plain({u"un <b>"_s, u"deux"_s}));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_NE(data, nullptr);
    for (const QString& type : {u"text/rtf"_s, u"application/rtf"_s, u"Rich Text Format"_s}) {
        EXPECT_TRUE(data->hasFormat(type));
        EXPECT_TRUE(data->data(type).startsWith("{\\rtf"));
    }
    RichText back;
    EXPECT_TRUE(readRtf(data->data(u"text/rtf"_s), back));
    EXPECT_EQ(back.text(), u"un <b>\r\ndeux"_s);
    EXPECT_TRUE(data->html().contains(u"un &lt;b&gt;"_s));
#ifdef Q_OS_WIN
    EXPECT_EQ(data->text(), u"un <b>\r\ndeux"_s);
#else
    EXPECT_EQ(data->text(), u"un <b>\ndeux"_s);
#endif
}

TEST_F(Box, ControlInsertCopiesToo) {
    show(sample::plain({u"abc"_s}));
    QApplication::clipboard()->clear();
    box.setSelStart(1);
    box.setSelLength(1);
    key(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"b"_s);
}

TEST_F(Box, ACopyOutlivesTheDocument) {
    show(sample::plain({u"abc"_s}));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    box.control().setText(u"autre");
    EXPECT_EQ(QApplication::clipboard()->text(), u"abc"_s);
}

// ---- mouse and links

TEST_F(Box, AClickTellsTheSelectionsStart) {
    show(sample::plain({u"un deux trois"_s}));
    QSignalSpy clicked(&box, &RichTextBox::clicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(4));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.at(0).at(0).value<qsizetype>(), 4);
    box.setSelStart(8);
    key(Qt::Key_Return);
    ASSERT_EQ(clicked.count(), 2);
    EXPECT_EQ(clicked.at(1).at(0).value<qsizetype>(), 8);
}

TEST_F(Box, AClickBehindALineStandsAtItsEnd) {
    show(sample::plain({u"un"_s, u"deux"_s}));
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(2) + QPoint(200, 0));
    EXPECT_EQ(selStart(), 2);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(4) + QPoint(200, 300));
    EXPECT_EQ(selStart(), 8);
}

TEST_F(Box, TheHandShowsOverALink) {
    show(sample::plain({u"un deux trois"_s, u"quatre"_s}));
    box.setLinkRanges({{15, 21}, {3, 7}});
    QSignalSpy overLink(&box, &RichTextBox::linkHovered);
    const auto moveTo = [&](const QPoint& point) {
        QMouseEvent move(QEvent::MouseMove, QPointF(point), box.viewport()->mapToGlobal(QPointF(point)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(box.viewport(), &move);
    };
    moveTo(pointOf(4));
    ASSERT_EQ(overLink.count(), 1);
    EXPECT_EQ(overLink.last().at(0).toInt(), 1);
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::PointingHandCursor);
    moveTo(pointOf(8));
    EXPECT_EQ(overLink.last().at(0).toInt(), -1);
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::IBeamCursor);
    moveTo(pointOf(16));
    EXPECT_EQ(overLink.last().at(0).toInt(), 0);
    moveTo(pointOf(16) + QPoint(300, 0));
    EXPECT_EQ(overLink.last().at(0).toInt(), -1);
}

TEST_F(Box, TheTabKeySelectsTheLinksInTheOrderOfTheText) {
    show(sample::plain({u"un deux trois"_s, u"quatre"_s}));
    box.setLinkRanges({{15, 21}, {3, 7}, {9, 9}, {20, 900}});
    QSignalSpy overLink(&box, &RichTextBox::linkHovered);
    key(Qt::Key_Tab);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(selLength(), 4);
    ASSERT_EQ(overLink.count(), 1);
    EXPECT_EQ(overLink.last().at(0).toInt(), 1);
    key(Qt::Key_Tab);
    EXPECT_EQ(selStart(), 15);
    EXPECT_EQ(overLink.last().at(0).toInt(), 0);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(overLink.last().at(0).toInt(), 1);
    key(Qt::Key_Right);
    EXPECT_EQ(overLink.last().at(0).toInt(), -1);
    box.setLinkRanges({});
    EXPECT_EQ(box.control().selLength(), 0);
}

TEST_F(Box, ReturnOpensTheLinkThatTheTabKeyReachedAndNotTheOneItTouches) {
    show(sample::plain({u"un deux trois"_s}));
    box.setLinkRanges({{0, 3}, {3, 7}});
    const QSignalSpy clicked(&box, &RichTextBox::clicked);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    EXPECT_EQ(selStart(), 3);
    key(Qt::Key_Return);
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.at(0).at(0).toLongLong(), 4) << "at 3 the first link ends";
    key(Qt::Key_Left);
    key(Qt::Key_Return);
    EXPECT_EQ(clicked.at(1).at(0).toLongLong(), selStart());
}

TEST_F(Box, ADoubleClickIsToldOnce) {
    show(sample::plain({u"un deux trois"_s}));
    const QSignalSpy clicked(&box, &RichTextBox::clicked);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointOf(4));
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, pointOf(4));
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, {}, pointOf(4));
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(box.control().selText(), u"deux");
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, pointOf(1));
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(Box, LinksAreDrawnInTheirOwnColour) {
    show(sample::plain({u"mmmmmmmmmm"_s}));
    const auto blues = [&] {
        const QImage image = box.viewport()->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                count += colour.blue() - colour.red() > 60 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(blues(), 0);
    box.setLinkRanges({{0, 10}});
    EXPECT_GT(blues(), 20);
}

TEST_F(Box, ARightClickAsksForAMenuAtItsPlace) {
    show(sample::plain({u"un deux trois"_s}));
    QSignalSpy asked(&box, &RichTextBox::rightClicked);
    const QPoint at = pointOf(8);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at, box.viewport()->mapToGlobal(at));
    QApplication::sendEvent(box.viewport(), &byMouse);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.at(0).at(0).value<qsizetype>(), 8);
    EXPECT_EQ(asked.at(0).at(1).toPoint(), box.viewport()->mapToGlobal(at));
    box.setSelStart(3);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(box.viewport(), &byKey);
    ASSERT_EQ(asked.count(), 2);
    EXPECT_EQ(asked.at(1).at(0).value<qsizetype>(), 3);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

} // namespace velm
