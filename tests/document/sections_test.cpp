#include "document_support.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Which style each character has, by its font: "." for none.
QString polices(const Essai& essai) {
    const RichText& rich = essai.formulaire.controle.richText();
    QString resultat;
    for (qsizetype i = 0; i < rich.length(); ++i) {
        if (rich.at(i) == u'\r')
            continue;
        const QString police = rich.charFormatAt(i).family;
        resultat += police.startsWith(u"Fonte"_s) ? police.at(5) : QChar(u'.');
    }
    return resultat;
}

TEST(Sections, AStyleSectionEndsAtItsClosingToken) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"xx{S=a}yyy{-S}zz"_s), u"xxyyyzz"_s);
    EXPECT_EQ(polices(essai), u"..111.."_s);
}

TEST(Sections, AStyleSectionEndsAtTheNextOpeningToken) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}yyy{S=c}zz{-S}w"_s), u"yyyzzw"_s);
    EXPECT_EQ(polices(essai), u"11122."_s);
}

TEST(Sections, AStyleSectionWithoutAnEndReachesTheEndOfTheText) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"x{S=a}yyy\nzz"_s), u"xyyy\nzz"_s);
    EXPECT_EQ(polices(essai), u".111111"_s);
}

TEST(Sections, TwoAdjacentOpeningsGiveTheTextToTheSecond) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}{S=c}text"_s), u"text"_s);
    EXPECT_EQ(polices(essai), u"2222"_s);
}

TEST(Sections, ThreeAdjacentOpeningsEndThePassAndTheRestIsDeleted) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}{S=c}{S=b}text{-S} {S=a}fin"_s), u"text fin"_s);
    EXPECT_EQ(polices(essai), u"........"_s);
}

TEST(Sections, AClosingTokenWithoutAnOpeningIsDeleted) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"text{-S} et{-S}"_s), u"text et"_s);
    EXPECT_EQ(polices(essai), u"......."_s);
}

TEST(Sections, AStyleOpeningWithoutItsBraceStays) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}x{-S}{S=abc"_s), u"x{S=abc"_s);
    EXPECT_EQ(polices(essai), u"1......"_s);
}

TEST(Sections, AnUnknownStyleRemovesItsTokensAndFormatsNothing) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=inconnu}text{-S}{S=A}x{-S}"_s), u"textx"_s);
    EXPECT_EQ(polices(essai), u"....."_s) << "names are compared exactly";
}

TEST(Sections, AnEmptyStyleNameFormatsNothing) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=}text{-S}"_s), u"text"_s);
    EXPECT_EQ(polices(essai), u"...."_s);
}

TEST(Sections, ACharacterStyleSetsNoParagraphField) {
    Essai essai;
    essai.charge(u""_s);
    essai.formulaire.controle.setTextRtf("{\\rtf1\\ansi\\li300\\ri200\\qr \\{S=c\\}text\\{-S\\}\\par}");
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, essai.sablier, essai.bornes});
    EXPECT_EQ(essai.caractere(0).family, u"Fonte2"_s);
    EXPECT_EQ(essai.paragraphe(0).startIndent, 300);
    EXPECT_EQ(essai.paragraphe(0).rightIndent, 200);
    EXPECT_EQ(essai.paragraphe(0).alignment, Alignment::Right);
}

TEST(Sections, AParagraphStyleReachesEveryParagraphThatItsSectionTouches) {
    Essai essai;
    essai.passe(u"un\nde{S=b}ux\ntr{-S}ois\nquatre"_s);
    EXPECT_EQ(essai.paragraphe(0).rightIndent, 0);
    EXPECT_EQ(essai.paragraphe(4).rightIndent, 800);
    EXPECT_EQ(essai.paragraphe(10).rightIndent, 800);
    EXPECT_EQ(essai.paragraphe(17).rightIndent, 0);
}

TEST(Sections, ASectionThatEndsWithALineLeavesTheNextParagraphAlone) {
    Essai essai;
    essai.passe(u"{S=b}un\n{-S}deux"_s);
    EXPECT_EQ(essai.paragraphe(0).rightIndent, 800);
    EXPECT_EQ(essai.paragraphe(4).rightIndent, 0);
}

TEST(Sections, AnEmptySectionReachesItsParagraph) {
    Essai essai;
    essai.passe(u"un\n{S=b}{-S}deux"_s);
    EXPECT_EQ(essai.paragraphe(0).rightIndent, 0);
    EXPECT_EQ(essai.paragraphe(4).rightIndent, 800);
    EXPECT_EQ(polices(essai), u"......."_s);
}

TEST(Sections, ASpecialSequenceAtASeamIsAToken) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S{S=a}=c}text{-S}"_s), u"text"_s);
    EXPECT_EQ(polices(essai), u"2222"_s) << "the opening that arose is resolved after the one inside";
    EXPECT_EQ(essai.passe(u"{S=a}x{-{-S}S}y"_s), u"xy"_s);
    EXPECT_EQ(polices(essai), u"1."_s) << "what arises of a closing belongs to nobody";
}

TEST(Sections, TheWholeTextHoldsATabAsLongAsATokenHoldsOne) {
    Essai essai;
    essai.passe(u"{S=tab}un{-S}\n{S=x\ty}deux"_s);
    EXPECT_EQ(essai.paragraphe(0).tabs, (std::vector<std::int32_t>{567, 1134, 1701}));
    essai.passe(u"{S=x\ty}un{-S}\n{S=tab}deux"_s);
    EXPECT_TRUE(essai.paragraphe(4).tabs.empty());
}

TEST(Sections, AStyledTextOutsideSectionsKeepsItsStoredFormat) {
    Essai essai;
    essai.charge(u""_s);
    essai.formulaire.controle.setTextRtf("{\\rtf1\\ansi{\\b av}\\{S=a\\}text\\{-S\\}{\\i ap}}");
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, essai.sablier, essai.bornes});
    EXPECT_TRUE(essai.caractere(0).bold);
    EXPECT_TRUE(essai.caractere(6).italic);
    EXPECT_EQ(polices(essai), u"..1111.."_s);
}

// ---- condensed display

TEST(Condensed, AHiddenStyleDisappears) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"av{S=cachee}note\n{-S}ap{S=cachee}fin"_s, true), u"avap"_s);
}

TEST(Condensed, AHiddenSectionThatTheNextOpeningEndsDisappears) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=cachee}un{S=cachee}deux{S=cachee}trois{S=cachee}quatre{S=b}reste"_s, true), u"reste"_s);
}

TEST(Condensed, AContinuationDisappearsWithTheHiddenSectionBeforeIt) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"av{S=cachee}note{-S}{S=Suite}suite{-S}ap"_s, true), u"avap"_s);
}

TEST(Condensed, AContinuationOfAContinuationIsShownAgain) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=cachee}note{-S}{S=Suite}un{-S} {S=Suite}deux{-S}"_s, true), u" deux"_s);
}

TEST(Condensed, AContinuationAfterAVisibleSectionTakesTheCondensedStyle) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}vu{-S}{S=Suite}suite{-S}"_s, true), u"vusuite"_s);
    EXPECT_EQ(polices(essai), u"..66666"_s);
}

TEST(Condensed, NoFontChangesForAVisibleStyle) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=a}un{-S}{S=c}deux{S=puce}trois"_s, true), u"undeuxtrois"_s);
    EXPECT_EQ(polices(essai), u"..........."_s);
    EXPECT_FALSE(essai.paragraphe(0).bullet);
}

TEST(Condensed, AContinuationInFullDisplayIsAStyleLikeAnother) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{S=cachee}un{-S}{S=Suite}deux"_s), u"undeux"_s);
    EXPECT_EQ(polices(essai), u"775555"_s);
}

// ---- the pointer

struct SablierJournal final : Sablier {
    int pointeur() const override { return valeur; }
    void fixepointeur(int nouveau) override {
        valeur = nouveau;
        suite += nouveau;
    }
    int valeur = 0;
    QList<int> suite;
};

TEST(Sections, TheHourglassShowsDuringThePassUnlessItAlreadyDoes) {
    Essai essai;
    SablierJournal sablier;
    essai.charge(u"{S=a}un{-S}{S=b}deux{-S}"_s);
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, sablier, essai.bornes});
    EXPECT_EQ(sablier.suite, (QList<int>{11, 0}));

    sablier = {};
    sablier.valeur = Sablier::attente;
    essai.charge(u"{S=a}un{-S}"_s);
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, sablier, essai.bornes});
    EXPECT_TRUE(sablier.suite.isEmpty());
    EXPECT_EQ(sablier.valeur, Sablier::attente);
}

} // namespace
} // namespace velm::test
