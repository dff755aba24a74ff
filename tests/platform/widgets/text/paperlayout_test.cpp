#include "platform/typeset/type.h"
#include "platform/typeset/viewformats.h"
#include "viewfixture.h"

#include <QBuffer>
#include <QImage>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class Page : public ViewTest {
protected:
    void one(const QString& text, const ParaFormat& paragraph, const CharFormat& character = {}) {
        RichText rich;
        rich.append(text, rich.intern(character), rich.intern(paragraph));
        show(rich);
    }
    qsizetype find(const QString& what, qsizetype from = 0) { return box.control().richText().indexOf(what, from); }
};

constexpr int pixel = 15; // twips

} // namespace

TEST_F(Page, TabStopsCountFromTheMarginWhateverTheIndent) {
    ParaFormat format;
    format.tabs = {100 * pixel, 220 * pixel, 300 * pixel};
    one(u"a\tb\tc\td"_s, format);
    EXPECT_EQ(place(2).x(), 100);
    EXPECT_EQ(place(4).x(), 220);
    EXPECT_EQ(place(6).x(), 300);
    format.startIndent = 40 * pixel;
    one(u"a\tb\tc"_s, format);
    EXPECT_EQ(place(0).x(), 40);
    EXPECT_EQ(place(2).x(), 100);
    EXPECT_EQ(place(4).x(), 220);
    format.startIndent = 120 * pixel;
    one(u"a\tb"_s, format);
    EXPECT_EQ(place(2).x(), 220); // the stop behind the indent
}

TEST_F(Page, TheFurtherLinesEdgeIsAStopOfTheFirstLine) {
    ParaFormat format;
    format.startIndent = 10 * pixel;
    format.offset = 30 * pixel;
    const QString text = u"1\t"_s + u"mot "_s.repeated(80);
    one(text, format);
    EXPECT_EQ(place(0).x(), 10);
    EXPECT_EQ(place(2).x(), 40);
    const PaperLayout::Line second = layout().lineAt(layout().lineOf(0).top + layout().lineOf(0).height + 2);
    EXPECT_EQ(place(second.start).x(), 40);
}

TEST_F(Page, WithoutStopsTabsStandEveryHalfInch) {
    one(u"a\tb\tc"_s, {});
    EXPECT_EQ(place(2).x(), 48);
    EXPECT_EQ(place(4).x(), 96);
}

TEST_F(Page, TabStopsGrowWithTheZoom) {
    ParaFormat format;
    format.tabs = {100 * pixel, 220 * pixel};
    one(u"a\tb\tc"_s, format);
    box.setZoom(200);
    EXPECT_EQ(place(2).x(), 200);
    EXPECT_EQ(place(4).x(), 440);
    box.setZoom(50);
    EXPECT_EQ(place(2).x(), 50);
    EXPECT_EQ(place(4).x(), 110);
}

TEST_F(Page, ABulletStandsAtTheIndentAndItsTextBehindTheGap) {
    ParaFormat format;
    format.bullet = true;
    format.startIndent = 20 * pixel;
    format.offset = 30 * pixel;
    const QString text = u"mot "_s.repeated(80);
    one(text, format);
    EXPECT_EQ(place(0).x(), 50);
    const PaperLayout::Line second = layout().lineAt(layout().lineOf(0).top + layout().lineOf(0).height + 2);
    EXPECT_GT(second.start, 0);
    EXPECT_EQ(place(second.start).x(), 50);
    // Its dot is painted left of the text.
    const QImage image = box.viewport()->grab().toImage();
    const int left = layout().page().textLeft;
    const int middle = static_cast<int>(layout().lineOf(0).top) + layout().lineOf(0).height / 2;
    int dark = 0;
    for (int x = left + 18; x < left + 45; ++x) {
        for (int y = middle - 8; y < middle + 8; ++y)
            dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    EXPECT_GT(dark, 4);
    EXPECT_LT(dark, 60);
}

TEST_F(Page, ABulletWithoutAGapStillLeavesRoom) {
    ParaFormat format;
    format.bullet = true;
    one(u"texte"_s, format);
    EXPECT_GE(place(0).x(), 10);
    EXPECT_LE(place(0).x(), 24);
}

TEST_F(Page, IndentsOnBothSidesNarrowTheLines) {
    ParaFormat format;
    const QString text = u"mot "_s.repeated(200);
    one(text, format);
    const auto lines = [&] { return box.document()->firstBlock().layout()->lineCount(); };
    settle();
    const int wide = lines();
    format.startIndent = 150 * pixel;
    format.rightIndent = 150 * pixel;
    one(text, format);
    settle();
    EXPECT_GT(lines(), wide);
    EXPECT_EQ(place(0).x(), 150);
}

TEST_F(Page, AlignmentMovesTheLine) {
    ParaFormat format;
    one(u"mot"_s, format);
    EXPECT_EQ(place(0).x(), 0);
    format.alignment = Alignment::Right;
    one(u"mot"_s, format);
    EXPECT_NEAR(place(3).x(), layout().page().measure, 1);
    format.alignment = Alignment::Centre;
    one(u"mot"_s, format);
    EXPECT_NEAR(place(0).x() + place(3).x(), layout().page().measure, 2);
    format.alignment = Alignment::Justify;
    one(u"mot "_s.repeated(80), format);
    const PaperLayout::Line first = layout().lineOf(0);
    const QTextLine line = box.document()->firstBlock().layout()->lineAt(0);
    EXPECT_GT(line.textLength(), 0);
    EXPECT_NEAR(line.cursorToX(line.textLength() - 1), layout().page().measure, 2.0);
    EXPECT_EQ(first.start, 0);
}

TEST_F(Page, SpaceStandsBeforeAndAfterAParagraph) {
    RichText rich;
    const FormatId character = rich.intern(CharFormat{});
    ParaFormat spaced;
    spaced.spaceBefore = 20 * pixel;
    spaced.spaceAfter = 30 * pixel;
    rich.append(u"a\r\n", character, rich.intern(ParaFormat{}));
    rich.append(u"b\r\n", character, rich.intern(spaced));
    rich.append(u"c", character, rich.intern(ParaFormat{}));
    show(rich);
    const int line = layout().lineOf(0).height;
    EXPECT_EQ(place(3).y() - place(0).y(), line + 20);
    EXPECT_EQ(place(6).y() - place(3).y(), line + 30);
}

TEST_F(Page, LineSpacingIsExactAtLeastOrAMultiple) {
    const QString text = u"mot "_s.repeated(200);
    ParaFormat format;
    const auto step = [&] {
        one(text, format);
        const PaperLayout::Line first = layout().lineOf(0);
        const PaperLayout::Line second = layout().lineAt(first.top + first.height + 1);
        const PaperLayout::Line third = layout().lineAt(second.top + second.height + 1);
        return static_cast<int>(third.top - second.top);
    };
    const int single = step();
    format.lineSpacing = -40 * pixel;
    EXPECT_EQ(step(), 40);
    format.lineSpacing = -5 * pixel;
    EXPECT_EQ(step(), 5);
    format.lineSpacing = 40 * pixel;
    EXPECT_EQ(step(), 40);
    format.lineSpacing = 2 * pixel;
    EXPECT_LE(step(), single);
    EXPECT_GT(step(), 10);
    format.lineMultiple = true;
    format.lineSpacing = 480;
    EXPECT_NEAR(step(), 2 * single / type::singleLine, 2);
}

TEST_F(Page, AnEmptyParagraphIsAsHighAsItsOwnEnd) {
    RichText rich;
    const FormatId paragraph = rich.intern(ParaFormat{});
    CharFormat big;
    big.size = 96;
    const FormatId small = rich.intern(CharFormat{});
    rich.append(u"a\r\n", small, paragraph);
    rich.append(u"\r\n", rich.intern(big), paragraph);
    rich.append(u"\r\n", small, paragraph);
    rich.append(u"b", small, paragraph);
    show(rich);
    const int line = layout().lineOf(0).height;
    EXPECT_EQ(layout().lineOf(3).height, line);
    EXPECT_GT(layout().lineOf(2).height, 3 * line);
}

TEST_F(Page, HiddenTextTakesNoRoom) {
    RichText rich;
    const FormatId paragraph = rich.intern(ParaFormat{});
    CharFormat hidden;
    hidden.hidden = true;
    rich.append(u"ab", rich.intern(CharFormat{}), paragraph);
    rich.append(u"invisible", rich.intern(hidden), paragraph);
    rich.append(u"cd", rich.intern(CharFormat{}), paragraph);
    show(rich);
    EXPECT_EQ(place(2).x(), place(11).x());
    EXPECT_GT(place(12).x(), place(11).x());
}

TEST_F(Page, RaisedTextStandsAboveItsNeighbours) {
    RichText rich;
    const FormatId paragraph = rich.intern(ParaFormat{});
    CharFormat format;
    rich.append(u"H", rich.intern(format), paragraph);
    format.offset = 10 * pixel;
    rich.append(u"H", rich.intern(format), paragraph);
    show(rich);
    const QImage image = box.viewport()->grab().toImage();
    const auto highest = [&](int from, int to) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = from; x < to; ++x) {
                if (qGray(image.pixel(x, y)) < 128)
                    return y;
            }
        }
        return -1;
    };
    const int left = layout().page().textLeft;
    const int plain = highest(left + 3, left + place(1).x() - 1); // behind the caret
    const int raised = highest(left + place(1).x() + 1, left + place(2).x());
    EXPECT_NEAR(plain - raised, 10, 2);
}

TEST_F(Page, APictureTakesItsStoredSizeButNeverMoreThanTheMeasure) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    for (const int width : {100, 5000}) {
        RichText rich;
        CharFormat format;
        format.object = rich.addObject({RichObject::Kind::Png, png, width * pixel, 50 * pixel});
        rich.append(u"\uFFFC", rich.intern(format), rich.intern(ParaFormat{}));
        show(rich);
        EXPECT_EQ(place(1).x(), std::min(width, layout().page().measure));
        EXPECT_LE(layout().lineOf(0).height, 50 + 20); // no more leading than text has
    }
    const QImage shot = box.viewport()->grab().toImage();
    const QPoint middle(layout().page().textLeft + 100, place(0).y() + 1);
    EXPECT_EQ(QColor(shot.pixel(middle)), QColor(Qt::red));
}

TEST_F(Page, APictureThatCannotBeShownLeavesABox) {
    RichText rich;
    CharFormat format;
    format.object = rich.addObject({RichObject::Kind::Wmf, "garbage", 100 * pixel, 50 * pixel});
    rich.append(u"\uFFFC", rich.intern(format), rich.intern(ParaFormat{}));
    show(rich);
    EXPECT_EQ(place(1).x(), 100);
    box.viewport()->grab();
}

TEST_F(Page, TheMeasureIsBoundedAndCentred) {
    box.resize(1600, 600);
    show(sample::lawArticle());
    const PaperPage wide = layout().page();
    EXPECT_LT(wide.measure, 700);
    EXPECT_GT(wide.measure, 500);
    EXPECT_NEAR(wide.sheetLeft, wide.width - wide.sheetLeft - wide.sheetWidth, 1);
    box.resize(400, 600);
    const PaperPage narrow = layout().page();
    EXPECT_EQ(narrow.sheetLeft, 0);
    EXPECT_EQ(narrow.measure, narrow.width - 2 * narrow.margin);
    EXPECT_GE(narrow.margin, 25);
    box.resize(60, 600);
    EXPECT_GE(layout().page().measure, 100);
}

TEST_F(Page, SmallPrintAndLargeTitlesKeepTheUsualPage) {
    box.resize(1600, 600);
    CharFormat type;
    type.size = 22;
    one(u"texte"_s, {}, type);
    const int usual = layout().page().measure;
    type.size = 14;
    one(u"texte"_s, {}, type);
    EXPECT_EQ(layout().page().measure, usual);
    type.size = 72;
    one(u"texte"_s, {}, type);
    EXPECT_LT(layout().page().measure, 2 * usual);
    ParaFormat table;
    table.tabs = {2000};
    one(u"a\tb"_s, table);
    EXPECT_GE(layout().page().measure, 600);
}

TEST_F(Page, ATableOnTabStopsWidensTheSheetWhereTheWindowAllows) {
    box.resize(1600, 600);
    ParaFormat format;
    format.tabs = {300 * pixel, 800 * pixel};
    one(u"a\tb\tc"_s, format);
    EXPECT_GT(layout().page().measure, 800);
    EXPECT_EQ(place(4).x(), 800);
}

TEST_F(Page, NoLineBeginsWithHighPunctuation) {
    for (int width = 500; width < 620; width += 3) {
        box.resize(width, 600);
        one(u"le consommateur : "_s.repeated(40), {});
        settle();
        const QTextBlock block = box.document()->firstBlock();
        for (int i = 0; i < block.layout()->lineCount(); ++i)
            ASSERT_NE(block.text().at(block.layout()->lineAt(i).textStart()), u':');
    }
}

TEST_F(Page, LineEndsInsideAParagraphBreakTheLine) {
    one(u"a\vb"_s, {});
    EXPECT_EQ(place(2).x(), 0);
    EXPECT_GT(place(2).y(), place(0).y());
    EXPECT_EQ(box.document()->blockCount(), 1);
}

TEST(ViewFormats, AFamilyThatIsNotThereGivesOneOfItsKind) {
    EXPECT_EQ(installedFamily(u"Liberation Serif"_s), u"Liberation Serif"_s);
    EXPECT_EQ(installedFamily(u"Garamond of nowhere"_s), installedFamily(QString()));
    EXPECT_NE(installedFamily(u"Arial of nowhere"_s), installedFamily(u"Garamond of nowhere"_s));
    EXPECT_NE(installedFamily(u"Courier of nowhere"_s), installedFamily(u"Arial of nowhere"_s));
}

TEST(ViewFormats, RedIsTheLowByteOfAColour) {
    EXPECT_EQ(viewColour(255), QColor(Qt::red));
    EXPECT_EQ(viewColour(0xFF0000), QColor(Qt::blue));
}

} // namespace velm
