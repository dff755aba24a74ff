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
    /// Begins again: another text is looked for, or in another document.
    void recommence() { *this = {}; }

    qsizetype debut() const { return debut_; }
    int compte() const { return compte_; }

private:
    qsizetype debut_ = 0;
    int compte_ = 0;
};

/// Finds from `debut` to `fin` (-1: the end) and selects the hit; false when there is none.
bool FindString(RichTextControl& controle, const QString& texte, qsizetype debut, qsizetype fin, int options);

} // namespace velm
