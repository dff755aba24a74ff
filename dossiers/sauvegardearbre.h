#pragma once
// Brings a tree of dossiers into the store, row by row, as the letters of its nodes tell. One object for one save,
// within a change of the store.
#include "dossiers/magasin.h"
#include "dossiers/temoindossiers.h"
#include "platform/controls/treenodes.h"

namespace velm {

class SauvegardeArbre {
public:
    /// None is owned. `prochainnumero` may grow.
    SauvegardeArbre(Magasin& magasin, const TreeNodes& noeuds, qint64& prochainnumero)
        : magasin_(magasin), noeuds_(noeuds), prochainnumero_(prochainnumero) {}

    /// Writes all of it. `retires`: the children of the root whose rows are gone, and that are to leave the tree. False
    /// where a table says no.
    bool sauve(std::vector<int>& retires);
    /// Writes the row of one new dossier.
    bool ecritneuf(int noeud);
    /// What became of rows and names. `perdus`: dossiers whose letters a move took; those without a row are lost.
    Changements changements(const std::vector<qint64>& perdus) const;

private:
    qint64 numero(int noeud) const;
    bool porte(int noeud, QChar lettre) const;
    bool sauvenumero();
    bool miseajourauplusbas(int noeud, bool& supprime);
    bool supprimerangee(int noeud);
    bool sauvenoeud(int noeud);
    bool ajouterangee(int noeud);
    bool changerangee(int noeud, bool parent);
    bool renommerangee(int noeud);
    bool trouve(int noeud) const;
    void notenom(int noeud);
    bool aenfants(qint64 numero) const;
    void ecritnom(Recordset& table, int noeud) const;
    bool ecritavecreprise(const std::function<void(Recordset&)>& champs, bool nouvelle);

    Magasin& magasin_;
    const TreeNodes& noeuds_;
    qint64& prochainnumero_;
    Changements changements_{{}, {}, false};
    qint64 compteurordre_ = 0;
};

} // namespace velm
