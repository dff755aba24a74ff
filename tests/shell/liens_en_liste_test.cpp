// What a document cites, or what cites it, turned into the selection list of the frame.
#include "core/schemas.h"
#include "document/ui/listedeliens.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class LiensEnListe : public test::EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter liens(*base.database, u"liens"_s,
                          {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s});
        ASSERT_TRUE(liens.add({u"CO"_s, u"000001"_s, u"JP"_s, u"000007"_s}));
        ASSERT_TRUE(liens.add({u"CO"_s, u"000001"_s, u"CO"_s, u"000002"_s}));
        ASSERT_TRUE(liens.add({u"CO"_s, u"000002"_s, u"CO"_s, u"000001"_s}));
    }
    Textes& ouvre() {
        demarre(QString());
        programme->bureau().navigation().navigue(u"TACO000001"_s);
        return *programme->fenetre(0);
    }
    static void choisit(const Textes& fenetre, const QString& entree) {
        auto* action = fenetre.findChild<QAction*>(entree);
        ASSERT_NE(action, nullptr);
        action->trigger();
    }
    bool active(const QString& cle) const { return volet().recherchetoolbar().isButtonEnabled(cle); }
    QStringList titres() const {
        const FlexGrid& flex = volet().flex();
        QStringList textes;
        for (int ligne = 1; ligne < flex.rows(); ++ligne) {
            for (int colonne = 0; colonne < flex.cols(); ++colonne) {
                if (flex.colData(colonne) == 0)
                    textes << flex.text(ligne, colonne);
            }
        }
        return textes;
    }
};

} // namespace

TEST_F(LiensEnListe, TurningLinksIntoAListEnablesTheListsButtons) {
    Textes& fenetre = ouvre();
    const QStringList delaliste{u"précédentrecherche"_s, u"suivantrecherche"_s, u"sauvercritères"_s,
                                u"envoyercritères"_s};
    for (const QString& cle : delaliste)
        EXPECT_FALSE(active(cle)) << cle.toStdString();
    fenetre.volet().liens().bouton()->click();
    choisit(fenetre, u"MnuLiensSelection"_s);
    for (const QString& cle : delaliste + QStringList{u"ouvrircritères"_s})
        EXPECT_TRUE(active(cle)) << cle.toStdString();
    EXPECT_TRUE(volet().flex().isVisible());
    EXPECT_EQ(volet().flex().rows(), 3);
}

TEST_F(LiensEnListe, TheListStandsInTheOrderOfTheGridAndReplacesTheOneBefore) {
    Textes& fenetre = ouvre();
    fenetre.volet().liens().bouton()->click();
    fenetre.volet().liens().grille()->sort(1, true);
    const QStringList grille{fenetre.volet().liens().grille()->text(1, 1),
                             fenetre.volet().liens().grille()->text(2, 1)};
    choisit(fenetre, u"MnuLiensSelection"_s);
    EXPECT_EQ(titres(), grille);
    fenetre.volet().correlats().bouton()->click();
    choisit(fenetre, u"MnuCorrelatsSelection"_s);
    EXPECT_EQ(titres(), QStringList{u"Article 2"_s});
}
