// What stands in the way of a repair, and a repair that is killed: a whole store lies there at every moment.
// VELM_MORTS kills so many instead of the suite's.
#include "dossiers/copies.h"
#include "dossiers/reparation.h"
#include "magasin_support.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velm::test {
namespace {

class ReparationGeneeTest : public ArbreTest {
protected:
    void SetUp() override {
        ArbreTest::SetUp();
        QDir(dossier()).mkdir(u"temporaire"_s);
        avant_ = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(temporaire()));
    }
    void TearDown() override {
        EXPECT_TRUE(QDir(temporaire()).isEmpty()) << "nothing stays in the temporary folder";
        avant_.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", avant_);
        ArbreTest::TearDown();
    }
    QString temporaire() const { return dossier() + u"/temporaire"_s; }
    QByteArray octets() const {
        QFile fichier(chemin());
        EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
        return fichier.readAll();
    }
    std::vector<qint64> numeros() {
        std::vector<qint64> tous;
        for (const RangeeDossier& r : dossiers())
            tous.push_back(r.numero);
        return tous;
    }
    BilanReparation repare() { return Reparation::repare(magasin); }
    /// A store with something of everything that is wrong.
    void ouvrefautif() {
        ouvre({{1, 0, 1, u"Baux"_s, 7}, {2, 1, 2, u"Loyers"_s, 1}, {4, 3, 3, u"Perdu"_s, 1}},
              {{1, 1, u"CO000001"_s, u"Un"_s},
               {1, 4, u"CO000002"_s, u"Deux"_s, 5, 10},
               {2, 1, u"CO000003"_s, u"Trois"_s},
               {4, 1, u"CO000004"_s, u"Quatre"_s}});
    }
    const std::vector<RangeeDossier> nets{{1, 0, 1, u"Baux"_s, 2}, {2, 1, 2, u"Loyers"_s, 1}};

private:
    QByteArray avant_;
};

TEST_F(ReparationGeneeTest, RepairKeepsTheWindowsNextNumber) {
    ouvrefautif();
    charge();
    ASSERT_EQ(arbre.prochainnumero(), 5);
    EXPECT_TRUE(repare().faite());
    arbre.chargearbre();
    EXPECT_EQ(arbre.prochainnumero(), 5);
    EXPECT_EQ(dessin(), u"1");
    // What comes then is stored in the new file.
    arbre.ajoute(noeud(1), u"Neuf"_s);
    EXPECT_TRUE(arbre.Sauvearbre().ok());
    magasin.fermedossiers();
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(numeros(), (std::vector<qint64>{1, 2, 5}));
}

TEST_F(ReparationGeneeTest, TheStoreIsCopiedBeforeItsFirstRepairOfADay) {
    ouvrefautif();
    EXPECT_TRUE(repare().faite());
    const QStringList copies = copies::toutes(chemin());
    ASSERT_EQ(copies.size(), 1);
    magasin.fermedossiers();
    ASSERT_TRUE(QFile::remove(chemin()) && QFile::copy(copies.first(), chemin()));
    magasin.ouvredossiers(dossier());
    EXPECT_EQ(numeros(), (std::vector<qint64>{1, 2, 4}));
}

TEST_F(ReparationGeneeTest, AStopAtAnyMomentLeavesTheStoreAsItIs) {
    ouvrefautif();
    for (qint64 n = 5; n < 2005; ++n)
        ajoutedossier({n, 0, n, u"d"_s, 1});
    ASSERT_TRUE(magasin.ecrit([] { return true; }).ok()); // the copy of the day
    const QByteArray avant = octets();
    int arrets = 0;
    for (int limite = 0;; ++limite) {
        int appels = 0;
        const BilanReparation bilan = Reparation::repare(magasin, [&](int) { return ++appels <= limite; });
        ASSERT_TRUE(bilan.echec.ok());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        if (!bilan.arretee)
            break;
        ++arrets;
        ASSERT_FALSE(bilan.faite());
        ASSERT_EQ(octets(), avant) << limite;
        ASSERT_EQ(numeros().size(), 2003U);
    }
    EXPECT_GE(arrets, 6);
    EXPECT_EQ(numeros().size(), 2002U);
}

TEST_F(ReparationGeneeTest, AStoreThatLacksATableOrItsRowIsNotRepaired) {
    for (const QString& ordre : {u"DELETE FROM \"paramètres\""_s, u"DROP TABLE \"données\""_s}) {
        ouvrefautif();
        ASSERT_TRUE(magasin.dbdossiers().execute(ordre)) << magasin.dbdossiers().lastError().toStdString();
        magasin.fermedossiers();
        const QByteArray avant = octets();
        magasin.ouvredossiers(dossier());
        EXPECT_EQ(repare().echec.obstacle, Obstacle::Damaged);
        EXPECT_EQ(octets(), avant);
        magasin.fermedossiers();
        TearDown();
        QFile::remove(chemin());
        SetUp();
    }
}

TEST_F(ReparationGeneeTest, AStoreThatIsNotOpenIsNotRepaired) {
    magasin.ouvredossiers(dossier() + u"/absent"_s);
    EXPECT_EQ(repare().echec.obstacle, Obstacle::Missing);
}

TEST_F(ReparationGeneeTest, AStoreThatAnotherProgramHoldsIsNotRepaired) {
    ouvrefautif();
    Magasin autre;
    autre.ouvredossiers(dossier());
    ASSERT_FALSE(autre.dossiersindisponibles());
    EXPECT_EQ(Reparation::repare(autre).echec.obstacle, Obstacle::Busy);
    EXPECT_EQ(numeros().size(), 3U);
    // A repair does not give the store away.
    EXPECT_TRUE(repare().faite());
    EXPECT_EQ(autre.ecrit([] { return true; }).obstacle, Obstacle::Busy);
}

TEST_F(ReparationGeneeTest, WithoutRoomInTheTemporaryFolderNothingChanges) {
    ouvrefautif();
    ASSERT_TRUE(magasin.ecrit([] { return true; }).ok());
    const QByteArray avant = octets();
    rlimit limite{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limite), 0);
    const auto signal = std::signal(SIGXFSZ, SIG_IGN);
    for (rlim_t octetspermis = 0; octetspermis < 40'000; octetspermis += 6000) {
        const rlimit petite{octetspermis, limite.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &petite), 0);
        const BilanReparation bilan = repare();
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
        if (bilan.faite())
            break;
        EXPECT_EQ(bilan.echec.obstacle, Obstacle::Full) << octetspermis << ' ' << bilan.echec.mots.toStdString();
        EXPECT_EQ(octets(), avant);
        EXPECT_EQ(QDir(dossier()).entryList({u"*.nouveau"_s}), QStringList());
    }
    std::signal(SIGXFSZ, signal);
    EXPECT_TRUE(repare().faite());
    EXPECT_EQ(dossiers(), nets);
}

TEST_F(ReparationGeneeTest, WhenItCannotBeReplacedTheStoreStaysAndIsOpen) {
    ouvrefautif();
    const QByteArray avant = octets();
    // Where the new file is to be made lies a folder.
    ASSERT_TRUE(QDir(dossier()).mkpath(u"dossiers.dat.nouveau/x"_s));
    EXPECT_FALSE(repare().echec.ok());
    EXPECT_EQ(octets(), avant);
    ASSERT_FALSE(magasin.dossiersindisponibles());
    EXPECT_EQ(numeros().size(), 3U);
    ASSERT_TRUE(QDir(dossier() + u"/dossiers.dat.nouveau"_s).removeRecursively());
    EXPECT_TRUE(repare().faite());
    EXPECT_EQ(dossiers(), nets);
}

TEST_F(ReparationGeneeTest, WhatAKilledOneLeftIsInNobodysWay) {
    ouvrefautif();
    for (const QString& reste : {u".nouveau"_s, u".nouveau-journal"_s, u".nouveau-wal"_s}) {
        QFile fichier(chemin() + reste);
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(QByteArray::fromHex("d9d505f920a163d7") + QByteArray(4096, 'x'));
    }
    EXPECT_TRUE(repare().faite());
    EXPECT_EQ(dossiers(), nets);
    EXPECT_TRUE(magasin.sain());
    EXPECT_EQ(QDir(dossier()).entryList({u"*.nouveau*"_s}), QStringList());
}

TEST_F(ReparationGeneeTest, ALinkAndThePermissionsOfTheStoreStay) {
    ouvrefautif();
    magasin.fermedossiers();
    const QString ailleurs = dossier() + u"/ailleurs.dat"_s;
    ASSERT_TRUE(QFile::rename(chemin(), ailleurs) && QFile::link(ailleurs, chemin()));
    const auto miens = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    ASSERT_TRUE(QFile::setPermissions(ailleurs, miens));
    magasin.ouvredossiers(dossier());
    EXPECT_TRUE(repare().faite());
    EXPECT_TRUE(QFileInfo(chemin()).isSymLink());
    EXPECT_EQ(QFile::permissions(ailleurs), miens);
    EXPECT_EQ(dossiers(), nets);
}

TEST_F(ReparationGeneeTest, ACheckTellsWhatARepairWouldDoAndChangesNothing) {
    ouvrefautif();
    const QByteArray avant = octets();
    const BilanReparation dit = Reparation::verifie(magasin.dbdossiers());
    EXPECT_EQ(octets(), avant);
    const BilanReparation fait = repare();
    for (const BilanReparation& bilan : {dit, fait}) {
        EXPECT_TRUE(bilan.faite());
        EXPECT_EQ(bilan.dossiers, 1);
        EXPECT_EQ(bilan.elements, 1);
        EXPECT_EQ(bilan.comptes, 1);
        EXPECT_EQ(bilan.nouveau, 2);
    }
    EXPECT_TRUE(Reparation::verifie(magasin.dbdossiers()).rien());
}

class ReparationTueeTest : public ReparationGeneeTest {
protected:
    /// Repairs the store, however often, until it is killed. Each second time it is faulty again, by one save.
    [[noreturn]] void repareSansFin() {
        Magasin sien;
        sien.ouvredossiers(dossier());
        for (;;) {
            const EchecEcriture etat = sien.dossiersindisponibles() ? sien.echec() : Reparation::repare(sien).echec;
            if (!etat.ok()) {
                // Before the parent can tell what it looked like.
                std::fprintf(stderr, "not repaired: %d %s\n", int(etat.obstacle), qPrintable(etat.mots));
                _exit(1);
            }
            const EchecEcriture echec = sien.ecrit([&] {
                Recordset& elements = sien.rsdonnees();
                elements.addNew();
                elements.setValue(u"arborescence"_s, 99);
                elements.setValue(u"noordre"_s, 1);
                return elements.update();
            });
            if (!echec.ok())
                _exit(2);
        }
    }
    static int tours() {
        return qEnvironmentVariableIsSet("VELM_MORTS") ? qEnvironmentVariableIntValue("VELM_MORTS") : 8;
    }
};

TEST_F(ReparationTueeTest, ARepairThatIsKilledLeavesTheOldStoreOrTheNewOne) {
    std::vector<RangeeElement> beaucoup;
    for (int i = 1; i <= 1000; ++i)
        beaucoup.push_back({1 + i % 2, i, u"CO000001"_s, QString(60, u't')});
    ouvre({{1, 0, 1, u"a"_s, 500}, {2, 1, 2, u"b"_s, 500}}, beaucoup);
    magasin.fermedossiers();
    std::mt19937 hasard(std::random_device{}());
    for (int tour = 0; tour < tours(); ++tour) {
        const pid_t enfant = fork();
        ASSERT_GE(enfant, 0);
        if (enfant == 0)
            repareSansFin();
        std::this_thread::sleep_for(std::chrono::microseconds(5000 + hasard() % 60'000));
        ASSERT_EQ(kill(enfant, SIGKILL), 0);
        int etat = 0;
        ASSERT_EQ(waitpid(enfant, &etat, 0), enfant);
        // The next child draws the same names for its folders.
        QDir(temporaire()).removeRecursively();
        QDir(dossier()).mkdir(u"temporaire"_s);
        ASSERT_TRUE(WIFSIGNALED(etat)) << "the repair gave up by itself, code " << WEXITSTATUS(etat);
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles()) << magasin.echec().mots.toStdString();
        EXPECT_TRUE(magasin.sain());
        EXPECT_TRUE(magasin.ecrit([] { return true; }).ok()) << "the lock of a dead process holds nothing";
        const std::vector<RangeeElement> tous = elements();
        // With the item that belongs to no dossier, or without it.
        EXPECT_TRUE(tous.size() == 1000 || (tous.size() == 1001 && tous.back().dossier == 99)) << tous.size();
        EXPECT_EQ(dossiers(), (std::vector<RangeeDossier>{{1, 0, 1, u"a"_s, 500}, {2, 1, 2, u"b"_s, 500}}));
        magasin.fermedossiers();
    }
}

} // namespace
} // namespace velm::test
