#include "navigation_banc.h"

namespace velm::test {
namespace {

class NavigationOuvre : public BancNavigation {};

TEST_F(NavigationOuvre, OpeningCreatesTheCollectionsWindowAndShowsTheDocument) {
    navigue(u"TAEU000003"_s);
    ASSERT_EQ(hote.fenetres.size(), 1U);
    EXPECT_EQ(fenetre(u"EU").slot, 1);
    EXPECT_EQ(fenetre(u"EU").affichages, QStringList{u"EU000003"_s});
    EXPECT_EQ(fenetre(u"EU").focus, 1);
    EXPECT_EQ(courant(), u"EU000003"_s);
    EXPECT_EQ(navigation.titrecourant(), u"EU numéro 3"_s);
    EXPECT_EQ(fenetre(u"EU").parcours().referencecourante, u"EU000003"_s);
    EXPECT_EQ(fenetre(u"EU").parcours().titrecourant, u"EU numéro 3"_s);
}

TEST_F(NavigationOuvre, OpeningAgainWhatIsShownDoesNotReloadIt) {
    navigue({u"TACO000001", u"TACO000001"});
    EXPECT_EQ(fenetre(u"CO").affichages.size(), 1);
    EXPECT_EQ(fenetre(u"CO").focus, 2);
    EXPECT_TRUE(precedents().isEmpty());
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(derniers(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationOuvre, AnAnchorIsIgnoredForADocumentAlreadyShown) {
    navigation.navigue(u"TACO000001"_s, false, u"L111"_s);
    navigation.navigue(u"TACO000001"_s, false, u"L222"_s);
    EXPECT_EQ(fenetre(u"CO").ancres, QStringList{u"L111"_s});
}

TEST_F(NavigationOuvre, TheOperationsAreWhatTheCommandsSay) {
    HoteEssai autrehote{titres};
    Navigation autre{autrehote, corpus};
    autrehote.navigation = &autre;
    const auto memes = [&](const QString& commande) {
        navigation.navigue(commande);
        const auto de = [](const Navigation& celle) {
            QStringList etat{celle.referencecourante()};
            for (const ListeHistorique* liste : {&celle.historique().precedent, &celle.historique().suivant})
                etat << u"|"_s << FenetreEssai::cles(*liste);
            for (const int indice : {0, 1}) {
                if (auto* sienne = static_cast<FenetreEssai*>(celle.fenetre(indice)))
                    etat << u"-"_s << sienne->parcours().cle().texte() << sienne->precedents() << u"|"_s
                         << sienne->suivants() << (sienne->boutonprecedent ? u"<"_s : QString())
                         << (sienne->boutonsuivant ? u">"_s : QString());
            }
            return etat;
        };
        EXPECT_EQ(de(autre), de(navigation)) << commande.toStdString();
        EXPECT_EQ(autrehote.boutonprecedent, hote.boutonprecedent);
        EXPECT_EQ(autrehote.boutonsuivant, hote.boutonsuivant);
    };
    for (const QStringView cle : {u"CO000001", u"CO000002", u"EU000001", u"CO000003"}) {
        autre.ouvre(decoupecle(cle));
        memes(u"TA"_s + cle.toString());
    }
    autre.pas(Sens::Arriere);
    memes(u"TA-1"_s);
    autre.pas(Sens::Avant);
    memes(u"TA+1"_s);
    autre.pas(Sens::Arriere, 3);
    memes(u"LITAP3"_s);
    autre.pas(Sens::Avant, 1);
    memes(u"LITAS1"_s);
    autre.pasfenetre(0, Sens::Avant, 2);
    memes(u"LICOS2"_s);
    autre.pasfenetre(0, Sens::Arriere);
    memes(u"TACO-1"_s);
    autre.pasfenetre(0, Sens::Avant);
    memes(u"TACO+1"_s);
    EXPECT_EQ(derniers().size(), 4);
}

TEST_F(NavigationOuvre, AnOpeningFoldsThePanelAndPutsTheCaretIfItIsToldSo) {
    navigation.ouvre({u"CO"_s, u"000001"_s}, {.replier = true, .ancre = u"L111"_s});
    EXPECT_EQ(fenetre(u"CO").ancres, QStringList{u"L111"_s});
    EXPECT_TRUE(navigation.prendreplier(0));
    navigation.ouvre({u"CO"_s, u"000002"_s});
    EXPECT_EQ(fenetre(u"CO").ancres.last(), QString());
    EXPECT_FALSE(navigation.prendreplier(0));
}

TEST_F(NavigationOuvre, AKeyWithoutASlotAndAStepOfNoWindowDoNothing) {
    navigation.ouvre(Cle());
    navigation.ouvre({u"IN"_s, u"000001"_s});
    for (const int indice : {-1, 0, 11, 99})
        navigation.pasfenetre(indice, Sens::Arriere);
    navigation.pas(Sens::Avant, 4);
    EXPECT_TRUE(hote.fenetres.empty());
    EXPECT_TRUE(derniers().isEmpty());
}

TEST_F(NavigationOuvre, OpeningMarksTheSlotAsOpen) {
    EXPECT_FALSE(navigation.fenetreouverte(10));
    navigue(u"TADI000001"_s);
    EXPECT_TRUE(navigation.fenetreouverte(10));
    EXPECT_TRUE(navigation.maffichagef(10));
    EXPECT_TRUE(hote.enfonces[10]);
    EXPECT_FALSE(navigation.fenetreouverte(0));
}

TEST_F(NavigationOuvre, OpeningWakesTheButtonsOfADocument) {
    navigue(u"TACO000001"_s);
    EXPECT_TRUE(fenetre(u"CO").boutons);
    EXPECT_TRUE(fenetre(u"CO").haut);
    EXPECT_TRUE(fenetre(u"CO").bas);
    EXPECT_FALSE(fenetre(u"CO").boutondocument);
    hote.dossiers = true;
    navigue(u"TACO000001"_s);
    EXPECT_TRUE(fenetre(u"CO").boutondocument);
}

TEST_F(NavigationOuvre, OneWindowPerCollectionReusesTheWindow) {
    navigue({u"TACO000001", u"TACO000002", u"TAEU000001", u"TACO000003"});
    EXPECT_EQ(hote.fenetres.size(), 2U);
    EXPECT_EQ(fenetre(u"CO").affichages, (QStringList{u"CO000001"_s, u"CO000002"_s, u"CO000003"_s}));
}

TEST_F(NavigationOuvre, SeveralWindowsPerCollectionMakeANewOneEachTimeWithEmptyHistories) {
    navigue({u"TACO000001", u"TACO000002"});
    navigation.changeunefenetre(false);
    EXPECT_FALSE(navigation.unefenetre());
    const FenetreNavigable* premiere = navigation.fenetre(0);
    navigue(u"TACO000003"_s);
    ASSERT_EQ(hote.fenetres.size(), 2U);
    EXPECT_NE(navigation.fenetre(0), premiere);
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(hote.fenetres[0]->parcours().referencecourante, u"CO000002"_s);
    EXPECT_EQ(precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s}));
}

TEST_F(NavigationOuvre, WithSeveralWindowsEvenTheDocumentShownGetsANewOne) {
    navigation.changeunefenetre(false);
    navigue({u"TACO000001", u"TACO000001"});
    EXPECT_EQ(hote.fenetres.size(), 2U);
    EXPECT_EQ(fenetre(u"CO").affichages.size(), 1);
    EXPECT_TRUE(precedents().isEmpty());
}

TEST_F(NavigationOuvre, AWindowMadeFromALinkFoldsItsPanel) {
    navigation.navigue(u"TACO000001"_s, true);
    navigation.navigue(u"TAEU000001"_s, false);
    EXPECT_FALSE(navigation.prendreplier(1));
    EXPECT_TRUE(navigation.prendreplier(0));
    EXPECT_FALSE(navigation.prendreplier(0)) << "asking takes the mark away";
}

TEST_F(NavigationOuvre, TheFoldMarkStandsBeforeTheWindowTakesTheFocus) {
    navigue(u"TACO000001"_s);
    bool replie = false;
    fenetre(u"CO").aufocus = [&] { replie = navigation.prendreplier(0); };
    navigation.navigue(u"TACO000002"_s, true);
    EXPECT_TRUE(replie);
}

TEST_F(NavigationOuvre, AnUnknownCommandDoesNothing) {
    navigue(u"TACO000001"_s);
    for (const QStringView commande :
         std::initializer_list<QStringView>{u"", u"T", u"XXCO000002", u"taCO000002", u"Li", u"LI", u"TA", u"CO000002"})
        navigation.navigue(commande.toString());
    EXPECT_EQ(hote.fenetres.size(), 1U);
    EXPECT_EQ(fenetre(u"CO").affichages.size(), 1);
    EXPECT_EQ(derniers().size(), 1);
}

TEST_F(NavigationOuvre, ButtonsAreRefreshedAfterEveryCommand) {
    navigue({u"TACO000001", u"TACO000002"});
    hote.boutonprecedent = false;
    fenetre(u"CO").boutonprecedent = false;
    navigue(u"rien"_s);
    EXPECT_TRUE(hote.boutonprecedent);
    EXPECT_TRUE(fenetre(u"CO").boutonprecedent) << "a command that computes no slot refreshes the first one";
}

TEST_F(NavigationOuvre, ACommandOfAnotherSlotLeavesTheFirstWindowsButtons) {
    navigue({u"TACO000001", u"TACO000002"});
    fenetre(u"CO").boutonprecedent = false;
    navigue(u"TAEU000001"_s);
    EXPECT_FALSE(fenetre(u"CO").boutonprecedent);
    navigue(u"LICOX1"_s);
    EXPECT_TRUE(fenetre(u"CO").boutonprecedent);
}

TEST_F(NavigationOuvre, AnAbsentDocumentIsRecordedWithTheOldTitle) {
    navigue({u"TACO000001", u"TACO000999"});
    EXPECT_EQ(courant(), u"CO000999"_s);
    EXPECT_EQ(navigation.titrecourant(), u"CO numéro 1"_s);
    EXPECT_EQ(navigation.derniersdocumentslibelles()[0], u"CO-CO numéro 1"_s);
    EXPECT_EQ(precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationOuvre, AnUnknownCodeIsShownInTheFirstSlot) {
    navigue(u"TAXX000001"_s);
    EXPECT_TRUE(navigation.fenetreouverte(0));
    EXPECT_EQ(courant(), u"XX000001"_s);
}

TEST_F(NavigationOuvre, NothingOpensForTheIndexList) {
    navigue({u"TAIN000001", u"TAIN-1", u"LIINP1"});
    EXPECT_TRUE(hote.fenetres.empty());
    EXPECT_EQ(courant(), QString());
    EXPECT_TRUE(derniers().isEmpty());
    EXPECT_EQ(navigation.fenetre(11), nullptr);
    navigation.ouvrefenetre(11);
    navigation.ouvrefenetre(-1);
    navigation.basculefenetre(11, true);
    EXPECT_TRUE(hote.fenetres.empty());
}

TEST_F(NavigationOuvre, TheIndexListHasTheLastSlotAndNoDocumentWindow) {
    navigation.indexouvert(true);
    EXPECT_TRUE(navigation.fenetreouverte(11));
    EXPECT_TRUE(navigation.maffichagef(11));
    EXPECT_TRUE(hote.enfonces[11]);
    EXPECT_EQ(navigation.fenetre(11), nullptr);
    navigation.indexouvert(false);
    EXPECT_FALSE(navigation.fenetreouverte(11));
}

TEST_F(NavigationOuvre, SlotsOutsideTheTwelveAreNone) {
    for (const int indice : {-1, 12, 1000}) {
        EXPECT_EQ(navigation.fenetre(indice), nullptr);
        EXPECT_FALSE(navigation.fenetreouverte(indice));
        EXPECT_FALSE(navigation.maffichagef(indice));
        EXPECT_FALSE(navigation.prendreplier(indice));
        navigation.fermee(indice, nullptr);
    }
}

TEST_F(NavigationOuvre, WithoutMemoryNothingOpensAndTheRunGoesOn) {
    navigue(u"TACO000001"_s);
    hote.sansmemoire = true;
    navigue(u"TAEU000001"_s);
    EXPECT_FALSE(navigation.fenetreouverte(1));
    EXPECT_EQ(courant(), u"CO000001"_s);
    hote.sansmemoire = false;
    navigue(u"TAEU000001"_s);
    EXPECT_EQ(courant(), u"EU000001"_s);
}

class NavigationFenetres : public BancNavigation {};

TEST_F(NavigationFenetres, ClosingAWindowClearsItsSlotAndItsLists) {
    navigue({u"TACO000001", u"TACO000002"});
    hote.ferme(navigation.fenetre(0));
    EXPECT_FALSE(navigation.fenetreouverte(0));
    EXPECT_FALSE(navigation.maffichagef(0));
    EXPECT_FALSE(hote.enfonces[0]);
    EXPECT_FALSE(avecfenetre(u"CO"));
    navigue(u"TACO000003"_s);
    EXPECT_TRUE(fenetre(u"CO").precedents().isEmpty());
    EXPECT_EQ(precedents(), (QStringList{u"CO000002"_s, u"CO000001"_s})) << "the frame's list lives on";
}

TEST_F(NavigationFenetres, ClosingAnyWindowOfASlotClosesTheSlot) {
    navigation.changeunefenetre(false);
    navigue({u"TACO000001", u"TACO000002"});
    FenetreNavigable* seconde = navigation.fenetre(0);
    hote.ferme(hote.fenetres[0].get());
    EXPECT_FALSE(navigation.fenetreouverte(0));
    EXPECT_EQ(navigation.fenetre(0), seconde) << "the other window is still addressed";
    navigation.changeunefenetre(true);
    navigue(u"TACO000003"_s);
    EXPECT_EQ(hote.fenetres.size(), 3U) << "a closed slot gets a new window";
    EXPECT_NE(navigation.fenetre(0), seconde);
}

TEST_F(NavigationFenetres, AHiddenWindowIsShownAgainRatherThanASecondOneMade) {
    navigue(u"TACO000001"_s);
    navigation.basculefenetre(0, false);
    EXPECT_FALSE(fenetre(u"CO").visible);
    EXPECT_FALSE(navigation.maffichagef(0));
    EXPECT_TRUE(navigation.fenetreouverte(0));
    EXPECT_FALSE(hote.enfonces[0]);
    navigue(u"TACO000002"_s);
    EXPECT_EQ(hote.fenetres.size(), 1U);
    EXPECT_TRUE(fenetre(u"CO").visible);
    EXPECT_TRUE(navigation.maffichagef(0));
    EXPECT_EQ(fenetre(u"CO").precedents(), QStringList{u"CO000001"_s});
}

TEST_F(NavigationFenetres, WithSeveralWindowsAHiddenOneStaysHidden) {
    navigue(u"TACO000001"_s);
    navigation.basculefenetre(0, false);
    navigation.changeunefenetre(false);
    navigue(u"TACO000002"_s);
    EXPECT_EQ(hote.fenetres.size(), 2U);
    EXPECT_FALSE(hote.fenetres[0]->visible);
}

TEST_F(NavigationFenetres, AStepBackShowsAHiddenWindow) {
    navigue({u"TACO000001", u"TAEU000001"});
    navigation.basculefenetre(0, false);
    navigue(u"TA-1"_s);
    EXPECT_TRUE(fenetre(u"CO").visible);
    EXPECT_EQ(hote.fenetres.size(), 2U);
    EXPECT_EQ(courant(), u"CO000001"_s);
}

TEST_F(NavigationFenetres, TogglingMakesTheWindowOrShowsAndHidesIt) {
    navigation.basculefenetre(4, false);
    EXPECT_TRUE(hote.fenetres.empty());
    navigation.basculefenetre(4, true);
    ASSERT_EQ(hote.fenetres.size(), 1U);
    EXPECT_TRUE(navigation.maffichagef(4));
    navigation.basculefenetre(4, false);
    navigation.basculefenetre(4, true);
    EXPECT_EQ(hote.fenetres.size(), 1U);
    EXPECT_TRUE(hote.fenetres[0]->visible);
}

TEST_F(NavigationFenetres, AWindowMayGoWhileItTakesTheFocusOrShowsADocument) {
    navigue(u"TACO000001"_s);
    fenetre(u"CO").aufocus = [&] { hote.ferme(navigation.fenetre(0)); };
    navigue(u"TACO000002"_s);
    EXPECT_FALSE(avecfenetre(u"CO"));
    EXPECT_EQ(courant(), u"CO000001"_s);
    navigue(u"TAEU000001"_s);
    fenetre(u"EU").alaffichage = [&] { hote.ferme(navigation.fenetre(1)); };
    navigue(u"TAEU000002"_s);
    EXPECT_FALSE(avecfenetre(u"EU"));
    navigue({u"TADI000001", u"TACO000003", u"TA-1"});
    fenetre(u"CO").aufocus = [&] { hote.ferme(navigation.fenetre(0)); };
    navigue(u"TA+1"_s);
    EXPECT_FALSE(avecfenetre(u"CO"));
}

TEST_F(NavigationFenetres, CommandsOfAClosedWindowDoNothing) {
    navigue({u"TACO000001", u"TACO000002"});
    hote.ferme(navigation.fenetre(0));
    navigue({u"TACO-1", u"TACO+1", u"LICOP1", u"LICOS2"});
    EXPECT_FALSE(avecfenetre(u"CO"));
    EXPECT_EQ(courant(), u"CO000002"_s);
}

} // namespace
} // namespace velm::test
