#include "core/langue.h"
#include "platform/text/ansi.h"
#include "tests/support/arret.h"
#include "tests/support/odd_files.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;

namespace {

class LangueTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        for (const QString& nom : {QStringLiteral("application/langues"), QStringLiteral("programme/langues")})
            ASSERT_TRUE(QDir(dossier_.path()).mkpath(nom));
    }

    void ecrit(const QString& ou, const QString& extension, const QString& lignes) {
        QFile fichier(dossier_.filePath(ou + QStringLiteral("/langues/RES2000.") + extension));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(ansi::encode(QStringLiteral("[VELMORANTE 2000]\r\n") + lignes));
    }

    Langue langue(const QString& extension) {
        Langue nouvelle([this](const QString& numero) { signales_.append(numero); });
        nouvelle.choisitfichier(dossier_.filePath(QStringLiteral("application")),
                                dossier_.filePath(QStringLiteral("programme")), extension);
        return nouvelle;
    }

    QTemporaryDir dossier_;
    QStringList signales_;
};

} // namespace

TEST_F(LangueTest, ATextIsReadFromTheFileOnce) {
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("401=Quitter\r\n"));
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_EQ(l.lireressource(Texte{401}), u"Quitter");
    const int lectures = l.lectures();
    EXPECT_EQ(lectures, 1);
    EXPECT_EQ(l.lireressource(Texte{401}), u"Quitter");
    EXPECT_EQ(l.lectures(), lectures);
    EXPECT_TRUE(signales_.isEmpty());
}

TEST_F(LangueTest, WhatIsNoPlainFileHoldsNoText) {
    const test::NobodyWaits watch;
    const QString fichier = dossier_.filePath(QStringLiteral("application/langues/RES2000.FR"));
    ecrit(QStringLiteral("programme"), QStringLiteral("FR"), QStringLiteral("401=Quitter\r\n"));
    for (const auto& autre : {test::putPipe, test::putDevice, test::putFolder}) {
        autre(fichier);
        EXPECT_EQ(langue(QStringLiteral("FR")).lireressource(Texte{401}), u"Quitter");
    }
}

TEST_F(LangueTest, AnEmptyTextIsReadAgainEachTimeAndItsNumberShown) {
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("401=\r\n"));
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_TRUE(l.lireressource(Texte{401}).isEmpty());
    const int lectures = l.lectures();
    EXPECT_TRUE(l.lireressource(Texte{401}).isEmpty());
    EXPECT_GT(l.lectures(), lectures);
    EXPECT_EQ(signales_, (QStringList{QStringLiteral("401"), QStringLiteral("401")}));
}

TEST_F(LangueTest, ATextMissingInTheForeignFileComesFromTheFrenchOneAndThenFromTheCache) {
    ecrit(QStringLiteral("application"), QStringLiteral("EN"), QStringLiteral("400=Quit?\r\n"));
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("400=Quitter ?\r\n401=Quitter\r\n"));
    Langue l = langue(QStringLiteral("EN"));
    EXPECT_EQ(l.lireressource(Texte{400}), u"Quit?");
    EXPECT_EQ(l.lireressource(Texte{401}), u"Quitter");
    const int lectures = l.lectures();
    EXPECT_EQ(l.lireressource(Texte{401}), u"Quitter");
    EXPECT_EQ(l.lectures(), lectures);
    EXPECT_TRUE(signales_.isEmpty());
}

TEST_F(LangueTest, ATextMissingEverywhereShowsItsNumberAndIsEmpty) {
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("1=un\r\n"));
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_TRUE(l.lireressource(Texte{9999}).isEmpty());
    EXPECT_EQ(signales_, QStringList{QStringLiteral("9999")});
}

TEST_F(LangueTest, AMissingFileShowsANumberForEachText) {
    Langue l = langue(QStringLiteral("FR"));
    for (int n = 1; n <= 3; ++n)
        EXPECT_TRUE(l.lireressource(Texte{n}).isEmpty());
    EXPECT_EQ(signales_.size(), 3);
}

TEST_F(LangueTest, AFileWithoutTheSectionShowsNumbers) {
    QFile fichier(dossier_.filePath(QStringLiteral("application/langues/RES2000.FR")));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write("[AUTRE]\r\n8=Titre\r\n");
    fichier.close();
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_TRUE(l.lireressource(Texte{8}).isEmpty());
    EXPECT_EQ(signales_, QStringList{QStringLiteral("8")});
}

TEST_F(LangueTest, AfterAFailedLookUpTheFileBesideTheProgramIsUsedForGood) {
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("1=application\r\n"));
    ecrit(QStringLiteral("programme"), QStringLiteral("FR"), QStringLiteral("1=programme\r\n2=deux\r\n3=trois\r\n"));
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_EQ(l.lireressource(Texte{2}), u"deux");
    EXPECT_TRUE(l.fichier().startsWith(dossier_.filePath(QStringLiteral("programme"))));
    EXPECT_EQ(l.lireressource(Texte{1}), u"programme");
    EXPECT_TRUE(signales_.isEmpty());
}

TEST_F(LangueTest, AnExtensionOfOtherThanTwoLettersIsTheFrenchFile) {
    ecrit(QStringLiteral("application"), QStringLiteral("FR"), QStringLiteral("7=sept\r\n"));
    ecrit(QStringLiteral("application"), QStringLiteral("ENG"), QStringLiteral("7=seven\r\n"));
    ecrit(QStringLiteral("application"), QStringLiteral("EFR"), QStringLiteral("7=faux\r\n"));
    for (const QString& extension : {QStringLiteral("ENG"), QStringLiteral("E"), QStringLiteral("FRA"), QString(),
                                     QStringLiteral("1R"), QStringLiteral("F "), QStringLiteral("/../FR")}) {
        Langue l = langue(extension);
        EXPECT_EQ(l.extension(), u"FR") << extension.toStdString();
        EXPECT_EQ(l.lireressource(Texte{7}), u"sept") << extension.toStdString();
    }
    EXPECT_EQ(langue(QStringLiteral("EN")).extension(), u"EN");
    EXPECT_TRUE(signales_.isEmpty());
}

TEST_F(LangueTest, AnIdOf10000IsAnError) {
    const test::GardeArret garde;
    Langue l = langue(QStringLiteral("FR"));
    EXPECT_THROW(l.lireressource(Texte{10000}), test::Arret);
    EXPECT_THROW(l.lireressource(Texte{-1}), test::Arret);
}

namespace {

QString delivree(const QString& extension) {
    return QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.") + extension;
}

const QString titre = QStringLiteral("VELMORANTE 2000");

} // namespace

TEST(LanguesLivrees, EveryTextOfTheFrenchFileIsPresentAndNotEmpty) {
    QFile fichier(delivree(QStringLiteral("FR")));
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    const Profile francais(fichier.fileName());
    const Profile anglais(delivree(QStringLiteral("EN")));
    int textes = 0;
    for (const QString& ligne : ansi::decodeFile(fichier.readAll()).split(u'\n')) {
        const qsizetype egal = ligne.indexOf(u'=');
        if (egal <= 0 || ligne.startsWith(u';'))
            continue;
        const QString numero = ligne.left(egal).trimmed();
        EXPECT_FALSE(francais.string(titre, numero).isEmpty()) << qPrintable(numero);
        EXPECT_FALSE(anglais.string(titre, numero).isEmpty()) << qPrintable(numero);
        ++textes;
    }
    EXPECT_GT(textes, 380);
}

TEST(LanguesLivrees, TheTextsOfStartAndExitAreThere) {
    const Profile francais(delivree(QStringLiteral("FR")));
    for (const int n : {2,   4,    8,    116,  300,  400,  401,  500,  501,  502,  503,  504,  505,  600,  601, 602,
                        603, 4402, 4403, 7100, 7101, 7102, 7103, 7104, 7105, 7400, 7401, 7402, 7403, 7404, 9500})
        EXPECT_FALSE(francais.string(titre, QString::number(n)).isEmpty()) << n;
    for (int n = 10; n <= 21; ++n)
        EXPECT_FALSE(francais.string(titre, QString::number(n)).isEmpty()) << n;
}

TEST(LanguesLivrees, TheTableTellsTheRoleOfEveryText) {
    QFile table(QStringLiteral(VELM_SOURCE_DIR "/langues/README.md"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    static const QRegularExpression rangee(QStringLiteral("^\\| (\\d+) \\| (.*\\S) \\|$"),
                                           QRegularExpression::MultilineOption);
    QStringList roles;
    for (auto trouvee = rangee.globalMatch(QString::fromUtf8(table.readAll())); trouvee.hasNext();)
        roles << trouvee.next().captured(1);
    EXPECT_EQ(roles.removeDuplicates(), 0);
    for (const char* extension : {"FR", "EN"}) {
        QFile fichier(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.") + QString::fromLatin1(extension));
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
        QStringList textes;
        for (const QByteArray& ligne : fichier.readAll().split('\n')) {
            if (const qsizetype egal = ligne.indexOf('='); egal > 0)
                textes << QString::fromLatin1(ligne.first(egal));
        }
        textes.sort();
        roles.sort();
        EXPECT_EQ(textes, roles) << extension;
    }
}

TEST(LanguesLivrees, StyleNamesAreTheSameInEveryLanguageFile) {
    const Profile francais(delivree(QStringLiteral("FR")));
    const Profile anglais(delivree(QStringLiteral("EN")));
    for (const int n : {1400, 1401, 1404, 1408, 1411, 4411}) {
        const QString numero = QString::number(n);
        EXPECT_EQ(francais.string(titre, numero), anglais.string(titre, numero)) << n;
    }
}

TEST(LanguesLivrees, TextsThatAreJoinedEndInANoBreakSpace) {
    const Profile francais(delivree(QStringLiteral("FR")));
    for (const int n : {2612, 4000, 7101})
        EXPECT_TRUE(francais.string(titre, QString::number(n)).endsWith(QChar(0xA0))) << n;
}
