#pragma once
// Opening, saving and mailing of criteria files, with what is asked and said on the way.
#include "core/fichiersechanges.h"
#include "search/fichiercriteres.h"

namespace velm {

class FichiersCriteres {
public:
    /// None is owned. All must live as long as `courrier`, which may still have to say that it has failed.
    FichiersCriteres(Dialogues& dialogues, Sablier& sablier, Courrier& courrier, const Libelles& texte)
        : dialogues_(dialogues), texte_(texte), fichiers_(dialogues, sablier, courrier, texte) {}

    /// Reads the file of this name (that the command line has given), or of one that the user chooses. Nothing, and
    /// nothing has changed, when the user gives up or the file is none; what is wrong has been said.
    std::optional<FichierCriteres> ouvrircriteres(const QString& nom = {});
    /// Writes where the user wants it, whole or not at all. False when the user gives up or it cannot be written.
    bool sauvercriteres(const FichierCriteres& fichier);
    /// Opens a message in the mail program with the file attached; nothing without rows.
    void envoyercriteres(const FichierCriteres& fichier);

private:
    ChoixFichier choix(Texte titre) const;

    Dialogues& dialogues_;
    Libelles texte_;
    FichiersEchanges fichiers_;
};

} // namespace velm
