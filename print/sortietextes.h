#pragma once
// The ways in which the text of a document window leaves the program, as the user sees it: to a file and by mail.
// Nothing of the base is read, and nothing that is shown changes.
#include "core/fichiersechanges.h"
#include "platform/richtext/control.h"

namespace velm {

class SortieTextes {
public:
    /// None is owned. All must live as long as the mail service, which may still have to say that it has failed.
    struct Donnees {
        Dialogues& dialogues;
        Sablier& sablier;
        Courrier& courrier;
        Libelles texte;
    };
    explicit SortieTextes(const Donnees& donnees);

    /// Writes all of the text where the user wants it, as rich or as plain text, whole or not at all. True when it is
    /// written.
    bool enregistresous(const QString& titrecourant, const RichTextControl& rtf) const;
    /// Opens a message with the selection, or all of the text where there is none, as its body. A body that no mail
    /// program would take is attached, which is told.
    void envoietexte(const QString& titrecourant, const RichTextControl& rtf) const;
    /// The same with the text in an attached file.
    void envoiefichier(const QString& titrecourant, const RichTextControl& rtf) const;

private:
    bool veutremplacer(const QString& chemin) const;
    void envoimessage(const QString& sujet, const QString& contenu, bool texte) const;

    Donnees donnees_;
    FichiersEchanges fichiers_;
};

} // namespace velm
