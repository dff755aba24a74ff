#include "platform/richtext/find.h"
#include "platform/richtext/foldtext.h"

#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(FoldedText, EachUnitGivesOneByteOfTheCodePageInUpperCase) {
    EXPECT_EQ(foldedText(u"Été \u20ac œ ÿ ß\r\n"), "\xC9T\xC9 \x80 \x8C \x9F \xDF\r\n");
    EXPECT_EQ(foldedText(u"Łж\U0001F600"), QByteArray(4, '\0'));
    EXPECT_TRUE(foldedText(u"").isEmpty());
}

TEST(FoldedText, WhatIsFoundStandsInItAtTheSamePlace) {
    std::mt19937 random(3);
    // Every unit there is, and few of them, so that texts meet.
    QString all;
    for (char16_t unit : u"aAbB éÉœŒÿŸßµ\u039C\u00B5ıİſsSK\u212A\u01C5\u01C6Łł\0\uFFFD\U0001F600")
        all += unit;
    const auto text = [&](int longest) {
        QString made;
        const int size = std::uniform_int_distribution<int>(0, longest)(random);
        for (int i = 0; i < size; ++i)
            made += random() % 50 == 0 ? QChar(static_cast<char16_t>(random()))
                                       : all[static_cast<qsizetype>(random() % static_cast<unsigned>(all.size()))];
        return made;
    };
    int hits = 0;
    for (int round = 0; round < 100'000; ++round) {
        const QString where = text(60);
        const QString what = text(3);
        const FindOptions options{random() % 2 == 0, random() % 2 == 0};
        const qsizetype hit = find(where, what, 0, -1, options);
        if (hit < 0)
            continue;
        ++hits;
        const QByteArray folded = foldedText(where);
        ASSERT_EQ(folded.size(), where.size());
        ASSERT_EQ(folded.sliced(hit, what.size()), foldedText(what)) << round;
        ASSERT_LE(indexOfBytes(folded, foldedText(what)), hit);
        ASSERT_GE(indexOfBytes(folded, foldedText(what)), 0);
    }
    EXPECT_GT(hits, 1000);
}

TEST(FoldedText, EveryUnitThatEqualsAnotherWithoutCaseFoldsLikeIt) {
    QString units(0x10000, Qt::Uninitialized);
    for (qsizetype i = 0; i < units.size(); ++i)
        units[i] = QChar(static_cast<char16_t>(i));
    const QByteArray folded = foldedText(units);
    for (qsizetype i = 0; i < units.size(); ++i) {
        const QString one(units[i]);
        for (const QString& other : {one.toUpper(), one.toLower()}) {
            if (other.size() == 1 && find(one, other, 0, -1, {}) == 0) {
                ASSERT_EQ(folded[i], foldedText(other)[0]) << i;
            }
        }
    }
}

TEST(IndexOfBytes, EqualsThePlainSearch) {
    std::mt19937 random(11);
    const auto bytes = [&](int longest, unsigned letters) {
        QByteArray made(std::uniform_int_distribution<int>(0, longest)(random), '\0');
        for (char& byte : made)
            byte = static_cast<char>('A' + random() % letters);
        return made;
    };
    for (int round = 0; round < 60'000; ++round) {
        const unsigned letters = 1 + random() % 4;
        const QByteArray text = bytes(round % 100 == 0 ? 3000 : 80, letters);
        const QByteArray needle = bytes(round % 3 == 0 ? 20 : 4, letters);
        const qsizetype from = std::uniform_int_distribution<qsizetype>(0, text.size() + 2)(random);
        const qsizetype expected = needle.isEmpty() ? -1 : text.indexOf(needle, from);
        ASSERT_EQ(indexOfBytes(text, needle, from), expected) << round;
    }
}

TEST(IndexOfBytes, ReadsNothingBeyondTheText) {
    // Pieces of a larger text whose neighbourhood would match.
    const QByteArray whole("XXABCXX");
    EXPECT_EQ(indexOfBytes(QByteArrayView(whole).sliced(2, 2), "ABC"), -1);
    EXPECT_EQ(indexOfBytes(QByteArrayView(whole).sliced(2, 3), "ABC"), 0);
    EXPECT_EQ(indexOfBytes({}, "A"), -1);
}

TEST(IndexOfBytes, ManyFalseStartsTakeLinearTime) {
    constexpr qsizetype size = 4'000'000;
    const QByteArray text(size, 'A');
    QByteArray needle(size / 2, 'A');
    needle.front() = 'B';
    EXPECT_EQ(indexOfBytes(text, needle), -1);
    needle.front() = 'A';
    needle.back() = 'B';
    EXPECT_EQ(indexOfBytes(text, needle), -1);
}

} // namespace
