// Both readers and the writer on files that others wrote, and on damaged copies of them.
#include "tests/platform/richtext/rtf_support.h"

#include <algorithm>
#include <random>

using velm::RichText;
using velm::RtfLoad;
using velm::test::suiteFiles;

namespace {

/// The rules that hold for any input.
void expectConsistent(const QByteArray& rtf) {
    for (const RtfLoad load : {RtfLoad::Whole, RtfLoad::Selection}) {
        RichText rich;
        QString plain;
        const bool isRtf = readRtf(rtf, rich, load);
        ASSERT_EQ(velm::rtfToText(rtf, plain, load), isRtf);
        ASSERT_TRUE(plain == rich.text());
        // Never more than the input can say: a short \row may bring the tabs of its missing cells.
        ASSERT_LE(plain.size(), rtf.size() * 16 + 64);
        if (!isRtf) {
            ASSERT_TRUE(rich.isEmpty());
            continue;
        }
        const QByteArray first = writeRtf(rich);
        RichText again;
        ASSERT_TRUE(readRtf(first, again, RtfLoad::Whole));
        ASSERT_TRUE(sameContent(rich, again)) << rtf.left(2000).constData() << "\n" << first.left(2000).constData();
        ASSERT_TRUE(writeRtf(again) == first);
    }
}

std::size_t place(std::mt19937& random, qsizetype size) {
    return static_cast<std::size_t>(random()) % static_cast<std::size_t>(std::max<qsizetype>(size, 1));
}

QByteArray damaged(QByteArray bytes, std::mt19937& random) {
    constexpr std::array pieces = {"{",
                                   "}",
                                   "\\",
                                   "\\'",
                                   "\\u-10179 ?",
                                   "\\uc3 ",
                                   "\\bin5 ",
                                   "\\row ",
                                   "\\cell ",
                                   "\\trowd\\cellx10\\cellx20 ",
                                   "\\intbl ",
                                   "\\par ",
                                   "{\\*\\pn\\pnlvlblt}",
                                   "{\\pict ",
                                   "\\f1 ",
                                   "\\fs-1 ",
                                   "\\li99999999999 ",
                                   "{\\upr{",
                                   "{\\*\\x ",
                                   "\\line ",
                                   "{\\fonttbl{\\f0\\fcharset128 x;}}",
                                   "\\'81",
                                   "{\\listtext \\'b7\\tab}",
                                   "\\pard ",
                                   "\\tx100\\tx50 ",
                                   "\\super ",
                                   "\\page "};
    for (auto k = 1 + random() % 6; k > 0; --k) {
        const auto at = static_cast<qsizetype>(place(random, bytes.size()));
        switch (random() % 5) {
        case 0:
            bytes.insert(at, pieces[random() % pieces.size()]);
            break;
        case 1:
            bytes[std::min(at, bytes.size() - 1)] = static_cast<char>(random() % 256);
            break;
        case 2:
            bytes.remove(at, static_cast<qsizetype>(random() % 40));
            break;
        case 3:
            bytes.insert(at, bytes.mid(static_cast<qsizetype>(place(random, bytes.size())), 60));
            break;
        default:
            bytes.insert(static_cast<qsizetype>(place(random, bytes.size())), pieces[random() % pieces.size()]);
            break;
        }
        if (bytes.isEmpty())
            return bytes;
    }
    return random() % 8 == 0 ? bytes.left(static_cast<qsizetype>(place(random, bytes.size()))) : bytes;
}

} // namespace

TEST(RtfSuite, EveryFileReadsAlikeInBothReadersAndSurvivesTheWriter) {
    const auto files = suiteFiles();
    if (files.empty())
        GTEST_SKIP() << "the suite of RTF files is not there";
    for (const QByteArray& rtf : files)
        expectConsistent(rtf);
}

TEST(RtfSuite, DamagedFilesReadAlikeToo) {
    const auto files = suiteFiles();
    if (files.empty())
        GTEST_SKIP() << "the suite of RTF files is not there";
    std::mt19937 random(1);
    for (int i = 0; i < 600; ++i) {
        const QByteArray& rtf = files[place(random, static_cast<qsizetype>(files.size()))];
        ASSERT_NO_FATAL_FAILURE(expectConsistent(damaged(rtf.left(20'000), random))) << i;
    }
}

TEST(RtfSuite, RandomPiecesReadAlike) {
    std::mt19937 random(2);
    const QByteArray seed =
        "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset2 Symbol;}}{\\colortbl;\\red1\\green2"
        "\\blue3;}\\pard a\\b b\\par\\trowd\\cellx100\\cellx300\\intbl c\\cell d\\cell\\row\\pard e}";
    for (int i = 0; i < 6000; ++i)
        ASSERT_NO_FATAL_FAILURE(expectConsistent(damaged(seed, random))) << i;
}
