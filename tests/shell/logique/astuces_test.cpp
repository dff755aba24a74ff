#include "platform/text/ansi.h"
#include "shell/logique/astuces.h"
#include "tests/support/odd_files.h"

#include <QFile>
#include <QTemporaryDir>

#include <deque>
#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class AstucesTest : public testing::Test {
protected:
    QString ecrit(const QByteArray& octets) {
        const QString chemin = dossier_.filePath(u"TIPS.FR"_s);
        QFile fichier(chemin);
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        EXPECT_EQ(fichier.write(octets), octets.size());
        return chemin;
    }

    Astuces astuces() {
        return Astuces([this] {
            const double tire = tirages_.empty() ? 0.0 : tirages_.front();
            if (!tirages_.empty())
                tirages_.pop_front();
            ++demandes_;
            return tire;
        });
    }

    QTemporaryDir dossier_;
    std::deque<double> tirages_;
    int demandes_ = 0;
};

} // namespace

TEST_F(AstucesTest, ATipIsShownFromTheFile) {
    tirages_ = {0.5};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("un\r\ndeux\r\ntrois\r\n")));
    EXPECT_EQ(a.nombre(), 3);
    EXPECT_EQ(a.displaycurrenttip(), u"deux");
    EXPECT_EQ(demandes_, 1);
}

TEST_F(AstucesTest, AFileOfOneLineAlwaysShowsThatLine) {
    tirages_ = {0.0, 0.4, 0.999999};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("seule")));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(a.displaycurrenttip(), u"seule");
        a.nexttip();
    }
}

TEST_F(AstucesTest, AnEmptyFileHasNoTipAndIsNoFailure) {
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit({})));
    EXPECT_EQ(a.nombre(), 0);
    EXPECT_EQ(a.displaycurrenttip(), QString());
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), QString());
    EXPECT_EQ(demandes_, 0);
}

TEST_F(AstucesTest, AMissingFileIsAFailure) {
    Astuces a = astuces();
    EXPECT_FALSE(a.loadtips(dossier_.filePath(u"TIPS.XX"_s)));
    EXPECT_FALSE(a.loadtips(QString()));
    EXPECT_FALSE(a.loadtips(dossier_.path()));
    EXPECT_EQ(a.displaycurrenttip(), QString());
}

TEST_F(AstucesTest, AFailureLeavesNothingOfTheFileBefore) {
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("un\r\n")));
    EXPECT_FALSE(a.loadtips(QString()));
    EXPECT_EQ(a.nombre(), 0);
    EXPECT_EQ(a.displaycurrenttip(), QString());
}

TEST_F(AstucesTest, TheNextTipIsPickedAtRandomWithinTheFile) {
    tirages_ = {0.0, 0.2499, 0.25, 0.5, 0.9999999999};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("a\r\nb\r\nc\r\nd\r\n")));
    QString vues = a.displaycurrenttip();
    for (int i = 0; i < 4; ++i) {
        a.nexttip();
        vues += a.displaycurrenttip();
    }
    EXPECT_EQ(vues, u"aabcd");
}

TEST_F(AstucesTest, ASourceOutOfItsRangeStaysWithinTheFile) {
    tirages_ = {1.0, -3.0};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("a\r\nb\r\n")));
    EXPECT_EQ(a.displaycurrenttip(), u"b");
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), u"a");
}

TEST_F(AstucesTest, LinesAreTakenAsTheyStand) {
    tirages_ = {0.0, 0.3, 0.5, 0.9};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("  \"un\", & deux \t\r\n\r\nLF\nfin")));
    ASSERT_EQ(a.nombre(), 4);
    EXPECT_EQ(a.displaycurrenttip(), u"  \"un\", & deux \t");
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), u"");
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), u"LF");
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), u"fin");
}

TEST_F(AstucesTest, ATipAboutWhatIsStillToComeIsNone) {
    tirages_ = {0.0, 0.99};
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit("[maide0(1)] plus tard\r\n[Copier] copie\r\n[moutils3] plus tard\r\nfin\r\n")));
    EXPECT_EQ(a.nombre(), 2);
    EXPECT_EQ(a.displaycurrenttip(), u"copie") << "the command's name is no part of the tip";
    a.nexttip();
    EXPECT_EQ(a.displaycurrenttip(), u"fin");
}

TEST_F(AstucesTest, BracketsThatNameNoCommandBelongToTheTip) {
    for (const char* ligne : {"[F1] aide", "[Dossiers]", "[Dossiers", "[] rien", " [Dossiers] tard"}) {
        Astuces a = astuces();
        EXPECT_TRUE(a.loadtips(ecrit(ligne)));
        EXPECT_EQ(a.displaycurrenttip(), QString::fromLatin1(ligne)) << ligne;
    }
}

TEST_F(AstucesTest, BothEncodingsAreRead) {
    const QString texte = u"l’été « à côté »"_s;
    Astuces a = astuces();
    EXPECT_TRUE(a.loadtips(ecrit(ansi::encode(texte))));
    EXPECT_EQ(a.displaycurrenttip(), texte);
    EXPECT_TRUE(a.loadtips(ecrit("\xEF\xBB\xBF" + texte.toUtf8())));
    EXPECT_EQ(a.displaycurrenttip(), texte);
}

TEST_F(AstucesTest, WhatIsNoPlainFileHoldsNone) {
    const NobodyWaits watch;
    for (const auto& autre : {putPipe, putDevice, putFolder}) {
        Astuces a = astuces();
        EXPECT_TRUE(a.loadtips(ecrit("a\r\n")));
        autre(dossier_.filePath(u"TIPS.FR"_s));
        EXPECT_FALSE(a.loadtips(dossier_.filePath(u"TIPS.FR"_s)));
        EXPECT_EQ(a.nombre(), 0);
        QDir(dossier_.path()).rmdir(u"TIPS.FR"_s);
        QFile::remove(dossier_.filePath(u"TIPS.FR"_s));
    }
}

TEST_F(AstucesTest, TheFilesOfBothLanguagesHoldTips) {
    for (const QString& langue : {u"FR"_s, u"EN"_s}) {
        Astuces a = astuces();
        EXPECT_TRUE(a.loadtips(Astuces::cheminfichier(QStringLiteral(VELM_SOURCE_DIR), langue)));
        EXPECT_GE(a.nombre(), 12);
        EXPECT_FALSE(a.displaycurrenttip().isEmpty());
        EXPECT_FALSE(a.displaycurrenttip().startsWith(u'['));
    }
}
