// The copies that lie beside the store, one for each day on which it was changed.
#include "dossiers/copies.h"
#include "magasin_support.h"
#include "tests/support/full_disk.h"

namespace velm::test {
namespace {

/// With a clock of its own.
class CopiesTest : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        reglee.ouvredossiers(dossier());
        ASSERT_FALSE(reglee.dossiersindisponibles());
    }
    EchecEcriture ajoute(qint64 numero) {
        return reglee.ecrit([&] {
            Recordset& t = reglee.rsarborescences();
            t.addNew();
            t.setValue(u"numerodutype"_s, numero);
            return t.update();
        });
    }
    QStringList noms() const {
        QStringList tous;
        for (const QString& copie : copies::toutes(chemin()))
            tous << QFileInfo(copie).fileName();
        return tous;
    }
    static qint64 dossiersde(const QString& copie) {
        const auto base = Database::open(copie, OpenMode::ExclusiveReadOnly, dossiersSchema()).database;
        return base ? base->openTable(u"arborescences"_s)->recordCount() : -1;
    }
    QString copie(const QString& date) const { return dossier() + u"/dossiers-"_s + date + u".dat"_s; }
    static void ecris(const QString& ou, const QByteArray& quoi) {
        QFile fichier(ou);
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(quoi) == quoi.size());
    }

    QDate jour{2026, 11, 23};
    Magasin reglee{[this] { return jour; }};
};

TEST_F(CopiesTest, TheFirstChangeOfADayCopiesTheStoreAsItWas) {
    EXPECT_TRUE(noms().isEmpty()) << "to read it makes no copy";
    ASSERT_TRUE(ajoute(1).ok() && ajoute(2).ok());
    EXPECT_EQ(noms(), QStringList{u"dossiers-2026-11-23.dat"_s});
    EXPECT_EQ(dossiersde(copie(u"2026-11-23"_s)), 0);
    EXPECT_TRUE(copies::saine(copie(u"2026-11-23"_s)));
    EXPECT_FALSE(reglee.copiemanquee());
    jour = jour.addDays(1);
    ASSERT_TRUE(ajoute(3).ok());
    EXPECT_EQ(noms(), (QStringList{u"dossiers-2026-11-24.dat"_s, u"dossiers-2026-11-23.dat"_s}));
    EXPECT_EQ(dossiersde(copie(u"2026-11-24"_s)), 2);
}

TEST_F(CopiesTest, ACopyOfTheDayIsNotMadeASecondTime) {
    ASSERT_TRUE(ajoute(1).ok());
    reglee.fermedossiers();
    reglee.ouvredossiers(dossier());
    ASSERT_TRUE(ajoute(2).ok());
    EXPECT_EQ(dossiersde(copie(u"2026-11-23"_s)), 0);
    // Not even looked for: the user may take it away.
    ASSERT_TRUE(QFile::remove(copie(u"2026-11-23"_s)));
    ASSERT_TRUE(ajoute(3).ok());
    EXPECT_TRUE(noms().isEmpty());
}

TEST_F(CopiesTest, EachStoreHasItsOwnCopies) {
    ASSERT_TRUE(ajoute(1).ok());
    const QTemporaryDir autre;
    ASSERT_TRUE(QFile::copy(chemin(), autre.filePath(u"dossiers.dat"_s)));
    reglee.ouvredossiers(autre.path());
    ASSERT_TRUE(ajoute(2).ok());
    EXPECT_EQ(dossiersde(autre.filePath(u"dossiers-2026-11-23.dat"_s)), 1);
    // What the store before could not be given is not said of this one.
    ASSERT_TRUE(QDir().mkpath(autre.filePath(u"dossiers-2026-11-24.dat.nouveau/occupé"_s)));
    jour = jour.addDays(1);
    ASSERT_TRUE(ajoute(3).ok());
    ASSERT_TRUE(reglee.copiemanquee());
    reglee.ouvredossiers(dossier());
    EXPECT_FALSE(reglee.copiemanquee());
}

TEST_F(CopiesTest, TheLastSevenAreKept) {
    for (int i = 1; i <= 10; ++i, jour = jour.addDays(9))
        ASSERT_TRUE(ajoute(i).ok());
    ASSERT_EQ(noms().size(), copies::gardees);
    EXPECT_EQ(noms().front(), u"dossiers-2027-02-12.dat"_s);
    EXPECT_EQ(noms().back(), u"dossiers-2026-12-20.dat"_s);
    EXPECT_EQ(dossiersde(copie(u"2027-02-12"_s)), 9);
}

TEST_F(CopiesTest, WhatOnlyLooksLikeACopyIsTheUsersOwnAndStays) {
    const QStringList siens{u"Dossiers-2020-01-01.dat"_s,     u"dossiers-2020-01-01.DAT"_s,
                            u"dossiers-a-b-c.dat"_s,          u"dossiers-2026-13-45.dat"_s,
                            u"dossiers-2020-01-01.dat.zip"_s, u"mesdossiers-2020-01-01.dat"_s,
                            u"dossiers-2020-01-01-a.dat"_s,   u"dossiers.dat"_s};
    for (const QString& nom : siens.first(siens.size() - 1))
        ecris(dossier() + u'/' + nom, "x");
    for (int i = 1; i <= 9; ++i, jour = jour.addDays(1))
        ASSERT_TRUE(ajoute(i).ok());
    EXPECT_EQ(noms().size(), copies::gardees);
    for (const QString& nom : siens)
        EXPECT_TRUE(QFile::exists(dossier() + u'/' + nom)) << nom.toStdString();
}

TEST_F(CopiesTest, ACopyThatCannotBeMadeIsToldAndTheChangeIsMadeAllTheSame) {
    // Something else bears the name that the copy has while it is made.
    ASSERT_TRUE(QDir().mkpath(copie(u"2026-11-23"_s) + u".nouveau/occupé"_s));
    EXPECT_TRUE(ajoute(1).ok());
    EXPECT_TRUE(reglee.copiemanquee());
    EXPECT_TRUE(noms().isEmpty());
    // The next change tries again.
    ASSERT_TRUE(QDir(copie(u"2026-11-23"_s) + u".nouveau"_s).removeRecursively());
    EXPECT_TRUE(ajoute(2).ok());
    EXPECT_FALSE(reglee.copiemanquee());
    EXPECT_EQ(dossiersde(copie(u"2026-11-23"_s)), 1);
}

TEST_F(CopiesTest, NoneIsRemovedForACopyThatFails) {
    for (int i = 1; i <= 7; ++i, jour = jour.addDays(1))
        ASSERT_TRUE(ajoute(i).ok());
    const QStringList avant = noms();
    const QString prochaine = copies::chemin(chemin(), jour);
    ASSERT_TRUE(QDir().mkpath(prochaine + u".nouveau/occupé"_s));
    EXPECT_TRUE(ajoute(8).ok());
    EXPECT_EQ(noms(), avant);
}

TEST_F(CopiesTest, OnAFullDiskNoHalfCopyStays) {
    {
        const FullDisk plein(8192);
        EXPECT_FALSE(copies::fait(reglee.dbdossiers(), jour));
    }
    EXPECT_TRUE(noms().isEmpty());
    EXPECT_EQ(QDir(dossier()).entryList({u"*.nouveau*"_s}).size(), 0);
    EXPECT_TRUE(copies::fait(reglee.dbdossiers(), jour));
    EXPECT_EQ(noms().size(), 1);
}

TEST_F(CopiesTest, TheNewestCopyThatIsSoundIsFound) {
    EXPECT_EQ(reglee.derniercopie(), QString());
    for (int i = 1; i <= 4; ++i, jour = jour.addDays(1))
        ASSERT_TRUE(ajoute(i).ok());
    EXPECT_EQ(reglee.derniercopie(), copie(u"2026-11-26"_s));
    ecris(copie(u"2026-11-26"_s), "no base at all");
    EXPECT_EQ(reglee.derniercopie(), copie(u"2026-11-25"_s));
    ecris(copie(u"2026-11-25"_s), {});
    {
        // A store, but without its row of numbers.
        const auto base = Database::open(copie(u"2026-11-24"_s), OpenMode::Shared, dossiersSchema()).database;
        ASSERT_TRUE(base && base->execute(u"DELETE FROM paramètres"_s));
    }
    EXPECT_EQ(reglee.derniercopie(), copie(u"2026-11-23"_s));
    {
        const auto base = Database::open(copie(u"2026-11-23"_s), OpenMode::Shared, dossiersSchema()).database;
        ASSERT_TRUE(base && base->execute(u"DROP TABLE données"_s));
    }
    EXPECT_EQ(reglee.derniercopie(), QString());
    EXPECT_FALSE(copies::saine(copie(u"2020-01-01"_s)));
}

} // namespace
} // namespace velm::test
