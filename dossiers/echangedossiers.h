#pragma once
// What comes into the dossiers and goes out of them by files, and their repair.
#include "dossiers/fichierdossier.h"
#include "dossiers/gestiondossiers.h"
#include "dossiers/reparation.h"

namespace velm {

/// What a file holds of a dossier of this name, whose items are listed.
FichierDossier fichierdudossier(const QString& nom, const ListItems& elements);
/// Makes the dossier of a file the last one below the root, selected, and shows its items: one change of the store, to
/// which a save of the tree is still to come. After a failure everything is as before.
EchecEcriture importedossier(Magasin& magasin, TreeNodes& noeuds, ArbreDossiers& arbre, ContenuDossier& contenu,
                             const FichierDossier& fichier);

class EchangeDossiers {
public:
    /// Not owned.
    explicit EchangeDossiers(GestionDossiers& gestion) : gestion_(gestion) {}

    /// The dossier that is selected, with what the list shows of it.
    FichierDossier fichier() const;
    /// Makes a dossier under the root of what a file holds, in the store at once; it is selected. The list shows the
    /// keys of the file until the dossier is listed anew. False when it could not be written, which has been told:
    /// nothing of it is left.
    bool importe(const FichierDossier& fichier);

    /// Asks, saves, repairs, and loads the tree anew, `developpe`: with all levels open. Nothing where the user
    /// declines or stops, or after a failure, of which was told.
    std::optional<BilanReparation> repare(bool developpe, const Reparation::Progres& progres);

private:
    GestionDossiers& gestion_;
};

} // namespace velm
