#include "document/appliquestyle.h"
#include "document/styles.h"
#include "document_support.h"
#include "platform/text/ansi.h"
#include "tests/support/arret.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Styles : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        ASSERT_TRUE(QDir(dossier_.path()).mkpath(u"langues"_s));
        ecrit(u"langues/RES2000.FR"_s, u"[VELMORANTE 2000]\r\n1404=Note\r\n1408=Commentaire\r\n"_s);
        langue_.choisitfichier(dossier_.path(), dossier_.path(), u"FR"_s);
        textes_.stylesuite = u"Suite"_s;
        textes_.stylecondense = u"Condense"_s;
        textes_.stylemarque = u"Marque"_s;
    }

    void ecrit(const QString& nom, const QString& texte) const {
        QFile fichier(dossier_.filePath(nom));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(ansi::encode(texte));
    }

    void maitre(const QString& lignes) {
        ecrit(u"master.ini"_s, u"[EDITEUR]\r\n"_s + lignes);
        reglages_.choisitmaitre(dossier_.filePath(u"master.ini"_s));
    }
    void stocke(const QString& cle, const QString& valeur) {
        ASSERT_TRUE(reglages_.savesetting(u"EDITEUR"_s, cle, valeur));
    }
    TableStyles lit() { return litstyles(reglages_, langue_, textes_); }

    QTemporaryDir dossier_;
    ReglagesStore magasin_{dossier_.filePath(u"reglages.ini"_s)};
    Reglages reglages_{magasin_};
    QStringList signales_;
    Langue langue_{[this](const QString& numero) { signales_ += numero; }};
    TextesConstants textes_;
};

TEST_F(Styles, ARecordWithoutANameIsUnused) {
    stocke(u"STYLE00-GRAS"_s, u"True"_s);
    const TableStyles table = lit();
    for (const Style& style : table.styles)
        EXPECT_EQ(style, Style());
    EXPECT_EQ(table.listecondensee, QString());
    EXPECT_EQ(table.indice(u""), -1);
}

TEST_F(Styles, EveryFieldIsReadFromTheFirstToTheLastRecord) {
    for (const QString& prefixe : {u"STYLE00"_s, u"STYLE99"_s}) {
        stocke(prefixe + u"-NOM"_s, u"Titre "_s + prefixe);
        stocke(prefixe + u"-TYPE"_s, u"False"_s);
        stocke(prefixe + u"-NOMDELAFONTE"_s, u"Liberation Serif"_s);
        stocke(prefixe + u"-TAILLEDELAFONTE"_s, u"14"_s);
        stocke(prefixe + u"-GRAS"_s, u"True"_s);
        stocke(prefixe + u"-SOULIGNE"_s, u"-1"_s);
        stocke(prefixe + u"-ITALIQUE"_s, u"1"_s);
        stocke(prefixe + u"-BARRE"_s, u"True"_s);
        stocke(prefixe + u"-EXPOSANT"_s, u"-60"_s);
        stocke(prefixe + u"-COULEUR"_s, u"12648447"_s);
        stocke(prefixe + u"-PUCE"_s, u"True"_s);
        stocke(prefixe + u"-RETRAITGAUCHE"_s, u"567"_s);
        stocke(prefixe + u"-RETRAITDROIT"_s, u"1134"_s);
        stocke(prefixe + u"-ALIGNEMENT"_s, u"2"_s);
        stocke(prefixe + u"-RETRAIT1LIGNE"_s, u"-283"_s);
        stocke(prefixe + u"-INDENTPUCE"_s, u"284"_s);
        stocke(prefixe + u"-TABULATIONS"_s, u"0056701134"_s);
    }
    const TableStyles table = lit();
    EXPECT_EQ(table.indice(u"Titre STYLE00"), 0);
    EXPECT_EQ(table.indice(u"Titre STYLE99"), 99);
    Style style;
    style.nom = u"Titre STYLE99"_s;
    style.nomdelafonte = u"Liberation Serif"_s;
    style.tailledelafonte = 14;
    style.gras = style.souligne = style.italique = style.barre = style.puce = true;
    style.exposant = -60;
    style.couleur = 12648447;
    style.retraitgauche = 567;
    style.retraitdroit = 1134;
    style.alignement = 2;
    style.retrait1ligne = -283;
    style.indentpuce = 284;
    style.tabulations = u"0056701134"_s;
    EXPECT_EQ(table.styles[99], style);
}

TEST_F(Styles, ACharacterStyleReadsNoParagraphField) {
    stocke(u"STYLE03-NOM"_s, u"Fort"_s);
    stocke(u"STYLE03-TYPE"_s, u"True"_s);
    stocke(u"STYLE03-GRAS"_s, u"True"_s);
    stocke(u"STYLE03-RETRAITDROIT"_s, u"pas un nombre"_s);
    stocke(u"STYLE03-TABULATIONS"_s, u"00567"_s);
    const TableStyles table = lit();
    EXPECT_TRUE(table.styles[3].type);
    EXPECT_TRUE(table.styles[3].gras);
    EXPECT_EQ(table.styles[3].retraitdroit, 0);
    EXPECT_EQ(table.styles[3].tabulations, QString());
}

TEST_F(Styles, ThePublishersStylesHoldUntilTheUserHasHisOwn) {
    maitre(u"STYLE00-NOM=Titre\r\nSTYLE00-GRAS=1\r\nSTYLE00-ITALIQUE=True\r\nSTYLE00-TAILLEDELAFONTE=15\r\n"
           "STYLE00-RETRAITDROIT=300\r\n"_s);
    stocke(u"STYLE00-TAILLEDELAFONTE"_s, u"18"_s);
    const TableStyles table = lit();
    EXPECT_EQ(table.styles[0].nom, u"Titre"_s);
    EXPECT_TRUE(table.styles[0].gras);
    EXPECT_FALSE(table.styles[0].italique) << "a publisher's word reads as the number 0";
    EXPECT_EQ(table.styles[0].tailledelafonte, 18);
    EXPECT_EQ(table.styles[0].retraitdroit, 300);
    EXPECT_EQ(table.styles[0].alignement, 0);
}

TEST_F(Styles, AStyleFlagged2IsCondensedOnlyByItsName) {
    stocke(u"STYLE00-NOM"_s, u"Note"_s);
    stocke(u"STYLE01-NOM"_s, u"Commentaire"_s);
    stocke(u"STYLE02-NOM"_s, u"Autre"_s);
    stocke(u"STYLE02-ABC"_s, u"2"_s);
    stocke(u"STYLE03-NOM"_s, u"Choisi"_s);
    stocke(u"STYLE03-ABC"_s, u"1"_s);
    stocke(u"STYLE04-NOM"_s, u"Refusé"_s);
    stocke(u"STYLE04-ABC"_s, u"0"_s);
    const TableStyles table = lit();
    const QChar nul(u'\0');
    EXPECT_EQ(table.listecondensee, nul + u"Note"_s + nul + nul + u"Commentaire"_s + nul + nul + u"Choisi"_s + nul);
}

TEST_F(Styles, AUserCanTakeANoteOutOfTheCondensedList) {
    stocke(u"STYLE00-NOM"_s, u"Note"_s);
    stocke(u"STYLE00-ABC"_s, u"0"_s);
    EXPECT_FALSE(stylemasque(lit(), u"Note", u""));
}

TEST_F(Styles, TheNamesOfTheLanguageComeAlong) {
    const TableStyles table = lit();
    EXPECT_EQ(table.stylesuite, u"Suite"_s);
    EXPECT_EQ(table.stylecondense, u"Condense"_s);
    EXPECT_EQ(table.stylemarque, u"Marque"_s);
}

TEST_F(Styles, AMissingTextIsSaidForEachStyleThatAsksForIt) {
    QFile::remove(dossier_.filePath(u"langues/RES2000.FR"_s));
    langue_.choisitfichier(dossier_.path(), dossier_.path(), u"FR"_s);
    stocke(u"STYLE00-NOM"_s, u"Un"_s);
    stocke(u"STYLE01-NOM"_s, u"Deux"_s);
    stocke(u"STYLE02-NOM"_s, u"Trois"_s);
    stocke(u"STYLE02-ABC"_s, u"1"_s);
    lit();
    EXPECT_EQ(signales_, (QStringList{u"1404"_s, u"1408"_s, u"1404"_s, u"1408"_s}));
}

TEST_F(Styles, AValueThatIsNoNumberOrTooGreatIsARunTimeError) {
    const GardeArret garde;
    stocke(u"STYLE00-NOM"_s, u"Un"_s);
    stocke(u"STYLE00-EXPOSANT"_s, u"40000"_s);
    EXPECT_THROW(lit(), Arret);
    stocke(u"STYLE00-EXPOSANT"_s, u"0"_s);
    stocke(u"STYLE00-COULEUR"_s, u"rouge"_s);
    EXPECT_THROW(lit(), Arret);
    stocke(u"STYLE00-COULEUR"_s, u"255"_s);
    EXPECT_EQ(lit().styles[0].couleur, 255);
}

TEST_F(Styles, TheFirstRecordOfANameCounts) {
    stocke(u"STYLE05-NOM"_s, u"Deux fois"_s);
    stocke(u"STYLE09-NOM"_s, u"Deux fois"_s);
    EXPECT_EQ(lit().indice(u"Deux fois"), 5);
    EXPECT_EQ(lit().indice(u"deux fois"), -1);
}

TEST_F(Styles, TheDeliveredStylesAndTextsAgree) {
    reglages_.choisitmaitre(QStringLiteral(VELM_SOURCE_DIR "/master.ini"));
    ASSERT_TRUE(QFile::remove(dossier_.filePath(u"langues/RES2000.FR"_s)));
    ASSERT_TRUE(
        QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.FR"), dossier_.filePath(u"langues/RES2000.FR"_s)));
    Langue langue([this](const QString& numero) { signales_ += numero; });
    langue.choisitfichier(dossier_.path(), dossier_.path(), u"FR"_s);
    TextesConstants textes;
    textes.stylecondense = langue.lireressource(Texte{1400});
    textes.stylesuite = langue.lireressource(Texte{1401});
    textes.stylemarque = langue.lireressource(Texte{1411});
    const TableStyles table = litstyles(reglages_, langue, textes);
    EXPECT_TRUE(signales_.isEmpty());
    for (const QString& nom : {table.stylecondense, table.stylesuite, table.stylemarque, u"Titre"_s, u"Tableau"_s})
        EXPECT_GE(table.indice(nom), 0) << nom.toStdString();
    EXPECT_TRUE(stylemasque(table, langue.lireressource(Texte{1404}), u""));
    EXPECT_TRUE(stylemasque(table, langue.lireressource(Texte{1408}), u""));
    EXPECT_TRUE(stylemasque(table, table.stylesuite, langue.lireressource(Texte{1404})));
    EXPECT_FALSE(stylemasque(table, table.stylesuite, u"Titre"));
    EXPECT_FALSE(taquets(table.styles[static_cast<std::size_t>(table.indice(u"Tableau"))].tabulations).empty());
}

TEST(Stylemasque, ANameContainedInAnotherOneIsNotInTheCondensedList) {
    TableStyles table;
    table.ajoutecondense(u"Note de bas"_s);
    EXPECT_TRUE(stylemasque(table, u"Note de bas", u""));
    EXPECT_FALSE(stylemasque(table, u"Note", u""));
    EXPECT_FALSE(stylemasque(table, u"de", u""));
    EXPECT_FALSE(stylemasque(table, u"Note de bas de page", u""));
}

TEST(Stylemasque, AContinuationHidesWithTheSectionBefore) {
    TableStyles table;
    table.stylesuite = u"Suite"_s;
    table.ajoutecondense(u"Note"_s);
    EXPECT_TRUE(stylemasque(table, u"Suite", u"Note"));
    EXPECT_FALSE(stylemasque(table, u"Suite", u"Titre"));
    EXPECT_FALSE(stylemasque(table, u"Suite", u"Suite"));
    EXPECT_FALSE(stylemasque(table, u"Suite", u"")) << "one name alone: no two marks side by side";
    EXPECT_FALSE(stylemasque(table, u"Autre", u"Note"));
}

TEST(Stylemasque, TheMarksOfTwoNamesSideBySideStandForTheEmptyName) {
    TableStyles table;
    table.stylesuite = u"Suite"_s;
    table.ajoutecondense(u"Note"_s);
    table.ajoutecondense(u"Commentaire"_s);
    EXPECT_TRUE(stylemasque(table, u"", u""));
    EXPECT_TRUE(stylemasque(table, u"Suite", u""));
}

} // namespace
} // namespace velm::test
