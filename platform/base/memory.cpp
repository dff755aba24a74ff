#include "platform/base/memory.h"

#include <new>
#include <stdexcept>

namespace velm {

bool withinMemory(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) { // more than any container holds
        return false;
    }
}

} // namespace velm
