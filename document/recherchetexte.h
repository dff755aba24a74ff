#pragma once
// The walk of the find dialog through the text of a window.
#include "platform/richtext/control.h"

namespace velm {

class RechercheTexte {
public:
    static constexpr int motentier = 2;
    static constexpr int casse = 4;
    /// The number of both boxes, as the search is asked with it.
    static int options(bool mot, bool majuscules) { return (mot ? motentier : 0) + (majuscules ? casse : 0); }

    enum class Issue {
        Trouve,  ///< the control's selection is the hit
        Absent,  ///< no further hit, after one at most
        Termine, ///< no further hit, after several
    };
    /// The next hit behind the last one. Without one the next call begins at the text's start.
    Issue suivant(RichTextControl& controle, const QString& texte, int options);
    /// The hit before the last one, before the first the text's last: one of `occurrences`, which are of the same text
    /// and `longueur` long. Then next is again what stands behind it; it does not count as a further hit. False
    /// without any.
    bool precedent(RichTextControl& controle, const std::vector<qsizetype>& occurrences, qsizetype longueur);
    /// Where the last hit begins; -1 before the first.
    qsizetype derniere() const { return debut_ - 1; }
    /// Begins again: another text is looked for, or in another document.
    void recommence() { *this = {}; }

    qsizetype debut() const { return debut_; }
    int compte() const { return compte_; }

private:
    qsizetype debut_ = 0;
    int compte_ = 0;
};

/// Where all hits of a text begin.
std::vector<qsizetype> occurrencesde(const RichText& dans, const QString& texte, int options);

/// Finds from `debut` to `fin` (-1: the end) and selects the hit; false when there is none.
bool FindString(RichTextControl& controle, const QString& texte, qsizetype debut, qsizetype fin, int options);

} // namespace velm
