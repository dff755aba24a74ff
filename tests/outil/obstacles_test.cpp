// What the tool says of a file that it cannot read or write: which of the reasons it is.
#include "core/langue.h"
#include "tests/outil/lance.h"
#include "tests/support/odd_files.h"

#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace velm;
using namespace velm::test;

namespace {

class OutilObstaclesTest : public OutilRechercheTest {
protected:
    static QString exemple() { return QStringLiteral(VELM_SOURCE_DIR "/collection/exemple"); }
    QString chemin(const QString& nom) const { return dossier.filePath(nom); }

    QString texte(int id, const QStringList& parties = {}) {
        return remplace(langue_.lireressource(Texte{id}), parties);
    }
    QString lecture(const QString& fichier, int raison) { return texte(9330, {fichier, texte(raison)}); }
    QString ecriture(const QString& fichier, int raison) { return texte(9331, {fichier, texte(raison)}); }

    /// The first line of the errors, without the tool's name.
    static QString dit(const Sortie& sortie) {
        EXPECT_NE(sortie.code, 0);
        return QString::fromUtf8(sortie.erreurs).section(u'\n', 0, 0).mid(11);
    }

    /// In a process that may write no file beyond that size, or, as root, without root's rights.
    static void pleinapres(QProcess& processus, rlim_t octets) {
        processus.setChildProcessModifier([octets] {
            const rlimit limite{octets, octets};
            setrlimit(RLIMIT_FSIZE, &limite);
            std::signal(SIGXFSZ, SIG_IGN);
        });
    }
    static void sansdroits(QProcess& processus) {
        processus.setChildProcessModifier([] {
            constexpr uid_t personne = 65534;
            if (geteuid() == 0 && setuid(personne) != 0)
                _exit(99);
        });
    }
    Sortie lanceavec(const std::function<void(QProcess&)>& prepare, const QStringList& arguments) const {
        QProcess processus;
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        environnement.insert(u"XDG_CONFIG_HOME"_s, dossier.path());
        processus.setProcessEnvironment(environnement);
        prepare(processus);
        processus.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), arguments);
        EXPECT_TRUE(processus.waitForFinished(60000));
        return {processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
                QString::fromUtf8(processus.readAllStandardOutput()), processus.readAllStandardError()};
    }

private:
    Langue langue_ = [] {
        Langue francaise([](const QString& numero) { ADD_FAILURE() << numero.toStdString(); });
        francaise.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR), u"FR"_s);
        return francaise;
    }();
};

} // namespace

TEST_F(OutilObstaclesTest, EachCommandThatReadsSaysWhatIsWrongWithTheFile) {
    for (const QString& commande : {u"info"_s, u"texte"_s, u"rtf"_s, u"formats"_s, u"cv2"_s}) {
        const QString absent = chemin(u"absent"_s);
        EXPECT_EQ(dit(lance({commande, absent})), lecture(absent, 9530)) << qPrintable(commande);
        EXPECT_EQ(dit(lance({commande, dossier.path()})), lecture(dossier.path(), 9534)) << qPrintable(commande);
    }
    const QString base = chemin(u"absente.dat"_s);
    EXPECT_EQ(dit(lance({u"document"_s, u"CO1"_s, u"--base"_s, base})), lecture(base, 9530));
    EXPECT_EQ(dit(lance({u"compiler"_s, base, chemin(u"b.dat"_s)})), lecture(base, 9530));
    EXPECT_EQ(dit(lance({u"compiler"_s, QStringLiteral(VELM_SOURCE_DIR "/README.md"), chemin(u"b.dat"_s)})),
              lecture(QStringLiteral(VELM_SOURCE_DIR "/README.md"), 9535));
}

TEST_F(OutilObstaclesTest, ABaseCutShortIsSaidToBeOneThatMayBeDamaged) {
    const QString base = chemin(u"coupee.dat"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELM_BINARY_DIR "/bin/velm2000.dat"), base));
    ASSERT_TRUE(QFile::resize(base, QFileInfo(base).size() / 2));
    EXPECT_EQ(dit(lance({u"info"_s, base})), lecture(base, 9541));
    EXPECT_EQ(dit(lance({u"document"_s, u"CO1"_s, u"--base"_s, base})), lecture(base, 9541));
    const QString autre = QStringLiteral(VELM_SOURCE_DIR "/README.md");
    EXPECT_EQ(dit(lance({u"info"_s, autre})), lecture(autre, 9541));
}

TEST_F(OutilObstaclesTest, WhatMayNotBeReadIsDenied) {
    const QString fichier = chemin(u"secret"_s);
    QFile secret(fichier);
    ASSERT_TRUE(secret.open(QIODevice::WriteOnly) && secret.setPermissions(QFile::Permissions()));
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), QFile::Permissions(0x7777)));
    for (const QString& commande : {u"info"_s, u"texte"_s, u"cv2"_s})
        EXPECT_EQ(dit(lanceavec(sansdroits, {commande, fichier})), lecture(fichier, 9533)) << qPrintable(commande);
}

TEST_F(OutilObstaclesTest, ACriteriaFileIsAPlainFile) {
    const NobodyWaits watch;
    const QString fichier = chemin(u"a.cv2"_s);
    for (const auto& autre : {putPipe, putDevice}) {
        autre(fichier);
        EXPECT_EQ(dit(lance({u"cv2"_s, fichier})), lecture(fichier, 9534));
    }
}

TEST_F(OutilObstaclesTest, SettingsThatAreNoPlainFileKeepNobodyWaiting) {
    const NobodyWaits watch;
    ASSERT_TRUE(QDir(dossier.path()).mkpath(u"VELMORANTE2000"_s));
    for (const auto& autre : {putPipe, putDevice}) {
        autre(chemin(u"VELMORANTE2000/VELMORANTE2000.ini"_s));
        EXPECT_EQ(lance({u"--version"_s}).code, 0);
    }
}

TEST_F(OutilObstaclesTest, RichTextMayComeThroughAPipe) {
    QProcess processus;
    processus.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), {u"texte"_s, u"/dev/stdin"_s});
    processus.write("{\\rtf1 par un tube}");
    processus.closeWriteChannel();
    ASSERT_TRUE(processus.waitForFinished(60000));
    EXPECT_EQ(processus.readAllStandardOutput(), "par un tube");
}

TEST_F(OutilObstaclesTest, ABaseThatCannotBeWrittenSaysWhy) {
    const QString sansdossier = chemin(u"absent/b.dat"_s);
    EXPECT_EQ(dit(lance({u"compiler"_s, exemple(), sansdossier})), ecriture(sansdossier, 9531));
    EXPECT_EQ(dit(lance({u"synthese"_s, u"10"_s, sansdossier})), ecriture(sansdossier, 9531));
    EXPECT_EQ(dit(lance({u"dossiers"_s, u"cree"_s, sansdossier})), ecriture(sansdossier, 9531));
    EXPECT_EQ(dit(lance({u"compiler"_s, exemple(), dossier.path()})), ecriture(dossier.path(), 9534));
    EXPECT_EQ(dit(lance({u"dossiers"_s, u"cree"_s, dossier.path()})), ecriture(dossier.path(), 9532));
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), QFile::Permissions(0x7555)));
    for (const QStringList& ligne : {QStringList{u"compiler"_s, exemple(), chemin(u"b.dat"_s)},
                                     QStringList{u"dossiers"_s, u"cree"_s, chemin(u"b.dat"_s)}})
        EXPECT_EQ(dit(lanceavec(sansdroits, ligne)), ecriture(chemin(u"b.dat"_s), 9533));
}

TEST_F(OutilObstaclesTest, AFullDiskIsSaidAndLeavesNothing) {
    for (const rlim_t octets : {0U, 5000U, 100'000U, 1'000'000U}) {
        const auto plein = [octets](QProcess& processus) { pleinapres(processus, octets); };
        EXPECT_EQ(dit(lanceavec(plein, {u"compiler"_s, exemple(), chemin(u"b.dat"_s)})), texte(9337)) << octets;
        EXPECT_TRUE(QDir(dossier.path()).isEmpty()) << octets;
    }
    for (const rlim_t octets : {0U, 5000U, 20'000U, 30'000U}) {
        const auto plein = [octets](QProcess& processus) { pleinapres(processus, octets); };
        const QString magasin = chemin(u"dossiers.dat"_s);
        EXPECT_EQ(dit(lanceavec(plein, {u"dossiers"_s, u"cree"_s, magasin})), ecriture(magasin, 9536)) << octets;
        EXPECT_TRUE(QDir(dossier.path()).isEmpty()) << octets;
    }
}

TEST_F(OutilObstaclesTest, AProblemOfABodyInRichTextNamesItsFile) {
    ASSERT_TRUE(QDir(dossier.path()).mkpath(u"source/rtf"_s));
    const auto ecrit = [&](const QString& nom, const QByteArray& octets) {
        QFile fichier(chemin(u"source/"_s + nom));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
    };
    ecrit(u"rtf/a.rtf"_s, "{\\rtf1 \\{I=X\\}}");
    ecrit(u"documents.jsonl"_s, "\n{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"rtf\":\"rtf/a.rtf\"}\n");
    const Sortie sortie = lance({u"compiler"_s, chemin(u"source"_s), chemin(u"b.dat"_s)});
    EXPECT_EQ(sortie.code, 3);
    EXPECT_EQ(dit(sortie), texte(9542, {u"rtf/a.rtf"_s, u"documents.jsonl"_s, u"2"_s, texte(9351, {u"X"_s})}));
}
