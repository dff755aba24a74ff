// The contents tree follows the document of its window.
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"
#include "tests/support/little_memory.h"

#include <QApplication>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class SuiviTextes : public test::BaseTextes {
protected:
    /// A window in front whose tree stands beside the text, with the focus in the text.
    Textes& avecarbre(const char* cle) {
        Textes& fenetre = ouvre(cle);
        presse(fenetre, u"barrehoriz"_s);
        presse(fenetre, u"arbre"_s);
        fenetre.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        fenetre.vue().setFocus();
        return fenetre;
    }
    static TreeView& arbre(const Textes& fenetre) { return fenetre.panneau().arbre(); }
    static QString marquee(const Textes& fenetre) { return arbre(fenetre).nodes().key(arbre(fenetre).marked()); }
    static bool vue(const Textes& fenetre, const QString& cle) {
        const QRect rangee = arbre(fenetre).visualRect(arbre(fenetre).indexOf(arbre(fenetre).nodes().indexOf(cle)));
        return rangee.isValid() && arbre(fenetre).viewport()->rect().contains(rangee);
    }
    /// As the arrow of the scroll bar does.
    static void roule(const Textes& fenetre) {
        arbre(fenetre).verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    }
    static void laissefaire() {
        for (int tour = 0; tour < 3; ++tour)
            QApplication::processEvents();
    }
};

} // namespace

TEST_F(SuiviTextes, TheDocumentIsShownAndMarkedInTheTree) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    EXPECT_TRUE(vue(fenetre, u"@CO000001"_s));
    EXPECT_EQ(arbre(fenetre).nodes().selected(), 0);
    ouvre("CO000003");
    EVENTUALLY(marquee(fenetre) == u"@CO000003");
    EXPECT_TRUE(vue(fenetre, u"@CO000003"_s));
    EXPECT_TRUE(fenetre.vue().hasFocus());
}

TEST_F(SuiviTextes, ADocumentThatHangsNowhereIsNotMarked) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    ouvre("CO000004");
    EVENTUALLY(arbre(fenetre).marked() == 0);
}

TEST_F(SuiviTextes, TheTreeFollowsOnlyAfterTheDocumentWasAskedFor) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    ouvre("CO000003");
    EXPECT_EQ(marquee(fenetre), u"@CO000001") << "opening does not wait for it";
}

TEST_F(SuiviTextes, WhoWorksInTheTreeKeepsHisPlaceThere) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    arbre(fenetre).nodes().setExpanded(arbre(fenetre).nodes().indexOf(u"CO 1"_s), false);
    ouvre("CO000003");
    EVENTUALLY(marquee(fenetre) == u"@CO000003");
    arbre(fenetre).setFocus();
    ouvre("CO000002");
    EVENTUALLY(marquee(fenetre) == u"@CO000002");
    EXPECT_FALSE(vue(fenetre, u"@CO000002"_s)) << "marked, but what was closed stays closed";
    EXPECT_TRUE(arbre(fenetre).hasFocus());
}

TEST_F(SuiviTextes, WhoHasScrolledKeepsHisPlaceForOneDocument) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    TreeNodes& noeuds = arbre(fenetre).nodes();
    noeuds.setExpanded(noeuds.indexOf(u"CO 1"_s), false);
    roule(fenetre);
    ouvre("CO000002");
    EVENTUALLY(marquee(fenetre) == u"@CO000002");
    EXPECT_FALSE(noeuds.expanded(noeuds.indexOf(u"CO 1"_s)));
    ouvre("CO000001");
    EVENTUALLY(vue(fenetre, u"@CO000001"_s));
}

TEST_F(SuiviTextes, ATreeThatIsNotSeenLoadsNothingAndFollowsWhenItIs) {
    Textes& fenetre = ouvre("CO000001");
    laissefaire();
    EXPECT_EQ(arbre(fenetre).nodes().count(), 0);
    presse(fenetre, u"arbre"_s);
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    presse(fenetre, u"tableau"_s);
    ouvre("CO000003");
    laissefaire();
    EXPECT_EQ(marquee(fenetre), u"@CO000001");
    presse(fenetre, u"arbre"_s);
    EVENTUALLY(marquee(fenetre) == u"@CO000003");
}

TEST_F(SuiviTextes, WhatTheUserHasClosedStaysClosedInAWindowOfAnotherSize) {
    Textes& fenetre = avecarbre("CO000001");
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
    TreeNodes& noeuds = arbre(fenetre).nodes();
    noeuds.setExpanded(noeuds.indexOf(u"CO 1"_s), false);
    fenetre.resize(800, 500);
    presse(fenetre, u"recherchedico"_s);
    presse(fenetre, u"arbre"_s);
    laissefaire();
    EXPECT_FALSE(noeuds.expanded(noeuds.indexOf(u"CO 1"_s))) << "it has followed this document";
}

TEST_F(SuiviTextes, ATreeThatDidNotFitIntoTheMemoryFollowsWhenItDoes) {
    Textes& fenetre = ouvre("CO000001");
    {
        const test::LittleMemory peu(0);
        presse(fenetre, u"arbre"_s);
        laissefaire();
    }
    ASSERT_LE(arbre(fenetre).nodes().count(), 1);
    EXPECT_EQ(banc->voisinage.dits.size(), 1) << "said once";
    presse(fenetre, u"arbre"_s);
    EVENTUALLY(marquee(fenetre) == u"@CO000001");
}

TEST_F(SuiviTextes, AMarkComesWhereALaterLoadBringsTheDocument) {
    // Not on the way: five levels down, where the tree has not been loaded.
    banc.reset();
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"UPDATE données SET numeroarborescence = 5 WHERE numart = '000003'"_s));
        ASSERT_TRUE(base.database->execute(u"UPDATE arborescences SET nbarticles = 1 WHERE numerodutype = 5"_s));
    }
    banc = std::make_unique<test::BancTextes>(chemin());
    Textes& fenetre = avecarbre("CO000004");
    laissefaire();
    arbre(fenetre).setFocus();
    TreeNodes& noeuds = arbre(fenetre).nodes();
    ASSERT_EQ(noeuds.indexOf(u"@CO000003"_s), 0);
    ouvre("CO000003");
    laissefaire();
    EXPECT_EQ(arbre(fenetre).marked(), 0);
    for (const auto& cle : {u"CO 1"_s, u"CO 3"_s, u"CO 4"_s})
        arbre(fenetre).expand(arbre(fenetre).indexOf(noeuds.indexOf(cle)));
    EVENTUALLY(marquee(fenetre) == u"@CO000003");
}

TEST_F(SuiviTextes, ABranchThatIsAloneIsOpenAtFirst) {
    banc.reset();
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DELETE FROM arborescences WHERE numerodutype = 2"_s));
    }
    banc = std::make_unique<test::BancTextes>(chemin());
    Textes& fenetre = avecarbre("CO000004");
    const TreeNodes& noeuds = arbre(fenetre).nodes();
    for (const auto& [cle, ouverte] :
         {std::pair{u"CO 0"_s, true}, {u"CO 1"_s, true}, {u"CO 3"_s, true}, {u"CO 4"_s, false}})
        EXPECT_EQ(noeuds.expanded(noeuds.indexOf(cle)), ouverte) << cle.toStdString();
    EXPECT_NE(noeuds.indexOf(u"CO 5"_s), 0) << "the tree is ahead of what is open";
}

TEST_F(SuiviTextes, LeavesShowTheirTitlesWithoutWhatStandsAboveThem) {
    banc.reset();
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"UPDATE données SET titre = 'Livre II, art. 9' WHERE numart = '000003'"_s));
    }
    banc = std::make_unique<test::BancTextes>(chemin());
    Textes& fenetre = avecarbre("CO000003");
    const int feuille = arbre(fenetre).nodes().indexOf(u"@CO000003"_s);
    EXPECT_EQ(arbre(fenetre).indexOf(feuille).data().toString(), u"art. 9");
    EXPECT_EQ(arbre(fenetre).nodes().text(feuille), u"Livre II, art. 9");
}
