#pragma once
// The words of a search in a document: marked in colour, and walked through one by one.
#include "platform/richtext/control.h"

#include <optional>
#include <vector>

namespace velm {

/// How found words look, and whether they are marked as soon as a document is opened from the selection list.
struct Marquage {
    int couleur = autoColour;
    bool gras = false;
    bool italique = false;
    bool automatique = false;
};

struct Occurrence {
    qsizetype debut = 0;
    qsizetype longueur = 0;

    friend bool operator==(const Occurrence&, const Occurrence&) = default;
};

struct Marques {
    int nombre = 0;
    qsizetype premiere = -1;    ///< where the first one begins, -1 for none
    std::vector<Occurrence> ou; ///< word by word, each in the order of the text
};

/// The words that a document window looks for, and where its walk stands.
struct MotsCherches {
    QString mot1; ///< empty: nothing is looked for
    QString mot2;
    qsizetype posdepartrecherche = 0;
};

/// Marks every occurrence of a word, in whatever case; the selection stays. An occurrence at the very first character
/// is not marked and ends the marking (kept: a text that begins with the word shows no mark of it, though one can walk
/// through the others). One change of the control, however many there are.
Marques marquemot(RichTextControl& controle, const QString& mot, const Marquage& marquage);

/// Marks both words, with one repaint.
Marques marquemots(RichTextControl& controle, const MotsCherches& mots, const Marquage& marquage);

/// The next occurrence behind the walk's place: the nearer one of the two words, nothing when there is none.
std::optional<Occurrence> motsuivant(const RichText& texte, const MotsCherches& mots);
/// The occurrence before the walk's place: of the last ones of both words the farther, nothing when there is none.
std::optional<Occurrence> motprecedent(const RichText& texte, const MotsCherches& mots);

} // namespace velm
