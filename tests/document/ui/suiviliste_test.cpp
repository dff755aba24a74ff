// The list of the collection follows the document of its window.
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"
#include "tests/support/little_memory.h"

#include <QApplication>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Among three hundred others, "Titre 001" to "Titre 300" with the numbers 001001 to 001300, which stand before all
/// else but "Article...".
class SuiviDeLaListe : public test::BaseTextes {
protected:
    void SetUp() override {
        BaseTextes::SetUp();
        banc.reset();
        {
            const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
            QList<QVariantList> lignes;
            for (int numero = 1; numero <= 300; ++numero)
                lignes.append({u"CO"_s, sixchiffres(1000 + numero), u"Titre %1"_s.arg(numero, 3, 10, QChar(u'0')),
                               u"mot %1"_s.arg(numero % 7), corps(4)});
            ecrit(*base.database, u"données", {u"référence", u"numart", u"titre", u"motclé1", u"contenu"}, lignes);
        }
        banc = std::make_unique<test::BancTextes>(chemin());
    }
    /// A window in front whose list stands beside the text, with the focus in the text.
    Textes& avecliste(const char* cle) {
        Textes& fenetre = ouvre(cle);
        presse(fenetre, u"barrehoriz"_s);
        presse(fenetre, u"tableau"_s);
        fenetre.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&fenetre));
        fenetre.vue().setFocus();
        return fenetre;
    }
    static FlexGrid& liste(const Textes& fenetre) { return fenetre.panneau().flex(); }
    static QString marquee(const Textes& fenetre) { return liste(fenetre).text(liste(fenetre).marked(), 4); }
    static bool vue(const Textes& fenetre) {
        const QTableView& rangees = *liste(fenetre).view();
        const QRect rangee = rangees.visualRect(rangees.model()->index(liste(fenetre).marked() - 1, 0));
        return rangee.isValid() && rangees.viewport()->rect().contains(rangee);
    }
    static void roule(const Textes& fenetre) {
        QWidget* surface = liste(fenetre).view()->viewport();
        const QPointF ou(20, 20);
        QWheelEvent cran(ou, surface->mapToGlobal(ou), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(surface, &cran);
    }
};

} // namespace

TEST_F(SuiviDeLaListe, TheDocumentIsShownAndMarkedInTheList) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    EXPECT_TRUE(vue(fenetre));
    EXPECT_EQ(liste(fenetre).row(), 0) << "not selected";
    ouvre("CO001290");
    EVENTUALLY(marquee(fenetre) == u"001290");
    EXPECT_TRUE(vue(fenetre));
    EXPECT_TRUE(fenetre.vue().hasFocus());
}

TEST_F(SuiviDeLaListe, WhoWorksInTheListKeepsHisPlaceThere) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    liste(fenetre).setFocus();
    const int haut = liste(fenetre).topRow();
    ouvre("CO001290");
    EVENTUALLY(marquee(fenetre) == u"001290");
    EXPECT_EQ(liste(fenetre).topRow(), haut);
    EXPECT_FALSE(vue(fenetre));
}

TEST_F(SuiviDeLaListe, WhoHasTurnedTheWheelKeepsHisPlaceForOneDocument) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    roule(fenetre);
    const int haut = liste(fenetre).topRow();
    ouvre("CO001290");
    EVENTUALLY(marquee(fenetre) == u"001290");
    EXPECT_EQ(liste(fenetre).topRow(), haut);
    ouvre("CO001020");
    EVENTUALLY(marquee(fenetre) == u"001020");
    EXPECT_TRUE(vue(fenetre));
}

TEST_F(SuiviDeLaListe, TheSameDocumentShownOnceMoreScrollsNothing) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    liste(fenetre).setTopRow(1);
    ASSERT_FALSE(vue(fenetre));
    fenetre.lecture().reaffiche();
    for (int tour = 0; tour < 3; ++tour)
        QApplication::processEvents();
    EXPECT_FALSE(vue(fenetre));
}

TEST_F(SuiviDeLaListe, TheMarkGoesWhereASortPutsTheDocument) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    const int avant = liste(fenetre).marked();
    cliquecellule(liste(fenetre), 0, 0, true);
    EXPECT_EQ(marquee(fenetre), u"001150");
    EXPECT_NE(liste(fenetre).marked(), avant);
}

TEST_F(SuiviDeLaListe, WithoutTheMemoryToFindItNothingIsMarked) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    ouvre("CO001290");
    const test::LittleMemory peu(0);
    EVENTUALLY(liste(fenetre).marked() == 0);
}

TEST_F(SuiviDeLaListe, AListThatIsNotSeenFollowsWhenItIs) {
    Textes& fenetre = avecliste("CO001150");
    EVENTUALLY(marquee(fenetre) == u"001150");
    presse(fenetre, u"arbre"_s);
    ouvre("CO001290");
    for (int tour = 0; tour < 3; ++tour)
        QApplication::processEvents();
    EXPECT_EQ(marquee(fenetre), u"001150");
    presse(fenetre, u"tableau"_s);
    EVENTUALLY(marquee(fenetre) == u"001290");
    EXPECT_TRUE(vue(fenetre));
}
