#include "platform/system/drives.h"

#include "platform/system/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The mount table writes blanks and the like as a backslash and three octal digits.
QByteArray unescaped(const QByteArray& field) {
    QByteArray result;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool octal = false;
        const int value = field[i] == '\\' ? field.sliced(i + 1).left(3).toInt(&octal, 8) : 0;
        if (octal && i + 3 < field.size()) {
            result += static_cast<char>(value);
            i += 3;
        } else {
            result += field[i];
        }
    }
    return result;
}

QByteArray firstLine(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readLine().trimmed() : QByteArray();
}

bool isOpticalDevice(const QString& device) {
    return device.startsWith(u"/dev/sr"_s) || device.startsWith(u"/dev/scd"_s);
}

bool isOpticalFileSystem(const QByteArray& type) {
    return type == "iso9660" || type == "udf";
}

QString mountPoint(const QByteArray& field) {
    QString root = QFile::decodeName(unescaped(field));
    while (root.size() > 1 && root.endsWith(u'/'))
        root.chop(1);
    return root;
}

} // namespace

SystemLecteurs::SystemLecteurs(QString mounts, QString sys) : mounts_(std::move(mounts)), sys_(std::move(sys)) {}

QList<Lecteur> SystemLecteurs::liste() const {
    QList<Lecteur> drives;
    QSet<QString> mounted;
    QFile table(mounts_);
    if (table.open(QIODevice::ReadOnly)) {
        // One read: the kernel's table has no size, and may change between two reads.
        const QList<QByteArray> lines = table.readAll().split('\n');
        for (const QByteArray& line : lines) {
            const QList<QByteArray> fields = line.split(' ');
            const QString device = QFile::decodeName(unescaped(fields[0]));
            if (fields.size() < 3 || !device.startsWith(u'/') || mounted.contains(device))
                continue;
            const bool optical = isOpticalDevice(device) || isOpticalFileSystem(fields[2]);
            if (!optical && !isRemovable(device))
                continue;
            mounted.insert(device);
            drives.append({mountPoint(fields[1]), optical ? Lecteur::Genre::Optique : Lecteur::Genre::Amovible, true});
        }
    }
    const QStringList optical = QDir(joinPath(sys_, u"block")).entryList({u"sr*"_s}, QDir::AllEntries, QDir::Name);
    for (const QString& name : optical) {
        if (!mounted.contains(u"/dev/"_s + name))
            drives.append({QString(), Lecteur::Genre::Optique, false});
    }
    return drives;
}

bool SystemLecteurs::isRemovable(const QString& device) const {
    if (!device.startsWith(u"/dev/"_s))
        return false;
    const QFileInfo entry(joinPath(joinPath(sys_, u"class/block"), QFileInfo(device).fileName()));
    QString folder = entry.canonicalFilePath();
    if (folder.isEmpty())
        return false;
    // Of a partition, the disk it lies on tells.
    if (QFileInfo::exists(joinPath(folder, u"partition")))
        folder = folderOf(folder);
    return firstLine(joinPath(folder, u"removable")) == "1";
}

} // namespace velm
