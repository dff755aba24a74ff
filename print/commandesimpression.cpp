#include "print/commandesimpression.h"

#include "print/gardeimpression.h"

namespace velm {

void CommandesImpression::imprimerdocument(const RichTextControl& rtf) {
    bool selection = rtf.selLength() > 0;
    if (demande()) {
        const ReponseImpression reponse = donnees_.dialogue.demande({selection, selection});
        if (reponse == ReponseImpression::Annule)
            return;
        selection = rtf.selLength() > 0 && reponse == ReponseImpression::Selection;
    }
    imprimesousgarde([&] { imprime(rtf, selection); }, donnees_.dialogues, donnees_.texte);
}

void CommandesImpression::terminetravail() {
    imprimesousgarde([this] { donnees_.impression.terminetravail(); }, donnees_.dialogues, donnees_.texte);
}

void CommandesImpression::abandontravail() {
    imprimesousgarde([this] { donnees_.impression.abandontravail(); }, donnees_.dialogues, donnees_.texte);
}

bool CommandesImpression::demande() const {
    return donnees_.reglages.choiximprimante && !donnees_.impression.etat().travailencours;
}

void CommandesImpression::imprime(const RichTextControl& rtf, bool selection) {
    if (selection)
        donnees_.impression.imprimerichtext(rtf, rtf.selStart(), rtf.selStart() + rtf.selLength());
    else
        donnees_.impression.imprimerichtext(rtf, 0, Impression::tout);
}

} // namespace velm
