#pragma once
// The user's printer, with a scripted double in the tests.
#include "platform/paper/papertable.h"

#include <functional>

namespace velm {

enum class ReponseImpression { Tout, Selection, Annule };

/// The question where to print, before a job begins.
class DialogueImpression {
public:
    struct Question {
        bool selectionpossible = false; ///< the selection can be chosen in place of all
        bool selectionproposee = false; ///< and is what is chosen at first

        friend bool operator==(const Question&, const Question&) = default;
    };

    virtual ~DialogueImpression() = default;
    /// Lets the user choose the printer of the job, and what is printed; never a range of pages.
    virtual ReponseImpression demande(const Question& question) = 0;
};

class Imprimante : public DialogueImpression {
public:
    /// The paper in the chosen printer; where there is none, the usual one, all of which can be printed on.
    virtual PrintDevice::Sheet feuille() const = 0;
    /// Hears of each page before it goes out; false stops the printing, and nothing comes out.
    using Avance = std::function<bool(int page)>;
    /// Prints pages on the chosen printer. Throws PrintFailure when there is none, when it does not take them, or when
    /// it was stopped.
    virtual void imprimepages(const JobPages& pages, const QString& titre, const Avance& avance) = 0;
    /// Prints a list without asking; false when there is no printer, or it does not take it.
    virtual bool imprime(const PaperTable& liste) = 0;
    /// Lets the user choose the printer and its paper for all jobs to come.
    virtual void configure() = 0;
};

} // namespace velm
