// The window of the search by number.
#include "platform/base/failure.h"
#include "tests/shell/numeros_support.h"
#include "tests/support/eventually.h"

#include <QClipboard>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

using FenetreNumeroTest = NumerosTest;

/// With a document whose text has its articles far below one another.
class ArticlesDansLeTexteTest : public NumerosTest {
protected:
    std::vector<DocumentEssai> documents() const override {
        std::vector<DocumentEssai> tous = NumerosTest::documents();
        QByteArray texte = "{\\rtf1\\ansi Livre premier\\par ";
        for (const char* article : {"Article L. 121-1 du code", "Article L. 121-2 du code"}) {
            for (int ligne = 0; ligne < 60; ++ligne)
                texte += "Rien du tout.\\par ";
            texte += QByteArray(article) + "\\par ";
        }
        tous.at(0).contenu = tous.at(1).contenu = texte + '}';
        return tous;
    }
    /// The line in which the caret stands in the document in front.
    QString lignedupoint() const {
        const QTextCursor point = active()->vue().textCursor();
        return point.block().text().replace(QChar::Nbsp, u' ');
    }
};

} // namespace

TEST_F(FenetreNumeroTest, ItsButtonOpensItAndTellsThatItIsOpen) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    EXPECT_EQ(numeros()->objectName(), u"frmrechnum");
    EXPECT_EQ(numeros()->windowTitle(), mots(9152));
    EXPECT_TRUE(menu("moutils0(2)")->isChecked());
    EXPECT_TRUE(numeros()->noart().hasFocus()) << "a number can be typed at once";
    commande("moutils0(2)");
    EVENTUALLY(numeros() == nullptr);
    EXPECT_FALSE(menu("moutils0(2)")->isChecked());
}

TEST_F(FenetreNumeroTest, WidthsOrderAndHeadersComeFromTheMasksAndTheSeventhWidthIsNotUsed) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    const FlexGrid& flex = numeros()->flex();
    const QString masque = u"001000001000002500003000000700000700002000"_s;
    ASSERT_EQ(flex.cols(), 8);
    for (int place = 0; place < 6; ++place)
        EXPECT_EQ(flex.colWidth(place), masque.mid(6 * place, 6).toInt()) << place;
    EXPECT_EQ(flex.colWidth(6), 0);
    EXPECT_EQ(flex.colWidth(7), 0);
    for (int place = 0; place < 8; ++place)
        EXPECT_EQ(flex.colData(place), place);
    const QStringList entetes{mots(8053), mots(8054), mots(8055), mots(300), mots(304), QString()};
    for (int place = 0; place < 6; ++place)
        EXPECT_EQ(flex.header(place), entetes.at(place));
}

TEST_F(FenetreNumeroTest, ReturnFindsTheArticleAcrossTheCollectionsAndTheBoxKeepsWhatWasTyped) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    EXPECT_EQ(numeros()->flex().rows(), 1);
    EXPECT_EQ(compteen(*numeros()), QString()) << "nothing was looked for yet";
    EXPECT_EQ(numeros()->flex().emptyText(), mots(9558));
    cherche(numeros()->noart(), u"l121-1"_s);
    EXPECT_EQ(titres(), (QStringList{u"Béta"_s, u"Un arrêt"_s}));
    EXPECT_EQ(numeros()->noart().text(), u"l121-1");
    EXPECT_EQ(compteen(*numeros()), u" 2 documents");
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::NumeroArticle), (QStringList{u"L. 121-1"_s, u"L. 121-1"_s}));
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::NumeroTexte), (QStringList{u"93-949"_s, u"2001-1"_s}));
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::TitreTexte),
              (QStringList{u"Loi n° 93-949"_s, u"Loi n° 2001-1"_s}));
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::CleNumart), (QStringList{u"000001"_s, u"000007"_s}));
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::Reference), (QStringList{u"CO"_s, u"JP"_s}));
}

TEST_F(FenetreNumeroTest, ATextNumberFindsItsDocuments) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->notexte(), u"93-949"_s);
    EXPECT_EQ(titres(), (QStringList{u"Béta"_s, u"alpha"_s}));
    cherche(numeros()->notexte(), u"9*"_s);
    EXPECT_EQ(titres(), (QStringList{u"Béta"_s, u"alpha"_s, u"Delta"_s}));
}

TEST_F(FenetreNumeroTest, FillingOneBoxEmptiesTheOther) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    tape(numeros()->noart(), u"L. 1"_s);
    tape(numeros()->notexte(), u"9"_s);
    EXPECT_EQ(numeros()->noart().text(), QString());
    EXPECT_EQ(numeros()->notexte().text(), u"9");
    tape(numeros()->noart(), u"R"_s);
    EXPECT_EQ(numeros()->notexte().text(), QString());
    numeros()->notexte().setText(u"97-298"_s);
    numeros()->notexte().clear();
    numeros()->noart().setText(u"R"_s);
    numeros()->notexte().clear();
    EXPECT_EQ(numeros()->noart().text(), u"R") << "an empty one empties nothing";
}

TEST_F(FenetreNumeroTest, ReturnInAnEmptyBoxMovesToTheOther) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    QTest::keyClick(&numeros()->noart(), Qt::Key_Return);
    EXPECT_TRUE(numeros()->notexte().hasFocus());
    QTest::keyClick(&numeros()->notexte(), Qt::Key_Enter);
    EXPECT_TRUE(numeros()->noart().hasFocus());
    EXPECT_EQ(numeros()->flex().rows(), 1);
}

TEST_F(FenetreNumeroTest, AStarAloneStartsNothingAndInTheSecondBoxKeepsTheFocus) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"*"_s);
    EXPECT_TRUE(numeros()->notexte().hasFocus());
    EXPECT_EQ(numeros()->noart().text(), u"*");
    cherche(numeros()->notexte(), u"*"_s);
    EXPECT_TRUE(numeros()->notexte().hasFocus());
    EXPECT_EQ(numeros()->flex().rows(), 1);
    EXPECT_EQ(numeros()->flex().emptyText(), mots(9558));
}

TEST_F(FenetreNumeroTest, WhatFindsNothingIsSaidInThePlaceOfTheRows) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"Z. 9"_s);
    EXPECT_EQ(numeros()->flex().rows(), 1);
    EXPECT_EQ(numeros()->flex().emptyText(), mots(9559, {u"Z. 9"_s}));
    EXPECT_EQ(compteen(*numeros()), u" 0 document");
    cherche(numeros()->noart(), u"Z. 9*"_s);
    EXPECT_EQ(numeros()->flex().emptyText(), mots(9497, {u"Z. 9"_s}));
    EXPECT_TRUE(dialogues.messages.empty());
    for (const QString& texte : {QString(255, u'9'), u"   "_s, u"L.\u00a0\u00a0"_s, u"%"_s, u"a\"b"_s}) {
        cherche(numeros()->noart(), texte);
        EXPECT_EQ(numeros()->flex().rows(), 1) << qPrintable(texte);
        EXPECT_EQ(numeros()->noart().text(), texte);
    }
}

TEST_F(FenetreNumeroTest, ThePressedCollectionsNarrowWhatWasLookedForLast) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"L*"_s);
    EXPECT_EQ(titres(), (QStringList{u"Béta"_s, u"Un arrêt"_s, u"alpha"_s}));
    tape(numeros()->notexte(), u"97"_s);
    presse(numeros()->barre(), "CO");
    EXPECT_EQ(titres(), QStringList{u"Un arrêt"_s}) << "what is typed was not asked for yet";
    presse(numeros()->barre(), "toutdéselect");
    EXPECT_EQ(titres(), QStringList());
    EXPECT_EQ(numeros()->flex().emptyText(), mots(9723));
    presse(numeros()->barre(), "toutsélect");
    EXPECT_EQ(titres().size(), 3);
}

TEST_F(FenetreNumeroTest, CollectionsAndColumnsAreKept) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    presse(numeros()->barre(), "CO");
    numeros()->flex().view()->horizontalHeader()->moveSection(0, 2);
    redemarre();
    ASSERT_NO_FATAL_FAILURE(commande("moutils0(2)"));
    ASSERT_NE(numeros(), nullptr);
    EXPECT_EQ(reglage("NUMERO", "STATUS"), u"01111111111");
    EXPECT_EQ(reglage("NUMERO", "ORDRECOLONNE"), u"120345");
    EXPECT_EQ(numeros()->flex().colData(2), 0);
    cherche(numeros()->noart(), u"L. 121-1"_s);
    EXPECT_EQ(titres(), QStringList{u"Un arrêt"_s});
    EXPECT_EQ(champs(numeros()->flex(), ListeNumero::NumeroArticle), QStringList{u"L. 121-1"_s})
        << "texts stand under their headers";
}

TEST_F(FenetreNumeroTest, ADoubleClickOpensAtTheArticleAndIsRemembered) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"L121*"_s);
    doublecliquesur(numeros()->flex(), 3);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->reference(), u"CO000002");
    EXPECT_EQ(programme->bureau().navigation().derniersdocuments().front(), u"CO000002");
}

TEST_F(ArticlesDansLeTexteTest, ADoubleClickOpensAtTheArticleHoweverItWasTyped) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"l121-2"_s);
    doublecliquesur(numeros()->flex(), 1);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->reference(), u"CO000002");
    EXPECT_EQ(lignedupoint(), u"Article L. 121-2 du code");
    commande("moutils0(2)");
    cherche(numeros()->notexte(), u"93-949"_s);
    doublecliquesur(numeros()->flex(), 1);
    EXPECT_EQ(active()->reference(), u"CO000001");
    EXPECT_EQ(lignedupoint(), u"Livre premier") << "the number of a text is no place in the document";
}

TEST_F(FenetreNumeroTest, TheKeysLeadFromTheNumberToItsDocument) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    QTest::keyClick(&numeros()->noart(), Qt::Key_Down);
    EXPECT_TRUE(numeros()->noart().hasFocus()) << "there is no row to go to";
    cherche(numeros()->noart(), u"L. 121-2"_s);
    QTest::keyClick(&numeros()->noart(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(numeros()->noart().hasFocus()) << "that marks text";
    QTest::keyClick(&numeros()->noart(), Qt::Key_Down);
    EXPECT_EQ(numeros()->flex().row(), 1);
    EXPECT_TRUE(numeros()->flex().view()->hasFocus());
    QTest::keyClick(numeros()->flex().view(), Qt::Key_Return);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->reference(), u"CO000002");
}

TEST_F(FenetreNumeroTest, TheTabKeyGoesFromBoxToBoxToTheRowsAndTheArrowToTheRowThatWasLeft) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    EXPECT_EQ(numeros()->noart().accessibleName(), mots(9153));
    EXPECT_EQ(numeros()->notexte().accessibleName(), mots(9154));
    EXPECT_TRUE(numeros()->noart().isClearButtonEnabled());
    cherche(numeros()->noart(), u"L*"_s);
    QTest::keyClick(&numeros()->noart(), Qt::Key_Tab);
    EXPECT_TRUE(numeros()->notexte().hasFocus());
    QTest::keyClick(&numeros()->notexte(), Qt::Key_Tab);
    EXPECT_TRUE(numeros()->flex().view()->hasFocus());
    numeros()->flex().setRow(2);
    numeros()->noart().setFocus();
    QTest::keyClick(&numeros()->noart(), Qt::Key_Down);
    EXPECT_EQ(numeros()->flex().row(), 2);
}

TEST_F(FenetreNumeroTest, ADoubleClickOnAHeaderSortsAndANewNumberComesSortedSo) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"L*"_s);
    numeros()->flex().setRow(2);
    doublecliqueentetede(numeros()->flex(), 3);
    EXPECT_EQ(titres(), (QStringList{u"alpha"_s, u"Béta"_s, u"Un arrêt"_s}));
    EXPECT_EQ(numeros()->flex().headerCell(3), mots(300) + u'>');
    EXPECT_EQ(numeros()->flex().row(), 3) << "the selected document goes with its row";
    doublecliqueentetede(numeros()->flex(), 3);
    EXPECT_EQ(titres().first(), u"Un arrêt");
    EXPECT_EQ(numeros()->flex().headerCell(3), mots(300) + u'<');
    cherche(numeros()->notexte(), u"93-949"_s);
    EXPECT_EQ(titres(), (QStringList{u"Béta"_s, u"alpha"_s}));
}

TEST_F(FenetreNumeroTest, AnotherNumberBeginsAtItsFirstRowAndTheSameOneStaysWhereItWas) {
    {
        const auto base = ouvrebase();
        TableWriter table(*base, u"generelien"_s, {u"référence"_s, u"numart"_s, u"numarticle"_s});
        for (int i = 100; i < 300; ++i)
            ASSERT_TRUE(table.add({u"CO"_s, u"000001"_s, u"X. %1"_s.arg(i)}));
    }
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"X*"_s);
    ASSERT_EQ(numeros()->flex().rows(), 201);
    numeros()->flex().setTopRow(90);
    QTest::keyClick(numeros()->flex().view(), Qt::Key_F5);
    EXPECT_EQ(numeros()->flex().topRow(), 90);
    cherche(numeros()->noart(), u"X. *"_s);
    EXPECT_EQ(numeros()->flex().topRow(), 1);
}

TEST_F(FenetreNumeroTest, EqualCellsAreMergedAsItsButtonSays) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    cherche(numeros()->noart(), u"L. 121-1"_s);
    EXPECT_TRUE(numeros()->flex().mergeCells());
    EXPECT_TRUE(numeros()->flex().joinsAbove(2, 0));
    EXPECT_TRUE(numeros()->barre().value(u"typeflex"_s));
    presse(numeros()->barre(), "typeflex");
    EXPECT_FALSE(numeros()->flex().mergeCells());
}

TEST_F(FenetreNumeroTest, TheFrameCopiesAllRows) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    EXPECT_FALSE(numeros()->peut(Ordre::Copier));
    cherche(numeros()->noart(), u"R. 7"_s);
    ASSERT_TRUE(numeros()->peut(Ordre::Copier));
    numeros()->fait(Ordre::Copier);
    EXPECT_TRUE(pressepapiers.contenu.texte.startsWith(u"R. 7\t97-298\tLoi n° 97-298\tDelta\tCO\t000003"))
        << qPrintable(pressepapiers.contenu.texte);
}

TEST_F(FenetreNumeroTest, ABaseReplacedUnderTheOpenListChangesNothingBeforeTheNextStart) {
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    const QString chemin = dossier.filePath(u"velm2000.dat"_s);
    {
        const auto autre = Database::create(dossier.filePath(u"autre.dat"_s), corpusSchema());
        ASSERT_NE(autre.database, nullptr);
    }
    ASSERT_EQ(std::rename(qPrintable(dossier.filePath(u"autre.dat"_s)), qPrintable(chemin)), 0);
    cherche(numeros()->noart(), u"L*"_s);
    EXPECT_EQ(titres().size(), 3);
    doublecliqueentetede(numeros()->flex(), 3);
    EXPECT_EQ(titres().first(), u"alpha");
    doublecliquesur(numeros()->flex(), 1);
    ASSERT_NE(active(), nullptr);
    EXPECT_EQ(active()->reference(), u"CO000002");
}

TEST_F(FenetreNumeroTest, ABaseWithoutTheTableIsNoticedAtTheFirstNumber) {
    ASSERT_TRUE(ouvrebase()->execute(u"DROP TABLE generelien"_s));
    ASSERT_NO_FATAL_FAILURE(avecnumeros());
    EXPECT_EQ(numeros()->flex().rows(), 1) << "the window opens";
    numeros()->noart().setText(u"L*"_s);
    const auto faute = failureOf([&] { emit numeros()->noart().returnPressed(); });
    ASSERT_TRUE(faute.has_value());
    EXPECT_EQ(faute->what, Failure::MissingTable);
    EXPECT_EQ(faute->parts, QStringList{u"generelien"_s});
}
