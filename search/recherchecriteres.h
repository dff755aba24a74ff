#pragma once
// The criteria search: a walk through the documents of some collections, or through the rows of the list, which keeps
// those that pass. It is the only search that reads bodies, and the only one that can narrow what another has found.
#include "search/criteres.h"
#include "search/recherche.h"

#include <QByteArray>

namespace velm {

struct ResultatCriteres {
    bool arretee = false; ///< it was to stop; the rows so far stay, and those not yet looked at when narrowing
    qint64 vus = 0;       ///< documents that were looked at
    qint64 hits = 0;      ///< documents that passed
    PublicationFin fin;
};

class RechercheCriteres {
public:
    /// `progres` hears how many documents were looked at, and of how many, when the search begins to walk and at each
    /// turn; the first number never passes the second. The status panel is told at the same times and at the end.
    RechercheCriteres(Atelier atelier, std::function<void(qint64 vus, qint64 total)> progres);

    /// Finds documents in the order of the collections, then of their numbers. A second text alone moves to the first
    /// box of `criteres`.
    ResultatCriteres cherche(Criteres& criteres, const TypesDocument& types, const QByteArray& lettres,
                             const std::stop_token& arret = {});

    /// Searches bodies without the folded texts that the base may hold. What is found is the same.
    void sanstable(bool sans) { sanstable_ = sans; }

    /// Takes out of the list what does not pass. A row whose document is gone is tested on the document on which
    /// `données` stood before.
    ResultatCriteres affine(Criteres& criteres, const TypesDocument& types, const std::stop_token& arret = {});

private:
    Atelier atelier_;
    std::function<void(qint64, qint64)> progres_;
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
