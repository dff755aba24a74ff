// The division of a document window: the two lists below the text.
#include "tests/document/disposition_support.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST(DispositionTextes, ClosedListsLeaveTheirHeadersAtTheBottom) {
    const DispositionTextes d = disposition(Arrangement::ACote, 3000);
    EXPECT_EQ(d.places().separateurlisteh, QRect(0, 9000 - 495, 12000, 75));
    EXPECT_EQ(d.places().entetelistedesliens, QRect(0, 9000 - 420, 5970, 420));
    EXPECT_EQ(d.places().flexlistedesliens.height(), 0);
}

TEST(DispositionTextes, OpenedListsAreAsHighAsTheirRows) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    const QRect texte = d.places().rtfRichTextBox1;
    d.ouvrelistes(1200);
    d.replaceseparateur();
    EXPECT_EQ(d.places().flexlistedesliens.height(), 1200);
    EXPECT_EQ(d.posseparateurlisteh, 9000 - 75 - 420 - 1200);
    d.fermelistes();
    d.replaceseparateur();
    EXPECT_EQ(d.places().rtfRichTextBox1, texte);
}

TEST(DispositionTextes, OpenedListsTakeAGoodQuarterOfTheWindowAtMost) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    d.ouvrelistes(50'000);
    d.replaceseparateur();
    EXPECT_EQ(d.posseparateurlisteh, 9000 - 9000 * 28 / 100);
}

TEST(DispositionTextes, OpenedListsLeaveTheTextHalfOfItsHeight) {
    DispositionTextes d = disposition(Arrangement::Dessus, 6000);
    const QRect texte = d.places().rtfRichTextBox1;
    d.ouvrelistes(50'000);
    d.replaceseparateur();
    EXPECT_EQ(d.posseparateurlisteh, texte.top() + texte.height() / 2);
}

TEST(DispositionTextes, AWindowThatGrowsGivesWhatItGainsToTheText) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    const auto grandit = [&d](int hauteur) {
        d.changetaille(12000, hauteur, mesures);
        d.replaceseparateur();
    };
    d.ouvrelistes(1200);
    d.replaceseparateur();
    grandit(4800);
    EXPECT_EQ(d.posseparateurlisteh, 4800 - 4800 * 28 / 100);
    grandit(18000);
    EXPECT_EQ(d.places().flexlistedesliens.height(), 1200);
    d.lache(u"separateurlisteh"_s, {0, 9000});
    grandit(6000);
    EXPECT_EQ(d.posseparateurlisteh, 3000) << "as much of it as the user has given";
    grandit(18000);
    EXPECT_EQ(d.posseparateurlisteh, 9000);
}

TEST(DispositionTextes, ASecondListMakesRoomForItselfUnlessTheUserHasMovedTheBar) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    d.ouvrelistes(900);
    d.ouvrelistes(1500);
    d.replaceseparateur();
    EXPECT_EQ(d.places().flexlistedesliens.height(), 1500);
    d.ouvrelistes(900);
    d.replaceseparateur();
    EXPECT_EQ(d.places().flexlistedesliens.height(), 1500) << "the text does not jump";
    d.lache(u"separateurlisteh"_s, {0, 8000});
    d.ouvrelistes(1800);
    d.replaceseparateur();
    EXPECT_EQ(d.posseparateurlisteh, 8000);
    d.fermelistes();
    d.replaceseparateur();
    d.ouvrelistes(1800);
    EXPECT_EQ(d.posseparateurlisteh, 9000 - 75 - 420 - 1800) << "opened anew";
}

TEST(DispositionTextes, AWindowThatBecomesLowIsForTheTextAlone) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    const auto change = [&d](int hauteur) {
        d.changetaille(12000, hauteur, mesures);
        d.replaceseparateur();
        return d.listesplacees();
    };
    d.ouvrelistes(1200);
    EXPECT_TRUE(change(4800));
    EXPECT_FALSE(change(4799));
    EXPECT_TRUE(d.listesvisibles);
    EXPECT_TRUE(d.places().entetelistedesliens.isEmpty());
    EXPECT_TRUE(d.places().flexlistedesliens.isEmpty());
    EXPECT_EQ(d.places().rtfRichTextBox1.bottom(), 4799 - 1);
    change(4000);
    d.ouvrelistes(1200);
    EXPECT_TRUE(change(4000)) << "opened in a low one";
    EXPECT_FALSE(change(3999)) << "but not in one that is still lower";
    EXPECT_TRUE(change(9000));
    EXPECT_TRUE(change(4000));
    d.fermelistes();
    EXPECT_FALSE(change(9000));
}

TEST(DispositionTextes, ListsAreLaidAnewBehindASizeThatLeftThemNothing) {
    for (const bool deplacees : {false, true}) {
        DispositionTextes d = disposition(Arrangement::ACote, 3000);
        d.ouvrelistes(1200);
        d.replaceseparateur();
        if (deplacees)
            d.lache(u"separateurlisteh"_s, {0, 6000});
        const int avant = d.posseparateurlisteh;
        for (const int hauteur : {0, 300, 2000, 0}) {
            d.changetaille(3000, hauteur, mesures);
            d.replaceseparateur();
        }
        d.changetaille(12000, 9000, mesures);
        d.replaceseparateur();
        EXPECT_EQ(d.posseparateurlisteh, avant) << deplacees;
    }
}

TEST(DispositionTextes, WhereNotAllRowsHaveRoomWholeOnesAreSeen) {
    MesuresTextes avec = mesures;
    avec.titres = 390;
    avec.rangee = 360;
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    d.ouvrelistes(390 + 40 * 360);
    const auto rangees = [&](int hauteur) {
        d.changetaille(12000, hauteur, avec);
        d.replaceseparateur();
        const int place = d.places().flexlistedesliens.height() - avec.titres;
        EXPECT_EQ(place % avec.rangee, 0) << hauteur;
        return place / avec.rangee;
    };
    EXPECT_EQ(rangees(9000), 4);
    EXPECT_EQ(rangees(9590), 5) << "as many as fit in a good quarter";
    EXPECT_EQ(rangees(9580), 4);
    d.changetaille(12000, 2000, avec);
    d.ouvrelistes(390 + 40 * 360);
    EXPECT_EQ(rangees(4000), 1) << "one at least";
    d.changetaille(12000, 2000, avec);
    d.replaceseparateur();
    EXPECT_EQ(d.places().rtfRichTextBox1.height(), (2000 - 480 - 495) / 2) << "but half of the text stays";
}

TEST(DispositionTextes, TheListsBarsStayInTheWindow) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    d.ouvrelistes(hauteurdegrille);
    d.posseparateurlisteh = 20'000;
    d.posseparateurlistev = 20'000;
    d.replaceseparateur();
    EXPECT_EQ(d.posseparateurlisteh, 9000 - 780);
    EXPECT_EQ(d.posseparateurlistev, 6000);
    d.posseparateurlisteh = 59;
    d.replaceseparateur();
    EXPECT_EQ(d.posseparateurlisteh, 240);
}
