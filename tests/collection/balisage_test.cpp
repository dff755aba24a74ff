#include "collection/balisage.h"
#include "collection/jetons.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The pieces in a short form; what was reported behind a bar.
QString forme(const QString& texte) {
    QString resultat;
    QString fautes;
    std::vector<Morceau> morceaux;
    decoupebalisage(texte, morceaux, [&](QStringView morceau, bool tolerable) {
        fautes += (tolerable ? u"~"_s : u"!"_s) + morceau.toString();
    });
    for (const Morceau& morceau : morceaux) {
        static constexpr QStringView genres = u"TLUE)IP\n";
        const QString marques = (morceau.gras ? u"b"_s : QString()) + (morceau.italique ? u"i"_s : QString());
        resultat += u'<' + QString(genres[static_cast<int>(morceau.genre)]) + marques +
                    (morceau.texte.isEmpty() ? QString() : u' ' + morceau.texte.toString()) + u'>';
    }
    return fautes.isEmpty() ? resultat : resultat + u" | "_s + fautes;
}

TEST(Balisage, BoldAndItalicAreTurnedOnAndOff) {
    EXPECT_EQ(forme(u"a **b _c_** d"_s), u"<T a ><Tb b ><Tbi c><T  d>"_s);
}

TEST(Balisage, EscapedCharactersAreText) {
    EXPECT_EQ(forme(uR"(R\*314 a\_b \\)"_s), u"<T R><T *314 a><T _b ><T \\>"_s);
}

TEST(Balisage, LinksHoldTheirTargetAndTheirShownText) {
    EXPECT_EQ(forme(u"voir {L=L. 1-1|CL000001}, {U=site|https://x.fr/a_b*c} {E=moi|a@b.fr}"_s),
              u"<T voir ><L CL000001><T L. 1-1><)><T , ><U https://x.fr/a_b*c><T site><)><T  ><E a@b.fr><T moi><)>"_s);
}

TEST(Balisage, ALinkTakesTheFormatOfItsFirstCharacter) {
    EXPECT_EQ(forme(u"{L=**a** b|CL000001} c"_s), u"<Lb CL000001><Tb a><Tb  b><)><T  c>"_s);
}

TEST(Balisage, InclusionsAndPageBreaks) {
    EXPECT_EQ(forme(u"a{FF}{I=CO000001}b"_s), u"<T a><P><I CO000001><T b>"_s);
}

TEST(Balisage, LineFeedsAreLineEnds) {
    EXPECT_EQ(forme(u"a\nb"_s), u"<T a><\n><T b>"_s);
}

TEST(Balisage, BracesBecomeRoundBracketsAndAreReported) {
    EXPECT_EQ(forme(uR"(a \{b\})"_s), u"<T a ><T (><T b><T )> | ~{b\\}~}"_s);
}

TEST(Balisage, ABarInAShownTextBecomesASlash) {
    EXPECT_EQ(forme(uR"({L=a\|b|CL000001})"_s), u"<L CL000001><T a><T /><T b><)> | ~|b|CL000001}"_s);
    EXPECT_EQ(forme(u"a|b \\| c"_s), u"<T a|b ><T | c>"_s);
}

TEST(Balisage, WrongMarkupIsReportedAndLeftOut) {
    EXPECT_EQ(forme(u"a * b"_s), u"<T a ><T  b> | !* b"_s);
    EXPECT_EQ(forme(u"a } b"_s), u"<T a ><T  b> | !} b"_s);
    EXPECT_EQ(forme(u"{S=x}y"_s), u"<T y> | !{S=x}y"_s);
    EXPECT_EQ(forme(u"{L=x}y"_s), u"<T y> | !{L=x}y"_s);
    EXPECT_EQ(forme(u"{L=|CO000001}y"_s), u"<T y> | !{L=|CO000001}y"_s);
    EXPECT_EQ(forme(u"{L=x|}y"_s), u"<T y> | !{L=x|}y"_s);
    EXPECT_EQ(forme(u"{L=x|CO"_s), u"<T L=x|CO> | !{L=x|CO"_s);
    EXPECT_EQ(forme(u"**a"_s), u"<Tb a> | !**a"_s);
    EXPECT_EQ(forme(u"_a"_s), u"<Ti a> | !_a"_s);
    EXPECT_EQ(forme(u"a\\"_s), u"<T a> | !\\"_s);
    EXPECT_EQ(forme(u"{L=a{L=b|CO000001}|CO000002}"_s).contains(u'!'), true);
}

TEST(Balisage, InclusionsAreFoundUnlessEscaped) {
    QStringList cles;
    chercheinclusions(uR"({I=A}\{I=B} \\{I=C}{I=D)"_s, [&](QStringView cle) { cles << cle.toString(); });
    EXPECT_EQ(cles, (QStringList{u"A"_s, u"C"_s}));
}

TEST(Balisage, TheTokensOfAReadyMadeBodyAreTakenApart) {
    QString resultat;
    const QString texte = u"a{S=Note}b{L=c|CO000001}{-S}{FF}{I=CO000002}{U=d|x}{x}e{L=f}g{"_s;
    for (const Jeton& jeton : decoupejetons(texte)) {
        static constexpr QStringView genres = u"TIPL?";
        resultat += genres[static_cast<int>(jeton.genre)];
        resultat += jeton.texte;
        resultat += u' ';
    }
    EXPECT_EQ(resultat, u"Ta Tb Tc LCO000001 P ICO000002 Td Te ?{L=f} Tg ?{ T{ "_s);
}

} // namespace
} // namespace velm
