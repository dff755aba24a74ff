// The reader for what is shown and the reader for what is searched say the same text, whatever the input.
#include "platform/richtext/rtf_words.h"
#include "tests/platform/richtext/rtf_support.h"

#include <array>
#include <random>
#include <string>

using velm::RichText;
using velm::RtfLoad;

namespace {

void expectAlike(const QByteArray& rtf) {
    for (const RtfLoad load : {RtfLoad::Whole, RtfLoad::Selection}) {
        RichText rich;
        QString plain;
        const bool isRtf = readRtf(rtf, rich, load);
        ASSERT_EQ(velm::rtfToText(rtf, plain, load), isRtf) << rtf.constData();
        ASSERT_EQ(plain, rich.text()) << rtf.constData();
        if (load != RtfLoad::Whole)
            continue;
        QString beginning;
        ASSERT_EQ(velm::rtfToTextStart(rtf, beginning, plain.size() / 2), isRtf);
        ASSERT_EQ(beginning.left(plain.size() / 2), plain.left(plain.size() / 2)) << rtf.constData();
    }
}

/// Writes pieces of the language in any order: every control word, with any number; symbols, whole and cut; groups,
/// closed and not; the tables and destinations that a reader looks into.
class Writer {
public:
    explicit Writer(unsigned seed) : random_(seed) {}

    QByteArray document() {
        QByteArray rtf = below(4) == 0 ? QByteArray("{\\rtf1") : QByteArray("{\\rtf1\\ansi");
        for (int pieces = below(14); pieces >= 0; --pieces)
            rtf += group(3);
        return below(3) == 0 ? rtf : rtf + '}';
    }

private:
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    template <std::size_t N>
    QByteArray one(const std::array<const char*, N>& of) {
        return of.at(static_cast<std::size_t>(below(static_cast<int>(N))));
    }

    QByteArray word() {
        static constexpr std::array names = {
#define VELM_X(name) #name,
            VELM_RTF_TEXT_WORDS(VELM_X) VELM_RTF_FORMAT_WORDS(VELM_X)
#undef VELM_X
                "fcharset",
            "cpg",
            "red",
            "green",
            "blue",
            "pnlvlblt",
            "pnindent",
            "pngblip",
            "picw",
            "pich",
            "picwgoal",
            "unknown",
            "fprq",
            "ud",
            "upr"};
        static constexpr std::array numbers = {"",    "",       "0",     "1",  "2",   "3",
                                               "233", "-10179", "-8704", "77", "128", "99999"};
        return '\\' + one(names) + one(numbers) + (below(2) == 0 ? " " : "");
    }

    QByteArray symbol() {
        static constexpr std::array symbols = {"\\'e9", "\\'",    "\\'4", "\\'g1",  "\\'81",   "\\'}",
                                               "\\~",   "\\-",    "\\_",  "\\{",    "\\}",     "\\\\",
                                               "\\*",   "\\\r\n", "\r\n", ";",      "a",       "b c",
                                               "\x81",  "\xe9",   "\t",   "\\u233", "\\u233?", "\\u233\\'"};
        return below(40) == 0 ? QByteArray(1, static_cast<char>(below(256))) : one(symbols);
    }

    QByteArray group(int deeper) {
        static constexpr std::array heads = {"{\\fonttbl",         "{\\fonttbl{\\f0",
                                             "{\\colortbl;",       "{\\pict",
                                             "{\\*\\pn",           "{\\pntext",
                                             "{\\listtext",        "{\\upr{",
                                             "{\\*\\ud{",          "{\\*\\shppict{",
                                             "{\\stylesheet",      "{\\info",
                                             "{\\*\\unknown",      "{",
                                             "{\\field{",          "{\\*\\fldinst",
                                             "{\\f1\\fcharset128", "{\\*\\nesttableprops"};
        switch (below(deeper > 0 ? 5 : 3)) {
        case 0:
            return word();
        case 1:
        case 2:
            return symbol();
        default:
            break;
        }
        QByteArray text = one(heads);
        for (int pieces = below(5); pieces > 0; --pieces)
            text += group(deeper - 1);
        return below(8) == 0 ? text : text + (below(8) == 0 ? "}}" : "}");
    }

    std::mt19937 random_;
};

} // namespace

TEST(RtfAlike, ACutCharacterInTheFontTableTakesNoBraceWithIt) {
    const QByteArray rtf = "{\\rtf1{\\fonttbl{\\f0 A\\u233\\'}}abc}";
    EXPECT_EQ(velm::test::textOf(rtf), u"abc");
    EXPECT_EQ(velm::test::textOf("{\\rtf1{\\fonttbl{\\f0 A\\u233;}{\\f1 B;}}\\f1 abc}"), u"abc");
    EXPECT_EQ(velm::test::textOf("{\\rtf1{\\fonttbl{\\f0 A\\u233\\'e9;}{\\f1\\u233{x};}}\\f1 abc}"), u"abc");
}

TEST(RtfAlike, NamesInTheFontTableSkipWhatStandsForTheirCharacters) {
    const auto family = [](const QByteArray& entry) {
        const RichText rich = velm::test::richOf("{\\rtf1\\deff0{\\fonttbl{\\f0 " + entry + "}{\\f1 B;}}\\f0 abc}");
        return rich.charFormatAt(0).family;
    };
    EXPECT_EQ(family("A\\u233?z;"), u"A\u00e9z");
    EXPECT_EQ(family("A\\u233\\'e9z;"), u"A\u00e9z");
    EXPECT_EQ(family("A\\u233;"), u"A\u00e9");
    EXPECT_EQ(family("A\\u233\r\n;"), u"A\u00e9");
    EXPECT_EQ(family("A\\u233\\fprq2 z;"), u"A\u00e9z");
}

TEST(RtfAlike, AnyPiecesInAnyOrderReadAlike) {
    for (unsigned seed = 1; seed <= 12'000; ++seed)
        ASSERT_NO_FATAL_FAILURE(expectAlike(Writer(seed).document())) << seed;
}

TEST(RtfAlike, WhatWasCutOrChangedSomewhereReadsAlike) {
    std::mt19937 random(11);
    for (unsigned seed = 1; seed <= 2'000; ++seed) {
        const QByteArray rtf = Writer(seed).document();
        const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(rtf.size()));
        ASSERT_NO_FATAL_FAILURE(expectAlike(rtf.left(at))) << seed;
        QByteArray changed = rtf;
        changed[at] = static_cast<char>(random() % 256);
        ASSERT_NO_FATAL_FAILURE(expectAlike(changed)) << seed;
        ASSERT_NO_FATAL_FAILURE(expectAlike(QByteArray(rtf).remove(at, 1 + static_cast<qsizetype>(random() % 9))))
            << seed;
    }
}
