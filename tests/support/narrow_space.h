#pragma once
// While one lives the process gets little more memory than it has.
#include <QFile>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace velm::test {

class NarrowSpace {
public:
    /// So many bytes more.
    explicit NarrowSpace(rlim_t more) {
        QFile file(QStringLiteral("/proc/self/statm"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const auto pages = file.readAll().split(' ').first().toULongLong();
        EXPECT_EQ(getrlimit(RLIMIT_AS, &before_), 0);
        const rlimit narrow{static_cast<rlim_t>(pages * static_cast<unsigned long long>(sysconf(_SC_PAGESIZE))) + more,
                            before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_AS, &narrow), 0);
    }
    ~NarrowSpace() { setrlimit(RLIMIT_AS, &before_); }
    NarrowSpace(const NarrowSpace&) = delete;
    NarrowSpace& operator=(const NarrowSpace&) = delete;

private:
    rlimit before_{};
};

} // namespace velm::test
