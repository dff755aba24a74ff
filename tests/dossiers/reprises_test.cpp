// What is taken back and put back of the items, and the journal of what was lost.
#include "platform/system/files.h"
#include "reprises_support.h"

namespace velm::test {
namespace {

TEST_F(ReprisesTest, ADeletedItemComesBackAtItsPlaceAndIsLostNoMore) {
    choisit(2);
    gestion.supprimer();
    ASSERT_EQ(relu().pertes().size(), 1U);
    EXPECT_EQ(relu().pertes()[0].rangee.titre, u"Directive");
    EXPECT_EQ(relu().pertes()[0].nomdossier, u"Baux");
    EXPECT_EQ(relu().pertes()[0].quand, maintenant);
    EXPECT_EQ(texte(1), u"Baux [1]");
    annule();
    EXPECT_EQ(elements(), avant);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(dossiers()[0].compte, 2);
    EXPECT_EQ(liste.count(), 2);
    EXPECT_TRUE(relu().pertes().empty());
}

TEST_F(ReprisesTest, SeveralChangesAreTakenBackOneAfterTheOther) {
    choisit(1);
    gestion.renommer();
    gestion.apreseditionliste(u"Autre nom"_s);
    const auto renomme = elements();
    choisit(1);
    gestion.bas();
    const auto echange = elements();
    EXPECT_NE(echange, renomme);
    choisit(2);
    gestion.depose(noeud(4));
    const auto deplace = elements();
    EXPECT_NE(deplace, echange);
    EXPECT_EQ(texte(4), u"Vente [2]");
    gestion.active({u"JP000009"_s, u"Arrêt"_s, 0, 0});
    gestion.depose(noeud(4));
    EXPECT_EQ(elements().size(), 4U);
    annule();
    EXPECT_EQ(elements(), deplace);
    EXPECT_EQ(texte(4), u"Vente [2]");
    annule();
    EXPECT_EQ(elements(), echange);
    EXPECT_EQ(texte(4), u"Vente [1]");
    annule();
    EXPECT_EQ(elements(), renomme);
    annule();
    EXPECT_EQ(elements(), avant);
    EXPECT_FALSE(reprises.peutannuler());
    EXPECT_FALSE(reprises.annule().fait);
}

TEST_F(ReprisesTest, WhatAnUndoneStoringTakesAwayCanBeFoundAgain) {
    gestion.active({u"JP000009"_s, u"Arrêt"_s, 0, 0});
    gestion.depose(noeud(4));
    annule();
    ASSERT_EQ(journal.pertes().size(), 1U);
    EXPECT_EQ(journal.pertes()[0].rangee.titre, u"Arrêt");
}

TEST_F(ReprisesTest, WhereTheRowIsGoneNothingHappens) {
    choisit(1);
    gestion.renommer();
    gestion.apreseditionliste(u"Autre nom"_s);
    ASSERT_TRUE(magasin.dbdossiers().execute(u"DELETE FROM données WHERE numart='000001'"_s));
    const auto reste = elements();
    const auto fait = reprises.annule();
    EXPECT_TRUE(fait.echec.ok());
    EXPECT_FALSE(fait.fait);
    EXPECT_EQ(elements(), reste);
}

TEST_F(ReprisesTest, APlaceThatIsTakenMeanwhileIsNotTakenFromAnother) {
    choisit(1);
    gestion.supprimer();
    ajouteelement({1, 1, u"LT000007"_s, u"Lettre"_s, 0, 0});
    annule();
    const auto apres = elements();
    ASSERT_EQ(apres.size(), 4U);
    EXPECT_EQ(apres[0].cle, u"LT000007");
    EXPECT_EQ(apres[2].cle, u"CO000001");
    EXPECT_EQ(apres[2].place, 3);
}

TEST_F(ReprisesTest, ATitleEmptiedAtClosingIsPutBack) {
    choisit(1);
    gestion.renommer();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(elements()[0].titre, QString());
    const JournalDossiers lu = relu();
    ASSERT_EQ(lu.pertes().size(), 1U);
    EXPECT_EQ(lu.pertes()[0].sorte, Perte::Sorte::Titre);
    EXPECT_TRUE(reprises.remet(journal.pertes()[0]).fait);
    EXPECT_EQ(elements(), avant);
    EXPECT_TRUE(relu().pertes().empty());
}

TEST_F(ReprisesTest, ItemsOfADeletedDossierComeBackInADossierOfItsName) {
    clique(1);
    gestion.supprimer();
    EXPECT_TRUE(journal.pertes().empty()) << "only a save deletes";
    ASSERT_TRUE(gestion.ferme());
    ASSERT_EQ(journal.pertes().size(), 2U);
    gestion.charge(true);
    noeuds.select(1);
    EXPECT_EQ(noeud(1), 0);
    EXPECT_TRUE(reprises.remet(journal.pertes()[0]).fait);
    EXPECT_EQ(texte(1), u"Baux [1]");
    EXPECT_TRUE(reprises.remet(journal.pertes()[0]).fait);
    EXPECT_EQ(texte(1), u"Baux [2]");
    EXPECT_EQ(elements(), avant);
    EXPECT_EQ(dossiers()[0].compte, 2);
    EXPECT_TRUE(journal.pertes().empty());
}

TEST_F(ReprisesTest, AnUnsavedDossierLostByAMoveComesBackWithItsItems) {
    clique(1);
    gestion.ajouter();
    const qint64 numero = gestion.arbre().numero(noeuds.selected());
    noeuds.setText(noeuds.selected(), u"Neuf"_s);
    gestion.active({u"JP000009"_s, u"Arrêt"_s, 0, 0});
    gestion.depose(noeud(numero));
    clique(1);
    gestion.bas();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers().size(), 2U);
    ASSERT_EQ(journal.pertes().size(), 1U);
    EXPECT_EQ(journal.pertes()[0].nomdossier, u"Neuf");
    gestion.charge(true);
    noeuds.select(1);
    EXPECT_TRUE(reprises.remet(journal.pertes()[0]).fait);
    EXPECT_EQ(texte(numero), u"Neuf [1]");
    EXPECT_EQ(noeuds.parent(noeud(numero)), noeud(1));
}

TEST_F(ReprisesTest, ADossierThatWasSavedBeforeTheMoveIsNotLost) {
    clique(1);
    gestion.ajouter();
    noeuds.setText(noeuds.selected(), u"Neuf"_s);
    ASSERT_TRUE(gestion.arbre().Sauvearbre().ok());
    clique(1);
    gestion.bas();
    ASSERT_TRUE(gestion.ferme());
    EXPECT_EQ(dossiers().size(), 3U);
    EXPECT_TRUE(journal.pertes().empty());
}

TEST_F(ReprisesTest, AJournalThatCannotBeReadIsNotWrittenOver) {
    const QByteArray autre(4 * JournalDossiers::octetsgardes + 1, 'x');
    ASSERT_TRUE(writeWhole(fichier(), autre).ok());
    journal.ouvre(magasin.cheminbasedossiers());
    EXPECT_TRUE(journal.manque());
    choisit(1);
    gestion.supprimer();
    EXPECT_EQ(elements().size(), 2U);
    EXPECT_EQ(fileSize(fichier()), autre.size());
}

TEST_F(ReprisesTest, AChangeThatFailedAtItsEndIsNoLossAndNoStep) {
    const RangeeRangee rangee{1, 1, {u"CO"_s, u"000001"_s}, u"Article un"_s, {}};
    reprises.vachanger({{{rangee, std::nullopt}}, {}, true});
    EXPECT_EQ(relu().pertes().size(), 1U) << "noted before the store has it";
    reprises.change(false);
    EXPECT_TRUE(relu().pertes().empty());
    EXPECT_FALSE(reprises.peutannuler());
}

TEST_F(ReprisesTest, WhatIsOlderThanThirtyDaysIsForgotten) {
    choisit(1);
    gestion.supprimer();
    maintenant = maintenant.addDays(30);
    EXPECT_EQ(relu().pertes().size(), 1U);
    maintenant = maintenant.addSecs(1);
    EXPECT_TRUE(relu().pertes().empty());
}

TEST_F(ReprisesTest, TheJournalStaysSmallAndForgetsTheOldestFirst) {
    const QString long_ = QString(60000, u'x');
    for (int i = 0; i < 50; ++i)
        journal.note({{{}, Perte::Sorte::Element, {1, i, {u"CO"_s, u"000001"_s}, long_, {}}, {}, 0, {}}});
    EXPECT_LE(*fileSize(fichier()), JournalDossiers::octetsgardes);
    EXPECT_EQ(journal.pertes().back().rangee.noordre, 49);
    EXPECT_GT(journal.pertes().front().rangee.noordre, 0);
    EXPECT_EQ(relu().pertes().size(), journal.pertes().size());
}

TEST_F(ReprisesTest, LinesThatAreNoneArePassedOver) {
    choisit(1);
    gestion.supprimer();
    QByteArray lu = readPlain(fichier()).bytes;
    ASSERT_TRUE(writeWhole(fichier(), QByteArray("{\n\0[]\n{\"sorte\":0}\n", 18) + lu + lu.left(20)).ok());
    const JournalDossiers autre = relu();
    EXPECT_EQ(autre.pertes().size(), 1U);
    EXPECT_FALSE(autre.manque());
}

TEST_F(ReprisesTest, AJournalThatCannotBeWrittenHindersNothing) {
    ASSERT_TRUE(QDir(dossier()).mkdir(u"dossiers-journal.dat"_s));
    EXPECT_FALSE(journal.manque());
    choisit(1);
    gestion.supprimer();
    EXPECT_EQ(elements().size(), 2U);
    EXPECT_TRUE(journal.manque());
    annule();
    EXPECT_EQ(elements(), avant);
}

TEST_F(ReprisesTest, AFileOfAnotherIsLeftAsItIs) {
    const QByteArray autre = "notes de réunion\n\nlundi 9 h\n";
    ASSERT_TRUE(writeWhole(fichier(), autre).ok());
    journal.ouvre(magasin.cheminbasedossiers());
    EXPECT_TRUE(journal.manque());
    choisit(1);
    gestion.supprimer();
    EXPECT_EQ(readPlain(fichier()).bytes, autre);
    EXPECT_EQ(journal.pertes().size(), 1U) << "while the window lasts";
}

TEST_F(ReprisesTest, AJournalTruncatedAnywhereIsReadAsFarAsItGoesAndKeptOn) {
    choisit(2);
    gestion.supprimer();
    choisit(1);
    gestion.supprimer();
    const QByteArray entier = readPlain(fichier()).bytes;
    for (qsizetype reste = 0; reste <= entier.size(); ++reste) {
        ASSERT_TRUE(writeWhole(fichier(), entier.left(reste)).ok());
        JournalDossiers lu = relu();
        EXPECT_LE(lu.pertes().size(), 2U);
        if (reste > 9)
            EXPECT_FALSE(lu.manque()) << reste;
    }
    ASSERT_TRUE(writeWhole(fichier(), entier.chopped(3)).ok());
    JournalDossiers lu = relu();
    ASSERT_EQ(lu.pertes().size(), 1U);
    lu.note({lu.pertes()[0]});
    EXPECT_EQ(relu().pertes().size(), 2U);
}

} // namespace
} // namespace velm::test
