// What opens, what does not, and what each failure is called.
#include "openfixture.h"

namespace velm::testing {
namespace {

using test::WithoutRights;

TEST_F(OpenTest, AMissingFileFailsAndNoneIsMade) {
    expectBoth(path(), OpenError::Missing);
    expectBoth(path(u"no/folder/base.dat"_s), OpenError::Missing);
    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_EQ(errorOf(QString()), OpenError::Unreadable) << "the empty path is the current folder";
}

TEST_F(OpenTest, AFolderIsUnreadable) {
    QDir().mkdir(path());
    expectBoth(path(), OpenError::Unreadable);
}

TEST_F(OpenTest, APipeDoesNotKeepTheProgramWaiting) {
    ASSERT_EQ(mkfifo(path().toUtf8().constData(), 0600), 0);
    expectBoth(path(), OpenError::Unreadable);
}

TEST_F(OpenTest, WhatIsNoBaseIsForeign) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("x"), QByteArray("SQLite format 3\0", 16), QByteArray("SQLite format 3 "),
          QByteArray(100, '\0'), QByteArray(100, ' '), QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\0'),
          QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\xff'),
          QByteArray("{\\rtf1 texte}").repeated(1000)}) {
        write(bytes);
        expectBoth(path(), OpenError::Foreign);
        EXPECT_EQ(contents(), bytes) << "the file is not touched";
    }
}

TEST_F(OpenTest, AFileOfAnOldEngineIsRecognisedBySignature) {
    for (const char* signature : {"Standard Jet DB", "Standard ACE DB"}) {
        const QByteArray bytes = QByteArray("\0\1\0\0", 4) + signature + QByteArray(1, '\0');
        write(bytes);
        expectBoth(path(), OpenError::OldEngine);
        write(bytes + QByteArray(5000, '\0'));
        expectBoth(path(), OpenError::OldEngine);
        write(' ' + bytes + QByteArray(5000, '\0'));
        expectBoth(path(), OpenError::Foreign);
    }
}

TEST_F(OpenTest, OldFilesOfTheFieldAreRecognised) {
    const QDir folder(QStringLiteral(VELM_SOURCE_DIR "/../shared/jet"));
    const QStringList files = folder.entryList({u"*.dat"_s}, QDir::Files);
    if (files.isEmpty())
        GTEST_SKIP() << "no old files here";
    for (const QString& file : files)
        expectBoth(folder.filePath(file), OpenError::OldEngine);
}

TEST_F(OpenTest, AnotherProgramsBaseIsForeign) {
    foreign(u"CREATE TABLE autre(a); INSERT INTO autre VALUES(1)"_s);
    expectBoth(path(), OpenError::Foreign);
}

TEST_F(OpenTest, SharedIsUpdatableAndReadOnlyIsNot) {
    make();
    EXPECT_TRUE(open(corpusSchema(), OpenMode::Shared)->updatable());
    const auto base = open(corpusSchema(), OpenMode::ExclusiveReadOnly);
    EXPECT_FALSE(base->updatable());
    EXPECT_EQ(base->path(), path());
    const auto settings = base->openTable(u"paramètres"_s);
    settings->edit();
    settings->setValue(u"nbarticles"_s, u"9"_s);
    EXPECT_FALSE(settings->update());
    EXPECT_NE(settings->lastError(), QString());
    EXPECT_FALSE(settings->remove());
    EXPECT_EQ(settings->text(u"nbarticles"_s), u"     3"_s);
}

TEST_F(OpenTest, AReadOnlyFileOrFolderFailsSharedAndOpensReadOnly) {
    make();
    const QString folder = QFileInfo(path()).absolutePath();
    const auto all = QFileDevice::ReadOther | QFileDevice::ReadGroup | QFileDevice::ReadOwner | QFileDevice::ExeOther |
                     QFileDevice::ExeGroup | QFileDevice::ExeOwner;
    const auto writing = QFileDevice::WriteOther | QFileDevice::WriteGroup | QFileDevice::WriteOwner;
    QFile::setPermissions(folder, all);
    QFile::setPermissions(path(), all | writing);
    {
        const WithoutRights nobody;
        EXPECT_EQ(errorOf(path()), OpenError::ReadOnly) << "the folder";
        EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
    }
    QFile::setPermissions(folder, all | writing);
    QFile::setPermissions(path(), all);
    {
        const WithoutRights nobody;
        EXPECT_EQ(errorOf(path()), OpenError::ReadOnly) << "the file";
        EXPECT_EQ(errorOf(path(), OpenMode::ExclusiveReadOnly), OpenError::None);
        EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{u"base.dat"_s}) << "nothing is made beside it";
    }
    QFile::setPermissions(path(), QFileDevice::Permissions());
    {
        const WithoutRights nobody;
        expectBoth(path(), OpenError::Unreadable);
    }
}

TEST_F(OpenTest, NamesWithSignsOfAddressesOpenBothWays) {
    QDir().mkdir(path(u"d?x=1&y#z%20é ü"_s));
    for (const QString& name : {u"a?immutable=0#b.dat"_s, u"100%25.dat"_s, u"file:base.dat"_s, u"é à.dat"_s,
                                u"d?x=1&y#z%20é ü/base.dat"_s, u"a'b\"c.dat"_s}) {
        SCOPED_TRACE(name.toStdString());
        make(name);
        EXPECT_EQ(errorOf(path(name), OpenMode::Shared), OpenError::None);
        EXPECT_EQ(errorOf(path(name), OpenMode::ExclusiveReadOnly), OpenError::None);
    }
}

TEST_F(OpenTest, DoubledSeparatorsOpen) {
    make();
    const QString folder = QFileInfo(path()).absolutePath();
    for (const QString& file : {folder + u"//base.dat"_s, u"//"_s + path(), folder + u"/./base.dat"_s}) {
        EXPECT_EQ(errorOf(file, OpenMode::Shared), OpenError::None);
        EXPECT_EQ(errorOf(file, OpenMode::ExclusiveReadOnly), OpenError::None);
    }
}

TEST_F(OpenTest, ASymbolicLinkToABaseOpensBothWays) {
    make();
    const QString link = path() + u"-link"_s;
    ASSERT_TRUE(QFile::link(path(), link));
    expectBoth(link, OpenError::None);
}

TEST_F(OpenTest, ARelativePathOpens) {
    make();
    const QString before = QDir::currentPath();
    QDir::setCurrent(QFileInfo(path()).absolutePath());
    expectBoth(u"base.dat"_s, OpenError::None);
    expectBoth(u"./base.dat"_s, OpenError::None);
    QDir::setCurrent(before);
}

TEST_F(OpenTest, ABaseOpenElsewhereStillOpens) {
    make();
    const auto first = open(corpusSchema());
    const auto second = open(corpusSchema());
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->openTable(u"dico"_s)->text(u"mot"_s), second->openTable(u"dico"_s)->text(u"mot"_s));
}

TEST_F(OpenTest, ABaseInMemoryReadsAsItsFileDoes) {
    make();
    const QByteArray bytes = contents();
    QFile::remove(path());
    for (const OpenMode mode : {OpenMode::Shared, OpenMode::ExclusiveReadOnly}) {
        const Database::Opened opened = Database::openBytes(bytes, mode, corpusSchema());
        ASSERT_TRUE(opened.database) << opened.message.toStdString();
        EXPECT_EQ(opened.error, OpenError::None);
        EXPECT_EQ(opened.database->path(), QString());
        const auto words = opened.database->openTable(u"dico"_s);
        EXPECT_EQ(rest(*words, u"mot"_s).size(), 2000);
        words->setIndex(u"primarykey"_s);
        words->seek(Seek::Equal, u"MOT77"_s);
        EXPECT_FALSE(words->noMatch());
        EXPECT_TRUE(opened.database->check());
    }
    EXPECT_TRUE(QDir(QFileInfo(path()).path()).isEmpty()) << "no file is made";
}

TEST_F(OpenTest, ABaseInMemoryChangesOnlyWhereItMayAndOnlyItself) {
    make();
    const QByteArray bytes = contents();
    const QByteArray before(bytes.constData(), bytes.size());
    const auto growBy = [&](OpenMode mode) {
        const Database::Opened opened = Database::openBytes(bytes, mode, corpusSchema());
        EXPECT_EQ(opened.database->updatable(), mode == OpenMode::Shared);
        const bool done =
            opened.database->execute(u"UPDATE dico SET liste=zeroblob(9000)"_s) && opened.database->check();
        const auto words = opened.database->openTable(u"dico"_s);
        EXPECT_EQ(words->bytes(u"liste"_s).size(), done ? 9000 : 4);
        return done;
    };
    EXPECT_FALSE(growBy(OpenMode::ExclusiveReadOnly));
    EXPECT_TRUE(growBy(OpenMode::Shared));
    // What needs no more room than there is would fit into the bytes themselves.
    const Database::Opened opened = Database::openBytes(bytes, OpenMode::ExclusiveReadOnly, corpusSchema());
    EXPECT_FALSE(opened.database->execute(u"UPDATE dico SET liste=zeroblob(4)"_s));
    EXPECT_EQ(bytes, before);
    EXPECT_EQ(contents(), before);
}

TEST_F(OpenTest, WhatIsNoBaseInMemoryIsCalledAsItsFileIs) {
    make();
    const QByteArray whole = contents();
    QByteArray older("\0\1\0\0Standard Jet DB", 19);
    std::vector<QByteArray> all{QByteArray(),
                                QByteArray("x"),
                                QByteArray("SQLite format 3\0", 16),
                                whole.left(50),
                                whole.left(100),
                                whole.left(4096),
                                whole.left(whole.size() - 1),
                                whole,
                                QByteArray("SQLite format 3\0", 16) + QByteArray(4096, '\xff'),
                                older,
                                older + QByteArray(5000, '\0'),
                                QByteArray(5000, ' ')};
    for (const QByteArray& bytes : all) {
        write(bytes);
        for (const OpenMode mode : {OpenMode::Shared, OpenMode::ExclusiveReadOnly}) {
            const Database::Opened opened = Database::openBytes(bytes, mode, corpusSchema());
            EXPECT_EQ(opened.error, errorOf(path(), mode)) << bytes.size();
            EXPECT_EQ(opened.database == nullptr, opened.error != OpenError::None);
            EXPECT_EQ(opened.message.isEmpty(), opened.error == OpenError::None);
        }
    }
}

TEST_F(OpenTest, AMissingTableIsNoticedAtItsFirstUse) {
    make();
    foreign(u"DROP TABLE liens"_s);
    const auto base = open(corpusSchema());
    const auto links = base->openTable(u"liens"_s);
    ASSERT_TRUE(links);
    EXPECT_FALSE(links->usable());
    EXPECT_EQ(links->table(), u"liens"_s);
    EXPECT_THROW(links->setIndex(u"liens"_s), Ended);
    EXPECT_THROW(links->seek(Seek::Equal, u"CO"_s, u"000001"_s), Ended);
    EXPECT_THROW(links->eof(), Ended);
    EXPECT_THROW(links->moveNext(), Ended);
    EXPECT_THROW(links->text(u"numartdépart"_s), Ended);
    EXPECT_THROW(links->recordCount(), Ended);
    links->close();
    const auto unknown = base->openTable(u"inconnue"_s);
    EXPECT_FALSE(unknown->usable());
    EXPECT_TRUE(base->openTable(u"dico"_s)->usable());
}

TEST_F(OpenTest, AMissingFieldIsNoticedWhereItIsRead) {
    make();
    foreign(u"ALTER TABLE paramètres RENAME TO p; CREATE TABLE paramètres(autre); INSERT INTO paramètres VALUES(1)"_s);
    const auto base = open(corpusSchema());
    const auto settings = base->openTable(u"paramètres"_s);
    EXPECT_TRUE(settings->usable());
    EXPECT_FALSE(settings->eof());
    EXPECT_THROW(settings->text(u"nbarticles"_s), Ended);
    EXPECT_THROW(settings->text(u"inconnu"_s), Ended);
}

TEST_F(OpenTest, AfterTheBaseIsClosedItsRecordsetsAreUnusable) {
    make();
    const auto base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    base->close();
    base->close();
    EXPECT_FALSE(words->usable());
    EXPECT_THROW(words->moveFirst(), Ended);
    EXPECT_THROW(words->value(u"mot"_s), Ended);
    words->close();
    words->close();
    EXPECT_FALSE(base->openTable(u"dico"_s)->usable());
    EXPECT_FALSE(base->begin());
    EXPECT_FALSE(base->execute(u"SELECT 1"_s));
    EXPECT_FALSE(base->check());
    EXPECT_FALSE(base->updatable());
}

TEST_F(OpenTest, WhatARecordsetWasStaysKnownWhenItsBaseIsGone) {
    make();
    auto base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    words->setIndex(u"primarykey"_s);
    words->seek(Seek::Equal, u"absent"_s);
    base.reset();
    EXPECT_EQ(words->table(), u"dico");
    EXPECT_EQ(words->index(), u"primarykey");
    EXPECT_TRUE(words->noMatch());
    EXPECT_FALSE(words->lastModified().valid());
    EXPECT_EQ(words->lastError(), QString());
}

TEST_F(OpenTest, AClosedRecordsetIsUnusableAndTheOthersAreNot) {
    make();
    const auto base = open(corpusSchema());
    const auto one = base->openTable(u"dico"_s);
    const auto other = base->openTable(u"dico"_s);
    one->close();
    EXPECT_THROW(one->eof(), Ended);
    EXPECT_FALSE(other->eof());
}

TEST_F(OpenTest, CreateRefusesAFileThatIsThere) {
    write("precious");
    const auto made = Database::create(path(), corpusSchema());
    EXPECT_FALSE(made.database);
    EXPECT_NE(made.message, QString());
    EXPECT_EQ(contents(), "precious");
    EXPECT_FALSE(Database::create(path(u"no/folder.dat"_s), corpusSchema()).database);
}

TEST_F(OpenTest, AnEmptyStoreOpensAsItWasMade) {
    Database::create(path(), dossiersSchema());
    const auto base = open(dossiersSchema());
    ASSERT_TRUE(base);
    for (const TableDef& table : dossiersSchema().tables) {
        EXPECT_TRUE(base->openTable(table.name)->usable());
        EXPECT_TRUE(base->openTable(table.name)->eof());
    }
    EXPECT_TRUE(base->check());
}

} // namespace
} // namespace velm::testing
