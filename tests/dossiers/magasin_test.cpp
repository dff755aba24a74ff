// The store by itself: how it opens and closes, who may write it, and that a change is made whole or not at all.
#include "magasin_support.h"
#include "tests/support/full_disk.h"
#include "tests/support/without_rights.h"

#include <QDateTime>

#include <sys/stat.h>
#include <sys/wait.h>

namespace velm::test {
namespace {

class OuvertureTest : public MagasinTest {
protected:
    EchecEcriture ajoute(Magasin& ou, qint64 numero) {
        return ou.ecrit([&] {
            Recordset& t = ou.rsarborescences();
            t.addNew();
            t.setValue(u"numerodutype"_s, numero);
            return t.update();
        });
    }
    bool leverrou() const { return QFile::exists(chemin() + u".verrou"_s); }
};

TEST_F(OuvertureTest, AnAbsentStoreIsNotCreated) {
    ASSERT_TRUE(QFile::remove(chemin()));
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.dossiersindisponibles());
    EXPECT_EQ(magasin.echec().obstacle, Obstacle::Missing);
    EXPECT_EQ(magasin.cheminbasedossiers(), chemin());
    EXPECT_TRUE(QDir(dossier()).isEmpty());
    EXPECT_THROW(magasin.rsarborescences(), Arret);
    EXPECT_THROW(magasin.rsdonnees(), Arret);
    EXPECT_THROW(magasin.rsparametres(), Arret);
    EXPECT_THROW(magasin.dbdossiers(), Arret);
    EXPECT_THROW(magasin.sain(), Arret);
    EXPECT_THROW(magasin.lit([] {}), Arret);
    EXPECT_THROW(ajoute(magasin, 1), Arret);
    magasin.fermedossiers();
}

TEST_F(OuvertureTest, ThePathOpensWithADoubledSeparator) {
    for (const QString& fin : {u""_s, u"/"_s, u"//"_s}) {
        magasin.ouvredossiers(dossier() + fin);
        EXPECT_FALSE(magasin.dossiersindisponibles()) << fin.toStdString();
        EXPECT_TRUE(magasin.echec().ok());
        EXPECT_TRUE(ajoute(magasin, 1 + fin.size()).ok());
    }
    EXPECT_EQ(dossiers().size(), 3U);
}

TEST_F(OuvertureTest, WhatIsOpenStaysWhereAnotherFails) {
    magasin.ouvredossiers(dossier());
    ASSERT_TRUE(ajoute(magasin, 7).ok());
    magasin.ouvredossiers(dossier() + u"/ailleurs"_s);
    EXPECT_TRUE(magasin.dossiersindisponibles());
    magasin.fermedossiers(); // nothing, as none is available
    EXPECT_EQ(dossiers().size(), 1U);
    magasin.ouvredossiers(dossier());
    EXPECT_FALSE(magasin.dossiersindisponibles());
}

TEST_F(OuvertureTest, AClosedStoreHasNoTablesAndOpensAgain) {
    magasin.ouvredossiers(dossier());
    ASSERT_TRUE(ajoute(magasin, 7).ok());
    magasin.fermedossiers();
    magasin.fermedossiers();
    EXPECT_THROW(magasin.rsarborescences(), Arret);
    EXPECT_FALSE(leverrou());
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(dossiers().size(), 1U);
}

// ---- one change

TEST_F(OuvertureTest, AChangeThatSaysNoIsUndone) {
    ouvre();
    EXPECT_FALSE(magasin
                     .ecrit([&] {
                         ajoutedossier({1, 0, 1, u"x"_s, 0});
                         return false;
                     })
                     .ok());
    EXPECT_TRUE(dossiers().empty());
    EXPECT_FALSE(magasin.dbdossiers().inTransaction());
}

TEST_F(OuvertureTest, ARunTimeErrorInAChangeUndoesItAndIsAFailure) {
    ouvre();
    const auto echec = magasin.ecrit([&] {
        ajoutedossier({1, 0, 1, u"x"_s, 0});
        magasin.rsdonnees().setIndex(u"aucun"_s);
        return true;
    });
    EXPECT_FALSE(echec.ok());
    EXPECT_FALSE(echec.mots.isEmpty());
    EXPECT_TRUE(dossiers().empty());
    EXPECT_TRUE(ajoute(magasin, 1).ok()) << "and the next one goes on";
}

TEST_F(OuvertureTest, AChangeInsideAnotherIsAPartOfIt) {
    ouvre();
    EXPECT_FALSE(magasin.ecrit([&] { return ajoute(magasin, 1).ok() && ajoute(magasin, 1).ok(); }).ok());
    EXPECT_TRUE(dossiers().empty());
    EXPECT_TRUE(magasin.ecrit([&] { return ajoute(magasin, 1).ok() && ajoute(magasin, 2).ok(); }).ok());
    EXPECT_EQ(dossiers().size(), 2U);
}

TEST_F(OuvertureTest, ARunTimeErrorInAReadIsAFailure) {
    ouvre();
    EXPECT_TRUE(magasin.lit([] {}).ok());
    const auto echec = magasin.lit([&] { magasin.rsdonnees().setIndex(u"aucun"_s); });
    EXPECT_FALSE(echec.ok());
    EXPECT_TRUE(echec.mots.contains(u"aucun"_s));
}

// ---- other programs

TEST_F(OuvertureTest, OneProgramWritesAtATime) {
    ouvre();
    EXPECT_TRUE(leverrou());
    Magasin autre;
    autre.ouvredossiers(dossier());
    ASSERT_FALSE(autre.dossiersindisponibles()) << "reading is free";
    EXPECT_EQ(ajoute(autre, 2).obstacle, Obstacle::Busy);
    EXPECT_TRUE(ajoute(magasin, 1).ok());
    // However long it has been at it.
    QFile verrou(chemin() + u".verrou"_s);
    ASSERT_TRUE(verrou.open(QIODevice::ReadWrite) &&
                verrou.setFileTime(QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime));
    verrou.close();
    EXPECT_EQ(ajoute(autre, 2).obstacle, Obstacle::Busy);
    magasin.fermedossiers();
    EXPECT_TRUE(ajoute(autre, 2).ok());
    autre.fermedossiers();
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(dossiers().size(), 2U);
}

TEST_F(OuvertureTest, WhereNoLockCanBeMadeTheChangeItselfTellsWhy) {
    const FullDisk plein(0);
    magasin.ouvredossiers(dossier());
    EXPECT_FALSE(leverrou());
    EXPECT_EQ(ajoute(magasin, 1).obstacle, Obstacle::Full);
}

TEST_F(OuvertureTest, TheLockOfAProgramThatDiedIsTaken) {
    const pid_t enfant = fork();
    ASSERT_GE(enfant, 0);
    if (enfant == 0) {
        auto* const sien = new Magasin;
        sien->ouvredossiers(dossier());
        _exit(ajoute(*sien, 1).ok() ? 0 : 1);
    }
    int fin = 0;
    ASSERT_EQ(waitpid(enfant, &fin, 0), enfant);
    ASSERT_TRUE(WIFEXITED(fin) && WEXITSTATUS(fin) == 0);
    ASSERT_TRUE(leverrou());
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(ajoute(magasin, 2).ok());
    EXPECT_EQ(dossiers().size(), 2U);
}

/// Another connection that holds the file, as a program of another make would.
class Occupant {
public:
    explicit Occupant(const QString& chemin)
        : base_(Database::open(chemin, OpenMode::Shared, dossiersSchema()).database) {
        EXPECT_TRUE(base_ && base_->execute(u"BEGIN EXCLUSIVE"_s));
    }
    void rend() { base_->execute(u"COMMIT"_s); }

private:
    std::unique_ptr<Database> base_;
};

TEST_F(OuvertureTest, AStoreThatAnotherHoldsIsBusyNotDamaged) {
    magasin.ouvredossiers(dossier());
    magasin.dbdossiers().execute(u"PRAGMA busy_timeout=0"_s);
    {
        Occupant occupant(chemin());
        EXPECT_EQ(magasin.etat(), Obstacle::Busy);
        EXPECT_FALSE(magasin.sain());
        EXPECT_EQ(ajoute(magasin, 1).obstacle, Obstacle::Busy);
        EXPECT_EQ(magasin.lit([&] { magasin.rsarborescences().moveFirst(); }).obstacle, Obstacle::Busy);
        occupant.rend();
    }
    EXPECT_EQ(magasin.etat(), Obstacle::None);
    EXPECT_TRUE(ajoute(magasin, 1).ok());
    {
        Occupant occupant(chemin());
        EXPECT_TRUE(magasin.sain()) << "what was found out once stays";
        EXPECT_EQ(ajoute(magasin, 2).obstacle, Obstacle::Busy);
        occupant.rend();
    }
    EXPECT_TRUE(ajoute(magasin, 2).ok());
}

TEST_F(OuvertureTest, TheLookAtTheStoreLeavesNoLock) {
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.sain());
    Occupant occupant(chemin());
    occupant.rend();
}

TEST_F(OuvertureTest, AFileThatMayNotBeWrittenIsNotAvailable) {
    ASSERT_EQ(chmod(QFile::encodeName(chemin()).constData(), 0444), 0);
    ASSERT_EQ(chmod(QFile::encodeName(dossier()).constData(), 0755), 0);
    const WithoutRights sansdroits;
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.dossiersindisponibles());
    EXPECT_EQ(magasin.echec().obstacle, Obstacle::ReadOnly);
}

TEST_F(OuvertureTest, InAFolderThatMayNotBeWrittenTheStoreIsNotAvailable) {
    ASSERT_EQ(chmod(QFile::encodeName(chemin()).constData(), 0666), 0);
    ASSERT_EQ(chmod(QFile::encodeName(dossier()).constData(), 0555), 0);
    const WithoutRights sansdroits;
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(magasin.dossiersindisponibles());
    EXPECT_EQ(magasin.echec().obstacle, Obstacle::ReadOnly);
}

TEST_F(OuvertureTest, InAFolderThatMayNoLongerBeWrittenTheStoreIsReadAndAChangeFails) {
    ouvre({{1, 0, 1, u"un"_s, 0}});
    ASSERT_EQ(chmod(QFile::encodeName(dossier()).constData(), 0555), 0);
    const WithoutRights sansdroits;
    EXPECT_EQ(ajoute(magasin, 2).obstacle, Obstacle::ReadOnly);
    EXPECT_TRUE(magasin.copiemanquee());
    EXPECT_EQ(dossiers().size(), 1U);
}

} // namespace
} // namespace velm::test
