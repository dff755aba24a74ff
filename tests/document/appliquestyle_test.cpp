#include "document/appliquestyle.h"
#include "document_support.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>
#include <random>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Appliquestyle : public testing::Test {
protected:
    void texte(const QString& texte, qsizetype debut, qsizetype longueur) {
        controle.setText(texte);
        controle.setSelStart(debut);
        controle.setSelLength(longueur);
    }
    void applique(const QString& nom, bool marquer = false) { appliquestyle(controle, nom, marquer, styles, sablier); }
    const ParaFormat& paragraphe(qsizetype place) const { return controle.richText().paraFormatAt(place); }
    const CharFormat& caractere(qsizetype place) const { return controle.richText().charFormatAt(place); }

    RichTextControl controle;
    SablierMuet sablier;
    TableStyles styles = stylesdessai();
};

TEST_F(Appliquestyle, EveryCharacterPropertyIsSet) {
    texte(u"un texte"_s, 3, 5);
    applique(u"b"_s);
    const CharFormat& c = caractere(3);
    const Style& b = styles.styles[8];
    EXPECT_EQ(c.family, b.nomdelafonte);
    EXPECT_EQ(c.size, 2 * b.tailledelafonte);
    EXPECT_EQ(c.bold, b.gras);
    EXPECT_EQ(c.underline, b.souligne);
    EXPECT_EQ(c.italic, b.italique);
    EXPECT_EQ(c.strike, b.barre);
    EXPECT_EQ(c.offset, b.exposant);
    EXPECT_EQ(c.colour, b.couleur);
    EXPECT_EQ(caractere(2), CharFormat());
}

TEST_F(Appliquestyle, BothIndentsTakeTheRightIndent) {
    texte(u"texte"_s, 0, 5);
    applique(u"b"_s);
    EXPECT_EQ(paragraphe(0).startIndent, 800);
    EXPECT_EQ(paragraphe(0).rightIndent, 800);
    EXPECT_EQ(paragraphe(0).offset, 240);
    EXPECT_EQ(paragraphe(0).alignment, Alignment::Centre);
    EXPECT_FALSE(paragraphe(0).bullet);
}

TEST_F(Appliquestyle, TheBulletIsSwitchedOffAndOnAfterTheIndents) {
    texte(u"texte"_s, 0, 5);
    controle.setBulletIndent(999);
    applique(u"puce"_s);
    EXPECT_TRUE(paragraphe(0).bullet);
    EXPECT_EQ(paragraphe(0).startIndent, 300);
    EXPECT_EQ(paragraphe(0).offset, 33) << "the new distance, neither the old one nor the first-line indent";
    EXPECT_EQ(controle.bulletIndent(), 33);
}

TEST_F(Appliquestyle, AStyleWithoutABulletTakesOneAway) {
    texte(u"texte"_s, 0, 5);
    applique(u"puce"_s);
    applique(u"a"_s);
    EXPECT_FALSE(paragraphe(0).bullet);
    EXPECT_EQ(paragraphe(0).offset, 30);
}

TEST_F(Appliquestyle, ACharacterStyleSetsNoParagraphField) {
    texte(u"texte"_s, 0, 5);
    applique(u"puce"_s);
    const ParaFormat avant = paragraphe(0);
    applique(u"c"_s);
    EXPECT_EQ(paragraphe(0), avant);
    EXPECT_EQ(caractere(0).family, u"Fonte2"_s);
    EXPECT_EQ(controle.bulletIndent(), 33);
}

TEST_F(Appliquestyle, TabStopsAreNotSetInATextWithoutTabs) {
    texte(u"un texte"_s, 0, 2);
    applique(u"tab"_s);
    EXPECT_TRUE(paragraphe(0).tabs.empty());
    EXPECT_EQ(paragraphe(0).startIndent, 400);
}

TEST_F(Appliquestyle, ATabAnywhereInTheTextIsEnough) {
    texte(u"un\r\ndeux\ttrois"_s, 0, 2);
    applique(u"tab"_s);
    EXPECT_EQ(paragraphe(0).tabs, (std::vector<std::int32_t>{567, 1134, 1701}));
    EXPECT_TRUE(paragraphe(4).tabs.empty());
}

TEST_F(Appliquestyle, AStyleWithoutStopsLeavesThoseThatAreThere) {
    texte(u"a\tb"_s, 0, 3);
    applique(u"tab"_s);
    applique(u"a"_s);
    EXPECT_EQ(paragraphe(0).tabs.size(), 3U);
}

TEST_F(Appliquestyle, TabStopsAreFieldsOfFiveCharacters) {
    EXPECT_EQ(taquets(u"00567 1134  170"), (std::vector<std::int32_t>{567, 1134, 170}));
    EXPECT_EQ(taquets(u"0056701134170"), (std::vector<std::int32_t>{567, 1134})) << "what is left over is no field";
    EXPECT_EQ(taquets(u"0567"), std::vector<std::int32_t>());
    EXPECT_EQ(taquets(u""), std::vector<std::int32_t>());
    EXPECT_EQ(taquets(u"567,8abcde"), (std::vector<std::int32_t>{567, 0}));
    EXPECT_EQ(taquets(QString(u"00100"_s).repeated(50)).size(), 32U);
}

TEST_F(Appliquestyle, AnUnknownNameAppliesNothing) {
    texte(u"texte"_s, 0, 5);
    const RichText avant = controle.richText();
    applique(u"inconnu"_s);
    applique(QString());
    EXPECT_TRUE(sameContent(controle.richText(), avant));
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(Appliquestyle, PropertiesThatTheControlRefusesStayAsTheyAre) {
    styles.styles[8].nomdelafonte.clear();
    styles.styles[8].tailledelafonte = 0;
    styles.styles[8].alignement = 12;
    texte(u"texte"_s, 0, 5);
    applique(u"a"_s);
    applique(u"b"_s);
    EXPECT_EQ(caractere(0).family, u"Fonte1"_s);
    EXPECT_EQ(caractere(0).size, 22);
    EXPECT_EQ(caractere(0).colour, 1008);
    EXPECT_EQ(paragraphe(0).alignment, Alignment::Right);
    EXPECT_EQ(paragraphe(0).rightIndent, 800);
}

TEST_F(Appliquestyle, TheSelectionStays) {
    texte(u"un texte"_s, 3, 5);
    applique(u"tab"_s);
    EXPECT_EQ(controle.selStart(), 3);
    EXPECT_EQ(controle.selLength(), 5);
}

TEST_F(Appliquestyle, MarkingPutsTheSelectionBetweenTheTokensOfItsStyle) {
    texte(u"un texte ici"_s, 3, 5);
    applique(u"b"_s, true);
    EXPECT_EQ(controle.text(), u"un {S=b}texte{-S} ici"_s);
    EXPECT_EQ(controle.selText(), u"texte"_s);
    EXPECT_EQ(caractere(3).family, u"Fonte9"_s);
    EXPECT_EQ(caractere(7).family, u"Fonte9"_s);
    EXPECT_EQ(caractere(8).family, u"Fonte8"_s);
    EXPECT_EQ(caractere(12).family, u"Fonte8"_s);
    EXPECT_EQ(caractere(13).family, u"Fonte9"_s);
    EXPECT_EQ(caractere(16).family, u"Fonte9"_s);
    EXPECT_EQ(caractere(17).family, QString());
}

TEST_F(Appliquestyle, AnUnknownNameIsMarkedAllTheSame) {
    texte(u"texte"_s, 0, 5);
    applique(u"neuf"_s, true);
    EXPECT_EQ(controle.text(), u"{S=neuf}texte{-S}"_s);
    EXPECT_EQ(controle.selText(), u"texte"_s);
}

TEST_F(Appliquestyle, AMarkedTextIsWhatThePassesResolve) {
    Essai essai;
    essai.charge(u"un texte ici"_s);
    essai.formulaire.controle.setSelStart(3);
    essai.formulaire.controle.setSelLength(5);
    appliquestyle(essai.formulaire.controle, u"b"_s, true, essai.styles, essai.sablier);
    chargecontenu(essai.formulaire, false, {essai.styles, essai.source, essai.sablier, essai.bornes});
    EXPECT_EQ(essai.formulaire.controle.text(), u"un texte ici"_s);
    EXPECT_EQ(essai.caractere(3).family, u"Fonte8"_s);
    EXPECT_EQ(essai.caractere(2).family, QString());
}

TEST_F(Appliquestyle, TheCombinedChangeDoesWhatThePropertiesDoOneByOne) {
    std::mt19937 hasard(20260101);
    const auto nombre = [&hasard](int borne) { return static_cast<int>(hasard() % static_cast<unsigned>(borne)); };
    for (int i = 0; i < test::rounds(3000); ++i) {
        Style& style = styles.styles[8];
        style = styled(u"b"_s, nombre(40), nombre(4) == 0);
        style.puce = nombre(2) != 0;
        style.alignement = nombre(6) - 1;
        style.tailledelafonte = nombre(3) == 0 ? nombre(4000) - 1000 : 12;
        style.nomdelafonte = nombre(3) == 0 ? QString() : u"F"_s;
        style.retrait1ligne = nombre(500) - 250;
        for (int k = nombre(40); k > 0; --k)
            style.tabulations += u"%1"_s.arg(nombre(40) - 5, 5);
        style.tabulations += QString(nombre(5), u'9');

        texte(nombre(2) != 0 ? u"un\r\ndeux\ttrois\r\n"_s : u"un\r\ndeux trois"_s, nombre(14), nombre(14));
        applique(nombre(2) != 0 ? u"puce"_s : u"tab"_s);
        RichText attendu = controle.richText();
        const ChangementStyle change = changementdestyle(style);
        ParaChange paragraphes = change.paragraphes;
        if (change.taquets && attendu.indexOf(u'\t') >= 0) {
            paragraphes.mask |= ParaChange::Tabs;
            paragraphes.values.tabs = *change.taquets;
        }
        attendu.changeCharacters(controle.selStart(), controle.selLength(), change.caracteres);
        attendu.changeParagraphs(controle.selStart(), controle.selLength(), paragraphes);
        const int puce = change.indentpuce.value_or(controle.bulletIndent());
        applique(u"b"_s);
        ASSERT_TRUE(sameContent(controle.richText(), attendu)) << i;
        ASSERT_EQ(controle.bulletIndent(), puce);
    }
}

} // namespace
} // namespace velm::test
