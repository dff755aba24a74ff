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
            changed_ = setresuid(nobody, nobody, 0) == 0; // access() asks for the real user
    }
    ~WithoutRights() {
        if (changed_ && setresuid(0, 0, 0) != 0)
            std::abort();
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

private:
    bool changed_ = false;
};

} // namespace velm::test
