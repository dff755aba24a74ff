// Texts that just fit the view: nothing that laying them out finds may change the measure they are laid out for.
#include "viewfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class FitTest : public ViewTest {
protected:
    void paragraphs(int count) {
        RichText text;
        for (int i = 0; i < count; ++i) {
            const QString words =
                u"Les juges du fond apprécient souverainement la portée de la clause. "_s.repeated(3 + i % 4);
            text.append(words + u"\r\n"_s, text.intern(CharFormat{}), text.intern(ParaFormat{}));
        }
        show(text);
    }
};

} // namespace

TEST_F(FitTest, ComesToRestWhateverTheHeight) {
    for (const int count : {3, 12, 40}) {
        paragraphs(count);
        for (int height = 80; height <= 1200; height += 8) {
            box.resize(700, height);
            for (int i = 0; i < 200 && !box.isSettled(); ++i)
                QApplication::processEvents();
            ASSERT_TRUE(box.isSettled()) << count << " paragraphs in " << height << " pixels";
        }
    }
}

TEST_F(FitTest, TheMeasureIsThatOfLongTextsForShortOnesToo) {
    paragraphs(1);
    settle();
    const PaperPage shortPage = layout().page();
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
    paragraphs(200);
    settle();
    EXPECT_GT(box.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(layout().page().sheetLeft, shortPage.sheetLeft);
    EXPECT_EQ(layout().page().sheetWidth, shortPage.sheetWidth);
}

TEST_F(FitTest, TheBarOfATextThatFitsShowsOnlyWhatLiesUnderTheSheet) {
    paragraphs(1);
    settle();
    const auto bar = [this] { return box.verticalScrollBar()->grab().toImage().convertToFormat(QImage::Format_RGB32); };
    const QImage seen = bar();
    QImage plain(seen.size(), seen.format());
    plain.fill(layout().sheet().surface);
    EXPECT_EQ(seen, plain);
    box.resize(120, 600); // no place beside the sheet any more
    settle();
    ASSERT_EQ(layout().page().sheetLeft, 0);
    plain.fill(layout().sheet().paper);
    paragraphs(0);
    settle();
    EXPECT_EQ(bar(), plain.copy(0, 0, bar().width(), bar().height()));
    paragraphs(200);
    settle();
    EXPECT_NE(bar(), plain);
}

} // namespace velm
