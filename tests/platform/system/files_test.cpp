#include "platform/system/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/without_rights.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QFile::Permissions allRights = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                         QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther |
                                         QFile::ExeOther;

class Fichiers : public testing::Test {
protected:
    QTemporaryDir folder;
    QString at(const QString& name) const { return folder.filePath(name); }

    QString put(const QString& name, const QByteArray& bytes) const {
        QFile file(at(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return at(name);
    }
    static QByteArray content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    static QByteArray pattern(qsizetype size) {
        QByteArray bytes(size, Qt::Uninitialized);
        for (qsizetype i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i * 7 + i / 251);
        return bytes;
    }
};

TEST(Chemins, AreJoinedWithOneSeparator) {
    EXPECT_EQ(joinPath(u"/a", u"b"), u"/a/b"_s);
    EXPECT_EQ(joinPath(u"/a/", u"b"), u"/a/b"_s);
    EXPECT_EQ(joinPath(u"/a", u"/b"), u"/a/b"_s);
    EXPECT_EQ(joinPath(u"/a//", u"//b"), u"/a/b"_s);
    EXPECT_EQ(joinPath(u"/", u"b"), u"/b"_s);
    EXPECT_EQ(joinPath(u"a", u"langues/RES2000.FR"), u"a/langues/RES2000.FR"_s);
}

TEST(Chemins, AnEmptySideGivesTheOther) {
    EXPECT_EQ(joinPath(u"", u"b"), u"b"_s);
    EXPECT_EQ(joinPath(u"/a/", u""), u"/a/"_s);
    EXPECT_EQ(joinPath(u"", u""), QString());
}

TEST(Chemins, ASeparatorIsAddedToFoldersThatHaveNone) {
    EXPECT_EQ(withSeparator(u"/a"_s), u"/a/"_s);
    EXPECT_EQ(withSeparator(u"/a/"_s), u"/a/"_s);
    EXPECT_EQ(withSeparator(QString()), QString());
}

TEST(Chemins, TheFolderOfAPathHasNoSeparatorAtItsEnd) {
    EXPECT_EQ(folderOf(u"/a/b/velm2000.dat"_s), u"/a/b"_s);
    EXPECT_EQ(folderOf(u"/velm2000.dat"_s), u"/"_s);
    EXPECT_EQ(folderOf(u"velm2000.dat"_s), QString());
}

TEST_F(Fichiers, AFileExistsAndAFolderDoesNot) {
    const QString path = put(u"é à.txt"_s, "x");
    EXPECT_TRUE(fileExists(path));
    EXPECT_FALSE(fileExists(folder.path()));
    EXPECT_FALSE(fileExists(at(u"none"_s)));
    EXPECT_FALSE(fileExists(QString()));
}

TEST_F(Fichiers, DateAndSizeOfWhatIsNotThereAreNone) {
    const QString path = put(u"f"_s, "12345");
    EXPECT_EQ(fileSize(path), 5);
    ASSERT_TRUE(fileDate(path));
    EXPECT_LT(fileDate(path)->secsTo(QDateTime::currentDateTime()), 600);
    EXPECT_FALSE(fileSize(at(u"none"_s)));
    EXPECT_FALSE(fileDate(at(u"none"_s)));
    EXPECT_FALSE(fileDate(folder.path()));
}

TEST_F(Fichiers, AWholeFileIsWrittenWithItsFolder) {
    EXPECT_EQ(writeWhole(at(u"new/folder/f"_s), "abc").kind, Obstacle::None);
    EXPECT_EQ(content(at(u"new/folder/f"_s)), "abc");
    EXPECT_EQ(writeWhole(at(u"new/folder/f"_s), {}).kind, Obstacle::None);
    EXPECT_EQ(content(at(u"new/folder/f"_s)), "");
}

TEST_F(Fichiers, AWholeFileThatCannotBeWrittenLeavesTheOldOne) {
    const QString path = put(u"f"_s, "old");
    // Smaller and larger than any buffer.
    for (const qsizetype size : {200, 5000, 200000}) {
        const test::FullDisk full(100);
        EXPECT_EQ(writeWhole(path, QByteArray(size, 'x')).kind, Obstacle::Full);
        EXPECT_EQ(content(path), "old");
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(u"f"_s));
    EXPECT_EQ(writeWhole(path + u"/f"_s, "x").kind, Obstacle::NoFolder);
}

TEST_F(Fichiers, AFileOfOneselfThatIsProtectedIsDenied) {
    QTemporaryDir others;
    const QString path = others.filePath(u"f"_s);
    ASSERT_TRUE(QFile::setPermissions(others.path(), allRights));
    const test::WithoutRights nobody;
    ASSERT_EQ(writeWhole(path, "old").kind, Obstacle::None);
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    const FileError error = writeWhole(path, "new");
    EXPECT_EQ(error.kind, Obstacle::Denied);
    EXPECT_FALSE(error.words.isEmpty());
    EXPECT_EQ(content(path), "old");
}

TEST_F(Fichiers, CopiesInChunksOf30000Bytes) {
    const QByteArray bytes = pattern(75000);
    std::vector<double> steps;
    const auto result = copiefichier(put(u"s"_s, bytes), at(u"t"_s), [&](double p) { steps.push_back(p); });
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.written, 75000);
    EXPECT_EQ(content(at(u"t"_s)), bytes);
    EXPECT_EQ(steps, (std::vector<double>{40, 80, 100}));
}

TEST_F(Fichiers, CopiesOfWholeChunksEndAt100) {
    for (const qsizetype size : {1, 29999, 30000, 30001, 60000}) {
        const QByteArray bytes = pattern(size);
        std::vector<double> steps;
        const auto result = copiefichier(put(u"s"_s, bytes), at(u"t"_s), [&](double p) { steps.push_back(p); });
        EXPECT_EQ(result.written, size);
        EXPECT_EQ(steps.size(), static_cast<size_t>((size + 29999) / 30000));
        EXPECT_EQ(steps.back(), 100);
        EXPECT_EQ(content(at(u"t"_s)), bytes);
    }
}

TEST_F(Fichiers, AnEmptyFileIsCopied) {
    const auto result = copiefichier(put(u"s"_s, {}), at(u"t"_s), [](double) { ADD_FAILURE(); });
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.written, 0);
    EXPECT_TRUE(QFile::exists(at(u"t"_s)));
}

TEST_F(Fichiers, AnAbsentSourceCopiesNothingAndIsNoError) {
    put(u"t"_s, "old");
    const auto result = copiefichier(at(u"none"_s), at(u"t"_s));
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.written, 0);
    EXPECT_EQ(content(at(u"t"_s)), "old");
}

TEST_F(Fichiers, AnExistingTargetIsReplacedAlsoALongerOrReadOnlyOne) {
    const QString source = put(u"s"_s, "new");
    const QString target = put(u"t"_s, "old and longer");
    ASSERT_TRUE(QFile::setPermissions(target, QFile::ReadOwner));
    EXPECT_TRUE(copiefichier(source, target).ok());
    EXPECT_EQ(content(target), "new");
}

TEST_F(Fichiers, AFileCopiedOntoItselfIsAnErrorAndStays) {
    const QString source = put(u"s"_s, "precious");
    ASSERT_TRUE(QFile::link(source, at(u"link"_s)));
    for (const QString& target : {source, at(u"link"_s), folder.path() + u"/./s"_s}) {
        EXPECT_FALSE(copiefichier(source, target).ok());
        EXPECT_EQ(content(source), "precious");
    }
}

TEST_F(Fichiers, ASourceThatCannotBeOpenedCostsNoTarget) {
    const QString source = put(u"s"_s, "new");
    const QString target = put(u"t"_s, "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const CopieResultat result = copiefichier(source, target);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(content(target), "old");
}

TEST_F(Fichiers, AFullDiskIsAnErrorAndLeavesNoHalfCopy) {
    for (const qsizetype size : {500, 100000}) {
        const QString source = put(u"s"_s, pattern(size));
        CopieResultat result;
        {
            const test::FullDisk full(static_cast<rlim_t>(size - 1));
            result = copiefichier(source, at(u"t"_s));
        }
        EXPECT_FALSE(result.ok());
        EXPECT_LT(result.written, size);
        EXPECT_FALSE(QFile::exists(at(u"t"_s)));
        EXPECT_EQ(fileSize(source), size);
    }
}

TEST_F(Fichiers, ATargetThatCannotBeMadeIsAnError) {
    const QString source = put(u"s"_s, "x");
    EXPECT_FALSE(copiefichier(source, at(u"no/such/folder"_s)).ok());
    EXPECT_FALSE(copiefichier(source, folder.path()).ok());
    EXPECT_EQ(content(source), "x");
}

TEST_F(Fichiers, FreeSpaceIsThatOfTheNearestFolderThatExists) {
    const auto here = placelibre(folder.path());
    ASSERT_TRUE(here);
    EXPECT_GT(*here, 0);
    EXPECT_TRUE(placelibre(at(u"not/yet/there"_s)));
    EXPECT_TRUE(placelibre(put(u"f"_s, "x")));
}

TEST_F(Fichiers, AReadOnlyCopyIsMadeWritable) {
    const QString path = put(u"f"_s, "x");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup));
    EXPECT_TRUE(makeWritable(path));
    EXPECT_TRUE(QFile::permissions(path).testFlag(QFile::WriteOwner));
    EXPECT_TRUE(QFile::permissions(path).testFlag(QFile::ReadGroup));
    EXPECT_FALSE(makeWritable(at(u"none"_s)));
}

TEST_F(Fichiers, TheTemporaryFolderIsThere) {
    EXPECT_TRUE(QDir(tempFolder()).exists());
    EXPECT_FALSE(tempFolder().endsWith(u'/'));
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(at(u"not/there"_s)));
    EXPECT_EQ(tempFolder(), u"/tmp");
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

} // namespace

TEST(NomsDeFichiers, WordsBecomeANameThatEveryDiskTakes) {
    EXPECT_EQ(fileNameOf(u"garantie"_s), u"garantie");
    EXPECT_EQ(fileNameOf(u" art. L. 111-1 / \"vice\" caché* "_s), u"art L 111-1 vice caché");
    EXPECT_EQ(fileNameOf(u"..\\a:b?\r\n\t<c>|"_s), u"a b c");
    EXPECT_EQ(fileNameOf(u"*?/"_s), QString());
    EXPECT_EQ(fileNameOf(QString(80, u'x')).size(), 60);
    EXPECT_EQ(fileNameOf(QString(59, u'x') + u" y"_s), QString(59, u'x')) << "no blank at the cut";
}

TEST_F(Fichiers, OfAFileThatBeginsOtherwiseOnlyTheBeginningIsRead) {
    const QByteArray long_ = "SIGN" + pattern(100'000);
    EXPECT_EQ(readBeginningWith(put(u"a"_s, long_), "SIGN").bytes, long_);
    EXPECT_EQ(readBeginningWith(put(u"b"_s, long_), "SIGM").bytes, "SIGN");
    EXPECT_EQ(readBeginningWith(put(u"c"_s, "SI"), "SIGN").bytes, "SI");
    EXPECT_FALSE(readBeginningWith(at(u"none"_s), "SIGN").ok());
    EXPECT_FALSE(readBeginningWith(folder.path(), "SIGN").ok());
}
