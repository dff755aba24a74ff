#pragma once
// The search form in a frame.
#include "tests/search/ui/formulaire_support.h"

#include <QMainWindow>

namespace velm::test {

class CadreTest : public FormulaireTest {
protected:
    QByteArray enfonces() const {
        std::array<bool, nombredecollections> boutons{};
        for (int rang = 1; rang <= barre().buttonCount(); ++rang)
            boutons[static_cast<std::size_t>(rang) - 1] = barre().value(barre().keyAt(rang));
        return lettresdesboutons(boutons);
    }
    /// A list with something in it, as another search has left it.
    void remplit() {
        clique(u"cmdokrapide"_s);
        ASSERT_GT(liste.lignes(), 1);
    }
};

} // namespace velm::test
