// The find dialog over the real frame.
#include "platform/widgets/text/hitstrip.h"
#include "shell/fenetresannexes.h"
#include "tests/shell/selection_support.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

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

namespace {

/// The dialog over an open document, in which "prix" stands twice.
class FindStateTest : public SelectionTest {
protected:
    void ouvredialogue() {
        ouvre({});
        programme->ouvre(decoupecle(u"CO000001"));
        programme->cadre().annexes().montrerecherche();
        boite = ecran().findChild<QDialog*>(u"frmFindForm"_s);
        texte = boite->findChild<QLineEdit*>(u"txtFind"_s);
    }
    QString dit() const { return boite->findChild<QLabel*>(u"lblEtat"_s)->text(); }
    void presse(const char* nom) const { boite->findChild<QPushButton*>(QString::fromLatin1(nom))->click(); }
    static std::size_t montrees(const RichTextBox& vue) { return vue.findChild<HitStrip*>()->ticks().size(); }
    RichTextBox& vue() const { return active()->vue(); }

    QDialog* boite = nullptr;
    QLineEdit* texte = nullptr;
};

} // namespace

TEST_F(FindStateTest, ItSaysSoInsideTheFieldBehindWhatIsTyped) {
    ouvredialogue();
    texte->setText(u"prix"_s);
    const auto* etat = boite->findChild<QLabel*>(u"lblEtat"_s);
    ASSERT_EQ(etat->parentWidget(), texte);
    EXPECT_TRUE(texte->rect().contains(etat->geometry()));
    EXPECT_GE(etat->width(), etat->sizeHint().width());
    EXPECT_GT(etat->x(), texte->width() / 2);
    EXPECT_GE(texte->textMargins().right(), etat->width());
    EXPECT_FALSE(texte->findChild<QToolButton*>()->geometry().intersects(etat->geometry()));
    const auto encre = [etat] { return etat->palette().color(etat->foregroundRole()); };
    const QColor tranquille = encre();
    texte->setText(u"introuvable"_s);
    EXPECT_NE(encre(), tranquille) << "a warning";
    EXPECT_GE(etat->width(), etat->sizeHint().width());
    texte->clear();
    EXPECT_EQ(texte->textMargins().right(), 0) << "all of it is for the text";
}

TEST_F(FindStateTest, AHitOfAnotherTextStaysSelectedNoLonger) {
    ouvredialogue();
    texte->setText(u"prix"_s);
    presse("cmdFindNext");
    EXPECT_EQ(vue().control().selText(), u"prix");
    texte->setText(u"introuvable"_s);
    EXPECT_EQ(vue().control().selText(), QString());
    // What the user has selected meanwhile is theirs.
    texte->setText(u"prix"_s);
    presse("cmdFindNext");
    vue().setSelStart(0);
    vue().setSelLength(2);
    texte->setText(u"introuvable"_s);
    EXPECT_EQ(vue().control().selText().size(), 2);
}

TEST_F(FindStateTest, ItSaysHowManyThereAreAndWhichOneIsShown) {
    ouvredialogue();
    EXPECT_EQ(dit(), QString());
    texte->setText(u"prix"_s);
    EXPECT_EQ(dit(), u"2 occurrences");
    presse("cmdFindNext");
    EXPECT_EQ(dit(), u"1 sur 2");
    presse("cmdFindNext");
    EXPECT_EQ(dit(), u"2 sur 2");
    presse("cmdFindNext");
    EXPECT_EQ(dialogues.messages.size(), 1u);
    EXPECT_EQ(dit(), u"2 occurrences");
    texte->setText(u"Le prix"_s);
    EXPECT_EQ(dit(), u"1 occurrence");
    texte->setText(u"introuvable"_s);
    EXPECT_EQ(dit(), u"Introuvable");
    presse("cmdFindNext");
    EXPECT_EQ(dialogues.messages.size(), 2u) << "the box comes all the same";
    texte->clear();
    EXPECT_EQ(dit(), QString());
}

TEST_F(FindStateTest, TheBoxesChangeWhatIsCounted) {
    ouvredialogue();
    texte->setText(u"Pri"_s);
    EXPECT_EQ(dit(), u"2 occurrences");
    boite->findChild<QAbstractButton*>(u"checkcasse"_s)->setChecked(true);
    EXPECT_EQ(dit(), u"Introuvable");
    boite->findChild<QAbstractButton*>(u"checkcasse"_s)->setChecked(false);
    boite->findChild<QAbstractButton*>(u"checkmot"_s)->setChecked(true);
    EXPECT_EQ(dit(), u"Introuvable");
}

TEST_F(FindStateTest, PreviousGoesBackByItsButtonAndByKeys) {
    ouvredialogue();
    auto* precedent = boite->findChild<QPushButton*>(u"cmdFindPrevious"_s);
    EXPECT_FALSE(precedent->isEnabled());
    texte->setText(u"prix"_s);
    EXPECT_TRUE(precedent->isEnabled());
    presse("cmdFindPrevious");
    EXPECT_EQ(dit(), u"2 sur 2");
    presse("cmdFindPrevious");
    EXPECT_EQ(dit(), u"1 sur 2");
    EXPECT_EQ(vue().selStart(), 3);
    QTest::keyClick(texte, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(dit(), u"2 sur 2");
    QTest::keyClick(texte, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(dit(), u"1 sur 2");
    QTest::keyClick(texte, Qt::Key_F3);
    EXPECT_EQ(dit(), u"2 sur 2");
    QTest::keyClick(texte, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(texte, Qt::Key_Return);
    EXPECT_EQ(dit(), u"2 sur 2") << "one forward";
    EXPECT_TRUE(dialogues.messages.empty());
    texte->setText(u"introuvable"_s);
    presse("cmdFindPrevious");
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(FindStateTest, EveryHitShowsAsLongAsTheDialogDoes) {
    ouvredialogue();
    texte->setText(u"prix"_s);
    EXPECT_EQ(montrees(vue()), 2u);
    boite->reject();
    EXPECT_EQ(montrees(vue()), 0u);
    texte->setText(u"Le prix"_s);
    texte->setText(u"prix"_s);
    EXPECT_EQ(montrees(vue()), 0u) << "a dialog that is not seen shows none";
    programme->cadre().annexes().montrerecherche();
    EXPECT_EQ(montrees(vue()), 2u);
    EXPECT_EQ(dit(), u"2 occurrences");
}

TEST_F(FindStateTest, AnotherDocumentOfTheWindowIsCountedAnew) {
    ouvredialogue();
    texte->setText(u"deux"_s);
    EXPECT_EQ(dit(), u"1 occurrence");
    programme->ouvre(decoupecle(u"CO000002"));
    EXPECT_EQ(dit(), u"2 occurrences");
    EXPECT_EQ(montrees(vue()), 2u);
}

TEST_F(FindStateTest, TheHitsFollowTheActiveWindow) {
    ouvredialogue();
    texte->setText(u"deux"_s);
    const RichTextBox& premiere = vue();
    programme->ouvre(decoupecle(u"JP000007"));
    EXPECT_EQ(dit(), u"2 occurrences");
    EXPECT_EQ(montrees(vue()), 2u);
    EXPECT_EQ(montrees(premiere), 0u);
}

TEST_F(FindStateTest, ItBeginsInACornerOfTheTextAndComesBackWhereItWas) {
    ouvredialogue();
    const QRect texteseul(vue().viewport()->mapToGlobal(QPoint()), vue().viewport()->size());
    EXPECT_LT(boite->frameGeometry().top(), texteseul.center().y());
    EXPECT_GT(boite->frameGeometry().center().x(), texteseul.center().x());
    boite->move(17, 23);
    boite->reject();
    programme->cadre().annexes().montrerecherche();
    EVENTUALLY(boite->pos() == QPoint(17, 23));
}
