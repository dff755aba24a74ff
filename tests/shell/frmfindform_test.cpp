// The find dialog over the real frame.
#include "shell/fenetresannexes.h"
#include "tests/shell/selection_support.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

using FrmFindFormTest = SelectionTest;

TEST_F(FrmFindFormTest, TheFindDialogStepsThroughTheActiveDocument) {
    ouvre({});
    EXPECT_FALSE(entree("medition0", 2)->isEnabled());
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_TRUE(entree("medition0", 2)->isEnabled());
    EXPECT_EQ(entree("medition0", 2)->shortcut(), QKeySequence(QKeySequence::Find));
    entree("medition0", 2)->trigger();
    auto* boite = ecran().findChild<QDialog*>(u"frmFindForm"_s);
    ASSERT_NE(boite, nullptr);
    EXPECT_FALSE(boite->isModal());
    auto* texte = boite->findChild<QLineEdit*>(u"txtFind"_s);
    auto* suivant = boite->findChild<QPushButton*>(u"cmdFindNext"_s);
    EXPECT_FALSE(suivant->isEnabled());
    QTest::keyClicks(texte, u"prix"_s);
    EXPECT_TRUE(suivant->isEnabled());
    RichTextBox& vue = active()->vue();
    suivant->click();
    EXPECT_EQ(vue.selStart(), 3);
    suivant->click();
    EXPECT_EQ(vue.control().selText(), u"prix");
    EXPECT_GT(vue.selStart(), 100);
    suivant->click();
    ASSERT_EQ(dialogues.messages.size(), 1u);
    EXPECT_EQ(dialogues.messages.back().texte, u"La recherche est terminée\u00A0: il n’y a pas d’autre occurrence.");
    EXPECT_EQ(dialogues.messages.back().titre, u"Recherche dans le document");
    suivant->click();
    EXPECT_EQ(vue.selStart(), 3);
    // Another text starts over.
    texte->setText(u"Le pri"_s);
    suivant->click();
    EXPECT_EQ(vue.selStart(), 0);
    suivant->click();
    EXPECT_EQ(dialogues.messages.back().texte, u"Le texte n’a pas été trouvé dans la suite du document.");
    texte->clear();
    EXPECT_FALSE(suivant->isEnabled());
}

TEST_F(FrmFindFormTest, TheFindDialogStartsOverInAnotherDocumentAndKnowsItsBoxes) {
    ouvre({});
    programme->ouvre(decoupecle(u"CO000001"));
    programme->cadre().annexes().montrerecherche();
    auto* boite = ecran().findChild<QDialog*>(u"frmFindForm"_s);
    boite->findChild<QLineEdit*>(u"txtFind"_s)->setText(u"deux"_s);
    auto* suivant = boite->findChild<QPushButton*>(u"cmdFindNext"_s);
    suivant->click();
    EXPECT_GT(active()->vue().selStart(), 100);
    programme->ouvre(decoupecle(u"CO000002"));
    suivant->click();
    EXPECT_LT(active()->vue().selStart(), 30);
    boite->findChild<QAbstractButton*>(u"checkcasse"_s)->setChecked(true);
    boite->findChild<QAbstractButton*>(u"checkmot"_s)->setChecked(true);
    boite->findChild<QLineEdit*>(u"txtFind"_s)->setText(u"Deux"_s);
    suivant->click();
    EXPECT_GT(active()->vue().selStart(), 100);
    EXPECT_TRUE(dialogues.messages.empty());
    // Without a document window there is nothing to look in.
    presse(barreecran(), "CO");
    suivant->click();
    EXPECT_FALSE(boite->isVisible());
}

TEST_F(FrmFindFormTest, TheFindDialogGoesOutOfTheWayOfTheHit) {
    ouvre({});
    programme->ouvre(decoupecle(u"CO000001"));
    programme->cadre().annexes().montrerecherche();
    auto* boite = ecran().findChild<QDialog*>(u"frmFindForm"_s);
    auto* texte = boite->findChild<QLineEdit*>(u"txtFind"_s);
    auto* suivant = boite->findChild<QPushButton*>(u"cmdFindNext"_s);
    const RichTextBox& vue = active()->vue();
    const auto hit = [&vue] {
        return QRect(vue.viewport()->mapToGlobal(vue.cursorRect().topLeft()), vue.cursorRect().size());
    };
    texte->setText(u"prix"_s);
    suivant->click();
    boite->move(hit().center() - QPoint(100, 60));
    EVENTUALLY(boite->frameGeometry().intersects(hit()));
    texte->setText(u"prix,"_s);
    suivant->click();
    EVENTUALLY(!boite->frameGeometry().intersects(hit()));
}

TEST_F(FrmFindFormTest, TheFindDialogProposesWhatIsSelected) {
    ouvre({});
    programme->ouvre(decoupecle(u"CO000001"));
    active()->vue().setSelStart(3);
    active()->vue().setSelLength(4);
    programme->cadre().annexes().montrerecherche();
    auto* boite = ecran().findChild<QDialog*>(u"frmFindForm"_s);
    EXPECT_EQ(boite->findChild<QLineEdit*>(u"txtFind"_s)->text(), u"prix");
    QTest::keyClick(boite, Qt::Key_Escape);
    EXPECT_FALSE(boite->isVisible());
}
