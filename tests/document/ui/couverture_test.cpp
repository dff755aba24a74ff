// What stands on the sheet before the first document of a window.
#include "core/langue.h"
#include "document/ui/boutonlien.h"
#include "document/ui/couverture.h"
#include "platform/widgets/look/look.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QLabel>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class CouvertureTextes : public test::BaseTextes {
protected:
    /// The window of a collection without a document, in front and with its cover.
    Textes& vide(int indice = 0) {
        banc->navigation.ouvrefenetre(indice);
        Textes& fenetre = *banc->fenetre(indice);
        fenetre.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        EVENTUALLY(couverture(fenetre) != nullptr);
        fenetre.setFocus(); // as the frame gives it
        return fenetre;
    }
    static Couverture* couverture(const Textes& fenetre) { return fenetre.findChild<Couverture*>(); }
    static BoutonLien* lien(const Textes& fenetre, const QString& nom) { return fenetre.findChild<BoutonLien*>(nom); }
    static QStringList lignes(const Textes& fenetre) {
        QStringList vues;
        for (const QLabel* ligne : couverture(fenetre)->findChildren<QLabel*>()) {
            if (ligne->isVisible())
                vues << ligne->text();
        }
        return vues;
    }
    QString mots(Texte lequel) const { return banc->langue.lireressource(lequel); }
    /// How many points of a picture of a part of the sheet meet a condition.
    template <typename Condition>
    static int points(QWidget& quoi, const QRect& partie, Condition condition) {
        const QImage image = quoi.grab(partie).toImage();
        int nombre = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                nombre += condition(image.pixelColor(x, y)) ? 1 : 0;
        }
        return nombre;
    }
};

} // namespace

TEST_F(CouvertureTextes, ACollectionOpensOnItsNameItsNumberAndThreeWaysIn) {
    Textes& fenetre = vide();
    EXPECT_EQ(lignes(fenetre),
              (QStringList{u"Code de la consommation"_s, remplace(mots(Texte::CouvertureDocuments), {u"4"_s})}));
    for (const auto& nom : {u"couverturesommaire"_s, u"couvertureliste"_s, u"couverturerecherche"_s}) {
        ASSERT_NE(lien(fenetre, nom), nullptr) << nom.toStdString();
        EXPECT_TRUE(lien(fenetre, nom)->isVisible());
        EXPECT_EQ(lien(fenetre, nom)->cursor().shape(), Qt::PointingHandCursor);
    }
    EXPECT_EQ(lien(fenetre, u"couverturesommaire"_s)->text(), mots(Texte::CouvertureSommaire));
    EXPECT_EQ(lien(fenetre, u"couvertureliste"_s)->text(), mots(Texte::CouvertureListe));
    EXPECT_EQ(lien(fenetre, u"couverturerecherche"_s)->text(), mots(Texte::CouvertureRecherche));
    const QRect audessus(0, 0, couverture(fenetre)->width(), couverture(fenetre)->findChild<QLabel*>()->y());
    const auto coloree = [](const QColor& point) { return point.alpha() > 100 && point.saturation() > 40; };
    EXPECT_GT(points(*couverture(fenetre), audessus, coloree), 100) << "the picture of the collection, in its hue";
    EXPECT_EQ(fenetre.vue().control().text(), QString()) << "nothing of it is text";
    EXPECT_EQ(couverture(fenetre)->geometry(), fenetre.vue().viewport()->geometry());
}

TEST_F(CouvertureTextes, ABlankSheetIsNotScrolled) {
    Textes& fenetre = vide();
    fenetre.resize(500, 200);
    EXPECT_FALSE(fenetre.vue().verticalScrollBar()->isVisible());
    ouvre("CO000002");
    EXPECT_TRUE(fenetre.vue().verticalScrollBar()->isVisible());
}

TEST_F(CouvertureTextes, OneDocumentIsNotMany) {
    EXPECT_EQ(lignes(vide(2)).last(), mots(Texte::CouvertureUnDocument));
}

TEST_F(CouvertureTextes, AnEmptyCollectionSaysSoAndLeadsNowhere) {
    Textes& fenetre = vide(4);
    EXPECT_EQ(lignes(fenetre).last(), mots(Texte::CouvertureSansDocument));
    EXPECT_TRUE(fenetre.findChildren<BoutonLien*>().isEmpty());
    EXPECT_FALSE(fenetre.focusWidget() == &fenetre.vue()) << "no caret on an empty sheet";
}

TEST_F(CouvertureTextes, TheFirstDocumentTakesItsPlaceAndTheFocus) {
    Textes& fenetre = vide();
    EXPECT_EQ(QApplication::focusWidget(), lien(fenetre, u"couverturesommaire"_s));
    ouvre("CO000001");
    EXPECT_EQ(fenetre.focusWidget(), &fenetre.vue());
    EVENTUALLY(couverture(fenetre) == nullptr);
    EXPECT_TRUE(fenetre.vue().hasFocus());
    ouvre("CO000002");
    QApplication::processEvents();
    EXPECT_EQ(couverture(fenetre), nullptr);
}

TEST_F(CouvertureTextes, ItTakesTheFocusFromAViewThatHasIt) {
    QWidget cadre;
    cadre.show();
    cadre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    Textes fenetre(0, banc->contexte(), &cadre);
    fenetre.resize(banc->taille);
    fenetre.show();
    fenetre.vue().setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &fenetre.vue());
    ASSERT_EQ(couverture(fenetre), nullptr);
    EVENTUALLY(couverture(fenetre) != nullptr);
    EXPECT_EQ(QApplication::focusWidget(), lien(fenetre, u"couverturesommaire"_s));
}

TEST_F(CouvertureTextes, TheFirstDocumentLeavesTheFocusWhereSomebodyWorks) {
    Textes& fenetre = vide();
    presse(fenetre, u"barrehoriz"_s);
    presse(fenetre, u"arbre"_s);
    fenetre.panneau().arbre().setFocus();
    cliquenoeud(fenetre.panneau().arbre(), u"@CO000003"_s);
    EXPECT_EQ(fenetre.referencecourante(), u"CO000003");
    EXPECT_TRUE(fenetre.panneau().arbre().hasFocus());
    EVENTUALLY(couverture(fenetre) == nullptr);
}

TEST_F(CouvertureTextes, AWindowThatIsMadeForADocumentHasNone) {
    Textes& fenetre = ouvre("CO000001");
    QApplication::processEvents();
    EXPECT_EQ(couverture(fenetre), nullptr);
}

TEST_F(CouvertureTextes, ADocumentThatIsNotInTheBaseLeavesTheCover) {
    Textes& fenetre = vide();
    ouvre("CO999999");
    QApplication::processEvents();
    ASSERT_NE(couverture(fenetre), nullptr);
    EXPECT_TRUE(couverture(fenetre)->isVisible());
    Textes& autre = ouvre("JP999999");
    EVENTUALLY(couverture(autre) != nullptr);
}

TEST_F(CouvertureTextes, EachLinkShowsItsBlockAndLeadsTheKeyboardThere) {
    Textes& fenetre = vide();
    controle(fenetre, u"blocrecherche"_s)->setEnabled(true);
    presse(fenetre, u"barrehoriz"_s);
    QTest::mouseClick(lien(fenetre, u"couvertureliste"_s), Qt::LeftButton);
    EXPECT_EQ(fenetre.panneau().bloc(), Bloc::Liste);
    EXPECT_TRUE(fenetre.panneau().flex().isVisible());
    EXPECT_TRUE(fenetre.panneau().flex().isAncestorOf(QApplication::focusWidget()));
    lien(fenetre, u"couverturesommaire"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(fenetre.panneau().bloc(), Bloc::Arbre);
    EXPECT_TRUE(fenetre.panneau().arbre().hasFocus());
    lien(fenetre, u"couverturerecherche"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(fenetre.panneau().bloc(), Bloc::Recherche);
    EXPECT_EQ(QApplication::focusWidget(), controle(fenetre, u"Textedico"_s));
}

TEST_F(CouvertureTextes, ALinkToABlockThatIsShownAlreadyPutsTheKeyboardOnARowOfIt) {
    banc->oublietout();
    Textes& fenetre = vide();
    TreeView& arbre = fenetre.panneau().arbre();
    ASSERT_TRUE(arbre.isVisible());
    EXPECT_EQ(arbre.nodes().selected(), 0);
    QTest::mouseClick(lien(fenetre, u"couverturesommaire"_s), Qt::LeftButton);
    EXPECT_TRUE(arbre.hasFocus());
    EXPECT_EQ(arbre.nodes().selected(), 1);
    arbre.nodes().select(2);
    QTest::mouseClick(lien(fenetre, u"couverturesommaire"_s), Qt::LeftButton);
    EXPECT_EQ(arbre.nodes().selected(), 2) << "the user's own place";
    QTest::mouseClick(lien(fenetre, u"couvertureliste"_s), Qt::LeftButton);
    EXPECT_EQ(fenetre.panneau().flex().row(), 1);
    fenetre.panneau().flex().setRow(3);
    QTest::mouseClick(lien(fenetre, u"couvertureliste"_s), Qt::LeftButton);
    EXPECT_EQ(fenetre.panneau().flex().row(), 3);
}

TEST_F(CouvertureTextes, LinksOfUnequalLengthStandInTheMiddleForTheEye) {
    const Textes& fenetre = vide();
    int gauche = 0;
    int droite = 0;
    int longueur = 0;
    for (const auto& nom : {u"couverturesommaire"_s, u"couvertureliste"_s, u"couverturerecherche"_s}) {
        const QRect place = lien(fenetre, nom)->geometry();
        gauche = place.left();
        droite = std::max(droite, place.right());
        longueur += place.width();
    }
    const int milieu = couverture(fenetre)->width() / 2;
    EXPECT_GT((gauche + droite) / 2, milieu) << "the longest reaches farther";
    EXPECT_LT(gauche + longueur / 6, milieu) << "than the others together";
}

TEST_F(CouvertureTextes, TabAndTheArrowsWalkItsLinksWhereTheTextWouldBe) {
    vide();
    const auto touche = [](Qt::Key une) {
        QTest::keyClick(QApplication::focusWidget(), une, une == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        return QApplication::focusWidget()->objectName();
    };
    EXPECT_EQ(touche(Qt::Key_Tab), u"couvertureliste");
    EXPECT_EQ(touche(Qt::Key_Tab), u"couverturerecherche");
    EXPECT_EQ(touche(Qt::Key_Tab), u"ouvrirlien");
    EXPECT_EQ(touche(Qt::Key_Backtab), u"couverturerecherche");
    EXPECT_EQ(touche(Qt::Key_Up), u"couvertureliste");
    EXPECT_EQ(touche(Qt::Key_Down), u"couverturerecherche");
    EXPECT_EQ(touche(Qt::Key_Escape), u"couverturesommaire");
    const QString bouton = touche(Qt::Key_Backtab);
    EXPECT_NE(bouton, u"couverturerecherche") << "the bar";
    EXPECT_EQ(touche(Qt::Key_Tab), u"couverturesommaire");
}

TEST_F(CouvertureTextes, InALowOrNarrowWindowItKeepsItsLinks) {
    Textes& fenetre = vide();
    for (const QSize taille : {QSize(900, 700), QSize(500, 330), QSize(300, 260), QSize(240, 180)}) {
        fenetre.resize(taille);
        const QRect place = couverture(fenetre)->rect();
        QRect avant;
        for (const QWidget* enfant : couverture(fenetre)->findChildren<QWidget*>()) {
            if (!enfant->isVisible())
                continue;
            EXPECT_TRUE(place.contains(enfant->geometry()) || taille.height() < 250)
                << enfant->objectName().toStdString() << " at " << taille.width();
            EXPECT_FALSE(enfant->geometry().intersects(avant)) << taille.width();
            avant = enfant->geometry();
        }
        EXPECT_TRUE(lien(fenetre, u"couverturesommaire"_s)->isVisible());
    }
    EXPECT_EQ(lignes(fenetre), QStringList()) << "the links come first";
    fenetre.resize(900, 700);
    EXPECT_EQ(lignes(fenetre).size(), 2);
}

TEST_F(CouvertureTextes, ALargerTypeMakesLargerLinks) {
    Textes& fenetre = vide();
    const int avant = lien(fenetre, u"couvertureliste"_s)->width();
    QFont grande = fenetre.font();
    grande.setPointSize(2 * grande.pointSize());
    fenetre.setFont(grande);
    EVENTUALLY(lien(fenetre, u"couvertureliste"_s)->width() > avant + 20);
    EXPECT_GE(lien(fenetre, u"couverturerecherche"_s)->width(),
              lien(fenetre, u"couverturerecherche"_s)->sizeHint().width());
}

TEST_F(CouvertureTextes, ItIsLegibleOnItsSheetInADarkPalette) {
    const QPalette avant = QApplication::palette();
    QApplication::setPalette(look::palette(look::Theme::Dark));
    Textes& fenetre = vide();
    BoutonLien* sommaire = lien(fenetre, u"couverturesommaire"_s);
    const auto sombre = [](const QColor& point) { return point.alpha() > 150 && point.lightness() < 128; };
    const QRect image(0, 0, 28, sommaire->height());
    EXPECT_GT(points(*sommaire, image, sombre), 20);
    EXPECT_GT(points(*sommaire, sommaire->rect().adjusted(28, 0, 0, 0), sombre), 20);
    EXPECT_LT(couverture(fenetre)->palette().color(QPalette::WindowText).lightness(), 100);
    QApplication::setPalette(avant);
}

// ---- a first window

TEST_F(CouvertureTextes, AFirstWindowShowsTheContentsBesideTheSheet) {
    banc->oublietout();
    Textes& fenetre = vide();
    EXPECT_EQ(fenetre.panneau().bloc(), Bloc::Arbre);
    EXPECT_TRUE(fenetre.panneau().arbre().isVisible());
    EXPECT_LT(fenetre.panneau().arbre().geometry().right(), fenetre.vue().x());
    EXPECT_TRUE(fenetre.barrechild().value(u"arbre"_s));
    EXPECT_TRUE(fenetre.barrechild().value(u"barrehoriz"_s));
    EXPECT_FALSE(controle(fenetre, u"blocrecherche"_s)->isVisible());
    fenetre.resize(1600, 900);
    EXPECT_EQ(fenetre.panneau().arbre().width(), 320);
    fenetre.close();
    EXPECT_EQ(banc->lu(u"WINDOWSARBRE0"_s), u"1");
    EXPECT_EQ(banc->lu(u"WINDOWSSEPARVH0"_s), u"0");
    EXPECT_EQ(banc->lu(u"WINDOWSSEPAR0"_s), u"4800");
}

TEST_F(CouvertureTextes, WhatIsStoredDecidesFromThenOn) {
    banc->oublietout();
    Textes& fenetre = vide();
    presse(fenetre, u"recherchedico"_s);
    presse(fenetre, u"barreverti"_s);
    fenetre.close();
    Textes& encore = vide();
    EXPECT_EQ(encore.panneau().bloc(), Bloc::Recherche);
    EXPECT_EQ(encore.division().disposition().arrangement, Arrangement::Dessus);
    Textes& autre = vide(2);
    EXPECT_EQ(autre.panneau().bloc(), Bloc::Arbre) << "each collection for itself";
}
