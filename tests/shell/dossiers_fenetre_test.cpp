// The window of the dossiers with real keys and clicks.
#include "dossiers/ui/listedossier.h"
#include "tests/shell/dossiers_support.h"
#include "tests/support/arret.h"

#include <QLabel>

namespace velm::test {
namespace {

TEST_F(DossiersTest, TheFrameOpensThemWithNothingToStore) {
    commence();
    ouvre();
    EXPECT_EQ(fenetre()->windowTitle(), mots(4000).trimmed());
    EXPECT_EQ(ligne(), QString());
    EXPECT_TRUE(arbre().hasFocus());
    EXPECT_EQ(arbre().nodes().text(1), mots(4201));
    EXPECT_TRUE(bouton(u"ajouter"_s).isEnabled());
    EXPECT_FALSE(bouton(u"renommer"_s).isEnabled());
    EXPECT_FALSE(bouton(u"supprimer"_s).isEnabled());
    EXPECT_TRUE(fenetre()->isModal());
    ferme();
}

TEST_F(DossiersTest, WhatIsMadeIsThereWhenTheWindowComesAgainAndInTheNextRun) {
    commence();
    ouvre();
    nouveau(u"Clients"_s);
    nouveau(u"Martin"_s);
    clique(u"Clients"_s);
    nouveau(u"Dupont"_s);
    ferme();
    ouvre();
    const auto voisins = [this] {
        const TreeNodes& noeuds = arbre().nodes();
        EXPECT_EQ(noeuds.parent(noeud(u"Clients"_s)), 1);
        EXPECT_EQ(noeuds.parent(noeud(u"Martin"_s)), noeud(u"Clients"_s));
        EXPECT_EQ(noeuds.next(noeud(u"Martin"_s)), noeud(u"Dupont"_s));
    };
    voisins();
    ferme();
    redemarre();
    ouvre();
    voisins();
    ferme();
}

TEST_F(DossiersTest, ADocumentIsStoredByAClickOnADossier) {
    commence();
    ouvre();
    nouveau(u"Clients"_s);
    ferme();
    range();
    EXPECT_EQ(ligne(), mots(9810, {u"Article premier"_s}));
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    clique(u"Clients"_s);
    EXPECT_EQ(ligne(), QString());
    EXPECT_EQ(texte(u"Clients"_s), u"Clients [1]");
    clique(u"Clients"_s);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    ferme();
}

TEST_F(DossiersTest, ADocumentIsStoredByTheKeysAlone) {
    rangeenfacede(u"A"_s, u"B"_s);
    EXPECT_TRUE(arbre().hasFocus());
    touche(Qt::Key_Down);
    touche(Qt::Key_Down);
    touche(Qt::Key_Return);
    EXPECT_EQ(ligne(), QString());
    EXPECT_EQ(texte(u"A"_s), u"A");
    EXPECT_EQ(texte(u"B"_s), u"B [1]");
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s}) << "the dossier that it fell into is the one that is shown";
    ferme();
}

TEST_F(DossiersTest, EscapeStoresNothingAndTheWindowStays) {
    commence();
    range();
    touche(Qt::Key_Escape);
    ASSERT_NE(fenetre(), nullptr);
    EXPECT_EQ(ligne(), QString());
    EXPECT_FALSE(fenetre()->gestion().attend());
    touche(Qt::Key_Escape);
    EVENTUALLY(fenetre() == nullptr);
}

TEST_F(DossiersTest, WhatWaitsOutlastsALookAtAnotherWindow) {
    commence();
    ouvre();
    nouveau(u"A"_s);
    ferme();
    range();
    QWidget autre;
    autre.show();
    autre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&autre));
    fenetre()->activateWindow();
    EVENTUALLY(fenetre()->isActiveWindow());
    EXPECT_TRUE(fenetre()->gestion().attend());
    clique(u"A"_s);
    EXPECT_EQ(texte(u"A"_s), u"A [1]");
    ferme();
}

TEST_F(DossiersTest, AnExtractIsStoredAndOpensWithItsTextSelected) {
    commence();
    ouvre();
    nouveau(u"A"_s);
    ferme();
    Textes* lue = programme->bureau().active();
    ASSERT_NE(lue, nullptr);
    lue->vue().setSelStart(5);
    lue->vue().setSelLength(9);
    const QString choisi = lue->vue().control().text().mid(lue->vue().selStart(), lue->vue().selLength());
    range();
    clique(u"A"_s);
    clique(u"A"_s);
    ASSERT_EQ(titres(), QStringList{u"Article premier [%1]"_s.arg(mots(4203))});
    ferme();
    voit(u"CO000002"_s);
    ouvre();
    clique(u"A"_s);
    cliqueelement(1);
    QTest::mouseDClick(liste().viewport(), Qt::LeftButton, {}, liste().itemPlace(1).center());
    EVENTUALLY(programme->bureau().active() && programme->bureau().active()->referencecourante() == u"CO000001");
    EXPECT_EQ(fenetre(), nullptr);
    lue = programme->bureau().active();
    EXPECT_EQ(lue->vue().control().text().mid(lue->vue().selStart(), lue->vue().selLength()), choisi);
    EXPECT_TRUE(lue->vue().viewport()->rect().intersects(lue->vue().cursorRect())) << "in sight";
}

TEST_F(DossiersTest, ReturnOnAnItemOpensItsDocument) {
    commence();
    range();
    clique(mots(4201));
    clique(mots(4201));
    ASSERT_EQ(liste().items().count(), 1) << "the root keeps items, too";
    voit(u"JP000007"_s);
    cliqueelement(1);
    touche(Qt::Key_Return);
    EVENTUALLY(programme->bureau().active() && programme->bureau().active()->referencecourante() == u"CO000001");
}

TEST_F(DossiersTest, ItemsAndDossiersAreDragged) {
    rangeenfacede(u"A"_s, u"B"_s);
    clique(u"A"_s);
    clique(u"A"_s);
    tire(*liste().viewport(), liste().itemPlace(1).center(), *arbre().viewport(), milieu(u"B"_s));
    EXPECT_EQ(texte(u"A"_s), u"A");
    EXPECT_EQ(texte(u"B"_s), u"B [1]");
    EXPECT_EQ(liste().items().count(), 0);
    tire(*arbre().viewport(), milieu(u"B"_s), *arbre().viewport(), milieu(u"A"_s));
    EXPECT_EQ(arbre().nodes().parent(noeud(u"B"_s)), noeud(u"A"_s));
    arbre().nodes().setExpanded(noeud(u"A"_s), true);
    dialogues.answers = {Bouton::Ok};
    tire(*arbre().viewport(), milieu(u"A"_s), *arbre().viewport(), milieu(u"B"_s));
    EXPECT_EQ(dialogues.texts(), QStringList{mots(2015)});
    EXPECT_EQ(arbre().nodes().parent(noeud(u"A"_s)), 1);
    ferme();
}

TEST_F(DossiersTest, TheKeysDoWhatTheButtonsDo) {
    commence();
    ouvre();
    touche(Qt::Key_Insert);
    ecrit(u"A"_s);
    clique(mots(4201));
    touche(Qt::Key_Insert);
    ecrit(u"B"_s);
    touche(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(arbre().nodes().next(noeud(u"B"_s)), noeud(u"A"_s));
    touche(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(arbre().nodes().next(noeud(u"A"_s)), noeud(u"B"_s));
    touche(Qt::Key_F2);
    ecrit(u"C"_s);
    EXPECT_NE(noeud(u"C"_s), 0);
    touche(Qt::Key_Delete);
    EXPECT_EQ(arbre().nodes().image(noeud(u"C"_s)), u"dossierfermésuppr");
    touche(Qt::Key_Delete);
    EXPECT_EQ(arbre().nodes().image(noeud(u"C"_s)), u"dossierfermé");
    ferme();
}

TEST_F(DossiersTest, ItemsAreRenamedMovedAndDeletedByTheKeys) {
    commence();
    ouvre();
    nouveau(u"A"_s);
    ferme();
    for (const QString& document : {u"CO000001"_s, u"CO000002"_s}) {
        voit(document);
        range();
        clique(u"A"_s);
        ferme();
    }
    ouvre();
    clique(u"A"_s);
    cliqueelement(2);
    touche(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(titres(), (QStringList{u"Article 2"_s, u"Article premier"_s}));
    EXPECT_TRUE(liste().hasFocus());
    touche(Qt::Key_F2);
    ecrit(u"Deux"_s);
    EXPECT_EQ(titres(), (QStringList{u"Deux"_s, u"Article premier"_s}));
    touche(Qt::Key_Delete);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    EXPECT_EQ(texte(u"A"_s), u"A [1]");
    ferme();
    ouvre();
    clique(u"A"_s);
    EXPECT_EQ(titres(), QStringList{u"Article premier"_s});
    ferme();
}

TEST_F(DossiersTest, ATitleThatIsBeingEditedWhenTheWindowClosesIsEmptied) {
    commence();
    range();
    clique(mots(4201));
    clique(mots(4201));
    cliqueelement(1);
    touche(Qt::Key_F2);
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    fenetre()->close();
    EVENTUALLY(fenetre() == nullptr);
    ouvre();
    clique(mots(4201));
    EXPECT_EQ(titres(), QStringList{QString()});
    ferme();
}

TEST_F(DossiersTest, TheSelectionStaysWhereALabelIsEdited) {
    commence();
    ouvre();
    nouveau(u"A"_s);
    clique(mots(4201));
    nouveau(u"B"_s);
    presse(u"renommer"_s);
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    EXPECT_EQ(arbre().nodes().selected(), noeud(u"B"_s));
    touche(Qt::Key_Escape);
    ASSERT_NE(fenetre(), nullptr) << "the key was the label's";
    EXPECT_NE(noeud(u"B"_s), 0);
    ferme();
}

TEST_F(DossiersTest, SizeAndSplitAndTheTickAreRemembered) {
    commence();
    ouvre();
    fenetre()->resize(720, 500);
    const int avant = arbre().width();
    QWidget& trait = *fenetre()->findChild<QWidget*>(u"separateur"_s);
    tire(trait, trait.rect().center(), trait, trait.rect().center() + QPoint(60, 0));
    EXPECT_NEAR(arbre().width(), avant + 60, 3);
    const int apres = arbre().width();
    fenetre()->findChild<QAbstractButton*>(u"Checkdeveloppe"_s)->click();
    const bool coche = fenetre()->findChild<QAbstractButton*>(u"Checkdeveloppe"_s)->isChecked();
    ferme();
    redemarre();
    ouvre();
    EXPECT_NEAR(fenetre()->width(), 720, 1);
    EXPECT_NEAR(fenetre()->height(), 500, 1);
    EXPECT_NEAR(arbre().width(), apres, 2);
    EXPECT_EQ(fenetre()->findChild<QAbstractButton*>(u"Checkdeveloppe"_s)->isChecked(), coche);
    ferme();
}

TEST_F(DossiersTest, ADocumentThatTheCollectionLacksIsFaintAndSaysSo) {
    commence();
    range();
    clique(mots(4201));
    ferme();
    programme.reset();
    ASSERT_TRUE(QFile::remove(dossier.filePath(u"velm2000.dat"_s)));
    const auto base = Database::create(dossier.filePath(u"velm2000.dat"_s), corpusSchema());
    TableWriter table(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s});
    ASSERT_TRUE(table.add({u"CO"_s, u"000002"_s, u"Article 2"_s}) && table.finish());
    commence(u"CO2"_s);
    ouvre();
    clique(mots(4201));
    ASSERT_EQ(liste().items().count(), 1) << "not hidden";
    EXPECT_TRUE(static_cast<ListeDossier&>(liste()).infobulle(1).contains(mots(9828)));
    ferme();
}

TEST_F(DossiersTest, WithoutAStoreTheCommandIsARunTimeError) {
    ASSERT_TRUE(QFile::remove(dossier.filePath(u"dossiers.dat"_s)));
    commence();
    EXPECT_FALSE(actions().de(Ordre::Ranger).isEnabled());
    const GardeArret garde;
    EXPECT_THROW(programme->dossiers().montre(), Arret);
}

TEST_F(DossiersTest, TheProgramEndsUnderTheWindow) {
    commence();
    ouvre();
    nouveau(u"A"_s);
    presse(u"ajouter"_s); // its label is being edited
    programme.reset();
    commence();
    ouvre();
    EXPECT_NE(noeud(u"A"_s), 0);
    ferme();
}

} // namespace
} // namespace velm::test
