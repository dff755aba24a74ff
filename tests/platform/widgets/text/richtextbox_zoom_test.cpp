// The zoom of a document view.
#include "viewfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

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

} // namespace velm
