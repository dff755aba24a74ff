#pragma once
// The quick search while its text is being typed: over all collections, a few rows at most. A new text stops what is
// being looked for and begins when that has left.
#include "core/corpus.h"
#include "search/poste.h"
#include "search/resultat.h"

#include <functional>

namespace velm {

class RechercheImmediate {
public:
    /// What was found by then, a row at least; or, `finie`, all that there is.
    using Ecoute = std::function<void(const Resultat& resultat, bool finie)>;

    /// `evenements` lets through what waits, at the turns of the search. The corpus is not owned.
    RechercheImmediate(Corpus& corpus, std::function<void()> evenements, Ecoute ecoute,
                       std::chrono::milliseconds pas = Cession::pasordinaire);

    /// Tells of the rows whenever there are more of them, and at the end, when it knows how many there are beyond the
    /// limit; of a search that was stopped nothing more.
    void cherche(const QString& texte, qint64 limite);
    /// To be called before the base is closed, and when nobody wants to know any more.
    void arrete() { poste_.arrete(); }

private:
    void fait(const QString& texte, qint64 limite, const std::stop_token& arret);

    Corpus& corpus_;
    Ecoute ecoute_;
    Poste poste_;
};

} // namespace velm
