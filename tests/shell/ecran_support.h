#pragma once
// The frame of the real program, and short names for what a user presses in it.
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "shell/actions.h"
#include "shell/logique/commandes.h"
#include "shell/volet.h"
#include "tests/shell/programme_support.h"
#include "tests/support/eventually.h"

#include <QAction>
#include <QToolButton>

namespace velm::test {

class EcranTest : public ProgrammeTest {
protected:
    Ecrangeneral& ecran() const { return *programme->ecran(); }
    Actions& actions() const { return ecran().pieces().actions; }
    ChildArea& aire() const { return ecran().pieces().aire; }
    VoletSelection& volet() const { return ecran().pieces().volet; }
    Toolbar& barrecommande() const { return *ecran().findChild<Toolbar*>(QStringLiteral("barrecommande")); }
    Toolbar& barreecran() const { return *ecran().findChild<Toolbar*>(QStringLiteral("barreécran")); }
    Toolbar& barreoutils() const { return *ecran().findChild<Toolbar*>(QStringLiteral("barreoutils")); }
    StatusBar& barreetat() const { return *ecran().findChild<StatusBar*>(QStringLiteral("barreétat")); }
    /// A menu entry by its name. The pop-ups of the bars offer the entries of the view menu.
    QAction* entree(QString nom) const {
        nom.replace(QStringLiteral("mbarre5"), QStringLiteral("mbarre1"));
        nom.replace(QStringLiteral("mbarre6"), QStringLiteral("mbarre2"));
        nom.replace(QStringLiteral("mbarre4"), QStringLiteral("mbarre3"));
        const auto entrees = ecran().findChildren<QAction*>(nom);
        EXPECT_EQ(entrees.size(), 1) << nom.toStdString();
        return entrees.value(0);
    }
    QAction* entree(const char* nom) const { return entree(QString::fromUtf8(nom)); }
    QAction* entree(const char* nom, int indice) const {
        return entree(QStringLiteral("%1(%2)").arg(QString::fromUtf8(nom)).arg(indice));
    }
    void presse(Toolbar& barre, const char* cle) const {
        QToolButton* bouton = barre.widget(QString::fromUtf8(cle));
        ASSERT_NE(bouton, nullptr);
        QTest::mouseClick(bouton, Qt::LeftButton);
    }
    void redemarre(const QString& ligne = QString()) {
        dialogues.answers.push_back(Bouton::Oui);
        ASSERT_TRUE(programme->quitteprogramme());
        programme.reset();
        ASSERT_EQ(demarre(ligne), Demarrage::EnMarche);
    }
    std::vector<int> positionscochees(const char* menu) const {
        std::vector<int> cochees;
        for (int indice = 0; indice < 5; ++indice) {
            if (entree(menu, indice)->isChecked())
                cochees.push_back(indice);
        }
        return cochees;
    }
};

} // namespace velm::test
