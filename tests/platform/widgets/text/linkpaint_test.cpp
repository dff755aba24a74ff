#include "platform/widgets/text/linkpaint.h"
#include "tests/platform/typeset/sampletext.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int width = 400;

/// One block of text, laid out plainly.
struct Block {
    explicit Block(const RichText& rich) : shown(rich), lines(shown.text()) {
        lines.beginLayout();
        for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
            line.setLineWidth(width);
            line.setPosition(QPointF(0, height));
            height += static_cast<int>(line.height());
        }
        lines.endLayout();
    }
    std::vector<LookPass> passes(const std::vector<LinkRange>& ranges, int hovered = -1,
                                 const LinkPaint::Ranges& selected = {}) const {
        const LinkRanges links(ranges);
        const LineBands bands(lines, height);
        return LinkPaint(shown, links, sheet, hovered).passes(0, lines, bands, 0, bands.count() - 1, selected);
    }
    int x(int position) const { return qRound(lines.lineForTextPosition(position).cursorToX(position)); }

    ShownText shown;
    QTextLayout lines;
    int height = 0;
    look::Sheet sheet = look::sheet(Qt::white, QPalette());
};

RichText plain(const QString& text) {
    return sample::plain({text});
}

} // namespace

TEST(LinkPaint, TextWithoutLinksNeedsNoPass) {
    EXPECT_TRUE(Block(plain(u"un deux trois"_s)).passes({}).empty());
    EXPECT_TRUE(Block(plain(u"un deux trois"_s)).passes({{50, 60}}).empty());
    EXPECT_TRUE(Block(RichText()).passes({{0, 60}}).empty());
}

TEST(LinkPaint, ALinkIsPaintedWhereItStands) {
    const Block block(plain(u"un deux trois"_s));
    const auto passes = block.passes({{3, 7}});
    ASSERT_EQ(passes.size(), 1U);
    EXPECT_EQ(passes[0].look.foreground().color(), block.sheet.link);
    EXPECT_TRUE(passes[0].look.fontUnderline());
    const QColor line = passes[0].look.underlineColor();
    EXPECT_EQ(line.rgb(), block.sheet.link.rgb());
    EXPECT_NEAR(line.alphaF(), 0.4, 0.01);
    const QRect where = passes[0].where.boundingRect();
    EXPECT_NEAR(where.left(), block.x(3), 1);
    EXPECT_NEAR(where.left() + where.width(), block.x(7), 1);
    EXPECT_EQ(where.top(), 0);
    EXPECT_EQ(where.height(), block.height);
}

TEST(LinkPaint, AnyNumberOfLinksTakesOnePass) {
    const Block block(plain(u"mot "_s.repeated(2000)));
    std::vector<LinkRange> links;
    for (int i = 0; i < 2000; ++i)
        links.push_back({4 * i, 4 * i + 3});
    const auto passes = block.passes(links);
    ASSERT_EQ(passes.size(), 1U);
    EXPECT_GT(passes[0].where.rectCount(), 1000);
    EXPECT_EQ(passes[0].where.boundingRect().height(), block.height);
}

TEST(LinkPaint, ALinkOverSeveralLinesIsWholeOnEach) {
    const Block block(plain(u"mot "_s.repeated(200)));
    const auto passes = block.passes({{40, 700}});
    ASSERT_EQ(passes.size(), 1U);
    const int count = block.lines.lineCount();
    EXPECT_GE(count, 5);
    for (int i = 1; i + 2 < count; ++i) {
        const QRectF line = block.lines.lineAt(i).naturalTextRect();
        EXPECT_TRUE(passes[0].where.contains(line.center().toPoint())) << i;
        EXPECT_TRUE(passes[0].where.contains(QPoint(1, static_cast<int>(line.center().y())))) << i;
    }
}

TEST(LinkPaint, OnlyTheLinesThatAreAskedForCount) {
    const Block block(plain(u"mot "_s.repeated(200)));
    const LinkRanges links({{0, 800}});
    const LineBands bands(block.lines, block.height);
    const auto passes = LinkPaint(block.shown, links, block.sheet, -1).passes(0, block.lines, bands, 2, 3, {});
    ASSERT_EQ(passes.size(), 1U);
    EXPECT_EQ(passes[0].where.boundingRect().top(), bands.top(2));
    EXPECT_EQ(passes[0].where.boundingRect().bottom() + 1, bands.top(4));
}

TEST(LinkPaint, TextOfADecidedColourKeepsItAndGreyDoesNot) {
    RichText rich;
    const FormatId paragraph = rich.intern(ParaFormat{});
    rich.append(u"rouge", rich.intern(sample::detail::face(u"Liberation Serif"_s, 11, false, 0x0000FF)), paragraph);
    rich.append(u"grise", rich.intern(sample::detail::face(u"Liberation Serif"_s, 11, false, 0x808080)), paragraph);
    const Block block(rich);
    const auto passes = block.passes({{0, 10}});
    ASSERT_EQ(passes.size(), 2U);
    EXPECT_EQ(passes[0].look.foreground().color(), QColor(Qt::red));
    EXPECT_NEAR(passes[0].look.underlineColor().alphaF(), 0.4, 0.01);
    EXPECT_EQ(passes[1].look.foreground().color(), block.sheet.link);
    EXPECT_NEAR(passes[1].where.boundingRect().left(), block.x(5), 1);
    // Under the pointer its line is as strong as the text.
    const auto hovered = block.passes({{0, 10}}, 0);
    ASSERT_EQ(hovered.size(), 2U);
    EXPECT_EQ(hovered[0].look.foreground().color(), QColor(Qt::red));
    EXPECT_EQ(hovered[0].look.underlineColor(), QColor(Qt::red));
    EXPECT_EQ(hovered[1].look.foreground().color(), block.sheet.link);
    EXPECT_EQ(hovered[1].look.underlineColor(), block.sheet.link);
}

TEST(LinkPaint, TextInTheColourOfHeadingsTakesThatOfLinks) {
    RichText rich;
    rich.append(u"renvoi", rich.intern(sample::detail::face(u"Liberation Serif"_s, 11, false, 0x794E1F)),
                rich.intern(ParaFormat{}));
    const Block block(rich);
    const auto passes = block.passes({{0, 6}});
    ASSERT_EQ(passes.size(), 1U);
    EXPECT_EQ(passes[0].look.foreground().color(), block.sheet.link);
    EXPECT_NE(block.sheet.link.rgb(), look::accent);
}

TEST(LinkPaint, OnlyTheHoveredLinkHasAStrongLine) {
    const Block block(plain(u"un deux trois"_s));
    const auto passes = block.passes({{0, 2}, {3, 7}}, 1);
    ASSERT_EQ(passes.size(), 2U);
    EXPECT_LT(passes[0].look.underlineColor().alphaF(), 0.5);
    EXPECT_EQ(passes[1].look.underlineColor().alphaF(), 1.0);
    EXPECT_TRUE(passes[0].look.fontUnderline() && passes[1].look.fontUnderline());
    EXPECT_NEAR(passes[1].where.boundingRect().left(), block.x(3), 1);
}

TEST(LinkPaint, WhereTextIsSelectedTheSelectionsLookCounts) {
    const Block block(plain(u"un deux trois"_s));
    const auto passes = block.passes({{0, 13}}, -1, {{3, 4, {}}});
    ASSERT_EQ(passes.size(), 1U);
    const int y = block.height / 2;
    EXPECT_TRUE(passes[0].where.contains(QPoint(block.x(1), y)));
    EXPECT_FALSE(passes[0].where.contains(QPoint(block.x(5), y)));
    EXPECT_TRUE(passes[0].where.contains(QPoint(block.x(10), y)));
}

TEST(LinkPaint, ALinkAcrossTwoDirectionsIsPaintedInAllItsParts) {
    const QString text = u"ab \u05D0\u05D1\u05D2\u05D3 cd"_s; // the four letters stand from right to left
    const Block block(plain(text));
    const auto passes = block.passes({{0, 5}}); // up to the middle of them
    ASSERT_EQ(passes.size(), 1U);
    const int y = block.height / 2;
    const QTextLine line = block.lines.lineAt(0);
    const auto middle = [&line](int i) {
        return (line.cursorToX(i, QTextLine::Leading) + line.cursorToX(i, QTextLine::Trailing)) / 2;
    };
    for (int i = 0; i < text.size(); ++i)
        EXPECT_EQ(passes[0].where.contains(QPoint(static_cast<int>(middle(i)), y)), i < 5) << i;
}

} // namespace velm
