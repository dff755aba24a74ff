#pragma once
// While one lives the engine gets no more memory than a few pages beyond what it holds: reading anything long fails.
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace velm::test {

/// The engine counts its memory only when it is told so before its first use, and is not told otherwise.
inline const bool memoryIsCounted =
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 1) == SQLITE_OK && sqlite3_initialize() == SQLITE_OK;

class LittleMemory {
public:
    LittleMemory() : before_(sqlite3_hard_heap_limit64(-1)) {
        constexpr sqlite3_int64 few = 1024 * 1024;
        EXPECT_TRUE(memoryIsCounted);
        sqlite3_hard_heap_limit64(sqlite3_memory_used() + few);
    }
    ~LittleMemory() { sqlite3_hard_heap_limit64(before_); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    sqlite3_int64 before_;
};

} // namespace velm::test
