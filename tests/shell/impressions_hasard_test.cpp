// A hand that prints, looks at what it prints, and closes windows meanwhile, in any order.
#include "shell/bureau.h"
#include "tests/shell/impressions_support.h"
#include "tests/support/rounds.h"

#include <QMdiSubWindow>

#include <random>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ImpressionsAuHasard : public ImpressionsTest {
protected:
    int hasard(int nombre) { return static_cast<int>(de_() % static_cast<unsigned>(nombre)); }
    void commande(Ordre ordre) {
        if (action(ordre).isEnabled())
            donne(ordre);
    }
    void ouvre() {
        const QStringList cles{u"CO000001"_s, u"CO000002"_s, u"EU000001"_s, u"JP000007"_s};
        programme->ouvre(decoupecle(cles.at(hasard(4))));
    }
    void ferme() {
        const auto cadres = aire().subWindowList();
        if (!cadres.isEmpty())
            cadres.at(hasard(static_cast<int>(cadres.size())))->close();
    }
    void cherche() {
        programme->selection().controle().remplissage().remplitdecles({u"CO000001"_s, u"JP000007"_s});
        programme->selection().controle().affichemenuselection(hasard(3) > 0);
        programme->recherches().montre(hasard(2) == 0);
    }
    void dansapercu() {
        if (!apercu())
            return;
        constexpr std::array touches{Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_End,  Qt::Key_Home,
                                     Qt::Key_Plus,     Qt::Key_Minus,  Qt::Key_Down, Qt::Key_Escape};
        switch (hasard(4)) {
        case 0:
            QTest::keyClick(&apercu()->vue(), touches.at(static_cast<std::size_t>(hasard(8))),
                            hasard(2) == 0 ? Qt::ControlModifier : Qt::NoModifier);
            break;
        case 1:
            apercu()->resize(200 + hasard(700), 150 + hasard(600));
            break;
        case 2: {
            const QStringList noms{u"imprimer"_s, u"abandonner"_s, u"exporter"_s, u"fermer"_s};
            QPushButton& celui = boutonapercu(noms.at(hasard(4)));
            if (celui.isVisible() && celui.isEnabled())
                QTest::mouseClick(&celui, Qt::LeftButton);
            break;
        }
        default:
            apercu()->vue().zoomStep(hasard(5) - 2);
        }
    }
    void pas() {
        imprimante.works = hasard(5) > 0;
        dialogues.answers = {hasard(2) == 0 ? Bouton::Oui : Bouton::Non};
        dialogues.saveFiles = {hasard(2) == 0 ? std::optional(dossier.filePath(u"hasard.pdf"_s)) : std::nullopt};
        constexpr std::array ordres{Ordre::Imprimer,          Ordre::Imprimer, Ordre::ImprimerPage, Ordre::EjecterPage,
                                    Ordre::AbandonnerTravail, Ordre::Apercu,   Ordre::Apercu,       Ordre::ExporterPdf};
        const int quoi = hasard(20);
        // A window over the frame keeps hands away from it.
        if (apercu() || quoi >= 15)
            dansapercu();
        else if (quoi < 8)
            commande(ordres.at(static_cast<std::size_t>(quoi)));
        else if (quoi < 11)
            ouvre();
        else if (quoi < 13)
            ferme();
        else
            cherche();
        dialogues.saveFiles.clear();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    void verifie() {
        const bool ouvert = programme->impressions().impressionouverte();
        EXPECT_EQ(visible("imprimereject"), ouvert);
        EXPECT_EQ(visible("Imprimer"), !ouvert);
        EXPECT_EQ(action(Ordre::EjecterPage).isEnabled(), ouvert);
        EXPECT_EQ(action(Ordre::AbandonnerTravail).isEnabled(), ouvert);
        EXPECT_EQ(action(Ordre::ConfigurerImprimante).isEnabled(), !ouvert);
        const FenetreFille* devant = programme->bureau().devant();
        const bool document = devant && devant->nature() == Nature::Document && devant->peut(Ordre::Imprimer);
        EXPECT_EQ(action(Ordre::ExporterPdf).isEnabled(), document);
        if (document || ouvert) {
            EXPECT_TRUE(action(Ordre::Apercu).isEnabled());
        }
        if (apercu() && apercu()->isVisible()) {
            EXPECT_GT(apercu()->vue().count(), 0);
        }
    }

    std::mt19937 de_{7};
};

} // namespace

TEST_F(ImpressionsAuHasard, ButtonsAndJobsAgreeWhateverIsDone) {
    sansejection();
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    const int combien = rounds(1200);
    std::size_t imprimes = 0;
    for (int rang = 0; rang < combien && !HasFailure(); ++rang) {
        SCOPED_TRACE(rang);
        pas();
        verifie();
        imprimes = std::max(imprimes, imprimante.travaux.size());
        if (imprimante.travaux.size() > 50)
            imprimante.travaux.clear();
    }
    EXPECT_GT(imprimes, 0U);
}
