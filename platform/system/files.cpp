#include "platform/system/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 copyChunk = 30000;

bool isSameFile(const QString& a, const QString& b) {
    const QString canonical = QFileInfo(a).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(b).canonicalFilePath();
}

/// The copy itself; the target did not exist before.
void copyChunks(QFile& from, QFile& to, const std::function<void(double)>& progress, CopieResultat& result) {
    const qint64 total = from.size();
    QByteArray chunk(std::min(total, copyChunk), Qt::Uninitialized);
    while (result.written < total) {
        const qint64 wanted = std::min(total - result.written, copyChunk);
        const qint64 got = from.read(chunk.data(), wanted);
        if (got <= 0) {
            result.error = got < 0 ? from.errorString() : qt_error_string(EIO);
            return;
        }
        if (to.write(chunk.constData(), got) != got) {
            result.error = to.errorString();
            return;
        }
        result.written += got;
        if (progress)
            progress(static_cast<double>(result.written) / static_cast<double>(total) * 100);
    }
}

FileError systemError(int number) {
    return {obstacleOf(number), qt_error_string(number)};
}

FileError notPlain() {
    return {Obstacle::NotPlain, qt_error_string(EOPNOTSUPP)};
}

/// What kept a file from being written: the system's number for it, if it gave any, and the words. Without a number the
/// toolkit has not even tried, because of the rights of what stands there.
FileError notWritten(int number, const QString& words) {
    const Obstacle kind = number == 0 ? Obstacle::ReadOnly : obstacleOf(number);
    return {kind == Obstacle::Missing ? Obstacle::NoFolder : kind, words};
}

/// Without waiting, only what is a plain file; else all but a folder.
FileError openRead(QFile& file, const QByteArray& name, int notWaiting) {
    const int descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | notWaiting);
    if (descriptor < 0)
        return systemError(errno);
    struct stat info {};
    const bool known = fstat(descriptor, &info) == 0;
    if (!known || (notWaiting != 0 ? !S_ISREG(info.st_mode) : S_ISDIR(info.st_mode))) {
        ::close(descriptor);
        return notPlain();
    }
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return {Obstacle::Other, file.errorString()};
    }
    return {};
}

bool isPlain(const QString& path) {
    struct stat info {};
    return stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

bool othersOwnOrWrite(const QString& path) {
    struct stat info {};
    if (stat(QFile::encodeName(path).constData(), &info) != 0)
        return true;
    const bool ours = info.st_uid == geteuid() || info.st_uid == 0;
    return !ours || (info.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

} // namespace

QString joinPath(QStringView folder, QStringView name) {
    if (folder.isEmpty() || name.isEmpty())
        return (folder.isEmpty() ? name : folder).toString();
    while (folder.endsWith(u'/'))
        folder.chop(1);
    while (name.startsWith(u'/'))
        name = name.sliced(1);
    return folder.toString() + u'/' + name.toString();
}

QString withSeparator(const QString& folder) {
    return folder.isEmpty() || folder.endsWith(u'/') ? folder : folder + u'/';
}

QString folderOf(const QString& path) {
    const qsizetype separator = path.lastIndexOf(u'/');
    if (separator < 0)
        return {};
    return separator == 0 ? u"/"_s : path.first(separator);
}

QString fileNameOf(const QString& words) {
    constexpr qsizetype longest = 60;
    QString name;
    for (const QChar c : words) {
        const bool kept = c.isLetterOrNumber() || c.isMark() || c == u'-';
        name += kept ? c : QChar(u' ');
    }
    return name.simplified().left(longest).trimmed();
}

bool fileExists(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isFile();
}

std::optional<QDateTime> fileDate(const QString& path) {
    return fileExists(path) ? std::optional(QFileInfo(path).lastModified()) : std::nullopt;
}

std::optional<qint64> fileSize(const QString& path) {
    return fileExists(path) ? std::optional(QFileInfo(path).size()) : std::nullopt;
}

FileError openPlain(QFile& file, const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat info {};
    // Asked before as well: to open a device may already do something.
    if (stat(name.constData(), &info) != 0)
        return systemError(errno);
    if (!S_ISREG(info.st_mode))
        return notPlain();
    // It may have become a pipe meanwhile: that must not wait for a writer.
    return openRead(file, name, O_NONBLOCK);
}

FileBytes readRest(QFile& file) {
    FileBytes result{file.readAll(), {}};
    if (file.error() != QFileDevice::NoError)
        result = {{}, {Obstacle::Device, file.errorString()}};
    return result;
}

FileBytes readFile(const QString& path, FileKind kind) {
    QFile file;
    FileError error = kind == FileKind::Plain ? openPlain(file, path) : openRead(file, QFile::encodeName(path), 0);
    return error.ok() ? readRest(file) : FileBytes{{}, std::move(error)};
}

FileBytes readBeginningWith(const QString& path, QByteArrayView beginning) {
    QFile file;
    if (FileError error = openPlain(file, path); !error.ok())
        return {{}, std::move(error)};
    const QByteArray start = file.read(beginning.size());
    if (file.error() == QFileDevice::NoError && start != beginning)
        return {start, {}};
    FileBytes result = readRest(file);
    if (result.ok())
        result.bytes.prepend(start);
    return result;
}

bool othersCanChange(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    // Of a link, also who may turn it elsewhere.
    const std::array<QString, 3> places{QFileInfo(path).absolutePath(), real, QFileInfo(real).absolutePath()};
    return real.isEmpty() || std::any_of(places.begin(), places.end(), othersOwnOrWrite);
}

FileError writeWhole(const QString& path, const QByteArray& bytes) {
    if (QFileInfo::exists(path) && !isPlain(path))
        return notPlain();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    // Without a buffer: a disk that is full when a buffer is emptied at the end is not told by commit(), and the cut
    // file would replace the good one.
    errno = 0;
    const bool written =
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size() && file.commit();
    return written ? FileError() : notWritten(errno, file.errorString());
}

CopieResultat copiefichier(const QString& source, const QString& target,
                           const std::function<void(double percent)>& progress) {
    CopieResultat result;
    if (!fileExists(source))
        return result;
    if (isSameFile(source, target)) {
        result.error = qt_error_string(EEXIST);
        return result;
    }
    // The source is opened first: a source that cannot be read shall not cost the target.
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly)) {
        result.error = from.errorString();
        return result;
    }
    QFile to(target);
    if (QFileInfo(target).exists() && !to.remove()) {
        result.error = to.errorString();
        return result;
    }
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        result.error = to.errorString();
        return result;
    }
    copyChunks(from, to, progress, result);
    to.close();
    if (!result.ok())
        to.remove();
    return result;
}

std::optional<qint64> placelibre(const QString& path) {
    QString place = QFileInfo(path).absoluteFilePath();
    while (!QFileInfo::exists(place)) {
        const QString above = QFileInfo(place).absolutePath();
        if (above == place)
            return std::nullopt;
        place = above;
    }
    const QStorageInfo storage(place);
    if (!storage.isValid() || !storage.isReady())
        return std::nullopt;
    return storage.bytesAvailable();
}

QString tempFolder() {
    // Empty when the environment names a folder that is not there.
    const QString folder = QDir::tempPath();
    return folder.isEmpty() ? u"/tmp"_s : folder;
}

bool makeWritable(const QString& path) {
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner;
    return QFile::setPermissions(path, QFileInfo(path).permissions() | own);
}

} // namespace velm
