#include "platform/base/twips.h"
#include "platform/text/letters.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(UpperCase, KeepsAccents) {
    EXPECT_EQ(upperCase(u"été à l'œuvre, ça où naïf ÿ"), u"ÉTÉ À L'ŒUVRE, ÇA OÙ NAÏF Ÿ"_s);
    EXPECT_EQ(upperCase(u""), QString());
}

TEST(UpperCase, KeepsTheLength) {
    EXPECT_EQ(upperCase(u"straße ŉ ﬁ ΐ"), u"STRAßE ŉ ﬁ ΐ"_s);
    EXPECT_EQ(upperCase(u"a\U00010428b"), u"A\U00010428B"_s) << "pairs of units are left alone";
    for (char32_t c = 0; c < 0x10000; ++c) {
        const QChar unit(static_cast<char16_t>(c));
        ASSERT_EQ(upperCase(QStringView(&unit, 1)).size(), 1);
        ASSERT_EQ(lowerCase(QStringView(&unit, 1)).size(), 1);
    }
}

TEST(UpperCase, CharactersWithoutACapitalInTheCodePageStay) {
    EXPECT_EQ(upperCase(u"µƒ"), u"µƒ"_s);
}

TEST(LowerCase, KeepsAccents) {
    EXPECT_EQ(lowerCase(u"ÉTÉ À L'ŒUVRE ÇA Ÿ"), u"été à l'œuvre ça ÿ"_s);
}

TEST(NormaliseMot, TheTableIsExactlyThis) {
    const std::pair<QStringView, char16_t> rows[] = {
        {u"éèêëÉÈÊË", u'E'}, {u"ãÃàâäÀÂÄ", u'A'}, {u"îïÎÏ", u'I'}, {u"ôÔõÕ", u'O'},
        {u"ûùÙÛ", u'U'},     {u"ñÑ", u'N'},       {u"çÇ", u'C'},
    };
    QString letters;
    for (const auto& [from, to] : rows) {
        EXPECT_EQ(normalisemot(from), QString(from.size(), QChar(to)));
        letters += from;
    }
    for (char32_t c = u'z' + 1; c < 0x10000; ++c) {
        const QChar unit(static_cast<char16_t>(c));
        if (!letters.contains(unit)) {
            ASSERT_EQ(normalisemot(QStringView(&unit, 1)), QString(unit)) << static_cast<unsigned>(c);
        }
    }
}

TEST(NormaliseMot, UpToZCharactersAreUpperCased) {
    EXPECT_EQ(normalisemot(u"abcxyzABCXYZ019_-'"), u"ABCXYZABCXYZ019_-'"_s);
    for (char16_t c = 0; c <= u'z'; ++c) {
        const QChar unit(c);
        ASSERT_EQ(normalisemot(QStringView(&unit, 1)), upperCase(QStringView(&unit, 1)));
    }
}

TEST(NormaliseMot, LigaturesAndUmlautsStayAsTheyAre) {
    EXPECT_EQ(normalisemot(u"öÖüÜÿæÆœŒíÍóÓúÚáÁýß"), u"öÖüÜÿæÆœŒíÍóÓúÚáÁýß"_s);
    EXPECT_EQ(normalisemot(u"cœur"), u"CœUR"_s);
}

TEST(NormaliseMot, AnEmptyWordStaysEmpty) {
    EXPECT_TRUE(normalisemot({}).isEmpty());
}

TEST(SortKey, AccentsComeBehindLetters) {
    const QString words[] = {u"COTE"_s, u"COTÉ"_s, u"CÔTE"_s, u"CÔTÉ"_s, u"COTER"_s, u"CÔTES"_s, u"COTF"_s};
    for (size_t i = 1; i < std::size(words); ++i)
        EXPECT_LT(sortKey(words[i - 1]), sortKey(words[i])) << words[i].toUtf8().constData();
}

TEST(SortKey, CaseMakesNoDifference) {
    EXPECT_EQ(sortKey(u"Élève"), sortKey(u"éLÈVE"));
    EXPECT_EQ(sortKey(u"Cœur"), sortKey(u"CŒUR"));
    EXPECT_NE(sortKey(u"eleve"), sortKey(u"élève"));
}

TEST(SortKey, ABlankSortsBeforeLettersAndAShorterTextBeforeALonger) {
    EXPECT_LT(sortKey(u""), sortKey(u" "));
    EXPECT_LT(sortKey(u"CODE"), sortKey(u"CODE CIVIL"));
    EXPECT_LT(sortKey(u"CODE CIVIL"), sortKey(u"CODES"));
    EXPECT_LT(sortKey(u"ÉTÉ"), sortKey(u"ETES"));
}

TEST(SortKey, OrdersAsFoldedTextThenAccents) {
    const std::u16string alphabet = {u'a', u'A', u'e', u'E', u'é', u'É', u'è', u'z',   u'Z',   u' ',
                                     u'œ', u'Œ', u'ö', u'ÿ', u'9', u'-', u'Б', 0xD83D, 0xDE00, 0};
    std::mt19937 random(11);
    const auto word = [&] {
        QString text;
        const auto length = random() % 6;
        for (size_t i = 0; i < length; ++i)
            text.append(QChar(alphabet[random() % alphabet.size()]));
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const QString a = word();
        const QString b = word();
        const QString upperA = upperCase(a);
        const QString upperB = upperCase(b);
        const QString foldedA = normalisemot(upperA);
        const QString foldedB = normalisemot(upperB);
        const bool equal = sortKey(a) == sortKey(b);
        ASSERT_EQ(equal, upperA == upperB);
        // QString's own order is that of the units. A null character is the separator: it stays out of the comparison.
        if (equal || a.contains(QChar::Null) || b.contains(QChar::Null))
            continue;
        const bool less = foldedA != foldedB ? foldedA < foldedB : upperA < upperB;
        ASSERT_EQ(sortKey(a) < sortKey(b), less) << a.toUtf8().constData() << " / " << b.toUtf8().constData();
    }
}

TEST(SortKeyPrefix, IsTheBeginningOfTheKeysOfExactlyTheTextsWithThatFoldedPrefix) {
    EXPECT_EQ(sortKeyPrefix(u"CONS"), QByteArray("CONS"));
    EXPECT_TRUE(sortKeyPrefix(u"").isEmpty());
    const QString words[] = {u"été"_s, u"ÉTENDUE"_s, u"etc"_s, u"et"_s, u"œuvre"_s, u"oeuvre"_s, u"ö"_s, u"o"_s};
    for (const QString& prefix : {u"ETE"_s, u"éT"_s, u"œ"_s, u"Œ"_s, u"OE"_s, u"o"_s}) {
        const QString foldedPrefix = normalisemot(upperCase(prefix));
        for (const QString& text : words) {
            EXPECT_EQ(sortKey(text).startsWith(sortKeyPrefix(prefix)),
                      normalisemot(upperCase(text)).startsWith(foldedPrefix))
                << prefix.toUtf8().constData() << " / " << text.toUtf8().constData();
        }
    }
}

TEST(SortKeyPrefix, TextsWithOnePrefixStandSideBySide) {
    QList<QString> words = {u"ETE"_s, u"ÉTAT"_s, u"ETATS"_s, u"œuvre"_s, u"OEUVRE"_s, u"êtes"_s, u"ETAGE"_s, u"zut"_s};
    std::sort(words.begin(), words.end(), [](const QString& a, const QString& b) { return sortKey(a) < sortKey(b); });
    const QByteArray prefix = sortKeyPrefix(u"ETA");
    QString runs;
    for (const QString& word : words)
        runs += sortKey(word).startsWith(prefix) ? u'x' : u'.';
    EXPECT_EQ(runs, u"xxx....."_s);
}

TEST(Twips, FifteenToAPixel) {
    EXPECT_EQ(pixelsFromTwips(9600), 640);
    EXPECT_EQ(twipsFromPixels(480), 7200);
    EXPECT_EQ(twipsPerPoint * 72, twipsPerInch);
}

} // namespace
