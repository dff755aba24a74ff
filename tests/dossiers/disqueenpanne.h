#pragma once
// A disk that fails at the n-th change of a file, for the engine alone: all that is written, cut, forced, deleted or
// made new is counted, and from the one that is chosen on nothing works any more, or that one alone does not.
#include <sqlite3.h>

namespace velm::test {

class DisqueEnPanne {
public:
    /// Bases that are opened while one lives lie on this disk. There is one at a time.
    DisqueEnPanne();
    ~DisqueEnPanne();
    DisqueEnPanne(const DisqueEnPanne&) = delete;
    DisqueEnPanne& operator=(const DisqueEnPanne&) = delete;
    DisqueEnPanne(DisqueEnPanne&&) = delete;
    DisqueEnPanne& operator=(DisqueEnPanne&&) = delete;

    /// Counts from 1 on anew. `quand`: which change fails, 0 for none. `ensuite`: so do all behind it.
    void tombe(int quand, int code, bool ensuite);
    void guerit() { tombe(0, SQLITE_OK, false); }
    /// How many changes there were.
    int changements() const;
    /// How many of them failed.
    int pannes() const;
};

} // namespace velm::test
