#include "core/cle.h"
#include "core/schemas.h"
#include "document/affichage.h"
#include "document_support.h"
#include "fenetre_document.h"
#include "tests/support/arret.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Affichage : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        const QString chemin = dossier_.filePath(u"velm2000.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter documents(*base.database, u"données"_s,
                                  {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                                   u"Source"_s, u"Date"_s, u"datecreation"_s, u"datemodif"_s, u"typededocument"_s,
                                   u"numeroarborescence"_s, u"BackColor"_s, u"contenu"_s});
            ASSERT_TRUE(
                documents.add({u"CO"_s, u"000001"_s, u"Article premier"_s, u"vente"_s, u"prix"_s, u"délai"_s,
                               u"Journal officiel"_s, u"2001-02-03"_s, u"2002-01-01"_s, u"2003-01-01"_s, u"Loi"_s, 17,
                               12648447, rtfde(u"Titre\n{S=b}Corps{-S} {L=lien|EU000002} {I=GL000003}")}));
            ASSERT_TRUE(documents.add({u"EU"_s,
                                       u"000002"_s,
                                       u"Directive"_s,
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       {},
                                       rtfde(u"sans valeurs")}));
            ASSERT_TRUE(documents.add(
                {u"GL"_s, u"000003"_s, u"Glose"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}, 255, rtfde(u"inclus")}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    void affiche(const QString& code, const QString& numero, bool abc = false, const QString& ancre = {}) {
        affichedocument(fenetre, {code, numero}, abc, ancre,
                        {corpus, styles, sablier, [](int indice) { return u"Collection %1"_s.arg(indice); }, {}});
    }

    QTemporaryDir dossier_;
    Corpus corpus;
    SablierMuet sablier;
    TableStyles styles = stylesdessai();
    FenetreDeDocument fenetre;
};

TEST_F(Affichage, ADocumentIsShownWithItsValues) {
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.controle.text(), u"Titre\r\nCorps lien inclus"_s);
    const DocumentAffiche& d = fenetre.membres;
    EXPECT_EQ(d.titre, u"Article premier"_s);
    EXPECT_EQ(d.motcle1, u"vente"_s);
    EXPECT_EQ(d.motcle2, u"prix"_s);
    EXPECT_EQ(d.motcle3, u"délai"_s);
    EXPECT_EQ(d.Source, u"Journal officiel"_s);
    EXPECT_EQ(d.datetext, u"2001-02-03"_s);
    EXPECT_EQ(d.datecreation, u"2002-01-01"_s);
    EXPECT_EQ(d.datemodif, u"2003-01-01"_s);
    EXPECT_EQ(d.typedocument, u"Loi"_s);
    EXPECT_EQ(d.numeroarborescence, u"17"_s);
    EXPECT_EQ(fenetre.liens.Listehyperlien, QStringList{u"EU000002"_s});
    EXPECT_EQ(fenetre.liens.Listestarthyperlien.texte(0), u"13"_s);
}

TEST_F(Affichage, NullFieldsAreEmptyTexts) {
    affiche(u"CO"_s, u"000001"_s);
    affiche(u"EU"_s, u"000002"_s);
    DocumentAffiche vide;
    vide.titre = u"Directive"_s;
    EXPECT_EQ(fenetre.membres, vide);
    EXPECT_EQ(fenetre.liens, ListesLiens());
}

TEST_F(Affichage, TheCaptionIsTheLabelADashAndTheTitle) {
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.titre, u"Collection 0 - Article premier"_s);
    affiche(u"EU"_s, u"000002"_s);
    EXPECT_EQ(fenetre.titre, u"Collection 1 - Directive"_s);
    EXPECT_EQ(fenetre.motcleautitre, u"vente"_s) << "it changes right behind the title, before the other values";
}

TEST_F(Affichage, TheBackgroundTakesTheDocumentsColour) {
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.controle.backColor(), 12648447);
    affiche(u"GL"_s, u"000003"_s);
    EXPECT_EQ(fenetre.controle.backColor(), 255);
    affiche(u"EU"_s, u"000002"_s);
    EXPECT_EQ(fenetre.controle.backColor(), 0xFFFFFF);
}

TEST_F(Affichage, ADocumentThatIsNotFoundLeavesTextAndMembers) {
    affiche(u"CO"_s, u"000001"_s);
    const DocumentAffiche avant = fenetre.membres;
    const RichText texte = fenetre.controle.richText();
    fenetre.journal.clear();
    affiche(u"CO"_s, u"999999"_s);
    EXPECT_EQ(fenetre.membres, avant);
    EXPECT_TRUE(sameContent(fenetre.controle.richText(), texte));
    EXPECT_EQ(fenetre.titre, u"Collection 0 - Article premier"_s);
    EXPECT_EQ(fenetre.liens.Listehyperlien.size(), 1);
    EXPECT_EQ(fenetre.journal, (QStringList{u"menus"_s, u"rafraichit"_s}));
}

TEST_F(Affichage, MenusAreEnabledEvenWhenTheDocumentIsNotFound) {
    affiche(u"ZZ"_s, u"000001"_s);
    EXPECT_TRUE(fenetre.journal.contains(u"menus"_s));
}

TEST_F(Affichage, TheStepsComeInTheirOrder) {
    fenetre.controle.setVisible(false);
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.journal, (QStringList{u"titre"_s, u"menus"_s, u"rafraichit"_s}));
    EXPECT_TRUE(fenetre.controle.redraw());
    EXPECT_TRUE(fenetre.controle.visible());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(Affichage, TheViewHearsOfANewDocumentOnce) {
    struct Vue final : RichTextObserver {
        void richTextChanged() override { ++textes; }
        void richSelectionChanged() override { ++selections; }
        void richPropertiesChanged() override {}
        int textes = 0;
        int selections = 0;
    } vue;
    fenetre.controle.setObserver(&vue);
    affiche(u"CO"_s, u"000001"_s, false, u"lien"_s);
    EXPECT_EQ(vue.textes, 1);
    EXPECT_EQ(vue.selections, 1);
    fenetre.controle.setObserver(nullptr);
}

TEST_F(Affichage, AnOpenLinkListIsReloadedAClosedOneIsNot) {
    fenetre.sortants.vue = true;
    fenetre.correlats.vue = true;
    fenetre.correlats.couleur = 255;
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.sortants.recharges, QStringList{u"CO000001"_s});
    EXPECT_TRUE(fenetre.correlats.recharges.isEmpty());

    fenetre.sortants.vue = false;
    fenetre.correlats.couleur = ListeLaterale::ouverte;
    affiche(u"EU"_s, u"000002"_s);
    EXPECT_EQ(fenetre.sortants.recharges.size(), 1);
    EXPECT_EQ(fenetre.correlats.recharges, QStringList{u"EU000002"_s});
}

TEST_F(Affichage, CondensedDisplayAppliesNoStyle) {
    affiche(u"CO"_s, u"000001"_s, true);
    EXPECT_EQ(fenetre.controle.text(), u"Titre\r\nCorps lien inclus"_s);
    EXPECT_EQ(fenetre.controle.richText().charFormatAt(7).family, QString());
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(fenetre.controle.richText().charFormatAt(7).family, u"Fonte8"_s);
}

TEST_F(Affichage, TheSharedTableIsLeftAtItsPrimaryKey) {
    corpus.donnees().setIndex(u"icattitre"_s);
    affiche(u"CO"_s, u"000001"_s);
    EXPECT_EQ(corpus.donnees().index(), u"primarykey"_s);
}

TEST_F(Affichage, AFormOfAnotherWindowIsResolvedWithoutTheTable) {
    {
        const auto base = Database::create(dossier_.filePath(u"autre.dat"_s), corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ASSERT_TRUE(base.database->execute(u"DROP TABLE \"données\""_s));
    }
    Corpus sans;
    ASSERT_EQ(sans.connecte(dossier_.filePath(u"autre.dat"_s)), OpenError::None);
    sans.ouvretables();
    SourceCorpus source(sans);
    FormulaireEssai dossier(false);
    dossier.controle.setTextRtf(rtfde(u"a{I=CO000001}b"));
    chargecontenu(dossier, false, {styles, source, sablier, {}});
    EXPECT_EQ(dossier.controle.text(), u"ab"_s);

    const GardeArret garde;
    EXPECT_THROW(affichedocument(fenetre, {u"CO"_s, u"000001"_s}, false, {},
                                 {sans, styles, sablier, [](int) { return QString(); }, {}}),
                 Arret);
}

// ---- positioning

qsizetype place(const QString& texte, const QString& ancre) {
    RichTextControl controle;
    controle.setText(texte);
    controle.setSelStart(3);
    positionne(controle, ancre);
    EXPECT_EQ(controle.selLength(), 0);
    return controle.selStart();
}

const QString entete = u"Titre du document\r\nUne ligne bien assez longue\r\n"_s; // 48 characters, first CR at 17

TEST(Ancre, AnEmptyAnchorPutsTheCaretAt0) {
    EXPECT_EQ(place(entete + u"L. 121-1 texte"_s, QString()), 0);
}

TEST(Ancre, AnAnchorInATextWithoutALineEndPutsTheCaretAt0) {
    EXPECT_EQ(place(u"Un texte sans fin de ligne avec L. 121-1 dedans"_s, u"L. 121-1"_s), 0);
}

TEST(Ancre, AnAnchorPutsTheCaretAtTheStartOfItsLine) {
    EXPECT_EQ(place(entete + u"Voir l'article L. 121-1 du code"_s, u"L. 121-1"_s), 48);
    EXPECT_EQ(place(entete + u"L. 121-1 du code"_s, u"L. 121-1"_s), 48) << "also when it begins the line";
    EXPECT_EQ(place(entete + u"premier\r\nsecond 12 fin"_s, u"12"_s), 57);
}

TEST(Ancre, AnAnchorThatIsNotFoundPutsTheCaretAt0) {
    EXPECT_EQ(place(entete + u"rien"_s, u"L. 999"_s), 0);
}

TEST(Ancre, AnAnchorBeforeTheFirstLineEndIsNotFound) {
    EXPECT_EQ(place(u"Article 12 \r\nligne assez longue\r\nfin"_s, u"12"_s), 0);
}

TEST(Ancre, AnAnchorLessThanTenCharactersBehindTheFirstLineEndPutsTheCaretAt0) {
    // The first line end is character 6, counted from 1; a hit at 15 is nine behind it, one at 16 is ten.
    EXPECT_EQ(place(u"Titre\r\nabcdefg12 fin\r\n"_s, u"12"_s), 0);
    EXPECT_EQ(place(u"Titre\r\nabcdefgh12 fin\r\n"_s, u"12"_s), 7);
}

TEST(Ancre, APointBeforeTheAnchorBeatsABlankBeforeItAndBothBeatTheAnchorAlone) {
    const QString texte = entete + u"x121y\r\nun 121 et\r\nL.121 fin\r\n"_s;
    EXPECT_EQ(place(texte, u"121"_s), 66) << "the line of L.121";
    EXPECT_EQ(place(entete + u"x121y\r\nun 121 et\r\n"_s, u"121"_s), 55);
    EXPECT_EQ(place(entete + u"x121y\r\n"_s, u"121"_s), 48);
}

TEST(Ancre, ALineEndRightBeforeTheAnchorIsNotWhatTheFirstPatternMeets) {
    // A line feed stands between: only the anchor alone finds it, behind a hit between blanks.
    EXPECT_EQ(place(entete + u"121 debut\r\nun 121 et"_s, u"121"_s), 59);
}

} // namespace
} // namespace velm::test
