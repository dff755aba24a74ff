#pragma once
// The owner of what runs: its pieces of work are done here, one after the other, so that none ever stands on another.
// What fills the selection list has one, and so has the search while a text is typed, which has no list. While a search
// runs, its turns let events through, and whatever these want done here stops it and begins when it has left.
#include "search/cession.h"

#include <functional>
#include <stop_token>

namespace velm {

class Poste {
public:
    /// Leaves soon after `arret` has been asked for, unless it lets nothing through and so runs to its end.
    using Travail = std::function<void(const std::stop_token& arret)>;

    /// `evenements` lets through what waits, at the turns of a search; see Cession.
    explicit Poste(std::function<void()> evenements, std::chrono::milliseconds pas = Cession::pasordinaire);

    /// Does a piece of work, and behind it what was wanted while it was done. Called from within a piece of work, it
    /// comes back at once: that one stops, and `travail` begins when it has left. Of several that wait so, the newest
    /// alone is done.
    void fait(Travail travail);
    /// Stops what is being done; nothing waits any more.
    void arrete();
    bool occupe() const { return occupe_; }

    /// The turns of the searches.
    Cession& cession() { return cession_; }

private:
    Cession cession_;
    std::stop_source arret_;
    Travail suite_; ///< begins when the work has left
    bool occupe_ = false;
};

} // namespace velm
