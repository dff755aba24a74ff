// Commands of the navigation as they are written.
#include "document/commandenavigation.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

CommandeNavigation ouvre(QStringView cle) {
    return CommandeOuvre{decoupecle(cle)};
}

TEST(CommandeNavigation, AKeyBehindItsTwoLettersOpensADocument) {
    EXPECT_EQ(litcommande(u"TACO000123"_s), ouvre(u"CO000123"));
    EXPECT_EQ(litcommande(u"TAIN000001"_s), ouvre(u"IN000001"));
}

TEST(CommandeNavigation, WhatIsNoStepIsAKeyHoweverItLooks) {
    for (const QStringView cle : {u"", u"C", u"CO", u"CO1", u"XX000001", u"CO000001234", u"CO-1 ", u"CO+2", u"- 1"})
        EXPECT_EQ(litcommande(u"TA"_s + cle.toString()), ouvre(cle)) << cle.toString().toStdString();
}

TEST(CommandeNavigation, AStepIsTheFramesOrThatOfAWindow) {
    EXPECT_EQ(litcommande(u"TA-1"_s), CommandeNavigation(CommandePas{Sens::Arriere}));
    EXPECT_EQ(litcommande(u"TA+1"_s), CommandeNavigation(CommandePas{Sens::Avant}));
    EXPECT_EQ(litcommande(u"TA-1 and more"_s), CommandeNavigation(CommandePas{Sens::Arriere}));
    EXPECT_EQ(litcommande(u"TAEU-1"_s), CommandeNavigation(CommandePasFenetre{1, Sens::Arriere}));
    EXPECT_EQ(litcommande(u"TADI+1"_s), CommandeNavigation(CommandePasFenetre{10, Sens::Avant}));
    EXPECT_EQ(litcommande(u"TAXX+1"_s), CommandeNavigation(CommandePasFenetre{0, Sens::Avant}))
        << "the slot of an unknown code";
}

TEST(CommandeNavigation, AJumpHasTheNumberOfItsEntry) {
    EXPECT_EQ(litcommande(u"LITAP2"_s), CommandeNavigation(CommandePas{Sens::Arriere, 2}));
    EXPECT_EQ(litcommande(u"LITAS13"_s), CommandeNavigation(CommandePas{Sens::Avant, 13}));
    EXPECT_EQ(litcommande(u"LICOP1"_s), CommandeNavigation(CommandePasFenetre{0, Sens::Arriere, 1}));
    EXPECT_EQ(litcommande(u"LIJPS4"_s), CommandeNavigation(CommandePasFenetre{2, Sens::Avant, 4}));
    EXPECT_NE(litcommande(u"LITAP1"_s), litcommande(u"TA-1"_s)) << "a jump by one is no plain step";
}

TEST(CommandeNavigation, AnEntryThatIsNoneIsTheFirstOne) {
    for (const QStringView n : {u"", u"0", u"-3", u"zz", u"0.2"})
        EXPECT_EQ(litcommande(u"LITAS"_s + n.toString()), CommandeNavigation(CommandePas{Sens::Avant, 1}))
            << n.toString().toStdString();
    EXPECT_EQ(litcommande(u"LICOS99999999999999999999"_s),
              CommandeNavigation(CommandePasFenetre{0, Sens::Avant, 1'000'000'000}));
}

TEST(CommandeNavigation, AnythingElseIsNone) {
    for (const QStringView texte : {u"", u"T", u"LI", u"LITA", u"LICOX1", u"LICOp1", u"LITA1", u"taCO000001",
                                    u"XXCO000001", u" TACO000001", u"CO000001"})
        EXPECT_EQ(litcommande(texte.toString()), CommandeNavigation()) << texte.toString().toStdString();
}

} // namespace
} // namespace velm::test
