// The base in the making: what stands beside its place, what is refused, and why something could not be written.
#include "collection/temporaire.h"
#include "tests/collection/dossier.h"
#include "tests/support/full_disk.h"
#include "tests/support/odd_files.h"
#include "tests/support/without_rights.h"

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>

namespace velm::test {
namespace {

using Etat = ResultatCompilation::Etat;

class Temporaire : public DossierSource {
protected:
    void SetUp() override {
        DossierSource::SetUp();
        documents(document("CO", 1, "un mot"));
    }
    QString beside(const QString& suffixe) const { return base() + suffixe; }
    static void pose(const QString& chemin, const QByteArray& octets = "reste") {
        QFile fichier(chemin);
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
    }
    ResultatCompilation compilevers(const QString& cible) const { return velm::compile(source(), cible); }
};

TEST_F(Temporaire, WhatAKilledRunHasLeftIsSwept) {
    // A process that is killed in the middle of its work, and one of which only the name is left.
    const pid_t enfant = fork();
    if (enfant == 0) {
        const BaseTemporaire encours(base());
        raise(SIGKILL);
        _exit(0);
    }
    ASSERT_EQ(waitpid(enfant, nullptr, 0), enfant);
    pose(beside(u".1.tmp"_s));
    ASSERT_EQ(restes().size(), 2);
    EXPECT_TRUE(compile().faite());
    EXPECT_EQ(restes(), QStringList{u"velm2000.dat"_s});
}

TEST_F(Temporaire, WhatOnlyLooksLikeItStays) {
    const QStringList autres{u"velm2000.dat.tmp"_s, u"velm2000.dat.12.tmpx"_s, u"velm2000.dat.a1.tmp"_s,
                             u"velm2000xdat.12.tmp"_s, u"mon velm2000.dat.12.tmp"_s};
    for (const QString& autre : autres)
        pose(dossier_.filePath(autre));
    ASSERT_TRUE(QFile::link(source() + u"/documents.jsonl"_s, beside(u".77.tmp"_s)));
    ASSERT_TRUE(QDir().mkpath(beside(u".78.tmp"_s)));
    EXPECT_TRUE(compile().faite());
    for (const QString& autre : autres)
        EXPECT_TRUE(QFile::exists(dossier_.filePath(autre))) << autre.toStdString();
    EXPECT_TRUE(QFileInfo(beside(u".77.tmp"_s)).isSymLink());
    EXPECT_TRUE(QFileInfo(beside(u".78.tmp"_s)).isDir());
    EXPECT_TRUE(QFile::exists(source() + u"/documents.jsonl"_s));
}

TEST_F(Temporaire, AnotherRunsWorkIsLeftAlone) {
    const BaseTemporaire autre(base());
    ASSERT_NE(autre.base(), nullptr);
    EXPECT_EQ(restes().size(), 1);
    EXPECT_TRUE(compile().faite());
    EXPECT_EQ(restes().size(), 2) << "the other one goes on";
}

TEST_F(Temporaire, WhatIsGivenUpLeavesNothing) {
    {
        const BaseTemporaire temporaire(base());
        ASSERT_EQ(restes().size(), 1);
    }
    EXPECT_EQ(restes(), QStringList{});
}

TEST_F(Temporaire, TheLeftoversOfAHiddenBaseAreSweptToo) {
    const QString cachee = dossier_.filePath(u".base.dat"_s);
    pose(cachee + u".12.tmp"_s);
    EXPECT_TRUE(compilevers(cachee).faite());
    EXPECT_TRUE(QFile::exists(cachee));
    EXPECT_FALSE(QFile::exists(cachee + u".12.tmp"_s));
}

TEST_F(Temporaire, ANameThatIsTakenIsPassedOver) {
    const int pris = ::open(QFile::encodeName(beside(u"."_s + QString::number(getpid()) + u".tmp"_s)).constData(),
                            O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(flock(pris, LOCK_EX), 0);
    EXPECT_TRUE(compile().faite());
    EXPECT_EQ(restes().size(), 2);
    close(pris);
    EXPECT_TRUE(compile().faite());
    EXPECT_EQ(restes(), QStringList{u"velm2000.dat"_s});
}

TEST_F(Temporaire, NothingButAPlainFileIsReplaced) {
    const NobodyWaits watch;
    for (const auto& autre : {putPipe, putDevice, putFolder}) {
        autre(base());
        const ResultatCompilation resultat = compile();
        EXPECT_EQ(resultat.etat, Etat::EcritureImpossible);
        EXPECT_EQ(resultat.obstacle, Obstacle::NotPlain);
        EXPECT_FALSE(QFileInfo(base()).isFile());
        EXPECT_TRUE(QFileInfo::exists(base()));
    }
}

TEST_F(Temporaire, ALinkThatLeadsNowhereIsRefused) {
    ASSERT_TRUE(QFile::link(dossier_.filePath(u"nulle/part"_s), base()));
    EXPECT_EQ(compile().obstacle, Obstacle::NotPlain);
    EXPECT_TRUE(QFileInfo(base()).isSymLink());
}

TEST_F(Temporaire, OfALinkItsEndIsReplaced) {
    ASSERT_TRUE(QDir().mkpath(dossier_.filePath(u"ailleurs"_s)));
    const QString bout = dossier_.filePath(u"ailleurs/base.dat"_s);
    pose(bout, "vieux");
    pose(bout + u".5.tmp"_s);
    ASSERT_TRUE(QFile::link(bout, base()));
    EXPECT_TRUE(compile().faite());
    EXPECT_TRUE(QFileInfo(base()).isSymLink());
    EXPECT_FALSE(QFile::exists(bout + u".5.tmp"_s));
    EXPECT_NE(ouvre(), nullptr);
    EXPECT_GT(QFileInfo(bout).size(), 5);
}

TEST_F(Temporaire, APlaceThatCannotBeWrittenHasItsKind) {
    EXPECT_EQ(compilevers(dossier_.filePath(u"absent/velm2000.dat"_s)).obstacle, Obstacle::NoFolder);
    ASSERT_TRUE(QFile::setPermissions(dossier_.path(), QFile::Permissions(0x7555)));
    const WithoutRights personne;
    EXPECT_EQ(compile().obstacle, Obstacle::Denied);
}

TEST_F(Temporaire, ABaseOfAnotherThatMayNotBeReplacedHasItsKind) {
    BaseTemporaire temporaire(base());
    ASSERT_NE(temporaire.base(), nullptr);
    putFolder(base());
    EXPECT_FALSE(temporaire.acheve());
    EXPECT_EQ(temporaire.obstacle(), Obstacle::NotPlain);
    EXPECT_EQ(temporaire.etat(), Etat::EcritureImpossible);
    temporaire.echoue(temporaire.obstacle(), temporaire.raison());
    EXPECT_EQ(restes(), QStringList{});
}

// Whatever the engine and the system call it.
TEST_F(Temporaire, AFullDiskIsToldAsSuchWhereverItIsMet) {
    QByteArray lignes;
    for (int k = 1; k < 400; ++k)
        lignes += document("CO", k, QByteArray("texte ").repeated(100));
    documents(lignes);
    for (const rlim_t octets : {0U, 4096U, 60'000U, 200'000U, 400'000U}) {
        const FullDisk plein(octets);
        const ResultatCompilation resultat = compile();
        EXPECT_EQ(resultat.etat, Etat::DisquePlein) << octets;
        EXPECT_EQ(resultat.obstacle, Obstacle::Full) << octets;
        EXPECT_EQ(restes(), QStringList{});
    }
}

TEST_F(Temporaire, AnErrorWithTheWordFullInItsPathIsNoFullDisk) {
    ASSERT_TRUE(QDir().mkpath(dossier_.filePath(u"full"_s)));
    putFolder(dossier_.filePath(u"full/velm2000.dat"_s));
    EXPECT_EQ(compilevers(dossier_.filePath(u"full/velm2000.dat"_s)).etat, Etat::EcritureImpossible);
}

} // namespace
} // namespace velm::test
