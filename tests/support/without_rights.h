#pragma once
// A user without rights for the length of a scope; tests may run as one who has them all.
#include <cstdlib>
#include <unistd.h>

namespace velm::test {

class WithoutRights {
public:
    WithoutRights() {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0)
            changed_ = seteuid(nobody) == 0;
    }
    ~WithoutRights() {
        if (changed_ && seteuid(0) != 0)
            std::abort();
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

private:
    bool changed_ = false;
};

} // namespace velm::test
