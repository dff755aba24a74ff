#pragma once
// While one lives the engine gets little more memory than it holds: reading anything long fails, or anything at all.
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace velm::test {

/// The engine counts its memory only when it is told so before its first use, and is not told otherwise.
inline const bool memoryIsCounted =
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 1) == SQLITE_OK && sqlite3_initialize() == SQLITE_OK;

class LittleMemory {
public:
    explicit LittleMemory(sqlite3_int64 more = 1024 * 1024) : before_(sqlite3_hard_heap_limit64(-1)) {
        EXPECT_TRUE(memoryIsCounted);
        sqlite3_hard_heap_limit64(sqlite3_memory_used() + more + 1);
    }
    ~LittleMemory() { sqlite3_hard_heap_limit64(before_); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    sqlite3_int64 before_;
};

} // namespace velm::test
