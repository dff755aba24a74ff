// Copying by the frame's command, whatever window is active.
#include "platform/widgets/childarea.h"
#include "platform/widgets/flexgrid.h"
#include "shell/volet.h"
#include "tests/gui/ecran_support.h"

using namespace velm;

namespace {

class CopieTest : public test::EcranTest {
protected:
    /// Puts a window of that name with a list of two rows in front.
    void metliste(const char* nom) const {
        auto* forme = new QWidget;
        forme->setObjectName(QString::fromUtf8(nom));
        auto* liste = new FlexGrid(forme);
        liste->setObjectName(QStringLiteral("flex"));
        liste->setCols(2);
        liste->addItem(QStringLiteral("un\tdeux"));
        liste->addItem(QStringLiteral("trois\tquatre"));
        ecran().aire().add(forme);
        ecran().aire().activate(forme);
    }
    QString copie() {
        pressepapiers.contenu = {};
        presse(ecran().barrecommande(), "Copier");
        EXPECT_TRUE(dialogues.messages.empty());
        return pressepapiers.contenu.texte;
    }
};

} // namespace

TEST_F(CopieTest, CopyingWithNoWindowDoesNothing) {
    demarre(QString());
    presse(ecran().barrecommande(), "Copier");
    EXPECT_TRUE(pressepapiers.contenu.texte.isEmpty());
}

TEST_F(CopieTest, CopyingASelectionCopiesOnlyIt) {
    demarre(QStringLiteral("CO1"));
    programme->fenetre(0)->vue().setSelStart(5);
    programme->fenetre(0)->vue().setSelLength(9);
    presse(ecran().barrecommande(), "Copier");
    EXPECT_EQ(pressepapiers.contenu.texte, u"l’article");
}

TEST_F(CopieTest, CopyingWithoutASelectionCopiesTheWholeAndLeavesTheTextAlone) {
    demarre(QStringLiteral("CO2"));
    const QString avant = programme->fenetre(0)->vue().control().text();
    presse(ecran().barrecommande(), "Copier");
    EXPECT_TRUE(pressepapiers.contenu.texte.startsWith(QStringLiteral("Deux.")));
    EXPECT_TRUE(pressepapiers.contenu.rtf.startsWith("{\\rtf1"));
    EXPECT_EQ(programme->fenetre(0)->vue().control().text(), avant);
    EXPECT_EQ(programme->fenetre(0)->vue().selLength(), 0);
}

TEST_F(CopieTest, CopyingInAListCopiesAllItsRows) {
    demarre(QString());
    for (const char* nom : {"frmchrono", "frmrechnum", "frmrechmotcle"}) {
        metliste(nom);
        EXPECT_EQ(copie(), u"un\tdeux\rtrois\tquatre") << nom;
    }
}

TEST_F(CopieTest, CopyingInTheIndexListFailsSilently) {
    demarre(QString());
    metliste("fIndex");
    EXPECT_EQ(copie(), QString());
}

TEST_F(CopieTest, CopyingWithTheSearchFormActiveDoesNothing) {
    demarre(QStringLiteral("CO1"));
    metliste("frmVelmorSelect");
    EXPECT_EQ(copie(), QString());
}
