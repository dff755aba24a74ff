// The engine may refuse a single row of a change and go on with the transaction: nothing of the change is made then.
#include "differences.h"

namespace velm::test {
namespace {

class RefusTest : public ArbreTest {
protected:
    void SetUp() override {
        ArbreTest::SetUp();
        ouvre({{1, 0, 1, u"un"_s, 2}, {2, 0, 2, u"deux"_s, 1}, {3, 0, 3, u"trois"_s, 0}},
              {{1, 1, u"CO000001"_s, u"a"_s, 0, 0},
               {1, 2, u"CO000002"_s, u"b"_s, 0, 0},
               {2, 1, u"CO000003"_s, u"c"_s, 0, 0}});
        charge();
        contenu.liste(1);
    }
    void execute(const QString& quoi) {
        ASSERT_TRUE(magasin.dbdossiers().execute(quoi)) << magasin.dbdossiers().lastError().toStdString();
    }
    /// No row with these keys goes any more.
    void retient(const QString& table, const QString& cles, const QString& valeurs) {
        execute(u"PRAGMA foreign_keys=ON; CREATE TABLE garde(a,b, FOREIGN KEY(%2) REFERENCES %1(%3)); "
                "INSERT INTO garde VALUES(%4)"_s.arg(table, cles.contains(u',') ? u"a,b"_s : u"a"_s, cles, valeurs));
    }
    QString vu() const { return dessinnoeuds(noeuds) + u'\n' + dessinelements(lignes); }
    void expectRefused(const std::function<EchecEcriture()>& travail) {
        const TablesModele avant{dossiers(), elements(), derniernumero()};
        const QString dessinavant = vu();
        const EchecEcriture echec = travail();
        EXPECT_FALSE(echec.ok());
        EXPECT_FALSE(magasin.dbdossiers().inTransaction());
        EXPECT_EQ(differencedestables({dossiers(), elements(), derniernumero()}, avant), QString());
        EXPECT_EQ(vu(), dessinavant);
    }

    ListItems lignes;
    ContenuDossier contenu{magasin, lignes, u"extrait"_s};
};

TEST_F(RefusTest, ADossierThatCannotBeDeletedStopsTheSave) {
    retient(u"arborescences"_s, u"numerodutype"_s, u"1,0"_s);
    arbre.marquersuppression(noeud(1), true);
    noeuds.setText(noeud(2), u"autre"_s);
    expectRefused([this] { return arbre.Sauvearbre(); });
    EXPECT_TRUE(arbre.modifie());
}

TEST_F(RefusTest, AnItemThatCannotBeDeletedStopsTheSave) {
    retient(u"données"_s, u"arborescence,noordre"_s, u"1,2"_s);
    arbre.marquersuppression(noeud(1), true);
    expectRefused([this] { return arbre.Sauvearbre(); });
}

TEST_F(RefusTest, WhatStandsBehindARefusedDossierIsNotSavedEither) {
    // Below one parent: the second of three children.
    arbre.toutdevelopper();
    ASSERT_TRUE(arbre.deplace(noeud(1), noeud(3)) && arbre.deplace(noeud(2), noeud(3)));
    retient(u"arborescences"_s, u"numerodutype"_s, u"1,0"_s);
    arbre.marquersuppression(noeud(1), true);
    expectRefused([this] { return arbre.Sauvearbre(); });
}

TEST_F(RefusTest, ANumberThatCannotBeStoredStopsTheSave) {
    arbre.ajoute(noeud(0), u"n"_s);
    execute(
        u"INSERT INTO paramètres(dernoarborescence) VALUES(5); CREATE UNIQUE INDEX numeros ON paramètres(dernoarborescence)"_s);
    expectRefused([this] { return arbre.Sauvearbre(); });
}

TEST_F(RefusTest, ACountThatCannotBeStoredKeepsTheItem) {
    execute(u"CREATE UNIQUE INDEX comptes ON arborescences(nbarticles)"_s);
    expectRefused([this] { return contenu.supprime(1, 1).echec; });
}

TEST_F(RefusTest, AnItemThatCannotBeDeletedKeepsItsCount) {
    retient(u"données"_s, u"arborescence,noordre"_s, u"1,1"_s);
    expectRefused([this] { return contenu.supprime(1, 1).echec; });
}

TEST_F(RefusTest, AnItemThatCannotTakeAnotherPlaceStopsTheExchange) {
    for (const QString& place : {u"1"_s, u"2"_s}) {
        retient(u"données"_s, u"arborescence,noordre"_s, u"1,"_s + place);
        expectRefused([this] { return contenu.echange(1, 2).echec; });
        expectRefused([this] { return contenu.echange(2, 1).echec; });
        execute(u"DROP TABLE garde"_s);
    }
    EXPECT_TRUE(contenu.echange(1, 2).echec.ok());
}

TEST_F(RefusTest, ASecondItemOfAnotherDossierThatCannotTakeThePlaceStopsTheExchange) {
    execute(u"UPDATE données SET noordre=3 WHERE arborescence=2"_s);
    ASSERT_TRUE(lignes.setKey(2, u"CO000003 3"_s));
    retient(u"données"_s, u"arborescence,noordre"_s, u"2,3"_s);
    expectRefused([this] { return contenu.echange(1, 2).echec; });
}

TEST_F(RefusTest, ATitleThatCannotBeStoredIsAFailure) {
    execute(u"CREATE UNIQUE INDEX titres ON données(titre)"_s);
    expectRefused([this] {
        QString texte = u"b"_s;
        return contenu.renomme(1, texte).echec;
    });
    expectRefused([this] { return contenu.range({u"CO000009"_s, u"a"_s, 0, 0}, 3); });
    expectRefused([this] { return contenu.importe({{u"CO000008 1"_s, u"h"_s}, {u"CO000009 2"_s, u"a"_s}}, 9); });
}

TEST_F(RefusTest, AnItemThatCannotMoveStays) {
    retient(u"données"_s, u"arborescence,noordre"_s, u"1,1"_s);
    expectRefused([this] { return contenu.deplace(1, 2).echec; });
}

} // namespace
} // namespace velm::test
