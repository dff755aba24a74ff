#include "core/cle.h"
#include "core/schemas.h"
#include "document/listecollection.h"
#include "tests/support/arret.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ListeCollectionTest : public testing::Test {
protected:
    void SetUp() override {
        const auto base = Database::create(chemin(), corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter table(*base.database, u"données"_s,
                          {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s});
        for (const QStringList& d :
             QList<QStringList>{{u"CL"_s, u"000001"_s, u"Zinc"_s, u"b"_s, u"x"_s, u"1"_s},
                                {u"CL"_s, u"000002"_s, u"\u00C9t\u00E9"_s, u"a"_s, u"x"_s, u""_s},
                                {u"CL"_s, u"000003"_s, u"eta"_s, u"b"_s, u"y"_s, u"3"_s},
                                {u"CL"_s, u"000004"_s, u"ETE"_s, u"a"_s, u"y"_s, u"4"_s},
                                {u"CO"_s, u"000009"_s, u"Autre"_s, u"a"_s, u"z"_s, u"9"_s}})
            ASSERT_TRUE(table.add({d[0], d[1], d[2], d[3], d[4], d[5]}));
    }
    void ouvre() {
        ASSERT_EQ(corpus.connecte(chemin()), OpenError::None);
        corpus.ouvretables();
    }
    QString chemin() const { return dossier.filePath(u"velm2000.dat"_s); }
    static QStringList numeros(const ListeCollection& liste) {
        QStringList cles;
        for (int ligne = 0; ligne < liste.rowCount(); ++ligne)
            cles << liste.cle(ligne).texte().right(1);
        return cles;
    }

    QTemporaryDir dossier;
    Corpus corpus;
};

} // namespace

TEST_F(ListeCollectionTest, HoldsTheDocumentsOfItsCollectionOnly) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    EXPECT_EQ(liste.rowCount(), 4);
    liste.sort(4, false);
    EXPECT_EQ(liste.text(0, 0), u"Zinc");
    EXPECT_EQ(liste.text(0, 4), u"000001");
    EXPECT_EQ(liste.cle(0).texte(), u"CL000001");
    EXPECT_EQ(ListeCollection(corpus, u"EU"_s, u"01234"_s).rowCount(), 0);
}

TEST_F(ListeCollectionTest, OnceTheBaseIsClosedRowsThatWereNotReadAreEmpty) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    liste.sort(4, false);
    EXPECT_EQ(liste.text(0, 0), u"Zinc");
    corpus.fermebase();
    EXPECT_EQ(liste.rowCount(), 4);
    EXPECT_EQ(liste.text(0, 0), u"Zinc");
    EXPECT_EQ(liste.text(3, 0), QString());
    EXPECT_EQ(liste.cle(3).texte(), QString());
}

TEST_F(ListeCollectionTest, TheOrdersDigitsPickTheFields) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"31204"_s);
    liste.sort(4, false);
    EXPECT_EQ((QStringList{liste.text(2, 0), liste.text(2, 1), liste.text(2, 2), liste.text(2, 3)}),
              (QStringList{u"3"_s, u"b"_s, u"y"_s, u"eta"_s}));
    EXPECT_EQ(ListeCollection::champ(u'0'), u"titre");
    EXPECT_EQ(ListeCollection::champ(u'4'), u"numart");
    EXPECT_TRUE(ListeCollection::champ(u'5').isEmpty());
}

TEST_F(ListeCollectionTest, TitlesSortByTheirKeyWithAccentsLast) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    EXPECT_TRUE(liste.sort(0, false));
    EXPECT_EQ(numeros(liste), (QStringList{u"3"_s, u"4"_s, u"2"_s, u"1"_s}));
    EXPECT_TRUE(liste.sort(0, true));
    EXPECT_EQ(numeros(liste), (QStringList{u"1"_s, u"2"_s, u"4"_s, u"3"_s}));
}

TEST_F(ListeCollectionTest, OtherColumnsSortByTheirTextAndKeepTheOrderOfEqualRows) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    liste.sort(0, false);
    EXPECT_TRUE(liste.sort(1, false));
    EXPECT_EQ(numeros(liste), (QStringList{u"4"_s, u"2"_s, u"3"_s, u"1"_s}));
    EXPECT_TRUE(liste.sort(1, true));
    EXPECT_EQ(numeros(liste), (QStringList{u"3"_s, u"1"_s, u"4"_s, u"2"_s}));
    EXPECT_TRUE(liste.sort(3, false));
    EXPECT_EQ(liste.text(0, 3), QString());
}

TEST_F(ListeCollectionTest, ABaseWithoutStoredKeysSortsTitlesByTheirText) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DROP INDEX \"données_icattitre\""_s));
        ASSERT_TRUE(base.database->execute(u"ALTER TABLE données DROP COLUMN clé_titre"_s));
    }
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    EXPECT_TRUE(liste.sort(0, false));
    EXPECT_EQ(numeros(liste), (QStringList{u"3"_s, u"4"_s, u"2"_s, u"1"_s}));
}

TEST_F(ListeCollectionTest, TheRowOfADocumentIsFoundInEveryOrder) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    for (const bool descendant : {false, true}) {
        liste.sort(0, descendant);
        for (int ligne = 0; ligne < liste.rowCount(); ++ligne)
            EXPECT_EQ(liste.row(liste.cle(ligne)), ligne);
    }
    for (const Cle& ailleurs : {Cle(), Cle{u"CO"_s, u"000009"_s}, Cle{u"CL"_s, u"000099"_s}})
        EXPECT_EQ(liste.row(ailleurs), -1) << ailleurs.texte().toStdString();
    corpus.fermebase();
    EXPECT_EQ(liste.row({u"CL"_s, u"000001"_s}), -1);
}

TEST_F(ListeCollectionTest, CellsAndColumnsOutsideAreEmpty) {
    ouvre();
    ListeCollection liste(corpus, u"CL"_s, u"01234"_s);
    EXPECT_EQ(liste.text(-1, 0), QString());
    EXPECT_EQ(liste.text(4, 0), QString());
    EXPECT_EQ(liste.text(0, 5), QString());
    EXPECT_EQ(liste.cle(99).texte(), QString());
    EXPECT_FALSE(liste.sort(5, false));
    EXPECT_FALSE(liste.sort(-1, false));
}

TEST_F(ListeCollectionTest, ManyRowsArePaintedFromAWindowOfRowsThatAreKept) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        TableWriter table(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s});
        for (int numero = 1; numero <= 3000; ++numero)
            ASSERT_TRUE(table.add({u"JP"_s, sixchiffres(numero), u"Titre %1"_s.arg(numero, 5, 10, QChar(u'0'))}));
    }
    ouvre();
    ListeCollection liste(corpus, u"JP"_s, u"01234"_s);
    ASSERT_EQ(liste.rowCount(), 3000);
    liste.sort(0, true);
    for (int ligne = 0; ligne < 3000; ++ligne)
        ASSERT_EQ(liste.text(ligne, 0), u"Titre %1"_s.arg(3000 - ligne, 5, 10, QChar(u'0')));
    EXPECT_EQ(liste.cle(2999).texte(), u"JP000001");
}

TEST_F(ListeCollectionTest, ABaseWithoutTheTableFailsWhereItIsUsed) {
    {
        const auto base = Database::open(chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DROP TABLE \"données\""_s));
    }
    ouvre();
    const test::GardeArret garde;
    EXPECT_THROW(ListeCollection(corpus, u"CL"_s, u"01234"_s), test::Arret);
}
