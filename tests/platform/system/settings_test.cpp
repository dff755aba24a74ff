#include "platform/system/settings.h"
#include "tests/support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class Reglages : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(u"VELMORANTE2000/VELMORANTE2000.ini"_s);

    void put(const QByteArray& bytes) const {
        ASSERT_TRUE(QDir().mkpath(folder.filePath(u"VELMORANTE2000"_s)));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    QByteArray content() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    QStringList filesLeft() const { return QDir(folder.filePath(u"VELMORANTE2000"_s)).entryList(QDir::Files); }
};

TEST_F(Reglages, AnEmptyStoreGivesTheDefaultsAndCreatesNoFile) {
    const ReglagesStore store(path);
    EXPECT_EQ(store.get(u"EDITEUR", u"UNITE", u"0"_s), u"0"_s);
    EXPECT_EQ(store.get(u"EDITEUR", u"UNITE"), QString());
    EXPECT_FALSE(store.contains(u"EDITEUR", u"UNITE"));
    EXPECT_TRUE(store.lastError().ok());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Reglages, ASavedValueIsThereAtTheNextStart) {
    {
        ReglagesStore store(path);
        EXPECT_TRUE(store.save(u"BASE", u"CHEMIN", u"/mnt/cdrom"_s));
        EXPECT_TRUE(store.save(u"TOOLS", u"INFO-BULLE1", u"Éditeur général"_s));
        EXPECT_EQ(store.get(u"BASE", u"CHEMIN"), u"/mnt/cdrom"_s);
    }
    const ReglagesStore store(path);
    EXPECT_EQ(store.get(u"BASE", u"CHEMIN"), u"/mnt/cdrom"_s);
    EXPECT_EQ(store.get(u"TOOLS", u"INFO-BULLE1"), u"Éditeur général"_s);
    EXPECT_EQ(content(), "[BASE]\nCHEMIN=/mnt/cdrom\n[TOOLS]\nINFO-BULLE1=Éditeur général\n");
}

TEST_F(Reglages, SectionsAndKeysCompareWithoutCase) {
    ReglagesStore store(path);
    EXPECT_TRUE(store.save(u"Général", u"Clé", u"1"_s));
    EXPECT_EQ(store.get(u"GÉNÉRAL", u"CLÉ"), u"1"_s);
    EXPECT_TRUE(store.save(u"général", u"clé", u"2"_s));
    EXPECT_EQ(content(), "[Général]\nclé=2\n");
}

TEST_F(Reglages, AnEmptyValueIsAValue) {
    ReglagesStore store(path);
    EXPECT_TRUE(store.save(u"AIDE", u"CHEMIN", QString()));
    EXPECT_TRUE(store.contains(u"AIDE", u"CHEMIN"));
    EXPECT_EQ(ReglagesStore(path).get(u"AIDE", u"CHEMIN", u"default"_s), QString());
}

TEST_F(Reglages, SectionsOfOneKeyNameStayApart) {
    ReglagesStore store(path);
    EXPECT_TRUE(store.save(u"BASE", u"CHEMIN", u"a"_s));
    EXPECT_TRUE(store.save(u"AIDE", u"CHEMIN", u"b"_s));
    EXPECT_EQ(ReglagesStore(path).get(u"BASE", u"CHEMIN"), u"a"_s);
    EXPECT_EQ(ReglagesStore(path).get(u"AIDE", u"CHEMIN"), u"b"_s);
}

TEST_F(Reglages, EveryTextSurvives) {
    const QString texts[] = {u""_s,
                             u" "_s,
                             u"            "_s,
                             u" X  12 "_s,
                             u"\t"_s,
                             u"\"quoted\""_s,
                             u"\""_s,
                             u"\"half"_s,
                             u"'single'"_s,
                             u"a=b;c#d"_s,
                             u";comment"_s,
                             u"[section]"_s,
                             u"line\r\nline\nline\r"_s,
                             u"C:\\dir\\\\n"_s,
                             u"\\"_s,
                             u"no-break\u00A0"_s,
                             u"\u00A0"_s,
                             u"œ Œ € “ ” \u2028 \u0085 \U0001F600"_s,
                             u"\uFEFF mark \uFFFE \uFFFF"_s,
                             u"\u007F\u0001"_s,
                             QString(QChar(0)),
                             QString(QChar(0xD800)) + u"x"_s,
                             QString(QChar(0xDC00)),
                             QString(100000, u'é')};
    for (const QString& text : texts) {
        ReglagesStore store(path);
        ASSERT_TRUE(store.save(u"POSITIONFORME", u"MDICHILDCONTENU", text));
        // As a name as well: it finds its value again.
        ASSERT_TRUE(store.save(u"n"_s + text, u"k", u"section"_s));
        ASSERT_TRUE(store.save(text + u"n"_s, text, u"key"_s));
        const ReglagesStore again(path);
        EXPECT_EQ(again.get(u"POSITIONFORME", u"MDICHILDCONTENU", u"lost"_s), text);
        EXPECT_EQ(again.get(u"n"_s + text, u"k"), u"section"_s) << text.toUtf8().constData();
        EXPECT_EQ(again.get(text + u"n"_s, text), u"key"_s) << text.toUtf8().constData();
        QFile::remove(path);
    }
}

TEST_F(Reglages, WhatNobodyUnderstandsIsKeptAsItWas) {
    put("\n; remark\r\nloose line\n[BASE]\r\n  CHEMIN = /a  \n\xE9\xFF=\xE8\n=\n[broken\n# other\n\n\n[AIDE]\nx=1");
    ReglagesStore store(path);
    EXPECT_EQ(store.get(u"BASE", u"CHEMIN"), u"/a"_s);
    EXPECT_EQ(store.get(u"BASE", u"éÿ"), u"è"_s) << "no valid UTF-8: of the code page";
    EXPECT_EQ(store.get(u"AIDE", u"x"), u"1"_s);
    EXPECT_TRUE(store.save(u"BASE", u"NEUF", u"n"_s));
    EXPECT_TRUE(store.save(u"AIDE", u"x", u"2"_s));
    EXPECT_EQ(content(), "\n; remark\r\nloose line\n[BASE]\r\n  CHEMIN = /a  \n\xE9\xFF=\xE8\n=\n[broken\n# other\n"
                         "NEUF=n\n\n\n[AIDE]\nx=2\n");
}

TEST_F(Reglages, ADamagedFileGivesWhatCanBeRead) {
    put(QByteArray("[BASE]\nCHEMIN=/a\n") + QByteArray(5000, '\0') + "\n[AIDE]\nx=\"cut");
    const ReglagesStore store(path);
    EXPECT_EQ(store.get(u"BASE", u"CHEMIN"), u"/a"_s);
    EXPECT_EQ(store.get(u"AIDE", u"x"), u"\"cut"_s);
}

TEST_F(Reglages, DamagedQuotesAreTakenAsTheyStand) {
    put("[A]\na=\"x\\q\"\nb=\"x\\u12\"\nc=\"x\" y\nd=\"\nunclosed\"=\"1\"\n\"k=1\"=v\n\"half=w\n");
    const ReglagesStore store(path);
    EXPECT_EQ(store.get(u"A", u"a"), u"\"x\\q\""_s);
    EXPECT_EQ(store.get(u"A", u"b"), u"\"x\\u12\""_s);
    EXPECT_EQ(store.get(u"A", u"c"), u"\"x\" y"_s);
    EXPECT_EQ(store.get(u"A", u"d"), u"\""_s);
    EXPECT_EQ(store.get(u"A", u"unclosed\""), u"1"_s);
    EXPECT_EQ(store.get(u"A", u"k=1"), u"v"_s);
    EXPECT_EQ(store.get(u"A", u"\"half"), u"w"_s);
}

TEST_F(Reglages, OfTwoEqualEntriesTheFirstCounts) {
    put("[A]\nx=1\nX=2\n[B]\ny=1\n[a]\nx=3\nz=4\n");
    ReglagesStore store(path);
    EXPECT_EQ(store.get(u"A", u"x"), u"1"_s);
    EXPECT_EQ(store.get(u"A", u"z"), u"4"_s);
    EXPECT_TRUE(store.save(u"A", u"x", u"9"_s));
    EXPECT_EQ(ReglagesStore(path).get(u"A", u"x"), u"9"_s);
}

TEST_F(Reglages, EntriesBeforeAnySectionBelongToTheOneWithoutAName) {
    put("\xEF\xBB\xBF\xEF\xBB\xBFx=1\n[A]\nx=2\n");
    ReglagesStore store(path);
    EXPECT_EQ(store.get(u"", u"x"), u"1"_s);
    EXPECT_TRUE(store.save(u"", u"y", u"3"_s));
    EXPECT_EQ(content(), "x=1\ny=3\n[A]\nx=2\n");
}

TEST_F(Reglages, ABatchWritesOnce) {
    ReglagesStore store(path);
    {
        ReglagesStore::Batch batch(store);
        EXPECT_TRUE(store.save(u"A", u"x", u"1"_s));
        {
            const ReglagesStore::Batch inner(store);
            EXPECT_TRUE(store.save(u"A", u"y", u"2"_s));
        }
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_TRUE(batch.commit());
        EXPECT_EQ(content(), "[A]\nx=1\ny=2\n");
        EXPECT_TRUE(store.save(u"A", u"z", u"3"_s)) << "behind the commit each save writes again";
        EXPECT_EQ(content(), "[A]\nx=1\ny=2\nz=3\n");
    }
    {
        const ReglagesStore::Batch batch(store);
        EXPECT_TRUE(store.save(u"A", u"x", u"4"_s));
    }
    EXPECT_EQ(ReglagesStore(path).get(u"A", u"x"), u"4"_s);
}

TEST_F(Reglages, SavingTheStoredValueWritesNothing) {
    ReglagesStore store(path);
    ASSERT_TRUE(store.save(u"A", u"x", u"1"_s));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(store.save(u"A", u"x", u"1"_s));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Reglages, AFailedWriteIsReportedAndTheValueHoldsForTheRun) {
    // A file where the folder should be: nothing can be written there, by whomever.
    const QString blocked = folder.filePath(u"file"_s);
    QFile file(blocked);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    ReglagesStore store(blocked + u"/x.ini"_s);
    EXPECT_FALSE(store.save(u"A", u"x", u"1"_s));
    EXPECT_EQ(store.lastError().kind, Obstacle::NoFolder);
    EXPECT_EQ(store.get(u"A", u"x"), u"1"_s);
    ASSERT_TRUE(QFile::remove(blocked));
    EXPECT_TRUE(store.save(u"A", u"x", u"1"_s)) << "the next save tries again";
    EXPECT_TRUE(store.lastError().ok());
    EXPECT_EQ(ReglagesStore(blocked + u"/x.ini"_s).get(u"A", u"x"), u"1"_s);
}

TEST_F(Reglages, AFailedWriteLeavesThePreviousFile) {
    put("[A]\nx=1\n");
    ReglagesStore store(path);
    {
        const test::FullDisk full(100);
        EXPECT_FALSE(store.save(u"A", u"x", QString(1000, u'x')));
    }
    EXPECT_EQ(store.lastError().kind, Obstacle::Full);
    EXPECT_EQ(content(), "[A]\nx=1\n");
    EXPECT_EQ(filesLeft(), QStringList(u"VELMORANTE2000.ini"_s));
    EXPECT_TRUE(store.save(u"A", u"y", u"2"_s)) << "the collected changes are written when there is room again";
    EXPECT_EQ(ReglagesStore(path).get(u"A", u"x"), QString(1000, u'x'));
}

TEST_F(Reglages, WhatCannotBeReadIsNotWrittenOver) {
    ASSERT_TRUE(QDir().mkpath(path + u"/inside"_s));
    ReglagesStore store(path);
    EXPECT_EQ(store.lastError().kind, Obstacle::NotPlain);
    EXPECT_FALSE(store.save(u"A", u"x", u"1"_s));
    EXPECT_EQ(store.lastError().kind, Obstacle::NotPlain);
    EXPECT_EQ(store.get(u"A", u"x"), u"1"_s);
    EXPECT_TRUE(QDir(path + u"/inside"_s).exists());
}

TEST_F(Reglages, AnotherProgramsChangesDuringTheRunSurvive) {
    put("[A]\nx=1\ny=1\n");
    ReglagesStore store(path);
    put("; theirs\n[A]\nx=1\ny=2\nz=3\n[B]\nk=4\n");
    EXPECT_TRUE(store.save(u"A", u"x", u"5"_s));
    EXPECT_EQ(content(), "; theirs\n[A]\nx=5\ny=2\nz=3\n[B]\nk=4\n");
    EXPECT_EQ(store.get(u"A", u"y"), u"2"_s) << "what was found there counts from now on";
    put("[A]\nx=6\n");
    {
        ReglagesStore::Batch batch(store);
        EXPECT_TRUE(store.save(u"A", u"n", u"7"_s));
        EXPECT_TRUE(store.save(u"A", u"n", u"8"_s));
        EXPECT_TRUE(store.save(u"A", u"x", u"5"_s)) << "nothing that this program has changed";
        EXPECT_TRUE(batch.commit());
    }
    EXPECT_EQ(content(), "[A]\nx=6\nn=8\n");
}

TEST_F(Reglages, AFileThatWentDuringTheRunComesBackWithTheNewChangesAlone) {
    put("[A]\nx=1\ny=1\n");
    ReglagesStore store(path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(store.save(u"A", u"x", u"2"_s));
    EXPECT_EQ(content(), "[A]\nx=2\n");
}

TEST_F(Reglages, WhatCannotBeReadAnyMoreIsNotWrittenOver) {
    put("[A]\nx=1\n");
    ReglagesStore store(path);
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkpath(path + u"/inside"_s));
    EXPECT_FALSE(store.save(u"A", u"x", u"2"_s));
    EXPECT_EQ(store.lastError().kind, Obstacle::NotPlain);
    EXPECT_EQ(store.get(u"A", u"x"), u"2"_s);
    ASSERT_TRUE(QDir(path).removeRecursively());
    put("[A]\nx=1\ny=9\n");
    EXPECT_TRUE(store.save(u"A", u"z", u"3"_s)) << "the collected changes are written when it can be read again";
    EXPECT_EQ(content(), "[A]\nx=2\ny=9\nz=3\n");
}

TEST_F(Reglages, TwoWritersAtOnceLoseNothingOfEachOther) {
    constexpr int changes = 60;
    const auto writes = [this](QChar name) {
        ReglagesStore store(path);
        for (int i = 0; i < changes; ++i)
            EXPECT_TRUE(store.save(u"A", name + QString::number(i), u"1"_s)) << store.lastError().words.toStdString();
    };
    std::thread other(writes, u'b');
    writes(u'a');
    other.join();
    const ReglagesStore store(path);
    for (int i = 0; i < changes; ++i) {
        EXPECT_TRUE(store.contains(u"A", u'a' + QString::number(i))) << i;
        EXPECT_TRUE(store.contains(u"A", u'b' + QString::number(i))) << i;
    }
    EXPECT_EQ(filesLeft(), QStringList(u"VELMORANTE2000.ini"_s));
}

TEST_F(Reglages, WhileAnotherWriterHoldsTheFileNothingIsWritten) {
    put("[A]\nx=1\n");
    ReglagesStore store(path);
    {
        QLockFile held(path + u".lock"_s);
        ASSERT_TRUE(held.tryLock());
        EXPECT_FALSE(store.save(u"A", u"x", u"2"_s));
        EXPECT_EQ(store.lastError().kind, Obstacle::Busy);
        EXPECT_EQ(content(), "[A]\nx=1\n");
    }
    EXPECT_TRUE(store.save(u"A", u"y", u"3"_s));
    EXPECT_EQ(content(), "[A]\nx=2\ny=3\n");
}

TEST_F(Reglages, NoTemporaryFileIsLeft) {
    ReglagesStore store(path);
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(store.save(u"A", u"x", QString::number(i)));
    EXPECT_EQ(filesLeft(), QStringList(u"VELMORANTE2000.ini"_s));
}

TEST_F(Reglages, ManyKeysStayQuick) {
    ReglagesStore store(path);
    {
        const ReglagesStore::Batch batch(store);
        for (int i = 0; i < 20000; ++i)
            ASSERT_TRUE(store.save(u"S%1"_s.arg(i % 50), u"K%1"_s.arg(i), QString::number(i)));
    }
    const ReglagesStore again(path);
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(again.get(u"S%1"_s.arg(i % 50), u"K%1"_s.arg(i)), QString::number(i));
}

} // namespace
