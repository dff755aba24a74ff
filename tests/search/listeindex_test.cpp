// The index: its query, its rows, their order.
#include "platform/base/failure.h"
#include "platform/text/frenchorder.h"
#include "platform/text/letters.h"
#include "tests/search/listes_support.h"

#include <algorithm>
#include <random>

using namespace velm;
using namespace velm::test;

namespace {

class IndexTest : public BaseDates {
protected:
    void trois() {
        ouvre({{u"JP000007"_s, u"Zone"_s, {}, {u"bail"_s}},
               {u"CO000002"_s, u"Élan"_s, {}, {u"vente"_s, u"prix"_s}},
               {u"EU000001"_s, u"eau"_s},
               {u"CO000001"_s, u"Zébre"_s, {}, {u"bail"_s}}});
    }
    enum Place { Code, Numero, Titre, MotCle1, MotCle2, MotCle3, CodeCache, NumeroCache };
};

} // namespace

TEST_F(IndexTest, AllTypesGiveAQueryWithoutACondition) {
    RequeteIndex requete;
    EXPECT_EQ(requete.reselect({}), RequeteIndex::Suite::Nouvelle);
    EXPECT_EQ(requete.source(), u" FROM données"_s);
    trois();
    EXPECT_EQ(cles(*index()), (QStringList{u"CO000001"_s, u"CO000002"_s, u"EU000001"_s, u"JP000007"_s}))
        << "in the order of their keys";
}

TEST_F(IndexTest, SomeTypesGiveAListOfCodes) {
    RequeteIndex requete;
    EXPECT_EQ(requete.reselect(TypesChoisis::decodes(u"JPCO")), RequeteIndex::Suite::Nouvelle);
    EXPECT_EQ(requete.source(), u" FROM données WHERE référence in (\"CO\",\"JP\")"_s) << "in the order of the buttons";
    trois();
    EXPECT_EQ(cles(*index(TypesChoisis::decodes(u"JPCO"))), (QStringList{u"CO000001"_s, u"CO000002"_s, u"JP000007"_s}));
}

TEST_F(IndexTest, NoTypeHidesTheListAndLeavesTheQuery) {
    RequeteIndex requete;
    requete.reselect(TypesChoisis::decodes(u"CO"));
    const QString avant = requete.source();
    EXPECT_EQ(requete.reselect(TypesChoisis::decodes(u"")), RequeteIndex::Suite::Cachee);
    EXPECT_EQ(requete.source(), avant);
    EXPECT_EQ(requete.derniercodes(), u"CO"_s);
}

TEST_F(IndexTest, TheSameChoiceOnlyShowsTheListAgain) {
    RequeteIndex requete;
    requete.reselect(TypesChoisis::decodes(u"CO"));
    requete.reselect(TypesChoisis::decodes(u""));
    EXPECT_EQ(requete.reselect(TypesChoisis::decodes(u"CO")), RequeteIndex::Suite::Inchangee);
    EXPECT_EQ(requete.reselect(TypesChoisis::decodes(u"EU")), RequeteIndex::Suite::Nouvelle);
    // The full set is looked at first.
    EXPECT_EQ(requete.reselect({}), RequeteIndex::Suite::Nouvelle);
    EXPECT_EQ(requete.reselect({}), RequeteIndex::Suite::Nouvelle);
}

TEST_F(IndexTest, TheFieldListDoesNotGrow) {
    RequeteIndex requete;
    for (int fois = 0; fois < 3; ++fois) {
        requete.reselect({});
        EXPECT_EQ(requete.champs(), u"référence,numart,titre,motclé1,motclé2,motclé3,référence,numart"_s);
    }
}

TEST_F(IndexTest, TheHiddenColumnsHoldCodeAndNumber) {
    trois();
    const auto liste = index();
    EXPECT_EQ(liste->text(1, CodeCache), u"CO");
    EXPECT_EQ(liste->text(1, NumeroCache), u"000002");
    const auto colonnes = ListeIndex::modele().colonnes;
    EXPECT_EQ(colonnes.at(CodeCache).largeur, 0);
    EXPECT_EQ(colonnes.at(NumeroCache).largeur, 0);
    EXPECT_EQ(liste->cle(1).texte(), u"CO000002");
}

TEST_F(IndexTest, TheHeaderOfTheCodeColumnIsEmpty) {
    const Colonnes colonnes(ListeIndex::modele(), [](Texte) { return u"titre"_s; });
    EXPECT_EQ(colonnes.titre(0), QString());
    EXPECT_EQ(colonnes.titre(1), u"titre");
    EXPECT_EQ(colonnes.ordre(), u"540123");
    EXPECT_EQ(colonnes.largeurs(), u"000500001000003000002000002000002000");
}

TEST_F(IndexTest, TheColumnsShowTheirFields) {
    trois();
    const auto liste = index();
    QStringList cellules;
    for (int column = Code; column <= MotCle3; ++column)
        cellules << liste->text(1, column);
    EXPECT_EQ(cellules, (QStringList{u"CO"_s, u"000002"_s, u"Élan"_s, u"vente"_s, u"prix"_s, QString()}));
    EXPECT_EQ(liste->text(-1, 0), QString());
    EXPECT_EQ(liste->text(4, 0), QString());
    EXPECT_EQ(liste->text(0, 8), QString());
}

TEST_F(IndexTest, ASortIsInFrenchOrderBothWays) {
    trois();
    const auto liste = index();
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(colonne(*liste, Titre), (QStringList{u"eau"_s, u"Élan"_s, u"Zébre"_s, u"Zone"_s}));
    ASSERT_TRUE(liste->sort(Titre, true));
    EXPECT_EQ(colonne(*liste, Titre), (QStringList{u"Zone"_s, u"Zébre"_s, u"Élan"_s, u"eau"_s}));
    ASSERT_TRUE(liste->sort(MotCle1, false));
    EXPECT_EQ(cles(*liste), (QStringList{u"EU000001"_s, u"JP000007"_s, u"CO000001"_s, u"CO000002"_s}))
        << "rows that equal keep their order";
    EXPECT_FALSE(liste->sort(99, false));
}

TEST_F(IndexTest, SortsAreThoseOfTheTexts) {
    std::mt19937 hasard(7);
    const QStringList mots{u"été"_s, u"Ete"_s, u"zèbre"_s, u"art. 2"_s, u"art. 10"_s, u"Œuvre"_s, u""_s, u"a"_s};
    const auto mot = [&] { return mots.at(static_cast<qsizetype>(hasard() % static_cast<unsigned>(mots.size()))); };
    std::vector<DocumentDate> documents;
    for (int n = 1; n <= 3000; ++n)
        documents.push_back({typedindice(static_cast<int>(hasard() % nombredecollections)) + sixchiffres(n),
                             mot() + u' ' + mot() + QString::number(hasard() % 50),
                             {},
                             {mot(), mot()}});
    ouvre(documents);
    const auto liste = index();
    for (const int column : {int{Titre}, int{MotCle1}, int{Code}, int{MotCle2}}) {
        for (const bool descendant : {false, true}) {
            const QStringList textes = colonne(*liste, column);
            QStringList voulus;
            for (const int row : frenchOrder(
                     liste->rowCount(), [&](int r) { return textes.at(r); }, descendant))
                voulus << textes.at(row).toUpper();
            ASSERT_TRUE(liste->sort(column, descendant));
            QStringList eus;
            for (const QString& un : colonne(*liste, column))
                eus << un.toUpper();
            EXPECT_EQ(eus, voulus) << column << descendant;
            QStringList tous = cles(*liste);
            tous.removeDuplicates();
            EXPECT_EQ(tous.size(), 3000) << "no row is lost";
        }
    }
}

TEST_F(IndexTest, SortsByTitleAreThoseOfALiteralStableSortByKey) {
    std::mt19937 hasard(11);
    const QStringList mots{u"Été"_s, u"ete"_s, u"été"_s, u"Eté 2"_s, u"a"_s, u""_s, u"zèbre"_s};
    std::vector<DocumentDate> documents;
    for (int n = 1; n <= 2000; ++n)
        documents.push_back({typedindice(static_cast<int>(hasard() % nombredecollections)) + sixchiffres(n),
                             mots.at(static_cast<qsizetype>(hasard() % static_cast<unsigned>(mots.size())))});
    std::ranges::shuffle(documents, hasard);
    ouvre(documents);
    TypesChoisis certains;
    certains.change(indicedetype(u"EU"_s), false);
    certains.change(indicedetype(u"CO"_s), false);
    for (const TypesChoisis& types : {TypesChoisis(), certains}) {
        const auto liste = index(types);
        std::vector<std::pair<QByteArray, QString>> voulus;
        for (int row = 0; row < liste->rowCount(); ++row)
            voulus.emplace_back(sortKey(liste->text(row, Titre)), liste->cle(row).texte());
        std::ranges::sort(voulus, {}, [](const auto& un) { return un.second; });
        for (const bool descendant : {false, true}) {
            std::vector<std::pair<QByteArray, QString>> tries = voulus;
            std::ranges::stable_sort(tries, [descendant](const auto& un, const auto& autre) {
                return descendant ? autre.first < un.first : un.first < autre.first;
            });
            QStringList cestries;
            for (const auto& un : tries)
                cestries << un.second;
            ASSERT_TRUE(liste->sort(Titre, descendant));
            EXPECT_EQ(cles(*liste), cestries) << descendant;
        }
    }
}

TEST_F(IndexTest, ASortInStepsChangesNothingUntilItIsTaken) {
    trois();
    const auto liste = index();
    const QStringList avant = cles(*liste);
    const auto travail = liste->tri(Titre, false);
    ASSERT_NE(travail, nullptr);
    acheve(*travail);
    EXPECT_EQ(cles(*liste), avant);
    EXPECT_DOUBLE_EQ(travail->part(), 1);
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_NE(cles(*liste), avant);
    // One that is left has changed nothing either.
    liste->tri(MotCle1, false)->avance();
    EXPECT_EQ(liste->text(0, Titre), u"eau");
}

TEST_F(IndexTest, WhatIsTypedIsFoundInTheSortedColumn) {
    trois();
    const auto liste = index();
    EXPECT_EQ(liste->find(Code, u"e"_s, 0), 2) << "the rows stand by their codes at first";
    EXPECT_EQ(liste->find(Titre, u"z"_s, 0), std::nullopt) << "the grid looks itself";
    for (const bool descendant : {false, true}) {
        ASSERT_TRUE(liste->sort(Titre, descendant));
        const int premier = descendant ? 0 : 2;
        EXPECT_EQ(liste->find(Titre, u"z"_s, 0), premier);
        EXPECT_EQ(liste->find(Titre, u"Z"_s, premier + 1), premier + 1);
        EXPECT_EQ(liste->find(Titre, u"zeb"_s, 0), descendant ? 1 : 2) << "accents do not count";
        EXPECT_EQ(liste->find(Titre, u"y"_s, 0), -1);
    }
}

TEST_F(IndexTest, ARowIsFoundByItsDocument) {
    trois();
    const auto liste = index();
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(liste->row({u"JP"_s, u"000007"_s}), 3);
    EXPECT_EQ(liste->row({u"JP"_s, u"000008"_s}), -1);
}

TEST_F(IndexTest, ADocumentOfNoCollectionIsListedAndSortedWithTheOthers) {
    ouvre({{u"CO000001"_s, u"b"_s}, {u"XX000001"_s, u"a"_s}, {u"YY000009"_s, u"c"_s}, {QString(u""_s), u"0"_s}});
    const auto liste = index();
    EXPECT_EQ(cles(*liste), (QStringList{QString(u""_s), u"CO000001"_s, u"XX000001"_s, u"YY000009"_s}));
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(colonne(*liste, Titre), (QStringList{u"0"_s, u"a"_s, u"b"_s, u"c"_s})) << "none is lost";
}

TEST_F(IndexTest, EqualTitlesStandByCollectionAndNumberBothWays) {
    ouvre({{u"JP000001"_s, u"Avis"_s},
           {u"CO000002"_s, u"avis"_s},
           {u"EU000009"_s, u"Avis"_s},
           {u"CO000001"_s, u"Avis"_s},
           {u"AD000001"_s, u"Bail"_s}});
    const auto liste = index();
    const QStringList memes{u"CO000001"_s, u"CO000002"_s, u"EU000009"_s, u"JP000001"_s};
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(cles(*liste), memes + QStringList{u"AD000001"_s});
    ASSERT_TRUE(liste->sort(Titre, true));
    EXPECT_EQ(cles(*liste), QStringList{u"AD000001"_s} + memes);
}

TEST_F(IndexTest, WithItsBaseClosedAListIsEmptyRowsAndNoEnd) {
    trois();
    const auto liste = index();
    EXPECT_EQ(liste->text(0, Titre), u"Zébre");
    const auto remplit = liste->remplissage();
    const auto trie = liste->tri(Titre, false);
    corpus.fermebase();
    EXPECT_EQ(liste->text(0, Titre), u"Zébre") << "read before";
    EXPECT_EQ(liste->text(1, Titre), QString());
    EXPECT_FALSE(liste->sort(Titre, false));
    EXPECT_EQ(liste->row({u"CO"_s, u"000001"_s}), -1);
    EXPECT_TRUE(remplit->avance()) << "what was being done ends";
    EXPECT_TRUE(trie->avance());
    EXPECT_EQ(liste->rowCount(), 4);
}

TEST_F(IndexTest, ABaseReplacedUnderAListLeavesItAsItIs) {
    trois();
    const auto liste = index();
    const QString chemin = dossier.filePath(u"velm2000.dat"_s);
    ecrit({{u"VP000001"_s, u"autre"_s}}, dossier.filePath(u"autre.dat"_s));
    ASSERT_TRUE(QFile::remove(chemin));
    ASSERT_TRUE(QFile::rename(dossier.filePath(u"autre.dat"_s), chemin));
    EXPECT_EQ(liste->text(3, Titre), u"Zone") << "what is open goes on";
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(liste->text(0, Titre), u"eau");
    EXPECT_EQ(index()->rowCount(), 4);
    // And another base in the same corpus: the old rows have nothing to say any more.
    ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
    corpus.ouvretables();
    EXPECT_FALSE(liste->sort(MotCle1, false));
    EXPECT_EQ(liste->text(1, MotCle1), QString());
    EXPECT_EQ(cles(*index()), QStringList{u"VP000001"_s});
}

TEST_F(IndexTest, ABaseWithoutItsDocumentsIsNoticedWhenAListIsFilled) {
    trois();
    ASSERT_TRUE(corpus.base().execute(u"DROP TABLE données"_s));
    ListeIndex index(corpus, u" FROM données"_s);
    EXPECT_TRUE(failureOf([&] { index.remplissage(); }));
    EXPECT_EQ(index.rowCount(), 0);
    EXPECT_EQ(index.text(0, Titre), QString());
    corpus.fermebase();
    EXPECT_FALSE(index.sort(Titre, false));
}

TEST_F(IndexTest, LargeRowIdsAreKept) {
    Identites ids;
    ids.ajoute(5);
    ids.ajoute(qint64{1} << 40);
    ids.ajoute(6);
    EXPECT_EQ(ids.nombre(), 3U);
    EXPECT_EQ(ids[0], 5);
    EXPECT_EQ(ids[1], qint64{1} << 40);
    EXPECT_EQ(ids[2], 6);
    NombresDesIds nombres(ids);
    nombres.pose(qint64{1} << 40, 9);
    EXPECT_EQ(nombres.de(qint64{1} << 40), 9U);
    EXPECT_TRUE(nombres.a(6));
    EXPECT_FALSE(nombres.a(7));
}

TEST_F(IndexTest, ABaseWithRowIdsFarApartIsListedAndSorted) {
    trois();
    ASSERT_TRUE(corpus.base().execute(u"UPDATE données SET rowid=rowid*10000000000"_s));
    const auto liste = index();
    EXPECT_EQ(liste->rowCount(), 4);
    for (const int column : {int{Titre}, int{MotCle1}}) {
        ASSERT_TRUE(liste->sort(column, false));
        QStringList tous = cles(*liste);
        tous.removeDuplicates();
        EXPECT_EQ(tous.size(), 4);
    }
    ASSERT_TRUE(liste->sort(Titre, false));
    EXPECT_EQ(liste->text(0, Titre), u"eau");
}
