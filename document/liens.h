#pragma once
// The documents that a document cites, and those that cite it.
#include "core/cle.h"
#include "core/corpus.h"

#include <QString>

#include <vector>

namespace velm {

/// A row of either grid.
struct LigneLien {
    QString code; ///< collection of the other document
    QString titre;
    Cle cle;

    friend bool operator==(const LigneLien&, const LigneLien&) = default;
};

/// What the document of a key cites: each document once, those that are not in the base left out. An empty key gives
/// nothing.
std::vector<LigneLien> chargeliens(Corpus& corpus, const Cle& cle);
/// What cites the document of a key, in the same way.
std::vector<LigneLien> chargecorrelats(Corpus& corpus, const Cle& cle);

} // namespace velm
