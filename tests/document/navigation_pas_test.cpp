// Steps and jumps through both levels of history, and the last documents.
#include "core/reglages.h"
#include "navigation_banc.h"

#include <QTemporaryDir>

namespace velm::test {
namespace {

class NavigationPas : public BancNavigation {};

TEST_F(NavigationPas, LeavingADocumentPushesItOnBothBackLists) {
    navigue({u"TACO000001", u"TACO000002"});
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
    EXPECT_EQ(navigation.historique().precedent.titre(), u"CO numéro 1"_s);
}

TEST_F(NavigationPas, AnotherCollectionIsPushedOnTheFramesListOnly) {
    navigue({u"TACO000001", u"TAEU000001"});
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_TRUE(fenetre(u"EU").precedents().isEmpty());
}

TEST_F(NavigationPas, TheShownDocumentIsNeverOnTopOfItsOwnBackList) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000002", u"TAEU000001"});
    navigue(u"TACO000002"_s);
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s}) << "it is shown in its window already";
    EXPECT_EQ(precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s}));
    navigue({u"TACO000003", u"TACO000004", u"TA-1"});
    EXPECT_EQ(courant(), u"CO000003"_s);
    EXPECT_NE(precedents().first(), courant());
    EXPECT_NE(fenetre(u"CO").precedents().first(), courant());
}

TEST_F(NavigationPas, OpeningWhatStandsOnTopOfTheFramesBackListPushesNothing) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000001"});
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationPas, OpeningWhatStandsOnTopOfTheWindowsBackListPushesOnTheFramesOnly) {
    navigue({u"TACO000001", u"TACO000002", u"TAEU000001", u"TACO000001"});
    EXPECT_EQ(precedents(), (QStringList{u"EU000001"_s, u"CO000002"_s, u"CO000001"_s}));
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationPas, GoingBackAndForwardReturnsToTheSameDocument) {
    navigue({u"TACO000001", u"TAEU000001", u"TADI000001", u"TA-1", u"TA-1", u"TA+1", u"TA+1"});
    EXPECT_EQ(courant(), u"DI000001"_s);
    EXPECT_EQ(precedents(), (QStringList{u"EU000001"_s, u"CO000001"_s}));
    EXPECT_TRUE(suivants().isEmpty());
}

TEST_F(NavigationPas, GoingBackAndForwardInTheWindowReturnsToTheSameDocument) {
    navigue({u"TADI000001", u"TADI000002", u"TADI000003", u"TADI-1", u"TADI-1", u"TADI+1"});
    EXPECT_EQ(courant(), u"DI000002"_s);
    EXPECT_EQ(fenetre(u"DI").precedents(), QStringList{u"DI000001"_s});
    EXPECT_EQ(fenetre(u"DI").suivants(), QStringList{u"DI000003"_s});
}

TEST_F(NavigationPas, GoingBackInTheWindowFillsTheWindowsForwardList) {
    navigue({u"TACO000001", u"TACO000002", u"TACO-1"});
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000002"_s});
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(fenetre(u"CO").parcours().historique.suivant.titre(), u"CO numéro 2"_s);
    EXPECT_EQ(fenetre(u"CO").affichages.last(), u"CO000001"_s);
    // For the frame it is an opening like any other, of the document on top of its list.
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
    EXPECT_TRUE(suivants().isEmpty());
}

TEST_F(NavigationPas, GoingBackInTheFrameOpensTheOtherCollectionsWindow) {
    navigue({u"TACO000001", u"TACO000002", u"TAEU000001"});
    hote.ferme(navigation.fenetre(0));
    navigue(u"TA-1"_s);
    ASSERT_TRUE(avecfenetre(u"CO"));
    EXPECT_EQ(courant(), u"CO000002"_s);
    EXPECT_EQ(suivants(), QStringList{u"EU000001"_s});
    EXPECT_TRUE(fenetre(u"CO").suivants().isEmpty()) << "a window just made has left no document";
}

TEST_F(NavigationPas, TheOtherWindowsForwardListGetsItsPreviousDocument) {
    navigue({u"TACO000001", u"TACO000002", u"TAEU000001", u"TACO000003", u"TAEU000002", u"TA-1", u"TA-1"});
    EXPECT_EQ(courant(), u"EU000001"_s);
    EXPECT_EQ(fenetre(u"EU").suivants(), QStringList{u"EU000002"_s});
    EXPECT_TRUE(fenetre(u"EU").precedents().isEmpty());
}

TEST_F(NavigationPas, TheWindowListFollowsTheFramesListByOneStep) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003"});
    navigue({u"TACO-1", u"TAEU000001"}); // the window shows 2 over 1, the frame came by 1, 2, 3, 2
    EXPECT_EQ(precedents().first(), u"CO000002"_s);
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
    navigue(u"TA-1"_s);
    EXPECT_EQ(courant(), u"CO000002"_s);
    // The top of the window's list was another document; it goes all the same.
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(fenetre(u"CO").suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
}

TEST_F(NavigationPas, AStepForwardMirrorsAStepBack) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"TA-1", u"TA-1"});
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
    EXPECT_EQ(fenetre(u"CO").suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
    navigue(u"TA+1"_s);
    EXPECT_EQ(courant(), u"CO000002"_s);
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000003"_s});
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationPas, AStepInAnEmptyListDoesNothing) {
    navigue({u"TA-1", u"TA+1", u"LITAP1", u"LITAS3", u"TACO-1", u"LICOP1"});
    EXPECT_TRUE(hote.fenetres.empty());
    navigue({u"TACO000001", u"TA-1", u"TA+1", u"TACO-1", u"TACO+1", u"LITAP1", u"LITAS1", u"LICOP1", u"LICOS2"});
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(fenetre(u"CO").affichages.size(), 1);
    EXPECT_TRUE(fenetre(u"CO").suivants().isEmpty());
}

TEST_F(NavigationPas, JumpingToEntry1EqualsOneStep) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"LICOP1"});
    const QStringList affiches = fenetre(u"CO").affichages;
    EXPECT_EQ(courant(), u"CO000002"_s);
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000003"_s});
    navigue(u"LICOS1"_s);
    EXPECT_EQ(courant(), u"CO000003"_s);
    navigue(u"TACO-1"_s);
    EXPECT_EQ(fenetre(u"CO").affichages.last(), affiches.last());
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000003"_s});
}

TEST_F(NavigationPas, JumpingToEntryNMovesTheEntriesBetween) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"TACO000004", u"LICOP3"});
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(fenetre(u"CO").suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s, u"CO000004"_s}));
    EXPECT_EQ(fenetre(u"CO").parcours().historique.suivant.titre(2), u"CO numéro 3"_s);
    navigue(u"LICOS2"_s);
    EXPECT_EQ(courant(), u"CO000003"_s);
    EXPECT_EQ(fenetre(u"CO").precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s}));
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000004"_s});
}

TEST_F(NavigationPas, JumpingInTheFrameKeepsTheWindowsListInStep) {
    navigue({u"TACO000001", u"TACO000002", u"TAEU000001", u"TACO000003", u"TACO000004"});
    navigue(u"LITAP4"_s); // 3, EU 1, 2, 1
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(suivants(), (QStringList{u"CO000002"_s, u"EU000001"_s, u"CO000003"_s, u"CO000004"_s}));
    EXPECT_TRUE(precedents().isEmpty());
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(fenetre(u"CO").suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s, u"CO000004"_s}));
    EXPECT_TRUE(fenetre(u"EU").suivants().isEmpty());
    navigue(u"LITAS3"_s);
    EXPECT_EQ(courant(), u"CO000003"_s);
    EXPECT_EQ(precedents(), (QStringList{u"EU000001"_s, u"CO000002"_s, u"CO000001"_s}));
    EXPECT_EQ(fenetre(u"CO").precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s}));
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000004"_s});
}

TEST_F(NavigationPas, AJumpToADocumentThatTheWindowsListLacksTakesOneStep) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"TAEU000001"});
    hote.ferme(navigation.fenetre(0));
    navigue({u"TACO000004", u"TACO000005", u"TAEU000002"}); // the new window only knows 4
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000004"_s});
    navigue(u"LITAP5"_s); // 5, 4, EU 1, 3, 2
    EXPECT_EQ(courant(), u"CO000002"_s);
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(fenetre(u"CO").suivants(), QStringList{u"CO000005"_s});
}

TEST_F(NavigationPas, AJumpBeyondTheListGoesToItsEndAndOneBelowItToItsTop) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"LITAP99"});
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(suivants().size(), 2);
    for (const QStringView commande : std::initializer_list<QStringView>{u"LITAS0", u"LITAS-5", u"LITASx", u"LITAS"}) {
        navigue(commande.toString());
        EXPECT_EQ(courant(), u"CO000002"_s) << commande.toString().toStdString();
        navigue(u"TA-1"_s);
        EXPECT_EQ(courant(), u"CO000001"_s);
    }
    navigue(u"LICOS999999999999999999999"_s);
    EXPECT_EQ(courant(), u"CO000003"_s);
}

TEST_F(NavigationPas, AJumpWithALetterOtherThanPOrSDoesNothing) {
    navigue({u"TACO000001", u"TACO000002", u"LICOX1", u"LITAX1", u"LICOp1", u"LITA1", u"LICO"});
    EXPECT_EQ(courant(), u"CO000002"_s);
    EXPECT_EQ(fenetre(u"CO").affichages.size(), 2);
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationPas, AJumpInTheFrameKeepsTheTails) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"TACO000001", u"TACO000002", u"TACO000003"});
    ASSERT_EQ(precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s, u"CO000003"_s, u"CO000002"_s, u"CO000001"_s}));
    ASSERT_EQ(navigation.historique().precedent.suffixe(1), QString(QChar(0)));
    navigue(u"LITAP2"_s);
    EXPECT_EQ(suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
    EXPECT_EQ(navigation.historique().suivant.suffixe(1), QString(QChar(0)));
    EXPECT_EQ(fenetre(u"CO").parcours().historique.suivant.suffixe(1), QString(QChar(0)));
}

TEST_F(NavigationPas, AJumpInTheWindowStartsTheTailsAfresh) {
    navigue({u"TACO000001", u"TACO000002", u"TACO000003", u"TACO000001", u"TACO000002", u"TACO000003"});
    ASSERT_EQ(fenetre(u"CO").parcours().historique.precedent.suffixe(1), QString(QChar(0)));
    navigue(u"LICOP2"_s);
    EXPECT_EQ(fenetre(u"CO").suivants(), (QStringList{u"CO000002"_s, u"CO000003"_s}));
    EXPECT_TRUE(fenetre(u"CO").parcours().historique.suivant.suffixe(1).isEmpty());
}

TEST_F(NavigationPas, ButtonsAreEnabledExactlyWhenTheirListHasEntries) {
    const auto verifie = [&](const char* ou) {
        EXPECT_EQ(hote.boutonprecedent, !precedents().isEmpty()) << ou;
        EXPECT_EQ(hote.boutonsuivant, !suivants().isEmpty()) << ou;
        EXPECT_EQ(fenetre(u"CO").boutonprecedent, !fenetre(u"CO").precedents().isEmpty()) << ou;
        EXPECT_EQ(fenetre(u"CO").boutonsuivant, !fenetre(u"CO").suivants().isEmpty()) << ou;
    };
    navigue(u"TACO000001"_s);
    verifie("first");
    EXPECT_FALSE(hote.boutonprecedent);
    navigue(u"TACO000002"_s);
    verifie("second");
    EXPECT_TRUE(hote.boutonprecedent);
    navigue(u"TA-1"_s);
    verifie("back");
    EXPECT_TRUE(hote.boutonsuivant);
    navigue(u"TACO+1"_s);
    verifie("forward in the window");
    navigue(u"LITAS1"_s);
    verifie("jump");
}

TEST_F(NavigationPas, TheHistoriesHaveNoLimit) {
    for (int i = 0; i < 3'000; ++i)
        navigue(u"TACO"_s + sixchiffres(1 + i % 3));
    EXPECT_EQ(navigation.historique().precedent.nombre(), 2'999);
    EXPECT_EQ(fenetre(u"CO").parcours().historique.precedent.nombre(), 2'999);
    navigue(u"LITAP2999"_s);
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(navigation.historique().suivant.nombre(), 2'999);
}

TEST_F(NavigationPas, WithSeveralWindowsAStepBackOpensYetAnother) {
    navigation.changeunefenetre(false);
    navigue({u"TACO000001", u"TACO000002", u"TA-1"});
    EXPECT_EQ(hote.fenetres.size(), 3U);
    EXPECT_EQ(courant(), u"CO000001"_s);
    EXPECT_EQ(hote.fenetres[1]->suivants(), QStringList{u"CO000002"_s});
    EXPECT_TRUE(fenetre(u"CO").suivants().isEmpty());
    EXPECT_EQ(suivants(), QStringList{u"CO000002"_s});
}

TEST_F(NavigationPas, WithoutMemoryAStepIntoAClosedWindowOpensNothing) {
    navigue({u"TACO000001", u"TAEU000001"});
    hote.ferme(navigation.fenetre(0));
    hote.sansmemoire = true;
    navigue({u"TA-1", u"LITAP1"});
    EXPECT_FALSE(avecfenetre(u"CO"));
    hote.sansmemoire = false;
    navigue(u"TAEU000002"_s);
    EXPECT_EQ(courant(), u"EU000002"_s);
}

} // namespace
} // namespace velm::test
