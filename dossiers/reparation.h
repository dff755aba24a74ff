#pragma once
// Repair of the store: dossiers and items that belong to nobody go, counts and the last number are made true, and the
// file is written anew. It works on a copy, which takes the store's place whole, at the end.
#include "dossiers/magasin.h"

namespace velm {

struct BilanReparation {
    EchecEcriture echec;
    bool arretee = false; ///< by who was told how far it is; nothing was changed
    qint64 dossiers = 0;  ///< taken out
    qint64 elements = 0;  ///< taken out
    qint64 comptes = 0;   ///< corrected

    bool rien() const { return dossiers == 0 && elements == 0 && comptes == 0; }
};

class Reparation {
public:
    /// Hears per cents; false stops.
    using Progres = std::function<bool(int pourcent)>;

    /// The store is open before and afterwards; what was read of it is to be read again.
    static BilanReparation repare(Magasin& magasin, const Progres& progres = {});

private:
    Reparation(Database& copie, const Progres& progres) : copie_(copie), progres_(progres) {}

    bool travaille();
    bool avance();
    bool retiredossiers();
    bool retireelements();
    bool corrigecomptes();
    bool corrigenumero();

    Database& copie_;
    const Progres& progres_;
    std::unique_ptr<Recordset> dossiers_, cherches_, elements_, parametres_;
    BilanReparation bilan_;
    qint64 vus_ = 0;
    qint64 avoir_ = 1;
};

} // namespace velm
