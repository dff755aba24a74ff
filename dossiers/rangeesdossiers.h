#pragma once
// Rows of dossiers and items, by their numbers and places, for what is taken back and put back.
#include "dossiers/magasin.h"
#include "dossiers/temoindossiers.h"
#include "platform/controls/treenodes.h"

namespace velm {

class RangeesDossiers {
public:
    /// None is owned.
    RangeesDossiers(Magasin& magasin, const TreeNodes& noeuds) : magasin_(magasin), noeuds_(noeuds) {}

    /// Whether a dossier has a row; it is the current one then.
    bool dossierlu(qint64 numero) const;
    /// Whether a dossier is in the store or in the tree; the root always is.
    bool existe(qint64 numero) const;
    /// A dossier as its row has it, or the tree where it has none.
    DossierPerdu dossier(qint64 numero) const;
    QString nom(qint64 numero) const { return dossier(numero).nom; }
    /// The node of a dossier; 0 for none.
    int noeud(qint64 numero) const;

    /// Whether a place is taken; its row is the current one then.
    bool occupee(qint64 dossier, qint64 noordre) const;
    /// Whether a row stands as it was left; it is the current one then.
    bool trouve(const RangeeRangee& rangee) const;
    /// Writes the current row, or a new one, at its place, or at the first one that is free when that is taken.
    bool place(RangeeRangee rangee, bool nouvelle) const;

private:
    Magasin& magasin_;
    const TreeNodes& noeuds_;
};

} // namespace velm
