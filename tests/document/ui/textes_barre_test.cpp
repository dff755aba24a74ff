// The document window: its bar, keys and mouse buttons.
#include "platform/widgets/frame/childarea.h"
#include "tests/document/ui/textes_base.h"

#include <QMainWindow>
#include <QMenu>

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using BarreChild = velm::test::BaseTextes;

namespace {

QStringList descles(const Toolbar& barre) {
    QStringList cles;
    for (int rang = 1; rang <= barre.buttonCount(); ++rang)
        cles << barre.keyAt(rang);
    return cles;
}

} // namespace

TEST_F(BarreChild, TheBarHoldsItsButtonsInOrder) {
    Textes& fenetre = ouvre("CO000001");
    EXPECT_EQ(descles(fenetre.barrechild()),
              (QStringList{u"Précédent"_s,        u"Suivant"_s,    u"Haut"_s,         u"Bas"_s,
                           u"barreblocs"_s,       u"arbre"_s,      u"tableau"_s,      u"recherchedico"_s,
                           u"barrearrangement"_s, u"barrehoriz"_s, u"barreverti"_s,   u"barrepropriétés"_s,
                           u"propriétés"_s,       u"barreabc"_s,   u"abc"_s,          u"motprécédent"_s,
                           u"motsuivant"_s,       u"marqueauto"_s, u"barredossier"_s, u"dossiers"_s,
                           u"document"_s}));
    for (const QString& cle : descles(fenetre.barrechild())) {
        if (bouton(fenetre, cle)) {
            EXPECT_FALSE(fenetre.barrechild().toolTip(cle).isEmpty()) << cle.toStdString();
        }
    }
}

TEST_F(BarreChild, ButtonsOfADocumentWakeUpAtTheFirstOne) {
    banc->navigation.ouvrefenetre(0);
    Textes& fenetre = *banc->fenetre(0);
    EXPECT_EQ(fenetre.windowTitle(), u"Code de la consommation");
    EXPECT_FALSE(fenetre.lecture().menusactifs());
    for (const auto& cle : {u"propriétés"_s, u"barrepropriétés"_s, u"abc"_s, u"barreabc"_s})
        EXPECT_FALSE(fenetre.barrechild().isButtonVisible(cle)) << cle.toStdString();
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Haut"_s));
    ouvre("CO000001");
    EXPECT_EQ(fenetre.windowTitle(), u"Code de la consommation - Article premier");
    EXPECT_TRUE(fenetre.lecture().menusactifs());
    for (const auto& cle : {u"propriétés"_s, u"barrepropriétés"_s, u"abc"_s, u"barreabc"_s})
        EXPECT_TRUE(fenetre.barrechild().isButtonVisible(cle)) << cle.toStdString();
    EXPECT_TRUE(fenetre.barrechild().isButtonEnabled(u"Bas"_s));
    for (const auto& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s})
        EXPECT_FALSE(fenetre.barrechild().isButtonVisible(cle)) << cle.toStdString();
}

TEST_F(BarreChild, TheCondensedButtonChangesItsToolTipAndTheText) {
    Textes& fenetre = ouvre("CO000001");
    const QString complet = fenetre.vue().control().text();
    EXPECT_EQ(fenetre.barrechild().toolTip(u"abc"_s), banc->langue.lireressource(Texte{8110}) + u"\u2026"_s);
    presse(fenetre, u"abc"_s);
    EXPECT_EQ(fenetre.barrechild().toolTip(u"abc"_s), banc->langue.lireressource(Texte{8111}) + u"\u2026"_s);
    const QString condense = fenetre.vue().control().text();
    EXPECT_LT(condense.size(), complet.size());
    presse(fenetre, u"abc"_s);
    EXPECT_EQ(fenetre.vue().control().text(), complet);
    EXPECT_EQ(fenetre.barrechild().toolTip(u"abc"_s), banc->langue.lireressource(Texte{8110}) + u"\u2026"_s);
}

TEST_F(BarreChild, TheDeferredRefreshShowsTheFullTextOnce) {
    Textes& fenetre = ouvre("CO000001");
    const QString complet = fenetre.vue().control().text();
    presse(fenetre, u"abc"_s);
    banc->voisinage.rafraichir[0] = true;
    fenetre.activation();
    EXPECT_FALSE(banc->voisinage.rafraichir[0]);
    EXPECT_EQ(fenetre.vue().control().text(), complet);
    fenetre.vue().setSelStart(5);
    fenetre.activation();
    EXPECT_EQ(fenetre.vue().selStart(), 5);
}

TEST_F(BarreChild, ADeferredRefreshWithoutADocumentOnlyClearsItsFlag) {
    banc->navigation.ouvrefenetre(0);
    banc->voisinage.rafraichir[0] = true;
    banc->fenetre(0)->activation();
    EXPECT_FALSE(banc->voisinage.rafraichir[0]);
    EXPECT_FALSE(banc->fenetre(0)->lecture().menusactifs());
}

TEST_F(BarreChild, DossierButtonsAreHiddenWithoutADossierStore) {
    Textes& sans = ouvre("CO000001");
    for (const auto& cle : {u"dossiers"_s, u"barredossier"_s, u"document"_s})
        EXPECT_FALSE(sans.barrechild().isButtonVisible(cle)) << cle.toStdString();
    banc->voisinage.dossiers = true;
    Textes& avec = ouvre("JP000007");
    for (const auto& cle : {u"dossiers"_s, u"barredossier"_s, u"document"_s})
        EXPECT_TRUE(avec.barrechild().isButtonVisible(cle)) << cle.toStdString();
}

TEST_F(BarreChild, StoringHandsOverKeyTitleAndSelection) {
    banc->voisinage.dossiers = true;
    Textes& fenetre = ouvre("CO000002");
    struct Range {
        QString cle;
        QString titre;
        qsizetype debut;
        qsizetype longueur;
        bool operator==(const Range&) const = default;
    };
    std::vector<Range> ranges;
    QObject::connect(&fenetre, &Textes::ranger, &fenetre,
                     [&](const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur) {
                         ranges.push_back({cle, titre, debut, longueur});
                     });
    fenetre.vue().setSelStart(3);
    presse(fenetre, u"document"_s);
    fenetre.vue().setSelLength(4);
    presse(fenetre, u"document"_s);
    ASSERT_EQ(ranges.size(), 2u);
    EXPECT_EQ(ranges[0], (Range{u"CO000002"_s, u"Article 2"_s, 0, 0}));
    EXPECT_EQ(ranges[1], (Range{u"CO000002"_s, u"Article 2"_s, 3, 4}));
}

TEST_F(BarreChild, OpeningTheDossiersHandsOverNothing) {
    banc->voisinage.dossiers = true;
    Textes& fenetre = ouvre("CO000002");
    fenetre.fait(Ordre::ToutSelectionner);
    int fois = 0;
    QObject::connect(&fenetre, &Textes::ranger, &fenetre,
                     [&](const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur) {
                         ++fois;
                         EXPECT_TRUE(cle.isEmpty() && titre.isEmpty() && debut == 0 && longueur == 0);
                     });
    presse(fenetre, u"dossiers"_s);
    EXPECT_EQ(fois, 1);
}

TEST_F(BarreChild, ItsHistoryRunsBackAndForthOnItsButtonsAndTheirMenus) {
    Textes& fenetre = ouvre("CO000001");
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Précédent"_s));
    ouvre("CO000002");
    ouvre("CO000003");
    presse(fenetre, u"Précédent"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    presse(fenetre, u"Suivant"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
    QMenu* menu = fenetre.barrechild().menu(u"Précédent"_s);
    ASSERT_NE(menu, nullptr);
    menu->popup({0, 0});
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(1)->text(), u"Article premier");
    menu->actions().at(1)->trigger();
    menu->close();
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Précédent"_s));
    EXPECT_TRUE(fenetre.barrechild().isButtonEnabled(u"Suivant"_s));
}

TEST_F(BarreChild, UpAndDownWalkTheTitlesAndStopAtTheEnds) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"Haut"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    presse(fenetre, u"Haut"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000002");
    EXPECT_FALSE(fenetre.barrechild().isButtonEnabled(u"Haut"_s));
    presse(fenetre, u"Bas"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000001");
    EXPECT_TRUE(fenetre.barrechild().isButtonEnabled(u"Haut"_s));
}

TEST_F(BarreChild, TheSideButtonsOfTheMouseWalkTheFramesHistory) {
    Textes& fenetre = ouvre("CO000001");
    ouvre("JP000007");
    QTest::mouseClick(banc->fenetre(2)->vue().viewport(), Qt::BackButton);
    EXPECT_EQ(banc->navigation.referencecourante(), u"CO000001");
    QTest::mouseClick(&fenetre.panneau().arbre(), Qt::ForwardButton);
    QTest::mouseClick(fenetre.panneau().arbre().viewport(), Qt::ForwardButton);
    EXPECT_EQ(banc->navigation.referencecourante(), u"JP000007");
}

TEST_F(BarreChild, EscapeAndThePageKeysLeadToTheText) {
    Textes& fenetre = ouvre("CO000002");
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    auto* liens = controle<QToolButton>(fenetre, u"ouvrirlien"_s);
    liens->setFocus();
    QTest::keyClick(liens, Qt::Key_PageDown);
    EXPECT_GT(fenetre.vue().verticalScrollBar()->value(), 0);
    QTest::keyClick(liens, Qt::Key_Escape);
    EXPECT_TRUE(fenetre.vue().hasFocus());
    presse(fenetre, u"arbre"_s);
    fenetre.panneau().arbre().setFocus();
    QTest::keyClick(&fenetre.panneau().arbre(), Qt::Key_Escape);
    EXPECT_TRUE(fenetre.vue().hasFocus());
}

TEST_F(BarreChild, FoldingThePanelUnderTheFocusGivesItToTheText) {
    Textes& fenetre = ouvre("CO000001");
    presse(fenetre, u"arbre"_s);
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    fenetre.panneau().arbre().setFocus();
    ouvre("CO000002", true);
    EXPECT_TRUE(fenetre.vue().hasFocus());
}

TEST_F(BarreChild, ItsShortcutsActInTheActiveWindowOfTheFrame) {
    Textes& un = ouvre("CO000001");
    Textes& autre = ouvre("JP000007");
    QMainWindow cadre;
    auto* aire = new ChildArea(&cadre);
    cadre.setCentralWidget(aire);
    for (Textes* fenetre : {&un, &autre})
        aire->add(fenetre);
    cadre.resize(1000, 800);
    cadre.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    aire->activate(&autre);
    aire->activate(&un);
    QTest::keyClick(&un.vue(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(un.referencecourante(), u"CO000002");
    QTest::keyClick(&un.vue(), Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(un.referencecourante(), u"CO000001");
    EXPECT_EQ(autre.referencecourante(), u"JP000007");
}
