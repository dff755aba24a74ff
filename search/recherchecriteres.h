#pragma once
// The criteria search: a walk through the documents of some collections, or through rows that were found before, which
// keeps those that pass. It is the only search that reads bodies, and the only one that can narrow what another has
// found.
#include "search/criteres.h"
#include "search/marche.h"
#include "search/recherche.h"

#include <QByteArray>

namespace velm {

class RechercheCriteres {
public:
    /// Neither is owned.
    RechercheCriteres(Corpus& corpus, Marche& marche) : corpus_(corpus), marche_(marche) {}

    /// Finds documents in the order of the collections, then of their numbers. A second text alone moves to the first
    /// box of `criteres`.
    void cherche(Criteres& criteres, const TypesDocument& types, const QByteArray& lettres, Resultat& resultat);

    /// Searches bodies without the folded texts that the base may hold. What is found is the same.
    void sanstable(bool sans) { sanstable_ = sans; }

    /// Takes out of the rows what does not pass. A row whose document is gone is tested on the document on which
    /// `données` stood before (kept: it stays in the list, or leaves it, for what another document holds).
    void affine(Criteres& criteres, const TypesDocument& types, Resultat& resultat);

private:
    Corpus& corpus_;
    Marche& marche_;
    bool sanstable_ = false;
};

/// Number of the next lot's documents: as many as keep a lot within a few milliseconds.
class TailleDeLot {
public:
    std::size_t taille() const { return taille_; }
    void apres(std::chrono::steady_clock::duration duree);

private:
    static constexpr std::size_t plusgrande = 512;
    std::size_t taille_ = 16;
};

} // namespace velm
