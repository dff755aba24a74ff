// The place of the dossier's name in headers and footers.
#include "print/marquedossier.h"

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

TEST(MarqueDossier, TheMarkerIsReplacedInAnyCase) {
    const QString marque = marquedossier(u"DOSSIER"_s);
    EXPECT_EQ(marque, u"{DOSSIER}");
    EXPECT_EQ(placenomdossier(u"{dossier}"_s, marque, u"Baux"_s), u"Baux");
    EXPECT_EQ(placenomdossier(u"Le {Dossier}, page"_s, marque, u"Baux"_s), u"Le Baux, page");
}

TEST(MarqueDossier, SeveralMarkersAreReplaced) {
    EXPECT_EQ(placenomdossier(u"{DOSSIER} {dossier}{DOSSIER}"_s, u"{DOSSIER}"_s, u"Baux"_s), u"Baux BauxBaux");
    EXPECT_EQ(placenomdossier(u"{DOSSIER}{DOSSIER}"_s, u"{DOSSIER}"_s, {}), u"");
}

TEST(MarqueDossier, AnotherTextStaysAsItIs) {
    EXPECT_EQ(placenomdossier(u"{DOSSIERS} DOSSIER"_s, u"{DOSSIER}"_s, u"Baux"_s), u"{DOSSIERS} DOSSIER");
    EXPECT_EQ(placenomdossier({}, u"{DOSSIER}"_s, u"Baux"_s), u"");
}

TEST(MarqueDossier, AMarkerThatIsNotInCapitalsIsNeverFound) {
    EXPECT_EQ(placenomdossier(u"{Dossier}"_s, u"{Dossier}"_s, u"Baux"_s), u"{Dossier}");
}

TEST(MarqueDossier, ANameWithTheMarkerStandsOnceForEachAndComesToAnEnd) {
    EXPECT_EQ(placenomdossier(u"{DOSSIER}-{DOSSIER}"_s, u"{DOSSIER}"_s, u"a{dossier}"_s), u"a{dossier}-a{dossier}");
    EXPECT_EQ(placenomdossier(u"{DOSSIER}"_s, u"{DOSSIER}"_s, u"{DOSSIER}"_s), u"{DOSSIER}");
}

TEST(MarqueDossier, AMarkerThatTheNameCompletesIsReplacedToo) {
    EXPECT_EQ(placenomdossier(u"{DOSSIER}IER}"_s, u"{DOSSIER}"_s, u"{DOSS"_s), u"{DOSS");
}

TEST(MarqueDossier, LettersWhoseCapitalIsLongerMoveNothing) {
    EXPECT_EQ(placenomdossier(u"Straße ß {dossier}!"_s, u"{DOSSIER}"_s, u"Maß"_s), u"Straße ß Maß!");
}

} // namespace velm::test
