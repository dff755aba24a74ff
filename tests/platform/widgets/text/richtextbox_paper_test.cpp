// What a view paints on: its paper, and contents of every kind on it.
#include "viewfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

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
