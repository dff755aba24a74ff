#include "document_support.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Inclusions, APlainTextPassesUnchanged) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"Un texte.\nDeux lignes\tet un taquet.\n"_s), u"Un texte.\nDeux lignes\tet un taquet."_s);
    EXPECT_EQ(essai.source.preparations, 1);
    EXPECT_EQ(essai.source.demandes, 0);
}

TEST(Inclusions, AnInclusionIsReplacedByTheOtherDocument) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"inclus");
    EXPECT_EQ(essai.passe(u"avant {I=CO000001} après"_s), u"avant inclus après"_s);
}

TEST(Inclusions, AnIncludedDocumentKeepsItsFormatsAndItsLastParagraphEnd) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = "{\\rtf1\\ansi{\\b gras}\\qr\\par}";
    EXPECT_EQ(essai.passe(u"a{I=CO000001}b"_s), u"agras\nb"_s);
    EXPECT_FALSE(essai.caractere(0).bold);
    EXPECT_TRUE(essai.caractere(1).bold);
    EXPECT_FALSE(essai.caractere(7).bold);
    EXPECT_EQ(essai.paragraphe(0).alignment, Alignment::Right);
    EXPECT_EQ(essai.paragraphe(7).alignment, Alignment::Left);
}

TEST(Inclusions, APictureComesAlongWithAnInclusion) {
    RichText corps;
    RichObject image;
    image.kind = RichObject::Kind::Png;
    image.data = "\x89PNG";
    image.width = 100;
    image.height = 200;
    CharFormat format;
    format.object = corps.addObject(image);
    corps.append(u"\uFFFC", corps.intern(format), 0);
    Essai essai;
    essai.source.corps[u"CO000001"_s] = writeRtf(corps);
    EXPECT_EQ(essai.passe(u"{I=CO000001}et {I=CO000001}"_s), u"\uFFFC\net \uFFFC\n"_s);
    const RichText& rich = essai.formulaire.controle.richText();
    for (const qsizetype place : {0, 6}) {
        ASSERT_GE(essai.caractere(place).object, 0);
        EXPECT_EQ(rich.objects()[static_cast<std::size_t>(essai.caractere(place).object)], image);
    }
    EXPECT_EQ(essai.caractere(1).object, -1);
}

TEST(Inclusions, AnInclusionInsideAnInclusionIsResolved) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"[{I=GL000002}]");
    essai.source.corps[u"GL000002"_s] = rtfde(u"({I=VP000003})");
    essai.source.corps[u"VP000003"_s] = rtfde(u"fond");
    EXPECT_EQ(essai.passe(u"{I=CO000001}"_s), u"[(fond)]"_s);
}

TEST(Inclusions, ATokenThatArisesAtTheSeamIsResolved) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"=GL000002}");
    essai.source.corps[u"GL000002"_s] = rtfde(u"trouvé");
    EXPECT_EQ(essai.passe(u"a{I{I=CO000001}b"_s), u"atrouvéb"_s);
}

TEST(Inclusions, AnInclusionOfAnAbsentDocumentDisappears) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{I=CO000001}b"_s), u"ab"_s);
    EXPECT_EQ(essai.source.demandes, 1);
}

TEST(Inclusions, AnInclusionWithAKeyOfTheWrongLengthDisappears) {
    Essai essai;
    essai.source.corps[u"CO00001"_s] = rtfde(u"court");
    essai.source.corps[u"CO0000001"_s] = rtfde(u"long");
    EXPECT_EQ(essai.passe(u"a{I=CO00001}b{I=CO0000001}c{I=}d"_s), u"abcd"_s);
    EXPECT_EQ(essai.source.demandes, 0);
}

TEST(Inclusions, AnInclusionWithAnUnknownCodeDisappears) {
    Essai essai;
    essai.source.corps[u"XX000001"_s] = rtfde(u"inconnu");
    essai.source.corps[u"IN000001"_s] = rtfde(u"liste");
    EXPECT_EQ(essai.passe(u"a{I=XX000001}b{I=IN000001}c"_s), u"abc"_s);
    EXPECT_EQ(essai.source.demandes, 0);
}

TEST(Inclusions, ACodeThatStraddlesTwoOthersIsAskedFor) {
    Essai essai;
    essai.source.corps[u"OE000001"_s] = rtfde(u"à cheval");
    EXPECT_EQ(essai.passe(u"{I=OE000001}"_s), u"à cheval"_s);
}

TEST(Inclusions, AnInclusionWithoutItsEndWipesTheRest) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"reste {I=CO000001 et tout\nce qui suit"_s), u"reste "_s);
}

TEST(Inclusions, AnInclusionWithoutItsEndWipes999000CharactersAndNoMore) {
    Essai essai;
    const QString texte = essai.passe(u"a{I="_s + QString(998997, u'x') + u"fin"_s);
    EXPECT_EQ(texte, u"afin"_s);
    const QString coupe = essai.passe(u"a{I="_s + QString(998996, u'x') + u"\nfin"_s);
    EXPECT_EQ(coupe, u"afin"_s) << "a line end goes whole";
}

TEST(Inclusions, ADocumentThatStartsWithAnInclusionOfItselfStops) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"{I=CO000001}moi ");
    EXPECT_EQ(essai.passe(u"{I=CO000001}fin"_s), u"moi fin"_s);
}

TEST(Inclusions, ADocumentThatIncludesItselfBehindATextStopsAtTheBound) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"x{I=CO000001}");
    constexpr qsizetype borne = velm::test::rounds(8 * 1024 * 1024);
    ASSERT_GE(essai.bornes.texte, borne);
    essai.bornes.texte = borne;
    const QString texte = essai.passe(u"{I=CO000001}"_s);
    EXPECT_EQ(texte, QString(borne - 12, u'x')) << "the last token, which no longer fits, is deleted as an unknown one";
}

TEST(Inclusions, DocumentsThatIncludeEachOtherWithoutGrowingStop) {
    Essai essai;
    essai.bornes.insere = 100'000;
    essai.source.corps[u"CO000001"_s] = rtfde(u"=CO000002}");
    essai.source.corps[u"CO000002"_s] = rtfde(u"{I{I=CO000001}");
    const QString texte = essai.passe(u"a{I=CO000002}b"_s);
    EXPECT_TRUE(texte.startsWith(u'a') && texte.endsWith(u'b')) << texte.toStdString();
    EXPECT_LT(texte.size(), 20);
}

TEST(Inclusions, ABodyThatIsNoRichTextLeavesTheTokenToTheLinkPass) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = "rien";
    essai.source.corps[u"CO000002"_s] = rtfde(u"inclus");
    // The text does not change, so the same place comes twice and the pass ends.
    EXPECT_EQ(essai.passe(u"a{I=CO000001}b{I=CO000002}c"_s), u"abc"_s);
}

TEST(Inclusions, AnEmptyBodyDeletesTheToken) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = QByteArray();
    essai.source.corps[u"CO000002"_s] = "{\\rtf1}";
    EXPECT_EQ(essai.passe(u"a{I=CO000001}b{I=CO000002}c"_s), u"abc"_s);
}

TEST(Inclusions, ABodyIsFetchedOnceForAllItsInclusions) {
    Essai essai;
    essai.source.corps[u"CO000001"_s] = rtfde(u"x");
    EXPECT_EQ(essai.passe(QString(u"{I=CO000001}"_s).repeated(200)), QString(200, u'x'));
    EXPECT_EQ(essai.source.demandes, 1);
}

TEST(PageBreaks, APageBreakBecomesLineEndFormFeedLineEnd) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"page un{FF}page deux"_s), u"page un\n\f\npage deux"_s);
}

TEST(PageBreaks, TwoPageBreaksSideBySideAreBothReplaced) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{FF}{FF}b"_s), u"a\n\f\n\n\f\nb"_s);
}

TEST(PageBreaks, APageBreakTakesTheFormatOfItsToken) {
    Essai essai;
    essai.charge(u""_s);
    essai.formulaire.controle.setTextRtf("{\\rtf1\\ansi a{\\b \\{FF\\}}b}");
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, essai.sablier, essai.bornes});
    EXPECT_TRUE(essai.caractere(3).bold);
    EXPECT_FALSE(essai.caractere(0).bold);
    EXPECT_FALSE(essai.caractere(6).bold);
}

TEST(PageBreaks, ABrokenTokenIsNoPageBreak) {
    Essai essai;
    EXPECT_EQ(essai.passe(u"a{ff}b{FF c"_s), u"ab{FF c"_s);
}

} // namespace
} // namespace velm::test
