#pragma once
// A child window of the frame as the frame knows it: what it is, what it shows, what it can do now; do it.
#include "core/ordre.h"

#include <QString>

#include <functional>

namespace velm {

/// What a child window shows.
enum class Nature {
    Document,  ///< a document of a collection
    Liste,     ///< rows that lead to documents
    Recherche, ///< the search form
    Dossiers   ///< the user's own tree of documents
};

class FenetreFille {
public:
    virtual ~FenetreFille() = default;

    virtual Nature nature() const = 0;
    /// Key of the document that it shows, as the run's end records it; empty for none.
    virtual QString reference() const { return {}; }
    /// Its slot; -1 for a window that has none.
    virtual int indice() const { return -1; }

    /// Whether a command has something to work on in it now.
    virtual bool peut(Ordre ordre) const = 0;
    /// Carries a command out, if it is one of its own; the frame does some for its windows (the find dialog).
    virtual void fait(Ordre ordre) = 0;

    /// It has become the active window of the frame: told once each time.
    virtual void activation() {}
    /// Writes what its closing writes, and stays open.
    virtual void ecritreglages() {}
    /// What its closing does, once: for the end of the run, where all windows go.
    virtual void decharge() {}

    /// To be called when an answer of peut() has become another; the frame sets it. May be empty.
    std::function<void()> surchangement;
};

} // namespace velm
