#pragma once
// Opening, saving and mailing of criteria files, with what is asked and said on the way.
#include "core/texte.h"
#include "platform/system/courrier.h"
#include "platform/system/dialogues.h"
#include "platform/system/sablier.h"
#include "search/fichiercriteres.h"

#include <functional>

namespace velm {

class FichiersCriteres {
public:
    /// None is owned. All must live as long as `courrier`, which may still have to say that it has failed.
    FichiersCriteres(Dialogues& dialogues, Sablier& sablier, Courrier& courrier, Libelles texte)
        : dialogues_(dialogues), sablier_(sablier), courrier_(courrier), texte_(std::move(texte)) {}

    /// Reads the file of this name (that the command line has given), or of one that the user chooses. Nothing, and
    /// nothing has changed, when the user gives up or the file is none; what is wrong has been said.
    std::optional<FichierCriteres> ouvrircriteres(const QString& nom = {});
    /// Writes where the user wants it, whole or not at all. False when the user gives up or it cannot be written.
    bool sauvercriteres(const FichierCriteres& fichier);
    /// Opens a message in the mail program with the file attached; nothing without rows.
    void envoyercriteres(const FichierCriteres& fichier);

private:
    ChoixFichier choix(Texte titre) const;
    std::optional<QByteArray> lit(const QString& chemin);
    void ditnonecrit(const QString& nom, const FileError& erreur, Texte titre);

    Dialogues& dialogues_;
    Sablier& sablier_;
    Courrier& courrier_;
    Libelles texte_;
};

} // namespace velm
