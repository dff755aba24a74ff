// What big inputs cost: the memory that a command needs at most, beside that of another one on the same input.
#include "collection/collection.h"
#include "tests/outil/lance.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace velm::test;

namespace {

class OutilMemoireTest : public OutilRechercheTest {
protected:
    void SetUp() override {
        OutilRechercheTest::SetUp();
        // A sanitizer keeps what was freed, up to 256 MB: that is not the command's. The children inherit this.
        qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
    }
    /// Runs a command with its output in a file; the most memory it held, in bytes.
    qint64 memoire(const QStringList& arguments) const {
        // Of a direct child the system counts what this process held when it came, too.
        QProcess intermediaire;
        intermediaire.start(u"python3"_s,
                            QStringList{u"-c"_s,
                                        u"import resource, subprocess, sys\n"
                                        "with open(sys.argv[1], 'wb') as out:\n"
                                        "    code = subprocess.run(sys.argv[2:], stdout=out).returncode\n"
                                        "print(code, resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)"_s,
                                        sortie(), QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil")} +
                                arguments);
        EXPECT_TRUE(intermediaire.waitForFinished(60'000));
        const QStringList dits = QString::fromUtf8(intermediaire.readAllStandardOutput()).simplified().split(u' ');
        EXPECT_EQ(dits.value(0), u"0") << qPrintable(arguments.join(u' '));
        const qint64 octets = dits.value(1).toLongLong() * 1024;
        EXPECT_GT(octets, 1'000'000);
        return octets;
    }
    QString sortie() const { return dossier.filePath(u"sortie"_s); }
    QString ecrit(const QString& nom, const QByteArray& octets) const {
        QFile fichier(dossier.filePath(nom));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        EXPECT_EQ(fichier.write(octets), octets.size());
        return fichier.fileName();
    }
};

TEST_F(OutilMemoireTest, FormatsOfManyRunsTakeNoMoreThanTheText) {
    const QString rtf = ecrit(u"a.rtf"_s, "{\\rtf1 " + QByteArray("{\\b a}b").repeated(100'000) + '}');
    const qint64 texte = memoire({u"rtf"_s, rtf});
    EXPECT_LT(memoire({u"formats"_s, rtf}), 2 * texte);
    EXPECT_GT(QFileInfo(sortie()).size(), 200'000 * 60);
}

TEST_F(OutilMemoireTest, LinksCostNothingWhereOnlyTheTextIsAsked) {
    ASSERT_TRUE(QDir(dossier.path()).mkpath(u"source"_s));
    QByteArray ligne = "{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"corps\":[";
    for (int k = 0; k < 600; ++k)
        ligne += (k == 0 ? "" : ",") + QByteArray("{\"style\":\"alinea\",\"texte\":\"") +
                 QByteArray("{L=x|CO000002} ").repeated(200) + "\"}";
    ecrit(u"source/documents.jsonl"_s,
          ligne + "]}\n{\"collection\":\"CO\",\"numero\":2,\"titre\":\"T\",\"corps\":[]}\n");
    const QString base = dossier.filePath(u"b.dat"_s);
    ASSERT_TRUE(velm::compile(dossier.filePath(u"source"_s), base).faite());
    const qint64 tout = memoire({u"document"_s, u"CO1"_s, u"--json"_s, u"--base"_s, base});
    for (const QString& option : {u"--texte"_s, u"--rtf"_s, u"--liens"_s})
        EXPECT_LT(memoire({u"document"_s, u"CO1"_s, option, u"--base"_s, base}), tout / 2) << qPrintable(option);
    EXPECT_GT(QFileInfo(sortie()).size(), 120'000 * 15) << "the links are all there";
}

TEST_F(OutilMemoireTest, CellsOfMegabytesTakeAFewTimesTheirSize) {
    constexpr qint64 taille = 8'000'000;
    const QByteArray tete =
        "VELMORante 2000 - CV2\r\n" + QByteArray("\r\n").repeated(22) + "2\r\n0\r\n1\r\n2\r\n3\r\n4\r\n5\r\n";
    const auto avec = [&](qint64 octets) {
        return ecrit(u"a.cv2"_s, tete + QByteArray(octets, 'x') + "\r\na\r\nb\r\nc\r\nCO\r\n000001\r\nCO000001\r\n");
    };
    const qint64 petit = memoire({u"cv2"_s, avec(1)});
    for (const QStringList& option : {QStringList{}, QStringList{u"--json"_s}}) {
        const qint64 grand = memoire(QStringList{u"cv2"_s, avec(taille)} + option);
        EXPECT_LT(grand - petit, 16 * taille);
        EXPECT_GT(QFileInfo(sortie()).size(), taille) << "the cell is shown whole";
    }
}

} // namespace
