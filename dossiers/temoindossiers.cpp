#include "dossiers/temoindossiers.h"

namespace velm {

EchecEcriture ecritvu(Magasin& magasin, TemoinDossiers* temoin, const std::function<bool(Changements&)>& travail) {
    bool dit = false;
    const EchecEcriture echec = magasin.ecrit([&] {
        Changements changements;
        if (!travail(changements))
            return false;
        dit = temoin != nullptr && !changements.vide();
        if (dit)
            temoin->vachanger(changements);
        return true;
    });
    if (dit)
        temoin->change(echec.ok());
    return echec;
}

} // namespace velm
