#include "platform/system/courrier.h"
#include "platform/system/files.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

const Courriel courriel{{}, u" "_s, u"Liste.cv2"_s, "une\r\ndeux\r\n"};

class CourrierTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        temp = qgetenv("TMPDIR");
        ASSERT_TRUE(QDir(folder.path()).mkdir(u"tmp"_s));
        qputenv("TMPDIR", QFile::encodeName(folder.filePath(u"tmp"_s)));
    }
    void TearDown() override {
        if (temp.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", temp);
    }

    /// A mail program that does this.
    QString command(const QByteArray& script) const {
        const QString path = folder.filePath(u"mailer"_s);
        EXPECT_EQ(writeWhole(path, "#!/bin/sh\n" + script).kind, Obstacle::None);
        EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return path;
    }
    QByteArray written() const {
        QFile file(folder.filePath(u"out"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList attachments() const {
        return QDir(folder.filePath(u"tmp"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    Courrier::Failed failed() {
        return [this](Courrier::Failure failure, const FileError& error) {
            failures.push_back(failure);
            errors << error.words;
            kinds.push_back(error.kind);
        };
    }
    static bool eventually(const std::function<bool()>& condition) {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < 20000) {
            QCoreApplication::processEvents();
            QThread::msleep(2);
        }
        return condition();
    }

    QTemporaryDir folder;
    QByteArray temp;
    std::vector<Courrier::Failure> failures;
    QStringList errors;
    std::vector<Obstacle> kinds;
};

TEST_F(CourrierTest, TheMailProgramGetsTheFileUnderItsName) {
    SystemCourrier mail(command("for a; do last=$a; printf '%s|' \"$a\"; done > \"${0%/*}/out.tmp\"\n"
                                "cat \"$last\" >> \"${0%/*}/out.tmp\"\nmv \"${0%/*}/out.tmp\" \"${0%/*}/out\"\n"));
    mail.compose(courriel, failed());
    ASSERT_TRUE(eventually([&] { return !written().isEmpty(); }));
    EXPECT_TRUE(written().startsWith("--utf8|--body| |--attach|")) << written().constData();
    EXPECT_TRUE(written().endsWith("/Liste.cv2|une\r\ndeux\r\n")) << written().constData();
    EXPECT_TRUE(failures.empty());
}

TEST_F(CourrierTest, AMessageWithoutAFileHasNone) {
    SystemCourrier mail(command("printf '%s|' \"$@\" > \"${0%/*}/out.tmp\"\nmv \"${0%/*}/out.tmp\" \"${0%/*}/out\"\n"));
    mail.compose({u"Objet"_s, u"un\r\ndeux"_s, {}, {}}, failed());
    ASSERT_TRUE(eventually([&] { return !written().isEmpty(); }));
    EXPECT_EQ(written(), "--utf8|--subject|Objet|--body|un\ndeux|") << "the command makes line ends of feeds";
    EXPECT_TRUE(failures.empty());
}

TEST_F(CourrierTest, AnyTitleIsAName) {
    const QString longue(300, u'é');
    for (const auto& [name, expected] : {std::pair{u"Loi 89/462.RTF"_s, "/Loi 89-462.RTF|"_ba},
                                         {u"../x.RTF"_s, "/..-x.RTF|"_ba},
                                         {u".RTF"_s, "/.RTF|"_ba},
                                         {longue + u".RTF"_s, "/" + QString(76, u'é').toUtf8() + ".RTF|"},
                                         {u"x."_s + longue, "/." + QString(79, u'é').toUtf8() + '|'}}) {
        QFile::remove(folder.filePath(u"out"_s));
        SystemCourrier mail(command("printf '%s|' \"$@\" > \"${0%/*}/out.tmp\"\n"
                                    "mv \"${0%/*}/out.tmp\" \"${0%/*}/out\"\n"));
        mail.compose({{}, {}, name, "x"}, failed());
        ASSERT_TRUE(eventually([&] { return !written().isEmpty() || !failures.empty(); }));
        EXPECT_TRUE(written().endsWith(expected)) << written().constData();
    }
    EXPECT_TRUE(failures.empty());
}

TEST_F(CourrierTest, TheFileIsGoneAfterwards) {
    {
        SystemCourrier mail(command("touch \"${0%/*}/out\"\necho done > \"${0%/*}/out\"\nsleep 60\n"));
        mail.compose(courriel, failed());
        ASSERT_TRUE(eventually([&] { return !written().isEmpty(); }));
        EXPECT_EQ(attachments().size(), 1);
    }
    EXPECT_TRUE(attachments().isEmpty());
    EXPECT_TRUE(failures.empty());
}

TEST_F(CourrierTest, AMailProgramThatEndsLeavesTheFileUntilTheEnd) {
    // It may have handed the message on, and the user writes it still.
    SystemCourrier mail(command("echo done > \"${0%/*}/out\"\n"));
    mail.compose(courriel, failed());
    mail.compose(courriel, failed());
    ASSERT_TRUE(eventually([&] { return !written().isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(attachments().size(), 2);
}

TEST_F(CourrierTest, AMissingMailProgramIsSaidAtOnceAndLeavesNothing) {
    SystemCourrier mail(u"no-such-mail-program"_s);
    mail.compose(courriel, failed());
    EXPECT_EQ(failures, std::vector{Courrier::Failure::NoMailProgram});
    EXPECT_TRUE(attachments().isEmpty());
}

TEST_F(CourrierTest, ACommandThatFindsNoMailProgramIsSaid) {
    SystemCourrier mail(command("echo 'no client' >&2\nexit 3\n"));
    mail.compose(courriel, failed());
    ASSERT_TRUE(eventually([&] { return !failures.empty(); }));
    EXPECT_EQ(failures, std::vector{Courrier::Failure::NoMailProgram});
    EXPECT_EQ(errors, QStringList(u"no client"_s));
    EXPECT_TRUE(attachments().isEmpty());
}

TEST_F(CourrierTest, ACommandThatCannotBeStartedIsSaidOnce) {
    const QString path = folder.filePath(u"mailer"_s);
    ASSERT_EQ(writeWhole(path, "#!/no/such/interpreter\n").kind, Obstacle::None);
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
    SystemCourrier mail(path);
    mail.compose(courriel, failed());
    ASSERT_TRUE(eventually([&] { return !failures.empty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(failures, std::vector{Courrier::Failure::NoMailProgram});
    EXPECT_TRUE(attachments().isEmpty());
}

TEST_F(CourrierTest, AFileThatCannotBeWrittenIsSaid) {
    SystemCourrier mail(command("exit 0\n"));
    qputenv("TMPDIR", QFile::encodeName(command("exit 0\n")));
    mail.compose(courriel, failed());
    EXPECT_EQ(failures, std::vector{Courrier::Failure::NotWritten});
    EXPECT_EQ(kinds, std::vector{Obstacle::Other}) << "only words, as no folder could be made";
    EXPECT_FALSE(errors.join(u' ').isEmpty());
}

TEST_F(CourrierTest, AServiceThatGoesWhileTheProgramRunsSaysNothing) {
    {
        SystemCourrier mail(command("echo done > \"${0%/*}/out\"\nsleep 60\nexit 3\n"));
        mail.compose(courriel, failed());
        ASSERT_TRUE(eventually([&] { return !written().isEmpty(); }));
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(failures.empty());
}

TEST(CourrierArguments, WhatFitsIsCountedAsAnAddressHasIt) {
    EXPECT_TRUE(fitsMessage({}, {}));
    EXPECT_TRUE(fitsMessage(u"a"_s, QString(99'999, u'a')));
    EXPECT_FALSE(fitsMessage(u"ab"_s, QString(99'999, u'a')));
    EXPECT_TRUE(fitsMessage({}, QString(16'666, u'é')));
    EXPECT_FALSE(fitsMessage({}, QString(16'667, u'é')));
    EXPECT_FALSE(fitsMessage(QString(33'334, u' '), {}));
}

TEST(CourrierArguments, EmptyTextsAreLeftOutAndTheNameHasNoFolder) {
    EXPECT_EQ(SystemCourrier::arguments({u"Objet"_s, {}, {}, {}}, u"/tmp/x"_s),
              QStringList({u"--utf8"_s, u"--subject"_s, u"Objet"_s, u"--attach"_s, u"/tmp/x"_s}));
}

} // namespace
