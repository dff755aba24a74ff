#include "platform/typeset/linesetter.h"
#include "platform/typeset/longwords.h"
#include "tests/platform/typeset/sampletext.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int dpi = 96;
constexpr double em = 15;

PaperPage page() {
    PaperPage page;
    page.measure = 500;
    page.margin = 30;
    return page;
}

struct Set {
    explicit Set(const QString& text) : shown(sample::plain({text})), lines(shown.text()) {
        height = LineSetter(shown, page(), dpi, em).set(lines, 0, work);
    }
    QList<int> starts() const {
        QList<int> starts;
        for (int i = 0; i < lines.lineCount(); ++i)
            starts += lines.lineAt(i).textStart();
        return starts;
    }

    ShownText shown;
    QTextLayout lines;
    LayoutWork work;
    int height = 0;
};

/// The text engine's own way, which walks to the end of a word for every line of it.
QList<int> engineStarts(const QString& text) {
    QTextLayout lines(text);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines.setTextOption(option);
    QList<int> starts;
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLineWidth(page().measure);
        starts += line.textStart();
    }
    lines.endLayout();
    return starts;
}

} // namespace

TEST(LineSetter, BreaksLongWordsWhereTheEngineWould) {
    const QString word = u"WiIlm."_s;
    for (const QString& text :
         {word.repeated(1500), u"des mots avant "_s + word.repeated(900) + u" et des mots après, "_s.repeated(30),
          word.repeated(400) + u' ' + word.repeated(400) + u" fin"_s,
          u"mot "_s.repeated(50) + word.repeated(300) + u"-suite "_s + u"mot "_s.repeated(100),
          QString(2000, QChar(0x2060)) + u"après des signes sans largeur "_s.repeated(20)})
        EXPECT_EQ(Set(text).starts(), engineStarts(text));
}

TEST(LineSetter, LooksAtTheCharactersOfALongWordOnce) {
    const Set set(QString(ShownText::longestPart, u'x'));
    EXPECT_EQ(set.work.blocks, 1);
    EXPECT_GT(set.work.lines, 50);
    EXPECT_GE(set.work.characters, ShownText::longestPart);
    EXPECT_LE(set.work.characters, ShownText::longestPart + 20 * LongWords::longest);
}

TEST(LineSetter, BehindAListOrATableTextKeepsItsOwnDistance) {
    const auto spaces = [](const ParaFormat& rows) {
        ParaFormat running;
        running.spaceAfter = 150; // 10 pixels
        RichText rich;
        const FormatId type = rich.intern(CharFormat{});
        rich.append(u"avant\r\n", type, rich.intern(running));
        rich.append(u"un\tdeux\r\ntrois\tquatre\r\n", type, rich.intern(rows));
        rich.append(u"après\r\n", type, rich.intern(running));
        const ShownText shown(rich);
        const LineSetter setter(shown, page(), dpi, em);
        return QList<int>{setter.spaceAfter(0), setter.spaceAfter(1), setter.spaceAfter(2), setter.spaceAfter(3)};
    };
    ParaFormat plain;
    plain.spaceAfter = 60;
    EXPECT_EQ(spaces(plain), (QList<int>{10, 4, 4, 10}));
    ParaFormat bullets = plain;
    bullets.bullet = true;
    EXPECT_EQ(spaces(bullets), (QList<int>{10, 4, 10, 10}));
    ParaFormat numbers = plain;
    numbers.offset = 300;
    EXPECT_EQ(spaces(numbers), (QList<int>{10, 4, 10, 10}));
    ParaFormat table = plain;
    table.tabs = {1000};
    EXPECT_EQ(spaces(table), (QList<int>{10, 4, 10, 10}));
    table.spaceAfter = 300;
    EXPECT_EQ(spaces(table), (QList<int>{10, 20, 20, 10}));
}

TEST(LineSetter, ARowTakesNoDistanceFromTheNextOne) {
    RichText rich;
    const FormatId type = rich.intern(CharFormat{});
    for (const int after : {60, 300}) {
        ParaFormat row;
        row.tabs = {1000};
        row.spaceAfter = after;
        rich.append(u"un\tdeux\r\n", type, rich.intern(row));
    }
    const ShownText shown(rich);
    EXPECT_EQ(LineSetter(shown, page(), dpi, em).spaceAfter(0), 4);
}

TEST(LineSetter, OnlyTheFirstPartOfALongParagraphBeginsIt) {
    RichText rich;
    ParaFormat format;
    format.spaceBefore = 600;
    format.spaceAfter = 900;
    format.startIndent = 1500;
    format.offset = -750;
    rich.append(u"mot "_s.repeated(ShownText::longestPart / 2) + u"\r\n"_s, rich.intern(CharFormat{}),
                rich.intern(format));
    const ShownText shown(rich);
    ASSERT_GE(shown.count(), 3);
    const LineSetter setter(shown, page(), dpi, em);
    LayoutWork work;
    const auto firstLine = [&](int number) {
        QTextLayout lines(shown.text().mid(shown.documentStart(number), 200));
        setter.set(lines, number, work);
        return lines.lineAt(0).rect();
    };
    EXPECT_EQ(setter.spaceBefore(0), 40);
    EXPECT_EQ(setter.spaceBefore(1), 0);
    EXPECT_EQ(setter.spaceAfter(0), 0);
    EXPECT_EQ(setter.spaceAfter(shown.count() - 2), 60);
    EXPECT_EQ(firstLine(0).left(), 100);
    EXPECT_EQ(firstLine(1).left(), 50);
    EXPECT_GE(firstLine(0).top(), 40);
    EXPECT_LT(firstLine(1).top(), 10);
}

} // namespace velm
