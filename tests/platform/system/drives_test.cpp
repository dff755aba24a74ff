#include "platform/system/drives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class LecteursTest : public testing::Test {
protected:
    QTemporaryDir folder;

    void put(const QString& name, const QByteArray& bytes) const {
        const QString path = folder.filePath(name);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void disk(const QString& name, bool removable, const QString& partition = QString()) const {
        const QString device = u"sys/devices/"_s + name;
        put(device + u"/removable"_s, removable ? "1\n" : "0\n");
        ASSERT_TRUE(QDir().mkpath(folder.filePath(u"sys/class/block"_s)));
        ASSERT_TRUE(QDir().mkpath(folder.filePath(u"sys/block"_s)));
        ASSERT_TRUE(QFile::link(folder.filePath(device), folder.filePath(u"sys/class/block/"_s + name)));
        ASSERT_TRUE(QFile::link(folder.filePath(device), folder.filePath(u"sys/block/"_s + name)));
        if (!partition.isEmpty()) {
            put(device + u'/' + partition + u"/partition"_s, "1\n");
            ASSERT_TRUE(QFile::link(folder.filePath(device + u'/' + partition),
                                    folder.filePath(u"sys/class/block/"_s + partition)));
        }
    }
    QList<Lecteur> drives(const QByteArray& mounts) const {
        put(u"mounts"_s, mounts);
        return SystemLecteurs(folder.filePath(u"mounts"_s), folder.filePath(u"sys"_s)).liste();
    }
};

constexpr auto optique = Lecteur::Genre::Optique;
constexpr auto amovible = Lecteur::Genre::Amovible;

TEST_F(LecteursTest, OpticalAndRemovableMediaComeInTheOrderOfMounting) {
    disk(u"sda"_s, false, u"sda1"_s);
    disk(u"sdb"_s, true, u"sdb1"_s);
    disk(u"sr0"_s, true);
    EXPECT_EQ(drives("/dev/sda1 / ext4 rw 0 0\n"
                     "proc /proc proc rw 0 0\n"
                     "/dev/sdb1 /media/cle vfat rw 0 0\n"
                     "/dev/sr0 /media/cdrom iso9660 ro 0 0\n"),
              (QList<Lecteur>{{u"/media/cle"_s, amovible, true}, {u"/media/cdrom"_s, optique, true}}));
}

TEST_F(LecteursTest, ADiscImageIsOptical) {
    EXPECT_EQ(drives("/dev/loop3 /mnt/image udf ro 0 0\n"), (QList<Lecteur>{{u"/mnt/image"_s, optique, true}}));
}

TEST_F(LecteursTest, ADriveWithoutAMediumIsNotReady) {
    disk(u"sr0"_s, true);
    disk(u"sr1"_s, true);
    EXPECT_EQ(drives("/dev/sr1 /media/cdrom1 iso9660 ro 0 0\n"),
              (QList<Lecteur>{{u"/media/cdrom1"_s, optique, true}, {QString(), optique, false}}));
}

TEST_F(LecteursTest, NamesWithBlanksAreReadAndASecondMountOfADeviceIsLeftOut) {
    EXPECT_EQ(drives("/dev/sr0 /media/Mon\\040disque\\134x iso9660 ro 0 0\n"
                     "/dev/sr0 /mnt/again iso9660 ro 0 0\n"),
              (QList<Lecteur>{{u"/media/Mon disque\\x"_s, optique, true}}));
}

TEST_F(LecteursTest, DamagedTablesGiveWhatCanBeRead) {
    EXPECT_TRUE(drives("").isEmpty());
    EXPECT_TRUE(drives("\n\n/dev/sr0\n/dev/sr0 /a\n\\ \\ \\\n").isEmpty());
    EXPECT_EQ(drives("/dev/sr0 /a\\04 iso9660").size(), 1);
    EXPECT_TRUE(SystemLecteurs(u"/no/such/table"_s, u"/no/such/sys"_s).liste().isEmpty());
}

} // namespace
