#pragma once
// The store of dossiers that a command works on.
#include "dossiers/arbredossiers.h"
#include "dossiers/contenudossier.h"
#include "dossiers/lignesdossiers.h"
#include "outil/sortie.h"
#include "platform/controls/listitems.h"
#include "platform/system/sablier.h"

namespace velm::outil {

/// The store that --dossiers names, else the one beside the program.
QString chemindossiers(const Contexte& contexte);

/// Says what cannot be read, or is damaged.
int echouemagasin(Contexte& contexte, Texte lequel, const EchecEcriture& echec);

/// The dossier of a number; nothing without one.
std::optional<LigneDossier> dossiernumero(Database& base, qint64 numero);

/// The store as the window has it, without a window.
class Atelier {
public:
    explicit Atelier(Contexte& contexte);

private:
    SablierMuet sablier_;

public:
    Magasin magasin;
    TreeNodes noeuds;
    ListItems elements;
    ArbreDossiers arbre;
    ContenuDossier contenu;
};

} // namespace velm::outil
