#pragma once
// What the program has to say about itself: a text that is missing, a setting that cannot be used, an error that ends
// it. No window lives here.
#include "core/langue.h"
#include "core/texte.h"
#include "platform/base/failure.h"
#include "platform/system/dialogues.h"

#include <QString>

namespace velm {

class Avis {
public:
    /// Neither is owned. Both may be completed after this: nothing is asked of them before the first call.
    Avis(Dialogues& dialogues, Langue& langue);

    /// A text that is missing everywhere shows its number. From the third box on, a check box silences them for the
    /// run.
    void textemanquant(const QString& numero);

    /// A setting that cannot be used at the start: true when the user goes on with its default. From the second
    /// question on, a check box answers for all that follow.
    bool continueavecledefaut(const RuntimeFailure& faute);

    /// The box of an error that ends the program, unless the user knows already.
    void fin(const RuntimeFailure& erreur);

    /// There was no memory for something: what was asked for is given up and the run goes on, or, at the start, ends.
    void sansmemoire(bool audebut);

    /// Caption of a box's button; empty when the language file has none, without a box about that.
    QString libellebouton(Bouton bouton);

private:
    QString sansboite(Texte lequel);

    Dialogues& dialogues_;
    Langue& langue_;
    bool silencieux_ = false;     ///< missing texts are not said now
    bool textestus_ = false;      ///< silenced: the user wants to hear of no missing text any more
    int textesmanquants_ = 0;     ///< boxes so far
    int questions_ = 0;           ///< about settings so far
    bool defautspartout_ = false; ///< the user has answered for all settings that follow
};

} // namespace velm
