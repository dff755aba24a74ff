// What a repair does in the window that asks for it.
#include "dossiers/echangedossiers.h"
#include "gestion_banc.h"

namespace velm::test {
namespace {

TEST_F(GestionTest, RepairKeepsTheWindowsNextNumber) {
    clique(4);
    gestion.ajouter();
    ASSERT_NE(noeud(5), 0);
    clique(5);
    gestion.supprimer();
    dialogues.answers = {Bouton::Oui};
    ASSERT_TRUE(EchangeDossiers(gestion).repare(true, {}));
    EXPECT_EQ(derniernumero(), 4) << "in the store the highest one";
    EXPECT_EQ(gestion.arbre().prochainnumero(), 6);
    clique(1);
    gestion.ajouter();
    EXPECT_EQ(gestion.arbre().numero(noeuds.selected()), 6);
}

} // namespace
} // namespace velm::test
