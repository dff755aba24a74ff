// Bodies as they are stored: text, markup, and the look that stands without any style.
#include "collection/corps.h"
#include "collection/jetons.h"
#include "collection/source.h"
#include "platform/richtext/rtf.h"
#include "tests/collection/dossier.h"

namespace velm::test {
namespace {

class CorpsDeDocument : public DossierSource {
protected:
    /// Makes the body of a document given by its paragraphs in JSON.
    void fait(const QByteArray& paragraphes, const QByteArray& autres = {}) {
        documents("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"corps\":[" + paragraphes + "]}\n" + autres);
        const SourceDossier source(this->source());
        FaiseurDeCorps faiseur(source);
        faiseur.fait(source.cherche(cledocument(0, 1)), corps_);
        ASSERT_TRUE(readRtf(corps_.contenu, texte_));
    }
    static QByteArray p(const QByteArray& style, const QByteArray& texte) {
        return "{\"style\":\"" + style + "\",\"texte\":\"" + texte + "\"}";
    }
    const CharFormat& caractere(QStringView mot) const { return texte_.charFormatAt(texte_.indexOf(mot)); }
    const ParaFormat& paragraphe(QStringView mot) const { return texte_.paraFormatAt(texte_.indexOf(mot)); }

    CorpsFait corps_;
    RichText texte_;
};

TEST_F(CorpsDeDocument, IsSevenBitRichText) {
    fait(p("alinea", "É œ ’ “ € ― ☐ \\ud83d\\ude00 \\\\\\\\"));
    EXPECT_TRUE(std::all_of(corps_.contenu.begin(), corps_.contenu.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
    EXPECT_EQ(texte_.text(), u"É œ ’ “ € ― ☐ 😀 \\"_s);
    EXPECT_EQ(corps_.montre, texte_.text());
}

TEST_F(CorpsDeDocument, HeadingsAndNotesAreSectionsAndRunningTextIsNone) {
    fait(p("titre", "Chapitre") + "," + p("article", "Article 1") + "," + p("alinea", "un") + "," +
         p("alinea", "deux") + "," + p("note", "n1") + "," + p("note", "n2") + "," + p("commentaire", "c") + "," +
         p("suite", "s"));
    EXPECT_EQ(texte_.text(), u"{S=Titre}Chapitre\r\n{S=Article}Article 1\r\n{-S}un\r\ndeux\r\n{S=Note}n1\r\nn2\r\n"
                             "{S=Commentaire}c\r\n{S=Suite}s{-S}"_s);
    EXPECT_EQ(corps_.montre, u"Chapitre\r\nArticle 1\r\nun\r\ndeux\r\nn1\r\nn2\r\nc\r\ns"_s);
}

TEST_F(CorpsDeDocument, TheLookStandsWithoutStyles) {
    fait(p("titre", "Chapitre") + "," + p("article", "Livre") + "," + p("alinea", "texte") + "," +
         p("note", "remarque") + "," + p("liste", "puce") + "," + p("citation", "cite") + "," + p("formule", "mc2"));
    EXPECT_EQ(caractere(u"Chapitre").family, u"Liberation Sans");
    EXPECT_EQ(caractere(u"Chapitre").size, 30);
    EXPECT_TRUE(caractere(u"Chapitre").bold);
    EXPECT_EQ(caractere(u"Livre").colour, 0x794E1F);
    EXPECT_EQ(caractere(u"texte").family, u"Liberation Serif");
    EXPECT_EQ(caractere(u"texte").size, 22);
    EXPECT_FALSE(caractere(u"texte").bold);
    EXPECT_EQ(paragraphe(u"texte").lineSpacing, 324);
    EXPECT_TRUE(paragraphe(u"texte").lineMultiple);
    EXPECT_EQ(caractere(u"remarque").size, 18);
    EXPECT_TRUE(paragraphe(u"puce").bullet);
    EXPECT_EQ(paragraphe(u"puce").offset, 284);
    EXPECT_TRUE(caractere(u"cite").italic);
    EXPECT_EQ(paragraphe(u"mc2").alignment, Alignment::Centre);
}

TEST_F(CorpsDeDocument, BoldItalicAndLinksHaveTheirLookAndTheTextAfterThemNot) {
    fait(p("alinea", "a **gras** b _penche_ c {L=lien|CO000001} d") + "," +
         p("alinea", "**tout"
                     "** fin"));
    EXPECT_TRUE(caractere(u"gras").bold);
    EXPECT_FALSE(caractere(u" b ").bold);
    EXPECT_TRUE(caractere(u"penche").italic);
    EXPECT_FALSE(caractere(u" c ").italic);
    // The whole token is coloured, as what replaces it takes the look of its first character.
    EXPECT_EQ(caractere(u"{L=").colour, 0x794E1F);
    EXPECT_EQ(caractere(u"lien").colour, 0x794E1F);
    EXPECT_NE(caractere(u" d").colour, 0x794E1F);
    EXPECT_TRUE(caractere(u"tout").bold);
    EXPECT_FALSE(caractere(u" fin").bold);
}

TEST_F(CorpsDeDocument, LinksKeepTheirMarkupAndShowTheirText) {
    fait(p("alinea", "voir {L=L. 1-1|CO000002}, {U=le site|https://x.fr/a_b} et {E=nous|a@b.fr}"),
         document("CO", 2, "x"));
    EXPECT_EQ(texte_.text(), u"voir {L=L. 1-1|CO000002}, {U=le site|https://x.fr/a_b} et {E=nous|a@b.fr}"_s);
    EXPECT_EQ(corps_.montre, u"voir L. 1-1, le site et nous"_s);
    EXPECT_EQ(corps_.liens, std::vector<CleDocument>{cledocument(0, 2)});
}

TEST_F(CorpsDeDocument, AnInclusionOfItsOwnBringsTheParagraphEndOfWhatItIncludes) {
    fait(p("alinea", "a") + "," + p("alinea", "{I=CO000002}") + "," + p("alinea", "b"), document("CO", 2, "dedans"));
    EXPECT_EQ(texte_.text(), u"a\r\n{I=CO000002}b"_s);
    EXPECT_EQ(corps_.montre, u"a\r\ndedans\r\nb"_s);
}

TEST_F(CorpsDeDocument, APageBreakOfItsOwnBringsItsLineEnds) {
    fait(p("alinea", "a") + "," + p("alinea", "{FF}") + "," + p("alinea", "b"));
    EXPECT_EQ(texte_.text(), u"a\r\n{FF}b"_s);
}

TEST_F(CorpsDeDocument, AnIncludedSectionEndsInsideItsDocument) {
    fait(p("note", "n"));
    EXPECT_EQ(texte_.text(), u"{S=Note}n{-S}"_s);
    EXPECT_TRUE(corps_.contenu.endsWith("\\par}"));
}

TEST_F(CorpsDeDocument, BracesAreReportedAndBecomeRoundBrackets) {
    fait(p("alinea", "si (a) \\\\{ b \\\\}"));
    EXPECT_EQ(texte_.text(), u"si (a) ( b )"_s);
    ASSERT_EQ(corps_.problemes.size(), 2U);
    EXPECT_EQ(texte(corps_.problemes[0]), u"W9351 documents.jsonl:1 { b \\}"_s);
}

TEST_F(CorpsDeDocument, TablesStandOnTabStops) {
    fait(p("tableau", "a\\tb") + "," + p("tableau", "{L=c|CO000002}\\td") + "," + p("alinea", "fin"),
         document("CO", 2, "x"));
    EXPECT_EQ(texte_.text(), u"a\tb\r\n{L=c|CO000002}\td\r\nfin"_s);
    EXPECT_EQ(paragraphe(u"a\t").tabs.size(), 1U);
    EXPECT_TRUE(paragraphe(u"fin").tabs.empty());
    EXPECT_EQ(corps_.montre, u"a\tb\r\nc\td\r\nfin"_s);
    EXPECT_EQ(corps_.liens.size(), 1U);
}

TEST_F(CorpsDeDocument, TheStylesOfTheSectionsAreThePublishers) {
    ecrit(u"collection.json"_s, R"({"styles":{"alinea":"Texte","titre":null}})");
    fait(p("titre", "t") + "," + p("alinea", "a"));
    EXPECT_EQ(texte_.text(), u"t\r\n{S=Texte}a{-S}"_s);
}

TEST_F(CorpsDeDocument, ALineFeedIsALineEnd) {
    fait(p("alinea", "a\\nb"));
    EXPECT_EQ(corps_.montre, u"a\r\nb"_s);
    EXPECT_EQ(texte_.text(), u"a\r\nb"_s);
}

TEST_F(CorpsDeDocument, AnEmptyBodyIsAnEmptyText) {
    fait("");
    EXPECT_EQ(texte_.length(), 0);
}

TEST_F(CorpsDeDocument, AThousandLinksAreToldOnceEach) {
    QByteArray texte;
    QByteArray autres;
    for (int k = 2; k < 1002; ++k) {
        const QByteArray cle = "CO" + QByteArray::number(k).rightJustified(6, '0');
        texte += "{L=x|" + cle + "} {L=y|" + cle + "} {L=soi|CO000001} ";
        autres += document("CO", k, "x");
    }
    fait(p("alinea", texte), autres);
    ASSERT_EQ(corps_.liens.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(corps_.liens.begin(), corps_.liens.end()));
}

TEST_F(CorpsDeDocument, RichTextBodiesAreTakenAsTheyAreAndTheirMarkupIsRead) {
    ecrit(u"rtf/a.rtf"_s, "{\\rtf1\\ansi h\xE9 \\{L=lien|CO000002\\} \\{I=CO000002\\} \\b x}");
    documents("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"rtf\":\"rtf/a.rtf\"}\n" +
              document("CO", 2, "dedans"));
    const SourceDossier source(this->source());
    EXPECT_TRUE(source.problemes().empty());
    FaiseurDeCorps faiseur(source);
    faiseur.fait(0, corps_);
    EXPECT_EQ(corps_.contenu, QByteArray("{\\rtf1\\ansi h\\'e9 \\{L=lien|CO000002\\} \\{I=CO000002\\} \\b x}"));
    EXPECT_EQ(corps_.montre, u"hé lien dedans\r\n x"_s);
    EXPECT_EQ(corps_.liens, std::vector<CleDocument>{cledocument(0, 2)});
}

TEST_F(CorpsDeDocument, BinaryDataInRichTextIsWrittenInSevenBits) {
    ecrit(u"rtf/a.rtf"_s, QByteArray("{\\rtf1 a{\\pict\\pngblip\\bin4 \x89PN\xFF}b}"));
    documents("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"rtf\":\"rtf/a.rtf\"}\n");
    const SourceDossier source(this->source());
    EXPECT_TRUE(source.problemes().empty());
    const QByteArray rtf = source.corps(0).rtf;
    EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
    RichText lu;
    EXPECT_TRUE(readRtf(rtf, lu));
    EXPECT_EQ(lu.objects().size(), 1U);
}

} // namespace
} // namespace velm::test
