#pragma once
// Sheets as a PDF where the user wants it.
#include "core/fichiersechanges.h"
#include "platform/paper/jobpages.h"
#include "print/avancement.h"

namespace velm {

class ExportPdf {
public:
    /// None is owned. All must live as long as the mail service does.
    struct Donnees {
        Dialogues& dialogues;
        Sablier& sablier;
        Courrier& courrier;
        Avancement& avancement;
        Libelles texte;
        std::function<void(const QString& texte)> dit; ///< in passing, in no box
    };
    explicit ExportPdf(const Donnees& donnees);

    /// Makes the sheets once the user has said where they go; `avance` is to be asked while they are made.
    using Compose = std::function<JobPages(const std::function<bool(const JobPages& pages)>& avance)>;
    /// True when the file is written, whole; what stands in the way has been said.
    bool exporte(const QString& titre, const Compose& compose);

private:
    QByteArray octets(const QString& titre, const Compose& compose);

    Donnees donnees_;
    FichiersEchanges fichiers_;
    bool arretee_ = false; ///< the user has stopped it
};

} // namespace velm
