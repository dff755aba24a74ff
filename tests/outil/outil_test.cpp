// The tool as its users run it: real processes, their output and exit codes.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Sortie {
    int code = -1;
    QByteArray texte;
    QByteArray erreurs;
    QJsonObject json() const { return QJsonDocument::fromJson(texte).object(); }
};

class OutilTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier.isValid()); }

    Sortie lance(const QStringList& arguments) const {
        QProcess processus;
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        environnement.insert(QStringLiteral("XDG_CONFIG_HOME"), dossier.path());
        processus.setProcessEnvironment(environnement);
        processus.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), arguments);
        EXPECT_TRUE(processus.waitForFinished(60000));
        return {processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
                processus.readAllStandardOutput(), processus.readAllStandardError()};
    }

    QString chemin(const char* nom) const { return dossier.filePath(QString::fromUtf8(nom)); }

    QString ecrit(const char* nom, const QByteArray& octets) const {
        QFile fichier(chemin(nom));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(fichier.fileName()).path()));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
        return fichier.fileName();
    }

    static QString exemple() { return QStringLiteral(VELM_SOURCE_DIR "/collection/exemple"); }
    static QString base() { return QStringLiteral(VELM_BINARY_DIR "/bin/velm2000.dat"); }

    QTemporaryDir dossier;
};

} // namespace

TEST_F(OutilTest, HelpNamesEveryCommandAndEveryExitCode) {
    const Sortie aide = lance({QStringLiteral("--help")});
    EXPECT_EQ(aide.code, 0);
    EXPECT_TRUE(aide.erreurs.isEmpty()) << aide.erreurs.constData();
    for (const char* mot :
         {"compiler", "synthese", "info", "document", "texte", "rtf", "formats", "dossiers", "mots", "rapide"}) {
        EXPECT_TRUE(aide.texte.contains(mot)) << mot;
        const Sortie detail = lance({QString::fromLatin1(mot), QStringLiteral("--help")});
        EXPECT_EQ(detail.code, 0) << mot;
        EXPECT_FALSE(detail.texte.isEmpty()) << mot;
    }
    for (int code = 0; code <= 4; ++code)
        EXPECT_TRUE(aide.texte.contains("  " + QByteArray::number(code) + "  "));
}

TEST_F(OutilTest, AWrongCommandLineGivesTwo) {
    EXPECT_EQ(lance({}).code, 2);
    for (const QStringList& ligne :
         {QStringList{QStringLiteral("rien")}, QStringList{QStringLiteral("texte")},
          QStringList{QStringLiteral("info")}, QStringList{QStringLiteral("compiler"), QStringLiteral("x")},
          QStringList{QStringLiteral("synthese"), QStringLiteral("beaucoup"), chemin("b.dat")},
          QStringList{QStringLiteral("synthese"), QStringLiteral("0"), chemin("b.dat")},
          QStringList{QStringLiteral("document"), QStringLiteral("CO000001"), QStringLiteral("--inconnue")},
          QStringList{QStringLiteral("texte"), QStringLiteral("--inconnue")},
          QStringList{QStringLiteral("dossiers"), QStringLiteral("--inconnue")},
          QStringList{QStringLiteral("dossiers")}, QStringList{QStringLiteral("dossiers"), QStringLiteral("cree")},
          QStringList{QStringLiteral("dossiers"), QStringLiteral("rien")},
          QStringList{QStringLiteral("dossiers cree"), chemin("c.dat")}}) {
        const Sortie sortie = lance(ligne);
        EXPECT_EQ(sortie.code, 2) << qPrintable(ligne.join(u' '));
        EXPECT_TRUE(sortie.texte.isEmpty());
        EXPECT_FALSE(sortie.erreurs.isEmpty());
    }
}

TEST_F(OutilTest, CompilesTheSampleTheSameTwice) {
    const Sortie une = lance({QStringLiteral("compiler"), exemple(), chemin("a.dat"), QStringLiteral("--json")});
    ASSERT_EQ(une.code, 0) << une.erreurs.constData();
    EXPECT_TRUE(une.json().value(QStringLiteral("faite")).toBool());
    EXPECT_EQ(une.json().value(QStringLiteral("erreurs")).toInt(), 0);
    EXPECT_EQ(une.json().value(QStringLiteral("avertissements")).toInt(), 0);
    EXPECT_GE(une.json().value(QStringLiteral("comptes")).toObject().value(QStringLiteral("documents")).toInt(), 300);
    ASSERT_EQ(lance({QStringLiteral("compiler"), exemple(), chemin("b.dat")}).code, 0);
    QFile a(chemin("a.dat"));
    QFile b(chemin("b.dat"));
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());
}

TEST_F(OutilTest, AFaultySourceGivesThreeWithFileAndLineAndNoBase) {
    ecrit("source/documents.jsonl", "{\"collection\": \"CO\", \"numero\": 1}\n{not json\n");
    ecrit("source/arborescence.jsonl", "");
    const Sortie sortie = lance({QStringLiteral("compiler"), chemin("source"), chemin("b.dat")});
    EXPECT_EQ(sortie.code, 3);
    EXPECT_TRUE(sortie.erreurs.contains("documents.jsonl, ligne 2"));
    EXPECT_FALSE(QFile::exists(chemin("b.dat")));
}

TEST_F(OutilTest, ABaseThatCannotBeWrittenGivesOne) {
    EXPECT_EQ(lance({QStringLiteral("compiler"), exemple(), chemin("absent/b.dat")}).code, 1);
}

TEST_F(OutilTest, InfoDescribesABase) {
    const Sortie texte = lance({QStringLiteral("info"), base()});
    EXPECT_EQ(texte.code, 0);
    EXPECT_TRUE(texte.texte.contains("CO Code de la consommation"));
    const QJsonObject json = lance({QStringLiteral("info"), base(), QStringLiteral("--json")}).json();
    EXPECT_GE(json.value(QStringLiteral("documents")).toInt(), 300);
    qint64 somme = 0;
    for (const QJsonValue& compte : json.value(QStringLiteral("collections")).toObject())
        somme += compte.toInteger();
    EXPECT_EQ(somme, json.value(QStringLiteral("documents")).toInteger());
}

TEST_F(OutilTest, InfoRefusesWhatIsNoBase) {
    EXPECT_EQ(lance({QStringLiteral("info"), chemin("absente.dat")}).code, 1);
    EXPECT_EQ(lance({QStringLiteral("info"), ecrit("texte.dat", "no base")}).code, 1);
    const Sortie ancienne =
        lance({QStringLiteral("info"),
               ecrit("ancienne.dat", QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, 'x'))});
    EXPECT_EQ(ancienne.code, 1);
    EXPECT_TRUE(ancienne.erreurs.contains("ancien moteur"));
}

TEST_F(OutilTest, DocumentWritesTextRtfLinksAndJson) {
    const QString cle = QStringLiteral("CO000088");
    const auto demande = [&](const char* option) {
        return lance({QStringLiteral("document"), cle, QStringLiteral("--base"), base(), QString::fromLatin1(option)});
    };
    const Sortie texte = demande("--texte");
    ASSERT_EQ(texte.code, 0) << texte.erreurs.constData();
    EXPECT_TRUE(texte.texte.contains("Article"));
    EXPECT_FALSE(texte.texte.contains('{'));
    const Sortie rtf = demande("--rtf");
    EXPECT_TRUE(rtf.texte.startsWith("{\\rtf1"));
    const Sortie liens = demande("--liens");
    ASSERT_FALSE(liens.texte.isEmpty());
    const QJsonObject json = demande("--json").json();
    EXPECT_EQ(json.value(QStringLiteral("cle")).toString(), cle);
    const QString tout = json.value(QStringLiteral("texte")).toString();
    const QJsonArray desliens = json.value(QStringLiteral("liens")).toArray();
    EXPECT_FALSE(desliens.isEmpty());
    for (const QJsonValue& valeur : desliens) {
        const QJsonObject lien = valeur.toObject();
        const auto debut = lien.value(QStringLiteral("debut")).toInteger();
        const auto fin = lien.value(QStringLiteral("fin")).toInteger();
        EXPECT_EQ(tout.mid(debut, fin - debut), lien.value(QStringLiteral("texte")).toString());
        EXPECT_LT(debut, fin);
    }
}

TEST_F(OutilTest, AnAbsentDocumentGivesFour) {
    EXPECT_EQ(lance({QStringLiteral("document"), QStringLiteral("CO999999"), QStringLiteral("--base"), base()}).code,
              4);
}

TEST_F(OutilTest, CondensedDisplayLeavesNotesOut) {
    // A letter with comments is longer in full than condensed; texts without hidden styles are equal.
    qsizetype plus = 0;
    for (const char* cle : {"CO000001", "CO000088", "CO000002", "CO000003"}) {
        const QStringList ligne{QStringLiteral("document"), QString::fromLatin1(cle), QStringLiteral("--base"), base()};
        const qsizetype plein = lance(ligne).texte.size();
        const qsizetype condense = lance(ligne + QStringList{QStringLiteral("--condense")}).texte.size();
        EXPECT_LE(condense, plein) << cle;
        plus += plein - condense;
    }
    EXPECT_GT(plus, 0);
}

TEST_F(OutilTest, RichTextIsReadRewrittenAndDescribed) {
    const QString fichier = ecrit("a.rtf", "{\\rtf1\\ansi\\ansicpg1252{\\colortbl;\\red31\\green78\\blue121;}"
                                           "Un mot {\\b\\cf1 gras} et l\\'e0.\\par Deux}");
    const Sortie texte = lance({QStringLiteral("texte"), fichier});
    EXPECT_EQ(texte.code, 0);
    EXPECT_EQ(QString::fromUtf8(texte.texte).remove(u'\r'), QStringLiteral("Un mot gras et là.\nDeux"));
    const Sortie rtf = lance({QStringLiteral("rtf"), fichier});
    EXPECT_TRUE(rtf.texte.startsWith("{\\rtf1"));
    const Sortie encore = lance({QStringLiteral("rtf"), ecrit("b.rtf", rtf.texte)});
    EXPECT_EQ(encore.texte, rtf.texte);
    const QJsonArray courses = QJsonDocument::fromJson(lance({QStringLiteral("formats"), fichier}).texte).array();
    QString gras;
    for (const QJsonValue& course : courses) {
        if (course.toObject().value(QStringLiteral("b")).toInt() == 1)
            gras += course.toObject().value(QStringLiteral("text")).toString();
    }
    EXPECT_EQ(gras, u"gras");
}

TEST_F(OutilTest, WhatIsNoRichTextIsAnEmptyText) {
    const Sortie sortie = lance({QStringLiteral("texte"), ecrit("a.rtf", "plain words")});
    EXPECT_EQ(sortie.code, 0);
    EXPECT_TRUE(sortie.texte.isEmpty());
    EXPECT_EQ(lance({QStringLiteral("texte"), chemin("absent.rtf")}).code, 1);
}

TEST_F(OutilTest, ASyntheticBaseIsTheSameTwice) {
    for (const char* nom : {"a.dat", "b.dat"})
        ASSERT_EQ(lance({QStringLiteral("synthese"), QStringLiteral("200"), chemin(nom)}).code, 0);
    QFile a(chemin("a.dat"));
    QFile b(chemin("b.dat"));
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());
    const QJsonObject json = lance({QStringLiteral("info"), chemin("a.dat"), QStringLiteral("--json")}).json();
    EXPECT_EQ(json.value(QStringLiteral("documents")).toInt(), 200);
}

TEST_F(OutilTest, AnEmptyStoreIsMadeButNeverReplaced) {
    const QStringList ligne{QStringLiteral("dossiers"), QStringLiteral("cree"), chemin("dossiers.dat")};
    EXPECT_EQ(lance(ligne).code, 0);
    EXPECT_EQ(lance(ligne).code, 1);
}

TEST_F(OutilTest, AResultThatAFullDiskCutsIsNoSuccess) {
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "no full device here";
    QProcess processus;
    processus.setStandardOutputFile(QStringLiteral("/dev/full"));
    processus.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), {QStringLiteral("--help")});
    ASSERT_TRUE(processus.waitForFinished(60000));
    EXPECT_EQ(processus.exitCode(), 1);
    EXPECT_TRUE(processus.readAllStandardError().contains("stdout"));
}
