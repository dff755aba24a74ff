// What is read in a document window, without the window.
#include "core/schemas.h"
#include "document/lecture.h"
#include "document_support.h"
#include "fenetre_document.h"
#include "tests/support/outside_script.h"

#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <new>
#include <utility>

namespace velm::test {
namespace {

constexpr int rose = 0x8000FF;

/// Writes down what the reading tells.
class VueEssai final : public VueLecture {
public:
    void changetitre(const QString& nouveau) override { titre = nouveau; }
    void activemenus() override { ++menus; }
    void rafraichit() override {
        if (std::exchange(sansmemoire, false))
            throw std::bad_alloc();
        ++peints;
    }
    void revele(qsizetype position) override { reveles << position; }
    void montreoccurrences(const std::vector<Occurrence>& nouvelles) override { occurrences = nouvelles; }
    void ditcible(const QString& texte) override { cibles << texte; }
    void dit(const QString& texte) override { dits << texte; }

    QString titre;
    int menus = 0;
    int peints = 0;
    bool sansmemoire = false; ///< the next painting finds no memory
    QList<qsizetype> reveles;
    std::vector<Occurrence> occurrences;
    QStringList cibles;
    QStringList dits;
};

class BarreEssai final : public BarreLecture, public BarreNavigable {
public:
    void montreabc(bool enfonce) override { abc = enfonce; }
    void montremarques(bool enfonce) override { marques = enfonce; }
    void montremots(bool visibles) override { mots = visibles; }
    void montreboutons(bool) override {}
    void activehistorique(bool, bool) override {}
    void activevoisin(bool, bool) override {}

    bool abc = false;
    bool marques = false;
    bool mots = false;
};

/// A frame with one window, in which all collections are read.
class LectureTest : public testing::Test, protected HoteNavigation, protected FenetreNavigable {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier.isValid());
        const QString chemin = dossier.filePath(u"velm2000.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter documents(*base.database, u"données"_s,
                                  {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
            ASSERT_TRUE(documents.add(
                {u"CO"_s, u"000001"_s, u"Article premier"_s,
                 rtfde(u"Voir {L=l'article 2|CO000002} et {U=le site|https://example.org} ou {E=nous|a@example.org} "
                       "puis {L=ailleurs|CO000099}.\n{S=cachee}Une note.{-S}")}));
            QString lignes = u"Texte 2."_s;
            for (int ligne = 0; ligne < 20; ++ligne)
                lignes += u"\nLigne %1 l'article 2."_s.arg(ligne);
            ASSERT_TRUE(documents.add({u"CO"_s, u"000002"_s, u"Article 2"_s, rtfde(lignes)}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    // ---- HoteNavigation, FenetreNavigable
    FenetreNavigable* creefenetre(int) override { return this; }
    void montrefenetre(int, bool) override {}
    void slotchange(int, bool) override {}
    void activehistorique(bool, bool) override {}
    void majderniersdocuments() override {}
    bool dossiersouverts() const override { return false; }
    LectureNavigable& lecture() override { return lue; }
    BarreNavigable& barrechild() override { return barre; }
    void prendfocus() override {}

    Lecture& ouvre(const char* cle) {
        navigation.ouvre(decoupecle(QString::fromLatin1(cle)));
        return lue;
    }
    QString texte() const { return controle.text(); }
    qsizetype ou(const QString& mot) const { return texte().indexOf(mot); }
    int nombredemarques() const {
        int nombre = 0;
        const RichText& lu = controle.richText();
        lu.forEachRun(0, lu.length(), [&](qsizetype, qsizetype, FormatId format) {
            nombre += lu.charFormat(format).colour == rose ? 1 : 0;
        });
        return nombre;
    }

    QTemporaryDir dossier;
    Corpus corpus;
    TableStyles styles = stylesdessai();
    SablierMuet sablier;
    NavigateurScript navigateur;
    Navigation navigation{*this, corpus};
    RichTextControl controle;
    VueEssai vue;
    BarreEssai barre;
    ListeEssai liens;
    ListeEssai correlats;
    Lecture lue{{controle, vue, barre, liens, correlats},
                {corpus, navigation, styles, sablier, navigateur,
                 [](Texte lequel) { return QString::number(static_cast<int>(lequel)) + u" %1"_s; },
                 [](int indice) { return u"Collection %1"_s.arg(indice); }}};
    const Marquage marquage{rose, true, false, true};
};

// ---- the document

TEST_F(LectureTest, ADocumentIsShownUnderItsKeyAndItsTitle) {
    ouvre("CO000002");
    EXPECT_EQ(lue.cle(), (Cle{u"CO"_s, u"000002"_s}));
    EXPECT_EQ(lue.referencecourante(), u"CO000002");
    EXPECT_EQ(lue.titrecourant(), u"Article 2");
    EXPECT_EQ(lue.titre(), u"Article 2");
    EXPECT_EQ(vue.titre, u"Collection 0 - Article 2");
    EXPECT_TRUE(texte().startsWith(u"Texte 2.\r\nLigne 0"));
    EXPECT_EQ(vue.peints, 1);
    EXPECT_TRUE(lue.entiere());
}

TEST_F(LectureTest, TheFirstDocumentWakesTheMenusUpOnce) {
    EXPECT_FALSE(lue.menusactifs());
    ouvre("CO000001");
    ouvre("CO000002");
    EXPECT_TRUE(lue.menusactifs());
    EXPECT_EQ(vue.menus, 1);
}

TEST_F(LectureTest, WithoutADocumentNothingIsShownOnceMore) {
    lue.reaffiche();
    lue.changeabc(true);
    lue.changemarques(false, marquage);
    EXPECT_EQ(vue.peints, 0);
    EXPECT_TRUE(lue.cle().vide());
    EXPECT_FALSE(lue.menusactifs());
    EXPECT_TRUE(barre.abc);
}

TEST_F(LectureTest, TheCondensedDisplayHoldsForTheDocumentsThatFollow) {
    ouvre("CO000001");
    EXPECT_TRUE(texte().contains(u"Une note."));
    lue.changeabc(true);
    EXPECT_FALSE(texte().contains(u"Une note."));
    EXPECT_TRUE(barre.abc);
    ouvre("CO000002");
    ouvre("CO000001");
    EXPECT_FALSE(texte().contains(u"Une note."));
    lue.changeabc(false);
    EXPECT_TRUE(texte().contains(u"Une note."));
    EXPECT_FALSE(barre.abc);
}

TEST_F(LectureTest, ADocumentShownOnceMoreIsWholeAndAtItsStartWhateverTheButtonSays) {
    ouvre("CO000001");
    lue.changeabc(true);
    controle.setSelStart(5);
    lue.reaffiche();
    EXPECT_TRUE(texte().contains(u"Une note."));
    EXPECT_EQ(controle.selStart(), 0);
    EXPECT_TRUE(barre.abc);
}

TEST_F(LectureTest, ADocumentThatDoesNotFitIsSaidAndLeavesNoPieceOfItself) {
    vue.sansmemoire = true;
    ouvre("CO000001");
    EXPECT_FALSE(lue.entiere());
    EXPECT_EQ(vue.dits, QStringList{u"9566 Article premier"_s});
    EXPECT_EQ(texte(), QString());
    EXPECT_EQ(lue.nombreliens(), 0);
    ouvre("CO000001");
    EXPECT_TRUE(lue.entiere()) << "asked for again, it is shown again";
    EXPECT_TRUE(texte().startsWith(u"Voir"));
    EXPECT_EQ(vue.dits.size(), 1);
}

TEST_F(LectureTest, OpenListsFollowTheDocument) {
    liens.vue = correlats.vue = true;
    correlats.couleur = 0;
    ouvre("CO000002");
    EXPECT_EQ(liens.recharges, QStringList{u"CO000002"_s});
    EXPECT_TRUE(correlats.recharges.isEmpty());
}

// ---- links

TEST_F(LectureTest, LinksCountFirstToDocumentsThenToTheWebThenMailAddresses) {
    ouvre("CO000001");
    ASSERT_EQ(lue.nombreliens(), 4);
    const QStringList montres{u"l'article 2"_s, u"ailleurs"_s, u"le site"_s, u"nous"_s};
    const QStringList cibles{u"CO000002 - Article 2"_s, u"CO000099"_s, u"https://example.org"_s, u"a@example.org"_s};
    for (int lien = 0; lien < 4; ++lien) {
        const qsizetype debut = ou(montres.at(lien));
        EXPECT_EQ(lue.plage(lien), (PlageLien{debut, debut + montres.at(lien).size()})) << lien;
        EXPECT_EQ(lue.cible(lien), cibles.at(lien));
    }
    EXPECT_EQ(lue.cible(-1), QString());
    EXPECT_EQ(lue.cible(4), QString());
}

TEST_F(LectureTest, AFollowedLinkOpensItsDocumentAtItsAnchorAndFoldsThePanel) {
    ouvre("CO000001");
    lue.suit(ou(u"l'article"_s) + 2);
    EXPECT_EQ(lue.referencecourante(), u"CO000002");
    EXPECT_TRUE(texte().mid(controle.selStart()).startsWith(u"Ligne 0 "));
    EXPECT_TRUE(navigation.prendreplier(0));
    EXPECT_EQ(vue.cibles, QStringList{QString()}) << "the pointer is on no link any more";
}

TEST_F(LectureTest, AddressesGoToTheUsersPrograms) {
    ouvre("CO000001");
    lue.suit(ou(u"le site"_s));
    lue.suit(ou(u"nous"_s));
    EXPECT_EQ(navigateur.urls, QStringList{u"http://https://example.org"_s});
    EXPECT_EQ(navigateur.mails, QStringList{u"a@example.org"_s});
    EXPECT_TRUE(vue.dits.isEmpty());
    EXPECT_EQ(lue.referencecourante(), u"CO000001");
}

TEST_F(LectureTest, AnAddressThatIsRefusedIsSaidOneWithoutAProgramIsNot) {
    ouvre("CO000001");
    navigateur.answer = Navigateur::Handed::No;
    lue.suit(ou(u"le site"_s));
    EXPECT_TRUE(vue.dits.isEmpty());
    navigateur.answer = Navigateur::Handed::Refused;
    lue.suit(ou(u"le site"_s));
    lue.suit(ou(u"nous"_s));
    EXPECT_EQ(vue.dits, (QStringList{u"9565 \n\nhttps://example.org"_s, u"9565 \n\na@example.org"_s}));
}

TEST_F(LectureTest, AClickBesideTheLinksDoesNothing) {
    ouvre("CO000001");
    lue.suit(0);
    EXPECT_EQ(lue.referencecourante(), u"CO000001");
    EXPECT_TRUE(navigateur.urls.isEmpty() && navigateur.mails.isEmpty() && vue.cibles.isEmpty());
}

// ---- words

TEST_F(LectureTest, WordsThatComeWithADocumentAreMarkedAndTheFirstOneIsShown) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne"_s, u"texte"_s, marquage);
    EXPECT_TRUE(barre.mots);
    EXPECT_TRUE(barre.marques);
    EXPECT_EQ(nombredemarques(), 20) << "the one at the very first character is not marked";
    EXPECT_EQ(vue.reveles, QList<qsizetype>{ou(u"Ligne 0"_s)});
    EXPECT_EQ(controle.selStart(), 0);
}

TEST_F(LectureTest, TheMarksAreShownAsWhatWasFoundAsLongAsTheyAreThere) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne 1"_s, u"ligne 3"_s, marquage);
    EXPECT_EQ(vue.occurrences.size(), 12U);
    EXPECT_EQ(vue.occurrences.front(), (Occurrence{ou(u"Ligne 1"_s), 7}));
    EXPECT_EQ(vue.occurrences.back(), (Occurrence{ou(u"Ligne 3"_s), 7}));
    lue.changemarques(false, marquage);
    EXPECT_TRUE(vue.occurrences.empty());
    lue.changemarques(true, marquage);
    EXPECT_EQ(vue.occurrences.size(), 12U);
    ouvre("CO000001");
    EXPECT_TRUE(vue.occurrences.empty());
}

TEST_F(LectureTest, WordsThatAreNotFoundScrollNowhere) {
    ouvre("CO000002");
    lue.recoitmots(u"introuvable"_s, QString(), marquage);
    EXPECT_TRUE(barre.marques);
    EXPECT_TRUE(vue.reveles.isEmpty());
}

TEST_F(LectureTest, WithoutMarkingByItselfTheButtonsComeAlone) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne"_s, QString(), {rose, true, false, false});
    EXPECT_TRUE(barre.mots);
    EXPECT_FALSE(barre.marques);
    EXPECT_EQ(nombredemarques(), 0);
}

TEST_F(LectureTest, NoWordsTakeTheButtonsAway) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne"_s, QString(), marquage);
    lue.recoitmots(QString(), QString(), marquage);
    EXPECT_FALSE(barre.mots);
    EXPECT_FALSE(barre.marques);
    EXPECT_EQ(nombredemarques(), 0);
}

TEST_F(LectureTest, OtherWordsTakeTheOldMarksAwayTheSameOnesShowNothingAnew) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne 1"_s, QString(), marquage);
    EXPECT_EQ(nombredemarques(), 11);
    const int peints = vue.peints;
    lue.recoitmots(u"ligne 1"_s, QString(), marquage);
    EXPECT_EQ(vue.peints, peints);
    lue.recoitmots(u"ligne 3"_s, QString(), marquage);
    EXPECT_EQ(nombredemarques(), 1);
    EXPECT_EQ(vue.peints, peints + 1);
    lue.recoitmots(u"ligne 3"_s, u"texte"_s, marquage);
    EXPECT_EQ(vue.peints, peints + 2) << "the second word counts too";
}

TEST_F(LectureTest, OtherWordsForATextWithoutMarksShowNothingAnew) {
    ouvre("CO000002");
    const int peints = vue.peints;
    lue.recoitmots(u"ligne"_s, QString(), marquage);
    EXPECT_EQ(vue.peints, peints);
}

TEST_F(LectureTest, TheButtonMarksAndReleasedShowsTheWholeTextWithoutMarks) {
    ouvre("CO000001");
    lue.recoitmots(u"site"_s, QString(), {rose, true, false, false});
    lue.changeabc(true);
    lue.changemarques(true, marquage);
    EXPECT_EQ(nombredemarques(), 1);
    EXPECT_TRUE(barre.marques);
    EXPECT_TRUE(vue.reveles.isEmpty());
    controle.setSelStart(9);
    lue.changemarques(false, marquage);
    EXPECT_EQ(nombredemarques(), 0);
    EXPECT_FALSE(barre.marques);
    EXPECT_FALSE(barre.abc);
    EXPECT_TRUE(texte().contains(u"Une note."));
    EXPECT_EQ(controle.selStart(), 0);
    lue.reaffiche();
    ouvre("CO000002");
    ouvre("CO000001");
    EXPECT_TRUE(texte().contains(u"Une note.")) << "the condensed display is over";
}

TEST_F(LectureTest, AnotherDocumentComesWithoutMarksAndKeepsTheWords) {
    ouvre("CO000002");
    lue.recoitmots(u"article"_s, QString(), marquage);
    ouvre("CO000001");
    EXPECT_FALSE(barre.marques);
    EXPECT_EQ(nombredemarques(), 0);
    EXPECT_EQ(lue.mots().mot1, u"article");
}

TEST_F(LectureTest, TheWalkGoesFromOneOccurrenceToTheNextAndStaysAtTheEnds) {
    ouvre("CO000002");
    lue.recoitmots(u"ligne 1"_s, QString(), marquage);
    QList<qsizetype> debuts;
    for (int pas = 0; pas < 12; ++pas) {
        lue.vamot(true);
        EXPECT_EQ(controle.selText(), u"Ligne 1");
        debuts << controle.selStart();
    }
    EXPECT_TRUE(std::is_sorted(debuts.begin(), debuts.end()));
    EXPECT_EQ(debuts.at(10), debuts.at(11));
    EXPECT_LT(debuts.at(9), debuts.at(10));
    lue.vamot(false);
    EXPECT_EQ(controle.selStart(), debuts.at(9));
    lue.recoitmots(u"ligne 1"_s, QString(), marquage);
    lue.vamot(true);
    EXPECT_EQ(controle.selStart(), debuts.first()) << "words that come again begin the walk anew";
}

TEST_F(LectureTest, WithoutAnOccurrenceTheSelectionStays) {
    ouvre("CO000002");
    controle.setSelStart(3);
    lue.recoitmots(u"introuvable"_s, QString(), marquage);
    lue.vamot(true);
    lue.vamot(false);
    EXPECT_EQ(controle.selStart(), 3);
    EXPECT_EQ(controle.selLength(), 0);
}

} // namespace
} // namespace velm::test
