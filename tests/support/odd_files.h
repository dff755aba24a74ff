#pragma once
// Files that are none: what bears a file's name and would keep a reader waiting, or never end.
#include <QDir>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velm::test {

/// A pipe in the place of a file.
inline void putPipe(const QString& path) {
    QFile::remove(path);
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
}

/// A link to a device without an end, in the place of a file.
inline void putDevice(const QString& path) {
    QFile::remove(path);
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
