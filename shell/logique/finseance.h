#pragma once
// The end of a run: its questions, and everything that is written and closed.
#include "shell/logique/seance.h"

namespace velm {

class FinSeance {
public:
    /// Nothing is owned; all of it outlives this.
    FinSeance(const Seance& seance, Reglages& reglages, Langue& langue, Corpus& corpus, Dialogues& dialogues,
              const Ecrans& ecrans);

    /// The exit sequence. False: the user refused and nothing was closed.
    bool quitteprogramme();
    /// The same without its questions, for an end that nobody is asked about. An open print job is thrown away. Nothing
    /// happens when the program has ended already.
    void termine();
    /// Writes what the exit sequence writes and closes nothing: the desktop's session may end, or go on after all.
    void enregistre();

private:
    bool quittequestions();
    void ferme();
    void ecritfenetres(const EtatFenetres& etat);
    void ecritposition(const PositionFenetre& position);

    const Seance& seance_;
    Reglages& reglages_;
    Langue& langue_;
    Corpus& corpus_;
    Dialogues& dialogues_;
    Ecrans ecrans_;
    bool fermee_ = false; ///< it has begun to close
};

} // namespace velm
