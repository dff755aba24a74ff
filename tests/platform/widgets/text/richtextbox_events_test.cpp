#include "viewfixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>

namespace velm {

using namespace Qt::Literals::StringLiterals;

// ---- zoom

TEST_F(Box, ControlAndTheWheelEnlargeTheViewAndChangeNoFormat) {
    show(sample::lawArticle());
    const QByteArray rtf = box.control().textRtf();
    const quint64 revision = box.control().richText().revision();
    const int height = layout().lineOf(0).height;
    wheel(1, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 110);
    wheel(-2, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 90);
    box.setZoom(200);
    EXPECT_NEAR(layout().lineOf(0).height, 2 * height, 2);
    EXPECT_EQ(box.control().textRtf(), rtf);
    EXPECT_EQ(box.control().richText().revision(), revision);
    const int value = box.verticalScrollBar()->value();
    wheel(-1, Qt::NoModifier);
    EXPECT_EQ(box.zoom(), 200);
    EXPECT_GT(box.verticalScrollBar()->value(), value);
}

TEST_F(Box, AChangeOfTheZoomIsToldOnce) {
    const QSignalSpy changed(&box, &SheetView::zoomChanged);
    box.setZoom(150);
    box.setZoom(150);
    wheel(1, Qt::ControlModifier);
    ASSERT_EQ(changed.count(), 2);
    EXPECT_EQ(changed.at(0).at(0).toInt(), 150);
    EXPECT_EQ(changed.at(1).at(0).toInt(), 175);
}

TEST_F(Box, ABlankSheetHasNothingToScroll) {
    box.resize(300, 40);
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
    show(sample::plain({u"un"_s}));
    EXPECT_GT(box.verticalScrollBar()->maximum(), 0);
    show(RichText());
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
}

TEST_F(Box, KeysEnlargeTheView) {
    show(sample::lawArticle());
    key(Qt::Key_Plus, Qt::ControlModifier);
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 125);
    key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 110);
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 100);
}

TEST_F(Box, ZoomIsBounded) {
    box.setZoom(1);
    EXPECT_EQ(box.zoom(), RichTextBox::leastZoom);
    box.zoomStep(-3);
    EXPECT_EQ(box.zoom(), RichTextBox::leastZoom);
    box.setZoom(100000);
    EXPECT_EQ(box.zoom(), RichTextBox::mostZoom);
    box.zoomStep(3);
    EXPECT_EQ(box.zoom(), RichTextBox::mostZoom);
    box.setZoom(105);
    box.zoomStep(1);
    EXPECT_EQ(box.zoom(), 110);
}

TEST_F(Box, ZoomKeepsTheLineAtTheTop) {
    show(sample::longText(100000));
    settle();
    box.verticalScrollBar()->setValue(9000);
    const int start = layout().lineAt(box.verticalScrollBar()->value()).start;
    box.setZoom(150);
    const PaperLayout::Line top = layout().lineAt(box.verticalScrollBar()->value());
    EXPECT_LE(top.start, start);
    EXPECT_LE(start, top.start + 200);
}

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

// ---- paper

TEST_F(Box, TheDocumentKeepsItsPaperInTheDark) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(look::palette(look::Theme::Dark));
    QApplication::processEvents();
    box.resize(1200, 600);
    show(sample::lawArticle());
    QImage image = box.viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(layout().page().sheetLeft + 3, 300), QColor(Qt::white));
    EXPECT_LT(image.pixelColor(2, 300).lightness(), 60);
    box.control().setBackColor(12648447); // pale yellow
    image = box.viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(layout().page().sheetLeft + 3, 300), QColor(255, 255, 192));
    QApplication::setPalette(before);
}

TEST_F(Box, ASofterPaperIsShownWhereItIsWanted) {
    const QPalette before = QApplication::palette();
    box.resize(1200, 600);
    show(sample::lawArticle());
    const auto paper = [this] {
        return box.viewport()->grab().toImage().pixelColor(layout().page().sheetLeft + 3, 300);
    };
    const QColor grey(0xE8, 0xEA, 0xED);
    box.setPaperTone(RichTextBox::PaperTone::SoftInTheDark);
    EXPECT_EQ(paper(), QColor(Qt::white));
    QApplication::setPalette(look::palette(look::Theme::Dark));
    QApplication::processEvents();
    EXPECT_EQ(paper(), grey);
    QApplication::setPalette(before);
    QApplication::processEvents();
    EXPECT_EQ(paper(), QColor(Qt::white));
    box.setPaperTone(RichTextBox::PaperTone::Soft);
    EXPECT_EQ(paper(), grey);
}

TEST_F(Box, TextWithoutAColourCanBeReadOnAnyPaper) {
    show(sample::plain({u"mmmm"_s}));
    const auto extreme = [&](bool brightest) {
        const QImage image = box.viewport()->grab().toImage();
        int found = brightest ? 0 : 255;
        for (int x = layout().page().textLeft + 4; x < layout().page().textLeft + 40; ++x) {
            for (int y = 0; y < 80; ++y) {
                const int grey = qGray(image.pixel(x, y));
                found = brightest ? std::max(found, grey) : std::min(found, grey);
            }
        }
        return found;
    };
    EXPECT_LT(extreme(false), 100);
    box.control().setBackColor(0x201008);
    EXPECT_GT(extreme(true), 180);
}

TEST_F(Box, TheControlCanHideTheView) {
    box.control().setVisible(false);
    EXPECT_FALSE(box.isVisible());
    box.control().setVisible(true);
    EXPECT_TRUE(box.isVisible());
}

TEST_F(Box, AViewCanShowAControlOfAnother) {
    RichTextControl control;
    control.setText(u"montré");
    {
        const RichTextBox other(control);
        EXPECT_EQ(other.toPlainText(), u"montré"_s);
    }
    control.setText(u"sans vue"); // nobody listens any more
    EXPECT_EQ(control.text(), u"sans vue"_s);
}

TEST_F(Box, EmptyAndOddContentsAreHarmless) {
    for (const QString& text :
         {QString(), u"\r\n"_s, u"\f"_s, u"\v"_s, u"\t"_s, QString(5000, u'W'), QString(300, u'\t'),
          u"\uFFFC\u2029\uFDD0\uFDD1"_s, QString(QChar(0xD800)), u"e\u0301\u202E\u200F"_s}) {
        RichText rich;
        rich.append(text, rich.intern(CharFormat{}), rich.intern(ParaFormat{}));
        show(rich);
        box.viewport()->grab();
        settle();
        key(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(selStart(), rich.length());
        key(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(selLength(), rich.length());
    }
}

TEST_F(Box, OddFormatsAreHarmless) {
    for (const std::int32_t value : {-2000000000, -30000, -1, 0, 1, 30000, 2000000000}) {
        RichText rich;
        CharFormat character;
        character.size = value;
        character.offset = value;
        character.object = value;
        ParaFormat paragraph;
        paragraph.startIndent = value;
        paragraph.offset = value;
        paragraph.rightIndent = value;
        paragraph.spaceBefore = value;
        paragraph.spaceAfter = value;
        paragraph.lineSpacing = value;
        paragraph.bullet = true;
        paragraph.tabs = {value};
        rich.append(u"texte\tavec\r\nsuite", rich.intern(character), rich.intern(paragraph));
        show(rich);
        const QImage picture = box.viewport()->grab().toImage();
        settle();
        EXPECT_EQ(picture.size(), box.viewport()->size()) << value;
        EXPECT_EQ(box.toPlainText(), u"texte\tavec\nsuite") << value;
        key(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(selStart(), rich.length()) << value;
        EXPECT_TRUE(box.viewport()->rect().intersects(box.cursorRect())) << value << ": the end is out of reach";
    }
}

} // namespace velm
