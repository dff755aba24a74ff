#include "core/listes.h"
#include "search/listeselection.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QString texte(Texte lequel) {
    switch (const int id = static_cast<int>(lequel)) {
    case 2171:
        return u"document"_s;
    case 2172:
        return u"documents"_s;
    default:
        return u"t%1"_s.arg(id);
    }
}

class ListeSelectionTest : public testing::Test {
protected:
    bool ajoute(const QString& cle, const QString& titre, const QString& motcle = u"m"_s) {
        const QString reference = cle.left(2);
        const QString numart = cle.mid(2);
        return lignes.ajoute({reference, numart, titre, motcle, u"m2", u"m3", cle});
    }
    QStringList titres() const {
        QStringList tous;
        for (int rang = 1; rang < liste.rows(); ++rang)
            tous << liste.champ(rang, ListeSelection::Titre);
        return tous;
    }
    QStringList ligne(int rang) const {
        QStringList cellules;
        for (int colonne = 0; colonne < ListeSelection::nombredecolonnes; ++colonne)
            cellules << liste.texte(rang, colonne);
        return cellules;
    }
    ListeSelection liste{texte};
    Lignes& lignes = liste.resultat().lignes;
};

} // namespace

TEST_F(ListeSelectionTest, TheListStartsWithItsHeaderOnly) {
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(liste.row(), 0);
}

TEST_F(ListeSelectionTest, WidthsOrderAndHeadersComeFromTheMasks) {
    const std::vector<int> largeurs{3000, 2000, 2000, 2000, 500, 1000, 0};
    const std::vector<int> champs{0, 1, 2, 3, 5, 4, 6};
    for (int i = 0; i < ListeSelection::nombredecolonnes; ++i) {
        EXPECT_EQ(liste.colonnes().largeur(i), largeurs[static_cast<std::size_t>(i)]);
        EXPECT_EQ(liste.colonnes().champ(i), champs[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(ligne(0),
              QStringList({u"t300"_s, u"t301"_s, u"t302"_s, u"t303"_s, QString(u""_s), u"t304"_s, QString(u""_s)}));
    EXPECT_EQ(liste.colonnes().champ(-1), -1);
    EXPECT_EQ(liste.colonnes().champ(7), -1);
}

TEST_F(ListeSelectionTest, ARowIsFilledByMeaningAfterColumnsWereMoved) {
    ajoute(u"CO000001"_s, u"Avant"_s);
    liste.colonnes().deplace(0, 5);
    ajoute(u"EU000002"_s, u"Après"_s);
    EXPECT_EQ(ligne(0),
              QStringList({u"t301"_s, u"t302"_s, u"t303"_s, QString(u""_s), u"t304"_s, u"t300"_s, QString(u""_s)}));
    EXPECT_EQ(ligne(1), QStringList({u"m"_s, u"m2"_s, u"m3"_s, u"CO"_s, u"000001"_s, u"Avant"_s, u"CO000001"_s}));
    EXPECT_EQ(ligne(2), QStringList({u"m"_s, u"m2"_s, u"m3"_s, u"EU"_s, u"000002"_s, u"Après"_s, u"EU000002"_s}));
    EXPECT_EQ(liste.colonnes().champ(5), ListeSelection::Titre);
    EXPECT_EQ(liste.colonnes().largeur(5), 3000);
    liste.colonnes().deplace(5, 0);
    EXPECT_EQ(liste.colonnes().champ(0), ListeSelection::Titre);
    EXPECT_EQ(liste.colonnes().champ(5), ListeSelection::Numart);
    // The key and places that are none stay where they are.
    liste.colonnes().deplace(6, 0);
    liste.colonnes().deplace(0, 6);
    liste.colonnes().deplace(-1, 0);
    EXPECT_EQ(liste.colonnes().champ(6), ListeSelection::Clef);
    EXPECT_EQ(liste.colonnes().champ(0), ListeSelection::Titre);
}

TEST_F(ListeSelectionTest, AFullListTakesNoRow) {
    lignes.limite(1);
    EXPECT_TRUE(ajoute(u"CO000001"_s, u"Un"_s));
    EXPECT_FALSE(ajoute(u"CO000002"_s, u"Deux"_s));
    EXPECT_EQ(liste.rows(), 2);
}

TEST_F(ListeSelectionTest, CellsOutsideTheListAreEmpty) {
    ajoute(u"CO000001"_s, u"Un"_s);
    for (const int rang : {-1, 2, 1000})
        EXPECT_TRUE(liste.texte(rang, 0).isEmpty());
    EXPECT_TRUE(liste.texte(1, -1).isEmpty());
    EXPECT_TRUE(liste.texte(1, 7).isEmpty());
}

TEST_F(ListeSelectionTest, RowsAreSortedBothWaysAndTheColumnBearsItsMark) {
    for (const QString& titre : {u"église"_s, u"Zoo"_s, u"eglise"_s, u"Abri"_s, u"ZOO"_s})
        ajoute(u"CO000001"_s, titre);
    liste.trie(0, false);
    EXPECT_EQ(titres(), QStringList({u"Abri"_s, u"eglise"_s, u"église"_s, u"Zoo"_s, u"ZOO"_s}));
    EXPECT_EQ(liste.entetecellule(0), u"t300>");
    liste.trie(0, true);
    EXPECT_EQ(titres(), QStringList({u"Zoo"_s, u"ZOO"_s, u"église"_s, u"eglise"_s, u"Abri"_s}));
    EXPECT_EQ(liste.entetecellule(0), u"t300<");
}

TEST_F(ListeSelectionTest, NumbersSortAsText) {
    for (const QString& titre : {u"9"_s, u"10"_s, u"100"_s, u"2"_s})
        ajoute(u"CO000001"_s, titre);
    liste.trie(0, false);
    EXPECT_EQ(titres(), QStringList({u"10"_s, u"100"_s, u"2"_s, u"9"_s}));
}

TEST_F(ListeSelectionTest, OnlyOneHeaderBearsAMarkAndItMovesWithItsColumn) {
    ajoute(u"CO000001"_s, u"Un"_s);
    liste.trie(1, false);
    liste.trie(4, false);
    for (int i = 0; i < ListeSelection::nombredecolonnes; ++i)
        EXPECT_EQ(liste.marque(i) != ListeSelection::Marque::Aucune, i == 4) << i;
    EXPECT_EQ(liste.entetecellule(4), u">");
    liste.colonnes().deplace(4, 0);
    EXPECT_EQ(liste.entetecellule(0), u">");
    liste.effacemarquestri();
    EXPECT_TRUE(liste.entetecellule(0).isEmpty());
}

TEST_F(ListeSelectionTest, TheSelectedRowStaysSelectedWhereTheSortPutsIt) {
    ajoute(u"CO000001"_s, u"b"_s);
    ajoute(u"CO000002"_s, u"a"_s);
    liste.choisit(1, 1);
    liste.trie(0, false);
    EXPECT_EQ(liste.row(), 2);
    EXPECT_EQ(liste.rowsel(), 2);
    EXPECT_EQ(liste.cle(liste.row()), u"CO000001");
}

TEST_F(ListeSelectionTest, TheNextRowStopsAtTheLastThePreviousAtTheFirst) {
    EXPECT_FALSE(liste.suivantrecherche());
    EXPECT_FALSE(liste.precedentrecherche());
    for (const QString& cle : {u"CO000001"_s, u"CO000002"_s, u"CO000003"_s})
        ajoute(cle, cle);
    EXPECT_TRUE(liste.suivantrecherche());
    EXPECT_EQ(liste.row(), 1);
    EXPECT_FALSE(liste.precedentrecherche());
    liste.choisit(1, 3);
    EXPECT_TRUE(liste.suivantrecherche());
    EXPECT_EQ(liste.rangschoisis(), std::pair(2, 2));
    EXPECT_TRUE(liste.suivantrecherche());
    EXPECT_FALSE(liste.suivantrecherche());
    EXPECT_EQ(liste.row(), 3);
    EXPECT_TRUE(liste.precedentrecherche());
    EXPECT_EQ(liste.row(), 2);
}

TEST_F(ListeSelectionTest, RemovingRowsMovesTheOthersUp) {
    for (const QString& titre : {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s})
        ajoute(u"CO000001"_s, titre);
    liste.choisit(3, 2);
    liste.supprimeselection();
    EXPECT_EQ(titres(), QStringList({u"a"_s, u"d"_s, u"e"_s}));
    EXPECT_EQ(liste.row(), 2);
    lignes.supprime({3});
    EXPECT_EQ(titres(), QStringList({u"a"_s, u"d"_s}));
    // Rows that come later do not mix with what was removed.
    ajoute(u"CO000009"_s, u"f"_s);
    EXPECT_EQ(titres(), QStringList({u"a"_s, u"d"_s, u"f"_s}));
    EXPECT_EQ(liste.cle(3), u"CO000009");
}

TEST_F(ListeSelectionTest, ManyRowsGoAtOnce) {
    for (const QString& titre : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
        ajoute(u"CO000001"_s, titre);
    liste.choisit(4, 4);
    lignes.supprime({1, 3});
    EXPECT_EQ(titres(), QStringList({u"b"_s, u"d"_s}));
    EXPECT_EQ(liste.row(), 2);
    EXPECT_EQ(liste.rangschoisis(), std::pair(2, 2));
    EXPECT_FALSE(liste.suivantrecherche());
    lignes.supprime({1, 2});
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(liste.row(), 0);
}

TEST_F(ListeSelectionTest, RemovingAllRowsLeavesTheHeader) {
    ajoute(u"CO000001"_s, u"a"_s);
    ajoute(u"CO000002"_s, u"b"_s);
    liste.choisit(1, 2);
    liste.supprimeselection();
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(textecompte(liste.lignes(), texte), u" 0 document");
    liste.supprimeselection();
    ajoute(u"CO000003"_s, u"c"_s);
    lignes.supprime({1});
    EXPECT_EQ(liste.rows(), 1);
}

TEST_F(ListeSelectionTest, GroupingAndCriteriaButtonsChangeTheirToolTips) {
    EXPECT_EQ(infobulleregrouper(true), Texte{2608});
    EXPECT_EQ(infobulleregrouper(false), Texte{2605});
    EXPECT_EQ(infobullecriteres(true), Texte{2431});
    EXPECT_EQ(infobullecriteres(false), Texte{2430});
}

TEST_F(ListeSelectionTest, AGridSeesTheColumnsAtTheirFirstPlaces) {
    ajoute(u"CO000001"_s, u"b"_s);
    ajoute(u"EU000002"_s, u"a"_s);
    const auto source = liste.source();
    liste.colonnes().deplace(0, 5);
    EXPECT_EQ(source->rowCount(), 2);
    EXPECT_EQ(source->text(0, 0), u"b");
    EXPECT_EQ(source->text(0, 4), u"CO");
    EXPECT_EQ(source->text(0, 5), u"000001");
    EXPECT_EQ(source->text(1, 6), u"EU000002");
    EXPECT_EQ(source->cle(1), (Cle{u"EU"_s, u"000002"_s}));
    EXPECT_TRUE(source->cle(2).vide());
    EXPECT_TRUE(source->text(0, -1).isEmpty());
    EXPECT_TRUE(source->text(2, 0).isEmpty());
    EXPECT_TRUE(source->text(0, 7).isEmpty());
    EXPECT_TRUE(source->sort(0, false));
    EXPECT_EQ(source->text(0, 0), u"a");
    EXPECT_EQ(liste.marque(5), ListeSelection::Marque::Ascendante);
    EXPECT_FALSE(source->sort(9, false));
}

TEST_F(ListeSelectionTest, OrderAndWidthsAreTakenBackAsTheyWereStored) {
    liste.colonnes().deplace(0, 3);
    liste.colonnes().changelargeur(0, 1234);
    EXPECT_EQ(liste.colonnes().ordre(), u"123054"_s);
    EXPECT_EQ(liste.colonnes().largeurs(), u"001234002000002000003000000500001000"_s);
    ListeSelection autre(texte);
    autre.colonnes().prend(liste.colonnes().ordre(), liste.colonnes().largeurs());
    EXPECT_EQ(autre.colonnes().ordre(), liste.colonnes().ordre());
    EXPECT_EQ(autre.colonnes().largeurs(), liste.colonnes().largeurs());
    EXPECT_EQ(autre.colonnes().titre(3), liste.colonnes().titre(3));
}

TEST_F(ListeSelectionTest, DamagedOrdersAndWidthsChangeNothing) {
    const QString ordre = liste.colonnes().ordre();
    const QString largeurs = liste.colonnes().largeurs();
    for (const QString& mauvais : {QString(), u"0"_s, u"012344"_s, u"0123546"_s, u"01235x"_s, u"012356"_s})
        liste.colonnes().prend(mauvais, u"000000-00001e99999999999abc"_s);
    EXPECT_EQ(liste.colonnes().ordre(), ordre);
    EXPECT_EQ(liste.colonnes().largeurs(), largeurs);
}
