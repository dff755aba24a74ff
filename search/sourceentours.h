#pragma once
// A list of documents that is too long to be filled or sorted at one go: both are pieces of work that somebody carries
// on step by step, so that a window answers meanwhile.
#include "core/sourcedocuments.h"

#include <memory>

namespace velm {

/// A piece of work. It may be left at any step, and then has changed nothing.
class Ouvrage {
public:
    virtual ~Ouvrage() = default;
    /// One step, of about a millisecond. True when all is done.
    virtual bool avance() = 0;
    /// How far it is, of 1.
    virtual double part() const = 0;
};

/// From the beginning to the end at one go.
inline void acheve(Ouvrage& ouvrage) {
    while (!ouvrage.avance()) {
    }
}

class SourceEnTours : public SourceDocuments {
public:
    /// What finds the rows; until it is done there are none. The source outlives it.
    virtual std::unique_ptr<Ouvrage> remplissage() = 0;
    /// What finds the order of a column; once it is done sort() of that column has it at once. Null where the rows
    /// cannot be sorted so. The source outlives it.
    virtual std::unique_ptr<Ouvrage> tri(int column, bool descending) = 0;
};

} // namespace velm
