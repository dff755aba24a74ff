#pragma once
// Files that are none: what bears a file's name and would keep a reader waiting, or never end.
#include <QDir>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace velm::test {

/// A pipe in the place of a file.
inline void putPipe(const QString& path) {
    QFile::remove(path);
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
}

/// A device without an end, in the place of a file. Who may make one gets one of the test's own: a program that went
/// wrong in such hands could put a file in the place of the machine's. All others get a link to that.
inline void putDevice(const QString& path) {
    QFile::remove(path);
    constexpr unsigned memory = 1;
    constexpr unsigned zero = 5;
    if (geteuid() == 0)
        ASSERT_EQ(mknod(QFile::encodeName(path).constData(), S_IFCHR | S_IRUSR | S_IWUSR, makedev(memory, zero)), 0);
    else
        ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), path));
}

/// A folder in the place of a file.
inline void putFolder(const QString& path) {
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkpath(path));
}

/// Whoever waits for ever in this scope is ended with the whole test program, which is how that shows.
class NobodyWaits {
public:
    NobodyWaits() { alarm(seconds); }
    ~NobodyWaits() { alarm(0); }
    NobodyWaits(const NobodyWaits&) = delete;
    NobodyWaits& operator=(const NobodyWaits&) = delete;
    NobodyWaits(NobodyWaits&&) = delete;
    NobodyWaits& operator=(NobodyWaits&&) = delete;

private:
    static constexpr unsigned seconds = 120;
};

} // namespace velm::test
