// Reading nothing but plain files, and telling why something could not be read.
#include "platform/system/files.h"
#include "platform/system/profile.h"
#include "platform/system/settings.h"
#include "tests/support/odd_files.h"
#include "tests/support/without_rights.h"

#include <QTemporaryDir>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PlainFiles : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString path = folder.filePath(u"file.ini"_s);

    void put(const QByteArray& bytes) const { ASSERT_EQ(writeWhole(path, bytes).kind, Obstacle::None); }
    Obstacle obstacle() const {
        const FileBytes read = readPlain(path);
        EXPECT_EQ(read.ok(), read.error.words.isEmpty());
        EXPECT_TRUE(read.ok() || read.bytes.isEmpty());
        return read.error.kind;
    }
};

TEST_F(PlainFiles, AreReadWhole) {
    const QByteArray bytes = QByteArray("line\n").repeated(100000);
    put(bytes);
    EXPECT_EQ(readPlain(path).bytes, bytes);
    put({});
    EXPECT_EQ(obstacle(), Obstacle::None);
    const QString link = folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(path, link));
    put("through a link");
    EXPECT_EQ(readPlain(link).bytes, "through a link");
}

TEST_F(PlainFiles, WhatIsMissingIsToldFromWhatIsThere) {
    EXPECT_EQ(obstacle(), Obstacle::Missing);
    ASSERT_TRUE(QFile::link(folder.filePath(u"nowhere"_s), path));
    EXPECT_EQ(obstacle(), Obstacle::Missing);
    EXPECT_EQ(readPlain(folder.filePath(u"no/such/file"_s)).error.kind, Obstacle::Missing);
    EXPECT_EQ(readPlain(QString()).error.kind, Obstacle::Missing);
}

TEST_F(PlainFiles, PipesDevicesAndFoldersAreNone) {
    const NobodyWaits watch;
    for (const auto& odd : {putPipe, putDevice, putFolder}) {
        odd(path);
        EXPECT_EQ(obstacle(), Obstacle::NotPlain);
    }
}

TEST_F(PlainFiles, WhatThisUserMayNotReadIsDenied) {
    put("x");
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions()));
    const WithoutRights nobody;
    EXPECT_EQ(obstacle(), Obstacle::Denied);
}

TEST_F(PlainFiles, WhatIsNoneIsNotEvenOpened) {
    putPipe(path);
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions()));
    const WithoutRights nobody;
    EXPECT_EQ(obstacle(), Obstacle::NotPlain) << "and not denied";
}

TEST_F(PlainFiles, APipeIsReadByWhoNamesIt) {
    const NobodyWaits watch;
    EXPECT_EQ(readFile(u"/dev/null"_s, FileKind::Any).error.kind, Obstacle::None);
    EXPECT_EQ(readFile(folder.path(), FileKind::Any).error.kind, Obstacle::NotPlain);
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "abc", 3), 3);
    close(ends[1]);
    EXPECT_EQ(readFile(u"/dev/fd/%1"_s.arg(ends[0]), FileKind::Any).bytes, "abc");
    close(ends[0]);
}

TEST_F(PlainFiles, TheirEndIsReadOnFromWhereOneStands) {
    put("beginning and end");
    QFile file;
    ASSERT_TRUE(openPlain(file, path).ok());
    EXPECT_EQ(file.read(9), "beginning");
    EXPECT_EQ(readRest(file).bytes, " and end");
}

TEST_F(PlainFiles, AProfileReadsNothingElse) {
    const NobodyWaits watch;
    for (const auto& odd : {putPipe, putDevice, putFolder}) {
        odd(path);
        EXPECT_FALSE(Profile(path).loaded());
    }
}

TEST_F(PlainFiles, SettingsReadNothingElseAndReplaceNothingElse) {
    const NobodyWaits watch;
    for (const auto& odd : {putPipe, putDevice, putFolder}) {
        odd(path);
        ReglagesStore store(path);
        EXPECT_EQ(store.lastError().kind, Obstacle::NotPlain);
        EXPECT_FALSE(store.save(u"A", u"x", u"1"_s));
        EXPECT_EQ(store.get(u"A", u"x"), u"1"_s) << "for this run";
        EXPECT_FALSE(QFileInfo(path).isFile());
    }
}

TEST_F(PlainFiles, NothingElseIsReplacedByAFile) {
    for (const auto& odd : {putPipe, putDevice, putFolder}) {
        odd(path);
        EXPECT_EQ(writeWhole(path, "x").kind, Obstacle::NotPlain);
        EXPECT_TRUE(QFileInfo::exists(path));
        EXPECT_FALSE(QFileInfo(path).isFile());
    }
}

} // namespace
