// The document window: its settings, its blocks, its opening and its closing.
#include "core/tablereglages.h"
#include "platform/widgets/text/paperlayout.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QLineEdit>

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using FenetreTextes = velm::test::BaseTextes;

TEST_F(FenetreTextes, EveryControlHasItsNameAndAnAccessibleOne) {
    Textes& fenetre = ouvre("CO000001");
    for (const auto& nom :
         {u"barrechild"_s, u"arbre"_s, u"flex"_s, u"blocrecherche"_s, u"Textedico"_s, u"resultat"_s,
          u"rtfRichTextBox1"_s, u"separateur"_s, u"separateurlisteh"_s, u"separateurlistev"_s, u"entetelistedesliens"_s,
          u"entetelistedescorrelats"_s, u"ouvrirlien"_s, u"ouvrircorrélats"_s, u"Label1"_s, u"Label2"_s,
          u"flexlistedesliens"_s, u"flexlistedescorrélats"_s})
        EXPECT_NE(controle(fenetre, nom), nullptr) << nom.toStdString();
    for (const auto& nom :
         {u"arbre"_s, u"flex"_s, u"Textedico"_s, u"rtfRichTextBox1"_s, u"ouvrirlien"_s, u"flexlistedescorrélats"_s})
        EXPECT_FALSE(controle(fenetre, nom)->accessibleName().isEmpty()) << nom.toStdString();
}

TEST_F(FenetreTextes, EachWindowRestoresItsOwnSavedValues) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"tableau"_s);
    tire(*controle<SplitterBar>(fenetre, u"separateur"_s), {40, 0});
    const int position = fenetre.division().disposition().posseparateur;
    banc->voisinage.ici = {0, 15, 30, 9000, 6000};
    fenetre.close();
    EXPECT_EQ(banc->lu(u"WINDOWSSEPAR0"_s), QString::number(position));
    EXPECT_EQ(banc->lu(u"WINDOWSSEPARVH0"_s), u"0");
    EXPECT_EQ(banc->lu(u"WINDOWSARBRE0"_s), u"2");
    EXPECT_EQ(banc->lu(u"WINDOWSWIDTH0"_s), u"9000");

    Textes& autre = ouvre("JP000007");
    EXPECT_EQ(autre.panneau().bloc(), Bloc::Recherche);
    EXPECT_EQ(autre.division().disposition().arrangement, Arrangement::Dessus);
    Textes& rouverte = ouvre("CO000001");
    EXPECT_EQ(rouverte.panneau().bloc(), Bloc::Liste);
    EXPECT_EQ(rouverte.division().disposition().posseparateur, position);
    EXPECT_EQ(rouverte.placevoulue(), banc->voisinage.ici);
    EXPECT_TRUE(rouverte.barrechild().value(u"barrehoriz"_s));
    EXPECT_TRUE(rouverte.barrechild().value(u"tableau"_s));
}

TEST_F(FenetreTextes, ThePaperIsAsTheSettingSays) {
    const auto papier = [this] {
        Textes& fenetre = ouvre("CO000001");
        const QColor celui = qobject_cast<PaperLayout*>(fenetre.vue().document()->documentLayout())->sheet().paper;
        fenetre.close();
        return celui;
    };
    const QColor gris = look::softPaper(Qt::white);
    const QPalette avant = QApplication::palette();
    EXPECT_EQ(papier(), QColor(Qt::white)) << "beside light windows";
    QApplication::setPalette(look::palette(look::Theme::Dark));
    EXPECT_EQ(papier(), gris) << "beside dark ones";
    banc->reglages.ecrit(reglage::papier, 0);
    EXPECT_EQ(papier(), QColor(Qt::white));
    QApplication::setPalette(avant);
    banc->reglages.ecrit(reglage::papier, 1);
    EXPECT_EQ(papier(), gris);
}

TEST_F(FenetreTextes, AFirstWindowFillsTheFrameAndLeavesItsSizeToIt) {
    EXPECT_EQ(ouvre("CO000001").placevoulue(), (PlaceTextes{2, 0, 0, 0, 0}));
}

TEST_F(FenetreTextes, StrangeStoredValuesMakeAWindowAllTheSame) {
    for (const auto& nom : {u"WINDOWSSTATE0"_s, u"WINDOWSLEFT0"_s, u"WINDOWSSEPAR0"_s, u"WINDOWSSEPARVH0"_s,
                            u"WINDOWSARBRE0"_s, u"ORDRECOLONNE0"_s, u"LARGEURCOLONNE0"_s})
        banc->met(nom, u"\u2028n'importe quoi\t-1e99"_s);
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    EXPECT_EQ(fenetre.panneau().flex().rows(), 5);
    EXPECT_EQ(fenetre.vue().control().text().left(4), u"Voir");
}

TEST_F(FenetreTextes, ActivationPutsTheFocusIntoTheWordsOfTheSearchThatIsShown) {
    Textes& fenetre = ouvre("CO000001");
    auto* mots = controle(fenetre, u"Textedico"_s);
    auto* bloc = controle(fenetre, u"blocrecherche"_s);
    fenetre.vue().setFocus();
    bloc->setEnabled(false);
    fenetre.activation();
    EXPECT_EQ(fenetre.focusWidget(), &fenetre.vue());
    bloc->setEnabled(true);
    fenetre.activation();
    EXPECT_EQ(fenetre.focusWidget(), mots);
    presse(fenetre, u"arbre"_s);
    fenetre.vue().setFocus();
    fenetre.activation();
    EXPECT_EQ(fenetre.focusWidget(), &fenetre.vue());

    banc->navigation.ouvrefenetre(2);
    Textes& vide = *banc->fenetre(2);
    controle(vide, u"blocrecherche"_s)->setEnabled(true);
    vide.vue().setFocus();
    vide.activation();
    EXPECT_EQ(vide.focusWidget(), &vide.vue()) << "there is no document yet";
}

TEST_F(FenetreTextes, ActivationTakesTheFocusFromOutsideAndFromNobodyWithin) {
    QWidget cadre;
    auto* dehors = new QLineEdit(&cadre);
    Textes& fenetre = ouvre("CO000001");
    fenetre.setParent(&cadre);
    presse(fenetre, u"arbre"_s);
    fenetre.show();
    cadre.show();
    cadre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    dehors->setFocus();
    fenetre.activation();
    EXPECT_TRUE(fenetre.vue().hasFocus());
    fenetre.panneau().arbre().setFocus();
    fenetre.activation();
    EXPECT_TRUE(fenetre.panneau().arbre().hasFocus());
    fenetre.panneau().arbre().hide();
    fenetre.activation();
    EXPECT_FALSE(fenetre.panneau().arbre().hasFocus());
    fenetre.hide();
    dehors->setFocus();
    fenetre.activation();
    EXPECT_TRUE(dehors->hasFocus()) << "a window that is not seen does not take it";
}

TEST_F(FenetreTextes, OpeningAgainWhatIsShownLeavesTheCaretWhereItIs) {
    Textes& fenetre = ouvre("CO000002");
    fenetre.vue().setSelStart(40);
    banc->navigation.navigue(u"TACO000002"_s, false, u"Ligne 60"_s);
    EXPECT_EQ(fenetre.vue().selStart(), 40);
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Précédent"_s));
}

TEST_F(FenetreTextes, ShowingABlockReleasesTheTwoOtherButtons) {
    Textes& fenetre = ouvre("CO000001");
    const std::initializer_list<std::pair<QString, QString>> blocs = {
        {u"arbre"_s, u"arbre"_s}, {u"tableau"_s, u"flex"_s}, {u"recherchedico"_s, u"blocrecherche"_s}};
    for (const auto& [cle, nom] : blocs) {
        presse(fenetre, cle);
        for (const auto& [autrecle, autrenom] : blocs) {
            EXPECT_EQ(fenetre.barrechild().value(autrecle), autrecle == cle);
            EXPECT_EQ(controle(fenetre, autrenom)->isVisible(), autrecle == cle) << autrenom.toStdString();
        }
    }
}

TEST_F(FenetreTextes, NoBlocksButtonIsDownWhileNoBlockIsSeen) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"tableau"_s);
    ouvre("CO000002", true);
    for (const auto& cle : {u"arbre"_s, u"tableau"_s, u"recherchedico"_s})
        EXPECT_FALSE(fenetre.barrechild().value(cle)) << cle.toStdString();
    EXPECT_EQ(fenetre.panneau().bloc(), Bloc::Liste) << "it is the one that comes back";
    presse(fenetre, u"tableau"_s);
    EXPECT_TRUE(fenetre.barrechild().value(u"tableau"_s));
    EXPECT_TRUE(fenetre.panneau().flex().isVisible());
    presse(fenetre, u"tableau"_s);
    EXPECT_TRUE(fenetre.barrechild().value(u"tableau"_s)) << "pressed again, it stays";
    EXPECT_TRUE(fenetre.panneau().flex().isVisible());
    tire(*controle<SplitterBar>(fenetre, u"separateur"_s), {-2000, 0});
    EXPECT_FALSE(fenetre.barrechild().value(u"tableau"_s));
}

TEST_F(FenetreTextes, TheTreeAndTheListAreFilledOnceAtFirstShowing) {
    Textes& fenetre = ouvre("CO000001");
    EXPECT_EQ(fenetre.panneau().arbre().nodes().count(), 0);
    EXPECT_EQ(fenetre.panneau().flex().rows(), 1);
    presse(fenetre, u"arbre"_s);
    EXPECT_GT(fenetre.panneau().arbre().nodes().count(), 1);
    presse(fenetre, u"tableau"_s);
    EXPECT_EQ(fenetre.panneau().flex().rows(), 5);
    const GridSource* source = fenetre.panneau().flex().source();
    const int marque = fenetre.panneau().arbre().nodes().add(0, u"à moi"_s, u"à moi"_s, {}, {});
    presse(fenetre, u"arbre"_s);
    presse(fenetre, u"tableau"_s);
    EXPECT_EQ(fenetre.panneau().flex().source(), source);
    EXPECT_EQ(fenetre.panneau().arbre().nodes().indexOf(u"à moi"_s), marque);
}

TEST_F(FenetreTextes, TheTilingButtonsShowWithMoreThanThreeFormsAndHideUnderFive) {
    banc->voisinage.formes = 3;
    Textes& une = ouvre("CO000001");
    EXPECT_TRUE(banc->voisinage.mosaique.empty());
    banc->voisinage.formes = 4;
    Textes& deux = ouvre("JP000007");
    EXPECT_EQ(banc->voisinage.mosaique, std::vector<bool>{true});
    banc->voisinage.formes = 5;
    deux.close();
    EXPECT_EQ(banc->voisinage.mosaique, std::vector<bool>{true});
    banc->voisinage.formes = 4;
    une.close();
    EXPECT_EQ(banc->voisinage.mosaique, (std::vector<bool>{true, false}));
}

TEST_F(FenetreTextes, ClosingReleasesTheSlotsButtonAndMenuEntry) {
    Textes& fenetre = ouvre("CO000001");
    EXPECT_TRUE(banc->navigation.maffichagef(0));
    int fermetures = 0;
    QObject::connect(&fenetre, &Textes::ferme, &fenetre, [&] { ++fermetures; });
    fenetre.close();
    EXPECT_EQ(fermetures, 1);
    EXPECT_FALSE(banc->navigation.fenetreouverte(0));
    EXPECT_FALSE(banc->navigation.maffichagef(0));
    EXPECT_EQ(banc->slots_.back(), (std::pair{0, false}));
    EXPECT_EQ(banc->fenetre(0), nullptr);
}

TEST_F(FenetreTextes, AListIsPaintedAndItsWindowClosedAfterTheBaseWas) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"tableau"_s);
    fenetre.panneau().flex().sort(0, true);
    banc->corpus.fermebase();
    EXPECT_FALSE(fenetre.grab().isNull());
    fenetre.close();
    EXPECT_EQ(banc->lu(u"ORDRECOLONNE0"_s), u"01234");
}

TEST_F(FenetreTextes, AWindowThatIsDeletedIsNotAddressedAnyMore) {
    delete &ouvre("CO000001");
    EXPECT_EQ(banc->fenetre(0), nullptr);
    EXPECT_EQ(ouvre("CO000002").referencecourante(), u"CO000002");
}

TEST_F(FenetreTextes, TheDesktopsActiveWindowShowsWhatTheOptionsHaveChanged) {
    Textes& fenetre = ouvre("CO000001");
    const QString complet = fenetre.vue().control().text();
    presse(fenetre, u"abc"_s);
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    banc->voisinage.rafraichir[0] = true;
    QEvent activation(QEvent::ActivationChange);
    fenetre.vue().clearFocus();
    QApplication::sendEvent(&fenetre, &activation);
    EXPECT_TRUE(banc->voisinage.rafraichir[0]) << "a window without the focus waits";
    fenetre.vue().setFocus();
    QApplication::sendEvent(&fenetre, &activation);
    EXPECT_FALSE(banc->voisinage.rafraichir[0]);
    EXPECT_EQ(fenetre.vue().control().text(), complet);
}
