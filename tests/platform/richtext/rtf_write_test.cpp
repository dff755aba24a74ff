// Writing RTF, and reading it back.
#include "tests/platform/richtext/rtf_support.h"

#include <random>

using namespace Qt::Literals::StringLiterals;
using velm::Alignment;
using velm::CharFormat;
using velm::ParaFormat;
using velm::RichObject;
using velm::RichText;
using velm::RtfLoad;
using velm::writeRtf;

namespace {

void expectSane(const QByteArray& rtf) {
    EXPECT_TRUE(rtf.startsWith("{\\rtf1\\ansi\\ansicpg1252"));
    int depth = 0;
    for (qsizetype i = 0; i < rtf.size(); ++i) {
        const auto c = static_cast<unsigned char>(rtf[i]);
        EXPECT_LT(c, 0x7F);
        if (c == '\\')
            ++i;
        depth += c == '{' ? 1 : c == '}' ? -1 : 0;
        EXPECT_GE(depth, 0);
    }
    EXPECT_EQ(depth, 0);
}

/// Writes, reads and writes again.
void expectSurvives(const RichText& text) {
    const QByteArray first = writeRtf(text);
    expectSane(first);
    RichText read;
    ASSERT_TRUE(readRtf(first, read));
    EXPECT_EQ(read.text(), text.text());
    EXPECT_TRUE(sameContent(read, text)) << first.constData();
    EXPECT_TRUE(writeRtf(read) == first);
}

RichText plainText(QStringView text) {
    RichText rich;
    rich.replace(0, 0, text);
    return rich;
}

/// A text of random formats and characters.
class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    RichText make() {
        RichText text;
        const unsigned paragraphs = below(8);
        for (unsigned i = 0; i <= paragraphs; ++i) {
            const velm::FormatId format = text.intern(paragraph());
            for (unsigned k = below(5); k > 0; --k)
                piece(text, format);
            if (i < paragraphs)
                text.append(u"\r\n", text.intern(character()), format);
            else
                text.setTail(text.intern(character()), format);
        }
        return text;
    }

private:
    unsigned below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    int number(int low, int high) { return low + static_cast<int>(below(static_cast<unsigned>(high - low + 1))); }

    CharFormat character() {
        static const QStringList families = {u""_s,       u"Arial"_s,        u"Times New Roman"_s,
                                             u"Symbol"_s, u"Œuvre; {é}\\"_s, u"日本"_s};
        CharFormat format;
        format.family = families[number(0, 5)];
        format.size = number(1, 100);
        format.bold = below(2) != 0;
        format.italic = below(2) != 0;
        format.underline = below(4) == 0;
        format.strike = below(4) == 0;
        format.hidden = below(8) == 0;
        format.offset = below(3) == 0 ? number(-200, 200) : 0;
        format.colour = below(2) == 0 ? number(0, 0xFFFFFF) : velm::autoColour;
        format.background = below(4) == 0 ? number(0, 0xFFFFFF) : velm::autoColour;
        return format;
    }
    ParaFormat paragraph() {
        ParaFormat format;
        if (below(3) == 0)
            return format;
        format.alignment = static_cast<Alignment>(below(4));
        format.startIndent = number(-500, 3000);
        format.offset = number(-500, 1000);
        format.rightIndent = number(0, 2000);
        format.bullet = below(4) == 0;
        format.spaceBefore = number(0, 300);
        format.spaceAfter = number(0, 300);
        format.lineSpacing = below(2) == 0 ? number(-400, 400) : 0;
        format.lineMultiple = format.lineSpacing > 0 && below(2) == 0;
        for (unsigned k = below(6); k > 0; --k)
            format.tabs.push_back((format.tabs.empty() ? 0 : format.tabs.back()) + number(1, 2000));
        return format;
    }
    void piece(RichText& text, velm::FormatId format) {
        CharFormat look = character();
        if (below(8) == 0) {
            RichObject object;
            object.kind = static_cast<RichObject::Kind>(below(6));
            object.data = QByteArray(number(0, 200), static_cast<char>(below(256)));
            object.width = number(1, 5000);
            object.height = number(1, 5000);
            look.object = text.addObject(object);
            text.append(u"\uFFFC", text.intern(look), format);
            return;
        }
        static const QString characters = u"abc XYZ 0-9-\\{}éœ€’\u00A0\u00AD\u2011\u2022\t\f\u0081\u009F\u0001\u007F"
                                          u"日\U0001F60Aﬁ\uF0B7\u2028ÿ;'*"_s;
        QString units;
        for (unsigned k = below(12); k > 0; --k)
            units += characters[number(0, static_cast<int>(characters.size()) - 1)];
        text.append(units.toUcs4().isEmpty() ? units : QString::fromUtf8(units.toUtf8()), text.intern(look), format);
    }

    std::mt19937 random_;
};

} // namespace

TEST(RtfWrite, ASmallText) {
    RichText text = plainText(u"Un deux\r\nété");
    velm::CharChange bold;
    bold.mask = velm::CharChange::Bold;
    bold.values.bold = true;
    text.changeCharacters(3, 4, bold);
    EXPECT_EQ(writeRtf(text),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 ;}}\r\n\\uc1 Un \\b deux"
              "\\b0\\par\r\n\\'e9t\\'e9\\par\r\n}\r\n"_ba);
    expectSurvives(text);
}

TEST(RtfWrite, AnEmptyText) {
    expectSurvives(RichText());
    expectSurvives(plainText(u"\r\n"));
    expectSurvives(plainText(u"\r\n\r\n"));
}

TEST(RtfWrite, OnlyWhatChangesIsWritten) {
    RichText text;
    ParaFormat centred;
    centred.alignment = Alignment::Centre;
    const auto para = text.intern(centred);
    for (int i = 0; i < 3; ++i)
        text.append(u"a\r\n", 0, para);
    text.setTail(0, 0);
    const QByteArray rtf = writeRtf(text);
    EXPECT_EQ(rtf.count("\\qc"), 1);
    EXPECT_EQ(rtf.count("\\pard"), 2);
    expectSurvives(text);
}

TEST(RtfWrite, CharactersOfAllKinds) {
    expectSurvives(plainText(u"\\{}~ éœ€’\u00A0\u00AD\u2011\t\f日\U0001F60A\uFFFC\uFFFD\uFEFF\u200B-1 x"));
    const QByteArray rtf = writeRtf(plainText(u"\u20AC\u65E5\u00A0\t1"));
    EXPECT_TRUE(rtf.contains("\\'80\\u26085?\\~\\tab 1"));
}

TEST(RtfWrite, BulletsForOtherReaders) {
    RichText text;
    ParaFormat format;
    format.bullet = true;
    format.offset = 300;
    const auto para = text.intern(format);
    text.append(u"a\r\nb\r\n", 0, para);
    text.setTail(0, 0);
    const QByteArray rtf = writeRtf(text);
    EXPECT_EQ(rtf.count("{\\pntext\\f1\\'B7\\tab}"), 2);
    EXPECT_EQ(rtf.count("{\\*\\pn\\pnlvlblt\\pnf1\\pnindent300{\\pntxtb\\'B7}}"), 1);
    EXPECT_TRUE(rtf.contains("\\fcharset2 Symbol;"));
    expectSurvives(text);
}

TEST(RtfWrite, PicturesSurvive) {
    RichText text;
    RichObject object;
    object.kind = RichObject::Kind::Png;
    for (int i = 0; i < 1000; ++i)
        object.data.append(static_cast<char>(i));
    object.width = 1234;
    object.height = 567;
    CharFormat format;
    format.object = text.addObject(object);
    text.append(u"\uFFFC", text.intern(format), 0);
    text.append(u"\uFFFC", 0, 0);
    expectSurvives(text);
    for (const QByteArray& line : writeRtf(text).split('\n'))
        EXPECT_LE(line.size(), 256);
}

TEST(RtfWrite, AbsurdLengthsSurviveToo) {
    for (const char* rtf : {"{\\rtf1\\trgaph1\\trleft2147483647\\cellx2147483647\\row x}",
                            "{\\rtf1\\li2147483647{\\*\\pn\\pnlvlblt\\pnindent2147483647}x\\line y\\par}",
                            "{\\rtf1\\li-2147483647\\fi-2147483647\\ri2147483647\\sl-2147483647\\tx2147483647 x\\par}",
                            "{\\rtf1\\up2147483647 a\\dn2147483647 b\\twipoffset-2147483647 c}"})
        expectSurvives(velm::test::richOf(rtf));
}

TEST(RtfWrite, APartHasNoParagraphEndOfItsOwn) {
    RichText text;
    ParaFormat centred;
    centred.alignment = Alignment::Centre;
    const auto para = text.intern(centred);
    text.append(u"un\r\ndeux\r\ntrois", 0, para);
    RichText part;
    ASSERT_TRUE(readRtf(writeRtf(text, 1, 5), part, RtfLoad::Selection));
    EXPECT_EQ(part.text(), u"n\r\nde"_s);
    EXPECT_EQ(part.paraFormatAt(0).alignment, Alignment::Centre);
    EXPECT_EQ(part.paraFormatAt(4).alignment, Alignment::Left);
    ASSERT_TRUE(readRtf(writeRtf(text, 0, 4), part, RtfLoad::Selection));
    EXPECT_EQ(part.text(), u"un\r\n"_s);
    ASSERT_TRUE(readRtf(writeRtf(text, 3, 3), part, RtfLoad::Selection));
    EXPECT_EQ(part.text(), u"\r\nde"_s) << "half a line end counts as a whole one";
    ASSERT_TRUE(readRtf(writeRtf(text, 100, 5), part, RtfLoad::Selection));
    EXPECT_EQ(part.text(), QString());
}

TEST(RtfWrite, PartsReadBackAndAreWrittenTheSame) {
    for (unsigned seed = 0; seed < 300 && !HasFailure(); ++seed) {
        const RichText text = Maker(seed).make();
        const qsizetype start = text.length() / 3;
        const QByteArray first = writeRtf(text, start, text.length() / 2);
        RichText part;
        ASSERT_TRUE(readRtf(first, part, RtfLoad::Selection));
        const auto [from, count] = text.changeRange(start, text.length() / 2);
        EXPECT_EQ(part.text(), text.text(from, count));
        EXPECT_TRUE(writeRtf(part, 0, part.length()) == first) << seed;
    }
}

TEST(RtfWrite, RandomTextsSurvive) {
    for (unsigned seed = 0; seed < 500 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        expectSurvives(Maker(seed).make());
    }
}
