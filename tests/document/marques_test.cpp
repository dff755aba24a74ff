#include "document/marques.h"
#include "document/recherchetexte.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rose = 0x8000FF;
constexpr Marquage gras{rose, true, false, true};

/// The selection and the formats, one property after the other, as one would by hand.
int literalement(RichTextControl& controle, const QString& mot, const Marquage& marquage) {
    const qsizetype debut = controle.selStart();
    const qsizetype longueur = controle.selLength();
    int compte = 0;
    for (qsizetype position = 0;;) {
        const qsizetype r = controle.find(mot, position);
        if (r <= 0)
            break;
        controle.setSelStart(r);
        controle.setSelLength(mot.size());
        controle.setSelColor(marquage.couleur);
        controle.setSelBold(marquage.gras);
        controle.setSelItalic(marquage.italique);
        ++compte;
        position = r + 1;
    }
    controle.setSelStart(debut);
    controle.setSelLength(longueur);
    return compte;
}

class Observateur : public RichTextObserver {
public:
    void richTextChanged() override { ++changements; }
    void richSelectionChanged() override { ++selections; }
    void richPropertiesChanged() override {}
    int changements = 0;
    int selections = 0;
};

class MarquesTest : public testing::Test {
protected:
    void texte(const QString& texte) { controle.setText(texte); }
    QList<qsizetype> marques() const {
        QList<qsizetype> debuts;
        const RichText& riche = controle.richText();
        riche.forEachRun(0, riche.length(), [&](qsizetype debut, qsizetype, FormatId format) {
            if (riche.charFormat(format).colour == rose)
                debuts << debut;
        });
        return debuts;
    }
    std::optional<Occurrence> pas(bool suivant) {
        const auto ici = suivant ? motsuivant(controle.richText(), mots) : motprecedent(controle.richText(), mots);
        if (ici)
            mots.posdepartrecherche = ici->debut;
        return ici;
    }
    QList<qsizetype> suite(bool suivant, int combien) {
        QList<qsizetype> debuts;
        for (int i = 0; i < combien; ++i) {
            const auto ici = pas(suivant);
            debuts << (ici ? ici->debut : -1);
        }
        return debuts;
    }

    RichTextControl controle;
    MotsCherches mots;
};

} // namespace

TEST_F(MarquesTest, EveryOccurrenceIsMarkedAndCounted) {
    texte(u"le pret, un PRET; des prets."_s);
    const Marques marques_ = marquemot(controle, u"pret"_s, gras);
    EXPECT_EQ(marques_.nombre, 3);
    EXPECT_EQ(marques_.premiere, 3);
    EXPECT_EQ(marques(), (QList<qsizetype>{3, 12, 22}));
    EXPECT_TRUE(controle.richText().charFormatAt(3).bold);
    EXPECT_FALSE(controle.richText().charFormatAt(3).italic);
    EXPECT_FALSE(controle.richText().charFormatAt(7).bold);
}

TEST_F(MarquesTest, MarksCanBeItalicAndTakeBoldAway) {
    controle.setTextRtf("{\\rtf1\\ansi Un \\b mot\\b0  gras\\par}");
    marquemot(controle, u"mot"_s, {rose, false, true, true});
    EXPECT_FALSE(controle.richText().charFormatAt(3).bold);
    EXPECT_TRUE(controle.richText().charFormatAt(3).italic);
}

TEST_F(MarquesTest, AWordAtTheFirstCharacterIsNotMarkedAndEndsThePass) {
    texte(u"Prix et prix"_s);
    const Marques aucune = marquemot(controle, u"prix"_s, gras);
    EXPECT_EQ(aucune.nombre, 0);
    EXPECT_EQ(aucune.premiere, -1);
    EXPECT_TRUE(marques().isEmpty());
}

TEST_F(MarquesTest, AnEmptyOrUnknownWordMarksNothing) {
    texte(u"un texte"_s);
    EXPECT_EQ(marquemot(controle, QString(), gras).nombre, 0);
    EXPECT_EQ(marquemot(controle, u"absent"_s, gras).nombre, 0);
}

TEST_F(MarquesTest, MarkingRestoresTheSelection) {
    texte(u"un mot, deux mots"_s);
    controle.setSelStart(2);
    controle.setSelLength(4);
    marquemot(controle, u"mot"_s, gras);
    EXPECT_EQ(controle.selStart(), 2);
    EXPECT_EQ(controle.selLength(), 4);
}

TEST_F(MarquesTest, BothWordsAreMarkedWithOneRepaint) {
    texte(u"de mot en mot et de fil en fil"_s);
    Observateur observateur;
    controle.setObserver(&observateur);
    const Marques marques_ = marquemots(controle, {u"fil"_s, u"mot"_s, 0}, gras);
    controle.setObserver(nullptr);
    EXPECT_EQ(marques_.nombre, 4);
    EXPECT_EQ(marques_.premiere, 3);
    EXPECT_EQ(observateur.changements, 1);
    EXPECT_EQ(observateur.selections, 0);
    EXPECT_TRUE(controle.redraw());
}

TEST_F(MarquesTest, FastAndLiteralMarkingAgree) {
    QRandomGenerator hasard(7);
    for (int essai = 0; essai < 3000; ++essai) {
        QString contenu;
        const int longueur = hasard.bounded(60);
        for (int i = 0; i < longueur; ++i)
            contenu += QString(u"abA \u00E9\n"_s.at(hasard.bounded(6)));
        QString mot;
        for (int i = 0, n = 1 + hasard.bounded(3); i < n; ++i)
            mot += QString(u"abB\u00C9"_s.at(hasard.bounded(4)));
        RichTextControl autre;
        autre.setText(contenu);
        controle.setText(contenu);
        ASSERT_EQ(marquemot(controle, mot, gras).nombre, literalement(autre, mot, gras)) << essai;
        ASSERT_TRUE(sameContent(controle.richText(), autre.richText())) << essai;
    }
}

TEST_F(MarquesTest, WithOneWordTheWalkStaysAtTheLastHit) {
    texte(u"x mot mot mot"_s);
    mots = {u"mot"_s, QString(), 0};
    EXPECT_EQ(suite(true, 4), (QList<qsizetype>{2, 6, 10, -1}));
    EXPECT_EQ(mots.posdepartrecherche, 10);
}

TEST_F(MarquesTest, TheNextWordGoesToTheNearerHit) {
    texte(u"x un deux un deux deux un"_s);
    mots = {u"deux"_s, u"un"_s, 0};
    EXPECT_EQ(suite(true, 7), (QList<qsizetype>{2, 5, 10, 13, 18, 23, -1}));
}

TEST_F(MarquesTest, TheLengthIsThatOfTheWordThatWins) {
    texte(u"x un deux"_s);
    mots = {u"deux"_s, u"un"_s, 0};
    EXPECT_EQ(pas(true), (Occurrence{2, 2}));
    EXPECT_EQ(pas(true), (Occurrence{5, 4}));
}

TEST_F(MarquesTest, EqualHitsTakeTheFirstWord) {
    texte(u"x marque"_s);
    mots = {u"mar"_s, u"marque"_s, 0};
    EXPECT_EQ(motsuivant(controle.richText(), mots), (Occurrence{2, 3}));
    mots.posdepartrecherche = 8;
    texte(u"x marqu  "_s);
    mots = {u"marq"_s, u"mar"_s, 9};
    EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{2, 4}));
}

TEST_F(MarquesTest, AHitAtTheFirstCharacterIsPassedOverByTheWalk) {
    texte(u"mot et mot"_s);
    mots = {u"mot"_s, QString(), 0};
    EXPECT_EQ(suite(true, 2), (QList<qsizetype>{7, -1}));
}

TEST_F(MarquesTest, ThePreviousWordGoesToTheFartherHitAndMayPassOverOthers) {
    texte(u"x un deux deux deux x"_s);
    mots = {u"un"_s, u"deux"_s, 20};
    EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{2, 2}));
}

TEST_F(MarquesTest, ThePreviousHitLiesWhollyBeforeThePlace) {
    texte(u"x mot mot mot"_s);
    mots = {u"mot"_s, QString(), 10};
    // The nine characters before the place's own end behind the second word.
    EXPECT_EQ(suite(false, 3), (QList<qsizetype>{6, 2, -1}));
    mots.posdepartrecherche = 9;
    EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{2, 3}));
}

TEST_F(MarquesTest, AtTheStartThereIsNoPreviousWord) {
    texte(u"mot mot mot"_s);
    for (const qsizetype place : {qsizetype{0}, qsizetype{1}}) {
        mots = {u"mot"_s, u"mot"_s, place};
        EXPECT_EQ(motprecedent(controle.richText(), mots), std::nullopt);
    }
}

TEST_F(MarquesTest, ThePreviousWordIsFoundFarAwayAndAcrossPieces) {
    QString contenu = u"x mot "_s + QString(20'000, u'-');
    texte(contenu);
    mots = {u"MOT"_s, QString(), 20'000};
    EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{2, 3}));
    for (qsizetype place = 4090; place < 4110; ++place) {
        contenu = QString(8200, u'-');
        contenu.replace(place, 3, u"mot"_s);
        texte(contenu);
        mots.posdepartrecherche = 8193;
        EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{place, 3})) << place;
    }
}

TEST_F(MarquesTest, APlaceBeyondTheTextFindsNothingBehindAndEverythingBefore) {
    texte(u"x mot"_s);
    mots = {u"mot"_s, QString(), 1'000'000};
    EXPECT_EQ(motsuivant(controle.richText(), mots), std::nullopt);
    EXPECT_EQ(motprecedent(controle.richText(), mots), (Occurrence{2, 3}));
}

// ---- the find dialog's walk

TEST(RechercheTexteTest, WholeWordAndMatchCaseGiveSix) {
    EXPECT_EQ(RechercheTexte::options(false, false), 0);
    EXPECT_EQ(RechercheTexte::options(true, false), 2);
    EXPECT_EQ(RechercheTexte::options(false, true), 4);
    EXPECT_EQ(RechercheTexte::options(true, true), 6);
}

TEST(RechercheTexteTest, TheOptionsReachTheControl) {
    RichTextControl controle;
    controle.setText(u"Prixfixe prix Prix"_s);
    EXPECT_TRUE(FindString(controle, u"Prix"_s, 0, -1, 0));
    EXPECT_EQ(controle.selStart(), 0);
    EXPECT_TRUE(FindString(controle, u"Prix"_s, 0, -1, 2));
    EXPECT_EQ(controle.selStart(), 9);
    EXPECT_TRUE(FindString(controle, u"Prix"_s, 1, -1, 4));
    EXPECT_EQ(controle.selStart(), 14);
    EXPECT_TRUE(FindString(controle, u"Prix"_s, 0, -1, 6));
    EXPECT_EQ(controle.selStart(), 14);
    EXPECT_FALSE(FindString(controle, u"Prix"_s, 15, -1, 6));
    EXPECT_EQ(controle.selStart(), 14);
}

class PrecedentTest : public testing::Test {
protected:
    PrecedentTest() { controle.setText(u"un mot, un mot, un mot, un"_s); }
    bool precedent() { return recherche.precedent(controle, occurrencesde(controle.richText(), u"mot"_s, 0), 3); }
    RechercheTexte::Issue suivant() { return recherche.suivant(controle, u"mot"_s, 0); }

    RichTextControl controle;
    RechercheTexte recherche;
};

TEST_F(PrecedentTest, GoesBackOverTheSameHitsAndFromTheFirstToTheLast) {
    suivant();
    suivant();
    EXPECT_EQ(controle.selStart(), 11);
    EXPECT_TRUE(precedent());
    EXPECT_EQ(controle.selStart(), 3);
    EXPECT_EQ(controle.selLength(), 3);
    EXPECT_EQ(recherche.derniere(), 3);
    EXPECT_TRUE(precedent());
    EXPECT_EQ(controle.selStart(), 19);
}

TEST_F(PrecedentTest, BeginsAtTheEndBeforeTheFirstStep) {
    EXPECT_EQ(recherche.derniere(), -1);
    EXPECT_TRUE(precedent());
    EXPECT_EQ(controle.selStart(), 19);
}

TEST_F(PrecedentTest, TheNextOneIsThenTheOneBehind) {
    suivant();
    suivant();
    precedent();
    suivant();
    EXPECT_EQ(controle.selStart(), 11);
}

TEST_F(PrecedentTest, DoesNotCountAsAFurtherHit) {
    precedent();
    EXPECT_EQ(recherche.compte(), 0);
    EXPECT_EQ(suivant(), RechercheTexte::Issue::Absent);
    suivant();
    suivant();
    precedent();
    EXPECT_EQ(recherche.compte(), 2);
    suivant();
    suivant();
    EXPECT_EQ(suivant(), RechercheTexte::Issue::Termine);
}

TEST_F(PrecedentTest, WithoutHitsNothingHappens) {
    controle.setSelStart(5);
    EXPECT_FALSE(recherche.precedent(controle, {}, 3));
    EXPECT_EQ(controle.selStart(), 5);
    EXPECT_EQ(recherche.debut(), 0);
}

TEST(RechercheTexteTest, AllHitsAreThoseOfTheSameOptions) {
    RichTextControl controle;
    controle.setText(u"Prixfixe prix Prix"_s);
    EXPECT_EQ(occurrencesde(controle.richText(), u"Prix"_s, 0), (std::vector<qsizetype>{0, 9, 14}));
    EXPECT_EQ(occurrencesde(controle.richText(), u"Prix"_s, 2), (std::vector<qsizetype>{9, 14}));
    EXPECT_EQ(occurrencesde(controle.richText(), u"Prix"_s, 4), (std::vector<qsizetype>{0, 14}));
    EXPECT_EQ(occurrencesde(controle.richText(), u"Prix"_s, 6), (std::vector<qsizetype>{14}));
}

TEST(RechercheTexteTest, FindingStepsToTheNextHit) {
    RichTextControl controle;
    controle.setText(u"un mot, un mot, un"_s);
    RechercheTexte recherche;
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    EXPECT_EQ(controle.selStart(), 3);
    EXPECT_EQ(controle.selLength(), 3);
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    EXPECT_EQ(controle.selStart(), 11);
    EXPECT_EQ(recherche.compte(), 2);
}

TEST(RechercheTexteTest, NotFindingSaysOneThingAfterAtMostOneHitAndAnotherAfterMore) {
    RichTextControl controle;
    controle.setText(u"un mot seul"_s);
    RechercheTexte recherche;
    EXPECT_EQ(recherche.suivant(controle, u"absent"_s, 0), RechercheTexte::Issue::Absent);
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Absent);
    // Begun again: the hit is found once more.
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    controle.setText(u"mot et mot"_s);
    recherche.recommence();
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Trouve);
    EXPECT_EQ(recherche.suivant(controle, u"mot"_s, 0), RechercheTexte::Issue::Termine);
    EXPECT_EQ(recherche.debut(), 0);
    EXPECT_EQ(recherche.compte(), 0);
}
