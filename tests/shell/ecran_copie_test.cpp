// Copying by the frame's command, whatever window is active.
#include "core/fenetrefille.h"
#include "document/ui/blocrecherche.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QTableView>

using namespace velm;

namespace {

/// A window with a list of two rows.
class ListeEssai : public QWidget, public FenetreFille {
public:
    explicit ListeEssai(PressePapiers& pressepapiers) : pressepapiers_(pressepapiers), flex_(new FlexGrid(this)) {
        flex_->setCols(2);
        flex_->addItem(QStringLiteral("un\tdeux"));
        flex_->addItem(QStringLiteral("trois\tquatre"));
    }
    Nature nature() const override { return Nature::Liste; }
    bool peut(Ordre ordre) const override { return ordre == Ordre::Copier; }
    void fait(Ordre ordre) override {
        ASSERT_EQ(ordre, Ordre::Copier);
        flex_->selectAll();
        pressepapiers_.pose({flex_->clip(), {}, {}});
    }

private:
    PressePapiers& pressepapiers_;
    FlexGrid* flex_;
};

/// The same, with nothing to copy.
class IndexEssai : public ListeEssai {
public:
    using ListeEssai::ListeEssai;
    bool peut(Ordre) const override { return false; }
};

class CopieTest : public test::EcranTest {
protected:
    /// Puts such a window in front.
    template <class Liste>
    void metliste() {
        auto* forme = new Liste(pressepapiers);
        programme->bureau().ajoute(*forme, *forme);
        aire().activate(forme);
    }
    QString copie() {
        pressepapiers.contenu = {};
        presse(barrecommande(), "Copier");
        EXPECT_TRUE(dialogues.messages.empty());
        return pressepapiers.contenu.texte;
    }
};

} // namespace

TEST_F(CopieTest, CopyingWithNoWindowDoesNothing) {
    demarre(QString());
    presse(barrecommande(), "Copier");
    EXPECT_TRUE(pressepapiers.contenu.texte.isEmpty());
}

TEST_F(CopieTest, CopyingASelectionCopiesOnlyIt) {
    demarre(QStringLiteral("CO1"));
    programme->fenetre(0)->vue().setSelStart(5);
    programme->fenetre(0)->vue().setSelLength(9);
    presse(barrecommande(), "Copier");
    EXPECT_EQ(pressepapiers.contenu.texte, u"l’article");
}

TEST_F(CopieTest, CopyingWithoutASelectionCopiesTheWholeAndLeavesTheTextAlone) {
    demarre(QStringLiteral("CO2"));
    const QString avant = programme->fenetre(0)->vue().control().text();
    presse(barrecommande(), "Copier");
    EXPECT_TRUE(pressepapiers.contenu.texte.startsWith(QStringLiteral("Deux.")));
    EXPECT_TRUE(pressepapiers.contenu.rtf.startsWith("{\\rtf1"));
    EXPECT_EQ(programme->fenetre(0)->vue().control().text(), avant);
    EXPECT_EQ(programme->fenetre(0)->vue().selLength(), 0);
}

TEST_F(CopieTest, CopyingInAListCopiesAllItsRows) {
    demarre(QString());
    metliste<ListeEssai>();
    EXPECT_EQ(copie(), u"un\tdeux\rtrois\tquatre");
}

TEST_F(CopieTest, CopyingInTheIndexListFailsSilently) {
    demarre(QString());
    metliste<IndexEssai>();
    EXPECT_EQ(copie(), QString());
}

TEST_F(CopieTest, CopyingWithTheSearchFormActiveDoesNothing) {
    demarre(QStringLiteral("CO1"));
    programme->recherches().montre(true);
    EXPECT_EQ(copie(), QString());
}

TEST_F(CopieTest, TheCopyKeyInAFocusedListCopiesItsRowsAndTheButtonTheDocument) {
    demarre(QStringLiteral("CO2"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    programme->selection().controle().remplissage().remplitdecles(
        {QStringLiteral("CO000001"), QStringLiteral("JP000007")});
    FlexGrid& flex = programme->selection().flex();
    flex.setRow(2);
    flex.setFocus();
    ASSERT_TRUE(entree("medition0", 0)->isEnabled()) << "the menu has the key, too";
    QTest::keyClick(flex.view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Un arrêt\t\t\t\tJP\t000007");
    EXPECT_TRUE(pressepapiers.contenu.texte.isEmpty()) << "the document was copied";
    EXPECT_TRUE(copie().startsWith(QStringLiteral("Deux.")));
    EXPECT_TRUE(flex.view()->hasFocus());
    // In the text the key copies the document.
    pressepapiers.contenu = {};
    QTest::keyClick(&programme->fenetre(0)->vue(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(pressepapiers.contenu.texte.startsWith(QStringLiteral("Deux.")));
}

TEST_F(CopieTest, TheCopyKeyOnALineOfTheWordSearchCopiesThatLine) {
    demarre(QStringLiteral("CO2"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    Textes& fenetre = *programme->fenetre(0);
    presse(fenetre.barrechild(), "recherchedico");
    fenetre.findChild<BlocRecherche*>()->ajouteligne(QStringLiteral("vente : 12 ( 3 )"));
    auto* resultat = fenetre.findChild<QListWidget*>(QStringLiteral("resultat"));
    resultat->setCurrentRow(0);
    QTest::keyClick(resultat, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"vente : 12 ( 3 )");
    EXPECT_TRUE(pressepapiers.contenu.texte.isEmpty()) << "the document was copied";
}
