// The document window: its panel, its lists and its text, and the bars between them.
#include "document/ui/blocrecherche.h"
#include "tests/document/ui/textes_base.h"

#include <QListWidget>
#include <QScrollBar>

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using FenetreTextes = velm::test::BaseTextes;

TEST_F(FenetreTextes, ThePanelIsLeftOfTheTextForZeroAndAboveItForOne) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"arbre"_s);
    presse(fenetre, u"barreverti"_s);
    EXPECT_EQ(fenetre.panneau().arbre().width(), fenetre.width());
    EXPECT_LT(fenetre.panneau().arbre().geometry().bottom(), fenetre.vue().geometry().top());
    presse(fenetre, u"barrehoriz"_s);
    EXPECT_LT(fenetre.panneau().arbre().geometry().right(), fenetre.vue().geometry().left());
    EXPECT_EQ(fenetre.panneau().arbre().y(), fenetre.vue().y());
    EXPECT_FALSE(fenetre.barrechild().value(u"barreverti"_s));
}

TEST_F(FenetreTextes, APanelThatIsFoldedOpensForTheBlockThatIsAskedFor) {
    banc->met(u"WINDOWSSEPARVH0"_s, u"0"_s);
    banc->met(u"WINDOWSSEPAR0"_s, u"0"_s);
    banc->voisinage.listeselection = true;
    Textes& fenetre = ouvre("CO000001");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, 0);
    EXPECT_EQ(fenetre.vue().x(), SplitterBar::thickness);
    presse(fenetre, u"arbre"_s);
    EXPECT_TRUE(fenetre.panneau().arbre().isVisible());
    EXPECT_GT(fenetre.panneau().arbre().width(), 100);
}

TEST_F(FenetreTextes, InANarrowWindowThePanelStaysForWhoWorksInItAndFoldsForWhoReads) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"arbre"_s);
    presse(fenetre, u"barrehoriz"_s);
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    const TreeView& arbre = fenetre.panneau().arbre();
    fenetre.vue().setFocus();
    fenetre.resize(380, 700);
    EXPECT_FALSE(arbre.isVisible());
    EXPECT_FALSE(fenetre.barrechild().value(u"arbre"_s));
    EXPECT_TRUE(fenetre.panneau().separateur().isVisible()) << "it can be drawn out";
    fenetre.resize(900, 700);
    EXPECT_TRUE(arbre.isVisible());
    EXPECT_TRUE(fenetre.vue().hasFocus());
    fenetre.panneau().arbre().setFocus();
    fenetre.resize(380, 700);
    EXPECT_TRUE(arbre.isVisible());
    EXPECT_TRUE(arbre.hasFocus());
    EXPECT_GT(arbre.width(), 100);
}

TEST_F(FenetreTextes, InANarrowWindowTheSearchStaysForWhoTypesInIt) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"recherchedico"_s);
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    controle(fenetre, u"blocrecherche"_s)->setEnabled(true);
    auto* mots = controle<QLineEdit>(fenetre, u"Textedico"_s);
    mots->setFocus();
    ASSERT_TRUE(mots->hasFocus());
    fenetre.resize(380, 700);
    EXPECT_TRUE(mots->isVisible());
    EXPECT_TRUE(mots->hasFocus());
}

TEST_F(FenetreTextes, InAFrameThatIsNotSeenYetItTakesTheFocusFromNobodyOutside) {
    QWidget cadre;
    auto* dehors = new QLineEdit(&cadre);
    Textes& fenetre = ouvre("CO000001");
    fenetre.setParent(&cadre);
    dehors->setFocus();
    ASSERT_EQ(cadre.focusWidget(), dehors);
    emit fenetre.barrechild().bloc(Bloc::Arbre);
    EXPECT_EQ(cadre.focusWidget(), dehors);
}

TEST_F(FenetreTextes, ABlockThatWasOpenedInANarrowWindowIsSeen) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    fenetre.resize(380, 700);
    fenetre.vue().setFocus();
    fenetre.resize(370, 700);
    ASSERT_FALSE(fenetre.panneau().arbre().isVisible());
    emit fenetre.barrechild().bloc(Bloc::Arbre);
    EXPECT_TRUE(fenetre.panneau().arbre().isVisible());
    EXPECT_GT(fenetre.vue().width(), 100);
}

TEST_F(FenetreTextes, ASearchAboveTheTextTakesMoreThanItsLineOnlyForAResult) {
    banc->met(u"WINDOWSSEPAR0"_s, u"4800"_s);
    Textes& fenetre = ouvre("CO000001");
    auto* bloc = controle<BlocRecherche>(fenetre, u"blocrecherche"_s);
    const int ligne = bloc->height();
    EXPECT_LT(ligne, 60);
    EXPECT_GE(ligne, controle(fenetre, u"Textedico"_s)->height());
    bloc->dit({u"Aucun document"_s, true, false});
    EXPECT_EQ(bloc->height(), ligne) << "what is said has room behind the button";
    bloc->ajouteligne(u"garantie : 27 ( 11 )"_s);
    bloc->dit({u"« garantie » : 11 documents ici"_s, false, false});
    const int une = bloc->height();
    auto* resultat = controle<QListWidget>(fenetre, u"resultat"_s);
    EXPECT_TRUE(resultat->isVisible());
    EXPECT_EQ(resultat->verticalScrollBar()->maximum(), 0);
    EXPECT_LT(une, pixelsFromTwips(4800 - 360) / 2) << "no empty room below it";
    bloc->ajouteligne(u"vendeur : 29 ( 9 )"_s);
    bloc->dit({u"« garantie vendeur » : 11 documents ici"_s, false, false});
    EXPECT_GT(bloc->height(), une);
    const int deux = bloc->height();
    bloc->dit({});
    EXPECT_EQ(bloc->height(), deux) << "the text does not move while somebody types";
    presse(fenetre, u"arbre"_s);
    EXPECT_EQ(fenetre.panneau().arbre().height(), pixelsFromTwips(4800 - 360));
    presse(fenetre, u"recherchedico"_s);
    EXPECT_GT(bloc->height(), ligne) << "the result is there still";
    EXPECT_LE(bloc->height(), deux);
    emit fenetre.panneau().separateur().dropped(200);
    const int main = bloc->height();
    EXPECT_GT(main, deux);
    for (int mot = 0; mot < 30; ++mot)
        bloc->ajouteligne(u"bail : 3 ( 1 )"_s);
    bloc->dit({u"6 documents"_s, false, false});
    EXPECT_EQ(bloc->height(), main) << "as the user's hand has it";
}

TEST_F(FenetreTextes, ThePanelBesideTheTextEndsWhereTheSheetDoes) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    fenetre.resize(900, 600);
    const QWidget& arbre = fenetre.panneau().arbre();
    ASSERT_TRUE(arbre.isVisible());
    EXPECT_EQ(arbre.geometry().top(), fenetre.vue().geometry().top());
    EXPECT_EQ(arbre.geometry().bottom(), fenetre.vue().geometry().bottom());
}

TEST_F(FenetreTextes, ABarAtZeroDependsOnTheSelectionList) {
    banc->met(u"WINDOWSSEPARVH0"_s, u"0"_s);
    banc->met(u"WINDOWSSEPAR0"_s, u"0"_s);
    EXPECT_EQ(ouvre("CO000001").division().disposition().posseparateur, 360);
    banc->met(u"WINDOWSSEPAR2"_s, u"360"_s);
    EXPECT_EQ(ouvre("JP000007").division().disposition().posseparateur, 1000);
}

TEST_F(FenetreTextes, ALinkClickFoldsThePanelTo0OrTo360) {
    Textes& fenetre = ouvre("CO000001");
    cliquetexte(fenetre, 7);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, 360);
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    EXPECT_GT(fenetre.division().disposition().posseparateur, 0);
    ouvre("CO000003", true);
    EXPECT_EQ(fenetre.division().disposition().posseparateur, 0);
    EXPECT_FALSE(fenetre.panneau().arbre().isVisible());
    ouvre("CO000001");
    EXPECT_EQ(fenetre.division().disposition().posseparateur, 0);
}

TEST_F(FenetreTextes, NothingReachesBeyondAWindowOfAnySize) {
    Textes& fenetre = ouvre("CO000001");
    controle<QToolButton>(fenetre, u"ouvrirlien"_s)->click();
    for (const auto& vh : {u"barrehoriz"_s, u"barreverti"_s}) {
        presse(fenetre, vh);
        fenetre.resize(1, 1); // as good as nothing: whatever comes out of it has to find back
        for (const QSize taille : {QSize(40, 300), QSize(300, 40), QSize(120, 120), QSize(900, 700)}) {
            fenetre.resize(taille);
            for (const QWidget* enfant : fenetre.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                const QRect ici = enfant->geometry();
                EXPECT_TRUE(enfant->isHidden() || ici.isEmpty() || fenetre.rect().contains(ici))
                    << enfant->objectName().toStdString() << " at " << taille.width() << 'x' << taille.height();
            }
        }
    }
    EXPECT_GT(fenetre.vue().width(), 400);
}

TEST_F(FenetreTextes, ALowWindowIsForTheText) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.resize(600, 310);
    EXPECT_FALSE(controle(fenetre, u"blocrecherche"_s)->isVisible());
    EXPECT_FALSE(fenetre.barrechild().value(u"recherchedico"_s));
    EXPECT_FALSE(controle(fenetre, u"ouvrirlien"_s)->isVisible());
    EXPECT_FALSE(fenetre.panneau().separateur().isVisible());
    EXPECT_EQ(fenetre.vue().height(), 310 - fenetre.barrechild().height());
    presse(fenetre, u"recherchedico"_s);
    EXPECT_TRUE(controle(fenetre, u"blocrecherche"_s)->isVisible());
    EXPECT_TRUE(fenetre.barrechild().value(u"recherchedico"_s));
    fenetre.volet().liens().bouton()->click();
    EXPECT_TRUE(controle(fenetre, u"ouvrirlien"_s)->isVisible());
    EXPECT_TRUE(fenetre.volet().liens().grille()->isVisible());
}

TEST_F(FenetreTextes, DroppingABarMovesItByItsSourcesRule) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    auto* debout = controle<SplitterBar>(fenetre, u"separateur"_s);
    const int avant = debout->x();
    tire(*debout, {33, 50});
    EXPECT_EQ(debout->x(), avant + 33);
    EXPECT_EQ(fenetre.division().disposition().posseparateur, twipsFromPixels(avant + 33));
    EXPECT_EQ(fenetre.panneau().arbre().width(), avant + 33);
    EXPECT_EQ(fenetre.vue().x(), avant + 33 + SplitterBar::thickness);

    presse(fenetre, u"barreverti"_s);
    const int haut = debout->y();
    tire(*debout, {50, 21});
    EXPECT_EQ(debout->y(), haut + 21);

    controle<QToolButton>(fenetre, u"ouvrirlien"_s)->click();
    auto* listeh = controle<SplitterBar>(fenetre, u"separateurlisteh"_s);
    auto* listev = controle<SplitterBar>(fenetre, u"separateurlistev"_s);
    const QPoint places(listev->x(), listeh->y());
    tire(*listeh, {0, 45});
    tire(*listev, {-60, 0});
    EXPECT_EQ(listeh->y(), places.y() + 45);
    EXPECT_EQ(listev->x(), places.x() - 60);
    EXPECT_EQ(controle(fenetre, u"entetelistedesliens"_s)->width(), places.x() - 60);
}

TEST_F(FenetreTextes, ADoubleClickOnABarPutsItToItsUsualPlace) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    auto* barre = controle<SplitterBar>(fenetre, u"separateur"_s);
    tire(*barre, {-100, 0});
    QTest::mouseDClick(barre, Qt::LeftButton);
    EXPECT_EQ(fenetre.division().disposition().posseparateur, fenetre.division().disposition().placehabituelle());
}

TEST_F(FenetreTextes, TheListsShareTheWidthUntilTheirBarIsMoved) {
    Textes& fenetre = ouvre("CO000001");
    const QWidget* entete = controle(fenetre, u"entetelistedesliens"_s);
    for (const int largeur : {600, 1000}) {
        fenetre.resize(largeur, 700);
        EXPECT_NEAR(entete->width(), largeur / 2, 4);
    }
    tire(*controle<SplitterBar>(fenetre, u"separateurlistev"_s), {-100, 0});
    const int tiree = entete->width();
    fenetre.resize(800, 700);
    EXPECT_EQ(entete->width(), tiree);
}

TEST_F(FenetreTextes, ALargerFontMovesWhatLiesBelowTheHeaders) {
    Textes& fenetre = ouvre("CO000001");
    QFont grande = fenetre.font();
    grande.setPointSize(3 * grande.pointSize());
    fenetre.setFont(grande);
    const int entete = twipsFromPixels(fenetre.volet().liens().hauteurentete());
    EXPECT_EQ(fenetre.division().disposition().places().entetelistedesliens.height(), entete);
    EXPECT_EQ(controle(fenetre, u"entetelistedesliens"_s)->height(), fenetre.volet().liens().hauteurentete());
}
