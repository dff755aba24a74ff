#include "document/ui/frmproperties.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

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
    QString champ(const QString& nom, int rang = 0) const {
        return boite->findChildren<QLineEdit*>(nom).value(rang)->text();
    }
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

TEST_F(ProprietesTest, AllFieldsCanBeSelectedAndNoneChanged) {
    montre("CO000001");
    const QList<QLineEdit*> champs = boite->findChildren<QLineEdit*>();
    EXPECT_GT(champs.size(), 8);
    for (QLineEdit* celui : champs) {
        EXPECT_TRUE(celui->isReadOnly()) << celui->objectName().toStdString();
        EXPECT_TRUE(celui->isEnabled()) << celui->objectName().toStdString();
        EXPECT_FALSE(celui->accessibleName().isEmpty()) << celui->objectName().toStdString();
    }
    auto* collection = boite->findChild<QComboBox*>(u"choixtype"_s);
    QTest::keyClick(collection->lineEdit(), Qt::Key_Down);
    QTest::keyClick(collection, Qt::Key_Down);
    QTest::mouseClick(collection->lineEdit(), Qt::LeftButton);
    EXPECT_EQ(collection->currentIndex(), 0);
    collection->lineEdit()->selectAll();
    EXPECT_EQ(collection->lineEdit()->selectedText(), u"Code de la consommation");
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
    EXPECT_TRUE(boite->arbre().viewport()->rect().intersects(
        boite->arbre().visualRect(boite->arbre().indexOf(noeuds.selected()))));
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

TEST_F(ProprietesTest, EscapeClosesAndTheSizeIsKept) {
    frmproperties& premiere = montre("CO000001");
    premiere.resize(700, 660);
    QTest::keyClick(&premiere, Qt::Key_Escape);
    EVENTUALLY(boite.isNull());
    EXPECT_EQ(montre("CO000001").size(), QSize(700, 660));
}

TEST_F(ProprietesTest, AStoredSizeOffAnyScreenIsBounded) {
    banc->met(u"PROPRIETESWIDTH"_s, u"99999999999"_s);
    banc->met(u"PROPRIETESHEIGHT"_s, u"rien"_s);
    const frmproperties& celle = montre("CO000001");
    EXPECT_LE(celle.width(), celle.screen()->availableSize().width());
    EXPECT_GE(celle.height(), celle.minimumSizeHint().height());
}
