// Taking back, and putting back what was lost, with real keys and clicks.
#include "dossiers/ui/dialoguepertes.h"
#include "tests/shell/dossiers_support.h"

#include <QDir>
#include <QTreeWidget>

namespace velm::test {
namespace {

class DossiersJournalTest : public DossiersTest {
protected:
    /// The window, on a dossier with the document in front in it.
    void rangedans(const QString& nom) {
        commence();
        ouvre();
        nouveau(nom);
        ferme();
        range();
        clique(nom);
        clique(nom);
    }
    bool manquedit() const { return ligne() == mots(9882); }
    DialoguePertes* pertes() const { return fenetre()->findChild<DialoguePertes*>(); }
    QTreeWidget& listepertes() const { return *pertes()->findChild<QTreeWidget*>(); }
    void montrepertes() const {
        presse(u"retrouver"_s);
        EVENTUALLY(pertes() != nullptr && pertes()->isActiveWindow());
    }
};

TEST_F(DossiersJournalTest, TheUndoKeyTakesADeletionBackInTreeAndList) {
    rangedans(u"Clients"_s);
    for (QWidget* const ou : {static_cast<QWidget*>(&arbre()), static_cast<QWidget*>(&liste())}) {
        cliqueelement(1);
        touche(Qt::Key_Delete);
        EXPECT_TRUE(titres().isEmpty());
        EXPECT_EQ(texte(u"Clients"_s), u"Clients");
        ou->setFocus();
        touche(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
        EXPECT_EQ(texte(u"Clients"_s), u"Clients [1]");
    }
    ferme();
}

TEST_F(DossiersJournalTest, WhatWasDeletedIsPutBackInTheNextRun) {
    rangedans(u"Clients"_s);
    EXPECT_FALSE(bouton(u"retrouver"_s).isEnabled());
    EXPECT_EQ(bouton(u"retrouver"_s).toolTip(), mots(9872));
    cliqueelement(1);
    touche(Qt::Key_Delete);
    EXPECT_TRUE(bouton(u"retrouver"_s).isEnabled());
    EXPECT_EQ(bouton(u"retrouver"_s).toolTip(), mots(9871));
    ferme();
    redemarre();
    ouvre();
    clique(u"Clients"_s);
    montrepertes();
    EXPECT_EQ(pertes()->windowTitle(), mots(9873));
    EXPECT_EQ(listepertes().accessibleName(), mots(9873));
    ASSERT_EQ(listepertes().topLevelItemCount(), 1);
    EXPECT_EQ(listepertes().topLevelItem(0)->text(0), u"Article premier");
    EXPECT_EQ(listepertes().topLevelItem(0)->text(1), u"Clients");
    EXPECT_EQ(listepertes().topLevelItem(0)->text(2), mots(9878));
    EXPECT_TRUE(listepertes().hasFocus());
    touche(Qt::Key_Return);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    EXPECT_EQ(texte(u"Clients"_s), u"Clients [1]");
    EXPECT_FALSE(bouton(u"retrouver"_s).isEnabled());
    EVENTUALLY(pertes() == nullptr);
    ferme();
}

TEST_F(DossiersJournalTest, AJournalThatCannotBeKeptIsToldOnceAndTheWorkGoesOn) {
    ASSERT_TRUE(QDir(dossier.path()).mkdir(u"dossiers-journal.dat"_s));
    rangedans(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_Delete);
    EXPECT_TRUE(titres().isEmpty());
    EXPECT_TRUE(manquedit());
    ferme();
}

TEST_F(DossiersJournalTest, TheListStaysWhileSomethingIsLeftInIt) {
    rangedans(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_Delete);
    ferme();
    range();
    clique(u"Clients"_s);
    clique(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_Delete);
    montrepertes();
    EXPECT_EQ(listepertes().topLevelItemCount(), 2);
    QTest::mouseClick(pertes()->findChild<QPushButton*>(u"remettre"_s), Qt::LeftButton);
    ASSERT_NE(pertes(), nullptr);
    EXPECT_EQ(listepertes().topLevelItemCount(), 1);
    EXPECT_EQ(texte(u"Clients"_s), u"Clients [1]");
    QTest::keyClick(pertes(), Qt::Key_Escape);
    EVENTUALLY(pertes() == nullptr);
    ferme();
}

TEST_F(DossiersJournalTest, SeveralThatAreSelectedComeBackTogether) {
    rangedans(u"Clients"_s);
    ferme();
    range();
    clique(u"Clients"_s);
    clique(u"Clients"_s);
    for (int i = 0; i < 2; ++i) {
        cliqueelement(1);
        touche(Qt::Key_Delete);
    }
    montrepertes();
    touche(Qt::Key_A, Qt::ControlModifier);
    touche(Qt::Key_Return);
    EVENTUALLY(pertes() == nullptr);
    EXPECT_EQ(titres(), (QStringList{u"Article premier"_s, u"Article premier"_s}));
    EXPECT_EQ(texte(u"Clients"_s), u"Clients [2]");
    ferme();
}

TEST_F(DossiersJournalTest, ATitleEmptiedAtClosingComesBack) {
    rangedans(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_F2);
    fenetre()->fermesansquestion();
    EVENTUALLY(fenetre() == nullptr);
    ouvre();
    clique(u"Clients"_s);
    EXPECT_EQ(titres(), QStringList{QString()});
    montrepertes();
    ASSERT_EQ(listepertes().topLevelItemCount(), 1);
    EXPECT_EQ(listepertes().topLevelItem(0)->text(2), mots(9879));
    touche(Qt::Key_Return);
    EVENTUALLY(pertes() == nullptr);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    ferme();
}

TEST_F(DossiersJournalTest, ADossierThatAMoveLostComesBackWithWhatWasInIt) {
    rangeenfacede(u"Clients"_s, u"Veille"_s);
    touche(Qt::Key_Down);
    touche(Qt::Key_Insert);
    ecrit(u"Martin"_s);
    touche(Qt::Key_Return);
    EXPECT_EQ(texte(u"Martin"_s), u"Martin [1]");
    touche(Qt::Key_Up);
    touche(Qt::Key_Down, Qt::ControlModifier);
    ferme();
    ouvre();
    EXPECT_EQ(noeud(u"Martin"_s), 0);
    montrepertes();
    ASSERT_EQ(listepertes().topLevelItemCount(), 1);
    EXPECT_EQ(listepertes().topLevelItem(0)->text(0), u"Martin");
    EXPECT_EQ(listepertes().topLevelItem(0)->text(2), mots(9880));
    touche(Qt::Key_Return);
    EVENTUALLY(pertes() == nullptr);
    EXPECT_EQ(arbre().nodes().parent(noeud(u"Martin"_s)), noeud(u"Clients"_s));
    clique(u"Martin"_s);
    EXPECT_EQ(texte(u"Martin"_s), u"Martin [1]");
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    ferme();
}

TEST_F(DossiersJournalTest, AnUndoThatIsNoLongerPossibleIsSaidUntilTheNextChange) {
    rangedans(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_Delete);
    clique(u"Clients"_s);
    touche(Qt::Key_Delete);
    ASSERT_TRUE(programme->dossiers().magasin().dbdossiers().execute(u"DELETE FROM arborescences"_s));
    arbre().nodes().remove(noeud(u"Clients"_s));
    touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ligne(), mots(9884));
    montrepertes();
    touche(Qt::Key_Return);
    EVENTUALLY(pertes() == nullptr);
    EXPECT_EQ(ligne(), QString());
    EXPECT_NE(noeud(u"Clients"_s), 0);
    ferme();
}

TEST_F(DossiersJournalTest, TheUndoKeyWithNothingToTakeBackSaysNothing) {
    commence();
    ouvre();
    touche(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ligne(), QString());
    ferme();
}

TEST_F(DossiersJournalTest, TheWindowMayCloseUnderTheList) {
    rangedans(u"Clients"_s);
    cliqueelement(1);
    touche(Qt::Key_Delete);
    montrepertes();
    fenetre()->fermesansquestion();
    EVENTUALLY(fenetre() == nullptr);
}

} // namespace
} // namespace velm::test
