// The two lists below the text: how they look, and how much room they take.
#include "document/ui/listedeliens.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>

using namespace velm;
using namespace Qt::Literals::StringLiterals;
using ListesDeLiensTextes = velm::test::BaseTextes;

TEST_F(ListesDeLiensTextes, AListTellsHowLongItIsOpenOrClosed) {
    Textes& fenetre = ouvre("CO000001");
    const QToolButton& liens = *fenetre.volet().liens().bouton();
    const QToolButton& correlats = *fenetre.volet().correlats().bouton();
    EXPECT_EQ(liens.text(), u"Liens") << "opening does not wait for it";
    EVENTUALLY(liens.text() == u"Liens (2)");
    EXPECT_EQ(correlats.text(), u"Corrélats (2)");
    fenetre.volet().liens().bouton()->click();
    EXPECT_EQ(liens.text(), u"Liens (2)");
    fenetre.volet().correlats().bouton()->click();
    EXPECT_EQ(correlats.text(), u"Corrélats (2)");
    fenetre.volet().liens().bouton()->click();
    EXPECT_EQ(liens.text(), u"Liens (2)") << "closed, it still is that long";
    ouvre("CO000002");
    EXPECT_EQ(liens.text(), u"Liens") << "how much another document cites is not known yet";
    EXPECT_EQ(correlats.text(), u"Corrélats (1)");
    EVENTUALLY(liens.text() == u"Liens (1)");
    ouvre("CO000004");
    EXPECT_EQ(correlats.text(), u"Corrélats (0)");
    EVENTUALLY(liens.text() == u"Liens (0)");
}

TEST_F(ListesDeLiensTextes, AWindowThatBecomesLowLeavesTheTextWhatTheyHad) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    const ListeDeLiens& liens = fenetre.volet().liens();
    liens.bouton()->click();
    liens.grille()->setFocus();
    ASSERT_TRUE(liens.grille()->view()->hasFocus());
    fenetre.resize(900, 319);
    EXPECT_FALSE(liens.grille()->isVisible());
    EXPECT_FALSE(liens.entete()->isVisible());
    EXPECT_FALSE(fenetre.volet().separateurlisteh().isEnabled());
    EXPECT_GT(fenetre.vue().height(), 240);
    EXPECT_TRUE(fenetre.vue().hasFocus());
    ouvre("CO000002");
    fenetre.resize(900, 700);
    EXPECT_TRUE(liens.grille()->isVisible());
    EXPECT_TRUE(liens.entete()->isVisible());
    EXPECT_EQ(liens.cles(), QStringList{u"CO000001"_s}) << "those of the document that is read now";
}

TEST_F(ListesDeLiensTextes, WhoOpensThemInALowWindowHasThemThere) {
    Textes& fenetre = ouvre("CO000001");
    const ListeDeLiens& liens = fenetre.volet().liens();
    const auto bascule = [&] { emit liens.bouton()->clicked(); };
    bascule();
    fenetre.resize(900, 300);
    ASSERT_FALSE(liens.grille()->isVisible());
    bascule();
    EXPECT_TRUE(liens.ouverte());
    EXPECT_TRUE(liens.grille()->isVisible());
    fenetre.resize(900, 299);
    EXPECT_FALSE(liens.grille()->isVisible()) << "a lower one is for the text again";
    fenetre.resize(900, 300);
    EXPECT_TRUE(liens.grille()->isVisible());
    bascule();
    EXPECT_FALSE(liens.grille()->isVisible());
    EXPECT_FALSE(liens.ouverte());
}

TEST_F(ListesDeLiensTextes, AChevronTellsWhetherAListIsOpen) {
    Textes& fenetre = ouvre("CO000001");
    QToolButton& bouton = *fenetre.volet().liens().bouton();
    const auto image = [&bouton] { return bouton.icon().pixmap(16).toImage(); };
    const QImage fermee = image();
    EXPECT_EQ(fermee, icon(u"chevronfermé"_s).pixmap(16).toImage());
    bouton.click();
    EXPECT_EQ(image(), icon(u"chevronouvert"_s).pixmap(16).toImage());
    EXPECT_NE(image(), fermee);
    bouton.click();
    EXPECT_EQ(image(), fermee);
}

TEST_F(ListesDeLiensTextes, AnEmptyListSaysWhyInOneLine) {
    Textes& fenetre = ouvre("CO000004");
    const auto dit = [](const ListeDeLiens& liste) {
        return liste.grille()->rows() == 1 ? liste.grille()->emptyText() : QString();
    };
    const auto mots = [this](Texte lequel) { return banc->langue.lireressource(lequel); };
    const ListeDeLiens& liens = fenetre.volet().liens();
    const ListeDeLiens& correlats = fenetre.volet().correlats();
    EXPECT_EQ(dit(liens), QString());
    liens.bouton()->click();
    EXPECT_EQ(dit(liens), mots(Texte::AucunDocumentCite));
    EXPECT_EQ(dit(correlats), QString()) << "a closed list says nothing";
    correlats.bouton()->click();
    EXPECT_EQ(dit(correlats), mots(Texte::AucunDocumentCitant));
    ouvre("CO000001");
    EXPECT_EQ(dit(liens), QString());
    ouvre("CO000004");
    EXPECT_EQ(dit(liens), mots(Texte::AucunDocumentCite));
    liens.bouton()->click();
    EXPECT_EQ(dit(liens), QString());
    banc->navigation.ouvrefenetre(2);
    Textes& vide = *banc->fenetre(2);
    vide.volet().liens().bouton()->click();
    EXPECT_EQ(dit(vide.volet().liens()), mots(Texte::AucunDocumentOuvert));
    EXPECT_EQ(vide.volet().liens().bouton()->text(), u"Liens");
}

TEST_F(ListesDeLiensTextes, TheCodesColumnShowsThePictureOfTheCollection) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    QTableView& vue = *fenetre.volet().liens().grille()->view();
    const QImage cellule = vue.viewport()->grab(vue.visualRect(vue.model()->index(0, 0))).toImage();
    int colores = 0;
    for (int y = 0; y < cellule.height(); ++y) {
        for (int x = 0; x < cellule.width(); ++x)
            colores += cellule.pixelColor(x, y).saturation() > 40 ? 1 : 0;
    }
    EXPECT_GT(colores, 20);
    EXPECT_EQ(fenetre.volet().liens().grille()->text(1, 0), u"CO");
}

TEST_F(ListesDeLiensTextes, TitlesStandAtTheLeft) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    const QModelIndex titre = fenetre.volet().liens().grille()->view()->model()->index(0, 1);
    EXPECT_TRUE(titre.data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
}

TEST_F(ListesDeLiensTextes, OpenedListsTakeNoMoreThanAGoodQuarterOfTheWindow) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.resize(900, 1000);
    fenetre.volet().liens().bouton()->click();
    const FlexGrid& grille = *fenetre.volet().liens().grille();
    EXPECT_LE(fenetre.height() - fenetre.volet().separateurlisteh().y(), fenetre.height() * 28 / 100 + 1);
    EXPECT_GE(grille.view()->viewport()->height(), 2 * grille.view()->rowHeight(0)) << "all its rows";
    EXPECT_LE(grille.view()->viewport()->height(), 4 * grille.view()->rowHeight(0)) << "and not much more";
}

TEST_F(ListesDeLiensTextes, BackFromANarrowTileAndAnIconTheyLeaveTheTextWhatTheyLeftItBefore) {
    QMainWindow cadre;
    auto* aire = new ChildArea(&cadre);
    cadre.setCentralWidget(aire);
    cadre.resize(1366, 700);
    cadre.show();
    for (int indice = 0; indice < 4; ++indice) {
        auto* fenetre = new Textes(indice, banc->contexte());
        aire->add(fenetre);
        aire->place(fenetre, ChildArea::Maximised, 0, 0, 0, 0);
        aire->activate(fenetre);
    }
    auto* fenetre = dynamic_cast<Textes*>(aire->children().front());
    aire->activate(fenetre);
    fenetre->lecture().affiche(decoupecle(u"CO000001"_s), {});
    fenetre->volet().liens().bouton()->click();
    fenetre->volet().correlats().bouton()->click();
    const QRect texte = fenetre->vue().geometry();
    QMdiSubWindow& autour = *aire->around(fenetre);
    aire->arrange(ChildArea::Arrangement::TileVertical);
    QApplication::processEvents();
    EXPECT_GT(fenetre->vue().height(), fenetre->height() / 2);
    autour.showMinimized();
    QApplication::processEvents();
    autour.showMaximized();
    QApplication::processEvents();
    EXPECT_EQ(fenetre->vue().geometry(), texte);
    EXPECT_GT(texte.height(), fenetre->height() / 2);
    tire(fenetre->volet().separateurlisteh(), {0, -90});
    const QRect partage = fenetre->vue().geometry();
    aire->arrange(ChildArea::Arrangement::TileHorizontal);
    autour.showMinimized();
    QApplication::processEvents();
    autour.showMaximized();
    QApplication::processEvents();
    EXPECT_EQ(fenetre->vue().geometry(), partage) << "what the user has given them, too";
}

TEST_F(ListesDeLiensTextes, TheSheetEndsBeforeTheLists) {
    Textes& fenetre = ouvre("CO000001");
    const auto air = [&fenetre] {
        return fenetre.volet().separateurlisteh().y() - fenetre.vue().geometry().bottom() - 1;
    };
    EXPECT_EQ(air(), look::grid);
    fenetre.volet().liens().bouton()->click();
    EXPECT_EQ(air(), look::grid);
    fenetre.volet().liens().bouton()->click();
    fenetre.resize(900, 300);
    EXPECT_EQ(fenetre.vue().geometry().bottom(), 299) << "where there is nothing below it ends with the window";
}

TEST_F(ListesDeLiensTextes, ManyRowsAreCutBetweenTwoOfThem) {
    banc.reset();
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        for (int i = 0; i < 30; ++i) {
            const QString cle = QString::number(100 + i).rightJustified(6, u'0');
            ecrit(*base.database, u"données", {u"référence", u"numart", u"titre"},
                  {{u"CO"_s, cle, u"Cité %1"_s.arg(i)}});
            ecrit(*base.database, u"liens",
                  {u"référencedépart", u"numartdépart", u"référencearrivée", u"numartarrivée"},
                  {{u"CO"_s, u"000001"_s, u"CO"_s, cle}});
        }
    }
    banc = std::make_unique<test::BancTextes>(chemin());
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    const QTableView& vue = *fenetre.volet().liens().grille()->view();
    for (const int hauteur : {700, 500, 811, 640}) {
        fenetre.resize(900, hauteur);
        EXPECT_EQ(vue.viewport()->height() % vue.rowHeight(0), 0) << hauteur;
        EXPECT_GE(vue.viewport()->height(), vue.rowHeight(0)) << hauteur;
        EXPECT_LE(fenetre.height() - fenetre.volet().separateurlisteh().y(), fenetre.height() * 28 / 100 + 1);
    }
}

TEST_F(ListesDeLiensTextes, AHeaderThatHasNoRoomIsNotThereForTheTabKeyEither) {
    Textes& fenetre = ouvre("CO000001");
    QToolButton& bouton = *fenetre.volet().liens().bouton();
    for (const int hauteur : {700, 330, 319, 200, 60, 40, 700}) {
        fenetre.resize(900, hauteur);
        const bool entier = bouton.height() >= bouton.sizeHint().height();
        EXPECT_TRUE(!bouton.isVisible() || entier) << hauteur;
        EXPECT_EQ(bouton.isVisible(), hauteur > 319) << hauteur;
    }
    fenetre.volet().liens().bouton()->click();
    fenetre.resize(900, 60);
    EXPECT_FALSE(bouton.isVisible());
    emit bouton.clicked();
    EXPECT_FALSE(bouton.isVisible()) << "wanted, but there is none";
    fenetre.resize(900, 320);
    EXPECT_TRUE(bouton.isVisible());
}

TEST_F(ListesDeLiensTextes, OnlyItsChevronTellsThatAListIsOpen) {
    Textes& fenetre = ouvre("CO000001");
    QToolButton& bouton = *fenetre.volet().liens().bouton();
    bouton.clearFocus();
    const auto fond = [&bouton] { return bouton.grab().toImage().pixelColor(bouton.width() / 2, 3); };
    const QColor ferme = fond();
    bouton.click();
    EXPECT_TRUE(bouton.isChecked()) << "for those who cannot see";
    EXPECT_EQ(fond(), ferme);
}

TEST_F(ListesDeLiensTextes, ADoubleClickOnTheirBarGivesTheListsTheirUsualHeight) {
    Textes& fenetre = ouvre("CO000001");
    fenetre.volet().liens().bouton()->click();
    SplitterBar& barre = fenetre.volet().separateurlisteh();
    const int usuel = barre.y();
    tire(barre, {0, -150});
    EXPECT_EQ(barre.y(), usuel - 150);
    QTest::mouseDClick(&barre, Qt::LeftButton);
    EXPECT_EQ(barre.y(), usuel);
}
