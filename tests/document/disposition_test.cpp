#include "tests/document/disposition_support.h"

#include <gtest/gtest.h>
#include <vector>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<QRect> toutes(const PlacesTextes& p) {
    return {p.panneau,
            p.separateur,
            p.rtfRichTextBox1,
            p.separateurlisteh,
            p.separateurlistev,
            p.entetelistedesliens,
            p.entetelistedescorrelats,
            p.flexlistedesliens,
            p.flexlistedescorreles};
}

qint64 aire(const QRect& r) {
    return qint64{r.width()} * r.height();
}

/// Everything lies in the window, nothing overlaps, and with the tool bar the parts fill it.
void attendpavage(const DispositionTextes& d) {
    const QRect fenetre(0, 0, d.largeur(), d.hauteur());
    qint64 somme = qint64{d.largeur()} * std::min(mesures.barre, d.hauteur());
    const auto places = toutes(d.places());
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_GE(places[i].width(), 0) << i;
        EXPECT_GE(places[i].height(), 0) << i;
        if (aire(places[i]) == 0)
            continue;
        EXPECT_TRUE(fenetre.contains(places[i])) << i;
        somme += aire(places[i]);
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(places[i].intersects(places[j])) << i << ' ' << j;
    }
    EXPECT_EQ(somme, aire(fenetre));
}

} // namespace

TEST(DispositionTextes, ThePanelIsLeftOfTheTextForZeroAndAboveItForOne) {
    const DispositionTextes gauche = disposition(Arrangement::ACote, 3000);
    EXPECT_EQ(gauche.places().separateur.left(), 3000);
    EXPECT_EQ(gauche.places().panneau, QRect(0, 480, 3000, 9000 - 480 - 75 - 420));
    EXPECT_EQ(gauche.places().rtfRichTextBox1.left(), 3075);
    EXPECT_EQ(gauche.places().rtfRichTextBox1.height(), gauche.places().panneau.height());

    const DispositionTextes dessus = disposition(Arrangement::Dessus, 3000);
    EXPECT_EQ(dessus.places().panneau, QRect(0, 480, 12000, 3000 - 360));
    EXPECT_EQ(dessus.places().separateur.top(), 480 + 2640);
    EXPECT_EQ(dessus.places().rtfRichTextBox1.width(), 12000);
}

TEST(DispositionTextes, ThePartsFillTheWindowWithoutGapOrOverlap) {
    for (const Arrangement arrangement : {Arrangement::ACote, Arrangement::Dessus}) {
        for (const bool listes : {false, true}) {
            for (const int position : {0, 360, 1000, 4305, 100'000}) {
                DispositionTextes d = disposition(arrangement, position);
                if (listes)
                    d.ouvrelistes(hauteurdegrille);
                d.replaceseparateur();
                SCOPED_TRACE(position);
                attendpavage(d);
            }
        }
    }
}

TEST(DispositionTextes, NoControlGetsANegativeSizeInANarrowWindow) {
    for (const Arrangement arrangement : {Arrangement::ACote, Arrangement::Dessus}) {
        for (const int largeur : {0, 30, 75, 400, 900}) {
            for (const int hauteur : {0, 100, 480, 500, 900, 1400}) {
                DispositionTextes d = disposition(arrangement, 4305);
                d.ouvrelistes(hauteurdegrille);
                d.changetaille(largeur, hauteur, mesures);
                d.replaceseparateur();
                SCOPED_TRACE(testing::Message() << largeur << 'x' << hauteur);
                attendpavage(d);
            }
        }
    }
}

TEST(DispositionTextes, ABarAtZeroBecomes360OnTheLeftArrangementWhenTheResultListIsHidden) {
    DispositionTextes d = disposition(Arrangement::ACote, 0);
    d.charge(false);
    EXPECT_EQ(d.posseparateur, 360);
    d.posseparateur = 10;
    d.charge(false);
    EXPECT_EQ(d.posseparateur, 10);
}

TEST(DispositionTextes, ABarUnder361Becomes1000OnTheOtherArrangementWhenTheResultListIsHidden) {
    DispositionTextes d = disposition(Arrangement::Dessus, 360);
    d.charge(false);
    EXPECT_EQ(d.posseparateur, 1000);
    d.posseparateur = 361;
    d.charge(false);
    EXPECT_EQ(d.posseparateur, 361);
}

TEST(DispositionTextes, ABarAtZeroStaysZeroWhenTheResultListIsVisible) {
    for (const Arrangement arrangement : {Arrangement::ACote, Arrangement::Dessus}) {
        DispositionTextes d = disposition(arrangement, 0);
        d.charge(true);
        EXPECT_EQ(d.posseparateur, 0);
    }
}

TEST(DispositionTextes, FoldingPutsTheBarTo0OrTo360AndHidesThePanel) {
    DispositionTextes gauche = disposition(Arrangement::ACote, 3000);
    gauche.plie();
    gauche.deplaceseparateur();
    EXPECT_EQ(gauche.posseparateur, 0);
    EXPECT_EQ(gauche.places().panneau.width(), 0);
    EXPECT_FALSE(gauche.places().panneaulisible);

    DispositionTextes dessus = disposition(Arrangement::Dessus, 3000);
    dessus.plie();
    dessus.deplaceseparateur();
    EXPECT_EQ(dessus.posseparateur, 360);
    EXPECT_EQ(dessus.places().panneau.height(), 0);
    EXPECT_TRUE(dessus.replie());
}

TEST(DispositionTextes, DroppingABarMovesItByItsSourcesRule) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000);
    EXPECT_TRUE(d.lache(u"separateur"_s, {2500, 700}));
    EXPECT_EQ(d.posseparateur, 2500);
    EXPECT_EQ(d.places().separateur.left(), 2500);
    d.arrangement = Arrangement::Dessus;
    EXPECT_TRUE(d.lache(u"separateur"_s, {2500, 2000}));
    EXPECT_EQ(d.posseparateur, 2000 - 480 + 360);
    EXPECT_EQ(d.places().separateur.top(), 2000);
    d.ouvrelistes(hauteurdegrille);
    EXPECT_TRUE(d.lache(u"separateurlisteh"_s, {0, 5000}));
    EXPECT_EQ(d.posseparateurlisteh, 5000);
    EXPECT_EQ(d.places().separateurlisteh.top(), 5000);
    EXPECT_TRUE(d.lache(u"separateurlistev"_s, {4000, 0}));
    EXPECT_EQ(d.posseparateurlistev, 4000);
    EXPECT_EQ(d.places().entetelistedesliens.width(), 4000);
    EXPECT_FALSE(d.lache(u"separateurrecherche"_s, {1, 1}));
}

TEST(DispositionTextes, AVeryFarPositionLeavesTheTextItsRoomAndStaysStored) {
    const DispositionTextes d = disposition(Arrangement::ACote, 50'000);
    EXPECT_EQ(d.posseparateur, 50'000);
    EXPECT_EQ(d.places().rtfRichTextBox1.width(), 4500);
    EXPECT_EQ(disposition(Arrangement::ACote, 50'000, 6000).places().rtfRichTextBox1.width(), 3000);
}

TEST(DispositionTextes, ANarrowWindowIsForTheTextUntilItsPanelIsWanted) {
    DispositionTextes d = disposition(Arrangement::ACote, 3000, 5999);
    EXPECT_FALSE(d.places().panneaulisible);
    EXPECT_EQ(d.places().rtfRichTextBox1.width(), 5999 - 75);
    EXPECT_EQ(d.posseparateur, 3000) << "it comes back in a wider one";
    const auto large = [&d](int largeur) {
        d.changetaille(largeur, 9000, mesures);
        d.replaceseparateur();
        return d.places().panneau.width();
    };
    d.deplie(Bloc::Arbre);
    EXPECT_GT(large(5999), 2000);
    d.plie();
    EXPECT_EQ(large(5999), 0);
    d.lache(u"separateur"_s, {2000, 0});
    EXPECT_EQ(large(5999), 2000) << "drawn by hand";
    EXPECT_EQ(large(6000), 2000);
    EXPECT_EQ(large(5999), 0) << "it was wanted before the window was wide";
    d.prendplacehabituelle();
    EXPECT_GT(large(5999), 2000);
}

TEST(DispositionTextes, ASearchWithoutAResultTakesItsLineAlone) {
    DispositionTextes d = disposition(Arrangement::Dessus, 4800);
    const int texte = d.places().rtfRichTextBox1.height();
    d.hauteurbloc = 1;
    d.deplaceseparateur();
    EXPECT_EQ(d.places().panneau.height(), 640);
    EXPECT_GT(d.places().rtfRichTextBox1.height(), texte);
    EXPECT_EQ(d.posseparateur, 4800);
    d.lache(u"separateur"_s, {0, 480 + 2000});
    EXPECT_EQ(d.places().panneau.height(), 2000) << "the user's hand decides";
    d.arrangement = Arrangement::ACote;
    d.hauteurbloc = 1;
    d.deplaceseparateur();
    EXPECT_EQ(d.places().panneau.width(), d.posseparateur);
}

TEST(DispositionTextes, ASearchAboveTheTextIsAsHighAsWhatItHasToSay) {
    DispositionTextes d = disposition(Arrangement::Dessus, 4800);
    d.hauteurbloc = 1500;
    d.deplaceseparateur();
    EXPECT_EQ(d.places().panneau.height(), 1500);
    d.hauteurbloc = 9000;
    d.deplaceseparateur();
    EXPECT_EQ(d.places().panneau.height(), 4800 - 360) << "and no higher than its bar has been put";
}

TEST(DispositionTextes, AFirstPanelIsWideEnoughForTitlesBesideTheText) {
    DispositionTextes d;
    d.commence();
    d.changetaille(30'000, 9000, mesures);
    d.replaceseparateur();
    EXPECT_EQ(d.arrangement, Arrangement::ACote);
    EXPECT_EQ(d.places().panneau.width(), 320 * 15);
    const auto panneau = [&d](int largeur) {
        d.changetaille(largeur, 9000, mesures);
        d.replaceseparateur();
        return d.places().panneau.width();
    };
    EXPECT_EQ(panneau(12'000), 4800);
    EXPECT_EQ(panneau(9000), 3600) << "the larger part of a small window is the text's";
    d.lache(u"separateur"_s, {4400, 0});
    EXPECT_EQ(panneau(9000), 4400) << "where the user has put it";
    EXPECT_EQ(panneau(6000), 6000 - 75 - 3000) << "but half of a small window is the text's";
}

TEST(DispositionTextes, ALowWindowIsForTheText) {
    DispositionTextes d = disposition(Arrangement::Dessus, 1000, 12'000, 4799);
    EXPECT_EQ(d.places().rtfRichTextBox1, QRect(0, 480, 12'000, 4799 - 480));
    EXPECT_FALSE(d.places().panneaulisible);
    EXPECT_TRUE(d.places().separateur.isEmpty());
    EXPECT_TRUE(d.places().entetelistedesliens.isEmpty());
    attendpavage(d);
    d.changetaille(12'000, 4800, mesures);
    d.replaceseparateur();
    EXPECT_TRUE(d.places().panneaulisible);
    EXPECT_EQ(d.places().entetelistedesliens.height(), 420);
}

TEST(DispositionTextes, WhatTheUserWantsIsThereInALowWindowToo) {
    DispositionTextes d = disposition(Arrangement::Dessus, 1000, 12'000, 4000);
    d.deplie(Bloc::Recherche);
    d.deplaceseparateur();
    EXPECT_EQ(d.places().panneau.height(), 640);
    d.plie();
    d.replaceseparateur();
    EXPECT_TRUE(d.places().panneau.isEmpty());
    d.deplie(Bloc::Recherche);
    d.changetaille(12'000, 9000, mesures);
    d.changetaille(12'000, 4000, mesures);
    d.posseparateur = 1000;
    d.replaceseparateur();
    EXPECT_TRUE(d.places().panneau.isEmpty()) << "it was wanted before the window was high";
    d.posseparateur = 360 + 1200;
    d.replaceseparateur();
    EXPECT_EQ(d.places().panneau.height(), 1200) << "no line but a block";
    d.ouvrelistes(900);
    d.replaceseparateur();
    EXPECT_EQ(d.places().entetelistedesliens.height(), 420);
    attendpavage(d);
}

TEST(DispositionTextes, APanelTooSmallForABlockOpensToItsUsualPlace) {
    DispositionTextes d = disposition(Arrangement::Dessus, 1000);
    d.deplie(Bloc::Recherche);
    EXPECT_EQ(d.posseparateur, 1000); // a line is enough for the words
    d.deplie(Bloc::Arbre);
    EXPECT_EQ(d.posseparateur, d.placehabituelle());
    d = disposition(Arrangement::ACote, 0);
    d.deplie(Bloc::Recherche);
    EXPECT_EQ(d.posseparateur, 4305);
}

TEST(DispositionTextes, AFoldedPanelStaysFoldedInTheOtherArrangement) {
    DispositionTextes d = disposition(Arrangement::Dessus, 360);
    d.changearrangement(Arrangement::ACote);
    EXPECT_EQ(d.posseparateur, 0);
    d.changearrangement(Arrangement::Dessus);
    EXPECT_EQ(d.posseparateur, 360);
}

TEST(DispositionTextes, TheSearchBlocksFieldsKeepTheirMargins) {
    EXPECT_EQ(widthblocrecherche(181), 1);
    EXPECT_EQ(widthblocrecherche(180), 0);
    EXPECT_EQ(Heightblocrecherche(706, 705), 1);
    EXPECT_EQ(Heightblocrecherche(705, 705), 0);
    EXPECT_EQ(Heightblocrecherche(0, 705), 0);
}

TEST(DispositionTextes, PixelsKeepNeighboursTogether) {
    for (int x = 0; x < 60; ++x) {
        const QRect a = pixelsdetwips({0, 0, x, 10});
        const QRect b = pixelsdetwips({x, 0, 100, 10});
        EXPECT_EQ(a.x() + a.width(), b.x());
    }
}
