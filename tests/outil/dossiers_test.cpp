// The commands on stores of dossiers, as their users run them.
#include "core/schemas.h"
#include "dossiers/magasin.h"
#include "tests/outil/lance.h"

#include <QFile>

namespace velm::test {
namespace {

class OutilDossiersTest : public OutilRechercheTest {
protected:
    void SetUp() override { ASSERT_EQ(lance({u"dossiers"_s, u"cree"_s, magasin()}).code, 0); }

    QString magasin() const { return dossier.filePath(u"mes cas.dat"_s); }
    /// A command on that store.
    Sortie sur(const QStringList& ligne) const {
        return lance(QStringList{u"dossiers"_s} + ligne + QStringList{u"--dossiers"_s, magasin()});
    }
    QString fichier(const QString& nom, const QByteArray& octets) const {
        QFile neuf(dossier.filePath(nom));
        EXPECT_TRUE(neuf.open(QIODevice::WriteOnly));
        neuf.write(octets);
        return neuf.fileName();
    }
    static QByteArray octets(const QString& chemin) {
        QFile lu(chemin);
        EXPECT_TRUE(lu.open(QIODevice::ReadOnly));
        return lu.readAll();
    }
    void execute(const QString& sql) const {
        const auto ouverte = Database::open(magasin(), OpenMode::Shared, dossiersSchema());
        ASSERT_TRUE(ouverte.database);
        ASSERT_TRUE(ouverte.database->execute(sql)) << ouverte.database->lastError().toStdString();
    }
    QString baux() const {
        return fichier(u"baux.dv2"_s, "VELMORante 2000 - DV2\r\nBaux\r\nCO000001 1\r\nArticle 1\r\n"
                                      "JP000003 2 10 5P\r\nArr\xEAt [extrait]\r\n");
    }
};

TEST_F(OutilDossiersTest, AFileIsTakenInListedAndWrittenAgain) {
    const QJsonObject pris = sur({u"importe"_s, baux(), u"--json"_s}).json();
    EXPECT_EQ(pris.value(u"numero"_s).toInt(), 1);
    EXPECT_EQ(pris.value(u"nom"_s).toString(), u"Baux");
    EXPECT_EQ(pris.value(u"elements"_s).toInt(), 2);
    const QJsonObject liste = sur({u"liste"_s, u"--json"_s}).json();
    ASSERT_EQ(liste.value(u"nombre"_s).toInt(), 1);
    const QJsonObject ligne = liste.value(u"dossiers"_s).toArray().first().toObject();
    EXPECT_EQ(ligne.value(u"numero"_s).toInt(), 1);
    EXPECT_EQ(ligne.value(u"parent"_s).toInt(), 0);
    EXPECT_EQ(ligne.value(u"nom"_s).toString(), u"Baux");
    EXPECT_EQ(ligne.value(u"elements"_s).toInt(), 2);
    EXPECT_FALSE(ligne.value(u"perdu"_s).toBool());
    EXPECT_EQ(sur({u"liste"_s}).texte, u"1\t2\tBaux\n");
    const QString sorti = dossier.filePath(u"sorti.dv2"_s);
    EXPECT_EQ(sur({u"exporte"_s, u"1"_s, sorti}).code, 0);
    // The file's text has the word for an extract, which becomes a part of the title, and the list adds its own.
    EXPECT_EQ(octets(sorti), octets(baux()).replace("[extrait]", "[extrait] [extrait]"));
}

// The number behind the last one is left out: the store counts one too far.
TEST_F(OutilDossiersTest, EachFileBecomesAnotherDossier) {
    ASSERT_EQ(sur({u"importe"_s, baux()}).code, 0);
    const Sortie deux = sur({u"importe"_s, baux()});
    EXPECT_TRUE(deux.texte.contains(u" 3\n"_s)) << qPrintable(deux.texte);
    EXPECT_EQ(sur({u"liste"_s}).texte, u"1\t2\tBaux\n3\t2\tBaux\n");
    EXPECT_EQ(sur({u"verifie"_s}).code, 0);
}

TEST_F(OutilDossiersTest, TheTreeIsListedByItsPlacesAndWhatIsLostComesLast) {
    execute(
        u"INSERT INTO \"arborescences\" (\"numerodutype\",\"dépendance\",\"ordre\",\"typededonnées\",\"nbarticles\") "
        "VALUES (1,0,2,'b',0),(2,0,1,'a',0),(3,2,4,'d',0),(4,2,3,'c',7),(5,9,1,'perdu',0),(6,7,1,'rond',0),"
        "(7,6,1,'rond',0)"_s);
    EXPECT_EQ(sur({u"liste"_s}).texte,
              u"2\t0\ta\n4\t7\t  c\n3\t0\t  d\n1\t0\tb\n7\t0\trond\n6\t0\trond\n5\t0\tperdu\n");
}

TEST_F(OutilDossiersTest, ACheckTellsWhatARepairDoes) {
    ASSERT_EQ(sur({u"importe"_s, baux()}).code, 0);
    execute(u"INSERT INTO \"données\" (\"arborescence\",\"noordre\",\"référence\",\"numart\",\"titre\") "
            "VALUES (8,1,'CO','000001','perdu')"_s);
    execute(u"UPDATE \"arborescences\" SET \"nbarticles\"=5"_s);
    const QByteArray avant = octets(magasin());
    const Sortie verifie = sur({u"verifie"_s, u"--json"_s});
    EXPECT_EQ(verifie.code, 3);
    EXPECT_EQ(verifie.json().value(u"elements"_s).toInt(), 1);
    EXPECT_EQ(verifie.json().value(u"comptes"_s).toInt(), 1);
    EXPECT_EQ(verifie.json().value(u"dossiers"_s).toInt(), 0);
    EXPECT_EQ(octets(magasin()), avant);
    const Sortie repare = sur({u"repare"_s, u"--json"_s});
    EXPECT_EQ(repare.code, 0);
    EXPECT_EQ(repare.json(), verifie.json());
    EXPECT_EQ(sur({u"verifie"_s}).code, 0);
    EXPECT_EQ(sur({u"liste"_s}).texte, u"1\t2\tBaux\n");
}

TEST_F(OutilDossiersTest, WhileAReaderHoldsTheStoreItIsOnlyRead) {
    ASSERT_EQ(sur({u"importe"_s, baux()}).code, 0);
    Magasin lecteur;
    lecteur.ouvremagasin(magasin());
    ASSERT_FALSE(lecteur.dossiersindisponibles());
    const QByteArray avant = octets(magasin());
    for (const QStringList& ligne : {QStringList{u"importe"_s, baux()}, QStringList{u"repare"_s}}) {
        const Sortie sortie = sur(ligne);
        EXPECT_EQ(sortie.code, 1) << qPrintable(ligne.first());
        EXPECT_TRUE(sortie.erreurs.contains("un autre programme l’utilise")) << sortie.erreurs.constData();
    }
    EXPECT_EQ(octets(magasin()), avant);
    EXPECT_EQ(sur({u"liste"_s}).code, 0);
    EXPECT_EQ(sur({u"verifie"_s}).code, 0);
    EXPECT_EQ(sur({u"exporte"_s, u"1"_s, dossier.filePath(u"x.dv2"_s)}).code, 0);
    EXPECT_TRUE(lecteur.ecrit([] { return true; }).ok()) << "it holds it still";
}

TEST_F(OutilDossiersTest, WhatIsNotThereOrIsNoneIsSaid) {
    EXPECT_EQ(sur({u"exporte"_s, u"4"_s, dossier.filePath(u"x.dv2"_s)}).code, 4);
    EXPECT_FALSE(QFile::exists(dossier.filePath(u"x.dv2"_s)));
    EXPECT_EQ(sur({u"exporte"_s, u"un"_s, dossier.filePath(u"x.dv2"_s)}).code, 2);
    const Sortie autre = sur({u"importe"_s, fichier(u"a.dv2"_s, "autre chose")});
    EXPECT_EQ(autre.code, 1);
    EXPECT_TRUE(autre.erreurs.contains("a.dv2"));
    EXPECT_EQ(sur({u"importe"_s, dossier.filePath(u"absent.dv2"_s)}).code, 1);
    for (const QString& commande : {u"liste"_s, u"verifie"_s, u"repare"_s}) {
        const Sortie sortie = lance({u"dossiers"_s, commande, u"--dossiers"_s, dossier.filePath(u"absent.dat"_s)});
        EXPECT_EQ(sortie.code, 1) << qPrintable(commande);
        EXPECT_TRUE(sortie.erreurs.contains("absent.dat")) << qPrintable(commande);
    }
}

TEST_F(OutilDossiersTest, ADamagedStoreIsSaidAndLeftAsItIs) {
    ASSERT_EQ(sur({u"importe"_s, baux()}).code, 0);
    for (int n = 0; n < 200; ++n)
        execute(
            u"INSERT INTO \"données\" (\"arborescence\",\"noordre\",\"titre\") VALUES (1,%1,'%2')"_s.arg(n + 10).arg(
                QString(200, u'x')));
    QFile fichier(magasin());
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite) && fichier.seek(5 * 4096 + 8));
    fichier.write(QByteArray(3000, '\x55'));
    fichier.close();
    const QByteArray avant = octets(magasin());
    for (const QString& commande : {u"verifie"_s, u"repare"_s}) {
        const Sortie sortie = sur({commande});
        EXPECT_EQ(sortie.code, 1) << qPrintable(commande);
        EXPECT_TRUE(sortie.erreurs.contains("mes cas.dat")) << sortie.erreurs.constData();
    }
    EXPECT_EQ(octets(magasin()), avant);
}

} // namespace
} // namespace velm::test
