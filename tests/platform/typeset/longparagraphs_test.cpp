#include "platform/typeset/longparagraphs.h"

#include <gtest/gtest.h>
#include <random>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A text of one run, parted.
struct Parted {
    Parted(const QString& whole, int longest) : text(whole) {
        runs.push_back({0, static_cast<int>(text.size()), 0});
        int start = 0;
        for (int i = 0; i <= text.size(); ++i) {
            if (i == text.size() || text.at(i) == QChar::ParagraphSeparator) {
                ShownParagraph& paragraph = paragraphs.emplace_back();
                paragraph.documentStart = start;
                paragraph.start = start + static_cast<qsizetype>(paragraphs.size()) - 1;
                start = i + 1;
            }
        }
        partParagraphs(longest, paragraphs, runs, text);
    }
    QStringList blocks() const { return text.split(QChar::ParagraphSeparator); }

    std::vector<ShownParagraph> paragraphs;
    std::vector<ShownRun> runs;
    QString text;
};

RichText oneRun(const QString& text) {
    RichText rich;
    rich.append(text, rich.intern(CharFormat{}), rich.intern(ParaFormat{}));
    return rich;
}

} // namespace

TEST(LongParagraphs, WhatIsShortEnoughStaysAsItIs) {
    const Parted parted(u"0123456789\u2029ab\u2029"_s, 10);
    EXPECT_EQ(parted.text, u"0123456789\u2029ab\u2029"_s);
    ASSERT_EQ(parted.paragraphs.size(), 3U);
    EXPECT_TRUE(parted.paragraphs[0].first);
    EXPECT_TRUE(parted.paragraphs[0].last);
}

TEST(LongParagraphs, EndAtABlankWhichTheBlocksEndStandsFor) {
    const Parted parted(u"aaa bbb ccc ddd eee"_s, 10);
    EXPECT_EQ(parted.blocks(), (QStringList{u"aaa bbb"_s, u"ccc ddd"_s, u"eee"_s}));
    EXPECT_EQ(parted.text.size(), 19);
    EXPECT_EQ(parted.paragraphs[1].start, 8);
    EXPECT_EQ(parted.paragraphs[1].documentStart, 8);
    EXPECT_TRUE(parted.paragraphs[0].first);
    EXPECT_FALSE(parted.paragraphs[0].last);
    EXPECT_FALSE(parted.paragraphs[1].first);
    EXPECT_FALSE(parted.paragraphs[1].last);
    EXPECT_TRUE(parted.paragraphs[2].last);
}

TEST(LongParagraphs, EndAtALineEndOfTheirOwnRatherThanAtABlank) {
    EXPECT_EQ(Parted(u"aaaa bb\u2028cc dddd"_s, 10).blocks(), (QStringList{u"aaaa bb"_s, u"cc dddd"_s}));
}

TEST(LongParagraphs, EndBetweenTwoCharactersWhereNoLineMayEnd) {
    const Parted parted(u"0123456789abcdefghij"_s, 8);
    EXPECT_EQ(parted.blocks(), (QStringList{u"01234567"_s, u"89abcdef"_s, u"ghij"_s}));
    EXPECT_EQ(parted.paragraphs[1].start, 8);
    EXPECT_EQ(parted.paragraphs[1].documentStart, 9);
    EXPECT_EQ(parted.paragraphs[2].start, 16);
    EXPECT_EQ(parted.paragraphs[2].documentStart, 18);
    ASSERT_EQ(parted.runs.size(), 1U);
    EXPECT_EQ(parted.runs[0].count, parted.text.size());
}

TEST(LongParagraphs, DoNotTearCharactersApart) {
    EXPECT_EQ(Parted(u"1234567e\u0301234567890"_s, 8).blocks().first(), u"1234567"_s);
    EXPECT_EQ(Parted(u"1234567\U0001F600234567890"_s, 8).blocks().first(), u"1234567"_s);
    EXPECT_EQ(Parted(u"123456a\u200Db34567890"_s, 8).blocks().first(), u"123456"_s);
    EXPECT_EQ(Parted(u"a"_s + QString(40, QChar(0x0301)), 8).blocks().first().size(), 8) << "nothing but marks";
}

TEST(LongParagraphs, LeaveNoEmptyBlock) {
    EXPECT_EQ(Parted(u"aaaaaaaa "_s, 8).blocks().last().isEmpty(), false);
    EXPECT_EQ(Parted(u"         "_s, 8).blocks().last().isEmpty(), false);
    EXPECT_EQ(Parted(u"aaaaaaa\u2028\u2028"_s, 8).blocks().last().isEmpty(), false);
}

TEST(LongParagraphs, KeepEveryCharacterInItsRunAndEveryPlaceOfTheModel) {
    std::mt19937 random(3);
    for (int round = 0; round < 400; ++round) {
        QString whole;
        const int length = static_cast<int>(random() % 120);
        for (int i = 0; i < length; ++i) {
            static const QString units = u"abcdefgh  \u2028e\u0301"_s;
            whole += random() % 25 == 0 ? QChar(QChar::ParagraphSeparator)
                                        : units.at(static_cast<qsizetype>(random() % std::size_t(units.size())));
        }
        const int longest = 2 + static_cast<int>(random() % 20);
        const Parted parted(whole, longest);
        int paragraph = 0;
        for (std::size_t i = 0; i < parted.paragraphs.size(); ++i) {
            const ShownParagraph& block = parted.paragraphs[i];
            const int end = i + 1 < parted.paragraphs.size() ? parted.paragraphs[i + 1].documentStart - 1
                                                             : static_cast<int>(parted.text.size());
            ASSERT_LE(end - block.documentStart, longest);
            paragraph += block.first && i > 0 ? 1 : 0;
            const QStringView here = QStringView(parted.text).sliced(block.documentStart, end - block.documentStart);
            ASSERT_EQ(here, QStringView(whole).sliced(block.start - paragraph, here.size()));
            ASSERT_EQ(block.first, i == 0 || parted.paragraphs[i - 1].last);
        }
        ASSERT_TRUE(parted.paragraphs.back().last);
        ASSERT_EQ(parted.runs.back().start + parted.runs.back().count, parted.text.size());
    }
}

TEST(LongParagraphs, RunsMoveWithTheEndsThatArePutIn) {
    QString text(20, u'x');
    std::vector<ShownParagraph> paragraphs(1);
    std::vector<ShownRun> runs{{0, 8, 1}, {8, 5, 2}, {13, 7, 3}};
    partParagraphs(8, paragraphs, runs, text);
    EXPECT_EQ(runs[0].count, 9) << "the end behind its last character is its own";
    EXPECT_EQ(runs[1].start, 9);
    EXPECT_EQ(runs[1].count, 5);
    EXPECT_EQ(runs[2].start, 14);
    EXPECT_EQ(runs[2].count, 8);
}

TEST(ShownText, AVeryLongParagraphKeepsItsPositions) {
    constexpr int longest = ShownText::longestPart;
    const QString words = u"mot "_s.repeated(longest / 2);
    const ShownText shown(oneRun(u"a\r\n"_s + words + u"\r\n"_s + QString(3 * longest, u'x') + u"\r\nfin"_s));
    EXPECT_GT(shown.count(), 6);
    for (qsizetype model = 0; model <= shown.modelLength(); model += 61) {
        const int document = shown.toDocument(model);
        const bool insideEnd = model == 2 || model == 3 + words.size() + 1;
        ASSERT_EQ(shown.toModel(document), insideEnd ? model - 1 : model);
    }
    int before = -1;
    for (int document = 0; document <= shown.documentLength(); ++document) {
        const auto model = static_cast<int>(shown.toModel(document));
        ASSERT_LE(before, model);
        ASSERT_LE(model - before, 2);
        before = model;
    }
    EXPECT_EQ(shown.toModel(shown.documentLength()), shown.modelLength());
    const int last = shown.count() - 1;
    EXPECT_TRUE(shown.paragraph(last).first && shown.paragraph(last).last);
    EXPECT_EQ(shown.paragraph(last - 1).last, true);
    EXPECT_EQ(shown.paragraph(last - 1).first, false);
}

} // namespace velm
