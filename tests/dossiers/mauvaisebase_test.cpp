// Stores that are none, or broken: the user hears of it once, nothing of them is changed, and nothing ends.
#include "gestion_banc.h"
#include "tests/support/odd_files.h"
#include "tests/support/rounds.h"

#include <random>
#include <sqlite3.h>

namespace velm::test {
namespace {

class MauvaiseBaseTest : public MagasinTest {
protected:
    /// A store of some pages, closed.
    void remplit() {
        std::vector<RangeeDossier> tous;
        std::vector<RangeeElement> leurs;
        for (int i = 1; i <= 60; ++i) {
            tous.push_back({i, i % 4 == 0 ? i - 1 : 0, i, u"Dossier %1"_s.arg(i), 3});
            for (int k = 1; k <= 3; ++k)
                leurs.push_back({i, k, u"CO%1"_s.arg(i * 3 + k, 6, 10, QChar(u'0')), QString(40, u't'), 0, 0});
        }
        ouvre(tous, leurs);
        magasin.fermedossiers();
    }
    QByteArray octets() const {
        QFile fichier(chemin());
        EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
        return fichier.readAll();
    }
    void ecris(const QByteArray& quoi) const {
        QFile fichier(chemin());
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(quoi) == quoi.size());
    }
    /// As a tool of another make may do, without the guards of ours.
    void execute(const QString& quoi) {
        sqlite3* base = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(chemin()).constData(), &base), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(base, quoi.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(base);
        sqlite3_close(base);
    }

    /// Everything that a user may do in a window on it.
    static void use(FenetreEssai& fenetre) {
        GestionDossiers& gestion = fenetre.gestion;
        gestion.toutdevelopper();
        for (int noeud = 1; noeud <= std::min(fenetre.noeuds.count(), 8); ++noeud)
            fenetre.clique(noeud);
        fenetre.clique(1);
        gestion.ajouter();
        gestion.apreseditionnoeud();
        gestion.active({u"CO000001"_s, u"Titre"_s, 1, 2});
        gestion.depose(1);
        gestion.renonce();
        if (fenetre.noeuds.count() > 3) {
            fenetre.clique(2);
            for (const auto faire : {&GestionDossiers::bas, &GestionDossiers::haut, &GestionDossiers::supprimer})
                if (fenetre.noeuds.children(fenetre.noeuds.selected()) == 0)
                    (gestion.*faire)();
        }
        if (fenetre.elements.count() > 1) {
            fenetre.cliqueelement(1);
            gestion.bas();
            gestion.haut();
            gestion.depose(1);
            fenetre.cliqueelement(1);
            gestion.supprimer();
        }
    }
    /// A store that opens, but cannot be trusted.
    void expectToldOnceAndNeverWritten(const QString& quoi) {
        SCOPED_TRACE(quoi.toStdString());
        const QByteArray avant = octets();
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        EXPECT_EQ(magasin.etat(), Obstacle::Damaged);
        FenetreEssai fenetre(magasin, u" %1"_s);
        EXPECT_TRUE(fenetre.gestion.charge(false)) << "it is shown as far as it can be read";
        EXPECT_EQ(fenetre.dits(), QStringList{u"9818"_s});
        EXPECT_GE(fenetre.noeuds.count(), 1);
        EXPECT_TRUE(fenetre.noeuds.redraw());
        use(fenetre);
        EXPECT_TRUE(fenetre.elements.redraw());
        EXPECT_FALSE(fenetre.dits().contains(u"9895"_s)) << "what it is has been said";
        EXPECT_TRUE(fenetre.gestion.ferme(true));
        magasin.fermedossiers();
        EXPECT_EQ(octets(), avant);
        EXPECT_EQ(QDir(dossier()).entryList({u"dossiers-*"_s}).size(), 0) << "no copy is made of it";
    }
    void expectUnavailable(const QString& quoi, Obstacle obstacle) {
        SCOPED_TRACE(quoi.toStdString());
        magasin.ouvredossiers(dossier());
        EXPECT_TRUE(magasin.dossiersindisponibles());
        EXPECT_EQ(magasin.echec().obstacle, obstacle);
        magasin.fermedossiers();
    }
};

TEST_F(MauvaiseBaseTest, WhatIsNoStoreIsNotAvailable) {
    ecris({});
    expectUnavailable(u"empty"_s, Obstacle::Damaged);
    ecris("dossiers\r\n");
    expectUnavailable(u"a text"_s, Obstacle::Damaged);
    ecris(QByteArray(20000, '\x5a'));
    expectUnavailable(u"any bytes"_s, Obstacle::Damaged);
    const NobodyWaits personne;
    putFolder(chemin());
    expectUnavailable(u"a folder"_s, Obstacle::NotPlain);
    ASSERT_TRUE(QDir().rmdir(chemin()));
    putPipe(chemin());
    expectUnavailable(u"a pipe"_s, Obstacle::NotPlain);
    putDevice(chemin());
    expectUnavailable(u"a device"_s, Obstacle::NotPlain);
}

TEST_F(MauvaiseBaseTest, ABaseOfAnotherSchemaIsNotAvailable) {
    ASSERT_TRUE(QFile::remove(chemin()));
    const Schema autre{{{u"clients"_s, {{u"nom"_s, FieldType::Text}}, {}, {}}}, false};
    ASSERT_TRUE(Database::create(chemin(), autre).database);
    expectUnavailable(u"another schema"_s, Obstacle::Damaged);
}

TEST_F(MauvaiseBaseTest, ATruncatedStoreIsNotAvailable) {
    remplit();
    const QByteArray entier = octets();
    ASSERT_GT(entier.size(), 4 * 4096);
    for (qsizetype taille = 0; taille < entier.size(); taille += 4096) {
        ecris(entier.first(taille));
        expectUnavailable(QString::number(taille), Obstacle::Damaged);
        EXPECT_EQ(octets(), entier.first(taille));
    }
    for (const qsizetype taille : {qsizetype(1), qsizetype(99), qsizetype(4097), entier.size() - 1}) {
        ecris(entier.first(taille));
        expectUnavailable(QString::number(taille), Obstacle::Damaged);
    }
    ecris(entier);
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.sain());
}

TEST_F(MauvaiseBaseTest, AStoreWithAMissingTableIsToldOnceAndNeverWritten) {
    remplit();
    const QByteArray entier = octets();
    for (const QString& table : {u"arborescences"_s, u"données"_s, u"paramètres"_s}) {
        ecris(entier);
        execute(u"DROP TABLE "_s + table);
        expectToldOnceAndNeverWritten(table);
    }
    ecris(entier);
    execute(u"DROP TABLE données; DROP TABLE paramètres"_s);
    expectToldOnceAndNeverWritten(u"two of them"_s);
}

TEST_F(MauvaiseBaseTest, AStoreWithAMissingFieldIsToldOnceAndNeverWritten) {
    remplit();
    const QByteArray entier = octets();
    for (const auto& [table, champ] :
         {std::pair{u"arborescences"_s, u"nbarticles"_s}, std::pair{u"arborescences"_s, u"ordre"_s},
          std::pair{u"données"_s, u"titre"_s}, std::pair{u"données"_s, u"positionfin"_s}}) {
        ecris(entier);
        execute(u"ALTER TABLE "_s + table + u" RENAME COLUMN "_s + champ + u" TO autre"_s);
        expectToldOnceAndNeverWritten(table + u'.' + champ);
    }
}

TEST_F(MauvaiseBaseTest, AStoreWithoutItsRowOfNumbersIsToldOnceAndNeverWritten) {
    remplit();
    execute(u"DELETE FROM paramètres"_s);
    expectToldOnceAndNeverWritten(u"no row"_s);
    magasin.ouvredossiers(dossier());
    FenetreEssai fenetre(magasin, u" %1"_s);
    fenetre.gestion.charge(true);
    EXPECT_EQ(fenetre.noeuds.count(), 61) << "the dossiers are seen";
    fenetre.clique(fenetre.noeud(1));
    EXPECT_EQ(fenetre.elements.count(), 3);
}

TEST_F(MauvaiseBaseTest, AStoreWithAnIndexThatLiesIsToldOnceAndNeverWritten) {
    remplit();
    execute(u"PRAGMA writable_schema=ON; "
            "UPDATE sqlite_schema SET sql=replace(sql,'numerodutype','nbarticles') WHERE type='index'"_s);
    expectToldOnceAndNeverWritten(u"index"_s);
}

TEST_F(MauvaiseBaseTest, AStoreWithAViewForATableIsToldOnceAndNeverWritten) {
    remplit();
    execute(u"DROP TABLE paramètres; CREATE VIEW paramètres AS SELECT 1 AS dernoarborescence, 1 AS id"_s);
    expectToldOnceAndNeverWritten(u"a view"_s);
}

TEST_F(MauvaiseBaseTest, AMendedStoreIsTrustedAgain) {
    remplit();
    const QByteArray entier = octets();
    execute(u"DELETE FROM paramètres"_s);
    magasin.ouvredossiers(dossier());
    EXPECT_FALSE(magasin.sain());
    magasin.fermedossiers();
    ecris(entier);
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.sain());
}

TEST_F(MauvaiseBaseTest, TheMessageNamesTheNewestSoundCopy) {
    remplit();
    const QString saine = dossier() + u"/dossiers-2026-11-20.dat"_s;
    ASSERT_TRUE(QFile::copy(chemin(), saine));
    execute(u"DELETE FROM paramètres"_s);
    ASSERT_TRUE(QFile::copy(chemin(), dossier() + u"/dossiers-2026-11-22.dat"_s));
    magasin.ouvredossiers(dossier());
    FenetreEssai fenetre(magasin, u" %1"_s);
    EXPECT_TRUE(fenetre.gestion.charge(false));
    ASSERT_EQ(fenetre.dialogues.texts(), QStringList{u"<9817> "_s + saine});
}

TEST_F(MauvaiseBaseTest, AStoreThatAnotherHoldsIsToldOnceAndNotShown) {
    remplit();
    magasin.ouvredossiers(dossier());
    magasin.dbdossiers().execute(u"PRAGMA busy_timeout=0"_s);
    const auto autre = Database::open(chemin(), OpenMode::Shared, dossiersSchema()).database;
    ASSERT_TRUE(autre && autre->execute(u"BEGIN EXCLUSIVE"_s));
    FenetreEssai fenetre(magasin, u" %1"_s);
    EXPECT_FALSE(fenetre.gestion.charge(true));
    EXPECT_EQ(fenetre.dits(), QStringList{u"9895"_s});
    EXPECT_EQ(fenetre.noeuds.count(), 0);
    EXPECT_TRUE(fenetre.gestion.ferme(true));
    ASSERT_TRUE(autre->execute(u"COMMIT"_s));
    EXPECT_TRUE(fenetre.gestion.charge(true));
    EXPECT_EQ(fenetre.noeuds.count(), 61);
    EXPECT_EQ(fenetre.dits().size(), 1);
}

TEST_F(MauvaiseBaseTest, WhatCannotBeReadLaterIsToldAndNothingIsLost) {
    remplit();
    magasin.ouvredossiers(dossier());
    magasin.dbdossiers().execute(u"PRAGMA busy_timeout=0"_s);
    FenetreEssai fenetre(magasin, u" %1"_s);
    ASSERT_TRUE(fenetre.gestion.charge(false));
    fenetre.clique(fenetre.noeud(1));
    fenetre.gestion.ajouter();
    fenetre.gestion.apreseditionnoeud();
    const int nombre = fenetre.noeuds.count();
    const auto autre = Database::open(chemin(), OpenMode::Shared, dossiersSchema()).database;
    ASSERT_TRUE(autre && autre->execute(u"BEGIN EXCLUSIVE"_s));
    fenetre.clique(fenetre.noeud(2));
    EXPECT_EQ(fenetre.dits(), QStringList{u"9895"_s});
    EXPECT_EQ(fenetre.elements.count(), 0);
    EXPECT_FALSE(fenetre.vue.commandes.contenu);
    fenetre.gestion.ajouter();
    fenetre.gestion.developpe(fenetre.noeuds.childAt(0, 0));
    fenetre.gestion.toutdevelopper();
    EXPECT_EQ(fenetre.dits().size(), 4);
    EXPECT_EQ(fenetre.noeuds.count(), nombre);
    EXPECT_TRUE(fenetre.noeuds.redraw() && fenetre.elements.redraw());
    fenetre.dialogues.answers = {Bouton::Non};
    EXPECT_FALSE(fenetre.gestion.ferme());
    EXPECT_EQ(fenetre.dits().back(), u"9813"_s);
    ASSERT_TRUE(autre->execute(u"COMMIT"_s));
    EXPECT_TRUE(fenetre.gestion.ferme());
    EXPECT_EQ(dossiers().size(), 61U);
}

TEST_F(MauvaiseBaseTest, AnyDamageIsToldOnceOrDoesNoHarm) {
    remplit();
    const QByteArray entier = octets();
    std::mt19937 hasard(7);
    int crues = 0;
    for (int tour = 0; tour < rounds(60); ++tour) {
        QByteArray autre = entier;
        const auto bornes = static_cast<unsigned>(autre.size());
        for (int i = 0; i < 1 + tour % 12; ++i)
            autre[static_cast<qsizetype>(100 + hasard() % (bornes - 100))] = static_cast<char>(hasard());
        ecris(autre);
        magasin.ouvredossiers(dossier());
        if (magasin.dossiersindisponibles())
            continue;
        const bool sain = magasin.sain();
        crues += sain ? 1 : 0;
        FenetreEssai fenetre(magasin, u" %1"_s);
        fenetre.dialogues.answers.assign(50, Bouton::Ok);
        EXPECT_TRUE(fenetre.gestion.charge(tour % 2 == 0));
        EXPECT_EQ(fenetre.dits().count(u"9818"_s), sain ? 0 : 1);
        use(fenetre);
        EXPECT_TRUE(fenetre.gestion.ferme(true));
        magasin.fermedossiers();
        if (!sain)
            EXPECT_EQ(octets(), autre) << tour;
        for (const QString& copie : QDir(dossier()).entryList({u"dossiers-*"_s}))
            QFile::remove(dossier() + u'/' + copie);
    }
    EXPECT_LT(crues, rounds(60));
}

} // namespace
} // namespace velm::test
