#pragma once
// How a search goes on: of how much it has to go through how much it has seen and found. Between its steps it tells so,
// lets events through in its turns, and hears that it is to stop.
#include "search/cession.h"
#include "search/resultat.h"

namespace velm {

class Marche {
public:
    struct Etape {
        qint64 vus = 0; ///< never above `total`
        qint64 total = 0;
        std::optional<qint64> compte; ///< of the result so far
    };
    using Ecoute = std::function<void(const Etape&)>;

    /// From the beginning to the end in one go, heard by nobody.
    Marche() = default;
    /// In turns of `cession`, which is not owned, until `arret`. `ecoute` hears of the beginning and of each turn.
    explicit Marche(Cession& cession, std::stop_token arret = {}, Ecoute ecoute = {});

    /// A walk through so many documents begins.
    void commence(qint64 total);
    /// The next step takes a turn. Whoever puts work off (the rows of a lot) does it before.
    bool due() const { return cession_ && cession_->due(); }

    /// Before each step. False when the search is to stop, as the result then says: it leaves at once, and touches no
    /// table again, as the base may have been closed.
    bool continuer(Resultat& resultat);
    /// The same around a table that others use as well: it is put back on its index and its row.
    bool continuer(Resultat& resultat, Recordset& table);
    /// The same without a turn, for a search that lets nothing through: hears what was asked for elsewhere, as under a
    /// question.
    bool suit(Resultat& resultat) const;

private:
    void dit(const Resultat& resultat) const;

    Cession* cession_ = nullptr;
    std::stop_token arret_;
    Ecoute ecoute_;
    qint64 total_ = 0;
};

} // namespace velm
