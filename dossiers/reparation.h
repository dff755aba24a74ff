#pragma once
// Repair of the store: dossiers and items that belong to nobody go, counts and the last number are made true, and the
// file is written anew. It works on a copy, which takes the store's place whole, at the end.
//
// Dossiers are looked at once, in the order of their numbers. One goes when the parent that it names is not there any
// more by then, so that of a chain of orphans only what stands in that order goes; the rest goes with the next repair.
#include "dossiers/magasin.h"

#include <utility>
#include <vector>

namespace velm {

/// What a repair has changed, or would change.
struct BilanReparation {
    EchecEcriture echec;
    bool arretee = false; ///< by who was told how far it is; nothing was changed
    qint64 dossiers = 0;  ///< taken out
    qint64 elements = 0;  ///< taken out
    qint64 comptes = 0;   ///< corrected
    qint64 ancien = 0;    ///< the last number as it was…
    qint64 nouveau = 0;   ///< …and the greatest that there is

    bool rien() const { return dossiers == 0 && elements == 0 && comptes == 0; }
    bool faite() const { return echec.ok() && !arretee; }
};

class Reparation {
public:
    /// Hears per cents, never less than before; false stops it, as long as it has not begun to replace the store.
    using Progres = std::function<bool(int pourcent)>;

    /// The store is open before and afterwards; what was read of it is to be read again.
    static BilanReparation repare(Magasin& magasin, const Progres& progres = {});
    /// What repare() would do to a base of dossiers. Nothing is changed in it.
    static BilanReparation verifie(Database& base, const Progres& progres = {});

private:
    Reparation(Database& copie, const Progres& progres) : copie_(copie), progres_(progres) {}

    using Place = std::function<bool(Database& copie)>;
    static BilanReparation surcopie(Database& base, const Progres& progres, const Place& place);
    bool travaille();
    bool avance();
    bool existe(qint64 dossier);
    bool retiredossiers();
    bool retireelements();
    bool compteelements();
    bool corrigecomptes();
    bool corrigenumero();

    Database& copie_;
    const Progres& progres_;
    std::unique_ptr<Recordset> dossiers_, cherches_, elements_, parametres_;
    std::vector<std::pair<qint64, qint64>> comptes_; ///< dossiers that stay, by number, with their items
    BilanReparation bilan_;
    qint64 vus_ = 0;
    qint64 annonce_ = 1; ///< how many are seen when it is told next
    qint64 avoir_ = 1;
};

} // namespace velm
