#include "platform/system/singleinstance.h"

#include "platform/system/files.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QThread>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A folder that another user could fill with lures (in the shared temporary folder) is not used.
bool isOurs(const QString& folder) {
    struct stat info {};
    return lstat(QFile::encodeName(folder).constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
           info.st_uid == geteuid() && (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

bool makeFolder(const QString& folder) {
    return isOurs(folder) || (QDir().mkpath(folderOf(folder)) &&
                              mkdir(QFile::encodeName(folder).constData(), S_IRWXU) == 0 && isOurs(folder));
}

/// The folder itself, to be locked; -1 when it is not this user's.
int openFolder(const QString& folder) {
    const int opened = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    struct stat info {};
    if (opened >= 0 && (fstat(opened, &info) != 0 || info.st_uid != geteuid())) {
        close(opened);
        return -1;
    }
    return opened;
}

/// Closed on exec, as a tool started from here must not keep the lock when this program has ended.
int openLock(const QString& path) {
    return open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
}

/// A request is one byte in a named pipe; the first program holds it open for reading and writing, so that it neither
/// blocks nor sees an end.
int openPipe(const QString& path, int mode) {
    const int pipe = open(QFile::encodeName(path).constData(), mode | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
    struct stat info {};
    if (pipe >= 0 && (fstat(pipe, &info) != 0 || !S_ISFIFO(info.st_mode))) {
        close(pipe);
        return -1;
    }
    return pipe;
}

} // namespace

QString SingleInstance::defaultFolder(const QString& name) {
    const QString usual = u"/run/user/%1"_s.arg(geteuid());
    for (const QString& runtime : {qEnvironmentVariable("XDG_RUNTIME_DIR"), usual}) {
        if (!runtime.isEmpty() && isOurs(runtime))
            return runtime;
    }
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation), name);
}

SingleInstance::SingleInstance(const QString& name, const QString& folder)
    : requestPath_(joinPath(folder, name + u".raise"_s)) {
    // What lies in a folder that is not trusted is not written to either.
    if (makeFolder(folder))
        lock_ = openLock(joinPath(folder, name + u".lock"_s));
    else
        requestPath_.clear();
    if (lock_ < 0)
        lock_ = openFolder(QDir::homePath());
    if (lock_ < 0)
        return;
    if (flock(lock_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        first_ = false;
        return;
    }
    if (requestPath_.isEmpty())
        return;
    const QByteArray pipePath = QFile::encodeName(requestPath_);
    mkfifo(pipePath.constData(), S_IRUSR | S_IWUSR);
    requests_ = openPipe(requestPath_, O_RDWR);
}

SingleInstance::~SingleInstance() {
    notifier_.reset();
    if (requests_ >= 0)
        close(requests_);
    if (lock_ >= 0)
        close(lock_);
}

bool SingleInstance::raiseFirst() const {
    // The first program may hold the lock and not yet its pipe.
    constexpr int attempts = 50;
    constexpr unsigned long pauseMs = 10;
    for (int i = 0; !first_ && !requestPath_.isEmpty() && i < attempts; ++i) {
        const int pipe = openPipe(requestPath_, O_WRONLY);
        if (pipe >= 0) {
            // A full pipe holds requests enough.
            const bool heard = write(pipe, "r", 1) == 1 || errno == EAGAIN;
            close(pipe);
            return heard;
        }
        QThread::msleep(pauseMs);
    }
    return false;
}

void SingleInstance::setOnRaise(std::function<void()> onRaise) {
    onRaise_ = std::move(onRaise);
    if (requests_ < 0 || notifier_)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(requests_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { readRequests(); });
}

void SingleInstance::readRequests() {
    std::array<char, 256> bytes{};
    while (read(requests_, bytes.data(), bytes.size()) > 0) {
    }
    if (onRaise_)
        onRaise_();
}

} // namespace velm
