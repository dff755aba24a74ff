#pragma once
// How a long search lets the program go on: it asks before each of its steps, and every 16 milliseconds at most what
// the user has done meanwhile is let through. The step itself costs a look at the clock.
#include "platform/engine/recordset.h"

#include <chrono>
#include <functional>
#include <stop_token>

namespace velm {

class Cession {
public:
    static constexpr std::chrono::milliseconds pasordinaire{16};

    /// `evenements` lets what waits through; it may do anything, also start another search or end the program.
    explicit Cession(std::function<void()> evenements = {}, std::chrono::milliseconds pas = pasordinaire);

    /// A search begins: its first turn comes when one interval has passed.
    void commence() { derniere_ = std::chrono::steady_clock::now(); }
    /// True when it is time to show how far the work is and to let events through.
    bool due() const { return std::chrono::steady_clock::now() - derniere_ >= pas_; }

    /// Lets events through. False when the search is to stop: it leaves at once.
    bool cede(const std::stop_token& arret);
    /// The same around a table that others use as well: it is put back on its index and its row. A search that leaves
    /// does not touch the table again, which may be closed.
    bool cede(Recordset& table, const std::stop_token& arret);

private:
    std::function<void()> evenements_;
    std::chrono::milliseconds pas_;
    std::chrono::steady_clock::time_point derniere_ = std::chrono::steady_clock::now();
};

} // namespace velm
