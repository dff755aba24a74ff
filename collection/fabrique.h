#pragma once
// The making of a base: bodies and words by several threads, rows by one.
#include "collection/collection.h"
#include "collection/document.h"
#include "platform/engine/database.h"

namespace velm {

struct BilanDeFabrique {
    bool ecrit = false;                 ///< every row is in the base
    QString raison;                     ///< why the base could not be written; empty otherwise
    Obstacle obstacle = Obstacle::None; ///< the kind of that
    Problemes problemes;
    ComptesDeBase comptes;
};

/// Fills an empty base with a collection. After a first error of the source nothing more is written, but the rest of
/// the source is still checked. `ecrit` false without an error among the problems: the base could not be written.
/// `textes`: with the table of folded texts.
BilanDeFabrique fabriquebase(const Provenance& provenance, Database& base, const Progres& progres, bool textes);

} // namespace velm
