#pragma once
// The four passes one by one. Private to this folder and to its tests.
//
// Each reads a flat text from left to right and writes a new one. What a pass changes can make a new token arise only
// at the seam of the change: at most two characters of what is written already belong to it. So nothing is searched
// twice, however the tokens lie.
#include "document/balises.h"
#include "document/plat.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace velm::passes {

/// Length of what an inclusion without its end takes with it.
inline constexpr qsizetype longueurefface = 999000;
inline constexpr qsizetype insertionminimale = 32;

/// Counts what a pass puts in, and says when it must stop.
class Compteur {
public:
    explicit Compteur(const BornesPasses& bornes) : bornes_(bornes) {}
    /// `insere` positions more in a text of `longueur`, where `retire` go: true when that may be done.
    bool permet(qsizetype longueur, qsizetype retire, qsizetype insere) {
        if (insere > retire && longueur - retire + insere > bornes_.texte)
            return false;
        total_ += std::max(insertionminimale, insere);
        return total_ <= bornes_.insere;
    }
    /// A shown text that a list keeps.
    bool retient(qsizetype longueur) {
        retenu_ += longueur;
        return retenu_ <= bornes_.retenu;
    }

private:
    BornesPasses bornes_;
    qsizetype total_ = 0;
    qsizetype retenu_ = 0;
};

/// Notices links that go round in a circle: at one place the same text stands again before the same bar. What lies
/// before that place is final and what lies behind the bar is untouched, so everything will come again.
class Cercle {
public:
    /// `longueur` positions before the bar, `derriere` from it on; `texte()` gives those before it.
    template <typename Ecrit>
    bool ferme(qsizetype position, qsizetype longueur, qsizetype derriere, Ecrit texte) {
        constexpr int assez = 64; ///< passed over first: almost every text goes on
        if (std::exchange(position_, position) != position)
            pas_ = 0;
        ++pas_;
        if (pas_ > assez && longueur == repere_.size() && derriere == derriere_ && texte() == repere_)
            return true;
        if (pas_ >= assez && (pas_ & (pas_ - 1)) == 0) {
            repere_ = texte();
            derriere_ = derriere;
        }
        return false;
    }

private:
    qsizetype position_ = -1;
    int pas_ = 0;
    QString repere_;
    qsizetype derriere_ = 0;
};

// Each gives nothing when it has nothing to change. `hote` is the text whose format numbers count.

std::optional<Plat> inclusions(const Plat& texte, RichText& hote, SourceDeContenu& source, const BornesPasses& bornes);
std::optional<Plat> sautsdepage(const Plat& texte, RichText& hote);
std::optional<Plat> sections(const Plat& texte, RichText& hote, RichTextControl& controle, bool abc,
                             const ContextePasses& contexte);
/// The lists are emptied first.
std::optional<Plat> liens(const Plat& texte, RichText& hote, ListesLiens* listes, const BornesPasses& bornes);

} // namespace velm::passes
