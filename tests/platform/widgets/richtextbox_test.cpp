#include "viewfixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QWheelEvent>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class Box : public ViewTest {
protected:
    qsizetype selStart() const { return box.control().selStart(); }
    qsizetype selLength() const { return box.control().selLength(); }
    qsizetype find(QStringView what, qsizetype from = 0) { return box.control().richText().indexOf(what, from); }
    bool caretIsVisible() {
        const QRect caret = box.cursorRect();
        return caret.top() >= 0 && caret.bottom() <= box.viewport()->height();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(&box, key, modifiers); }
    void wheel(int notches, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(100, 100), box.mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, 120 * notches),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box.viewport(), &event);
    }
};

/// Counts the paint events of a viewport.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

// ---- selection both ways

TEST_F(Box, TheControlsSelectionShowsInTheView) {
    show(sample::plain({u"un"_s, u"deux"_s, u"trois"_s}));
    box.setSelStart(4);
    box.setSelLength(9);
    EXPECT_EQ(box.textCursor().selectedText(), u"deux\u2029tro"_s);
    box.setSelStart(2);
    EXPECT_FALSE(box.textCursor().hasSelection());
    EXPECT_EQ(box.textCursor().position(), 2);
}

TEST_F(Box, TheUsersSelectionGoesToTheControl) {
    show(sample::plain({u"un"_s, u"deux"_s, u"trois"_s}));
    const QSignalSpy moved(&box, &RichTextBox::selectionMoved);
    key(Qt::Key_Down);
    EXPECT_EQ(selStart(), 4);
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 4);
    EXPECT_EQ(selLength(), 4);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_GT(selLength(), 6);
    EXPECT_EQ(box.control().selText(), u"deux\r\ntrois"_s.left(selLength()));
    EXPECT_EQ(moved.count(), 3);
}

TEST_F(Box, SelectingBackwardKeepsTheMovingEnd) {
    show(sample::plain({u"abcdef"_s}));
    box.setSelStart(4);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 2);
    EXPECT_EQ(selLength(), 2);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(selLength(), 1);
}

TEST_F(Box, EverythingIsSelectedByControlA) {
    show(sample::plain({u"un"_s, u"deux"_s}));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 0);
    EXPECT_EQ(selLength(), 8);
}

TEST_F(Box, ADragSelects) {
    show(sample::plain({u"un mot ici"_s}));
    const QPoint from = pointOf(3) - QPoint(2, 0);
    const QPoint to = pointOf(6) - QPoint(2, 0);
    QTest::mousePress(box.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), box.viewport()->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &move);
    QTest::mouseRelease(box.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(selStart(), 3);
    EXPECT_EQ(selLength(), 3);
    EXPECT_EQ(box.control().selText(), u"mot"_s);
}

TEST_F(Box, TheTextCannotBeEdited) {
    show(sample::plain({u"abc"_s}));
    QTest::keyClicks(&box, u"xyz"_s);
    key(Qt::Key_Delete);
    key(Qt::Key_Backspace);
    QApplication::clipboard()->setText(u"collé"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.control().text(), u"abc"_s);
    EXPECT_EQ(box.toPlainText(), u"abc"_s);
}

TEST_F(Box, TheCaretIsShownAndMovesByKeys) {
    show(sample::plain({u"un deux"_s, u"trois"_s}));
    EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 3);
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 14);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(selStart(), 0);
}

TEST_F(Box, UpToAndFindMoveTheViewToo) {
    show(sample::plain({u"un deux"_s, u"trois quatre"_s}));
    EXPECT_EQ(box.findText(u"QUATRE"), 15);
    EXPECT_EQ(box.textCursor().selectedText(), u"quatre"_s);
    box.upTo(u"\r\n", false, false);
    EXPECT_EQ(selStart(), 9);
    EXPECT_EQ(box.textCursor().position(), 8);
    EXPECT_FALSE(box.textCursor().hasSelection());
}

TEST_F(Box, ANewDocumentBeginsAtItsTop) {
    show(sample::longText(30000));
    box.setSelStart(box.control().length());
    EXPECT_GT(box.verticalScrollBar()->value(), 0);
    box.setRedraw(false);
    box.control().setText(u"neuf");
    box.control().setSelStart(0);
    box.setRedraw(true);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
    EXPECT_EQ(box.textCursor().position(), 0);
}

// ---- place

TEST_F(Box, TheCaretIsScrolledIntoViewWhereverItGoes) {
    show(sample::longText(400000));
    const qsizetype length = box.control().length();
    for (const qsizetype part : {50, 90, 10, 100, 0, 73}) {
        box.setSelStart(length * part / 100);
        EXPECT_TRUE(caretIsVisible()) << part;
        box.viewport()->repaint();
        EXPECT_TRUE(caretIsVisible()) << part;
    }
}

TEST_F(Box, WhatIsReadStaysInPlaceWhileTheRestIsLaidOut) {
    show(sample::longText(600000));
    EXPECT_FALSE(box.isSettled());
    box.setSelStart(300000);
    box.viewport()->repaint();
    const int before = box.cursorRect().top();
    settle();
    EXPECT_EQ(box.cursorRect().top(), before);
    const int estimated = box.verticalScrollBar()->maximum();
    EXPECT_EQ(estimated, static_cast<int>(layout().documentSize().height()) - box.viewport()->height());
}

TEST_F(Box, WhatIsReadStaysInPlaceWhenTheWindowIsResized) {
    show(sample::longText(100000));
    settle();
    box.setSelStart(50000);
    const int lineTop = box.cursorRect().top();
    EXPECT_GT(lineTop, 0);
    // The line at the window's top stays the line at the top.
    const auto top = [&] { return layout().lineAt(box.verticalScrollBar()->value()); };
    const int start = top().start;
    box.resize(450, 600);
    EXPECT_LE(top().start, start);
    EXPECT_GT(top().start + 200, start);
    settle();
    EXPECT_LE(top().start, start);
    EXPECT_GT(top().start + 200, start);
}

TEST_F(Box, ScrollingUpThroughUnknownHeightsDoesNotJump) {
    show(sample::longText(300000));
    box.setSelStart(150000);
    box.viewport()->repaint();
    for (int i = 0; i < 60; ++i) {
        const PaperLayout::Line line = layout().lineAt(box.verticalScrollBar()->value());
        const int seen = static_cast<int>(line.top) - box.verticalScrollBar()->value();
        box.verticalScrollBar()->setValue(box.verticalScrollBar()->value() - 30);
        const PaperLayout::Line same = layout().lineOf(line.start);
        ASSERT_EQ(static_cast<int>(same.top) - box.verticalScrollBar()->value(), seen + 30) << i;
    }
}

TEST_F(Box, PageKeysAndEndReachEveryPlace) {
    show(sample::longText(60000));
    key(Qt::Key_PageDown);
    EXPECT_GT(box.verticalScrollBar()->value(), 200);
    EXPECT_TRUE(caretIsVisible());
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(selStart(), box.control().length());
    QApplication::processEvents();
    EXPECT_TRUE(caretIsVisible());
    key(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_GT(selLength(), 100);
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
}

TEST_F(Box, ADocumentLoadedBeforeTheWindowShowsOpensAtItsCaret) {
    RichTextBox hidden;
    hidden.resize(600, 400);
    hidden.setRedraw(false);
    hidden.control().richTextForEdit() = sample::longText(50000);
    hidden.control().notifyChanged();
    hidden.setSelStart(30000);
    hidden.setRedraw(true);
    hidden.show();
    QApplication::processEvents();
    const QRect caret = hidden.cursorRect();
    EXPECT_GE(caret.top(), 0);
    EXPECT_LT(caret.bottom(), hidden.viewport()->height());
}

// ---- the redraw switch

TEST_F(Box, NothingIsRepaintedUntilRedrawComesBackThenOnce) {
    show(sample::lawArticle());
    QApplication::processEvents();
    PaintCounter paints(box.viewport());
    box.setRedraw(false);
    for (int i = 0; i < 50; ++i) {
        box.setSelStart(i);
        box.setSelLength(3);
        box.control().setSelColor(255);
        box.control().setSelBold(true);
        QApplication::processEvents();
    }
    EXPECT_EQ(paints.count, 0);
    box.setRedraw(true);
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 1);
    EXPECT_EQ(box.document()->firstBlock().begin().fragment().charFormat().fontWeight(), int(QFont::Bold));
}

TEST_F(Box, AnOldPictureTakesNoSelectionWhileRedrawIsOff) {
    show(sample::plain({u"abcdef"_s}));
    box.setRedraw(false);
    box.control().setText(u"autre");
    box.control().setSelStart(1);
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selStart(), 1);
    EXPECT_EQ(selLength(), 0);
    box.setRedraw(true);
    EXPECT_EQ(box.toPlainText(), u"autre"_s);
    EXPECT_EQ(box.textCursor().position(), 1);
}

TEST_F(Box, MarksKeepThePlaceAndTheSelection) {
    show(sample::longText(60000));
    settle();
    box.verticalScrollBar()->setValue(2000);
    const int value = box.verticalScrollBar()->value();
    CharChange mark;
    mark.mask = CharChange::Colour;
    mark.values.colour = 255;
    box.control().richTextForEdit().changeCharacters(10, 5, mark);
    box.control().notifyChanged();
    settle();
    EXPECT_EQ(box.verticalScrollBar()->value(), value);
}

// ---- zoom

TEST_F(Box, ControlAndTheWheelEnlargeTheViewAndChangeNoFormat) {
    show(sample::lawArticle());
    const QByteArray rtf = box.control().textRtf();
    const quint64 revision = box.control().richText().revision();
    const QSignalSpy zoomed(&box, &RichTextBox::zoomChanged);
    const int height = layout().lineOf(0).height;
    wheel(1, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 110);
    wheel(-2, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 90);
    box.setZoom(200);
    EXPECT_NEAR(layout().lineOf(0).height, 2 * height, 2);
    EXPECT_EQ(box.control().textRtf(), rtf);
    EXPECT_EQ(box.control().richText().revision(), revision);
    EXPECT_GE(zoomed.count(), 3);
    const int value = box.verticalScrollBar()->value();
    wheel(-1, Qt::NoModifier);
    EXPECT_EQ(box.zoom(), 200);
    EXPECT_GT(box.verticalScrollBar()->value(), value);
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
    QSignalSpy over(&box, &RichTextBox::hovered);
    const auto moveTo = [&](const QPoint& point) {
        QMouseEvent move(QEvent::MouseMove, QPointF(point), box.viewport()->mapToGlobal(QPointF(point)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(box.viewport(), &move);
    };
    moveTo(pointOf(4));
    ASSERT_EQ(overLink.count(), 1);
    EXPECT_EQ(overLink.last().at(0).toInt(), 1);
    EXPECT_EQ(over.last().at(0).value<qsizetype>(), 4);
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::PointingHandCursor);
    moveTo(pointOf(8));
    EXPECT_EQ(overLink.last().at(0).toInt(), -1);
    EXPECT_EQ(box.viewport()->cursor().shape(), Qt::IBeamCursor);
    moveTo(pointOf(16));
    EXPECT_EQ(overLink.last().at(0).toInt(), 0);
    moveTo(pointOf(16) + QPoint(300, 0));
    EXPECT_EQ(overLink.last().at(0).toInt(), -1);
    EXPECT_EQ(over.last().at(0).value<qsizetype>(), -1);
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
        box.viewport()->grab();
        settle();
    }
}

} // namespace velm
