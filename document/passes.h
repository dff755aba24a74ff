#pragma once
// The four passes one by one, on the control's text itself. Private to this folder and to its tests.
#include "document/balises.h"

namespace velm::passes {

/// Length of what an inclusion without its end takes with it.
inline constexpr qsizetype longueurefface = 999000;
inline constexpr qsizetype insertionminimale = 32;

/// Counts what a pass puts in, and says when it must stop.
class Compteur {
public:
    explicit Compteur(const BornesPasses& bornes) : bornes_(bornes) {}
    /// A change of a text of `longueur` positions: true when it may be made.
    bool permet(qsizetype longueur, qsizetype retire, qsizetype insere) {
        if (insere > retire && longueur - retire + insere > bornes_.texte)
            return false;
        total_ += std::max(insertionminimale, insere);
        return total_ <= bornes_.insere;
    }

private:
    BornesPasses bornes_;
    qsizetype total_ = 0;
};

void inclusions(RichText& texte, SourceDeContenu& source, const BornesPasses& bornes);
void sautsdepage(RichText& texte);
void sections(RichTextControl& controle, bool abc, const ContextePasses& contexte);
void liens(RichText& texte, ListesLiens* listes, const BornesPasses& bornes);

} // namespace velm::passes
