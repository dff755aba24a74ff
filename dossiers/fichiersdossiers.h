#pragma once
// Opening, saving and mailing of files of dossiers, with what is asked and said on the way.
#include "core/fichiersechanges.h"
#include "dossiers/fichierdossier.h"

namespace velm {

class FichiersDossiers {
public:
    /// None is owned. All must live as long as `courrier`, which may still have to say that it has failed.
    FichiersDossiers(Dialogues& dialogues, Sablier& sablier, Courrier& courrier, const Libelles& texte)
        : dialogues_(dialogues), texte_(texte), fichiers_(dialogues, sablier, courrier, texte) {}

    /// Reads the file of this name (that the command line has given), or of one that the user chooses. Nothing when the
    /// user gives up or the file is none; what is wrong has been said.
    std::optional<FichierDossier> ouvre(const QString& nom = {});
    /// Writes where the user wants it, whole or not at all. False when the user gives up or it cannot be written.
    bool enregistre(const FichierDossier& fichier);
    /// Opens a message in the mail program with the file attached.
    void envoie(const FichierDossier& fichier);

private:
    ChoixFichier choix(Texte titre, Texte filtre) const;
    std::optional<QString> choisi();

    Dialogues& dialogues_;
    Libelles texte_;
    FichiersEchanges fichiers_;
};

} // namespace velm
