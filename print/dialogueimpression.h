#pragma once
// The question where to print, before a job begins.

namespace velm {

enum class ReponseImpression { Tout, Selection, Annule };

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

} // namespace velm
