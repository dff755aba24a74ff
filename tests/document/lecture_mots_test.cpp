// The words that a document is read for: their marks, and the walk from one to the next.
#include "lecture_support.h"

#include <algorithm>

namespace velm::test {

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

} // namespace velm::test
