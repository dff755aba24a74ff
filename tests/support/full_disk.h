#pragma once
// A disk that is full, for the length of a scope: no file of this process grows beyond the given size.
#include <csignal>
#include <sys/resource.h>

namespace velm::test {

class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = limit_;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    FullDisk(FullDisk&&) = delete;
    FullDisk& operator=(FullDisk&&) = delete;

private:
    rlimit limit_{};
    void (*handler_)(int) = nullptr;
};

} // namespace velm::test
