// "velmoutil pdf", read by the tools that others read PDF files with.
#include "tests/outil/lance.h"

#include <QDir>
#include <QFileInfo>

namespace velm::test {

namespace {

class OutilPdf : public OutilRechercheTest {
protected:
    QString chemin(const QString& nom) const { return dossier.filePath(nom); }
    static QString dit(const QString& outil, const QStringList& mots) {
        QProcess processus;
        processus.start(outil, mots);
        EXPECT_TRUE(processus.waitForFinished(60000)) << outil.toStdString();
        EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().toStdString();
        return QString::fromUtf8(processus.readAllStandardOutput());
    }
    void regle(const QString& cle, const QString& valeur) const {
        ASSERT_TRUE(QDir(dossier.path()).mkpath(u"VELMORANTE2000"_s));
        QFile fichier(chemin(u"VELMORANTE2000/VELMORANTE2000.ini"_s));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write("[EDITEUR]\r\n" + cle.toLatin1() + "=" + valeur.toLatin1() + "\r\n");
    }
};

} // namespace

TEST_F(OutilPdf, DocumentsBecomeOneFileWithAnEntryForEach) {
    const QString fichier = chemin(u"deux.pdf"_s);
    const Sortie sortie = lance({u"pdf"_s, u"CO000088"_s, u"DI000008"_s, fichier});
    EXPECT_EQ(sortie.code, 0) << sortie.erreurs.toStdString();
    dit(u"qpdf"_s, {u"--check"_s, fichier});
    const QString texte = dit(u"pdftotext"_s, {fichier, u"-"_s});
    EXPECT_TRUE(texte.contains(u"taux effectif complet"_s));
    EXPECT_TRUE(texte.contains(u"aune de Vaucelles"_s));
    const QString info = dit(u"pdfinfo"_s, {fichier});
    EXPECT_TRUE(info.contains(u"Article 312-4"_s)) << "the first one's title";
    EXPECT_FALSE(info.contains(u"Author"_s));
    const QString plan = dit(u"qpdf"_s, {u"--json"_s, u"--json-key=outlines"_s, fichier});
    EXPECT_EQ(plan.count(u"\"title\""_s), 2);
    EXPECT_TRUE(plan.contains(u"\"destpageposfrom1\": 2"_s)) << "each begins on a sheet of its own";
}

TEST_F(OutilPdf, ADossierBecomesAFileUnderItsName) {
    const QString magasin = chemin(u"dossiers.dat"_s);
    EXPECT_EQ(lance({u"dossiers"_s, u"cree"_s, magasin}).code, 0);
    QFile dv2(chemin(u"baux.dv2"_s));
    ASSERT_TRUE(dv2.open(QIODevice::WriteOnly));
    dv2.write("VELMORante 2000 - DV2\r\nBaux\r\nCO000088 1\r\nArticle\r\nCO999999 2\r\nAbsent\r\n"
              "JP000003 3 0 9P\r\nArr\xEAt [extrait]\r\n");
    dv2.close();
    EXPECT_EQ(lance({u"dossiers"_s, u"importe"_s, dv2.fileName(), u"--dossiers"_s, magasin}).code, 0);
    const QString fichier = chemin(u"baux.pdf"_s);
    const Sortie sortie = lance({u"pdf"_s, u"--dossier"_s, u"1"_s, u"--dossiers"_s, magasin, fichier});
    EXPECT_EQ(sortie.code, 0) << sortie.erreurs.toStdString();
    EXPECT_TRUE(dit(u"pdfinfo"_s, {fichier}).contains(QRegularExpression(u"Title: +Baux"_s)));
    EXPECT_TRUE(dit(u"pdfinfo"_s, {fichier}).contains(QRegularExpression(u"Pages: +2\\n"_s)))
        << "a sheet for each document, and none behind them that holds nothing but a header";
    const QString texte = dit(u"pdftotext"_s, {fichier, u"-"_s});
    EXPECT_TRUE(texte.contains(u"taux effectif complet"_s));
    EXPECT_TRUE(texte.contains(u"Cour de c"_s)) << "nine letters of the extract";
    EXPECT_FALSE(texte.contains(u"Cour de ca"_s));
    EXPECT_EQ(lance({u"pdf"_s, u"--dossier"_s, u"7"_s, u"--dossiers"_s, magasin, chemin(u"rien.pdf"_s)}).code, 4);
    EXPECT_EQ(lance({u"pdf"_s, u"--dossier"_s, u"un"_s, u"--dossiers"_s, magasin, chemin(u"rien.pdf"_s)}).code, 2);
    EXPECT_FALSE(QFile::exists(chemin(u"rien.pdf"_s)));
}

TEST_F(OutilPdf, ADocumentThatIsNotThereIsToldAndNothingIsWritten) {
    const Sortie sortie = lance({u"pdf"_s, u"CO000001"_s, u"CO999999"_s, chemin(u"rien.pdf"_s)});
    EXPECT_EQ(sortie.code, 4);
    EXPECT_TRUE(sortie.erreurs.contains("CO999999"));
    EXPECT_FALSE(QFile::exists(chemin(u"rien.pdf"_s)));
}

TEST_F(OutilPdf, WhatCannotBeWrittenIsTold) {
    EXPECT_EQ(lance({u"pdf"_s, u"CO000001"_s, dossier.path()}).code, 1);
    EXPECT_EQ(lance({u"pdf"_s, chemin(u"seul.pdf"_s)}).code, 2);
    EXPECT_EQ(lance({u"pdf"_s, u"CO000001"_s, u"--base"_s, chemin(u"absente.dat"_s), chemin(u"a.pdf"_s)}).code, 1);
}

TEST_F(OutilPdf, MarginsAreTheUsersAndWithoutRoomAreTold) {
    EXPECT_EQ(lance({u"pdf"_s, u"CO000088"_s, chemin(u"un.pdf"_s)}).code, 0);
    regle(u"PRINTERMARGEHAUTE"_s, u"12000"_s);
    EXPECT_EQ(lance({u"pdf"_s, u"CO000088"_s, chemin(u"plus.pdf"_s)}).code, 0);
    const auto pages = [&](const QString& nom) {
        return QRegularExpression(u"Pages: +(\\d+)"_s).match(dit(u"pdfinfo"_s, {chemin(nom)})).captured(1).toInt();
    };
    EXPECT_GT(pages(u"plus.pdf"_s), pages(u"un.pdf"_s));
    regle(u"PRINTERMARGEHAUTE"_s, u"20000"_s);
    EXPECT_EQ(lance({u"pdf"_s, u"CO000088"_s, chemin(u"rien.pdf"_s)}).code, 1);
    EXPECT_FALSE(QFile::exists(chemin(u"rien.pdf"_s)));
}

} // namespace velm::test
