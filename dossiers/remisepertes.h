#pragma once
// Puts back what the journal knows to be lost: in the store, within a change of it, and after that in the tree. One
// object for losses that are put back together.
#include "dossiers/gestiondossiers.h"
#include "dossiers/journaldossiers.h"
#include "dossiers/rangeesdossiers.h"

#include <map>

namespace velm {

class RemisePertes {
public:
    /// None is owned.
    RemisePertes(GestionDossiers& gestion, Magasin& magasin, TreeNodes& noeuds)
        : gestion_(gestion), magasin_(magasin), noeuds_(noeuds), rangees_(magasin, noeuds) {}

    /// Its rows. An item comes into its dossier, at its place if that is free; a dossier that has no row gets one
    /// again, with another number where its own has become another's. False where a table says no.
    bool remet(Perte perte);
    /// The change was made: the tree shows it, and the journal knows of other numbers.
    void montre(JournalDossiers& journal);
    /// It was not: what came into the tree for it goes.
    void renonce();

private:
    qint64 parentde(const Perte& perte) const;
    bool retrouvedossier(Perte& perte);
    bool recree(const Perte& perte) const;
    bool remettitre(const Perte& perte) const;
    void montreenfants(qint64 parent);

    GestionDossiers& gestion_;
    Magasin& magasin_;
    TreeNodes& noeuds_;
    RangeesDossiers rangees_;
    std::map<std::pair<qint64, QString>, int> nouveaux_; ///< the nodes of dossiers whose number is another's
    std::vector<qint64> parents_;                        ///< below which rows came that the tree does not have
    std::vector<qint64> comptes_;                        ///< dossiers that have one item more, again for each
};

} // namespace velm
