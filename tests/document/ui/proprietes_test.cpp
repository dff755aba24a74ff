#include "document/ui/frmproperties.h"
#include "document/ui/textelu.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProprietesTest : public test::BaseTextes {
protected:
    /// Opens the dialog from a window, as the button does.
    frmproperties& montre(const char* cle) {
        Textes& fenetre = ouvre(cle);
        presse(fenetre, u"propriétés"_s);
        boite = fenetre.findChild<frmproperties*>();
        return *boite;
    }
    void TearDown() override {
        delete boite.data();
        BaseTextes::TearDown();
    }
    /// Opens the dialog for what is given.
    frmproperties& montre(const DocumentAffiche& document, const QString& titre = u"Titre"_s) {
        Textes& fenetre = ouvre("CO000001");
        presse(fenetre, u"propriétés"_s);
        boite = fenetre.findChild<frmproperties*>();
        boite->hide();
        boite->afficheproprietes(decoupecle(u"CO000001"), titre, document);
        return *boite;
    }
    TexteLu* champlu(const QString& nom, int rang = 0) const { return boite->findChildren<TexteLu*>(nom).value(rang); }
    QString champ(const QString& nom, int rang = 0) const { return champlu(nom, rang)->text(); }
    QPushButton& voir() const { return *boite->findChild<QPushButton*>(u"voirdanslesommaire"_s); }
    int choix(const QString& nom) const { return boite->findChild<QComboBox*>(nom)->currentIndex(); }

    QPointer<frmproperties> boite;
};

} // namespace

TEST_F(ProprietesTest, EveryFieldOfTheDocumentIsShown) {
    montre("CO000001");
    EXPECT_EQ(boite->windowTitle(), banc->langue.lireressource(Texte{1607}));
    EXPECT_EQ(champ(u"référence"_s), u"CO000001");
    EXPECT_EQ(champ(u"numart"_s), u"000001");
    EXPECT_EQ(champ(u"Titre"_s), u"Article premier");
    EXPECT_EQ(champ(u"motcle"_s, 0), u"vente");
    EXPECT_EQ(champ(u"motcle"_s, 1), u"prix");
    EXPECT_EQ(champ(u"motcle"_s, 2), u"");
    EXPECT_EQ(champ(u"Source"_s), u"JO");
    EXPECT_EQ(champ(u"numeroarborescence"_s), u"3");
    for (const auto& nom : {u"datetext"_s, u"datecreation"_s, u"datemodif"_s})
        EXPECT_EQ(champ(nom), u"");
    EXPECT_EQ(boite->findChild<QListWidget*>(u"numerotype"_s)->count(), 2);
}

TEST_F(ProprietesTest, AllTextsCanBeSelectedByMouseAndKeysAndNoneChanged) {
    montre("CO000001");
    const QList<TexteLu*> champs = boite->findChildren<TexteLu*>();
    EXPECT_EQ(champs.size(), 14);
    for (const TexteLu* celui : champs) {
        EXPECT_EQ(celui->textInteractionFlags(), Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        EXPECT_EQ(celui->focusPolicy(), Qt::StrongFocus);
        EXPECT_EQ(celui->frameShape(), QFrame::NoFrame);
        EXPECT_FALSE(celui->accessibleName().isEmpty());
        EXPECT_EQ(celui->accessibleDescription(), celui->text());
    }
    auto* collection = boite->findChild<QComboBox*>(u"choixtype"_s);
    auto* lue = collection->findChild<TexteLu*>();
    for (QWidget* touche : {static_cast<QWidget*>(lue), static_cast<QWidget*>(collection)}) {
        QTest::keyClick(touche, Qt::Key_Down);
        QTest::mouseClick(touche, Qt::LeftButton);
    }
    EXPECT_EQ(collection->currentIndex(), 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(lue->text(), u"Code de la consommation");
}

TEST_F(ProprietesTest, ATextReachedByTheTabKeyIsSelectedUntilItIsLeft) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&montre("CO000001")));
    TexteLu* const titre = champlu(u"Titre"_s);
    titre->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(titre->selectedText(), u"Article premier");
    QTest::keyClick(titre, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"Article premier");
    champlu(u"Source"_s)->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(titre->selectedText(), QString());
    EXPECT_EQ(champlu(u"Source"_s)->selectedText(), QString()) << "a click places the cursor and no more";
}

TEST_F(ProprietesTest, WhatIsEmptyIsLeftOutWithItsName) {
    montre("CO000001");
    for (const auto& nom : {u"Titre"_s, u"Source"_s, u"référence"_s, u"chemin"_s})
        EXPECT_TRUE(champlu(nom)->isVisible()) << nom.toStdString();
    for (const auto& nom : {u"datetext"_s, u"datecreation"_s, u"datemodif"_s})
        EXPECT_FALSE(champlu(nom)->isVisible()) << nom.toStdString();
    EXPECT_TRUE(champlu(u"motcle"_s, 1)->isVisible());
    EXPECT_FALSE(champlu(u"motcle"_s, 2)->isVisible());
    int seuls = 0;
    for (const QLabel* libelle : boite->findChildren<QLabel*>()) {
        if (libelle->buddy() != nullptr && libelle->isVisible() != libelle->buddy()->isVisible())
            ++seuls;
    }
    EXPECT_EQ(seuls, 0);
    DocumentAffiche rempli;
    rempli.datemodif = u"2005-02-18"_s;
    montre(rempli);
    EXPECT_TRUE(champlu(u"datemodif"_s)->isVisible());
    EXPECT_FALSE(champlu(u"Source"_s)->isVisible());
    EXPECT_FALSE(boite->findChild<QComboBox*>(u"combotype"_s)->isVisible());
}

TEST_F(ProprietesTest, DatesAreSaidInWords) {
    DocumentAffiche document;
    document.datetext = u"1993-07-01"_s;
    document.datecreation = u"2005-02-18"_s;
    document.datemodif = u"an II"_s;
    montre(document);
    EXPECT_EQ(champ(u"datetext"_s), u"1er\u00A0juillet 1993");
    EXPECT_EQ(champ(u"datecreation"_s), u"18\u00A0février 2005");
    EXPECT_EQ(champ(u"datemodif"_s), u"an II") << "what is no date stays as it is";
}

TEST_F(ProprietesTest, ThePlaceIsAPathAndTheTreeIsThereWhenItIsWanted) {
    montre("CO000001");
    EXPECT_EQ(champ(u"chemin"_s), u"Code de la consommation › Livre I › Chapitre 1");
    EXPECT_FALSE(boite->arbre().isVisible());
    const QSize avant = boite->size();
    voir().click();
    EXPECT_TRUE(boite->arbre().isVisible());
    EXPECT_GT(boite->height(), avant.height());
    EXPECT_EQ(boite->width(), avant.width());
    const TreeNodes& noeuds = boite->arbre().nodes();
    EXPECT_TRUE(boite->arbre().viewport()->rect().intersects(
        boite->arbre().visualRect(boite->arbre().indexOf(noeuds.selected()))));
    voir().click();
    EXPECT_FALSE(boite->arbre().isVisible());
    EXPECT_EQ(boite->size(), avant);
}

TEST_F(ProprietesTest, ADocumentThatHangsNowhereHasNoPath) {
    montre("JP000007");
    EXPECT_FALSE(champlu(u"chemin"_s)->isVisible());
}

TEST_F(ProprietesTest, ALongTextTakesTheLinesThatItNeedsAndNothingIsCut) {
    DocumentAffiche document;
    document.Source = u"Journal officiel de la République française du 18 février 2005, page 2 "_s.repeated(6);
    montre(document, u"Article relatif à la protection du consommateur "_s.repeated(5));
    for (const auto& nom : {u"Titre"_s, u"Source"_s}) {
        const TexteLu* lu = champlu(nom);
        EXPECT_GT(lu->height(), 2 * lu->fontMetrics().height()) << nom.toStdString();
        EXPECT_GE(lu->height(), lu->heightForWidth(lu->width())) << nom.toStdString();
    }
    EXPECT_EQ(boite->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0) << "all of it is seen";
}

TEST_F(ProprietesTest, TheTabKeyComesRound) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&montre("CO000001")));
    QStringList noms;
    QWidget* const debut = boite->findChild<QPushButton*>(u"Command2"_s);
    debut->setFocus();
    for (int pas = 0; pas < 40; ++pas) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == debut)
            break;
        const QWidget* ici = QApplication::focusWidget();
        noms << (ici->objectName().isEmpty() ? ici->parentWidget()->objectName() : ici->objectName());
    }
    EXPECT_EQ(noms, (QStringList{u"Titre"_s, u"choixtype"_s, u"combotype"_s, u"motcle"_s, u"motcle"_s, u"Source"_s,
                                 u"référence"_s, u"numart"_s, u"numeroarborescence"_s, u"chemin"_s,
                                 u"voirdanslesommaire"_s}));
}

TEST_F(ProprietesTest, ADocumentWithoutAKindLeavesTheComboEmpty) {
    montre("CO000002");
    EXPECT_EQ(choix(u"combotype"_s), -1);
    EXPECT_TRUE(boite->findChild<QComboBox*>(u"combotype"_s)->currentText().isEmpty());
}

TEST_F(ProprietesTest, AKindIsFoundByTheBeginningOfItsLabel) {
    montre("CO000003");
    EXPECT_EQ(boite->findChild<QComboBox*>(u"combotype"_s)->currentText(), u"Loi organique");
}

TEST_F(ProprietesTest, TheCollectionIsSelected) {
    montre("JP000007");
    EXPECT_EQ(choix(u"choixtype"_s), 2);
    EXPECT_EQ(boite->findChild<QComboBox*>(u"choixtype"_s)->count(), 11);
}

TEST_F(ProprietesTest, BranchesOnTheWayAreOpenedAndTheDocumentsLeafIsSelected) {
    montre("CO000001");
    const TreeNodes& noeuds = boite->arbre().nodes();
    ASSERT_NE(noeuds.selected(), 0);
    EXPECT_EQ(noeuds.key(noeuds.selected()), u"@CO000001");
    for (const auto& cle : {u"CO 0"_s, u"CO 1"_s, u"CO 3"_s})
        EXPECT_TRUE(noeuds.expanded(noeuds.indexOf(cle))) << cle.toStdString();
    EXPECT_EQ(boite->arbre().objectName(), u"TreeView1");
}

TEST_F(ProprietesTest, ADocumentWithoutANodeLeavesTheTreeAtItsRoot) {
    montre("JP000007");
    const TreeNodes& noeuds = boite->arbre().nodes();
    EXPECT_EQ(noeuds.key(1), u"JP 0");
}

TEST_F(ProprietesTest, ExpandingABranchOfTheDialogLoadsBelowIt) {
    montre("CO000003");
    TreeView& arbre = boite->arbre();
    for (const auto& cle : {u"CO 0"_s, u"CO 1"_s, u"CO 3"_s})
        arbre.expand(arbre.indexOf(arbre.nodes().indexOf(cle)));
    EXPECT_NE(arbre.nodes().indexOf(u"CO 5"_s), 0);
}

TEST_F(ProprietesTest, AClickOnALeafChangesNothing) {
    montre("CO000001");
    voir().click();
    TreeView& arbre = boite->arbre();
    cliquenoeud(arbre, u"@CO000002"_s);
    EXPECT_EQ(banc->fenetre(0)->referencecourante(), u"CO000001");
    EXPECT_TRUE(boite->isVisible());
}

TEST_F(ProprietesTest, ClosingChangesNothing) {
    montre("CO000001");
    EXPECT_TRUE(boite->isModal());
    QTest::mouseClick(boite->findChild<QPushButton*>(u"Command2"_s), Qt::LeftButton);
    EVENTUALLY(boite.isNull());
    EXPECT_EQ(banc->fenetre(0)->referencecourante(), u"CO000001");
}

TEST_F(ProprietesTest, ItOpensWideEnoughForTheLongLinesOfItsPage) {
    EXPECT_EQ(montre("CO000001").width(), 640) << "a small screen seen at twice its size is 683 wide";
}

TEST_F(ProprietesTest, EscapeClosesAndTheSizeIsKept) {
    frmproperties& premiere = montre("CO000001");
    premiere.resize(700, 660);
    QTest::keyClick(&premiere, Qt::Key_Escape);
    EVENTUALLY(boite.isNull());
    EXPECT_EQ(montre("CO000001").size(), QSize(700, 660));
}

TEST_F(ProprietesTest, AHeightThatNobodyChoseIsThatOfTheNextDocument) {
    frmproperties& premiere = montre("CO000001");
    const int haute = premiere.height();
    voir().click(); // the tree's height is not the dialog's
    QTest::keyClick(&premiere, Qt::Key_Escape);
    EVENTUALLY(boite.isNull());
    EXPECT_LT(montre("JP000007").height(), haute);
}

TEST_F(ProprietesTest, ASmallScreenHasTheDialogWithScrollBars) {
    montre("CO000001").resize(420, 300);
    voir().click();
    EXPECT_LE(boite->minimumSizeHint().height(), 300);
    EXPECT_TRUE(boite->arbre().isVisible());
    EXPECT_GT(boite->findChild<QScrollArea*>()->height(), 40);
}

TEST_F(ProprietesTest, AStoredSizeOffAnyScreenIsBounded) {
    banc->met(u"PROPRIETESWIDTH"_s, u"99999999999"_s);
    banc->met(u"PROPRIETESHEIGHT"_s, u"rien"_s);
    const frmproperties& celle = montre("CO000001");
    EXPECT_LE(celle.width(), celle.screen()->availableSize().width());
    EXPECT_GE(celle.height(), celle.minimumSizeHint().height());
}
