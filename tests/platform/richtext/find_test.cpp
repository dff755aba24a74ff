#include "platform/richtext/find.h"
#include "platform/text/letters.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>
#include <random>

namespace velm {
namespace {

qsizetype found(QStringView text, QStringView what, qsizetype start = 0, qsizetype end = -1, FindOptions options = {}) {
    return find(text, what, start, end, options);
}

TEST(Find, CaseIsIgnoredUnlessAsked) {
    EXPECT_EQ(found(u"Le Code civil", u"code"), 3);
    EXPECT_EQ(found(u"Le Code civil", u"CODE"), 3);
    EXPECT_EQ(found(u"Le Code civil", u"code", 0, -1, {.matchCase = true}), -1);
    EXPECT_EQ(found(u"Le Code civil, code", u"code", 0, -1, {.matchCase = true}), 15);
}

TEST(Find, EveryLetterOfTheAlphabetHasTwoCases) {
    const QString small = QStringLiteral("abcdefghijklmnopqrstuvwxyz {|}~`@[");
    EXPECT_EQ(found(small, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ {|}~`@["), 0);
    EXPECT_EQ(found(small, u"[{"), -1);
    EXPECT_EQ(found(small, u"@"), 32);
    EXPECT_EQ(found(small, u"["), 33);
}

TEST(Find, AccentsCountAndHaveCase) {
    EXPECT_EQ(found(u"société", u"societe"), -1);
    EXPECT_EQ(found(u"SOCIÉTÉ", u"société"), 0);
    EXPECT_EQ(found(u"ŒUVRE d'œuvre", u"œuvre", 1), 8);
    EXPECT_EQ(found(u"ÿ", u"Ÿ"), 0);
    EXPECT_EQ(found(u"l\u2019ÉTÉ", u"l\u2019été"), 0);
}

TEST(Find, WholeWordsHaveNoLetterOrDigitBeside) {
    const FindOptions whole{.wholeWord = true};
    EXPECT_EQ(found(u"baux bail bailleur", u"bail", 0, -1, whole), 5);
    EXPECT_EQ(found(u"sous-bail", u"bail", 0, -1, whole), 5);
    EXPECT_EQ(found(u"bail1 1bail", u"bail", 0, -1, whole), -1);
    EXPECT_EQ(found(u"ébail bailé", u"bail", 0, -1, whole), -1);
    EXPECT_EQ(found(u"bail", u"bail", 0, -1, whole), 0);
    EXPECT_EQ(found(u"BAIL bail", u"bail", 0, -1, {.wholeWord = true, .matchCase = true}), 5);
}

TEST(Find, UnitsOutsideTheRangeCountForWholeWords) {
    const FindOptions whole{.wholeWord = true};
    EXPECT_EQ(found(u"abail", u"bail", 1, -1, whole), -1);
    EXPECT_EQ(found(u"baila", u"bail", 0, 4, whole), -1);
    EXPECT_EQ(found(u"baila", u"bail", 0, 4), 0);
}

TEST(Find, AHitLiesWhollyInTheRange) {
    EXPECT_EQ(found(u"un deux un", u"un", 1), 8);
    EXPECT_EQ(found(u"un deux un", u"un", 8, 10), 8);
    EXPECT_EQ(found(u"un deux un", u"un", 8, 9), -1);
    EXPECT_EQ(found(u"un deux un", u"un", 9), -1);
    EXPECT_EQ(found(u"un deux un", u"un", 100), -1);
    EXPECT_EQ(found(u"un deux un", u"un", -5), 0);
    EXPECT_EQ(found(u"un deux un", u"un", 5, 3), -1);
    EXPECT_EQ(found(u"un deux un", u"un", 1, 999), 8);
}

TEST(Find, NothingIsNeverFound) {
    EXPECT_EQ(found(u"abc", u""), -1);
    EXPECT_EQ(found(u"", u"a"), -1);
    EXPECT_EQ(found(u"", u""), -1);
}

TEST(Find, HitsAreFoundWhereverTheTextIsCutInside) {
    // The text is searched in parts; a hit on each seam must be found.
    const QString base(70000, u'x');
    for (const qsizetype at : {0, 253, 254, 255, 256, 257, 765, 766, 767, 768, 769, 32000, 65279, 65280, 69996}) {
        QString text = base;
        text.replace(at, 4, QStringLiteral("Mot!"));
        EXPECT_EQ(found(text, u"mot!"), at);
        EXPECT_EQ(found(text, u"Mot!", 0, -1, {.matchCase = true}), at);
    }
}

TEST(Find, AllHitsAreFoundAcrossTheSeamsOnce) {
    RichText rich;
    rich.replace(0, 0, QString(70000, u'x'));
    std::vector<qsizetype> places{0, 254, 766, 32000, 65279, 69996};
    for (const qsizetype at : places)
        rich.replace(at, 4, u"Mot!");
    EXPECT_EQ(findAll(rich, u"mot!", {}), places);
    EXPECT_EQ(findAll(rich, u"Mot!", {.matchCase = true}), places);
    EXPECT_EQ(findAll(rich, u"mot!", {.matchCase = true}), std::vector<qsizetype>{});
    EXPECT_EQ(findAll(RichText(), u"a", {}), std::vector<qsizetype>{});
}

TEST(Find, RepetitiveTextsDoNotSlowTheSearchDown) {
    // Quadratic behaviour would compare 10^11 units here.
    QString text(1000000, u'a');
    const QString needle = QString(100000, u'a') + u'b';
    EXPECT_EQ(found(text, needle), -1);
    text += u'b';
    EXPECT_EQ(found(text, needle), 900000);
    EXPECT_EQ(found(text, needle, 0, -1, {.matchCase = true}), 900000);
}

TEST(Find, RepetitiveTextsAreSearchedExactly) {
    std::mt19937 random(11);
    const auto number = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    for (int round = 0; round < test::rounds(2000); ++round) {
        // Long runs of one letter, so that false starts abound and the search changes its method.
        const int rarity = number(2, 200);
        QString text;
        for (int i = number(0, 3000); i > 0; --i)
            text += number(0, rarity) == 0 ? u'b' : u'a';
        const qsizetype from = number(0, 3000);
        const QString what = text.mid(from, number(1, 60)) + (number(0, 1) != 0 ? QStringLiteral("b") : QString());
        const qsizetype start = number(0, 500);
        const qsizetype expected = what.isEmpty() ? -1 : text.indexOf(what, start);
        RichText rich;
        rich.append(text, 0, 0);
        rich.replace(number(0, 3000), 1, u"a");
        ASSERT_EQ(found(text, what, start, -1, {.matchCase = true}), expected);
        ASSERT_EQ(found(text, what, start), expected);
        if (!what.isEmpty()) {
            ASSERT_EQ(rich.indexOf(what, start), rich.text().indexOf(what, start));
        }
    }
}

/// The definition, place by place.
qsizetype naive(QStringView text, QStringView what, qsizetype start, qsizetype end, FindOptions options) {
    end = end < 0 ? text.size() : std::min(end, text.size());
    const auto beside = [&](qsizetype i) { return i >= 0 && i < text.size() && text[i].isLetterOrNumber(); };
    for (qsizetype i = std::max<qsizetype>(start, 0); !what.isEmpty() && i + what.size() <= end; ++i) {
        const QStringView here = text.sliced(i, what.size());
        const bool same = options.matchCase ? here == what : upperCase(here) == upperCase(what);
        if (same && !(options.wholeWord && (beside(i - 1) || beside(i + what.size()))))
            return i;
    }
    return -1;
}

TEST(Find, EqualsTheDefinitionInBothFormsOnRandomTexts) {
    std::mt19937 random(7);
    const auto number = [&random](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    const QString letters = QStringLiteral("aAaAbéÉ -1\uFFFC\u2019ſs\u00FFµ");
    for (int round = 0; round < test::rounds(20000); ++round) {
        QString text;
        for (int i = number(0, 60); i > 0; --i)
            text += letters[number(0, static_cast<int>(letters.size()) - 1)];
        QString what;
        for (int i = number(0, 4); i > 0; --i)
            what += letters[number(0, static_cast<int>(letters.size()) - 1)];
        const qsizetype start = number(-2, 62);
        const qsizetype end = number(-1, 62);
        const FindOptions options{number(0, 1) != 0, number(0, 1) != 0};
        RichText rich;
        rich.replace(0, 0, text);
        // A change in the middle opens the text there.
        const qsizetype middle = number(0, static_cast<int>(text.size()));
        rich.replace(middle, 0, u"x");
        rich.remove(middle, 1);
        const qsizetype expected = naive(text, what, start, end, options);
        ASSERT_EQ(find(text, what, start, end, options), expected) << text.toStdString() << " / " << what.toStdString();
        ASSERT_EQ(find(rich, what, start, end, options), expected) << text.toStdString() << " / " << what.toStdString();
        std::vector<qsizetype> all;
        for (qsizetype hit = naive(text, what, 0, -1, options); hit >= 0; hit = naive(text, what, hit + 1, -1, options))
            all.push_back(hit);
        ASSERT_EQ(findAll(rich, what, options), all) << text.toStdString() << " / " << what.toStdString();
    }
}

} // namespace
} // namespace velm
