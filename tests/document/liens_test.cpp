#include "document_support.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Links, ALinkRecordsItsFirstAndLastPositionAndItsKey) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"voir {L=l'article 3|CO000003}."_s), u"voir l'article 3."_s);
    EXPECT_EQ(essai.liens(), QStringList{u"L 5-16 CO000003 l'article 3"_s});
    const ListesLiens& l = essai.formulaire.liens;
    EXPECT_EQ(l.Listestarthyperlien.texte(0), u"5"_s);
    EXPECT_EQ(l.Listeendhyperlien.texte(0), u"16"_s);
    EXPECT_EQ(l.Listeendhyperlien.valeur(0), 16);
    EXPECT_EQ(l.Listeendhyperlien.texte(1), QString());
}

TEST(Links, PositionsStayRightForSeveralLinksInOneLine) {
    Essai essai;
    const QString texte = essai.passe(u"{L=un|CO000001} et {L=deux|CO000002}\n{L=trois|EU000003}"_s);
    EXPECT_EQ(texte, u"un et deux\ntrois"_s);
    EXPECT_EQ(essai.liens(),
              (QStringList{u"L 0-2 CO000001 un"_s, u"L 6-10 CO000002 deux"_s, u"L 12-17 EU000003 trois"_s}));
}

TEST(Links, AWebLinkRecordsItsAddressAMailLinkItsMailAddress) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{U=le site|http://a.fr/b?c=d}, {E=écrire|a@b.fr}"_s), u"le site, écrire"_s);
    EXPECT_EQ(essai.liens(), (QStringList{u"U 0-7 http://a.fr/b?c=d"_s, u"E 9-15 a@b.fr"_s}));
    EXPECT_TRUE(essai.formulaire.liens.ListeValeurHyperLien.isEmpty());
}

TEST(Links, TheCharacterBehindTheLetterIsSkippedUnread) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{L:un|CO000001}{U deux|w}{E\nx|m}"_s), u"undeux\nx"_s);
    EXPECT_EQ(essai.liens().size(), 3);
}

TEST(Links, AnEmptyShownTextIsALinkOfNoLength) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{L=|CO000001}b"_s), u"ab"_s);
    EXPECT_EQ(essai.liens(), QStringList{u"L 1-1 CO000001"_s});
}

TEST(Links, AnEmptyTargetIsRecorded) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{L=a|}{U=b|}"_s), u"ab"_s);
    EXPECT_EQ(essai.formulaire.liens.Listehyperlien, QStringList{QString()});
    EXPECT_EQ(essai.formulaire.liens.ListeUrl, QStringList{QString()});
}

TEST(Links, ATargetReachesFromTheFirstBarToTheBrace) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{U=a|b|c}"_s), u"a"_s);
    EXPECT_EQ(essai.formulaire.liens.ListeUrl, QStringList{u"b|c"_s});
}

TEST(Links, ALinkTakesTheFormatOfItsBrace) {
    Essai essai;
    essai.charge(u""_s);
    essai.formulaire.controle.setTextRtf("{\\rtf1\\ansi{\\b\\{}L={\\i texte}|CO000001\\}}");
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, essai.sablier, essai.bornes});
    EXPECT_EQ(essai.formulaire.controle.text(), u"texte"_s);
    EXPECT_TRUE(essai.caractere(0).bold && essai.caractere(4).bold);
    EXPECT_FALSE(essai.caractere(0).italic);
}

TEST(Links, ALinkWithoutABarOrABraceKeepsItsBrace) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{L=texte} b {L=fin"_s), u"a{L=texte} b {L=fin"_s);
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, ALinkWhoseBarStandsBehindItsBraceKeepsItsBrace) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{L=texte} | fin {x}"_s), u"{L=texte} | fin "_s);
}

TEST(Links, AWebLinkWithoutABarMakesNoProgress) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{x}a{U=texte}b{x}"_s), u"a{U=texte}b{x}"_s) << "the text stays as it is from there on";
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, AWebLinkWithoutABraceMakesNoProgress) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{U=texte|adresse"_s), u"a{U=texte|adresse"_s);
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, AMailLinkWithoutABraceAdvances) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{E=texte|adresse {"_s), u"a{E=texte|adresse {"_s);
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, AMailLinkWithoutABarMakesNoProgress) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{x}a{E=texte}b{x}"_s), u"a{E=texte}b{x}"_s);
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, ALinkWithoutEvenTheSkippedCharacterHasNoShownTextToPut) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{L|CO000001}b{x}"_s), u"{L|CO000001}b{x}"_s);
    const ListesLiens& l = essai.formulaire.liens;
    EXPECT_EQ(l.Listehyperlien, QStringList{u"CO000001"_s});
    EXPECT_EQ(l.Listestarthyperlien.nombre(), 1);
    EXPECT_TRUE(l.ListeValeurHyperLien.isEmpty());
}

TEST(Links, AWebLinkWhoseBarStandsBehindItsBraceHasNoTarget) {
    Essai essai;
    // The shown text reaches up to the bar, over the brace; the length of the target is below 0 and its row fails.
    EXPECT_EQ(essai.passe(u"{U=un} et deux|z"_s), u"un} et deux et deux|z"_s);
    const ListesLiens& l = essai.formulaire.liens;
    EXPECT_EQ(l.ListeStartUrl.texte(0), u"0"_s);
    EXPECT_EQ(l.ListeEndUrl.texte(0), u"11"_s);
    EXPECT_TRUE(l.ListeUrl.isEmpty());
}

TEST(Links, AMailLinkWhoseBarStandsBehindItsBraceHasNoTarget) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{E=un}x|{U=b|c}"_s), u"un}xx|b"_s);
    const ListesLiens& l = essai.formulaire.liens;
    EXPECT_EQ(l.ListeStartEmail.nombre(), 1);
    EXPECT_TRUE(l.ListeEmail.isEmpty());
    EXPECT_EQ(l.ListeUrl, QStringList{u"c"_s});
}

TEST(Links, ABraceInAShownTextIsReadAsANewToken) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"{L=a {x b|CO000001} c}d"_s), u"a d"_s);
    EXPECT_EQ(essai.liens(), QStringList{u"L 0-6 CO000001 a {x b"_s});
    EXPECT_EQ(essai.passe(u"{L={U=site|CO000001} et|http://a}"_s), u"site et"_s);
    EXPECT_EQ(essai.liens(), (QStringList{u"L 0-7 CO000001 {U=site"_s, u"U 0-7 http://a"_s}));
}

TEST(Links, AnUnknownTokenIsDeletedWithItsBraces) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{}b{quelque chose}c{l=a|b}d{ L=a|b}e"_s), u"abcde"_s);
    EXPECT_TRUE(essai.liens().isEmpty());
}

TEST(Links, AnUnterminatedUnknownTokenKeepsItsBrace) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{b {c {"_s), u"a{b {c {"_s);
}

TEST(Links, AClosingBraceAloneStays) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a}b{x}}"_s), u"a}b}"_s);
}

TEST(Links, TheLinkListsAreEmptiedBeforeEachDocument) {
    Essai essai;
    essai.passe(u"{L=a|CO000001}{U=b|w}{E=c|m}"_s);
    EXPECT_EQ(essai.liens().size(), 3);
    essai.passe(u"sans lien"_s);
    EXPECT_EQ(essai.formulaire.liens, ListesLiens());
    essai.passe(u"{L=a|CO000001}"_s);
    essai.passe(u"{x}"_s);
    EXPECT_EQ(essai.formulaire.liens, ListesLiens());
}

TEST(Links, AFormWithoutTheListsShowsTheSameText) {
    Essai sans(false);
    Essai avec;
    const QString texte = u"{S=a}{L=un|CO000001}{-S} {U=deux} trois|{E=m|x} {y}"_s;
    EXPECT_EQ(sans.passe(texte), avec.passe(texte));
    EXPECT_TRUE(sameContent(sans.formulaire.controle.richText(), avec.formulaire.controle.richText()));
    EXPECT_FALSE(avec.liens().isEmpty());
}

TEST(Links, LinksThatGrowForEverStopAtTheBound) {
    Essai essai;
    constexpr qsizetype borne = velm::test::rounds(8 * 1024 * 1024);
    ASSERT_GE(essai.bornes.texte, borne);
    essai.bornes.texte = borne;
    const QString texte = essai.passe(u"{U=}{U=}|"_s);
    EXPECT_EQ(texte.size(), borne);
    EXPECT_EQ(texte.left(5), u"}}}}}"_s);
    EXPECT_EQ(texte.right(9), u"{U=}{U=}|"_s);
    EXPECT_EQ(essai.formulaire.liens.ListeStartUrl.nombre(), borne - 9);
}

TEST(Links, LinksThatGoRoundInACircleStop) {
    Essai essai;
    // Each round copies and then deletes the same characters.
    EXPECT_EQ(essai.passe(u"a{U={X}{U={X}|"_s).left(3), u"a{U"_s);
    EXPECT_LT(essai.formulaire.liens.ListeStartUrl.nombre(), 1000);
}

TEST(Links, ATokenThatPutsItselfBackStops) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{U}{U}|b"_s), u"a{U}{U}|b"_s);
    EXPECT_EQ(essai.formulaire.liens.ListeStartUrl.nombre(), 1);
}

TEST(Links, LinksNestedWithoutEndStopBeforeTheListsSwell) {
    Essai essai;
    essai.bornes.retenu = 1000;
    const QString texte = QString(u"{L="_s).repeated(100) + u"x"_s + QString(u"|CO000001}"_s).repeated(100);
    const QString rendu = essai.passe(texte);
    qsizetype retenu = 0;
    for (const QString& montre : essai.formulaire.liens.ListeValeurHyperLien)
        retenu += montre.size();
    EXPECT_LE(retenu, 1000);
    EXPECT_TRUE(rendu.startsWith(u"{L={L="));

    essai.bornes.retenu = 100'000;
    EXPECT_EQ(essai.passe(texte), u"x"_s);
    EXPECT_EQ(essai.formulaire.liens.ListeValeurHyperLien.size(), 100);
}

TEST(Links, NothingIsSelectedWhenThePassesAreDone) {
    Essai essai;
    essai.passe(u"{S=a}un{-S} deux"_s);
    EXPECT_EQ(essai.formulaire.controle.selStart(), 0);
    EXPECT_EQ(essai.formulaire.controle.selLength(), 0);
    EXPECT_EQ(essai.formulaire.controle.selText(), QString());
}

} // namespace
} // namespace velm::test
