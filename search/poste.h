#pragma once
// The one owner of a running search: what fills the list is done here, one piece of work after the other, so that none
// ever stands on another. While a search runs, its turns let events through, and whatever these want done with the list
// stops it and begins when it has left.
#include "search/cession.h"

#include <functional>
#include <stop_token>

namespace velm {

class Poste {
public:
    /// Leaves soon after `arret` has been asked for.
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
    Travail suite_; ///< begins when the list is free
    bool occupe_ = false;
};

} // namespace velm
