// The contents tree of a document window.
#include "tests/document/ui/textes_base.h"

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using ArbreTextes = velm::test::BaseTextes;

TEST_F(ArbreTextes, AClickOnADocumentOpensItWithoutFoldingThePanel) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    const int position = fenetre.division().disposition().posseparateur;
    cliquenoeud(fenetre.panneau().arbre(), u"@CO000003"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, position);
    EXPECT_TRUE(fenetre.panneau().arbre().isVisible());
}

TEST_F(ArbreTextes, ADoubleClickOnADocumentOpensOneWindowOnly) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    banc->navigation.changeunefenetre(false);
    TreeView& arbre = fenetre.panneau().arbre();
    cliquenoeud(arbre, u"@CO000003"_s);
    const QPoint ici = arbre.visualRect(arbre.currentIndex()).center();
    QTest::mouseDClick(arbre.viewport(), Qt::LeftButton, {}, ici);
    QTest::mouseRelease(arbre.viewport(), Qt::LeftButton, {}, ici);
    EXPECT_EQ(banc->fenetres.size(), 2U);
    arbre.setFocus();
    QTest::keyClick(&arbre, Qt::Key_Return);
    EXPECT_EQ(banc->fenetres.size(), 3U);
}

TEST_F(ArbreTextes, AClickOnABranchDoesNothing) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    cliquenoeud(fenetre.panneau().arbre(), u"CO 2"_s);
    cliquenoeud(fenetre.panneau().arbre(), u"CO 0"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
}

TEST_F(ArbreTextes, AClickOnADocumentHidesTheTwoWordButtons) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    for (const auto& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s})
        fenetre.barrechild().setButtonVisible(cle, true);
    cliquenoeud(fenetre.panneau().arbre(), u"@CO000003"_s);
    EXPECT_FALSE(fenetre.barrechild().isButtonVisible(u"motprécédent"_s));
    EXPECT_FALSE(fenetre.barrechild().isButtonVisible(u"motsuivant"_s));
    EXPECT_TRUE(fenetre.barrechild().isButtonVisible(u"marqueauto"_s));
}

TEST_F(ArbreTextes, ExpandingLoadsWhatLiesBelowTheChildren) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    TreeView& arbre = fenetre.panneau().arbre();
    EXPECT_EQ(arbre.nodes().indexOf(u"CO 5"_s), 0);
    for (const auto& cle : {u"CO 0"_s, u"CO 1"_s, u"CO 3"_s})
        arbre.expand(arbre.indexOf(arbre.nodes().indexOf(cle)));
    EXPECT_NE(arbre.nodes().indexOf(u"CO 5"_s), 0);
    EXPECT_EQ(arbre.nodes().tag(arbre.nodes().indexOf(u"CO 4"_s)), u"+");
}
