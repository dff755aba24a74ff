#pragma once
// The frame of the real program, and short names for what a user presses in it.
#include "platform/widgets/frame/toolbar.h"
#include "shell/commandes.h"
#include "shell/menus.h"
#include "tests/shell/programme_support.h"
#include "tests/support/eventually.h"

#include <QAction>
#include <QToolButton>

namespace velm::test {

class EcranTest : public ProgrammeTest {
protected:
    Ecrangeneral& ecran() const { return *programme->ecran(); }
    MenusEcran& menus() const { return ecran().menus(); }
    QAction* entree(const char* nom) const { return menus().entree(QString::fromUtf8(nom)); }
    QAction* entree(const char* nom, int indice) const { return menus().entree(QString::fromUtf8(nom), indice); }
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
