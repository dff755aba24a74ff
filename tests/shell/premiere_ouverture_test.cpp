// A collection that is opened for the first time in the real frame: what is seen, how much of it is the sheet, and the
// walk of the Tab key.
#include "document/ui/couverture.h"
#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "document/ui/voletliens.h"
#include "fenetres_support.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PremiereOuverture : public FenetresTest {
protected:
    /// The frame of a user who has nothing stored.
    void SetUp() override {
        FenetresTest::SetUp();
        QFile::remove(dossier.filePath(u"reglages.ini"_s));
        regle(u"OPTIONS", u"TIPS", u"0"_s);
    }
    /// Its first window, over the whole of a frame of a size.
    Textes& premiere(const QSize& cadre, const QString& ligne = {}) {
        EXPECT_EQ(demarre(ligne), Demarrage::EnMarche);
        ecran().showNormal();
        ecran().resize(cadre);
        if (ligne.isEmpty())
            programme->bureau().navigation().ouvrefenetre(0);
        Textes& celle = *programme->fenetre(ligne == u"JP7" ? 2 : 0);
        autour(celle).showMaximized();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&ecran()));
        QApplication::processEvents();
        return celle;
    }
    /// The hundredths of the frame that are sheet, and what lies beside it.
    double feuille(const Textes& fenetre) const {
        const auto aire = [](const QSize& taille) { return static_cast<double>(taille.width()) * taille.height(); };
        return 100 * aire(fenetre.vue().size()) / aire(ecran().size());
    }
    void attendplace(const QSize& cadre) {
        Textes& celle = premiere(cadre, u"CO1"_s);
        ASSERT_EQ(ecran().size(), cadre);
        EXPECT_FALSE(celle.findChild<QWidget*>(u"blocrecherche"_s)->isVisible());
        EXPECT_TRUE(celle.panneau().arbre().isVisible());
        EXPECT_GE(celle.panneau().arbre().width(), 240);
        EXPECT_GE(feuille(celle), 55) << "the text has " << celle.vue().width() << 'x' << celle.vue().height();
    }
    /// What the Tab key, or with the shift key, comes to until it is back where it began; splitters are left out.
    QStringList tour(Qt::Key touche) const {
        const QWidget* depart = QApplication::focusWidget();
        QStringList noms;
        constexpr int tropdepas = 40;
        for (int pas = 0; pas < tropdepas; ++pas) {
            QWidget* ici = QApplication::focusWidget();
            QTest::keyClick(ici, touche, touche == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            ici = QApplication::focusWidget();
            if (ici == depart)
                return noms;
            if (!qobject_cast<SplitterBar*>(ici))
                noms << ici->objectName();
        }
        return noms << u"(jamais revenu)"_s;
    }
};

} // namespace

TEST_F(PremiereOuverture, MostOfASmallFrameIsTheSheet) {
    attendplace({1366, 768});
}

TEST_F(PremiereOuverture, MostOfAFrameThatIsSharplyEnlargedIsTheSheet) {
    attendplace({1280, 720}); // 2560×1440 at 200 %
}

TEST_F(PremiereOuverture, AnOpenedListLeavesTheTextMostOfTheWindow) {
    Textes& fenetre = premiere({1366, 768}, u"CO1"_s);
    fenetre.volet().liens().bouton()->click();
    EXPECT_GE(fenetre.vue().height(), fenetre.height() / 2);
}

TEST_F(PremiereOuverture, TheFirstClickOnACollectionShowsItsCoverAndItsContents) {
    Textes& fenetre = premiere({1366, 768});
    const auto* couverture = fenetre.findChild<Couverture*>();
    ASSERT_NE(couverture, nullptr);
    EXPECT_TRUE(couverture->isVisible());
    EXPECT_TRUE(fenetre.panneau().arbre().isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"couverturesommaire");
}

TEST_F(PremiereOuverture, TheTabKeyWalksTheWindowInReadingOrderAndComesBack) {
    Textes& fenetre = premiere({1366, 768}, u"JP7"_s);
    QTest::mouseClick(fenetre.barrechild().widget(u"recherchedico"_s), Qt::LeftButton);
    fenetre.vue().setFocus();
    const QStringList aller = tour(Qt::Key_Tab);
    EXPECT_EQ(aller.first(), u"ouvrirlien");
    for (const auto& nom : {u"ouvrircorrélats"_s, u"Textedico"_s, u"cmdokdico"_s})
        EXPECT_EQ(aller.count(nom), 1) << nom.toStdString();
    EXPECT_LT(aller.indexOf(u"ouvrircorrélats"_s), aller.indexOf(u"Textedico"_s));
    EXPECT_GT(aller.indexOf(u"Textedico"_s), aller.indexOf(u"ouvrircorrélats"_s) + 1) << "the bar lies between them";
    QStringList retour = tour(Qt::Key_Backtab);
    std::reverse(retour.begin(), retour.end());
    EXPECT_EQ(retour, aller);
}
