#include "document/clic.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class ClicDansLeTexte : public testing::Test {
protected:
    ClicDansLeTexte() {
        lien(10, 15, u"CO000001"_s, u"article"_s);
        listes.ListeUrl << u"https://example.org"_s;
        listes.ListeStartUrl.ajoute(20);
        listes.ListeEndUrl.ajoute(25);
        listes.ListeEmail << u"a@example.org"_s;
        listes.ListeStartEmail.ajoute(30);
        listes.ListeEndEmail.ajoute(35);
    }
    void lien(qsizetype debut, qsizetype fin, const QString& cle, const QString& montre) {
        listes.Listehyperlien << cle;
        listes.Listestarthyperlien.ajoute(debut);
        listes.Listeendhyperlien.ajoute(fin);
        listes.ListeValeurHyperLien << montre;
    }
    ListesLiens listes;
};

TEST_F(ClicDansLeTexte, AClickOnTheFirstAndBehindTheLastCharacterOpensTheLink) {
    const Clic attendu{Clic::Vers::Document, u"CO000001"_s, u"article"_s};
    for (const qsizetype position : {10, 12, 14, 15})
        EXPECT_EQ(clicdans(listes, position), attendu) << position;
}

TEST_F(ClicDansLeTexte, AClickOutsideOpensNothing) {
    for (const qsizetype position : {-1, 0, 9, 16, 19, 26, 29, 36, 100000})
        EXPECT_EQ(clicdans(listes, position), Clic{}) << position;
    EXPECT_EQ(clicdans(ListesLiens{}, 0), Clic{});
}

TEST_F(ClicDansLeTexte, WebAndMailLinksAreFoundWithBothLimitsInside) {
    for (const qsizetype position : {20, 25})
        EXPECT_EQ(clicdans(listes, position), (Clic{Clic::Vers::Adresse, u"https://example.org"_s, {}}));
    for (const qsizetype position : {30, 35})
        EXPECT_EQ(clicdans(listes, position), (Clic{Clic::Vers::Courrier, u"a@example.org"_s, {}}));
}

TEST_F(ClicDansLeTexte, TheFirstOfTwoOverlappingLinksWins) {
    lien(5, 12, u"CO000002"_s, u"second"_s);
    EXPECT_EQ(clicdans(listes, 11).cible, u"CO000001"_s);
    EXPECT_EQ(clicdans(listes, 9).cible, u"CO000002"_s);
}

TEST_F(ClicDansLeTexte, DocumentsComeBeforeTheWebAndTheWebBeforeMail) {
    lien(24, 31, u"EU000001"_s, u"large"_s);
    EXPECT_EQ(clicdans(listes, 25).vers, Clic::Vers::Document);
    EXPECT_EQ(clicdans(listes, 31).vers, Clic::Vers::Document);
    listes.ListeUrl << u"https://example.org/2"_s;
    listes.ListeStartUrl.ajoute(32);
    listes.ListeEndUrl.ajoute(40);
    EXPECT_EQ(clicdans(listes, 33).vers, Clic::Vers::Adresse);
}

TEST_F(ClicDansLeTexte, ARowWhoseEndIsMissingOpensNothing) {
    listes.Listehyperlien << u"CO000009"_s;
    listes.Listestarthyperlien.ajoute(50);
    for (const qsizetype position : {50, 51, 60})
        EXPECT_EQ(clicdans(listes, position), Clic{});
}

} // namespace
} // namespace velm::test
