// What is done to the items of a dossier, in the list and in the store.
#include "differences.h"

namespace velm::test {
namespace {

class ContenuTest : public MagasinTest {
protected:
    using Rangees = std::vector<RangeeElement>;

    QString cles() const {
        QStringList toutes;
        for (int i = 1; i <= liste.count(); ++i)
            toutes << liste.key(i);
        return toutes.join(u'|');
    }
    /// Place and document of all rows of a dossier: "1 CO000001, 3 CO000002".
    QString places(qint64 dossier) {
        QStringList toutes;
        for (const RangeeElement& r : elements()) {
            if (r.dossier == dossier)
                toutes << QString::number(r.place) + u' ' + r.cle;
        }
        return toutes.join(u", "_s);
    }

    ListItems liste;
    ContenuDossier contenu{magasin, liste, u"extrait"_s};
};

TEST_F(ContenuTest, ADossierListsItsItemsInTheirOrder) {
    ouvre({}, {{2, 9, u"CO000001"_s, u"neuf"_s, 0, 0},
               {2, 3, u"EU000002"_s, u"trois"_s, 1204, 310},
               {1, 1, u"CO000005"_s, u"avant"_s, 0, 0},
               {3, 1, u"CO000006"_s, u"après"_s, 0, 0}});
    contenu.liste(2);
    EXPECT_EQ(dessinelements(liste), u"EU000002 3 1204 310P|trois [extrait]|EU\nCO000001 9|neuf|CO"_s);
    EXPECT_TRUE(liste.redraw());
    contenu.liste(4);
    EXPECT_EQ(liste.count(), 0);
    contenu.liste(0);
    EXPECT_EQ(liste.count(), 0);
}

TEST_F(ContenuTest, AnExtractAtOffset0IsAnExtract) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 5}, {1, 2, u"CO000001"_s, u"b"_s, 7, 0}});
    contenu.liste(1);
    EXPECT_EQ(dessinelements(liste), u"CO000001 1 0 5P|a [extrait]|CO\nCO000001 2 7 0P|b [extrait]|CO"_s);
}

TEST_F(ContenuTest, ItemsOfTheRootAreListed) {
    ouvre();
    ASSERT_TRUE(contenu.range({u"CO000001"_s, u"a"_s, 0, 0}, 0).ok());
    contenu.liste(0);
    EXPECT_EQ(cles(), u"CO000001 1"_s);
}

// ---- storing

TEST_F(ContenuTest, StoringTakesTheFirstGap) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 3, u"CO000002"_s, u"b"_s, 0, 0}});
    ASSERT_TRUE(contenu.range({u"JP000003"_s, u"c"_s, 0, 0}, 1).ok());
    EXPECT_EQ(places(1), u"1 CO000001, 2 JP000003, 3 CO000002"_s);
    ASSERT_TRUE(contenu.range({u"JP000004"_s, u"d"_s, 0, 0}, 1).ok());
    EXPECT_EQ(places(1), u"1 CO000001, 2 JP000003, 3 CO000002, 4 JP000004"_s);
}

TEST_F(ContenuTest, StoringTwiceGivesTwoRows) {
    ouvre();
    const ElementEnAttente element{u"CO000001"_s, u"Titre"_s, 12, 34};
    ASSERT_TRUE(contenu.range(element, 1).ok() && contenu.range(element, 1).ok());
    EXPECT_EQ(elements(),
              (Rangees{{1, 1, u"CO000001"_s, u"Titre"_s, 12, 34}, {1, 2, u"CO000001"_s, u"Titre"_s, 12, 34}}));
}

TEST_F(ContenuTest, StoringWithoutASelectionStoresTheWhole) {
    ouvre();
    ASSERT_TRUE(contenu.range({u"CO000001"_s, u"Titre"_s, 0, 0}, 1).ok());
    EXPECT_EQ(elements(), (Rangees{{1, 1, u"CO000001"_s, u"Titre"_s, 0, 0}}));
    contenu.liste(1);
    EXPECT_EQ(dessinelements(liste), u"CO000001 1|Titre|CO"_s);
}

TEST_F(ContenuTest, WhatWaitsTakesTheFirstKeyThatTheListDoesNotHave) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000001"_s, u"a"_s, 0, 0}});
    contenu.liste(1);
    contenu.ajouteenattente({u"CO000001"_s, u"Titre"_s, 0, 0});
    contenu.ajouteenattente({u"CO000001"_s, u"Titre"_s, 0, 5});
    EXPECT_EQ(dessinelements(liste), u"CO000001 1|a|CO\nCO000001 2|a|CO\nCO000001 3|Titre|CO\n"
                                     "CO000001 1 0 5P|Titre [extrait]|CO"_s);
    EXPECT_EQ(elements().size(), 2U) << "nothing is stored yet";
}

// ---- renaming

TEST_F(ContenuTest, RenamingAnItemStoresTheBareTitle) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000001"_s, u"b"_s, 3, 4}});
    contenu.liste(1);
    QString texte = u"Autre"_s;
    EXPECT_TRUE(contenu.renomme(1, texte).trouve);
    EXPECT_EQ(texte, u"Autre"_s);
    EXPECT_TRUE(contenu.renomme(2, texte).trouve);
    EXPECT_EQ(texte, u"Autre [extrait]"_s);
    EXPECT_EQ(elements(), (Rangees{{1, 1, u"CO000001"_s, u"Autre"_s, 0, 0}, {1, 2, u"CO000001"_s, u"Autre"_s, 3, 4}}));
}

TEST_F(ContenuTest, TheTitleToEditIsBare) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000001"_s, u"b"_s, 3, 4}});
    contenu.liste(1);
    EXPECT_EQ(contenu.titrenu(1), u"a"_s);
    EXPECT_EQ(contenu.titrenu(2), u"b"_s);
    liste.setText(2, u"court"_s);
    EXPECT_EQ(contenu.titrenu(2), QString());
}

TEST_F(ContenuTest, RenamingWhatIsNotFoundStoresNothing) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}});
    contenu.liste(1);
    liste.setKey(1, u"CO000001 7"_s);
    QString texte = u"Autre"_s;
    const auto fait = contenu.renomme(1, texte);
    EXPECT_TRUE(fait.echec.ok());
    EXPECT_FALSE(fait.trouve);
    EXPECT_EQ(elements().front().titre, u"a"_s);
}

TEST_F(ContenuTest, TheFirstRowOfADocumentAtAPlaceIsFoundInWhateverDossier) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {2, 1, u"CO000001"_s, u"b"_s, 0, 0}});
    contenu.liste(2);
    QString texte = u"Autre"_s;
    EXPECT_TRUE(contenu.renomme(1, texte).trouve);
    EXPECT_EQ(elements(), (Rangees{{1, 1, u"CO000001"_s, u"Autre"_s, 0, 0}, {2, 1, u"CO000001"_s, u"b"_s, 0, 0}}));
}

// ---- deleting

TEST_F(ContenuTest, DeletingAnItemLowersTheStoredCount) {
    ouvre({{1, 0, 1, u"un"_s, 2}, {2, 0, 2, u"deux"_s, 5}},
          {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    EXPECT_TRUE(contenu.supprime(1, 1).trouve);
    EXPECT_EQ(cles(), u"CO000002 2"_s);
    EXPECT_EQ(places(1), u"2 CO000002"_s);
    EXPECT_EQ(dossiers(), (std::vector<RangeeDossier>{{1, 0, 1, u"un"_s, 1}, {2, 0, 2, u"deux"_s, 5}}));
    EXPECT_TRUE(contenu.supprime(1, 99).trouve) << "of a dossier without a row";
    EXPECT_TRUE(elements().empty());
}

TEST_F(ContenuTest, DeletingWhatIsNotFoundChangesNothing) {
    ouvre({{1, 0, 1, u"un"_s, 2}}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}});
    contenu.liste(1);
    liste.setKey(1, u"CO000009 1"_s);
    const auto fait = contenu.supprime(1, 1);
    EXPECT_TRUE(fait.echec.ok());
    EXPECT_FALSE(fait.trouve);
    EXPECT_EQ(liste.count(), 1);
    EXPECT_EQ(elements().size(), 1U);
    EXPECT_EQ(dossiers().front().compte, 2);
}

// ---- exchanging

TEST_F(ContenuTest, ExchangingTwoItemsKeepsTheExtractsTailWithItsItem) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"EU000002"_s, u"b"_s, 1204, 310}});
    contenu.liste(1);
    EXPECT_TRUE(contenu.echange(1, 2).trouve);
    EXPECT_EQ(dessinelements(liste), u"EU000002 1 1204 310P|b [extrait]|EU\nCO000001 2|a|CO"_s);
    EXPECT_EQ(liste.selected(), 2);
    EXPECT_EQ(elements(), (Rangees{{1, 1, u"EU000002"_s, u"b"_s, 1204, 310}, {1, 2, u"CO000001"_s, u"a"_s, 0, 0}}));
    EXPECT_TRUE(contenu.echange(2, 1).trouve);
    EXPECT_EQ(dessinelements(liste), u"CO000001 1|a|CO\nEU000002 2 1204 310P|b [extrait]|EU"_s);
    EXPECT_EQ(liste.selected(), 1);
    EXPECT_EQ(places(1), u"1 CO000001, 2 EU000002"_s);
}

TEST_F(ContenuTest, GapsBetweenPlacesStay) {
    ouvre({}, {{1, 4, u"CO000001"_s, u"a"_s, 0, 0}, {1, 9, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    EXPECT_TRUE(contenu.echange(2, 1).trouve);
    EXPECT_EQ(cles(), u"CO000002 4|CO000001 9"_s);
    EXPECT_EQ(places(1), u"4 CO000002, 9 CO000001"_s);
}

TEST_F(ContenuTest, AnExchangeThatFindsNoRowChangesNothing) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.setKey(1, u"CO000001 5"_s));
    const auto fait = contenu.echange(1, 2);
    EXPECT_TRUE(fait.echec.ok());
    EXPECT_FALSE(fait.trouve);
    EXPECT_EQ(cles(), u"CO000001 5|CO000002 2"_s);
    EXPECT_EQ(places(1), u"1 CO000001, 2 CO000002"_s);
}

TEST_F(ContenuTest, OfAnExchangeTheSecondRowMayBeMissing) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.setKey(2, u"CO000002 5"_s));
    EXPECT_TRUE(contenu.echange(1, 2).trouve);
    EXPECT_EQ(cles(), u"CO000002 5|CO000001 5"_s);
    EXPECT_EQ(places(1), u"2 CO000002, 5 CO000001"_s);
}

TEST_F(ContenuTest, AnExchangeThatIsRefusedChangesNothing) {
    // The key of the second leads to a row of another dossier, and its place is taken in the first one.
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0},
               {1, 3, u"CO000003"_s, u"c"_s, 0, 0},
               {2, 3, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.setKey(2, u"CO000002 3"_s));
    const Rangees avant = elements();
    const auto fait = contenu.echange(1, 2);
    EXPECT_EQ(fait.echec.obstacle, Obstacle::Exists);
    EXPECT_EQ(elements(), avant);
    EXPECT_EQ(cles(), u"CO000001 1|CO000002 3"_s);
    EXPECT_EQ(liste.text(1), u"a"_s);
}

TEST_F(ContenuTest, AnEntryWhoseNewKeyTheListHasKeepsItsOwn) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.add(0, u"CO000001 2"_s, u"d'un fichier"_s, u"CO"_s));
    EXPECT_TRUE(contenu.echange(1, 2).trouve);
    EXPECT_EQ(cles(), u"CO000002 1|CO000001 1|CO000001 2"_s);
    EXPECT_EQ(places(1), u"1 CO000002, 2 CO000001"_s);
}

// ---- to another dossier

TEST_F(ContenuTest, ADroppedDocumentMovesToTheFirstFreePlace) {
    ouvre({}, {{1, 2, u"CO000001"_s, u"a"_s, 0, 0},
               {2, 1, u"CO000002"_s, u"b"_s, 0, 0},
               {2, 3, u"CO000003"_s, u"c"_s, 0, 0}});
    contenu.liste(1);
    EXPECT_TRUE(contenu.deplace(1, 2).trouve);
    EXPECT_EQ(liste.count(), 0);
    EXPECT_EQ(places(1), QString());
    EXPECT_EQ(places(2), u"1 CO000002, 2 CO000001, 3 CO000003"_s);
}

TEST_F(ContenuTest, ADroppedExtractStaysInItsDossierButLeavesTheList) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 5, 6}});
    contenu.liste(1);
    const auto fait = contenu.deplace(1, 2);
    EXPECT_TRUE(fait.echec.ok());
    EXPECT_FALSE(fait.trouve);
    EXPECT_EQ(liste.count(), 0);
    EXPECT_EQ(places(1), u"1 CO000001"_s);
}

TEST_F(ContenuTest, ADocumentDroppedOnItsOwnDossierTakesTheFirstPlaceThatIsFreeOrItsOwn) {
    ouvre({}, {{1, 2, u"CO000001"_s, u"a"_s, 0, 0}, {1, 3, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    EXPECT_TRUE(contenu.deplace(2, 1).trouve);
    EXPECT_EQ(places(1), u"1 CO000002, 2 CO000001"_s);
    contenu.liste(1);
    EXPECT_TRUE(contenu.deplace(2, 1).trouve);
    EXPECT_EQ(places(1), u"1 CO000002, 2 CO000001"_s) << "its own";
}

TEST_F(ContenuTest, TheRowOfTheSameDocumentAtTheSamePlaceElsewhereMayBeTheOneThatMoves) {
    ouvre({}, {{1, 1, u"CO000001"_s, u"a"_s, 0, 0}, {2, 1, u"CO000001"_s, u"b"_s, 0, 0}});
    contenu.liste(2);
    EXPECT_TRUE(contenu.deplace(1, 3).trouve);
    EXPECT_EQ(elements(), (Rangees{{2, 1, u"CO000001"_s, u"b"_s, 0, 0}, {3, 1, u"CO000001"_s, u"a"_s, 0, 0}}));
}

TEST_F(ContenuTest, OnlyRowsOfTheDocumentAreLookedAtForAMove) {
    ouvre({}, {{1, 7, u"CO000001"_s, u"a"_s, 0, 0}, {1, 2, u"CO000002"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.setKey(1, u"CO000001 2"_s));
    EXPECT_FALSE(contenu.deplace(1, 2).trouve);
    EXPECT_EQ(places(1), u"2 CO000002, 7 CO000001"_s);
}

TEST_F(ContenuTest, RowsOfAnotherCollectionWithTheSameNumberAreNotLookedAtForAMove) {
    ouvre({}, {{1, 7, u"CO000001"_s, u"a"_s, 0, 0}, {1, 3, u"EU000001"_s, u"b"_s, 0, 0}});
    contenu.liste(1);
    ASSERT_TRUE(liste.setKey(2, u"CO000001 3"_s));
    EXPECT_FALSE(contenu.deplace(2, 2).trouve);
    EXPECT_EQ(places(2), QString());
}

// ---- from a file

TEST_F(ContenuTest, WhatAFileBringsGetsNewPlacesAndKeepsItsTextAsItStands) {
    ouvre();
    ASSERT_TRUE(contenu.importe({{u"CO000001 7"_s, u"a"_s}, {u"EU000002 9 12 34P"_s, u"b [extrait]"_s}}, 5).ok());
    EXPECT_EQ(elements(),
              (Rangees{{5, 1, u"CO000001"_s, u"a"_s, 0, 0}, {5, 2, u"EU000002"_s, u"b [extrait]"_s, 12, 34}}));
    contenu.liste(5);
    EXPECT_EQ(liste.text(2), u"b [extrait] [extrait]"_s) << "the word is doubled";
}

TEST_F(ContenuTest, AnImportThatIsRefusedStoresNothing) {
    ouvre({}, {{5, 2, u"CO000009"_s, u"x"_s, 0, 0}});
    EXPECT_EQ(contenu.importe({{u"CO000001 1"_s, u"a"_s}, {u"CO000002 2"_s, u"b"_s}}, 5).obstacle, Obstacle::Exists);
    EXPECT_EQ(places(5), u"2 CO000009"_s);
}

} // namespace
} // namespace velm::test
