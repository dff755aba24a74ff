#pragma once
// The commands by which a document is printed and the open job is ended.
#include "platform/system/dialogues.h"
#include "platform/system/imprimante.h"
#include "print/impression.h"

#include <utility>

namespace velm {

class CommandesImpression {
public:
    /// None is owned.
    struct Donnees {
        Impression& impression;
        const ReglagesImpression& reglages;
        DialogueImpression& dialogue;
        Dialogues& dialogues;
        Libelles texte;
    };
    explicit CommandesImpression(Donnees donnees) : donnees_(std::move(donnees)) {}

    /// Prints the text, or its selection: as the user chooses where he is asked, otherwise the selection if there is
    /// one. While a job is open nobody is asked: its printer stays.
    void imprimerdocument(const RichTextControl& rtf);
    void terminetravail();
    void abandontravail();

private:
    bool demande() const;
    void imprime(const RichTextControl& rtf, bool selection);

    Donnees donnees_;
};

} // namespace velm
